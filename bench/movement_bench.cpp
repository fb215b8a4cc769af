// Transpose and Copy against plain loops: arrays of packed 4 x 4 matrices of
// 32f, and one 1024 x 1024 matrix of 32f, with a memcpy of the same bytes as the
// yardstick of this machine's copy bandwidth.  Bytes per second count what
// is read plus what is written.  Peers for the large matrix: the plain
// double loop, the same loop over 16 x 16 tiles, and Eigen.
#include <cstring>
#include <vector>

#ifdef KELM_BENCH_EIGEN
#include <Eigen/Core>
#endif

#include "common.h"
#include "kelm.h"

namespace {

constexpr int kCount = 1000;
constexpr int kLarge = 1024;

// Times move(src, dst) over kCount packed 4 x 4 matrices of 32f.
template <class F>
void packed4x4(benchmark::State& state, F move)
{
    auto src = kb::randomData<float>(16 * kCount);
    std::vector<float> dst(16 * kCount);
    for (auto _ : state) {
        move(src.data(), dst.data());
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, 2 * 64);
}

void Transpose4x4Array_kelm(benchmark::State& state)
{
    packed4x4(state, [](const float* s, float* d) { kelmTranspose_ma_32f(s, 64, 16, 4, 4, 4, d, 64, 16, 4, kCount); });
}
BENCHMARK(Transpose4x4Array_kelm);

void Transpose4x4Array_loop(benchmark::State& state)
{
    packed4x4(state, [](const float* s, float* d) {
        for (int n = 0; n < kCount; ++n, s += 16, d += 16)
            for (int i = 0; i < 4; ++i)
                for (int j = 0; j < 4; ++j) d[i * 4 + j] = s[j * 4 + i];
    });
}
BENCHMARK(Transpose4x4Array_loop);

// Copy of packed 4 x 4 matrices, against memcpy of the same bytes; and out
// of the fields of an array of structures given by pointers (P) into packed
// matrices (S), against the loop over the fields by name.
void Copy4x4Array_kelm(benchmark::State& state)
{
    packed4x4(state, [](const float* s, float* d) { kelmCopy_ma_32f_SS(s, 64, 16, 4, d, 64, 16, 4, 4, 4, kCount); });
}
BENCHMARK(Copy4x4Array_kelm);

void Copy4x4Array_memcpy(benchmark::State& state)
{
    packed4x4(state, [](const float* s, float* d) { std::memcpy(d, s, sizeof(float) * 16 * kCount); });
}
BENCHMARK(Copy4x4Array_memcpy);

struct Body {
    float m[16];
    float other[4];
};

void CopyFields_kelm(benchmark::State& state)
{
    std::vector<Body> src(kCount);
    std::vector<float> dst(16 * kCount);
    std::vector<const float*> table;
    for (int p = 0; p < 16; ++p) table.push_back(&src[0].m[p]);
    for (auto _ : state) {
        kelmCopy_ma_32f_PS(table.data(), 0, sizeof(Body), dst.data(), 64, 16, 4, 4, 4, kCount);
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, 2 * 64);
}
BENCHMARK(CopyFields_kelm);

void CopyFields_loop(benchmark::State& state)
{
    std::vector<Body> src(kCount);
    std::vector<float> dst(16 * kCount);
    for (auto _ : state) {
        for (int n = 0; n < kCount; ++n)
            for (int p = 0; p < 16; ++p) dst[16 * n + p] = src[n].m[p];
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, 2 * 64);
}
BENCHMARK(CopyFields_loop);

constexpr std::size_t kLargeBytes = std::size_t(kLarge) * kLarge * sizeof(float);

void Transpose1024_kelm(benchmark::State& state)
{
    auto src = kb::randomData<float>(std::size_t(kLarge) * kLarge);
    std::vector<float> dst(std::size_t(kLarge) * kLarge);
    for (auto _ : state) {
        kelmTranspose_m_32f(src.data(), kLarge * 4, 4, kLarge, kLarge, dst.data(), kLarge * 4, 4);
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, 1, 2 * kLargeBytes);
}
BENCHMARK(Transpose1024_kelm)->Unit(benchmark::kMicrosecond);

// Rows padded to 1040 elements: the rows no longer share the sets of the
// first-level cache, and the 16 x 16 tiles go straight from the source.
void Transpose1024Padded_kelm(benchmark::State& state)
{
    const int ld = kLarge + 16;
    auto src = kb::randomData<float>(std::size_t(ld) * kLarge);
    std::vector<float> dst(std::size_t(ld) * kLarge);
    for (auto _ : state) {
        kelmTranspose_m_32f(src.data(), ld * 4, 4, kLarge, kLarge, dst.data(), ld * 4, 4);
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, 1, 2 * kLargeBytes);
}
BENCHMARK(Transpose1024Padded_kelm)->Unit(benchmark::kMicrosecond);

void Transpose1024_loop(benchmark::State& state)
{
    auto src = kb::randomData<float>(std::size_t(kLarge) * kLarge);
    std::vector<float> dst(std::size_t(kLarge) * kLarge);
    for (auto _ : state) {
        for (int i = 0; i < kLarge; ++i)
            for (int j = 0; j < kLarge; ++j) dst[std::size_t(i) * kLarge + j] = src[std::size_t(j) * kLarge + i];
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, 1, 2 * kLargeBytes);
}
BENCHMARK(Transpose1024_loop)->Unit(benchmark::kMicrosecond);

// The double loop over 16 x 16 tiles, so that both sides of a tile stay in
// the first-level cache (as far as its associativity allows).
void Transpose1024_tiledLoop(benchmark::State& state)
{
    constexpr int kT = 16;
    auto src = kb::randomData<float>(std::size_t(kLarge) * kLarge);
    std::vector<float> dst(std::size_t(kLarge) * kLarge);
    for (auto _ : state) {
        for (int i0 = 0; i0 < kLarge; i0 += kT)
            for (int j0 = 0; j0 < kLarge; j0 += kT)
                for (int i = i0; i < i0 + kT; ++i)
                    for (int j = j0; j < j0 + kT; ++j) dst[std::size_t(i) * kLarge + j] = src[std::size_t(j) * kLarge + i];
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, 1, 2 * kLargeBytes);
}
BENCHMARK(Transpose1024_tiledLoop)->Unit(benchmark::kMicrosecond);

#ifdef KELM_BENCH_EIGEN
void Transpose1024_eigen(benchmark::State& state)
{
    using M = Eigen::Matrix<float, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
    auto src = kb::randomData<float>(std::size_t(kLarge) * kLarge);
    std::vector<float> dst(std::size_t(kLarge) * kLarge);
    Eigen::Map<const M> s(src.data(), kLarge, kLarge);
    Eigen::Map<M> d(dst.data(), kLarge, kLarge);
    for (auto _ : state) {
        d.noalias() = s.transpose();
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, 1, 2 * kLargeBytes);
}
BENCHMARK(Transpose1024_eigen)->Unit(benchmark::kMicrosecond);
#endif

// The same bytes copied as one block: the bandwidth to compare with.
void Memcpy1024(benchmark::State& state)
{
    auto src = kb::randomData<float>(std::size_t(kLarge) * kLarge);
    std::vector<float> dst(std::size_t(kLarge) * kLarge);
    for (auto _ : state) {
        std::memcpy(dst.data(), src.data(), kLargeBytes);
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, 1, 2 * kLargeBytes);
}
BENCHMARK(Memcpy1024)->Unit(benchmark::kMicrosecond);

}  // namespace
