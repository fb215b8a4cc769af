// Element-wise combinations of two vectors with scalars: LComb and Saxpy.
//
//   LComb  dst(k) = scale1*src1(k) + scale2*src2(k)  (two rounded products)
//   Saxpy  dst(k) = scale*src1(k) + src2(k)          (one rounded product)
//
// Every element is computed alone, so no path changes a result, with one
// exception the kernels make deliberately: a packed vector longer than 6
// whose dst bytes overlap a source's is computed element by element in
// ascending order, each element stored before the next is read.  Packed
// vectors are otherwise read and written four floats (two doubles) at a
// time, the last partial group touching exactly the remaining elements;
// lengths 3 to 6 in straight-line code.  Vectors side by side (interleaved
// S, P over planes; lengths up to 8) that overlap nothing go a pack of
// objects at a time, and arrays with no gap between their vectors as one
// run of elements.
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
struct LCombOp {
    T scale1, scale2;
    template <class V>
    V operator()(V a, V b) const
    {
        return splat<V>(scale1) * a + splat<V>(scale2) * b;
    }
    template <class V>
    static V splat(T s)
    {
        if constexpr (std::is_same<V, T>::value) return s;
        else return V::splat(s);
    }
};

template <class T>
struct SaxpyOp {
    T scale;
    template <class V>
    V operator()(V a, V b) const
    {
        return LCombOp<T>::template splat<V>(scale) * a + b;
    }
};

// Do the byte ranges of n elements at p and q overlap?
template <class T>
inline bool overlap(const T* p, const T* q, int32_t n)
{
    const auto a = reinterpret_cast<std::uintptr_t>(p), b = reinterpret_cast<std::uintptr_t>(q);
    const auto bytes = static_cast<std::uintptr_t>(n) * sizeof(T);
    return a < b + bytes && b < a + bytes;
}

// One packed vector: n elements of a and b into d.
template <class Isa, class T, class Op>
inline void combineRow(const Op& op, const T* a, const T* b, T* d, int32_t n)
{
    using P = simd::Pack<Isa, T>;
    constexpr int32_t L = simd::kLanes<T>;
    if (n > 6 && (overlap(d, a, n) || overlap(d, b, n))) {
        for (int32_t k = 0; k < n; ++k) store<T>(d + k, op(load<T>(a + k), load<T>(b + k)));
        return;
    }
    int32_t k = 0;
    for (; k + L <= n; k += L) op(P::load(a + k), P::load(b + k)).store(d + k);
    if (k < n) op(P::loadPart(a + k, n - k), P::loadPart(b + k, n - k)).storePart(d + k, n - k);
}

template <class T, class Op, class Isa = simd::Sse>
struct CombineKernel {
    Op op;
    int32_t len;

    template <class A, class B, class D>
    KelStatus operator()(int32_t count, void*, const A& a, const B& b, const D& d) const
    {
        if constexpr (D::array && lanesPossible<A>() && lanesPossible<B>() && lanesPossible<D>()) {
            if (len <= kLaneMaxSide && sideBySide(a) && sideBySide(b) && sideBySide(d) &&
                !overlapsSources(d, count, len, 1, a, b)) {
                lanes(count, a, b, d);
                return kelStsNoErr;
            }
        }
        if constexpr (std::is_same<Isa, simd::Sse>::value && sArrays<A, B, D>()) {
            if (gaplessObjects(a, 1, len) && gaplessObjects(b, 1, len) && gaplessObjects(d, 1, len) &&
                !overlapsSources(d, count, len, 1, a, b)) {
                oneRun(a.at(0, 0, 0), b.at(0, 0, 0), d.at(0, 0, 0), int64_t{count} * len);
                return kelStsNoErr;
            }
        }
        byPath([&](auto w) { run<decltype(w)::value>(count, a, b, d); }, a, b, d);
        return kelStsNoErr;
    }

    // Gapless arrays, apart or in place: one run of n elements, a pack at a
    // time, the last partial pack touching exactly the remaining elements.
    void oneRun(const T* a, const T* b, T* d, int64_t n) const
    {
        using P = simd::Pack<Isa, T>;
        constexpr int32_t L = simd::kLanes<T>;
        const Op f = op;
        int64_t k = 0;
        for (; k + L <= n; k += L) f(P::load(a + k), P::load(b + k)).store(d + k);
        if (k < n) {
            const int m = static_cast<int>(n - k);
            f(P::loadPart(a + k, m), P::loadPart(b + k, m)).storePart(d + k, m);
        }
    }

    // Vectors side by side: element i of a pack of objects at once.
    template <class A, class B, class D>
    void lanes(int32_t count, const A& a, const B& b, const D& d) const
    {
        const LaneOperand<Isa, A> la(a, 1, len);
        const LaneOperand<Isa, B> lb(b, 1, len);
        const LaneOperand<Isa, D> ld(d, 1, len);
        const Op f = op;
        for (int32_t i = 0; i < len; ++i)
            forLanes<T, 2>(count, [&](int32_t n, int k) {
                ld.store(0, i, n, f(la.load(0, i, n, k), lb.load(0, i, n, k)), k);
            });
    }

    // Packed vectors of N elements (3 to 6) in straight-line code.
    template <int N, class WA, class WB, class WD>
    void fixedRows(int32_t count, const WA& wa, const WB& wb, const WD& wd) const
    {
        using R = simd::Row<Isa, T, N>;
        const Op f = op;
        for (int32_t k = 0; k < count; ++k)
            zip(R::load(wa[k].row(0)), R::load(wb[k].row(0)), [&](auto x, auto y) { return f(x, y); })
                .store(wd[k].row(0));
    }

    template <Path W, class A, class B, class D>
    void run(int32_t count, const A& a, const B& b, const D& d) const
    {
        const Walk<W, A> wa(a);
        const Walk<W, B> wb(b);
        const Walk<W, D> wd(d);
        const Op f = op;
        const int32_t n = len;
        if constexpr (W == Path::Rows) {
            switch (n) {
            case 3: return fixedRows<3>(count, wa, wb, wd);
            case 4: return fixedRows<4>(count, wa, wb, wd);
            case 5: return fixedRows<5>(count, wa, wb, wd);
            case 6: return fixedRows<6>(count, wa, wb, wd);
            default: break;
            }
        }
        for (int32_t k = 0; k < count; ++k) {
            const auto x = wa[k];
            const auto y = wb[k];
            const auto z = wd[k];
            if constexpr (W == Path::Rows) {
                combineRow<Isa>(f, x.row(0), y.row(0), z.row(0), n);
            } else {
                for (int32_t i = 0; i < n; ++i) z.put(0, i, f(x.get(0, i), y.get(0, i)));
            }
        }
    }
};

template <class A, class B, class D>
KelStatus lcomb(const Traits& tr, const Sizes& s, A a, B b, Const<typename D::Elem> scale1,
                Const<typename D::Elem> scale2, D d)
{
    using T = typename D::Elem;
    return kel::run(tr, s, noMismatch, DriverInfo{},
                    CombineKernel<T, LCombOp<T>>{LCombOp<T>{scale1.value, scale2.value}, s.L}, a, b, d);
}

template <class A, class B, class D>
KelStatus saxpy(const Traits& tr, const Sizes& s, A a, B b, Const<typename D::Elem> scale, D d)
{
    using T = typename D::Elem;
    return kel::run(tr, s, noMismatch, DriverInfo{}, CombineKernel<T, SaxpyOp<T>>{SaxpyOp<T>{scale.value}, s.L}, a,
                    b, d);
}

}  // namespace kel::vector
