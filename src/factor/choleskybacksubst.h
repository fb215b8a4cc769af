// CholeskyBackSubst: solves L L^T x = b from the factor of CholeskyDecomp,
// whose diagonal holds d[i] = 1 / L(i,i).
//
// Forward, y[i] = (b[i] - sum over j < i of L(i,j) y[j]) * d[i], the terms
// subtracted one by one with j ascending; backward, x[i] = (y[i] - sum over
// j > i of L(j,i) x[j]) * d[i].  There is no division, square root or test.
// Orders 3 to 6 run straight-line code on locals, subtract the backward
// terms from j = size-1 down and store x only at the end; one factor against
// many vectors (mva) reads the factor once.  Every other order keeps y in
// dst and subtracts the backward terms from j = i+1 up.  A zero in d gives
// zeros, an infinity infinities or NaN, with no status.  Objects side by side
// (interleaved S, P over planes) run the same solves a pack of objects at a
// time, one object per lane.
#pragma once

#include <cstdint>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/view.h"

namespace kel::factor {

// One straight-line solve: l(i, j) is the factor, b and x cursors.
template <int N, class T, class F, class B, class X>
inline void cholSolveFixed(const F& l, const B& b, const X& x)
{
    T y[N];
#pragma GCC unroll 8
    for (int i = 0; i < N; ++i) {
        T s = b.get(0, i);
#pragma GCC unroll 8
        for (int j = 0; j < i; ++j) s = s - l(i, j) * y[j];
        y[i] = s * l(i, i);
    }
    T z[N];
#pragma GCC unroll 8
    for (int i = N - 1; i >= 0; --i) {
        T s = y[i];
#pragma GCC unroll 8
        for (int j = N - 1; j > i; --j) s = s - l(j, i) * z[j];
        z[i] = s * l(i, i);
    }
#pragma GCC unroll 8
    for (int i = 0; i < N; ++i) x.put(0, i, z[i]);
}

// The general loop, with dst as the work vector.
template <class T, class M, class B, class X>
inline void cholSolveLoop(int32_t n, const M& l, const B& b, const X& x)
{
    for (int32_t i = 0; i < n; ++i) {
        T s = b.get(0, i);
        for (int32_t j = 0; j < i; ++j) s = s - l.get(i, j) * x.get(0, j);
        x.put(0, i, s * l.get(i, i));
    }
    for (int32_t i = n - 1; i >= 0; --i) {
        T s = x.get(0, i);
        for (int32_t j = i + 1; j < n; ++j) s = s - l.get(j, i) * x.get(0, j);
        x.put(0, i, s * l.get(i, i));
    }
}

// The serial kernel of every member.  The factor is an array (mava) or one
// matrix shared by all vectors (mv, mva).
struct CholSolveKernel {
    int32_t n;

    template <int N, Path W, class M, class B, class X>
    static void fixed(int32_t count, const M& src, const B& src2, const X& dst)
    {
        using T = typename X::Elem;
        const Walk<W, M> ms(src);
        const Walk<W, B> bs(src2);
        const Walk<W, X> xs(dst);
        if constexpr (!M::array) {
            // One factor for all vectors: its lower triangle in locals.
            T m[N][N];
            const auto c = ms.first();
#pragma GCC unroll 8
            for (int i = 0; i < N; ++i)
#pragma GCC unroll 8
                for (int j = 0; j <= i; ++j) m[i][j] = c.get(i, j);
            auto l = [&](int i, int j) { return m[i][j]; };
            for (int32_t k = 0; k < count; ++k) cholSolveFixed<N, T>(l, bs[k], xs[k]);
        } else {
            for (int32_t k = 0; k < count; ++k) {
                const auto c = ms[k];
                auto l = [&](int i, int j) { return c.get(i, j); };
                cholSolveFixed<N, T>(l, bs[k], xs[k]);
            }
        }
    }

    template <Path W, class M, class B, class X>
    void bySize(int32_t count, const M& src, const B& src2, const X& dst) const
    {
        using T = typename X::Elem;
        switch (n) {
        case 3: return fixed<3, W>(count, src, src2, dst);
        case 4: return fixed<4, W>(count, src, src2, dst);
        case 5: return fixed<5, W>(count, src, src2, dst);
        case 6: return fixed<6, W>(count, src, src2, dst);
        default:
            for (int32_t k = 0; k < count; ++k)
                cholSolveLoop<T>(n, cursor<W>(src, k), cursor<W>(src2, k), cursor<W>(dst, k));
        }
    }

    // Objects side by side: the solve of the call's order for a pack of
    // objects at once.
    template <class M, class B, class X>
    bool lanes(int32_t count, const M& src, const B& src2, const X& dst) const
    {
        using T = typename X::Elem;
        using L = simd::Lanes<T>;
        if (!solveSideBySide(count, n, src, src2, dst)) return false;
        const LaneOperand<simd::Sse, M> m(src, n, n);
        const LaneOperand<simd::Sse, B> b(src2, 1, n);
        const LaneOperand<simd::Sse, X> x(dst, 1, n);
        forLanes<T>(count, [&](int32_t first, int k) {
            const auto l = packOf(m, first, k);
            const auto lf = [&](int i, int j) { return l.get(i, j); };
            const auto bp = packOf(b, first, k);
            const auto xp = packOf(x, first, k);
            switch (n) {
            case 3: cholSolveFixed<3, L>(lf, bp, xp); break;
            case 4: cholSolveFixed<4, L>(lf, bp, xp); break;
            case 5: cholSolveFixed<5, L>(lf, bp, xp); break;
            case 6: cholSolveFixed<6, L>(lf, bp, xp); break;
            default: cholSolveLoop<L>(n, l, bp, xp);
            }
        });
        return true;
    }

    template <class M, class B, class X>
    KelStatus operator()(int32_t count, void*, const M& src, const B& src2, const X& dst) const
    {
        if constexpr (solveLanesPossible<M, B, X>())
            if (lanes(count, src, src2, dst)) return kelStsNoErr;
        if constexpr (M::desc == Desc::P) bySize<Path::Table>(count, src, src2, dst);
        else if (pathOf(src, src2, dst) == Path::Rows) bySize<Path::Rows>(count, src, src2, dst);
        else bySize<Path::Strided>(count, src, src2, dst);
        return kelStsNoErr;
    }
};

// Front end: factor, right-hand side, result.
template <class M, class B, class X>
KelStatus choleskyBackSubst(const Traits& tr, const Sizes& s, M src, B src2, X dst)
{
    src.setStoredWidth(s.N);
    src2.setStoredWidth(s.N);
    dst.setStoredWidth(s.N);
    return kel::run(tr, s, noMismatch, DriverInfo{}, CholSolveKernel{s.N}, src, src2, dst);
}

}  // namespace kel::factor
