// Fixed-size geometry: vectors of 2, 3 or 4 floats and 4x4 float matrices
// at plain pointers, row-major, row vectors multiplying from the left.
//
// The pieces that several members share live here, each written once: the
// length and cross product that the view matrices use, and the row sums of
// a 4x4 matrix that products, transforms and projections use.  Every sum
// keeps its order: results are compared bit for bit.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

#include "frame/simd.h"
#include "kelm.h"

namespace kel::geometry {

// ---- vectors ------------------------------------------------------------------

// x*x + y*y, then + z*z, then + w*w, in float.
template <int N>
inline float sumSquares(const float* v)
{
    float s = v[0] * v[0] + v[1] * v[1];
    if constexpr (N > 2) s = s + v[2] * v[2];
    if constexpr (N > 3) s = s + v[3] * v[3];
    return s;
}

// A float sum of squares, its double square root, rounded to float.
inline float lengthOf(float sumSq) { return static_cast<float>(std::sqrt(static_cast<double>(sumSq))); }

template <int N>
inline void divideBy(const float* src, float len, float* dst)
{
    float out[N];
    for (int i = 0; i < N; ++i) out[i] = src[i] / len;
    std::memcpy(dst, out, sizeof out);
}

// Normalize of 2- and 3-vectors; the 4-vector sums in its own order (see
// vectors.cpp).  A zero vector gives NaNs.
template <int N>
inline void normalize(const float* src, float* dst)
{
    divideBy<N>(src, lengthOf(sumSquares<N>(src)), dst);
}

// Each component is stored before the next is computed.
inline void cross3(const float* a, const float* b, float* d)
{
    d[0] = a[1] * b[2] - a[2] * b[1];
    d[1] = a[2] * b[0] - a[0] * b[2];
    d[2] = a[0] * b[1] - a[1] * b[0];
}

template <int N>
inline float dot(const float* a, const float* b)
{
    float s = a[0] * b[0];
    for (int i = 1; i < N; ++i) s = s + a[i] * b[i];
    return s;
}

// ---- 4x4 rows -------------------------------------------------------------------

using P = simd::Pack<simd::Sse, float>;

struct M4 {
    P r[4];
    static M4 load(const float* m) { return {{P::load(m), P::load(m + 4), P::load(m + 8), P::load(m + 12)}}; }
    void store(float* m) const
    {
        for (int i = 0; i < 4; ++i) r[i].store(m + 4 * i);
    }
};

// (x*R0 + y*R1) + (z*R2 + w*R3): a 4-vector times the matrix.
inline P rowsTimes4(const M4& m, P x, P y, P z, P w) { return (x * m.r[0] + y * m.r[1]) + (z * m.r[2] + w * m.r[3]); }

// ((a0*B0 + a1*B1) + a2*B2) + a3*B3: one row of a matrix product.
inline P productRow(P a, const M4& b)
{
    return ((simd::spread<0>(a) * b.r[0] + simd::spread<1>(a) * b.r[1]) + simd::spread<2>(a) * b.r[2]) +
           simd::spread<3>(a) * b.r[3];
}

inline M4 product(const M4& a, const M4& b)
{
    return {{productRow(a.r[0], b), productRow(a.r[1], b), productRow(a.r[2], b), productRow(a.r[3], b)}};
}

inline M4 transposed(const M4& m)
{
    __m128 a = m.r[0].v, b = m.r[1].v, c = m.r[2].v, d = m.r[3].v;
    _MM_TRANSPOSE4_PS(a, b, c, d);
    return {{{a}, {b}, {c}, {d}}};
}

}  // namespace kel::geometry
