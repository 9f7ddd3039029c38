// libFuzzer target: the JSON form of the model file.
#include "FuzzModelFile.h"

#include <cstdint>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size >= 8 && std::memcmp(data, "ZORVOBIN", 8) == 0)
        return 0; // the binary form has a target of its own
    FuzzModelFile(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
