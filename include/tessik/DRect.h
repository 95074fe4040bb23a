// DRect: a rectangle in window coordinates, right and bottom exclusive as in RECT.
#ifndef TESSIK_DRECT_H
#define TESSIK_DRECT_H

#include <tessik/export.h>
#include <tessik/platform.h>

class TESSIK_API DRect {
public:
    DRect(LONG const& left = 0, LONG const& top = 0, LONG const& right = 0, LONG const& bottom = 0);
    DRect(DRect const& other);
    DRect& operator=(DRect const& other);

    LONG const& Left() const { return rect.left; }
    LONG const& Top() const { return rect.top; }
    LONG const& Right() const { return rect.right; }
    LONG const& Bottom() const { return rect.bottom; }
    RECT const& Rect() const { return rect; }
    RECT& Rect() { return rect; } // for calls that fill a RECT

private:
    RECT rect;
};

#endif
