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
#include "frame/simd.h"
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

    // Packed float arrays of 3 to 6 elements, four objects at a time: the
    // squares of elements 0 to 3 of each object in one pack, transposed so
    // that each lane holds one object, paired as (x0^2 + x1^2) + (x2^2 +
    // x3^2), then x4^2 (and x5^2) gathered across the objects; one square
    // root for the four.  Returns the objects done.
    template <int N, class WA>
    static int32_t fourInLanes(int32_t count, const WA& wa, const Dense<float>& d)
    {
        using P = simd::Pack<simd::Sse, float>;
        using R = simd::Row<simd::Sse, float, (N < 4 ? N : 4)>;
        int32_t n = 0;
        for (; n + 4 <= count; n += 4) {
            P q[4];
            alignas(16) float x4[4], x5[4];
            for (int o = 0; o < 4; ++o) {
                const float* p = wa[n + o].row(0);
                const P x = R::load(p).p[0];
                q[o] = x * x;
                if constexpr (N >= 5) x4[o] = load<float>(p + 4);
                if constexpr (N == 6) x5[o] = load<float>(p + 5);
            }
            simd::transpose4(q);
            P s = N == 3 ? (q[0] + q[1]) + q[2] : (q[0] + q[1]) + (q[2] + q[3]);
            if constexpr (N >= 5) {
                const P a = P::load(x4);
                if constexpr (N == 5) {
                    s = s + a * a;
                } else {
                    const P b = P::load(x5);
                    s = s + (a * a + b * b);
                }
            }
            simd::sqrt(s).store(d.at(n));
        }
        return n;
    }

    template <Path W, class A>
    void run(int32_t count, const A& a, const Dense<T>& d) const
    {
        constexpr bool lanes = std::is_same<T, float>::value && W == Path::Rows && !A::array;
        const Walk<W, A> wa(a);
        const int32_t n = len;
        int32_t k = 0;
        if constexpr (std::is_same<T, float>::value && W == Path::Rows && A::array) {
            switch (n) {
            case 3: k = fourInLanes<3>(count, wa, d); break;
            case 4: k = fourInLanes<4>(count, wa, d); break;
            case 5: k = fourInLanes<5>(count, wa, d); break;
            case 6: k = fourInLanes<6>(count, wa, d); break;
            default: break;
            }
        }
        for (; k < count; ++k) {
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
