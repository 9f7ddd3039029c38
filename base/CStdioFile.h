#pragma once

#include "CString.h"

#include <fstream>
#include <memory>
#include <ostream>
#include <string>

namespace Tevra {

// A text file that the result tables are written to, text by text: either a stream of the
// caller's or a file of its own, opened (and emptied) for writing. Texts are written as
// UTF-8, as they stand: no line ends are added or translated.
class CStdioFile {
  public:
    explicit CStdioFile(std::ostream& out);
    // Throws std::runtime_error naming the file and the reason when it cannot be opened.
    explicit CStdioFile(const std::string& path);
    CStdioFile(const CStdioFile&) = delete;
    CStdioFile& operator=(const CStdioFile&) = delete;

    // Throws std::runtime_error naming the file and the reason when the write fails.
    void WriteString(const CString& text);
    // Flushes and closes a file of its own (a caller's stream is flushed only); throws as
    // WriteString when what was written did not all reach the file.
    void Close();

    // The file's path; empty over a caller's stream.
    const std::string& GetFilePath() const { return m_path; }

  private:
    [[noreturn]] void Fail(const char* what) const;

    std::unique_ptr<std::ofstream> m_own;
    std::ostream* m_out;
    std::string m_path;
};

} // namespace Tevra
