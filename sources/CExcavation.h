#pragma once

#include "base/CString.h"
#include "base/Vec2.h"
#include "base/Vec3.h"

#include <set>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

class CGMCurve;
class ZorvoData;

// What every excavation has: a name, the surface level from which its depths are
// measured, the sign of its contribution, display flags, the option to take
// surface-only curves down to a level, and the excavations it intersects (found by the
// checks before a run, never saved). It also turns the dimensionless ground movement
// curves of CIRIA C580/C760 into movements in millimetres at a distance behind a wall.
class CExcavation {
  public:
    enum EShape { ePolygonal = 0, eCircular = 1 };
    enum EContribution { ePositive = 0, eNegative = 1 };
    // Message numbers of the contribution texts, "Positive" and "Negative".
    static const int CONTRIBUTION_STRING_IDS[2];

    CExcavation() = default;
    virtual ~CExcavation() = default;
    CExcavation(const CExcavation&) = default;
    CExcavation& operator=(const CExcavation&) = default;

    static int GetVersion() { return m_iVer; }

    virtual void Write(FileIO::CDataFile& file) const;
    virtual void Read(FileIO::CDataFile& file, int generation);
    // Back to the defaults of a new excavation; the name stays.
    virtual void Empty();
    virtual EShape GetShape() const = 0;
    // "PE" for a polygonal and "CE" for a circular excavation.
    virtual CString GetPrefix() const = 0;
    virtual Vec2<double> GetCentroid() const = 0;
    // Extent in plan and level (metres); the top is the surface level.
    virtual double GetXMin() const = 0;
    virtual double GetXMax() const = 0;
    virtual double GetYMin() const = 0;
    virtual double GetYMax() const = 0;
    virtual double GetZMin() const = 0;
    virtual double GetZMax() const = 0;
    virtual double GetMinBaseLevel() const = 0;
    virtual double GetMaxBaseLevel() const = 0;
    virtual bool IsPointInExcavation(const Vec3<double>& point) const = 0;
    // Adds this excavation's movement at a point (millimetres, x, y and z) to movement,
    // in calculation stage stage, the excavation being number number (1-based) of its
    // family. strain is passed through and not written.
    virtual void PointMovementsAndStrains(const ZorvoData& data, int stage, int number,
                                          const Vec3<double>& point, double* movement,
                                          double* strain) const = 0;

    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }
    double GetSurfaceLevel() const { return m_surfaceLevel; }
    void SetSurfaceLevel(double level) { m_surfaceLevel = level; }
    bool IsEnabled() const { return m_enabled; }
    EContribution GetContribution() const { return m_contribution; }
    void SetContribution(EContribution c) { m_contribution = c; }
    // 0 for exactly the text "Positive", 1 for anything else.
    static EContribution GetContributionFromCStr(const CString& text);
    bool GetShow() const { return m_show; }
    void SetShow(bool on) { m_show = on; }
    bool GetLabel() const { return m_label; }
    void SetLabel(bool on) { m_label = on; }
    // Whether surface-only curves also act below the surface, down to a level (metres).
    bool GetAllowGMCalcnToLevel() const { return m_allowToLevel; }
    void SetAllowGMCalcnToLevel(bool on) { m_allowToLevel = on; }
    double GetAllowGMCalcnToLevelValue() const { return m_allowLevel; }
    void SetAllowGMCalcnToLevelValue(double level) { m_allowLevel = level; }

    // The excavations of a shape that this one intersects, by 1-based number.
    void SetIntersectsExcavation(EShape shape, int number) { m_intersects[shape].insert(number); }
    bool GetIntersectsExcavation(EShape shape, int number) const {
        return m_intersects[shape].count(number) > 0;
    }
    int NumIntersectingExcavations(EShape shape) const {
        return static_cast<int>(m_intersects[shape].size());
    }
    // The element at an ordinal place (0-based) in ascending order.
    int GetIntersectingExcavation(EShape shape, int place) const;
    void ClearIntersectingExcavations() {
        m_intersects[ePolygonal].clear();
        m_intersects[eCircular].clear();
    }

    // Movement (millimetres) that a curve gives at a distance behind a wall of a depth,
    // at a depth below the surface level (metres): the curve's percentage of the wall
    // depth, 0 outside the curve's reach, reversed for a negative contribution.
    double MovementAtDistance(const ZorvoData& data, const CGMCurve& curve,
                              const double& wallDepth, const double& distance,
                              const double& depth) const;
    // Slope of the curve's polynomial along the distance there, as a fraction.
    double StrainAtDistance(const ZorvoData& data, const CGMCurve& curve, const double& wallDepth,
                            const double& distance, const double& depth) const;

  protected:
    // Whether a curve gives anything at a distance and depth z (metres, z not above the
    // surface) behind a wall of a depth: the range tests of a movement, or of a strain.
    bool CurveReaches(const CGMCurve& curve, const double& wallDepth, const double& distance,
                      double z, bool movement) const;
    // Equal inputs; the intersection sets, derived by the checks, are not compared.
    bool SameExcavation(const CExcavation& o) const;

  private:
    static constexpr int m_iVer = 9;

    CString m_name;
    double m_surfaceLevel = 100.0;
    // Nothing clears it; a disabled polygonal excavation has no inside.
    bool m_enabled = true;
    EContribution m_contribution = ePositive;
    std::set<int> m_intersects[2];
    bool m_show = true;
    bool m_label = false;
    bool m_allowToLevel = false;
    double m_allowLevel = 0.0;
};

} // namespace Tevra::Data
