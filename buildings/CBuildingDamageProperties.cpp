#include "CBuildingDamageProperties.h"

#include "base/StringFrom.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace Tevra::Data {

namespace {
// Dimension of the offsets among the display units: a length.
constexpr int kLengthDimension = 2;
} // namespace

CBuildingDamageProperties::CBuildingDamageProperties() { Empty(); }

void CBuildingDamageProperties::Empty() {
    SetName(L"Building Damage Property #");
    m_damageCategoryStrains = 1;
    m_defaultProperties = true;
    m_poissonsRatio = 0.2;
    m_eOverG = 2.6;
    // The rectangle of a 10 m high building: I = H^3/3 and H^3/12, y = t = H and H/2.
    const double H = 10.0;
    m_section[kIAt + GeoGlobal::eHogging] = std::pow(H, 3) / 3.0;
    m_section[kIAt + GeoGlobal::eSagging] = std::pow(H, 3) / 12.0;
    m_section[kStrainFromNAAt + GeoGlobal::eHogging] = H;
    m_section[kStrainFromNAAt + GeoGlobal::eSagging] = H / 2.0;
    m_section[kNAFromTensionEdgeAt + GeoGlobal::eHogging] = H;
    m_section[kNAFromTensionEdgeAt + GeoGlobal::eSagging] = H / 2.0;
    m_section[kEndVDispSensitivityAt] = 0.0001;
    m_verticalOffsets.assign(1, 0.0);
}

double CBuildingDamageProperties::Section(int start, GeoGlobal::ECurvature c) const {
    const int ci = static_cast<int>(c);
    const int at = start + ci;
    if (ci < 0 || at >= kSectionSize)
        return std::numeric_limits<double>::quiet_NaN();
    return m_section[at];
}

void CBuildingDamageProperties::SetSection(int start, GeoGlobal::ECurvature c, double value) {
    if (c == GeoGlobal::eHogging || c == GeoGlobal::eSagging)
        m_section[start + c] = value;
}

double CBuildingDamageProperties::GetI(GeoGlobal::ECurvature c, double H) const {
    if (!m_defaultProperties)
        return Section(kIAt, c);
    return c == GeoGlobal::eHogging ? std::pow(H, 3) / 3.0 : std::pow(H, 3) / 12.0;
}

double CBuildingDamageProperties::GetStrainFromNA(GeoGlobal::ECurvature c, double H) const {
    if (!m_defaultProperties)
        return Section(kStrainFromNAAt, c);
    return c == GeoGlobal::eHogging ? H : H / 2.0;
}

double CBuildingDamageProperties::GetNAFromTensionEdge(GeoGlobal::ECurvature c, double H) const {
    if (!m_defaultProperties)
        return Section(kNAFromTensionEdgeAt, c);
    return c == GeoGlobal::eHogging ? H : H / 2.0;
}

void CBuildingDamageProperties::SetVerticalOffset(int index, double& value) {
    if (index < 0)
        return;
    const double v = value; // value may be an offset of the list, moved by the growth
    const auto i = static_cast<size_t>(index);
    if (i >= m_verticalOffsets.size())
        m_verticalOffsets.resize(i + 1, 0.0);
    m_verticalOffsets[i] = v;
}

void CBuildingDamageProperties::GetVerticalOffsets(std::vector<double>& offsets,
                                                   const CUnit& unit) const {
    const double factor = unit.Conversion(kLengthDimension);
    offsets.clear();
    for (double v : m_verticalOffsets)
        offsets.push_back(v * factor);
}

void CBuildingDamageProperties::GetVerticalOffsets(CString& text, const CUnit& unit,
                                                   const Util::CNumFormat* format) const {
    Util::CNumFormat local;
    local.SetFormat(2);
    local.SetDecDecPla(3, false);
    local.SetForceDec(true);
    const Util::CNumFormat& f = format ? *format : local;

    std::vector<double> values;
    GetVerticalOffsets(values, unit);
    std::wstring joined;
    for (size_t k = 0; k < values.size(); ++k) {
        std::wstring one = Vesk::StringFrom(values[k], f).Str();
        if (!one.empty() && one.back() == L'.')
            one.pop_back();
        if (k > 0)
            joined += L',';
        joined += one;
    }
    const size_t end = joined.find_last_not_of(L" \t\r\n");
    joined.erase(end == std::wstring::npos ? 0 : end + 1);
    text = CString(joined);
}

void CBuildingDamageProperties::GetVerticalOffsetsDescriptions(std::vector<CString>& descriptions,
                                                               const CUnit& unit,
                                                               bool numbered) const {
    std::vector<double> values;
    GetVerticalOffsets(values, unit);
    const CString label = unit.Label(kLengthDimension);
    descriptions.clear();
    for (size_t k = 0; k < values.size(); ++k)
        descriptions.push_back(numbered
                                   ? CString::Formatted(L"%i: %.3f%s", static_cast<int>(k + 1),
                                                        values[k], label.GetString())
                                   : CString::Formatted(L"%.3f%s", values[k], label.GetString()));
}

bool CBuildingDamageProperties::operator==(const CBuildingDamageProperties& o) const {
    return GetName() == o.GetName() && m_damageCategoryStrains == o.m_damageCategoryStrains &&
           m_defaultProperties == o.m_defaultProperties && m_poissonsRatio == o.m_poissonsRatio &&
           m_eOverG == o.m_eOverG &&
           std::equal(std::begin(m_section), std::end(m_section), std::begin(o.m_section)) &&
           m_verticalOffsets == o.m_verticalOffsets;
}

} // namespace Tevra::Data
