#pragma once

#include "base/Vec3.h"

#include <cmath>
#include <limits>

namespace Tevra::Data {

// What was sampled at a joint N of a jointed pipe and at its two neighbours one pipe
// length away, N- and N+: displacements (displaced minus initial X, Y, Z, metres) and the
// movements parallel and perpendicular to the pipe (metres). The displacements stay
// not-a-number until sampled.
class CUtilityLocationInfo {
  public:
    CUtilityLocationInfo() = default;
    virtual ~CUtilityLocationInfo() = default;
    CUtilityLocationInfo(const CUtilityLocationInfo&) = default;
    CUtilityLocationInfo& operator=(const CUtilityLocationInfo&) = default;

    // Distance of the joint along the utility from its start (metres).
    double GetLocation() const { return m_location; }
    void SetLocation(double x) { m_location = x; }

    // Displacement at x, at x - pipe length and at x + pipe length (metres).
    const Vec3<double>& GetDisplacementN() const { return m_displacementN; }
    void SetDisplacementN(const Vec3<double>& d) { m_displacementN = d; }
    const Vec3<double>& GetDisplacementNMinus() const { return m_displacementNMinus; }
    void SetDisplacementNMinus(const Vec3<double>& d) { m_displacementNMinus = d; }
    const Vec3<double>& GetDisplacementNPlus() const { return m_displacementNPlus; }
    void SetDisplacementNPlus(const Vec3<double>& d) { m_displacementNPlus = d; }

    // Parallel and perpendicular movements (metres). The perpendicular "at N+" holds the
    // value at x itself, not at x + pipe length: the result file shows that value, so it
    // is kept so on purpose.
    double GetParallelN() const { return m_parallelN; }
    void SetParallelN(double v) { m_parallelN = v; }
    double GetPerpendicularN() const { return m_perpendicularN; }
    void SetPerpendicularN(double v) { m_perpendicularN = v; }
    double GetParallelNMinus() const { return m_parallelNMinus; }
    void SetParallelNMinus(double v) { m_parallelNMinus = v; }
    double GetPerpendicularNMinus() const { return m_perpendicularNMinus; }
    void SetPerpendicularNMinus(double v) { m_perpendicularNMinus = v; }
    double GetParallelNPlus() const { return m_parallelNPlus; }
    void SetParallelNPlus(double v) { m_parallelNPlus = v; }
    double GetPerpendicularNPlus() const { return m_perpendicularNPlus; }
    void SetPerpendicularNPlus(double v) { m_perpendicularNPlus = v; }

    // Field by field, two not-a-numbers counting as equal, so that a record read back
    // from a file compares equal to the one written.
    bool operator==(const CUtilityLocationInfo& o) const {
        return Same(m_location, o.m_location) && Same(m_displacementN, o.m_displacementN) &&
               Same(m_displacementNMinus, o.m_displacementNMinus) &&
               Same(m_displacementNPlus, o.m_displacementNPlus) &&
               Same(m_parallelN, o.m_parallelN) && Same(m_perpendicularN, o.m_perpendicularN) &&
               Same(m_parallelNMinus, o.m_parallelNMinus) &&
               Same(m_perpendicularNMinus, o.m_perpendicularNMinus) &&
               Same(m_parallelNPlus, o.m_parallelNPlus) &&
               Same(m_perpendicularNPlus, o.m_perpendicularNPlus);
    }
    bool operator!=(const CUtilityLocationInfo& o) const { return !(*this == o); }

  private:
    static bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
    static bool Same(const Vec3<double>& a, const Vec3<double>& b) {
        return Same(a.x, b.x) && Same(a.y, b.y) && Same(a.z, b.z);
    }

    static constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

    double m_location = 0.0;
    Vec3<double> m_displacementN{kNaN, kNaN, kNaN};
    Vec3<double> m_displacementNMinus{kNaN, kNaN, kNaN};
    Vec3<double> m_displacementNPlus{kNaN, kNaN, kNaN};
    double m_parallelN = 0.0;
    double m_perpendicularN = 0.0;
    double m_parallelNMinus = 0.0;
    double m_perpendicularNMinus = 0.0;
    double m_parallelNPlus = 0.0;
    double m_perpendicularNPlus = 0.0;
};

} // namespace Tevra::Data
