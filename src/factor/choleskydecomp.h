// CholeskyDecomp: A = L L^T for a symmetric positive definite A.
//
// The factor is stored with the reciprocal of each diagonal element,
// d[i] = 1 / L(i,i), so that later rows and the solve multiply instead of
// dividing.  Only the lower triangle of src is read and only that of dst
// written, each element read before its own place is written: dst may be
// src.
//
// Rows are factored in order.  Each off-diagonal element is stored as soon
// as it is known; the diagonal is stored only once its step has passed the
// tolerance.  A refused row i therefore leaves rows 0 to i-1 complete, the
// off-diagonals of row i written and everything from its diagonal on as it
// was.  Orders 3 to 6 hold the factor in locals as well (straight-line code
// from one template per order); every other order reads it back from dst.
// Objects side by side (interleaved S, P over planes) and packed objects of
// S arrays of orders 3 to 6 go a pack at a time, one object per lane.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/simd.h"
#include "frame/view.h"

namespace kel::factor {

// 1 / sqrt(s): a true square root and division in double, the refined
// estimate in single precision.
inline double invSqrt(double s) { return 1.0 / std::sqrt(s); }
inline float invSqrt(float s) { return simd::rsqrtRefined(s); }
inline simd::Lanes<double> invSqrt(simd::Lanes<double> s) { return simd::Lanes<double>(1.0) / simd::sqrt(s.p); }
inline simd::Lanes<float> invSqrt(simd::Lanes<float> s) { return simd::rsqrtRefined(s.p); }

// The tolerance of a diagonal step by order: s at or below it is refused
// (a NaN never is).  Order 3 has its own value, orders 4 and 5 none, and
// order 6 shares its value with the general loop.
struct CholTolerances {
    double at3 = 0.0;
    double at6AndLoop = 0.0;
    double of(int32_t n) const { return n == 3 ? at3 : (n == 4 || n == 5) ? 0.0 : at6AndLoop; }
};

// Tolerances by description and path.  P kernels refuse small diagonals at
// order 3 in both types.  The double-precision strided kernel of an S array,
// when it computes the whole array alone, also refuses at order 6 and in
// the general loop; the same kernel on a team's slice, like every other
// kernel, refuses only what is not positive.
template <class T, class S>
inline CholTolerances cholTolerances(bool packed, bool team)
{
    CholTolerances t;
    if constexpr (S::desc == Desc::P) t.at3 = 0x1p-23;
    if constexpr (S::desc == Desc::S && S::array && std::is_same_v<T, double>)
        if (!packed && !team) t.at6AndLoop = 0x1p-52;
    return t;
}

// Factors one matrix of order N (N > 0, straight-line) or n (N == 0).
template <int N, class T, class A, class L>
inline KelStatus cholFactor(int32_t n, T tol, const A& a, const L& l)
{
    constexpr bool fixed = N > 0;
    const int32_t size = fixed ? N : n;
    T f[fixed ? N : 1][fixed ? N : 1];
    auto get = [&](int32_t i, int32_t k) -> T {
        if constexpr (fixed) return f[i][k];
        else return l.get(i, k);
    };
    auto set = [&](int32_t i, int32_t k, T v) {
        if constexpr (fixed) f[i][k] = v;
        l.put(i, k, v);
    };
#pragma GCC unroll 8
    for (int32_t i = 0; i < size; ++i) {
#pragma GCC unroll 8
        for (int32_t j = 0; j < i; ++j) {
            T s = a.get(i, j);
#pragma GCC unroll 8
            for (int32_t k = 0; k < j; ++k) s = s - get(i, k) * get(j, k);
            set(i, j, s * get(j, j));
        }
        T s = a.get(i, i);
#pragma GCC unroll 8
        for (int32_t k = 0; k < i; ++k) s = s - get(i, k) * get(i, k);
        if (s <= tol) return kelStsNotPositiveDefinite;
        set(i, i, invSqrt(s));
    }
    return kelStsNoErr;
}

// The serial kernel of every member: objects in order, stopping at the
// first one that is refused.
struct CholDecompKernel {
    int32_t n;
    CholTolerances tol;

    template <int N, Path W, class S, class D>
    KelStatus objects(int32_t count, const S& src, const D& dst) const
    {
        using T = typename D::Elem;
        const T t = static_cast<T>(tol.of(n));
        const Walk<W, S> a(src);
        const Walk<W, D> l(dst);
        for (int32_t k = 0; k < count; ++k)
            if (KelStatus st = cholFactor<N, T>(n, t, a[k], l[k])) return st;
        return kelStsNoErr;
    }

    // A pack of objects, one per lane, with the arithmetic of cholFactor:
    // a(i, j) the source's element, f the factor.  True if one of the first
    // k objects is refused (f then incomplete).
    template <int N, class L, class A>
    static bool refusedPack(const A& a, L (&f)[N][N], typename L::Elem t, int k)
    {
#pragma GCC unroll 8
        for (int i = 0; i < N; ++i) {
#pragma GCC unroll 8
            for (int j = 0; j < i; ++j) {
                L s = a(i, j);
#pragma GCC unroll 8
                for (int q = 0; q < j; ++q) s = s - f[i][q] * f[j][q];
                f[i][j] = s * f[j][j];
            }
            L s = a(i, i);
#pragma GCC unroll 8
            for (int q = 0; q < i; ++q) s = s - f[i][q] * f[i][q];
            bool refused = false;
#pragma GCC unroll 4
            for (int l = 0; l < k; ++l) refused = refused || s.lane(l) <= t;
            if (refused) return true;
            f[i][i] = invSqrt(s);
        }
        return false;
    }

    // Objects side by side, orders 3 to 6: a pack of objects at a time.
    // The whole pack is factored before anything is stored; a pack with a
    // refused object goes again object by object from its first object, and
    // so does the rest of the array, so that what is written and where the
    // call stops are those of that path.
    template <int N, Path W, class S, class D>
    KelStatus lanes(int32_t count, const S& src, const D& dst) const
    {
        using T = typename D::Elem;
        using L = simd::Lanes<T>;
        const T t = static_cast<T>(tol.of(n));
        const LaneOperand<simd::Sse, S> a(src, N, N);
        const LaneOperand<simd::Sse, D> out(dst, N, N);
        for (int32_t first = 0; first < count; first += simd::kLanes<T>) {
            const int k = count - first < simd::kLanes<T> ? static_cast<int>(count - first) : simd::kLanes<T>;
            L f[N][N];
            if (refusedPack<N>([&](int i, int j) { return L(a.load(i, j, first, k)); }, f, t, k))
                return objects<N, W>(count - first, src.slice(first), dst.slice(first));
            for (int i = 0; i < N; ++i)
                for (int j = 0; j <= i; ++j) out.store(i, j, first, f[i][j].p, k);
        }
        return kelStsNoErr;
    }

    // Packed objects of an S array, orders 3 to 6: the same packs, the
    // rows of the lower triangles turned into lanes and back; objects short
    // of a pack go alone.
    template <int N, class S, class D>
    KelStatus packs(int32_t count, const S& src, const D& dst) const
    {
        using T = typename D::Elem;
        using L = simd::Lanes<T>;
        constexpr int kL = simd::kLanes<T>;
        const T t = static_cast<T>(tol.of(n));
        const Walk<Path::Rows, S> in(src);
        const Walk<Path::Rows, D> out(dst);
        int32_t first = 0;
        for (; first + kL <= count; first += kL) {
            L a[N][N], f[N][N];
            unrolled<N>([&](auto i) { lanesOfRow([&](int l) { return in[first + l].at(i, 0); }, i + 1, a[i]); });
            if (refusedPack<N>([&](int i, int j) { return a[i][j]; }, f, t, kL)) break;
            unrolled<N>([&](auto i) { rowOfLanes(f[i], i + 1, [&](int l) { return out[first + l].at(i, 0); }); });
        }
        return first < count ? objects<N, Path::Rows>(count - first, src.slice(first), dst.slice(first)) : kelStsNoErr;
    }

    template <Path W, class S, class D>
    KelStatus bySize(int32_t count, const S& src, const D& dst) const
    {
        if constexpr (S::array && lanesPossible<S>() && lanesPossible<D>() && W != Path::Rows) {
            if (n >= 3 && n <= 6 && sideBySide(src) && sideBySide(dst)) {
                switch (n) {
                case 3: return lanes<3, W>(count, src, dst);
                case 4: return lanes<4, W>(count, src, dst);
                case 5: return lanes<5, W>(count, src, dst);
                default: return lanes<6, W>(count, src, dst);
                }
            }
        }
        if constexpr (S::array && S::desc == Desc::S && W == Path::Rows) {
            if (n >= 3 && n <= 6 && packsPossible(dst, count, n, n, src)) {
                switch (n) {
                case 3: return packs<3>(count, src, dst);
                case 4: return packs<4>(count, src, dst);
                case 5: return packs<5>(count, src, dst);
                default: return packs<6>(count, src, dst);
                }
            }
        }
        switch (n) {
        case 3: return objects<3, W>(count, src, dst);
        case 4: return objects<4, W>(count, src, dst);
        case 5: return objects<5, W>(count, src, dst);
        case 6: return objects<6, W>(count, src, dst);
        default: return objects<0, W>(count, src, dst);
        }
    }

    template <class S, class D>
    KelStatus operator()(int32_t count, void*, const S& src, const D& dst) const
    {
        if constexpr (S::desc == Desc::P) return bySize<Path::Table>(count, src, dst);
        else if (pathOf(src, dst) == Path::Rows) return bySize<Path::Rows>(count, src, dst);
        else return bySize<Path::Strided>(count, src, dst);
    }
};

// Front end: source, then result.
template <class S, class D>
KelStatus choleskyDecomp(const Traits& tr, const Sizes& s, S src, D dst)
{
    using T = typename D::Elem;
    src.setStoredWidth(s.N);
    dst.setStoredWidth(s.N);
    DriverInfo info;
    info.reportsStatus = true;
    const bool packed = allPacked(src, dst);
    const CholDecompKernel serial{s.N, cholTolerances<T, S>(packed, false)};
    const CholDecompKernel team{s.N, cholTolerances<T, S>(packed, true)};
    return kel::run(tr, s, noMismatch, info, teamKernel(serial, team), src, dst);
}

}  // namespace kel::factor
