#pragma once

#include <stdexcept>
#include <string>

namespace Tevra::FileIO {

// A model file that cannot be read or written. The message names the file, where in
// it (JSON path or byte offset, and the module) and what is wrong.
class CDataFileError : public std::runtime_error {
  public:
    explicit CDataFileError(const std::string& message) : std::runtime_error(message) {}
};

} // namespace Tevra::FileIO
