#include "CStage.h"

#include "base/CDataFile.h"
#include "base/JsonNameID.h"

namespace Tevra::Data {

using namespace FileIO;

namespace {

void ReadList(CDataFile& f, int name, CBasicList& list) {
    CString text;
    if (!f.ReadString(name, text, false))
        return;
    if (!list.SetString(text, 0))
        f.Fail(std::string("'") + JsonName(name) + "' is \"" + text.ToUtf8() +
               "\", which is not a list of numbers such as \"1 to 3 7\"");
}

} // namespace

void CStage::Write(CDataFile& f) const {
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, Name());
    f.WriteString(jnTunnels, m_tunnels.String());
    f.WriteString(jnPolygonalExcavations, m_polygonal.String());
    f.WriteString(jnCircularExcavations, m_circular.String());
    f.WriteString(jnImportedDisplacementSets, m_imported.String());
    f.WriteBool(jnEnabled, m_enabled);
    f.WriteBool(jnSmoothedResults, m_smoothedResults);
}

void CStage::Read(CDataFile& f, int) {
    int version = m_iVer;
    f.ReadInt(jnVersion, version, false);
    f.ReadString(jnName, AccessName(), false);
    ReadList(f, jnTunnels, m_tunnels);
    ReadList(f, jnPolygonalExcavations, m_polygonal);
    ReadList(f, jnCircularExcavations, m_circular);
    ReadList(f, jnImportedDisplacementSets, m_imported);
    f.ReadBool(jnEnabled, m_enabled, false);
    f.ReadBool(jnSmoothedResults, m_smoothedResults, false);
}

} // namespace Tevra::Data
