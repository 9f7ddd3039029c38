#pragma once

#include "document/ZorvoData.h"

#include <vector>

namespace Tevra {

// The sources of one calculation stage, prepared once for the point loops of a run:
// every tunnel that moves ground in the stage with what does not depend on the point
// (its stage diameter, excavated area, plan direction and the cosine and sine of its
// bearing), and the excavations of the stage. A point then costs only its own work.
// The values are those a point-by-point evaluation works out, by the same operations,
// so that the results do not change by a bit.
class CStageSources {
  public:
    struct STunnel {
        const Data::GeoTunnel* tunnel;
        double D;    // diameter in the stage (metres)
        double loss; // volume loss (percent)
        double X1, Y1, L;
        double cx, cy; // direction cosines of the centre line in plan
        double A0;     // excavated area (square metres)
        double cosTheta, sinTheta; // of the rotation from tunnel to global axes
    };
    struct SExcavation {
        const Data::CExcavation* excavation;
        int number; // 1-based within its family
    };

    CStageSources(const Data::ZorvoData& doc, int stage);

    const Data::ZorvoData& Document() const { return *m_doc; }
    int Stage() const { return m_stage; }
    bool GroundMovement() const { return m_groundMovement; }
    const std::vector<STunnel>& Tunnels() const { return m_tunnels; }
    // Polygonal excavations of the stage, then circular ones, each in list order.
    const std::vector<SExcavation>& Excavations() const { return m_excavations; }
    bool IsPointInAnyExcavation(const Vec3<double>& point) const;
    double Pi() const { return m_pi; }
    double SqrtTwoPi() const { return m_sqrtTwoPi; }

  private:
    const Data::ZorvoData* m_doc;
    int m_stage;
    bool m_groundMovement;
    std::vector<STunnel> m_tunnels;
    std::vector<SExcavation> m_excavations;
    double m_pi;
    double m_sqrtTwoPi;
};

} // namespace Tevra
