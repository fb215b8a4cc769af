// Size classes of the matrix products: for each member and each of its
// kernels, the square sizes n (all four stored dimensions equal to n) whose
// sums begin with the first product.  Every other call, and every size that
// a kernel does not list, begins each sum from +0.0.  The two differ only in
// the sign of a zero: when every product of a sum is -0.0, a sum that begins
// with the first product stays -0.0, one that begins from +0.0 is +0.0.
//
// These are per-member decisions and they decide results, so they are kept
// here as data, one row per operand code and element type:
//   S packed   all three Stride2 equal the element size
//   S strided  any other Stride2
//   L packed, L strided   the same for the _L member
//   P          the _P member
// Single-object codes (mm mt tm tt) have no _L member.
#pragma once

#include <cstdint>

namespace kel::mulmm {

// A set of square sizes, one bit per size.
using SizeSet = uint8_t;
constexpr SizeSet kNone = 0;
constexpr SizeSet k3 = 1u << 3;
constexpr SizeSet k345 = k3 | 1u << 4 | 1u << 5;
constexpr SizeSet k3456 = k345 | 1u << 6;

struct SizeClasses {
    const char* code;  // operand code
    int elem;          // element size in bytes
    SizeSet sPacked, sStrided, lPacked, lStrided, p;
};

// clang-format off
constexpr SizeClasses kSizeClasses[] = {
    // code   type  S packed  S strided  L packed  L strided  P
    {"mm",    4,    k3456,    k3456,     kNone,    kNone,     k3456},
    {"mt",    4,    k3456,    k3456,     kNone,    kNone,     k3456},
    {"tm",    4,    k345,     k3456,     kNone,    kNone,     k3456},
    {"tt",    4,    k3456,    k3456,     kNone,    kNone,     k3456},
    {"mam",   4,    k3456,    k3456,     k3456,    k3,        k3},
    {"mat",   4,    k3456,    k3,        k3456,    k3,        k3},
    {"tam",   4,    k3456,    k3,        k3456,    k3,        k3},
    {"tat",   4,    k3456,    k3456,     k3456,    k3,        k3456},
    {"mma",   4,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"mta",   4,    k3456,    k3456,     k3,       k3456,     k3456},
    {"tma",   4,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tta",   4,    k3456,    k3456,     k3,       k3456,     k3456},
    {"mama",  4,    k3456,    k345,      k3456,    k3456,     k3456},
    {"mata",  4,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tama",  4,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tata",  4,    k3456,    k3456,     k3456,    k3456,     k3456},

    {"mm",    8,    k3456,    k3456,     kNone,    kNone,     k3456},
    {"mt",    8,    k3456,    k3456,     kNone,    kNone,     k3456},
    {"tm",    8,    k3456,    k3456,     kNone,    kNone,     k3456},
    {"tt",    8,    k3456,    k3456,     kNone,    kNone,     k3456},
    {"mam",   8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"mat",   8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tam",   8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tat",   8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"mma",   8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"mta",   8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tma",   8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tta",   8,    k3456,    k3456,     k3,       k3456,     k3456},
    {"mama",  8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"mata",  8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tama",  8,    k3456,    k3456,     k3456,    k3456,     k3456},
    {"tata",  8,    k3456,    k3456,     k3456,    k3456,     k3456},
};
// clang-format on

constexpr bool sameCode(const char* a, const char* b)
{
    while (*a && *a == *b) ++a, ++b;
    return *a == *b;
}

// The row of a code and element size; a code without a row is a build error
// where it is used in a constant expression.
constexpr const SizeClasses& sizeClassesOf(const char* code, int elem)
{
    for (const SizeClasses& row : kSizeClasses)
        if (row.elem == elem && sameCode(row.code, code)) return row;
    throw "no size classes for this member";
}

}  // namespace kel::mulmm
