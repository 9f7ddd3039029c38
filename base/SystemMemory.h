#pragma once

#include <string>

namespace Tevra {

// How much memory this process can count on: the machine's physical memory, lowered by
// any limit set on the process (ulimit -v, ulimit -d) or on its control group.
class SystemMemory {
  public:
    // Bytes; 4 GB when the system does not say.
    static double Bytes();
    // Where the figure comes from, for messages: "this machine has" or "this process may use".
    static const char* Source();
    // A size for people, in binary units: "23.4 GB", "512 MB", or "1.7e21 bytes" from a
    // terabyte up.
    static std::string Describe(double bytes);
};

} // namespace Tevra
