#pragma once

#include <cmath>

namespace Tevra {

// A point or vector in space: x, y and level z (metres where it is a position).
template <class T> struct Vec3 {
    T x{};
    T y{};
    T z{};

    Vec3() = default;
    Vec3(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}

    Vec3 operator+(const Vec3& o) const { return {x + o.x, y + o.y, z + o.z}; }
    Vec3 operator-(const Vec3& o) const { return {x - o.x, y - o.y, z - o.z}; }
    Vec3 operator*(T s) const { return {x * s, y * s, z * s}; }
    Vec3& operator+=(const Vec3& o) {
        x += o.x;
        y += o.y;
        z += o.z;
        return *this;
    }
    bool operator==(const Vec3& o) const { return x == o.x && y == o.y && z == o.z; }
    bool operator!=(const Vec3& o) const { return !(*this == o); }

    T Length() const { return std::sqrt(x * x + y * y + z * z); }
    T LengthInPlan() const { return std::sqrt(x * x + y * y); }
};

} // namespace Tevra
