#include "host/ZorvoHost.h"

#include <csignal>
#include <iostream>

namespace {

// Set by Ctrl-C; the solver's cancel test reads it from every thread.
std::atomic<bool> g_interrupted{false};

extern "C" void OnInterrupt(int) { g_interrupted.store(true); }

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGINT, OnInterrupt);
    return Tevra::RunZorvo(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr,
                           &g_interrupted);
}
