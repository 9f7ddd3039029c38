#pragma once

#include "base/CBasicList.h"
#include "base/NamedEntity.h"

#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// Kind of record a stage property overrides.
enum EElementType {
    eElementTunnel = 0,
    eElementPolygonalExcavation = 1,
    eElementCircularExcavation = 2
};
// The overridable tunnel value: its diameter.
enum ETunnelProperty { eTunnelDiameter = 0 };
// The overridable excavation value: its base level(s).
enum EExcavationProperty { eExcavationBaseLevels = 0 };

extern const wchar_t* const ELEMENT_TYPE_STRING_IDS[3];
extern const wchar_t* const TUNNEL_PROPERTY_STRING_IDS[1];
extern const wchar_t* const EXCAVATION_PROPERTY_STRING_IDS[1];

// A value that replaces a record's own in one calculation stage: for the listed
// tunnels their diameter, for the listed excavations their base levels (metres).
class CStageProperty : public NamedEntity {
  public:
    CStageProperty() : NamedEntity(0, L"Stage Property #") {}

    static int GetVersion() { return m_iVer; }

    // The calculation stage index the property applies to; -1 applies to none.
    int GetStage() const { return m_stage; }
    void SetStage(int s) { m_stage = s; }
    EElementType GetElementType() const { return m_elementType; }
    void SetElementType(EElementType t) { m_elementType = t; }
    const CBasicList& GetRefs() const { return m_refs; }
    void SetRefs(const CBasicList& l) { m_refs = l; }
    ETunnelProperty GetTunnelProperty() const { return m_tunnelProperty; }
    void SetTunnelProperty(ETunnelProperty p) { m_tunnelProperty = p; }
    EExcavationProperty GetExcavationProperty() const { return m_excavationProperty; }
    void SetExcavationProperty(EExcavationProperty p) { m_excavationProperty = p; }
    const std::vector<double>& GetValues() const { return m_values; }
    void SetValues(const std::vector<double>& v) { m_values = v; }
    int NumValues() const { return static_cast<int>(m_values.size()); }

    // The record in the model file: its generation first, then its fields.
    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file, int generation);

    bool operator==(const CStageProperty& o) const {
        return Name() == o.Name() && m_stage == o.m_stage && m_elementType == o.m_elementType &&
               m_refs == o.m_refs && m_tunnelProperty == o.m_tunnelProperty &&
               m_excavationProperty == o.m_excavationProperty && m_values == o.m_values;
    }

  private:
    static const int m_iVer = 1;

    int m_stage = -1;
    EElementType m_elementType = eElementTunnel;
    CBasicList m_refs;
    ETunnelProperty m_tunnelProperty = eTunnelDiameter;
    EExcavationProperty m_excavationProperty = eExcavationBaseLevels;
    std::vector<double> m_values;
};

} // namespace Tevra::Data
