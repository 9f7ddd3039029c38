#pragma once

#include "base/CBasicList.h"
#include "base/NamedEntity.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A construction stage: which tunnels, excavations and imported displacement sets
// exist at this step, as lists of 1-based record numbers.
class CStage : public NamedEntity {
  public:
    CStage() : NamedEntity(0, L"Stage #") {}
    // Back to the defaults; the enabled flag is kept.
    void Empty() {
        const bool enabled = m_enabled;
        *this = CStage();
        m_enabled = enabled;
    }

    static int GetVersion() { return m_iVer; }

    bool GetEnabled() const { return m_enabled; }
    void SetEnabled(bool on) { m_enabled = on; }
    bool AreSmoothedResultsCalculated() const { return m_smoothedResults; }
    void SetSmoothedResults(bool on) { m_smoothedResults = on; }
    const CBasicList& GetTunnels() const { return m_tunnels; }
    void SetTunnels(const CBasicList& l) { m_tunnels = l; }
    const CBasicList& GetPolygonalExcavations() const { return m_polygonal; }
    void SetPolygonalExcavations(const CBasicList& l) { m_polygonal = l; }
    const CBasicList& GetCircularExcavations() const { return m_circular; }
    void SetCircularExcavations(const CBasicList& l) { m_circular = l; }
    const CBasicList& GetImportedDisplacementSets() const { return m_imported; }
    void SetImportedDisplacementSets(const CBasicList& l) { m_imported = l; }

    // The record in the model file: its generation first, then its fields.
    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file, int generation);

    bool operator==(const CStage& o) const {
        return Name() == o.Name() && m_enabled == o.m_enabled &&
               m_smoothedResults == o.m_smoothedResults && m_tunnels == o.m_tunnels &&
               m_polygonal == o.m_polygonal && m_circular == o.m_circular &&
               m_imported == o.m_imported;
    }

  private:
    static const int m_iVer = 4;

    bool m_enabled = true;
    bool m_smoothedResults = false;
    CBasicList m_tunnels;
    CBasicList m_polygonal;
    CBasicList m_circular;
    CBasicList m_imported;
};

} // namespace Tevra::Data
