#include "CHistory.h"

#include "CDataFile.h"
#include "JsonNameID.h"

namespace Tevra::Data {

using namespace FileIO;

void CHistory::WriteRecord(CDataFile& f, int n) const {
    const SHistoryEntry& e = Get(n);
    f.WriteString(jnDate, e.date);
    f.WriteString(jnProgram, e.program);
    f.WriteString(jnDescription, e.description);
}

void CHistory::ReadRecord(CDataFile& f) {
    SHistoryEntry e;
    f.ReadString(jnDate, e.date, false);
    f.ReadString(jnProgram, e.program, false);
    f.ReadString(jnDescription, e.description, false);
    m_entries.push_back(e);
}

} // namespace Tevra::Data
