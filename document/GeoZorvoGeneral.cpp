#include "GeoZorvoGeneral.h"

#include "base/CDataFile.h"
#include "base/JsonNameID.h"

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

void GeoZorvoGeneral::Write(FileIO::CDataFile& f) const {
    using namespace FileIO;
    if (!f.IsJson()) {
        f.WriteInt(jnProblemType, m_problemType);
        return;
    }
    f.BeginObject(jnGeneral);
    f.WriteString(jnProblemType, GetProblemTypeStr(m_problemType));
    f.EndObject();
}

void GeoZorvoGeneral::Read(FileIO::CDataFile& f, int) {
    using namespace FileIO;
    if (!f.IsJson()) {
        int type = 0;
        f.ReadInt(jnProblemType, type);
        if (type != eGroundMovement && type != eMine)
            f.Fail("problem type " + std::to_string(type) +
                   " is neither 1 (tunnels and "
                   "excavations) nor 2 (mines)");
        m_problemType = static_cast<EProblemType>(type);
        return;
    }
    if (!f.EnterObject(jnGeneral, false))
        return;
    CString text;
    if (f.ReadString(jnProblemType, text, false)) {
        if (text != CString(L"TUNNEL") && text != CString(L"MINE"))
            f.Fail("'problemType' is \"" + text.ToUtf8() +
                   "\"; it should be \"TUNNEL\" or \"MINE\"");
        m_problemType = MapCStrToProblemTypeEnum(text);
    }
    f.LeaveObject();
}

} // namespace Tevra::Data
