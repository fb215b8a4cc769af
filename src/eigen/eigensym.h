// EigenValuesSym: the eigenvalues of a symmetric matrix (see symtridiag.h).
#pragma once

#include "eigen/symkernel.h"

namespace kel::eigen {

// Views in argument order: matrix, scratch, values.
template <class S, class T>
KelStatus eigenValuesSym(const Traits& tr, const Sizes& s, S src, Plain<T> buf, Dense<T> vals)
{
    src.setStoredWidth(s.N);
    vals.setPerObject(s.N);
    return kel::run(tr, s, noMismatch, symDriverInfo(s, buf), SymKernel{s.N}, src, buf, vals);
}

}  // namespace kel::eigen
