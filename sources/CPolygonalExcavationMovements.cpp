#include "CPolygonalExcavation.h"

#include "document/ZorvoData.h"

// Movements behind the walls of a polygonal excavation.

namespace Tevra::Data {

double CPolygonalExcavation::Calc_p1(const double&, const double&) { return 1.0; }
double CPolygonalExcavation::Calc_p2(const double&, const double&, const double&) { return 0.0; }
double CPolygonalExcavation::Calc_pa_or_pb(const double&, const double&, const double&,
                                           const double&) {
    return 0.0;
}
double CPolygonalExcavation::calcExteriorAngle(Vec2<double>, Vec2<double>, bool) { return 0.0; }

void CPolygonalExcavation::PointMovementsAndStrains(const ZorvoData&, int, int,
                                                   const Vec3<double>&, double*, double*) const {}

} // namespace Tevra::Data
