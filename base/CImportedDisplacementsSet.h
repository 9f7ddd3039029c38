#pragma once

#include "CImportedDisplacement.h"
#include "CString.h"
#include "NamedEntity.h"

#include <memory>
#include <vector>

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
