// Helpers shared by the benchmarks.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <random>
#include <vector>

#include "kelcore.h"

namespace kb {

// Aligned, randomly filled storage for `n` elements.
template <class T>
std::vector<T> randomData(std::size_t n, unsigned seed = 1)
{
    std::mt19937 rng(seed);
    std::uniform_real_distribution<double> d(-1.0, 1.0);
    std::vector<T> v(n);
    for (auto& x : v) x = static_cast<T>(d(rng));
    return v;
}

// Reports time per object and bytes moved per second.
inline void report(benchmark::State& state, std::size_t objects, std::size_t bytesPerObject)
{
    state.counters["t/obj"] = benchmark::Counter(static_cast<double>(objects),
                                                  benchmark::Counter::kIsIterationInvariantRate |
                                                      benchmark::Counter::kInvert);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(objects * bytesPerObject));
}

// Benchmarks measure one thread unless they say otherwise.
struct OneThread {
    OneThread() { kelSetNumThreads(1); }
};

}  // namespace kb
