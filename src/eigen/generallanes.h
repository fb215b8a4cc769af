// Eigenvalues of several general matrices at once, one per lane of L (two
// packs of doubles): the steps of hessenberg and schur (generalschur.h) for
// the members whose arithmetic is double with the absolute split test and
// plain shifts (EigenValues in double precision), orders 3 to 6.
//
// A lane does its own object's arithmetic in its object's order.  Where an
// object's steps branch on its data, the group computes the step and each
// lane keeps it or not by a mask:
//   - a reflector that an object skips leaves its lane as it was;
//   - the objects iterate side by side on the same last row i of their
//     active blocks; an object whose block there has split off waits for
//     the others, and one that starts its double step lower down (a larger
//     m) joins it there;
//   - each object's block starts at its own row l; a double step also
//     updates the rows above l of its columns, which a lane no longer reads
//     (a block below row l - 1 is finished, and the next block lies above
//     and to the left of l), so only the lane mask guards them.
// The 2x2 blocks that split off are standardised lane by lane.  Nothing is
// written to memory here: the caller stores an object's values only when
// its lane succeeded, and runs a lane that failed again alone, which writes
// exactly what the single object does.
#pragma once

#include "eigen/generalschur.h"
#include "frame/cursor.h"

namespace kel::eigen {

// The reflector of generalschur.h on lanes: (alpha, x[0 .. C-2]) becomes
// (beta, v) where a lane's norm of x is at least safmin, and is left as it
// was elsewhere; returns tau (0 where left).
template <int C, class L>
inline L reflectLanes(L& alpha, L* x)
{
    using K = Consts<double>;
    const L safmin(K::safmin), one(1.0);
    L s = x[0] * x[0];
    unrolled<C - 2>([&](auto j) { s = s + x[j + 1] * x[j + 1]; });
    const L xnorm = sqrt(s);
    const L go = ~greater(safmin, xnorm);
    // hypot2(alpha, xnorm)
    const L ap = abs(alpha), aq = abs(xnorm);
    const L w = select(greater(aq, ap), aq, ap), z = select(greater(ap, aq), aq, ap);
    L r = select(greater(safmin, z), w, w * sqrt(z * z / (w * w) + one));
    r = select(greater(safmin, r), L(K::safmin2), r);
    const L beta = select(greater(L(0.0), alpha), r, -r);
    const L tau = (beta - alpha) / beta;
    const L scal = one / (alpha - beta);
    unrolled<C - 1>([&](auto j) { x[j] = select(go, x[j] * scal, x[j]); });
    alpha = select(go, beta, alpha);
    return select(go, tau, L(0.0));
}

// One reflector of the double step at row k, over nr rows (3, or 2 at the
// last row i of the block), for the lanes in `in`: its first column is
// (v1, v2, v3) from the scan where the lane's step starts (`first`), else
// column k-1 below the diagonal; `flip` negates element (k, k-1) where a
// step starts below its block's first row.  The rows run to the last
// column and the columns to row k+3 whatever the block's last row i: the
// elements right of column i and below row i belong to blocks that have
// split off, which the lane no longer reads.  Not inlined: every last row
// shares the code of each (k, nr).
template <int N, int K, int NR, class L>
[[gnu::noinline]] void doubleStep(L (&h)[N][N], const L& in, const L& first, const L& flip, const L& v1, const L& v2,
                                  const L& v3)
{
    L y[3] = {v1, v2, v3};
    if constexpr (K >= 1) unrolled<NR>([&](auto r) { y[r] = select(first, y[r], h[K + r][K - 1]); });
    const L t1 = reflectLanes<NR>(y[0], y + 1);
    if constexpr (K >= 1) {
        const L later = in & ~first, zero(0.0);
        h[K][K - 1] = select(later, y[0], select(flip, -h[K][K - 1], h[K][K - 1]));
        unrolled<NR - 1>([&](auto r) { h[K + 1 + r][K - 1] = select(later, zero, h[K + 1 + r][K - 1]); });
    }
    // A lane outside `in` subtracts +0 * +0 from each element, which leaves
    // every element as it was (-0 included): cheaper than a choice per
    // element, and NaNs of the lane's own cannot reach the product.
    L t[NR];
    t[0] = in & t1;
    unrolled<NR - 1>([&](auto r) { t[r + 1] = in & (t1 * y[r + 1]); });
    constexpr int rowEnd = K + 3 < N - 1 ? K + 3 : N - 1;
    unrolled<N - K>([&](auto j0) {
        constexpr int j = K + j0;
        L s = h[K][j];
        unrolled<NR - 1>([&](auto r) { s = s + y[r + 1] * h[K + 1 + r][j]; });
        s = in & s;
        unrolled<NR>([&](auto r) { h[K + r][j] = h[K + r][j] - s * t[r]; });
    });
    unrolled<rowEnd + 1>([&](auto j) {
        L s = h[j][K];
        unrolled<NR - 1>([&](auto r) { s = s + y[r + 1] * h[j][K + 1 + r]; });
        s = in & s;
        unrolled<NR>([&](auto r) { h[j][K + r] = h[j][K + r] - s * t[r]; });
    });
}

// Blocks of one row or two that split off at each lane's last row (from
// row l) in the lanes of `bits`, lane by lane: the values of a row, or of a
// standardised 2x2 block.
template <int N, class L>
[[gnu::noinline]] void splitOff(const L (&h)[N][N], int bits, const L& l, const L& last, double (&re)[L::kCount][N],
                                double (&im)[L::kCount][N])
{
    for (int q = 0; q < L::kCount; ++q) {
        if (!(bits >> q & 1)) continue;
        const int i = static_cast<int>(last.lane(q));
        if (l.lane(q) == double(i)) {
            re[q][i] = h[i][i].lane(q);
            im[q][i] = 0.0;
            continue;
        }
        double a = h[i - 1][i - 1].lane(q), b = h[i - 1][i].lane(q), c = h[i][i - 1].lane(q), d = h[i][i].lane(q);
        double cs = 0.0, sn = 0.0;
        standardise(a, b, c, d, cs, sn);
        re[q][i - 1] = a;
        re[q][i] = d;
        if (std::fabs(c) <= Consts<double>::safmin) {
            im[q][i - 1] = 0.0;
            im[q][i] = 0.0;
        } else {
            im[q][i - 1] = root(std::fabs(b)) * root(std::fabs(c));
            im[q][i] = -im[q][i - 1];
        }
    }
}

// The objects of a group, h[i][j] element (i, j) of each one's working
// matrix (the transpose of its source).  On return re and im hold each
// object's eigenvalues as the one-object kernel stores them; the result is
// the mask of the lanes that failed to converge, whose values mean nothing.
template <int N, class L>
[[gnu::flatten]] inline int generalValuesPack(L (&h)[N][N], double (&re)[L::kCount][N], double (&im)[L::kCount][N])
{
    static_assert(N >= 3);
    using K = Consts<double>;
    constexpr int kAll = (1 << L::kCount) - 1;
    const L zero(0.0), one(1.0), half(0.5), safmin(K::safmin), eps(K::eps);
    auto any = [](L mask) { return maskBits(mask) != 0; };
    auto at = [](int v) { return L(double(v)); };

    // ---- Householder reduction to Hessenberg form --------------------------------
    unrolled<N - 2>([&](auto k) {
        constexpr int c = N - k - 1;
        L beta = h[k + 1][k];
        L v[c];
        v[0] = one;
        unrolled<c - 1>([&](auto j) { v[j + 1] = h[k + 2 + j][k]; });
        const L t = reflectLanes<c>(beta, v + 1);
        const L act = greater(abs(t), safmin);
        h[k + 1][k] = beta;
        unrolled<c - 1>([&](auto j) { h[k + 2 + j][k] = zero; });
        if (!any(act)) return;
        // From the right: every row.
        L w[N];
        unrolled<N>([&](auto r) {
            L s = h[r][k + 1];
            unrolled<c - 1>([&](auto j) { s = s + h[r][k + 2 + j] * v[j + 1]; });
            w[r] = s;
        });
        unrolled<c>([&](auto j) {
            const L tv = t * v[j];
            unrolled<N>([&](auto r) { h[r][k + 1 + j] = select(act, h[r][k + 1 + j] - tv * w[r], h[r][k + 1 + j]); });
        });
        // From the left: columns k+1 and up.
        unrolled<N - k - 1>([&](auto col0) {
            constexpr int col = k + 1 + col0;
            L s = h[k + 1][col];
            unrolled<c - 1>([&](auto i) { s = s + v[i + 1] * h[k + 2 + i][col]; });
            unrolled<c>([&](auto i) {
                h[k + 1 + i][col] = select(act, h[k + 1 + i][col] - t * v[i] * s, h[k + 1 + i][col]);
            });
        });
    });

    // ---- double-shift iteration, all objects on the same last row ------------------
    L last = at(N - 1), its = zero, itn = at(32 * N);
    int failed = 0;
    unrolled<N>([&](auto i0) {
        constexpr int i = N - 1 - i0;
        for (;;) {
            L act = equal(last, at(i));
            if (!any(act)) break;
            // An object whose budget has run out fails here; alone it may
            // still finish a block of one or two rows, so it runs again alone.
            const L out = act & ~greater(itn, its);
            if (any(out)) {
                failed |= maskBits(out);
                last = select(out, at(-1), last);
                act = act & ~out;
                if (!any(act)) break;
            }
            // l: the first row of the block, the largest k <= i whose
            // sub-diagonal element (k, k-1) is small (0 if none).
            L l = zero;
            unrolled<i>([&](auto k0) {
                constexpr int k = k0 + 1;
                l = select(lessEqual(abs(h[k][k - 1]), eps), at(k), l);
            });
            unrolled<i>([&](auto k0) {
                constexpr int k = k0 + 1;
                h[k][k - 1] = select(act & equal(l, at(k)), zero, h[k][k - 1]);
            });
            const L fin = act & ~greater(at(i - 1), l);
            if (const int bits = maskBits(fin)) {
                splitOff(h, bits, l, at(i), re, im);
                itn = select(fin, itn - its, itn);
                its = select(fin, zero, its);
                last = select(fin, l - one, last);
            }
            if constexpr (i >= 2) {
                const L go = act & ~fin;
                if (!any(go)) continue;

                // Shifts: exceptional at passes 10 and 20.
                const L hii = h[i][i], hjj = h[i - 1][i - 1];
                L h44 = hii, h33 = hjj, h43h34 = h[i][i - 1] * h[i - 1][i];
                {
                    L disc = (h33 - h44) * half;
                    disc = disc * disc + h43h34;
                    const L real = greater(disc, zero);
                    if (any(real & go)) {
                        const L dr = sqrt(disc);
                        const L ave = half * (h33 + h44);
                        const L sd = select(greater(zero, ave), -dr, dr);
                        const L one44 = select(greater(abs(h33) - abs(h44), zero), (h33 * h44 - h43h34) / (sd + ave),
                                               sd + ave);
                        h44 = select(real, one44, h44);
                        h33 = select(real, one44, h33);
                        h43h34 = select(real, zero, h43h34);
                    }
                }
                const L odd = go & (equal(its, at(10)) | equal(its, at(20)));
                if (any(odd)) {
                    const L s = abs(h[i][i - 1]) + abs(h[i - 1][i - 2]);
                    const L e44 = L(0.75) * s + hii;
                    h44 = select(odd, e44, h44);
                    h33 = select(odd, e44, h33);
                    h43h34 = select(odd, L(-0.4375) * s * s, h43h34);
                }

                // m: where the double step starts, two small sub-diagonal
                // elements; (v1, v2, v3) its first column there.
                L m = zero, v1 = zero, v2 = zero, v3 = zero, found = ~go;
                unrolled<i - 1>([&](auto m0) {
                    constexpr int mm = i - 2 - m0;
                    if (maskBits(found) == kAll) return;
                    const L take = ~found & ~greater(l, at(mm));
                    const L h11 = h[mm][mm], h22 = h[mm + 1][mm + 1], h21 = h[mm + 1][mm], h12 = h[mm][mm + 1];
                    const L h44s = h44 - h11, h33s = h33 - h11;
                    const L a1 = (h44s * h33s - h43h34) / h21 + h12;
                    const L a2 = h22 - h11 - h44s - h33s;
                    const L a3 = h[mm + 2][mm + 1];
                    const L s = abs(a1) + abs(a2) + abs(a3);
                    const L z1 = a1 / s, z2 = a2 / s, z3 = a3 / s;
                    v1 = select(take, z1, v1);
                    v2 = select(take, z2, v2);
                    v3 = select(take, z3, v3);
                    m = select(take, at(mm), m);
                    L stop = equal(l, at(mm));
                    if constexpr (mm >= 1) {
                        const L lhs = eps * abs(z1) * (abs(h[mm - 1][mm - 1]) + abs(h11) + abs(h22));
                        const L rhs = abs(h[mm][mm - 1]) * (abs(z2) + abs(z3));
                        stop = stop | lessEqual(rhs, lhs);
                    }
                    found = found | (take & stop);
                });

                // The double step, k from m to i-1.
                unrolled<i>([&](auto k) {
                    constexpr int nr = i - k + 1 < 3 ? i - k + 1 : 3;
                    const L in = go & ~greater(m, at(k));
                    if (!any(in)) return;
                    const L first = equal(m, at(k));
                    doubleStep<N, k, nr>(h, in, first, in & first & greater(m, l), v1, v2, v3);
                });
                its = select(go, its + one, its);
            }
        }
    });
    return failed;
}

}  // namespace kel::eigen
