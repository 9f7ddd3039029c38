#include "host/ZorvoHost.h"

#include <csignal>
#include <iostream>

namespace {

// Signalled by Ctrl-C; the checks and the solver's loops test it from every thread.
Tevra::CEvent g_interrupt;

// The first Ctrl-C asks the job to stop and keep what it has; a second one ends the
// process at once.
extern "C" void OnInterrupt(int) {
    if (g_interrupt.IsSignalled()) {
        std::signal(SIGINT, SIG_DFL);
        std::raise(SIGINT);
        return;
    }
    g_interrupt.SetEvent();
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGINT, OnInterrupt);
    try {
        return Tevra::RunZorvo(std::vector<std::string>(argv + 1, argv + argc), std::cout,
                               std::cerr, &g_interrupt);
    } catch (...) {
        std::cerr << "zorvo: internal failure while reporting\n";
        return 3;
    }
}
