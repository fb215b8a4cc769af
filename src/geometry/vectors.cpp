// Vectors of 2, 3 and 4 floats: each operation is written once over the
// size N, and the exports of the three sizes are stamped from it.
#include "geometry/geometry.h"

namespace kel::geometry {
namespace {

template <int N, class F>
inline KelStatus each(float* dst, F f)
{
    float out[N];
    for (int i = 0; i < N; ++i) out[i] = f(i);
    std::memcpy(dst, out, sizeof out);
    return kelStsNoErr;
}

template <int N>
inline float normalizeSum(const float* v)
{
    return sumSquares<N>(v);
}
// The 4-vector starts from y: y*y + z*z + w*w + x*x.
template <>
inline float normalizeSum<4>(const float* v)
{
    return ((v[1] * v[1] + v[2] * v[2]) + v[3] * v[3]) + v[0] * v[0];
}

// Cubic Hermite curve from p0 (tangent t0) to p1 (tangent t1).  The weights
// are formed in double from the float powers of s and rounded; p0 - p1
// carries the two position weights at once.
template <int N>
inline KelStatus hermite(const float* p0, const float* t0, const float* p1, const float* t1, float s, float* dst)
{
    const float s2 = s * s, s3 = s2 * s;
    const double ds = s, ds2 = s2, ds3 = s3;
    const float wT0 = static_cast<float>(ds - ds2 - ds2 + ds3);
    const float wP = static_cast<float>(ds3 - 3.0 * ds2 + ds3);
    const float wT1 = static_cast<float>(ds3 - ds2);
    return each<N>(dst, [&](int i) { return (p0[i] - p1[i]) * wP + ((t0[i] * wT0 + p0[i]) + t1[i] * wT1); });
}

template <int N>
inline KelStatus catmullRom(const float* a, const float* b, const float* c, const float* d, float s, float* dst)
{
    float m0[N], m1[N];
    for (int i = 0; i < N; ++i) {
        m0[i] = (c[i] - a[i]) * 0.5f;
        m1[i] = (d[i] - b[i]) * 0.5f;
    }
    return hermite<N>(b, m0, c, m1, s, dst);
}

inline KelStatus scalar(float* dst, float v)
{
    *dst = v;
    return kelStsNoErr;
}

// Four-dimensional cross product of a, b, c from the six 2x2 minors of b, c.
inline KelStatus cross4(const float* a, const float* b, const float* c, float* dst)
{
    const float p23 = b[2] * c[3] - b[3] * c[2], p13 = c[3] * b[1] - b[3] * c[1], p12 = c[2] * b[1] - b[2] * c[1];
    const float p03 = c[3] * b[0] - b[3] * c[0], p02 = c[2] * b[0] - b[2] * c[0], p01 = c[1] * b[0] - b[1] * c[0];
    const float out[4] = {p23 * a[1] - p13 * a[2] + p12 * a[3], 0.0f - (p23 * a[0] - p03 * a[2] + p02 * a[3]),
                          p13 * a[0] - p03 * a[1] + p01 * a[3], 0.0f - (p12 * a[0] - p02 * a[1] + p01 * a[2])};
    std::memcpy(dst, out, sizeof out);
    return kelStsNoErr;
}

}  // namespace
}  // namespace kel::geometry

using namespace kel::geometry;

extern "C" {

// clang-format off
#define KEL_VECTORS(N)                                                                                           \
KelStatus kelmAdd_v##N##_32f(const Kel32f* a, const Kel32f* b, Kel32f* d)                                         \
{ return each<N>(d, [&](int i) { return a[i] + b[i]; }); }                                                        \
KelStatus kelmSub_v##N##_32f(const Kel32f* a, const Kel32f* b, Kel32f* d)                                         \
{ return each<N>(d, [&](int i) { return a[i] - b[i]; }); }                                                        \
KelStatus kelmMulC_v##N##_32f(const Kel32f* a, Kel32f val, Kel32f* d)                                             \
{ return each<N>(d, [&](int i) { return a[i] * val; }); }                                                         \
/* src2 wins on a NaN and on two zeros */                                                                         \
KelStatus kelmMin_v##N##_32f(const Kel32f* a, const Kel32f* b, Kel32f* d)                                         \
{ return each<N>(d, [&](int i) { return a[i] < b[i] ? a[i] : b[i]; }); }                                          \
KelStatus kelmMax_v##N##_32f(const Kel32f* a, const Kel32f* b, Kel32f* d)                                         \
{ return each<N>(d, [&](int i) { return a[i] > b[i] ? a[i] : b[i]; }); }                                          \
KelStatus kelmLenSqr_v##N##_32f(const Kel32f* a, Kel32f* d) { return scalar(d, sumSquares<N>(a)); }                \
KelStatus kelmLen_v##N##_32f(const Kel32f* a, Kel32f* d) { return scalar(d, lengthOf(sumSquares<N>(a))); }         \
KelStatus kelmNormalize_v##N##_32f(const Kel32f* a, Kel32f* d)                                                    \
{ divideBy<N>(a, lengthOf(normalizeSum<N>(a)), d); return kelStsNoErr; }                                          \
KelStatus kelmDotProduct_v##N##_32f(const Kel32f* a, const Kel32f* b, Kel32f* d) { return scalar(d, dot<N>(a, b)); } \
KelStatus kelmBaryCentric_v##N##_32f(const Kel32f* a, const Kel32f* b, const Kel32f* c, Kel32f f, Kel32f g,        \
                                     Kel32f* d)                                                                   \
{ return each<N>(d, [&](int i) { return ((b[i] - a[i]) * f + a[i]) + (c[i] - a[i]) * g; }); }                     \
KelStatus kelmInterpolationLinear_v##N##_32f(const Kel32f* a, const Kel32f* b, Kel32f s, Kel32f* d)               \
{ return each<N>(d, [&](int i) { return (b[i] - a[i]) * s + a[i]; }); }                                           \
KelStatus kelmHermite_v##N##_32f(const Kel32f* p0, const Kel32f* t0, const Kel32f* p1, const Kel32f* t1, Kel32f s, \
                                 Kel32f* d)                                                                       \
{ return hermite<N>(p0, t0, p1, t1, s, d); }                                                                      \
KelStatus kelmInterpolationCatmullRom_v##N##_32f(const Kel32f* a, const Kel32f* b, const Kel32f* c,               \
                                                 const Kel32f* e, Kel32f s, Kel32f* d)                            \
{ return catmullRom<N>(a, b, c, e, s, d); }
// clang-format on

KEL_VECTORS(2)
KEL_VECTORS(3)
KEL_VECTORS(4)
#undef KEL_VECTORS

// The z of the product of the two vectors extended by z = 0: one float.
KelStatus kelmCrossProduct_v2_32f(const Kel32f* a, const Kel32f* b, Kel32f* d)
{
    return scalar(d, a[0] * b[1] - a[1] * b[0]);
}

KelStatus kelmCrossProduct_v3_32f(const Kel32f* a, const Kel32f* b, Kel32f* d)
{
    cross3(a, b, d);
    return kelStsNoErr;
}

KelStatus kelmCrossProduct_v4_32f(const Kel32f* a, const Kel32f* b, const Kel32f* c, Kel32f* d)
{
    return cross4(a, b, c, d);
}

}  // extern "C"
