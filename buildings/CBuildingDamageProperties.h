#pragma once

#include "base/CNumFormat.h"
#include "base/CString.h"
#include "base/CUnit.h"
#include "base/GeoGlobal.h"
#include "base/NamedEntity.h"

#include <memory>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A building as a deep beam for the Burland and Wroth assessment: its stiffness ratios, the
// section per unit width for hogging and for sagging, the smallest settlement that marks the
// edge of the trough, and the levels at which it is assessed. Shared by specific and
// generic buildings. Lengths in metres, I in m^4 per metre width.
class CBuildingDamageProperties : public NamedEntity {
  public:
    CBuildingDamageProperties();
    virtual ~CBuildingDamageProperties() = default;
    CBuildingDamageProperties(const CBuildingDamageProperties&) = default;
    CBuildingDamageProperties& operator=(const CBuildingDamageProperties&) = default;

    virtual std::unique_ptr<CBuildingDamageProperties> Clone() const {
        return std::make_unique<CBuildingDamageProperties>(*this);
    }
    virtual void Read(FileIO::CDataFile& file, int generation);
    // Reads I, strain from NA and NA from tension edge of one curvature (0 or 1).
    virtual void ReadCurvature(FileIO::CDataFile& file, int curvature);
    virtual void Write(FileIO::CDataFile& file) const;

    static int GetVersion() { return m_iVer; }

    // Back to the defaults of a new record, name included.
    void Empty();

    // Number (1-based) of the project's damage category strains record that applies.
    int GetDamageCategoryStrains() const { return m_damageCategoryStrains; }
    void SetDamageCategoryStrains(int n) { m_damageCategoryStrains = n; }
    // True: the section is a plain rectangle of the building's height; false: the stored
    // section values apply.
    bool GetDefaultProperties() const { return m_defaultProperties; }
    void SetDefaultProperties(bool b) { m_defaultProperties = b; }
    double GetPoissonsRatio() const { return m_poissonsRatio; }
    void SetPoissonsRatio(double nu) { m_poissonsRatio = nu; }
    // Young's modulus over shear modulus.
    double GetEOverG() const { return m_eOverG; }
    void SetEOverG(double r) { m_eOverG = r; }

    // Section values of a curvature for a beam of height H (metres). With default
    // properties, a rectangle: a hogging beam bends about its lower edge (I = H^3/3,
    // y = t = H), any other about its mid-height (I = H^3/12, y = t = H/2). Otherwise the
    // stored value of that curvature, whatever H; for no curvature (2) that is the value
    // that follows in the record (see m_section).
    // Second moment of area per unit width (m^4/m).
    double GetI(GeoGlobal::ECurvature c, double H) const;
    // Distance from the neutral axis to the fibre where the strain is taken (metres).
    double GetStrainFromNA(GeoGlobal::ECurvature c, double H) const;
    // Distance of the neutral axis from the edge in tension (metres).
    double GetNAFromTensionEdge(GeoGlobal::ECurvature c, double H) const;
    // Store a section value of hogging (0) or sagging (1); other curvatures have no slot
    // of their own and are ignored.
    void SetI(GeoGlobal::ECurvature c, double value) { SetSection(kIAt, c, value); }
    void SetStrainFromNA(GeoGlobal::ECurvature c, double value) {
        SetSection(kStrainFromNAAt, c, value);
    }
    void SetNAFromTensionEdge(GeoGlobal::ECurvature c, double value) {
        SetSection(kNAFromTensionEdgeAt, c, value);
    }

    // Smallest vertical movement (metres) that counts as the edge of the settlement trough.
    double GetEndVDispSensitivity() const { return m_section[kEndVDispSensitivityAt]; }
    void SetEndVDispSensitivity(double v) { m_section[kEndVDispSensitivityAt] = v; }

    // Levels (metres) relative to the displacement line or polyline at which the building
    // is assessed. The getter takes a 1-based number and the setter a 0-based index, which
    // grows the list with 0.0 as needed: the two differ on purpose, callers rely on both.
    int NumberOfVerticalOffsets() const { return static_cast<int>(m_verticalOffsets.size()); }
    bool AnyVerticalOffset() const { return !m_verticalOffsets.empty(); }
    double GetVerticalOffset(int n) const { return m_verticalOffsets[static_cast<size_t>(n - 1)]; }
    void SetVerticalOffset(int index, double& value);
    void AddVerticalOffset(double value) { m_verticalOffsets.push_back(value); }
    void GetVerticalOffsets(std::vector<double>& offsets) const { offsets = m_verticalOffsets; }
    void SetVerticalOffsets(const std::vector<double>& offsets) { m_verticalOffsets = offsets; }
    // The offsets in the display unit of lengths.
    void GetVerticalOffsets(std::vector<double>& offsets, const CUnit& unit) const;
    // The offsets as one text in the display unit, joined by ",": each in the given
    // format or, without one, fixed with three decimals; a trailing "." is cut.
    void GetVerticalOffsets(CString& text, const CUnit& unit, const Util::CNumFormat* format) const;
    // One heading per offset: "%.3f%s" of the value and unit, or with numbered
    // "%i: %.3f%s" with the 1-based number in front.
    void GetVerticalOffsetsDescriptions(std::vector<CString>& descriptions, const CUnit& unit,
                                        bool numbered) const;

    bool operator==(const CBuildingDamageProperties& o) const;
    bool operator!=(const CBuildingDamageProperties& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 1;

    // Where each array begins in m_section.
    static constexpr int kIAt = 0;
    static constexpr int kStrainFromNAAt = 2;
    static constexpr int kNAFromTensionEdgeAt = 4;
    static constexpr int kEndVDispSensitivityAt = 6;
    static constexpr int kSectionSize = 7;

    // The stored value at array start + curvature; not-a-number for a curvature that
    // reaches outside the record, so that it can raise no damage category.
    double Section(int start, GeoGlobal::ECurvature c) const;
    void SetSection(int start, GeoGlobal::ECurvature c, double value);

    int m_damageCategoryStrains = 1;
    bool m_defaultProperties = true;
    double m_poissonsRatio = 0.2;
    double m_eOverG = 2.6;
    // I (hogging, sagging), strain from NA (hogging, sagging), NA from tension edge
    // (hogging, sagging), end V disp sensitivity: the three two-entry arrays back to back
    // and the sensitivity after them, in one block. A section value read for a curvature
    // of 2 (none) falls on the next field of this block: I on the first strain from NA,
    // strain from NA on the first NA from tension edge, NA from tension edge on the
    // sensitivity. Segments with no curvature are assessed with exactly these values, so
    // the order of this block must not change.
    double m_section[kSectionSize];
    std::vector<double> m_verticalOffsets;
};

} // namespace Tevra::Data
