#pragma once

#include "base/CString.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// The limiting tensile strains that separate the damage categories of a building segment
// (Burland et al. 1977; Boscardin and Cording 1989): limit k is the lowest tensile strain of
// category k. Limit 0 takes part in no comparison: a segment that exceeds no other limit is
// category 0. Strains are plain ratios.
class CDamageCategoryStrains {
  public:
    // The five categories and only five: no segment is ever placed above 4.
    enum EDamageCategory {
        eNegligible = 0,
        eVerySlight = 1,
        eSlight = 2,
        eModerate = 3,
        eSevere = 4
    };
    static constexpr int NUM_CATEGORIES = 5;

    // 0, 0.0005, 0.00075, 0.0015 and 0.003: the limits of Burland (1995).
    static const double STANDARD_STRAIN_LIMITS[NUM_CATEGORIES];
    // Message numbers of the category labels, "0 (Negligible)" to "4 (Severe)".
    static const int DAMAGE_CATEGORY_STRING_IDS[NUM_CATEGORIES];
    // Name of a new record, and of the one record of a new project.
    static const wchar_t* const DEFAULT_NAME;
    static const wchar_t* const BURLAND_NAME;

    CDamageCategoryStrains();
    virtual ~CDamageCategoryStrains() = default;
    CDamageCategoryStrains(const CDamageCategoryStrains&) = default;
    CDamageCategoryStrains& operator=(const CDamageCategoryStrains&) = default;

    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of the record in the model file.
    static int GetVersion() { return 2; }

    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }

    // Limit of a category (plain ratio); the category is not checked.
    double GetStrainLimit(EDamageCategory c) const { return m_strainLimits[c]; }
    void SetStrainLimit(EDamageCategory c, const double& limit) { m_strainLimits[c] = limit; }

    // Back to the default name and the standard limits.
    void Empty();

    bool operator==(const CDamageCategoryStrains& o) const;
    bool operator!=(const CDamageCategoryStrains& o) const { return !(*this == o); }

  private:
    CString m_name;
    double m_strainLimits[NUM_CATEGORIES];
};

} // namespace Tevra::Data
