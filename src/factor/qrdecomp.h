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
// last column is never tested.  Objects side by side (interleaved S, P over
// planes) are reduced a pack of objects at a time, one per lane.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/pairs.h"
#include "frame/view.h"

namespace kel::factor {

// Smallest squared column norm a reflection accepts, by element type: a
// value strictly below it is refused (a NaN never is).
template <class T>
inline constexpr double kQrTolerance = std::is_same_v<T, float> ? 0x1p-23 : 0x1p-52;

// Whether a column's squared norm is refused.
template <class T>
inline bool qrRefuses(T n2)
{
    return kQrTolerance<T> > std::fabs(static_cast<double>(n2));
}

// Number of reflections of a height x width matrix.
inline int32_t qrReflections(int32_t w, int32_t h) { return w == h ? w - 1 : w; }

// The shapes with straight-line kernels: square matrices of order 3 to 6
// and tall ones of up to 6 rows.  f(Wc, Hc) with the width and height as
// compile-time constants; false for any other shape.
template <class F>
inline bool withFixedShape(int32_t w, int32_t h, F&& f)
{
    auto call = [&](auto wc, auto hc) { return f(wc, hc), true; };
    using std::integral_constant;
    switch (h * 16 + w) {
    case 0x33: return call(integral_constant<int, 3>{}, integral_constant<int, 3>{});
    case 0x44: return call(integral_constant<int, 4>{}, integral_constant<int, 4>{});
    case 0x55: return call(integral_constant<int, 5>{}, integral_constant<int, 5>{});
    case 0x66: return call(integral_constant<int, 6>{}, integral_constant<int, 6>{});
    case 0x43: return call(integral_constant<int, 3>{}, integral_constant<int, 4>{});
    case 0x53: return call(integral_constant<int, 3>{}, integral_constant<int, 5>{});
    case 0x54: return call(integral_constant<int, 4>{}, integral_constant<int, 5>{});
    case 0x63: return call(integral_constant<int, 3>{}, integral_constant<int, 6>{});
    case 0x64: return call(integral_constant<int, 4>{}, integral_constant<int, 6>{});
    case 0x65: return call(integral_constant<int, 5>{}, integral_constant<int, 6>{});
    default: return false;
    }
}

// The square root of a squared norm: in double, rounded to the element type.
template <class T>
inline T qrRoot(T n2)
{
    return static_cast<T>(std::sqrt(static_cast<double>(n2)));
}

// The same for a pack of objects, one per lane (see qrReduce).
template <class T>
inline simd::Lanes<T> qrRoot(simd::Lanes<T> n2)
{
    return simd::sqrt(n2.p);   // as rounding the double root: sqrt is correctly rounded in both
}

// n with the sign that makes n + akk grow: negated unless akk > 0.
template <class T>
inline T qrSigned(T akk, T n)
{
    return akk > T(0) ? n : -n;
}
template <class T>
inline simd::Lanes<T> qrSigned(simd::Lanes<T> akk, simd::Lanes<T> n)
{
    return select(greater(akk, simd::Lanes<T>(T(0))), n, -n);
}

// Reduces one matrix, or a pack of matrices with V = Lanes<T>: src copied
// to a, then reflected in place, the reflector in v (get(i), put(i, x)).
// refuses(n2) tells whether a column's squared norm is refused; then the
// reduction stops there and returns false.
template <class T, class V, class S, class A, class Vec, class Refuses>
inline bool qrReduce(int32_t w, int32_t h, const S& src, A&& a, Vec&& v, Refuses refuses)
{
    for (int32_t i = 0; i < h; ++i)
        for (int32_t c = 0; c < w; ++c) a.put(i, c, src.get(i, c));
    const V zero(T(0)), one(T(1));
    const int32_t s = qrReflections(w, h);
    for (int32_t k = 0; k < s; ++k) {
        V n2 = zero;
        for (int32_t i = k; i < h; ++i) {
            const V x = a.get(i, k);
            n2 = n2 + x * x;
        }
        if (refuses(n2)) return false;
        const V akk = a.get(k, k);
        const V n = qrSigned(akk, qrRoot(n2));
        const V r = one / (n + akk);
        v.put(k, one);
        V q = one;
        for (int32_t i = k + 1; i < h; ++i) {
            const V vi = a.get(i, k) * r;
            v.put(i, vi);
            q = q + vi * vi;
        }
        const V tau = V(T(-2)) / q;
        for (int32_t c = k; c < w; ++c) {
            V t = a.get(k, c);
            for (int32_t i = k + 1; i < h; ++i) t = t + a.get(i, c) * v.get(i);
            t = t * tau;
            for (int32_t i = k; i < h; ++i) a.put(i, c, a.get(i, c) + v.get(i) * t);
        }
        for (int32_t i = k + 1; i < h; ++i) a.put(i, k, v.get(i));
    }
    return true;
}

// Reduces one matrix: src copied to a, then reflected in place; v is
// `h` elements of scratch, at any byte address.
template <class T, class S, class A>
inline KelStatus qrFactor(int32_t w, int32_t h, const S& src, const A& a, T* v)
{
    struct {
        T* p;
        T get(int32_t i) const { return load<T>(p + i); }
        void put(int32_t i, T x) const { store<T>(p + i, x); }
    } scratch{v};
    return qrReduce<T, T>(w, h, src, a, scratch, qrRefuses<T>) ? kelStsNoErr : kelStsDivideByZero;
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

    // A pack's matrix and reflector, in locals.
    template <class L>
    struct PackWork {
        struct {
            L m[kLaneMaxSide][kLaneMaxSide];
            L get(int32_t i, int32_t c) const { return m[i][c]; }
            void put(int32_t i, int32_t c, L x) { m[i][c] = x; }
        } a;
        struct {
            L x[kLaneMaxSide];
            L get(int32_t i) const { return x[i]; }
            void put(int32_t i, L y) { x[i] = y; }
        } v;

        // Reduces the pack read through src (get(i, c)); false if one of
        // its first k objects is refused.
        template <class S>
        bool reduce(int32_t w, int32_t h, const S& src, int k)
        {
            using T = typename L::Elem;
            auto refuses = [&](L n2) {
                for (int l = 0; l < k; ++l)
                    if (qrRefuses(n2.lane(l))) return true;
                return false;
            };
            return qrReduce<T, L>(w, h, src, a, v, refuses);
        }
        // The scratch as the pack's last object (lane k-1) leaves it.
        void leaveScratch(int32_t w, int32_t h, typename L::Elem* buf, int k) const
        {
            if (qrReflections(w, h) > 0)
                for (int32_t i = 0; i < h; ++i) store(buf + i, v.x[i].lane(k - 1));
        }
    };

    // Objects side by side, or packed objects of an S array: a pack of
    // objects at a time, one per lane, in locals; nothing is stored before
    // the whole pack is reduced.  A pack with a refused object goes again
    // object by object from its first object, and so does the rest of the
    // array, so that what is written and where the call stops are those of
    // that path.  The scratch is left as the last object of the pack leaves
    // it.
    template <Path W, class S, class D>
    KelStatus lanes(int32_t count, const S& src, const D& dst, void* scratch) const
    {
        using T = typename D::Elem;
        using L = simd::Lanes<T>;
        const LaneOperand<simd::Sse, S> in(src, h, w);
        const LaneOperand<simd::Sse, D> out(dst, h, w);
        for (int32_t first = 0; first < count; first += simd::kLanes<T>) {
            const int k = count - first < simd::kLanes<T> ? static_cast<int>(count - first) : simd::kLanes<T>;
            PackWork<L> work;
            if (!work.reduce(w, h, packOf(in, first, k), k))
                return objects<W>(count - first, src.slice(first), dst.slice(first), scratch);
            for (int32_t i = 0; i < h; ++i)
                for (int32_t c = 0; c < w; ++c) out.store(i, c, first, work.a.m[i][c].p, k);
            work.leaveScratch(w, h, static_cast<T*>(scratch), k);
        }
        return kelStsNoErr;
    }
    // Packed objects: their rows turned into lanes and back; the objects
    // short of a pack go alone.
    template <int Wc, int Hc, class S, class D>
    KelStatus packs(int32_t count, const S& src, const D& dst, void* scratch) const
    {
        const int32_t w = Wc, h = Hc;  // the shape, as constants
        using T = typename D::Elem;
        using L = simd::Lanes<T>;
        constexpr int kL = simd::kLanes<T>;
        const Walk<Path::Rows, S> in(src);
        const Walk<Path::Rows, D> out(dst);
        int32_t first = 0;
        for (; first + kL <= count; first += kL) {
            struct {
                L m[Hc][Wc];
                L get(int32_t i, int32_t c) const { return m[i][c]; }
            } rows;
            lanesOfRows(in, first, rows.m);
            PackWork<L> work;
            if (!work.reduce(w, h, rows, kL)) break;
            for (int32_t i = 0; i < h; ++i)
                rowOfLanes(work.a.m[i], w, [&](int l) { return out[first + l].at(i, 0); });
            work.leaveScratch(w, h, static_cast<T*>(scratch), kL);
        }
        return first < count ? objects<Path::Rows>(count - first, src.slice(first), dst.slice(first), scratch)
                             : kelStsNoErr;
    }

    template <class S, class B, class D>
    KelStatus operator()(int32_t count, void* scratch, const S& src, const B&, const D& dst) const
    {
        if constexpr (S::array && lanesPossible<S>() && lanesPossible<D>()) {
            if (w <= kLaneMaxSide && h <= kLaneMaxSide && sideBySide(src) && sideBySide(dst) &&
                pathOf(src, dst) != Path::Rows && !overlapsSources(dst, count, w, h, src)) {
                if constexpr (S::desc == Desc::P) return lanes<Path::Table>(count, src, dst, scratch);
                else return lanes<Path::Strided>(count, src, dst, scratch);
            }
        }
        if constexpr (S::desc == Desc::P) return objects<Path::Table>(count, src, dst, scratch);
        else if (pathOf(src, dst) == Path::Rows) {
            KelStatus st = kelStsNoErr;
            if constexpr (S::array && S::desc == Desc::S)
                if (packsPossible(dst, count, w, h, src) &&
                    withFixedShape(w, h, [&](auto wc, auto hc) { st = packs<wc, hc>(count, src, dst, scratch); }))
                    return st;
            return objects<Path::Rows>(count, src, dst, scratch);
        } else {
            return objects<Path::Strided>(count, src, dst, scratch);
        }
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
