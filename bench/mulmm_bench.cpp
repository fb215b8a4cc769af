// Products of packed arrays of small square matrices, one thread, 1000
// objects: kelm against a plain triple loop and against Eigen's fixed-size
// types in a loop, all compiled for the same instruction set.
//   mama  array times array
//   mam   array times one matrix
// A fourth entry, "arith", times the arithmetic alone: the multiplies and
// adds of the row-by-row product (dst row r = the sum over k of A(r, k)
// times row k of B) with the rows loaded and stored, but without spreading
// each A(r, k) over the lanes.  Its results are meaningless; its time is
// what the multiplies and adds of the documented summation order cost on
// this machine, a floor for any kernel.
#include <algorithm>
#include <cstddef>
#include <vector>

#include "common.h"
#include "frame/simd.h"
#include "kelm.h"

#if KELM_BENCH_EIGEN
#include <Eigen/Core>
#include <Eigen/StdVector>
#endif

namespace {

constexpr int kCount = 1000;

enum class Shape { Mama, Mam };

template <class T, int N>
struct Data {
    std::vector<T> a, b, d;
    explicit Data(Shape s)
        : a(kb::randomData<T>(std::size_t(N) * N * kCount + 4, 1)),  // + 4: see BM_Arith
          b(kb::randomData<T>(std::size_t(N) * N * (s == Shape::Mama ? kCount : 1), 2)),
          d(std::size_t(N) * N * kCount)
    {
    }
};

KelStatus kelmMul(Shape s, const float* a, const float* b, float* d, int n)
{
    const int row = n * 4, obj = n * row;
    if (s == Shape::Mama) return kelmMul_mama_32f(a, obj, row, 4, n, n, b, obj, row, 4, n, n, d, obj, row, 4, kCount);
    return kelmMul_mam_32f(a, obj, row, 4, n, n, b, row, 4, n, n, d, obj, row, 4, kCount);
}
KelStatus kelmMul(Shape s, const double* a, const double* b, double* d, int n)
{
    const int row = n * 8, obj = n * row;
    if (s == Shape::Mama) return kelmMul_mama_64f(a, obj, row, 8, n, n, b, obj, row, 8, n, n, d, obj, row, 8, kCount);
    return kelmMul_mam_64f(a, obj, row, 8, n, n, b, row, 8, n, n, d, obj, row, 8, kCount);
}

template <class T, int N, Shape S>
void BM_Kelm(benchmark::State& state)
{
    kb::OneThread one;
    Data<T, N> x(S);
    for (auto _ : state) {
        kelmMul(S, x.a.data(), x.b.data(), x.d.data(), N);
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * N * N * (S == Shape::Mama ? 3 : 2));
}

// The textbook loop, sizes known to the compiler.
template <class T, int N, Shape S>
void BM_Loop(benchmark::State& state)
{
    Data<T, N> x(S);
    for (auto _ : state) {
        const T* a = x.a.data();
        const T* b = x.b.data();
        T* d = x.d.data();
        for (int o = 0; o < kCount; ++o, a += N * N, d += N * N) {
            const T* bo = S == Shape::Mama ? b + o * N * N : b;
            for (int r = 0; r < N; ++r)
                for (int c = 0; c < N; ++c) {
                    T s = T(0);
                    for (int k = 0; k < N; ++k) s += a[r * N + k] * bo[k * N + c];
                    d[r * N + c] = s;
                }
        }
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * N * N * (S == Shape::Mama ? 3 : 2));
}

// The arithmetic of kelm's row-by-row product: the first pack of A's row r
// stands in for every A(r, k) spread over the lanes.
template <class T, int N, Shape S>
void BM_Arith(benchmark::State& state)
{
    using P = kel::simd::Pack<kel::simd::Sse, T>;
    using R = kel::simd::Row<kel::simd::Sse, T, N>;
    Data<T, N> x(S);
    for (auto _ : state) {
        const T* a = x.a.data();
        T* d = x.d.data();
        for (int o = 0; o < kCount; ++o, a += N * N, d += N * N) {
            const T* bo = S == Shape::Mama ? x.b.data() + o * N * N : x.b.data();
            R b[N];
            for (int k = 0; k < N; ++k) b[k] = R::load(bo + k * N);
            for (int r = 0; r < N; ++r) {
                const P ar = P::load(a + r * N);
                R acc;
                for (int j = 0; j < R::kPacks; ++j) acc.p[j] = ar * b[0].p[j];
                for (int k = 1; k < N; ++k)
                    for (int j = 0; j < R::kPacks; ++j) acc.p[j] = acc.p[j] + ar * b[k].p[j];
                acc.store(d + r * N);
            }
        }
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * N * N * (S == Shape::Mama ? 3 : 2));
}

#if KELM_BENCH_EIGEN
template <class T, int N, Shape S>
void BM_Eigen(benchmark::State& state)
{
    using M = Eigen::Matrix<T, N, N, Eigen::RowMajor>;
    std::vector<M, Eigen::aligned_allocator<M>> a(kCount), b(S == Shape::Mama ? kCount : 1), d(kCount);
    for (auto& m : a) m = M::Random();
    for (auto& m : b) m = M::Random();
    for (auto _ : state) {
        for (int o = 0; o < kCount; ++o) d[o].noalias() = a[o] * b[S == Shape::Mama ? o : 0];
        benchmark::DoNotOptimize(d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * N * N * (S == Shape::Mama ? 3 : 2));
}
#endif

// The machine may be shared: with --benchmark_repetitions, the fastest
// repetition ("_min") is the least disturbed one.
double fastest(const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); }

#define MULMM_ONE(fn, label, who) BENCHMARK(fn)->Name("Mul_" label "/" who)->ComputeStatistics("min", fastest);
#if KELM_BENCH_EIGEN
#define MULMM_BENCH(T, N, S, label)                 \
    MULMM_ONE((BM_Kelm<T, N, S>), label, "kelm")    \
    MULMM_ONE((BM_Loop<T, N, S>), label, "loop")    \
    MULMM_ONE((BM_Eigen<T, N, S>), label, "eigen")
#else
#define MULMM_BENCH(T, N, S, label)                 \
    MULMM_ONE((BM_Kelm<T, N, S>), label, "kelm")    \
    MULMM_ONE((BM_Loop<T, N, S>), label, "loop")
#endif

MULMM_BENCH(float, 3, Shape::Mama, "mama_32f_3x3")
MULMM_BENCH(float, 4, Shape::Mama, "mama_32f_4x4")
MULMM_BENCH(float, 3, Shape::Mam, "mam_32f_3x3")
MULMM_BENCH(float, 4, Shape::Mam, "mam_32f_4x4")
MULMM_BENCH(double, 4, Shape::Mama, "mama_64f_4x4")

// The floor of the row-by-row form, for the sizes where kelm uses that form.
MULMM_ONE((BM_Arith<float, 4, Shape::Mama>), "mama_32f_4x4", "arith")
MULMM_ONE((BM_Arith<float, 4, Shape::Mam>), "mam_32f_4x4", "arith")
MULMM_ONE((BM_Arith<double, 4, Shape::Mama>), "mama_64f_4x4", "arith")

}  // namespace
