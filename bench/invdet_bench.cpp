// Inverses and determinants of 1000 packed matrices on one thread: kelm
// against glm and Eigen (fixed-size types in a loop, same instruction set),
// a plain C cofactor loop, and LAPACK getrf/getri for information.
//   Invert_32f/4   kelmInvert_ma_32f, 16-byte rows on 16-byte boundaries
//                  (two matrices at a time) and 4 bytes off them (one at a time)
//   Invert_64f/3   kelmInvert_ma_64f (and Invert_32f/3, kelmInvert_ma_32f, for information)
//   Det_64f/3, /4  kelmDet_ma_64f (and Det_32f, kelmDet_ma_32f, for information)
// For the determinants an "arith" entry times the closed form's multiplies
// and adds alone, two objects per register and no lane moves: it reads the
// matrices as if two objects were interleaved element by element, so its
// results are meaningless, and its time is a floor for any kernel that does
// the documented arithmetic.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <emmintrin.h>

#include "common.h"
#include "kelm.h"

#ifdef KELM_BENCH_EIGEN
#include <Eigen/Dense>
#endif

#define GLM_FORCE_CTOR_INIT
#include <glm/glm.hpp>
#include <glm/gtc/type_ptr.hpp>

#ifdef KELM_BENCH_LAPACK
extern "C" {
void dgetrf_(const int* m, const int* n, double* a, const int* lda, int* ipiv, int* info);
void dgetri_(const int* n, double* a, const int* lda, const int* ipiv, double* work, const int* lwork, int* info);
void sgetrf_(const int* m, const int* n, float* a, const int* lda, int* ipiv, int* info);
void sgetri_(const int* n, float* a, const int* lda, const int* ipiv, float* work, const int* lwork, int* info);
}
#endif

namespace {

const kb::OneThread oneThread;
constexpr int kCount = 1000;

// Matrices with a strong diagonal, so that nothing is refused; `shift`
// elements of room in front for the unaligned runs.
template <class T, int N>
struct Data {
    std::vector<T> a, d, buf;
    explicit Data(int shift = 0) : a(N * N * kCount + 4), d(N * N * kCount + 4), buf(N * (N + 1))
    {
        auto r = kb::randomData<T>(N * N * kCount, 7);
        for (int k = 0; k < N * N * kCount; ++k) a[shift + k] = r[k] + (k % (N + 1) == 0 ? T(N) : T(0));
    }
};

// 16-byte aligned storage for the pair path.
template <class T>
T* aligned(std::vector<T>& v)
{
    auto p = reinterpret_cast<std::uintptr_t>(v.data());
    return reinterpret_cast<T*>((p + 15) & ~std::uintptr_t(15));
}

// ---- kelm ---------------------------------------------------------------------

void kelmInvert4(benchmark::State& state)
{
    const bool pairs = state.range(0) == 0;
    Data<float, 4> x(4);
    float* a = aligned(x.a) + (pairs ? 0 : 1);
    float* d = aligned(x.d) + (pairs ? 0 : 1);
    if (pairs) std::memmove(a, x.a.data() + 4, sizeof(float) * 16 * kCount);
    for (auto _ : state) {
        if (kelmInvert_ma_32f(a, 64, 16, 4, x.buf.data(), d, 64, 16, 4, 4, kCount)) state.SkipWithError("refused");
        benchmark::DoNotOptimize(d);
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(float) * 32);
}

template <class T>
void kelmInvert3(benchmark::State& state)
{
    Data<T, 3> x;
    constexpr int e = sizeof(T);
    for (auto _ : state) {
        KelStatus st;
        if constexpr (e == 8)
            st = kelmInvert_ma_64f(x.a.data(), 9 * e, 3 * e, e, x.buf.data(), x.d.data(), 9 * e, 3 * e, e, 3, kCount);
        else
            st = kelmInvert_ma_32f(x.a.data(), 9 * e, 3 * e, e, x.buf.data(), x.d.data(), 9 * e, 3 * e, e, 3, kCount);
        if (st) state.SkipWithError("refused");
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * 18);
}

template <class T, int N>
void kelmDet(benchmark::State& state)
{
    Data<T, N> x;
    constexpr int e = sizeof(T);
    for (auto _ : state) {
        if constexpr (e == 8) kelmDet_ma_64f(x.a.data(), N * N * e, N * e, e, N, x.buf.data(), x.d.data(), kCount);
        else kelmDet_ma_32f(x.a.data(), N * N * e, N * e, e, N, x.buf.data(), x.d.data(), kCount);
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * (N * N + 1));
}

// ---- glm (column-major: it inverts the transposes, the same work) -----------------

template <class M, class T, int N>
M load(const T* p)
{
    M m;
    std::memcpy(glm::value_ptr(m), p, sizeof(T) * N * N);
    return m;
}

template <class M, class T, int N>
void glmInverse(benchmark::State& state)
{
    Data<T, N> x;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            const M r = glm::inverse(load<M, T, N>(&x.a[k * N * N]));
            std::memcpy(&x.d[k * N * N], glm::value_ptr(r), sizeof(T) * N * N);
        }
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * 2 * N * N);
}

template <class M, int N>
void glmDet(benchmark::State& state)
{
    Data<double, N> x;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) x.d[k] = glm::determinant(load<M, double, N>(&x.a[k * N * N]));
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(double) * (N * N + 1));
}

// ---- Eigen ------------------------------------------------------------------------

#ifdef KELM_BENCH_EIGEN
template <class T, int N>
void eigenInverse(benchmark::State& state)
{
    using M = Eigen::Matrix<T, N, N, Eigen::RowMajor>;
    Data<T, N> x;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) Eigen::Map<M>(&x.d[k * N * N]) = Eigen::Map<const M>(&x.a[k * N * N]).inverse();
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * 2 * N * N);
}

template <class T, int N>
void eigenDet(benchmark::State& state)
{
    using M = Eigen::Matrix<T, N, N, Eigen::RowMajor>;
    Data<T, N> x;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) x.d[k] = Eigen::Map<const M>(&x.a[k * N * N]).determinant();
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * (N * N + 1));
}
#endif

// ---- plain C: cofactors and one division ---------------------------------------------

template <class T>
void plainInverse3(const T* a, T* d)
{
    const T c00 = a[4] * a[8] - a[5] * a[7], c01 = a[5] * a[6] - a[3] * a[8], c02 = a[3] * a[7] - a[4] * a[6];
    const T det = a[0] * c00 + a[1] * c01 + a[2] * c02;
    const T r = T(1) / det;
    d[0] = c00 * r, d[1] = (a[2] * a[7] - a[1] * a[8]) * r, d[2] = (a[1] * a[5] - a[2] * a[4]) * r;
    d[3] = c01 * r, d[4] = (a[0] * a[8] - a[2] * a[6]) * r, d[5] = (a[2] * a[3] - a[0] * a[5]) * r;
    d[6] = c02 * r, d[7] = (a[1] * a[6] - a[0] * a[7]) * r, d[8] = (a[0] * a[4] - a[1] * a[3]) * r;
}

template <class T>
void plainInverse4(const T* m, T* d)
{
    const T s0 = m[0] * m[5] - m[4] * m[1], s1 = m[0] * m[6] - m[4] * m[2], s2 = m[0] * m[7] - m[4] * m[3];
    const T s3 = m[1] * m[6] - m[5] * m[2], s4 = m[1] * m[7] - m[5] * m[3], s5 = m[2] * m[7] - m[6] * m[3];
    const T c5 = m[10] * m[15] - m[14] * m[11], c4 = m[9] * m[15] - m[13] * m[11], c3 = m[9] * m[14] - m[13] * m[10];
    const T c2 = m[8] * m[15] - m[12] * m[11], c1 = m[8] * m[14] - m[12] * m[10], c0 = m[8] * m[13] - m[12] * m[9];
    const T r = T(1) / (s0 * c5 - s1 * c4 + s2 * c3 + s3 * c2 - s4 * c1 + s5 * c0);
    d[0] = (m[5] * c5 - m[6] * c4 + m[7] * c3) * r, d[1] = (-m[1] * c5 + m[2] * c4 - m[3] * c3) * r;
    d[2] = (m[13] * s5 - m[14] * s4 + m[15] * s3) * r, d[3] = (-m[9] * s5 + m[10] * s4 - m[11] * s3) * r;
    d[4] = (-m[4] * c5 + m[6] * c2 - m[7] * c1) * r, d[5] = (m[0] * c5 - m[2] * c2 + m[3] * c1) * r;
    d[6] = (-m[12] * s5 + m[14] * s2 - m[15] * s1) * r, d[7] = (m[8] * s5 - m[10] * s2 + m[11] * s1) * r;
    d[8] = (m[4] * c4 - m[5] * c2 + m[7] * c0) * r, d[9] = (-m[0] * c4 + m[1] * c2 - m[3] * c0) * r;
    d[10] = (m[12] * s4 - m[13] * s2 + m[15] * s0) * r, d[11] = (-m[8] * s4 + m[9] * s2 - m[11] * s0) * r;
    d[12] = (-m[4] * c3 + m[5] * c1 - m[6] * c0) * r, d[13] = (m[0] * c3 - m[1] * c1 + m[2] * c0) * r;
    d[14] = (-m[12] * s3 + m[13] * s1 - m[14] * s0) * r, d[15] = (m[8] * s3 - m[9] * s1 + m[10] * s0) * r;
}

template <class T>
T plainDet3(const T* a)
{
    return (a[0] * a[4] - a[1] * a[3]) * a[8] - (a[0] * a[5] - a[3] * a[2]) * a[7] + (a[1] * a[5] - a[4] * a[2]) * a[6];
}

template <class T>
T plainDet4(const T* a)
{
    const T m01 = a[0] * a[5] - a[4] * a[1], m02 = a[0] * a[6] - a[4] * a[2], m03 = a[0] * a[7] - a[4] * a[3];
    const T m12 = a[1] * a[6] - a[5] * a[2], m13 = a[1] * a[7] - a[5] * a[3], m23 = a[2] * a[7] - a[6] * a[3];
    const T A = a[10] * m01 - a[9] * m02 + a[8] * m12, B = a[11] * m01 - a[9] * m03 + a[8] * m13;
    const T C = a[11] * m02 - a[10] * m03 + a[8] * m23, D = a[11] * m12 - a[10] * m13 + a[9] * m23;
    return A * a[15] - B * a[14] + (T(0) - a[12]) * D + C * a[13];
}

template <class T, int N, void (*F)(const T*, T*)>
void plainInverse(benchmark::State& state)
{
    Data<T, N> x;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) F(&x.a[k * N * N], &x.d[k * N * N]);
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * 2 * N * N);
}

template <class T, int N, T (*F)(const T*)>
void plainDet(benchmark::State& state)
{
    Data<T, N> x;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) x.d[k] = F(&x.a[k * N * N]);
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * (N * N + 1));
}

// ---- arithmetic only: two objects per register -------------------------------------------

template <int N>
void arithDet(benchmark::State& state)
{
    Data<double, N> x;
    for (auto _ : state) {
        const double* p = x.a.data();
        for (int k = 0; k < kCount; k += 2, p += 2 * N * N) {
            __m128d a[N * N];
            for (int i = 0; i < N * N; ++i) a[i] = _mm_loadu_pd(p + 2 * i);
            auto mul = [](__m128d u, __m128d v) { return _mm_mul_pd(u, v); };
            auto sub = [](__m128d u, __m128d v) { return _mm_sub_pd(u, v); };
            auto add = [](__m128d u, __m128d v) { return _mm_add_pd(u, v); };
            __m128d det;
            if constexpr (N == 3) {
                det = add(sub(mul(sub(mul(a[0], a[4]), mul(a[1], a[3])), a[8]), mul(sub(mul(a[0], a[5]), mul(a[3], a[2])), a[7])),
                          mul(sub(mul(a[1], a[5]), mul(a[4], a[2])), a[6]));
            } else {
                auto m = [&](int i, int j) { return sub(mul(a[i], a[4 + j]), mul(a[4 + i], a[j])); };
                const __m128d m01 = m(0, 1), m02 = m(0, 2), m03 = m(0, 3), m12 = m(1, 2), m13 = m(1, 3), m23 = m(2, 3);
                const __m128d A = add(sub(mul(a[10], m01), mul(a[9], m02)), mul(a[8], m12));
                const __m128d B = add(sub(mul(a[11], m01), mul(a[9], m03)), mul(a[8], m13));
                const __m128d C = add(sub(mul(a[11], m02), mul(a[10], m03)), mul(a[8], m23));
                const __m128d D = add(sub(mul(a[11], m12), mul(a[10], m13)), mul(a[9], m23));
                det = add(add(sub(mul(A, a[15]), mul(B, a[14])), mul(sub(_mm_setzero_pd(), a[12]), D)), mul(C, a[13]));
            }
            _mm_storeu_pd(&x.d[k], det);
        }
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(double) * (N * N + 1));
}

// ---- LAPACK: getrf and getri per object, on a copy ------------------------------------------

#ifdef KELM_BENCH_LAPACK
template <class T, int N>
void lapackInverse(benchmark::State& state)
{
    Data<T, N> x;
    const int n = N, lwork = 64;
    int piv[N], info = 0;
    T work[64];
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            T* d = &x.d[k * N * N];
            std::memcpy(d, &x.a[k * N * N], sizeof(T) * N * N);
            if constexpr (sizeof(T) == 8) {
                dgetrf_(&n, &n, d, &n, piv, &info);
                dgetri_(&n, d, &n, piv, work, &lwork, &info);
            } else {
                sgetrf_(&n, &n, d, &n, piv, &info);
                sgetri_(&n, d, &n, piv, work, &lwork, &info);
            }
        }
        if (info != 0) state.SkipWithError("singular");
        benchmark::DoNotOptimize(x.d.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, sizeof(T) * 2 * N * N);
}
#endif

BENCHMARK(kelmInvert4)->Name("Invert_32f/4/kelm")->Arg(0)->Arg(1)->ArgName("unaligned");
BENCHMARK(glmInverse<glm::mat4, float, 4>)->Name("Invert_32f/4/glm");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenInverse<float, 4>)->Name("Invert_32f/4/Eigen");
#endif
BENCHMARK(plainInverse<float, 4, plainInverse4<float>>)->Name("Invert_32f/4/plainC");
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapackInverse<float, 4>)->Name("Invert_32f/4/LAPACK");
#endif

BENCHMARK(kelmInvert3<double>)->Name("Invert_64f/3/kelm");
BENCHMARK(glmInverse<glm::dmat3, double, 3>)->Name("Invert_64f/3/glm");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenInverse<double, 3>)->Name("Invert_64f/3/Eigen");
#endif
BENCHMARK(plainInverse<double, 3, plainInverse3<double>>)->Name("Invert_64f/3/plainC");
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapackInverse<double, 3>)->Name("Invert_64f/3/LAPACK");
#endif

BENCHMARK(kelmDet<double, 3>)->Name("Det_64f/3/kelm");
BENCHMARK(glmDet<glm::dmat3, 3>)->Name("Det_64f/3/glm");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenDet<double, 3>)->Name("Det_64f/3/Eigen");
#endif
BENCHMARK(plainDet<double, 3, plainDet3<double>>)->Name("Det_64f/3/plainC");
BENCHMARK(arithDet<3>)->Name("Det_64f/3/arith");

BENCHMARK(kelmDet<double, 4>)->Name("Det_64f/4/kelm");
BENCHMARK(glmDet<glm::dmat4, 4>)->Name("Det_64f/4/glm");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenDet<double, 4>)->Name("Det_64f/4/Eigen");
#endif
BENCHMARK(plainDet<double, 4, plainDet4<double>>)->Name("Det_64f/4/plainC");
BENCHMARK(arithDet<4>)->Name("Det_64f/4/arith");

// Single precision, for information.
BENCHMARK(kelmInvert3<float>)->Name("Invert_32f/3/kelm");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenInverse<float, 3>)->Name("Invert_32f/3/Eigen");
#endif
BENCHMARK(plainInverse<float, 3, plainInverse3<float>>)->Name("Invert_32f/3/plainC");
BENCHMARK(kelmDet<float, 3>)->Name("Det_32f/3/kelm");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenDet<float, 3>)->Name("Det_32f/3/Eigen");
#endif
BENCHMARK(plainDet<float, 3, plainDet3<float>>)->Name("Det_32f/3/plainC");
BENCHMARK(kelmDet<float, 4>)->Name("Det_32f/4/kelm");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigenDet<float, 4>)->Name("Det_32f/4/Eigen");
#endif
BENCHMARK(plainDet<float, 4, plainDet4<float>>)->Name("Det_32f/4/plainC");

}  // namespace
