// A small 128-bit vector layer and its scalar twin.
//
// Pack<Isa, T> holds 16 bytes of T: four floats or two doubles.  The Sse
// form uses SSE registers; the Scalar form keeps the lanes in an array and
// performs the same operations lane by lane in the same order, so a kernel
// written on Pack gives the same bits with either form.  Tests run kernels
// on both and compare.
//
// Partial loads and stores touch exactly k elements (k below the lane
// count): a row of 3 floats is one 64-bit and one 32-bit access, so no row
// is ever read or written past its end.
#pragma once

#include <emmintrin.h>
#include <pmmintrin.h>
#include <smmintrin.h>
#include <xmmintrin.h>

#include <cmath>
#include <cstring>

namespace kel::simd {

// 64-bit and 32-bit accesses at any byte address.
inline __m128i load64(const void* p) { return _mm_loadl_epi64(static_cast<const __m128i_u*>(p)); }
inline void store64(void* p, __m128i v) { _mm_storel_epi64(static_cast<__m128i_u*>(p), v); }
inline __m128 load32(const float* p)
{
    float x;
    std::memcpy(&x, p, sizeof x);
    return _mm_set_ss(x);
}
inline void store32(float* p, __m128 v)
{
    float x = _mm_cvtss_f32(v);
    std::memcpy(p, &x, sizeof x);
}

struct Sse {};
struct Scalar {};

template <class Isa, class T>
struct Pack;

template <class T>
constexpr int kLanes = 16 / static_cast<int>(sizeof(T));

// ---- SSE -------------------------------------------------------------------

template <>
struct Pack<Sse, float> {
    __m128 v;
    static Pack splat(float x) { return {_mm_set1_ps(x)}; }
    // x in lane 0, zeros in the others.
    static Pack first(float x) { return {_mm_set_ss(x)}; }
    static Pack load(const float* p) { return {_mm_loadu_ps(p)}; }
    // p on a 16-byte boundary.
    static Pack loadAligned(const float* p) { return {_mm_load_ps(p)}; }
    // Loads k elements (1..3); other lanes are 0.
    static Pack loadPart(const float* p, int k)
    {
        switch (k) {
        case 1:
            return {load32(p)};
        case 2:
            return {_mm_castsi128_ps(load64(p))};
        default:
            return {_mm_movelh_ps(_mm_castsi128_ps(load64(p)), load32(p + 2))};
        }
    }
    void store(float* p) const { _mm_storeu_ps(p, v); }
    void storePart(float* p, int k) const
    {
        switch (k) {
        case 1:
            store32(p, v);
            break;
        case 2:
            store64(p, _mm_castps_si128(v));
            break;
        default:
            store64(p, _mm_castps_si128(v));
            store32(p + 2, _mm_movehl_ps(v, v));
            break;
        }
    }
    friend Pack operator+(Pack a, Pack b) { return {_mm_add_ps(a.v, b.v)}; }
    friend Pack operator-(Pack a, Pack b) { return {_mm_sub_ps(a.v, b.v)}; }
    friend Pack operator*(Pack a, Pack b) { return {_mm_mul_ps(a.v, b.v)}; }
    friend Pack operator/(Pack a, Pack b) { return {_mm_div_ps(a.v, b.v)}; }
};

template <>
struct Pack<Sse, double> {
    __m128d v;
    static Pack splat(double x) { return {_mm_set1_pd(x)}; }
    static Pack first(double x) { return {_mm_set_sd(x)}; }
    static Pack load(const double* p) { return {_mm_loadu_pd(p)}; }
    static Pack loadAligned(const double* p) { return {_mm_load_pd(p)}; }
    static Pack loadPart(const double* p, int) { return {_mm_castsi128_pd(load64(p))}; }
    void store(double* p) const { _mm_storeu_pd(p, v); }
    void storePart(double* p, int) const { store64(p, _mm_castpd_si128(v)); }
    friend Pack operator+(Pack a, Pack b) { return {_mm_add_pd(a.v, b.v)}; }
    friend Pack operator-(Pack a, Pack b) { return {_mm_sub_pd(a.v, b.v)}; }
    friend Pack operator*(Pack a, Pack b) { return {_mm_mul_pd(a.v, b.v)}; }
    friend Pack operator/(Pack a, Pack b) { return {_mm_div_pd(a.v, b.v)}; }
};

// ---- Scalar twin -------------------------------------------------------------

template <class T>
struct Pack<Scalar, T> {
    static constexpr int N = kLanes<T>;
    T v[N];
    static Pack splat(T x)
    {
        Pack r;
        for (int i = 0; i < N; ++i) r.v[i] = x;
        return r;
    }
    static Pack first(T x)
    {
        Pack r = splat(T(0));
        r.v[0] = x;
        return r;
    }
    static Pack load(const T* p)
    {
        Pack r;
        std::memcpy(r.v, p, sizeof r.v);
        return r;
    }
    static Pack loadAligned(const T* p) { return load(p); }
    static Pack loadPart(const T* p, int k)
    {
        Pack r = splat(T(0));
        std::memcpy(r.v, p, sizeof(T) * k);
        return r;
    }
    void store(T* p) const { std::memcpy(p, v, sizeof v); }
    void storePart(T* p, int k) const { std::memcpy(p, v, sizeof(T) * k); }
    template <class F>
    static Pack zip(Pack a, Pack b, F f)
    {
        Pack r;
        for (int i = 0; i < N; ++i) r.v[i] = f(a.v[i], b.v[i]);
        return r;
    }
    friend Pack operator+(Pack a, Pack b) { return zip(a, b, [](T x, T y) { return x + y; }); }
    friend Pack operator-(Pack a, Pack b) { return zip(a, b, [](T x, T y) { return x - y; }); }
    friend Pack operator*(Pack a, Pack b) { return zip(a, b, [](T x, T y) { return x * y; }); }
    friend Pack operator/(Pack a, Pack b) { return zip(a, b, [](T x, T y) { return x / y; }); }
};

// ---- Rows --------------------------------------------------------------------

// A row of W elements held in registers: full packs, then one partial pack.
template <class Isa, class T, int W>
struct Row {
    using P = Pack<Isa, T>;
    static constexpr int L = kLanes<T>;
    static constexpr int kFull = W / L;
    static constexpr int kRest = W % L;
    static constexpr int kPacks = kFull + (kRest ? 1 : 0);
    P p[kPacks];

    static Row load(const T* src)
    {
        Row r;
        for (int k = 0; k < kFull; ++k) r.p[k] = P::load(src + k * L);
        if constexpr (kRest != 0) r.p[kFull] = P::loadPart(src + kFull * L, kRest);
        return r;
    }
    static Row splat(T x)
    {
        Row r;
        for (int k = 0; k < kPacks; ++k) r.p[k] = P::splat(x);
        return r;
    }
    void store(T* dst) const
    {
        for (int k = 0; k < kFull; ++k) p[k].store(dst + k * L);
        if constexpr (kRest != 0) p[kFull].storePart(dst + kFull * L, kRest);
    }
    template <class F>
    friend Row zip(const Row& a, const Row& b, F f)
    {
        Row r;
        for (int k = 0; k < kPacks; ++k) r.p[k] = f(a.p[k], b.p[k]);
        return r;
    }
};

// ---- Lane spreads and row arithmetic ------------------------------------------

// Lane l of a pack spread over all lanes.  The integer shuffle leaves its
// source intact, which saves a register copy per spread.
template <int l>
inline Pack<Sse, float> spread(Pack<Sse, float> p)
{
    return {_mm_castsi128_ps(_mm_shuffle_epi32(_mm_castps_si128(p.v), _MM_SHUFFLE(l, l, l, l)))};
}
template <int l>
inline Pack<Sse, double> spread(Pack<Sse, double> p)
{
    constexpr int k = l ? _MM_SHUFFLE(3, 2, 3, 2) : _MM_SHUFFLE(1, 0, 1, 0);
    return {_mm_castsi128_pd(_mm_shuffle_epi32(_mm_castpd_si128(p.v), k))};
}
template <int l, class T>
inline Pack<Scalar, T> spread(Pack<Scalar, T> p)
{
    return Pack<Scalar, T>::splat(p.v[l]);
}

// Element k of a row spread over one pack.
template <int k, class Isa, class T, int W>
inline Pack<Isa, T> element(const Row<Isa, T, W>& r)
{
    return spread<k % kLanes<T>>(r.p[k / kLanes<T>]);
}

// Pack by pack: a + b, s * r and r * s (the operand order of each multiply
// is kept, which decides the payload when both operands are NaN).
template <class Isa, class T, int W>
inline Row<Isa, T, W> operator+(const Row<Isa, T, W>& a, const Row<Isa, T, W>& b)
{
    return zip(a, b, [](Pack<Isa, T> x, Pack<Isa, T> y) { return x + y; });
}
template <class Isa, class T, int W>
inline Row<Isa, T, W> operator*(Pack<Isa, T> s, const Row<Isa, T, W>& r)
{
    Row<Isa, T, W> out;
    for (int k = 0; k < Row<Isa, T, W>::kPacks; ++k) out.p[k] = s * r.p[k];
    return out;
}
template <class Isa, class T, int W>
inline Row<Isa, T, W> operator*(const Row<Isa, T, W>& r, Pack<Isa, T> s)
{
    Row<Isa, T, W> out;
    for (int k = 0; k < Row<Isa, T, W>::kPacks; ++k) out.p[k] = r.p[k] * s;
    return out;
}

// ---- Masks and choices -------------------------------------------------------------

// Magnitude (the sign bit cleared, a NaN stays a NaN), negation (the sign
// bit flipped, as unary minus), ordered a > b and a <= b (false where either
// is a NaN) and a == b as all-ones lanes, and mask ? a : b lane by lane.
inline Pack<Sse, float> abs(Pack<Sse, float> a) { return {_mm_andnot_ps(_mm_set1_ps(-0.0f), a.v)}; }
inline Pack<Sse, float> neg(Pack<Sse, float> a) { return {_mm_xor_ps(_mm_set1_ps(-0.0f), a.v)}; }
inline Pack<Sse, double> neg(Pack<Sse, double> a) { return {_mm_xor_pd(_mm_set1_pd(-0.0), a.v)}; }
inline Pack<Sse, double> abs(Pack<Sse, double> a) { return {_mm_andnot_pd(_mm_set1_pd(-0.0), a.v)}; }
inline Pack<Sse, float> greater(Pack<Sse, float> a, Pack<Sse, float> b) { return {_mm_cmpgt_ps(a.v, b.v)}; }
inline Pack<Sse, double> greater(Pack<Sse, double> a, Pack<Sse, double> b) { return {_mm_cmpgt_pd(a.v, b.v)}; }
inline Pack<Sse, float> lessEqual(Pack<Sse, float> a, Pack<Sse, float> b) { return {_mm_cmple_ps(a.v, b.v)}; }
inline Pack<Sse, double> lessEqual(Pack<Sse, double> a, Pack<Sse, double> b) { return {_mm_cmple_pd(a.v, b.v)}; }
inline Pack<Sse, float> equal(Pack<Sse, float> a, Pack<Sse, float> b) { return {_mm_cmpeq_ps(a.v, b.v)}; }
inline Pack<Sse, double> equal(Pack<Sse, double> a, Pack<Sse, double> b) { return {_mm_cmpeq_pd(a.v, b.v)}; }
// The lanes a mask sets, as bits: bit l for lane l.
inline int maskBits(Pack<Sse, float> m) { return _mm_movemask_ps(m.v); }
inline int maskBits(Pack<Sse, double> m) { return _mm_movemask_pd(m.v); }
inline Pack<Sse, float> select(Pack<Sse, float> m, Pack<Sse, float> a, Pack<Sse, float> b)
{
    return {_mm_blendv_ps(b.v, a.v, m.v)};
}
inline Pack<Sse, double> select(Pack<Sse, double> m, Pack<Sse, double> a, Pack<Sse, double> b)
{
    return {_mm_blendv_pd(b.v, a.v, m.v)};
}

// ---- Inverse square root -------------------------------------------------------

// 1 / sqrt(s) in single precision without a square root or a division: the
// processor's estimate (good to 12 bits), then one Newton step written as
// (y0 * (s * y0 * y0 - 3)) * -0.5.  Estimates differ between processors, so
// anything that must match a kernel's bits calls this same function.
inline float rsqrtEstimate(float s) { return _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(s))); }
inline float rsqrtRefined(float s)
{
    const float y0 = rsqrtEstimate(s);
    return (y0 * (s * y0 * y0 - 3.0f)) * -0.5f;
}
// The same for four objects: each lane's estimate is the one of rsqrtss.
inline Pack<Sse, float> rsqrtRefined(Pack<Sse, float> s)
{
    using P = Pack<Sse, float>;
    const P y0{_mm_rsqrt_ps(s.v)};
    return (y0 * (s * y0 * y0 - P::splat(3.0f))) * P::splat(-0.5f);
}

// ---- Reductions and lane moves ---------------------------------------------------

// The two orders in which the library reduces four float lanes to one:
//   sumPairs   (s0 + s1) + (s2 + s3)   lane sums of dot products and norms
//   sumHalves  (s0 + s2) + (s1 + s3)   the high half folded onto the low one
inline float sumPairs(Pack<Sse, float> p)
{
    const __m128 odd = _mm_movehdup_ps(p.v);        // s1 s1 s3 s3
    const __m128 pairs = _mm_add_ps(p.v, odd);      // s0+s1 . s2+s3 .
    return _mm_cvtss_f32(_mm_add_ss(pairs, _mm_movehl_ps(pairs, pairs)));
}
inline float sumHalves(Pack<Sse, float> p)
{
    const __m128 halves = _mm_add_ps(p.v, _mm_movehl_ps(p.v, p.v));  // s0+s2 s1+s3 . .
    return _mm_cvtss_f32(_mm_add_ss(halves, _mm_movehdup_ps(halves)));
}
inline float sumPairs(const Pack<Scalar, float>& p) { return (p.v[0] + p.v[1]) + (p.v[2] + p.v[3]); }
inline float sumHalves(const Pack<Scalar, float>& p) { return (p.v[0] + p.v[2]) + (p.v[1] + p.v[3]); }
// sumHalves of four packs at once, p[o]'s in lane o: each pack's halves
// added beside another's (two unpacks a pair of packs), then the four
// objects' sums s0+s2 and s1+s3 brought together.
inline Pack<Sse, float> sumHalves(const Pack<Sse, float> (&p)[4])
{
    const __m128 x = _mm_add_ps(_mm_unpacklo_ps(p[0].v, p[1].v), _mm_unpackhi_ps(p[0].v, p[1].v));
    const __m128 y = _mm_add_ps(_mm_unpacklo_ps(p[2].v, p[3].v), _mm_unpackhi_ps(p[2].v, p[3].v));
    return {_mm_add_ps(_mm_movelh_ps(x, y), _mm_movehl_ps(y, x))};
}
inline Pack<Scalar, float> sumHalves(const Pack<Scalar, float> (&p)[4])
{
    Pack<Scalar, float> r;
    for (int o = 0; o < 4; ++o) r.v[o] = sumHalves(p[o]);
    return r;
}

// Square root of every lane, rounded in the element type.
inline Pack<Sse, float> sqrt(Pack<Sse, float> p) { return {_mm_sqrt_ps(p.v)}; }
inline Pack<Sse, double> sqrt(Pack<Sse, double> p) { return {_mm_sqrt_pd(p.v)}; }
template <class T>
inline Pack<Scalar, T> sqrt(const Pack<Scalar, T>& p)
{
    Pack<Scalar, T> r;
    for (int i = 0; i < kLanes<T>; ++i) r.v[i] = std::sqrt(p.v[i]);
    return r;
}

// Lanes of a pack in another order: lane k of the result is lane ik of p.
template <int i0, int i1, int i2, int i3>
inline Pack<Sse, float> permute(Pack<Sse, float> p)
{
    return {_mm_shuffle_ps(p.v, p.v, _MM_SHUFFLE(i3, i2, i1, i0))};
}
template <int i0, int i1, int i2, int i3>
inline Pack<Scalar, float> permute(const Pack<Scalar, float>& p)
{
    Pack<Scalar, float> r;
    r.v[0] = p.v[i0], r.v[1] = p.v[i1], r.v[2] = p.v[i2], r.v[3] = p.v[i3];
    return r;
}

// Four rows of four floats turned into four columns: afterwards lane i of
// r[j] holds what lane j of r[i] held.  Lanes across objects: load one
// object per pack, transpose, and each pack holds one element of all four.
inline void transpose4(Pack<Sse, float> (&r)[4]) { _MM_TRANSPOSE4_PS(r[0].v, r[1].v, r[2].v, r[3].v); }
inline void transpose4(Pack<Scalar, float> (&r)[4])
{
    for (int i = 0; i < 4; ++i)
        for (int j = i + 1; j < 4; ++j) {
            const float t = r[i].v[j];
            r[i].v[j] = r[j].v[i];
            r[j].v[i] = t;
        }
}

// ---- Reciprocals from the processor's estimate ---------------------------------

// The single-precision reciprocal estimate (good to 12 bits or more; its
// last bits depend on the processor) refined by one Newton step instead of
// a division.  The step can be written two ways that round differently:
//   Scaled   x1 = (2 * x0) - ((d * x0) * x0)
//   Squared  x1 = (x0 + x0) - d * (x0 * x0)
// Kernels and the tests' models call this one function, so both see the
// same estimate on any processor.
enum class NewtonStep { Scaled, Squared };

inline float reciprocalEstimate(float d) { return _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(d))); }

template <NewtonStep S = NewtonStep::Scaled>
inline float refinedReciprocal(float d)
{
    const float x0 = reciprocalEstimate(d);
    if constexpr (S == NewtonStep::Scaled) return 2.0f * x0 - d * x0 * x0;
    else return (x0 + x0) - d * (x0 * x0);
}

}  // namespace kel::simd
