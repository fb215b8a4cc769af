// The lane sum: the one summation of float products whose rounding depends
// on where the data lies.
//
//   laneDot(a, b, K, start)   start + sum of a[k]*b[k], k = 0..K-1
//   laneSquares(x, K, start)  start + sum of x[k]*x[k]
//
// Two four-lane accumulators p and q take steps of eight elements from the
// first element of b that lies on a 16-byte boundary.  The `peel` elements
// before it, (16 - b mod 16) / 4 of them (0 when b is aligned), are added
// one by one to the running sum t, which starts at `start`; p begins as
// (t, 0, 0, 0) and q as zero.  After the steps s = p + q, the total is
// (s0 + s1) + (s2 + s3), and the remaining elements are added to it one by
// one, ascending.  When b is not on a 4-byte boundary, or fewer than
// peel + 8 elements are given, the sum is plain: start + a[0]*b[0] + ...,
// ascending.  Every product and sum rounds to float.
//
// Only b's address decides; a may lie anywhere (its loads are unaligned).
// A block of b aligned to 64 bytes therefore takes the peel-0 form.  A start
// of 0.0f gives the sum from zero, so products that are all -0.0 sum to +0.0.
//
// Isa is simd::Sse for the library and simd::Scalar for its twin; both give
// the same bits.
#pragma once

#include <cstdint>

#include "frame/simd.h"
#include "frame/view.h"

namespace kel {

// Elements before the first 16-byte boundary at or after p, for a p on a
// 4-byte boundary.
inline int32_t peelTo16(const void* p)
{
    const auto addr = reinterpret_cast<std::uintptr_t>(p);
    return addr % 16 == 0 ? 0 : static_cast<int32_t>((16 - addr % 16) / 4);
}

template <class Isa = simd::Sse>
inline float laneDot(const float* a, const float* b, int32_t K, float start = 0.0f)
{
    using P = simd::Pack<Isa, float>;
    const int32_t peel = peelTo16(b);
    float t = start;
    if (reinterpret_cast<std::uintptr_t>(b) % 4 != 0 || peel + 8 > K) {
        for (int32_t k = 0; k < K; ++k) t = t + load<float>(a + k) * load<float>(b + k);
        return t;
    }
    for (int32_t k = 0; k < peel; ++k) t = t + load<float>(a + k) * b[k];
    P p = P::first(t), q = P::splat(0.0f);
    const int32_t end = K - (K - peel) % 8;
    for (int32_t k = peel; k < end; k += 8) {
        p = p + P::load(a + k) * P::loadAligned(b + k);
        q = q + P::load(a + k + 4) * P::loadAligned(b + k + 4);
    }
    float total = simd::sumPairs(p + q);
    for (int32_t k = end; k < K; ++k) total = total + load<float>(a + k) * b[k];
    return total;
}

template <class Isa = simd::Sse>
inline float laneSquares(const float* x, int32_t K, float start = 0.0f)
{
    return laneDot<Isa>(x, x, K, start);
}

}  // namespace kel
