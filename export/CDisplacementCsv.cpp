#include "CDisplacementCsv.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <sys/stat.h>

namespace Tevra {

using namespace Data;

namespace {

std::string Number(const char* format, double v) {
    char buf[64];
    std::snprintf(buf, sizeof buf, format, v);
    return buf;
}

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
           "minor principal strain,principal strain angle (rad)\n";
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
                    const Vec3<double>& p = r.GetPoint();
                    out << s << ',' << stageName << ',' << n << ',' << name << ',' << first << ','
                        << second << ',' << Number("%.4f", p.x) << ',' << Number("%.4f", p.y) << ','
                        << Number("%.4f", p.z) << ','
                        << Number("%.6f", r.GetXdisplacement() * 1000.0) << ','
                        << Number("%.6f", r.GetYdisplacement() * 1000.0) << ','
                        << Number("%.6f", r.GetZdisplacement() * 1000.0) << ','
                        << Number("%.9g", r.GetMajorPrincipalStrain()) << ','
                        << Number("%.9g", r.GetMinorPrincipalStrain()) << ','
                        << Number("%.9g", r.GetPrincipalStrainAngle()) << '\n';
                }
            }
        }
    }
}

std::vector<std::string> CDisplacementCsv::WriteAll(const ZorvoData& doc, const std::string& dir) {
    ::mkdir(dir.c_str(), 0755); // may exist already; a failure shows when the files open
    std::vector<std::string> written;
    for (EPointType family : {ePoint, eLine, ePolyline, eGrid}) {
        if (FamilyCount(doc, family) == 0)
            continue;
        const std::string path = dir + "/" + FamilyFile(family);
        std::ofstream out(path);
        if (!out)
            throw std::runtime_error(path + ": cannot write the result table");
        WriteHeader(out);
        WriteFamily(doc, family, out);
        out.flush();
        if (!out)
            throw std::runtime_error(path + ": cannot write the result table");
        written.push_back(path);
    }
    return written;
}

} // namespace Tevra
