// Mul of a matrix and a column vector: mv, tv and their arrays.
//
// R is the length of dst and K the inner length: src1Height and src1Width
// for a matrix as stored, the other way round for a transposed one.  The
// vector's length must equal K.
#pragma once

#include <cstdint>

#include "frame/frame.h"
#include "frame/view.h"
#include "products/mulmv_kernel.h"

namespace kel::products {

// ---- how each member sums ------------------------------------------------------
//
// Every kernel of every member computes square sizes 3 to 6 in straight-line
// code and sums all other sizes in plain ascending order from +0.0, except
// the members below.  The table decides results (the sign of a zero sum and,
// for mva_32f, the rounding), so it is kept exactly as the members are built.

struct MemberKey {
    const char* code;  // operand code
    int elem;          // element size
    Desc desc;
};

struct MulMvException {
    MemberKey member;
    bool packedSizes;  // the packed kernel has straight-line sizes
    bool laneDot;      // its packed general path is the lane dot product
};

constexpr MulMvException kMulMvExceptions[] = {
    {{"mva", 4, Desc::S}, true, true},     // kelmMul_mva_32f
    {{"mva", 4, Desc::L}, false, false},   // kelmMul_mva_32f_L
    {{"tva", 4, Desc::L}, false, false},   // kelmMul_tva_32f_L
    {{"tva", 8, Desc::L}, false, false},   // kelmMul_tva_64f_L
    {{"tava", 8, Desc::L}, false, false},  // kelmMul_tava_64f_L
};

constexpr bool sameText(const char* a, const char* b)
{
    while (*a && *a == *b) ++a, ++b;
    return *a == *b;
}

// Operand code of a member from its views.
template <class A, class X>
constexpr const char* mulMvCode()
{
    constexpr const char* codes[2][2][2] = {{{"mv", "mva"}, {"mav", "mava"}}, {{"tv", "tva"}, {"tav", "tava"}}};
    return codes[A::trans][A::array][X::array];
}

template <class A, class X, class D>
constexpr SumRules mulMvRules()
{
    using T = typename D::Elem;
    SumRules r{true, true, true, false};
    for (const auto& e : kMulMvExceptions)
        if (sameText(e.member.code, mulMvCode<A, X>()) && e.member.elem == kElem<T> && e.member.desc == D::desc) {
            r.packedSizes = e.packedSizes;
            r.laneDot = e.laneDot;
        }
    return r;
}

// ---- front end ------------------------------------------------------------------

template <class A, class X, class D>
KelStatus mulmv(const Traits& tr, const Sizes& s, A a, X x, D d)
{
    using T = typename D::Elem;
    const int32_t rows = A::trans ? s.W1 : s.H1;
    const int32_t inner = A::trans ? s.H1 : s.W1;
    if constexpr (A::desc == Desc::P) a.setStoredWidth(s.W1);
    const auto mismatch = [&] { return inner != s.L2; };
    constexpr SumRules rules = mulMvRules<A, X, D>();
    return kel::run(tr, s, mismatch, DriverInfo{}, MatVec<T>{rows, inner, squareSize(s), rules}, a, x, d);
}

}  // namespace kel::products
