// Structure-of-arrays data: Add of 4x4 matrices whose objects lie side by
// side, described as interleaved S (Stride0 the element size) and as P over
// planes, against kelm on packed objects (S and L, and a rows loop by hand
// through the L tables) and the loop a user writes over the same planes; P
// over the fields of an array of structs.
#include <cstdint>
#include <type_traits>

#include <xmmintrin.h>

#include "common.h"
#include "kelm.h"

namespace {

const kb::OneThread oneThread;

constexpr int kN = 4, kPos = kN * kN;

// Planes: position p of object n at [p * count + n].
template <class T>
struct Planes {
    int count;
    std::vector<T> a, b, d;
    std::vector<const T*> ta, tb;
    std::vector<T*> td;
    explicit Planes(int c)
        : count(c), a(kb::randomData<T>(size_t(kPos) * c, 1)), b(kb::randomData<T>(size_t(kPos) * c, 2)),
          d(size_t(kPos) * c)
    {
        for (int p = 0; p < kPos; ++p) {
            ta.push_back(a.data() + size_t(p) * c);
            tb.push_back(b.data() + size_t(p) * c);
            td.push_back(d.data() + size_t(p) * c);
        }
    }
};

KelStatus addS(const float* a, int a0, int a1, int a2, const float* b, int b0, int b1, int b2, float* d, int d0, int d1,
               int d2, int c)
{
    return kelmAdd_mama_32f(a, a0, a1, a2, b, b0, b1, b2, d, d0, d1, d2, kN, kN, c);
}
KelStatus addS(const double* a, int a0, int a1, int a2, const double* b, int b0, int b1, int b2, double* d, int d0,
               int d1, int d2, int c)
{
    return kelmAdd_mama_64f(a, a0, a1, a2, b, b0, b1, b2, d, d0, d1, d2, kN, kN, c);
}
KelStatus addP(const float* const* a, int ar, int a0, const float* const* b, int br, int b0, float* const* d, int dr,
               int d0, int c)
{
    return kelmAdd_mama_32f_P(a, ar, a0, b, br, b0, d, dr, d0, kN, kN, c);
}
KelStatus addP(const double* const* a, int ar, int a0, const double* const* b, int br, int b0, double* const* d,
               int dr, int d0, int c)
{
    return kelmAdd_mama_64f_P(a, ar, a0, b, br, b0, d, dr, d0, kN, kN, c);
}

// Runs `call` on fresh planes once per iteration; reports time per object.
template <class T, class F>
void timed(benchmark::State& state, const F& call)
{
    Planes<T> x(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        call(x, static_cast<int>(sizeof(T)));
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 3 * kPos * sizeof(T));
}

template <class T>
void KelmPlanesS(benchmark::State& state)
{
    timed<T>(state, [](Planes<T>& x, int e) {
        const int s2 = e * x.count, s1 = s2 * kN;
        addS(x.a.data(), e, s1, s2, x.b.data(), e, s1, s2, x.d.data(), e, s1, s2, x.count);
    });
}

template <class T>
void KelmPlanesP(benchmark::State& state)
{
    timed<T>(state, [](Planes<T>& x, int e) { addP(x.ta.data(), 0, e, x.tb.data(), 0, e, x.td.data(), 0, e, x.count); });
}

// The same arrays as packed objects: object n at [n * 16].
template <class T>
void KelmObjectsS(benchmark::State& state)
{
    timed<T>(state, [](Planes<T>& x, int e) {
        addS(x.a.data(), e * kPos, e * kN, e, x.b.data(), e * kPos, e * kN, e, x.d.data(), e * kPos, e * kN, e,
             x.count);
    });
}

// The same objects through L tables: object n at [n * 16].
struct Tables {
    Planes<float> x;
    std::vector<const float*> la, lb;
    std::vector<float*> ld;
    explicit Tables(int count) : x(count)
    {
        for (int n = 0; n < count; ++n) {
            la.push_back(x.a.data() + n * kPos);
            lb.push_back(x.b.data() + n * kPos);
            ld.push_back(x.d.data() + n * kPos);
        }
    }
};

void KelmObjectsL(benchmark::State& state)
{
    Tables t(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        kelmAdd_mama_32f_L(t.la.data(), 0, 16, 4, t.lb.data(), 0, 16, 4, t.ld.data(), 0, 16, 4, kN, kN, t.x.count);
        benchmark::ClobberMemory();
    }
    kb::report(state, t.x.count, 3 * kPos * 4);
}

// By hand through the same tables, whole rows in 128-bit registers: the
// loop of kelm's L path without its checks and set-up, a floor for it.
void RowsObjectsL(benchmark::State& state)
{
    Tables t(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        for (int n = 0; n < t.x.count; ++n) {
            const float* a = t.la[n];
            const float* b = t.lb[n];
            float* d = t.ld[n];
            for (int j = 0; j < kN; ++j)
                _mm_storeu_ps(d + 4 * j, _mm_add_ps(_mm_loadu_ps(a + 4 * j), _mm_loadu_ps(b + 4 * j)));
        }
        benchmark::ClobberMemory();
    }
    kb::report(state, t.x.count, 3 * kPos * 4);
}

// What a user writes over the planes, compiled with the library's flags.
template <class T>
void LoopPlanes(benchmark::State& state)
{
    Planes<T> x(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        for (int p = 0; p < kPos; ++p) {
            const T* a = x.ta[p];
            const T* b = x.tb[p];
            T* d = x.td[p];
            for (int n = 0; n < x.count; ++n) d[n] = a[n] + b[n];
        }
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 3 * kPos * sizeof(T));
}

// Fields of an array of structs: P with Stride0 the struct's size.
struct Particle {
    float m[kPos];
    float other[4];
};

void KelmStructFieldsP(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    std::vector<Particle> a(count), b(count), d(count);
    auto ra = kb::randomData<float>(size_t(kPos) * count, 1), rb = kb::randomData<float>(size_t(kPos) * count, 2);
    for (int n = 0; n < count; ++n)
        for (int p = 0; p < kPos; ++p) a[n].m[p] = ra[n * kPos + p], b[n].m[p] = rb[n * kPos + p];
    std::vector<const float*> ta, tb;
    std::vector<float*> td;
    for (int p = 0; p < kPos; ++p) ta.push_back(&a[0].m[p]), tb.push_back(&b[0].m[p]), td.push_back(&d[0].m[p]);
    const int s0 = sizeof(Particle);
    for (auto _ : state) {
        kelmAdd_mama_32f_P(ta.data(), 0, s0, tb.data(), 0, s0, td.data(), 0, s0, kN, kN, count);
        benchmark::ClobberMemory();
    }
    kb::report(state, count, 3 * kPos * 4);
}

void LoopStructFields(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    std::vector<Particle> a(count), b(count), d(count);
    auto ra = kb::randomData<float>(size_t(kPos) * count, 1), rb = kb::randomData<float>(size_t(kPos) * count, 2);
    for (int n = 0; n < count; ++n)
        for (int p = 0; p < kPos; ++p) a[n].m[p] = ra[n * kPos + p], b[n].m[p] = rb[n * kPos + p];
    for (auto _ : state) {
        for (int n = 0; n < count; ++n)
            for (int p = 0; p < kPos; ++p) d[n].m[p] = a[n].m[p] + b[n].m[p];
        benchmark::ClobberMemory();
    }
    kb::report(state, count, 3 * kPos * 4);
}

// A plain loop through the same P table (element by element, as a user who
// describes the fields by pointers would write it).
void LoopStructTable(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    std::vector<Particle> a(count), b(count), d(count);
    std::vector<const float*> ta, tb;
    std::vector<float*> td;
    for (int p = 0; p < kPos; ++p) ta.push_back(&a[0].m[p]), tb.push_back(&b[0].m[p]), td.push_back(&d[0].m[p]);
    const int s0 = sizeof(Particle);
    for (auto _ : state) {
        for (int n = 0; n < count; ++n)
            for (int p = 0; p < kPos; ++p) {
                const auto at = [&](auto* q) { return reinterpret_cast<decltype(q)>(reinterpret_cast<uintptr_t>(q) + size_t(n) * s0); };
                *at(td[p]) = *at(ta[p]) + *at(tb[p]);
            }
        benchmark::ClobberMemory();
    }
    kb::report(state, count, 3 * kPos * 4);
}

// ---- Mul ----------------------------------------------------------------------------

KelStatus mulS(const float* a, int a0, int a1, int a2, const float* b, int b0, int b1, int b2, float* d, int d0, int d1,
               int d2, int c)
{
    return kelmMul_mama_32f(a, a0, a1, a2, kN, kN, b, b0, b1, b2, kN, kN, d, d0, d1, d2, c);
}
KelStatus mulS(const double* a, int a0, int a1, int a2, const double* b, int b0, int b1, int b2, double* d, int d0,
               int d1, int d2, int c)
{
    return kelmMul_mama_64f(a, a0, a1, a2, kN, kN, b, b0, b1, b2, kN, kN, d, d0, d1, d2, c);
}

template <class T>
void KelmMulPlanesS(benchmark::State& state)
{
    timed<T>(state, [](Planes<T>& x, int e) {
        const int s2 = e * x.count, s1 = s2 * kN;
        mulS(x.a.data(), e, s1, s2, x.b.data(), e, s1, s2, x.d.data(), e, s1, s2, x.count);
    });
}

void KelmMulPlanesP(benchmark::State& state)
{
    timed<float>(state, [](Planes<float>& x, int e) {
        kelmMul_mama_32f_P(x.ta.data(), 0, e, kN, kN, x.tb.data(), 0, e, kN, kN, x.td.data(), 0, e, x.count);
    });
}

template <class T>
void KelmMulObjectsS(benchmark::State& state)
{
    timed<T>(state, [](Planes<T>& x, int e) {
        mulS(x.a.data(), e * kPos, e * kN, e, x.b.data(), e * kPos, e * kN, e, x.d.data(), e * kPos, e * kN, e,
             x.count);
    });
}

// The product over planes as a user writes it: each dst plane a sum of
// plane products in ascending k.
template <class T>
void LoopMulPlanes(benchmark::State& state)
{
    Planes<T> x(static_cast<int>(state.range(0)));
    const int count = x.count;
    for (auto _ : state) {
        for (int r = 0; r < kN; ++r)
            for (int c = 0; c < kN; ++c) {
                T* d = x.td[r * kN + c];
                const T *a0 = x.ta[r * kN], *a1 = x.ta[r * kN + 1], *a2 = x.ta[r * kN + 2], *a3 = x.ta[r * kN + 3];
                const T *b0 = x.tb[c], *b1 = x.tb[kN + c], *b2 = x.tb[2 * kN + c], *b3 = x.tb[3 * kN + c];
                for (int n = 0; n < count; ++n) d[n] = a0[n] * b0[n] + a1[n] * b1[n] + a2[n] * b2[n] + a3[n] * b3[n];
            }
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 3 * kPos * sizeof(T));
}

// One 4x4 matrix times 1000 4-vectors (`mva`): vectors as planes (element i
// of vector n at [i * count + n]), as packed vectors, and the hand loop over
// the planes.  The planes of a, b, d serve as the vectors' planes.
void KelmMvaPlanesS(benchmark::State& state)
{
    const auto m = kb::randomData<float>(kPos, 4);
    timed<float>(state, [&](Planes<float>& x, int e) {
        kelmMul_mva_32f(m.data(), 16, 4, kN, kN, x.a.data(), e, e * x.count, kN, x.d.data(), e, e * x.count, x.count);
    });
}

void KelmMvaObjectsS(benchmark::State& state)
{
    const auto m = kb::randomData<float>(kPos, 4);
    timed<float>(state, [&](Planes<float>& x, int e) {
        kelmMul_mva_32f(m.data(), 16, 4, kN, kN, x.a.data(), e * kN, e, kN, x.d.data(), e * kN, e, x.count);
    });
}

void LoopMvaPlanes(benchmark::State& state)
{
    const auto m = kb::randomData<float>(kPos, 4);
    Planes<float> x(static_cast<int>(state.range(0)));
    const int count = x.count;
    for (auto _ : state) {
        const float *v0 = x.ta[0], *v1 = x.ta[1], *v2 = x.ta[2], *v3 = x.ta[3];
        for (int r = 0; r < kN; ++r) {
            float* d = x.td[r];
            const float m0 = m[r * kN], m1 = m[r * kN + 1], m2 = m[r * kN + 2], m3 = m[r * kN + 3];
            for (int n = 0; n < count; ++n) d[n] = m0 * v0[n] + m1 * v1[n] + m2 * v2[n] + m3 * v3[n];
        }
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 3 * kPos * sizeof(float));
}

// ---- Det and Invert ------------------------------------------------------------------

// Diagonally dominant N x N objects, as planes or packed one after another.
template <class T, int N>
struct Squares {
    int count;
    std::vector<T> planes, packed, out;
    explicit Squares(int c) : count(c), planes(size_t(N) * N * c), packed(size_t(N) * N * c), out(size_t(N) * N * c)
    {
        const auto r = kb::randomData<T>(size_t(N) * N * c, 3);
        for (int n = 0; n < c; ++n)
            for (int p = 0; p < N * N; ++p) {
                const T v = r[size_t(n) * N * N + p] + (p % (N + 1) == 0 ? T(N) : T(0));
                planes[size_t(p) * c + n] = v;
                packed[size_t(n) * N * N + p] = v;
            }
    }
};

template <int N, bool Planes>
void KelmDet64(benchmark::State& state)
{
    Squares<double, N> x(static_cast<int>(state.range(0)));
    double buf[N * (N + 1)];
    const int e = 8;
    for (auto _ : state) {
        if (Planes) kelmDet_ma_64f(x.planes.data(), e, e * N * x.count, e * x.count, N, buf, x.out.data(), x.count);
        else kelmDet_ma_64f(x.packed.data(), e * N * N, e * N, e, N, buf, x.out.data(), x.count);
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, (N * N + 1) * e);
}

template <bool Planes>
void KelmInvert4x4F32(benchmark::State& state)
{
    Squares<float, 4> x(static_cast<int>(state.range(0)));
    float buf[20];
    const int e = 4, c = x.count;
    for (auto _ : state) {
        if (Planes)
            kelmInvert_ma_32f(x.planes.data(), e, e * 4 * c, e * c, buf, x.out.data(), e, e * 4 * c, e * c, 4, c);
        else
            kelmInvert_ma_32f(x.packed.data(), 64, 16, 4, buf, x.out.data(), 64, 16, 4, 4, c);
        benchmark::ClobberMemory();
    }
    kb::report(state, x.count, 32 * e);
}

// Symmetric positive definite 4x4 floats: A = B B^T + 4 I.
template <bool Planes>
void KelmCholesky4x4F32(benchmark::State& state)
{
    const int c = static_cast<int>(state.range(0)), e = 4;
    Squares<float, 4> x(c);
    for (int n = 0; n < c; ++n) {
        float a[16];
        for (int r = 0; r < 4; ++r)
            for (int q = 0; q < 4; ++q) {
                float sum = r == q ? 4.0f : 0.0f;
                for (int k = 0; k < 4; ++k) sum += x.packed[size_t(n) * 16 + r * 4 + k] * x.packed[size_t(n) * 16 + q * 4 + k];
                a[r * 4 + q] = sum;
            }
        for (int p = 0; p < 16; ++p) x.planes[size_t(p) * c + n] = a[p];
        for (int p = 0; p < 16; ++p) x.packed[size_t(n) * 16 + p] = a[p];
    }
    for (auto _ : state) {
        if (Planes)
            kelmCholeskyDecomp_ma_32f(x.planes.data(), e, e * 4 * c, e * c, x.out.data(), e, e * 4 * c, e * c, 4, c);
        else
            kelmCholeskyDecomp_ma_32f(x.packed.data(), 64, 16, 4, x.out.data(), 64, 16, 4, 4, c);
        benchmark::ClobberMemory();
    }
    kb::report(state, c, 32 * e);
}

// LU of random 4x4 objects (pivots chosen by the data), planes against
// packed objects.
template <class T, bool Planes>
void KelmLUDecomp4x4(benchmark::State& state)
{
    const int c = static_cast<int>(state.range(0)), e = sizeof(T);
    Squares<T, 4> x(c);
    std::vector<int> piv(size_t(4) * c);
    for (auto _ : state) {
        if constexpr (std::is_same<T, double>::value) {
            if (Planes)
                kelmLUDecomp_ma_64f(x.planes.data(), e, e * 4 * c, e * c, piv.data(), x.out.data(), e, e * 4 * c, e * c, 4, c);
            else
                kelmLUDecomp_ma_64f(x.packed.data(), 16 * e, 4 * e, e, piv.data(), x.out.data(), 16 * e, 4 * e, e, 4, c);
        } else {
            if (Planes)
                kelmLUDecomp_ma_32f(x.planes.data(), e, e * 4 * c, e * c, piv.data(), x.out.data(), e, e * 4 * c, e * c, 4, c);
            else
                kelmLUDecomp_ma_32f(x.packed.data(), 16 * e, 4 * e, e, piv.data(), x.out.data(), 16 * e, 4 * e, e, 4, c);
        }
        benchmark::ClobberMemory();
    }
    kb::report(state, c, 32 * e);
}

}  // namespace

BENCHMARK_TEMPLATE(KelmPlanesS, float)->Arg(1000)->Arg(1000000);
BENCHMARK_TEMPLATE(KelmPlanesP, float)->Arg(1000)->Arg(1000000);
BENCHMARK_TEMPLATE(KelmObjectsS, float)->Arg(1000)->Arg(1000000);
BENCHMARK(KelmObjectsL)->Arg(1000);
BENCHMARK(RowsObjectsL)->Arg(1000);
BENCHMARK_TEMPLATE(LoopPlanes, float)->Arg(1000)->Arg(1000000);
BENCHMARK_TEMPLATE(KelmPlanesS, double)->Arg(1000);
BENCHMARK_TEMPLATE(KelmPlanesP, double)->Arg(1000);
BENCHMARK_TEMPLATE(KelmObjectsS, double)->Arg(1000);
BENCHMARK_TEMPLATE(LoopPlanes, double)->Arg(1000);
BENCHMARK(KelmStructFieldsP)->Arg(1000);
BENCHMARK(LoopStructFields)->Arg(1000);
BENCHMARK(LoopStructTable)->Arg(1000);
BENCHMARK_TEMPLATE(KelmMulPlanesS, float)->Arg(1000);
BENCHMARK(KelmMulPlanesP)->Arg(1000);
BENCHMARK_TEMPLATE(KelmMulObjectsS, float)->Arg(1000);
BENCHMARK_TEMPLATE(LoopMulPlanes, float)->Arg(1000);
BENCHMARK_TEMPLATE(KelmMulPlanesS, double)->Arg(1000);
BENCHMARK_TEMPLATE(KelmMulObjectsS, double)->Arg(1000);
BENCHMARK_TEMPLATE(LoopMulPlanes, double)->Arg(1000);
BENCHMARK(KelmMvaPlanesS)->Arg(1000);
BENCHMARK(KelmMvaObjectsS)->Arg(1000);
BENCHMARK(LoopMvaPlanes)->Arg(1000);
BENCHMARK_TEMPLATE(KelmDet64, 3, true)->Arg(1000);
BENCHMARK_TEMPLATE(KelmDet64, 3, false)->Arg(1000);
BENCHMARK_TEMPLATE(KelmDet64, 4, true)->Arg(1000);
BENCHMARK_TEMPLATE(KelmDet64, 4, false)->Arg(1000);
BENCHMARK_TEMPLATE(KelmInvert4x4F32, true)->Arg(1000);
BENCHMARK_TEMPLATE(KelmInvert4x4F32, false)->Arg(1000);
BENCHMARK_TEMPLATE(KelmCholesky4x4F32, true)->Arg(1000);
BENCHMARK_TEMPLATE(KelmCholesky4x4F32, false)->Arg(1000);
BENCHMARK_TEMPLATE(KelmLUDecomp4x4, double, true)->Arg(1000)->Arg(1000000);
BENCHMARK_TEMPLATE(KelmLUDecomp4x4, double, false)->Arg(1000)->Arg(1000000);
BENCHMARK_TEMPLATE(KelmLUDecomp4x4, float, true)->Arg(1000);
BENCHMARK_TEMPLATE(KelmLUDecomp4x4, float, false)->Arg(1000);
