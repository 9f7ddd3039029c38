#pragma once

#include "CString.h"

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// The title record of a project file: what the project is, who did it, when it was
// last saved.
class CTitles {
  public:
    const CString& GetTitle() const { return m_title; }
    void SetTitle(const CString& s) { m_title = s; }
    const CString& GetProject() const { return m_project; }
    void SetProject(const CString& s) { m_project = s; }
    const CString& GetEngineer() const { return m_engineer; }
    void SetEngineer(const CString& s) { m_engineer = s; }
    // Date of the last save, as "YYYY-MM-DD".
    const CString& GetDateSaved() const { return m_dateSaved; }
    void SetDateSaved(const CString& s) { m_dateSaved = s; }
    const CString& GetComments() const { return m_comments; }
    void SetComments(const CString& s) { m_comments = s; }

    void Write(FileIO::CDataFile& file) const;
    void Read(FileIO::CDataFile& file);

    bool operator==(const CTitles& o) const {
        return m_title == o.m_title && m_project == o.m_project && m_engineer == o.m_engineer &&
               m_dateSaved == o.m_dateSaved && m_comments == o.m_comments;
    }

  private:
    CString m_title;
    CString m_project;
    CString m_engineer;
    CString m_dateSaved;
    CString m_comments;
};

} // namespace Tevra::Data
