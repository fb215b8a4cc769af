// FrobNorm: dst(n) = square root of the sum of the squares of all elements
// of matrix n, in the element type.
//
// The sum's association depends on the kernel (squares are never -0.0, so
// only the association matters):
//   table   P calls: pairs of table entries, (x(2i)^2 + x(2i+1)^2) added to
//           the sum from +0.0, an odd last square last;
//   plain   64f single matrices and strided 64f arrays: from +0.0, rows and
//           columns ascending;
//   squares square matrices up to 5 (32f single matrices from 2 to 5, with
//           any strides; packed arrays of both types): columns 0 to 3 of
//           every row into four lanes, reduced as (s0 + s2) + (s1 + s3),
//           then column 4 summed apart and added;
//   lanes   32f single matrices and packed arrays otherwise: four lanes from
//           zero.  A matrix whose rows follow without gaps is one vector:
//           packed, the elements before the first 16-byte boundary go into
//           lane 0; then eight elements a step, x[0..3]^2 and then x[4..7]^2
//           added lane by lane; the rest into lane 0.  Otherwise (or when the
//           matrix does not start on an element boundary) row by row in the
//           same steps, without the leading elements.  Reduced as
//           (s0 + s2) + (s1 + s3);
//   rows    strided 32f arrays: the object's running sum t; each row starts
//           lanes p = (t, 0, 0, 0) and q = 0, adds eight elements a step
//           (four squares into each), then t = (s0 + s1) + (s2 + s3) of
//           s = p + q, and the row's remaining squares one by one;
//   row lanes  packed 32f L arrays with gaps: the lane sum of each row's
//           squares, started from the running sum.
// Matrices side by side (interleaved S, P over planes) go a pack of objects
// at a time through the same table, plain and rows sums, one object per lane.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/lanesum.h"
#include "frame/pairs.h"
#include "frame/simd.h"
#include "frame/view.h"
#include "vector/sums.h"

namespace kel::vector {

template <class T>
inline T sq(T x)
{
    return x * x;
}

// Four lanes of squares.
template <class T>
struct Lanes4 {
    T s[4] = {T(0), T(0), T(0), T(0)};
    void lane0(T x) { s[0] = s[0] + sq(x); }
    // x(0..7): two groups of four, one after the other.
    template <class F>
    void step(F x)
    {
        for (int i = 0; i < 4; ++i) s[i] = s[i] + sq(x(i));
        for (int i = 0; i < 4; ++i) s[i] = s[i] + sq(x(4 + i));
    }
    // n elements: `peel` of them into lane 0, steps of eight, the rest into lane 0.
    template <class F>
    void run(int32_t n, int32_t peel, F x)
    {
        int32_t k = 0;
        for (; k < peel && k < n; ++k) lane0(x(k));
        for (; k + 8 <= n; k += 8) step([&](int i) { return x(k + i); });
        for (; k < n; ++k) lane0(x(k));
    }
    T halves() const { return (s[0] + s[2]) + (s[1] + s[3]); }
};

template <class T>
struct FrobKernel {
    int32_t W, H;

    template <class A>
    KelStatus operator()(int32_t count, void*, const A& a, const Dense<T>& d) const
    {
        if constexpr (A::array && lanesPossible<A>()) {
            // Side by side, the rows of an object are never contiguous
            // (but for 1 x 1 matrices, which keep their own path).
            if (W <= kLaneMaxSide && H <= kLaneMaxSide && sideBySide(a) && sideBySide(d) &&
                pathOf(a) != Path::Rows) {
                lanes(count, a, d);
                return kelStsNoErr;
            }
        }
        byPath([&](auto w) { run<decltype(w)::value>(count, a, d); }, a);
        return kelStsNoErr;
    }

    // Matrices side by side: the sum of the path the call takes otherwise,
    // for a pack of objects at once.
    template <class A>
    void lanes(int32_t count, const A& a, const Dense<T>& d) const
    {
        using L = simd::Lanes<T>;
        const LaneOperand<simd::Sse, A> x(a, H, W);
        forLanes<T>(count, [&](int32_t first, int k) {
            const auto pack = packOf(x, first, k);
            L r;
            if constexpr (A::desc == Desc::P) r = table<L>(pack);
            else if constexpr (std::is_same<T, float>::value) r = rows<L>(pack);
            else r = plain<L>(pack);
            const auto root = simd::sqrt(r.p);
            if (k == simd::kLanes<T>) root.store(d.at(first));
            else root.storePart(d.at(first), k);
        });
    }

    // The sums below are written over the value type V: one object's T, or
    // Lanes<T> for a pack of objects whose cursor gives element (j, i) of
    // each in its lane.
    template <class V = T, class C>
    V table(const C& x) const
    {
        const int32_t n = W * H;
        auto at = [&](int32_t k) { return x.get(k / W, k % W); };
        V s = V(T(0));
        int32_t k = 0;
        for (; k + 1 < n; k += 2) s = s + (sq(at(k)) + sq(at(k + 1)));
        if (k < n) s = s + sq(at(k));
        return s;
    }

    template <class V = T, class C>
    V plain(const C& x) const
    {
        V s = V(T(0));
        for (int32_t j = 0; j < H; ++j)
            for (int32_t i = 0; i < W; ++i) s = s + sq(x.get(j, i));
        return s;
    }

    template <class C>
    T squares(const C& x) const
    {
        Lanes4<T> l;
        T c4 = T(0);
        for (int32_t j = 0; j < H; ++j) {
            for (int32_t i = 0; i < W && i < 4; ++i) l.s[i] = l.s[i] + sq(x.get(j, i));
            if (W == 5) c4 = c4 + sq(x.get(j, 4));
        }
        return W == 5 ? l.halves() + c4 : l.halves();
    }

    // The lanes of one matrix at `base` with strides s1, s2.
    T lanes(const T* base, int32_t s1, int32_t s2) const
    {
        Lanes4<T> l;
        const auto addr = reinterpret_cast<std::uintptr_t>(base);
        auto rowByRow = [&] {
            for (int32_t j = 0; j < H; ++j) {
                const T* row = offset(base, mul32(j, s1));
                l.run(W, 0, [&](int32_t i) { return load<T>(offset(row, mul32(i, s2))); });
            }
        };
        if (addr % sizeof(T) != 0) {
            rowByRow();
        } else if (s1 == mul32(s2, W)) {
            const bool packed = s2 == kElem<T>;
            const int32_t peel = packed && addr % 16 != 0 ? static_cast<int32_t>((16 - addr % 16) / sizeof(T)) : 0;
            l.run(W * H, peel, [&](int32_t k) { return load<T>(offset(base, mul32(k, s2))); });
        } else {
            rowByRow();
        }
        return l.halves();
    }

    // Strided 32f arrays: row by row on the running sum.
    template <class V = T, class C>
    V rows(const C& x) const
    {
        const V zero(T(0));
        V t = zero;
        const int32_t whole = W & ~7;
        for (int32_t j = 0; j < H; ++j) {
            V p[4] = {t, zero, zero, zero}, q[4] = {zero, zero, zero, zero};
            for (int32_t i = 0; i < whole; i += 8)
                for (int k = 0; k < 4; ++k) {
                    p[k] = p[k] + sq(x.get(j, i + k));
                    q[k] = q[k] + sq(x.get(j, i + 4 + k));
                }
            t = ((p[0] + q[0]) + (p[1] + q[1])) + ((p[2] + q[2]) + (p[3] + q[3]));
            for (int32_t i = whole; i < W; ++i) t = t + sq(x.get(j, i));
        }
        return t;
    }

    // Packed 32f L arrays with gaps: the lane sum of each row.
    template <class C>
    T rowLanes(const C& x) const
    {
        T t = T(0);
        for (int32_t j = 0; j < H; ++j) t = laneSquares(x.row(j), W, t);
        return t;
    }

    // Packed float arrays of square matrices 2 to 5, four objects in lanes:
    // each object's lanes of squares as in squares(), reduced and rooted
    // together.
    template <int N, class WA>
    static int32_t four(int32_t count, const WA& wa, const Dense<float>& d)
    {
        using P = simd::Pack<simd::Sse, float>;
        using R = simd::Row<simd::Sse, float, (N < 4 ? N : 4)>;
        return fourInLanes(
            count, d,
            [&](int32_t n) {
                // Squares are never -0.0, so starting from row 0's squares
                // gives the bits of starting from zero.
                const auto x = wa[n];
                P r = R::load(x.row(0)).p[0];
                P acc = r * r;
                for (int j = 1; j < N; ++j) {
                    r = R::load(x.row(j)).p[0];
                    acc = acc + r * r;
                }
                return acc;
            },
            [&](int32_t n, const auto& s) {
                P t = simd::sumHalves(s);
                if constexpr (N == 5) {
                    alignas(16) float c4[4];
                    for (int o = 0; o < 4; ++o) {
                        float c = 0.0f;
                        for (int j = 0; j < N; ++j) c = c + sq(load<float>(wa[n + o].row(j) + 4));
                        c4[o] = c;
                    }
                    t = t + P::load(c4);
                }
                return simd::sqrt(t);
            });
    }

    template <Path W_, class A>
    void run(int32_t count, const A& a, const Dense<T>& d) const
    {
        constexpr bool f32 = std::is_same<T, float>::value;
        const Walk<W_, A> wa(a);
        const bool square5 = W == H && W <= 5;
        int32_t n = 0;
        if constexpr (f32 && W_ == Path::Rows && A::array) {
            switch (square5 ? W : 0) {
            case 2: n = four<2>(count, wa, d); break;
            case 3: n = four<3>(count, wa, d); break;
            case 4: n = four<4>(count, wa, d); break;
            case 5: n = four<5>(count, wa, d); break;
            default: break;
            }
        }
        for (; n < count; ++n) {
            const auto x = wa[n];
            T r;
            if constexpr (W_ == Path::Table) {
                r = table(x);
            } else if constexpr (!A::array) {
                if constexpr (f32) r = square5 && W >= 2 ? squares(x) : lanes(x.at(0, 0), a.s1, a.s2);
                else r = plain(x);
            } else if constexpr (W_ == Path::Rows) {
                if (square5) r = squares(x);
                else if constexpr (f32 && A::desc == Desc::L) r = a.s1 == W * 4 ? lanes(x.at(0, 0), a.s1, a.s2) : rowLanes(x);
                else r = lanes(x.at(0, 0), a.s1, a.s2);
            } else {
                if constexpr (f32) r = rows(x);
                else r = plain(x);
            }
            store<T>(d.at(n), std::sqrt(r));
        }
    }
};

template <class A, class D>
KelStatus frobNorm(const Traits& tr, const Sizes& s, A a, D d)
{
    using T = typename A::Elem;
    a.setStoredWidth(s.W);
    return kel::run(tr, s, noMismatch, DriverInfo{}, FrobKernel<T>{s.W, s.H}, a, d);
}

}  // namespace kel::vector
