// Mul of two matrices: dst(r, c) = sum over k = 0..K-1 of A(r, k) * B(k, c),
// A and B being src1 and src2 as stored (m) or read transposed (t), each a
// single matrix or an array of them, in every description.
//
// Every element is one sum in the element type, strictly in ascending k,
// each multiply and add rounded on its own.  A sum either begins with its
// first product (square sizes 3 to 6 in the kernels that have them, see
// mulmm_classes.h) or from +0.0 (everything else); this is the only thing in
// which the kernels' results differ, and it shows only in the sign of a zero
// sum.  So any loop shape may compute any element, as long as each lane of
// a vector carries exactly one element's sequence of operations:
//   fixed   square sizes 3..6 (whichever start the member's class gives):
//           dst row r = A(r, 0) * B row 0 + A(r, 1) * B row 1 + ..., rows of
//           B in vector registers, each element of A spread over a pack; a
//           single operand is loaded once for the whole array.  Arrays of
//           dense objects (rows back to back) get row distances known at
//           compile time, and dense 3 x 3 floats one after the other times
//           one matrix go four objects at a time, one dst element per lane.
//   rows    any size with contiguous rows of B and dst: the same along
//           runs of up to one pack of columns
//   any     everything else: one element at a time
//   planes  objects side by side (every array operand in interleaved S or
//           P over planes, sizes up to 8): a pack of objects at a time, one
//           object per lane, each lane's sum as the path that the call's
//           layout would otherwise take forms it
// Transposition is never materialised in memory.  In-place use is not
// supported: dst must not overlap a source.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/simd.h"
#include "frame/view.h"
#include "products/mulmm_classes.h"

namespace kel::mulmm {

// R x C result, inner length K; n is the common size when all four stored
// dimensions equal one of 3..6, else 0.
struct Dims {
    int32_t R, C, K;
    int n;
};

// The objects of an operand: packed calls (every Stride2 the element size)
// read whole stored rows, others go by strides, P by tables.  RowBytes:
// Stride1 known to the kernel (dense objects), 0 if not.
template <bool Packed, class V, int RowBytes = 0>
using Walk = kel::Walk<Packed ? Path::Rows : Path::Strided, V, RowBytes>;

using simd::spread;
using simd::Sse;
template <class T>
using Pack = simd::Pack<Sse, T>;
template <class T, int N>
using Row = simd::Row<Sse, T, N>;

// Rows of 3 floats in a dense object (Stride1 of 3 elements): the 16 bytes
// from the start of row 0 or 1 all belong to the object, so those rows are
// read with one load, and written with one store whose fourth lane lands on
// the first element of the next row, which is written after it.
template <int N, class T, bool Dense>
constexpr bool kWindowRows = Dense && N == 3 && std::is_same<T, float>::value;

// Logical row k of one object as a vector row; gathered when its elements
// are not adjacent.
template <int N, bool Dense = false, class C>
inline Row<typename C::Elem, N> loadRow(const C& c, int k)
{
    using T = typename C::Elem;
    if constexpr (C::kRows) {
        if constexpr (kWindowRows<N, T, Dense>) {
            if (k < N - 1) {
                Row<T, N> r;
                r.p[0] = Pack<T>::load(c.row(k));
                return r;
            }
        }
        return Row<T, N>::load(c.row(k));
    } else {
        T tmp[N];
        for (int i = 0; i < N; ++i) tmp[i] = c.get(k, i);
        return Row<T, N>::load(tmp);
    }
}
template <int N, bool Dense = false, class C>
inline void storeRow(const C& c, int r, const Row<typename C::Elem, N>& x)
{
    using T = typename C::Elem;
    if constexpr (C::kRows) {
        if constexpr (kWindowRows<N, T, Dense>) {
            if (r < N - 1) {
                x.p[0].store(c.row(r));
                return;
            }
        }
        x.store(c.row(r));
    } else {
        T tmp[N];
        x.store(tmp);
        for (int i = 0; i < N; ++i) c.put(r, i, tmp[i]);
    }
}

// Row r of one object of A, each element spread over a pack.  Rows of
// floats that lie in contiguous memory are read by packs and spread by
// shuffles (a dense 3 x 3 object reads row 2 from the window that ends
// with it); doubles, and rows that do not lie together, are read element
// by element (a double is spread by the load itself).
template <int N, bool Dense, class C>
inline void spreadRow(const C& c, int r, Pack<typename C::Elem> (&out)[N])
{
    using T = typename C::Elem;
    if constexpr (std::is_same<T, float>::value && C::kRows && (N != 3 || Dense)) {
        const float* p = c.row(r);
        if constexpr (N == 3) {
            if (r < 2) {
                const Pack<float> v = Pack<float>::load(p);
                out[0] = spread<0>(v), out[1] = spread<1>(v), out[2] = spread<2>(v);
            } else {
                const Pack<float> v = Pack<float>::load(p - 1);
                out[0] = spread<1>(v), out[1] = spread<2>(v), out[2] = spread<3>(v);
            }
        } else {
            const Pack<float> v = Pack<float>::load(p);
            out[0] = spread<0>(v), out[1] = spread<1>(v), out[2] = spread<2>(v), out[3] = spread<3>(v);
            if constexpr (N == 5) out[4] = Pack<T>::splat(load<T>(p + 4));
            if constexpr (N == 6) {
                const Pack<float> w{_mm_castsi128_ps(simd::load64(p + 4))};
                out[4] = spread<0>(w), out[5] = spread<1>(w);
            }
        }
    } else if constexpr (C::kRows) {
        const T* p = c.row(r);
        for (int k = 0; k < N; ++k) out[k] = Pack<T>::splat(load<T>(p + k));
    } else {
        for (int k = 0; k < N; ++k) out[k] = Pack<T>::splat(c.get(r, k));
    }
}

// Square size N, straight-line.  FromZero: each sum begins from +0.0
// (p0 + 0.0 is 0.0 + p0: the addition of a non-NaN is commutative).
// Dense: every array operand has a Stride1 of N elements (and the call is
// packed): rows follow each other at distances known here.
template <int N, bool Packed, bool Dense, bool FromZero, class A, class B, class D>
void straightLine(int32_t count, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    using P = Pack<T>;
    using R = Row<T, N>;
    constexpr int rowBytes = Dense ? N * int(sizeof(T)) : 0;
    const Walk<Packed, A, A::array ? rowBytes : 0> wa(a);
    const Walk<Packed, B, B::array ? rowBytes : 0> wb(b);
    const Walk<Packed, D, rowBytes> wd(d);
    R heldB[B::array ? 1 : N];
    P heldA[A::array ? 1 : N * N];
    if constexpr (!B::array)
        for (int k = 0; k < N; ++k) heldB[k] = loadRow<N>(wb.first(), k);
    if constexpr (!A::array)
        for (int r = 0; r < N; ++r)
            for (int k = 0; k < N; ++k) heldA[r * N + k] = P::splat(wa.first().get(r, k));
    const R zero = R::splat(T(0));
    for (int32_t n = 0; n < count; ++n) {
        const auto ca = wa[n];
        const auto cd = wd[n];
        R rowsB[B::array ? N : 1];
        if constexpr (B::array) {
            const auto cb = wb[n];
            for (int k = 0; k < N; ++k) rowsB[k] = loadRow<N, Dense>(cb, k);
        }
        const R* bk = B::array ? rowsB : heldB;
        for (int r = 0; r < N; ++r) {
            P rowA[A::array ? N : 1];
            if constexpr (A::array) spreadRow<N, Dense>(ca, r, rowA);
            const P* ak = A::array ? rowA : heldA + r * N;
            R acc = ak[0] * bk[0];
            if constexpr (FromZero) acc = acc + zero;
            for (int k = 1; k < N; ++k) acc = acc + ak[k] * bk[k];
            storeRow<N, Dense>(cd, r, acc);
        }
    }
}

template <int N, bool Packed, bool Dense = false, class A, class B, class D>
void fixedSize(int32_t count, bool fromZero, const A& a, const B& b, const D& d)
{
    if (fromZero) straightLine<N, Packed, Dense, true>(count, a, b, d);
    else straightLine<N, Packed, Dense, false>(count, a, b, d);
}

// 3 x 3 floats, an array of dense objects packed one after the other (36
// bytes apart) times one matrix: four objects are 36 floats, nine packs.
// Each lane of output pack j is one dst element f = 4j + l of the four
// objects, (object, row, column) = (f / 9, f / 3 % 3, f % 3); for every k
// its lane takes A(row, k) from a 16-byte window of the four src1 objects
// and B(k, column) from a pack made once before the loop.  So every lane
// is used and every lane performs its element's sequence of operations.
struct Flat3 {
    // First src1 element of pack j's window for step k (relative to the four
    // objects) and the lanes picked from it.
    static constexpr int window(int j, int k) { return 3 * (4 * j / 3) + k; }
    static constexpr int pick(int j)
    {
        int imm = 0;
        for (int l = 0; l < 4; ++l) imm |= (3 * ((4 * j + l) / 3) - 3 * (4 * j / 3)) << (2 * l);
        return imm;
    }
};

template <int J, int K>
inline Pack<float> flatA(const float* a)
{
    const __m128i w = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a + Flat3::window(J, K)));
    return {_mm_castsi128_ps(_mm_shuffle_epi32(w, Flat3::pick(J)))};
}
template <bool FromZero, int J>
inline void flatPack(const float* a, float* d, const Pack<float> (&y)[3][3])
{
    Pack<float> acc = flatA<J, 0>(a) * y[J % 3][0];
    if constexpr (FromZero) acc = acc + Pack<float>::splat(0.0f);
    acc = acc + flatA<J, 1>(a) * y[J % 3][1];
    acc = acc + flatA<J, 2>(a) * y[J % 3][2];
    acc.store(d + 4 * J);
}
template <bool FromZero, int... J>
inline void flatBlock(const float* a, float* d, const Pack<float> (&y)[3][3], std::integer_sequence<int, J...>)
{
    (flatPack<FromZero, J>(a, d, y), ...);
}

template <bool FromZero, class A, class B, class D>
void flat3(int32_t blocks, const A& a, const B& b, const D& d)
{
    const auto cb = Walk<true, B>(b).first();
    Pack<float> y[3][3];  // [j % 3][k]: lane l holds B(k, (4j + l) % 3)
    for (int jm = 0; jm < 3; ++jm)
        for (int k = 0; k < 3; ++k) {
            float t[4];
            for (int l = 0; l < 4; ++l) t[l] = cb.get(k, (4 * jm + l) % 3);
            y[jm][k] = Pack<float>::load(t);
        }
    const float* pa = a.base;
    float* pd = d.base;
    for (int32_t q = 0; q < blocks; ++q, pa += 36, pd += 36)
        flatBlock<FromZero>(pa, pd, y, std::make_integer_sequence<int, 9>{});
}

// Any size; every sum begins from +0.0.
template <bool Packed, class A, class B, class D>
void anySize(int32_t count, const Dims& dm, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    using P = Pack<T>;
    constexpr int L = simd::kLanes<T>;
    const Walk<Packed, A> wa(a);
    const Walk<Packed, B> wb(b);
    const Walk<Packed, D> wd(d);
    for (int32_t n = 0; n < count; ++n) {
        const auto ca = wa[n];
        const auto cb = wb[n];
        const auto cd = wd[n];
        if constexpr (decltype(cb)::kRows && decltype(cd)::kRows) {
            for (int32_t r = 0; r < dm.R; ++r) {
                T* out = cd.row(r);
                for (int32_t c = 0; c < dm.C; c += L) {
                    const int w = dm.C - c < L ? static_cast<int>(dm.C - c) : L;
                    P acc = P::splat(T(0));
                    for (int32_t k = 0; k < dm.K; ++k) {
                        const T* in = cb.row(k) + c;
                        acc = acc + P::splat(ca.get(r, k)) * (w == L ? P::load(in) : P::loadPart(in, w));
                    }
                    if (w == L) acc.store(out + c);
                    else acc.storePart(out + c, w);
                }
            }
        } else {
            for (int32_t r = 0; r < dm.R; ++r)
                for (int32_t c = 0; c < dm.C; ++c) {
                    T s = T(0);
                    for (int32_t k = 0; k < dm.K; ++k) s = s + ca.get(r, k) * cb.get(k, c);
                    cd.put(r, c, s);
                }
        }
    }
}

// Stride1 of n elements: the rows of one object follow each other.
template <class V>
bool dense(const V& v, int n)
{
    if constexpr (V::desc == Desc::P) return false;
    else return v.s1 == n * kElem<typename V::Elem>;
}

// Objects side by side (interleaved S, P over planes): each dst element of
// a pack of objects at once, one object per lane, by the sum the kernels
// above give it (ascending k, from the first product or from +0.0).  N:
// the square size, or 0 for sizes known only here.
template <int N, class A, class B, class D>
void planes(int32_t count, const Dims& dm, bool fromZero, const A& a, const B& b, const D& d)
{
    using T = typename D::Elem;
    using P = Pack<T>;
    const int32_t R = N ? N : dm.R, C = N ? N : dm.C, K = N ? N : dm.K;
    const LaneOperand<Sse, A> la(a, R, K);
    const LaneOperand<Sse, B> lb(b, K, C);
    const LaneOperand<Sse, D> ld(d, R, C);
    // Two rows of a at a time, read before any of their results is stored:
    // each element of b is loaded once for both.
    forLanes<T>(count, [&](int32_t n, int k) {
        for (int32_t r = 0; r < R; r += 2) {
            const bool two = r + 1 < R;
            P x[2][kLaneMaxSide];
            for (int32_t q = 0; q < K; ++q) {
                x[0][q] = la.load(r, q, n, k);
                x[1][q] = two ? la.load(r + 1, q, n, k) : x[0][q];  // a last row alone: its twin unused
            }
            for (int32_t c = 0; c < C; ++c) {
                const P b0 = lb.load(0, c, n, k);
                P acc0 = x[0][0] * b0, acc1 = x[1][0] * b0;
                if (fromZero) acc0 = acc0 + P::splat(T(0)), acc1 = acc1 + P::splat(T(0));
                for (int32_t q = 1; q < K; ++q) {
                    const P bq = lb.load(q, c, n, k);
                    acc0 = acc0 + x[0][q] * bq;
                    acc1 = acc1 + x[1][q] * bq;
                }
                ld.store(r, c, n, acc0, k);
                if (two) ld.store(r + 1, c, n, acc1, k);
            }
        }
    });
}

// The serial kernel of every member: picks the path for the whole array.
struct Kernel {
    Dims dm;
    SizeSet packedSizes;  // straight-line sizes when the call is packed
    SizeSet otherSizes;   // when it is strided, or a P call

    template <class A, class B, class D>
    KelStatus operator()(int32_t count, void*, const A& a, const B& b, const D& d) const
    {
        if constexpr (D::array && lanesPossible<A>() && lanesPossible<B>() && lanesPossible<D>()) {
            if (dm.R <= kLaneMaxSide && dm.C <= kLaneMaxSide && dm.K <= kLaneMaxSide && sideBySide(a) &&
                sideBySide(b) && sideBySide(d)) {
                bool packed = false;
                if constexpr (D::desc != Desc::P) packed = allPacked(a, b, d);
                const SizeSet straight = packed ? packedSizes : otherSizes;
                const bool fromZero = dm.n == 0 || !(straight >> dm.n & 1u);
                switch (dm.n) {
                case 3: planes<3>(count, dm, fromZero, a, b, d); break;
                case 4: planes<4>(count, dm, fromZero, a, b, d); break;
                case 5: planes<5>(count, dm, fromZero, a, b, d); break;
                case 6: planes<6>(count, dm, fromZero, a, b, d); break;
                default: planes<0>(count, dm, fromZero, a, b, d); break;
                }
                return kelStsNoErr;
            }
        }
        if constexpr (D::desc == Desc::P) run<false>(count, otherSizes, a, b, d);
        else if (allPacked(a, b, d)) run<true>(count, packedSizes, a, b, d);
        else run<false>(count, otherSizes, a, b, d);
        return kelStsNoErr;
    }

    template <bool Packed, class A, class B, class D>
    void run(int32_t count, SizeSet straight, const A& a, const B& b, const D& d) const
    {
        const bool fromZero = dm.n == 0 || !(straight >> dm.n & 1u);
        switch (dm.n) {
        case 3: square<3, Packed>(count, fromZero, a, b, d); break;
        case 4: square<4, Packed>(count, fromZero, a, b, d); break;
        case 5: square<5, Packed>(count, fromZero, a, b, d); break;
        case 6: square<6, Packed>(count, fromZero, a, b, d); break;
        default: anySize<Packed>(count, dm, a, b, d); break;
        }
    }

    // Square sizes: dense arrays with rows at known distances; arrays of
    // dense 3 x 3 floats one after the other times one matrix, four objects
    // at a time.
    template <int N, bool Packed, class A, class B, class D>
    void square(int32_t count, bool fromZero, const A& a, const B& b, const D& d) const
    {
        if constexpr (Packed) {
            if ((!A::array || dense(a, N)) && (!B::array || dense(b, N)) && dense(d, N)) {
                int32_t done = 0;
                if constexpr (N == 3 && std::is_same<typename D::Elem, float>::value && A::array && !B::array &&
                              A::desc == Desc::S && !A::trans) {
                    if (a.s0 == 36 && d.s0 == 36) {
                        done = count / 4 * 4;
                        if (fromZero) flat3<true>(count / 4, a, b, d);
                        else flat3<false>(count / 4, a, b, d);
                    }
                }
                if (done < count) fixedSize<N, true, true>(count - done, fromZero, a.slice(done), b, d.slice(done));
                return;
            }
        }
        fixedSize<N, Packed>(count, fromZero, a, b, d);
    }
};

// Operand code of a member from its views ("mata").
struct Code {
    char c[5];
};
template <class A, class B>
constexpr Code codeOf()
{
    Code r{};
    int i = 0;
    r.c[i++] = A::trans ? 't' : 'm';
    if (A::array) r.c[i++] = 'a';
    r.c[i++] = B::trans ? 't' : 'm';
    if (B::array) r.c[i++] = 'a';
    return r;
}
template <class A, class B, class T>
constexpr SizeClasses classesOf()
{
    constexpr Code code = codeOf<A, B>();
    return sizeClassesOf(code.c, kElem<T>);
}

// Front end of every member: views in the order src1, src2, dst; sizes
// W1 H1 W2 H2 (and C) of the stored matrices.
template <class A, class B, class D>
KelStatus mul(const Traits& tr, const Sizes& s, A a, B b, D d)
{
    constexpr SizeClasses cls = classesOf<A, B, typename D::Elem>();
    const int32_t R = A::trans ? s.W1 : s.H1;
    const int32_t K = A::trans ? s.H1 : s.W1;
    const int32_t KB = B::trans ? s.W2 : s.H2;
    const int32_t C = B::trans ? s.H2 : s.W2;
    auto mismatch = [&] { return K != KB; };
    // P tables run over the stored matrices, dst's over its C columns.
    a.setStoredWidth(s.W1);
    b.setStoredWidth(s.W2);
    d.setStoredWidth(C);
    const int n = s.W1 == s.H1 && s.W1 == s.W2 && s.W1 == s.H2 && s.W1 >= 3 && s.W1 <= 6 ? s.W1 : 0;
    Kernel kern{Dims{R, C, K, n}, kNone, kNone};
    if constexpr (D::desc == Desc::S) kern.packedSizes = cls.sPacked, kern.otherSizes = cls.sStrided;
    else if constexpr (D::desc == Desc::L) kern.packedSizes = cls.lPacked, kern.otherSizes = cls.lStrided;
    else kern.otherSizes = cls.p;
    return kel::run(tr, s, mismatch, DriverInfo{}, kern, a, b, d);
}

}  // namespace kel::mulmm
