#include "CVMath.h"

#include <cmath>

namespace Tevra {

namespace {

// Lengths and areas below this count as none.
constexpr double kTiny = 1e-20;
// Start of the nearest-distance search: farther than any data point.
constexpr double kFar = 1e30;
// The plane coordinates of a point taken as the mean of the three values.
constexpr double kThird = 0.333333333333;

// The static work areas that make these routines non-re-entrant: the three nearest
// data points (0-based numbers, squared distances), and the vectors of rst_coord__.
int g_nearest[3];
double g_distance[3];
double g_e1[3], g_e2[3], g_pv[3], g_normal[3], g_matrix[9], g_inverse[9], g_rsw[3];

// Data point n of a cloud with dim coordinates each, as a three-vector.
void DataPoint(const double* coords, int dim, int n, double* v) {
    for (int j = 0; j < 3; ++j)
        v[j] = j < dim ? coords[n * dim + j] : 0.0;
}

} // namespace

int CVMath::interpolate_(int, int* dim, double* point, double* result, int* numColumns,
                         double* coords, double* values, int* count, int* error) {
    *error = 0;
    if (closest_pt__(dim, point, coords, count) == 1) {
        *error = 1;
        return *error;
    }
    double p[3], p1[3], p2[3], p3[3];
    DataPoint(point, *dim, 0, p);
    DataPoint(coords, *dim, g_nearest[0], p1);
    DataPoint(coords, *dim, g_nearest[1], p2);
    DataPoint(coords, *dim, g_nearest[2], p3);

    double r = 0.0, s = 0.0;
    rst_coord__(dim, p, p1, p2, p3, &r, &s);
    if (r < -0.5 || s < -0.5 || r + s > 1.5) // nowhere near the three: their mean
        r = s = kThird;

    const int columns = *numColumns;
    for (int c = 0; c < columns; ++c) {
        const double d1 = values[g_nearest[0] * columns + c];
        const double d2 = values[g_nearest[1] * columns + c];
        const double d3 = values[g_nearest[2] * columns + c];
        result[c] = (1.0 - r - s) * d1 + r * d2 + s * d3;
    }
    return *error;
}

int CVMath::closest_pt__(int* dim, double* point, double* coords, int* count) {
    for (int k = 0; k < 3; ++k) {
        g_distance[k] = kFar;
        g_nearest[k] = -1;
    }
    double p[3], q[3], d[3];
    DataPoint(point, *dim, 0, p);
    for (int n = 0; n < *count; ++n) {
        DataPoint(coords, *dim, n, q);
        v_minus__(q, p, d);
        const double distance = v_dot__(d, d);
        // Into the third place if nearer, then bubbled up to its place; of equal
        // distances the first found stays ahead.
        if (distance < g_distance[2]) {
            g_distance[2] = distance;
            g_nearest[2] = n;
            check_swop__(&g_distance[1], &g_distance[2], &g_nearest[1], &g_nearest[2]);
            check_swop__(&g_distance[0], &g_distance[1], &g_nearest[0], &g_nearest[1]);
        }
    }
    return g_nearest[2] < 0 ? 1 : 0;
}

void CVMath::check_swop__(double* d1, double* d2, int* n1, int* n2) {
    if (*d1 <= *d2)
        return;
    const double d = *d1;
    *d1 = *d2;
    *d2 = d;
    const int n = *n1;
    *n1 = *n2;
    *n2 = n;
}

int CVMath::rst_coord__(int* dim, double* p, double* p1, double* p2, double* p3, double* r,
                        double* s) {
    v_minus__(p2, p1, g_e1);
    v_minus__(p, p1, g_pv);
    if (*dim == 2) {
        const double t = v_mod__(g_e1) < kTiny ? 0.5 : v_prop__(g_pv, g_e1);
        *r = 2.0 * (t - 0.5);
        *s = 0.0;
        return 0;
    }

    v_minus__(p3, p1, g_e2);
    const double first = v_mod__(g_e1), second = v_mod__(g_e2);
    if (first < kTiny && second < kTiny) { // all three at one place
        *r = *s = kThird;
        return 0;
    }
    if (first < kTiny) { // the first two at one place: halfway between them
        *r = 0.5;
        *s = 0.0;
        return 0;
    }
    v_cross__(g_e1, g_e2, g_normal);
    if (v_mod__(g_normal) < kTiny) { // the three on one line: along it
        *r = v_prop__(g_pv, g_e1);
        *s = 0.0;
        return 0;
    }
    // pv = r e1 + s e2 + w n: the columns e1, e2, n inverted.
    for (int i = 0; i < 3; ++i) {
        g_matrix[i * 3 + 0] = g_e1[i];
        g_matrix[i * 3 + 1] = g_e2[i];
        g_matrix[i * 3 + 2] = g_normal[i];
    }
    inv3_(g_matrix, g_inverse);
    for (int i = 0; i < 3; ++i)
        g_rsw[i] = v_dot__(&g_inverse[i * 3], g_pv);
    *r = g_rsw[0];
    *s = g_rsw[1];
    return 0;
}

int CVMath::inv3_(double* m, double* inverse) {
    const double c00 = m[4] * m[8] - m[5] * m[7];
    const double c01 = m[5] * m[6] - m[3] * m[8];
    const double c02 = m[3] * m[7] - m[4] * m[6];
    const double det = m[0] * c00 + m[1] * c01 + m[2] * c02;
    if (det == 0.0)
        return 1;
    inverse[0] = c00 / det;
    inverse[1] = (m[2] * m[7] - m[1] * m[8]) / det;
    inverse[2] = (m[1] * m[5] - m[2] * m[4]) / det;
    inverse[3] = c01 / det;
    inverse[4] = (m[0] * m[8] - m[2] * m[6]) / det;
    inverse[5] = (m[2] * m[3] - m[0] * m[5]) / det;
    inverse[6] = c02 / det;
    inverse[7] = (m[1] * m[6] - m[0] * m[7]) / det;
    inverse[8] = (m[0] * m[4] - m[1] * m[3]) / det;
    return 0;
}

void CVMath::v_copy__(double* a, double* b) {
    for (int j = 0; j < 3; ++j)
        b[j] = a[j];
}

void CVMath::v_minus__(double* a, double* b, double* c) {
    for (int j = 0; j < 3; ++j)
        c[j] = a[j] - b[j];
}

void CVMath::v_mult__(double* a, double* f, double* c) {
    for (int j = 0; j < 3; ++j)
        c[j] = *f * a[j];
}

double CVMath::v_dot__(double* a, double* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

void CVMath::v_cross__(double* a, double* b, double* c) {
    const double x = a[1] * b[2] - a[2] * b[1];
    const double y = a[2] * b[0] - a[0] * b[2];
    const double z = a[0] * b[1] - a[1] * b[0];
    c[0] = x;
    c[1] = y;
    c[2] = z;
}

double CVMath::v_mod__(double* a) { return std::sqrt(v_dot__(a, a)); }

void CVMath::v_unit__(double* a, double* u) {
    double length = v_mod__(a);
    double f = length < kTiny ? 0.0 : 1.0 / length;
    v_mult__(a, &f, u);
}

void CVMath::v_line__(double* a, double* b, double* t, double* p) {
    for (int j = 0; j < 3; ++j)
        p[j] = a[j] + *t * (b[j] - a[j]);
}

void CVMath::v_rst__(double* p1, double* e1, double* e2, double* r, double* s, double* p) {
    for (int j = 0; j < 3; ++j)
        p[j] = p1[j] + *r * e1[j] + *s * e2[j];
}

double CVMath::v_prop__(double* a, double* b) {
    const double bb = v_dot__(b, b);
    return bb < kTiny * kTiny ? 0.0 : v_dot__(a, b) / bb;
}

} // namespace Tevra
