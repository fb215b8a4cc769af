// Element-wise arithmetic: dst = left OP right, one rounded operation per
// element, for every mixture of arrays, single objects and constants, stored
// or transposed, in every description.
//
// Each result element depends only on the elements at its own position, so
// every path below gives the same bits and in-place use (dst equal to an
// array source in the same layout) works everywhere.  The paths differ in
// speed only:
//   flat   every array operand is one dense run of elements: the whole array
//          is streamed in 128-bit packs, a single object repeating from a
//          small buffer;
//   rows   all operands have contiguous rows (or are constants): whole rows
//          in 128-bit registers, straight-line code for square sizes 3 to 6
//          and vector lengths 3 to 6, a single operand held in registers
//          over the whole array;
//   planes every array operand has its objects side by side (interleaved S,
//          or P over planes): each element position is a run of objects,
//          streamed in 128-bit packs, a single operand spread over the
//          lanes; objects up to 8 x 8, and only if the result overlaps no
//          source other than in place;
//   grid   P tables that are grids (fields of an array of structures given
//          by pointers), no overlap: the S operands they describe, by the
//          paths above and below;
//   runs   S and P arrays with any Stride0 (transposed or strided objects,
//          P tables in any order), objects up to 8 x 8 and no overlap:
//          object after object from a table of element addresses;
//   any    anything else (L tables with strides or transposition, overlaps):
//          one element at a time through the views.
#pragma once

#include <cstdint>
#include <cstring>

#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/simd.h"
#include "frame/view.h"

namespace kel::elementwise {

struct Plus {
    template <class X>
    static X apply(X a, X b)
    {
        return a + b;
    }
};
struct Minus {
    template <class X>
    static X apply(X a, X b)
    {
        return a - b;
    }
};

// Can a view hand out whole rows (or a value to spread over a row)?
template <class V>
bool rowReady(const V& v)
{
    if constexpr (V::kind == Kind::Constant) return true;
    else return v.rowsContiguous();
}

// One operand as the row path sees it: a row of W elements of object n, row j.
// Single objects are loaded once, before the loop over objects.  The view is
// copied in and row offsets precomputed, so that nothing is reloaded from
// memory inside the loop (stores to the result may alias any memory).
template <class Isa, class T, int W, int H, class V, bool Packed = false>
struct RowSource {
    using R = simd::Row<Isa, T, W>;
    static constexpr bool kHeld = !V::array || V::kind == Kind::Constant;
    const V v;
    int32_t rowOff[H];
    R held[kHeld ? (V::kind == Kind::Constant ? 1 : H) : 1];

    explicit RowSource(const V& view) : v(view)
    {
        if constexpr (V::kind == Kind::Constant) {
            if constexpr (!V::array) held[0] = R::splat(v.get(0));
        } else {
            for (int j = 0; j < H; ++j) rowOff[j] = mul32(j, v.s1);
            if constexpr (!V::array)
                for (int j = 0; j < H; ++j) held[j] = R::load(offset(v.object(0), rowOff[j]));
        }
    }
    // Start of object n, or nothing for operands that need none.
    const T* object(int32_t n) const
    {
        if constexpr (V::kind != Kind::Constant && V::array) return v.object(n);
        else return nullptr;
    }
    R row(const T* obj, int32_t n, int j) const
    {
        if constexpr (V::kind == Kind::Constant) {
            if constexpr (V::array) return R::splat(v.get(n));
            else return held[0];
        } else if constexpr (V::array) {
            // Packed rows follow one another: constant offsets.
            return R::load(Packed ? obj + j * W : offset(obj, rowOff[j]));
        } else {
            return held[j];
        }
    }
};

// Straight-line path: W x H objects (H = 1 for vectors), sizes known.
template <class Op, class Isa, int W, int H, bool Packed = false, class A, class B, class D>
void rowsFixed(int32_t count, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    using R = simd::Row<Isa, T, W>;
    const RowSource<Isa, T, W, H, A, Packed> left(a);
    const RowSource<Isa, T, W, H, B, Packed> right(b);
    const D out = d;
    int32_t outOff[H];
    for (int j = 0; j < H; ++j) outOff[j] = mul32(j, out.s1);
    for (int32_t n = 0; n < count; ++n) {
        const T* pa = left.object(n);
        const T* pb = right.object(n);
        T* pd = out.object(n);
        for (int j = 0; j < H; ++j) {
            R r = zip(left.row(pa, n, j), right.row(pb, n, j), [](auto x, auto y) { return Op::apply(x, y); });
            r.store(Packed ? pd + j * W : offset(pd, outOff[j]));
        }
    }
}

// One pack of k elements of row j of object n, from i on; a constant spread.
template <class Isa, class T, class V>
inline simd::Pack<Isa, T> packAt(const V& v, int32_t n, int32_t j, int32_t i, int k)
{
    using P = simd::Pack<Isa, T>;
    if constexpr (V::kind == Kind::Constant) {
        (void)j, (void)i, (void)k;
        return P::splat(v.get(n));
    } else {
        const T* p = v.row(n, j) + i;
        return k == simd::kLanes<T> ? P::load(p) : P::loadPart(p, k);
    }
}

// Row path for any size: rows in packs of 128 bits, the last one partial.
template <class Op, class Isa, class A, class B, class D>
void rowsAny(int32_t count, int32_t w, int32_t h, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    constexpr int L = simd::kLanes<T>;
    for (int32_t n = 0; n < count; ++n)
        for (int32_t j = 0; j < h; ++j) {
            T* out = d.row(n, j);
            for (int32_t i = 0; i < w; i += L) {
                const int k = w - i < L ? static_cast<int>(w - i) : L;
                auto r = Op::apply(packAt<Isa, T>(a, n, j, i, k), packAt<Isa, T>(b, n, j, i, k));
                if (k == L) r.store(out + i);
                else r.storePart(out + i, k);
            }
        }
}

// Element path: any description, transposition and stride.  The views are
// copied in, so that the stores (which may alias any memory) do not make
// the compiler read them again for every element.
template <class Op, class A, class B, class D>
void elements(int32_t count, int32_t w, int32_t h, const A& av, const B& bv, const D& dv)
{
    const A a = av;
    const B b = bv;
    const D d = dv;
    for (int32_t n = 0; n < count; ++n)
        for (int32_t j = 0; j < h; ++j)
            for (int32_t i = 0; i < w; ++i) d.put(n, j, i, Op::apply(a.get(n, j, i), b.get(n, j, i)));
}

// ---- Flat path ---------------------------------------------------------------------
// When every array operand is dense (objects one after another, rows without
// gaps) the whole array is one run of count * w * h elements.  A single
// object then repeats with a period of w * h elements; it is copied `rep`
// times into a small buffer so that the period is a whole number of packs.

constexpr int32_t kMaxPattern = 36;  // largest w * h held as a pattern (6 x 6)

// An object or array of objects that is one dense run of elements.
template <class V>
bool denseRun(const V& v, int32_t w, int32_t h)
{
    if constexpr (V::kind == Kind::Constant || V::desc != Desc::S || V::trans) return false;
    else {
        const bool rows = v.s2 == kElem<typename V::Elem> && (h == 1 || v.s1 == w * v.s2);
        return rows && (!V::array || v.s0 == mul32(w * h, v.s2));
    }
}

// Can the flat path read this source?  Arrays must be dense runs; a single
// object (read once into a pattern) only needs contiguous rows; a constant
// is spread.
template <class V>
bool flatSource(const V& v, int32_t w, int32_t h)
{
    if constexpr (V::kind == Kind::Constant) return !V::array;
    else if constexpr (!V::array) return v.rowsContiguous() && w * h <= kMaxPattern;
    else return denseRun(v, w, h);
}

// One source of the flat path: a pointer that runs through the array, a
// pattern buffer, or a spread constant.
template <class Isa, class T, class V>
struct FlatSource {
    using P = simd::Pack<Isa, T>;
    static constexpr int L = simd::kLanes<T>;
    alignas(16) T pattern[V::array || V::kind == Kind::Constant ? 1 : kMaxPattern * L];
    const T* p = nullptr;
    P spread;

    FlatSource(const V& v, int32_t w, int32_t h, int32_t period)
    {
        if constexpr (V::kind == Kind::Constant) {
            spread = P::splat(v.get(0));
            (void)w, (void)h, (void)period;
        } else if constexpr (V::array) {
            p = v.object(0);
            (void)w, (void)h, (void)period;
        } else {
            for (int32_t k = 0; k < period; k += w * h)
                for (int32_t j = 0; j < h; ++j) std::memcpy(pattern + k + j * w, v.row(0, j), sizeof(T) * w);
            p = pattern;
        }
    }
    P at(int64_t k, int64_t inPeriod, int len) const
    {
        if constexpr (V::kind == Kind::Constant) {
            (void)k, (void)inPeriod, (void)len;
            return spread;
        } else {
            const T* q = (V::array ? p + k : p + inPeriod);
            return len == L ? P::load(q) : P::loadPart(q, len);
        }
    }
};

// Flat path in steps of NP packs, straight-line code for each step.  A
// single operand's pattern, NP packs long, is held in registers; streams
// and constants need no period and take NP = 4.
template <int NP, class Op, class Isa, class A, class B, class D>
int64_t flatPeriods(int64_t total, const FlatSource<Isa, typename D::Elem, A>& left,
                    const FlatSource<Isa, typename D::Elem, B>& right, typename D::Elem* out)
{
    using T = typename D::Elem;
    using P = simd::Pack<Isa, T>;
    constexpr int L = simd::kLanes<T>;
    constexpr int32_t period = NP * L;
    constexpr bool streamA = A::array && A::kind != Kind::Constant;
    constexpr bool streamB = B::array && B::kind != Kind::Constant;
    // Only the held operands are read here: an array may be shorter than
    // one period.
    P heldA[NP], heldB[NP];
    for (int i = 0; i < NP; ++i) {
        if constexpr (!streamA) heldA[i] = left.at(0, i * L, L);
        if constexpr (!streamB) heldB[i] = right.at(0, i * L, L);
    }
    int64_t k = 0;
    for (; k + period <= total; k += period) {
        for (int i = 0; i < NP; ++i) {
            const P x = streamA ? left.at(k + i * L, 0, L) : heldA[i];
            const P y = streamB ? right.at(k + i * L, 0, L) : heldB[i];
            Op::apply(x, y).store(out + k + i * L);
        }
    }
    return k;
}

template <class Op, class Isa, class A, class B, class D>
void flat(int32_t count, int32_t w, int32_t h, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    using P = simd::Pack<Isa, T>;
    constexpr int L = simd::kLanes<T>;
    const int32_t obj = w * h;
    int32_t rep = 1;
    while ((obj * rep) % L != 0) ++rep;
    const int32_t period = obj * rep;  // a whole number of packs and of objects
    const FlatSource<Isa, T, A> left(a, w, h, period);
    const FlatSource<Isa, T, B> right(b, w, h, period);
    T* out = d.object(0);
    const int64_t total = static_cast<int64_t>(count) * obj;
    int64_t k = 0;
    // A single object is worth holding in registers; arrays and constants
    // stream through the loop below just as fast.
    constexpr bool held = (!A::array && A::kind != Kind::Constant) || (!B::array && B::kind != Kind::Constant);
    if constexpr (!held) k = flatPeriods<4, Op, Isa, A, B, D>(total, left, right, out);
    else switch (period / L) {
    case 1: k = flatPeriods<1, Op, Isa, A, B, D>(total, left, right, out); break;
    case 2: k = flatPeriods<2, Op, Isa, A, B, D>(total, left, right, out); break;
    case 4: k = flatPeriods<4, Op, Isa, A, B, D>(total, left, right, out); break;
    case 8: k = flatPeriods<8, Op, Isa, A, B, D>(total, left, right, out); break;
    case 9: k = flatPeriods<9, Op, Isa, A, B, D>(total, left, right, out); break;
    default: break;
    }
    for (; k + period <= total; k += period) {
        int32_t i = 0;
        for (; i + 2 * L <= period; i += 2 * L) {
            P x0 = Op::apply(left.at(k + i, i, L), right.at(k + i, i, L));
            P x1 = Op::apply(left.at(k + i + L, i + L, L), right.at(k + i + L, i + L, L));
            x0.store(out + k + i);
            x1.store(out + k + i + L);
        }
        for (; i < period; i += L) Op::apply(left.at(k + i, i, L), right.at(k + i, i, L)).store(out + k + i);
    }
    for (int32_t i = 0; k + i < total; i += L) {
        const int len = total - (k + i) < L ? static_cast<int>(total - (k + i)) : L;
        P x = Op::apply(left.at(k + i, i, len), right.at(k + i, i, len));
        if (len == L) x.store(out + k + i);
        else x.storePart(out + k + i, len);
    }
}

// ---- Planes path -------------------------------------------------------------------
// Objects side by side: position (j, i) of objects 0..count-1 is one run of
// elements, streamed position after position.
template <class Op, class Isa, class A, class B, class D>
void planes(int32_t count, int32_t w, int32_t h, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    const LaneOperand<Isa, A> left(a, h, w);
    const LaneOperand<Isa, B> right(b, h, w);
    const LaneOperand<Isa, D> out(d, h, w);
    for (int32_t j = 0; j < h; ++j)
        for (int32_t i = 0; i < w; ++i)
            forLanes<T, 2>(count, [&](int32_t n, int k) {
                out.store(j, i, n, Op::apply(left.load(j, i, n, k), right.load(j, i, n, k)), k);
            });
}

// ---- Runs path ----------------------------------------------------------------------
// S and P arrays with any Stride0 (fields of an array of structures,
// objects with gaps or transposed): object after object, the positions of
// each object from a table of its first object's element addresses, so
// that an object's elements are one offset from those (objects are read in
// memory order, each cache line once).

// One operand: its first object's element at each position and the bytes
// from object to object, or the values every object shares.
template <class T, class V>
struct RunSource {
    static constexpr int kMax = kLaneMaxSide * kLaneMaxSide;
    const T* p[V::array ? kMax : 1];
    T value[V::array ? 1 : kMax];
    int32_t step = 0;
    RunSource(const V& v, int32_t w, int32_t h)
    {
        if constexpr (V::array) step = v.s0;
        for (int32_t j = 0; j < h; ++j)
            for (int32_t i = 0; i < w; ++i) {
                const int q = j * w + i;
                if constexpr (!V::array) value[q] = v.get(0, j, i);
                else if constexpr (V::kind == Kind::Constant) p[q] = v.at(0);
                else p[q] = v.at(0, j, i);
            }
    }
    T at(int32_t off, int q) const
    {
        if constexpr (!V::array) {
            (void)off;
            return value[q];
        } else {
            return load<T>(offset(p[q], off));
        }
    }
};

template <class Op, class A, class B, class D>
void runs(int32_t count, int32_t w, int32_t h, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    const RunSource<T, A> left(a, w, h);
    const RunSource<T, B> right(b, w, h);
    T* out[kLaneMaxSide * kLaneMaxSide];
    for (int32_t j = 0; j < h; ++j)
        for (int32_t i = 0; i < w; ++i) out[j * w + i] = d.at(0, j, i);
    const int positions = w * h;
    for (int32_t n = 0; n < count; ++n) {
        const int32_t oa = mul32(n, left.step), ob = mul32(n, right.step), od = mul32(n, d.s0);
        for (int q = 0; q < positions; ++q) store<T>(offset(out[q], od), Op::apply(left.at(oa, q), right.at(ob, q)));
    }
}
// The serial kernel of every member: picks a path for the whole array.
template <class Op, class Isa = simd::Sse>
struct Kernel {
    int32_t w, h;

    // Which paths a combination of views can take at all, known when
    // compiling: P tables and transposed operands never have rows in memory.
    template <class V>
    static constexpr bool rowsPossible()
    {
        if constexpr (V::kind == Kind::Constant) return true;
        else return V::desc != Desc::P && !V::trans;
    }
    template <class V>
    static constexpr bool flatPossible()
    {
        if constexpr (V::kind == Kind::Constant) return !V::array;
        else return rowsPossible<V>() && (!V::array || V::desc == Desc::S);
    }

    template <int N, class V>
    static bool packedRows(const V& v)
    {
        if constexpr (V::kind == Kind::Constant) return true;
        else return v.s2 == kElem<typename V::Elem> && v.s1 == N * kElem<typename V::Elem>;
    }

    template <int N, class A, class B, class D>
    bool tryFixed(int32_t count, const A& a, const B& b, const D& d) const
    {
        constexpr int H = D::kind == Kind::Vector ? 1 : N;
        if (w != N || h != H) return false;
        // Rows that follow one another in every array operand (L tables of
        // packed objects above all) take constant row offsets.
        if (packedRows<N>(a) && packedRows<N>(b) && packedRows<N>(d)) rowsFixed<Op, Isa, N, H, true>(count, a, b, d);
        else rowsFixed<Op, Isa, N, H>(count, a, b, d);
        return true;
    }

    template <class A, class B, class D>
    KelStatus operator()(int32_t count, void*, const A& a, const B& b, const D& d) const
    {
        // One object goes by rows: the flat path's setup (a single source
        // copied into its pattern) only pays off across an array.
        if constexpr (D::array && flatPossible<A>() && flatPossible<B>() && flatPossible<D>()) {
            if (flatSource(a, w, h) && flatSource(b, w, h) && denseRun(d, w, h)) {
                flat<Op, Isa>(count, w, h, a, b, d);
                return kelStsNoErr;
            }
        }
        if constexpr (D::array && lanesPossible<A>() && lanesPossible<B>() && lanesPossible<D>()) {
            if (w <= kLaneMaxSide && h <= kLaneMaxSide && sideBySide(a) && sideBySide(b) && sideBySide(d) &&
                !overlapsSources(d, count, w, h, a, b)) {
                planes<Op, Isa>(count, w, h, a, b, d);
                return kelStsNoErr;
            }
        }
        // Element tables that are grids (fields of an array of structures)
        // but not planes go as the S operands they are, unless the result
        // overlaps a source other than in place, whose result the element
        // path defines.
        if constexpr (isTable<A>() || isTable<B>() || isTable<D>()) {
            if (!overlapsSources(d, count, w, h, a, b) &&
                withGrids(count, w, h, [&](const auto&... g) { (*this)(count, nullptr, g...); }, a, b, d))
                return kelStsNoErr;
        }
        if constexpr (rowsPossible<A>() && rowsPossible<B>() && rowsPossible<D>()) {
            if (rowReady(a) && rowReady(b) && rowReady(d)) {
                if (!(tryFixed<3>(count, a, b, d) || tryFixed<4>(count, a, b, d) || tryFixed<5>(count, a, b, d) ||
                      tryFixed<6>(count, a, b, d)))
                    rowsAny<Op, Isa>(count, w, h, a, b, d);
                return kelStsNoErr;
            }
        }
        if constexpr (D::array && lanesPossible<A>() && lanesPossible<B>() && lanesPossible<D>()) {
            if (w <= kLaneMaxSide && h <= kLaneMaxSide && !overlapsSources(d, count, w, h, a, b)) {
                runs<Op>(count, w, h, a, b, d);
                return kelStsNoErr;
            }
        }
        elements<Op>(count, w, h, a, b, d);
        return kelStsNoErr;
    }
};

// P tables hold one entry per stored element; a transposed operand is stored
// with `height` columns.
template <class V>
void bindTable(V& v, int32_t w, int32_t h)
{
    if constexpr (V::kind != Kind::Constant) v.setStoredWidth(V::trans ? h : w);
}

// Front end of Add and Sub: views arrive in the order of the operation
// (left operand, right operand, result).
template <class Op, class A, class B, class D>
KelStatus run(const Traits& tr, const Sizes& s, A a, B b, D d)
{
    const bool matrix = D::kind == Kind::Matrix;
    const int32_t w = matrix ? s.W : s.L;
    const int32_t h = matrix ? s.H : 1;
    bindTable(a, w, h);
    bindTable(b, w, h);
    bindTable(d, w, h);
    return kel::run(tr, s, noMismatch, DriverInfo{}, Kernel<Op>{w, h}, a, b, d);
}

template <class... V>
KelStatus add(const Traits& tr, const Sizes& s, V... v)
{
    return run<Plus>(tr, s, v...);
}
template <class... V>
KelStatus sub(const Traits& tr, const Sizes& s, V... v)
{
    return run<Minus>(tr, s, v...);
}

}  // namespace kel::elementwise
