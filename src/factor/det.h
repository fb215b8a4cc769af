// Det: determinants into a plain run of results.
//
// Orders 3 to 6 expand by minors (cofactors.h) with no tolerance: the result
// is what the arithmetic gives, however small.  Order 4 combines the minors
// of rows 0 to 2 with the last row as A*a33 - B*a32 + (0 - a30)*D + C*a31.
// Every other order eliminates in the caller's scratch: a true division for
// each multiplier, a pivot below the tolerance gives 0, and so does a last
// element whose magnitude is not above it (a NaN included).  In an array a
// small pivot ends that object only: its sign becomes 0 and the last step
// runs, so the result is a zero of either sign.  Objects side by side
// (interleaved S, P over planes) take the closed forms a pack at a time.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "factor/cofactors.h"
#include "factor/workmatrix.h"
#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/simd.h"
#include "frame/view.h"

namespace kel::factor {

template <int N, class T, class Src>
inline T detClosed(const Src& src)
{
    T a[N][N];
    unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { a[j][i] = src.get(j, i); }); });
    if constexpr (N == 4) {
        const MinorTable<4, T> t = topRows<2>(a);
        const T A = t.m[0b0111], B = t.m[0b1011], C = t.m[0b1101], D = t.m[0b1110];
        return A * a[3][3] - B * a[3][2] + (T(0) - a[3][0]) * D + C * a[3][1];
    } else {
        return laplaceDet(a);
    }
}

// Elimination of one matrix in the scratch.  inArray: a small pivot gives
// det * (0 * e) rather than 0.
template <class T, class Src>
inline T detByElimination(int32_t n, const Src& src, const WorkMatrix<T>& w, bool inArray)
{
    const T t = cubeTolerance<T>(n);
    w.resetTable(n);
    for (int32_t j = 0; j < n; ++j)
        for (int32_t i = 0; i < n; ++i) w.put(j, i, src.get(j, i));
    T det = T(1), sign = T(1);
    for (int32_t k = 0; k + 1 < n; ++k) {
        if (w.pivot(k, n - 1)) sign = -sign;
        const T v = w.at(k, k);
        if (t > std::fabs(v)) {
            if (!inArray) return T(0);
            sign = T(0);
            break;
        }
        w.eliminate(k, n - 1, [v](T a) { return a / v; });
        det = det * v;
    }
    const T e = w.at(n - 1, n - 1);
    if (!(std::fabs(e) > t)) return T(0);
    return det * (sign * e);
}

struct DetKernel {
    int32_t n;

    template <Path W, class S, class T>
    KelStatus bySize(int32_t count, void* scratch, const S& src, const Dense<T>& dst) const
    {
        const Walk<W, S> in(src);
        switch (n) {
        case 3: closedForms<3>(count, in, dst); break;
        case 4: closedForms<4>(count, in, dst); break;
        case 5: closedForms<5>(count, in, dst); break;
        case 6: closedForms<6>(count, in, dst); break;
        default: {
            const WorkMatrix<T> w{static_cast<char*>(scratch), n};
            for (int32_t k = 0; k < count; ++k) store<T>(dst.at(k), detByElimination<T>(n, in[k], w, S::array));
        }
        }
        return kelStsNoErr;
    }

    // Orders 3 and 4 go a pack of objects at a time (two doubles or, with
    // rows that are runs of memory, four floats), one in each lane, with
    // the arithmetic of one.
    template <int N, class In, class T>
    static void closedForms(int32_t count, const In in, const Dense<T> dst)
    {
        using L = simd::Lanes<T>;
        constexpr int kL = simd::kLanes<T>;
        int32_t k = 0;
        if constexpr (N <= 4) {
            if constexpr (In::path == Path::Rows)
                for (; k + kL <= count; k += kL) {
                    struct {
                        L a[N][N];
                        L get(int j, int i) const { return a[j][i]; }
                    } pack;
                    lanesOfRows(in, k, pack.a);
                    detClosed<N, L>(pack).p.store(dst.at(k));
                }
            else if constexpr (std::is_same<T, double>::value)
                for (; k + 1 < count; k += 2)
                    _mm_storeu_pd(dst.at(k), detClosed<N, simd::DoublePair>(simd::pairOf(in[k], in[k + 1])).p.v);
        }
        for (; k < count; ++k) store<T>(dst.at(k), detClosed<N, T>(in[k]));
    }

    // Objects side by side: orders 3 to 6 a pack of objects at a time, one
    // object per lane, by the closed form of one.
    template <int N, class S, class T>
    static void lanes(int32_t count, const S& src, const Dense<T>& dst)
    {
        using L = simd::Lanes<T>;
        const LaneOperand<simd::Sse, S> in(src, N, N);
        forLanes<T>(count, [&](int32_t n, int k) {
            struct {
                const LaneOperand<simd::Sse, S>& in;
                int32_t n;
                int k;
                L get(int j, int i) const { return in.load(j, i, n, k); }
            } const objects{in, n, k};
            const L d = detClosed<N, L>(objects);
            if (k == simd::kLanes<T>) d.p.store(dst.at(n));
            else d.p.storePart(dst.at(n), k);
        });
    }

    template <class S, class T>
    KelStatus operator()(int32_t count, void* scratch, const S& src, const Plain<T>&, const Dense<T>& dst) const
    {
        if constexpr (S::array && lanesPossible<S>()) {
            if (n >= 3 && n <= 6 && sideBySide(src) && sideBySide(dst)) {
                switch (n) {
                case 3: lanes<3>(count, src, dst); break;
                case 4: lanes<4>(count, src, dst); break;
                case 5: lanes<5>(count, src, dst); break;
                default: lanes<6>(count, src, dst); break;
                }
                return kelStsNoErr;
            }
        }
        if constexpr (S::desc == Desc::P) return bySize<Path::Table>(count, scratch, src, dst);
        else if (pathOf(src) == Path::Rows) return bySize<Path::Rows>(count, scratch, src, dst);
        else return bySize<Path::Strided>(count, scratch, src, dst);
    }
};

// Front end: views in argument order (source, scratch, results).
template <class S, class T>
KelStatus det(const Traits& tr, const Sizes& s, S src, Plain<T> buf, Dense<T> dst)
{
    src.setStoredWidth(s.N);
    DriverInfo info;
    info.scratchBytes = WorkMatrix<T>::bytes(s.N);
    info.callerScratch = buf.ptr;
    return kel::run(tr, s, noMismatch, info, DetKernel{s.N}, src, buf, dst);
}

}  // namespace kel::factor
