#pragma once

#include "base/BaseEntity.h"
#include "base/CString.h"
#include "sources/GeoTunnel.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// Kind of analysis: ground movements of tunnels, excavations and imported sets, or mines.
enum EProblemType { eGroundMovement = 1, eMine = 2 };

// General analysis options of a project.
class GeoZorvoGeneral : public BaseEntity {
  public:
    GeoZorvoGeneral() = default;
    void Empty() { *this = GeoZorvoGeneral(); }

    EProblemType GetProblemType() const { return m_problemType; }
    void SetProblemType(EProblemType t) { m_problemType = t; }
    // "MINE" is a mine analysis; any other text a ground movement analysis.
    static EProblemType MapCStrToProblemTypeEnum(const CString& text);
    // "TUNNEL", "MINE", or "Unknown Type" for a value that is neither.
    static CString GetProblemTypeStr(EProblemType t);

    // Kept for old files; the calculation reads each tunnel's own derivations.
    GeoTunnel::EkDerivation GetkDerivation() const { return m_kDerivation; }
    void SetkDerivation(GeoTunnel::EkDerivation d) { m_kDerivation = d; }
    int GetNewAndBowers() const { return m_newAndBowers; }
    void SetNewAndBowers(int v) { m_newAndBowers = v; }

    // The record in the model file: the problem type alone.
    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file, int generation);

    bool operator==(const GeoZorvoGeneral& o) const {
        return m_problemType == o.m_problemType && m_kDerivation == o.m_kDerivation &&
               m_newAndBowers == o.m_newAndBowers;
    }

  private:
    EProblemType m_problemType = eGroundMovement;
    GeoTunnel::EkDerivation m_kDerivation = GeoTunnel::ekOReillyAndNew;
    int m_newAndBowers = 0;
};

} // namespace Tevra::Data
