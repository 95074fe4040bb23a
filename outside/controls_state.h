// What a control shows, kept apart from its fields, and the one way to change or read it.
#ifndef TESSIK_OUTSIDE_CONTROLS_STATE_H
#define TESSIK_OUTSIDE_CONTROLS_STATE_H

#include <tessik/Controls.h>

#include <map>
#include <mutex>
#include <new>
#include <string>
#include <vector>

struct ListCell {
    std::string text;
    std::string image; // path of the file whose image the cell shows
};

// Guarded by `lock`, apart from the window, its parent and the icon, set once when made.
struct ControlState {
    std::mutex lock;
    HWND window = nullptr;
    HWND parent = nullptr;
    HICON icon = nullptr;
    DIBasics::ChangeCallback callback = nullptr;
    void* user = nullptr;
    unsigned redraws = 0;
    std::string text;
    DWORD position = 0;
    bool icons = false;
    std::map<unsigned, std::vector<ListCell>> rows; // by row number; cells by column
};

// Applies `change` under the state's lock, then tells the host. False, and no one is told,
// without a state, when `change` gives false or when memory runs out.
template <class Change>
bool ChangeState(DIBasics const& control, ControlState* state, Change change) {
    if (!state)
        return false;
    DIBasics::ChangeCallback callback = nullptr;
    void* user = nullptr;
    {
        std::lock_guard<std::mutex> hold(state->lock);
        try {
            if (!change(*state))
                return false;
        } catch (std::bad_alloc const&) {
            return false;
        }
        callback = state->callback;
        user = state->user;
    }
    if (callback)
        callback(user, control);
    return true;
}

// What `read` gives under the state's lock; `fallback` without a state or memory.
template <class Result, class Read>
Result ReadState(ControlState* state, Result const& fallback, Read read) {
    if (!state)
        return fallback;
    std::lock_guard<std::mutex> hold(state->lock);
    try {
        return read(*state);
    } catch (std::bad_alloc const&) {
        return fallback;
    }
}

inline DName NameOf(std::string const& text) {
    DName name;
    name.Namen(text.data(), static_cast<unsigned int>(text.size()));
    return name;
}

inline std::string TextOf(DName const& name) {
    return std::string(&name, name.Size());
}

#endif
