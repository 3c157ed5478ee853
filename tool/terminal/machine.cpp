#include "terminal/machine.h"

#ifdef _WIN32

#include <windows.h>

double machine_memory() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof(status);
    return GlobalMemoryStatusEx(&status) != 0 ? static_cast<double>(status.ullTotalPhys) : 0.0;
}

#else

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

double machine_memory() {
    double bytes = static_cast<double>(::sysconf(_SC_PHYS_PAGES)) *
                   static_cast<double>(::sysconf(_SC_PAGESIZE));
    rlimit limit{};
    if (::getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY) {
        bytes = std::min(bytes, static_cast<double>(limit.rlim_cur));
    }
    // A container's own limit; "max" where there is none.
    double group = 0.0;
    if (std::ifstream("/sys/fs/cgroup/memory.max") >> group && group > 0.0) {
        bytes = std::min(bytes, group);
    }
    return bytes;
}

#endif
