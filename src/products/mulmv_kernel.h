// Matrix times column vector, with an optional vector added to each result:
// the kernels of matrix-vector Mul and of Gaxpy.
//
//   dst(r) = sum over k = 0..K-1, ascending, of A(r, k) * x(k)   [+ y(r)]
//
// A is the matrix as the member reads it (transposed views swap the indices),
// x the vector, y the addend; y is added to the complete sum.  Every element
// is computed by one thread in one order, so results never depend on the
// team.  Sums begin in one of two ways, and the member decides which, kernel
// by kernel (SumRules):
//   straight  square sizes 3 to 6: the sum begins with the first product;
//   general   every other case: the sum begins from +0.0.
// The two differ only when every product is -0.0 (-0.0 against +0.0).  A
// general sum is computed here as the first product added to +0.0 followed by
// the same additions, which is that very sequence of roundings; so one fast
// path serves both and takes a flag.
//
// Paths, all with the same results:
//   columns  packed, square, matrix single or transposed: logical columns
//            in 128-bit rows, each multiplied by one vector element spread
//            over all lanes; a single matrix is gathered once, before the
//            object loop, and a single vector's spread elements likewise;
//   rows     packed, square, array of matrices as stored: straight-line
//            scalar sums along each row, a single vector held in locals;
//   lane dot the packed general path of Mul_mva_32f: the frame's lane sum
//            (its rounding depends on the vector's address);
//   gathered square sizes 3 to 6 with strides or element tables: each
//            object read into locals, then straight-line sums;
//   elements anything else: one element at a time through the views;
//   lanes    objects side by side (interleaved S, P over planes; sizes up to
//            8): a pack of objects at a time, one object per lane, each
//            lane's sum begun as the gathered and elements paths begin it.
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/lanesum.h"
#include "frame/simd.h"
#include "frame/view.h"

namespace kel::products {

// Which kernels of a member compute square sizes 3 to 6 as straight-line
// sums (beginning with the first product), and whether the packed general
// path is the lane dot product.
struct SumRules {
    bool packedSizes;   // packed kernel (S and L, every Stride2 the element size)
    bool stridedSizes;  // strided kernel (S and L)
    bool tableSizes;    // P kernel
    bool laneDot;       // packed general path: the frame's laneDot()
};

// The missing addend of a product without a third operand.
struct NoAddend {
    static constexpr bool array = false;
    bool packed() const { return true; }
};
template <class Y>
constexpr bool kNoAddend = std::is_same<Y, NoAddend>::value;

// Square size of the straight-line paths, 0 for none.  The front ends call
// this after the size checks, when all vector lengths fit the matrix.
inline int squareSize(const Sizes& s) { return s.W1 == s.H1 && s.W1 >= 3 && s.W1 <= 6 ? s.W1 : 0; }

namespace mv {

using simd::Pack;
using simd::Row;
using simd::Sse;

using simd::element;

// Packed operands: whole stored rows of each object.
template <class V>
using Walk = kel::Walk<Path::Rows, V>;

// Columns path.  Logical column k of object n is a row of N elements: a
// single matrix's columns are gathered once; an array of transposed matrices
// has them as its stored rows.  Objects go two at a time, which keeps the
// vector units busy; each is computed exactly as alone.
template <class Isa, class T, int N, bool FromZero, class A, class X, class Y, class D, int... K>
void columnsImpl(std::integer_sequence<int, K...>, int32_t count, const A& a, const X& x, const Y& y,
                 const D& d)
{
    using R = Row<Isa, T, N>;
    using P = Pack<Isa, T>;
    R held[A::array ? 1 : N];
    if constexpr (!A::array) {
        for (int k = 0; k < N; ++k) {
            T col[N];
            for (int r = 0; r < N; ++r) col[r] = a.get(0, r, k);
            held[k] = R::load(col);
        }
    }
    P spreadX[X::array ? 1 : N];
    if constexpr (!X::array) {
        const R xr = R::load(x.row(0, 0));
        ((spreadX[K] = element<K>(xr)), ...);
    }
    const Walk<A> wa(a);
    const Walk<X> wx(x);
    const Walk<D> wd(d);
    auto one = [&](int32_t n, auto& wy) {
        R xr;
        if constexpr (X::array) xr = R::load(wx[n].row(0));
        auto col = [&](auto kc) -> R {
            constexpr int k = decltype(kc)::value;
            if constexpr (A::array) return R::load(wa[n].row(k));  // stored row k = logical column k
            else return held[k];
        };
        auto elem = [&](auto kc) -> P {
            constexpr int k = decltype(kc)::value;
            if constexpr (X::array) return element<k>(xr);
            else return spreadX[k];
        };
        R acc = col(std::integral_constant<int, 0>{}) * elem(std::integral_constant<int, 0>{});
        if constexpr (FromZero) acc = R::splat(T(0)) + acc;
        auto step = [&](auto kc) {
            if constexpr (decltype(kc)::value > 0) acc = acc + col(kc) * elem(kc);
        };
        (step(std::integral_constant<int, K>{}), ...);
        if constexpr (!kNoAddend<Y>) acc = acc + wy.addend(n);
        acc.store(wd[n].row(0));
    };
    auto loop = [&](auto& wy) {
        int32_t n = 0;
        for (; n + 1 < count; n += 2) {
            one(n, wy);
            one(n + 1, wy);
        }
        if (n < count) one(n, wy);
    };
    if constexpr (kNoAddend<Y>) {
        struct None {
        } none;
        loop(none);
    } else {
        // The addend of each object, or the single one held.
        struct Addend : Walk<Y> {
            R held;
            explicit Addend(const Y& v) : Walk<Y>(v)
            {
                if constexpr (!Y::array) held = R::load(this->first().row(0));
            }
            R addend(int32_t n) const
            {
                if constexpr (Y::array) return R::load((*this)[n].row(0));
                else return held;
            }
        };
        const Addend wy(y);
        loop(wy);
    }
}

// One result element of the straight-line paths: the products of row
// element k (`row(k)`) and vector element k in ascending k, the first one
// added to zero when the member starts from zero.
template <int N, bool FromZero, class T, class RowAt>
inline T rowSum(RowAt row, const T (&xs)[N])
{
    T s = row(0) * xs[0];
    if constexpr (FromZero) s = T(0) + s;
    for (int k = 1; k < N; ++k) s = s + row(k) * xs[k];
    return s;
}

// Rows path: an array of matrices as stored, one straight-line scalar sum per
// row; a single vector is read once.
template <class T, int N, bool FromZero, class A, class X, class Y, class D>
void rowsFixed(int32_t count, const A& a, const X& x, const Y& yv, const D& d)
{
    const Y y = yv;
    const Walk<A> wa(a);
    const Walk<X> wx(x);
    const Walk<D> wd(d);
    T xs[N];
    auto loadX = [&](int32_t n) {
        const T* p = wx[n].row(0);
        for (int k = 0; k < N; ++k) xs[k] = load<T>(p + k);
    };
    if constexpr (!X::array) loadX(0);
    for (int32_t n = 0; n < count; ++n) {
        if constexpr (X::array) loadX(n);
        T out[N];
        for (int r = 0; r < N; ++r) {
            const T* row = wa[n].row(r);
            T s = rowSum<N, FromZero>([row](int k) { return load<T>(row + k); }, xs);
            if constexpr (!kNoAddend<Y>) s = s + y.get(n, 0, r);
            out[r] = s;
        }
        std::memcpy(wd[n].row(0), out, sizeof out);
    }
}

template <class A, class X, class Y, class D>
void laneDotAll(int32_t count, int32_t R, int32_t K, const A& a, const X& x, const Y&, const D& d)
{
    for (int32_t n = 0; n < count; ++n) {
        const float* b = x.row(n, 0);
        float* out = d.row(n, 0);
        for (int32_t r = 0; r < R; ++r) store<float>(out + r, laneDot(a.row(n, r), b, K));
    }
}

// Gathered path: square sizes 3 to 6 with strides or element tables.  Each
// object's matrix (as the member reads it) and vector are read into locals,
// a single operand once for the whole array; the sums run in straight-line
// code and the results are written after them.
template <class T, int N, bool FromZero, class A, class X, class Y, class D>
void gathered(int32_t count, const A& av, const X& xv, const Y& yv, const D& dv)
{
    const A a = av;
    const X x = xv;
    const Y y = yv;
    const D d = dv;
    T m[N][N], xs[N];
    auto loadA = [&](int32_t n) {
        for (int r = 0; r < N; ++r)
            for (int k = 0; k < N; ++k) m[r][k] = a.get(n, r, k);
    };
    auto loadX = [&](int32_t n) {
        for (int k = 0; k < N; ++k) xs[k] = x.get(n, 0, k);
    };
    if constexpr (!A::array) loadA(0);
    if constexpr (!X::array) loadX(0);
    for (int32_t n = 0; n < count; ++n) {
        if constexpr (A::array) loadA(n);
        if constexpr (X::array) loadX(n);
        T out[N];
        for (int r = 0; r < N; ++r) {
            T s = rowSum<N, FromZero>([&m, r](int k) { return m[r][k]; }, xs);
            if constexpr (!kNoAddend<Y>) s = s + y.get(n, 0, r);
            out[r] = s;
        }
        for (int r = 0; r < N; ++r) d.put(n, 0, r, out[r]);
    }
}

// Elements path: any description, stride and transposition.  The views are
// copied in: the stores may alias any memory, the locals cannot be.
template <class T, class A, class X, class Y, class D>
void elements(int32_t count, int32_t R, int32_t K, bool straight, const A& av, const X& xv, const Y& yv,
              const D& dv)
{
    const A a = av;
    const X x = xv;
    const Y y = yv;
    const D d = dv;
    for (int32_t n = 0; n < count; ++n)
        for (int32_t r = 0; r < R; ++r) {
            T s = a.get(n, r, 0) * x.get(n, 0, 0);
            if (!straight) s = T(0) + s;
            for (int32_t k = 1; k < K; ++k) s = s + a.get(n, r, k) * x.get(n, 0, k);
            if constexpr (!kNoAddend<Y>) s = s + y.get(n, 0, r);
            d.put(n, 0, r, s);
        }
}

// Lanes path: dst(r) of a pack of objects side by side at once, one object
// per lane, each lane's sum the one the strided and P paths form.  N: the
// order of a square matrix known when compiling, else 0.
template <int N, class T, class Isa, class A, class X, class Y, class D>
void lanes(int32_t count, int32_t rows, int32_t inner, bool fromZero, const A& a, const X& x, const Y& y, const D& d)
{
    using P = simd::Pack<Isa, T>;
    const int32_t R = N ? N : rows, K = N ? N : inner;
    const LaneOperand<Isa, A> la(a, R, K);
    const LaneOperand<Isa, X> lx(x, 1, K);
    const LaneOperand<Isa, D> ld(d, 1, R);
    const auto ly = [&] {
        if constexpr (kNoAddend<Y>) return 0;
        else return LaneOperand<Isa, Y>(y, 1, R);
    }();
    // G packs from object n (the last one k objects), all their sources read
    // before any result is stored; one matrix serves them all with each of
    // its elements read once.
    const auto packs = [&](auto g, int32_t n, int k) {
        constexpr int G = decltype(g)::value, L = simd::kLanes<T>;
        P xs[G][kLaneMaxSide];
        for (int u = 0; u < G; ++u)
            for (int32_t q = 0; q < K; ++q) xs[u][q] = lx.load(0, q, n + u * L, k);
        for (int32_t r = 0; r < R; ++r) {
            P s[G];
            for (int u = 0; u < G; ++u) {
                s[u] = la.load(r, 0, n + u * L, k) * xs[u][0];
                if (fromZero) s[u] = P::splat(T(0)) + s[u];
            }
            for (int32_t q = 1; q < K; ++q)
                for (int u = 0; u < G; ++u) s[u] = s[u] + la.load(r, q, n + u * L, k) * xs[u][q];
            for (int u = 0; u < G; ++u) {
                if constexpr (!kNoAddend<Y>) s[u] = s[u] + ly.load(0, r, n + u * L, k);
                ld.store(0, r, n + u * L, s[u], k);
            }
        }
    };
    int32_t first = 0;
    if constexpr (!A::array)
        for (constexpr int32_t two = 2 * simd::kLanes<T>; first + two <= count; first += two)
            packs(std::integral_constant<int, 2>{}, first, simd::kLanes<T>);
    forLanes<T>(count - first, [&](int32_t n, int k) { packs(std::integral_constant<int, 1>{}, first + n, k); });
}

}  // namespace mv

// The serial kernel of every member: dst = A x (+ y) for `count` objects.
template <class T, class Isa = simd::Sse>
struct MatVec {
    int32_t R, K;    // length of dst, inner length
    int square;      // 3..6 when the matrix is square with straight-line code, else 0
    SumRules rules;

    template <class A, class X, class D>
    KelStatus operator()(int32_t count, void*, const A& a, const X& x, const D& d) const
    {
        compute(count, a, x, NoAddend{}, d);
        return kelStsNoErr;
    }
    template <class A, class X, class Y, class D>
    KelStatus operator()(int32_t count, void*, const A& a, const X& x, const Y& y, const D& d) const
    {
        compute(count, a, x, y, d);
        return kelStsNoErr;
    }

private:
    template <int N, bool FromZero, class A, class X, class Y, class D>
    void fixedFrom(int32_t count, const A& a, const X& x, const Y& y, const D& d) const
    {
        if constexpr (A::array && !A::trans) mv::rowsFixed<T, N, FromZero>(count, a, x, y, d);
        else mv::columnsImpl<Isa, T, N, FromZero>(std::make_integer_sequence<int, N>{}, count, a, x, y, d);
    }
    template <int N, class A, class X, class Y, class D>
    void fixed(int32_t count, bool fromZero, const A& a, const X& x, const Y& y, const D& d) const
    {
        if (fromZero) fixedFrom<N, true>(count, a, x, y, d);
        else fixedFrom<N, false>(count, a, x, y, d);
    }

    template <class A, class X, class Y, class D>
    void gather(int32_t count, bool fromZero, const A& a, const X& x, const Y& y, const D& d) const
    {
        auto go = [&](auto n) {
            if (fromZero) mv::gathered<T, decltype(n)::value, true>(count, a, x, y, d);
            else mv::gathered<T, decltype(n)::value, false>(count, a, x, y, d);
        };
        switch (square) {
        case 3: return go(std::integral_constant<int, 3>{});
        case 4: return go(std::integral_constant<int, 4>{});
        case 5: return go(std::integral_constant<int, 5>{});
        case 6: return go(std::integral_constant<int, 6>{});
        default: mv::elements<T>(count, R, K, false, a, x, y, d);
        }
    }

    template <class A, class X, class Y, class D>
    void compute(int32_t count, const A& a, const X& x, const Y& y, const D& d) const
    {
        if constexpr (D::array && lanesPossible<A>() && lanesPossible<X>() && lanesPossible<Y>() &&
                      lanesPossible<D>()) {
            bool packed = false;
            if constexpr (A::desc != Desc::P) packed = allPacked(a, x, y, d);
            if (!packed && R <= kLaneMaxSide && K <= kLaneMaxSide && sideBySide(a) && sideBySide(x) &&
                sideBySide(y) && sideBySide(d)) {
                const bool sized = square && (A::desc == Desc::P ? rules.tableSizes : rules.stridedSizes);
                switch (square) {
                case 3: return mv::lanes<3, T, Isa>(count, R, K, !sized, a, x, y, d);
                case 4: return mv::lanes<4, T, Isa>(count, R, K, !sized, a, x, y, d);
                case 5: return mv::lanes<5, T, Isa>(count, R, K, !sized, a, x, y, d);
                case 6: return mv::lanes<6, T, Isa>(count, R, K, !sized, a, x, y, d);
                default: return mv::lanes<0, T, Isa>(count, R, K, !sized, a, x, y, d);
                }
            }
        }
        if constexpr (A::desc == Desc::P) {
            gather(count, !rules.tableSizes, a, x, y, d);
        } else {
            if (!allPacked(a, x, y, d)) {
                gather(count, !rules.stridedSizes, a, x, y, d);
                return;
            }
            const bool fromZero = !rules.packedSizes;
            switch (square) {
            case 3: return fixed<3>(count, fromZero, a, x, y, d);
            case 4: return fixed<4>(count, fromZero, a, x, y, d);
            case 5: return fixed<5>(count, fromZero, a, x, y, d);
            case 6: return fixed<6>(count, fromZero, a, x, y, d);
            default: break;
            }
            if constexpr (std::is_same<T, float>::value && !A::array && !A::trans && kNoAddend<Y>) {
                if (rules.laneDot) return mv::laneDotAll(count, R, K, a, x, y, d);
            }
            mv::elements<T>(count, R, K, false, a, x, y, d);
        }
    }
};

}  // namespace kel::products
