// L2Norm: dst(n) = square root of the sum of squares of vector n, in the
// element type and without scaling, so squares that overflow give infinity.
//
// Lengths 3 to 6 add the squares in pairs, (x0^2 + x1^2) + (x2^2 + x3^2) and
// so on.  Other lengths sum from +0.0 in ascending order, except a single
// packed 32f vector, which takes the lane sum of its squares (its rounding
// depends on where the vector lies).
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanesum.h"
#include "frame/view.h"
#include "vector/sums.h"

namespace kel::vector {

template <class T>
struct NormKernel {
    int32_t len;

    template <class A>
    KelStatus operator()(int32_t count, void*, const A& a, const Dense<T>& d) const
    {
        byPath([&](auto w) { run<decltype(w)::value>(count, a, d); }, a);
        return kelStsNoErr;
    }

    template <Path W, class A>
    void run(int32_t count, const A& a, const Dense<T>& d) const
    {
        constexpr bool lanes = std::is_same<T, float>::value && W == Path::Rows && !A::array;
        const Walk<W, A> wa(a);
        const int32_t n = len;
        for (int32_t k = 0; k < count; ++k) {
            const auto x = wa[k];
            auto term = [&](int32_t i) {
                const T v = x.get(0, i);
                return v * v;
            };
            T r;
            if (straightLength(n)) r = straightSum<T>(n, Order::Pairs, term);
            else if constexpr (lanes) r = laneSquares(x.row(0), n);
            else r = plainSum<T>(n, term);
            store<T>(d.at(k), std::sqrt(r));
        }
    }
};

template <class A, class D>
KelStatus l2Norm(const Traits& tr, const Sizes& s, A a, D d)
{
    using T = typename A::Elem;
    return kel::run(tr, s, noMismatch, DriverInfo{}, NormKernel<T>{s.L}, a, d);
}

}  // namespace kel::vector
