#include "CStdioFile.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace Tevra {

CStdioFile::CStdioFile(std::ostream& out) : m_out(&out) {}

CStdioFile::CStdioFile(const std::string& path)
    : m_own(std::make_unique<std::ofstream>(path, std::ios::binary | std::ios::trunc)),
      m_out(m_own.get()), m_path(path) {
    if (!*m_own)
        Fail("cannot open the file for writing");
}

void CStdioFile::Fail(const char* what) const {
    const std::string reason = errno != 0 ? std::strerror(errno) : "the stream refused it";
    throw std::runtime_error((m_path.empty() ? std::string("the output") : m_path) + ": " + what +
                             ": " + reason);
}

void CStdioFile::WriteString(const CString& text) {
    errno = 0;
    const std::string bytes = text.ToUtf8();
    m_out->write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!*m_out)
        Fail("cannot write");
}

void CStdioFile::Close() {
    errno = 0;
    if (m_own) {
        if (m_own->is_open())
            m_own->close();
    } else {
        m_out->flush();
    }
    if (!*m_out)
        Fail("cannot write");
}

} // namespace Tevra
