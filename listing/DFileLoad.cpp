// The listing object: construction, destruction, controls, and the operations on its list.
#include <tessik/DFileLoad.h>

DFileLoad::DFileLoad()
    : browseIsDir(false), findHandle(nullptr), openFileFlags(0xAA9A11), browseDirFlags(1),
      browseFilterIndex(1), totalSearched(0), totalMatches(0), totalSearchMilliseconds(0),
      totalSearchDirs(0), totalMatchesSize(0), countOnly(false), analysis(false), totalArchive(0),
      totalCompressed(0), totalNormal(0), totalDirectory(0), totalHidden(0), totalEncrypted(0),
      totalSystem(0), totalTemporary(0), totalReadOnly(0), totalArchiveSize(0),
      totalCompressedSize(0), totalNormalSize(0), totalDirectorySize(0), totalHiddenSize(0),
      totalEncryptedSize(0), totalSystemSize(0), totalTemporarySize(0), totalReadOnlySize(0),
      totalSearchedSize(0), abortRequested(false), searching(false), progressBar(nullptr),
      percentText(nullptr), statusWnd(nullptr), listControl(nullptr) {}

DFileLoad::~DFileLoad() {
    browseDir.Destroy();
    browseTitle.Destroy();
    browseFilter.Destroy();
    ResetBrowse();
    Destroy();
    searchTerms.Destroy();
}

void DFileLoad::ResetBrowse() {
    browseNames.Destroy();
}

void DFileLoad::SetupControls(DProgressBar const* bar, DText const* percent,
                              DStatusWnd const* status, DListControl const* list) {
    // The controls belong to the host; the object only draws on them.
    progressBar = const_cast<DProgressBar*>(bar);
    percentText = const_cast<DText*>(percent);
    statusWnd = const_cast<DStatusWnd*>(status);
    listControl = const_cast<DListControl*>(list);
}

void DFileLoad::Destroy() {
    files.Destroy();
    CloseDirListing();
    foundFile.Destroy();
    workPath.Destroy();
}

bool DFileLoad::isOpen() const {
    return findHandle != nullptr;
}
bool DFileLoad::isEmpty() const {
    return files.count == 0;
}
bool DFileLoad::operator!() const {
    return isEmpty();
}
unsigned const& DFileLoad::Size() const {
    return files.count;
}
void* const& DFileLoad::GetHandle() const {
    return findHandle;
}
DFile const& DFileLoad::GetFoundFile() const {
    return foundFile;
}
DFile& DFileLoad::operator[](unsigned const& index) const {
    return files[index];
}
DFile const& DFileLoad::GetPos(unsigned const& index) const {
    return files[index];
}
DFile* DFileLoad::operator()(unsigned const& index) const {
    return files(index);
}
bool DFileLoad::operator++() {
    return NextDirListing();
}
void DFileLoad::operator--() {
    CloseDirListing();
}

bool DFileLoad::InsertLeft(DFile const& file) {
    return files.InsertLeft(file);
}
bool DFileLoad::InsertRight(DFile const& file) {
    return files.InsertRight(file);
}

bool DFileLoad::InsertPos(DFile const& file, unsigned const& pos) {
    return files.InsertPos(pos, file);
}

bool DFileLoad::InsertLeft(WIN32_FIND_DATAA const& data) {
    return files.InsertLeft(DFile(data, DName(0)));
}

bool DFileLoad::InsertRight(WIN32_FIND_DATAA const& data) {
    return files.InsertRight(DFile(data, DName(0)));
}

bool DFileLoad::DelLeft() {
    return files.DelLeft();
}
bool DFileLoad::DelRight() {
    return files.DelRight();
}
bool DFileLoad::DelPos(unsigned const& pos) {
    return files.DelPos(pos);
}
