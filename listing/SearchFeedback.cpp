// The feedback of a search run: the status window follows the directories, the percentage text
// the share of matches, the bar the count of entries with a percentage painted on it, and the
// list the new records, drawn in batches while the list is hidden.
#include "listing/SearchFeedback.h"

#include <tessik/Controls.h>

#include <cstdio>

namespace {

// Least time between two new painted percentages, and between two drawings of rows.
DWORD const newPercentageInterval = 750;
DWORD const rowInterval = 700;
// Above this the old percentage is not painted out: the new one covers it well enough.
float const eraseLimit = 55.0f;
unsigned int const barTextFlags =
    DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_EDITCONTROL | DT_WORD_ELLIPSIS;

// Milliseconds since `ticks`, right across the wrap of the counter.
DWORD Since(DWORD ticks) {
    return static_cast<DWORD>(GetTickCount() - ticks);
}

} // namespace

SearchFeedback::SearchFeedback(DFileLoad& listing)
    : load(listing), barWindow(nullptr), barDC(nullptr), barRect{0, 0, 0, 0}, barFont(nullptr),
      backColour(0), textColour(0), paintedText{}, paintedValue(0.0f), lastPaintTicks(0),
      lastRowTicks(0), nextRow(0) {}

SearchFeedback::~SearchFeedback() {
    GiveBack();
}

void SearchFeedback::Setup() {
    if (load.listControl) {
        load.listControl->Reset();
        load.listControl->CreateIcons();
    }
    if (load.progressBar)
        SetupBar();
}

void SearchFeedback::SetupBar() {
    barWindow = load.progressBar->GetHandle(-1, nullptr);
    GetClientRect(barWindow, &barRect);
    barDC = barWindow ? GetDC(barWindow) : nullptr; // GetDC(null) would paint on the screen
    if (!barDC) {
        load.progressBar = nullptr; // given up, also for later runs, until SetupControls
        return;
    }
    SetBkMode(barDC, TRANSPARENT);
    backColour = GetPixel(barDC, 0, 0);
    textColour = GetSysColor(COLOR_MENUTEXT);
    barFont =
        CreateFontA(12, 10, 0, 0, FW_DONTCARE, FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_RASTER_PRECIS,
                    CLIP_STROKE_PRECIS, DEFAULT_QUALITY, FF_SWISS, nullptr);
}

void SearchFeedback::Directory(DName const& dir) {
    if (!load.statusWnd)
        return;
    load.statusWnd->SetText(dir);
    load.statusWnd->Redraw(-1);
}

void SearchFeedback::Entry() {
    if (!load.percentText)
        return;
    double share = load.totalSearched == 0 ? 1.0 : 100.0 / load.totalSearched;
    share *= load.totalMatches;
    char text[64];
    std::snprintf(text, sizeof text, "%02.02f%%", share);
    load.percentText->Set(DName(text));
    load.percentText->Redraw(-1);
}

void SearchFeedback::Progress() {
    if (!load.progressBar)
        return;
    load.progressBar->SetPos(load.totalSearched, -1);
    if (!barDC)
        return;
    if (Since(lastPaintTicks) >= newPercentageInterval)
        NewPercentage();
    Paint(textColour); // at every entry: only the value waits for the timer
}

void SearchFeedback::NewPercentage() {
    if (paintedText[0] != '\0' && paintedValue <= eraseLimit)
        Paint(backColour);
    // A bar without a range shows 0%, as empty as the bar itself.
    DWORD const range = load.progressBar->GetRange(-1);
    paintedValue = range == 0 ? 0.0f : static_cast<float>(load.totalSearched * (100.0 / range));
    std::snprintf(paintedText, sizeof paintedText, "%02.00f%% ", static_cast<double>(paintedValue));
    lastPaintTicks = GetTickCount();
}

void SearchFeedback::Paint(COLORREF colour) {
    SetTextColor(barDC, colour);
    HGDIOBJ const former = SelectObject(barDC, barFont);
    DrawTextA(barDC, paintedText, -1, &barRect, barTextFlags);
    SelectObject(barDC, former);
}

void SearchFeedback::Rows() {
    if (!load.listControl || Since(lastRowTicks) < rowInterval)
        return;
    // The list is hidden behind a one-pixel region, without redraw, while its rows change.
    HWND const window = load.listControl->GetHandle(-1, nullptr);
    HRGN const hidden = CreateRectRgn(1, 1, 2, 2);
    if (!SetWindowRgn(window, hidden, FALSE))
        DeleteObject(hidden); // not taken by the window, so still ours to free
    DrawNewRows();
    SetWindowRgn(window, nullptr, FALSE);
    lastRowTicks = GetTickCount();
}

void SearchFeedback::DrawNewRows() {
    if (load.abortRequested)
        return;
    while (nextRow < load.files.count) {
        load.DrawFile(*load.files(nextRow), nextRow);
        ++nextRow;
        if (load.abortRequested)
            return;
    }
}

void SearchFeedback::Close() {
    if (load.listControl)
        DrawNewRows();
    GiveBack();
}

void SearchFeedback::GiveBack() {
    if (barFont) {
        DeleteObject(barFont);
        barFont = nullptr;
    }
    if (barDC) {
        ReleaseDC(barWindow, barDC);
        barDC = nullptr;
    }
}

void SearchFeedback::Message(char const* text) {
    if (load.statusWnd)
        load.statusWnd->SetText(DName(text));
}

void SearchFeedback::Finish(bool succeeded) {
    if (load.progressBar) {
        load.progressBar->SetPos(0, -1);
        load.progressBar->Redraw(-1);
    }
    if (succeeded)
        Message(" "); // a failure's message stays
}
