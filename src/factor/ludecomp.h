// LUDecomp: unit lower and upper factors with row pivoting.
//
// The result is a pair.  dst holds the factors and the pivot table says in
// which order its rows are read: the row p[k] of dst holds the multipliers
// L(k, j) in columns j < k and U(k, j) in columns j >= k.  Rows of dst never
// move; only table entries are exchanged.  Object n of an array owns the
// `size` table entries from n * size, whatever the description.
//
// Orders 3 to 6 eliminate in a private copy with straight-line code: the
// whole source is read first (so dst may be src), a finished row is written
// to dst after its step, and the last row with one remaining below the pivot
// is divided rather than multiplied by a reciprocal.  Every other order
// copies the source into dst and eliminates there.  What a refused matrix
// leaves behind follows from that: rows written so far (straight-line) or
// the whole partly eliminated copy (general loop), and the table as it
// stands when the step gives up.  Objects side by side (interleaved S, P
// over planes) of orders 3 to 6 in single precision go four at a time, one
// object per lane.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "factor/lu.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/view.h"

namespace kel::factor {

// Straight-line elimination of one N x N matrix (N from 3 to 6).  The
// private copy keeps the source's row order; r[i] points to the row at table
// position i, and the table entry is that row's number.
template <int N, class T, class S, class D>
inline KelStatus luFixed(const S& src, int32_t* table, const D& dst)
{
    constexpr PivotRule<T> rule = LuClasses<T>::unrolled;
    T a[N][N];
    T* r[N];
#pragma GCC unroll 8
    for (int j = 0; j < N; ++j) {
        r[j] = a[j];
#pragma GCC unroll 8
        for (int i = 0; i < N; ++i) a[j][i] = src.get(j, i);
    }
    auto rowOf = [&](int i) { return static_cast<int32_t>((r[i] - a[0]) / N); };
    auto give = [&](KelStatus st) {
#pragma GCC unroll 8
        for (int i = 0; i < N; ++i) table[i] = rowOf(i);
        return st;
    };
    auto emit = [&](int i) {
        const int32_t row = rowOf(i);
#pragma GCC unroll 8
        for (int j = 0; j < N; ++j) dst.put(row, j, r[i][j]);
    };

#pragma GCC unroll 8
    for (int k = 0; k < N - 1; ++k) {
        if (!pivotStep(
                rule, k, N, [&](int i) { return std::fabs(r[i][k]); },
                [&](int32_t best) { exchangeFixed<N>(k, best, r); }))
            return give(kelStsSingular);
        // The pivot row does not change in this step: hold it in locals.
        T u[N];
#pragma GCC unroll 8
        for (int j = k; j < N; ++j) u[j] = r[k][j];
        if (k < N - 2) {
            const T rcp = T(1) / u[k];
#pragma GCC unroll 8
            for (int i = k + 1; i < N; ++i) r[i][k] = r[i][k] * rcp;
        } else {
            r[k + 1][k] = r[k + 1][k] / u[k];
        }
#pragma GCC unroll 8
        for (int i = k + 1; i < N; ++i) {
            T* row = r[i];
            const T l = row[k];
#pragma GCC unroll 8
            for (int j = k + 1; j < N; ++j) row[j] = row[j] - u[j] * l;
        }
        emit(k);
    }
    if (rule.refuses(std::fabs(r[N - 1][N - 1]))) return give(kelStsSingular);
    emit(N - 1);
    return give(kelStsNoErr);
}

// Straight-line elimination of a pack of N x N matrices side by side, one
// object per lane, with luFixed's arithmetic.  Each lane picks its own
// pivot (the same comparisons, by masks) and exchanges its own rows (by
// selects); origin[i] is the source row now at position i.  Nothing is
// stored until every lane has passed: returns false if any of the first k
// lanes refuses a pivot.  Rows are then written where their origin says,
// and the table entries lane by lane.
template <int N, class T, class S, class D>
inline bool luLanes(const LaneOperand<simd::Sse, S>& src, int32_t n, int k, int32_t* const* tables,
                    const LaneOperand<simd::Sse, D>& dst)
{
    using L = simd::Lanes<T>;
    constexpr PivotRule<T> rule = LuClasses<T>::unrolled;
    static_assert(rule.exchangeFirst && rule.strict, "the lanes follow the straight-line class's rule");
    L r[N][N], origin[N];
    for (int j = 0; j < N; ++j) {
        origin[j] = L(T(j));
        for (int i = 0; i < N; ++i) r[j][i] = src.load(j, i, n, k);
    }
    auto refused = [&](L magnitude) {
        for (int l = 0; l < k; ++l)
            if (rule.refuses(magnitude.lane(l))) return true;
        return false;
    };
    for (int s = 0; s < N - 1; ++s) {
        L top = abs(r[s][s]), best = L(T(s));
        for (int i = s + 1; i < N; ++i) {
            const L c = abs(r[i][s]);
            const L wins = greater(c, top);
            top = select(wins, c, top);
            best = select(wins, L(T(i)), best);
        }
        for (int i = s + 1; i < N; ++i) {
            const L m = equal(best, L(T(i)));
            for (int j = 0; j < N; ++j) {
                const L x = r[s][j], y = r[i][j];
                r[s][j] = select(m, y, x);
                r[i][j] = select(m, x, y);
            }
            const L x = origin[s], y = origin[i];
            origin[s] = select(m, y, x);
            origin[i] = select(m, x, y);
        }
        if (refused(top)) return false;
        if (s < N - 2) {
            const L rcp = L(T(1)) / r[s][s];
            for (int i = s + 1; i < N; ++i) r[i][s] = r[i][s] * rcp;
        } else {
            r[s + 1][s] = r[s + 1][s] / r[s][s];
        }
        for (int i = s + 1; i < N; ++i) {
            const L l = r[i][s];
            for (int j = s + 1; j < N; ++j) r[i][j] = r[i][j] - r[s][j] * l;
        }
    }
    if (refused(abs(r[N - 1][N - 1]))) return false;
    for (int row = 0; row < N; ++row)
        for (int j = 0; j < N; ++j) {
            L x = r[0][j];
            for (int i = 1; i < N; ++i) x = select(equal(origin[i], L(T(row))), r[i][j], x);
            dst.store(row, j, n, x.p, k);
        }
    for (int l = 0; l < k; ++l)
        for (int i = 0; i < N; ++i) tables[l][i] = static_cast<int32_t>(origin[i].lane(l));
    return true;
}

// General elimination of one n x n matrix in dst itself (orders 1, 2, 7 and
// up).  The table is the caller's.
template <class T, class S, class D>
inline KelStatus luGeneral(int32_t n, const S& src, int32_t* p, const D& dst)
{
    constexpr PivotRule<T> rule = LuClasses<T>::general;
    for (int32_t i = 0; i < n; ++i) p[i] = i;
    for (int32_t j = 0; j < n; ++j)
        for (int32_t i = 0; i < n; ++i) dst.put(j, i, src.get(j, i));
    for (int32_t k = 0; k + 1 < n; ++k) {
        if (!pivotStep(
                rule, k, n, [&](int32_t i) { return std::fabs(dst.get(p[i], k)); },
                [&](int32_t best) { std::swap(p[k], p[best]); }))
            return kelStsSingular;
        const int32_t pk = p[k];
        const T r = T(1) / dst.get(pk, k);
        for (int32_t i = k + 1; i < n; ++i) dst.put(p[i], k, dst.get(p[i], k) * r);
        for (int32_t i = k + 1; i < n; ++i) {
            const int32_t pi = p[i];
            const T l = dst.get(pi, k);
            for (int32_t j = k + 1; j < n; ++j) dst.put(pi, j, dst.get(pi, j) - l * dst.get(pk, j));
        }
    }
    return rule.refuses(std::fabs(dst.get(p[n - 1], n - 1))) ? kelStsSingular : kelStsNoErr;
}

// The serial kernel of every member: objects in order, stopping at the first
// one that is refused.
struct LuDecompKernel {
    int32_t n;

    template <int N, Path W, class S, class D>
    static KelStatus fixed(int32_t count, const S& src, const Dense<int>& piv, const D& dst)
    {
        using T = typename D::Elem;
        for (int32_t k = 0; k < count; ++k)
            if (KelStatus st = luFixed<N, T>(cursor<W>(src, k), piv.at(k), cursor<W>(dst, k))) return st;
        return kelStsNoErr;
    }

    // Objects side by side, orders 3 to 6: a pack of objects at a time.  A
    // pack with a refused object goes again object by object from its first
    // object, and so does the rest of the array.
    template <int N, Path W, class S, class D>
    static KelStatus lanes(int32_t count, const S& src, const Dense<int>& piv, const D& dst)
    {
        using T = typename D::Elem;
        const LaneOperand<simd::Sse, S> a(src, N, N);
        const LaneOperand<simd::Sse, D> out(dst, N, N);
        for (int32_t first = 0; first < count; first += simd::kLanes<T>) {
            const int k = count - first < simd::kLanes<T> ? static_cast<int>(count - first) : simd::kLanes<T>;
            int32_t* tables[simd::kLanes<T>];
            for (int l = 0; l < k; ++l) tables[l] = piv.at(first + l);
            if (!luLanes<N, T>(a, first, k, tables, out))
                return fixed<N, W>(count - first, src.slice(first), piv.slice(first), dst.slice(first));
        }
        return kelStsNoErr;
    }

    template <Path W, class S, class D>
    KelStatus bySize(int32_t count, const S& src, const Dense<int>& piv, const D& dst) const
    {
        using T = typename D::Elem;
        // Four lanes pay for the selects that exchange rows; two do not.
        if constexpr (std::is_same<T, float>::value && S::array && lanesPossible<S>() && lanesPossible<D>() &&
                      W != Path::Rows) {
            if (n >= 3 && n <= 6 && sideBySide(src) && sideBySide(dst)) {
                switch (n) {
                case 3: return lanes<3, W>(count, src, piv, dst);
                case 4: return lanes<4, W>(count, src, piv, dst);
                case 5: return lanes<5, W>(count, src, piv, dst);
                default: return lanes<6, W>(count, src, piv, dst);
                }
            }
        }
        switch (n) {
        case 3: return fixed<3, W>(count, src, piv, dst);
        case 4: return fixed<4, W>(count, src, piv, dst);
        case 5: return fixed<5, W>(count, src, piv, dst);
        case 6: return fixed<6, W>(count, src, piv, dst);
        default:
            for (int32_t k = 0; k < count; ++k)
                if (KelStatus st = luGeneral<T>(n, cursor<W>(src, k), piv.at(k), cursor<W>(dst, k))) return st;
            return kelStsNoErr;
        }
    }

    template <class S, class D>
    KelStatus operator()(int32_t count, void*, const S& src, const Dense<int>& piv, const D& dst) const
    {
        if constexpr (S::desc == Desc::P) return bySize<Path::Table>(count, src, piv, dst);
        else if (pathOf(src, dst) == Path::Rows) return bySize<Path::Rows>(count, src, piv, dst);
        else return bySize<Path::Strided>(count, src, piv, dst);
    }
};

// Front end: views in argument order (source, pivot table, result).
template <class S, class D>
KelStatus luDecomp(const Traits& tr, const Sizes& s, S src, Dense<int> piv, D dst)
{
    src.setStoredWidth(s.N);
    dst.setStoredWidth(s.N);
    piv.setPerObject(s.N);
    DriverInfo info;
    info.reportsStatus = true;
    return kel::run(tr, s, noMismatch, info, LuDecompKernel{s.N}, src, piv, dst);
}

}  // namespace kel::factor
