#pragma once

namespace Tevra {

// A point or vector in plan: x and y (metres where it is a position).
template <class T> struct Vec2 {
    T x{};
    T y{};

    Vec2() = default;
    Vec2(T x_, T y_) : x(x_), y(y_) {}

    Vec2 operator+(const Vec2& o) const { return {x + o.x, y + o.y}; }
    Vec2 operator-(const Vec2& o) const { return {x - o.x, y - o.y}; }
    Vec2 operator*(T s) const { return {x * s, y * s}; }
    Vec2& operator+=(const Vec2& o) {
        x += o.x;
        y += o.y;
        return *this;
    }
    bool operator==(const Vec2& o) const { return x == o.x && y == o.y; }
    bool operator!=(const Vec2& o) const { return !(*this == o); }
};

} // namespace Tevra
