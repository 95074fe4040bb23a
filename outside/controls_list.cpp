// DListControl: a report-style list with sparse rows.
#include "outside/controls_state.h"

#include <string>
#include <utility>

// Emitted here, so that the DLL exports it to hosts that bind a reference to it.
constexpr unsigned int DListControl::maxColumns;

namespace {

// Writes one cell, making its row when it has none. A failure leaves the rows as they were.
bool WriteCell(ControlState& state, unsigned row, unsigned column, ListCell&& cell) {
    auto const found = state.rows.find(row);
    std::vector<ListCell> fresh;
    std::vector<ListCell>& cells = found != state.rows.end() ? found->second : fresh;
    if (cells.size() <= column)
        cells.resize(column + 1);
    cells[column] = std::move(cell);
    if (found == state.rows.end())
        state.rows.emplace(row, std::move(fresh));
    return true;
}

ListCell const* FindCell(ControlState const& state, unsigned row, unsigned column) {
    auto const found = state.rows.find(row);
    if (found == state.rows.end() || found->second.size() <= column)
        return nullptr;
    return &found->second[column];
}

} // namespace

DListControl::DListControl(HWND const& parent, int const& id)
    : DIBasics(listControlKind, parent, id), sortAscending(1), reportStyle(0xFF), sortColumn(0),
      iconSize(16), listExStyle(0), gridColour(0x00D3D3D3) {}

void DListControl::Reset() {
    ChangeState(*this, State(), [](ControlState& state) {
        state.rows.clear();
        state.icons = false;
        return true;
    });
}

bool DListControl::CreateIcons() {
    return ChangeState(*this, State(), [](ControlState& state) {
        state.icons = true;
        return true;
    });
}

DWORD DListControl::GetReportStyle() const {
    return reportStyle;
}

void DListControl::SetReportStyle(DWORD const& columns) {
    reportStyle = columns;
    Changed();
}

bool DListControl::SetImage(DName const& text, char const* path, unsigned int const& row,
                            unsigned int const& column) {
    if (!path || column >= maxColumns)
        return false;
    return ChangeState(*this, State(), [&](ControlState& state) {
        return WriteCell(state, row, column, ListCell{TextOf(text), path});
    });
}

bool DListControl::SetText(DName const& text, unsigned int const& row, unsigned int const& column) {
    if (column >= maxColumns)
        return false;
    return ChangeState(*this, State(), [&](ControlState& state) {
        return WriteCell(state, row, column, ListCell{TextOf(text), std::string()});
    });
}

bool DListControl::SetInt(DWORD const& value, unsigned int const& row, unsigned int const& column) {
    return SetText(DName(std::to_string(value).c_str()), row, column);
}

unsigned int DListControl::RowCount() const {
    return ReadState(State(), 0u,
                     [](ControlState& state) { return static_cast<unsigned>(state.rows.size()); });
}

bool DListControl::NextRow(unsigned int const& from, unsigned int* row) const {
    return ReadState(State(), false, [&](ControlState& state) {
        auto const found = state.rows.lower_bound(from);
        if (found == state.rows.end() || !row)
            return false;
        *row = found->first;
        return true;
    });
}

DName DListControl::CellText(unsigned int const& row, unsigned int const& column) const {
    return ReadState(State(), DName(), [&](ControlState& state) {
        ListCell const* cell = FindCell(state, row, column);
        return cell ? NameOf(cell->text) : DName();
    });
}

DName DListControl::CellImage(unsigned int const& row, unsigned int const& column) const {
    return ReadState(State(), DName(), [&](ControlState& state) {
        ListCell const* cell = FindCell(state, row, column);
        return cell ? NameOf(cell->image) : DName();
    });
}

bool DListControl::HasIcons() const {
    return ReadState(State(), false, [](ControlState& state) { return state.icons; });
}
