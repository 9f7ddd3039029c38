#pragma once

#include "base/CString.h"
#include "base/NamedEntity.h"

#include <memory>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// The section of a pipe: its bore and wall thickness (metres). The standard library's
// rows are read-only; a user's rows are editable.
class CUtilityDimension : public NamedEntity {
  public:
    explicit CUtilityDimension(bool editable = true);
    virtual ~CUtilityDimension() = default;
    CUtilityDimension(const CUtilityDimension&) = default;
    CUtilityDimension& operator=(const CUtilityDimension&) = default;

    virtual std::unique_ptr<CUtilityDimension> Clone() const {
        return std::make_unique<CUtilityDimension>(*this);
    }
    // The record: generation, name, internal diameter, wall thickness. Only the user's
    // rows are written, so a row read is editable.
    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of the record in the model file.
    static int GetVersion() { return m_iVer; }

    bool GetEditable() const { return m_editable; }
    void SetEditable(bool b) { m_editable = b; }
    // Bore of the pipe (metres).
    double GetInternalDiameter() const { return m_internalDiameter; }
    void SetInternalDiameter(double d) { m_internalDiameter = d; }
    // Wall thickness (metres).
    double GetWallThickness() const { return m_wallThickness; }
    void SetWallThickness(double t) { m_wallThickness = t; }
    // External diameter (metres): internal diameter + 2 x wall thickness.
    double GetDiameter() const { return m_internalDiameter + 2.0 * m_wallThickness; }

    bool operator==(const CUtilityDimension& o) const;
    bool operator!=(const CUtilityDimension& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 2;

    bool m_editable;
    double m_internalDiameter = 1.0;
    double m_wallThickness = 0.005;
};

} // namespace Tevra::Data
