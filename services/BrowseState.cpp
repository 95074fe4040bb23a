// The browse state: start directory, title, filter, the two words of dialog flags and the
// names the last dialog gave back.
#include <tessik/DFileLoad.h>

namespace {

// A filter with no double zero is cut here.
constexpr unsigned int maxFilterLength = 0xFFFE;

} // namespace

bool DFileLoad::SetBrowseDir(DName const& dir) {
    return browseDir.Name(&dir);
}

bool DFileLoad::SetBrowseFilter(char const* filter) {
    if (!filter)
        return false;
    unsigned int n = 0;
    while (n < maxFilterLength && !(n >= 2 && filter[n - 2] == 0 && filter[n - 1] == 0))
        ++n;
    if (browseFilterIndex == 0)
        browseFilterIndex = 1;
    return browseFilter.Namen(filter, n);
}

void DFileLoad::SetBrowseTitle(DName const& title) {
    browseTitle = title;
}

DName const& DFileLoad::GetBrowseDir() const {
    return browseDir;
}
DName const& DFileLoad::GetBrowseTitle() const {
    return browseTitle;
}
DName const& DFileLoad::GetBrowseFilter() const {
    return browseFilter;
}
DWORD const& DFileLoad::GetBrowseFlags() const {
    return openFileFlags;
}
DWORD const& DFileLoad::GetBrowseIndex() const {
    return browseFilterIndex;
}
unsigned int const& DFileLoad::GetBrowseTotal() const {
    return browseNames.count;
}

DName const& DFileLoad::GetBrowseFilename(unsigned int const& index) const {
    return index < browseNames.count ? browseNames[index] : browseDir;
}

DName DFileLoad::GetBrowseFullFilename(unsigned int const& index) const {
    DName full(browseDir);
    if (index < browseNames.count)
        full.AddFile(browseNames[index], false);
    return full;
}

void DFileLoad::SetFlagMultiSelection() {
    openFileFlags |= OFN_ALLOWMULTISELECT;
}
void DFileLoad::SetFlagNoMultiSelection() {
    openFileFlags &= ~static_cast<DWORD>(OFN_ALLOWMULTISELECT);
}
void DFileLoad::SetFlagNoReadOnly() {
    openFileFlags |= OFN_HIDEREADONLY;
}
void DFileLoad::SetFlagReadOnly() {
    openFileFlags &= ~static_cast<DWORD>(OFN_READONLY);
}
void DFileLoad::SetFlagNoFileCreation() {
    openFileFlags |= OFN_FILEMUSTEXIST;
}
void DFileLoad::SetFlagFileCreation() {
    openFileFlags &= ~static_cast<DWORD>(OFN_FILEMUSTEXIST);
}
void DFileLoad::SetFlagExplorerStyle() {
    openFileFlags |= OFN_EXPLORER;
}
void DFileLoad::SetFlagNonExplorerStyle() {
    openFileFlags &= ~static_cast<DWORD>(OFN_EXPLORER);
}
void DFileLoad::SetDBFOnlyDirs() {
    browseDirFlags |= BIF_RETURNONLYFSDIRS;
}
void DFileLoad::SetDBFNoOnlyDirs() {
    browseDirFlags &= ~static_cast<DWORD>(BIF_RETURNONLYFSDIRS);
}
void DFileLoad::SetDBFIncludeFiles() {
    browseDirFlags |= BIF_BROWSEINCLUDEFILES;
}
void DFileLoad::SetDBFNoIncludeFiles() {
    browseDirFlags &= ~static_cast<DWORD>(BIF_BROWSEINCLUDEFILES);
}
void DFileLoad::SetDBFEditBox() {
    browseDirFlags |= BIF_EDITBOX;
}
void DFileLoad::SetDBFNoEditBox() {
    browseDirFlags &= ~static_cast<DWORD>(BIF_EDITBOX);
}

// Four exported names of one empty operation.
void DFileLoad::SetDBFNewDirs() {}
void DFileLoad::SetDBFNoNewDirs() {}
void DFileLoad::SetDBFNewDialogStyle() {}
void DFileLoad::SetDBFNoNewDialogStyle() {}
