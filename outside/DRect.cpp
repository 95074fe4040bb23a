#include <tessik/DRect.h>

DRect::DRect(LONG const& left, LONG const& top, LONG const& right, LONG const& bottom)
    : rect{left, top, right, bottom} {}

DRect::DRect(DRect const& other) : rect(other.rect) {}

DRect& DRect::operator=(DRect const& other) {
    rect = other.rect;
    return *this;
}
