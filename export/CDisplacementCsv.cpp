#include "CDisplacementCsv.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <unistd.h>

namespace Tevra {

using namespace Data;

namespace {

// A number in full, as printf would write it with that precision, fixed-point or
// general; values that are not finite as nan, inf and -inf whatever their sign bits.
std::string Number(double v, std::chars_format format, int precision) {
    if (std::isnan(v))
        return "nan";
    if (std::isinf(v))
        return v > 0 ? "inf" : "-inf";
    // Room for the 309 digits of the largest double in fixed-point, and its decimals.
    char buf[std::numeric_limits<double>::max_exponent10 + 64];
    const auto r = std::to_chars(buf, buf + sizeof buf, v, format, precision);
    return std::string(buf, r.ptr);
}

std::string Fixed(double v, int decimals) { return Number(v, std::chars_format::fixed, decimals); }
std::string General(double v) { return Number(v, std::chars_format::general, 9); }

const char* FamilyFile(EPointType family) {
    switch (family) {
    case ePoint:
        return "points.csv";
    case eLine:
        return "lines.csv";
    case ePolyline:
        return "polylines.csv";
    default:
        return "grids.csv";
    }
}

int FamilyCount(const ZorvoData& doc, EPointType family) {
    switch (family) {
    case ePoint:
        return doc.NumDisplacementPoints(false);
    case eLine:
        return doc.NumDisplacementLines(false);
    case ePolyline:
        return doc.NumDisplacementPolylines(false);
    default:
        return doc.NumDisplacementGrids(false);
    }
}

const CDisplacementData& Record(const ZorvoData& doc, EPointType family, int n) {
    switch (family) {
    case ePoint:
        return doc.GetDisplacementPoint(n);
    case eLine:
        return doc.GetDisplacementLine(n);
    case ePolyline:
        return doc.GetDisplacementPolyline(n);
    default:
        return doc.GetDisplacementGrid(n);
    }
}

} // namespace

std::string CDisplacementCsv::Field(const std::string& text) {
    if (text.find_first_of(",\"\n\r") == std::string::npos)
        return text;
    std::string out = "\"";
    for (char c : text) {
        if (c == '"')
            out += '"';
        out += c;
    }
    return out + "\"";
}

void CDisplacementCsv::WriteHeader(std::ostream& out) {
    out << "stage,stage name,record,record name,position,position across,x (m),y (m),z (m),"
           "x displacement (mm),y displacement (mm),z displacement (mm),major principal strain,"
           "minor principal strain,principal strain angle (rad),import match\n";
}

void CDisplacementCsv::WriteFamily(const ZorvoData& doc, EPointType family, std::ostream& out) {
    const int stages = doc.NumStages(true, false);
    for (int s = 0; s < stages; ++s) {
        const std::string stageName = Field(doc.GetStageName(s).ToUtf8());
        for (int n = 1; n <= FamilyCount(doc, family); ++n) {
            const CDisplacementData& record = Record(doc, family, n);
            if (!record.ResultsExist(s))
                continue;
            const std::string name = Field(record.Name().ToUtf8());
            const auto& results = record.GetResults(s);
            for (size_t first = 0; first < results.size(); ++first) {
                for (size_t second = 0; second < results[first].size(); ++second) {
                    const GeoDispResult& r = results[first][second];
                    if (!r.IsCalculated())
                        continue;
                    const Vec3<double>& p = r.GetPoint();
                    out << s << ',' << stageName << ',' << n << ',' << name << ',' << first << ','
                        << second << ',' << Fixed(p.x, 4) << ',' << Fixed(p.y, 4) << ','
                        << Fixed(p.z, 4) << ',' << Fixed(r.GetXdisplacement() * 1000.0, 6) << ','
                        << Fixed(r.GetYdisplacement() * 1000.0, 6) << ','
                        << Fixed(r.GetZdisplacement() * 1000.0, 6) << ','
                        << General(r.GetMajorPrincipalStrain()) << ','
                        << General(r.GetMinorPrincipalStrain()) << ','
                        << General(r.GetPrincipalStrainAngle()) << ',' << r.GetImportMatch()
                        << '\n';
                }
            }
        }
    }
}

std::vector<std::string> CDisplacementCsv::WriteAll(const ZorvoData& doc, const std::string& dir) {
    std::vector<std::string> written;
    for (EPointType family : {ePoint, eLine, ePolyline, eGrid}) {
        if (FamilyCount(doc, family) == 0)
            continue;
        const std::string path = dir + "/" + FamilyFile(family);
        std::ofstream out(path);
        if (!out)
            throw std::runtime_error(path +
                                     ": cannot write the result table: " + std::strerror(errno));
        WriteHeader(out);
        WriteFamily(doc, family, out);
        out.close();
        if (!out) {
            // A table cut short by a full disk must not pass for a whole one.
            const std::string reason = std::strerror(errno);
            ::unlink(path.c_str());
            throw std::runtime_error(path + ": cannot write the result table: " + reason +
                                     "; the unfinished table is removed");
        }
        written.push_back(path);
    }
    return written;
}

} // namespace Tevra
