// The slots of a list's elements: cut from slabs that double in size up to 64 KiB, so a
// short list takes little and a long one pays one heap block per few hundred elements.
#include <tessik/ElementPool.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>

namespace {

constexpr std::size_t kFirstSlots = 8;
constexpr std::size_t kLargestSlab = 64 * 1024;

} // namespace

ElementPool::ElementPool(std::size_t size)
    : slotSize(size < sizeof(void*) ? sizeof(void*) : size), freeSlots(nullptr), unused(nullptr),
      unusedEnd(nullptr), slabs(nullptr), slabCount(0), slabCapacity(0), inUse(0) {}

ElementPool::~ElementPool() {
    ReleaseAll();
}

void* ElementPool::Take() {
    void* slot = freeSlots;
    if (slot) {
        std::memcpy(&freeSlots, slot, sizeof freeSlots);
    } else {
        if (static_cast<std::size_t>(unusedEnd - unused) < slotSize && !AddSlab())
            return nullptr;
        slot = unused;
        unused += slotSize;
    }
    ++inUse;
    return slot;
}

bool ElementPool::Give(void* slot) {
    std::less<char const*> before;
    char const* const at = static_cast<char const*>(slot);
    std::size_t low = 0, high = slabCount; // the first slab that ends after `at`
    while (low < high) {
        std::size_t const middle = low + (high - low) / 2;
        if (before(at, slabs[middle].end))
            high = middle;
        else
            low = middle + 1;
    }
    if (low == slabCount || before(at, slabs[low].begin))
        return false;
    std::memcpy(slot, &freeSlots, sizeof freeSlots);
    freeSlots = slot;
    if (--inUse == 0)
        ReleaseAll(); // the list is empty: its memory goes back
    return true;
}

bool ElementPool::AddSlab() {
    if (slabCount == slabCapacity) {
        std::size_t const capacity = slabCapacity ? slabCapacity * 2 : 8;
        void* grown = std::realloc(slabs, capacity * sizeof(Slab));
        if (!grown)
            return false;
        slabs = static_cast<Slab*>(grown);
        slabCapacity = capacity;
    }
    std::size_t slots = kFirstSlots << (slabCount < 16 ? slabCount : 16);
    if (slots * slotSize > kLargestSlab)
        slots = kLargestSlab / slotSize > 0 ? kLargestSlab / slotSize : 1;
    std::size_t const bytes = slots * slotSize;
    char* const begin = static_cast<char*>(::operator new(bytes, std::nothrow));
    if (!begin)
        return false;
    std::less<char const*> before;
    std::size_t at = slabCount;
    while (at > 0 && before(begin, slabs[at - 1].begin)) {
        slabs[at] = slabs[at - 1];
        --at;
    }
    slabs[at] = Slab{begin, begin + bytes};
    ++slabCount;
    unused = begin;
    unusedEnd = begin + bytes;
    return true;
}

void ElementPool::ReleaseAll() {
    for (std::size_t i = 0; i < slabCount; ++i)
        ::operator delete(slabs[i].begin);
    std::free(slabs);
    slabs = nullptr;
    slabCount = 0;
    slabCapacity = 0;
    freeSlots = nullptr;
    unused = nullptr;
    unusedEnd = nullptr;
    inUse = 0;
}
