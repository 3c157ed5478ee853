#include "check/machine.h"

#include <limits>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

double physical_memory() {
#ifdef _WIN32
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (GlobalMemoryStatusEx(&status) != 0) {
        return static_cast<double>(status.ullTotalPhys);
    }
#else
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long page = ::sysconf(_SC_PAGESIZE);
    if (pages > 0 && page > 0) {
        return static_cast<double>(pages) * static_cast<double>(page);
    }
#endif
    return std::numeric_limits<double>::infinity();
}
