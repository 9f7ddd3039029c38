#pragma once

#include "CImportedDisplacement.h"
#include "CString.h"
#include "NamedEntity.h"

#include <memory>
#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A named set of imported displacements, in the order they were imported, with the name
// of the file they came from.
class CImportedDisplacementsSet : public NamedEntity {
  public:
    explicit CImportedDisplacementsSet(const CString& name = CString()) : NamedEntity(0, name) {}

    int NumDisplacements() const { return static_cast<int>(m_displacements.size()); }
    const std::vector<CImportedDisplacement>& GetDisplacements() const { return m_displacements; }
    void SetDisplacements(const std::vector<CImportedDisplacement>& d) { m_displacements = d; }
    void AddDisplacement(const CImportedDisplacement& d) { m_displacements.push_back(d); }

    // The file the displacements were read from; empty when typed in.
    const CString& ReadFileName() const { return m_fileName; }
    void SetReadFileName(const CString& fileName) { m_fileName = fileName; }

    // The set in the model file: its name, its file name, then its points (x, y, z),
    // their displacements (x, y, z) and their match bits, each as one list of numbers.
    // Generations below 2 have no match bits; the JSON form (generation -1) may leave
    // them out. A list of the wrong length, a value that is not a finite number, or match
    // bits that are not a whole number from 0 is refused with a read error.
    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file, int generation);
    // Generation of the record, with the match bits.
    static int GetVersion() { return 2; }

    std::unique_ptr<CImportedDisplacementsSet> Clone() const {
        return std::make_unique<CImportedDisplacementsSet>(*this);
    }

    bool operator==(const CImportedDisplacementsSet& o) const {
        return Name() == o.Name() && m_fileName == o.m_fileName &&
               m_displacements == o.m_displacements;
    }

  private:
    std::vector<CImportedDisplacement> m_displacements;
    CString m_fileName;
};

} // namespace Tevra::Data
