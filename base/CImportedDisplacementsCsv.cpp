#include "CImportedDisplacementsCsv.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <istream>
#include <sstream>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace Tevra::Data {

namespace {

constexpr int kValuesPerPoint = 6;
const char* const kColumns[kValuesPerPoint] = {"X", "Y", "Z", "dX", "dY", "dZ"};
// No line of six numbers comes near this; a longer one is no table of points (a device
// or a binary file read by mistake), and is not held whole.
constexpr size_t kMaxLine = 65536;

// The next line without its end (\n, \r\n); false at the end of the text. tooLong is set
// for a line longer than kMaxLine, whose reading stops there.
bool NextLine(std::istream& in, std::string& line, bool& tooLong) {
    line.clear();
    tooLong = false;
    std::streambuf* buf = in.rdbuf();
    bool any = false;
    for (;;) {
        const int c = buf->sbumpc();
        if (c == std::char_traits<char>::eof())
            break;
        any = true;
        if (c == '\n')
            break;
        if (line.size() == kMaxLine) {
            tooLong = true;
            return true;
        }
        line.push_back(static_cast<char>(c));
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return any;
}

std::string_view Trim(std::string_view s) {
    const size_t first = s.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    const size_t last = s.find_last_not_of(" \t");
    return s.substr(first, last - first + 1);
}

std::vector<std::string_view> Split(std::string_view line) {
    std::vector<std::string_view> fields;
    size_t start = 0;
    for (;;) {
        const size_t comma = line.find(',', start);
        fields.push_back(Trim(line.substr(
            start, comma == std::string_view::npos ? std::string_view::npos : comma - start)));
        if (comma == std::string_view::npos)
            return fields;
        start = comma + 1;
    }
}

// A decimal number, with an optional leading + and "inf" or "nan" counted as numbers;
// false for anything else. A number beyond the range of a double is infinite, one too
// small for it is taken as the nearest the double holds.
bool ParseNumber(std::string_view s, double& v) {
    if (s.size() > 1 && s[0] == '+' && s[1] != '-' && s[1] != '+')
        s.remove_prefix(1);
    if (s.empty())
        return false;
    const char* end = s.data() + s.size();
    const auto r = std::from_chars(s.data(), end, v, std::chars_format::general);
    if (r.ptr != end)
        return false;
    if (r.ec == std::errc::result_out_of_range) {
        v = std::strtod(std::string(s).c_str(), nullptr);
        return true;
    }
    return r.ec == std::errc();
}

bool ParseStream(std::istream& in, const std::string& name, CImportedDisplacementsSet& set,
                 std::string& error) {
    std::vector<CImportedDisplacement> points;
    std::string line;
    bool tooLong = false;
    bool first = true; // no line with content met yet
    for (long long n = 1; NextLine(in, line, tooLong); ++n) {
        const std::string where = name + ": line " + std::to_string(n);
        if (tooLong) {
            error = where + " is longer than " + std::to_string(kMaxLine) +
                    " characters; each line should give X, Y, Z, dX, dY, dZ (m)";
            return false;
        }
        std::string_view text = line;
        if (n == 1 && text.substr(0, 3) == "\xEF\xBB\xBF")
            text.remove_prefix(3); // the byte order mark of a UTF-8 file
        if (Trim(text).empty())
            continue;
        const std::vector<std::string_view> fields = Split(text);
        double v[kValuesPerPoint] = {};
        if (first) {
            first = false;
            // A header holds no number at all; a line of numbers with one typing slip is
            // a faulty point, not a header.
            bool anyNumber = false;
            for (std::string_view f : fields) {
                double x = 0.0;
                anyNumber |= ParseNumber(f, x);
            }
            if (!anyNumber)
                continue;
        }
        if (fields.size() != kValuesPerPoint) {
            error = where + ": " + std::to_string(fields.size()) +
                    " values where a point takes 6 (X, Y, Z, dX, dY, dZ)";
            return false;
        }
        for (int c = 0; c < kValuesPerPoint; ++c) {
            const std::string_view f = fields[static_cast<size_t>(c)];
            if (!ParseNumber(f, v[c])) {
                error = where + ": " + kColumns[c] + " is \"" + std::string(f) +
                        "\", which is not a number";
                return false;
            }
            if (!std::isfinite(v[c])) {
                error = where + ": " + kColumns[c] + " is \"" + std::string(f) +
                        "\", which is not a finite number";
                return false;
            }
        }
        CImportedDisplacement d;
        d.SetXpoint(v[0]);
        d.SetYpoint(v[1]);
        d.SetZpoint(v[2]);
        d.SetXdisplacement(v[3]);
        d.SetYdisplacement(v[4]);
        d.SetZdisplacement(v[5]);
        points.push_back(d);
    }
    if (points.empty()) {
        error = name + ": the file holds no points; each line should give X, Y, Z, dX, dY, dZ (m)";
        return false;
    }
    set.SetDisplacements(points);
    return true;
}

} // namespace

bool CImportedDisplacementsCsv::Parse(const std::string& text, const std::string& name,
                                      CImportedDisplacementsSet& set, std::string& error) {
    std::istringstream in(text);
    return ParseStream(in, name, set, error);
}

bool CImportedDisplacementsCsv::Read(const std::string& path, CImportedDisplacementsSet& set,
                                     std::string& error) {
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) {
        error = path + ": cannot read the file: it is a folder";
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = path + ": cannot read the file: " + std::strerror(errno);
        return false;
    }
    CImportedDisplacementsSet read = set;
    if (!ParseStream(in, path, read, error))
        return false;
    if (in.bad()) {
        error = path + ": cannot read the file: " + std::strerror(errno);
        return false;
    }
    read.SetReadFileName(CString::FromUtf8(path));
    set = read;
    return true;
}

} // namespace Tevra::Data
