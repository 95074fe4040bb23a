// Container<T>: a counted, singly linked list whose elements carry their own link.
//
// `count` and `head` are public and callers may walk the chain themselves (NextOf(element)
// gives an element's link). An index at or past `count` gives the first element. Behind the
// public fields the list keeps its last element and the last position it reached, so appending
// and a loop over increasing positions cost O(1) a step; every operation that relinks keeps
// them right, and code that relinks the chain by hand calls Relinked() afterwards. The elements
// live in the list's own pool (ElementPool); one made elsewhere with `new` and linked in by hand
// is deleted as usual.
#ifndef TESSIK_CONTAINER_H
#define TESSIK_CONTAINER_H

#include <tessik/ElementPool.h>

#include <new>

template <class T> class Container {
public:
    unsigned count;
    T* head;

    Container()
        : count(0), head(nullptr), tail(nullptr), reachedPos(0), reached(nullptr), pool(sizeof(T)) {
    }
    Container(Container const& other) : Container() { *this = other; }
    ~Container() { Destroy(); }

    T& operator[](unsigned const& index) const {
        T* element = (*this)(index);
        return element ? *element : Missing();
    }

    T* operator()(unsigned const& index) const {
        if (index >= count)
            return head;
        T* element = head;
        unsigned pos = 0;
        if (reached && reachedPos <= index) {
            element = reached;
            pos = reachedPos;
        }
        while (element && pos < index) {
            element = NextOf(*element);
            ++pos;
        }
        if (element) {
            reached = element;
            reachedPos = pos;
        }
        return element;
    }

    bool InsertLeft(T const& value) {
        T* copy = MakeCopy(value);
        if (!copy)
            return false;
        NextOf(*copy) = head;
        head = copy;
        if (!tail)
            tail = copy;
        ++count;
        reached = nullptr; // positions moved by one
        return true;
    }

    bool InsertRight(T const& value) {
        T* copy = MakeCopy(value);
        if (!copy)
            return false;
        if (count == 0)
            head = copy;
        else
            NextOf(*tail) = copy;
        tail = copy;
        ++count;
        return true;
    }

    bool InsertPos(unsigned const& pos, T const& value) {
        if (pos == 0 || count == 0)
            return InsertLeft(value);
        if (pos >= count)
            return InsertRight(value);
        T* before = (*this)(pos - 1);
        if (!before)
            return false;
        T* copy = MakeCopy(value);
        if (!copy)
            return false;
        NextOf(*copy) = NextOf(*before);
        NextOf(*before) = copy;
        ++count;
        return true;
    }

    bool DelLeft() {
        if (count == 0 || !head)
            return false;
        T* first = head;
        head = NextOf(*first);
        --count;
        if (count == 0) {
            head = nullptr;
            tail = nullptr;
        }
        reached = nullptr;
        Free(first);
        return true;
    }

    bool DelRight() {
        if (count == 0)
            return false;
        return DelPos(count - 1);
    }

    bool DelPos(unsigned const& pos) {
        if (pos >= count)
            return false;
        if (pos == 0)
            return DelLeft();
        T* before = (*this)(pos - 1);
        if (!before || !NextOf(*before))
            return false;
        T* gone = NextOf(*before);
        NextOf(*before) = NextOf(*gone);
        if (gone == tail)
            tail = before;
        --count;
        Free(gone);
        return true;
    }

    void Destroy() {
        while (head) {
            T* first = head;
            head = NextOf(*first);
            Free(first);
        }
        count = 0;
        tail = nullptr;
        reached = nullptr;
    }

    bool operator=(Container const& other) {
        if (&other == this)
            return count != 0;
        Destroy();
        for (T* element = other.head; element; element = NextOf(*element))
            if (!InsertRight(*element))
                return false;
        return count != 0;
    }

    // Container<DFile> only: record contents copied between positions, links untouched.
    bool CopyPos(unsigned const& to, unsigned const& from) {
        if (to >= count || from >= count || to == from)
            return false;
        T* source = (*this)(from);
        T* target = (*this)(to);
        if (!source || !target)
            return false;
        target->Copy(*source, 0);
        return true;
    }

    bool ReplacePos(unsigned const& pos, T const& value) {
        if (pos >= count)
            return false;
        T* target = (*this)(pos);
        if (!target)
            return false;
        target->Copy(value, 0);
        return true;
    }

    // Removes, in one pass, every element for which `removes` holds; the others keep their
    // order. False when the chain ends before `count` elements.
    template <class Test> bool DelIf(Test removes) {
        T** link = &head;
        T* last = nullptr;
        unsigned const total = count;
        bool whole = true;
        for (unsigned pos = 0; pos < total; ++pos) {
            T* const element = *link;
            if (!element) {
                whole = false;
                break;
            }
            if (removes(*element)) {
                *link = NextOf(*element);
                --count;
                Free(element);
            } else {
                last = element;
                link = &NextOf(*element);
            }
        }
        if (whole)
            Relinked(last);
        else
            Relinked();
        return whole;
    }

    // After the chain was relinked by hand (head and links changed, the same elements kept):
    // finds the last element again and forgets the last position reached.
    void Relinked() {
        T* last = head;
        while (last && NextOf(*last))
            last = NextOf(*last);
        Relinked(last);
    }

    // The same when the caller knows the chain's last element (null for an empty chain).
    void Relinked(T* last) {
        tail = last;
        reached = nullptr;
    }

private:
    T* MakeCopy(T const& value) {
        void* slot = pool.Take();
        if (!slot)
            return nullptr;
        T* copy = new (slot) T(value);
        NextOf(*copy) = nullptr;
        return copy;
    }

    void Free(T* element) {
        element->Destroy();
        element->~T();
        if (!pool.Give(element))
            ::operator delete(element); // made with `new` by whoever linked it in
    }

    // What operator[] refers to when the list holds no element at the index: a dummy shared by
    // all lists of the type, so a misuse reads an empty element instead of crashing.
    static T& Missing() {
        static T missing;
        return missing;
    }

    T* tail;
    mutable unsigned reachedPos;
    mutable T* reached;
    ElementPool pool;
};

#endif
