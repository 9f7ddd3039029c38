#include "CTitles.h"

#include "CDataFile.h"
#include "JsonNameID.h"

namespace Tevra::Data {

using namespace FileIO;

void CTitles::Write(CDataFile& f) const {
    f.BeginObject(jnTitles);
    f.WriteString(jnTitle, m_title);
    f.WriteString(jnProject, m_project);
    f.WriteString(jnEngineer, m_engineer);
    f.WriteString(jnDateSaved, m_dateSaved);
    f.WriteString(jnComments, m_comments);
    f.EndObject();
}

void CTitles::Read(CDataFile& f) {
    if (!f.EnterObject(jnTitles, false))
        return;
    f.ReadString(jnTitle, m_title, false);
    f.ReadString(jnProject, m_project, false);
    f.ReadString(jnEngineer, m_engineer, false);
    f.ReadString(jnDateSaved, m_dateSaved, false);
    f.ReadString(jnComments, m_comments, false);
    f.LeaveObject();
}

} // namespace Tevra::Data
