// Model file layout of an imported displacement set.
#include "CImportedDisplacementsSet.h"

#include "CDataFile.h"
#include "JsonNameID.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace Tevra::Data {

using namespace FileIO;

namespace {

// Highest import match a file may give: every bit up to 512 set.
constexpr double kMaxImportMatch = 1023.0;

std::string Text(double v) {
    if (std::isnan(v))
        return "NaN";
    if (std::isinf(v))
        return v > 0 ? "Infinity" : "-Infinity";
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    return buf;
}

} // namespace

void CImportedDisplacementsSet::Write(CDataFile& f) const {
    f.WriteString(jnName, Name());
    f.WriteString(jnFileName, m_fileName);
    f.BeginDoubleArray(jnPoints);
    for (const CImportedDisplacement& d : m_displacements) {
        f.PutDouble(d.GetXpoint());
        f.PutDouble(d.GetYpoint());
        f.PutDouble(d.GetZpoint());
    }
    f.EndDoubleArray();
    f.BeginDoubleArray(jnDisplacements);
    for (const CImportedDisplacement& d : m_displacements) {
        f.PutDouble(d.GetXdisplacement());
        f.PutDouble(d.GetYdisplacement());
        f.PutDouble(d.GetZdisplacement());
    }
    f.EndDoubleArray();
    f.BeginDoubleArray(jnImportMatch);
    for (const CImportedDisplacement& d : m_displacements)
        f.PutDouble(static_cast<double>(d.GetImportMatch()));
    f.EndDoubleArray();
}

void CImportedDisplacementsSet::Read(CDataFile& f, int generation) {
    CString name = Name();
    CString fileName = m_fileName;
    f.ReadString(jnName, name, false);
    f.ReadString(jnFileName, fileName, false);
    std::vector<double> xyz, dxyz, match;
    f.ReadDoubleArray(jnPoints, xyz);
    f.ReadDoubleArray(jnDisplacements, dxyz);
    const bool json = generation < 0;
    if (json || generation >= 2)
        f.ReadDoubleArray(jnImportMatch, match, !json);

    // The lists' lengths agree before a point is made.
    if (xyz.size() % 3 != 0)
        f.Fail("'points' should hold x, y, z for each imported point: " +
               std::to_string(xyz.size()) + " numbers is not a multiple of 3");
    const size_t n = xyz.size() / 3;
    if (dxyz.size() != xyz.size())
        f.Fail("'displacements' holds " + std::to_string(dxyz.size()) + " numbers where the " +
               std::to_string(n) + " imported points take " + std::to_string(xyz.size()));
    if (!match.empty() && match.size() != n)
        f.Fail("'importMatch' holds " + std::to_string(match.size()) + " values where the " +
               std::to_string(n) + " imported points take one each");

    std::vector<CImportedDisplacement> points(n);
    static const char* const kWhat[3] = {"x", "y", "z"};
    for (size_t k = 0; k < n; ++k) {
        for (size_t c = 0; c < 3; ++c) {
            const double p = xyz[3 * k + c];
            const double d = dxyz[3 * k + c];
            if (!std::isfinite(p))
                f.Fail("imported point " + std::to_string(k + 1) + " has " + kWhat[c] + " = " +
                       Text(p) + ", which is not a finite number");
            if (!std::isfinite(d))
                f.Fail("imported point " + std::to_string(k + 1) + " has a displacement in " +
                       kWhat[c] + " of " + Text(d) + ", which is not a finite number");
        }
        CImportedDisplacement& r = points[k];
        r.SetXpoint(xyz[3 * k]);
        r.SetYpoint(xyz[3 * k + 1]);
        r.SetZpoint(xyz[3 * k + 2]);
        r.SetXdisplacement(dxyz[3 * k]);
        r.SetYdisplacement(dxyz[3 * k + 1]);
        r.SetZdisplacement(dxyz[3 * k + 2]);
        if (!match.empty()) {
            const double m = match[k];
            if (!(m >= 0.0 && m <= kMaxImportMatch) || m != std::floor(m))
                f.Fail("imported point " + std::to_string(k + 1) + " has an import match of " +
                       Text(m) + ", which is not a set of match bits (a whole number from 0 to " +
                       "1023)");
            r.SetImportMatch(static_cast<int>(m));
        }
    }
    SetName(name);
    m_fileName = fileName;
    m_displacements = std::move(points);
}

} // namespace Tevra::Data
