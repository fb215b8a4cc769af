// Real Schur form of a general square matrix: Householder reduction to upper
// Hessenberg form, then double-shift QR iteration with deflation, with the
// 2x2 blocks of complex pairs standardised.
//
// One set of templates serves every member of EigenValues and of the three
// eigenvector families.  What sets them apart is a Method:
//   vectors  the Schur vectors are kept: the reduction forms its orthogonal
//            matrix, the double step runs over the whole matrix and the
//            vector area, standardising rotations are applied, and a
//            sub-diagonal element splits off by the relative test (else by
//            the absolute one, and the step stays in the active block);
//   guarded  the shifts and the scaling of the first column of the double
//            step avoid dividing by tiny numbers;
//   single   (guarded double-precision members) the shift and the first
//            column are computed on single-precision temporaries.
//
// The matrix H is kept column by column: H[i][j] is at h[j*n + i].  The
// source is copied row by row, so H starts as the transpose of the source;
// both have the same eigenvalues, and the Schur vectors Z satisfy
// transpose(src) * Z = Z * T.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "kelm.h"

namespace kel::eigen {

// Constants by element type.
template <class T>
struct Consts;
template <>
struct Consts<float> {
    static constexpr float safmin = 2.350988701644575e-38f;   // guards divisions
    static constexpr float safmin2 = 4.70197740328915e-38f;   // replaces a norm below safmin
    static constexpr float eps = 1.1920928955078125e-07f;
    static constexpr float eps4 = 4.76837158203125e-07f;      // real or complex 2x2 block
    static constexpr float smallUnit = 1.9721522630525295e-31f;
    static constexpr float bigGuard = 2.1267647932558654e+37f;  // overflow guard of the solves
};
template <>
struct Consts<double> {
    static constexpr double safmin = 4.450147717014403e-308;
    static constexpr double safmin2 = 8.900295434028806e-308;
    static constexpr double eps = 2.220446049250313e-16;
    static constexpr double eps4 = 8.881784197001252e-16;
    static constexpr double smallUnit = 2.004168360008973e-292;
    static constexpr double bigGuard = 1.1235582092889474e+307;
};
// Below this the guarded shifts take a number as it is instead of dividing
// by it; the same value in both types.
constexpr double kGuard = 2.350988701644575e-38;

template <class T, bool Vectors, bool Guarded>
struct Method {
    using Elem = T;
    static constexpr bool vectors = Vectors;
    static constexpr bool guarded = Guarded;
    static constexpr bool single = Guarded && std::is_same<T, double>::value;
    // Type of the shift temporaries.
    using Shift = std::conditional_t<single, float, T>;
};

// Square roots of single-precision numbers go through double.
template <class T>
inline T root(T x)
{
    return static_cast<T>(std::sqrt(static_cast<double>(x)));
}

// sqrt(p*p + q*q) without overflow; no division when the smaller is tiny.
template <class T>
inline T hypot2(T p, T q)
{
    const T ap = std::fabs(p), aq = std::fabs(q);
    const T w = std::max(ap, aq), z = std::min(ap, aq);
    if (z < Consts<T>::safmin) return w;
    return w * root(z * z / (w * w) + T(1));
}

// Householder reflector of size c: (alpha, x[0 .. c-2]) becomes (beta, v)
// with v[0] = 1 implied; returns tau (0: the identity, nothing changed).
template <class T>
inline T reflector(T& alpha, T* x, int c)
{
    if (c <= 1) return T(0);
    T s = x[0] * x[0];
    for (int j = 1; j < c - 1; ++j) s = s + x[j] * x[j];
    const T xnorm = root(s);
    if (xnorm < Consts<T>::safmin) return T(0);
    T r = hypot2(alpha, xnorm);
    if (r < Consts<T>::safmin) r = Consts<T>::safmin2;
    const T beta = alpha < T(0) ? r : -r;
    const T tau = (beta - alpha) / beta;
    const T scal = T(1) / (alpha - beta);
    for (int j = 0; j < c - 1; ++j) x[j] = x[j] * scal;
    alpha = beta;
    return tau;
}

// The order of the matrix: fixed when compiling (N > 0) or at run time.
template <int N>
struct Dim {
    static constexpr int n = N;
};
struct DynDim {
    int n;
};

// Householder reduction of H (n x n, columns contiguous) to upper
// Hessenberg form.  The reflectors stay below the sub-diagonal, their
// scalars in tau; w is a work vector of n.
template <class T, class D>
inline void hessenberg(const D& d, T* h, T* tau, T* w)
{
    const int n = d.n;
    auto H = [&](int i, int j) -> T& { return h[j * n + i]; };
    for (int k = 0; k + 1 < n; ++k) {
        const int c = n - k - 1;
        T beta = H(k + 1, k);
        const T t = reflector(beta, &H(k + 2, k), c);
        tau[k] = t;
        T* v = &H(k + 1, k);  // v[0] = 1 while the reflector is applied
        v[0] = T(1);
        if (std::fabs(t) > Consts<T>::safmin) {
            // From the right: every row r.
            for (int r = 0; r < n; ++r) {
                T s = H(r, k + 1) * v[0];
                for (int j = 1; j < c; ++j) s = s + H(r, k + 1 + j) * v[j];
                w[r] = s;
            }
            for (int j = 0; j < c; ++j) {
                const T tv = t * v[j];
                for (int r = 0; r < n; ++r) H(r, k + 1 + j) = H(r, k + 1 + j) - tv * w[r];
            }
            // From the left: columns k+1 .. n-1.
            for (int col = k + 1; col < n; ++col) {
                T s = v[0] * H(k + 1, col);
                for (int i = 1; i < c; ++i) s = s + v[i] * H(k + 1 + i, col);
                for (int i = 0; i < c; ++i) H(k + 1 + i, col) = H(k + 1 + i, col) - t * v[i] * s;
            }
        }
        v[0] = beta;
    }
}

// Zeros below the first sub-diagonal.
template <class T, class D>
inline void clearBelow(const D& d, T* h)
{
    const int n = d.n;
    for (int j = 0; j + 2 < n; ++j)
        for (int i = j + 2; i < n; ++i) h[j * n + i] = T(0);
}

// The orthogonal matrix of the reduction, from the reflectors below the
// sub-diagonal of h: q = H_0 H_1 ... H_{n-2}, accumulated from the last.
template <class T, class D>
inline void formQ(const D& d, const T* h, const T* tau, T* q, T* w)
{
    const int n = d.n;
    auto Q = [&](int i, int j) -> T& { return q[j * n + i]; };
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < n; ++i) Q(i, j) = i == j ? T(1) : T(0);
    for (int k = n - 2; k >= 0; --k) {
        const T t = tau[k];
        if (!(std::fabs(t) > Consts<T>::safmin)) continue;
        const int c = n - k - 1;
        const T* v = &h[k * n + k + 1];  // v[0] = 1, the rest below
        auto vi = [&](int i) { return i == 0 ? T(1) : v[i]; };
        for (int col = k + 1; col < n; ++col) {
            T s = Q(k + 1, col);
            for (int i = 1; i < c; ++i) s = s + vi(i) * Q(k + 1 + i, col);
            w[col] = s;
        }
        for (int col = k + 1; col < n; ++col)
            for (int i = 0; i < c; ++i) Q(k + 1 + i, col) = Q(k + 1 + i, col) - t * vi(i) * w[col];
    }
}

// Standardises the 2x2 block (a b; c d): real eigenvalues leave it upper
// triangular, a complex pair with equal diagonal and b*c < 0.  (cs, sn) is
// the rotation that does it; when a equals d and b, c agree in sign the
// block and the rotation stay as they were.
template <class T>
inline void standardise(T& a, T& b, T& c, T& d, T& cs, T& sn)
{
    constexpr T safmin = Consts<T>::safmin;
    auto zero = [](T x) { return std::fabs(x) <= safmin; };
    auto differ = [](T x, T y) { return (x < T(0)) != (y < T(0)); };
    if (zero(c)) {
        cs = T(1), sn = T(0);
    } else if (zero(b)) {
        std::swap(a, d);
        b = -c, c = T(0);
        cs = T(0), sn = T(1);
    } else if (zero(a - d)) {
        if (differ(b, c)) cs = T(1), sn = T(0);
    } else {
        T temp = a - d;
        const T p = T(0.5) * temp;
        const T bcmax = std::max(std::fabs(b), std::fabs(c));
        const T bcmis = differ(b, c) ? -std::min(std::fabs(b), std::fabs(c)) : std::min(std::fabs(b), std::fabs(c));
        const T scale = std::max(std::fabs(p), bcmax);
        T z = (p / scale) * p + (bcmax / scale) * bcmis;
        if (z >= Consts<T>::eps4) {
            // Real eigenvalues.
            const T w = root(scale) * root(z);
            z = p > T(0) ? p + w : p - w;
            a = d + z;
            d = d - (bcmax / z) * bcmis;
            const T tau = hypot2(c, z);
            cs = z / tau;
            sn = c / tau;
            b = b - c;
            c = T(0);
        } else {
            // Complex or nearly equal: make the diagonal equal.
            const T sigma = b + c;
            T tau = hypot2(sigma, temp);
            if (tau < safmin) tau = Consts<T>::safmin2;
            cs = root(T(0.5) * (T(1) + std::fabs(sigma) / tau));
            sn = -(p / (tau * cs));
            if (sigma < T(0)) sn = -sn;
            const T aa = a * cs + b * sn, bb = -a * sn + b * cs;
            const T cc = c * cs + d * sn, dd = -c * sn + d * cs;
            a = aa * cs + cc * sn;
            b = bb * cs + dd * sn;
            c = -aa * sn + cc * cs;
            d = -bb * sn + dd * cs;
            temp = T(0.5) * (a + d);
            a = d = temp;
            if (!zero(c)) {
                if (zero(b)) {
                    b = -c, c = T(0);
                } else if (!differ(b, c)) {
                    const T sab = root(std::fabs(b)), sac = root(std::fabs(c));
                    T q = sab * sac;
                    if (c < T(0)) q = -q;
                    a = temp + q;
                    d = temp - q;
                    b = b - c;
                    c = T(0);
                }
            }
        }
    }
}

// Rotates the pairs (x[k], y[k]) by (cs, sn).
template <class T>
inline void rotate(T& x, T& y, T cs, T sn)
{
    const T a = x, b = y;
    x = cs * a + sn * b;
    y = cs * b - sn * a;
}

// Double-shift QR iteration on the Hessenberg matrix h to real Schur form;
// with vectors, z (n x n, columns contiguous) accumulates the
// transformations.  Eigenvalues go to re and im as they split off.  Returns
// kelStsNoConvergence when the object's budget of passes runs out.
template <class M, class D>
KelStatus schur(const D& d, typename M::Elem* h, typename M::Elem* z, typename M::Elem* re, typename M::Elem* im)
{
    using T = typename M::Elem;
    using S = typename M::Shift;
    using C = Consts<T>;
    const int n = d.n;
    auto H = [&](int i, int j) -> T& { return h[j * n + i]; };
    const T smlnum = T(n) * C::smallUnit;
    const S g = static_cast<S>(kGuard);

    // Sub-diagonal element k splits the matrix.
    auto splits = [&](int k, int l, int i) {
        const T e = std::fabs(H(k, k - 1));
        if constexpr (!M::vectors) {
            (void)l, (void)i;
            return e <= C::eps;
        } else {
            T tst = std::fabs(H(k - 1, k - 1)) + std::fabs(H(k, k));
            if (tst <= C::safmin) {
                // 1-norm of the active block: its largest column sum.
                tst = T(0);
                for (int j = l; j <= i; ++j) {
                    T s = T(0);
                    for (int r = l; r <= std::min(j + 1, i); ++r) s = s + std::fabs(H(r, j));
                    if (s > tst) tst = s;
                }
            }
            return e <= std::max(C::eps * tst, smlnum);
        }
    };

    T cs = T(0), sn = T(0);      // rotation of the last standardisation
    T y1 = T(0), y2 = T(0), y3 = T(0);  // first column of the double step
    int itn = 32 * n;
    int i = n - 1;
    while (i >= 0) {
        int l = 0, its = 0;
        for (; its < itn; ++its) {
            int k = i;
            for (; k >= 1; --k)
                if (splits(k, l, i)) break;
            l = k;
            if (l > 0) H(l, l - 1) = T(0);
            if (l >= i - 1) break;

            // Shifts.
            S h33, h44, h43h34;
            if (its == 10 || its == 20) {
                if constexpr (M::single) {
                    const float s = std::fabs(float(H(i, i - 1))) + std::fabs(float(H(i - 1, i - 2)));
                    h44 = float(0.75 * double(s) + H(i, i));
                    h43h34 = float(-0.4375 * double(s) * double(s));
                } else {
                    const T s = std::fabs(H(i, i - 1)) + std::fabs(H(i - 1, i - 2));
                    h44 = T(0.75) * s + H(i, i);
                    h43h34 = T(-0.4375) * s * s;
                }
                h33 = h44;
            } else {
                h44 = S(H(i, i));
                h33 = S(H(i - 1, i - 1));
                h43h34 = S(H(i, i - 1) * H(i - 1, i));
                S disc = (h33 - h44) * S(0.5);
                disc = disc * disc + h43h34;
                if constexpr (M::guarded) {
                    if (disc > g) {
                        const S ave = S(0.5) * (h33 + h44);
                        const S sq = root(disc);
                        const T t = S(0) - h44 > h33 ? T(ave) - T(sq) : T(ave) + T(sq);
                        const T inv = std::fabs(t) > T(kGuard) ? T(1) / t : t;
                        h44 = std::fabs(h33) > std::fabs(h44) ? S(T(h44 * h33 - h43h34) * inv) : S(t);
                        h33 = h44;
                        h43h34 = S(0);
                    }
                } else {
                    if (disc > T(0)) {
                        disc = root(disc);
                        const T ave = T(0.5) * (h33 + h44);
                        const T sd = ave < T(0) ? -disc : disc;
                        h44 = std::fabs(h33) - std::fabs(h44) > T(0) ? (h33 * h44 - h43h34) / (sd + ave) : sd + ave;
                        h33 = h44;
                        h43h34 = T(0);
                    }
                }
            }

            // Where the double step starts: two small sub-diagonal elements.
            int m = i - 2;
            for (;; --m) {
                const S h11 = S(H(m, m)), h22 = S(H(m + 1, m + 1)), h21 = S(H(m + 1, m)), h12 = S(H(m, m + 1));
                if constexpr (M::guarded)
                    if (std::fabs(h21) <= g) break;
                const S h44s = h44 - h11, h33s = h33 - h11;
                const S a1 = (h44s * h33s - h43h34) / h21 + h12;
                const S a2 = h22 - h11 - h44s - h33s;
                const T a3 = H(m + 2, m + 1);
                const S s = S(double(std::fabs(a1)) + double(std::fabs(a2)) + double(std::fabs(a3)));
                if constexpr (M::guarded) {
                    const T inv = std::fabs(s) > g ? T(1) / T(s) : T(s);
                    y1 = T(a1) * inv, y2 = T(a2) * inv, y3 = a3 * inv;
                } else {
                    y1 = a1 / s, y2 = a2 / s, y3 = a3 / s;
                }
                if (m == l) break;
                if constexpr (M::single) {
                    const float lhs = std::fabs(float(y1)) *
                                      (std::fabs(float(H(m - 1, m - 1))) + std::fabs(h11) + std::fabs(h22));
                    const float rhs = std::fabs(float(H(m, m - 1))) * (std::fabs(float(y2)) + std::fabs(float(y3)));
                    if (C::eps * double(lhs) >= double(rhs)) break;
                } else {
                    const T lhs = T(double(C::eps) * double(std::fabs(y1)) *
                                    (double(std::fabs(H(m - 1, m - 1))) + double(std::fabs(h11)) +
                                     double(std::fabs(h22))));
                    const T rhs = T(double(std::fabs(H(m, m - 1))) * (double(std::fabs(y2)) + double(std::fabs(y3))));
                    if (lhs >= rhs) break;
                }
            }

            // Double step, k from m to i-1.
            const int colEnd = M::vectors ? n - 1 : i;
            const int rowBegin = M::vectors ? 0 : l;
            for (int k = m; k <= i - 1; ++k) {
                const int nr = std::min(3, i - k + 1);
                if (k > m) {
                    y1 = H(k, k - 1), y2 = H(k + 1, k - 1);
                    if (nr == 3) y3 = H(k + 2, k - 1);
                }
                T x[2] = {y2, y3};
                const T t1 = reflector(y1, x, nr);
                y2 = x[0], y3 = x[1];
                if (k > m) {
                    H(k, k - 1) = y1;
                    H(k + 1, k - 1) = T(0);
                    if (k < i - 1) H(k + 2, k - 1) = T(0);
                } else if (m > l) {
                    H(k, k - 1) = -H(k, k - 1);
                }
                const T t2 = t1 * y2;
                const int rowEnd = std::min(k + 3, i);
                if (nr == 3) {
                    const T t3 = t1 * y3;
                    for (int j = k; j <= colEnd; ++j) {
                        const T s = H(k, j) + y2 * H(k + 1, j) + y3 * H(k + 2, j);
                        H(k, j) = H(k, j) - s * t1;
                        H(k + 1, j) = H(k + 1, j) - s * t2;
                        H(k + 2, j) = H(k + 2, j) - s * t3;
                    }
                    for (int j = rowBegin; j <= rowEnd; ++j) {
                        const T s = H(j, k) + y2 * H(j, k + 1) + y3 * H(j, k + 2);
                        H(j, k) = H(j, k) - s * t1;
                        H(j, k + 1) = H(j, k + 1) - s * t2;
                        H(j, k + 2) = H(j, k + 2) - s * t3;
                    }
                    if constexpr (M::vectors)
                        for (int j = 0; j < n; ++j) {
                            T* zk = &z[k * n];
                            const T s = zk[j] + y2 * zk[n + j] + y3 * zk[2 * n + j];
                            zk[j] = zk[j] - s * t1;
                            zk[n + j] = zk[n + j] - s * t2;
                            zk[2 * n + j] = zk[2 * n + j] - s * t3;
                        }
                } else {
                    for (int j = k; j <= colEnd; ++j) {
                        const T s = H(k, j) + y2 * H(k + 1, j);
                        H(k, j) = H(k, j) - s * t1;
                        H(k + 1, j) = H(k + 1, j) - s * t2;
                    }
                    for (int j = rowBegin; j <= rowEnd; ++j) {
                        const T s = H(j, k) + y2 * H(j, k + 1);
                        H(j, k) = H(j, k) - s * t1;
                        H(j, k + 1) = H(j, k + 1) - s * t2;
                    }
                    if constexpr (M::vectors)
                        for (int j = 0; j < n; ++j) {
                            T* zk = &z[k * n];
                            const T s = zk[j] + y2 * zk[n + j];
                            zk[j] = zk[j] - s * t1;
                            zk[n + j] = zk[n + j] - s * t2;
                        }
                }
            }
        }
        if (l < i - 1) return kelStsNoConvergence;
        if (l == i) {
            re[i] = H(i, i);
            im[i] = T(0);
        } else {
            T a = H(i - 1, i - 1), b = H(i - 1, i), c = H(i, i - 1), dd = H(i, i);
            standardise(a, b, c, dd, cs, sn);
            if constexpr (M::vectors) {
                H(i - 1, i - 1) = a, H(i - 1, i) = b, H(i, i - 1) = c, H(i, i) = dd;
                for (int j = i + 1; j < n; ++j) rotate(H(i - 1, j), H(i, j), cs, sn);
                for (int j = 0; j < i - 1; ++j) rotate(H(j, i - 1), H(j, i), cs, sn);
                for (int j = 0; j < n; ++j) rotate(z[(i - 1) * n + j], z[i * n + j], cs, sn);
            }
            re[i - 1] = a;
            re[i] = dd;
            if (std::fabs(c) <= C::safmin) {
                im[i - 1] = T(0);
                im[i] = T(0);
            } else {
                im[i - 1] = root(std::fabs(b)) * root(std::fabs(c));
                im[i] = -im[i - 1];
            }
        }
        itn -= its;
        i = l - 1;
    }
    return kelStsNoErr;
}

}  // namespace kel::eigen
