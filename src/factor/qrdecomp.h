// QRDecomp: Householder reduction of a height x width matrix (height >=
// width) to upper triangular R.
//
// The source is copied into dst and the reduction works there.  Step k
// (k < s, s = width-1 for a square matrix, else width) builds the reflector
// v = (1, a[k+1][k] / b, ..., a[h-1][k] / b), b = a[k][k] + sign * |column|,
// in the scratch, reflects columns k to width-1 with tau = -2 / (v . v), and
// stores v's tail below the diagonal of column k; v[k] = 1 and tau are not
// stored (the solve computes tau again from the tail).  A column whose
// squared norm is below the tolerance is refused with kelStsDivideByZero,
// leaving the copy with the reflections before it done.  A square matrix's
// last column is never tested.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/view.h"

namespace kel::factor {

// Smallest squared column norm a reflection accepts, by element type: a
// value strictly below it is refused (a NaN never is).
template <class T>
inline constexpr double kQrTolerance = std::is_same_v<T, float> ? 0x1p-23 : 0x1p-52;

// Number of reflections of a height x width matrix.
inline int32_t qrReflections(int32_t w, int32_t h) { return w == h ? w - 1 : w; }

// The square root of a squared norm: in double, rounded to the element type.
template <class T>
inline T qrRoot(T n2)
{
    return static_cast<T>(std::sqrt(static_cast<double>(n2)));
}

// Reduces one matrix: src copied to a, then reflected in place; v is
// `h` elements of scratch, at any byte address.
template <class T, class S, class A>
inline KelStatus qrFactor(int32_t w, int32_t h, const S& src, const A& a, T* v)
{
    for (int32_t i = 0; i < h; ++i)
        for (int32_t c = 0; c < w; ++c) a.put(i, c, src.get(i, c));
    const int32_t s = qrReflections(w, h);
    for (int32_t k = 0; k < s; ++k) {
        T n2 = T(0);
        for (int32_t i = k; i < h; ++i) {
            const T x = a.get(i, k);
            n2 = n2 + x * x;
        }
        if (kQrTolerance<T> > std::fabs(static_cast<double>(n2))) return kelStsDivideByZero;
        const T akk = a.get(k, k);
        T n = qrRoot(n2);
        if (!(akk > T(0))) n = -n;
        const T r = T(1) / (n + akk);
        store<T>(v + k, T(1));
        T q = T(1);
        for (int32_t i = k + 1; i < h; ++i) {
            const T vi = a.get(i, k) * r;
            store<T>(v + i, vi);
            q = q + vi * vi;
        }
        const T tau = T(-2) / q;
        for (int32_t c = k; c < w; ++c) {
            T t = a.get(k, c);
            for (int32_t i = k + 1; i < h; ++i) t = t + a.get(i, c) * load<T>(v + i);
            t = t * tau;
            for (int32_t i = k; i < h; ++i) a.put(i, c, a.get(i, c) + load<T>(v + i) * t);
        }
        for (int32_t i = k + 1; i < h; ++i) a.put(i, k, load<T>(v + i));
    }
    return kelStsNoErr;
}

// The serial kernel of every member: objects in order, stopping at the
// first one that is refused.
struct QrDecompKernel {
    int32_t w, h;

    template <Path W, class S, class D>
    KelStatus objects(int32_t count, const S& src, const D& dst, void* scratch) const
    {
        using T = typename D::Elem;
        const Walk<W, S> ss(src);
        const Walk<W, D> ds(dst);
        for (int32_t k = 0; k < count; ++k)
            if (KelStatus st = qrFactor<T>(w, h, ss[k], ds[k], static_cast<T*>(scratch))) return st;
        return kelStsNoErr;
    }

    template <class S, class B, class D>
    KelStatus operator()(int32_t count, void* scratch, const S& src, const B&, const D& dst) const
    {
        if constexpr (S::desc == Desc::P) return objects<Path::Table>(count, src, dst, scratch);
        else if (pathOf(src, dst) == Path::Rows) return objects<Path::Rows>(count, src, dst, scratch);
        else return objects<Path::Strided>(count, src, dst, scratch);
    }
};

// Front end: source, the caller's scratch, result.
template <class S, class T, class D>
KelStatus qrDecomp(const Traits& tr, const Sizes& s, S src, Plain<T> buf, D dst)
{
    src.setStoredWidth(s.W);
    dst.setStoredWidth(s.W);
    DriverInfo info;
    info.scratchBytes = static_cast<std::size_t>(s.H) * sizeof(T);
    info.callerScratch = buf.ptr;
    info.reportsStatus = true;
    return kel::run(
        tr, s, [&] { return s.W > s.H; }, info, QrDecompKernel{s.W, s.H}, src, buf, dst);
}

}  // namespace kel::factor
