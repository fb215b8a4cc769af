// Symmetric eigenproblems: 1000 packed n x n symmetric matrices on one
// thread, values and vectors (and values alone at 4 x 4 in 64-bit).  kelm's
// EigenValuesVectorsSym / EigenValuesSym (ma) against a textbook Householder
// tridiagonalisation with implicit QL in plain C, Eigen's iterative
// SelfAdjointEigenSolver on fixed-size matrices and LAPACK's syev per
// object; Eigen's closed-form computeDirect at 3 x 3 for scale.  Every peer
// reads the same matrices and writes sorted values and their vectors.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

#include "common.h"
#include "kelm.h"

#ifdef KELM_BENCH_EIGEN
#include <Eigen/Dense>
#endif

#ifdef KELM_BENCH_LAPACK
extern "C" {
void dsyev_(const char* jobz, const char* uplo, const int* n, double* a, const int* lda, double* w, double* work,
            const int* lwork, int* info, std::size_t, std::size_t);
void ssyev_(const char* jobz, const char* uplo, const int* n, float* a, const int* lda, float* w, float* work,
            const int* lwork, int* info, std::size_t, std::size_t);
}
#endif

namespace {

const kb::OneThread oneThread;
constexpr int kCount = 1000;

template <class T>
struct Problem {
    int n;
    std::vector<T> a, vectors, values, buffer;
    explicit Problem(int size)
        : n(size), a(std::size_t(size) * size * kCount), vectors(a.size()), values(std::size_t(size) * kCount),
          buffer(std::size_t(size) * size)
    {
        const auto r = kb::randomData<T>(a.size(), 5);
        for (int k = 0; k < kCount; ++k)
            for (int i = 0; i < n; ++i)
                for (int j = 0; j < n; ++j)
                    a[(k * n + i) * n + j] = i <= j ? r[(k * n + i) * n + j] : r[(k * n + j) * n + i];
    }
};

// ---- kelm ---------------------------------------------------------------------

template <class T, bool Vectors>
void kelm(benchmark::State& state)
{
    Problem<T> p(static_cast<int>(state.range(0)));
    const int E = sizeof(T), n = p.n, row = n * E, obj = n * row;
    for (auto _ : state) {
        KelStatus st;
        if constexpr (Vectors && sizeof(T) == 8)
            st = kelmEigenValuesVectorsSym_ma_64f(p.a.data(), obj, row, E, p.buffer.data(), p.vectors.data(), obj, row,
                                                  E, p.values.data(), n, kCount);
        else if constexpr (Vectors)
            st = kelmEigenValuesVectorsSym_ma_32f(p.a.data(), obj, row, E, p.buffer.data(), p.vectors.data(), obj, row,
                                                  E, p.values.data(), n, kCount);
        else if constexpr (sizeof(T) == 8)
            st = kelmEigenValuesSym_ma_64f(p.a.data(), obj, row, E, p.buffer.data(), p.values.data(), n, kCount);
        else
            st = kelmEigenValuesSym_ma_32f(p.a.data(), obj, row, E, p.buffer.data(), p.values.data(), n, kCount);
        if (st != kelStsNoErr) state.SkipWithError("kelm refused a matrix");
        benchmark::DoNotOptimize(p.values.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n * (Vectors ? 2 : 1) + n) * sizeof(T));
}

// ---- plain C: Householder to tridiagonal form, implicit QL, then a sort ------------

template <class T, int N, bool Vectors>
int plainSym(const T* src, T* z, T* d)
{
    T e[N];
    for (int i = 0; i < N * N; ++i) z[i] = src[i];
    auto a = [&](int i, int j) -> T& { return z[i * N + j]; };
    for (int i = N - 1; i > 0; --i) {
        const int l = i - 1;
        T h = 0;
        if (l > 0) {
            T scale = 0;
            for (int k = 0; k <= l; ++k) scale += std::fabs(a(i, k));
            if (scale == T(0)) {
                e[i] = a(i, l);
            } else {
                for (int k = 0; k <= l; ++k) a(i, k) /= scale, h += a(i, k) * a(i, k);
                T f = a(i, l);
                T g = f >= 0 ? -std::sqrt(h) : std::sqrt(h);
                e[i] = scale * g;
                h -= f * g;
                a(i, l) = f - g;
                f = 0;
                for (int j = 0; j <= l; ++j) {
                    if (Vectors) a(j, i) = a(i, j) / h;
                    g = 0;
                    for (int k = 0; k <= j; ++k) g += a(j, k) * a(i, k);
                    for (int k = j + 1; k <= l; ++k) g += a(k, j) * a(i, k);
                    e[j] = g / h;
                    f += e[j] * a(i, j);
                }
                const T hh = f / (h + h);
                for (int j = 0; j <= l; ++j) {
                    f = a(i, j);
                    e[j] = g = e[j] - hh * f;
                    for (int k = 0; k <= j; ++k) a(j, k) -= f * e[k] + g * a(i, k);
                }
            }
        } else {
            e[i] = a(i, l);
        }
        d[i] = h;
    }
    d[0] = 0, e[0] = 0;
    for (int i = 0; i < N; ++i) {
        if (Vectors && d[i] != T(0))
            for (int j = 0; j < i; ++j) {
                T g = 0;
                for (int k = 0; k < i; ++k) g += a(i, k) * a(k, j);
                for (int k = 0; k < i; ++k) a(k, j) -= g * a(k, i);
            }
        d[i] = a(i, i);
        if (Vectors) {
            a(i, i) = 1;
            for (int j = 0; j < i; ++j) a(j, i) = a(i, j) = 0;
        }
    }
    for (int i = 1; i < N; ++i) e[i - 1] = e[i];
    e[N - 1] = 0;
    const T eps = std::numeric_limits<T>::epsilon();
    for (int l = 0; l < N; ++l) {
        int iter = 0, m;
        do {
            for (m = l; m < N - 1; ++m)
                if (std::fabs(e[m]) <= eps * (std::fabs(d[m]) + std::fabs(d[m + 1]))) break;
            if (m == l) break;
            if (iter++ == 30) return -1;
            T g = (d[l + 1] - d[l]) / (2 * e[l]);
            T r = std::sqrt(g * g + 1);
            g = d[m] - d[l] + e[l] / (g + (g >= 0 ? r : -r));
            T s = 1, c = 1, p = 0;
            int i;
            for (i = m - 1; i >= l; --i) {
                T f = s * e[i], b = c * e[i];
                e[i + 1] = r = std::sqrt(f * f + g * g);
                if (r == T(0)) {
                    d[i + 1] -= p, e[m] = 0;
                    break;
                }
                s = f / r, c = g / r;
                g = d[i + 1] - p;
                r = (d[i] - g) * s + 2 * c * b;
                d[i + 1] = g + (p = s * r);
                g = c * r - b;
                if (Vectors)
                    for (int k = 0; k < N; ++k) {
                        f = a(k, i + 1);
                        a(k, i + 1) = s * a(k, i) + c * f;
                        a(k, i) = c * a(k, i) - s * f;
                    }
            }
            if (r == T(0) && i >= l) continue;
            d[l] -= p, e[l] = g, e[m] = 0;
        } while (m != l);
    }
    for (int i = 0; i + 1 < N; ++i) {
        int best = i;
        for (int j = i + 1; j < N; ++j)
            if (d[j] > d[best]) best = j;
        if (best == i) continue;
        std::swap(d[i], d[best]);
        for (int k = 0; Vectors && k < N; ++k) std::swap(a(k, i), a(k, best));
    }
    return 0;
}

template <class T, int N, bool Vectors>
void plainC(benchmark::State& state)
{
    Problem<T> p(N);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k)
            if (plainSym<T, N, Vectors>(&p.a[k * N * N], &p.vectors[k * N * N], &p.values[k * N]))
                state.SkipWithError("no convergence");
        benchmark::DoNotOptimize(p.values.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * (Vectors ? 2 : 1) + N) * sizeof(T));
}

// ---- Eigen -----------------------------------------------------------------------

#ifdef KELM_BENCH_EIGEN
template <class T, int N, bool Vectors, bool Direct = false>
void eigen(benchmark::State& state)
{
    using Mat = Eigen::Matrix<T, N, N, Eigen::RowMajor>;
    using Vec = Eigen::Matrix<T, N, 1>;
    Problem<T> p(N);
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix<T, N, N>> es;
    const int options = Vectors ? Eigen::ComputeEigenvectors : Eigen::EigenvaluesOnly;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            const Mat a = Eigen::Map<const Mat>(&p.a[k * N * N]);
            if constexpr (Direct) es.computeDirect(a, options);
            else es.compute(a, options);
            // Eigen sorts ascending: store descending like the others.
            Eigen::Map<Vec>(&p.values[k * N]) = es.eigenvalues().reverse();
            if (Vectors) Eigen::Map<Mat>(&p.vectors[k * N * N]) = es.eigenvectors().rowwise().reverse();
        }
        benchmark::DoNotOptimize(p.values.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * (Vectors ? 2 : 1) + N) * sizeof(T));
}
#endif

// ---- LAPACK: the row-major symmetric matrix is its own transpose ----------------------

#ifdef KELM_BENCH_LAPACK
template <class T, bool Vectors>
void lapack(benchmark::State& state)
{
    Problem<T> p(static_cast<int>(state.range(0)));
    const int n = p.n;
    const char jobz = Vectors ? 'V' : 'N', uplo = 'U';
    int lwork = -1, info = 0;
    T query = 0;
    if constexpr (sizeof(T) == 8) dsyev_(&jobz, &uplo, &n, p.vectors.data(), &n, p.values.data(), &query, &lwork, &info, 1, 1);
    else ssyev_(&jobz, &uplo, &n, p.vectors.data(), &n, p.values.data(), &query, &lwork, &info, 1, 1);
    lwork = static_cast<int>(query);
    std::vector<T> work(static_cast<std::size_t>(lwork));
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            T* z = &p.vectors[k * n * n];
            std::memcpy(z, &p.a[k * n * n], sizeof(T) * n * n);
            if constexpr (sizeof(T) == 8)
                dsyev_(&jobz, &uplo, &n, z, &n, &p.values[k * n], work.data(), &lwork, &info, 1, 1);
            else
                ssyev_(&jobz, &uplo, &n, z, &n, &p.values[k * n], work.data(), &lwork, &info, 1, 1);
        }
        if (info != 0) state.SkipWithError("no convergence");
        benchmark::DoNotOptimize(p.values.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n * (Vectors ? 2 : 1) + n) * sizeof(T));
}
#endif

// Values and vectors, 32-bit and 64-bit, 3 x 3 and 6 x 6.
BENCHMARK(kelm<float, true>)->Name("EigenSym_32f/kelm")->Arg(3)->Arg(6);
BENCHMARK(plainC<float, 3, true>)->Name("EigenSym_32f/plainC/3");
BENCHMARK(plainC<float, 6, true>)->Name("EigenSym_32f/plainC/6");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigen<float, 3, true>)->Name("EigenSym_32f/Eigen/3");
BENCHMARK(eigen<float, 6, true>)->Name("EigenSym_32f/Eigen/6");
BENCHMARK(eigen<float, 3, true, true>)->Name("EigenSym_32f/EigenDirect/3");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapack<float, true>)->Name("EigenSym_32f/LAPACK")->Arg(3)->Arg(6);
#endif

BENCHMARK(kelm<double, true>)->Name("EigenSym_64f/kelm")->Arg(3)->Arg(6);
BENCHMARK(plainC<double, 3, true>)->Name("EigenSym_64f/plainC/3");
BENCHMARK(plainC<double, 6, true>)->Name("EigenSym_64f/plainC/6");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigen<double, 3, true>)->Name("EigenSym_64f/Eigen/3");
BENCHMARK(eigen<double, 6, true>)->Name("EigenSym_64f/Eigen/6");
BENCHMARK(eigen<double, 3, true, true>)->Name("EigenSym_64f/EigenDirect/3");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapack<double, true>)->Name("EigenSym_64f/LAPACK")->Arg(3)->Arg(6);
#endif

// Values alone, 64-bit, 4 x 4.
BENCHMARK(kelm<double, false>)->Name("EigenValuesSym_64f/kelm")->Arg(4);
BENCHMARK(plainC<double, 4, false>)->Name("EigenValuesSym_64f/plainC/4");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigen<double, 4, false>)->Name("EigenValuesSym_64f/Eigen/4");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapack<double, false>)->Name("EigenValuesSym_64f/LAPACK")->Arg(4);
#endif

}  // namespace
