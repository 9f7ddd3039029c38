#include "CExportTransectInfo.h"

#include "base/CProfileStore.h"

#include <utility>
#include <vector>

namespace Tevra::Data {

const std::array<CExportTransectInfo::SColumn, 7>& CExportTransectInfo::Columns() {
    static const std::array<SColumn, 7> columns = {{
        {L"Transect", &CExportTransectInfo::m_bNo},
        {L"TransectStartX", &CExportTransectInfo::m_bStartX},
        {L"TransectStartY", &CExportTransectInfo::m_bStartY},
        {L"TransectStartZ", &CExportTransectInfo::m_bStartZ},
        {L"TransectEndX", &CExportTransectInfo::m_bEndX},
        {L"TransectEndY", &CExportTransectInfo::m_bEndY},
        {L"TransectEndZ", &CExportTransectInfo::m_bEndZ},
    }};
    return columns;
}

void CExportTransectInfo::RestoreFromRegistry(CString section) {
    const CProfileStore store = CProfileStore::Application();
    for (const SColumn& c : Columns())
        this->*c.on = store.GetProfileInt(section, c.key, this->*c.on ? 1 : 0) != 0;
}

void CExportTransectInfo::SaveToRegistry(CString section) {
    std::vector<std::pair<CString, int>> entries;
    for (const SColumn& c : Columns())
        entries.emplace_back(c.key, this->*c.on ? 1 : 0);
    CProfileStore::Application().WriteProfileInts(section, entries);
}

bool CExportTransectInfo::None() const {
    for (const SColumn& c : Columns())
        if (this->*c.on)
            return false;
    return true;
}

} // namespace Tevra::Data
