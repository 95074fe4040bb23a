// The two common dialogs of the platform: pick files, pick a directory. The names come back
// into `browseNames`, the chosen files' directory into `browseDir`.
#include <tessik/DFileLoad.h>

namespace {

// Six pairs of a description and a pattern, and the closing zero: 117 bytes.
char const defaultFilter[] = "All Files *.*\0*.*\0"
                             "Aviation *.avi\0*.avi\0"
                             "Bitmaps *.bmp\0*.bmp\0"
                             "Wave *.wav\0*.wav\0"
                             "Word *.doc\0*.doc\0"
                             "Text Files *.txt\0*.txt\0";

DWORD const openFileNameSize = static_cast<DWORD>(OPENFILENAME_SIZE_VERSION_400A);
constexpr DWORD fileBufferSize = 1256;
constexpr DWORD fileTitleSize = 256;
constexpr unsigned int displayNameSize = MAX_PATH + 1;

// Each `separator` in bytes [0, end) of `buffer` ends a name, and so does `end`. An empty piece
// is no name, and a name that cannot be allocated is left out.
void SplitNames(char const* buffer, unsigned int end, char separator, Container<DName>& names) {
    unsigned int start = 0;
    for (unsigned int i = 0; i <= end; ++i)
        if (i == end || buffer[i] == separator) {
            DName name;
            if (i > start && name.Namen(buffer + start, i - start))
                names.InsertRight(name);
            start = i + 1;
        }
}

// Explorer form: zero-separated names up to the first two zeros side by side. Otherwise the
// text ends at the first zero and blanks separate the names.
void SplitAnswer(char const* buffer, unsigned int size, bool explorer, Container<DName>& names) {
    unsigned int end = 0;
    while (end < size &&
           !(buffer[end] == 0 && (!explorer || end + 1 == size || buffer[end + 1] == 0)))
        ++end;
    SplitNames(buffer, end, explorer ? '\0' : ' ', names);
}

} // namespace

bool DFileLoad::BrowseForFile(char const* filter) {
    if (filter)
        SetBrowseFilter(filter);
    ChangeDir(browseDir);
    ResetBrowse();

    // The stored filter may have been cut before its double zero; the dialog gets it closed.
    DName closedFilter(browseFilter);
    if (!browseFilter.isEmpty() && !closedFilter.InsertRight('\0', 2))
        return false;
    char file[fileBufferSize] = {};
    char fileTitle[fileTitleSize] = {};
    OPENFILENAMEA dialog = {};
    dialog.lStructSize = openFileNameSize;
    dialog.hwndOwner = GetActiveWindow();
    dialog.hInstance = GetModuleHandleA(nullptr);
    dialog.lpstrFilter = browseFilter.isEmpty() ? defaultFilter : &closedFilter;
    dialog.nFilterIndex = browseFilterIndex;
    dialog.lpstrFile = file;
    dialog.nMaxFile = fileBufferSize;
    dialog.lpstrFileTitle = fileTitle;
    dialog.nMaxFileTitle = fileTitleSize;
    dialog.lpstrInitialDir = &browseDir;
    dialog.lpstrTitle = browseTitle.isEmpty() ? "File Explorer" : &browseTitle;
    dialog.Flags = openFileFlags;
    dialog.lpstrDefExt = "BMP";
    if (!GetOpenFileNameA(&dialog))
        return false;

    browseFilterIndex = dialog.nFilterIndex;
    browseIsDir = false;
    SplitAnswer(file, fileBufferSize, (openFileFlags & OFN_EXPLORER) != 0, browseNames);

    if (browseNames.count == 1) {
        // One full path: its directory into browseDir, the bare name stays in the list.
        DName fileName;
        browseDir = browseNames[0];
        browseDir.RemFilename(fileName);
        browseNames[0].Copy(fileName);
    } else if (browseNames.count > 1) {
        browseDir = browseNames[0];
        browseNames.DelLeft();
    } else {
        browseDir = GetDir();
    }
    return true;
}

bool DFileLoad::BrowseForDir(HWND const& owner) {
    ResetBrowse();
    char path[displayNameSize] = {}; // the dialog writes at most MAX_PATH bytes: a zero stays
    BROWSEINFOA dialog = {};
    dialog.hwndOwner = owner ? owner : GetActiveWindow();
    dialog.pszDisplayName = path;
    dialog.lpszTitle = browseTitle.isEmpty() ? "Browse for Directory" : &browseTitle;
    dialog.ulFlags = browseDirFlags;
    LPITEMIDLIST const list = SHBrowseForFolderA(&dialog);
    if (!list)
        return false;

    SHGetPathFromIDListA(list, path);
    IMalloc* allocator = nullptr;
    if (SUCCEEDED(SHGetMalloc(&allocator)) && allocator) {
        allocator->Free(list);
        allocator->Release();
    } else {
        CoTaskMemFree(list); // the same task allocator, reached without the interface
    }
    browseNames.InsertRight(DName(path));
    browseIsDir = true;
    return true;
}
