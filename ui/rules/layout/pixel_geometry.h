#pragma once
// Plain pixel geometry for layouts that must stay free of any toolkit, so
// that the tables of places can be checked without a window.

namespace zelvor {

struct PixelPoint {
    int x = 0;
    int y = 0;
};

struct PixelSize {
    int width = 0;
    int height = 0;
};

// A rectangle in pixels; right and bottom lie just outside it, as the
// device's RECT does, so width = right - left.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    static constexpr PixelRect At(PixelPoint origin, PixelSize size) {
        return {origin.x, origin.y, origin.x + size.width, origin.y + size.height};
    }
    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    constexpr bool IsEmpty() const { return right <= left || bottom <= top; }
    constexpr bool Contains(PixelPoint p) const {
        return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
    }
    constexpr bool Contains(const PixelRect& r) const {
        return r.left >= left && r.right <= right && r.top >= top && r.bottom <= bottom;
    }
    constexpr bool Intersects(const PixelRect& r) const {
        return !IsEmpty() && !r.IsEmpty() && left < r.right && r.left < right && top < r.bottom &&
               r.top < bottom;
    }
    friend constexpr bool operator==(const PixelRect&, const PixelRect&) = default;
};

} // namespace zelvor
