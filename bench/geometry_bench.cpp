// Fixed-size geometry, one thread: kelm against plain C and glm, all
// compiled for the same instruction set without contraction.
//   points  1000 packed 3-vectors through a 4x4 matrix with the divide by w
//           (Coord_m4v3a and AffineTransform3DH packed); "arith" times the
//           multiplies, adds and divides of four points in lanes, with loads
//           and stores of whole vectors but no shuffles: a floor.
//   single  Mul_mm4x4, Invert_m4, LookAtLH, PerspectiveFovLH on one object.
#include <cstddef>
#include <cstring>
#include <vector>

#include <xmmintrin.h>

#include "common.h"
#include "kelm.h"

#if __has_include(<glm/glm.hpp>)
#define KELM_BENCH_GLM 1
#include <glm/glm.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <glm/ext/matrix_clip_space.hpp>
#endif

namespace {

constexpr int kPoints = 1000;

struct Points {
    std::vector<float> m = kb::randomData<float>(16, 1), src = kb::randomData<float>(3 * kPoints, 2),
                       dst = std::vector<float>(3 * kPoints);
    Points() { m[15] = 8; }  // w stays away from zero
};

void points(benchmark::State& state) { kb::report(state, kPoints, 24); }

void BM_PointsCoordKelm(benchmark::State& state)
{
    kb::OneThread one;
    Points p;
    for (auto _ : state) {
        kelmAffineTransformCoord_m4v3a_32f(p.m.data(), p.src.data(), 12, p.dst.data(), 12, kPoints);
        benchmark::ClobberMemory();
    }
    points(state);
}

void BM_Points3DHKelm(benchmark::State& state)
{
    kb::OneThread one;
    Points p;
    for (auto _ : state) {
        kelmAffineTransform3DH_mva_32f(p.m.data(), 16, 4, p.src.data(), 12, 4, p.dst.data(), 12, 4, kPoints);
        benchmark::ClobberMemory();
    }
    points(state);
}

void BM_PointsPlainC(benchmark::State& state)
{
    Points p;
    const float* m = p.m.data();
    for (auto _ : state) {
        for (int i = 0; i < kPoints; ++i) {
            const float* v = &p.src[3 * i];
            float q[4];
            for (int c = 0; c < 4; ++c) q[c] = (m[12 + c] + v[2] * m[8 + c]) + (v[0] * m[c] + v[1] * m[4 + c]);
            for (int c = 0; c < 3; ++c) p.dst[3 * i + c] = q[c] / q[3];
        }
        benchmark::ClobberMemory();
    }
    points(state);
}

// Four points in lanes: 16 multiplies-and-adds and three divides, no
// shuffles (the values read are not points; only the time counts).
void BM_PointsArith(benchmark::State& state)
{
    Points p;
    __m128 e[16];
    for (int k = 0; k < 16; ++k) e[k] = _mm_set1_ps(p.m[k]);
    for (auto _ : state) {
        for (int i = 0; i + 4 <= kPoints; i += 4) {
            const float* s = &p.src[3 * i];
            const __m128 x = _mm_loadu_ps(s), y = _mm_loadu_ps(s + 4), z = _mm_loadu_ps(s + 8);
            __m128 q[4];
            for (int c = 0; c < 4; ++c)
                q[c] = _mm_add_ps(_mm_add_ps(e[12 + c], _mm_mul_ps(z, e[8 + c])),
                                  _mm_add_ps(_mm_mul_ps(x, e[c]), _mm_mul_ps(y, e[4 + c])));
            float* d = &p.dst[3 * i];
            for (int c = 0; c < 3; ++c) _mm_storeu_ps(d + 4 * c, _mm_div_ps(q[c], q[3]));
        }
        benchmark::ClobberMemory();
    }
    points(state);
}

BENCHMARK(BM_PointsCoordKelm);
BENCHMARK(BM_Points3DHKelm);
BENCHMARK(BM_PointsPlainC);
BENCHMARK(BM_PointsArith);

// ---- single objects -----------------------------------------------------------------

struct Two {
    std::vector<float> a = kb::randomData<float>(16, 3), b = kb::randomData<float>(16, 4), d = std::vector<float>(16);
    Two()
    {
        for (int i = 0; i < 4; ++i) a[5 * i] += 4;  // invertible
    }
};

void BM_MulKelm(benchmark::State& state)
{
    Two t;
    for (auto _ : state) {
        kelmMul_mm4x4_32f(t.a.data(), t.b.data(), t.d.data());
        benchmark::ClobberMemory();
    }
}

void BM_MulPlainC(benchmark::State& state)
{
    Two t;
    for (auto _ : state) {
        benchmark::DoNotOptimize(t.a.data());
        for (int i = 0; i < 4; ++i)
            for (int c = 0; c < 4; ++c)
                t.d[4 * i + c] = ((t.a[4 * i] * t.b[c] + t.a[4 * i + 1] * t.b[4 + c]) + t.a[4 * i + 2] * t.b[8 + c]) +
                                 t.a[4 * i + 3] * t.b[12 + c];
        benchmark::ClobberMemory();
    }
}

void BM_InvertKelm(benchmark::State& state)
{
    Two t;
    float det;
    for (auto _ : state) {
        kelmInvert_m4_32f(t.a.data(), &det, t.d.data());
        benchmark::ClobberMemory();
    }
}

const float kEye[3] = {1, 2, -5}, kAt[3] = {0, 0, 0}, kUp[3] = {0, 1, 0};

void BM_LookAtKelm(benchmark::State& state)
{
    float d[16];
    for (auto _ : state) {
        benchmark::DoNotOptimize(kEye);
        kelmLookAtLH_m4_32f(kEye, kAt, kUp, d);
        benchmark::ClobberMemory();
    }
}

void BM_PerspectiveKelm(benchmark::State& state)
{
    float d[16], fov = 0.8f;
    for (auto _ : state) {
        benchmark::DoNotOptimize(fov);
        kelmPerspectiveFovLH_m4_32f(fov, 1.5f, 0.1f, 100, d);
        benchmark::ClobberMemory();
    }
}

BENCHMARK(BM_MulKelm);
BENCHMARK(BM_MulPlainC);
BENCHMARK(BM_InvertKelm);
BENCHMARK(BM_LookAtKelm);
BENCHMARK(BM_PerspectiveKelm);

#if KELM_BENCH_GLM
void BM_PointsGlm(benchmark::State& state)
{
    Points p;
    const glm::mat4 m = glm::make_mat4(p.m.data());  // columns are our rows: v * M
    for (auto _ : state) {
        for (int i = 0; i < kPoints; ++i) {
            const glm::vec4 q = m * glm::vec4(p.src[3 * i], p.src[3 * i + 1], p.src[3 * i + 2], 1.0f);
            const glm::vec3 r = glm::vec3(q) / q.w;
            std::memcpy(&p.dst[3 * i], &r[0], 12);
        }
        benchmark::ClobberMemory();
    }
    points(state);
}

void BM_MulGlm(benchmark::State& state)
{
    Two t;
    glm::mat4 a = glm::make_mat4(t.a.data()), b = glm::make_mat4(t.b.data()), d;
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        d = b * a;
        benchmark::DoNotOptimize(d);
    }
}

void BM_InvertGlm(benchmark::State& state)
{
    Two t;
    glm::mat4 a = glm::make_mat4(t.a.data()), d;
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        d = glm::inverse(a);
        benchmark::DoNotOptimize(d);
    }
}

void BM_LookAtGlm(benchmark::State& state)
{
    glm::vec3 eye(kEye[0], kEye[1], kEye[2]), at(0), up(0, 1, 0);
    for (auto _ : state) {
        benchmark::DoNotOptimize(eye);
        glm::mat4 d = glm::lookAtLH(eye, at, up);
        benchmark::DoNotOptimize(d);
    }
}

void BM_PerspectiveGlm(benchmark::State& state)
{
    float fov = 0.8f;
    for (auto _ : state) {
        benchmark::DoNotOptimize(fov);
        glm::mat4 d = glm::perspectiveLH_ZO(fov, 1.5f, 0.1f, 100.0f);
        benchmark::DoNotOptimize(d);
    }
}

BENCHMARK(BM_PointsGlm);
BENCHMARK(BM_MulGlm);
BENCHMARK(BM_InvertGlm);
BENCHMARK(BM_LookAtGlm);
BENCHMARK(BM_PerspectiveGlm);
#endif

}  // namespace
