// Eigenvectors from a real Schur form T = transpose(Q) H0 Q with its Schur
// vectors: substitution on the quasi-triangular T, back transformation by
// the Schur vectors in place, normalisation.
//
// The first procedure (Right) solves T x = lambda x from the last index
// upwards and replaces Schur vector ki by Z x; the second (Left) solves
// y^H T = lambda y^H from the first index downwards and replaces Schur
// vector ki by Z y.  Both perturb a tiny diagonal to smin and scale the
// whole work vector down where a step could overflow.  A complex pair keeps
// the real part of its first eigenvalue's vector in the first column and
// the imaginary part in the second.
#pragma once

#include <algorithm>
#include <cmath>

#include "eigen/generalschur.h"

namespace kel::eigen {

enum class Side { Right, Left, Both };

// Complex quotient (a + ib) / (c + id), scaled by the larger of c, d.
template <class T>
inline void cdiv(T a, T b, T c, T d, T& e, T& f)
{
    if (std::fabs(c) >= std::fabs(d)) {
        const T r = d / c, den = c + d * r;
        e = (a + b * r) / den;
        f = (b - a * r) / den;
    } else {
        const T r = c / d, den = d + c * r;
        e = (a * r + b) / den;
        f = (b * r - a) / den;
    }
}

// The work vector of one eigenvalue: real part xr, imaginary part xi (unused
// for a real eigenvalue), entries lo .. hi in use.
template <class T>
struct Work {
    T* xr;
    T* xi;
    int lo, hi;
    bool complex;

    T largest() const
    {
        T big = T(0);
        for (int k = lo; k <= hi; ++k) {
            const T a = complex ? std::fabs(xr[k]) + std::fabs(xi[k]) : std::fabs(xr[k]);
            if (a > big) big = a;
        }
        return big;
    }
    void scaleBy(T s)
    {
        for (int k = lo; k <= hi; ++k) xr[k] = xr[k] * s;
        if (complex)
            for (int k = lo; k <= hi; ++k) xi[k] = xi[k] * s;
    }
    // The scale a step chose: the whole vector follows unless it is 1.
    void apply(T scale)
    {
        if (std::fabs(scale - T(1)) > Consts<T>::safmin) scaleBy(scale);
    }
};

// One unknown: (t - i*w) u = b, with t = T[j][j] - wr.
template <class T>
inline void solve1(Work<T>& x, int j, T t, T w, T smin)
{
    constexpr T big = Consts<T>::bigGuard;
    if (!x.complex) {
        if (std::fabs(t) < smin) t = smin;
        const T b = x.xr[j];
        T scale = T(1);
        if (std::fabs(t) < T(1) && std::fabs(b) > T(1) && std::fabs(b) > big * std::fabs(t)) scale = T(1) / std::fabs(b);
        T u = (scale * b) / t;
        const T au = std::fabs(u);
        if (au > T(1) && x.largest() > big / au) u = u / au, scale = scale / au;
        x.apply(scale);
        x.xr[j] = u;
        return;
    }
    T ti = -w;
    if (std::fabs(t) + std::fabs(ti) < smin) t = smin, ti = T(0);
    const T br = x.xr[j], bi = x.xi[j];
    const T cn = std::fabs(t) + std::fabs(ti), bn = std::fabs(br) + std::fabs(bi);
    T scale = T(1);
    if (cn < T(1) && bn > T(1) && bn > big * cn) scale = T(1) / bn;
    T ur, ui;
    cdiv(scale * br, scale * bi, t, ti, ur, ui);
    const T au = std::fabs(ur) + std::fabs(ui);
    if (au > T(1) && x.largest() > big / au) ur = ur / au, ui = ui / au, scale = scale / au;
    x.apply(scale);
    x.xr[j] = ur;
    x.xi[j] = ui;
}

// Two unknowns p, q with full pivoting:
//   (a11 - lambda) u_p + a12 u_q = b_p
//   a21 u_p + (a22 - lambda) u_q = b_q,   lambda = wr + i*w.
// The largest of the four coefficients is the pivot; a pivot or remaining
// diagonal below smin is replaced by smin.
template <class T>
inline void solve2(Work<T>& x, int p, int q, T a11, T a12, T a21, T a22, T wr, T w, T smin)
{
    constexpr T big = Consts<T>::bigGuard;
    // Coefficients c[r][s] (real, imaginary), right-hand sides b[r].
    T cr[2][2] = {{a11 - wr, a12}, {a21, a22 - wr}};
    T ci[2][2] = {{-w, T(0)}, {T(0), -w}};
    T br[2] = {x.xr[p], x.xr[q]};
    T bi[2] = {x.complex ? x.xi[p] : T(0), x.complex ? x.xi[q] : T(0)};
    auto mag = [&](int r, int s) { return std::fabs(cr[r][s]) + std::fabs(ci[r][s]); };
    int pr = 0, pc = 0;
    T cmax = mag(0, 0);
    for (int r = 0; r < 2; ++r)
        for (int s = 0; s < 2; ++s)
            if (mag(r, s) > cmax) cmax = mag(r, s), pr = r, pc = s;
    const int orr = 1 - pr, oc = 1 - pc;
    T pvr = cr[pr][pc], pvi = ci[pr][pc];
    if (cmax < smin) pvr = smin, pvi = T(0);
    // Multiplier of the other row, and what remains of its other column.
    T lr, li;
    cdiv(cr[orr][pc], ci[orr][pc], pvr, pvi, lr, li);
    T ur = cr[orr][oc] - (lr * cr[pr][oc] - li * ci[pr][oc]);
    T ui = ci[orr][oc] - (lr * ci[pr][oc] + li * cr[pr][oc]);
    if (std::fabs(ur) + std::fabs(ui) < smin) ur = smin, ui = T(0);
    const T b2r = br[orr] - (lr * br[pr] - li * bi[pr]);
    const T b2i = bi[orr] - (lr * bi[pr] + li * br[pr]);
    const T un = std::fabs(ur) + std::fabs(ui), bn = std::fabs(b2r) + std::fabs(b2i);
    T scale = T(1);
    if (un < T(1) && bn > T(1) && bn > big * un) scale = T(1) / bn;
    T xor_, xoi, xpr, xpi;
    cdiv(scale * b2r, scale * b2i, ur, ui, xor_, xoi);
    const T rr = scale * br[pr] - (cr[pr][oc] * xor_ - ci[pr][oc] * xoi);
    const T ri = scale * bi[pr] - (cr[pr][oc] * xoi + ci[pr][oc] * xor_);
    cdiv(rr, ri, pvr, pvi, xpr, xpi);
    const T au = std::max(std::fabs(xpr) + std::fabs(xpi), std::fabs(xor_) + std::fabs(xoi));
    if (au > T(1) && x.largest() > big / au) {
        xpr = xpr / au, xpi = xpi / au, xor_ = xor_ / au, xoi = xoi / au;
        scale = scale / au;
    }
    x.apply(scale);
    // Unknown pc is the pivot's column.
    const int up = pc == 0 ? p : q, uo = pc == 0 ? q : p;
    x.xr[up] = xpr, x.xr[uo] = xor_;
    if (x.complex) x.xi[up] = xpi, x.xi[uo] = xoi;
}

// Right procedure on t (Schur form) into the vector area v (Schur vectors
// on entry).
template <class T, class D>
inline void rightVectors(const D& d, const T* t, T* v, T* xr, T* xi)
{
    using C = Consts<T>;
    const int n = d.n;
    auto Tm = [&](int i, int j) { return t[j * n + i]; };
    const T smlnum = T(n) * C::smallUnit;
    for (int ki = n - 1; ki >= 0; --ki) {
        const bool pair = ki > 0 && std::fabs(Tm(ki, ki - 1)) > C::safmin;
        const T wr = Tm(ki, ki);
        const T wi = pair ? root(std::fabs(Tm(ki, ki - 1))) * root(std::fabs(Tm(ki - 1, ki))) : T(0);
        const T smin = std::max(C::eps * (std::fabs(wr) + std::fabs(wi)), smlnum);
        Work<T> x{xr, xi, 0, ki, pair};
        int j;
        if (!pair) {
            xr[ki] = T(1);
            for (int k = 0; k < ki; ++k) xr[k] = -Tm(k, ki);
            j = ki - 1;
        } else {
            if (std::fabs(Tm(ki - 1, ki)) >= std::fabs(Tm(ki, ki - 1))) {
                xr[ki - 1] = T(1);
                xi[ki] = wi / Tm(ki - 1, ki);
            } else {
                xr[ki - 1] = -wi / Tm(ki, ki - 1);
                xi[ki] = T(1);
            }
            xr[ki] = T(0);
            xi[ki - 1] = T(0);
            for (int k = 0; k < ki - 1; ++k) {
                xr[k] = -xr[ki - 1] * Tm(k, ki - 1);
                xi[k] = -xi[ki] * Tm(k, ki);
            }
            j = ki - 2;
        }
        while (j >= 0) {
            if (j > 0 && std::fabs(Tm(j, j - 1)) > C::safmin) {
                solve2(x, j - 1, j, Tm(j - 1, j - 1), Tm(j - 1, j), Tm(j, j - 1), Tm(j, j), wr, wi, smin);
                for (int k = 0; k < j - 1; ++k) {
                    xr[k] = xr[k] - xr[j - 1] * Tm(k, j - 1) - xr[j] * Tm(k, j);
                    if (pair) xi[k] = xi[k] - xi[j - 1] * Tm(k, j - 1) - xi[j] * Tm(k, j);
                }
                j -= 2;
            } else {
                solve1(x, j, Tm(j, j) - wr, wi, smin);
                for (int k = 0; k < j; ++k) {
                    xr[k] = xr[k] - xr[j] * Tm(k, j);
                    if (pair) xi[k] = xi[k] - xi[j] * Tm(k, j);
                }
                j -= 1;
            }
        }
        // Back transformation in place: column ki (and ki-1 of a pair).
        for (int r = 0; r < n; ++r) {
            auto V = [&](int c) -> T& { return v[c * n + r]; };
            if (!pair) {
                T s = xr[ki] * V(ki);
                if (ki > 0) {
                    T acc = V(0) * xr[0];
                    for (int c = 1; c < ki; ++c) acc = acc + V(c) * xr[c];
                    s = acc + s;
                }
                V(ki) = s;
            } else {
                T sr = xr[ki - 1] * V(ki - 1), si = xi[ki] * V(ki);
                if (ki > 1) {
                    T ar = V(0) * xr[0], ai = V(0) * xi[0];
                    for (int c = 1; c < ki - 1; ++c) ar = ar + V(c) * xr[c], ai = ai + V(c) * xi[c];
                    sr = ar + sr, si = ai + si;
                }
                V(ki - 1) = sr;
                V(ki) = si;
            }
        }
        if (pair) --ki;
    }
}

// Left procedure: the mirror, from the first index downwards, on the
// transposed system.
template <class T, class D>
inline void leftVectors(const D& d, const T* t, T* v, T* xr, T* xi)
{
    using C = Consts<T>;
    const int n = d.n;
    auto Tm = [&](int i, int j) { return t[j * n + i]; };
    const T smlnum = T(n) * C::smallUnit;
    for (int ki = 0; ki < n; ++ki) {
        const bool pair = ki + 1 < n && std::fabs(Tm(ki + 1, ki)) > C::safmin;
        const T wr = Tm(ki, ki);
        const T wi = pair ? root(std::fabs(Tm(ki, ki + 1))) * root(std::fabs(Tm(ki + 1, ki))) : T(0);
        const T smin = std::max(C::eps * (std::fabs(wr) + std::fabs(wi)), smlnum);
        Work<T> x{xr, xi, ki, n - 1, pair};
        int j;
        if (!pair) {
            xr[ki] = T(1);
            for (int k = ki + 1; k < n; ++k) xr[k] = -Tm(ki, k);
            j = ki + 1;
        } else {
            if (std::fabs(Tm(ki, ki + 1)) >= std::fabs(Tm(ki + 1, ki))) {
                xr[ki] = wi / Tm(ki, ki + 1);
                xi[ki + 1] = T(1);
            } else {
                xr[ki] = T(1);
                xi[ki + 1] = -wi / Tm(ki + 1, ki);
            }
            xr[ki + 1] = T(0);
            xi[ki] = T(0);
            for (int k = ki + 2; k < n; ++k) {
                xr[k] = -xr[ki] * Tm(ki, k);
                xi[k] = -xi[ki + 1] * Tm(ki + 1, k);
            }
            j = ki + 2;
        }
        while (j < n) {
            if (j + 1 < n && std::fabs(Tm(j + 1, j)) > C::safmin) {
                // The mirror of the first procedure's step: the later index first.
                solve2(x, j + 1, j, Tm(j + 1, j + 1), Tm(j, j + 1), Tm(j + 1, j), Tm(j, j), wr, -wi, smin);
                for (int k = j + 2; k < n; ++k) {
                    xr[k] = xr[k] - xr[j + 1] * Tm(j + 1, k) - xr[j] * Tm(j, k);
                    if (pair) xi[k] = xi[k] - xi[j + 1] * Tm(j + 1, k) - xi[j] * Tm(j, k);
                }
                j += 2;
            } else {
                solve1(x, j, Tm(j, j) - wr, -wi, smin);
                for (int k = j + 1; k < n; ++k) {
                    xr[k] = xr[k] - xr[j] * Tm(j, k);
                    if (pair) xi[k] = xi[k] - xi[j] * Tm(j, k);
                }
                j += 1;
            }
        }
        for (int r = 0; r < n; ++r) {
            auto V = [&](int c) -> T& { return v[c * n + r]; };
            // Sums from the last column down, the mirror of the first procedure.
            if (!pair) {
                T s = xr[ki] * V(ki);
                if (ki + 1 < n) {
                    T acc = V(n - 1) * xr[n - 1];
                    for (int c = n - 2; c > ki; --c) acc = acc + V(c) * xr[c];
                    s = acc + s;
                }
                V(ki) = s;
            } else {
                T sr = xr[ki] * V(ki), si = xi[ki + 1] * V(ki + 1);
                if (ki + 2 < n) {
                    T ar = V(n - 1) * xr[n - 1], ai = V(n - 1) * xi[n - 1];
                    for (int c = n - 2; c > ki + 1; --c) ar = ar + V(c) * xr[c], ai = ai + V(c) * xi[c];
                    sr = ar + sr, si = ai + si;
                }
                V(ki) = sr;
                V(ki + 1) = si;
            }
        }
        if (pair) ++ki;
    }
}

// Unit length for every vector; a complex vector's largest component made
// real.
template <class T, class D>
inline void normalise(const D& d, T* v, const T* im)
{
    using C = Consts<T>;
    const int n = d.n;
    for (int j = 0; j < n;) {
        T* r = &v[j * n];
        if (std::fabs(im[j]) <= C::safmin) {
            T s = r[0] * r[0];
            for (int k = 1; k < n; ++k) s = s + r[k] * r[k];
            if (std::fabs(s) > C::safmin) {
                const T f = T(1) / root(s);
                for (int k = 0; k < n; ++k) r[k] = r[k] * f;
            }
            j += 1;
            continue;
        }
        T* q = &v[(j + 1) * n];
        T sr = r[0] * r[0], sq = q[0] * q[0];
        for (int k = 1; k < n; ++k) sr = sr + r[k] * r[k], sq = sq + q[k] * q[k];
        const T f = T(1) / root(sr + sq);
        for (int k = 0; k < n; ++k) r[k] = r[k] * f, q[k] = q[k] * f;
        int m = 0;
        T top = r[0] * r[0] + q[0] * q[0];
        for (int k = 1; k < n; ++k) {
            const T a = r[k] * r[k] + q[k] * q[k];
            if (a > top) top = a, m = k;
        }
        const T h = root(r[m] * r[m] + q[m] * q[m]);
        T c = r[m] / h, s = q[m] / h;
        if (std::fabs(r[m]) > std::fabs(q[m]) && c < T(0)) c = -c, s = -s;
        for (int k = 0; k < n; ++k) {
            const T a = r[k], b = q[k];
            r[k] = c * a + s * b;
            q[k] = c * b - s * a;
        }
        j += 2;
    }
}

}  // namespace kel::eigen
