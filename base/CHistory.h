#pragma once

#include "CString.h"

#include <vector>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// One line of a file's history: when, by which program, and what was done.
struct SHistoryEntry {
    CString date;
    CString program;
    CString description;
    bool operator==(const SHistoryEntry& o) const {
        return date == o.date && program == o.program && description == o.description;
    }
};

// The history of a project file, oldest first.
class CHistory {
  public:
    int NumRecord() const { return static_cast<int>(m_entries.size()); }
    const SHistoryEntry& Get(int n) const { return m_entries[static_cast<size_t>(n - 1)]; }
    void Add(const SHistoryEntry& e) { m_entries.push_back(e); }
    void Clear() { m_entries.clear(); }

    // Record n (1-based) of the history module, and one read back and appended.
    void WriteRecord(FileIO::CDataFile& file, int n) const;
    void ReadRecord(FileIO::CDataFile& file);

    bool operator==(const CHistory& o) const { return m_entries == o.m_entries; }

  private:
    std::vector<SHistoryEntry> m_entries;
};

} // namespace Tevra::Data
