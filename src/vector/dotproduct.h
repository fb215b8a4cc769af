// DotProduct: dst(n) = sum over k of a(k) * b(k), one element per object in
// a plain dst.
//
// Lengths 3 to 6 are straight-line sums beginning with a0*b0 (ascending),
// except the single vectors of S calls: with strides they add in the
// scattered order, packed 64f vectors in two lanes.  Other lengths sum from
// +0.0 in ascending order, except packed 32f calls with both vectors of the
// same kind (single and single, array and array): they take the lane sum,
// whose rounding depends on where each object's second vector lies.
// Vectors side by side (interleaved S, P over planes) go a pack of objects
// at a time, each lane's sum in the order its path gives it.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/lanesum.h"
#include "frame/simd.h"
#include "frame/view.h"
#include "vector/sums.h"

namespace kel::vector {

template <class T>
struct DotKernel {
    int32_t len;

    template <Path W, class A, class B>
    static constexpr Order straightOrder()
    {
        if constexpr (W == Path::Table || A::array) return Order::Ascending;
        else if constexpr (W == Path::Strided) return Order::Scattered;
        else if constexpr (std::is_same<T, double>::value) return Order::LanePairs;
        else return Order::Ascending;
    }

    template <class A, class B>
    KelStatus operator()(int32_t count, void*, const A& a, const B& b, const Dense<T>& d) const
    {
        if constexpr (lanesPossible<A>() && lanesPossible<B>() && (A::array || B::array)) {
            if (len <= kLaneMaxSide && sideBySide(a) && sideBySide(b) && sideBySide(d)) {
                if constexpr (A::desc == Desc::P) {
                    byLanes<Path::Table>(count, a, b, d);
                    return kelStsNoErr;
                } else if (pathOf(a, b) == Path::Strided) {
                    byLanes<Path::Strided>(count, a, b, d);
                    return kelStsNoErr;
                }
            }
        }
        byPath([&](auto w) { run<decltype(w)::value>(count, a, b, d); }, a, b);
        return kelStsNoErr;
    }

    // Vectors side by side: a pack of objects at once, each lane's sum in
    // the order of path W (strided S or P), which the call takes otherwise.
    template <Path W, class A, class B>
    void byLanes(int32_t count, const A& a, const B& b, const Dense<T>& d) const
    {
        using L = simd::Lanes<T>;
        constexpr Order order = straightOrder<W, A, B>();
        const LaneOperand<simd::Sse, A> x(a, 1, len);
        const LaneOperand<simd::Sse, B> y(b, 1, len);
        const int32_t n = len;
        forLanes<T>(count, [&](int32_t first, int k) {
            auto term = [&](int32_t i) { return L(x.load(0, i, first, k)) * L(y.load(0, i, first, k)); };
            const L s = straightLength(n) ? straightSum<L>(n, order, term) : plainSum<L>(n, term);
            if (k == simd::kLanes<T>) s.p.store(d.at(first));
            else s.p.storePart(d.at(first), k);
        });
    }

    // Packed float arrays of 3 or 4 elements, four objects in lanes: each
    // object's products added in ascending order.  Gapless 3-vectors take
    // the products of their blocks.
    template <int N, class WA, class WB>
    static int32_t four(int32_t count, const WA& wa, const WB& wb, const Dense<float>& d)
    {
        auto ascending = [](int32_t, const auto& t) {
            auto s = t[0] + t[1];
            s = s + t[2];
            if constexpr (N == 4) s = s + t[3];
            return s;
        };
        if constexpr (N == 3) {
            if (gaplessObjects(wa.v, 1, 3) && gaplessObjects(wb.v, 1, 3)) {
                return fourInBlocks<3>(
                    count, d,
                    [&](int32_t n, int q) {
                        return _mm_mul_ps(_mm_loadu_ps(wa[n].row(0) + 4 * q), _mm_loadu_ps(wb[n].row(0) + 4 * q));
                    },
                    ascending);
            }
        }
        using R = simd::Row<simd::Sse, float, N>;
        return fourInLanes(
            count, d, [&](int32_t n) { return R::load(wa[n].row(0)).p[0] * R::load(wb[n].row(0)).p[0]; },
            [&](int32_t n, auto& t) {
                columns(t);
                return ascending(n, t);
            });
    }

    template <Path W, class A, class B>
    void run(int32_t count, const A& a, const B& b, const Dense<T>& d) const
    {
        constexpr Order order = straightOrder<W, A, B>();
        constexpr bool lanes = std::is_same<T, float>::value && W == Path::Rows && A::array == B::array;
        const Walk<W, A> wa(a);
        const Walk<W, B> wb(b);
        const int32_t n = len;
        int32_t k = 0;
        if constexpr (std::is_same<T, float>::value && W == Path::Rows && A::array) {
            if (n == 3) k = four<3>(count, wa, wb, d);
            if (n == 4) k = four<4>(count, wa, wb, d);
        }
        for (; k < count; ++k) {
            const auto x = wa[k];
            const auto y = wb[k];
            auto term = [&](int32_t i) { return x.get(0, i) * y.get(0, i); };
            T r;
            if (straightLength(n)) r = straightSum<T>(n, order, term);
            else if constexpr (lanes) r = laneDot(x.row(0), y.row(0), n);
            else r = plainSum<T>(n, term);
            store<T>(d.at(k), r);
        }
    }
};

template <class A, class B, class D>
KelStatus dotProduct(const Traits& tr, const Sizes& s, const A& a, const B& b, const D& d)
{
    using T = typename A::Elem;
    return kel::run(tr, s, noMismatch, DriverInfo{}, DotKernel<T>{s.L}, a, b, d);
}

}  // namespace kel::vector
