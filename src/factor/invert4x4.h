// The 4 x 4 inverses, shared by the Invert kernels and the fixed-size
// kelmInvert_m4_32f and Unproject functions.
//
// Single precision: ownInvert4x4_32f<Rules>(src, srcStride1, dst, dstStride1, det)
//   Cofactors in four-lane vectors, one reciprocal estimate refined by one
//   Newton step instead of a division.  Rows are srcStride1 and dstStride1
//   bytes apart (16 for a bare 4 x 4 matrix; a constant argument folds
//   away); any alignment.  All 16 elements are read before the first store,
//   so dst may be src.  There is no branch on anything but the determinant.
//   `Rules` says what differs between callers:
//     detSum     how the determinant's four products u[k] = m[k][0] * q[k]
//                (q the first row of cofactors) are summed;
//     newton     the form of the Newton step (simd::NewtonStep);
//     tolerance  |det| widened to double and below this is singular.
//   InvertArrayRules serve the Invert kernels, FixedMatrixRules the
//   fixed-size kelmInvert_m4_32f; a caller with other needs writes its own
//   struct with these three members.
//   `det`, if not null, receives the determinant before the rows are
//   stored, or 0 when the matrix is refused.  A refused matrix leaves dst
//   untouched and returns kelStsSingular.
//
// ownInvert4x4Pair_32f<Rules>: two matrices of 16-byte rows at 16-byte
//   aligned addresses, in the arithmetic of the single routine.  Both
//   determinants are formed before anything is stored; the first is tested,
//   then the second; if either is refused neither matrix is written.
//
// Double precision: ownInvert4x4_64f(src, srcStride1, dst, dstStride1)
//   The closed form by cofactors (cofactors.h) with a true division 1/det.
//   |det| below 256 times the smallest normal double (2^-1014, about
//   5.696189077778436e-306) is singular: kelStsSingular, dst untouched.
//   All elements are read before the first store.
#pragma once

#include <emmintrin.h>
#include <xmmintrin.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "factor/cofactors.h"
#include "frame/cursor.h"
#include "frame/simd.h"
#include "frame/view.h"
#include "kelm.h"

namespace kel::factor {

// The two sums of the determinant's products.
enum class DetSum {
    Halves,  // (u0 + u1) + (u2 + u3)
    OddEven  // (u1 + u3) + (u0 + u2)
};

// The Invert kernels: tolerance 128 times the smallest normal float.
struct InvertArrayRules {
    static constexpr DetSum detSum = DetSum::Halves;
    static constexpr simd::NewtonStep newton = simd::NewtonStep::Scaled;
    static constexpr double tolerance = 128.0 * 0x1p-126;
};

// kelmInvert_m4_32f: singular below 2^-119 (the same number).
struct FixedMatrixRules {
    static constexpr DetSum detSum = DetSum::OddEven;
    static constexpr simd::NewtonStep newton = simd::NewtonStep::Squared;
    static constexpr double tolerance = 0x1p-119;
};

// The cofactors of one matrix and its determinant.  Row i of the cofactors
// holds in lane j the cofactor of m[j][i]: it is row i of the inverse
// before the scaling by 1/det.
struct Cofactors4x4 {
    __m128 row[4];
    float det;
};

namespace detail4x4 {

inline __m128 swapPairs(__m128 v) { return _mm_shuffle_ps(v, v, _MM_SHUFFLE(2, 3, 0, 1)); }
inline __m128 swapHalves(__m128 v) { return _mm_shuffle_ps(v, v, _MM_SHUFFLE(1, 0, 3, 2)); }

// Cofactors from the rows r0..r3 of the matrix.
template <DetSum S>
inline Cofactors4x4 cofactors(__m128 r0, __m128 r1, __m128 r2, __m128 r3)
{
    // The transposed matrix: c0 and c2 are columns 0 and 2, c1 and c3
    // columns 1 and 3 with their halves exchanged.
    const __m128 lo01 = _mm_movelh_ps(r0, r1);  // m00 m01 m10 m11
    const __m128 lo23 = _mm_movelh_ps(r2, r3);  // m20 m21 m30 m31
    const __m128 hi01 = _mm_movehl_ps(r1, r0);  // m02 m03 m12 m13
    const __m128 hi23 = _mm_movehl_ps(r3, r2);  // m22 m23 m32 m33
    const __m128 c0 = _mm_shuffle_ps(lo01, lo23, _MM_SHUFFLE(2, 0, 2, 0));  // m00 m10 m20 m30
    const __m128 c1 = _mm_shuffle_ps(lo23, lo01, _MM_SHUFFLE(3, 1, 3, 1));  // m21 m31 m01 m11
    __m128 c2 = _mm_shuffle_ps(hi01, hi23, _MM_SHUFFLE(2, 0, 2, 0));        // m02 m12 m22 m32
    const __m128 c3 = _mm_shuffle_ps(hi23, hi01, _MM_SHUFFLE(3, 1, 3, 1));  // m23 m33 m03 m13

    // Each step takes the pair products of two of these vectors (2 x 2
    // minors of two columns) and adds them, times a third, into the
    // cofactor rows q0..q3.
    __m128 p = swapPairs(_mm_mul_ps(c2, c3));
    __m128 q0 = _mm_mul_ps(c1, p);
    __m128 q1 = _mm_mul_ps(c0, p);
    p = swapHalves(p);
    q0 = _mm_sub_ps(_mm_mul_ps(c1, p), q0);
    q1 = swapHalves(_mm_sub_ps(_mm_mul_ps(c0, p), q1));

    p = swapPairs(_mm_mul_ps(c1, c2));
    q0 = _mm_add_ps(_mm_mul_ps(c3, p), q0);
    __m128 q3 = _mm_mul_ps(c0, p);
    p = swapHalves(p);
    q0 = _mm_sub_ps(q0, _mm_mul_ps(c3, p));
    q3 = swapHalves(_mm_sub_ps(_mm_mul_ps(c0, p), q3));

    p = swapPairs(_mm_mul_ps(swapHalves(c1), c3));
    c2 = swapHalves(c2);
    q0 = _mm_add_ps(_mm_mul_ps(c2, p), q0);
    __m128 q2 = _mm_mul_ps(c0, p);
    p = swapHalves(p);
    q0 = _mm_sub_ps(q0, _mm_mul_ps(c2, p));
    q2 = swapHalves(_mm_sub_ps(_mm_mul_ps(c0, p), q2));

    p = swapPairs(_mm_mul_ps(c0, c1));
    q2 = _mm_add_ps(_mm_mul_ps(c3, p), q2);
    q3 = _mm_sub_ps(_mm_mul_ps(c2, p), q3);
    p = swapHalves(p);
    q2 = _mm_sub_ps(_mm_mul_ps(c3, p), q2);
    q3 = _mm_sub_ps(q3, _mm_mul_ps(c2, p));

    p = swapPairs(_mm_mul_ps(c0, c3));
    q1 = _mm_sub_ps(q1, _mm_mul_ps(c2, p));
    q2 = _mm_add_ps(_mm_mul_ps(c1, p), q2);
    p = swapHalves(p);
    q1 = _mm_add_ps(_mm_mul_ps(c2, p), q1);
    q2 = _mm_sub_ps(q2, _mm_mul_ps(c1, p));

    p = swapPairs(_mm_mul_ps(c0, c2));
    q1 = _mm_add_ps(_mm_mul_ps(c3, p), q1);
    q3 = _mm_sub_ps(q3, _mm_mul_ps(c1, p));
    p = swapHalves(p);
    q1 = _mm_sub_ps(q1, _mm_mul_ps(c3, p));
    q3 = _mm_add_ps(_mm_mul_ps(c1, p), q3);

    // u[k] = m[k][0] * q0[k], summed as the rules say.
    const __m128 u = _mm_mul_ps(c0, q0);
    float det;
    if constexpr (S == DetSum::Halves) {
        const __m128 s = _mm_add_ps(u, swapPairs(u));         // u0+u1, ., u2+u3, .
        det = _mm_cvtss_f32(_mm_add_ss(s, _mm_movehl_ps(s, s)));
    } else {
        const __m128 s = _mm_add_ps(swapHalves(u), u);        // u2+u0, u3+u1, ...
        det = _mm_cvtss_f32(_mm_add_ss(swapPairs(s), s));
    }
    return Cofactors4x4{{q0, q1, q2, q3}, det};
}

inline __m128 loadRow(const float* p, int32_t stride1, int j) { return _mm_loadu_ps(offset(p, mul32(j, stride1))); }

template <class Rules>
inline bool refused(float det)
{
    return Rules::tolerance > std::fabs(static_cast<double>(det));
}

// Rows of the inverse: each cofactor times the refined reciprocal.
template <class Rules>
inline void storeInverse(const Cofactors4x4& c, float* dst, int32_t stride1)
{
    const __m128 r = _mm_set1_ps(simd::refinedReciprocal<Rules::newton>(c.det));
    for (int i = 0; i < 4; ++i) _mm_storeu_ps(offset(dst, mul32(i, stride1)), _mm_mul_ps(c.row[i], r));
}

}  // namespace detail4x4

// Cofactors and determinant of the matrix at src (rows stride1 bytes apart).
template <DetSum S>
inline Cofactors4x4 cofactors4x4(const float* src, int32_t stride1)
{
    using detail4x4::loadRow;
    return detail4x4::cofactors<S>(loadRow(src, stride1, 0), loadRow(src, stride1, 1), loadRow(src, stride1, 2),
                                   loadRow(src, stride1, 3));
}

template <class Rules>
inline KelStatus ownInvert4x4_32f(const float* src, int32_t srcStride1, float* dst, int32_t dstStride1,
                                  float* det = nullptr)
{
    const Cofactors4x4 c = cofactors4x4<Rules::detSum>(src, srcStride1);
    if (detail4x4::refused<Rules>(c.det)) {
        if (det) *det = 0.0f;
        return kelStsSingular;
    }
    if (det) *det = c.det;
    detail4x4::storeInverse<Rules>(c, dst, dstStride1);
    return kelStsNoErr;
}

template <class Rules>
inline KelStatus ownInvert4x4Pair_32f(const float* src0, const float* src1, float* dst0, float* dst1)
{
    const Cofactors4x4 a = cofactors4x4<Rules::detSum>(src0, 16);
    const Cofactors4x4 b = cofactors4x4<Rules::detSum>(src1, 16);
    if (detail4x4::refused<Rules>(a.det) || detail4x4::refused<Rules>(b.det)) return kelStsSingular;
    detail4x4::storeInverse<Rules>(a, dst0, 16);
    detail4x4::storeInverse<Rules>(b, dst1, 16);
    return kelStsNoErr;
}

// 256 times the smallest normal double.
inline constexpr double kInvert4x4Tolerance64f = 256.0 * std::numeric_limits<double>::min();

inline KelStatus ownInvert4x4_64f(const double* src, int32_t srcStride1, double* dst, int32_t dstStride1)
{
    return invertByCofactors<4, double>(RowsCursor<const double, false>(src, srcStride1),
                                        RowsCursor<double, false>(dst, dstStride1), kInvert4x4Tolerance64f);
}

}  // namespace kel::factor
