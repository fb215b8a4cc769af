// Copy: object n, element (j, i) of the destination gets object n, element
// (j, i) of the source, each located through its own description.
//
// When source and destination overlap, one element a step, objects, rows
// and elements ascending: the result is that of this element order.  Where
// they do not, objects side by side go a pack of objects at a time, and rows
// that are runs of memory (in S and L, and P tables that are grids) a row
// at a time.
#pragma once

#include <cstdint>

#include "movement/movement.h"

namespace kel::movement {

struct CopyKernel {
    int32_t w, h;

    template <class S, class D>
    KelStatus operator()(int32_t count, void*, const S& src, const D& dst) const
    {
        if (movedSideBySide<false>(count, src, dst, w, h)) return kelStsNoErr;
        // Element tables that are grids move as the S operands they are.
        if (withGrids(count, w, h, [&](const auto&... g) { (*this)(count, nullptr, g...); }, src, dst))
            return kelStsNoErr;
        if (movedByRows(count, src, dst, w, h)) return kelStsNoErr;
        for (int32_t n = 0; n < count; ++n)
            for (int32_t j = 0; j < h; ++j)
                for (int32_t i = 0; i < w; ++i) moveWord(src.at(n, j, i), dst.at(n, j, i));
        return kelStsNoErr;
    }
};

// Front end of every Copy member: views arrive as source, destination.
template <class S, class D>
KelStatus copy(const Traits& tr, const Sizes& s, S src, D dst)
{
    const int32_t w = widthOf<D>(s), h = heightOf<D>(s);
    // P tables are row-major over the object, `w` entries a row.
    src.setStoredWidth(w);
    dst.setStoredWidth(w);
    return run(tr, s, noMismatch, DriverInfo{}, CopyKernel{w, h}, src, dst);
}

}  // namespace kel::movement
