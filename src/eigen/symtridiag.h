// The symmetric eigenproblem shared by EigenValuesSym and
// EigenValuesVectorsSym: Householder reduction to tridiagonal form, shifted
// QL (or its mirror, QR) steps, a singularity test on the product of the
// values and a selection sort.
//
// The working copy A of the matrix lives in the caller's pBuffer (a
// thread's slice of the team block in a team), row-major and contiguous.
// The values' run in dstValues first holds the Householder vector of the
// current step.  Vectors are accumulated in place in the destination
// matrix.  A, the values' run and the scratch may sit at any multiple of 4
// bytes, so they are read and written through byte-addressed accessors.
//
// The kernels of the two families differ in arithmetic and tolerances, by
// member and even by packed or strided kernel; SymRules below is that table.
// Everything else is one algorithm.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "frame/cursor.h"
#include "frame/frame.h"
#include "frame/lanesum.h"
#include "frame/view.h"

namespace kel::eigen {

inline constexpr double kEps32 = 1.1920928955078125e-07;  // 2^-23
inline constexpr double kEps64 = 2.220446049250313e-16;   // 2^-52
inline constexpr int kMaxPasses = 30;                      // QL passes for one value

// Arithmetic and tolerances of one kernel: element type T, with or without
// vectors, single matrix or array, description D and path W of the call.
//   Work         type of all arithmetic; the 32-bit array kernels with
//                vectors widen every element they read and round every store
//   eps          trace, split, shift, rotation and (by default) all tests
//   epsDet       size 2: |det| at or below it is singular
//   epsReduce    the reduction's tests (skip tests, sign dead zone, vtv)
//   epsSingular  the final test on the product of the values
//   skipTests    array kernels pass over a step whose column is already
//                reduced (s <= eps, |norm - a| <= eps)
//   reciprocal   rotations through 1/r: vectors are scaled by it first
//   laneSums     the right application's row sums run in 128-bit lanes
//   testAfterSort  singularity is reported with a complete sorted result
//   groups       arrays whose arithmetic is 64-bit with sums in order may go
//                several objects at a time (symlanes.h)
template <class T, bool Vectors, bool Array, Desc D, Path W>
struct SymRules {
    static constexpr bool k32 = std::is_same<T, float>::value;
    using Work = std::conditional_t<k32 && Vectors && Array, double, T>;
    static constexpr bool packed = W == Path::Rows;
    static constexpr Work eps = Work(k32 ? kEps32 : kEps64);
    // The packed kernel of the 32-bit value array over S tests a 2 x 2
    // determinant with the 64-bit tolerance; the packed kernel of the 32-bit
    // vector array over L reduces with it.
    static constexpr Work epsDet = k32 && !Vectors && Array && D == Desc::S && packed ? Work(kEps64) : eps;
    static constexpr Work epsReduce = k32 && Vectors && Array && D == Desc::L && packed ? Work(kEps64) : eps;
    // The 64-bit vector arrays judge singularity with the 32-bit tolerance.
    static constexpr Work epsSingular = !k32 && Vectors && Array ? Work(kEps32) : eps;
    static constexpr bool skipTests = Array;
    static constexpr bool reciprocal = Vectors && Array;
    static constexpr bool laneSums = k32 && !Vectors;
    static constexpr bool groups = Array && std::is_same<Work, double>::value && !laneSums;
    // Single matrices with vectors sort before they test, except the strided
    // kernel of the 32-bit S member.
    static constexpr bool testAfterSort = Vectors && !Array && !(k32 && D == Desc::S && W == Path::Strided);
};

// Square root of the value widened to 64 bits, rounded back to the work type.
template <class C>
inline C root(C x)
{
    return C(std::sqrt(double(x)));
}

// Elements of type T from a byte address, k-th at p + k * sizeof(T).
template <class T>
struct Run {
    unsigned char* p;
    T operator[](int32_t k) const { return load<T>(p + static_cast<int64_t>(k) * sizeof(T)); }
    void set(int32_t k, T v) const { store<T>(p + static_cast<int64_t>(k) * sizeof(T), v); }
    T* at(int32_t k) const { return reinterpret_cast<T*>(p + static_cast<int64_t>(k) * sizeof(T)); }
};

// Sum over k < len of row[k] * v[k]: ascending from zero, or the lane sum
// aligned on the row of A where the rules ask for it.
template <class R, class T>
inline typename R::Work rowDot(const Run<T>& row, const Run<T>& v, int32_t len)
{
    using C = typename R::Work;
    if constexpr (R::laneSums) {
        return laneDot(v.at(0), row.at(0), len);
    } else {
        C sum = C(0);
        for (int32_t k = 0; k < len; ++k) sum = sum + C(row[k]) * C(v[k]);
        return sum;
    }
}

// The tridiagonal part of A: d(i) = A[i][i], e(i) = A[i+1][i].  Orders known
// when compiling copy it out of A (nothing reads A after the reduction);
// others work in A itself.
template <class T, int N>
struct Tridiag {
    T dv[N], ev[N];
    Tridiag(const Run<T>& a, int32_t)
    {
        for (int i = 0; i < N; ++i) dv[i] = a[i * (N + 1)];
        for (int i = 0; i + 1 < N; ++i) ev[i] = a[(i + 1) * N + i];
    }
    T d(int32_t i) const { return dv[i]; }
    T e(int32_t i) const { return ev[i]; }
    void setD(int32_t i, T v) { dv[i] = v; }
    void setE(int32_t i, T v) { ev[i] = v; }
};
template <class T>
struct Tridiag<T, 0> {
    Run<T> a;
    int32_t n;
    Tridiag(const Run<T>& work, int32_t order) : a(work), n(order) {}
    T d(int32_t i) const { return a[i * (n + 1)]; }
    T e(int32_t i) const { return a[(i + 1) * n + i]; }
    void setD(int32_t i, T v) { a.set(i * (n + 1), v); }
    void setE(int32_t i, T v) { a.set((i + 1) * n + i, v); }
};

// Stands in for the destination matrix in the value kernels.
struct NoVectors {
    template <class T>
    T get(int32_t, int32_t) const
    {
        return T(0);
    }
    template <class T>
    void put(int32_t, int32_t, T) const
    {
    }
};

// One object: src and vec are cursors (vec may be NoVectors), a the
// scratch, w the object's run of dstValues.  N is the order when known at
// compile time, else 0 and n gives it.
template <class R, int N, class T, class S, class V>
KelStatus symObject(int32_t order, const S& src, Run<T> a, Run<T> w, const V& vec)
{
    using C = typename R::Work;
    constexpr bool kVec = !std::is_same<V, NoVectors>::value;
    const int32_t n = N ? N : order;
    auto getV = [&](int32_t j, int32_t i) -> C {
        if constexpr (kVec) return C(vec.get(j, i));
        else return C(0);
    };
    auto putV = [&](int32_t j, int32_t i, C x) {
        if constexpr (kVec) vec.put(j, i, T(x));
    };
    auto A = [&](int32_t j, int32_t i) -> C { return C(a[j * n + i]); };
    auto setA = [&](int32_t j, int32_t i, C x) { a.set(j * n + i, T(x)); };

    // ---- sizes 1 and 2 ---------------------------------------------------
    if (n == 1) {
        w.set(0, src.get(0, 0));
        putV(0, 0, C(1));
        return kelStsNoErr;
    }
    if (n == 2) {
        for (int32_t j = 0; j < 2; ++j)
            for (int32_t i = 0; i < 2; ++i) a.set(j * 2 + i, src.get(j, i));
        const C x = A(0, 0), b = A(0, 1), z = A(1, 1);  // A[1][0] is not used
        const C det = x * z - b * b;
        if (std::fabs(det) <= R::epsDet) return kelStsSingular;
        const C diff = x - z, off = C(2) * b;
        const C r = root(diff * diff + off * off);
        const C t = z + x;
        C s1 = C(1);
        if (t > R::eps) {
            w.set(0, T((r + t) * C(0.5)));
            w.set(1, T(det / C(w[0])));
        } else if (t < -R::eps) {
            w.set(0, T((t - r) * C(0.5)));
            w.set(1, T(det / C(w[0])));
            s1 = C(-1);
        } else {
            w.set(0, T(C(0.5) * r));
            w.set(1, T(C(-0.5) * r));
        }
        if constexpr (kVec) {
            C s2 = C(1), u = diff + r;
            if (diff < -R::eps) s2 = C(-1), u = diff - r;
            C p, q;
            if (std::fabs(u) > std::fabs(off)) {
                const C h = -off / u;
                q = C(1) / root(h * h + C(1));
                p = h * q;
            } else if (std::fabs(off) <= R::eps) {
                p = C(1), q = C(0);
            } else {
                const C h = -u / off;
                p = C(1) / root(h * h + C(1));
                q = h * p;
            }
            if (s1 == s2) {
                const C keep = p;
                p = -q, q = keep;
            }
            putV(0, 0, p);
            putV(1, 0, q);
            putV(0, 1, -q);
            putV(1, 1, p);
        }
        return kelStsNoErr;
    }

    // ---- Householder reduction ------------------------------------------------
    for (int32_t j = 0; j < n; ++j)
        for (int32_t i = 0; i < n; ++i) {
            a.set(j * n + i, src.get(j, i));
            if constexpr (kVec) putV(j, i, C(j == i ? 1 : 0));
        }
    for (int32_t k = 1; k <= n - 2; ++k) {
        const int32_t col = k - 1;  // the column being cleared
        C s = C(0);
        for (int32_t i = k; i < n; ++i) s = s + A(i, col) * A(i, col);
        const C norm = root(s), x = A(k, col);
        if constexpr (R::skipTests) {
            if (s <= R::epsReduce) continue;
            if (std::fabs(norm - x) <= R::epsReduce) continue;
        }
        for (int32_t i = k + 1; i < n; ++i) w.set(i, a[i * n + col]);
        C vtv;
        if (x > R::epsReduce) {
            w.set(k, T(x + norm));
            vtv = (x * norm + s) * C(2);
        } else if (std::fabs(x) <= R::epsReduce) {
            w.set(k, T(norm));
            vtv = s + s;
        } else {
            w.set(k, T(x - norm));
            vtv = (s - x * norm) * C(2);
        }
        if (vtv <= R::epsReduce) continue;
        const C beta = C(2) / vtv;
        // From the left, columns k-1 and up.
        for (int32_t j = k - 1; j < n; ++j) {
            C sum = C(0);
            for (int32_t i = k; i < n; ++i) sum = sum + A(i, j) * C(w[i]);
            const C t = beta * sum;
            for (int32_t i = k; i < n; ++i) setA(i, j, A(i, j) - C(w[i]) * t);
        }
        // From the right, rows k-1 and up.
        const Run<T> v{w.p + k * sizeof(T)};
        for (int32_t i = k - 1; i < n; ++i) {
            const Run<T> row{a.p + (static_cast<int64_t>(i) * n + k) * sizeof(T)};
            const C t = beta * rowDot<R>(row, v, n - k);
            for (int32_t j = 0; j < n - k; ++j) row.set(j, T(C(row[j]) - C(v[j]) * t));
        }
        if constexpr (kVec) {
            if (k == 1) {
                // V is still the identity: V = H in closed form.
                putV(0, 0, C(1));
                for (int32_t j = 1; j < n; ++j) putV(0, j, C(0)), putV(j, 0, C(0));
                for (int32_t i = 1; i < n; ++i) {
                    putV(i, i, C(1) - beta * C(w[i]) * C(w[i]));
                    for (int32_t j = i + 1; j < n; ++j) {
                        const C h = -beta * C(w[i]) * C(w[j]);
                        putV(i, j, h);
                        putV(j, i, h);
                    }
                }
            } else {
                for (int32_t i = 1; i < n; ++i) {
                    C sum = C(0);
                    for (int32_t j = k; j < n; ++j) sum = sum + C(w[j]) * getV(i, j);
                    const C t = beta * sum;
                    for (int32_t j = k; j < n; ++j) putV(i, j, getV(i, j) - C(w[j]) * t);
                }
            }
        }
    }

    // ---- QL or QR steps on the tridiagonal part ------------------------------------
    Tridiag<T, N> td(a, n);
    auto d = [&](int32_t i) -> C { return C(td.d(i)); };
    auto e = [&](int32_t i) -> C { return C(td.e(i)); };
    auto setD = [&](int32_t i, C x) { td.setD(i, T(x)); };
    auto setE = [&](int32_t i, C x) { td.setE(i, T(x)); };
    // A plane rotation of columns i and i+1 of V through (f, g) and r; the
    // sign tells the direction.  Returns (s, c).
    auto rotate = [&](int32_t i, C f, C g, C r, C sign, C& s, C& c) {
        if constexpr (R::reciprocal) {
            const C inv = C(1) / r;
            if constexpr (kVec)
                for (int32_t q = 0; q < n; ++q) {
                    const C x = getV(q, i) * inv, y = getV(q, i + 1) * inv;
                    putV(q, i, sign > C(0) ? g * x - f * y : g * x + f * y);
                    putV(q, i + 1, sign > C(0) ? g * y + f * x : g * y - f * x);
                }
            s = f * inv;
            c = g * inv;
        } else {
            s = f / r;
            c = g / r;
            if constexpr (kVec)
                for (int32_t q = 0; q < n; ++q) {
                    const C x = getV(q, i), y = getV(q, i + 1);
                    putV(q, i, sign > C(0) ? c * x - s * y : c * x + s * y);
                    putV(q, i + 1, sign > C(0) ? c * y + s * x : c * y - s * x);
                }
        }
    };
    auto small = [&](C x) { return std::fabs(x) <= R::eps; };

    C prod = C(1);
    if (std::fabs(d(n - 1)) > std::fabs(d(0))) {
        // Ascending (QL).
        for (int32_t l = 0; l < n; ++l)
            for (int iter = 0;;) {
                int32_t m = l;
                while (m < n - 1 && !small(C(0.5) * e(m))) ++m;
                if (m == l) break;
                if (iter == kMaxPasses) return kelStsNoConvergence;
                ++iter;
                C g = (d(l + 1) - d(l)) / (C(2) * e(l));
                C r = root(g * g + C(1));
                g = d(m) - d(l) + e(l) / (g > R::eps ? g + r : g - r);
                C s = C(1), c = C(1), p = C(0);
                int32_t i = m - 1;
                for (; i >= l; --i) {
                    const C f = s * e(i), b = c * e(i);
                    r = root(f * f + g * g);
                    if (i != m - 1) setE(i + 1, r);
                    if (small(r)) {
                        setD(i + 1, d(i + 1) - p);
                        setE(m - 1, C(0));
                        break;
                    }
                    rotate(i, f, g, r, C(1), s, c);
                    g = d(i + 1) - p;
                    r = (d(i) - g) * s + C(2) * c * b;
                    p = s * r;
                    setD(i + 1, g + p);
                    g = c * r - b;
                }
                // i >= 0, not i >= l: a small last r after a full sweep from
                // l > 0 leaves d(l) and e(l) as they are.
                if (small(r) && i >= 0) continue;
                setD(l, d(l) - p);
                setE(l, g);
            }
        for (int32_t i = 0; i < n; ++i) {
            w.set(i, td.d(i));
            prod = prod * d(i);
        }
    } else {
        // Descending (QR), the mirror image.  Every stop of the scan stores
        // the value it stops at and multiplies it into prod.
        for (int32_t l = n - 1; l >= 0; --l)
            for (int iter = 0;;) {
                int32_t m = l;
                for (; m > 0; --m)
                    if (small(C(0.5) * e(m - 1))) {
                        w.set(m, td.d(m));
                        prod = prod * d(m);
                        break;
                    }
                if (m == l) break;
                if (iter == kMaxPasses) return kelStsNoConvergence;
                ++iter;
                C g = (d(l - 1) - d(l)) / (C(2) * e(l - 1));
                C r = root(g * g + C(1));
                g = d(m) - d(l) + e(l - 1) / (g > R::eps ? g + r : g - r);
                C s = C(1), c = C(1), p = C(0);
                for (int32_t i = m; i <= l - 1; ++i) {
                    const C f = s * e(i), b = c * e(i);
                    r = root(f * f + g * g);
                    if (i != m) setE(i - 1, r);
                    if (small(r)) {
                        setD(i, d(i) - p);
                        setE(m, C(0));
                        break;
                    }
                    rotate(i, f, g, r, C(-1), s, c);
                    g = d(i) - p;
                    r = (d(i + 1) - g) * s + C(2) * c * b;
                    p = s * r;
                    setD(i, g + p);
                    g = c * r - b;
                }
                if (small(r)) continue;
                setE(l - 1, g);
                setD(l, d(l) - p);
            }
        w.set(0, td.d(0));
        prod = prod * d(0);
    }

    // ---- singularity and order ------------------------------------------------------
    const bool singular = std::fabs(prod) <= R::epsSingular;
    if (!R::testAfterSort && singular) return kelStsSingular;
    for (int32_t i = 0; i + 1 < n; ++i) {
        int32_t best = i;
        T top = w[i];
        for (int32_t j = i + 1; j < n; ++j)
            if (w[j] > top) top = w[j], best = j;
        if (best == i) continue;
        w.set(best, w[i]);
        w.set(i, top);
        if constexpr (kVec)
            for (int32_t q = 0; q < n; ++q) {
                const T y = vec.get(q, best);
                vec.put(q, best, vec.get(q, i));
                vec.put(q, i, y);
            }
    }
    return singular ? kelStsSingular : kelStsNoErr;
}

}  // namespace kel::eigen
