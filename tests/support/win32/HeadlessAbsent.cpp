// On Windows the windows are real and the clock is the system's: the hooks of the posix backend
// exist in the test program only so that its tests link. No window is headless, so each hook
// gives false; the tests that need them skip on this backend.
#include <tessik/headless.h>
#include <tessik/headless_time.h>

bool HeadlessClientRect(HWND, RECT*) {
    return false;
}
bool HeadlessPixel(HWND, COLORREF*) {
    return false;
}
bool HeadlessWholeRegion(HWND, bool*) {
    return false;
}
bool HeadlessSetPixel(HWND, COLORREF) {
    return false;
}
bool HeadlessRegionOf(HWND, HeadlessRegion*) {
    return false;
}
bool HeadlessDCsOut(HWND, unsigned*) {
    return false;
}
bool HeadlessTextCount(HWND, unsigned*) {
    return false;
}
bool HeadlessTextAt(HWND, unsigned, HeadlessText*) {
    return false;
}
bool HeadlessFailGetDC(HWND, bool) {
    return false;
}
bool HeadlessFontOf(HFONT, HeadlessFont*) {
    return false;
}
void HeadlessSetDiskRoom(std::uint64_t const*) {}
bool HeadlessQueueOpenFile(char const*, unsigned, DWORD) {
    return false;
}
bool HeadlessQueueOpenFileCancel() {
    return false;
}
bool HeadlessQueueFolder(char const*, char const*) {
    return false;
}
bool HeadlessQueueFolderCancel() {
    return false;
}
void HeadlessClearDialogs() {}
bool HeadlessLastOpenFile(OPENFILENAMEA*) {
    return false;
}
bool HeadlessLastFolder(BROWSEINFOA*) {
    return false;
}
void HeadlessFailShellAllocator(bool) {}
unsigned HeadlessItemListsOut() {
    return 0;
}
void HeadlessSetActiveWindow(HWND) {}
void SetTickSource(DWORD (*)()) {}
