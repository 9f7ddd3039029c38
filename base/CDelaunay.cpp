#include "base/CDelaunay.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace Tevra::Mesh {

namespace {

// Relative tolerance under which three points count as on one line: the cross product
// against the product of the two legs' lengths (1-norm).
const double kCollinearTolerance = 1e-12;
// Relative tolerance of the in-circle test: the determinant against the sum of the
// magnitudes of its terms. Decimal grid spacings leave rounding of this order where the
// points are exactly co-circular; such ties are not flipped.
const double kInCircleTolerance = 1e-10;

using Tri = std::array<int, 3>;

// +1 when c lies left of a->b, -1 when right, 0 when on the line within the tolerance.
int OrientSign(const Vec2<double>& a, const Vec2<double>& b, const Vec2<double>& c) {
    const double det = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    const double scale =
        (std::abs(b.x - a.x) + std::abs(b.y - a.y)) * (std::abs(c.x - a.x) + std::abs(c.y - a.y));
    if (det > kCollinearTolerance * scale)
        return 1;
    if (det < -kCollinearTolerance * scale)
        return -1;
    return 0;
}

// True when d lies inside the circumcircle of the counter-clockwise triangle abc by more
// than the tolerance.
bool InCircle(const Vec2<double>& a, const Vec2<double>& b, const Vec2<double>& c,
              const Vec2<double>& d) {
    const double adx = a.x - d.x, ady = a.y - d.y;
    const double bdx = b.x - d.x, bdy = b.y - d.y;
    const double cdx = c.x - d.x, cdy = c.y - d.y;
    const double ad = adx * adx + ady * ady;
    const double bd = bdx * bdx + bdy * bdy;
    const double cd = cdx * cdx + cdy * cdy;
    const double det =
        ad * (bdx * cdy - cdx * bdy) + bd * (cdx * ady - adx * cdy) + cd * (adx * bdy - bdx * ady);
    const double magnitude = ad * (std::abs(bdx * cdy) + std::abs(cdx * bdy)) +
                             bd * (std::abs(cdx * ady) + std::abs(adx * cdy)) +
                             cd * (std::abs(adx * bdy) + std::abs(bdx * ady));
    return det > kInCircleTolerance * magnitude;
}

} // namespace

std::vector<CTriangle> CDelaunay::triangulate(const std::vector<Vec2<double>>& points) const {
    // Step 1: finite points in (x, y, input number) order, first of equal points kept.
    std::vector<int> order;
    for (size_t i = 0; i < points.size(); ++i)
        if (std::isfinite(points[i].x) && std::isfinite(points[i].y))
            order.push_back(static_cast<int>(i));
    std::sort(order.begin(), order.end(), [&points](int a, int b) {
        const auto& pa = points[static_cast<size_t>(a)];
        const auto& pb = points[static_cast<size_t>(b)];
        if (pa.x != pb.x)
            return pa.x < pb.x;
        if (pa.y != pb.y)
            return pa.y < pb.y;
        return a < b;
    });
    std::vector<Vec2<double>> q; // the distinct points, sorted
    std::vector<int> inputIndex; // their numbers in the input
    for (int i : order) {
        const auto& p = points[static_cast<size_t>(i)];
        if (q.empty() || p != q.back()) {
            q.push_back(p);
            inputIndex.push_back(i);
        }
    }
    const int m = static_cast<int>(q.size());
    if (m < 3)
        return {};
    auto Q = [&q](int i) -> const Vec2<double>& { return q[static_cast<size_t>(i)]; };

    // Step 2: fan the first run of points on one line to the first point off it.
    int k = 2;
    while (k < m && OrientSign(Q(0), Q(1), Q(k)) == 0)
        ++k;
    if (k == m)
        return {};
    const int side = OrientSign(Q(0), Q(1), Q(k));
    std::vector<Tri> tris;
    std::vector<int> hull; // counter-clockwise
    for (int i = 0; i + 1 < k; ++i)
        tris.push_back(side > 0 ? Tri{i, i + 1, k} : Tri{i + 1, i, k});
    if (side > 0) {
        for (int i = 0; i <= k; ++i)
            hull.push_back(i);
    } else {
        hull.push_back(0);
        hull.push_back(k);
        for (int i = k - 1; i >= 1; --i)
            hull.push_back(i);
    }
    // Each later point lies outside the hull so far (it is last in the sort): join it to
    // the run of hull edges that it sees from their outer side.
    for (int p = k + 1; p < m; ++p) {
        const int h = static_cast<int>(hull.size());
        auto H = [&hull, h](int e) { return hull[static_cast<size_t>((e % h + h) % h)]; };
        std::vector<char> sees(static_cast<size_t>(h));
        for (int e = 0; e < h; ++e)
            sees[static_cast<size_t>(e)] = OrientSign(Q(H(e)), Q(H(e + 1)), Q(p)) < 0;
        auto Sees = [&sees, h](int e) { return sees[static_cast<size_t>((e % h + h) % h)]; };
        int runs = 0, start = 0;
        for (int e = 0; e < h; ++e)
            if (Sees(e) && !Sees(e - 1)) {
                ++runs;
                start = e;
            }
        if (runs != 1)
            continue; // on the hull's boundary line within rounding: left out
        int count = 0;
        while (Sees(start + count)) {
            tris.push_back(Tri{H(start + count + 1), H(start + count), p});
            ++count;
        }
        std::vector<int> next;
        next.reserve(static_cast<size_t>(h) + 1);
        for (int e = start + count; e <= start + h; ++e)
            next.push_back(H(e));
        next.push_back(p);
        hull.swap(next);
    }

    // Step 3: Lawson flips. Each directed edge a->b belongs to one triangle; its twin b->a,
    // if any, to the neighbour across it.
    std::map<std::pair<int, int>, size_t> owner;
    auto Register = [&owner, &tris](size_t t) {
        const Tri& T = tris[t];
        for (size_t j = 0; j < 3; ++j)
            owner[{T[j], T[(j + 1) % 3]}] = t;
    };
    auto Unregister = [&owner, &tris](size_t t) {
        const Tri& T = tris[t];
        for (size_t j = 0; j < 3; ++j)
            owner.erase({T[j], T[(j + 1) % 3]});
    };
    for (size_t t = 0; t < tris.size(); ++t)
        Register(t);
    // Edges waiting for the test, taken from the back: at first every inner edge, in
    // triangle order; after a flip the four outer edges of its quadrilateral. Flips then
    // cost in proportion to their number, not to passes over the whole mesh.
    std::vector<std::pair<int, int>> pending;
    for (const Tri& T : tris)
        for (size_t j = 0; j < 3; ++j)
            if (T[j] < T[(j + 1) % 3] && owner.count({T[(j + 1) % 3], T[j]}))
                pending.push_back({T[j], T[(j + 1) % 3]});
    std::reverse(pending.begin(), pending.end());
    // A bound on the flips guards against a cycle made of rounding alone; exact
    // arithmetic needs at most about m^2 / 2.
    long long flipsLeft = static_cast<long long>(m) * m + 100;
    while (!pending.empty() && flipsLeft > 0) {
        const std::pair<int, int> edge = pending.back();
        pending.pop_back();
        const auto left = owner.find(edge);
        const auto right = owner.find({edge.second, edge.first});
        if (left == owner.end() || right == owner.end())
            continue; // flipped away since it was queued
        const size_t t = left->second, u = right->second;
        const int a = edge.first, b = edge.second;
        int c = a, d = a;
        for (int v : tris[t])
            if (v != a && v != b)
                c = v;
        for (int v : tris[u])
            if (v != a && v != b)
                d = v;
        if (!InCircle(Q(a), Q(b), Q(c), Q(d)))
            continue;
        if (OrientSign(Q(a), Q(d), Q(c)) <= 0 || OrientSign(Q(d), Q(b), Q(c)) <= 0)
            continue; // the quadrilateral is not convex: the edge stays
        Unregister(t);
        Unregister(u);
        tris[t] = Tri{a, d, c};
        tris[u] = Tri{d, b, c};
        Register(t);
        Register(u);
        --flipsLeft;
        for (const auto& e : {std::pair<int, int>{a, d}, {d, b}, {b, c}, {c, a}})
            pending.push_back(e);
    }

    // Step 4: the order that makes the list the same on every machine.
    for (Tri& T : tris)
        std::rotate(T.begin(), std::min_element(T.begin(), T.end()), T.end());
    std::sort(tris.begin(), tris.end());
    std::vector<CTriangle> result;
    result.reserve(tris.size());
    for (const Tri& T : tris)
        result.emplace_back(Q(T[0]), Q(T[1]), Q(T[2]), inputIndex[static_cast<size_t>(T[0])],
                            inputIndex[static_cast<size_t>(T[1])],
                            inputIndex[static_cast<size_t>(T[2])]);
    return result;
}

} // namespace Tevra::Mesh
