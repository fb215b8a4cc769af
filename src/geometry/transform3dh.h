// AffineTransform3DH: 3-vectors as columns (x, y, z, 1) through a 4x4
// matrix, then divided by the fourth component w of the result.
//
// Element m[i][j] lies at src1 + i*Stride1 + j*Stride2.  The packed kernel
// (every Stride2 the element size) sums a row as (m0*x + m1*y) + (m2*z + m3)
// with the four rows in the lanes of one vector; the strided kernel sums
// ((m0*x + m3) + m1*y) + m2*z.  Row 3, w, is summed like the others.  A
// vector with |w| not above the smallest normal float gets the largest
// float in its three components and the call reports kelStsDivideByZero,
// but goes on with the next vector.  Vectors side by side (interleaved S, P
// over planes) take the strided sums four vectors at a time.
#pragma once

#include <cfloat>
#include <cmath>

#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
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
    // Row r of the matrix times (x, y, z, 1) as the strided kernel sums it.
    template <class X>
    static X stridedSum(const X (&r)[4], X x, X y, X z)
    {
        return ((r[0] * x + r[3]) + r[1] * y) + r[2] * z;
    }

    template <class M, class V, class D>
    KelStatus operator()(int32_t count, void*, const M& m, const V& src, const D& dst) const
    {
        if (allPacked(m, src, dst)) return packed(count, m, src, dst);
        if (sideBySide(src) && sideBySide(dst)) return lanes(count, m, src, dst);
        return strided(count, m, src, dst);
    }

    // Vectors side by side: the strided kernel's sums for four vectors at
    // once, a small w saturating its own lane only.
    template <class M, class V, class D>
    static KelStatus lanes(int32_t count, const M& m, const V& src, const D& dst)
    {
        using L = simd::Lanes<float>;
        L a[4][4];
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) a[i][j] = L(m.get(0, i, j));
        const LaneOperand<simd::Sse, V> in(src, 1, 3);
        const LaneOperand<simd::Sse, D> out(dst, 1, 3);
        const L smallest(kSmallestW), largest(FLT_MAX), one(1.0f);
        bool saturated = false;
        forLanes<float>(count, [&](int32_t n, int k) {
            const L x = in.load(0, 0, n, k), y = in.load(0, 1, n, k), z = in.load(0, 2, n, k);
            L q[4];
            for (int i = 0; i < 4; ++i) q[i] = stridedSum(a[i], x, y, z);
            const L ok = greater(abs(q[3]), smallest);
            const L inv = one / q[3];
            for (int i = 0; i < 3; ++i) out.store(0, i, n, select(ok, q[i] * inv, largest).p, k);
            for (int l = 0; l < k; ++l) saturated = saturated || !(std::fabs(q[3].lane(l)) > kSmallestW);
        });
        return saturated ? kelStsDivideByZero : kelStsNoErr;
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
            for (int i = 0; i < 4; ++i) q[i] = stridedSum(a[i], x, y, z);
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
