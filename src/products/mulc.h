// Mul by a constant: every element times the constant, one rounded product
// each.  The arithmetic is element-wise, so the element-wise kernels do it:
// rows in 128-bit registers with straight-line sizes 3 to 6 and the constant
// held over the whole array, element by element for strides, transposition
// and P tables.  In tc and tac, width and height are those of dst.
#pragma once

#include "elementwise/elementwise.h"

namespace kel::products {

// The constant is the left factor: val * src.
struct ScaledBy {
    template <class X>
    static X apply(X src, X val)
    {
        return val * src;
    }
};

template <class... V>
KelStatus mulc(const Traits& tr, const Sizes& s, V... v)
{
    return elementwise::run<ScaledBy>(tr, s, v...);
}

}  // namespace kel::products
