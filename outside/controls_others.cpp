// The controls that the library itself never calls: made, assigned and destroyed by hosts.
#include "outside/controls_state.h"

DButton::DButton(HWND const& parent, int const& id)
    : DIBasics(buttonKind, parent, id), command(0) {}

DMenu::DMenu(char const* text, HWND const& parent) : DIBasics(menuKind, parent, -1), menuFlags(0) {
    ShowText(DName(text));
}

DPopup::DPopup(HWND const& parent, int const& id) : DIBasics(popupKind, parent, id), alignment(0) {}

DTabControl::DTabControl(HWND const& parent, int const& id)
    : DIBasics(tabControlKind, parent, id), selectedTab(0) {}

DToolTip::DToolTip(HWND const& parent, int const& id)
    : DIBasics(toolTipKind, parent, id), delay(500) {}

DMsgBox::DMsgBox(HWND const& parent, int const& id) : DIBasics(msgBoxKind, parent, id) {}

DMsgBox::DMsgBox(DMsgBox const& other)
    : DIBasics(msgBoxKind, other.Parent(), static_cast<int>(other.controlId)),
      caption(other.caption) {
    DIBasics::operator=(other);
}

DSystemTray::DSystemTray(HWND const& parent, HICON const& icon, DName const& tip,
                         unsigned int const& id)
    : DIBasics(systemTrayKind, parent, static_cast<int>(id)) {
    if (State())
        State()->icon = icon; // set before anyone can read it
    ShowText(tip);
}

HICON DSystemTray::Icon() const {
    return State() ? State()->icon : nullptr;
}
