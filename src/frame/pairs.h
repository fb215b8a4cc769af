// One element of several objects in one register (four floats or two
// doubles, lane 0 the first object's), or in two (LanesTwice).
#pragma once

#include <emmintrin.h>

#include <cstring>

#include "frame/simd.h"

namespace kel::simd {

// Each lane does its own object's arithmetic, operation for operation in
// the same order, so a scalar formula written on T gives the same bits
// with T = Lanes<T>, kLanes<T> objects at a time.
template <class E>
struct Lanes {
    using Elem = E;
    using P = Pack<Sse, E>;
    static constexpr int kCount = kLanes<E>;  // objects
    P p;
    Lanes() = default;
    Lanes(P x) : p(x) {}
    explicit Lanes(E x) : p(P::splat(x)) {}
    friend Lanes operator+(Lanes a, Lanes b) { return a.p + b.p; }
    friend Lanes operator-(Lanes a, Lanes b) { return a.p - b.p; }
    friend Lanes operator*(Lanes a, Lanes b) { return a.p * b.p; }
    friend Lanes operator/(Lanes a, Lanes b) { return a.p / b.p; }
    // Negation, magnitudes, an ordered comparison (false where either is a NaN) and
    // equality as lane masks, and a choice by mask: mask ? a : b, lane by lane.
    friend Lanes operator-(Lanes a) { return simd::neg(a.p); }
    friend Lanes abs(Lanes a) { return simd::abs(a.p); }
    friend Lanes greater(Lanes a, Lanes b) { return simd::greater(a.p, b.p); }
    friend Lanes equal(Lanes a, Lanes b) { return simd::equal(a.p, b.p); }
    friend Lanes lessEqual(Lanes a, Lanes b) { return simd::lessEqual(a.p, b.p); }
    friend Lanes select(Lanes mask, Lanes a, Lanes b) { return simd::select(mask.p, a.p, b.p); }
    friend Lanes sqrt(Lanes a) { return simd::sqrt(a.p); }
    // Masks combined lane by lane: both, either, not.  A mask and a value
    // give the value where the mask is set and +0 elsewhere.
    friend Lanes operator&(Lanes a, Lanes b) { return bits(_mm_and_si128(bits(a), bits(b))); }
    friend Lanes operator|(Lanes a, Lanes b) { return bits(_mm_or_si128(bits(a), bits(b))); }
    friend Lanes operator~(Lanes a) { return bits(_mm_xor_si128(bits(a), _mm_set1_epi32(-1))); }
    // Bit l set where lane l of a mask is.
    friend int maskBits(Lanes mask) { return simd::maskBits(mask.p); }
    // A mask of all lanes or none.
    static Lanes all(bool on) { return bits(_mm_set1_epi32(on ? -1 : 0)); }
    // Object l's value.
    E lane(int l) const
    {
        alignas(16) E t[kLanes<E>];
        p.store(t);
        return t[l];
    }

private:
    static __m128i bits(Lanes a)
    {
        __m128i b;
        std::memcpy(&b, &a.p.v, sizeof b);
        return b;
    }
    static Lanes bits(__m128i b)
    {
        P r;
        std::memcpy(&r.v, &b, sizeof b);
        return r;
    }
};

// Two objects of double precision.
using DoublePair = Lanes<double>;

// Each lane rounded to single precision and widened back: what a kernel
// that computes in double and stores float reads back from its store.
inline DoublePair roundedToFloat(DoublePair x) { return Pack<Sse, double>{_mm_cvtps_pd(_mm_cvtpd_ps(x.p.v))}; }

// Two packs as one: 2 * kLanes<E> objects, one per lane, in two registers.
// The halves' arithmetic is independent, so where a kernel is a long chain
// of dependent operations (square roots, divisions), the chains of both
// halves run at once.
template <class E>
struct LanesTwice {
    using Elem = E;
    using H = Lanes<E>;
    static constexpr int kCount = 2 * H::kCount;
    H lo, hi;
    LanesTwice() = default;
    LanesTwice(H a, H b) : lo(a), hi(b) {}
    explicit LanesTwice(E x) : lo(x), hi(x) {}
    friend LanesTwice operator+(LanesTwice a, LanesTwice b) { return {a.lo + b.lo, a.hi + b.hi}; }
    friend LanesTwice operator-(LanesTwice a, LanesTwice b) { return {a.lo - b.lo, a.hi - b.hi}; }
    friend LanesTwice operator*(LanesTwice a, LanesTwice b) { return {a.lo * b.lo, a.hi * b.hi}; }
    friend LanesTwice operator/(LanesTwice a, LanesTwice b) { return {a.lo / b.lo, a.hi / b.hi}; }
    friend LanesTwice operator-(LanesTwice a) { return {-a.lo, -a.hi}; }
    friend LanesTwice abs(LanesTwice a) { return {abs(a.lo), abs(a.hi)}; }
    friend LanesTwice sqrt(LanesTwice a) { return {sqrt(a.lo), sqrt(a.hi)}; }
    friend LanesTwice greater(LanesTwice a, LanesTwice b) { return {greater(a.lo, b.lo), greater(a.hi, b.hi)}; }
    friend LanesTwice lessEqual(LanesTwice a, LanesTwice b) { return {lessEqual(a.lo, b.lo), lessEqual(a.hi, b.hi)}; }
    friend LanesTwice equal(LanesTwice a, LanesTwice b) { return {equal(a.lo, b.lo), equal(a.hi, b.hi)}; }
    friend LanesTwice select(LanesTwice m, LanesTwice a, LanesTwice b)
    {
        return {select(m.lo, a.lo, b.lo), select(m.hi, a.hi, b.hi)};
    }
    friend LanesTwice operator&(LanesTwice a, LanesTwice b) { return {a.lo & b.lo, a.hi & b.hi}; }
    friend LanesTwice operator|(LanesTwice a, LanesTwice b) { return {a.lo | b.lo, a.hi | b.hi}; }
    friend LanesTwice operator~(LanesTwice a) { return {~a.lo, ~a.hi}; }
    friend int maskBits(LanesTwice m) { return maskBits(m.lo) | maskBits(m.hi) << H::kCount; }
    static LanesTwice all(bool on) { return {H::all(on), H::all(on)}; }
    E lane(int l) const { return l < H::kCount ? lo.lane(l) : hi.lane(l - H::kCount); }
};
inline LanesTwice<double> roundedToFloat(LanesTwice<double> x) { return {roundedToFloat(x.lo), roundedToFloat(x.hi)}; }

// Element (j, i) of two objects' cursors as one pair.
template <class C>
struct PairCursor {
    C a, b;
    DoublePair get(int j, int i) const { return Pack<Sse, double>{_mm_set_pd(b.get(j, i), a.get(j, i))}; }
};
template <class C>
PairCursor<C> pairOf(const C& a, const C& b)
{
    return {a, b};
}

}  // namespace kel::simd
