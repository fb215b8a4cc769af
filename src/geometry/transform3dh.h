// AffineTransform3DH: 3-vectors as columns (x, y, z, 1) through a 4x4
// matrix, then divided by the fourth component w of the result.
//
// Element m[i][j] lies at src1 + i*Stride1 + j*Stride2.  The packed kernel
// (every Stride2 the element size) sums a row as (m0*x + m1*y) + (m2*z + m3)
// with the four rows in the lanes of one vector; the strided kernel sums
// ((m0*x + m3) + m1*y) + m2*z.  Row 3, w, is summed like the others.  A
// vector with |w| not above the smallest normal float gets the largest
// float in its three components and the call reports kelStsDivideByZero,
// but goes on with the next vector.
#pragma once

#include <cfloat>
#include <cmath>

#include "frame/frame.h"
#include "geometry/transforms.h"

namespace kel::geometry {

constexpr float kSmallestW = FLT_MIN;

// The result of one vector from its four row sums; false when w is too small.
inline bool divideByW(const float q[4], float out[3])
{
    const float w = q[3];
    if (!(std::fabs(w) > kSmallestW)) {
        out[0] = out[1] = out[2] = FLT_MAX;
        return false;
    }
    const float inv = 1.0f / w;
    for (int i = 0; i < 3; ++i) out[i] = q[i] * inv;
    return true;
}

struct Transform3DH {
    template <class M, class V, class D>
    KelStatus operator()(int32_t count, void*, const M& m, const V& src, const D& dst) const
    {
        return allPacked(m, src, dst) ? packed(count, m, src, dst) : strided(count, m, src, dst);
    }

    template <class M, class V, class D>
    static KelStatus strided(int32_t count, const M& m, const V& src, const D& dst)
    {
        float a[4][4];
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) a[i][j] = m.get(0, i, j);
        KelStatus st = kelStsNoErr;
        for (int32_t n = 0; n < count; ++n) {
            const float x = src.get(n, 0, 0), y = src.get(n, 0, 1), z = src.get(n, 0, 2);
            float q[4], out[3];
            for (int i = 0; i < 4; ++i) q[i] = ((a[i][0] * x + a[i][3]) + a[i][1] * y) + a[i][2] * z;
            if (!divideByW(q, out)) st = kelStsDivideByZero;
            for (int i = 0; i < 3; ++i) dst.put(n, 0, i, out[i]);
        }
        return st;
    }

    // Columns of the matrix, one lane per row.
    template <class M>
    static M4 columns(const M& m)
    {
        M4 c;
        for (int j = 0; j < 4; ++j) c.r[j] = {_mm_setr_ps(m.get(0, 0, j), m.get(0, 1, j), m.get(0, 2, j), m.get(0, 3, j))};
        return c;
    }

    template <class M, class V, class D>
    static KelStatus packed(int32_t count, const M& m, const V& src, const D& dst)
    {
        const M4 c = columns(m);
        KelStatus st = kelStsNoErr;
        auto one = [&](int32_t n) {
            const P v = P::loadPart(src.object(n), 3);
            float q[4], out[3];
            ((c.r[0] * simd::spread<0>(v) + c.r[1] * simd::spread<1>(v)) + (c.r[2] * simd::spread<2>(v) + c.r[3]))
                .store(q);
            if (!divideByW(q, out)) st = kelStsDivideByZero;
            P::loadPart(out, 3).storePart(dst.object(n), 3);
        };
        int32_t n = 0;
        if (src.s0 == 12 && dst.s0 == 12) {
            // Four contiguous vectors at a time, one vector in each lane; a
            // group with a small w goes one vector at a time.
            P e[4][4];
            for (int i = 0; i < 4; ++i)
                for (int j = 0; j < 4; ++j) e[i][j] = P::splat(m.get(0, i, j));
            const __m128 absMask = _mm_castsi128_ps(_mm_set1_epi32(0x7fffffff));
            for (; n + 4 <= count; n += 4) {
                P v[4] = {};
                gather4<3>(src.object(n), v);
                P q[4];
                for (int i = 0; i < 4; ++i) q[i] = (e[i][0] * v[0] + e[i][1] * v[1]) + (e[i][2] * v[2] + e[i][3]);
                const __m128 ok = _mm_cmpgt_ps(_mm_and_ps(q[3].v, absMask), _mm_set1_ps(kSmallestW));
                if (_mm_movemask_ps(ok) != 15) {
                    for (int k = 0; k < 4; ++k) one(n + k);
                    continue;
                }
                const P inv = P::splat(1.0f) / q[3];
                for (int i = 0; i < 3; ++i) q[i] = q[i] * inv;
                scatter4<3>(q, dst.object(n));
            }
        }
        for (; n < count; ++n) one(n);
        return st;
    }
};

template <class... V>
KelStatus transform3DH(const Traits& tr, const Sizes& s, const V&... v)
{
    DriverInfo info;
    info.reportsStatus = true;
    return run(tr, s, noMismatch, info, Transform3DH{}, v...);
}

}  // namespace kel::geometry
