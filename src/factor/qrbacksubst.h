// QRBackSubst: x minimising |A x - b| from the reflectors and R that
// QRDecomp left in its dst.
//
// Each stored reflector k (tail v below the diagonal, v[k] = 1) is applied
// to z, a copy of b: d = z . v and q = v . v in one pass, then
// z += v * ((-2 / q) * d).  R's triangle is then solved from the last row
// up, dividing by its diagonal.  Rows of z past `width` (the residual) are
// dropped.  A zero on R's diagonal gives infinities or NaN, with no status.
//
// The shapes of withFixedShape (square matrices of order 3 to 6, tall ones
// of up to 6 rows) run straight-line code with z in locals and leave the
// scratch alone; one matrix against many vectors (mva) reads
// the matrix and computes its -2 / q once.  Every other shape keeps z in the
// scratch.  Square objects side by side (interleaved S, P over planes) run
// the straight-line solve a pack of objects at a time, one per lane.
#pragma once

#include <cstdint>

#include "factor/qrdecomp.h"
#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/view.h"

namespace kel::factor {

// R's triangle: x[i] = (z[i] - sum over j > i of a(i, j) x[j]) / a(i, i),
// the sum from j = i+1 up.  z(i) and a(i, j) are accessors; x is a cursor
// (read back for the sums).
template <class T, class Z, class A, class X>
inline void qrTriangle(int32_t w, const Z& z, const A& a, const X& x)
{
    x.put(0, w - 1, z(w - 1) / a(w - 1, w - 1));
    for (int32_t i = w - 2; i >= 0; --i) {
        T u = T(0);
        for (int32_t j = i + 1; j < w; ++j) u = u + a(i, j) * x.get(0, j);
        x.put(0, i, (z(i) - u) / a(i, i));
    }
}

// Any shape: z is `h` elements of scratch, at any byte address.
template <class T, class M, class B, class X>
inline void qrSolveLoop(int32_t w, int32_t h, const M& m, const B& b, const X& x, T* z)
{
    for (int32_t i = 0; i < h; ++i) store<T>(z + i, b.get(0, i));
    const int32_t s = qrReflections(w, h);
    for (int32_t k = 0; k < s; ++k) {
        T d = load<T>(z + k), q = T(1);
        for (int32_t i = k + 1; i < h; ++i) {
            const T v = m.get(i, k);
            d = d + load<T>(z + i) * v;
            q = q + v * v;
        }
        const T t = (T(-2) / q) * d;
        store<T>(z + k, load<T>(z + k) + t);
        for (int32_t i = k + 1; i < h; ++i) store<T>(z + i, load<T>(z + i) + m.get(i, k) * t);
    }
    qrTriangle<T>(
        w, [&](int32_t i) { return load<T>(z + i); }, [&](int32_t i, int32_t j) { return m.get(i, j); }, x);
}

// A matrix of H rows and W columns (W <= H) in locals, with -2 / q of each
// reflector; T is the element type, or Lanes for a pack of objects.
template <int W, int H, class T>
struct QrFixed {
    static constexpr int S = W == H ? W - 1 : W;  // reflections
    T a[H][W];
    T scale[S];

    template <class C>
    explicit QrFixed(const C& c)
    {
#pragma GCC unroll 8
        for (int i = 0; i < H; ++i)
#pragma GCC unroll 8
            for (int j = 0; j < W; ++j) a[i][j] = c.get(i, j);
#pragma GCC unroll 8
        for (int k = 0; k < S; ++k) {
            T q = T(1);
#pragma GCC unroll 8
            for (int i = k + 1; i < H; ++i) q = q + a[i][k] * a[i][k];
            scale[k] = T(-2) / q;
        }
    }

    template <class B, class X>
    void solve(const B& b, const X& x) const
    {
        T z[H];
#pragma GCC unroll 8
        for (int i = 0; i < H; ++i) z[i] = b.get(0, i);
#pragma GCC unroll 8
        for (int k = 0; k < S; ++k) {
            T d = z[k];
#pragma GCC unroll 8
            for (int i = k + 1; i < H; ++i) d = d + z[i] * a[i][k];
            const T t = scale[k] * d;
            z[k] = z[k] + t;
#pragma GCC unroll 8
            for (int i = k + 1; i < H; ++i) z[i] = z[i] + a[i][k] * t;
        }
        T r[W];
        r[W - 1] = z[W - 1] / a[W - 1][W - 1];
#pragma GCC unroll 8
        for (int i = W - 2; i >= 0; --i) {
            T u = T(0);
#pragma GCC unroll 8
            for (int j = i + 1; j < W; ++j) u = u + a[i][j] * r[j];
            r[i] = (z[i] - u) / a[i][i];
        }
#pragma GCC unroll 8
        for (int i = 0; i < W; ++i) x.put(0, i, r[i]);
    }
};

// The serial kernel of every member.  The matrix is an array (mava) or one
// matrix shared by all vectors (mv, mva).
struct QrSolveKernel {
    int32_t w, h;

    template <int Wc, int Hc, Path W, class M, class B, class X>
    static void fixed(int32_t count, const M& src, const B& src2, const X& dst)
    {
        using T = typename X::Elem;
        const Walk<W, M> ms(src);
        const Walk<W, B> bs(src2);
        const Walk<W, X> xs(dst);
        if constexpr (!M::array) {
            const QrFixed<Wc, Hc, T> a(ms.first());
            for (int32_t k = 0; k < count; ++k) a.solve(bs[k], xs[k]);
        } else {
            for (int32_t k = 0; k < count; ++k) QrFixed<Wc, Hc, T>(ms[k]).solve(bs[k], xs[k]);
        }
    }

    // Square objects side by side: fixed() for a pack of objects at once.
    template <int N, class M, class B, class X>
    static void squareLanes(int32_t count, const M& src, const B& src2, const X& dst)
    {
        using T = typename X::Elem;
        using L = simd::Lanes<T>;
        const LaneOperand<simd::Sse, M> m(src, N, N);
        const LaneOperand<simd::Sse, B> b(src2, 1, N);
        const LaneOperand<simd::Sse, X> x(dst, 1, N);
        if constexpr (!M::array) {
            const QrFixed<N, N, L> a(packOf(m, 0, simd::kLanes<T>));
            forLanes<T>(count, [&](int32_t first, int k) { a.solve(packOf(b, first, k), packOf(x, first, k)); });
        } else {
            forLanes<T>(count, [&](int32_t first, int k) {
                QrFixed<N, N, L>(packOf(m, first, k)).solve(packOf(b, first, k), packOf(x, first, k));
            });
        }
    }

    // Whether square objects side by side of a fixed shape take squareLanes.
    template <class M, class B, class X>
    bool lanes(int32_t count, const M& src, const B& src2, const X& dst) const
    {
        return w == h && solveSideBySide(count, w, src, src2, dst) &&
               withFixedShape(w, h, [&](auto n, auto) { squareLanes<n>(count, src, src2, dst); });
    }

    template <Path W, class M, class B, class X>
    void byShape(int32_t count, const M& src, const B& src2, const X& dst, void* scratch) const
    {
        using T = typename X::Elem;
        if (withFixedShape(w, h, [&](auto wc, auto hc) { fixed<wc, hc, W>(count, src, src2, dst); })) return;
        const Walk<W, M> ms(src);
        const Walk<W, B> bs(src2);
        const Walk<W, X> xs(dst);
        for (int32_t k = 0; k < count; ++k)
            qrSolveLoop<T>(w, h, ms[M::array ? k : 0], bs[k], xs[k], static_cast<T*>(scratch));
    }

    template <class M, class B, class P, class X>
    KelStatus operator()(int32_t count, void* scratch, const M& src, const B& src2, const P&, const X& dst) const
    {
        if constexpr (solveLanesPossible<M, B, X>())
            if (lanes(count, src, src2, dst)) return kelStsNoErr;
        if constexpr (M::desc == Desc::P) byShape<Path::Table>(count, src, src2, dst, scratch);
        else if (pathOf(src, src2, dst) == Path::Rows) byShape<Path::Rows>(count, src, src2, dst, scratch);
        else byShape<Path::Strided>(count, src, src2, dst, scratch);
        return kelStsNoErr;
    }
};

// Front end: matrix, right-hand side, the caller's scratch, result.
template <class M, class B, class T, class X>
KelStatus qrBackSubst(const Traits& tr, const Sizes& s, M src, B src2, Plain<T> buf, X dst)
{
    src.setStoredWidth(s.W);
    src2.setStoredWidth(s.H);
    dst.setStoredWidth(s.W);
    DriverInfo info;
    info.scratchBytes = static_cast<std::size_t>(s.H) * sizeof(T);
    info.callerScratch = buf.ptr;
    return kel::run(
        tr, s, [&] { return s.W > s.H; }, info, QrSolveKernel{s.W, s.H}, src, src2, buf, dst);
}

}  // namespace kel::factor
