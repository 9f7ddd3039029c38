#pragma once

// What the tests of the host share: a run of zorvo in-process, a scratch directory that
// goes when the test ends, and a file's bytes.
#include "host/ZorvoHost.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace Tevra::Testing {

const std::string kSource = ZORVO_SOURCE_DIR;

struct Outcome {
    int status;
    std::string out, err;
};

inline Outcome Zorvo(const std::vector<std::string>& args, CEvent* interrupt = nullptr) {
    std::ostringstream out, err;
    const int status = RunZorvo(args, out, err, interrupt);
    return {status, out.str(), err.str()};
}

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

struct TempDir {
    std::string path;
    TempDir() {
        char pattern[] = "/tmp/zorvo-test-XXXXXX";
        path = mkdtemp(pattern);
    }
    ~TempDir() { std::system(("rm -rf '" + path + "'").c_str()); }
};

} // namespace Tevra::Testing
