// DFileLoad: the listing object.
//
// One object is at once an ordered list of DFile records (`files`), a directory cursor, a search
// engine with its tallies, the holder of the controls that show a search, and the state of the
// browse dialogs. All fields are public.
#ifndef TESSIK_DFILELOAD_H
#define TESSIK_DFILELOAD_H

#include <tessik/Container.h>
#include <tessik/DFile.h>
#include <tessik/DName.h>
#include <tessik/DirectoryListingSpec.h>
#include <tessik/Link.h>
#include <tessik/export.h>
#include <tessik/platform.h>

#include <cstdint>

// Column numbers: one picks a column, a mask of them is a list control's report style.
enum Column : unsigned int {
    ColumnName = 1,
    ColumnDrive = 2,
    ColumnPath = 4,
    ColumnSize = 8,
    ColumnAttributes = 16,
    ColumnCreated = 32,
    ColumnAccessed = 64,
    ColumnWritten = 128
};

class DProgressBar;
class DText;
class DStatusWnd;
class DListControl;
class SearchFeedback;

class TESSIK_API DFileLoad {
public:
    bool browseIsDir;
    Container<DFile> files;
    HANDLE findHandle; // the open enumeration; null while the cursor is closed
    DWORD openFileFlags;
    DWORD browseDirFlags;
    DWORD browseFilterIndex;
    DirectoryListingSpec spec;
    DFile foundFile;
    DName workPath;
    DName storedDir;
    DName browseDir;
    DName browseTitle;
    DName browseFilter;
    Container<DName> browseNames;
    Container<DName> searchTerms;
    DWORD totalSearched;
    DWORD totalMatches;
    DWORD totalSearchMilliseconds;
    DWORD totalSearchDirs;
    std::uint64_t totalMatchesSize;
    bool countOnly;
    bool analysis;
    DWORD totalArchive;
    DWORD totalCompressed;
    DWORD totalNormal;
    DWORD totalDirectory;
    DWORD totalHidden;
    DWORD totalEncrypted;
    DWORD totalSystem;
    DWORD totalTemporary;
    DWORD totalReadOnly;
    std::uint64_t totalArchiveSize;
    std::uint64_t totalCompressedSize;
    std::uint64_t totalNormalSize;
    std::uint64_t totalDirectorySize;
    std::uint64_t totalHiddenSize;
    std::uint64_t totalEncryptedSize;
    std::uint64_t totalSystemSize;
    std::uint64_t totalTemporarySize;
    std::uint64_t totalReadOnlySize;
    std::uint64_t totalSearchedSize;
    bool abortRequested;
    bool searching;
    DProgressBar* progressBar;
    DText* percentText;
    DStatusWnd* statusWnd;
    DListControl* listControl;

    // ---- The object and its list ----------------------------------------------------------
    DFileLoad();
    ~DFileLoad();

    void ResetBrowse();
    void SetupControls(DProgressBar const* progressBar, DText const* percentText,
                       DStatusWnd const* statusWnd, DListControl const* listControl);
    void Destroy(); // empties the listing and closes the cursor; tallies stay

    bool isOpen() const;
    bool isEmpty() const;
    bool operator!() const;
    unsigned const& Size() const;
    void* const& GetHandle() const;
    DFile const& GetFoundFile() const;
    DFile& operator[](unsigned const& index) const;
    DFile const& GetPos(unsigned const& index) const;
    DFile* operator()(unsigned const& index) const;
    bool operator++(); // steps the cursor
    void operator--(); // closes the cursor

    bool InsertLeft(DFile const& file);
    bool InsertRight(DFile const& file);
    bool InsertPos(DFile const& file, unsigned const& pos);
    bool InsertLeft(WIN32_FIND_DATAA const& data);
    bool InsertRight(WIN32_FIND_DATAA const& data);
    bool DelLeft();
    bool DelRight();
    bool DelPos(unsigned const& pos);

    // ---- Directory cursor and path tests --------------------------------------------------
    bool OpenDirListing(DirectoryListingSpec const& spec, DName const& dir, unsigned const& index);
    bool NextDirListing();
    void CloseDirListing();
    bool ChangeDir(DName const& path) const;
    DName GetDir() const;
    void StoreCurrentDir(DName const& dir);
    bool RestoreDir() const;
    bool isDir(DName const& path) const;
    bool isFile(DName const& path) const;
    bool isDir(WIN32_FIND_DATAA const& data) const;
    bool isSubDir(DName const& a, DName const& b) const;
    bool isDots(WIN32_FIND_DATAA const& data) const;
    bool isNotDots(WIN32_FIND_DATAA const& data) const;

    // ---- Match filter ---------------------------------------------------------------------
    // Whether an entry passes every test of `spec`: name, size, attributes, dates, and last the
    // content, for the terms in `searchTerms` (filled only while a search runs).
    bool IsFileSpec(DirectoryListingSpec const& spec, WIN32_FIND_DATAA const& data);
    bool IsFileSpec(DirectoryListingSpec const& spec, DFile const& file);

    // ---- Search ---------------------------------------------------------------------------
    // Breadth first over the directories of `spec` (the root of the current drive when there
    // are none), appending every match to `files`. False when stopped or out of memory.
    bool LoadAllDirListings(DirectoryListingSpec const& spec, bool recursive);
    bool LoadDirListing(DirectoryListingSpec const& spec);
    bool LoadDirSubDirs(DirectoryListingSpec const& spec, bool recursive);
    bool LoadDirFiles(DirectoryListingSpec const& spec, bool recursive);
    DWORD const& GetTotalDirListings(DirectoryListingSpec const& spec, bool recursive);
    DWORD const& GetTotalAnalysis(DirectoryListingSpec const& spec, bool recursive);
    bool isDirEmpty(DirectoryListingSpec const& spec, DName const& dir);

    // ---- Tallies of the last run, and figures over `files` --------------------------------
    DWORD const& GetTotalSearched() const;
    DWORD const& GetTotalMatches() const;
    DWORD const& GetTotalSearchMilliseconds() const;
    DWORD const& GetTotalSearchDirs() const;
    std::uint64_t const& GetTotalMatchesSize() const;
    std::uint64_t const& GetTotalSearchedSize() const;
    DWORD const& GetTotalSearchArchive() const;
    DWORD const& GetTotalSearchCompressed() const;
    DWORD const& GetTotalSearchNormal() const;
    DWORD const& GetTotalSearchDirectory() const;
    DWORD const& GetTotalSearchHidden() const;
    DWORD const& GetTotalSearchEncrypted() const;
    DWORD const& GetTotalSearchSystem() const;
    DWORD const& GetTotalSearchTemporary() const;
    DWORD const& GetTotalSearchReadOnly() const;
    std::uint64_t const& GetTotalSearchArchiveSize() const;
    std::uint64_t const& GetTotalSearchCompressedSize() const;
    std::uint64_t const& GetTotalSearchNormalSize() const;
    std::uint64_t const& GetTotalSearchDirectorySize() const;
    std::uint64_t const& GetTotalSearchHiddenSize() const;
    std::uint64_t const& GetTotalSearchEncryptedSize() const;
    std::uint64_t const& GetTotalSearchSystemSize() const;
    std::uint64_t const& GetTotalSearchTemporarySize() const;
    std::uint64_t const& GetTotalSearchReadOnlySize() const;
    DWORD GetTotalSearchFiles() const;
    DWORD GetTotalDirs(DName const& dir) const;
    DWORD GetTotalFiles() const;
    DWORD GetTotalFileSizes() const;
    DWORD GetTotalAllocationSizes() const;

    // ---- Stopping a run -------------------------------------------------------------------
    void SetAbort();
    void ClearAbort();

    // ---- Copies, comparisons by count, thinning -------------------------------------------
    DFileLoad(DFileLoad const& other);
    DFileLoad& operator=(DFileLoad const& other);
    bool RemDirs();
    bool RemFiles();
    bool operator==(DFileLoad const& other) const;
    bool operator!=(DFileLoad const& other) const;
    bool operator==(unsigned const& n) const;
    bool operator!=(unsigned const& n) const;
    bool operator<(unsigned const& n) const;
    bool operator>(unsigned const& n) const;
    bool operator>=(unsigned const& n) const;
    bool operator<=(unsigned const& n) const;

    // ---- Columns and sorting --------------------------------------------------------------
    DName GetColumn(unsigned int const& index, unsigned int const& column) const;
    // Whether the record at `index` sorts after `other` in `column`, ascending.
    bool CompareColumn(unsigned int const& index, DFile const& other,
                       unsigned int const& column) const;
    bool Sort(); // by path, directories first
    void SortRecursive(int first, int last);
    void SortRecursiveDirectory(int first, int last);
    void SortAlpha(unsigned int const& column, bool descending);

    // ---- Drawing into the list control ----------------------------------------------------
    bool DrawFile(DFile const& file, unsigned int const& row);
    bool DrawAllFiles(int const& first, int const& last);

    // ---- Stored form, text report, look-ups ------------------------------------------------
    // The stored form of a listing: the record count, then each record's stream form, in list
    // order. Write gives every record a new key. Read empties the listing first (and resets and
    // redraws an attached list control); on a failure it keeps the records read so far.
    bool Write(FileOper& file);
    bool Read(FileOper& file);
    bool operator>>(FileOper& file); // Write
    bool operator<<(FileOper& file); // Read
    // Reads a stored listing from the stream's position, record by record, up to the first whose
    // path is `name`; `record` holds the last record read. Uses no field of the object.
    bool ReadFind(FileOper& file, DName const& name, DFile& record);
    // A readable report: a header of column titles, then each record's block.
    bool TextWrite(FileOper& file);
    // The record at `index` as one line of aligned columns (those of the list control's report
    // style, all without a control), no line end; empty past the end.
    DName Format(unsigned int const& index) const;
    // Positions of the first record with that path, or with that last component; -1 for none.
    int FindPos(DName const& name) const;
    int FindByLong(DName const& name) const;
    int FindByFilename(DName const& name) const;
    // Copies into `differences` (a third object, emptied first) the records of `other` that
    // this listing lacks by DFile::operator==. True when there is at least one.
    bool FindDifferences(DFileLoad const& other, DFileLoad& differences);

    // ---- Directory operations and browsing ------------------------------------------------
    // On the disk, never on `files`. Free room of the current directory's drive in 64 KiB units;
    // Remove deletes a file (read-only too) or an empty directory; MakeSingleDir and MakeDir
    // create and enter, and leave the current directory there.
    DName const& GetWorkPath() const;
    DWORD GetDiskFreeSpaceA() const;
    bool Remove(DName const& path) const;
    bool MakeSingleDir(DName const& path) const;
    bool MakeDir(DName const& path) const;
    bool RemoveDir(DName const& path) const;

    // The browse dialogs and their state. A filter is double-zero terminated; an empty one
    // means the default filter, an empty title the default title.
    bool SetBrowseDir(DName const& dir);
    bool SetBrowseFilter(char const* filter);
    void SetBrowseTitle(DName const& title);
    DName const& GetBrowseDir() const;
    DName const& GetBrowseTitle() const;
    DName const& GetBrowseFilter() const;
    DWORD const& GetBrowseFlags() const;
    DWORD const& GetBrowseIndex() const;
    unsigned int const& GetBrowseTotal() const;
    // The name at `index`; at or past the total, the browse directory.
    DName const& GetBrowseFilename(unsigned int const& index) const;
    DName GetBrowseFullFilename(unsigned int const& index) const;
    bool BrowseForFile(char const* filter); // true when the user confirmed
    bool BrowseForDir(HWND const& owner);   // the chosen path is GetBrowseFilename(0)

    void SetFlagMultiSelection();
    void SetFlagNoMultiSelection();
    void SetFlagNoReadOnly();
    void SetFlagReadOnly();
    void SetFlagNoFileCreation();
    void SetFlagFileCreation();
    void SetFlagExplorerStyle();
    void SetFlagNonExplorerStyle();
    void SetDBFOnlyDirs();
    void SetDBFNoOnlyDirs();
    void SetDBFIncludeFiles();
    void SetDBFNoIncludeFiles();
    void SetDBFEditBox();
    void SetDBFNoEditBox();
    void SetDBFNewDirs(); // these four change nothing
    void SetDBFNoNewDirs();
    void SetDBFNewDialogStyle();
    void SetDBFNoNewDialogStyle();

private:
    enum class SearchStep { Done, Stopped, OutOfMemory };
    SearchStep SearchDirectory(DirectoryListingSpec const& work, bool recursive,
                               Container<DName>& queue, SearchFeedback& feedback, DWORD& unlisted);
    bool StepPastUnlisted(DWORD& unlisted);
    // OpenDirListing; with `specHeld` the field `spec` already holds `searchSpec` and is not
    // assigned again (a search opens directory after directory with the same criteria).
    bool OpenCursor(DirectoryListingSpec const& searchSpec, DName const& dir, unsigned index,
                    bool specHeld);
    bool ContainsTerms(DirectoryListingSpec const& spec, DFile const& file);
    bool FindContaining(char const* buffer, unsigned int const& length,
                        DirectoryListingSpec const& spec, Link<bool>& found);
    void MakeSearchTerms(DirectoryListingSpec& work);
    void ClearAnalysis();
    void AddToAnalysis(DFile const& file);
};

#endif
