// Sorting a listing: by path with directories first (a quicksort on the path, then a pass that
// relinks the directories ahead), or by any column up or down (insertion passes with the gaps
// 3 and 1).
//
// The orders are exactly those of the algorithms as they move record contents between the
// positions of the chain, ties and instability included; only the cost is not theirs. Each
// sort works out the final order on an array of positions and then moves the contents once.
#include "presentation/ColumnOrder.h"

#include <tessik/DFileLoad.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace {

// Exchanges what a value copy between records moves: everything but `next` and
// `dataEncrypted`, which stay with the node.
void SwapContents(DFile& a, DFile& b) {
    a.fullPath.Swap(b.fullPath);
    a.hashKey.Swap(b.hashKey);
    std::swap(a.sizeLow, b.sizeLow);
    std::swap(a.sizeHigh, b.sizeHigh);
    std::swap(a.attributes, b.attributes);
    std::swap(a.dateCreated, b.dateCreated);
    std::swap(a.dateLastAccessed, b.dateLastAccessed);
    std::swap(a.dateWritten, b.dateWritten);
}

bool SameContents(DFile const& a, DFile const& b) {
    return a.fullPath == b.fullPath && a.hashKey == b.hashKey && a.CompStruct(b) &&
           a.CompDates(a.dateLastAccessed, b.dateLastAccessed);
}

// The nodes at positions first to first + count - 1.
std::vector<DFile*> NodesOf(Container<DFile> const& files, unsigned first, unsigned count) {
    std::vector<DFile*> nodes;
    nodes.reserve(count);
    for (DFile* node = files(first); node && nodes.size() < count; node = node->next)
        nodes.push_back(node);
    return nodes;
}

// The keys of one column for the nodes, in their order.
std::vector<ColumnKey> KeysOf(std::vector<DFile*> const& nodes, unsigned int column) {
    unsigned int const skip = CommonPathPrefix(nodes);
    std::vector<ColumnKey> keys;
    keys.reserve(nodes.size());
    for (DFile const* node : nodes) {
        keys.push_back(MakeColumnKey(*node, column, skip));
        keys.back().index = static_cast<unsigned>(keys.size() - 1);
    }
    return keys;
}

// Moves the contents so that the node at position i holds what the node at `from[i]` held.
void MoveContents(std::vector<DFile*> const& nodes, std::vector<unsigned> const& from) {
    std::vector<bool> placed(from.size(), false);
    for (unsigned start = 0; start < from.size(); ++start) {
        unsigned at = start;
        while (!placed[at] && from[at] != start) {
            SwapContents(*nodes[at], *nodes[from[at]]);
            placed[at] = true;
            at = from[at];
        }
        placed[at] = true;
    }
}

// The positions 0 to n - 1, in order.
std::vector<unsigned> InOrder(std::size_t n) {
    std::vector<unsigned> positions(n);
    std::iota(positions.begin(), positions.end(), 0u);
    return positions;
}

// The leading numbers of a key and the key's position: what a sort moves around.
struct SortItem {
    std::uint64_t first;
    std::uint64_t second;
    std::uint64_t third;
    unsigned index;
};

// The items of the keys, in their order; `ties` puts the head of the path behind the value.
std::vector<SortItem> ItemsOf(std::vector<ColumnKey> const& keys, bool ties) {
    std::vector<SortItem> items(keys.size());
    for (unsigned i = 0; i < keys.size(); ++i)
        items[i] = SortItem{keys[i].high, keys[i].low, ties ? keys[i].pathHead : 0, i};
    return items;
}

std::vector<unsigned> IndicesOf(std::vector<SortItem> const& items) {
    std::vector<unsigned> indices(items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        indices[i] = items[i].index;
    return indices;
}

// Ascending order of items: their numbers first, the whole keys only when those are equal.
struct ItemOrder {
    std::vector<ColumnKey> const& keys;
    unsigned int column;

    bool operator()(SortItem const& a, SortItem const& b) const {
        if (a.first != b.first)
            return a.first < b.first;
        if (a.second != b.second)
            return a.second < b.second;
        if (a.third != b.third)
            return a.third < b.third;
        return ColumnCompare(keys[a.index], keys[b.index], column) < 0;
    }
};

// The quicksort on the full path: the first element of a range is its pivot, and a hole moves
// between the two ends. Keys equal to the pivot are passed over and stay where they stand, so
// records that share a path end in an order only the steps themselves give.
class PathQuicksort {
public:
    explicit PathQuicksort(std::vector<DFile*> const& nodes)
        : keys(KeysOf(nodes, ColumnPath)), order(InOrder(keys.size())), group(keys.size(), none),
          seen(keys.size(), 0) {
        sorted = ItemsOf(keys, false);
        std::sort(sorted.begin(), sorted.end(), ItemOrder{keys, ColumnPath});
        for (std::size_t i = 1; i < sorted.size(); ++i) {
            // Records whose path another record shares with other contents: only their order
            // among themselves needs the steps of the quicksort. Each such path is a group.
            DFile const& a = *nodes[sorted[i - 1].index];
            DFile const& b = *nodes[sorted[i].index];
            if (a.fullPath != b.fullPath || SameContents(a, b))
                continue;
            unsigned& first = group[sorted[i - 1].index];
            if (first == none)
                first = static_cast<unsigned>(i - 1);
            group[sorted[i].index] = first;
            anyShared = true;
        }
    }

    std::vector<unsigned> Run() {
        if (!anyShared)
            return IndicesOf(sorted); // the one ascending order there is
        std::vector<std::pair<unsigned, unsigned>> ranges;
        if (!order.empty())
            ranges.emplace_back(0u, static_cast<unsigned>(order.size() - 1));
        while (!ranges.empty()) {
            auto const [first, last] = ranges.back();
            ranges.pop_back();
            if (first >= last || Settled(first, last))
                continue;
            unsigned const l = Partition(first, last);
            if (first < l)
                ranges.emplace_back(first, l - 1);
            if (last > l)
                ranges.emplace_back(l + 1, last);
        }
        return order;
    }

private:
    int Compare(unsigned a, unsigned b) const {
        return ColumnCompare(keys[a], keys[b], ColumnPath);
    }

    // Whether the outcome on the range is known without the steps: a range in ascending order
    // is left as it stands, and a range that holds no two records of one group ends in the one
    // ascending order there is.
    bool Settled(unsigned first, unsigned last) {
        ++stamp;
        bool ascending = true;
        bool plain = true;
        for (unsigned i = first; i <= last; ++i) {
            if (i > first && Compare(order[i], order[i - 1]) < 0)
                ascending = false;
            unsigned const g = group[order[i]];
            if (g != none && seen[g] == stamp)
                plain = false;
            else if (g != none)
                seen[g] = stamp;
        }
        if (ascending)
            return true;
        if (!plain)
            return false;
        std::sort(order.begin() + first, order.begin() + last + 1,
                  [this](unsigned a, unsigned b) { return Compare(a, b) < 0; });
        return true;
    }

    unsigned Partition(unsigned first, unsigned last) {
        unsigned const pivot = order[first];
        unsigned l = first;
        unsigned r = last;
        while (l < r) {
            while (Compare(order[r], pivot) >= 0 && l < r)
                --r;
            if (l != r)
                order[l++] = order[r];
            while (Compare(order[l], pivot) <= 0 && l < r)
                ++l;
            if (l != r)
                order[r--] = order[l];
        }
        order[l] = pivot;
        return l;
    }

    static constexpr unsigned none = ~0u;

    std::vector<ColumnKey> keys;
    std::vector<SortItem> sorted;
    std::vector<unsigned> order;
    std::vector<unsigned> group; // of each record: its shared path, or none
    std::vector<unsigned> seen;  // the last range in which a group was met
    unsigned stamp = 0;
    bool anyShared = false;
};

// Takes the directories out of the chain in their order and links them in ahead of all other
// records, which keep theirs.
DFile* DirectoriesFirst(DFile* head) {
    DFile* directories = nullptr;
    DFile* others = nullptr;
    DFile** directoriesEnd = &directories;
    DFile** othersEnd = &others;
    for (DFile* node = head; node; node = node->next) {
        DFile**& end = node->isDir() ? directoriesEnd : othersEnd;
        *end = node;
        end = &node->next;
    }
    *othersEnd = nullptr;
    *directoriesEnd = others;
    return directories;
}

} // namespace

bool DFileLoad::Sort() {
    if (files.count == 0)
        return false;
    SortRecursive(0, static_cast<int>(files.count - 1));
    files.head = DirectoriesFirst(files.head);
    files.Relinked();
    return true;
}

void DFileLoad::SortRecursive(int first, int last) {
    if (first < 0 || last <= first || static_cast<unsigned>(last) >= files.count)
        return;
    std::vector<DFile*> const nodes =
        NodesOf(files, static_cast<unsigned>(first), static_cast<unsigned>(last - first + 1));
    MoveContents(nodes, PathQuicksort(nodes).Run());
}

void DFileLoad::SortRecursiveDirectory(int, int) {}

void DFileLoad::SortAlpha(unsigned int const& column, bool descending) {
    unsigned const n = files.count;
    if (n < 2)
        return;
    std::vector<DFile*> const nodes = NodesOf(files, 0, n);
    std::vector<ColumnKey> const keys = KeysOf(nodes, column);
    // What the sort moves around is small: the leading numbers of each key, and its position.
    std::vector<SortItem> items = ItemsOf(keys, ColumnBreaksTies(column));
    ItemOrder const before{keys, column};

    // An insertion pass moves a record only past greater ones: a stable sort of each of the
    // interleaved sequences that the gap makes. The gap 3 sorts three of them, the gap 1 all.
    for (unsigned start = 0; start < 3 && start < n; ++start) {
        std::vector<SortItem> interleaved;
        interleaved.reserve(n / 3 + 1);
        for (unsigned i = start; i < n; i += 3)
            interleaved.push_back(items[i]);
        std::stable_sort(interleaved.begin(), interleaved.end(), before);
        for (unsigned i = start, k = 0; i < n; i += 3, ++k)
            items[i] = interleaved[k];
    }
    std::stable_sort(items.begin(), items.end(), before);
    if (descending)
        std::reverse(items.begin(), items.end());
    MoveContents(nodes, IndicesOf(items));
}
