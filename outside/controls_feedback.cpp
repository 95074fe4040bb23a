// The controls a running search reports to: the percentage text, the status window and the
// progress bar.
#include "outside/controls_state.h"

DText::DText(HWND const& parent, int const& id) : DIBasics(textKind, parent, id) {}

bool DText::Set(DName const& text) {
    return ShowText(text);
}

DStatusWnd::DStatusWnd(DName const& text, int const& id, HWND const& parent)
    : DIBasics(statusWndKind, parent, id), parts(1), gripWidth(0) {
    ShowText(text);
}

void DStatusWnd::SetText(DName const& text) {
    ShowText(text);
}

DProgressBar::DProgressBar(DWORD const& low, DWORD const& high, HWND const& parent, int const& id)
    : DIBasics(progressBarKind, parent, id) {
    rangeLow = low;
    rangeHigh = high;
}

void DProgressBar::SetPos(DWORD const& position, int const& id) const {
    if (!Selects(id))
        return;
    ChangeState(*this, State(), [&position](ControlState& state) {
        state.position = position;
        return true;
    });
}

DWORD DProgressBar::GetRange(int const& id) const {
    return Selects(id) ? rangeHigh : 0;
}

void DProgressBar::SetRange(DWORD const& low, DWORD const& high, int const& id) {
    if (!Selects(id))
        return;
    rangeLow = low;
    rangeHigh = high;
    Changed();
}

DWORD DProgressBar::Position() const {
    return ReadState(State(), DWORD(0), [](ControlState& state) { return state.position; });
}
