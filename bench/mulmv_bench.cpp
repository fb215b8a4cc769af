// One 4x4 matrix times 1000 packed 4-vectors (Mul_mva_32f), and the same plus
// 1000 vectors (Gaxpy_mva_32f), on one thread: kelm against a plain loop and
// Eigen's fixed-size types in a loop, all built for the same instruction set.
// The "arith" entries time the arithmetic alone: the multiplies and adds of
// the column form (dst = the sum over k of column k of the matrix times x(k))
// with the vectors loaded and stored, but x itself standing in for every
// x(k) spread over the lanes: a floor for any kernel.
#include <benchmark/benchmark.h>

#include "common.h"
#include "frame/simd.h"
#include "kelm.h"

#ifdef KELM_BENCH_EIGEN
#include <Eigen/Dense>
#endif

namespace {

constexpr int kCount = 1000;
constexpr int kN = 4;

struct Data {
    std::vector<float> m = kb::randomData<float>(kN * kN, 1);
    std::vector<float> x = kb::randomData<float>(kN * kCount, 2);
    std::vector<float> y = kb::randomData<float>(kN * kCount, 3);
    std::vector<float> d = std::vector<float>(kN * kCount);
};

const kb::OneThread oneThread;

constexpr std::size_t kBytesMul = 2 * kN * sizeof(float);   // vector in, vector out
constexpr std::size_t kBytesGaxpy = 3 * kN * sizeof(float);

// ---- Mul_mva ----------------------------------------------------------------------

void BM_MulMva_kelm(benchmark::State& state)
{
    Data a;
    for (auto _ : state) {
        kelmMul_mva_32f(a.m.data(), kN * 4, 4, kN, kN, a.x.data(), kN * 4, 4, kN, a.d.data(), kN * 4, 4, kCount);
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, kBytesMul);
}
BENCHMARK(BM_MulMva_kelm);

void BM_MulMva_plain(benchmark::State& state)
{
    Data a;
    for (auto _ : state) {
        const float* m = a.m.data();
        for (int n = 0; n < kCount; ++n) {
            const float* x = a.x.data() + n * kN;
            float* d = a.d.data() + n * kN;
            for (int r = 0; r < kN; ++r) {
                float s = 0.0f;
                for (int k = 0; k < kN; ++k) s += m[r * kN + k] * x[k];
                d[r] = s;
            }
        }
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, kBytesMul);
}
BENCHMARK(BM_MulMva_plain);

#ifdef KELM_BENCH_EIGEN
void BM_MulMva_eigen(benchmark::State& state)
{
    Data a;
    const Eigen::Matrix4f m = Eigen::Map<const Eigen::Matrix<float, 4, 4, Eigen::RowMajor>>(a.m.data());
    for (auto _ : state) {
        for (int n = 0; n < kCount; ++n)
            Eigen::Map<Eigen::Vector4f>(a.d.data() + n * kN).noalias() =
                m * Eigen::Map<const Eigen::Vector4f>(a.x.data() + n * kN);
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, kBytesMul);
}
BENCHMARK(BM_MulMva_eigen);
#endif

// Columns of the matrix held in registers; `addend` adds y after the sum.
template <bool Addend>
void arith(benchmark::State& state)
{
    using P = kel::simd::Pack<kel::simd::Sse, float>;
    Data a;
    P col[kN];
    for (int k = 0; k < kN; ++k) {
        float c[kN];
        for (int r = 0; r < kN; ++r) c[r] = a.m[r * kN + k];
        col[k] = P::load(c);
    }
    const float* xs = a.x.data();
    const float* ys = a.y.data();
    float* ds = a.d.data();
    for (auto _ : state) {
        for (int n = 0; n < kCount; ++n) {
            const P x = P::load(xs + n * kN);
            P acc = col[0] * x;
            for (int k = 1; k < kN; ++k) acc = acc + col[k] * x;
            if (Addend) acc = acc + P::load(ys + n * kN);
            acc.store(ds + n * kN);
        }
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, Addend ? kBytesGaxpy : kBytesMul);
}
void BM_MulMva_arith(benchmark::State& state) { arith<false>(state); }
BENCHMARK(BM_MulMva_arith);

// ---- Gaxpy_mva --------------------------------------------------------------------

void BM_GaxpyMva_kelm(benchmark::State& state)
{
    Data a;
    for (auto _ : state) {
        kelmGaxpy_mva_32f(a.m.data(), kN * 4, 4, kN, kN, a.x.data(), kN * 4, 4, kN, a.y.data(), kN * 4, 4, kN,
                          a.d.data(), kN * 4, 4, kCount);
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, kBytesGaxpy);
}
BENCHMARK(BM_GaxpyMva_kelm);

void BM_GaxpyMva_plain(benchmark::State& state)
{
    Data a;
    for (auto _ : state) {
        const float* m = a.m.data();
        for (int n = 0; n < kCount; ++n) {
            const float* x = a.x.data() + n * kN;
            const float* y = a.y.data() + n * kN;
            float* d = a.d.data() + n * kN;
            for (int r = 0; r < kN; ++r) {
                float s = 0.0f;
                for (int k = 0; k < kN; ++k) s += m[r * kN + k] * x[k];
                d[r] = s + y[r];
            }
        }
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, kBytesGaxpy);
}
BENCHMARK(BM_GaxpyMva_plain);

#ifdef KELM_BENCH_EIGEN
void BM_GaxpyMva_eigen(benchmark::State& state)
{
    Data a;
    const Eigen::Matrix4f m = Eigen::Map<const Eigen::Matrix<float, 4, 4, Eigen::RowMajor>>(a.m.data());
    for (auto _ : state) {
        for (int n = 0; n < kCount; ++n)
            Eigen::Map<Eigen::Vector4f>(a.d.data() + n * kN).noalias() =
                m * Eigen::Map<const Eigen::Vector4f>(a.x.data() + n * kN) +
                Eigen::Map<const Eigen::Vector4f>(a.y.data() + n * kN);
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, kBytesGaxpy);
}
BENCHMARK(BM_GaxpyMva_eigen);
#endif

void BM_GaxpyMva_arith(benchmark::State& state) { arith<true>(state); }
BENCHMARK(BM_GaxpyMva_arith);

}  // namespace
