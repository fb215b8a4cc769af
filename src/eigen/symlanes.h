// Several objects of the symmetric eigenproblem at once, one per lane of L
// (a pack of doubles, or two packs as one): the steps of symObject
// (symtridiag.h) for the kernels whose arithmetic is 64-bit with sums taken
// in order (every one but the 32-bit value arrays), orders 3 to 6.
//
// A lane does its own object's arithmetic in its object's order.  Where an
// object's steps branch on its data, the group computes the step and each
// lane keeps it or not by a mask:
//   - a reduction step that an object passes over leaves its lane as it was;
//   - the QL sweeps of all the objects run side by side for the same value
//     l; an object that has split off l waits for the others, which changes
//     nothing of its own, and a sweep covers the rows of the longest, each
//     lane only its own;
//   - an object that iterates the other way (QR) is the mirror image of QL:
//     its diagonal, off-diagonal and vector columns are taken in reverse
//     order, QL on those does the same operations on the same values, and
//     only its record of the values and their product at each stop of the
//     scan, and when it takes a small last r as a split, stay its own.
// Nothing is written to memory here: the caller stores an object's result
// only when its lane succeeded, and runs a lane that failed again alone,
// which writes exactly what the single object does.
#pragma once

#include <type_traits>

#include "eigen/symtridiag.h"
#include "frame/pairs.h"

namespace kel::eigen {

// The objects of a group, a[j][i] element (j, i) of each (as read, widened to
// double).  On return w holds the sorted values and v (with vectors) the
// vector matrices as the one-object kernel leaves them; the result is the
// mask of the lanes that failed (no convergence, or judged singular), whose
// w and v mean nothing.  T is the stored type: with T = float every value
// the one-object kernel stores is rounded to it here too.
template <class R, int N, bool Vectors, class T, class L>
[[gnu::flatten]] inline L symPack(L (&a)[N][N], L (&v)[N][N], L (&w)[N])
{
    static_assert(std::is_same<typename R::Work, double>::value && !R::laneSums && N >= 3);
    const L eps(R::eps), epsR(R::epsReduce), zero(0.0), one(1.0), two(2.0), half(0.5);
    const L none = L::all(false);
    auto stored = [](L x) {
        if constexpr (std::is_same<T, float>::value) return simd::roundedToFloat(x);
        else return x;
    };
    auto small = [&](L x) { return lessEqual(abs(x), eps); };
    auto any = [](L mask) { return maskBits(mask) != 0; };
    constexpr int kAll = (1 << L::kCount) - 1;

    // ---- Householder reduction ------------------------------------------------
    if constexpr (Vectors)
        unrolled<N>([&](auto j) { unrolled<N>([&](auto i) { v[j][i] = j == i ? one : zero; }); });
    unrolled<N - 2>([&](auto k0) {
        constexpr int k = k0 + 1, col = k - 1;
        L s = zero;
        unrolled<N - k>([&](auto i) { s = s + a[k + i][col] * a[k + i][col]; });
        const L norm = sqrt(s), x = a[k][col];
        L act = ~(lessEqual(s, epsR) | lessEqual(abs(norm - x), epsR));
        L h[N];  // the Householder vector, h[k..N-1]
        unrolled<N - k - 1>([&](auto i) { h[k + 1 + i] = a[k + 1 + i][col]; });
        const L pos = greater(x, epsR), zer = lessEqual(abs(x), epsR);
        h[k] = stored(select(pos, x + norm, select(zer, norm, x - norm)));
        const L vtv = select(pos, (x * norm + s) * two, select(zer, s + s, (s - x * norm) * two));
        act = act & ~lessEqual(vtv, epsR);
        if (!any(act)) return;
        const L beta = two / vtv;
        // From the left, columns k-1 and up; then from the right, rows k-1 and up.
        unrolled<N - k + 1>([&](auto j0) {
            constexpr int j = k - 1 + j0;
            L sum = zero;
            unrolled<N - k>([&](auto i) { sum = sum + a[k + i][j] * h[k + i]; });
            const L t = beta * sum;
            unrolled<N - k>([&](auto i) { a[k + i][j] = select(act, stored(a[k + i][j] - h[k + i] * t), a[k + i][j]); });
        });
        unrolled<N - k + 1>([&](auto i0) {
            constexpr int i = k - 1 + i0;
            L sum = zero;
            unrolled<N - k>([&](auto j) { sum = sum + a[i][k + j] * h[k + j]; });
            const L t = beta * sum;
            unrolled<N - k>([&](auto j) { a[i][k + j] = select(act, stored(a[i][k + j] - h[k + j] * t), a[i][k + j]); });
        });
        if constexpr (Vectors) {
            if constexpr (k == 1) {
                // v is still the identity: v = H in closed form.
                unrolled<N - 1>([&](auto i0) {
                    constexpr int i = i0 + 1;
                    v[i][i] = select(act, stored(one - beta * h[i] * h[i]), v[i][i]);
                    unrolled<N - 1 - i>([&](auto j0) {
                        constexpr int j = i + 1 + j0;
                        const L e = stored(-beta * h[i] * h[j]);
                        v[i][j] = select(act, e, v[i][j]);
                        v[j][i] = select(act, e, v[j][i]);
                    });
                });
            } else {
                unrolled<N - 1>([&](auto i0) {
                    constexpr int i = i0 + 1;
                    L sum = zero;
                    unrolled<N - k>([&](auto j) { sum = sum + h[k + j] * v[i][k + j]; });
                    const L t = beta * sum;
                    unrolled<N - k>([&](auto j) {
                        v[i][k + j] = select(act, stored(v[i][k + j] - h[k + j] * t), v[i][k + j]);
                    });
                });
            }
        }
    });

    // ---- QL steps, QR objects mirrored -----------------------------------------------------
    L d[N], e[N - 1];
    const L qr = ~greater(abs(a[N - 1][N - 1]), abs(a[0][0]));
    // Reverses the order of the QR lanes' diagonal, off-diagonal and vector
    // columns (its own inverse).
    auto mirror = [&] {
        unrolled<N / 2>([&](auto i) {
            const L x = d[i];
            d[i] = select(qr, d[N - 1 - i], x);
            d[N - 1 - i] = select(qr, x, d[N - 1 - i]);
            if constexpr (Vectors)
                unrolled<N>([&](auto q) {
                    const L y = v[q][i];
                    v[q][i] = select(qr, v[q][N - 1 - i], y);
                    v[q][N - 1 - i] = select(qr, y, v[q][N - 1 - i]);
                });
        });
        unrolled<(N - 1) / 2>([&](auto i) {
            const L x = e[i];
            e[i] = select(qr, e[N - 2 - i], x);
            e[N - 2 - i] = select(qr, x, e[N - 2 - i]);
        });
    };
    unrolled<N>([&](auto i) { d[i] = a[i][i]; });
    unrolled<N - 1>([&](auto i) { e[i] = a[i + 1][i]; });
    if (any(qr)) mirror();

    // A QR object's values are recorded as its scan stops at them.
    unrolled<N>([&](auto i) { w[i] = zero; });
    L prod = one, failed = none;
    unrolled<N - 1>([&](auto l) {
        L done = failed, iter = zero;
        for (;;) {
            // m: the first j >= l with a small e(j), else N-1.
            L m(double(N - 1));
            unrolled<N - 1 - l>([&](auto j0) {
                constexpr int j = N - 2 - j0;
                m = select(small(half * e[j]), L(double(j)), m);
            });
            // A QR object records each stop of its scan while it works on l.
            const L stop = qr & ~done & ~equal(m, L(double(N - 1)));
            if (any(stop))
                unrolled<N - 1 - l>([&](auto j0) {
                    constexpr int j = l + j0;
                    const L at = stop & equal(m, L(double(j)));
                    w[N - 1 - j] = select(at, d[j], w[N - 1 - j]);
                    prod = select(at, prod * d[j], prod);
                });
            done = done | equal(m, L(double(l)));
            const L over = ~done & equal(iter, L(double(kMaxPasses)));
            failed = failed | over;
            done = done | over;
            const L act = ~done;
            if (!any(act)) break;
            iter = select(act, iter + one, iter);

            L g = (d[l + 1] - d[l]) / (two * e[l]);
            L r = sqrt(g * g + one);
            L dm = d[N - 1];
            unrolled<N - 2 - l>([&](auto j0) {
                constexpr int j = l + 1 + j0;
                dm = select(equal(m, L(double(j))), d[j], dm);
            });
            g = dm - d[l] + e[l] / select(greater(g, eps), g + r, g - r);
            L s = one, c = one, p = zero, run = act;
            unrolled<N - 1 - l>([&](auto i0) {
                constexpr int i = N - 2 - i0;
                const L in = run & greater(m, L(double(i)));
                if (!any(in)) return;
                const L f = s * e[i], b = c * e[i];
                const L root = sqrt(f * f + g * g);
                if constexpr (i + 1 < N - 1) e[i + 1] = select(in & greater(m, L(double(i + 1))), stored(root), e[i + 1]);
                r = select(in, root, r);
                const L split = in & small(root);
                if (any(split)) {
                    d[i + 1] = select(split, stored(d[i + 1] - p), d[i + 1]);
                    unrolled<N - 1>([&](auto j) { e[j] = select(split & equal(m, L(double(j + 1))), zero, e[j]); });
                    run = run & ~split;
                }
                const L go = in & ~split;
                // Rotations through 1/r scale the vectors by it first.
                const L inv = R::reciprocal ? one / root : one;
                const L sn = R::reciprocal ? f * inv : f / root, cs = R::reciprocal ? g * inv : g / root;
                // Columns i and i+1 of the vectors, rotated where the lane
                // goes; without choosing when every lane does.
                if constexpr (Vectors) {
                    auto rotate = [&](auto keep) {
                        unrolled<N>([&](auto q) {
                            if constexpr (R::reciprocal) {
                                const L x = v[q][i] * inv, y = v[q][i + 1] * inv;
                                v[q][i] = keep(stored(g * x - f * y), v[q][i]);
                                v[q][i + 1] = keep(stored(g * y + f * x), v[q][i + 1]);
                            } else {
                                const L x = v[q][i], y = v[q][i + 1];
                                v[q][i] = keep(stored(cs * x - sn * y), v[q][i]);
                                v[q][i + 1] = keep(stored(cs * y + sn * x), v[q][i + 1]);
                            }
                        });
                    };
                    if (maskBits(go) == kAll) rotate([](L x, L) { return x; });
                    else rotate([&](L x, L old) { return select(go, x, old); });
                }
                s = select(go, sn, s);
                c = select(go, cs, c);
                const L gi = d[i + 1] - p;
                const L ri = (d[i] - gi) * s + two * c * b;
                const L pi = s * ri;
                d[i + 1] = select(go, stored(gi + pi), d[i + 1]);
                g = select(go, c * ri - b, g);
                p = select(go, pi, p);
                r = select(go, ri, r);
            });
            // A small last r is a split unless a QL object has swept all the
            // way down to 0.
            const L broke = act & ~run;
            const L keep = small(r) & (qr | broke | L::all(l > 0));
            const L fin = act & ~keep;
            d[l] = select(fin, stored(d[l] - p), d[l]);
            e[l] = select(fin, stored(g), e[l]);
        }
    });

    // ---- values, singularity and order --------------------------------------------------------
    L prodQl = one;
    unrolled<N>([&](auto i) { prodQl = prodQl * d[i]; });
    prod = select(qr, prod * d[N - 1], prodQl);
    unrolled<N>([&](auto i) { w[i] = select(qr, w[i], d[i]); });
    w[0] = select(qr, d[N - 1], w[0]);
    if constexpr (Vectors)
        if (any(qr)) mirror();
    failed = failed | lessEqual(abs(prod), L(R::epsSingular));

    unrolled<N - 1>([&](auto i) {
        L top = w[i], best{double(i)};
        unrolled<N - 1 - i>([&](auto j0) {
            constexpr int j = i + 1 + j0;
            const L gt = greater(w[j], top);
            top = select(gt, w[j], top);
            best = select(gt, L(double(j)), best);
        });
        const L old = w[i];
        unrolled<N - 1 - i>([&](auto j0) {
            constexpr int j = i + 1 + j0;
            const L at = equal(best, L(double(j)));
            w[j] = select(at, old, w[j]);
            if constexpr (Vectors)
                unrolled<N>([&](auto q) {
                    const L y = v[q][j];
                    v[q][j] = select(at, v[q][i], y);
                    v[q][i] = select(at, y, v[q][i]);
                });
        });
        w[i] = top;
    });
    return failed;
}

}  // namespace kel::eigen
