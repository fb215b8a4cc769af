// Sums of the vector family: the orders in which dot products, norms and
// traces add their terms.
//
// A sum is taken over terms term(k), k = 0..n-1, each already rounded:
//   plain      from +0.0, k ascending: terms that are all -0.0 give +0.0;
//   straight   lengths 3 to 6 in straight-line code, beginning with a term
//              rather than with zero, in one of the fixed orders below.
// Which order a kernel uses is part of its result and is kept per kernel.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/lanes.h"
#include "frame/simd.h"
#include "frame/view.h"

namespace kel::vector {

template <class T, class F>
inline T plainSum(int32_t n, F term)
{
    T s = T(0);
    for (int32_t k = 0; k < n; ++k) s = s + term(k);
    return s;
}

// Straight-line orders for 3 to 6 terms.
enum class Order : unsigned char {
    Ascending,  // ((t0 + t1) + t2) + ...
    Scattered,  // ((t1 + t2) + t0), (((t3 + t1) + t2) + t0), ...: strided single vectors
    LanePairs,  // two lanes of even and odd terms, then added: packed single 64f vectors
    Pairs,      // (t0 + t1) + (t2 + t3), then t4, or + (t4 + t5): norms
};

inline bool straightLength(int32_t n) { return n >= 3 && n <= 6; }

template <int N, class T, class F>
inline T straightSum(Order order, F t)
{
    static_assert(N >= 3 && N <= 6, "straight-line sums have 3 to 6 terms");
    switch (order) {
    case Order::Scattered: {
        constexpr int kOrder[4][6] = {{1, 2, 0}, {3, 1, 2, 0}, {4, 2, 3, 0, 1}, {5, 3, 4, 0, 1, 2}};
        T s = t(kOrder[N - 3][0]);
        for (int i = 1; i < N; ++i) s = s + t(kOrder[N - 3][i]);
        return s;
    }
    case Order::LanePairs:
        if constexpr (N == 4) return (t(0) + t(2)) + (t(1) + t(3));
        if constexpr (N == 5) return ((t(0) + t(2)) + (t(1) + t(3))) + t(4);
        if constexpr (N == 6) return (t(0) + (t(2) + t(4))) + (t(1) + (t(3) + t(5)));
        break;
    case Order::Pairs:
        if constexpr (N == 4) return (t(0) + t(1)) + (t(2) + t(3));
        if constexpr (N == 5) return ((t(0) + t(1)) + (t(2) + t(3))) + t(4);
        if constexpr (N == 6) return ((t(0) + t(1)) + (t(2) + t(3))) + (t(4) + t(5));
        break;
    case Order::Ascending:
        break;
    }
    T s = t(0);
    for (int i = 1; i < N; ++i) s = s + t(i);
    return s;
}

// Straight-line sum of n terms, n from 3 to 6.
template <class T, class F>
inline T straightSum(int32_t n, Order order, F t)
{
    switch (n) {
    case 3: return straightSum<3, T>(order, t);
    case 4: return straightSum<4, T>(order, t);
    case 5: return straightSum<5, T>(order, t);
    default: return straightSum<6, T>(order, t);
    }
}

// Runs f with the path of the call as a compile-time constant.
template <class F, class V0, class... V>
inline void byPath(F&& f, const V0& v0, const V&... v)
{
    if constexpr (V0::desc == Desc::P) {
        f(std::integral_constant<Path, Path::Table>{});
    } else {
        if (pathOf(v0, v...) == Path::Rows) f(std::integral_constant<Path, Path::Rows>{});
        else f(std::integral_constant<Path, Path::Strided>{});
    }
}

// Packed float arrays, four objects at a time: terms(n) gives the pack of
// object n's terms (term k in lane k), and reduce(n, t) gives the four
// results from the four objects' packs t[0..3], stored as one pack; those
// that add term by term take columns(t) first.  Returns the objects done.
// d comes by value: its own copy stays in registers, where the caller's
// would be read again after every store.
template <class Terms, class Reduce>
inline int32_t fourInLanes(int32_t count, const Dense<float> d, Terms terms, Reduce reduce)
{
    int32_t n = 0;
    for (; n + 4 <= count; n += 4) {
        simd::Pack<simd::Sse, float> t[4];
        for (int o = 0; o < 4; ++o) t[o] = terms(n + o);
        reduce(n, t).store(d.at(n));
    }
    return n;
}
// The four objects' packs transposed: pack k holds term k of the four
// objects, object o's in lane o.
inline void columns(simd::Pack<simd::Sse, float> (&t)[4]) { simd::transpose4(t); }

// Packed float arrays of gapless objects of E terms, E odd, four objects at
// a time: blocks(n, q) gives the 16-byte block q of the terms of objects
// n .. n+3 (object o's term k the float o*E + k of their run), whose lanes
// are moved into place by blends rather than by transpositions; reduce as
// in fourInLanes.
template <int E, class Blocks, class Reduce>
inline int32_t fourInBlocks(int32_t count, const Dense<float> d, Blocks blocks, Reduce reduce)
{
    int32_t n = 0;
    for (; n + 4 <= count; n += 4) {
        __m128 b[E];
        simd::Lanes<float> l[E];
        simd::Pack<simd::Sse, float> t[E];
        unrolled<E>([&](auto q) { b[q] = blocks(n, q); });
        lanesOfBlocks(b, l);
        unrolled<E>([&](auto e) { t[e] = l[e].p; });
        reduce(n, t).store(d.at(n));
    }
    return n;
}

}  // namespace kel::vector
