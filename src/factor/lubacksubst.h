// LUBackSubst: solves A x = b from the factors and the pivot table of
// LUDecomp.
//
// a(k, j) below is column j of the factor row at table position k, that is
// of row p[k] of the matrix; b is read in its own row order through the
// table (b[p[k]] enters at step k), x is written in natural order.  Nothing
// is checked after the arguments: a zero on the diagonal gives infinities or
// NaN, not a status.
//
// Orders 3 to 6 solve in straight-line chains held in locals, and store x
// only after every element of b is read (so dst may be src2).  In the
// forward chain each row starts from b and subtracts its terms one by one,
// columns 1, 2, ... first and column 0 last.  One matrix against many
// vectors (mva) reads the matrix once and multiplies by reciprocals of the
// diagonal computed once; a single system (mv) and one matrix per vector
// (mava) divide.  Every other order runs the general loop with dst as its
// work vector (dst must then not be src2).  Objects side by side
// (interleaved S, P over planes) solve a pack of vectors at once: against
// one matrix through its table, or each against its own matrix and table.
#pragma once

#include <cstdint>
#include <type_traits>

#include "factor/lu.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/view.h"

namespace kel::factor {

// One straight-line solve over the value type T (one object's, or Lanes
// for a pack of objects).  a(k, j): factor element at position k; b(k):
// the right-hand side's element at table position k; scale(i, v): v
// divided by a(i, i), or times its reciprocal; x: the result's cursor.
template <int N, class T, class A, class B, class Scale, class X>
inline void solveFixed(const A& a, const B& b, const Scale& scale, const X& x)
{
    T y[N];
    y[0] = b(0);
#pragma GCC unroll 8
    for (int i = 1; i < N; ++i) {
        T v = b(i);
#pragma GCC unroll 8
        for (int j = 1; j < i; ++j) v = v - a(i, j) * y[j];
        y[i] = v - a(i, 0) * y[0];
    }
    T z[N];
    z[N - 1] = scale(N - 1, y[N - 1]);
#pragma GCC unroll 8
    for (int i = N - 2; i >= 0; --i) {
        T v = y[i];
#pragma GCC unroll 8
        for (int j = N - 1; j > i; --j) v = v - a(i, j) * z[j];
        z[i] = scale(i, v);
    }
#pragma GCC unroll 8
    for (int i = 0; i < N; ++i) x.put(0, i, z[i]);
}

// The general loop: dst is the work vector.
template <class T, class M, class B, class X>
inline void solveGeneral(int32_t n, const M& m, const int32_t* p, const B& b, const X& x)
{
    auto a = [&](int32_t k, int32_t j) { return m.get(p[k], j); };
    x.put(0, 0, b.get(0, p[0]));
    for (int32_t i = 1; i < n; ++i) {
        T s = T(0);
        for (int32_t j = 0; j < i; ++j) s = s + a(i, j) * x.get(0, j);
        x.put(0, i, b.get(0, p[i]) - s);
    }
    x.put(0, n - 1, x.get(0, n - 1) / a(n - 1, n - 1));
    for (int32_t i = n - 2; i >= 0; --i) {
        T s = T(0);
        for (int32_t j = i + 1; j < n; ++j) s = s + a(i, j) * x.get(0, j);
        x.put(0, i, (x.get(0, i) - s) / a(i, i));
    }
}

// The serial kernel of every member.  The matrix view is an array (mava) or
// one matrix shared by all vectors (mv, mva); the table slice of object k
// starts at piv.at(k), which the front end makes the same table for a
// shared matrix.
struct LuBackSubstKernel {
    int32_t n;

    template <int N, Path W, class M, class B, class X>
    static void fixed(int32_t count, const M& src, const B& src2, const Dense<const int>& piv, const X& dst)
    {
        using T = typename X::Elem;
        if constexpr (!M::array && X::array) {
            // One matrix for all vectors: read it once, in table order, with
            // the reciprocals of its diagonal.
            const int32_t* p = piv.at(0);
            const auto s = cursor<W>(src, 0);
            T m[N][N], rd[N];
#pragma GCC unroll 8
            for (int k = 0; k < N; ++k)
#pragma GCC unroll 8
                for (int j = 0; j < N; ++j) m[k][j] = s.get(p[k], j);
#pragma GCC unroll 8
            for (int i = 0; i < N; ++i) rd[i] = T(1) / m[i][i];
            auto a = [&](int k, int j) { return m[k][j]; };
            auto scale = [&](int i, T v) { return v * rd[i]; };
            for (int32_t k = 0; k < count; ++k) {
                const auto b = cursor<W>(src2, k);
                solveFixed<N, T>(a, [&](int i) { return b.get(0, p[i]); }, scale, cursor<W>(dst, k));
            }
        } else {
            for (int32_t k = 0; k < count; ++k) {
                const int32_t* p = piv.at(k);
                const auto s = cursor<W>(src, k);
                const auto b = cursor<W>(src2, k);
                auto a = [&](int r, int j) { return s.get(p[r], j); };
                auto scale = [&](int i, T v) { return v / a(i, i); };
                solveFixed<N, T>(a, [&](int i) { return b.get(0, p[i]); }, scale, cursor<W>(dst, k));
            }
        }
    }

    // One matrix for vectors side by side: the mva solve of fixed() for a
    // pack of vectors at once (the shared table reads whole planes of b).
    template <int N, Path W, class M, class B, class X>
    static void sharedLanes(int32_t count, const M& src, const B& src2, const Dense<const int>& piv, const X& dst)
    {
        using T = typename X::Elem;
        using L = simd::Lanes<T>;
        const int32_t* p = piv.at(0);
        const auto s = cursor<W>(src, 0);
        L m[N][N], rd[N];
        for (int k = 0; k < N; ++k)
            for (int j = 0; j < N; ++j) m[k][j] = L(s.get(p[k], j));
        for (int i = 0; i < N; ++i) rd[i] = L(T(1) / s.get(p[i], i));
        const LaneOperand<simd::Sse, B> b(src2, 1, N);
        const LaneOperand<simd::Sse, X> x(dst, 1, N);
        auto a = [&](int k, int j) { return m[k][j]; };
        auto scale = [&](int i, L v) { return v * rd[i]; };
        forLanes<T>(count, [&](int32_t first, int k) {
            const auto in = packOf(b, first, k);
            solveFixed<N, L>(a, [&](int i) { return in.get(0, p[i]); }, scale, packOf(x, first, k));
        });
    }

    // One matrix per vector, side by side: the mava solve of fixed() for a
    // pack of objects, each lane through its own object's table (its rows
    // gathered lane by lane).
    template <int N, class M, class B, class X>
    static void ownLanes(int32_t count, const M& src, const B& src2, const Dense<const int>& piv, const X& dst)
    {
        using T = typename X::Elem;
        using L = simd::Lanes<T>;
        const LaneOperand<simd::Sse, M> a(src, N, N);
        const LaneOperand<simd::Sse, B> b(src2, 1, N);
        const LaneOperand<simd::Sse, X> x(dst, 1, N);
        forLanes<T>(count, [&](int32_t first, int k) {
            const int32_t* p[simd::kLanes<T>] = {};
            for (int l = 0; l < k; ++l) p[l] = piv.at(first + l);
            L m[N][N];
            for (int r = 0; r < N; ++r)
                for (int j = 0; j < N; ++j) m[r][j] = a.gather(first, k, [&](int l) { return Position{p[l][r], j}; });
            auto am = [&](int r, int j) { return m[r][j]; };
            auto bp = [&](int i) { return L(b.gather(first, k, [&](int l) { return Position{0, p[l][i]}; })); };
            auto scale = [&](int i, L v) { return v / m[i][i]; };
            solveFixed<N, L>(am, bp, scale, packOf(x, first, k));
        });
    }

    template <Path W, class M, class B, class X>
    void bySize(int32_t count, const M& src, const B& src2, const Dense<const int>& piv, const X& dst) const
    {
        if constexpr (solveLanesPossible<M, B, X>() && W != Path::Rows) {
            if (n >= 3 && n <= 6 && solveSideBySide(count, n, src, src2, dst)) {
                if constexpr (!M::array) {
                    switch (n) {
                    case 3: return sharedLanes<3, W>(count, src, src2, piv, dst);
                    case 4: return sharedLanes<4, W>(count, src, src2, piv, dst);
                    case 5: return sharedLanes<5, W>(count, src, src2, piv, dst);
                    default: return sharedLanes<6, W>(count, src, src2, piv, dst);
                    }
                } else {
                    switch (n) {
                    case 3: return ownLanes<3>(count, src, src2, piv, dst);
                    case 4: return ownLanes<4>(count, src, src2, piv, dst);
                    case 5: return ownLanes<5>(count, src, src2, piv, dst);
                    default: return ownLanes<6>(count, src, src2, piv, dst);
                    }
                }
            }
        }
        using T = typename X::Elem;
        switch (n) {
        case 3: return fixed<3, W>(count, src, src2, piv, dst);
        case 4: return fixed<4, W>(count, src, src2, piv, dst);
        case 5: return fixed<5, W>(count, src, src2, piv, dst);
        case 6: return fixed<6, W>(count, src, src2, piv, dst);
        default:
            for (int32_t k = 0; k < count; ++k)
                solveGeneral<T>(n, cursor<W>(src, k), piv.at(k), cursor<W>(src2, k), cursor<W>(dst, k));
        }
    }

    template <class M, class B, class X>
    KelStatus operator()(int32_t count, void*, const M& src, const B& src2, const Dense<const int>& piv,
                         const X& dst) const
    {
        if constexpr (M::desc == Desc::P) bySize<Path::Table>(count, src, src2, piv, dst);
        else if (pathOf(src, src2, dst) == Path::Rows) bySize<Path::Rows>(count, src, src2, piv, dst);
        else bySize<Path::Strided>(count, src, src2, piv, dst);
        return kelStsNoErr;
    }
};

// Front end: views in the order of the operation (matrix, right-hand side),
// then the table and the result.
template <class M, class B, class X>
KelStatus luBackSubst(const Traits& tr, const Sizes& s, M src, B src2, Dense<const int> piv, X dst)
{
    src.setStoredWidth(s.N);
    src2.setStoredWidth(s.N);
    dst.setStoredWidth(s.N);
    piv.setPerObject(M::array ? s.N : 0);
    return kel::run(tr, s, noMismatch, DriverInfo{}, LuBackSubstKernel{s.N}, src, src2, piv, dst);
}

}  // namespace kel::factor
