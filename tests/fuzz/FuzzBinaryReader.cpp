// libFuzzer target: the binary form of the model file. The header is supplied so that
// the fuzzer spends its time on modules and records.
#include "FuzzModelFile.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string bytes("ZORVOBIN\x01\x00\x00\x00", 12);
    bytes.append(reinterpret_cast<const char*>(data), size);
    FuzzModelFile(bytes);
    return 0;
}
