#include "find_progress.h"

#include "find_interrupt.h"
#include "terminal_width.h"

#include <cstdio>

namespace {

std::chrono::milliseconds const drawInterval(100);

// The end of `text` in at most `width` bytes, "..." in front when it was cut.
std::string Tail(std::string const& text, unsigned width) {
    if (text.size() <= width)
        return text;
    if (width <= 3)
        return text.substr(text.size() - width);
    return "..." + text.substr(text.size() - (width - 3));
}

std::string Grouped(std::uint64_t value) {
    DName text;
    text.FromLong64(value, 1);
    return &text;
}

} // namespace

ProgressView::ProgressView(DFileLoad& listing, bool drawing, unsigned starts, bool recurse)
    : load(listing), draw(drawing), startDirectories(starts), recursive(recurse),
      nextDraw(std::chrono::steady_clock::now() + drawInterval) {
    list.SetReportStyle(ColumnName); // one cell a row is enough to count the rows
    SetCallbacks(Changed);
    // Without drawing, the bar (one change an entry) still passes Ctrl-C on; the list, which
    // would hold a row for every match, is left out.
    if (draw)
        load.SetupControls(&bar, &matchShare, &status, &list);
    else
        load.SetupControls(&bar, nullptr, &status, nullptr);
}

ProgressView::~ProgressView() {
    load.SetupControls(nullptr, nullptr, nullptr, nullptr);
    SetCallbacks(nullptr);
    Erase();
}

void ProgressView::SetCallbacks(DIBasics::ChangeCallback callback) {
    DIBasics* const controls[] = {&bar, &matchShare, &status, &list};
    for (DIBasics* control : controls)
        control->SetChangeCallback(callback, this);
}

void ProgressView::Changed(void* user, DIBasics const& control) {
    static_cast<ProgressView*>(user)->OnChange(control);
}

void ProgressView::OnChange(DIBasics const& control) {
    if (busy)
        return;
    busy = true;
    if (&control == &status)
        CountDirectory();
    if (InterruptRequested() && !load.abortRequested)
        load.SetAbort();
    if (draw) {
        auto const now = std::chrono::steady_clock::now();
        if (now >= nextDraw) {
            EstimateRange();
            Draw();
            nextDraw = now + drawInterval;
        }
    }
    busy = false;
}

// The status window shows each directory as the search turns to it (and is redrawn then, which
// calls back once more).
void ProgressView::CountDirectory() {
    DName const text = status.Text();
    if (text == lastStatus)
        return;
    lastStatus = text;
    ++directoriesSeen;
}

// As many entries still to come in each directory not yet searched as there were, on average,
// in those searched so far. Every directory found will be searched when the search recurses.
void ProgressView::EstimateRange() {
    double const searched = load.totalSearched;
    unsigned const found = recursive ? load.totalSearchDirs - 1 : 0;
    unsigned const known = startDirectories + found;
    double estimate = searched;
    if (directoriesSeen > 0 && directoriesSeen < known)
        estimate += searched / directoriesSeen * (known - directoriesSeen);
    DWORD const high = estimate >= 4294967295.0 ? 0xFFFFFFFF : static_cast<DWORD>(estimate);
    bar.SetRange(0, high, -1);
}

std::string ProgressView::BarLine(unsigned width) const {
    DWORD const high = bar.rangeHigh;
    DWORD const position = bar.Position();
    unsigned percent = high == 0 ? 0 : static_cast<unsigned>(100.0 * position / high);
    if (percent > 100)
        percent = 100;
    unsigned const barWidth = width >= 119 ? 30 : width >= 99 ? 20 : 10;
    std::string line = "[";
    line.append(barWidth * percent / 100, '#');
    line.append(barWidth - barWidth * percent / 100, '.');
    char numbers[64];
    std::snprintf(numbers, sizeof numbers, "] %3u%%  ", percent);
    line += numbers;
    line += Grouped(load.totalSearched) + " searched  " + Grouped(load.totalMatches) + " matches";
    line += " (" + std::string(&matchShare.Text()) + ")  " + Grouped(list.RowCount()) + " rows";
    return line;
}

void ProgressView::Draw() {
    unsigned const width = TerminalWidth() - 1; // a full line would wrap the cursor
    std::string screen = "\r\033[J" + BarLine(width).substr(0, width) + "\n";
    screen += Tail(&status.Text(), width) + "\033[A\r";
    std::fwrite(screen.data(), 1, screen.size(), stderr);
    drawn = true;
}

void ProgressView::Erase() {
    if (drawn)
        std::fputs("\r\033[J", stderr);
    drawn = false;
}
