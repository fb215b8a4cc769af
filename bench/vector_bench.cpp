// Vector algebra and reductions on packed arrays, one thread, 1000 objects
// (one vector of 256 for the long dot product): kelm against a plain loop
// and Eigen's fixed-size maps in a loop, all compiled for the same
// instruction set.  An "arith" entry times the prescribed arithmetic alone,
// four objects per register, with the operands loaded and the results
// stored but no element moved between lanes: a floor for any kernel that
// keeps the documented order.  Its results are meaningless.
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "common.h"
#include "frame/simd.h"
#include "kelm.h"

#if KELM_BENCH_EIGEN
#include <Eigen/Core>
#include <Eigen/Geometry>
#endif

namespace {

const kb::OneThread oneThread;
constexpr int kCount = 1000;

using P = kel::simd::Pack<kel::simd::Sse, float>;

double fastest(const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); }

// Registers `body` (one pass over the objects) as "<op>/<who>".
void add(const std::string& op, const char* who, int objects, int bytesPerObject, std::function<void()> body)
{
    benchmark::RegisterBenchmark((op + "/" + who).c_str(),
                                 [=](benchmark::State& state) {
                                     for (auto _ : state) {
                                         body();
                                         benchmark::ClobberMemory();
                                     }
                                     kb::report(state, objects, bytesPerObject);
                                 })
        ->ComputeStatistics("min", fastest);
}

struct Data {
    std::vector<float> a = kb::randomData<float>(kCount * 16, 1), b = kb::randomData<float>(kCount * 16, 2);
    std::vector<float> d = std::vector<float>(kCount * 16);
};
Data& data()
{
    static Data x;
    return x;
}

#if KELM_BENCH_EIGEN
template <int N>
using EVec = Eigen::Map<const Eigen::Matrix<float, N, 1>>;
#endif

// Four objects of `len` elements are 'len' packs; the lanes of pack k hold
// elements of several objects, which is the arithmetic without the moves.
template <int N>
void dotFloor(const float* a, const float* b, float* d, bool root)
{
    for (int n = 0; n < kCount; n += 4) {
        P s = P::load(a + n * N) * P::load(b + n * N);
        for (int k = 1; k < N; ++k) s = s + P::load(a + n * N + 4 * k) * P::load(b + n * N + 4 * k);
        if (root) s = kel::simd::sqrt(s);
        s.store(d + n);
    }
}

template <int N>
void registerDot()
{
    const std::string op = "DotProduct_vava_32f_len" + std::to_string(N);
    add(op, "kelm", kCount, 8 * N, [] {
        Data& x = data();
        kelmDotProduct_vava_32f(x.a.data(), 4 * N, 4, x.b.data(), 4 * N, 4, x.d.data(), N, kCount);
    });
    add(op, "loop", kCount, 8 * N, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) {
            float s = 0;
            for (int k = 0; k < N; ++k) s += x.a[n * N + k] * x.b[n * N + k];
            x.d[n] = s;
        }
    });
#if KELM_BENCH_EIGEN
    add(op, "eigen", kCount, 8 * N, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) x.d[n] = EVec<N>(&x.a[n * N]).dot(EVec<N>(&x.b[n * N]));
    });
#endif
    add(op, "arith", kCount, 8 * N, [] { dotFloor<N>(data().a.data(), data().b.data(), data().d.data(), false); });
}

template <int N>
void registerNorm()
{
    const std::string op = "L2Norm_va_32f_len" + std::to_string(N);
    add(op, "kelm", kCount, 4 * N, [] {
        Data& x = data();
        kelmL2Norm_va_32f(x.a.data(), 4 * N, 4, x.d.data(), N, kCount);
    });
    add(op, "loop", kCount, 4 * N, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) {
            float s = 0;
            for (int k = 0; k < N; ++k) s += x.a[n * N + k] * x.a[n * N + k];
            x.d[n] = std::sqrt(s);
        }
    });
#if KELM_BENCH_EIGEN
    add(op, "eigen", kCount, 4 * N, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) x.d[n] = EVec<N>(&x.a[n * N]).norm();
    });
#endif
    add(op, "arith", kCount, 4 * N, [] { dotFloor<N>(data().a.data(), data().a.data(), data().d.data(), true); });
}

void registerCross()
{
    const std::string op = "CrossProduct_vava_32f";
    add(op, "kelm", kCount, 36, [] {
        Data& x = data();
        kelmCrossProduct_vava_32f(x.a.data(), 12, 4, x.b.data(), 12, 4, x.d.data(), 12, 4, kCount);
    });
    add(op, "loop", kCount, 36, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) {
            const float* a = &x.a[3 * n];
            const float* b = &x.b[3 * n];
            float* d = &x.d[3 * n];
            d[0] = a[1] * b[2] - a[2] * b[1];
            d[1] = a[2] * b[0] - a[0] * b[2];
            d[2] = a[0] * b[1] - a[1] * b[0];
        }
    });
#if KELM_BENCH_EIGEN
    add(op, "eigen", kCount, 36, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n)
            Eigen::Map<Eigen::Vector3f>(&x.d[3 * n]) = EVec<3>(&x.a[3 * n]).cross(EVec<3>(&x.b[3 * n]));
    });
#endif
    // Four objects: three packs of each operand, six products, three differences.
    add(op, "arith", kCount, 36, [] {
        Data& x = data();
        for (int n = 0; n < kCount; n += 4) {
            const float* a = &x.a[3 * n];
            const float* b = &x.b[3 * n];
            for (int k = 0; k < 3; ++k) {
                const P u = P::load(a + 4 * k), v = P::load(b + 4 * k), w = P::load(a + 4 * ((k + 1) % 3)),
                        z = P::load(b + 4 * ((k + 2) % 3));
                (u * v - w * z).store(&x.d[3 * n + 4 * k]);
            }
        }
    });
}

void registerMatrices()
{
    const std::string frob = "FrobNorm_ma_32f_4x4";
    add(frob, "kelm", kCount, 64, [] {
        Data& x = data();
        kelmFrobNorm_ma_32f(x.a.data(), 64, 16, 4, 4, 4, x.d.data(), kCount);
    });
    add(frob, "loop", kCount, 64, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) {
            float s = 0;
            for (int k = 0; k < 16; ++k) s += x.a[16 * n + k] * x.a[16 * n + k];
            x.d[n] = std::sqrt(s);
        }
    });
#if KELM_BENCH_EIGEN
    add(frob, "eigen", kCount, 64, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) x.d[n] = Eigen::Map<const Eigen::Matrix4f>(&x.a[16 * n]).norm();
    });
#endif
    // Four objects: sixteen packs squared into four lane sums, one root.
    add(frob, "arith", kCount, 64, [] {
        Data& x = data();
        for (int n = 0; n < kCount; n += 4) {
            P s[4];
            for (int o = 0; o < 4; ++o) {
                const float* m = &x.a[16 * (n + o)];
                P r0 = P::load(m) * P::load(m), r1 = P::load(m + 4) * P::load(m + 4);
                P r2 = P::load(m + 8) * P::load(m + 8), r3 = P::load(m + 12) * P::load(m + 12);
                s[o] = (r0 + r1) + (r2 + r3);
            }
            kel::simd::sqrt((s[0] + s[2]) + (s[1] + s[3])).store(&x.d[n]);
        }
    });

    const std::string tr = "Trace_ma_32f_4x4";
    add(tr, "kelm", kCount, 16, [] {
        Data& x = data();
        kelmTrace_ma_32f(x.a.data(), 64, 16, 4, 4, x.d.data(), kCount);
    });
    add(tr, "loop", kCount, 16, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) {
            const float* m = &x.a[16 * n];
            x.d[n] = ((m[0] + m[5]) + m[10]) + m[15];
        }
    });
#if KELM_BENCH_EIGEN
    add(tr, "eigen", kCount, 16, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n) x.d[n] = Eigen::Map<const Eigen::Matrix4f>(&x.a[16 * n]).trace();
    });
#endif
}

void registerLong()
{
    constexpr int N = 256;
    const std::string op = "DotProduct_vv_32f_len256";
    add(op, "kelm", 1, 8 * N, [] {
        Data& x = data();
        kelmDotProduct_vv_32f(x.a.data(), 4, x.b.data(), 4, x.d.data(), N);
    });
    add(op, "loop", 1, 8 * N, [] {
        Data& x = data();
        float s = 0;
        for (int k = 0; k < N; ++k) s += x.a[k] * x.b[k];
        x.d[0] = s;
    });
#if KELM_BENCH_EIGEN
    add(op, "eigen", 1, 8 * N, [] {
        Data& x = data();
        x.d[0] = EVec<N>(x.a.data()).dot(EVec<N>(x.b.data()));
    });
#endif
    // Two accumulators of four lanes, eight elements a step.
    add(op, "arith", 1, 8 * N, [] {
        Data& x = data();
        P p = P::splat(0), q = P::splat(0);
        for (int k = 0; k < N; k += 8) {
            p = p + P::load(&x.a[k]) * P::load(&x.b[k]);
            q = q + P::load(&x.a[k + 4]) * P::load(&x.b[k + 4]);
        }
        x.d[0] = kel::simd::sumPairs(p + q);
    });
}

void registerSaxpy()
{
    const std::string op = "Saxpy_vava_32f_len4";
    add(op, "kelm", kCount, 48, [] {
        Data& x = data();
        kelmSaxpy_vava_32f(x.a.data(), 16, 4, 1.5f, x.b.data(), 16, 4, x.d.data(), 16, 4, 4, kCount);
    });
    add(op, "loop", kCount, 48, [] {
        Data& x = data();
        for (int k = 0; k < 4 * kCount; ++k) x.d[k] = 1.5f * x.a[k] + x.b[k];
    });
#if KELM_BENCH_EIGEN
    add(op, "eigen", kCount, 48, [] {
        Data& x = data();
        for (int n = 0; n < kCount; ++n)
            Eigen::Map<Eigen::Vector4f>(&x.d[4 * n]) = 1.5f * EVec<4>(&x.a[4 * n]) + EVec<4>(&x.b[4 * n]);
    });
#endif
}

const bool registered = [] {
    registerDot<3>();
    registerDot<4>();
    registerNorm<3>();
    registerNorm<4>();
    registerCross();
    registerMatrices();
    registerLong();
    registerSaxpy();
    return true;
}();

}  // namespace
