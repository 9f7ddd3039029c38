#include "GeoZorvoGeneral.h"

namespace Tevra::Data {

EProblemType GeoZorvoGeneral::MapCStrToProblemTypeEnum(const CString& text) {
    return text == CString(L"MINE") ? eMine : eGroundMovement;
}

CString GeoZorvoGeneral::GetProblemTypeStr(EProblemType t) {
    switch (t) {
    case eGroundMovement:
        return L"TUNNEL";
    case eMine:
        return L"MINE";
    }
    return L"Unknown Type";
}

} // namespace Tevra::Data
