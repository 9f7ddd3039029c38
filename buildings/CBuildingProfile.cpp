#include "CBuildingProfile.h"

#include "base/CRange.h"

#include <cmath>
#include <cstddef>

namespace Tevra::Data {

double CBuildingProfile::SampleChainage(const Vec3<double>& S, const Vec3<double>& E, int k,
                                        int J) {
    const double xk = (E.x - S.x) * k / J + S.x;
    const double yk = (E.y - S.y) * k / J + S.y;
    // The two squares are summed y first, then x.
    return std::sqrt((yk - S.y) * (yk - S.y) + (xk - S.x) * (xk - S.x));
}

double CBuildingProfile::PlanLength(const Vec3<double>& S, const Vec3<double>& E) {
    const double dx = E.x - S.x;
    const double dy = E.y - S.y;
    return std::sqrt(dx * dx + dy * dy);
}

void CBuildingProfile::Slice(const CTableT<double>& working, double a, double b,
                             CTableT<double>& table) {
    table.Empty();
    // The profile always starts exactly at the building's start, interpolated there.
    table.SetPoint(0, 0.0, working.GetValue(a));
    int i = 1;
    const int n = working.NumPoint();
    for (int k = 0; k < n; ++k) {
        const double c = working.GetX(k);
        const double d = c - a;
        if (d >= b - a)
            break;
        if (d <= 0.0)
            continue;
        table.SetPoint(i++, d, working.GetValue(c));
    }
    // A line whose last chainage rounds just below b is read at that chainage, not beyond.
    double last = b;
    if (n > 0 && working.GetX(n - 1) < b)
        last = working.GetX(n - 1);
    table.SetPoint(i, b - a, working.GetValue(last));
}

CBuildingProfile::EStatus
CBuildingProfile::VerticalProfile(const Vec3<double>& S, const Vec3<double>& E, int J,
                                  const std::vector<GeoDispResult>& samples, double lineStart,
                                  double lineEnd, CTableT<double>& table) {
    CTableT<double> working;
    const int n = static_cast<int>(samples.size());
    for (int k = 0; k < n; ++k)
        working.SetPoint(k, SampleChainage(S, E, k, J),
                         samples[static_cast<std::size_t>(k)].GetZdisplacement());
    try {
        Slice(working, lineStart, lineEnd, table);
    } catch (const Util::CRange<double>&) {
        return eProfileOutOfRange;
    }
    return eProfileOk;
}

CBuildingProfile::EStatus
CBuildingProfile::HorizontalProfile(const Vec3<double>& S, const Vec3<double>& E, int J,
                                    double planLength, const std::vector<GeoDispResult>& samples,
                                    double lineStart, double lineEnd, CTableT<double>& table) {
    const double cx = (E.x - S.x) / planLength;
    const double cy = (E.y - S.y) / planLength;
    CTableT<double> working;
    const int n = static_cast<int>(samples.size());
    for (int k = 0; k < n; ++k) {
        const GeoDispResult& r = samples[static_cast<std::size_t>(k)];
        working.SetPoint(k, SampleChainage(S, E, k, J),
                         r.GetXdisplacement() * cx + r.GetYdisplacement() * cy);
    }
    // With no samples every lookup would lie outside the table: the caller shows
    // EmptyHorizontalMessage and has no profile.
    if (working.NumPoint() == 0) {
        table.Empty();
        return eProfileEmptyHorizontal;
    }
    try {
        Slice(working, lineStart, lineEnd, table);
    } catch (const Util::CRange<double>&) {
        return eProfileOutOfRange;
    }
    return eProfileOk;
}

CString CBuildingProfile::EmptyHorizontalMessage(int stage, int building) {
    // The text is kept as it has always been spelled.
    return CString::Formatted(L"cSplieHDispTemp.NumPoint() == 0 for Stage %i, Specific Building %i",
                              stage, building);
}

Vec3<double> CBuildingProfile::PointOnLine(const Vec3<double>& S, const Vec3<double>& E,
                                           double lineLength, double d) {
    const double f = d / lineLength;
    return Vec3<double>((E.x - S.x) * f + S.x, (E.y - S.y) * f + S.y, (E.z - S.z) * f + S.z);
}

namespace {

// Sum of End - Start over the first count results (at most all of them), in order.
double SumOfLengths(const std::vector<CBuildingDamageResult>& results, int count) {
    double d = 0.0;
    for (int k = 0; k < count && k < static_cast<int>(results.size()); ++k) {
        const CBuildingDamageResult& r = results[static_cast<std::size_t>(k)];
        d += r.GetEnd() - r.GetStart();
    }
    return d;
}

} // namespace

double CBuildingProfile::SegmentStartDistance(const std::vector<CBuildingDamageResult>& results,
                                              int segment) {
    return segment <= 1 ? 0.0 : SumOfLengths(results, segment - 1);
}

double CBuildingProfile::SegmentEndDistance(const std::vector<CBuildingDamageResult>& results,
                                            int segment) {
    return segment <= 0 ? 0.0 : SumOfLengths(results, segment);
}

int CBuildingProfile::FirstCloseStep(const CTableT<double>& table) {
    for (int i = 0; i + 1 < table.NumPoint(); ++i)
        if (std::fabs(table.GetX(i + 1) - table.GetX(i)) < CTableT<double>::kMinStep)
            return i;
    return -1;
}

} // namespace Tevra::Data
