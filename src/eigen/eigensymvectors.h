// EigenValuesVectorsSym: eigenvalues and eigenvectors of a symmetric matrix
// (see symtridiag.h).
#pragma once

#include "eigen/symkernel.h"

namespace kel::eigen {

// Views in argument order: matrix, scratch, vectors, values.
template <class S, class T, class D>
KelStatus eigenValuesVectorsSym(const Traits& tr, const Sizes& s, S src, Plain<T> buf, D vec, Dense<T> vals)
{
    src.setStoredWidth(s.N);
    vec.setStoredWidth(s.N);
    vals.setPerObject(s.N);
    return kel::run(tr, s, noMismatch, symDriverInfo(s, buf), SymKernel{s.N}, src, buf, vec, vals);
}

}  // namespace kel::eigen
