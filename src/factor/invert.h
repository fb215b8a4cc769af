// Invert: inverses of square matrices from determinants.
//
// Order 1 is done by the front end: x is refused unless |x| > 2 * the
// smallest normal number (so that value and NaN are refused), else 1/x.
// Orders 3 to 6 have closed forms by cofactors (cofactors.h) with a true
// division 1/det, refused when |det| is below c times the smallest normal
// number, c = 2 * n^3 (54, 128, 250, 432), or 108 and 256 at orders 3 and 4
// on the packed path in double precision.  Orders 2 and from 7 up compute
// every cofactor by an elimination of its minor in the caller's scratch.
//
// The packed path in single precision (Stride2 the element size for source
// and destination) has routines of its own that take the reciprocal from the
// processor's estimate and one Newton step:
//   order 3  the cofactors in four-lane vectors (single matrices and L
//            arrays; S arrays keep the scalar closed form and its division,
//            four matrices at a time),
//   order 4  ownInvert4x4_32f, and for S arrays whose objects and rows lie
//            on 16-byte boundaries, 16 bytes a row, two matrices at a time,
//   orders 5 and 6  a block form: one or two pivots on the first rows,
//            chosen among their columns, then the 4 x 4 complement.  Rows 0
//            (and 1) of dst receive the source's rows as scratch first and
//            keep them if the matrix is refused.
// Everywhere else a refused matrix leaves dst as it was.  A serial array
// stops at the first refused matrix.  Objects side by side (interleaved S,
// P over planes) take the closed forms a pack of objects at a time.
#pragma once

#include <smmintrin.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

#include "factor/cofactors.h"
#include "factor/invert4x4.h"
#include "factor/workmatrix.h"
#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/simd.h"
#include "frame/view.h"

namespace kel::factor {

// ---- tolerances ------------------------------------------------------------------

// c * M for the closed and block forms of order N; M the smallest normal.
template <class T, int N>
constexpr double closedTolerance(bool packed)
{
    const int c = 2 * N * N * N * (std::is_same<T, double>::value && packed && (N == 3 || N == 4) ? 2 : 1);
    return static_cast<double>(static_cast<T>(c) * std::numeric_limits<T>::min());
}

inline bool belowTolerance(double t, double x) { return t > std::fabs(x); }

// ---- order 3 in four-lane vectors ----------------------------------------------------

// The minors of the rows x above y: lane j is the minor over the two columns
// other than j, y[hi] * x[lo] - y[lo] * x[hi].
inline __m128 minors3(__m128 x, __m128 y)
{
    auto hi = [](__m128 v) { return _mm_shuffle_ps(v, v, _MM_SHUFFLE(3, 1, 2, 2)); };
    auto lo = [](__m128 v) { return _mm_shuffle_ps(v, v, _MM_SHUFFLE(3, 0, 0, 1)); };
    return _mm_sub_ps(_mm_mul_ps(hi(y), lo(x)), _mm_mul_ps(lo(y), hi(x)));
}

// The closed form of order 3 with the cofactors in vectors and the
// reciprocal refined from the estimate.  The cofactors and the determinant
// are those of the scalar closed form.
inline KelStatus ownInvert3x3_32f(const float* src, int32_t srcStride1, float* dst, int32_t dstStride1)
{
    using P = simd::Pack<simd::Sse, float>;
    const __m128 a0 = P::loadPart(src, 3).v;
    const __m128 a1 = P::loadPart(offset(src, srcStride1), 3).v;
    const __m128 a2 = P::loadPart(offset(src, mul32(2, srcStride1)), 3).v;
    const __m128 m0 = minors3(a1, a2), m1 = minors3(a0, a2), m2 = minors3(a0, a1);
    float p[4];
    _mm_storeu_ps(p, _mm_mul_ps(a2, m2));
    const float det = (p[2] - p[1]) + p[0];
    if (belowTolerance(closedTolerance<float, 3>(true), det)) return kelStsSingular;
    // Cofactors: the minors with the odd positions formed as 0 - minor.
    const __m128 zero = _mm_setzero_ps();
    __m128 c0 = _mm_blend_ps(m0, _mm_sub_ps(zero, m0), 0b0010);
    __m128 c1 = _mm_blend_ps(m1, _mm_sub_ps(zero, m1), 0b0101);
    __m128 c2 = _mm_blend_ps(m2, _mm_sub_ps(zero, m2), 0b0010);
    __m128 c3 = zero;
    _MM_TRANSPOSE4_PS(c0, c1, c2, c3);
    const __m128 r = _mm_set1_ps(simd::refinedReciprocal(det));
    P{_mm_mul_ps(c0, r)}.storePart(dst, 3);
    P{_mm_mul_ps(c1, r)}.storePart(offset(dst, dstStride1), 3);
    P{_mm_mul_ps(c2, r)}.storePart(offset(dst, mul32(2, dstStride1)), 3);
    return kelStsNoErr;
}

// ---- orders 5 and 6: block forms ----------------------------------------------------------

// The packed single-precision block form of order N = K + 4.  Step k pivots
// on row k over the columns first[k] .. last[k] (the highest column wins a
// tie), exchanges that column with column k, and eliminates below with the
// refined reciprocal of the pivot.  The 4 x 4 complement left at the
// bottom right is inverted by ownInvert4x4's cofactors, and the inverse is
// assembled from it, the multipliers and the pivot rows, its rows exchanged
// back in the reverse order of the column exchanges.
template <int K>
struct BlockForm {
    static constexpr int N = K + 4;
    int first[K], last[K];

    template <class Src, class Dst>
    KelStatus operator()(const Src& src, const Dst& dst) const
    {
        constexpr double t = closedTolerance<float, N>(true);
        float a[N][N];
        for (int j = 0; j < N; ++j)
            for (int i = 0; i < N; ++i) a[j][i] = src.get(j, i);
        for (int j = 0; j < K; ++j)
            for (int i = 0; i < N; ++i) dst.put(j, i, a[j][i]);

        int swapped[K];
        float r[K];
        float l[N][K] = {};  // the first K columns of the row operations
        for (int k = 0; k < K; ++k) l[k][k] = 1.0f;
        for (int k = 0; k < K; ++k) {
            int pc = first[k];
            for (int c = first[k] + 1; c <= last[k]; ++c)
                if (std::fabs(a[k][c]) >= std::fabs(a[k][pc])) pc = c;
            if (belowTolerance(t, a[k][pc])) return kelStsSingular;
            swapped[k] = pc;
            for (int j = 0; j < N; ++j) std::swap(a[j][k], a[j][pc]);
            r[k] = simd::refinedReciprocal(a[k][k]);
            for (int i = k + 1; i < N; ++i) {
                const float m = a[i][k] * r[k];
                for (int j = k + 1; j < N; ++j) a[i][j] = a[i][j] - a[k][j] * m;
                for (int j = 0; j < K; ++j) l[i][j] = l[i][j] - l[k][j] * m;
            }
        }
        const Cofactors4x4 s = cofactors4x4<InvertArrayRules::detSum>(&a[K][K], N * 4);
        if (belowTolerance(t, s.det)) return kelStsSingular;
        float x[N][N];
        {
            float inv[4][4];
            detail4x4::storeInverse<InvertArrayRules>(s, &inv[0][0], 16);
            // Bottom rows: the complement's inverse times the row operations.
            for (int i = 0; i < 4; ++i) {
                for (int c = 0; c < K; ++c) {
                    float v = 0.0f;
                    for (int j = 0; j < 4; ++j) v = v + inv[i][j] * l[K + j][c];
                    x[K + i][c] = v;
                }
                for (int j = 0; j < 4; ++j) x[K + i][K + j] = inv[i][j];
            }
        }
        // Top rows, from the last pivot row up.
        for (int k = K - 1; k >= 0; --k)
            for (int c = 0; c < N; ++c) {
                float v = c < K ? l[k][c] : 0.0f;
                for (int j = k + 1; j < N; ++j) v = v - a[k][j] * x[j][c];
                x[k][c] = v * r[k];
            }
        for (int k = K - 1; k >= 0; --k)
            for (int c = 0; c < N; ++c) std::swap(x[k][c], x[swapped[k]][c]);
        for (int j = 0; j < N; ++j)
            for (int i = 0; i < N; ++i) dst.put(j, i, x[j][i]);
        return kelStsNoErr;
    }
};

// Order 5: one pivot among columns 0 to 3 of row 0.  Order 6: among all
// columns of row 0, then among columns 1 to 5 of row 1.
inline constexpr BlockForm<1> ownInvert5x5_32f{{0}, {3}};
inline constexpr BlockForm<2> ownInvert6x6_32f{{0, 1}, {5, 5}};

// ---- orders 2 and from 7 up ---------------------------------------------------------------

// Every cofactor by elimination of its minor, rebuilt from the source in the
// scratch each time.  The determinant's elimination refuses a pivot below t
// (and then zeroes the first work element) and a determinant at or below t.
// A minor's elimination stops at a pivot below t with the product set to t;
// a last element not above t gives t itself as the cofactor's value.
template <class T, class Src, class Dst>
inline KelStatus invertGeneral(int32_t n, const Src& src, const Dst& dst, const WorkMatrix<T>& w)
{
    const T t = cubeTolerance<T>(n);
    const double td = t;
    w.resetTable(n);
    for (int32_t j = 0; j < n; ++j)
        for (int32_t i = 0; i < n; ++i) w.put(j, i, src.get(j, i));
    auto byReciprocal = [&](int32_t k, int32_t last) {
        const T r = T(1) / w.at(k, k);
        w.eliminate(k, last, [r](T a) { return a * r; });
    };
    T det = T(1), sign = T(1);
    for (int32_t k = 0; k + 1 < n; ++k) {
        if (w.pivot(k, n - 1)) sign = -sign;
        const T v = w.at(k, k);
        if (belowTolerance(td, v)) {
            w.put(0, 0, T(0));
            return kelStsSingular;
        }
        byReciprocal(k, n - 1);
        det = det * v;
    }
    det = det * w.at(n - 1, n - 1) * sign;
    if (td >= std::fabs(static_cast<double>(det))) return kelStsSingular;
    const T inverse = T(1) / det;

    for (int32_t r = 0; r < n; ++r)
        for (int32_t c = 0; c < n; ++c) {
            w.resetTable(n - 1);
            for (int32_t j = 0; j + 1 < n; ++j)
                for (int32_t i = 0; i + 1 < n; ++i) w.put(j, i, src.get(j < r ? j : j + 1, i < c ? i : i + 1));
            T d = T(1), s = T(1);
            for (int32_t k = 0; k + 2 < n; ++k) {
                if (w.pivot(k, n - 2)) s = -s;
                const T v = w.at(k, k);
                if (belowTolerance(td, v)) {
                    d = t;
                    break;
                }
                byReciprocal(k, n - 2);
                d = d * v;
            }
            const T e = w.at(n - 2, n - 2);
            const T value = std::fabs(static_cast<double>(e)) > td ? s * e * d : t;
            dst.put(c, r, value * inverse * ((r + c) % 2 ? T(-1) : T(1)));
        }
    return kelStsNoErr;
}

// ---- kernels -----------------------------------------------------------------------------

struct InvertKernel {
    int32_t n;

    // Objects in order; the first refused one ends the call.
    template <class In, class Out, class One>
    static KelStatus each(int32_t count, const In& in, const Out& out, const One& one)
    {
        for (int32_t k = 0; k < count; ++k)
            if (KelStatus st = one(in[k], out[k])) return st;
        return kelStsNoErr;
    }

    // Order 3 a pack of objects at a time, one in each lane, with the
    // arithmetic of one: pairs of doubles, and four floats whose rows are
    // runs of memory.  The objects of a pack are tested and written in
    // order, so a refused one leaves those before it written, itself and
    // the rest untouched.
    template <int N, bool Packed, class T, class In, class Out>
    static KelStatus closedPacks(int32_t count, const In in, const Out out)
    {
        using L = simd::Lanes<T>;
        constexpr int kL = simd::kLanes<T>;
        constexpr double t = closedTolerance<T, N>(Packed);
        int32_t k = 0;
        for (; k + kL <= count; k += kL) {
            L a[N][N];
            if constexpr (In::path == Path::Rows) {
                lanesOfRows(in, k, a);
            } else {
                const auto src = simd::pairOf(in[k], in[k + 1]);
                unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { a[j][i] = src.get(j, i); }); });
            }
            const Adjugate<N, L> adj = laplaceAdjugate(a);
            // t is a small multiple of a power of two, so T holds it and
            // the comparison gives what it gives in double.
            static_assert(T(t) == t, "the tolerance is exact in the element type");
            const int refused = maskBits(greater(L(T(t)), abs(adj.det)));
            const int accepted = refused ? __builtin_ctz(refused) : kL;
            if (accepted == 0) return kelStsSingular;
            const L r = L(T(1)) / adj.det;
            L x[N][N];
            unrolled<N>([&](auto i) {
                unrolled<N>([&](auto j) {
                    const L m = adj.minor[i][j];
                    x[j][i] = ((i + j) % 2 ? L(T(0)) - m : m) * r;
                });
            });
            if constexpr (Out::path == Path::Rows) {
                if (accepted == kL) {
                    rowsOfLanes(x, out, k);
                    continue;
                }
            }
            for (int l = 0; l < accepted; ++l) {
                const auto d = out[k + l];
                unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { d.put(j, i, x[j][i].lane(l)); }); });
            }
            if (accepted < kL) return kelStsSingular;
        }
        for (; k < count; ++k)
            if (KelStatus st = closed<N, Packed, T>()(in[k], out[k])) return st;
        return kelStsNoErr;
    }

    template <int N, bool Packed, class T>
    static auto closed()
    {
        return [](const auto& s, const auto& d) { return invertByCofactors<N, T>(s, d, closedTolerance<T, N>(Packed)); };
    }

    // S arrays of 4 x 4 matrices whose objects and rows lie 16 bytes apart
    // on 16-byte boundaries go two at a time; an odd last one alone.
    template <class S, class D>
    static KelStatus pairs(int32_t count, const S& src, const D& dst)
    {
        int32_t k = 0;
        for (; k + 1 < count; k += 2)
            if (KelStatus st = ownInvert4x4Pair_32f<InvertArrayRules>(src.object(k), src.object(k + 1),
                                                                       dst.object(k), dst.object(k + 1)))
                return st;
        if (k < count) return ownInvert4x4_32f<InvertArrayRules>(src.object(k), 16, dst.object(k), 16);
        return kelStsNoErr;
    }

    template <class S, class D>
    static bool pairable(const S& src, const D& dst)
    {
        auto on16 = [](const void* p) { return reinterpret_cast<uintptr_t>(p) % 16 == 0; };
        return on16(src.base) && on16(dst.base) && src.s0 % 16 == 0 && dst.s0 % 16 == 0 && src.s1 == 16 &&
               dst.s1 == 16;
    }

    template <Path W, class S, class D>
    KelStatus bySize(int32_t count, void* scratch, const S& src, const D& dst) const
    {
        using T = typename D::Elem;
        constexpr bool packed = W == Path::Rows && S::desc != Desc::P;
        constexpr bool estimates = packed && std::is_same<T, float>::value;
        constexpr bool sArray = S::desc == Desc::S && S::array;
        const Walk<W, S> in(src);
        const Walk<W, D> out(dst);
        switch (n) {
        case 3:
            if constexpr (estimates && !sArray)
                return each(count, in, out, [](const auto& s, const auto& d) {
                    return ownInvert3x3_32f(s.base, s.s1, d.base, d.s1);
                });
            else if constexpr (std::is_same<T, double>::value || W == Path::Rows)
                return closedPacks<3, packed, T>(count, in, out);
            else return each(count, in, out, closed<3, packed, T>());
        case 4:
            if constexpr (estimates) {
                if constexpr (sArray)
                    if (pairable(src, dst)) return pairs(count, src, dst);
                return each(count, in, out, [](const auto& s, const auto& d) {
                    return ownInvert4x4_32f<InvertArrayRules>(s.base, s.s1, d.base, d.s1);
                });
            } else {
                return each(count, in, out, closed<4, packed, T>());
            }
        case 5:
            if constexpr (estimates) return each(count, in, out, ownInvert5x5_32f);
            else return each(count, in, out, closed<5, packed, T>());
        case 6:
            if constexpr (estimates) return each(count, in, out, ownInvert6x6_32f);
            else return each(count, in, out, closed<6, packed, T>());
        default: {
            const WorkMatrix<T> w{static_cast<char*>(scratch), n};
            return each(count, in, out, [&](const auto& s, const auto& d) { return invertGeneral<T>(n, s, d, w); });
        }
        }
    }

    // Objects side by side: orders 3 to 6 a pack of objects at a time, one
    // object per lane, with the cofactors of the strided and P paths.  A pack
    // in which an object is refused goes again object by object from its
    // first object, and so does the rest of the array: the status, what the
    // refused object leaves and where the call stops are those of that path.
    template <int N, Path W, class S, class D>
    KelStatus lanes(int32_t count, void* scratch, const S& src, const D& dst) const
    {
        using T = typename D::Elem;
        using L = simd::Lanes<T>;
        constexpr double t = closedTolerance<T, N>(false);
        const LaneOperand<simd::Sse, S> in(src, N, N);
        const LaneOperand<simd::Sse, D> out(dst, N, N);
        for (int32_t n = 0; n < count; n += simd::kLanes<T>) {
            const int k = count - n < simd::kLanes<T> ? static_cast<int>(count - n) : simd::kLanes<T>;
            L a[N][N];
            unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { a[j][i] = in.load(j, i, n, k); }); });
            const Adjugate<N, L> adj = laplaceAdjugate(a);
            for (int l = 0; l < k; ++l)
                if (belowTolerance(t, adj.det.lane(l)))
                    return bySize<W>(count - n, scratch, src.slice(n), dst.slice(n));
            const L r = L(T(1)) / adj.det;
            unrolled<N>([&](auto i) {
                unrolled<N>([&](auto j) {
                    const L m = adj.minor[i][j];
                    out.store(j, i, n, (((i + j) % 2 ? L(T(0)) - m : m) * r).p, k);
                });
            });
        }
        return kelStsNoErr;
    }

    template <class S, class T, class D>
    KelStatus operator()(int32_t count, void* scratch, const S& src, const Plain<T>&, const D& dst) const
    {
        if constexpr (S::array && lanesPossible<S>() && lanesPossible<D>()) {
            constexpr Path W = S::desc == Desc::P ? Path::Table : Path::Strided;
            if (n >= 3 && n <= 6 && sideBySide(src) && sideBySide(dst) &&
                (W == Path::Table || pathOf(src, dst) == W)) {
                switch (n) {
                case 3: return lanes<3, W>(count, scratch, src, dst);
                case 4: return lanes<4, W>(count, scratch, src, dst);
                case 5: return lanes<5, W>(count, scratch, src, dst);
                default: return lanes<6, W>(count, scratch, src, dst);
                }
            }
        }
        if constexpr (S::desc == Desc::P) return bySize<Path::Table>(count, scratch, src, dst);
        else if (pathOf(src, dst) == Path::Rows) return bySize<Path::Rows>(count, scratch, src, dst);
        else return bySize<Path::Strided>(count, scratch, src, dst);
    }
};

// Order 1, in the front end: objects in order, never in a team.
template <class S, class D>
inline KelStatus invertScalars(int32_t count, const S& src, const D& dst)
{
    using T = typename D::Elem;
    const T t = T(2) * std::numeric_limits<T>::min();
    for (int32_t k = 0; k < count; ++k) {
        const T x = src.get(k, 0, 0);
        if (!(std::fabs(x) > t)) return kelStsSingular;
        dst.put(k, 0, 0, T(1) / x);
    }
    return kelStsNoErr;
}

// Front end: views in argument order (source, scratch, result).
template <class S, class T, class D>
KelStatus invert(const Traits& tr, const Sizes& s, S src, Plain<T> buf, D dst)
{
    src.setStoredWidth(s.N);
    dst.setStoredWidth(s.N);
    if (KelStatus st = check(tr, s, noMismatch, src, buf, dst)) return st;
    if (s.N == 1) return invertScalars(s.C, src, dst);
    DriverInfo info;
    info.scratchBytes = WorkMatrix<T>::bytes(s.N);
    info.callerScratch = buf.ptr;
    info.reportsStatus = true;
    return dispatch(tr, s, info, InvertKernel{s.N}, src, buf, dst);
}

}  // namespace kel::factor
