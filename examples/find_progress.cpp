#include "find_progress.h"

#include "find_paths.h"
#include "find_system.h"

#include <cctype>
#include <cstdio>

namespace {

std::chrono::milliseconds const drawInterval(100);
// The clock is read at every 64th change only: the bar changes at every entry.
unsigned const clockStride = 64;

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

ProgressView::ProgressView(DFileLoad& listing, UnreadableWatch& unreadable,
                           ViewSettings const& chosen)
    : load(listing), watch(unreadable), settings(chosen),
      nextDraw(std::chrono::steady_clock::now() + drawInterval) {
    SetCallbacks(Changed);
    // The bar (one change an entry) passes Ctrl-C on and feeds the watch; the status names each
    // directory. No list control: it would hold a row for every match, and the view shows the
    // latest match from the listing itself.
    load.SetupControls(&bar, nullptr, &status, nullptr);
}

ProgressView::~ProgressView() {
    load.SetupControls(nullptr, nullptr, nullptr, nullptr);
    SetCallbacks(nullptr);
    watch.DirectoryStarts(load, std::string());
    Tell();
    Erase();
}

void ProgressView::SetCallbacks(DIBasics::ChangeCallback callback) {
    DIBasics* const controls[] = {&bar, &status};
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
    else if (&control == &bar)
        watch.EntryCounted(load);
    Tell();
    if (InterruptRequested() && !load.abortRequested)
        load.SetAbort();
    if (settings.draw) {
        auto const now = ++changes % clockStride == 0 ? std::chrono::steady_clock::now()
                                                      : std::chrono::steady_clock::time_point();
        if (now >= nextDraw) {
            EstimateRange();
            Draw();
            nextDraw = now + drawInterval;
        }
    }
    busy = false;
}

// The status window shows each directory as the search turns to it (and is redrawn then, which
// calls back once more); its other texts are messages, which do not start with a drive (C:) or
// a network share (\\server).
void ProgressView::CountDirectory() {
    DName const text = status.Text();
    char const* const start = &text;
    bool const drive = std::isalpha(static_cast<unsigned char>(start[0])) && start[1] == ':';
    if (text == lastStatus || !(drive || (start[0] == '\\' && start[1] == '\\')))
        return;
    lastStatus = text;
    ++directoriesSeen;
    watch.DirectoryStarts(load, &text);
}

// Unreadable entries are told between the drawings: what was drawn goes first.
void ProgressView::Tell() {
    std::string const messages = watch.TakeMessages();
    if (messages.empty() || !settings.tellEach)
        return;
    Erase();
    std::fputs(messages.c_str(), stderr);
}

// As many entries still to come in each directory not yet searched as there were, on average,
// in those searched so far. Every directory found will be searched when the search recurses.
void ProgressView::EstimateRange() {
    double const searched = load.totalSearched;
    unsigned const found = settings.recursive ? load.totalSearchDirs - 1 : 0;
    unsigned const known = settings.startDirectories + found;
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
    char share[32];
    std::snprintf(share, sizeof share, " (%.2f%%)",
                  load.totalSearched == 0 ? 0.0 : 100.0 * load.totalMatches / load.totalSearched);
    return line + share;
}

// The path as the output shows it, cut to `width` from the left.
std::string ProgressView::Shown(std::string const& path, unsigned width) const {
    return Tail(settings.posixPaths ? PosixPath(path) : path, width);
}

// Three lines: the bar with the tallies, the latest match, the directory being searched.
void ProgressView::Draw() {
    unsigned const width = TerminalWidth() - 1; // a full line would wrap the cursor
    std::string screen = "\r\033[J" + BarLine(width).substr(0, width) + "\n";
    // The last position asked is remembered by the list: each drawing walks only the new ones.
    DFile const* latest = load.files.count == 0 ? nullptr : load.files(load.files.count - 1);
    screen += (latest ? Shown(&latest->GetFullPath(), width) : std::string()) + "\n";
    screen += Shown(&status.Text(), width) + "\033[2A\r";
    std::fwrite(screen.data(), 1, screen.size(), stderr);
    drawn = true;
}

void ProgressView::Erase() {
    if (drawn)
        std::fputs("\r\033[J", stderr);
    drawn = false;
}

PhaseLine::PhaseLine(bool drawing, std::string const& text) : draw(drawing) {
    if (draw)
        std::fputs(("\r\033[J" + Tail(text, TerminalWidth() - 1)).c_str(), stderr);
}

PhaseLine::~PhaseLine() {
    if (draw)
        std::fputs("\r\033[J", stderr);
}
