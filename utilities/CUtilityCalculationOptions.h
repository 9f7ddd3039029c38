#pragma once

#include <optional>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// The project's options of the utility strain calculation.
class CUtilityCalculationOptions {
  public:
    CUtilityCalculationOptions() = default;
    virtual ~CUtilityCalculationOptions() = default;
    CUtilityCalculationOptions(const CUtilityCalculationOptions&) = default;
    CUtilityCalculationOptions& operator=(const CUtilityCalculationOptions&) = default;

    // The record: the one flag. A record of generation 3 held a second flag after it,
    // whether polyline segments are continuous, which is kept for the loader.
    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of the record in the model file.
    static int GetVersion() { return m_iVer; }
    // Generation of the record as it was read (the current one for a new record).
    int GetReadVersion() const { return m_readVersion; }

    // Back to a new project's options.
    void Empty() { *this = CUtilityCalculationOptions(); }

    // When true, axial strain that opposes the flexural strain is left out of the total
    // strain.
    bool GetNeglectBenificialContribution() const { return m_neglectBenificialContribution; }
    void SetNeglectBenificialContribution(bool b) { m_neglectBenificialContribution = b; }

    // The project-wide choice of a record of generation 3, whether polyline segments are
    // continuous, which the loader gives to each specific utility's two flags; empty for
    // a record of any other generation.
    std::optional<bool> GetPolylineSegmentsContinuous() const {
        if (m_readVersion == kPolylineFlagGeneration)
            return m_polylineSegmentsContinuous;
        return std::nullopt;
    }

    bool operator==(const CUtilityCalculationOptions& o) const {
        return m_neglectBenificialContribution == o.m_neglectBenificialContribution &&
               m_polylineSegmentsContinuous == o.m_polylineSegmentsContinuous &&
               m_readVersion == o.m_readVersion;
    }
    bool operator!=(const CUtilityCalculationOptions& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 4;
    // The only generation whose record held the polyline flag.
    static constexpr int kPolylineFlagGeneration = 3;

    bool m_neglectBenificialContribution = false;
    bool m_polylineSegmentsContinuous = false;
    int m_readVersion = m_iVer;
};

} // namespace Tevra::Data
