#include "CBuildingDamageAssessment.h"

#include "buildings/CSpecificBuilding.h"

#include <cmath>

namespace Tevra::Data {

using GeoGlobal::ECurvature;

void CBuildingDamageAssessment::SectionValues(const CBuildingDamageProperties& properties,
                                              ECurvature curvature, double H, double& t, double& y,
                                              double& I) {
    // With default properties a rectangle of height H; otherwise the stored values of the
    // curvature, where a curvature of 2 reads the fields that follow the two-entry arrays.
    t = properties.GetNAFromTensionEdge(curvature, H);
    y = properties.GetStrainFromNA(curvature, H);
    I = properties.GetI(curvature, H);
}

void CBuildingDamageAssessment::BuildingDamageResults(
    bool heightIsH, const CDamageCategoryStrains& strains,
    const CBuildingDamageProperties& properties, const double& height,
    const CTableT<double>& hTable, const CTableT<double>& vTable, const CSplineT<double>& hCurve,
    const CSplineT<double>& chainageMap, const CSplineT<double>& vCurve,
    const CTableT<double>& curvatureTable, const std::vector<double>& boundaries,
    std::vector<CBuildingDamageResult>& results) {
    results.clear();
    const double nu = properties.GetPoissonsRatio();
    const double EOverG = properties.GetEOverG();
    // A gradient that no pair of a segment sets keeps the previous segment's value, as the
    // flag of that segment says it is not to be read.
    double hGradient = 0.0;
    double vGradient = 0.0;

    for (size_t k = 1; k < boundaries.size(); ++k) {
        const double a = boundaries[k - 1];
        const double b = boundaries[k];

        // 1. Curvature from the midpoint alone: settlement is positive, so a sagging curve
        // lies below (greater than) its chord at mid-segment by more than a millimetre.
        const double va = vCurve.GetValue(a);
        const double vb = vCurve.GetValue(b);
        const double vm = vCurve.GetValue((a + b) * 0.5);
        const double c = (va + vb) * 0.5;
        ECurvature curvature = GeoGlobal::eNoCurvature;
        if (vm > c + CURVATURE_TOLERANCE)
            curvature = GeoGlobal::eSagging;
        else if (c - CURVATURE_TOLERANCE > vm)
            curvature = GeoGlobal::eHogging;

        // 2. Average horizontal strain between the undeformed ends, each end first held to
        // the horizontal curve's last x and then to its first x.
        double ao = chainageMap.GetValue(a);
        double bo = chainageMap.GetValue(b);
        if (hCurve.NumPoint() > 0) {
            const double xLast = hCurve.GetX(-1);
            const double xFirst = hCurve.GetX(0);
            if (ao > xLast)
                ao = xLast;
            if (bo > xLast)
                bo = xLast;
            if (ao < xFirst)
                ao = xFirst;
            if (bo < xFirst)
                bo = xFirst;
        }
        double hStrain = 0.0;
        if (ao != bo)
            hStrain = (hCurve.GetValue(bo) - hCurve.GetValue(ao)) / (bo - ao);

        // 3. Samples: the curve's distance from its chord, the chord taken by sample index.
        double maxDeflection = 0.0;
        double maxSettlement = 0.0;
        double maxCurvature = 0.0;
        double minCurvature = 0.0;
        const double last = NR_POINTS - 1;
        for (int i = 0; i < NR_POINTS; ++i) {
            const double x = i == NR_POINTS - 1 ? b : (b - a) * i / last + a;
            const double v = vCurve.GetValue(x);
            const double cv = curvatureTable.GetValue(x);
            const double d = v - ((vb - va) * i / last + va);
            if (i == 0) {
                maxCurvature = std::fabs(cv);
                minCurvature = std::fabs(cv);
            }
            if (std::fabs(d) > maxDeflection)
                maxDeflection = std::fabs(d);
            if (std::fabs(v) > maxSettlement)
                maxSettlement = std::fabs(v);
            if (std::fabs(cv) > maxCurvature)
                maxCurvature = std::fabs(cv);
            if (std::fabs(cv) < minCurvature)
                minCurvature = std::fabs(cv);
        }

        // 4. Deflection ratio over the deformed length, always the positive measure.
        const double deflectionRatio = a == b ? 0.0 : maxDeflection / (b - a);

        // 5. Steepest chords of the horizontal and the vertical table over [a, b].
        bool hSet = false;
        bool vSet = false;
        MaximumGradientOfCurve(hTable, a, b, hSet, hGradient);
        MaximumGradientOfCurve(vTable, a, b, vSet, vGradient);

        // 6. The segment in the building's undeformed coordinates, without clamping.
        const double start = chainageMap.GetValue(a);
        const double end = chainageMap.GetValue(b);

        // 7. to 9. The beam: its length, height and section.
        CBuildingDamageResult result(start, end, deflectionRatio, maxSettlement, hStrain, curvature,
                                     maxCurvature, minCurvature, hSet, hGradient, vSet, vGradient,
                                     true);
        const double L = end - start;
        const double H = heightIsH ? height : L / height;
        double t = 0.0;
        double y = 0.0;
        double I = 0.0;
        SectionValues(properties, curvature, H, t, y, I);

        // 10. Category, then the two strains.
        BuildingDamageCategory(strains, hStrain, L, H, EOverG, nu, t, y, I, curvature, result);
        result.SetMaxTensileStrain(MaxTensileStrain(strains, curvature, L, H, EOverG, nu, t, y, I,
                                                    hStrain, deflectionRatio));
        result.SetMaxCompressiveStrain(MaxCompressiveStrain(strains, curvature, L, H, EOverG, nu, t,
                                                            y, I, hStrain, deflectionRatio));
        results.push_back(result);
    }
}

void CBuildingDamageAssessment::BuildingDamageCategory(
    const CDamageCategoryStrains& strains, const double& hStrain, const double& L, const double& H,
    const double& EOverG, const double& nu, const double& t, const double& y, const double& I,
    ECurvature curvature, CBuildingDamageResult& result) {
    const double h = hStrain;
    // Limit 0 is never tried: a segment within limit 1 is category 0.
    for (int k = CDamageCategoryStrains::eSevere; k >= CDamageCategoryStrains::eVerySlight; --k) {
        const double limit =
            strains.GetStrainLimit(static_cast<CDamageCategoryStrains::EDamageCategory>(k));
        double allowable = 0.0;
        if (h >= 0)
            allowable = TensionZoneDeflectionRatio(L, H, EOverG, nu, t, y, I, limit, h, curvature);
        else if (h < 0)
            allowable =
                CompressionZoneDeflectionRatio(L, H, EOverG, nu, t, y, I, limit, h, curvature);
        else
            return; // h is not a number: no formula applies
        if (result.GetDeflectionRatio() > allowable) {
            result.SetDamageCategory(k);
            return;
        }
    }
}

double CBuildingDamageAssessment::TensionZoneDeflectionRatio(const double& L, const double& H,
                                                             const double& EOverG, const double& nu,
                                                             const double& t, const double& y,
                                                             const double& I, const double& limit,
                                                             const double& hStrain, ECurvature) {
    const double h = hStrain;
    // Diagonal (shear) strain: the principal strain of shear with h, after Burland (1995).
    const double e = limit - (1 - nu) * h * 0.5;
    const double p = (nu + 1) * 0.5;
    const double D = std::sqrt(e * e - p * p * (h * h)) * (H * L * L / (I * 18) * (1 / EOverG) + 1);
    // Bending strain in the extreme fibre, less the horizontal strain.
    const double B = (I * 3 / ((y + y) * L * H) * EOverG + L / (t * 12)) * (limit - h);
    // The smaller of the two; a diagonal part that is not a number (a negative root)
    // compares false and leaves the bending part.
    return D < B ? D : B;
}

double CBuildingDamageAssessment::CompressionZoneDeflectionRatio(
    const double& L, const double& H, const double& EOverG, const double& nu, const double& t,
    const double& y, const double& I, const double& limit, const double& hStrain, ECurvature) {
    const double h = hStrain;
    // The root's argument is (limit - h)(limit + nu h): below 0 once the compression
    // passes -limit / nu, where no deflection is allowed.
    const double e = limit - (1 - nu) * h * 0.5;
    const double p = (nu + 1) * 0.5;
    double root = e * e - p * p * (h * h);
    if (root < 0)
        root = 0;
    const double D = std::sqrt(root) * ((H * L * L / (I * 18)) / EOverG + 1);
    const double B = (I * 3 / ((y + y) * L * H) * EOverG + L / (t * 12)) * (limit - h);
    return D < B ? D : B;
}

double CBuildingDamageAssessment::MaxTensileStrain(
    const CDamageCategoryStrains& strains, ECurvature curvature, const double& L, const double& H,
    const double& EOverG, const double& nu, const double& t, const double& y, const double& I,
    const double& hStrain, const double& deflectionRatio) {
    const double h = hStrain;
    const double T = deflectionRatio;
    auto f = [&](double limit) {
        return h >= 0
                   ? TensionZoneDeflectionRatio(L, H, EOverG, nu, t, y, I, limit, h, curvature)
                   : CompressionZoneDeflectionRatio(L, H, EOverG, nu, t, y, I, limit, h, curvature);
    };
    double high = strains.GetStrainLimit(CDamageCategoryStrains::eSevere);
    double low = 0.0;
    for (int n = 0; n < MAX_SEARCH_STEPS && T > f(high); ++n)
        high *= 2;
    for (int n = 0; n < MAX_SEARCH_STEPS; ++n) {
        if (high == low || std::fabs(high - low) < STRAIN_RESOLUTION)
            break;
        const double m = (low + high) * 0.5;
        if (f(m) > T)
            high = m;
        else
            low = m;
    }
    return (low + high) * 0.5;
}

double CBuildingDamageAssessment::MaxCompressiveStrain(
    const CDamageCategoryStrains& strains, ECurvature curvature, const double& L, const double& H,
    const double& EOverG, const double& nu, const double& t, const double& y, const double& I,
    const double& hStrain, const double& deflectionRatio) {
    const double limit =
        MaxTensileStrain(strains, curvature, L, H, EOverG, nu, t, y, I, hStrain, deflectionRatio);
    // The compression zone formula at that limit under a compressive strain of size s.
    auto g = [&](double s) {
        return CompressionZoneDeflectionRatio(L, H, EOverG, nu, t, y, I, limit, -s, curvature);
    };
    double high = strains.GetStrainLimit(CDamageCategoryStrains::eSevere);
    double low = 0.0;
    for (int n = 0; n < MAX_SEARCH_STEPS && std::fabs(g(high)) > STRAIN_RESOLUTION; ++n)
        high *= 2;
    for (int n = 0; n < MAX_SEARCH_STEPS; ++n) {
        if (high == low || std::fabs(high - low) < STRAIN_RESOLUTION)
            break;
        const double m = (low + high) * 0.5;
        if (g(m) > 0)
            low = m;
        else
            high = m;
    }
    return -((low + high) * 0.5);
}

void CBuildingDamageAssessment::BendingDiagonalComponents(
    const CSpecificBuilding& building, const CBuildingDamageResult& result, const double& hStrain,
    const double& deflectionRatio, double& bending, double& diagonal, bool withHStrain) {
    const CBuildingDamageProperties& properties = building.GetBuildingDamageProperties();
    const double H = building.GetHeight();
    const double nu = properties.GetPoissonsRatio();
    const double EOverG = properties.GetEOverG();
    const double L = result.GetLength();
    double t = 0.0;
    double y = 0.0;
    double I = 0.0;
    SectionValues(properties, result.GetCurvature(), H, t, y, I);

    const double h = hStrain;
    bending = deflectionRatio / (I * 3 / (2 * y * L * H) * EOverG + L / (t * 12));
    diagonal = deflectionRatio / (L * H * L / (I * 18 * EOverG) + 1);
    if (withHStrain) {
        const double p = (nu + 1) / 2;
        diagonal = std::sqrt(h * h * (p * p) + diagonal * diagonal) + (1 - nu) / 2 * h;
        bending = h + bending;
    }
}

void CBuildingDamageAssessment::MaximumGradientOfCurve(const CTableT<double>& table,
                                                       const double& from, const double& to,
                                                       bool& found, double& gradient) {
    found = false;
    for (int k = 1; k < table.NumPoint(); ++k) {
        const double xa = table.GetX(k - 1);
        const double ya = table.GetY(k - 1);
        const double xb = table.GetX(k);
        const double yb = table.GetY(k);
        const bool aIn = xa >= from && xa <= to;
        const bool bIn = xb >= from && xb <= to;
        if (!aIn && !bIn)
            continue;
        // (ya - yb)/(xb - xa) is the negative of the slope, and its sign is kept.
        const double g = (ya - yb) / (xb - xa);
        if (!found) {
            gradient = g;
            found = true;
        } else if (std::fabs(g) > std::fabs(gradient)) {
            gradient = g;
        }
    }
}

} // namespace Tevra::Data
