#include "CStageSources.h"

#include <cmath>

namespace Tevra {

using namespace Data;

namespace {

// Smallest diameter (metres) and volume loss (percent) that make a tunnel count.
constexpr double kMinDiameter = 0.001;
constexpr double kMinPercentLoss = 1e-6;

} // namespace

CStageSources::CStageSources(const ZorvoData& doc, int stage)
    : m_doc(&doc), m_stage(stage),
      m_groundMovement(doc.GetGeneral().GetProblemType() == eGroundMovement),
      m_pi(2.0 * std::asin(1.0)), m_sqrtTwoPi(std::sqrt(2.0 * m_pi)) {
    const bool baseStage = doc.IsBaseStage(stage);
    for (int t = 1; t <= doc.NumTunnels(); ++t) {
        // Only tunnels that exist in this stage (all of them in the base model).
        if (!baseStage && !doc.IsTunnelInStage(t, stage))
            continue;
        const GeoTunnel& tun = doc.GetTunnel(t);
        // Diameter of the stage, after stage properties; too small a tunnel, or too
        // small a volume loss, moves nothing.
        const double D = doc.GetTunnelDiameterInStage(t, stage);
        if (kMinDiameter > D)
            continue;
        const double loss = tun.GetPercentLoss();
        if (kMinPercentLoss > std::fabs(loss))
            continue;
        STunnel p;
        p.tunnel = &tun;
        p.D = D;
        p.loss = loss;
        p.X1 = tun.GetXCentreLine1();
        p.Y1 = tun.GetYCentreLine1();
        p.L = tun.GetPlanLength();
        p.cx = (tun.GetXCentreLine2() - p.X1) / p.L;
        p.cy = (tun.GetYCentreLine2() - p.Y1) / p.L;
        p.A0 = (m_pi * 0.25) * D * D;
        const double theta = -std::atan2(tun.GetYCentreLine2() - p.Y1, tun.GetXCentreLine2() - p.X1);
        p.cosTheta = std::cos(theta);
        p.sinTheta = std::sin(theta);
        m_tunnels.push_back(p);
    }

    const int n = doc.NumActualStages(false, false);
    const bool all = stage == 0 || stage == n + 1;
    for (int k = 1; k <= doc.NumPolygonalExcavations(); ++k)
        if (all || doc.IsPolygonalExcavationInStage(k, stage))
            m_excavations.push_back({&doc.GetPolygonalExcavation(k), k});
    for (int k = 1; k <= doc.NumCircularExcavations(); ++k)
        if (all || doc.IsCircularExcavationInStage(k, stage))
            m_excavations.push_back({&doc.GetCircularExcavation(k), k});
}

bool CStageSources::IsPointInAnyExcavation(const Vec3<double>& point) const {
    for (const SExcavation& e : m_excavations)
        if (e.excavation->IsPointInExcavation(point))
            return true;
    return false;
}

} // namespace Tevra
