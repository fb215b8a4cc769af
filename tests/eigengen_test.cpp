// The general eigenproblem (EigenValues, EigenValuesVectors, ...Left,
// ...Right, the scratch size queries): a plain model of the documented
// arithmetic for every kernel class, bit for bit over every member,
// description, type, size and layout and in teams; eigenvalues against
// LAPACK's dgeev and eigenvectors by their residuals; exact cases by hand;
// what a matrix that does not converge leaves behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "families.h"
#include "harness.h"

extern "C" void dgeev_(const char* jobvl, const char* jobvr, const int* n, double* a, const int* lda, double* wr,
                       double* wi, double* vl, const int* ldvl, double* vr, const int* ldvr, double* work,
                       const int* lwork, int* info);

namespace {

using namespace kt;

// ---- reference model ---------------------------------------------------------------

template <class T>
struct K;
template <>
struct K<float> {
    static constexpr float safmin = 0x1p-125f, safmin2 = 0x1p-124f, eps = 0x1p-23f, eps4 = 0x1p-21f,
                           small = 0x1p-102f, big = 0x1p124f;
};
template <>
struct K<double> {
    static constexpr double safmin = 0x1p-1021, safmin2 = 0x1p-1020, eps = 0x1p-52, eps4 = 0x1p-50,
                            small = 2.004168360008973e-292, big = 0x1p1020;
};
constexpr double kG = 0x1p-125;

template <class T>
T sq(T x)
{
    return T(std::sqrt(double(x)));
}
template <class T>
T hyp(T p, T q)
{
    T w = std::max(std::fabs(p), std::fabs(q)), z = std::min(std::fabs(p), std::fabs(q));
    return z < K<T>::safmin ? w : w * sq(z * z / (w * w) + T(1));
}

// What a call does to one object: its status, values, and the right and
// left vectors (row-major) when it succeeds.
template <class T>
struct Result {
    KelStatus status = kelStsNoErr;
    std::vector<T> re, im, right, left;
    std::vector<bool> found;  // value written
};

// The kernel classes: vectors (relative test, whole-matrix steps, Schur
// vectors), guarded shifts, single-precision temporaries (guarded 64f).
template <class T>
struct Model {
    int n;
    bool vectors, guarded, single;
    std::vector<T> H, Z;  // row-major here
    T& h(int i, int j) { return H[i * n + j]; }
    T& z(int i, int j) { return Z[i * n + j]; }

    T reflect(T& alpha, std::vector<T*> x)
    {
        if (x.empty()) return 0;
        T s = *x[0] * *x[0];
        for (size_t j = 1; j < x.size(); ++j) s = s + *x[j] * *x[j];
        T xn = sq(s);
        if (xn < K<T>::safmin) return 0;
        T r = hyp(alpha, xn);
        if (r < K<T>::safmin) r = K<T>::safmin2;
        T beta = alpha < 0 ? r : -r, tau = (beta - alpha) / beta, f = T(1) / (alpha - beta);
        for (T* p : x) *p = *p * f;
        alpha = beta;
        return tau;
    }

    Result<T> run(const std::vector<T>& a, bool right, bool left)
    {
        Result<T> res;
        res.re.assign(n, 0), res.im.assign(n, 0), res.found.assign(n, false);
        if (n == 1) {
            res.re[0] = a[0], res.found[0] = true;
            res.right = res.left = {T(1)};
            return res;
        }
        H.assign(n * n, 0);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) h(i, j) = a[j * n + i];
        // Reduction.
        std::vector<T> tau(n, 0);
        for (int k = 0; k + 1 < n; ++k) {
            std::vector<T*> x;
            for (int i = k + 2; i < n; ++i) x.push_back(&h(i, k));
            T beta = h(k + 1, k);
            T t = n - k - 1 > 1 ? reflect(beta, x) : T(0);
            tau[k] = t;
            auto v = [&](int i) { return i == 0 ? T(1) : h(k + 1 + i, k); };
            int c = n - k - 1;
            if (std::fabs(t) > K<T>::safmin) {
                for (int r = 0; r < n; ++r) {
                    T s = h(r, k + 1) * 1;
                    for (int j = 1; j < c; ++j) s = s + h(r, k + 1 + j) * v(j);
                    for (int j = 0; j < c; ++j) h(r, k + 1 + j) = h(r, k + 1 + j) - (t * v(j)) * s;
                }
                for (int col = k + 1; col < n; ++col) {
                    T s = h(k + 1, col);
                    for (int i = 1; i < c; ++i) s = s + v(i) * h(k + 1 + i, col);
                    for (int i = 0; i < c; ++i) h(k + 1 + i, col) = h(k + 1 + i, col) - t * v(i) * s;
                }
            }
            h(k + 1, k) = beta;
        }
        if (vectors) {
            Z.assign(n * n, 0);
            for (int i = 0; i < n; ++i) z(i, i) = 1;
            for (int k = n - 2; k >= 0; --k) {
                if (!(std::fabs(tau[k]) > K<T>::safmin)) continue;
                int c = n - k - 1;
                auto v = [&](int i) { return i == 0 ? T(1) : h(k + 1 + i, k); };
                for (int col = k + 1; col < n; ++col) {
                    T s = z(k + 1, col);
                    for (int i = 1; i < c; ++i) s = s + v(i) * z(k + 1 + i, col);
                    for (int i = 0; i < c; ++i) z(k + 1 + i, col) = z(k + 1 + i, col) - tau[k] * v(i) * s;
                }
            }
        }
        for (int i = 0; i < n; ++i)
            for (int j = 0; j + 1 < i; ++j) h(i, j) = 0;
        if ((res.status = iterate(res))) return res;
        if (right) res.right = substitute(res, true);
        if (left) res.left = substitute(res, false);
        return res;
    }

    // Shifts and the start m of the double step, with temporaries of type S.
    template <class S>
    int start(int i, int l, int its, T& y1, T& y2, T& y3)
    {
        S h33, h44, h43h34;
        if (its == 10 || its == 20) {
            const S s = std::fabs(S(h(i, i - 1))) + std::fabs(S(h(i - 1, i - 2)));
            h44 = S(T(0.75) * T(s) + h(i, i));
            h33 = h44;
            h43h34 = S(T(-0.4375) * T(s) * T(s));
        } else {
            h44 = S(h(i, i)), h33 = S(h(i - 1, i - 1)), h43h34 = S(h(i, i - 1) * h(i - 1, i));
            S disc = (h33 - h44) * S(0.5);
            disc = disc * disc + h43h34;
            if (guarded && disc > S(kG)) {
                const S ave = S(0.5) * (h33 + h44), sd = sq(disc);
                const T t = -h44 > h33 ? T(ave) - T(sd) : T(ave) + T(sd);
                const T inv = std::fabs(t) > T(kG) ? T(1) / t : t;
                h44 = std::fabs(h33) > std::fabs(h44) ? S(T(h44 * h33 - h43h34) * inv) : S(t);
                h33 = h44, h43h34 = 0;
            } else if (!guarded && disc > 0) {
                disc = sq(disc);
                const S ave = S(0.5) * (h33 + h44), sd = ave < 0 ? -disc : disc;
                h44 = std::fabs(h33) - std::fabs(h44) > 0 ? (h33 * h44 - h43h34) / (sd + ave) : sd + ave;
                h33 = h44, h43h34 = 0;
            }
        }
        for (int m = i - 2;; --m) {
            const S h11 = S(h(m, m)), h22 = S(h(m + 1, m + 1)), h21 = S(h(m + 1, m)), h12 = S(h(m, m + 1));
            if (guarded && std::fabs(h21) <= S(kG)) return m;
            const S h44s = h44 - h11, h33s = h33 - h11;
            const S a1 = (h44s * h33s - h43h34) / h21 + h12, a2 = h22 - h11 - h44s - h33s;
            const T a3 = h(m + 2, m + 1);
            const S s = S(double(std::fabs(a1)) + double(std::fabs(a2)) + double(std::fabs(a3)));
            if (guarded) {
                const T inv = std::fabs(s) > S(kG) ? T(1) / T(s) : T(s);
                y1 = T(a1) * inv, y2 = T(a2) * inv, y3 = a3 * inv;
            } else {
                y1 = T(a1) / T(s), y2 = T(a2) / T(s), y3 = a3 / T(s);
            }
            if (m == l) return m;
            if (single) {
                const float lhs = std::fabs(float(y1)) *
                                  (std::fabs(float(h(m - 1, m - 1))) + std::fabs(float(h11)) + std::fabs(float(h22)));
                const float rhs = std::fabs(float(h(m, m - 1))) * (std::fabs(float(y2)) + std::fabs(float(y3)));
                if (K<T>::eps * double(lhs) >= double(rhs)) return m;
            } else {
                const double lhs = double(K<T>::eps) * std::fabs(double(y1)) *
                                   (std::fabs(double(h(m - 1, m - 1))) + std::fabs(double(h11)) + std::fabs(double(h22)));
                const double rhs = std::fabs(double(h(m, m - 1))) * (std::fabs(double(y2)) + std::fabs(double(y3)));
                if (T(lhs) >= T(rhs)) return m;
            }
        }
    }

    KelStatus iterate(Result<T>& res)
    {
        T cs = 0, sn = 0, y1 = 0, y2 = 0, y3 = 0;
        const T smlnum = T(n) * K<T>::small;
        int itn = 32 * n;
        for (int i = n - 1; i >= 0;) {
            int l = 0, its = 0;
            for (; its < itn; ++its) {
                int k = i;
                for (; k >= 1; --k) {
                    T e = std::fabs(h(k, k - 1));
                    if (!vectors) {
                        if (e <= K<T>::eps) break;
                        continue;
                    }
                    T tst = std::fabs(h(k - 1, k - 1)) + std::fabs(h(k, k));
                    if (tst <= K<T>::safmin) {
                        tst = 0;
                        for (int j = l; j <= i; ++j) {
                            T s = 0;
                            for (int r = l; r <= std::min(j + 1, i); ++r) s = s + std::fabs(h(r, j));
                            tst = std::max(tst, s);
                        }
                    }
                    if (e <= std::max(K<T>::eps * tst, smlnum)) break;
                }
                l = k;
                if (l > 0) h(l, l - 1) = 0;
                if (l >= i - 1) break;
                int m = single ? start<float>(i, l, its, y1, y2, y3) : start<T>(i, l, its, y1, y2, y3);
                for (int k = m; k < i; ++k) {
                    int nr = std::min(3, i - k + 1);
                    if (k > m) {
                        y1 = h(k, k - 1), y2 = h(k + 1, k - 1);
                        if (nr == 3) y3 = h(k + 2, k - 1);
                    }
                    std::vector<T*> x{&y2};
                    if (nr == 3) x.push_back(&y3);
                    T t1 = reflect(y1, x);
                    if (k > m) {
                        h(k, k - 1) = y1, h(k + 1, k - 1) = 0;
                        if (k < i - 1) h(k + 2, k - 1) = 0;
                    } else if (m > l) {
                        h(k, k - 1) = -h(k, k - 1);
                    }
                    T t2 = t1 * y2, t3 = t1 * y3;
                    auto apply = [&](T& p, T& q, T& r) {
                        T s = nr == 3 ? p + y2 * q + y3 * r : p + y2 * q;
                        p = p - s * t1, q = q - s * t2;
                        if (nr == 3) r = r - s * t3;
                    };
                    T dummy = 0;
                    auto at = [&](std::vector<T>& A, int r, int c) -> T& { return c < n && r < n ? A[r * n + c] : dummy; };
                    for (int j = k; j <= (vectors ? n - 1 : i); ++j) apply(h(k, j), h(k + 1, j), at(H, k + 2, j));
                    for (int j = vectors ? 0 : l; j <= std::min(k + 3, i); ++j)
                        apply(h(j, k), h(j, k + 1), at(H, j, k + 2));
                    for (int j = 0; vectors && j < n; ++j) apply(z(j, k), z(j, k + 1), at(Z, j, k + 2));
                }
            }
            if (l < i - 1) return kelStsNoConvergence;
            if (l == i) {
                res.re[i] = h(i, i), res.im[i] = 0, res.found[i] = true;
            } else {
                T a = h(i - 1, i - 1), b = h(i - 1, i), c = h(i, i - 1), d = h(i, i);
                auto zero = [](T x) { return std::fabs(x) <= K<T>::safmin; };
                auto differ = [](T x, T y) { return (x < 0) != (y < 0); };
                if (zero(c)) {
                    cs = 1, sn = 0;
                } else if (zero(b)) {
                    std::swap(a, d), b = -c, c = 0, cs = 0, sn = 1;
                } else if (zero(a - d)) {
                    if (differ(b, c)) cs = 1, sn = 0;
                } else {
                    T temp = a - d, p = T(0.5) * temp;
                    T bcmax = std::max(std::fabs(b), std::fabs(c));
                    T bcmis = std::min(std::fabs(b), std::fabs(c)) * (differ(b, c) ? -1 : 1);
                    T scale = std::max(std::fabs(p), bcmax);
                    T zz = (p / scale) * p + (bcmax / scale) * bcmis;
                    if (zz >= K<T>::eps4) {
                        T w = sq(scale) * sq(zz);
                        zz = p > 0 ? p + w : p - w;
                        a = d + zz, d = d - (bcmax / zz) * bcmis;
                        T tau = hyp(c, zz);
                        cs = zz / tau, sn = c / tau, b = b - c, c = 0;
                    } else {
                        T sigma = b + c, tau = hyp(sigma, temp);
                        if (tau < K<T>::safmin) tau = K<T>::safmin2;
                        cs = sq(T(0.5) * (1 + std::fabs(sigma) / tau));
                        sn = -(p / (tau * cs)) * (sigma < 0 ? -1 : 1);
                        T aa = a * cs + b * sn, bb = -a * sn + b * cs, cc = c * cs + d * sn, dd = -c * sn + d * cs;
                        a = aa * cs + cc * sn, b = bb * cs + dd * sn, c = -aa * sn + cc * cs, d = -bb * sn + dd * cs;
                        temp = T(0.5) * (a + d), a = d = temp;
                        if (!zero(c)) {
                            if (zero(b)) {
                                b = -c, c = 0;
                            } else if (!differ(b, c)) {
                                T q = sq(std::fabs(b)) * sq(std::fabs(c));
                                if (c < 0) q = -q;
                                a = temp + q, d = temp - q, b = b - c, c = 0;
                            }
                        }
                    }
                }
                if (vectors) {
                    h(i - 1, i - 1) = a, h(i - 1, i) = b, h(i, i - 1) = c, h(i, i) = d;
                    auto rot = [&](T& x, T& y) {
                        T u = x, v = y;
                        x = cs * u + sn * v, y = cs * v - sn * u;
                    };
                    for (int j = i + 1; j < n; ++j) rot(h(i - 1, j), h(i, j));
                    for (int j = 0; j < i - 1; ++j) rot(h(j, i - 1), h(j, i));
                    for (int j = 0; j < n; ++j) rot(z(j, i - 1), z(j, i));
                }
                res.re[i - 1] = a, res.re[i] = d, res.found[i - 1] = res.found[i] = true;
                if (!zero(c)) res.im[i - 1] = sq(std::fabs(b)) * sq(std::fabs(c)), res.im[i] = -res.im[i - 1];
            }
            itn -= its;
            i = l - 1;
        }
        return kelStsNoErr;
    }

    // Eigenvectors of the Schur form by substitution (rightwards: T x = lambda x
    // from the bottom; else y^H T = lambda y^H from the top), back
    // transformed and normalised; row-major result.
    std::vector<T> substitute(const Result<T>& res, bool rightwards)
    {
        using C = std::complex<T>;
        std::vector<T> V = Z;  // V[r*n + c]
        auto t = [&](int i, int j) { return rightwards ? h(i, j) : h(j, i); };  // the system's matrix
        // Index map: the left procedure is the right one on the reversed, transposed system.
        auto ix = [&](int k) { return rightwards ? k : n - 1 - k; };
        auto tt = [&](int i, int j) { return t(ix(i), ix(j)); };
        const T smlnum = T(n) * K<T>::small;
        for (int ki = n - 1; ki >= 0; --ki) {
            bool pair = ki > 0 && std::fabs(tt(ki, ki - 1)) > K<T>::safmin;
            T wr = tt(ki, ki), wi = pair ? sq(std::fabs(tt(ki, ki - 1))) * sq(std::fabs(tt(ki - 1, ki))) : 0;
            T smin = std::max(K<T>::eps * (std::fabs(wr) + std::fabs(wi)), smlnum);
            T w = rightwards ? wi : -wi;
            std::vector<T> xr(n, 0), xi(n, 0);
            int j;
            if (!pair) {
                xr[ki] = 1;
                for (int k = 0; k < ki; ++k) xr[k] = -tt(k, ki);
                j = ki - 1;
            } else {
                if (std::fabs(tt(ki - 1, ki)) >= std::fabs(tt(ki, ki - 1))) {
                    xr[ki - 1] = rightwards ? 1 : wi / tt(ki - 1, ki);
                    xi[ki] = rightwards ? wi / tt(ki - 1, ki) : 1;
                } else {
                    xr[ki - 1] = rightwards ? -wi / tt(ki, ki - 1) : 1;
                    xi[ki] = rightwards ? 1 : -wi / tt(ki, ki - 1);
                }
                if (!rightwards) {
                    // Mirrored: the real part starts at the pair's later index.
                    xr[ki] = xr[ki - 1], xi[ki - 1] = xi[ki];
                    xr[ki - 1] = 0, xi[ki] = 0;
                }
                for (int k = 0; k < ki - 1; ++k) {
                    T r0 = rightwards ? xr[ki - 1] : xr[ki], i0 = rightwards ? xi[ki] : xi[ki - 1];
                    xr[k] = -r0 * tt(k, rightwards ? ki - 1 : ki);
                    xi[k] = -i0 * tt(k, rightwards ? ki : ki - 1);
                }
                j = ki - 2;
            }
            auto mag = [&](int k) { return pair ? std::fabs(xr[k]) + std::fabs(xi[k]) : std::fabs(xr[k]); };
            auto finish = [&](T scale, T au) {
                // Whole-vector scaling as a step chose it.
                T big = 0;
                for (int k = 0; k <= ki; ++k) big = std::max(big, mag(k));
                bool down = au > 1 && big > K<T>::big / au;
                if (down) scale = scale / au;
                if (std::fabs(scale - 1) > K<T>::safmin)
                    for (int k = 0; k <= ki; ++k) xr[k] = xr[k] * scale, xi[k] = pair ? xi[k] * scale : xi[k];
                return down;
            };
            auto cdiv = [](T a, T b, T c, T d, T& e, T& f) {
                if (std::fabs(c) >= std::fabs(d)) {
                    T r = d / c, den = c + d * r;
                    e = (a + b * r) / den, f = (b - a * r) / den;
                } else {
                    T r = c / d, den = d + c * r;
                    e = (a * r + b) / den, f = (b * r - a) / den;
                }
            };
            while (j >= 0) {
                if (j > 0 && std::fabs(tt(j, j - 1)) > K<T>::safmin) {
                    // Two unknowns, full pivoting on |re| + |im|.
                    T cr[2][2] = {{tt(j - 1, j - 1) - wr, tt(j - 1, j)}, {tt(j, j - 1), tt(j, j) - wr}};
                    T ci[2][2] = {{-w, 0}, {0, -w}};
                    T br[2] = {xr[j - 1], xr[j]}, bi[2] = {pair ? xi[j - 1] : T(0), pair ? xi[j] : T(0)};
                    int pr = 0, pc = 0;
                    T cmax = std::fabs(cr[0][0]) + std::fabs(ci[0][0]);
                    for (int r = 0; r < 2; ++r)
                        for (int s = 0; s < 2; ++s)
                            if (std::fabs(cr[r][s]) + std::fabs(ci[r][s]) > cmax)
                                cmax = std::fabs(cr[r][s]) + std::fabs(ci[r][s]), pr = r, pc = s;
                    int o = 1 - pr, oc = 1 - pc;
                    T pvr = cr[pr][pc], pvi = ci[pr][pc];
                    if (cmax < smin) pvr = smin, pvi = 0;
                    T lr, li;
                    cdiv(cr[o][pc], ci[o][pc], pvr, pvi, lr, li);
                    T ur = cr[o][oc] - (lr * cr[pr][oc] - li * ci[pr][oc]);
                    T ui = ci[o][oc] - (lr * ci[pr][oc] + li * cr[pr][oc]);
                    if (std::fabs(ur) + std::fabs(ui) < smin) ur = smin, ui = 0;
                    T b2r = br[o] - (lr * br[pr] - li * bi[pr]), b2i = bi[o] - (lr * bi[pr] + li * br[pr]);
                    T un = std::fabs(ur) + std::fabs(ui), bn = std::fabs(b2r) + std::fabs(b2i), scale = 1;
                    if (un < 1 && bn > 1 && bn > K<T>::big * un) scale = 1 / bn;
                    T qr, qi, pr_, pi_;
                    cdiv(scale * b2r, scale * b2i, ur, ui, qr, qi);
                    cdiv(scale * br[pr] - (cr[pr][oc] * qr - ci[pr][oc] * qi),
                         scale * bi[pr] - (cr[pr][oc] * qi + ci[pr][oc] * qr), pvr, pvi, pr_, pi_);
                    T au = std::max(std::fabs(pr_) + std::fabs(pi_), std::fabs(qr) + std::fabs(qi));
                    if (finish(scale, au)) pr_ /= au, pi_ /= au, qr /= au, qi /= au;
                    int up = pc == 0 ? j - 1 : j, uo = pc == 0 ? j : j - 1;
                    xr[up] = pr_, xr[uo] = qr;
                    if (pair) xi[up] = pi_, xi[uo] = qi;
                    for (int k = 0; k < j - 1; ++k) {
                        xr[k] = xr[k] - xr[j - 1] * tt(k, j - 1) - xr[j] * tt(k, j);
                        if (pair) xi[k] = xi[k] - xi[j - 1] * tt(k, j - 1) - xi[j] * tt(k, j);
                    }
                    j -= 2;
                    continue;
                }
                T tr = tt(j, j) - wr, scale = 1;
                if (!pair) {
                    if (std::fabs(tr) < smin) tr = smin;
                    T b = xr[j];
                    if (std::fabs(tr) < 1 && std::fabs(b) > 1 && std::fabs(b) > K<T>::big * std::fabs(tr))
                        scale = 1 / std::fabs(b);
                    T u = (scale * b) / tr, au = std::fabs(u);
                    if (finish(scale, au)) u = u / au;
                    xr[j] = u;
                } else {
                    T ti = -w;
                    if (std::fabs(tr) + std::fabs(ti) < smin) tr = smin, ti = 0;
                    T cn = std::fabs(tr) + std::fabs(ti), bn = std::fabs(xr[j]) + std::fabs(xi[j]);
                    if (cn < 1 && bn > 1 && bn > K<T>::big * cn) scale = 1 / bn;
                    T ur, ui;
                    cdiv(scale * xr[j], scale * xi[j], tr, ti, ur, ui);
                    T au = std::fabs(ur) + std::fabs(ui);
                    if (finish(scale, au)) ur = ur / au, ui = ui / au;
                    xr[j] = ur, xi[j] = ui;
                }
                for (int k = 0; k < j; ++k) {
                    xr[k] = xr[k] - xr[j] * tt(k, j);
                    if (pair) xi[k] = xi[k] - xi[j] * tt(k, j);
                }
                j -= 1;
            }
            // Back transformation: columns ix(ki) (and its partner).
            for (int r = 0; r < n; ++r) {
                auto v = [&](int c) -> T& { return V[r * n + ix(c)]; };
                auto sum = [&](const std::vector<T>& x, int last, int own) {
                    T s = x[own] * v(own);
                    if (last < 0) return s;
                    T acc = v(0) * x[0];
                    for (int c = 1; c <= last; ++c) acc = acc + v(c) * x[c];
                    return acc + s;
                };
                if (!pair) {
                    v(ki) = sum(xr, ki - 1, ki);
                } else {
                    // Real part at the pair's first index, imaginary at its second.
                    int first = rightwards ? ki - 1 : ki, second = rightwards ? ki : ki - 1;
                    T re = sum(xr, ki - 2, first), imv = sum(xi, ki - 2, second);
                    v(first) = re, v(second) = imv;
                }
            }
            if (pair) --ki;
        }
        // Normalisation.
        for (int j = 0; j < n;) {
            auto r = [&](int k) -> T& { return V[k * n + j]; };
            if (std::fabs(res.im[j]) <= K<T>::safmin) {
                T s = r(0) * r(0);
                for (int k = 1; k < n; ++k) s = s + r(k) * r(k);
                if (std::fabs(s) > K<T>::safmin)
                    for (int k = 0; k < n; ++k) r(k) = r(k) * (1 / sq(s));
                ++j;
                continue;
            }
            auto q = [&](int k) -> T& { return V[k * n + j + 1]; };
            T sr = r(0) * r(0), sq_ = q(0) * q(0);
            for (int k = 1; k < n; ++k) sr = sr + r(k) * r(k), sq_ = sq_ + q(k) * q(k);
            T f = 1 / sq(sr + sq_);
            for (int k = 0; k < n; ++k) r(k) = r(k) * f, q(k) = q(k) * f;
            int m = 0;
            for (int k = 1; k < n; ++k)
                if (r(k) * r(k) + q(k) * q(k) > r(m) * r(m) + q(m) * q(m)) m = k;
            T hh = sq(r(m) * r(m) + q(m) * q(m)), c = r(m) / hh, s = q(m) / hh;
            if (std::fabs(r(m)) > std::fabs(q(m)) && c < 0) c = -c, s = -s;
            for (int k = 0; k < n; ++k) {
                T a = r(k), b = q(k);
                r(k) = c * a + s * b, q(k) = c * b - s * a;
            }
            j += 2;
        }
        (void)sizeof(C);
        return V;
    }
};

// ---- members and their operands ---------------------------------------------------

bool valuesOnly(const Member& m) { return m.family == "EigenValues"; }

int groupOf(const Member& m, const std::string& prefix)
{
    for (size_t k = 0; k < m.groups.size(); ++k)
        if (m.groups[k].prefix == prefix) return static_cast<int>(k);
    return -1;
}

int sizeOf(const Case& s) { return s.sizes.at("size"); }

template <class T>
Model<T> modelOf(const Member& m, int n)
{
    const bool vectors = !valuesOnly(m);
    const bool guarded = vectors && !(m.family == "EigenValuesVectors" && !m.array && m.elem == 8);
    return Model<T>{n, vectors, guarded, guarded && m.elem == 8, {}, {}};
}


Shape eigenShape(const Member& m, const GroupInfo& g, const Sizes& sizes)
{
    const int n = sizes.at("size");
    const int count = sizes.count("count") ? sizes.at("count") : 1;
    if (g.kind == "piv") return {1, 1, 1};
    if (g.kind == "buf") return {1, 1, n * ((valuesOnly(m) ? 1 : 3) * n + 5)};
    if (g.kind == "out") return {count, 1, n};
    return {g.kind == "ma" ? count : 1, n, n};
}

KT_FAMILY("EigenValues", FamilyHooks{eigenShape, {}, {}, {}});
KT_FAMILY("EigenValuesVectors", FamilyHooks{eigenShape, {}, {}, {}});
KT_FAMILY("EigenValuesVectorsLeft", FamilyHooks{eigenShape, {}, {}, {}});
KT_FAMILY("EigenValuesVectorsRight", FamilyHooks{eigenShape, {}, {}, {}});
KT_FAMILY("EigenValuesGetBufSize", FamilyHooks{eigenShape, {}, {}, {}});
KT_FAMILY("EigenValuesVectorsGetBufSize", FamilyHooks{eigenShape, {}, {}, {}});

// ---- expected results --------------------------------------------------------------

Blocks serialBlocks(const Case& s)
{
    return {{0, s.sizes.count("count") ? s.sizes.at("count") : 1}};
}
// Runs the case as the given serial blocks would: each stops at its first
// failing object, whose finished values stay and whose vectors are not
// written.
void checkCase(const Case& s, const Blocks& blocks)
{
    const Member& m = *s.m;
    const int n = sizeOf(s), re = groupOf(m, "dstValuesRe"), im = groupOf(m, "dstValuesIm");
    const int right = groupOf(m, m.family == "EigenValuesVectors" ? "dstRight" : "dst");
    const int left = groupOf(m, m.family == "EigenValuesVectors" ? "dstLeft" : "dst");
    const bool wantRight = !valuesOnly(m) && m.family != "EigenValuesVectorsLeft";
    const bool wantLeft = !valuesOnly(m) && m.family != "EigenValuesVectorsRight";
    Expected e(s);
    e.check(byElem(m, [&](auto t) {
        using T = decltype(t);
        KelStatus status = kelStsNoErr;
        for (auto [first, count] : blocks)
            for (int obj = first; obj < first + count; ++obj) {
                Result<T> r = modelOf<T>(m, n).run(objectOf<T>(s.ops[0], obj), wantRight, wantLeft);
                for (int k = 0; k < n; ++k)
                    if (r.found[k]) {
                        e.put(re, obj, 0, k, toBits(r.re[k], sizeof(T)));
                        e.put(im, obj, 0, k, toBits(r.im[k], sizeof(T)));
                    }
                if (r.status) {
                    status = status ? status : r.status;
                    break;
                }
                for (int k = 0; k < n * n; ++k) {
                    if (wantRight) e.put(right, obj, k / n, k % n, toBits(r.right[k], sizeof(T)));
                    if (wantLeft) e.put(left, obj, k / n, k % n, toBits(r.left[k], sizeof(T)));
                }
            }
        return status;
    }));
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

const std::vector<std::string> kFamilies = {"EigenValues", "EigenValuesVectors", "EigenValuesVectorsLeft",
                                            "EigenValuesVectorsRight"};

class General : public ::testing::TestWithParam<std::string> {};

// Orders 1 to 9 (the straight-line orders and the general loop on both
// sides), one to five objects, every layout.
TEST_P(General, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    std::vector<Sizes> shapes;
    for (int n = 1; n <= 9; ++n) shapes.push_back({{"size", n}});
    sweep(m, withCounts(m, shapes), everyForm(), 1, [](Case& s) { checkCase(s, serialBlocks(s)); });
}

// Arrays past the limit give the serial bits in teams of every size, and
// leave the caller's scratch alone when a team forms.  With matrices that
// never converge (a NaN) a serial call ends at the first, while in a team
// each thread stops at its own first failure.
TEST_P(General, TeamsOfEverySize)
{
    const Member& m = member(GetParam());
    if (!m.array) GTEST_SKIP() << "single object";
    for (int n : {2, 4, 7})
        for (bool fail : {false, true})
            forEachTeamSize([&](int threads) {
                if (fail && n < 3) return;  // a 2x2 block is standardised without iterating
                const int count = 60;
                Case s = makeCase(m, {{"size", n}, {"count", count}}, Layout{Form::Random}, 40 + threads + n);
                if (fail)
                    for (int bad : {3, 41}) s.ops[0].set(bad, n - 1, 0, std::numeric_limits<double>::quiet_NaN());
                checkCase(s, fail && threads > 1 ? teamBlocks(count, threads) : serialBlocks(s));
            });
}

INSTANTIATE_TEST_SUITE_P(All, General, ::testing::ValuesIn(memberNames(kFamilies)), paramName);

// ---- properties on random matrices -------------------------------------------------

using Cx = std::complex<double>;

std::vector<Cx> lapackValues(std::vector<double> a, int n)
{
    // Column-major for LAPACK: the row-major matrix's transpose, same values.
    std::vector<double> wr(n), wi(n), work(8 * n);
    const int lwork = 8 * n, one = 1;
    int info = 0;
    dgeev_("N", "N", &n, a.data(), &n, wr.data(), wi.data(), nullptr, &one, nullptr, &one, work.data(), &lwork, &info);
    std::vector<Cx> out;
    for (int k = 0; k < n; ++k) out.emplace_back(wr[k], wi[k]);
    return out;
}

// Every value has a partner in `want` within tol, each partner used once.
void expectSameValues(std::vector<Cx> got, std::vector<Cx> want, double tol, const std::string& what)
{
    for (const Cx& g : got) {
        auto best = std::min_element(want.begin(), want.end(),
                                     [&](const Cx& a, const Cx& b) { return std::abs(a - g) < std::abs(b - g); });
        ASSERT_LE(std::abs(*best - g), tol) << what << " value " << g;
        want.erase(best);
    }
}

// Eigenvalues against dgeev; each vector against its defining equation:
// transpose(A) v = lambda v for Right, A v = lambda v for Left (a complex
// pair's left vector r - iq, so A (r + iq) = conj(lambda) (r + iq)); unit
// length, a complex vector's largest component real.
TEST(GeneralProperties, ValuesAsLapackAndVectorsSolveTheirEquations)
{
    std::mt19937 rng(5);
    for (const char* type : {"32f", "64f"})
        for (int n = 2; n <= 9; ++n)
            for (int trial = 0; trial < 20; ++trial) {
                const Member& m = member(std::string("kelmEigenValuesVectors_m_") + type);
                Case s = makeCase(m, {{"size", n}}, Layout{Form::Packed}, 1000 + trial + 50 * n);
                std::vector<double> a(n * n);
                for (int k = 0; k < n * n; ++k) {
                    a[k] = std::uniform_real_distribution<double>(-1, 1)(rng);
                    if (m.elem == 4) a[k] = float(a[k]);
                    s.ops[0].set(0, k / n, k % n, a[k]);
                }
                ASSERT_EQ(s.run(), kelStsNoErr) << type << " " << n;
                const double eps = m.elem == 4 ? 1.2e-7 : 2.3e-16, tol = 200 * n * eps;
                const int reG = groupOf(m, "dstValuesRe"), imG = reG + 1;
                std::vector<Cx> values;
                for (int k = 0; k < n; ++k) values.emplace_back(s.ops[reG].get(0, 0, k), s.ops[imG].get(0, 0, k));
                expectSameValues(values, lapackValues(a, n), tol * 4, std::string(type) + " n=" + std::to_string(n));
                for (int side = 0; side < 2; ++side) {
                    const Operand& v = s.ops[groupOf(m, side == 0 ? "dstRight" : "dstLeft")];
                    for (int j = 0; j < n; ++j) {
                        const bool pair = values[j].imag() != 0;
                        const Cx lambda = side == 1 && pair ? std::conj(values[j]) : values[j];
                        const int jr = pair && values[j].imag() < 0 ? j - 1 : j;  // the stored pair
                        const double sign = pair && values[j].imag() < 0 ? -1 : 1;
                        std::vector<Cx> x(n);
                        double norm = 0;
                        for (int r = 0; r < n; ++r) {
                            x[r] = Cx(v.get(0, r, jr), pair ? sign * v.get(0, r, jr + 1) : 0);
                            norm += std::norm(x[r]);
                        }
                        EXPECT_NEAR(norm, 1, tol) << type << " n=" << n << " side " << side << " column " << j;
                        for (int r = 0; r < n; ++r) {
                            Cx ax = 0;
                            for (int c = 0; c < n; ++c) ax += (side == 0 ? a[c * n + r] : a[r * n + c]) * x[c];
                            EXPECT_LE(std::abs(ax - lambda * x[r]), tol * 4)
                                << type << " n=" << n << " side " << side << " column " << j << " row " << r;
                        }
                        if (pair) {
                            // The largest component (to rounding) is real.
                            double top = 0, imag = 1;
                            for (int r = 0; r < n; ++r) top = std::max(top, std::norm(x[r]));
                            for (int r = 0; r < n; ++r)
                                if (std::norm(x[r]) >= top * (1 - 1e-4)) imag = std::min(imag, std::fabs(x[r].imag()));
                            EXPECT_LE(imag, tol) << type << " n=" << n << " column " << j;
                        }
                        if (HasFailure()) return;
                    }
                }
            }
}

// ---- documented cases by hand ------------------------------------------------------

// One packed matrix through kelmEigenValuesVectors_m and kelmEigenValues_m:
// values (both must agree here), right and left vectors.
struct Solved {
    std::vector<Cx> values;
    std::vector<double> right, left;  // row-major
};
Solved solve(const std::string& type, const std::vector<double>& a, int n)
{
    Solved out;
    const Member& m = member("kelmEigenValuesVectors_m_" + type);
    const Member& mv = member("kelmEigenValues_m_" + type);
    Case s = makeCase(m, {{"size", n}}, Layout{Form::Packed}, 7), sv = makeCase(mv, {{"size", n}}, Layout{Form::Packed}, 7);
    for (int k = 0; k < n * n; ++k) s.ops[0].set(0, k / n, k % n, a[k]), sv.ops[0].set(0, k / n, k % n, a[k]);
    EXPECT_EQ(s.run(), kelStsNoErr);
    EXPECT_EQ(sv.run(), kelStsNoErr);
    const int re = groupOf(m, "dstValuesRe"), rv = groupOf(mv, "dstValuesRe");
    for (int k = 0; k < n; ++k) {
        out.values.emplace_back(s.ops[re].get(0, 0, k), s.ops[re + 1].get(0, 0, k));
        EXPECT_EQ(out.values[k], Cx(sv.ops[rv].get(0, 0, k), sv.ops[rv + 1].get(0, 0, k))) << type << " value " << k;
    }
    for (int k = 0; k < n * n; ++k) {
        out.right.push_back(s.ops[groupOf(m, "dstRight")].get(0, k / n, k % n));
        out.left.push_back(s.ops[groupOf(m, "dstLeft")].get(0, k / n, k % n));
    }
    return out;
}

TEST(GeneralByHand, ExactCases)
{
    for (std::string type : {"32f", "64f"}) {
        const double r2 = type == "32f" ? double(std::sqrt(2.0f) * std::sqrt(2.0f)) : std::sqrt(2.0) * std::sqrt(2.0);
        // Order 1: the element and the vector 1, also for zero.
        for (double v : {0.0, -3.5}) {
            Solved o = solve(type, {v}, 1);
            EXPECT_EQ(o.values[0], Cx(v, 0));
            EXPECT_EQ(o.right[0], 1.0);
            EXPECT_EQ(o.left[0], 1.0);
        }
        // Diagonal: the diagonal in order, coordinate vectors.
        Solved d = solve(type, {1, 0, 0, 0, -2, 0, 0, 0, 3}, 3);
        EXPECT_EQ(d.values, (std::vector<Cx>{1, -2, 3}));
        for (int k = 0; k < 9; ++k) {
            EXPECT_EQ(std::fabs(d.right[k]), k % 4 == 0 ? 1.0 : 0.0) << type << " " << k;
            EXPECT_EQ(std::fabs(d.left[k]), k % 4 == 0 ? 1.0 : 0.0) << type << " " << k;
        }
        // Rotation by 90 degrees: +i first; the vector's largest component real.
        Solved rot = solve(type, {0, -1, 1, 0}, 2);
        EXPECT_EQ(rot.values, (std::vector<Cx>{{0, 1}, {0, -1}}));
        for (auto* v : {&rot.right, &rot.left}) {
            EXPECT_NEAR(std::hypot((*v)[0], (*v)[1]), std::sqrt(0.5), 1e-6);
            EXPECT_TRUE((*v)[1] == 0 || (*v)[3] == 0) << type;
        }
        // Equal diagonal, b and c of one sign: reported as the pair 1 +- 2i.
        EXPECT_EQ(solve(type, {1, 2, 2, 1}, 2).values, (std::vector<Cx>{{1, r2}, {1, -r2}}));
        // Upper triangular: Right solves transpose(A) v = 2v, Left A v = 2v.
        Solved t = solve(type, {1, 1, 0, 2}, 2);
        const int j = t.values[0].real() == 2 ? 0 : 1;
        EXPECT_EQ(t.values[j], Cx(2, 0));
        EXPECT_NEAR(std::fabs(t.right[0 * 2 + j]), 0, 1e-7);
        EXPECT_NEAR(std::fabs(t.right[1 * 2 + j]), 1, 1e-7);
        EXPECT_NEAR(t.left[0 * 2 + j], t.left[1 * 2 + j], 1e-7);
        EXPECT_NEAR(std::fabs(t.left[0 * 2 + j]), std::sqrt(0.5), 1e-7);
        // Jordan block, singular matrix, identity: real values, status 0.
        EXPECT_EQ(solve(type, {2, 1, 0, 2}, 2).values, (std::vector<Cx>{2, 2}));
        Solved sing = solve(type, {1, 2, 2, 4}, 2);
        EXPECT_NEAR(std::min(std::abs(sing.values[0]), std::abs(sing.values[1])), 0, 1e-6);
        EXPECT_NEAR(std::max(std::abs(sing.values[0]), std::abs(sing.values[1])), 5, 1e-5);
        EXPECT_EQ(solve(type, {1, 0, 0, 0, 1, 0, 0, 0, 1}, 3).values, (std::vector<Cx>{1, 1, 1}));
        // A NaN never splits off: the budget runs out, nothing is found.
        {
            const Member& m = member("kelmEigenValues_m_" + type);
            Case s = makeCase(m, {{"size", 3}}, Layout{Form::Packed}, 3);
            for (int k = 0; k < 9; ++k) s.ops[0].set(0, k / 3, k % 3, std::numeric_limits<double>::quiet_NaN());
            Expected e(s);
            e.check(kelStsNoConvergence);
        }
        // Companion matrix of x^3 - 1: 1 and a complex pair, positive part first.
        Solved c = solve(type, {0, 0, 1, 1, 0, 0, 0, 1, 0}, 3);
        expectSameValues(c.values, {{1, 0}, {-0.5, std::sqrt(0.75)}, {-0.5, -std::sqrt(0.75)}}, 1e-5, type);
        for (int k = 0; k + 1 < 3; ++k)
            if (c.values[k].imag() != 0) {
                EXPECT_GT(c.values[k].imag(), 0);
                EXPECT_EQ(c.values[k + 1], std::conj(c.values[k]));
                ++k;
            }
    }
}

// Past the orders that work on the stack, the caller's scratch holds the
// work: the model's bits, and no byte written past the reported size.
TEST(GeneralByHand, LargeOrdersWorkInTheCallersScratch)
{
    const int n = 40;
    std::mt19937 rng(9);
    std::vector<double> a(n * n), re(n), im(n), right(n * n), left(n * n);
    for (double& x : a) x = std::uniform_real_distribution<double>(-1, 1)(rng);
    int bytes = 0;
    ASSERT_EQ(kelmEigenValuesVectorsGetBufSize_64f(n, &bytes), kelStsNoErr);
    std::vector<double> buf(bytes / 8 + 4, -7.0);
    ASSERT_EQ(kelmEigenValuesVectors_m_64f(a.data(), 8 * n, 8, right.data(), 8 * n, 8, left.data(), 8 * n, 8, re.data(),
                                           im.data(), n, buf.data()),
              kelStsNoErr);
    for (size_t k = bytes / 8; k < buf.size(); ++k) EXPECT_EQ(buf[k], -7.0);
    const Result<double> want = Model<double>{n, true, false, false, {}, {}}.run(a, true, true);
    ASSERT_EQ(want.status, kelStsNoErr);
    EXPECT_EQ(re, want.re);
    EXPECT_EQ(im, want.im);
    EXPECT_EQ(right, want.right);
    EXPECT_EQ(left, want.left);
}

TEST(GeneralByHand, BufferSizes)
{
    int size = -1;
    EXPECT_EQ(kelmEigenValuesGetBufSize_32f(3, &size), kelStsNoErr);
    EXPECT_EQ(size, 96);
    EXPECT_EQ(kelmEigenValuesGetBufSize_64f(3, &size), kelStsNoErr);
    EXPECT_EQ(size, 192);
    EXPECT_EQ(kelmEigenValuesVectorsGetBufSize_32f(3, &size), kelStsNoErr);
    EXPECT_EQ(size, 168);
    EXPECT_EQ(kelmEigenValuesVectorsGetBufSize_64f(3, &size), kelStsNoErr);
    EXPECT_EQ(size, 336);
    // 32-bit arithmetic: 30000 * 90005 * 8 wraps.
    EXPECT_EQ(kelmEigenValuesVectorsGetBufSize_64f(30000, &size), kelStsNoErr);
    EXPECT_EQ(size, int32_t(uint32_t(30000) * 90005u * 8u));
    size = 7;
    EXPECT_EQ(kelmEigenValuesGetBufSize_32f(0, &size), kelStsBadSize);
    EXPECT_EQ(kelmEigenValuesVectorsGetBufSize_64f(-1, &size), kelStsBadSize);
    EXPECT_EQ(kelmEigenValuesVectorsGetBufSize_64f(0, nullptr), kelStsNullPointer);
    EXPECT_EQ(size, 7);
}

// Values that reach the matrices of later objects, or the real parts' run
// over the imaginary parts': each object reads what the objects before it
// wrote, and each run holds what was stored last, as calls of one object
// each in turn do (objects taken several at a time would read first and
// store in another order).
TEST(GeneralByHand, ValuesOverMatricesAndOverEachOther)
{
    forceThreads(1);
    const int count = 9;
    for (int n : {3, 6})
        for (bool overMatrices : {true, false}) {
            const int row = 8 * n, obj = n * row;
            std::mt19937 rng(n);
            std::vector<double> mem((count + 2) * n * n + count * n + 1), buf(n * (n + 5));
            for (double& x : mem) x = std::uniform_real_distribution<double>(-2, 2)(rng);
            // Real parts over the matrices from object 1 on, imaginary parts
            // after them; or both runs past the matrices, one element apart.
            auto call = [&](std::vector<double>& m, int first, int objects) {
                double* re = m.data() + (overMatrices ? n * n : (count + 2) * n * n) + first * n;
                double* im = overMatrices ? m.data() + (count + 2) * n * n + first * n : re + 1;
                return kelmEigenValues_ma_64f(m.data() + first * n * n, obj, row, 8, re, im, n, objects, buf.data());
            };
            std::vector<double> want = mem;
            KelStatus st = kelStsNoErr;
            for (int k = 0; k < count && !st; ++k) st = call(want, k, 1);
            EXPECT_EQ(call(mem, 0, count), st);
            EXPECT_EQ(std::memcmp(mem.data(), want.data(), mem.size() * 8), 0) << n << (overMatrices ? " over matrices" : "");
        }
    forceThreads(0);
}

// Matrices already triangular, with -0.0 on the diagonal, beside matrices
// that iterate: objects taken several at a time must leave the waiting ones
// exactly as they were, signs of zeros included.
TEST(GeneralByHand, WaitingObjectsKeepTheirZerosSigns)
{
    const int count = 8;
    for (int n = 3; n <= 6; ++n) {
        std::mt19937 rng(n);
        std::vector<double> a(count * n * n), buf(n * (n + 5));
        for (double& x : a) x = std::uniform_real_distribution<double>(-2, 2)(rng);
        for (int k : {1, 6})
            for (int r = 0; r < n; ++r)
                for (int c = r; c < n; ++c) a[k * n * n + r * n + c] = c > r ? 0.0 : (r % 2 ? double(r) : -0.0);
        std::vector<double> re(count * n), im(count * n), wantRe(count * n), wantIm(count * n);
        const int row = 8 * n, obj = n * row;
        ASSERT_EQ(kelmEigenValues_ma_64f(a.data(), obj, row, 8, re.data(), im.data(), n, count, buf.data()), kelStsNoErr);
        for (int k = 0; k < count; ++k)
            ASSERT_EQ(kelmEigenValues_ma_64f(a.data() + k * n * n, obj, row, 8, wantRe.data() + k * n,
                                             wantIm.data() + k * n, n, 1, buf.data()),
                      kelStsNoErr);
        EXPECT_EQ(std::memcmp(re.data(), wantRe.data(), re.size() * 8), 0) << n;
        EXPECT_EQ(std::memcmp(im.data(), wantIm.data(), im.size() * 8), 0) << n;
        EXPECT_TRUE(std::signbit(re[n])) << n;
    }
}

}  // namespace
