#include "CExportItemsCSV.h"

#include "base/CProfileStore.h"

namespace Tevra::Data {

int CExportItemsCSV::ReadColumn(const CString& section, const wchar_t* key, bool present) {
    return CProfileStore::Application().GetProfileInt(section, key, present ? 1 : 0);
}

void CExportItemsCSV::WriteColumns(const CString& section,
                                   const std::vector<std::pair<CString, int>>& entries) {
    CProfileStore::Application().WriteProfileInts(section, entries);
}

} // namespace Tevra::Data
