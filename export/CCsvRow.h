#pragma once

#include "base/CStdioFile.h"
#include "base/CString.h"
#include "base/CUnit.h"
#include "base/Vec3.h"

namespace Tevra::Data {

// One row of a result table, cell by cell after its token: texts as they stand, without
// quotes, integers by "%i", doubles by "%.14g"; cells separated by "," and the row ended
// by "\n".
class CCsvRow {
  public:
    explicit CCsvRow(const wchar_t* token) : m_text(token) {}
    CCsvRow& Text(const CString& cell) {
        m_text += L",";
        m_text += cell;
        return *this;
    }
    CCsvRow& Int(int v) { return Text(CString::Formatted(L"%i", v)); }
    CCsvRow& Real(double v) { return Text(CString::Formatted(L"%.14g", v)); }
    CCsvRow& Point(const Vec3<double>& p, double conversion) {
        return Real(p.x * conversion).Real(p.y * conversion).Real(p.z * conversion);
    }
    void WriteTo(CStdioFile& file) {
        m_text += L"\n";
        file.WriteString(m_text);
    }

    // Dimensions of the display units: gradients and other plain numbers have none;
    // lengths and coordinates, settlement and displacement, and strains with the
    // deflection ratio each have their own.
    static constexpr int kNoDimension = 0;
    static constexpr int kLength = 2;
    static constexpr int kDisplacement = 6;
    static constexpr int kRatio = 202;

    // Displacement, then length: each quantity's name and the index of its chosen unit.
    static void WriteUnitHeading(CStdioFile& file, const CUnit& unit) {
        for (int dimension : {kDisplacement, kLength})
            file.WriteString(unit.DimensionString(dimension) +
                             CString::Formatted(L",%i\n", unit.GetCurSel(dimension)));
    }

  private:
    CString m_text;
};

} // namespace Tevra::Data
