// Add and Sub on packed arrays of 3x3 and 4x4 float matrices: kelm against a
// plain loop and against Eigen's fixed-size matrices in a loop.
#include "common.h"
#include "kelm.h"

#ifdef KELM_BENCH_EIGEN
#include <Eigen/Core>
#endif

namespace {

const kb::OneThread oneThread;

template <int N>
struct Arrays {
    int count;
    std::vector<float> a, b, d;
    explicit Arrays(int c)
        : count(c), a(kb::randomData<float>(size_t(N) * N * c, 1)), b(kb::randomData<float>(size_t(N) * N * c, 2)),
          d(size_t(N) * N * c)
    {
    }
};

constexpr int kObj(int n) { return n * n * 4; }

// ---- array + array, array - array ---------------------------------------------------

enum class Op { Add, Sub };

template <int N, Op O = Op::Add>
void KelmMama(benchmark::State& state)
{
    Arrays<N> x(static_cast<int>(state.range(0)));
    auto call = O == Op::Add ? kelmAdd_mama_32f : kelmSub_mama_32f;
    for (auto _ : state) {
        call(x.a.data(), kObj(N), N * 4, 4, x.b.data(), kObj(N), N * 4, 4, x.d.data(), kObj(N), N * 4, 4, N, N,
             x.count);
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 3 * kObj(N));
}

template <int N, Op O = Op::Add>
void LoopMama(benchmark::State& state)
{
    Arrays<N> x(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const float* a = x.a.data();
        const float* b = x.b.data();
        float* d = x.d.data();
        for (int n = 0; n < x.count; ++n)
            for (int j = 0; j < N; ++j)
                for (int i = 0; i < N; ++i) {
                    const int e = (n * N + j) * N + i;
                    d[e] = O == Op::Add ? a[e] + b[e] : a[e] - b[e];
                }
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 3 * kObj(N));
}

#ifdef KELM_BENCH_EIGEN
template <int N>
using EMat = Eigen::Matrix<float, N, N, Eigen::RowMajor | Eigen::DontAlign>;

template <int N>
void EigenMama(benchmark::State& state)
{
    Arrays<N> x(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto* a = reinterpret_cast<const EMat<N>*>(x.a.data());
        auto* b = reinterpret_cast<const EMat<N>*>(x.b.data());
        auto* d = reinterpret_cast<EMat<N>*>(x.d.data());
        for (int n = 0; n < x.count; ++n) d[n] = a[n] + b[n];
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 3 * kObj(N));
}
#endif

template <int N>
void KelmSubMama(benchmark::State& state)
{
    KelmMama<N, Op::Sub>(state);
}
template <int N>
void LoopSubMama(benchmark::State& state)
{
    LoopMama<N, Op::Sub>(state);
}

// ---- array + one matrix ----------------------------------------------------------------

template <int N>
void KelmMam(benchmark::State& state)
{
    Arrays<N> x(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        kelmAdd_mam_32f(x.a.data(), kObj(N), N * 4, 4, x.b.data(), N * 4, 4, x.d.data(), kObj(N), N * 4, 4, N, N,
                        x.count);
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 2 * kObj(N));
}

template <int N>
void LoopMam(benchmark::State& state)
{
    Arrays<N> x(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const float* a = x.a.data();
        const float* b = x.b.data();
        float* d = x.d.data();
        for (int n = 0; n < x.count; ++n)
            for (int j = 0; j < N; ++j)
                for (int i = 0; i < N; ++i) d[(n * N + j) * N + i] = a[(n * N + j) * N + i] + b[j * N + i];
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 2 * kObj(N));
}

#ifdef KELM_BENCH_EIGEN
template <int N>
void EigenMam(benchmark::State& state)
{
    Arrays<N> x(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto* a = reinterpret_cast<const EMat<N>*>(x.a.data());
        const EMat<N> b = *reinterpret_cast<const EMat<N>*>(x.b.data());
        auto* d = reinterpret_cast<EMat<N>*>(x.d.data());
        for (int n = 0; n < x.count; ++n) d[n] = a[n] + b;
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 2 * kObj(N));
}
#endif

// STREAM-style triad over the same bytes as mama: the memory bound.
void Triad(benchmark::State& state)
{
    const size_t n = size_t(state.range(0)) * 16;
    auto a = kb::randomData<float>(n, 1), b = kb::randomData<float>(n, 2);
    std::vector<float> d(n);
    for (auto _ : state) {
        for (size_t i = 0; i < n; ++i) d[i] = a[i] + 3.0f * b[i];
        benchmark::ClobberMemory();
    }
    kb::report(state, size_t(state.range(0)), 3 * 64);
}

#define KELM_ADD_BENCH(f) BENCHMARK_TEMPLATE(f, 3)->Arg(1000)->Arg(1000000); BENCHMARK_TEMPLATE(f, 4)->Arg(1000)->Arg(1000000)
KELM_ADD_BENCH(KelmMama);
KELM_ADD_BENCH(LoopMama);
KELM_ADD_BENCH(KelmMam);
KELM_ADD_BENCH(LoopMam);
#ifdef KELM_BENCH_EIGEN
KELM_ADD_BENCH(EigenMama);
KELM_ADD_BENCH(EigenMam);
#endif
BENCHMARK_TEMPLATE(KelmSubMama, 4)->Arg(1000)->Arg(1000000);
BENCHMARK_TEMPLATE(LoopSubMama, 4)->Arg(1000)->Arg(1000000);
BENCHMARK(Triad)->Arg(1000000);

}  // namespace
