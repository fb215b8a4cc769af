// CrossProduct of two 3-vectors a and b:
//   dst(0) = a1*b2 - a2*b1,  dst(1) = a2*b0 - a0*b2,  dst(2) = a0*b1 - a1*b0.
//
// Packed calls read all six elements of an object before storing its
// result.  Strided and table calls store dst(0) before they read the
// elements of dst(1), and so on.  Neither touches more than three elements
// of any vector.  Vectors side by side (interleaved S, P over planes) that
// overlap nothing go a pack of objects at a time, and so do packed float
// vectors with no gap between them, through the blocks that hold four.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/simd.h"
#include "frame/view.h"
#include "vector/sums.h"

namespace kel::vector {

template <class T>
struct CrossKernel {
    template <class A, class B, class D>
    KelStatus operator()(int32_t count, void*, const A& a, const B& b, const D& d) const
    {
        if constexpr (D::array && lanesPossible<A>() && lanesPossible<B>() && lanesPossible<D>()) {
            if (sideBySide(a) && sideBySide(b) && sideBySide(d) && !overlapsSources(d, count, 3, 1, a, b)) {
                lanes(count, a, b, d);
                return kelStsNoErr;
            }
        }
        byPath([&](auto w) { run<decltype(w)::value>(count, a, b, d); }, a, b, d);
        return kelStsNoErr;
    }

    // Vectors side by side: a pack of objects at a time, the same formulas.
    template <class A, class B, class D>
    static void lanes(int32_t count, const A& a, const B& b, const D& d)
    {
        const LaneOperand<simd::Sse, A> x(a, 1, 3);
        const LaneOperand<simd::Sse, B> y(b, 1, 3);
        const LaneOperand<simd::Sse, D> z(d, 1, 3);
        forLanes<T>(count, [&](int32_t n, int k) {
            auto component = [&](int i, int j) {
                return x.load(0, i, n, k) * y.load(0, j, n, k) - x.load(0, j, n, k) * y.load(0, i, n, k);
            };
            z.store(0, 0, n, component(1, 2), k);
            z.store(0, 1, n, component(2, 0), k);
            z.store(0, 2, n, component(0, 1), k);
        });
    }

    // Packed float arrays of gapless vectors, apart or in place: four
    // objects at a time through the blocks that hold them.
    template <class WA, class WB, class WD>
    static int32_t inBlocks(int32_t count, const WA& wa, const WB& wb, const WD& wd)
    {
        using L = simd::Lanes<float>;
        int32_t n = 0;
        for (; n + 4 <= count; n += 4) {
            L x[1][3], y[1][3], z[1][3];
            quadsOfBlocks<1, 3, true>(wa[n].row(0), x);
            quadsOfBlocks<1, 3, true>(wb[n].row(0), y);
            z[0][0] = x[0][1] * y[0][2] - x[0][2] * y[0][1];
            z[0][1] = x[0][2] * y[0][0] - x[0][0] * y[0][2];
            z[0][2] = x[0][0] * y[0][1] - x[0][1] * y[0][0];
            blocksOfQuads<1, 3, true>(z, wd[n].row(0));
        }
        return n;
    }

    template <Path W, class A, class B, class D>
    static void run(int32_t count, const A& a, const B& b, const D& d)
    {
        const Walk<W, A> wa(a);
        const Walk<W, B> wb(b);
        const Walk<W, D> wd(d);
        int32_t n = 0;
        if constexpr (W == Path::Rows && std::is_same<T, float>::value && sArrays<A, B, D>()) {
            if (gaplessObjects(wa.v, 1, 3) && gaplessObjects(wb.v, 1, 3) && gaplessObjects(wd.v, 1, 3) &&
                !overlapsSources(d, count, 3, 1, a, b))
                n = inBlocks(count, wa, wb, wd);
        }
        for (; n < count; ++n) {
            const auto x = wa[n];
            const auto y = wb[n];
            const auto z = wd[n];
            auto component = [&](int i, int j) { return x.get(0, i) * y.get(0, j) - x.get(0, j) * y.get(0, i); };
            if constexpr (W == Path::Rows && std::is_same<T, float>::value) {
                // t = a * b(1,2,0) - a(1,2,0) * b holds (dst2, dst0, dst1):
                // the same products and differences, rotated once more.
                using P = simd::Pack<simd::Sse, float>;
                using R = simd::Row<simd::Sse, float, 3>;
                const P u = R::load(x.row(0)).p[0], v = R::load(y.row(0)).p[0];
                const P t = u * simd::permute<1, 2, 0, 3>(v) - simd::permute<1, 2, 0, 3>(u) * v;
                simd::permute<1, 2, 0, 3>(t).storePart(z.row(0), 3);
            } else if constexpr (W == Path::Rows) {
                const T a0 = x.get(0, 0), a1 = x.get(0, 1), a2 = x.get(0, 2);
                const T b0 = y.get(0, 0), b1 = y.get(0, 1), b2 = y.get(0, 2);
                const T r0 = a1 * b2 - a2 * b1, r1 = a2 * b0 - a0 * b2, r2 = a0 * b1 - a1 * b0;
                z.put(0, 0, r0);
                z.put(0, 1, r1);
                z.put(0, 2, r2);
            } else {
                z.put(0, 0, component(1, 2));
                z.put(0, 1, component(2, 0));
                z.put(0, 2, component(0, 1));
            }
        }
    }
};

template <class A, class B, class D>
KelStatus crossProduct(const Traits& tr, const Sizes& s, A a, B b, D d)
{
    using T = typename A::Elem;
    return kel::run(tr, s, noMismatch, DriverInfo{}, CrossKernel<T>{}, a, b, d);
}

}  // namespace kel::vector
