// Element-wise arithmetic: dst = left OP right, one rounded operation per
// element, for every mixture of arrays, single objects and constants, stored
// or transposed, in every description.
//
// Each result element depends only on the elements at its own position, so
// every path below gives the same bits and in-place use (dst equal to an
// array source in the same layout) works everywhere.  The paths differ in
// speed only:
//   rows   all operands have contiguous rows (or are constants): whole rows
//          in 128-bit registers, straight-line code for square sizes 3 to 6
//          and vector lengths 3 to 6, a single operand held in registers
//          over the whole array;
//   any    anything else (strides, transposition, P tables): one element at
//          a time through the views.
#pragma once

#include <cstdint>

#include "frame/frame.h"
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
// Single objects are loaded once, before the loop over objects.
template <class Isa, class T, int W, int H, class V>
struct RowSource {
    using R = simd::Row<Isa, T, W>;
    const V& v;
    R held[V::array ? 1 : (V::kind == Kind::Constant ? 1 : H)];

    explicit RowSource(const V& view) : v(view)
    {
        if constexpr (V::kind == Kind::Constant && !V::array) held[0] = R::splat(v.get(0));
        else if constexpr (!V::array)
            for (int j = 0; j < H; ++j) held[j] = R::load(v.row(0, j));
    }
    R operator()(int32_t n, int j) const
    {
        if constexpr (V::kind == Kind::Constant) {
            if constexpr (V::array) return R::splat(v.get(n));
            else return held[0];
        } else if constexpr (V::array) {
            return R::load(v.row(n, j));
        } else {
            return held[j];
        }
    }
};

// Straight-line path: W x H objects (H = 1 for vectors), sizes known.
template <class Op, class Isa, int W, int H, class A, class B, class D>
void rowsFixed(int32_t count, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    using R = simd::Row<Isa, T, W>;
    const RowSource<Isa, T, W, H, A> left(a);
    const RowSource<Isa, T, W, H, B> right(b);
    for (int32_t n = 0; n < count; ++n) {
        for (int j = 0; j < H; ++j) {
            R r = zip(left(n, j), right(n, j), [](auto x, auto y) { return Op::apply(x, y); });
            r.store(d.row(n, j));
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

// Element path: any description, transposition and stride.
template <class Op, class A, class B, class D>
void elements(int32_t count, int32_t w, int32_t h, const A& a, const B& b, const D& d)
{
    for (int32_t n = 0; n < count; ++n)
        for (int32_t j = 0; j < h; ++j)
            for (int32_t i = 0; i < w; ++i) d.put(n, j, i, Op::apply(a.get(n, j, i), b.get(n, j, i)));
}

// The serial kernel of every member: picks a path for the whole array.
template <class Op, class Isa = simd::Sse>
struct Kernel {
    int32_t w, h;
    bool matrix;  // square sizes 3..6 of matrices, lengths 3..6 of vectors

    template <int N, class A, class B, class D>
    bool tryFixed(int32_t count, const A& a, const B& b, const D& d) const
    {
        if (w != N) return false;
        if (matrix && h == N) rowsFixed<Op, Isa, N, N>(count, a, b, d);
        else if (!matrix) rowsFixed<Op, Isa, N, 1>(count, a, b, d);
        else return false;
        return true;
    }

    template <class A, class B, class D>
    KelStatus operator()(int32_t count, void*, const A& a, const B& b, const D& d) const
    {
        if (rowReady(a) && rowReady(b) && rowReady(d)) {
            if (!(tryFixed<3>(count, a, b, d) || tryFixed<4>(count, a, b, d) || tryFixed<5>(count, a, b, d) ||
                  tryFixed<6>(count, a, b, d)))
                rowsAny<Op, Isa>(count, w, h, a, b, d);
        } else {
            elements<Op>(count, w, h, a, b, d);
        }
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
    return kel::run(tr, s, noMismatch, DriverInfo{}, Kernel<Op>{w, h, matrix}, a, b, d);
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
