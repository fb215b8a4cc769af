// Factor and solve: 1000 packed n x n matrices, one right-hand side each, on
// one thread.  kelm's LUDecomp + LUBackSubst (mava) against a plain-C
// partial-pivot LU, Eigen's PartialPivLU on fixed-size matrices and LAPACK's
// getrf/getrs per object.  Every peer reads the same matrices and writes its
// factors somewhere else, as kelm does.
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
void dgetrf_(const int* m, const int* n, double* a, const int* lda, int* ipiv, int* info);
void dgetrs_(const char* trans, const int* n, const int* nrhs, const double* a, const int* lda, const int* ipiv,
             double* b, const int* ldb, int* info, std::size_t transLen);
void sgetrf_(const int* m, const int* n, float* a, const int* lda, int* ipiv, int* info);
void sgetrs_(const char* trans, const int* n, const int* nrhs, const float* a, const int* lda, const int* ipiv,
             float* b, const int* ldb, int* info, std::size_t transLen);
}
#endif

namespace {

const kb::OneThread oneThread;
constexpr int kCount = 1000;

template <class T>
struct Problem {
    int n;
    std::vector<T> a, b, lu, x;
    std::vector<int> piv;
    explicit Problem(int size)
        : n(size),
          a(kb::randomData<T>(std::size_t(size) * size * kCount, 3)),
          b(kb::randomData<T>(std::size_t(size) * kCount, 4)),
          lu(a.size()),
          x(b.size()),
          piv(std::size_t(size) * kCount)
    {
    }
};

// ---- kelm ---------------------------------------------------------------------

template <class T>
void kelm(benchmark::State& state)
{
    Problem<T> p(static_cast<int>(state.range(0)));
    const int E = sizeof(T), n = p.n, row = n * E, obj = n * row;
    for (auto _ : state) {
        KelStatus s1, s2;
        if constexpr (sizeof(T) == 8) {
            s1 = kelmLUDecomp_ma_64f(p.a.data(), obj, row, E, p.piv.data(), p.lu.data(), obj, row, E, n, kCount);
            s2 = kelmLUBackSubst_mava_64f(p.lu.data(), obj, row, E, p.piv.data(), p.b.data(), row, E, p.x.data(), row, E,
                                          n, kCount);
        } else {
            s1 = kelmLUDecomp_ma_32f(p.a.data(), obj, row, E, p.piv.data(), p.lu.data(), obj, row, E, n, kCount);
            s2 = kelmLUBackSubst_mava_32f(p.lu.data(), obj, row, E, p.piv.data(), p.b.data(), row, E, p.x.data(), row, E,
                                          n, kCount);
        }
        if (s1 != kelStsNoErr || s2 != kelStsNoErr) state.SkipWithError("kelm refused a matrix");
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n * 2 + n * 2) * sizeof(T));
}

// ---- plain C: rows exchanged in a copy, then the two triangular solves ------------

template <class T, int N>
int plainLuSolve(const T* a, const T* b, T* lu, int* piv, T* x)
{
    std::memcpy(lu, a, sizeof(T) * N * N);
    for (int k = 0; k < N; ++k) {
        int best = k;
        T big = std::fabs(lu[k * N + k]);
        for (int i = k + 1; i < N; ++i)
            if (std::fabs(lu[i * N + k]) > big) big = std::fabs(lu[i * N + k]), best = i;
        if (big == T(0)) return -1;
        piv[k] = best;
        if (best != k)
            for (int j = 0; j < N; ++j) {
                const T t = lu[k * N + j];
                lu[k * N + j] = lu[best * N + j];
                lu[best * N + j] = t;
            }
        const T r = T(1) / lu[k * N + k];
        for (int i = k + 1; i < N; ++i) {
            const T l = lu[i * N + k] *= r;
            for (int j = k + 1; j < N; ++j) lu[i * N + j] -= l * lu[k * N + j];
        }
    }
    for (int i = 0; i < N; ++i) x[i] = b[i];
    for (int k = 0; k < N; ++k) {
        const T t = x[k];
        x[k] = x[piv[k]];
        x[piv[k]] = t;
    }
    for (int i = 1; i < N; ++i)
        for (int j = 0; j < i; ++j) x[i] -= lu[i * N + j] * x[j];
    for (int i = N - 1; i >= 0; --i) {
        for (int j = i + 1; j < N; ++j) x[i] -= lu[i * N + j] * x[j];
        x[i] /= lu[i * N + i];
    }
    return 0;
}

template <class T, int N>
void plainC(benchmark::State& state)
{
    Problem<T> p(N);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k)
            if (plainLuSolve<T, N>(&p.a[k * N * N], &p.b[k * N], &p.lu[k * N * N], &p.piv[k * N], &p.x[k * N]))
                state.SkipWithError("singular");
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * 2 + N * 2) * sizeof(T));
}

// ---- Eigen -----------------------------------------------------------------------

#ifdef KELM_BENCH_EIGEN
template <class T, int N>
void eigen(benchmark::State& state)
{
    using Mat = Eigen::Matrix<T, N, N, Eigen::RowMajor>;
    using Vec = Eigen::Matrix<T, N, 1>;
    Problem<T> p(N);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            const Eigen::PartialPivLU<Mat> lu(Eigen::Map<const Mat>(&p.a[k * N * N]));
            Eigen::Map<Vec>(&p.x[k * N]) = lu.solve(Eigen::Map<const Vec>(&p.b[k * N]));
        }
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * 2 + N * 2) * sizeof(T));
}
#endif

// ---- LAPACK: row-major data is the transpose, so solve with trans = 'T' -------------

#ifdef KELM_BENCH_LAPACK
template <class T>
void lapack(benchmark::State& state)
{
    Problem<T> p(static_cast<int>(state.range(0)));
    const int n = p.n, one = 1;
    const char trans = 'T';
    for (auto _ : state) {
        int info = 0;
        for (int k = 0; k < kCount; ++k) {
            T* lu = &p.lu[k * n * n];
            T* x = &p.x[k * n];
            std::memcpy(lu, &p.a[k * n * n], sizeof(T) * n * n);
            std::memcpy(x, &p.b[k * n], sizeof(T) * n);
            if constexpr (sizeof(T) == 8) {
                dgetrf_(&n, &n, lu, &n, &p.piv[k * n], &info);
                dgetrs_(&trans, &n, &one, lu, &n, &p.piv[k * n], x, &n, &info, 1);
            } else {
                sgetrf_(&n, &n, lu, &n, &p.piv[k * n], &info);
                sgetrs_(&trans, &n, &one, lu, &n, &p.piv[k * n], x, &n, &info, 1);
            }
        }
        if (info != 0) state.SkipWithError("singular");
        benchmark::DoNotOptimize(p.x.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n * 2 + n * 2) * sizeof(T));
}
#endif

BENCHMARK(kelm<double>)->Name("LUSolve_64f/kelm")->Arg(4)->Arg(6);
BENCHMARK(plainC<double, 4>)->Name("LUSolve_64f/plainC/4");
BENCHMARK(plainC<double, 6>)->Name("LUSolve_64f/plainC/6");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigen<double, 4>)->Name("LUSolve_64f/Eigen/4");
BENCHMARK(eigen<double, 6>)->Name("LUSolve_64f/Eigen/6");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapack<double>)->Name("LUSolve_64f/LAPACK")->Arg(4)->Arg(6);
#endif

BENCHMARK(kelm<float>)->Name("LUSolve_32f/kelm")->Arg(4);
BENCHMARK(plainC<float, 4>)->Name("LUSolve_32f/plainC/4");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigen<float, 4>)->Name("LUSolve_32f/Eigen/4");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapack<float>)->Name("LUSolve_32f/LAPACK")->Arg(4);
#endif

}  // namespace
