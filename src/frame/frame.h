// The road of a call: checks in the member's order, the work estimate
// against the member's limit, then a serial kernel or the parallel driver.
//
// A family's front end hands this file its views, its member traits (from
// the member table beside the family) and a kernel object:
//
//   KelStatus kernel(int32_t count, void* scratch, const V&... views) const
//
// The kernel computes `count` objects starting at the first object of each
// array view.  It is the same function on every path: alone on the whole
// array, or once per thread on a contiguous block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>

#include <omp.h>

#include "kelm.h"
#include "kelcore.h"
#include "view.h"

namespace kel {

// Sizes of a call; a size the member does not take keeps the value 1 and so
// passes every test.
struct Sizes {
    int32_t W = 1, H = 1;      // width, height
    int32_t L = 1;             // len
    int32_t N = 1;             // size of a square matrix
    int32_t C = 1;             // count
    int32_t W1 = 1, H1 = 1, W2 = 1, H2 = 1;  // sizes of two stored operands
    int32_t L2 = 1, L3 = 1;    // lengths of the vector operands src2, src3
};

// Work estimate: 32-bit arithmetic that wraps; a negative result counts as
// small.
using Estimate = int32_t (*)(const Sizes&);

constexpr int32_t kSerialOnly = INT32_MAX;  // limit of a member without driver

// What distinguishes one member from its fellows.
//   order  check steps, run left to right; the first failure is returned:
//          N null pointers, C count, Z sizes, M size mismatch,
//          B all strides, b strides but Stride0, 0 Stride0 when count > 1,
//          R ROI shifts; by side: r s the sources' ROI shifts and strides,
//          o d the destinations' ROI shifts and strides
//   estimate, limitPacked, limitStrided: a null estimate runs the kernel
//          serially on all objects (single objects, families without driver)
struct Traits {
    const char* order;
    Estimate estimate;
    int32_t limitPacked;
    int32_t limitStrided;
};

namespace detail {
template <class... V>
inline bool anyNull(const V&... v)
{
    return (v.null() || ...);
}
template <class... V>
inline bool anyBadStride(bool withStride0, const V&... v)
{
    return (v.badStrides(withStride0) || ...);
}
template <class... V>
inline bool anyBadStride0(const V&... v)
{
    return (v.badStride0() || ...);
}
template <class... V>
inline bool anyBadRoi(const V&... v)
{
    return (v.badRoi() || ...);
}
// The same tests on the operands of one side only: sources (read) or
// destinations (written).
template <class... V>
inline bool anyBadStrideOf(bool written, const V&... v)
{
    return ((V::written == written && v.badStrides(true)) || ...);
}
template <class... V>
inline bool anyBadRoiOf(bool written, const V&... v)
{
    return ((V::written == written && v.badRoi()) || ...);
}
inline bool badSizes(const Sizes& s)
{
    return s.W < 1 || s.H < 1 || s.L < 1 || s.N < 1 || s.W1 < 1 || s.H1 < 1 || s.W2 < 1 || s.H2 < 1 || s.L2 < 1 ||
           s.L3 < 1;
}
}  // namespace detail

// Orders have at most kMaxSteps steps (the generator refuses longer ones).
constexpr int kMaxSteps = 8;

// Runs the member's checks.  `mismatch` answers the M step; it is only
// called when the member has that step and the earlier steps passed.  The
// loop has a fixed bound so that the compiler unrolls it and, the member's
// order being a constant at every call, keeps only that member's steps in
// their order.
template <class Mismatch, class... V>
inline KelStatus check(const Traits& tr, const Sizes& s, Mismatch&& mismatch, const V&... v)
{
#pragma GCC unroll 8
    for (int i = 0; i < kMaxSteps; ++i) {
        const char step = tr.order[i];
        if (step == '\0') break;
        switch (step) {
        case 'N':
            if (detail::anyNull(v...)) return kelStsNullPointer;
            break;
        case 'C':
            if (s.C < 1) return kelStsBadCount;
            break;
        case 'Z':
            if (detail::badSizes(s)) return kelStsBadSize;
            break;
        case 'M':
            if (mismatch()) return kelStsSizeMismatch;
            break;
        case 'B':
            if (detail::anyBadStride(true, v...)) return kelStsBadStride;
            break;
        case 'b':
            if (detail::anyBadStride(false, v...)) return kelStsBadStride;
            break;
        case '0':
            if (s.C > 1 && detail::anyBadStride0(v...)) return kelStsBadStride;
            break;
        case 'R':
            if (detail::anyBadRoi(v...)) return kelStsBadRoiShift;
            break;
        case 'r':
        case 'o':
            if (detail::anyBadRoiOf(step == 'o', v...)) return kelStsBadRoiShift;
            break;
        case 's':
        case 'd':
            if (detail::anyBadStrideOf(step == 'd', v...)) return kelStsBadStride;
            break;
        default:
            break;
        }
    }
    return kelStsNoErr;
}

inline bool noMismatch() { return false; }

// Packed: every operand that has a Stride2 has the element size there.
template <class... V>
inline bool allPacked(const V&... v)
{
    return (v.packed() && ...);
}

// Stores a failing status into the team's shared status if it is still 0,
// inside the one critical section of the library.
void storeTeamStatus(KelStatus* shared, KelStatus st);

// Scratch for a team: `bytes` for each of `threads` threads.
void* teamScratchAlloc(std::size_t bytes);
void teamScratchFree(void* p);

// What a family tells the driver beyond its kernel.
struct DriverInfo {
    std::size_t scratchBytes = 0;  // one thread's need; 0: no scratch
    void* callerScratch = nullptr; // the caller's pBuffer, for serial runs
    bool reportsStatus = false;    // kernels can fail: status leaves the team
};

// A kernel with a twin for the slices of a forked team.  Most families
// pass one kernel, which serves both roles; a family whose serial kernel
// refuses what its team's kernel accepts passes both with teamKernel().
// The serial one runs wherever the whole array is computed by one call:
// below the limit, and in the driver's fallback.
template <class Serial, class Team>
struct KernelPair {
    Serial serial;
    Team team;
};
template <class Serial, class Team>
inline KernelPair<Serial, Team> teamKernel(const Serial& serial, const Team& team)
{
    return {serial, team};
}

namespace detail {
template <class K>
inline const K& serialOf(const K& k)
{
    return k;
}
template <class S, class T>
inline const S& serialOf(const KernelPair<S, T>& k)
{
    return k.serial;
}
template <class K>
inline const K& teamOf(const K& k)
{
    return k;
}
template <class S, class T>
inline const T& teamOf(const KernelPair<S, T>& k)
{
    return k.team;
}
}  // namespace detail

// Parallel driver: asks for a thread count, and either runs the kernel on
// the whole array or forks a team in which each thread runs it on one
// contiguous block of objects.
template <class Kernel, class... V>
KelStatus drive(const DriverInfo& info, const Kernel& kernels, int32_t count, const V&... v)
{
    const auto& kern = detail::teamOf(kernels);
    const int t = ownGetNumThreads();
    if (t < 2 || count < t) return detail::serialOf(kernels)(count, info.callerScratch, v...);

    void* scratch = info.scratchBytes ? teamScratchAlloc(info.scratchBytes * static_cast<std::size_t>(t)) : nullptr;
    KelStatus shared = kelStsNoErr;
    int32_t team = 1, q = 0, r = 0;
    const std::tuple<V...> views(v...);
#pragma omp parallel num_threads(ownGetNumThreads()) default(shared)
    {
#pragma omp master
        {
            team = omp_get_num_threads();
            q = count / team;
            r = count % team;
        }
#pragma omp barrier
        const int32_t k = omp_get_thread_num();
        const int32_t n = k < r ? q + 1 : q;
        const int32_t first = k < r ? (q + 1) * k : (q + 1) * r + (k - r) * q;
        if (n > 0) {
            void* mine = scratch ? static_cast<char*>(scratch) + info.scratchBytes * static_cast<std::size_t>(k) : nullptr;
            KelStatus st = std::apply([&](const V&... w) { return kern(n, mine, w.slice(first)...); }, views);
            if (info.reportsStatus && st != kelStsNoErr) storeTeamStatus(&shared, st);
        }
    }
    if (scratch) teamScratchFree(scratch);
    return info.reportsStatus ? shared : kelStsNoErr;
}

// The common road after the checks: a single object or an array below its
// limit runs the kernel serially; an array at or above it goes to the driver.
template <class Kernel, class... V>
KelStatus dispatch(const Traits& tr, const Sizes& s, const DriverInfo& info, const Kernel& kern, const V&... v)
{
    // Single objects (count stays 1) and families without a driver.
    const auto& serial = detail::serialOf(kern);
    if (tr.estimate == nullptr) return serial(s.C, info.callerScratch, v...);
    const int32_t limit = allPacked(v...) ? tr.limitPacked : tr.limitStrided;
    if (limit == kSerialOnly || tr.estimate(s) < limit) return serial(s.C, info.callerScratch, v...);
    return drive(info, kern, s.C, v...);
}

// Checks, then dispatch: the whole front end of most members.
template <class Mismatch, class Kernel, class... V>
KelStatus run(const Traits& tr, const Sizes& s, Mismatch&& mismatch, const DriverInfo& info, const Kernel& kern,
              const V&... v)
{
    if (KelStatus st = check(tr, s, mismatch, v...)) return st;
    return dispatch(tr, s, info, kern, v...);
}

}  // namespace kel
