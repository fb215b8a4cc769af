// Trace: dst(n) = sum of the diagonal x(k, k), k = 0..width-1, of matrix n.
// Widths 3 to 6 are straight-line sums beginning with x(0, 0); other widths
// sum from +0.0, so a 1 x 1 matrix holding -0.0 gives +0.0.  Matrices side
// by side (interleaved S, P over planes) go a pack of objects at a time.
#pragma once

#include <cstdint>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/view.h"
#include "vector/sums.h"

namespace kel::vector {

template <class T>
struct TraceKernel {
    int32_t width;

    template <class A>
    KelStatus operator()(int32_t count, void*, const A& a, const Dense<T>& d) const
    {
        if constexpr (A::array && lanesPossible<A>()) {
            if (width <= kLaneMaxSide && sideBySide(a) && sideBySide(d)) {
                lanes(count, a, d);
                return kelStsNoErr;
            }
        }
        byPath([&](auto w) { run<decltype(w)::value>(count, a, d); }, a);
        return kelStsNoErr;
    }

    // Matrices side by side: the same sums for a pack of objects at once.
    template <class A>
    void lanes(int32_t count, const A& a, const Dense<T>& d) const
    {
        using L = simd::Lanes<T>;
        const LaneOperand<simd::Sse, A> x(a, width, width);
        const int32_t n = width;
        forLanes<T>(count, [&](int32_t first, int k) {
            auto term = [&](int32_t i) { return L(x.load(i, i, first, k)); };
            const L s = straightLength(n) ? straightSum<L>(n, Order::Ascending, term) : plainSum<L>(n, term);
            if (k == simd::kLanes<T>) s.p.store(d.at(first));
            else s.p.storePart(d.at(first), k);
        });
    }

    template <Path W, class A>
    void run(int32_t count, const A& a, const Dense<T>& d) const
    {
        const Walk<W, A> wa(a);
        const int32_t n = width;
        for (int32_t k = 0; k < count; ++k) {
            const auto x = wa[k];
            auto term = [&](int32_t i) { return x.get(i, i); };
            store<T>(d.at(k), straightLength(n) ? straightSum<T>(n, Order::Ascending, term) : plainSum<T>(n, term));
        }
    }
};

template <class A, class D>
KelStatus trace(const Traits& tr, const Sizes& s, A a, D d)
{
    using T = typename A::Elem;
    a.setStoredWidth(s.W);
    return kel::run(tr, s, noMismatch, DriverInfo{}, TraceKernel<T>{s.W}, a, d);
}

}  // namespace kel::vector
