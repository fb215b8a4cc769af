// Lanes across objects: kernels for operands whose objects lie side by side
// (see sideBySide in view.h).  Element (j, i) of objects n, n+1, ... is one
// run of memory, so a pack holds that element of kLanes objects, and a
// kernel written for one object's element runs that many objects at once,
// each lane doing exactly its object's arithmetic in its object's order.
//
// A LaneOperand resolves every position of an object once per call: the
// start of its run (arrays), or its value spread over the lanes (a single
// object or a constant, the same for every lane).  Loads and stores of a
// partial pack touch exactly the objects named, so the last objects of an
// array are never read or written past.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "kelm.h"
#include "frame/cursor.h"
#include "frame/pairs.h"
#include "frame/simd.h"
#include "frame/view.h"

namespace kel {

// Largest height and width a lanes kernel resolves.
constexpr int32_t kLaneMaxSide = 8;

// A position (row, column) in an object.
struct Position {
    int32_t j, i;
};

template <class Isa, class V>
struct LaneOperand {
    using T = typename V::Elem;
    using Ptr = std::conditional_t<V::written, T*, const T*>;
    using P = simd::Pack<Isa, T>;
    static constexpr int L = simd::kLanes<T>;
    static constexpr bool kRun = V::array;
    static constexpr int kMax = kLaneMaxSide * kLaneMaxSide;

    Ptr p[kRun ? kMax : 1];
    P spread[kRun ? 1 : kMax];

    // Positions of an h x w logical object (both at most kLaneMaxSide).
    LaneOperand(const V& v, int32_t h, int32_t w)
    {
        for (int32_t j = 0; j < h; ++j)
            for (int32_t i = 0; i < w; ++i) {
                const int k = j * kLaneMaxSide + i;
                if constexpr (!kRun) spread[k] = P::splat(v.get(0, j, i));
                else if constexpr (V::kind == Kind::Constant) p[k] = v.at(0);
                else p[k] = v.at(0, j, i);
            }
    }
    // Element (j, i) of objects n .. n+k-1 (k up to the lane count).
    P load(int32_t j, int32_t i, int32_t n, int k = L) const
    {
        const int q = j * kLaneMaxSide + i;
        if constexpr (!kRun) {
            (void)n, (void)k;
            return spread[q];
        } else {
            return k == L ? P::load(p[q] + n) : P::loadPart(p[q] + n, k);
        }
    }
    // Element pos(l) = (j, i) of object n + l in lane l, for lanes l < k (the
    // others zero): positions that differ from lane to lane.
    template <class F>
    P gather(int32_t n, int k, F pos) const
    {
        static_assert(kRun, "a single object's elements are spread already");
        alignas(16) T t[L] = {};
        for (int l = 0; l < k; ++l) {
            const Position q = pos(l);
            t[l] = kel::load<T>(p[q.j * kLaneMaxSide + q.i] + n + l);
        }
        return P::load(t);
    }
    void store(int32_t j, int32_t i, int32_t n, P x, int k = L) const
    {
        static_assert(V::written && kRun, "stores go to an array result");
        T* q = p[j * kLaneMaxSide + i] + n;
        if (k == L) x.store(q);
        else x.storePart(q, k);
    }
};

// Element (j, i) of the pack of objects first .. first+k-1 as one Lanes
// value: the cursor through which a kernel written over its value type
// reads (and, for a result, writes) a pack of objects.
template <class Op>
struct PackCursor {
    using L = simd::Lanes<typename Op::T>;
    const Op& op;
    int32_t first;
    int k;
    L get(int32_t j, int32_t i) const { return L(op.load(j, i, first, k)); }
    void put(int32_t j, int32_t i, L v) const { op.store(j, i, first, v.p, k); }
};
template <class Op>
PackCursor<Op> packOf(const Op& op, int32_t first, int k)
{
    return {op, first, k};
}

// Packed objects into lanes and back.  Row of a pack of objects whose
// elements follow one another (object l's row at at(l), w elements, w at
// most kLaneMaxSide) becomes r[0..w-1]: element i of every object's row,
// object l's in lane l.  Exactly w elements of each row are read or written.
// Floats go four rows at a time through a 4 x 4 transposition, doubles two
// at a time by unpacking.
template <class At>
inline void lanesOfRow(At at, int w, simd::Lanes<float>* r)
{
    using P = simd::Pack<simd::Sse, float>;
    for (int c = 0; c < w; c += 4) {
        const int m = std::min(4, w - c);
        P x[4];
        for (int l = 0; l < 4; ++l) x[l] = m == 4 ? P::load(at(l) + c) : P::loadPart(at(l) + c, m);
        simd::transpose4(x);
        for (int i = 0; i < m; ++i) r[c + i] = x[i];
    }
}
template <class At>
inline void rowOfLanes(const simd::Lanes<float>* r, int w, At at)
{
    using P = simd::Pack<simd::Sse, float>;
    for (int c = 0; c < w; c += 4) {
        const int m = std::min(4, w - c);
        P x[4] = {};
        for (int i = 0; i < m; ++i) x[i] = r[c + i].p;
        simd::transpose4(x);
        for (int l = 0; l < 4; ++l) m == 4 ? x[l].store(at(l) + c) : x[l].storePart(at(l) + c, m);
    }
}
template <class At>
inline void lanesOfRow(At at, int w, simd::Lanes<double>* r)
{
    for (int c = 0; c < w; c += 2) {
        if (c + 1 < w) {
            const __m128d a = _mm_loadu_pd(at(0) + c), b = _mm_loadu_pd(at(1) + c);
            r[c] = simd::Pack<simd::Sse, double>{_mm_unpacklo_pd(a, b)};
            r[c + 1] = simd::Pack<simd::Sse, double>{_mm_unpackhi_pd(a, b)};
        } else {
            r[c] = simd::Pack<simd::Sse, double>{_mm_loadh_pd(_mm_load_sd(at(0) + c), at(1) + c)};
        }
    }
}
template <class At>
inline void rowOfLanes(const simd::Lanes<double>* r, int w, At at)
{
    for (int c = 0; c < w; c += 2) {
        if (c + 1 < w) {
            _mm_storeu_pd(at(0) + c, _mm_unpacklo_pd(r[c].p.v, r[c + 1].p.v));
            _mm_storeu_pd(at(1) + c, _mm_unpackhi_pd(r[c].p.v, r[c + 1].p.v));
        } else {
            _mm_storel_pd(at(0) + c, r[c].p.v);
            _mm_storeh_pd(at(1) + c, r[c].p.v);
        }
    }
}

// Two objects of H x W doubles, an odd number, the second right after the
// first: the E = H * W 16-byte blocks that hold them are (x0, x1), ...,
// (x[E-1], y0), (y1, y2), ..., so element e of the two, (xe, ye), lies in
// blocks e/2 and (E+e)/2 and comes out of them in one blend (e even) or
// one shuffle (e odd).  No byte outside the two objects is read or written.
template <int H, int W>
inline void pairsOfBlocks(const double* p, simd::Lanes<double> (&a)[H][W])
{
    constexpr int E = H * W;
    static_assert(E % 2 == 1, "an odd number of elements an object");
    __m128d b[E];
    unrolled<E>([&](auto k) { b[k] = _mm_loadu_pd(p + 2 * k); });
    unrolled<E>([&](auto e) {
        const __m128d x = b[e / 2], y = b[(E + e) / 2];
        a[e / W][e % W] = simd::Pack<simd::Sse, double>{e % 2 ? _mm_shuffle_pd(x, y, 1) : _mm_blend_pd(x, y, 2)};
    });
}
template <int H, int W>
inline void blocksOfPairs(const simd::Lanes<double> (&a)[H][W], double* p)
{
    constexpr int E = H * W;
    static_assert(E % 2 == 1, "an odd number of elements an object");
    auto at = [&](int e) { return a[e / W][e % W].p.v; };
    unrolled<E>([&](auto k) {
        constexpr int e = 2 * k;
        __m128d b;
        if constexpr (e + 1 < E) b = _mm_unpacklo_pd(at(e), at(e + 1));
        else if constexpr (e + 1 == E) b = _mm_blend_pd(at(e), at(0), 2);
        else b = _mm_unpackhi_pd(at(e - E), at(e + 1 - E));
        _mm_storeu_pd(p + e, b);
    });
}

// Four objects of E floats, E odd, the next right after the last: the E
// 16-byte blocks that hold them.  Element e of object o is float o*E + e,
// lane (o*E + e) % 4 of block (o*E + e) / 4.  As E is odd, the four objects'
// element e lies in four different lanes, so it comes out of its blocks by
// blends, then one permutation puts object o into lane o.  The way back
// permutes each element the other way and blends the blocks together.
namespace detail {
// The lanes of block q that hold element e of the four objects.
constexpr int quadLanes(int E, int e, int q)
{
    int m = 0;
    for (int o = 0; o < 4; ++o)
        if ((o * E + e) / 4 == q) m |= 1 << ((o * E + e) % 4);
    return m;
}
// Shuffle control that takes element e of the four objects from the lanes of
// the blocks (lane (o*E + e) % 4 holds object o) to lane o (in), and back
// (out).  Skewed, lane l holds object (l*E) % 4 instead, the order that
// element 0 comes in (as E*E % 4 is 1, it takes a rotation by e).
constexpr int quadOrder(int E, int e, bool in, bool skewed)
{
    int c = 0;
    for (int l = 0; l < 4; ++l) {
        const int to = l, from = skewed ? (l + e) % 4 : (l * E + e) % 4;
        c |= in ? from << (2 * to) : to << (2 * from);
    }
    return c;
}
// Does lane l of block q hold the same element (of another object) as a
// lane before it?
constexpr bool elementSeen(int E, int q, int l)
{
    for (int m = 0; m < l; ++m)
        if ((4 * q + m) % E == (4 * q + l) % E) return true;
    return false;
}
constexpr int kInOrder = 0xE4;  // lanes 0, 1, 2, 3 as they are
}  // namespace detail

template <int E, bool Skewed = false>
inline void lanesOfBlocks(const __m128 (&b)[E], simd::Lanes<float> (&a)[E])
{
    static_assert(E % 2 == 1, "an odd number of elements an object");
    unrolled<E>([&](auto e) {
        __m128 v = b[e / 4];
        unrolled<3>([&](auto o) {
            constexpr int q = ((o + 1) * E + e) / 4, qPrev = (o * E + e) / 4;
            if constexpr (q != qPrev) v = _mm_blend_ps(v, b[q], detail::quadLanes(E, e, q));
        });
        constexpr int c = detail::quadOrder(E, e, true, Skewed);
        if constexpr (c != detail::kInOrder) v = _mm_shuffle_ps(v, v, c);
        a[e] = simd::Pack<simd::Sse, float>{v};
    });
}
template <int E, bool Skewed = false>
inline void blocksOfLanes(const simd::Lanes<float> (&a)[E], __m128 (&b)[E])
{
    static_assert(E % 2 == 1, "an odd number of elements an object");
    __m128 u[E];
    unrolled<E>([&](auto e) {
        constexpr int c = detail::quadOrder(E, e, false, Skewed);
        u[e] = c == detail::kInOrder ? a[e].p.v : _mm_shuffle_ps(a[e].p.v, a[e].p.v, c);
    });
    unrolled<E>([&](auto q) {
        __m128 v = u[4 * q % E];
        unrolled<3>([&](auto m) {
            constexpr int l = m + 1, e = (4 * q + l) % E;
            if constexpr (!detail::elementSeen(E, q, l)) v = _mm_blend_ps(v, u[e], detail::quadLanes(E, e, q));
        });
        b[q] = v;
    });
}
// Element (j, i) of four gapless objects of H x W floats at p, and back.
template <int H, int W, bool Skewed = false>
inline void quadsOfBlocks(const float* p, simd::Lanes<float> (&a)[H][W])
{
    constexpr int E = H * W;
    __m128 b[E];
    simd::Lanes<float> t[E];
    unrolled<E>([&](auto q) { b[q] = _mm_loadu_ps(p + 4 * q); });
    lanesOfBlocks<E, Skewed>(b, t);
    unrolled<E>([&](auto e) { a[e / W][e % W] = t[e]; });
}
template <int H, int W, bool Skewed = false>
inline void blocksOfQuads(const simd::Lanes<float> (&a)[H][W], float* p)
{
    constexpr int E = H * W;
    simd::Lanes<float> t[E];
    __m128 b[E];
    unrolled<E>([&](auto e) { t[e] = a[e / W][e % W]; });
    blocksOfLanes<E, Skewed>(t, b);
    unrolled<E>([&](auto q) { _mm_storeu_ps(p + 4 * q, b[q]); });
}

// Are objects `first` .. `first + N - 1` of a walk whose rows are runs of
// memory H rows of W elements with no gap within or between them?
// Known from the strides alone for an S array, which leaves the answer the
// same for every pack of the call.
template <int N, int H, int W, class Walk>
inline bool gaplessRun(const Walk& in, int32_t first)
{
    using V = std::remove_cv_t<decltype(in.v)>;
    if constexpr (sArrays<V>()) {
        (void)first;
        return gaplessObjects(in.v, H, W);
    } else {
        const auto* p = in[first].at(0, 0);
        bool gapless = H == 1 || in[first].at(1, 0) == p + W;
        for (int o = 1; o < N; ++o) gapless = gapless && in[first + o].at(0, 0) == p + o * W * H;
        return gapless;
    }
}

// Rows 0 .. H-1 (W elements each) of the pack of objects from `first` of a
// walk whose rows are runs of memory: a[j][i] is element (j, i).  Pairs of
// gapless objects with an odd number of elements take their blocks.
template <int H, int W, class Walk, class L>
[[gnu::always_inline]] inline void lanesOfRows(const Walk& in, int32_t first, L (&a)[H][W])
{
    if constexpr (W * H % 2 == 1) {
        constexpr int N = simd::kLanes<typename L::Elem>;
        if (gaplessRun<N, H, W>(in, first)) {
            if constexpr (N == 2) return pairsOfBlocks(in[first].at(0, 0), a);
            else return quadsOfBlocks(in[first].at(0, 0), a);
        }
    }
    unrolled<H>([&](auto j) { lanesOfRow([&](int l) { return in[first + l].at(j, 0); }, W, a[j]); });
}
// The way back: a[j][i] into element (j, i) of the pack's objects.
template <int H, int W, class Walk, class L>
[[gnu::always_inline]] inline void rowsOfLanes(const L (&a)[H][W], const Walk& out, int32_t first)
{
    if constexpr (W * H % 2 == 1) {
        constexpr int N = simd::kLanes<typename L::Elem>;
        if (gaplessRun<N, H, W>(out, first)) {
            if constexpr (N == 2) return blocksOfPairs(a, out[first].at(0, 0));
            else return blocksOfQuads(a, out[first].at(0, 0));
        }
    }
    unrolled<H>([&](auto j) { rowOfLanes(a[j], W, [&](int l) { return out[first + l].at(j, 0); }); });
}

// May a kernel take packed objects of an S array (w x h logical elements
// each, rows runs of memory) a pack at a time, reading all of a pack before
// it writes any of it?  Only where the results' objects share no byte with
// one another or with a source other than in place: then the order of the
// reads and writes cannot change a result.
template <class D, class... V>
bool packsPossible(const D& d, int32_t count, int32_t w, int32_t h, const V&... src)
{
    const Span one = spanOf(d, 1, w, h);
    return count >= simd::kLanes<typename D::Elem> && one.hi - one.lo <= d.s0 &&
           !overlapsSources(d, count, w, h, src...);
}

// Can views of these types take a lanes kernel at all?  L arrays never can.
template <class V>
constexpr bool lanesPossible()
{
    if constexpr (!V::array) return true;
    else return V::desc != Desc::L;
}

// A solve's operands (a matrix of order n, right-hand sides b, results x)
// that can go a pack of objects at a time: x an array, all of them side by
// side, and x overlapping no source, or b exactly (every solve writes x
// after it has read all of b).
template <class M, class B, class X>
constexpr bool solveLanesPossible()
{
    return X::array && lanesPossible<M>() && lanesPossible<B>() && lanesPossible<X>();
}
template <class M, class B, class X>
bool solveSideBySide(int32_t count, int32_t n, const M& m, const B& b, const X& x)
{
    if (n > kLaneMaxSide || !sideBySide(m) || !sideBySide(b) || !sideBySide(x)) return false;
    const Span out = spanOf(x, count, n, 1);
    return !spanOf(m, count, n, n).meets(out) && (samePlace(b, x) || !spanOf(b, count, n, 1).meets(out));
}

// Objects n = 0, kLanes, ... of `count` in packs, the last one partial:
// f(n, k) with k objects.  Unroll: full packs per step, for bodies so
// short that the loop's own work counts.
template <class T, int Unroll = 1, class F>
inline void forLanes(int32_t count, F&& f)
{
    constexpr int L = simd::kLanes<T>;
    int32_t n = 0;
    if constexpr (Unroll > 1)
        for (; n + Unroll * L <= count; n += Unroll * L)
            for (int u = 0; u < Unroll; ++u) f(n + u * L, L);
    for (; n + L <= count; n += L) f(n, L);
    if (n < count) f(n, static_cast<int>(count - n));
}

// Are the w x h positions of `count` objects side by side (each position a
// run of `count` elements) apart from one another?  Then no two writes of a
// call land on the same byte, and the order of the writes cannot change the
// result.
template <class V>
bool positionsApart(const V& v, int32_t count, int32_t w, int32_t h)
{
    const char* at[kLaneMaxSide * kLaneMaxSide];
    int k = 0;
    for (int32_t j = 0; j < h; ++j)
        for (int32_t i = 0; i < w; ++i) at[k++] = reinterpret_cast<const char*>(v.at(0, j, i));
    std::sort(at, at + k);
    const std::ptrdiff_t run = static_cast<std::ptrdiff_t>(count) * kElem<typename V::Elem>;
    for (int q = 1; q < k; ++q)
        if (at[q] - at[q - 1] < run) return false;
    return true;
}

// Groups of objects that a kernel takes at once, one per lane, where its
// time is long chains of dependent square roots and divisions (the
// iterative eigenproblems): four, in two packs of doubles, so that two
// chains run side by side.
using ObjectGroup = simd::LanesTwice<double>;

// Element (j, i) of the group of objects from k, widened to double.
template <class Walk>
ObjectGroup gatherGroup(const Walk& from, int32_t k, int j, int i)
{
    return {simd::pairOf(from[k], from[k + 1]).get(j, i), simd::pairOf(from[k + 2], from[k + 3]).get(j, i)};
}

// Objects from k on in groups while whole groups remain, advancing k:
// `group(k)` computes the group from k and returns the mask of its lanes
// that failed, `write(k, l)` stores lane l's result as object k's, and
// `single(k)` runs object k alone.  Objects stay in order: a failed object
// runs again alone, so its status, what it writes and where the call stops
// are those of the object-by-object kernel.
template <class Group, class Write, class Single>
KelStatus inGroups(int32_t count, int32_t& k, const Group& group, const Write& write, const Single& single)
{
    constexpr int G = ObjectGroup::kCount;
    for (; k + G <= count; k += G) {
        const int failed = group(k);
        for (int l = 0; l < G; ++l) {
            if (failed >> l & 1) {
                if (KelStatus st = single(k + l)) return st;
                continue;
            }
            write(k + l, l);
        }
    }
    return kelStsNoErr;
}

}  // namespace kel
