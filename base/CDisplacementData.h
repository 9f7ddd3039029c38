#pragma once

#include "GeoDispResult.h"

#include <climits>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// Whether a record's samples lie on the ground surface or below it.
enum ESurfaceType { eSurface = 0, eSubSurface = 1 };

const wchar_t* StringifySurfaceType(ESurfaceType type);
ESurfaceType GetSurfaceTypeFromCStr(const CString& text);

// A displacement record: where displacements are wanted and, after a run, the samples
// by calculation stage, first position (along the record) and second position (across
// it, for grids). The stores are sized before a run so that threads can fill distinct
// records, and distinct samples of one record, without a lock.
class CDisplacementData : public NamedEntity {
  public:
    using StageResults = std::vector<std::vector<GeoDispResult>>;

    explicit CDisplacementData(const CString& name = CString()) : NamedEntity(0, name) {}
    virtual ~CDisplacementData() = default;
    CDisplacementData(const CDisplacementData&) = default;
    CDisplacementData& operator=(const CDisplacementData&) = default;

    ESurfaceType GetSurfaceType() const { return m_surfaceType; }
    void SetSurfaceType(ESurfaceType t) { m_surfaceType = t; }
    // Whether displacements are to be calculated for this record.
    bool GetCalculate() const { return m_calculate; }
    void SetCalculate(bool on) { m_calculate = on; }

    // Number of sample locations; the flag is kept for the callers and does not matter.
    virtual int NumDisplacementLocations(bool) const = 0;

    // Sizes the store for that many calculation stages, each with the record's
    // locations in fresh samples.
    void ResizeResults(int numStages);
    void DeleteResults() { m_results.clear(); }
    bool ResultsExist(int stage) const;
    int NumResultStages() const { return static_cast<int>(m_results.size()); }

    // Stores a copy within the size that ResizeResults gave; not range-tested.
    void SetResult(int stage, int first, int second, const GeoDispResult& result) {
        m_results[static_cast<size_t>(stage)][static_cast<size_t>(first)]
                 [static_cast<size_t>(second)] = result;
    }
    const StageResults& GetResults(int stage) const {
        return m_results[static_cast<size_t>(stage)];
    }
    const GeoDispResult& GetResultFromPosition(int stage, int first, int second) const {
        return m_results[static_cast<size_t>(stage)][static_cast<size_t>(first)]
                        [static_cast<size_t>(second)];
    }
    // Samples in the first position at the stage; 0 for a stage that has no store.
    int NumResults(int stage) const;
    // Whether the stage's store holds exactly the record's locations, first by second, as
    // ResizeResults sized it. A calculation writes into a record only when it does.
    bool StoreMatches(int stage) const;
    // The whole store, by stage, as a results file keeps it.
    const std::vector<StageResults>& AllResults() const { return m_results; }
    void SetAllResults(std::vector<StageResults> results) { m_results = std::move(results); }

    // The record's fields in the model file (results go in a module of their own).
    virtual void Write(FileIO::CDataFile& file) const;
    virtual void Read(FileIO::CDataFile& file, int generation);

  protected:
    // Locations along the record and across it.
    virtual int NumFirstPositions() const = 0;
    virtual int NumSecondPositions() const { return 1; }
    // Locations of a run of equal intervals: intervals + 1. None for a negative count, and
    // none when the count cannot be held in an int.
    static int PositionsOf(int intervals) {
        return intervals >= 0 && intervals < INT_MAX ? intervals + 1 : 0;
    }
    // Locations along times locations across; none when the product cannot be held in an
    // int, for then the record's locations cannot be numbered.
    int NumLocationsInAll() const {
        const long long n = static_cast<long long>(NumFirstPositions()) * NumSecondPositions();
        return n >= 0 && n <= INT_MAX ? static_cast<int>(n) : 0;
    }
    bool SameData(const CDisplacementData& o) const {
        return Name() == o.Name() && m_surfaceType == o.m_surfaceType &&
               m_calculate == o.m_calculate && m_results == o.m_results;
    }

  private:
    ESurfaceType m_surfaceType = eSurface;
    bool m_calculate = true;
    std::vector<StageResults> m_results;
};

} // namespace Tevra::Data
