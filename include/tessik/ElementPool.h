// ElementPool: the slots in which one Container keeps its elements.
//
// A list of a million records would otherwise pay the heap's header and rounding on each of
// them; the pool cuts slots of one size out of slabs that grow with the list, so an element
// costs exactly its size. A slot given back is reused by the next element, and when the last
// element is given back every slab goes back to the heap. Elements made elsewhere with `new`
// and linked in by hand are not the pool's: Give says so, and the list deletes them.
#ifndef TESSIK_ELEMENTPOOL_H
#define TESSIK_ELEMENTPOOL_H

#include <tessik/export.h>

#include <cstddef>

class TESSIK_API ElementPool {
public:
    // `size` is the element's size, a multiple of its alignment (at most 8, or the heap's).
    explicit ElementPool(std::size_t size);
    ~ElementPool();
    ElementPool(ElementPool const&) = delete;
    ElementPool& operator=(ElementPool const&) = delete;

    void* Take();          // a free slot; null when no memory is left
    bool Give(void* slot); // takes back a slot of this pool; false for any other address

private:
    struct Slab {
        char* begin;
        char* end;
    };

    bool AddSlab();
    void ReleaseAll();

    std::size_t slotSize;
    void* freeSlots; // slots given back, chained through their first bytes
    char* unused;    // the part of the newest slab that no slot has come from yet
    char* unusedEnd;
    Slab* slabs; // ordered by address, for Give
    std::size_t slabCount;
    std::size_t slabCapacity;
    std::size_t inUse;
};

#endif
