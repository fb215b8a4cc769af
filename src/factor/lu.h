// What LUDecomp and LUBackSubst share: the size classes with their pivot
// rules.
//
// Both families branch on the order n of the matrix.  Orders 3 to 6 run
// straight-line code generated from one template per size; every other order
// runs a general loop.  The classes differ in more than speed: the
// factorisation refuses pivots by a different rule in each class, and the
// solve of one matrix against many vectors multiplies by hoisted reciprocals
// of the diagonal only in the straight-line class.  Those differences are
// the data below, not separate code.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/view.h"

namespace kel::factor {

// ---- size classes ------------------------------------------------------------------

// Orders with straight-line code.
inline constexpr int32_t kLuUnrolledFirst = 3;
inline constexpr int32_t kLuUnrolledLast = 6;

// How a size class decides that a pivot is too small.
template <class T>
struct PivotRule {
    T tolerance;
    bool strict;         // refused below the tolerance (else at or below it)
    bool exchangeFirst;  // a step's table exchange happens before its test
    // Ordered comparisons: a NaN magnitude is never refused.
    bool refuses(T magnitude) const { return strict ? tolerance > magnitude : magnitude <= tolerance; }
};

// The pivot rules by class and element type.  The tolerances are powers of
// two, exact in either type, so comparing in float is the same as comparing
// in double.
//   general loop (orders 1, 2, 7 and up): machine epsilon, at or below it is
//     singular, tested before the exchange;
//   straight-line (orders 3 to 6): twice the smallest normal number, below it
//     is singular, tested after the exchange.
template <class T>
struct LuClasses {
    static constexpr PivotRule<T> general{std::numeric_limits<T>::epsilon(), false, false};
    static constexpr PivotRule<T> unrolled{T(2) * std::numeric_limits<T>::min(), true, true};
};

// One pivot step over positions k..n-1: `mag(i)` is the magnitude of column
// k in the row at position i.  The largest wins and the earlier position
// keeps a tie (so a NaN never wins and is never displaced).  `exchange(best)`
// swaps positions k and best of the table, before or after the test as the
// rule says.  Returns false when the pivot is refused.
template <class T, class Mag, class Exchange>
inline bool pivotStep(const PivotRule<T>& rule, int32_t k, int32_t n, const Mag& mag, const Exchange& exchange)
{
    int32_t best = k;
    T top = mag(k);
#pragma GCC unroll 8
    for (int32_t i = k + 1; i < n; ++i) {
        const T c = mag(i);
        const bool wins = c > top;
        top = wins ? c : top;
        best = wins ? i : best;
    }
    if (!rule.exchangeFirst && rule.refuses(top)) return false;
    exchange(best);
    return !(rule.exchangeFirst && rule.refuses(top));
}

// Swaps entries k and best of a table of N entries held in registers: every
// access has a fixed index, the choice is made by selects.
template <int N, class E>
inline void exchangeFixed(int k, int32_t best, E* e)
{
    const E ek = e[k];
    E eb = ek;
#pragma GCC unroll 8
    for (int i = k + 1; i < N; ++i) {
        const E ei = e[i];
        eb = i == best ? ei : eb;
        e[i] = i == best ? ek : ei;
    }
    e[k] = eb;
}

}  // namespace kel::factor
