// Minors, cofactors and determinants of small square matrices by Laplace
// expansion, for the closed forms of Invert and Det (orders 3 to 6).
//
// Everything is built bottom-up from the top rows of the matrix.  A minor
// over the rows R and the columns S (|R| = |S|) expands along the last row
// of R, taking the positions m of S from the last down to the first:
//
//   M(R, S) = a[r][S_k-1] * M(R - r, S - S_k-1)  -/+ ...  a[r][S_0] * M(R - r, S - S_0)
//
// with r the last row of R and k = |S|: each term is the element times the
// smaller minor, accumulated left to right, and the term at position m is
// subtracted when k - 1 + m is odd, added otherwise.  A minor of one row is
// the element itself.  So the minor of rows 0 and 1 over columns I < J is
// a1J * a0I - a1I * a0J, and the determinant of a 3 x 3 matrix is
// (a22 * m01 - a21 * m02) + a20 * m12.
//
// The minors of one set of rows are held in a table indexed by the bit mask
// of the column set, for every column set of that size; a table is extended
// by one row at a time.  All indices are constants, so the whole expansion
// compiles to straight-line code.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "frame/cursor.h"
#include "kelm.h"

namespace kel::factor {

// ---- bit sets ---------------------------------------------------------------------------

constexpr int bitCount(unsigned s) { return s ? int(s & 1u) + bitCount(s >> 1) : 0; }
// Index of the set bit at position m (0 = lowest) of s.
constexpr int nthBit(unsigned s, int m)
{
    int i = 0;
    for (;; ++i)
        if ((s >> i) & 1u) {
            if (m == 0) return i;
            --m;
        }
}

// Minors of one set of rows of an N x N matrix: m[S] for every column mask S
// with as many columns as there are rows.
template <int N, class T>
struct MinorTable {
    T m[1 << N];
};

// The minors of one row: its elements.
template <int N, class T>
inline MinorTable<N, T> firstRow(const T* row)
{
    MinorTable<N, T> t;
    unrolled<N>([&](auto c) { t.m[1u << c] = row[c]; });
    return t;
}

// Minor over the column set S (K columns) of the rows of `below` plus `row`
// as their last.
template <unsigned S, int K, int N, class T>
inline T expandRow(const T* row, const MinorTable<N, T>& below)
{
    constexpr int top = nthBit(S, K - 1);
    T acc = row[top] * below.m[S & ~(1u << top)];
    unrolled<K - 1>([&](auto q) {
        constexpr int m = K - 2 - q;
        constexpr int c = nthBit(S, m);
        const T term = row[c] * below.m[S & ~(1u << c)];
        if constexpr ((K - 1 + m) % 2) acc = acc - term;
        else acc = acc + term;
    });
    return acc;
}

// The table of the rows of `below` (K - 1 of them) plus `row`.
template <int K, int N, class T>
inline MinorTable<N, T> addRow(const T* row, const MinorTable<N, T>& below)
{
    MinorTable<N, T> t;
    unrolled<(1 << N)>([&](auto s) {
        constexpr unsigned S = s;
        if constexpr (bitCount(S) == K) t.m[S] = expandRow<S, K>(row, below);
    });
    return t;
}

// The minors of rows 0 .. Last.
template <int Last, int N, class T>
inline MinorTable<N, T> topRows(const T (&a)[N][N])
{
    if constexpr (Last == 0) return firstRow<N>(a[0]);
    else return addRow<Last + 1>(a[Last], topRows<Last - 1>(a));
}

// Extends `t`, the minors of some rows above row First, by rows First .. N-1.
template <int First, int K, int N, class T>
inline MinorTable<N, T> addRowsFrom(const T (&a)[N][N], const MinorTable<N, T>& t)
{
    if constexpr (First == N) return t;
    else return addRowsFrom<First + 1, K + 1>(a, addRow<K>(a[First], t));
}

// The minors of all rows but row I over every set of N - 1 columns: entry
// full - bit j is the minor of element (I, j).
template <int I, int N, class T>
inline MinorTable<N, T> minorsWithout(const T (&a)[N][N])
{
    if constexpr (I == 0) return addRowsFrom<2, 2>(a, firstRow<N>(a[1]));
    else return addRowsFrom<I + 1, I + 1>(a, topRows<I - 1>(a));
}

// The determinant: the last row expanded over the minors of the rows above.
template <int N, class T>
inline T laplaceDet(const T (&a)[N][N])
{
    return expandRow<(1u << N) - 1, N>(a[N - 1], topRows<N - 2>(a));
}

// Minor of element (i, j) of every element, and the determinant, which is
// the expansion of the last row over its minors.
template <int N, class T>
struct Adjugate {
    T minor[N][N];
    T det;
};

template <int N, class T>
inline Adjugate<N, T> laplaceAdjugate(const T (&a)[N][N])
{
    constexpr unsigned full = (1u << N) - 1;
    Adjugate<N, T> r;
    unrolled<N>([&](auto i) {
        const MinorTable<N, T> t = minorsWithout<i>(a);
        unrolled<N>([&](auto j) { r.minor[i][j] = t.m[full & ~(1u << j)]; });
        if constexpr (i == N - 1) r.det = expandRow<full, N>(a[N - 1], t);
    });
    return r;
}

// The closed-form inverse of an N x N matrix, read and written through
// cursors (get(j, i), put(j, i, v)).  All elements are read first.  A matrix
// whose |det| (compared in double) is below `tolerance` is refused and dst
// is not touched.  Otherwise dst(j, i) = cofactor(i, j) * (1 / det), a
// negative cofactor being 0 - minor.
template <int N, class T, class Src, class Dst>
inline KelStatus invertByCofactors(const Src& src, const Dst& dst, double tolerance)
{
    T a[N][N];
    unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { a[j][i] = src.get(j, i); }); });
    const Adjugate<N, T> adj = laplaceAdjugate(a);
    if (tolerance > std::fabs(static_cast<double>(adj.det))) return kelStsSingular;
    const T r = T(1) / adj.det;
    unrolled<N>([&](auto i) {
        unrolled<N>([&](auto j) {
            const T m = adj.minor[i][j];
            const T c = (i + j) % 2 ? T(0) - m : m;
            dst.put(j, i, c * r);
        });
    });
    return kelStsNoErr;
}

}  // namespace kel::factor
