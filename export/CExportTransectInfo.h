#pragma once

#include "base/CString.h"

#include <array>

namespace Tevra::Data {

// The choice of the transect columns of a generic result table: the transect's number and
// the coordinates of its start and end. Every column is on at construction.
class CExportTransectInfo {
  public:
    // A column: its key in the profile store and its switch.
    struct SColumn {
        const wchar_t* key;
        bool CExportTransectInfo::*on;
    };
    // The seven columns in the order of the table's cells.
    static const std::array<SColumn, 7>& Columns();

    // Each column from the profile store at (section, its key), the present choice standing
    // where nothing is stored; a stored non-zero value turns the column on.
    void RestoreFromRegistry(CString section);
    // Each column to the profile store at (section, its key), as 1 or 0.
    void SaveToRegistry(CString section);
    // True when no column is on.
    bool None() const;

    bool GetNo() const { return m_bNo; }
    void SetNo(bool b) { m_bNo = b; }
    bool GetStartX() const { return m_bStartX; }
    void SetStartX(bool b) { m_bStartX = b; }
    bool GetStartY() const { return m_bStartY; }
    void SetStartY(bool b) { m_bStartY = b; }
    bool GetStartZ() const { return m_bStartZ; }
    void SetStartZ(bool b) { m_bStartZ = b; }
    bool GetEndX() const { return m_bEndX; }
    void SetEndX(bool b) { m_bEndX = b; }
    bool GetEndY() const { return m_bEndY; }
    void SetEndY(bool b) { m_bEndY = b; }
    bool GetEndZ() const { return m_bEndZ; }
    void SetEndZ(bool b) { m_bEndZ = b; }

  private:
    bool m_bNo = true;
    bool m_bStartX = true;
    bool m_bStartY = true;
    bool m_bStartZ = true;
    bool m_bEndX = true;
    bool m_bEndY = true;
    bool m_bEndZ = true;
};

} // namespace Tevra::Data
