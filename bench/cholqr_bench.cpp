// Factor and solve with Cholesky and QR: 1000 packed objects, one
// right-hand side each, on one thread.  kelm's Decomp (ma) + BackSubst
// (mava) against a plain-C textbook version, Eigen's LLT and HouseholderQR
// on fixed-size matrices and LAPACK per object (potrf/potrs; geqrf, ormqr
// and trtrs on a column-major copy).  Every peer reads the same matrices and
// writes its factors somewhere else, as kelm does.
//
// "arith" times the arithmetic alone: kelm's operations in kelm's order
// (square roots and divisions included) on registers that hold one element
// of several objects, two doubles or four floats, with the objects'
// elements stored side by side so that no lane is ever moved.  Its time is
// what the fixed order of operations costs on this machine, a floor for any
// kernel that keeps that order.
#include <emmintrin.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <random>
#include <vector>

#include "common.h"
#include "frame/simd.h"
#include "kelm.h"

#ifdef KELM_BENCH_EIGEN
#include <Eigen/Dense>
#endif

#ifdef KELM_BENCH_LAPACK
extern "C" {
void dpotrf_(const char* uplo, const int* n, double* a, const int* lda, int* info, std::size_t);
void dpotrs_(const char* uplo, const int* n, const int* nrhs, const double* a, const int* lda, double* b,
             const int* ldb, int* info, std::size_t);
void spotrf_(const char* uplo, const int* n, float* a, const int* lda, int* info, std::size_t);
void spotrs_(const char* uplo, const int* n, const int* nrhs, const float* a, const int* lda, float* b, const int* ldb,
             int* info, std::size_t);
void dgeqrf_(const int* m, const int* n, double* a, const int* lda, double* tau, double* work, const int* lwork,
             int* info);
void dormqr_(const char* side, const char* trans, const int* m, const int* n, const int* k, const double* a,
             const int* lda, const double* tau, double* c, const int* ldc, double* work, const int* lwork, int* info,
             std::size_t, std::size_t);
void dtrtrs_(const char* uplo, const char* trans, const char* diag, const int* n, const int* nrhs, const double* a,
             const int* lda, double* b, const int* ldb, int* info, std::size_t, std::size_t, std::size_t);
}
#endif

namespace {

const kb::OneThread oneThread;
constexpr int kCount = 1000;

// H x W matrices (square for Cholesky, symmetric positive definite), a
// right-hand side of H and a result of W for each object.
template <class T>
struct Problem {
    int w, h;
    std::vector<T> a, b, f, x, buf;
    Problem(int width, int height, bool spd)
        : w(width),
          h(height),
          a(kb::randomData<T>(std::size_t(width) * height * kCount, 3)),
          b(kb::randomData<T>(std::size_t(height) * kCount, 4)),
          f(a.size()),
          x(std::size_t(width) * kCount),
          buf(height)
    {
        if (!spd) return;
        const int n = w;
        for (int k = 0; k < kCount; ++k) {
            T* m = &a[std::size_t(k) * n * n];
            std::vector<T> r(m, m + n * n);
            for (int i = 0; i < n; ++i)
                for (int j = 0; j < n; ++j) {
                    T s = i == j ? T(n) : T(0);
                    for (int q = 0; q < n; ++q) s += r[i * n + q] * r[j * n + q];
                    m[i * n + j] = s;
                }
        }
    }
};

void checked(benchmark::State& state, bool ok)
{
    if (!ok) state.SkipWithError("a matrix was refused");
}

// ---- kelm ------------------------------------------------------------------------

template <class T>
void kelmCholesky(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0)), E = sizeof(T), row = n * E, obj = n * row;
    Problem<T> p(n, n, true);
    for (auto _ : state) {
        if constexpr (sizeof(T) == 8)
            checked(state, kelmCholeskyDecomp_ma_64f(p.a.data(), obj, row, E, p.f.data(), obj, row, E, n, kCount) ==
                                   kelStsNoErr &&
                               kelmCholeskyBackSubst_mava_64f(p.f.data(), obj, row, E, p.b.data(), row, E, p.x.data(),
                                                              row, E, n, kCount) == kelStsNoErr);
        else
            checked(state, kelmCholeskyDecomp_ma_32f(p.a.data(), obj, row, E, p.f.data(), obj, row, E, n, kCount) ==
                                   kelStsNoErr &&
                               kelmCholeskyBackSubst_mava_32f(p.f.data(), obj, row, E, p.b.data(), row, E, p.x.data(),
                                                              row, E, n, kCount) == kelStsNoErr);
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n * 2 + n * 2) * sizeof(T));
}

void kelmQR(benchmark::State& state)
{
    const int w = static_cast<int>(state.range(0)), h = static_cast<int>(state.range(1)), E = 8;
    const int row = w * E, obj = h * row;
    Problem<double> p(w, h, false);
    for (auto _ : state) {
        checked(state, kelmQRDecomp_ma_64f(p.a.data(), obj, row, E, p.buf.data(), p.f.data(), obj, row, E, w, h,
                                           kCount) == kelStsNoErr &&
                           kelmQRBackSubst_mava_64f(p.f.data(), obj, row, E, p.buf.data(), p.b.data(), h * E, E,
                                                    p.x.data(), w * E, E, w, h, kCount) == kelStsNoErr);
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (w * h * 2 + w + h) * 8);
}

// ---- plain C: the textbook forms -----------------------------------------------------

// L L^T with L(i,i) on the diagonal, then two triangular solves dividing.
template <class T, int N>
int plainCholesky(const T* a, const T* b, T* l, T* x)
{
    for (int i = 0; i < N; ++i) {
        for (int j = 0; j <= i; ++j) {
            T s = a[i * N + j];
            for (int k = 0; k < j; ++k) s -= l[i * N + k] * l[j * N + k];
            if (j < i) {
                l[i * N + j] = s / l[j * N + j];
            } else {
                if (s <= T(0)) return -1;
                l[i * N + i] = std::sqrt(s);
            }
        }
    }
    for (int i = 0; i < N; ++i) {
        T s = b[i];
        for (int j = 0; j < i; ++j) s -= l[i * N + j] * x[j];
        x[i] = s / l[i * N + i];
    }
    for (int i = N - 1; i >= 0; --i) {
        T s = x[i];
        for (int j = i + 1; j < N; ++j) s -= l[j * N + i] * x[j];
        x[i] = s / l[i * N + i];
    }
    return 0;
}

// Householder with the reflector's norm, applied to b, then R solved.
template <int W, int H>
int plainQR(const double* a, const double* b, double* r, double* x)
{
    double z[H], v[H];
    std::memcpy(r, a, sizeof(double) * W * H);
    std::memcpy(z, b, sizeof z);
    for (int k = 0; k < W; ++k) {
        double n2 = 0;
        for (int i = k; i < H; ++i) n2 += r[i * W + k] * r[i * W + k];
        if (n2 == 0) return -1;
        const double alpha = r[k * W + k] > 0 ? -std::sqrt(n2) : std::sqrt(n2);
        for (int i = k; i < H; ++i) v[i] = r[i * W + k];
        v[k] -= alpha;
        const double vv = n2 - r[k * W + k] * r[k * W + k] + v[k] * v[k];
        for (int c = k; c < W; ++c) {
            double d = 0;
            for (int i = k; i < H; ++i) d += v[i] * r[i * W + c];
            d = 2 * d / vv;
            for (int i = k; i < H; ++i) r[i * W + c] -= d * v[i];
        }
        double d = 0;
        for (int i = k; i < H; ++i) d += v[i] * z[i];
        d = 2 * d / vv;
        for (int i = k; i < H; ++i) z[i] -= d * v[i];
    }
    for (int i = W - 1; i >= 0; --i) {
        double s = z[i];
        for (int j = i + 1; j < W; ++j) s -= r[i * W + j] * x[j];
        x[i] = s / r[i * W + i];
    }
    return 0;
}

template <class T, int N>
void plainCCholesky(benchmark::State& state)
{
    Problem<T> p(N, N, true);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k)
            checked(state, plainCholesky<T, N>(&p.a[k * N * N], &p.b[k * N], &p.f[k * N * N], &p.x[k * N]) == 0);
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * 2 + N * 2) * sizeof(T));
}

template <int W, int H>
void plainCQR(benchmark::State& state)
{
    Problem<double> p(W, H, false);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k)
            checked(state, plainQR<W, H>(&p.a[k * W * H], &p.b[k * H], &p.f[k * W * H], &p.x[k * W]) == 0);
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (W * H * 2 + W + H) * 8);
}

// ---- arithmetic only ---------------------------------------------------------------------

// Registers of several objects' elements: 1/sqrt as kelm computes it.
struct D2 {
    __m128d v;
    friend D2 operator+(D2 a, D2 b) { return {_mm_add_pd(a.v, b.v)}; }
    friend D2 operator-(D2 a, D2 b) { return {_mm_sub_pd(a.v, b.v)}; }
    friend D2 operator*(D2 a, D2 b) { return {_mm_mul_pd(a.v, b.v)}; }
    friend D2 operator/(D2 a, D2 b) { return {_mm_div_pd(a.v, b.v)}; }
    static D2 splat(double x) { return {_mm_set1_pd(x)}; }
    static D2 invSqrt(D2 s) { return {_mm_div_pd(_mm_set1_pd(1.0), _mm_sqrt_pd(s.v))}; }
    static D2 sqrtOf(D2 s) { return {_mm_sqrt_pd(s.v)}; }
};
struct F4 {
    __m128 v;
    friend F4 operator-(F4 a, F4 b) { return {_mm_sub_ps(a.v, b.v)}; }
    friend F4 operator*(F4 a, F4 b) { return {_mm_mul_ps(a.v, b.v)}; }
    static F4 invSqrt(F4 s)
    {
        const __m128 y0 = _mm_rsqrt_ps(s.v);
        const __m128 t = _mm_sub_ps(_mm_mul_ps(_mm_mul_ps(s.v, y0), y0), _mm_set1_ps(3.0f));
        return {_mm_mul_ps(_mm_mul_ps(y0, t), _mm_set1_ps(-0.5f))};
    }
};

// kelm's Cholesky order on registers: factor by rows with reciprocal
// diagonals, forward, backward.
template <class V, int N>
void choleskyArith(const V* a, const V* b, V* l, V* x)
{
    V f[N][N];
    for (int i = 0; i < N; ++i) {
        for (int j = 0; j < i; ++j) {
            V s = a[i * N + j];
            for (int k = 0; k < j; ++k) s = s - f[i][k] * f[j][k];
            f[i][j] = s * f[j][j];
            l[i * N + j] = f[i][j];
        }
        V s = a[i * N + i];
        for (int k = 0; k < i; ++k) s = s - f[i][k] * f[i][k];
        f[i][i] = V::invSqrt(s);
        l[i * N + i] = f[i][i];
    }
    V y[N];
    for (int i = 0; i < N; ++i) {
        V s = b[i];
        for (int j = 0; j < i; ++j) s = s - f[i][j] * y[j];
        y[i] = s * f[i][i];
    }
    for (int i = N - 1; i >= 0; --i) {
        V s = y[i];
        for (int j = N - 1; j > i; --j) s = s - f[j][i] * x[j];
        x[i] = s * f[i][i];
    }
}

// kelm's QR order on registers: reflect, store the tails, then the solve
// recomputing each reflector's scale.
template <int W, int H>
void qrArith(const D2* a, const D2* b, D2* out, D2* x)
{
    D2 r[H][W], v[H];
    for (int i = 0; i < H; ++i)
        for (int c = 0; c < W; ++c) r[i][c] = a[i * W + c];
    constexpr int S = W == H ? W - 1 : W;
    for (int k = 0; k < S; ++k) {
        D2 n2 = r[k][k] * r[k][k];
        for (int i = k + 1; i < H; ++i) n2 = n2 + r[i][k] * r[i][k];
        // The sign is a select in kelm; taking the root's sign as it comes
        // keeps the cost of one root and one division.
        const D2 rb = D2::splat(1.0) / (D2::sqrtOf(n2) + r[k][k]);
        D2 q = D2::splat(1.0);
        for (int i = k + 1; i < H; ++i) v[i] = r[i][k] * rb, q = q + v[i] * v[i];
        const D2 tau = D2::splat(-2.0) / q;
        for (int c = k; c < W; ++c) {
            D2 t = r[k][c];
            for (int i = k + 1; i < H; ++i) t = t + r[i][c] * v[i];
            t = t * tau;
            r[k][c] = r[k][c] + t;
            for (int i = k + 1; i < H; ++i) r[i][c] = r[i][c] + v[i] * t;
        }
        for (int i = k + 1; i < H; ++i) r[i][k] = v[i];
    }
    for (int i = 0; i < H; ++i)
        for (int c = 0; c < W; ++c) out[i * W + c] = r[i][c];
    D2 z[H];
    for (int i = 0; i < H; ++i) z[i] = b[i];
    for (int k = 0; k < S; ++k) {
        D2 d = z[k], q = D2::splat(1.0);
        for (int i = k + 1; i < H; ++i) d = d + z[i] * r[i][k], q = q + r[i][k] * r[i][k];
        const D2 t = (D2::splat(-2.0) / q) * d;
        z[k] = z[k] + t;
        for (int i = k + 1; i < H; ++i) z[i] = z[i] + r[i][k] * t;
    }
    x[W - 1] = z[W - 1] / r[W - 1][W - 1];
    for (int i = W - 2; i >= 0; --i) {
        D2 u = D2::splat(0.0);
        for (int j = i + 1; j < W; ++j) u = u + r[i][j] * x[j];
        x[i] = (z[i] - u) / r[i][i];
    }
}

// Elements of L objects side by side (L lanes); the values are the
// problem's, so square roots see positive numbers.
template <class V, class T>
std::vector<V> sideBySide(const std::vector<T>& src, int per)
{
    constexpr int L = sizeof(V) / sizeof(T);
    std::vector<V> out(src.size() / L);
    for (std::size_t g = 0; g < out.size() / per; ++g)
        for (int e = 0; e < per; ++e) {
            T lanes[L];
            for (int l = 0; l < L; ++l) lanes[l] = src[(g * L + l) * per + e];
            std::memcpy(&out[g * per + e], lanes, sizeof lanes);
        }
    return out;
}

template <class V, class T, int N>
void arithCholesky(benchmark::State& state)
{
    Problem<T> p(N, N, true);
    const auto a = sideBySide<V>(p.a, N * N), b = sideBySide<V>(p.b, N);
    std::vector<V> l(a.size()), x(b.size());
    constexpr int L = sizeof(V) / sizeof(T);
    for (auto _ : state) {
        for (int g = 0; g < kCount / L; ++g) choleskyArith<V, N>(&a[g * N * N], &b[g * N], &l[g * N * N], &x[g * N]);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * 2 + N * 2) * sizeof(T));
}

template <int W, int H>
void arithQR(benchmark::State& state)
{
    Problem<double> p(W, H, false);
    const auto a = sideBySide<D2>(p.a, W * H), b = sideBySide<D2>(p.b, H);
    std::vector<D2> f(a.size()), x(kCount / 2 * W);
    for (auto _ : state) {
        for (int g = 0; g < kCount / 2; ++g) qrArith<W, H>(&a[g * W * H], &b[g * H], &f[g * W * H], &x[g * W]);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (W * H * 2 + W + H) * 8);
}

// ---- Eigen -------------------------------------------------------------------------------

#ifdef KELM_BENCH_EIGEN
template <class T, int N>
void eigenCholesky(benchmark::State& state)
{
    using Mat = Eigen::Matrix<T, N, N, Eigen::RowMajor>;
    using Vec = Eigen::Matrix<T, N, 1>;
    Problem<T> p(N, N, true);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            const Eigen::LLT<Mat> llt(Eigen::Map<const Mat>(&p.a[k * N * N]));
            Eigen::Map<Vec>(&p.x[k * N]) = llt.solve(Eigen::Map<const Vec>(&p.b[k * N]));
        }
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * 2 + N * 2) * sizeof(T));
}

template <int W, int H>
void eigenQR(benchmark::State& state)
{
    using Mat = Eigen::Matrix<double, H, W, Eigen::RowMajor>;
    Problem<double> p(W, H, false);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            const Eigen::HouseholderQR<Mat> qr(Eigen::Map<const Mat>(&p.a[k * W * H]));
            Eigen::Map<Eigen::Matrix<double, W, 1>>(&p.x[k * W]) =
                qr.solve(Eigen::Map<const Eigen::Matrix<double, H, 1>>(&p.b[k * H]));
        }
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (W * H * 2 + W + H) * 8);
}
#endif

// ---- LAPACK ------------------------------------------------------------------------------

#ifdef KELM_BENCH_LAPACK
// A symmetric row-major matrix is its own column-major form: 'L' is kelm's
// lower triangle.
template <class T>
void lapackCholesky(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0)), one = 1;
    const char uplo = 'L';
    Problem<T> p(n, n, true);
    for (auto _ : state) {
        int info = 0;
        for (int k = 0; k < kCount; ++k) {
            T* f = &p.f[k * n * n];
            T* x = &p.x[k * n];
            std::memcpy(f, &p.a[k * n * n], sizeof(T) * n * n);
            std::memcpy(x, &p.b[k * n], sizeof(T) * n);
            if constexpr (sizeof(T) == 8) {
                dpotrf_(&uplo, &n, f, &n, &info, 1);
                dpotrs_(&uplo, &n, &one, f, &n, x, &n, &info, 1);
            } else {
                spotrf_(&uplo, &n, f, &n, &info, 1);
                spotrs_(&uplo, &n, &one, f, &n, x, &n, &info, 1);
            }
        }
        checked(state, info == 0);
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n * 2 + n * 2) * sizeof(T));
}

// The row-major matrix copied into column-major form, then geqrf, ormqr
// (Q^T b) and trtrs on R.
void lapackQR(benchmark::State& state)
{
    const int w = static_cast<int>(state.range(0)), h = static_cast<int>(state.range(1)), one = 1, lwork = 64;
    Problem<double> p(w, h, false);
    std::vector<double> tau(w), work(lwork), z(h);
    for (auto _ : state) {
        int info = 0;
        for (int k = 0; k < kCount; ++k) {
            double* f = &p.f[k * w * h];
            for (int i = 0; i < h; ++i)
                for (int c = 0; c < w; ++c) f[c * h + i] = p.a[k * w * h + i * w + c];
            std::memcpy(z.data(), &p.b[k * h], sizeof(double) * h);
            dgeqrf_(&h, &w, f, &h, tau.data(), work.data(), &lwork, &info);
            dormqr_("L", "T", &h, &one, &w, f, &h, tau.data(), z.data(), &h, work.data(), &lwork, &info, 1, 1);
            dtrtrs_("U", "N", "N", &w, &one, f, &h, z.data(), &h, &info, 1, 1, 1);
            std::memcpy(&p.x[k * w], z.data(), sizeof(double) * w);
        }
        checked(state, info == 0);
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (w * h * 2 + w + h) * 8);
}
#endif

BENCHMARK(kelmCholesky<float>)->Name("Cholesky_32f/kelm")->Arg(4);
BENCHMARK(plainCCholesky<float, 4>)->Name("Cholesky_32f/plainC/4");
BENCHMARK(arithCholesky<F4, float, 4>)->Name("Cholesky_32f/arith/4");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenCholesky<float, 4>)->Name("Cholesky_32f/Eigen/4");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapackCholesky<float>)->Name("Cholesky_32f/LAPACK")->Arg(4);
#endif

BENCHMARK(kelmCholesky<double>)->Name("Cholesky_64f/kelm")->Arg(6);
BENCHMARK(plainCCholesky<double, 6>)->Name("Cholesky_64f/plainC/6");
BENCHMARK(arithCholesky<D2, double, 6>)->Name("Cholesky_64f/arith/6");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenCholesky<double, 6>)->Name("Cholesky_64f/Eigen/6");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapackCholesky<double>)->Name("Cholesky_64f/LAPACK")->Arg(6);
#endif

BENCHMARK(kelmQR)->Name("QR_64f/kelm")->Args({4, 6})->Args({4, 4});
BENCHMARK(plainCQR<4, 6>)->Name("QR_64f/plainC/4/6");
BENCHMARK(plainCQR<4, 4>)->Name("QR_64f/plainC/4/4");
BENCHMARK(arithQR<4, 6>)->Name("QR_64f/arith/4/6");
BENCHMARK(arithQR<4, 4>)->Name("QR_64f/arith/4/4");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenQR<4, 6>)->Name("QR_64f/Eigen/4/6");
BENCHMARK(eigenQR<4, 4>)->Name("QR_64f/Eigen/4/4");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapackQR)->Name("QR_64f/LAPACK")->Args({4, 6})->Args({4, 4});
#endif

}  // namespace
