// One element of several objects in one register: four floats or two
// doubles, lane 0 the first object's.
#pragma once

#include <emmintrin.h>

#include "frame/simd.h"

namespace kel::simd {

// Each lane does its own object's arithmetic, operation for operation in
// the same order, so a scalar formula written on T gives the same bits
// with T = Lanes<T>, kLanes<T> objects at a time.
template <class E>
struct Lanes {
    using Elem = E;
    using P = Pack<Sse, E>;
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
    friend Lanes select(Lanes mask, Lanes a, Lanes b) { return simd::select(mask.p, a.p, b.p); }
    // Bit l set where lane l of a mask is.
    friend int maskBits(Lanes mask) { return simd::maskBits(mask.p); }
    // Object l's value.
    E lane(int l) const
    {
        alignas(16) E t[kLanes<E>];
        p.store(t);
        return t[l];
    }
};

// Two objects of double precision.
using DoublePair = Lanes<double>;

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
