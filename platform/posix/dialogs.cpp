// The common dialogs, headless: they answer from scripted queues and keep the last structure
// each was given, with copies of what it pointed at.
#include <tessik/headless.h>

#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <string>

namespace {

struct OpenFileAnswer {
    bool confirmed;
    std::string names;
    DWORD filterIndex;
};

struct FolderAnswer {
    bool confirmed;
    std::string displayName;
    bool hasPath;
    std::string path;
};

struct Item {
    bool hasPath;
    std::string path;
};

// The last OPENFILENAMEA given, and the copies its pointers lead to.
struct OpenFileCall {
    OPENFILENAMEA given;
    std::string filter, file, fileTitle, initialDir, title, defExt;
};

struct FolderCall {
    BROWSEINFOA given;
    std::string title;
};

struct Dialogs {
    std::mutex lock;
    std::deque<OpenFileAnswer> openFileAnswers;
    std::deque<FolderAnswer> folderAnswers;
    std::unique_ptr<OpenFileCall> lastOpenFile;
    std::unique_ptr<FolderCall> lastFolder;
    std::map<ITEMIDLIST const*, Item> items; // item lists given out and not yet freed
    bool allocatorFails = false;
    HWND activeWindow = nullptr;
};

Dialogs& State() {
    static Dialogs* dialogs = new Dialogs; // never destroyed: usable until the process ends
    return *dialogs;
}

std::string Text(char const* text) {
    return text ? std::string(text) : std::string();
}

// A filter runs up to its double zero.
std::string FilterText(char const* filter) {
    if (!filter)
        return std::string();
    std::size_t n = 0;
    while (filter[n] || filter[n + 1])
        ++n;
    return std::string(filter, n + 2);
}

std::string Block(char const* block, DWORD size) {
    return block ? std::string(block, size) : std::string();
}

char const* Pointer(char const* original, std::string const& copy) {
    return original ? copy.c_str() : nullptr;
}

// Copies what `given` points at, and points the kept structure at those copies.
std::unique_ptr<OpenFileCall> Keep(OPENFILENAMEA const& given) {
    std::unique_ptr<OpenFileCall> call(new OpenFileCall{
        given, FilterText(given.lpstrFilter), Block(given.lpstrFile, given.nMaxFile),
        Block(given.lpstrFileTitle, given.nMaxFileTitle), Text(given.lpstrInitialDir),
        Text(given.lpstrTitle), Text(given.lpstrDefExt)});
    OPENFILENAMEA& kept = call->given;
    kept.lpstrFilter = Pointer(given.lpstrFilter, call->filter);
    kept.lpstrFile = given.lpstrFile ? &call->file[0] : nullptr;
    kept.lpstrFileTitle = given.lpstrFileTitle ? &call->fileTitle[0] : nullptr;
    kept.lpstrInitialDir = Pointer(given.lpstrInitialDir, call->initialDir);
    kept.lpstrTitle = Pointer(given.lpstrTitle, call->title);
    kept.lpstrDefExt = Pointer(given.lpstrDefExt, call->defExt);
    return call;
}

std::unique_ptr<FolderCall> Keep(BROWSEINFOA const& given) {
    std::unique_ptr<FolderCall> call(new FolderCall{given, Text(given.lpszTitle)});
    call->given.lpszTitle = Pointer(given.lpszTitle, call->title);
    return call;
}

// Runs `work` with the dialogs locked; false when memory runs out on the way.
template <class Work> bool Locked(Work work) {
    Dialogs& dialogs = State();
    std::lock_guard<std::mutex> hold(dialogs.lock);
    try {
        return work(dialogs);
    } catch (std::bad_alloc const&) {
        return false;
    }
}

void CopyText(std::string const& text, char* buffer, std::size_t size) {
    std::size_t const n = text.size() < size ? text.size() : size - 1;
    text.copy(buffer, n);
    buffer[n] = 0;
}

} // namespace

bool HeadlessQueueOpenFile(char const* names, unsigned length, DWORD filterIndex) {
    return names && Locked([&](Dialogs& dialogs) {
               dialogs.openFileAnswers.push_back({true, std::string(names, length), filterIndex});
               return true;
           });
}

bool HeadlessQueueOpenFileCancel() {
    return Locked([](Dialogs& dialogs) {
        dialogs.openFileAnswers.push_back({false, std::string(), 0});
        return true;
    });
}

bool HeadlessQueueFolder(char const* displayName, char const* path) {
    return Locked([&](Dialogs& dialogs) {
        dialogs.folderAnswers.push_back({true, Text(displayName), path != nullptr, Text(path)});
        return true;
    });
}

bool HeadlessQueueFolderCancel() {
    return Locked([](Dialogs& dialogs) {
        dialogs.folderAnswers.push_back({false, std::string(), false, std::string()});
        return true;
    });
}

void HeadlessClearDialogs() {
    Locked([](Dialogs& dialogs) {
        dialogs.openFileAnswers.clear();
        dialogs.folderAnswers.clear();
        dialogs.lastOpenFile.reset();
        dialogs.lastFolder.reset();
        return true;
    });
}

bool HeadlessLastOpenFile(OPENFILENAMEA* given) {
    return given && Locked([&](Dialogs& dialogs) {
               if (dialogs.lastOpenFile)
                   *given = dialogs.lastOpenFile->given;
               return dialogs.lastOpenFile != nullptr;
           });
}

bool HeadlessLastFolder(BROWSEINFOA* given) {
    return given && Locked([&](Dialogs& dialogs) {
               if (dialogs.lastFolder)
                   *given = dialogs.lastFolder->given;
               return dialogs.lastFolder != nullptr;
           });
}

void HeadlessFailShellAllocator(bool fail) {
    Locked([&](Dialogs& dialogs) { return dialogs.allocatorFails = fail; });
}

unsigned HeadlessItemListsOut() {
    unsigned out = 0;
    Locked([&](Dialogs& dialogs) {
        out = static_cast<unsigned>(dialogs.items.size());
        return true;
    });
    return out;
}

void HeadlessSetActiveWindow(HWND window) {
    Locked([&](Dialogs& dialogs) { return (dialogs.activeWindow = window) != nullptr; });
}

BOOL GetOpenFileNameA(OPENFILENAMEA* dialog) {
    return dialog && Locked([&](Dialogs& dialogs) {
               dialogs.lastOpenFile = Keep(*dialog);
               if (dialogs.openFileAnswers.empty())
                   return false;
               OpenFileAnswer const answer = dialogs.openFileAnswers.front();
               dialogs.openFileAnswers.pop_front();
               if (!answer.confirmed || !dialog->lpstrFile ||
                   answer.names.size() > dialog->nMaxFile)
                   return false;
               answer.names.copy(dialog->lpstrFile, answer.names.size());
               dialog->nFilterIndex = answer.filterIndex;
               return true;
           })
               ? TRUE
               : FALSE;
}

LPITEMIDLIST SHBrowseForFolderA(BROWSEINFOA* dialog) {
    LPITEMIDLIST list = nullptr;
    if (!dialog)
        return list;
    Locked([&](Dialogs& dialogs) {
        dialogs.lastFolder = Keep(*dialog);
        if (dialogs.folderAnswers.empty())
            return false;
        FolderAnswer const answer = dialogs.folderAnswers.front();
        dialogs.folderAnswers.pop_front();
        if (!answer.confirmed)
            return false;
        std::unique_ptr<ITEMIDLIST> made(new ITEMIDLIST{});
        dialogs.items.emplace(made.get(), Item{answer.hasPath, answer.path});
        list = made.release();
        if (dialog->pszDisplayName)
            CopyText(answer.displayName, dialog->pszDisplayName, MAX_PATH);
        return true;
    });
    return list;
}

BOOL SHGetPathFromIDListA(LPCITEMIDLIST list, char* path) {
    return path && Locked([&](Dialogs& dialogs) {
               auto const found = dialogs.items.find(list);
               if (found == dialogs.items.end() || !found->second.hasPath ||
                   found->second.path.size() >= MAX_PATH)
                   return false;
               CopyText(found->second.path, path, MAX_PATH);
               return true;
           })
               ? TRUE
               : FALSE;
}

void IMalloc::Free(void* block) {
    CoTaskMemFree(block);
}

ULONG IMalloc::Release() {
    return 1; // the one allocator lives as long as the process
}

HRESULT SHGetMalloc(IMalloc** allocator) {
    static IMalloc shellAllocator;
    if (!allocator)
        return E_FAIL;
    bool fails = false;
    Locked([&](Dialogs& dialogs) { return fails = dialogs.allocatorFails; });
    *allocator = fails ? nullptr : &shellAllocator;
    return fails ? E_FAIL : S_OK;
}

void CoTaskMemFree(void* block) {
    ITEMIDLIST* list = static_cast<ITEMIDLIST*>(block);
    Locked([&](Dialogs& dialogs) {
        if (dialogs.items.erase(list) == 0)
            return false; // not an item list of ours: left alone
        delete list;
        return true;
    });
}

HWND GetActiveWindow() {
    HWND window = nullptr;
    Locked([&](Dialogs& dialogs) { return (window = dialogs.activeWindow) != nullptr; });
    return window;
}

HINSTANCE GetModuleHandleA(char const* name) {
    // The program's image, at the base where Windows loads one.
    return name ? nullptr : reinterpret_cast<HINSTANCE>(static_cast<std::uintptr_t>(0x400000));
}
