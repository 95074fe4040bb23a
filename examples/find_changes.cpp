#include "find_changes.h"

#include <algorithm>
#include <unordered_map>

namespace {

// "size 10 -> 12, written 2024-05-01 13:45:10 -> 2024-05-02 08:00:00".
std::string ChangedFields(DFile const& before, DFile const& after, OutputForm const& form) {
    struct Field {
        char const* name;
        unsigned column;
    };
    Field const fields[] = {{"size", ColumnSize},
                            {"written", ColumnWritten},
                            {"created", ColumnCreated},
                            {"attributes", ColumnAttributes}};
    std::string text;
    for (Field const& field : fields) {
        std::string const was = ColumnText(before, field.column, form);
        std::string const is = ColumnText(after, field.column, form);
        if (was != is)
            text += (text.empty() ? "" : ", ") + std::string(field.name) + " " + was + " -> " + is;
    }
    // Equal texts: the dates differ below the second.
    return text.empty() ? "written or created within the same second" : text;
}

} // namespace

std::vector<Change> FindChanges(DFileLoad& saved, DFileLoad& found, DFileLoad& added,
                                DFileLoad& removed) {
    saved.FindDifferences(found, added);
    found.FindDifferences(saved, removed);
    std::vector<Change> changes;
    // The removed records by path, taken out as they pair with an added one.
    std::unordered_map<std::string, DFile const*> gone;
    for (DFile const* record = removed.files.head; record; record = record->next)
        if (!gone.emplace(&record->GetFullPath(), record).second) // a path stored twice
            changes.push_back({&record->GetFullPath(), '-', record, nullptr});
    for (DFile const* record = added.files.head; record; record = record->next) {
        std::string path = &record->GetFullPath();
        auto const twin = gone.find(path);
        if (twin == gone.end()) {
            changes.push_back({path, '+', record, nullptr});
            continue;
        }
        changes.push_back({path, '~', record, twin->second});
        gone.erase(twin);
    }
    for (auto const& [path, record] : gone)
        changes.push_back({path, '-', record, nullptr});
    std::sort(changes.begin(), changes.end(), [](Change const& a, Change const& b) {
        return a.path != b.path ? a.path < b.path : a.mark < b.mark;
    });
    return changes;
}

void PrintChanges(std::vector<Change> const& changes, OutputForm const& form, std::FILE* out) {
    for (Change const& change : changes) {
        std::string line =
            std::string(1, change.mark) + " " + ColumnText(*change.record, ColumnPath, form);
        if (change.mark == '~')
            line += "  " + ChangedFields(*change.before, *change.record, form);
        std::fprintf(out, "%s\n", line.c_str());
    }
}
