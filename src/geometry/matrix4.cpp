// Operations on 4x4 float matrices, vector transforms and projection to a
// viewport.  All of a member's loads come before its first store, so a
// destination may be a source wherever a member reads whole matrices.
#include "factor/invert4x4.h"
#include "geometry/transforms.h"

namespace kel::geometry {
namespace {

// Determinant by expansion along row 0.
float det4(const float* s)
{
    auto m = [s](int r, int c) { return s[4 * r + c]; };
    float t[4];
    for (int j = 0; j < 4; ++j) {
        const int a = j == 0 ? 1 : 0, b = j <= 1 ? 2 : 1, c = j <= 2 ? 3 : 2;
        const float minor = (m(2, b) * m(3, c) - m(2, c) * m(3, b)) * m(1, a) -
                            (m(2, a) * m(3, c) - m(3, a) * m(2, c)) * m(1, b) +
                            (m(3, b) * m(2, a) - m(2, b) * m(3, a)) * m(1, c);
        t[j] = minor * m(0, j);
    }
    return (t[0] - t[1]) + (t[2] - t[3]);
}

// r / r[3] mapped to the viewport: x from the left, y downwards, depth
// between minZ and maxZ.
struct Viewport {
    P base, scale;
    Viewport(float width, float height, float minZ, float maxZ)
    {
        const float hw = width * 0.5f, hh = height * 0.5f;
        base = {_mm_setr_ps(hw, hh, minZ, 0.0f)};
        scale = {_mm_setr_ps(hw, 0.0f - hh, maxZ - minZ, 0.0f)};
    }
    void put(P r, float* dst) const { (base + scale * (r / simd::spread<3>(r))).storePart(dst, 3); }
};

// (x, y, z, 1) times a matrix.
inline P pointTimes(const M4& m, const float* src)
{
    const P v = P::loadPart(src, 3);
    return rowsTimes4(m, simd::spread<0>(v), simd::spread<1>(v), simd::spread<2>(v), P::splat(1.0f));
}

inline P vectorTimes(const M4& m, P v)
{
    return rowsTimes4(m, simd::spread<0>(v), simd::spread<1>(v), simd::spread<2>(v), simd::spread<3>(v));
}

using kel::load;
using kel::store;

// Viewport coordinates back to [-1, 1] x [-1, 1] x [0, 1].
inline void fromViewport(const float* src, float width, float height, float minZ, float maxZ, float* dst)
{
    // Runs step by any byte count: elements are read and written at any
    // alignment, in this order (dst may be src).
    store<float>(dst, load<float>(src) * 2.0f / width - 1.0f);
    store<float>(dst + 1, load<float>(src + 1) * -2.0f / height + 1.0f);
    store<float>(dst + 2, (load<float>(src + 2) - minZ) / (maxZ - minZ));
}

// Inverse of (World * View) * Projection, in double precision and rounded
// back; false when the product is singular.
bool unprojection(const float* proj, const float* view, const float* world, M4& inv)
{
    float t[16];
    product(product(M4::load(world), M4::load(view)), M4::load(proj)).store(t);
    double wide[16], out[16];
    for (int i = 0; i < 16; ++i) wide[i] = t[i];
    if (factor::ownInvert4x4_64f(wide, 32, out, 32) != kelStsNoErr) return false;
    for (int i = 0; i < 16; ++i) t[i] = static_cast<float>(out[i]);
    inv = M4::load(t);
    return true;
}

}  // namespace
}  // namespace kel::geometry

using namespace kel::geometry;
using kel::mul32;
using kel::offset;

extern "C" {

KelStatus kelmDet_m4_32f(const Kel32f* src, Kel32f* dst)
{
    *dst = det4(src);
    return kelStsNoErr;
}

// Exact compares.  With m[0][0] == 1, any column equal to its identity
// column is enough: the rows' lane compares are ANDed and any lane counts.
// The inverse by cofactors times a refined reciprocal of the determinant;
// a determinant below 2^-119 in magnitude is refused (dst untouched, *det 0).
KelStatus kelmInvert_m4_32f(const Kel32f* src, Kel32f* det, Kel32f* dst)
{
    return kel::factor::ownInvert4x4_32f<kel::factor::FixedMatrixRules>(src, 16, dst, 16, det);
}

KelStatus kelmIsIdentity_m4_32f(const Kel32f* src, int* result)
{
    if (!(src[0] == 1.0f)) {
        *result = 0;
        return kelStsNoErr;
    }
    const M4 m = M4::load(src);
    const M4 id = {{{_mm_setr_ps(1, 0, 0, 0)}, {_mm_setr_ps(0, 1, 0, 0)}, {_mm_setr_ps(0, 0, 1, 0)},
                    {_mm_setr_ps(0, 0, 0, 1)}}};
    __m128 lanes = _mm_cmpeq_ps(m.r[0].v, id.r[0].v);
    for (int i = 1; i < 4; ++i) lanes = _mm_and_ps(lanes, _mm_cmpeq_ps(m.r[i].v, id.r[i].v));
    *result = _mm_movemask_ps(lanes) != 0 ? 1 : 0;
    return kelStsNoErr;
}

KelStatus kelmTranspose_m4_32f(const Kel32f* src, Kel32f* dst)
{
    transposed(M4::load(src)).store(dst);
    return kelStsNoErr;
}

KelStatus kelmMul_mm4x4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst)
{
    if (!src1 || !src2 || !dst) return kelStsNullPointer;
    product(M4::load(src1), M4::load(src2)).store(dst);
    return kelStsNoErr;
}

KelStatus kelmMulTranspose_m4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst)
{
    transposed(product(M4::load(src1), M4::load(src2))).store(dst);
    return kelStsNoErr;
}

// clang-format off
#define KEL_TRANSFORM(Name, K, N)                                                                                  \
KelStatus kelmAffineTransform##Name##_m4v##N##_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst)            \
{ transformOne<K, N>(M4::load(matrix), src, dst); return kelStsNoErr; }                                             \
KelStatus kelmAffineTransform##Name##_m4v##N##a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0,        \
                                                    Kel32f* dst, int dstStride0, int count)                        \
{ return transformRun<K, N>(matrix, src, srcStride0, dst, dstStride0, count); }
KEL_TRANSFORM(, Kind::Affine, 2)
KEL_TRANSFORM(, Kind::Affine, 3)
KEL_TRANSFORM(, Kind::Affine, 4)
KEL_TRANSFORM(Coord, Kind::Coord, 2)
KEL_TRANSFORM(Coord, Kind::Coord, 3)
KEL_TRANSFORM(Normal, Kind::Normal, 2)
KEL_TRANSFORM(Normal, Kind::Normal, 3)
#undef KEL_TRANSFORM
// clang-format on

// Model space to the viewport through world, view and projection in turn.
KelStatus kelmProject_m4v3_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld,
                               const Kel32f* src, Kel32f viewWidth, Kel32f viewHeight, Kel32f minZ, Kel32f maxZ,
                               Kel32f* dst)
{
    const P p = pointTimes(M4::load(mWorld), src);
    const P r = vectorTimes(M4::load(mProjection), vectorTimes(M4::load(mView), p));
    Viewport(viewWidth, viewHeight, minZ, maxZ).put(r, dst);
    return kelStsNoErr;
}

// The runs multiply the three matrices once, World * (View * Projection).
KelStatus kelmProject_m4v3a_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld,
                                const Kel32f* src, int srcStride0, Kel32f viewWidth, Kel32f viewHeight, Kel32f minZ,
                                Kel32f maxZ, Kel32f* dst, int dstStride0, int count)
{
    if (count < 1) return kelStsNoErr;
    const M4 t = product(M4::load(mWorld), product(M4::load(mView), M4::load(mProjection)));
    const Viewport vp(viewWidth, viewHeight, minZ, maxZ);
    for (int32_t i = 0; i < count; ++i)
        vp.put(pointTimes(t, offset(src, mul32(i, srcStride0))), offset(dst, mul32(i, dstStride0)));
    return kelStsNoErr;
}

// The way back: dst first gets the normalised coordinates, which stay
// there when the matrices cannot be inverted.
KelStatus kelmUnproject_m4v3_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld,
                                 const Kel32f* src, Kel32f viewWidth, Kel32f viewHeight, Kel32f minZ, Kel32f maxZ,
                                 Kel32f* dst)
{
    fromViewport(src, viewWidth, viewHeight, minZ, maxZ, dst);
    M4 inv;
    if (!unprojection(mProjection, mView, mWorld, inv)) return kelStsSingular;
    transformOne<Kind::Coord, 3>(inv, dst, dst);
    return kelStsNoErr;
}

// The runs invert first: a singular product writes nothing at all.
KelStatus kelmUnproject_m4v3a_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld,
                                  const Kel32f* src, int srcStride0, Kel32f viewWidth, Kel32f viewHeight,
                                  Kel32f minZ, Kel32f maxZ, Kel32f* dst, int dstStride0, int count)
{
    if (count < 1) return kelStsNoErr;
    M4 inv;
    if (!unprojection(mProjection, mView, mWorld, inv)) return kelStsSingular;
    for (int32_t i = 0; i < count; ++i) {
        float v[3];
        fromViewport(offset(src, mul32(i, srcStride0)), viewWidth, viewHeight, minZ, maxZ, v);
        transformOne<Kind::Coord, 3>(inv, v, offset(dst, mul32(i, dstStride0)));
    }
    return kelStsNoErr;
}

}  // extern "C"
