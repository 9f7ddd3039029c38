#include "CStageProperty.h"

#include "base/CDataFile.h"
#include "base/JsonNameID.h"

namespace Tevra::Data {

using namespace FileIO;

const wchar_t* const ELEMENT_TYPE_STRING_IDS[3] = {L"Tunnel", L"Polygonal Excavation",
                                                   L"Circular Excavation"};
const wchar_t* const TUNNEL_PROPERTY_STRING_IDS[1] = {L"Diameter"};
const wchar_t* const EXCAVATION_PROPERTY_STRING_IDS[1] = {L"Base Level(s)"};

void CStageProperty::Write(CDataFile& f) const {
    f.WriteInt(jnVersion, m_iVer);
    f.WriteString(jnName, Name());
    f.WriteInt(jnStage, m_stage);
    f.WriteEnum(jnElementType, m_elementType, ELEMENT_TYPE_STRING_IDS, 3);
    f.WriteString(jnRefs, m_refs.String());
    f.WriteEnum(jnTunnelProperty, m_tunnelProperty, TUNNEL_PROPERTY_STRING_IDS, 1);
    f.WriteEnum(jnExcavationProperty, m_excavationProperty, EXCAVATION_PROPERTY_STRING_IDS, 1);
    f.WriteDoubleArray(jnValues, m_values);
}

void CStageProperty::Read(CDataFile& f, int) {
    int version = m_iVer;
    f.ReadInt(jnVersion, version, false);
    f.ReadString(jnName, AccessName(), false);
    f.ReadInt(jnStage, m_stage);
    int type = m_elementType, tunnelProperty = m_tunnelProperty,
        excavationProperty = m_excavationProperty;
    f.ReadEnum(jnElementType, type, ELEMENT_TYPE_STRING_IDS, 3, false);
    CString refs;
    if (f.ReadString(jnRefs, refs, false) && !m_refs.SetString(refs, 0))
        f.Fail("'refs' is \"" + refs.ToUtf8() +
               "\", which is not a list of numbers such as \"1 to 3 7\"");
    f.ReadEnum(jnTunnelProperty, tunnelProperty, TUNNEL_PROPERTY_STRING_IDS, 1, false);
    f.ReadEnum(jnExcavationProperty, excavationProperty, EXCAVATION_PROPERTY_STRING_IDS, 1, false);
    f.ReadDoubleArray(jnValues, m_values, false);
    m_elementType = static_cast<EElementType>(type);
    m_tunnelProperty = static_cast<ETunnelProperty>(tunnelProperty);
    m_excavationProperty = static_cast<EExcavationProperty>(excavationProperty);
}

} // namespace Tevra::Data
