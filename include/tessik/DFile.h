// DFile: the record of one directory entry.
//
// A path, a 64-bit size held as two 32-bit halves, the attribute word (laid out as
// dwFileAttributes), three UTC dates (all zero meaning no date), a scrambling state with its
// key, and the link that chains the record into a Container<DFile>. The record never follows
// `next`: the list that chains records owns them.
#ifndef TESSIK_DFILE_H
#define TESSIK_DFILE_H

#include <tessik/DName.h>
#include <tessik/export.h>
#include <tessik/platform.h>

#include <cstdint>

class FileOper;

class TESSIK_API DFile {
public:
    bool dataEncrypted;
    DName fullPath;
    DName hashKey;
    DWORD sizeLow;
    DWORD sizeHigh;
    DWORD attributes;
    FILETIME dateCreated;
    FILETIME dateLastAccessed;
    FILETIME dateWritten;
    DFile* next;

    // Construction. `link` has no effect: a new record's `next` is always null.
    DFile(DFile* link = nullptr);
    DFile(DFile const& other); // copies all fields, `next` included
    DFile(DName const& path);  // filled by FromPath; empty when nothing is found
    DFile(DName const& path, DWORD const& attributes, DWORD const& size, FILETIME const* created,
          FILETIME const* accessed, FILETIME const* written);
    DFile(WIN32_FIND_DATAA const& data, DName const& home);
    ~DFile();

    void Destroy(); // empties every field but `next`
    void operator--();

    // Assignment keeps the target's `next` and `dataEncrypted`.
    DFile const& operator=(DFile const& other);
    DFile const& operator=(char const* path);
    DFile const& Copy(DFile const& other, DName const& home);
    DFile const& Copy(WIN32_FIND_DATAA const& data, DName const& home);

    // Filling and names.
    bool FromPath(DName const& path);
    DFile GetByFormat(WIN32_FIND_DATAA const& data, DName const& home);
    DName ExtractFilename(WIN32_FIND_DATAA const& data) const;
    DName GetFileName() const;

    // Path forms. The parent is the directory of `path` (of `fullPath` when `path` is empty):
    // a file's path loses its last component, a directory or a missing path stays whole.
    // Short and long forms fall back to the path itself; IsWildCard matches the whole path,
    // case-sensitively, with `?` and `*` (the first occurrence after a star, no backtracking).
    DName GetParentPath(DName const& path) const;
    DName GetOldStyle() const;
    DName GetNewStyle() const;
    DName GetOldFullPath() const; // the last component of the short form
    DName GetNewFullPath() const; // the last component of the long form
    bool IsWildCard(DName const& pattern);

    // Accessors; references follow later changes of the field.
    DName const& GetFullPath() const;
    DName const& GetKey() const;
    DWORD const& GetFileSize() const; // the low half only
    std::uint64_t GetFileSize64() const;
    unsigned int const& GetLongSize() const; // length of the path text
    DWORD const& GetAttribute() const;
    bool isDataEncrypted() const;
    bool isEmpty() const;
    bool is64() const;
    bool is64(WIN32_FIND_DATAA const& data) const;
    char const* operator&() const;
    char operator[](unsigned int const& index) const;

    // Mutators.
    bool SetFullPath(DName const& path);
    bool SetIndex(DName const& text);
    void SetFileSize(DWORD const& low, DWORD const& high);
    void SetAttribute(DWORD const& value);
    void AddAttribute(DWORD const& bits);
    void SubAttribute(DWORD const& bits); // arithmetic subtraction when any bit is shared

    // Attribute bits.
    bool isReadOnly() const;
    bool isHidden() const;
    bool isSystem() const;
    bool isDir() const;
    bool isFile() const;
    bool isArchive() const;
    bool isEncrypted() const;
    bool isNormal() const;
    bool isTemp() const;
    bool isCompressed() const;

    // All of the mask (bits 0x1 to 0x4000), any of the mask (bits 0x1 to 0x8000).
    bool isAttribute(DWORD const& value, DWORD const& mask) const;
    bool isAttribute(DWORD const& mask) const;
    bool isAttribute(WIN32_FIND_DATAA const& data, DWORD const& mask) const;
    bool isAnAttribute(DWORD const& value, DWORD const& mask) const;
    bool isAnAttribute(DWORD const& mask) const;
    bool isAnAttribute(WIN32_FIND_DATAA const& data, DWORD const& mask) const;

    // "." and "..", judged by the last component.
    bool isDots() const;
    bool isDots(WIN32_FIND_DATAA const& data) const;
    bool isNotDots() const;
    bool isNotDots(WIN32_FIND_DATAA const& data) const;

    // Comparisons.
    bool Comp(DFile const& other) const; // same entry in the same state
    bool operator==(DFile const& other) const;
    bool operator!=(DFile const& other) const;
    bool CompStruct(DFile const& other) const; // the same, without the path

    // Dates.
    FILETIME const& GetDateCreated() const;
    FILETIME const& GetDateLastAccessed() const;
    FILETIME const& GetDateWritten() const;
    void SetDateCreated(FILETIME const& date);
    void SetDateLastAccessed(FILETIME const& date);
    void SetDateWritten(FILETIME const& date);
    bool isEmpty(FILETIME const& date) const;
    bool CompDates(FILETIME const& first, FILETIME const& second) const; // exact
    bool CompDates(DFile const& other) const; // dateWritten, then dateCreated, exact

    // Local dates. A date before 1985 in local time, or all zero, reads as the fallback date:
    // year 1985 and every other field 0 (month and day included).
    SYSTEMTIME GetLocalDate(FILETIME const& date) const;
    FILETIME GetUTCDate(SYSTEMTIME const& local) const;
    SYSTEMTIME GetLocalDateCreated() const;
    SYSTEMTIME GetLocalDateLastAccessed() const;
    SYSTEMTIME GetLocalDateWritten() const;
    void SetLocalDateCreated(SYSTEMTIME const& local);
    void SetLocalDateLastAccessed(SYSTEMTIME const& local);
    void SetLocalDateWritten(SYSTEMTIME const& local);

    // Local dates to the second: -1, 0 or 1 as `first` is earlier, the same or later.
    int CompDate(FILETIME const& first, FILETIME const& second) const;
    int CompDateCreated(FILETIME const& date) const; // the record's date first
    int CompDateLastAccessed(FILETIME const& date) const;
    int CompDateWritten(FILETIME const& date) const;

    // A local date from 1985 to 2080 with fields inside their ranges (not checked against the
    // length of the month); a FILETIME of all zero is never valid.
    bool isValidDate(SYSTEMTIME const& local) const;
    bool isValidDate(FILETIME const& date) const;

    // Local time, 12-hour clock; dates that are not valid show the fallback date.
    DName FormatDate(FILETIME const& date) const;          // "Mar 9, 2004  1:05:07 PM"
    DName FormatNumericalDate(FILETIME const& date) const; // "3/09/2004 1:05:07 PM"

    // Text forms. FormatAttributes shows `value`, or the record's attributes when `value` is
    // negative: nine flag letters ("RDANSHCTE", "-" for a clear bit) or a list of words.
    DName FormatAttributes(bool words, LONG const& value) const;
    void ToString(DName& text, char separator) const; // one line, fields between separators
    void FromString(DName& text, char separator);     // empties the record, fills it from a line
    bool TextWrite(FileOper& file) const;             // the record's block of a text report

    // Stream form. The path and numbers are scrambled in the stream with a key made anew for
    // each write and stored ahead of them; in memory the record stays plain.
    bool Write(FileOper& file);
    bool Read(FileOper& file);
    bool operator>>(FileOper& file); // Write
    bool operator<<(FileOper& file); // Read
    DWORD HeaderSize() const;        // key and path lengths plus 36
    bool CreateHashKey(DName& key);
    void IncWord(DWORD& word, DName const& key, unsigned int& position);
    void DecWord(DWORD& word, DName const& key, unsigned int& position);
    bool Encrypt();
    bool Decrypt();

private:
    void TakeEntry(WIN32_FIND_DATAA const& data);
};

// The link through which Container<DFile> chains records.
inline DFile*& NextOf(DFile& file) {
    return file.next;
}

#endif
