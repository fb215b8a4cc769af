// Gaxpy: a single matrix times a vector, plus a vector added to the complete
// sum: dst(r) = (sum over k of src1(r, k) * src2(k)) + src3(r).
#pragma once

#include <cstdint>

#include "frame/frame.h"
#include "frame/view.h"
#include "products/mulmv_kernel.h"

namespace kel::products {

// Only the packed kernels have straight-line square sizes 3 to 6; the
// strided and P kernels sum every size from +0.0.
constexpr SumRules kGaxpyRules{true, false, false, false};

template <class A, class X, class Y, class D>
KelStatus gaxpy(const Traits& tr, const Sizes& s, A a, X x, Y y, D d)
{
    using T = typename D::Elem;
    if constexpr (A::desc == Desc::P) a.setStoredWidth(s.W1);
    // src3's length is the length of dst, which has none of its own.
    const auto mismatch = [&] { return s.W1 != s.L2 || s.H1 != s.L3; };
    return kel::run(tr, s, mismatch, DriverInfo{}, MatVec<T>{s.H1, s.W1, squareSize(s), kGaxpyRules}, a, x, y, d);
}

}  // namespace kel::products
