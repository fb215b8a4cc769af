// The serial kernel of the symmetric eigenproblem's members and what both
// front ends tell the driver.  Objects go one at a time (symtridiag.h), or
// four at a time in two packs of doubles where the arithmetic is 64-bit
// (symlanes.h).
#pragma once

#include <cstdint>
#include <type_traits>

#include "eigen/symlanes.h"
#include "eigen/symtridiag.h"
#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanes.h"
#include "frame/view.h"

namespace kel::eigen {

// The serial kernel of every member: objects in order, stopping at the
// first that fails.  Orders 3 to 6 run with the order known when compiling.
struct SymKernel {
    int32_t n;

    // Can the kernel of these views take groups of objects (symlanes.h)?
    // Where its arithmetic is 64-bit with sums in order, for S arrays.
    template <int N, class R, class S, class V>
    static constexpr bool groupsPossible()
    {
        constexpr bool views = S::array && S::desc == Desc::S;
        if constexpr (std::is_same<V, NoVectors>::value) return views && N >= 3 && R::groups;
        else return views && V::desc == Desc::S && N >= 3 && R::groups;
    }

    // Do the results of different objects share no byte with one another or
    // with a source (the vectors may be the matrices themselves)?  Then
    // reading a group of objects before writing any cannot change a result.
    template <class S, class V, class T>
    bool apart(int32_t count, const S& src, const V* vec, const Dense<T>& vals) const
    {
        const Span values{reinterpret_cast<const char*>(vals.at(0)), reinterpret_cast<const char*>(vals.at(count))};
        if (spanOf(src, count, n, n).meets(values)) return false;
        if constexpr (std::is_same<V, NoVectors>::value) return true;
        else return packsPossible(*vec, count, n, n, src) && !spanOf(*vec, count, n, n).meets(values);
    }

    template <int N, Path W, class S, class V, class T>
    KelStatus objects(int32_t count, void* scratch, const S& src, const V* vec, const Dense<T>& vals) const
    {
        constexpr bool kVec = !std::is_same<V, NoVectors>::value;
        using R = SymRules<T, kVec, S::array, S::desc, W>;
        const Walk<W, S> from(src);
        const auto to = [&] {
            if constexpr (kVec) return Walk<W, V>(*vec);
            else return NoVectors{};
        }();
        const Run<T> a{static_cast<unsigned char*>(scratch)};
        auto single = [&](int32_t k) {
            const Run<T> w{reinterpret_cast<unsigned char*>(vals.at(k))};
            if constexpr (kVec) return symObject<R, N>(n, from[k], a, w, to[k]);
            else return symObject<R, N>(n, from[k], a, w, to);
        };
        int32_t k = 0;
        if constexpr (groupsPossible<N, R, S, V>()) {
            if (count >= ObjectGroup::kCount && apart(count, src, vec, vals)) {
                ObjectGroup v[N][N], w[N];
                auto group = [&](int32_t k0) {
                    ObjectGroup m[N][N];
                    unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { m[j][i] = gatherGroup(from, k0, j, i); }); });
                    return maskBits(symPack<R, N, kVec, T>(m, v, w));
                };
                auto write = [&](int32_t at, int l) {
                    const Run<T> out{reinterpret_cast<unsigned char*>(vals.at(at))};
                    unrolled<N>([&](auto i) { out.set(i, T(w[i].lane(l))); });
                    if constexpr (kVec) {
                        const auto c = to[at];
                        unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { c.put(j, i, T(v[j][i].lane(l))); }); });
                    }
                };
                if (KelStatus st = inGroups(count, k, group, write, single)) return st;
            }
        }
        for (; k < count; ++k)
            if (KelStatus st = single(k)) return st;
        return kelStsNoErr;
    }

    template <Path W, class S, class V, class T>
    KelStatus bySize(int32_t count, void* scratch, const S& src, const V* vec, const Dense<T>& vals) const
    {
        switch (n) {
        case 3: return objects<3, W>(count, scratch, src, vec, vals);
        case 4: return objects<4, W>(count, scratch, src, vec, vals);
        case 5: return objects<5, W>(count, scratch, src, vec, vals);
        case 6: return objects<6, W>(count, scratch, src, vec, vals);
        default: return objects<0, W>(count, scratch, src, vec, vals);
        }
    }

    template <class S, class V, class T>
    KelStatus byPath(int32_t count, void* scratch, const S& src, const V* vec, const Dense<T>& vals) const
    {
        if constexpr (S::desc == Desc::P) {
            return bySize<Path::Table>(count, scratch, src, vec, vals);
        } else {
            bool rows = src.rowsContiguous();
            if constexpr (!std::is_same<V, NoVectors>::value) rows = rows && vec->rowsContiguous();
            return rows ? bySize<Path::Rows>(count, scratch, src, vec, vals)
                        : bySize<Path::Strided>(count, scratch, src, vec, vals);
        }
    }

    // Values only.
    template <class S, class T>
    KelStatus operator()(int32_t count, void* scratch, const S& src, const Plain<T>&, const Dense<T>& vals) const
    {
        return byPath(count, scratch, src, static_cast<const NoVectors*>(nullptr), vals);
    }
    // Values and vectors.
    template <class S, class V, class T>
    KelStatus operator()(int32_t count, void* scratch, const S& src, const Plain<T>&, const V& vec,
                         const Dense<T>& vals) const
    {
        return byPath(count, scratch, src, &vec, vals);
    }
};

// What both front ends tell the driver: the caller's scratch for serial
// runs, an order-squared block for each thread of a team, and a status.
template <class T>
inline DriverInfo symDriverInfo(const Sizes& s, const Plain<T>& buf)
{
    DriverInfo info;
    info.scratchBytes = static_cast<std::size_t>(static_cast<uint32_t>(s.N)) * static_cast<uint32_t>(s.N) * sizeof(T);
    info.callerScratch = buf.ptr;
    info.reportsStatus = true;
    return info;
}

}  // namespace kel::eigen
