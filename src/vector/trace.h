// Trace: dst(n) = sum of the diagonal x(k, k), k = 0..width-1, of matrix n.
// Widths 3 to 6 are straight-line sums beginning with x(0, 0); other widths
// sum from +0.0, so a 1 x 1 matrix holding -0.0 gives +0.0.
#pragma once

#include <cstdint>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/view.h"
#include "vector/sums.h"

namespace kel::vector {

template <class T>
struct TraceKernel {
    int32_t width;

    template <class A>
    KelStatus operator()(int32_t count, void*, const A& a, const Dense<T>& d) const
    {
        byPath([&](auto w) { run<decltype(w)::value>(count, a, d); }, a);
        return kelStsNoErr;
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
