#pragma once

#include "base/CStdioFile.h"

#include <stdexcept>
#include <string>
#include <unistd.h>

namespace Tevra {

// Writes a result table to path through write(file) and answers the path. Throws
// std::runtime_error when it cannot be written, leaving no part of it behind: a table cut
// short by a full disk must not pass for a whole one.
template <class Write> std::string WriteTableFile(const std::string& path, Write write) {
    CStdioFile file(path);
    try {
        write(file);
        file.Close();
    } catch (const std::runtime_error& e) {
        ::unlink(path.c_str());
        throw std::runtime_error(std::string(e.what()) + "; the unfinished table is removed");
    }
    return path;
}

} // namespace Tevra
