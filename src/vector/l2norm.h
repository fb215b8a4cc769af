// L2Norm: dst(n) = square root of the sum of squares of vector n, in the
// element type and without scaling, so squares that overflow give infinity.
//
// Lengths 3 to 6 add the squares in pairs, (x0^2 + x1^2) + (x2^2 + x3^2) and
// so on.  Other lengths sum from +0.0 in ascending order, except a single
// packed 32f vector, which takes the lane sum of its squares (its rounding
// depends on where the vector lies).  Vectors side by side (interleaved S,
// P over planes) go a pack of objects at a time.
#pragma once

#include <cmath>
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
struct NormKernel {
    int32_t len;

    template <class A>
    KelStatus operator()(int32_t count, void*, const A& a, const Dense<T>& d) const
    {
        if constexpr (A::array && lanesPossible<A>()) {
            if (len <= kLaneMaxSide && sideBySide(a) && sideBySide(d)) {
                byLanes(count, a, d);
                return kelStsNoErr;
            }
        }
        byPath([&](auto w) { run<decltype(w)::value>(count, a, d); }, a);
        return kelStsNoErr;
    }

    // Packed float arrays of 3 to 6 elements, four objects in lanes: the
    // squares of elements 0 to 3 paired as (x0^2 + x1^2) + (x2^2 + x3^2),
    // then x4^2 (and x5^2) of the four objects; one square root for the four.
    // Gapless vectors of 3 and 5 take the squares of their blocks.
    template <int N, class WA>
    static int32_t four(int32_t count, const WA& wa, const Dense<float>& d)
    {
        using P = simd::Pack<simd::Sse, float>;
        if constexpr (N % 2 == 1) {
            if (gaplessObjects(wa.v, 1, N)) {
                return fourInBlocks<N>(
                    count, d,
                    [&](int32_t n, int q) {
                        const __m128 x = _mm_loadu_ps(wa[n].row(0) + 4 * q);
                        return _mm_mul_ps(x, x);
                    },
                    [](int32_t, const auto& q) {
                        if constexpr (N == 3) return simd::sqrt((q[0] + q[1]) + q[2]);
                        else return simd::sqrt(((q[0] + q[1]) + (q[2] + q[3])) + q[4]);
                    });
            }
        }
        using R = simd::Row<simd::Sse, float, (N < 4 ? N : 4)>;
        auto column = [&](int32_t n, int i) {
            alignas(16) float x[4];
            for (int o = 0; o < 4; ++o) x[o] = load<float>(wa[n + o].row(0) + i);
            const P v = P::load(x);
            return v * v;
        };
        return fourInLanes(
            count, d,
            [&](int32_t n) {
                const P x = R::load(wa[n].row(0)).p[0];
                return x * x;
            },
            [&](int32_t n, auto& q) {
                columns(q);
                P s = N == 3 ? (q[0] + q[1]) + q[2] : (q[0] + q[1]) + (q[2] + q[3]);
                if constexpr (N == 5) s = s + column(n, 4);
                if constexpr (N == 6) s = s + (column(n, 4) + column(n, 5));
                return simd::sqrt(s);
            });
    }

    // Vectors side by side: the same sums and square roots for a pack of
    // objects at once.
    template <class A>
    void byLanes(int32_t count, const A& a, const Dense<T>& d) const
    {
        using L = simd::Lanes<T>;
        const LaneOperand<simd::Sse, A> x(a, 1, len);
        const int32_t n = len;
        forLanes<T>(count, [&](int32_t first, int k) {
            auto term = [&](int32_t i) {
                const L v = x.load(0, i, first, k);
                return v * v;
            };
            const L s = straightLength(n) ? straightSum<L>(n, Order::Pairs, term) : plainSum<L>(n, term);
            const auto r = simd::sqrt(s.p);
            if (k == simd::kLanes<T>) r.store(d.at(first));
            else r.storePart(d.at(first), k);
        });
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
            case 3: k = four<3>(count, wa, d); break;
            case 4: k = four<4>(count, wa, d); break;
            case 5: k = four<5>(count, wa, d); break;
            case 6: k = four<6>(count, wa, d); break;
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
