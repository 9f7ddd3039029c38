#include "SystemMemory.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace Tevra {

namespace {

double PhysicalBytes() {
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long size = ::sysconf(_SC_PAGE_SIZE);
    return pages > 0 && size > 0 ? static_cast<double>(pages) * static_cast<double>(size) : 0.0;
}

// The tighter of the process's address space and data limits; 0 when neither is set.
double ProcessLimit() {
    double limit = 0.0;
    for (int resource : {RLIMIT_AS, RLIMIT_DATA}) {
        rlimit r{};
        if (::getrlimit(resource, &r) == 0 && r.rlim_cur != RLIM_INFINITY) {
            const double v = static_cast<double>(r.rlim_cur);
            if (limit == 0.0 || v < limit)
                limit = v;
        }
    }
    return limit;
}

// The memory limit of the control group (cgroup v2), when one is set.
double GroupLimit() {
    std::ifstream in("/sys/fs/cgroup/memory.max");
    double v = 0.0;
    if (in >> v)
        return v;
    return 0.0; // "max", or no such file
}

struct Reading {
    double bytes;
    bool limited;
};

// Where the system does not say, a small machine of 4 GB.
constexpr double kUnknownMemory = 4.0 * 1024 * 1024 * 1024;

Reading Read() {
    Reading r{PhysicalBytes(), false};
    if (r.bytes == 0.0)
        r.bytes = kUnknownMemory;
    for (double limit : {ProcessLimit(), GroupLimit()}) {
        if (limit > 0.0 && (r.bytes == 0.0 || limit < r.bytes))
            r = {limit, true};
    }
    return r;
}

} // namespace

double SystemMemory::Bytes() { return Read().bytes; }

const char* SystemMemory::Source() {
    return Read().limited ? "this process may use" : "this machine has";
}

std::string SystemMemory::Describe(double bytes) {
    constexpr double KB = 1024.0, MB = KB * KB, GB = MB * KB;
    char buf[64];
    if (bytes >= 1024.0 * GB) {
        const int exponent = static_cast<int>(std::floor(std::log10(bytes)));
        std::snprintf(buf, sizeof buf, "%.1fe%d bytes", bytes / std::pow(10.0, exponent), exponent);
    } else if (bytes >= GB) {
        std::snprintf(buf, sizeof buf, "%.1f GB", bytes / GB);
    } else if (bytes >= MB) {
        std::snprintf(buf, sizeof buf, "%.1f MB", bytes / MB);
    } else {
        std::snprintf(buf, sizeof buf, "%.0f KB", bytes / KB);
    }
    return buf;
}

} // namespace Tevra
