#include "CDisplacementData.h"

#include "CDataFile.h"
#include "JsonNameID.h"

#include <algorithm>

namespace Tevra::Data {

const wchar_t* StringifySurfaceType(ESurfaceType type) {
    return type == eSubSurface ? L"Sub-surface" : L"Surface";
}

ESurfaceType GetSurfaceTypeFromCStr(const CString& text) {
    return text == CString(L"Sub-surface") ? eSubSurface : eSurface;
}

void CDisplacementData::ResizeResults(int numStages) {
    // A record whose locations cannot be numbered has none.
    const bool numbered = NumLocationsInAll() > 0;
    const size_t first = numbered ? static_cast<size_t>(NumFirstPositions()) : 0;
    const size_t second = numbered ? static_cast<size_t>(NumSecondPositions()) : 0;
    // Each stage sized in place: no second copy of a large store is ever held.
    m_results.clear();
    m_results.resize(static_cast<size_t>(std::max(numStages, 0)));
    for (StageResults& stage : m_results)
        stage.assign(first, std::vector<GeoDispResult>(second));
}

bool CDisplacementData::ResultsExist(int stage) const {
    if (stage < 0)
        return !m_results.empty();
    return static_cast<size_t>(stage) < m_results.size() &&
           !m_results[static_cast<size_t>(stage)].empty();
}

int CDisplacementData::NumResults(int stage) const {
    if (stage < 0 || static_cast<size_t>(stage) >= m_results.size())
        return 0;
    return static_cast<int>(m_results[static_cast<size_t>(stage)].size());
}

bool CDisplacementData::StoreMatches(int stage) const {
    if (stage < 0 || static_cast<size_t>(stage) >= m_results.size())
        return false;
    const bool numbered = NumLocationsInAll() > 0;
    const size_t first = numbered ? static_cast<size_t>(NumFirstPositions()) : 0;
    const size_t second = numbered ? static_cast<size_t>(NumSecondPositions()) : 0;
    const StageResults& store = m_results[static_cast<size_t>(stage)];
    return store.size() == first &&
           std::all_of(store.begin(), store.end(), [second](const std::vector<GeoDispResult>& row) {
               return row.size() == second;
           });
}

namespace {
const wchar_t* const kSurfaceTypeTexts[2] = {L"Surface", L"Sub-surface"};
} // namespace

void CDisplacementData::Write(FileIO::CDataFile& f) const {
    f.WriteString(FileIO::jnName, Name());
    f.WriteEnum(FileIO::jnSurfaceType, m_surfaceType, kSurfaceTypeTexts, 2);
    f.WriteBool(FileIO::jnCalculate, m_calculate);
}

void CDisplacementData::Read(FileIO::CDataFile& f, int) {
    f.ReadString(FileIO::jnName, AccessName(), false);
    int type = m_surfaceType;
    f.ReadEnum(FileIO::jnSurfaceType, type, kSurfaceTypeTexts, 2, false);
    m_surfaceType = static_cast<ESurfaceType>(type);
    f.ReadBool(FileIO::jnCalculate, m_calculate, false);
}

} // namespace Tevra::Data
