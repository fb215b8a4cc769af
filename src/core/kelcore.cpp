// libkelcore: thread count and cache size for libkelmq4.
#include "kelcore.h"

#include <omp.h>
#include <unistd.h>

#include <atomic>
#include <climits>
#include <cstdio>

namespace {

std::atomic<int> g_threads{0};  // 0: use the OpenMP default

// Largest cache size reported by sysfs for cpu0, in bytes; 0 if unknown.
int readLargestCache()
{
    long best = 0;
    for (int idx = 0; idx < 16; ++idx) {
        char path[96];
        std::snprintf(path, sizeof path, "/sys/devices/system/cpu/cpu0/cache/index%d/size", idx);
        FILE* f = std::fopen(path, "r");
        if (!f) break;
        long v = 0;
        char unit = 0;
        int got = std::fscanf(f, "%ld%c", &v, &unit);
        std::fclose(f);
        if (got < 1) continue;
        if (unit == 'K' || unit == 'k') v *= 1024;
        else if (unit == 'M' || unit == 'm') v *= 1024L * 1024;
        if (v > best) best = v;
    }
#ifdef _SC_LEVEL3_CACHE_SIZE
    if (best == 0) {
        long levels[] = {sysconf(_SC_LEVEL3_CACHE_SIZE), sysconf(_SC_LEVEL2_CACHE_SIZE),
                         sysconf(_SC_LEVEL1_DCACHE_SIZE)};
        for (long v : levels)
            if (v > best) best = v;
    }
#endif
    return best > INT_MAX ? INT_MAX : static_cast<int>(best);
}

}  // namespace

extern "C" {

int ownGetNumThreads(void)
{
    int n = g_threads.load(std::memory_order_relaxed);
    return n > 0 ? n : omp_get_max_threads();
}

void kelSetNumThreads(int n) { g_threads.store(n > 0 ? n : 0, std::memory_order_relaxed); }

int kelGetNumThreads(void) { return ownGetNumThreads(); }

int kelGetMaxCacheSizeB(int* size)
{
    static const int cached = readLargestCache();
    if (size) *size = cached;
    return 0;
}

}  // extern "C"
