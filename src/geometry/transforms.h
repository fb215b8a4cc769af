// Vector transforms by a 4x4 matrix, each sum written once over a lane type
// so that the same order serves one vector at a time (lanes = columns,
// vector components spread) and four vectors at a time (lanes = vectors,
// matrix elements spread).  Both give the same bits.
#pragma once

#include "frame/view.h"
#include "geometry/geometry.h"

namespace kel::geometry {

enum class Kind { Affine, Coord, Normal };

// Sum of a transform of an N-vector (x, y, z, w as far as N goes) with the
// rows R0..R3 of the matrix.  A multiply keeps the component on the left.
template <Kind K, int N>
struct Sum {
    // Elements written per vector: Affine gives all four lanes.
    static constexpr int kOut = K == Kind::Affine ? 4 : N;

    template <class T>
    static T of(T x, T y, T z, T w, T r0, T r1, T r2, T r3)
    {
        (void)z, (void)w;
        if constexpr (K == Kind::Affine && N == 2) return (r3 + x * r0) + y * r1;
        if constexpr (K == Kind::Affine && N == 3) return ((r3 + x * r0) + y * r1) + z * r2;
        if constexpr (K == Kind::Affine && N == 4) return (x * r0 + y * r1) + (z * r2 + w * r3);
        if constexpr (K == Kind::Coord && N == 2) return (x * r0 + r3) + y * r1;
        if constexpr (K == Kind::Coord && N == 3) return (r3 + z * r2) + (x * r0 + y * r1);
        if constexpr (K == Kind::Normal && N == 2) return x * r0 + y * r1;
        if constexpr (K == Kind::Normal && N == 3) return (x * r0 + y * r1) + z * r2;
        (void)r2, (void)r3;
        return x;
    }
};

// One vector: reads N floats, writes kOut floats (Coord: divided by q[3]).
template <Kind K, int N>
inline void transformOne(const M4& m, const float* src, float* dst)
{
    const P v = N == 4 ? P::load(src) : P::loadPart(src, N);
    P q = Sum<K, N>::of(simd::spread<0>(v), simd::spread<1>(v), simd::spread<2>(v), simd::spread<3>(v), m.r[0],
                        m.r[1], m.r[2], m.r[3]);
    if constexpr (K == Kind::Coord) q = q / simd::spread<3>(q);
    if constexpr (Sum<K, N>::kOut == 4)
        q.store(dst);
    else
        q.storePart(dst, Sum<K, N>::kOut);
}

// ---- four vectors in lanes --------------------------------------------------------

// Four contiguous N-vectors (N*4 floats) split into component lanes.
template <int N>
inline void gather4(const float* src, P c[4])
{
    if constexpr (N == 2) {
        const __m128 a = _mm_loadu_ps(src), b = _mm_loadu_ps(src + 4);
        c[0] = {_mm_shuffle_ps(a, b, _MM_SHUFFLE(2, 0, 2, 0))};
        c[1] = {_mm_shuffle_ps(a, b, _MM_SHUFFLE(3, 1, 3, 1))};
    } else if constexpr (N == 3) {
        // a = x0 y0 z0 x1 | b = y1 z1 x2 y2 | d = z2 x3 y3 z3: six shuffles.
        const __m128 a = _mm_loadu_ps(src), b = _mm_loadu_ps(src + 4), d = _mm_loadu_ps(src + 8);
        const __m128 xy23 = _mm_shuffle_ps(b, d, _MM_SHUFFLE(2, 1, 3, 2));  // x2 y2 x3 y3
        const __m128 y01 = _mm_shuffle_ps(a, b, _MM_SHUFFLE(0, 0, 1, 1));   // y0 y0 y1 y1
        const __m128 z01 = _mm_shuffle_ps(a, b, _MM_SHUFFLE(1, 1, 2, 2));   // z0 z0 z1 z1
        c[0] = {_mm_shuffle_ps(a, xy23, _MM_SHUFFLE(2, 0, 3, 0))};
        c[1] = {_mm_shuffle_ps(y01, xy23, _MM_SHUFFLE(3, 1, 2, 0))};
        c[2] = {_mm_shuffle_ps(z01, d, _MM_SHUFFLE(3, 0, 2, 0))};
    } else {
        M4 t = transposed(M4::load(src));
        for (int i = 0; i < 4; ++i) c[i] = t.r[i];
    }
}

// The inverse of gather4 for K component lanes.
template <int K>
inline void scatter4(const P c[4], float* dst)
{
    if constexpr (K == 2) {
        _mm_storeu_ps(dst, _mm_unpacklo_ps(c[0].v, c[1].v));
        _mm_storeu_ps(dst + 4, _mm_unpackhi_ps(c[0].v, c[1].v));
    } else if constexpr (K == 3) {
        // Seven shuffles back to x0 y0 z0 x1 | y1 z1 x2 y2 | z2 x3 y3 z3.
        const __m128 x = c[0].v, y = c[1].v, z = c[2].v;
        const __m128 xy01 = _mm_unpacklo_ps(x, y), xy23 = _mm_unpackhi_ps(x, y);  // x0 y0 x1 y1, x2 y2 x3 y3
        const __m128 zx = _mm_shuffle_ps(z, x, _MM_SHUFFLE(3, 1, 2, 0));          // z0 z2 x1 x3
        const __m128 yz = _mm_shuffle_ps(y, z, _MM_SHUFFLE(3, 1, 3, 1));          // y1 y3 z1 z3
        _mm_storeu_ps(dst, _mm_shuffle_ps(xy01, zx, _MM_SHUFFLE(2, 0, 1, 0)));
        _mm_storeu_ps(dst + 4, _mm_shuffle_ps(yz, xy23, _MM_SHUFFLE(1, 0, 2, 0)));
        _mm_storeu_ps(dst + 8, _mm_shuffle_ps(zx, yz, _MM_SHUFFLE(3, 1, 3, 1)));
    } else {
        transposed(M4{{c[0], c[1], c[2], c[3]}}).store(dst);
    }
}

// Matrix elements spread over four lanes, once per call.
struct Spread4 {
    P e[4][4];
    explicit Spread4(const float* m)
    {
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c) e[r][c] = P::splat(m[4 * r + c]);
    }
};

// Four contiguous vectors to four contiguous results.
template <Kind K, int N>
inline void transformFour(const Spread4& m, const float* src, float* dst)
{
    P v[4] = {};
    gather4<N>(src, v);
    P q[4];
    constexpr int kCols = K == Kind::Normal ? N : 4;
    for (int c = 0; c < kCols; ++c)
        q[c] = Sum<K, N>::of(v[0], v[1], v[2], v[3], m.e[0][c], m.e[1][c], m.e[2][c], m.e[3][c]);
    if constexpr (K == Kind::Coord)
        for (int c = 0; c < N; ++c) q[c] = q[c] / q[3];
    scatter4<Sum<K, N>::kOut>(q, dst);
}

// `count` vectors at byte strides.  Runs of contiguous sources and results
// go four at a time; the rest one at a time by the same sums.
template <Kind K, int N>
inline KelStatus transformRun(const float* matrix, const float* src, int32_t srcStride0, float* dst,
                              int32_t dstStride0, int32_t count)
{
    if (count < 1) return kelStsNoErr;
    const M4 m = M4::load(matrix);
    int32_t i = 0;
    if (srcStride0 == 4 * N && dstStride0 == 4 * Sum<K, N>::kOut && count >= 4) {
        const Spread4 s(matrix);
        for (; i + 4 <= count; i += 4)
            transformFour<K, N>(s, offset(src, mul32(i, srcStride0)), offset(dst, mul32(i, dstStride0)));
    }
    for (; i < count; ++i) transformOne<K, N>(m, offset(src, mul32(i, srcStride0)), offset(dst, mul32(i, dstStride0)));
    return kelStsNoErr;
}

}  // namespace kel::geometry
