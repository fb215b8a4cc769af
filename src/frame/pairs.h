// Two objects of double precision in one register.
#pragma once

#include <emmintrin.h>

namespace kel::simd {

// ---- Two objects in one register ------------------------------------------------

// The doubles of two objects side by side, lane 0 the first object's.  Each
// lane does its own object's arithmetic, operation for operation in the
// same order, so a scalar formula written on T gives the same bits with T
// = DoublePair, two objects at a time.
struct DoublePair {
    __m128d v;
    DoublePair() = default;
    DoublePair(__m128d x) : v(x) {}
    explicit DoublePair(double x) : v(_mm_set1_pd(x)) {}
    static DoublePair of(double first, double second) { return {_mm_set_pd(second, first)}; }
    double first() const { return _mm_cvtsd_f64(v); }
    double second() const { return _mm_cvtsd_f64(_mm_unpackhi_pd(v, v)); }
    friend DoublePair operator+(DoublePair a, DoublePair b) { return {_mm_add_pd(a.v, b.v)}; }
    friend DoublePair operator-(DoublePair a, DoublePair b) { return {_mm_sub_pd(a.v, b.v)}; }
    friend DoublePair operator*(DoublePair a, DoublePair b) { return {_mm_mul_pd(a.v, b.v)}; }
    friend DoublePair operator/(DoublePair a, DoublePair b) { return {_mm_div_pd(a.v, b.v)}; }
};

// Element (j, i) of two objects' cursors as one pair.
template <class C>
struct PairCursor {
    C a, b;
    DoublePair get(int j, int i) const { return DoublePair::of(a.get(j, i), b.get(j, i)); }
};
template <class C>
PairCursor<C> pairOf(const C& a, const C& b)
{
    return {a, b};
}

}  // namespace kel::simd
