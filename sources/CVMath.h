#pragma once

namespace Tevra {

// Interpolation over a cloud of data points for the host: the values at a point are
// taken from the plane through the three data points nearest to it. The calculation
// of a run does not use it.
//
// NOT RE-ENTRANT. The routines keep the three nearest points and their working
// vectors in static work areas: call them from one thread only, one call at a time.
//
// Arguments are passed by pointer throughout. Vectors are three doubles (x, y, z);
// matrices are nine doubles, row by row.
class CVMath {
  public:
    // The numColumns values at point (dim coordinates, 2 or 3) interpolated from count
    // data points: coords holds dim coordinates per data point and values numColumns
    // values per data point, row by row; result receives numColumns values. With the
    // three nearest data points p1, p2, p3 and the point's plane coordinates r, s among
    // them (rst_coord__), each result is (1 - r - s) d1 + r d2 + s d3; a point nowhere
    // near them (r < -0.5, s < -0.5 or r + s > 1.5) takes the mean, r = s = 1/3. With
    // fewer than three data points error is 1 and result is left as it was; else 0.
    // The first argument is not used. Answers error.
    static int interpolate_(int unused, int* dim, double* point, double* result, int* numColumns,
                            double* coords, double* values, int* count, int* error);

    // Finds the three data points nearest to point and keeps their numbers and squared
    // distances in the work area, nearest first. Answers 1 when there are fewer than
    // three data points, else 0.
    static int closest_pt__(int* dim, double* point, double* coords, int* count);
    // Puts two (squared distance, number) pairs in ascending order of distance.
    static void check_swop__(double* d1, double* d2, int* n1, int* n2);
    // Plane coordinates r, s of p relative to p1, p2, p3, so that
    // p = p1 + r (p2 - p1) + s (p3 - p1) where p lies in their plane. With dim 2 the
    // point is placed along the line of p1 and p2 alone: r = 2 (t - 0.5) with t its
    // projection ratio on that line (t = 0.5 when the two coincide), s = 0.
    static int rst_coord__(int* dim, double* p, double* p1, double* p2, double* p3, double* r,
                           double* s);
    // Inverse of a 3 x 3 matrix. Answers 1, leaving inverse as it was, when the matrix
    // is singular; else 0.
    static int inv3_(double* m, double* inverse);

    // Three-vector helpers.
    static void v_copy__(double* a, double* b);             // b = a
    static void v_minus__(double* a, double* b, double* c); // c = a - b
    static void v_mult__(double* a, double* f, double* c);  // c = f a
    static double v_dot__(double* a, double* b);            // a . b
    static void v_cross__(double* a, double* b, double* c); // c = a x b
    static double v_mod__(double* a);                       // |a|
    static void v_unit__(double* a, double* u);             // a / |a|, or 0 for no length
    // p = a + t (b - a), the point at ratio t along the line from a to b.
    static void v_line__(double* a, double* b, double* t, double* p);
    // p = p1 + r e1 + s e2, the point of plane coordinates r, s.
    static void v_rst__(double* p1, double* e1, double* e2, double* r, double* s, double* p);
    // (a . b) / (b . b): the proportion of b that a reaches along it; 0 for b of no length.
    static double v_prop__(double* a, double* b);
};

} // namespace Tevra
