// DIBasics: the window every control owns, the redraw, the shown text and the change callback.
#include "outside/controls_state.h"

namespace {

struct WindowKind {
    char const* className;
    int width;
    int height;
};

// By DIBasics::Kind. Menus, message boxes, popups and tray icons have no window class of
// their own; a static window stands for them.
WindowKind const windowKinds[] = {
    {"STATIC", 100, 24},             // basic
    {"BUTTON", 80, 24},              // button
    {"BUTTON", 120, 20},             // check box
    {"COMBOBOX", 160, 200},          // combo box
    {"LISTBOX", 160, 120},           // list box
    {"SysListView32", 480, 320},     // list control
    {"STATIC", 120, 20},             // menu
    {"STATIC", 320, 120},            // message box
    {"STATIC", 120, 80},             // popup
    {"msctls_progress32", 200, 18},  // progress bar
    {"msctls_trackbar32", 160, 30},  // slider
    {"STATIC", 100, 20},             // static
    {"msctls_statusbar32", 400, 22}, // status window
    {"STATIC", 16, 16},              // system tray
    {"SysTabControl32", 300, 200},   // tab control
    {"STATIC", 60, 20},              // text
    {"tooltips_class32", 200, 20},   // tool tip
};

} // namespace

DIBasics::DIBasics(HWND const& parent, int const& id) : DIBasics(basicKind, parent, id) {}

DIBasics::DIBasics(Kind const& kind, HWND const& parent, int const& id)
    : controlId(static_cast<DWORD>(id)), style(parent ? WS_CHILD : WS_POPUP), exStyle(0),
      textColour(0), backColour(0x00F0F0F0), fontHeight(12), fontWidth(0), helpId(0), enabled(1),
      rangeLow(0), rangeHigh(0), rangeStep(1) {
    view.state = new (std::nothrow) ControlState;
    if (!view.state)
        return;
    WindowKind const& made = windowKinds[kind];
    view.state->window = CreateWindowExA(exStyle, made.className, "", style, 0, 0, made.width,
                                         made.height, parent, nullptr, nullptr, nullptr);
    view.state->parent = parent;
}

DIBasics::~DIBasics() {
    if (view.state && view.state->window)
        DestroyWindow(view.state->window);
    delete view.state;
}

bool DIBasics::Selects(int const& id) const {
    return id == -1 || static_cast<DWORD>(id) == controlId;
}

HWND DIBasics::Parent() const {
    return view.state ? view.state->parent : nullptr;
}

HWND DIBasics::GetHandle(int const& id, HWND const& parent) const {
    if (!view.state || !Selects(id) || (parent && parent != view.state->parent))
        return nullptr;
    return view.state->window;
}

bool DIBasics::Redraw(int const& id) const {
    if (!Selects(id))
        return false;
    HWND const window = GetHandle(id, nullptr);
    bool const painted =
        window && RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ChangeState(*this, view.state, [](ControlState& state) {
        ++state.redraws;
        return true;
    });
    return painted;
}

DName DIBasics::Text() const {
    return ReadState(view.state, DName(), [](ControlState& state) { return NameOf(state.text); });
}

unsigned DIBasics::RedrawCount() const {
    return ReadState(view.state, 0u, [](ControlState& state) { return state.redraws; });
}

void DIBasics::SetChangeCallback(ChangeCallback callback, void* user) {
    if (!view.state)
        return;
    std::lock_guard<std::mutex> hold(view.state->lock);
    view.state->callback = callback;
    view.state->user = user;
}

bool DIBasics::ShowText(DName const& text) const {
    return ChangeState(*this, view.state, [&text](ControlState& state) {
        state.text = TextOf(text);
        return true;
    });
}

void DIBasics::Changed() const {
    ChangeState(*this, view.state, [](ControlState&) { return true; });
}
