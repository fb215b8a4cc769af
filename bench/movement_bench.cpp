// Transpose against plain loops: arrays of packed 4 x 4 matrices of 32f, and
// one 1024 x 1024 matrix of 32f, with a memcpy of the same bytes as the
// yardstick of this machine's copy bandwidth.  Bytes per second count what
// is read plus what is written.
#include <cstring>
#include <vector>

#include "common.h"
#include "kelm.h"

namespace {

constexpr int kCount = 1000;
constexpr int kLarge = 1024;

void Transpose4x4Array_kelm(benchmark::State& state)
{
    auto src = kb::randomData<float>(16 * kCount);
    std::vector<float> dst(16 * kCount);
    for (auto _ : state) {
        kelmTranspose_ma_32f(src.data(), 64, 16, 4, 4, 4, dst.data(), 64, 16, 4, kCount);
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, 2 * 64);
}
BENCHMARK(Transpose4x4Array_kelm);

void Transpose4x4Array_loop(benchmark::State& state)
{
    auto src = kb::randomData<float>(16 * kCount);
    std::vector<float> dst(16 * kCount);
    for (auto _ : state) {
        const float* s = src.data();
        float* d = dst.data();
        for (int n = 0; n < kCount; ++n, s += 16, d += 16)
            for (int i = 0; i < 4; ++i)
                for (int j = 0; j < 4; ++j) d[i * 4 + j] = s[j * 4 + i];
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, 2 * 64);
}
BENCHMARK(Transpose4x4Array_loop);

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

// Rows padded to 1040 elements: the source rows no longer share the sets of
// the first-level cache, and the strips run straight from the source.
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
