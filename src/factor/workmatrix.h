// The caller's scratch of Invert and Det and the elimination steps both
// families run in it.
//
// One object's scratch is n * n elements of T, the work matrix with row
// length n, directly followed by n 32-bit row numbers, the row table: n * (n
// + 1) elements of T in all.  Rows are never moved; a step exchanges table
// entries.  The caller may pass any address, so elements are copied in and
// out rather than dereferenced.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "frame/view.h"

namespace kel::factor {

template <class T>
struct WorkMatrix {
    char* base;
    int32_t n;

    static std::size_t bytes(int32_t n) { return static_cast<std::size_t>(n) * (static_cast<std::size_t>(n) + 1) * sizeof(T); }

    char* elem(int32_t r, int32_t c) const { return base + (static_cast<int64_t>(r) * n + c) * sizeof(T); }
    char* entry(int32_t i) const { return base + static_cast<int64_t>(n) * n * sizeof(T) + 4 * int64_t(i); }

    T get(int32_t r, int32_t c) const { return load<T>(elem(r, c)); }
    void put(int32_t r, int32_t c, T v) const { store<T>(elem(r, c), v); }
    int32_t row(int32_t i) const { return load<int32_t>(entry(i)); }
    void setRow(int32_t i, int32_t r) const { store<int32_t>(entry(i), r); }
    // Element (i, j) of the matrix in table order.
    T at(int32_t i, int32_t j) const { return get(row(i), j); }

    void resetTable(int32_t rows) const
    {
        for (int32_t i = 0; i < rows; ++i) setRow(i, i);
    }

    // Pivot search in column k over table positions k .. last: the largest
    // magnitude wins and the earlier position keeps a tie (a NaN never wins).
    // Differing entries are exchanged; returns true when they were.
    bool pivot(int32_t k, int32_t last) const
    {
        int32_t best = k;
        T top = std::fabs(at(k, k));
        for (int32_t i = k + 1; i <= last; ++i) {
            const T c = std::fabs(at(i, k));
            if (c > top) top = c, best = i;
        }
        if (best == k) return false;
        const int32_t r = row(k);
        setRow(k, row(best));
        setRow(best, r);
        return true;
    }

    // Subtracts multiples of the pivot row at position k from the rows at
    // positions k+1 .. last, over columns k+1 .. last; the multiplier of a
    // row is mult(a(i, k)).
    template <class Mult>
    void eliminate(int32_t k, int32_t last, const Mult& mult) const
    {
        const int32_t pk = row(k);
        for (int32_t i = k + 1; i <= last; ++i) {
            const int32_t pi = row(i);
            const T m = mult(get(pi, k));
            for (int32_t j = k + 1; j <= last; ++j) put(pi, j, get(pi, j) - get(pk, j) * m);
        }
    }
};

// The eliminations' tolerance: the 32-bit product n * 2 * n * n in the
// element type, times the smallest normal number.
template <class T>
inline T cubeTolerance(int32_t n)
{
    return static_cast<T>(mul32(mul32(mul32(n, 2), n), n)) * std::numeric_limits<T>::min();
}

}  // namespace kel::factor
