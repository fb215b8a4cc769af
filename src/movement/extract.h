// Extract: element (j, i) of object n lands at dense index
// (n * height + j) * width + i (vectors: n * len + i).
//
// S and L sources, and transposed P sources, are read objects, rows and
// elements ascending while dst advances one element a step.  A P source that
// is not transposed is read table entry by table entry instead, each entry
// once, with the objects of that entry in the inner loop; dst then steps by
// one object's elements.  Where source and result do not overlap, rows that
// are runs of memory (S, and P tables that are grids) move a row at a time.
#pragma once

#include <cstdint>

#include "movement/movement.h"

namespace kel::movement {

struct ExtractKernel {
    int32_t w, h;

    template <class S, class T>
    KelStatus operator()(int32_t count, void*, const S& src, const Dense<T>& dst) const
    {
        // Rows that are runs of memory (P tables that are grids included),
        // apart from the result: a row at a time into the packed result.
        if constexpr (!S::trans) {
            Obj<T, Desc::S, true> out;
            if (packedObjects(dst, count, w, h, out)) {
                if (movedByRows(count, src, out, w, h)) return kelStsNoErr;
                bool moved = false;
                if (withGrids(count, w, h, [&](const auto& g) { moved = movedByRows(count, g, out, w, h); }, src) &&
                    moved)
                    return kelStsNoErr;
            }
        }
        if constexpr (S::desc == Desc::P && !S::trans) {
            // Row-major table: entry e is logical element (0, e) of a view
            // whose rows are w entries long.  A product w * h below 1 can
            // only come from wrap-around: nothing to do then.
            const int32_t entries = mul32(w, h);
            if (entries < 1) return kelStsNoErr;
            for (int32_t e = 0; e < entries; ++e)
                for (int32_t n = 0; n < count; ++n) moveWord(src.at(n, 0, e), dst.at(n, e));
        } else {
            T* out = dst.ptr;
            for (int32_t n = 0; n < count; ++n)
                for (int32_t j = 0; j < h; ++j)
                    for (int32_t i = 0; i < w; ++i) moveWord(src.at(n, j, i), out++);
        }
        return kelStsNoErr;
    }
};

// Front end of every Extract member: the source view, then the dense dst.
template <class S, class T>
KelStatus extract(const Traits& tr, const Sizes& s, S src, Dense<T> dst)
{
    const int32_t w = widthOf<S>(s), h = heightOf<S>(s);
    // A transposed source is stored with `h` columns.
    src.setStoredWidth(S::trans ? h : w);
    dst.setPerObject(mul32(w, h));
    return run(tr, s, noMismatch, DriverInfo{}, ExtractKernel{w, h}, src, dst);
}

}  // namespace kel::movement
