#pragma once
// Points, sizes and rectangles in logical pixels. A rectangle includes its left and top edges
// and excludes its right and bottom edges: width = right - left.

#include <algorithm>

namespace Gfx {

struct Point {
    int x = 0;
    int y = 0;

    constexpr Point () = default;
    constexpr Point (int x, int y) : x (x), y (y) {}
    constexpr int GetX () const { return x; }
    constexpr int GetY () const { return y; }
    constexpr bool operator== (const Point&) const = default;
};

struct Size {
    int width = 0;
    int height = 0;

    constexpr Size () = default;
    constexpr Size (int width, int height) : width (width), height (height) {}
    constexpr int GetWidth () const { return width; }
    constexpr int GetHeight () const { return height; }
    constexpr bool operator== (const Size&) const = default;
};

struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr Rect () = default;
    constexpr Rect (int left, int top, int right, int bottom) : left (left), top (top), right (right), bottom (bottom) {}
    static constexpr Rect FromSize (int x, int y, int width, int height) { return Rect (x, y, x + width, y + height); }

    constexpr int   GetLeft () const { return left; }
    constexpr int   GetTop () const { return top; }
    constexpr int   GetRight () const { return right; }
    constexpr int   GetBottom () const { return bottom; }
    constexpr int   GetWidth () const { return right - left; }
    constexpr int   GetHeight () const { return bottom - top; }
    constexpr Size  GetSize () const { return Size (GetWidth (), GetHeight ()); }
    constexpr Point GetTopLeft () const { return Point (left, top); }
    constexpr bool  IsEmpty () const { return right <= left || bottom <= top; }

    constexpr bool Contains (Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    constexpr Rect Offset (int dx, int dy) const { return Rect (left + dx, top + dy, right + dx, bottom + dy); }
    constexpr Rect Inset (int dx, int dy) const { return Rect (left + dx, top + dy, right - dx, bottom - dy); }
    constexpr Rect Intersect (const Rect& o) const
    {
        Rect r (std::max (left, o.left), std::max (top, o.top), std::min (right, o.right), std::min (bottom, o.bottom));
        if (r.IsEmpty ()) return Rect (r.left, r.top, r.left, r.top);
        return r;
    }
    constexpr bool operator== (const Rect&) const = default;
};

}   // namespace Gfx
