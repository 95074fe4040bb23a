// Link<T>: a counted, singly linked list of nodes, each owning a heap copy of its value.
//
// Like Container<T> it keeps its last node and the last position it reached, so appending and
// a loop over increasing positions cost O(1) a step.
#ifndef TESSIK_LINK_H
#define TESSIK_LINK_H

#include <new>

template <class T> class Link {
public:
    struct Node {
        T* value;
        Node* next;
    };

    unsigned count;
    Node* head;

    Link() : count(0), head(nullptr), tail(nullptr), reachedPos(0), reached(nullptr) {}
    Link(Link const& other) : Link() { *this = other; }
    ~Link() { Destroy(); }

    // Element by element, first to last; a node that cannot be made ends the copy there.
    Link& operator=(Link const& other) {
        if (&other == this)
            return *this;
        Destroy();
        for (Node* node = other.head; node; node = node->next)
            if (!Append(node->value))
                break;
        return *this;
    }

    bool InsertRight(T const& value) { return Append(&value); }

    bool ReplacePos(unsigned const& pos, T const& value) {
        if (pos >= count)
            return false;
        Node* fresh = MakeNode(&value);
        if (!fresh)
            return false;
        Node* before = pos == 0 ? nullptr : NodeAt(pos - 1);
        Node* old = before ? before->next : head;
        fresh->next = old->next;
        if (before)
            before->next = fresh;
        else
            head = fresh;
        if (old == tail)
            tail = fresh;
        if (old == reached)
            reached = fresh;
        Free(old);
        return true;
    }

    bool DelLeft() {
        if (count == 0 || !head)
            return false;
        Node* first = head;
        head = first->next;
        if (--count == 0)
            tail = nullptr;
        reached = nullptr;
        Free(first);
        return true;
    }

    void Destroy() {
        while (head) {
            Node* first = head;
            head = first->next;
            Free(first);
        }
        count = 0;
        tail = nullptr;
        reached = nullptr;
    }

    // The value at `pos`; null past the end.
    T* operator()(unsigned const& pos) const {
        Node* node = NodeAt(pos);
        return node ? node->value : nullptr;
    }

private:
    // A value block that cannot be allocated leaves a node with a null value.
    static Node* MakeNode(T const* value) {
        Node* node = new (std::nothrow) Node{nullptr, nullptr};
        if (node && value)
            node->value = new (std::nothrow) T(*value);
        return node;
    }

    static void Free(Node* node) {
        delete node->value;
        delete node;
    }

    bool Append(T const* value) {
        Node* node = MakeNode(value);
        if (!node)
            return false;
        if (tail)
            tail->next = node;
        else
            head = node;
        tail = node;
        ++count;
        return true;
    }

    Node* NodeAt(unsigned pos) const {
        if (pos >= count)
            return nullptr;
        Node* node = head;
        unsigned at = 0;
        if (reached && reachedPos <= pos) {
            node = reached;
            at = reachedPos;
        }
        while (node && at < pos) {
            node = node->next;
            ++at;
        }
        if (node) {
            reached = node;
            reachedPos = at;
        }
        return node;
    }

    Node* tail;
    mutable unsigned reachedPos;
    mutable Node* reached;
};

#endif
