// The general eigenproblem: EigenValues, EigenValuesVectorsRight,
// EigenValuesVectorsLeft, EigenValuesVectors and the two scratch size
// queries.
//
// Every member runs one kernel, whatever its strides, on each object in
// turn: the source copied row by row into the work area (so the working
// matrix is its transpose), the real Schur form (generalschur.h), and for
// the vector families the substitution of one procedure or both
// (generalvectors.h).  Eigenvalues are stored as they split off, so a matrix
// that fails to converge leaves the ones found so far; vector destinations
// are written only when the whole object succeeded.
//
// Work area of one object, in elements of T: the matrix H (n*n), the Schur
// vectors of each procedure (n*n each), then the reflector scalars and the
// work vectors (5*n).  Orders up to 32 keep it on the stack, orders 2 to 6
// with their size known when compiling; larger ones use the scratch the
// call was given.  A team sizes each thread's scratch by
// kelmEigenValuesVectorsGetBufSize, the larger of the two queries.
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "eigen/generallanes.h"
#include "eigen/generalschur.h"
#include "eigen/generalvectors.h"
#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/view.h"

namespace kel::eigen {

// Scratch bytes of one object, in the 32-bit arithmetic of the size queries.
template <class T, int Areas>
inline int32_t scratchBytes(int32_t n)
{
    return mul32(mul32(n, add32(mul32(Areas, n), 5)), kElem<T>);
}

// One object: the source cursor `a`, the values of the object, its work
// area; `store(v, which)` copies a vector area to destination `which` (0
// right, 1 left) on success.
template <class M, Side Sd, bool Values, class D, class A, class Store>
inline KelStatus object(const D& d, const A& a, typename M::Elem* re, typename M::Elem* im, typename M::Elem* work,
                        const Store& store)
{
    using T = typename M::Elem;
    const int n = d.n;
    if (n == 1) {
        re[0] = a.get(0, 0);
        im[0] = T(0);
        if constexpr (!Values) {
            T one = T(1);
            if constexpr (Sd != Side::Left) store(&one, 0);
            if constexpr (Sd != Side::Right) store(&one, 1);
        }
        return kelStsNoErr;
    }
    T* h = work;
    T* z = h + n * n;
    T* z2 = z + n * n;
    T* tau = Values ? z : z2 + n * n;  // EigenValues has no vector areas
    T* w = tau + n;
    T* xr = w + n;
    T* xi = xr + n;
    for (int r = 0; r < n; ++r)
        for (int c = 0; c < n; ++c) h[r * n + c] = a.get(r, c);
    hessenberg(d, h, tau, w);
    if constexpr (M::vectors) formQ(d, h, tau, z, w);
    clearBelow(d, h);
    if (KelStatus st = schur<M>(d, h, z, re, im)) return st;
    if constexpr (!Values) {
        if constexpr (Sd == Side::Both) std::memcpy(z2, z, sizeof(T) * n * n);
        if constexpr (Sd != Side::Left) {
            rightVectors(d, h, z, xr, xi);
            normalise(d, z, im);
            store(z, 0);
        }
        if constexpr (Sd != Side::Right) {
            T* v = Sd == Side::Both ? z2 : z;
            leftVectors(d, h, v, xr, xi);
            normalise(d, v, im);
            store(v, 1);
        }
    }
    return kelStsNoErr;
}

// Can this kernel take groups of objects (generallanes.h)?  EigenValues in
// double precision, orders 3 to 6 known when compiling, S arrays.
template <class M, class D, class Src>
constexpr bool groupsPossible()
{
    if constexpr (std::is_same<D, DynDim>::value) return false;
    else
        return std::is_same<typename M::Elem, double>::value && !M::vectors && !M::guarded && D::n >= 3 &&
               Src::array && Src::desc == Desc::S;
}

// Do the values share no byte with the sources or with each other?  Then
// reading a group of objects before storing any values, and storing them in
// another order, cannot change a result.
template <class D, class Src, class T>
bool valuesApart(const D& d, int32_t count, const Src& src, const Dense<T>& re, const Dense<T>& im)
{
    const Span matrices = spanOf(src, count, d.n, d.n);
    auto run = [&](const Dense<T>& v) {
        return Span{reinterpret_cast<const char*>(v.at(0)), reinterpret_cast<const char*>(v.at(count))};
    };
    return !matrices.meets(run(re)) && !matrices.meets(run(im)) && !run(re).meets(run(im));
}

// The serial kernel of every member: objects in order, stopping at the
// first that fails.  Dst... are the vector destinations (none, one, or
// right and left).
// Orders up to this keep their work area on the stack (about 25 KiB in
// double precision); larger ones work in the scratch the call was given.
constexpr int kLocalMax = 32;

template <class M, Side Sd, bool Values>
struct GeneralKernel {
    int32_t n;

    template <class D, class Src, class... Dst>
    KelStatus objects(const D& d, int32_t count, typename M::Elem* work, const Src& src, const Dense<typename M::Elem>& re,
                      const Dense<typename M::Elem>& im, const Dst&... dst) const
    {
        using T = typename M::Elem;
        auto one = [&](int32_t k) {
            const auto a = cursor<Path::Strided>(src, k);
            auto store = [&](const T* v, int which) {
                int idx = 0;
                (
                    [&](const auto& view) {
                        if (sizeof...(Dst) == 1 || idx == which) {
                            const auto c = cursor<Path::Strided>(view, k);
                            for (int r = 0; r < d.n; ++r)
                                for (int col = 0; col < d.n; ++col) c.put(r, col, v[col * d.n + r]);
                        }
                        ++idx;
                    }(dst),
                    ...);
                (void)v, (void)which, (void)idx;
            };
            return object<M, Sd, Values>(d, a, re.at(k), im.at(k), work, store);
        };
        int32_t k = 0;
        if constexpr (sizeof...(Dst) == 0 && groupsPossible<M, D, Src>()) {
            if (count >= ObjectGroup::kCount && valuesApart(d, count, src, re, im)) {
                constexpr int N = D::n;
                const Walk<Path::Strided, Src> from(src);
                double gre[ObjectGroup::kCount][N], gim[ObjectGroup::kCount][N];
                auto group = [&](int32_t k0) {
                    ObjectGroup h[N][N];
                    unrolled<N>([&](auto i) { unrolled<N>([&](auto j) { h[i][j] = gatherGroup(from, k0, j, i); }); });
                    return generalValuesPack<N>(h, gre, gim);
                };
                auto write = [&](int32_t at, int l) {
                    unrolled<N>([&](auto i) {
                        re.at(at)[i] = gre[l][i];
                        im.at(at)[i] = gim[l][i];
                    });
                };
                if (KelStatus st = inGroups(count, k, group, write, one)) return st;
            }
        }
        for (; k < count; ++k)
            if (KelStatus st = one(k)) return st;
        return kelStsNoErr;
    }

    template <int N, class... V>
    KelStatus fixed(int32_t count, const V&... v) const
    {
        typename M::Elem local[N * (3 * N + 5)];
        return objects(Dim<N>{}, count, local, v...);
    }

    template <class Src, class... Rest>
    KelStatus run(int32_t count, void* scratch, const Src& src, const Rest&... rest) const
    {
        using T = typename M::Elem;
        switch (n) {
        case 2: return fixed<2>(count, src, rest...);
        case 3: return fixed<3>(count, src, rest...);
        case 4: return fixed<4>(count, src, rest...);
        case 5: return fixed<5>(count, src, rest...);
        case 6: return fixed<6>(count, src, rest...);
        default:
            if (n <= kLocalMax) {
                T local[kLocalMax * (3 * kLocalMax + 5)];
                return objects(DynDim{n}, count, local, src, rest...);
            }
            return objects(DynDim{n}, count, static_cast<T*>(scratch), src, rest...);
        }
    }
};

// Kernel entry points in the order of the views: source, vector
// destinations, values, scratch.
template <class M, Side Sd, bool Values>
struct ValuesKernel : GeneralKernel<M, Sd, Values> {
    template <class Src, class T>
    KelStatus operator()(int32_t count, void* scratch, const Src& src, const Dense<T>& re, const Dense<T>& im,
                         const Plain<T>&) const
    {
        return this->run(count, scratch, src, re, im);
    }
};
template <class M, Side Sd>
struct OneSideKernel : GeneralKernel<M, Sd, false> {
    template <class Src, class Dst, class T>
    KelStatus operator()(int32_t count, void* scratch, const Src& src, const Dst& dst, const Dense<T>& re,
                         const Dense<T>& im, const Plain<T>&) const
    {
        return this->run(count, scratch, src, re, im, dst);
    }
};
template <class M>
struct BothKernel : GeneralKernel<M, Side::Both, false> {
    template <class Src, class Dst, class T>
    KelStatus operator()(int32_t count, void* scratch, const Src& src, const Dst& right, const Dst& left,
                         const Dense<T>& re, const Dense<T>& im, const Plain<T>&) const
    {
        return this->run(count, scratch, src, re, im, right, left);
    }
};

template <class T>
inline DriverInfo driverInfo(const Sizes& s, T* pBuffer)
{
    DriverInfo info;
    info.reportsStatus = true;
    info.callerScratch = pBuffer;
    info.scratchBytes = static_cast<uint32_t>(scratchBytes<T, 3>(s.N));
    return info;
}

// ---- front ends --------------------------------------------------------------

template <class T, int Areas>
inline KelStatus bufSizeOf(const Traits& tr, const Sizes& s, Dense<int> bufSize)
{
    if (KelStatus st = check(tr, s, noMismatch, bufSize)) return st;
    *bufSize.ptr = scratchBytes<T, Areas>(s.N);
    return kelStsNoErr;
}
template <class T>
KelStatus valuesBufSize(const Traits& tr, const Sizes& s, Dense<int> bufSize)
{
    return bufSizeOf<T, 1>(tr, s, bufSize);
}
template <class T>
KelStatus vectorsBufSize(const Traits& tr, const Sizes& s, Dense<int> bufSize)
{
    return bufSizeOf<T, 3>(tr, s, bufSize);
}

template <class S, class T>
KelStatus eigenValues(const Traits& tr, const Sizes& s, S src, Dense<T> re, Dense<T> im, Plain<T> buf)
{
    src.setStoredWidth(s.N);
    re.setPerObject(s.N);
    im.setPerObject(s.N);
    using M = Method<T, false, false>;
    return kel::run(tr, s, noMismatch, driverInfo(s, buf.ptr), ValuesKernel<M, Side::Right, true>{{s.N}}, src, re, im,
                    buf);
}

// Every vector member shifts with guards but the single-object double-precision
// member that computes both kinds of vector.
template <Side Sd, class S, class T>
constexpr bool guardedShifts()
{
    return !(Sd == Side::Both && !S::array && std::is_same<T, double>::value);
}

template <Side Sd, class S, class D, class T>
KelStatus eigenVectors(const Traits& tr, const Sizes& s, S src, D dst, Dense<T> re, Dense<T> im, Plain<T> buf)
{
    src.setStoredWidth(s.N);
    dst.setStoredWidth(s.N);
    re.setPerObject(s.N);
    im.setPerObject(s.N);
    using M = Method<T, true, guardedShifts<Sd, S, T>()>;
    return kel::run(tr, s, noMismatch, driverInfo(s, buf.ptr), OneSideKernel<M, Sd>{{s.N}}, src, dst, re, im, buf);
}

template <Side Sd, class S, class D, class T>
KelStatus eigenVectors(const Traits& tr, const Sizes& s, S src, D right, D left, Dense<T> re, Dense<T> im,
                       Plain<T> buf)
{
    src.setStoredWidth(s.N);
    right.setStoredWidth(s.N);
    left.setStoredWidth(s.N);
    re.setPerObject(s.N);
    im.setPerObject(s.N);
    using M = Method<T, true, guardedShifts<Sd, S, T>()>;
    return kel::run(tr, s, noMismatch, driverInfo(s, buf.ptr), BothKernel<M>{{s.N}}, src, right, left, re, im, buf);
}

}  // namespace kel::eigen
