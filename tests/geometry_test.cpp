// Fixed-size geometry against plain scalar models of the documented
// arithmetic: every vector function, builder, 4x4 operation and transform,
// bit for bit over ordinary and special values (signed zeros, NaN,
// infinities, denormals), with sentinels past what each may write; runs of
// vectors at any stride and offset; AffineTransform3DH through the generic
// family tests and its faults; properties that tie the functions together.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include "families.h"
#include "guarded.h"
#include "harness.h"

namespace {

using namespace kt;

const float kNaN = std::numeric_limits<float>::quiet_NaN();
const float kInf = std::numeric_limits<float>::infinity();

uint32_t bitsOf(float x)
{
    uint32_t b;
    std::memcpy(&b, &x, 4);
    return b;
}
// Equal bits, or both NaN (the payload of a NaN meeting a NaN depends on
// the operand order a compiler picks for a commutative operation).
bool same(float a, float b) { return bitsOf(a) == bitsOf(b) || (std::isnan(a) && std::isnan(b)); }

// Ordinary values, with special ones mixed in at rate `special` (0..1).
float sample(std::mt19937& rng, double special)
{
    static const float kSpecial[] = {0.0f, -0.0f, kNaN, kInf, -kInf, 1e-40f, -3e-39f, FLT_MIN, 1.0f, -1.0f};
    if (std::uniform_real_distribution<double>(0, 1)(rng) < special)
        return kSpecial[std::uniform_int_distribution<int>(0, 9)(rng)];
    return static_cast<float>(std::uniform_real_distribution<double>(-4, 4)(rng));
}

// ---- scalar models ----------------------------------------------------------------

using F = float;
using In = const float*;

float lenSqr(In v, int n)
{
    float s = v[0] * v[0] + v[1] * v[1];
    for (int i = 2; i < n; ++i) s = s + v[i] * v[i];
    return s;
}
float lenOf(float s) { return static_cast<float>(std::sqrt(static_cast<double>(s))); }
void hermite(In p0, In t0, In p1, In t1, F s, F* d, int n)
{
    const F s2 = s * s, s3 = s2 * s;
    const F wT0 = F(double(s) - double(s2) - double(s2) + double(s3));
    const F wP = F(double(s3) - 3.0 * double(s2) + double(s3));
    const F wT1 = F(double(s3) - double(s2));
    for (int i = 0; i < n; ++i) d[i] = (p0[i] - p1[i]) * wP + (t0[i] * wT0 + p0[i] + t1[i] * wT1);
}
void cross3(In a, In b, F* d)
{
    d[0] = a[1] * b[2] - a[2] * b[1];
    d[1] = a[2] * b[0] - a[0] * b[2];
    d[2] = a[0] * b[1] - a[1] * b[0];
}
void normalize3(In a, F* d)
{
    const F l = lenOf(lenSqr(a, 3));
    for (int i = 0; i < 3; ++i) d[i] = a[i] / l;
}

using M = float[16];
float at(In m, int r, int c) { return m[4 * r + c]; }

void mul(In a, In b, F* d)
{
    for (int i = 0; i < 4; ++i)
        for (int c = 0; c < 4; ++c)
            d[4 * i + c] = at(a, i, 0) * at(b, 0, c) + at(a, i, 1) * at(b, 1, c) + at(a, i, 2) * at(b, 2, c) +
                           at(a, i, 3) * at(b, 3, c);
}
// v * M with m4v4's order.
void times4(In m, In v, F* d)
{
    for (int c = 0; c < 4; ++c)
        d[c] = (v[0] * at(m, 0, c) + v[1] * at(m, 1, c)) + (v[2] * at(m, 2, c) + v[3] * at(m, 3, c));
}

// Transform kinds of the single and `a` members: 0 Affine, 1 Coord, 2 Normal.
void transform(int kind, int n, In m, In v, F* d)
{
    F q[4];
    for (int c = 0; c < 4; ++c) {
        const F x = v[0] * at(m, 0, c), y = v[1] * at(m, 1, c), r3 = at(m, 3, c);
        const F z = n > 2 ? v[2] * at(m, 2, c) : 0, w = n > 3 ? v[3] * at(m, 3, c) : 0;
        if (kind == 0) q[c] = n == 2 ? r3 + x + y : n == 3 ? r3 + x + y + z : (x + y) + (z + w);
        if (kind == 1) q[c] = n == 2 ? x + r3 + y : (r3 + z) + (x + y);
        if (kind == 2) q[c] = n == 2 ? x + y : x + y + z;
    }
    const int out = kind == 0 ? 4 : n;
    for (int c = 0; c < out; ++c) d[c] = kind == 1 ? q[c] / q[3] : q[c];
}

void project(In proj, In view, In world, In v, F vw, F vh, F zn, F zf, F* d, bool once)
{
    const F p[4] = {v[0], v[1], v[2], 1.0f};
    F r[4];
    if (once) {
        M vp, t;
        mul(view, proj, vp);
        mul(world, vp, t);
        times4(t, p, r);
    } else {
        F a[4], b[4];
        times4(world, p, a);
        times4(view, a, b);
        times4(proj, b, r);
    }
    F n[4];
    for (int i = 0; i < 4; ++i) n[i] = r[i] / r[3];
    const F hw = vw * 0.5f, hh = vh * 0.5f;
    d[0] = hw + hw * n[0];
    d[1] = hh + (0 - hh) * n[1];
    d[2] = zn + (zf - zn) * n[2];
}

// ---- one table of single-object members ---------------------------------------------

// A member as a call on one block of inputs: vectors and matrices at fixed
// places in `in` (a at 0, b at 16, c at 32, d at 48), scalars from 64 on.
struct Op {
    std::string name;
    int out;  // floats the member writes
    std::function<KelStatus(In, F*)> lib;
    std::function<void(In, F*)> model;
};

// clang-format off
template <int N>
void addVectorOps(std::vector<Op>& ops)
{
    const std::string n = "_v" + std::to_string(N);
    auto each = [](auto f) { return [f](In x, F* d) { for (int i = 0; i < N; ++i) d[i] = f(x, i); }; };
    auto vecs = [](auto fn) { return [fn](In x, F* d) { return fn(x, x + 16, d); }; };
    const auto A = [](In x, int i) { return x[i]; };
    const auto B = [](In x, int i) { return x[16 + i]; };
    const auto C = [](In x, int i) { return x[32 + i]; };
    KelStatus (*add)(In, In, F*) = N == 2 ? kelmAdd_v2_32f : N == 3 ? kelmAdd_v3_32f : kelmAdd_v4_32f;
    KelStatus (*sub)(In, In, F*) = N == 2 ? kelmSub_v2_32f : N == 3 ? kelmSub_v3_32f : kelmSub_v4_32f;
    KelStatus (*mn)(In, In, F*) = N == 2 ? kelmMin_v2_32f : N == 3 ? kelmMin_v3_32f : kelmMin_v4_32f;
    KelStatus (*mx)(In, In, F*) = N == 2 ? kelmMax_v2_32f : N == 3 ? kelmMax_v3_32f : kelmMax_v4_32f;
    KelStatus (*mulc)(In, F, F*) = N == 2 ? kelmMulC_v2_32f : N == 3 ? kelmMulC_v3_32f : kelmMulC_v4_32f;
    KelStatus (*len)(In, F*) = N == 2 ? kelmLen_v2_32f : N == 3 ? kelmLen_v3_32f : kelmLen_v4_32f;
    KelStatus (*lsq)(In, F*) = N == 2 ? kelmLenSqr_v2_32f : N == 3 ? kelmLenSqr_v3_32f : kelmLenSqr_v4_32f;
    KelStatus (*nrm)(In, F*) = N == 2 ? kelmNormalize_v2_32f : N == 3 ? kelmNormalize_v3_32f : kelmNormalize_v4_32f;
    KelStatus (*dot)(In, In, F*) = N == 2 ? kelmDotProduct_v2_32f : N == 3 ? kelmDotProduct_v3_32f : kelmDotProduct_v4_32f;
    KelStatus (*bary)(In, In, In, F, F, F*) = N == 2 ? kelmBaryCentric_v2_32f : N == 3 ? kelmBaryCentric_v3_32f : kelmBaryCentric_v4_32f;
    KelStatus (*lerp)(In, In, F, F*) = N == 2 ? kelmInterpolationLinear_v2_32f : N == 3 ? kelmInterpolationLinear_v3_32f : kelmInterpolationLinear_v4_32f;
    KelStatus (*herm)(In, In, In, In, F, F*) = N == 2 ? kelmHermite_v2_32f : N == 3 ? kelmHermite_v3_32f : kelmHermite_v4_32f;
    KelStatus (*cr)(In, In, In, In, F, F*) = N == 2 ? kelmInterpolationCatmullRom_v2_32f : N == 3 ? kelmInterpolationCatmullRom_v3_32f : kelmInterpolationCatmullRom_v4_32f;
    ops.push_back({"Add" + n, N, vecs(add), each([=](In x, int i) { return A(x, i) + B(x, i); })});
    ops.push_back({"Sub" + n, N, vecs(sub), each([=](In x, int i) { return A(x, i) - B(x, i); })});
    ops.push_back({"Min" + n, N, vecs(mn), each([=](In x, int i) { return A(x, i) < B(x, i) ? A(x, i) : B(x, i); })});
    ops.push_back({"Max" + n, N, vecs(mx), each([=](In x, int i) { return A(x, i) > B(x, i) ? A(x, i) : B(x, i); })});
    ops.push_back({"MulC" + n, N, [=](In x, F* d) { return mulc(x, x[64], d); }, each([](In x, int i) { return x[i] * x[64]; })});
    ops.push_back({"LenSqr" + n, 1, [=](In x, F* d) { return lsq(x, d); }, [](In x, F* d) { *d = lenSqr(x, N); }});
    ops.push_back({"Len" + n, 1, [=](In x, F* d) { return len(x, d); }, [](In x, F* d) { *d = lenOf(lenSqr(x, N)); }});
    ops.push_back({"Normalize" + n, N, [=](In x, F* d) { return nrm(x, d); }, [](In x, F* d) {
        const F s = N == 4 ? ((x[1] * x[1] + x[2] * x[2]) + x[3] * x[3]) + x[0] * x[0] : lenSqr(x, N);
        for (int i = 0; i < N; ++i) d[i] = x[i] / lenOf(s);
    }});
    ops.push_back({"DotProduct" + n, 1, vecs(dot), [](In x, F* d) {
        F s = x[0] * x[16];
        for (int i = 1; i < N; ++i) s = s + x[i] * x[16 + i];
        *d = s;
    }});
    ops.push_back({"BaryCentric" + n, N, [=](In x, F* d) { return bary(x, x + 16, x + 32, x[64], x[65], d); },
                   each([=](In x, int i) { return (B(x, i) - A(x, i)) * x[64] + A(x, i) + (C(x, i) - A(x, i)) * x[65]; })});
    ops.push_back({"InterpolationLinear" + n, N, [=](In x, F* d) { return lerp(x, x + 16, x[64], d); },
                   each([=](In x, int i) { return (B(x, i) - A(x, i)) * x[64] + A(x, i); })});
    ops.push_back({"Hermite" + n, N, [=](In x, F* d) { return herm(x, x + 16, x + 32, x + 48, x[64], d); },
                   [](In x, F* d) { hermite(x, x + 16, x + 32, x + 48, x[64], d, N); }});
    ops.push_back({"InterpolationCatmullRom" + n, N, [=](In x, F* d) { return cr(x, x + 16, x + 32, x + 48, x[64], d); },
                   [](In x, F* d) {
                       F m0[N], m1[N];
                       for (int i = 0; i < N; ++i) m0[i] = (x[32 + i] - x[i]) * 0.5f, m1[i] = (x[48 + i] - x[16 + i]) * 0.5f;
                       hermite(x + 16, m0, x + 32, m1, x[64], d, N);
                   }});
}
// clang-format on

void addBuilderOps(std::vector<Op>& ops)
{
    // Builders write 16 floats; the model fills a zeroed matrix.
    auto build = [&](std::string name, std::function<KelStatus(In, F*)> lib, std::function<void(In, F*)> fill) {
        ops.push_back({name, 16, lib, [fill](In x, F* d) {
                           std::fill(d, d + 16, 0.0f);
                           fill(x, d);
                       }});
    };
    auto set = [](F* d, int r, int c, F v) { d[4 * r + c] = v; };
    build("Identity", [](In, F* d) { return kelmIdentity_m4_32f(d); },
          [=](In, F* d) { for (int i = 0; i < 4; ++i) set(d, i, i, 1); });
    build("Scaling", [](In x, F* d) { return kelmScaling_m4_32f(x[64], x[65], x[66], d); },
          [=](In x, F* d) { set(d, 0, 0, x[64]), set(d, 1, 1, x[65]), set(d, 2, 2, x[66]), set(d, 3, 3, 1); });
    build("Translation", [](In x, F* d) { return kelmTranslation_m4_32f(x[64], x[65], x[66], d); }, [=](In x, F* d) {
        for (int i = 0; i < 4; ++i) set(d, i, i, 1);
        set(d, 3, 0, x[64]), set(d, 3, 1, x[65]), set(d, 3, 2, x[66]);
    });
    for (int rh = 0; rh < 2; ++rh) {
        const std::string h = rh ? "RH" : "LH";
        auto lookAt = [=](In x, F* d) {
            F z[3], xa[3], y[3], u[3];
            for (int i = 0; i < 3; ++i) z[i] = rh ? x[i] - x[16 + i] : x[16 + i] - x[i];
            normalize3(z, z);
            cross3(x + 32, z, u);
            normalize3(u, xa);
            cross3(z, xa, y);
            for (int i = 0; i < 3; ++i) set(d, i, 0, xa[i]), set(d, i, 1, y[i]), set(d, i, 2, z[i]);
            set(d, 3, 0, 0 - ((xa[0] * x[0] + xa[1] * x[1]) + xa[2] * x[2]));
            set(d, 3, 1, 0 - ((y[0] * x[0] + y[1] * x[1]) + y[2] * x[2]));
            set(d, 3, 2, 0 - ((z[0] * x[0] + z[1] * x[1]) + z[2] * x[2]));
            set(d, 3, 3, 1);
        };
        build("LookAt" + h, [=](In x, F* d) { return (rh ? kelmLookAtRH_m4_32f : kelmLookAtLH_m4_32f)(x, x + 16, x + 32, d); },
              lookAt);
        // w, h or l, r, b, t, then zn, zf: scalars from 64 on.
        auto depthO = [=](F* d, F zn, F zf) {
            set(d, 2, 2, rh ? 1 / (zn - zf) : 1 / (zf - zn));
            set(d, 3, 2, rh ? zn / (zn - zf) : zn / (0 - (zf - zn)));
            set(d, 3, 3, 1);
        };
        auto depthP = [=](F* d, F zn, F zf) {
            set(d, 2, 2, rh ? zf / (zn - zf) : zf / (zf - zn));
            set(d, 2, 3, rh ? -1 : 1);
            set(d, 3, 2, rh ? zn * zf / (zn - zf) : zn * zf / (0 - (zf - zn)));
        };
        build("Ortho" + h, [=](In x, F* d) { return (rh ? kelmOrthoRH_m4_32f : kelmOrthoLH_m4_32f)(x[64], x[65], x[66], x[67], d); },
              [=](In x, F* d) { set(d, 0, 0, 2 / x[64]), set(d, 1, 1, 2 / x[65]), depthO(d, x[66], x[67]); });
        build("Perspective" + h,
              [=](In x, F* d) { return (rh ? kelmPerspectiveRH_m4_32f : kelmPerspectiveLH_m4_32f)(x[64], x[65], x[66], x[67], d); },
              [=](In x, F* d) { set(d, 0, 0, (x[66] + x[66]) / x[64]), set(d, 1, 1, (x[66] + x[66]) / x[65]), depthP(d, x[66], x[67]); });
        build("OrthoOffCenter" + h,
              [=](In x, F* d) {
                  return (rh ? kelmOrthoOffCenterRH_m4_32f : kelmOrthoOffCenterLH_m4_32f)(x[64], x[65], x[66], x[67], x[68], x[69], d);
              },
              [=](In x, F* d) {
                  const F l = x[64], r = x[65], b = x[66], t = x[67];
                  set(d, 0, 0, 2 / (r - l)), set(d, 1, 1, 2 / (t - b));
                  set(d, 3, 0, (l + r) / (0 - (r - l))), set(d, 3, 1, (b + t) / (0 - (t - b)));
                  depthO(d, x[68], x[69]);
              });
        build("PerspectiveOffCenter" + h,
              [=](In x, F* d) {
                  return (rh ? kelmPerspectiveOffCenterRH_m4_32f : kelmPerspectiveOffCenterLH_m4_32f)(x[64], x[65], x[66], x[67],
                                                                                                   x[68], x[69], d);
              },
              [=](In x, F* d) {
                  const F l = x[64], r = x[65], b = x[66], t = x[67], zn = x[68];
                  set(d, 0, 0, (zn + zn) / (r - l)), set(d, 1, 1, (zn + zn) / (t - b));
                  set(d, 2, 0, rh ? (l + r) / (r - l) : (l + r) / (0 - (r - l)));
                  set(d, 2, 1, rh ? (b + t) / (t - b) : (b + t) / (0 - (t - b)));
                  depthP(d, zn, x[69]);
              });
        build("PerspectiveFov" + h,
              [=](In x, F* d) { return (rh ? kelmPerspectiveFovRH_m4_32f : kelmPerspectiveFovLH_m4_32f)(x[64], x[65], x[66], x[67], d); },
              [=](In x, F* d) {
                  const F ys = cosf(x[64] * 0.5f) / sinf(x[64] * 0.5f), zn = x[66], zf = x[67];
                  set(d, 0, 0, ys / x[65]), set(d, 1, 1, ys), depthP(d, zn, zf);
                  if (!rh) set(d, 3, 2, (0 - zn * zf) / (zf - zn));
              });
    }
    build("RotationX", [](In x, F* d) { return kelmRotationX_m4_32f(x[64], d); }, [=](In x, F* d) {
        const F s = sinf(x[64]), c = cosf(x[64]);
        set(d, 0, 0, 1), set(d, 1, 1, c), set(d, 1, 2, s), set(d, 2, 1, 0 - s), set(d, 2, 2, c), set(d, 3, 3, 1);
    });
    build("RotationY", [](In x, F* d) { return kelmRotationY_m4_32f(x[64], d); }, [=](In x, F* d) {
        const F s = sinf(x[64]), c = cosf(x[64]);
        set(d, 0, 0, c), set(d, 0, 2, 0 - s), set(d, 1, 1, 1), set(d, 2, 0, s), set(d, 2, 2, c), set(d, 3, 3, 1);
    });
    build("RotationZ", [](In x, F* d) { return kelmRotationZ_m4_32f(x[64], d); }, [=](In x, F* d) {
        const F s = sinf(x[64]), c = cosf(x[64]);
        set(d, 0, 0, c), set(d, 0, 1, s), set(d, 1, 0, 0 - s), set(d, 1, 1, c), set(d, 2, 2, 1), set(d, 3, 3, 1);
    });
    build("RotationYawPitchRoll", [](In x, F* d) { return kelmRotationYawPitchRoll_m4_32f(x[64], x[65], x[66], d); },
          [=](In x, F* d) {
              const F sy = sinf(x[64]), cy = cosf(x[64]), sp = sinf(x[65]), cp = cosf(x[65]), sr = sinf(x[66]), cr = cosf(x[66]);
              const F m[3][3] = {{sr * (sy * sp) + cy * cr, sr * cp, sr * (sp * cy) - sy * cr},
                                 {(sy * sp) * cr - cy * sr, cr * cp, sy * sr + cr * (sp * cy)},
                                 {sy * cp, 0 - sp, cy * cp}};
              for (int r = 0; r < 3; ++r)
                  for (int c = 0; c < 3; ++c) set(d, r, c, m[r][c]);
              set(d, 3, 3, 1);
          });
    build("RotationAxis", [](In x, F* d) { return kelmRotationAxis_v3m4_32f(x, x[64], d); }, [=](In x, F* d) {
        const F s = sinf(x[64]), c = cosf(x[64]), l = sqrtf(x[0] * x[0] + x[1] * x[1] + x[2] * x[2]);
        const F nx = x[0] / l, ny = x[1] / l, nz = x[2] / l, t = 1 - c;
        const F m[3][3] = {{(t * nx) * nx + c, (t * ny) * nx + s * nz, (t * nz) * nx - s * ny},
                           {(t * nx) * ny - s * nz, (t * ny) * ny + c, ny * (t * nz) + s * nx},
                           {s * ny + (t * nx) * nz, (t * ny) * nz - s * nx, c + nz * (t * nz)}};
        for (int r = 0; r < 3; ++r)
            for (int cc = 0; cc < 3; ++cc) set(d, r, cc, m[r][cc]);
        set(d, 3, 3, 1);
    });
}

void addMatrixOps(std::vector<Op>& ops)
{
    ops.push_back({"Det_m4", 1, [](In x, F* d) { return kelmDet_m4_32f(x, d); }, [](In m, F* d) {
                       F t[4];
                       for (int j = 0; j < 4; ++j) {
                           int o[3], k = 0;
                           for (int c = 0; c < 4; ++c)
                               if (c != j) o[k++] = c;
                           const int a = o[0], b = o[1], c = o[2];
                           t[j] = ((at(m, 2, b) * at(m, 3, c) - at(m, 2, c) * at(m, 3, b)) * at(m, 1, a) -
                                   (at(m, 2, a) * at(m, 3, c) - at(m, 3, a) * at(m, 2, c)) * at(m, 1, b) +
                                   (at(m, 3, b) * at(m, 2, a) - at(m, 2, b) * at(m, 3, a)) * at(m, 1, c)) *
                                  at(m, 0, j);
                       }
                       *d = (t[0] - t[1]) + (t[2] - t[3]);
                   }});
    ops.push_back({"Transpose_m4", 16, [](In x, F* d) { return kelmTranspose_m4_32f(x, d); }, [](In m, F* d) {
                       for (int i = 0; i < 16; ++i) d[i] = at(m, i % 4, i / 4);
                   }});
    ops.push_back({"Mul_mm4x4", 16, [](In x, F* d) { return kelmMul_mm4x4_32f(x, x + 16, d); },
                   [](In x, F* d) { mul(x, x + 16, d); }});
    ops.push_back({"MulTranspose_m4", 16, [](In x, F* d) { return kelmMulTranspose_m4_32f(x, x + 16, d); }, [](In x, F* d) {
                       M p;
                       mul(x, x + 16, p);
                       for (int i = 0; i < 16; ++i) d[i] = at(p, i % 4, i / 4);
                   }});
    using Tf = KelStatus (*)(In, In, F*);
    const struct {
        const char* name;
        int kind, n;
        Tf fn;
    } tfs[] = {{"AffineTransform_m4v2", 0, 2, kelmAffineTransform_m4v2_32f},
               {"AffineTransform_m4v3", 0, 3, kelmAffineTransform_m4v3_32f},
               {"AffineTransform_m4v4", 0, 4, kelmAffineTransform_m4v4_32f},
               {"AffineTransformCoord_m4v2", 1, 2, kelmAffineTransformCoord_m4v2_32f},
               {"AffineTransformCoord_m4v3", 1, 3, kelmAffineTransformCoord_m4v3_32f},
               {"AffineTransformNormal_m4v2", 2, 2, kelmAffineTransformNormal_m4v2_32f},
               {"AffineTransformNormal_m4v3", 2, 3, kelmAffineTransformNormal_m4v3_32f}};
    for (auto& t : tfs) {
        const int kind = t.kind, n = t.n;
        const Tf fn = t.fn;
        ops.push_back({t.name, kind == 0 ? 4 : n, [=](In x, F* d) { return fn(x, x + 16, d); },
                       [=](In x, F* d) { transform(kind, n, x, x + 16, d); }});
    }
    // Projection matrices at 0, 16, 32; point at 48; viewport from 64.
    ops.push_back({"Project_m4v3", 3,
                   [](In x, F* d) { return kelmProject_m4v3_32f(x, x + 16, x + 32, x + 48, x[64], x[65], x[66], x[67], d); },
                   [](In x, F* d) { project(x, x + 16, x + 32, x + 48, x[64], x[65], x[66], x[67], d, false); }});
}

std::vector<Op> allOps()
{
    std::vector<Op> ops;
    addVectorOps<2>(ops);
    addVectorOps<3>(ops);
    addVectorOps<4>(ops);
    addBuilderOps(ops);
    addMatrixOps(ops);
    return ops;
}

class Single : public ::testing::TestWithParam<Op> {};

// Model bits over ordinary inputs and inputs with special values; nothing
// written past what the member writes (sentinels fill the rest).
TEST_P(Single, ModelBitsAndExtent)
{
    const Op& op = GetParam();
    std::mt19937 rng(std::hash<std::string>()(op.name) & 0xffff);
    for (int round = 0; round < 400; ++round) {
        const double special = round < 100 ? 0.0 : round < 300 ? 0.1 : 0.5;
        // Inputs and results at every float offset from 16-byte alignment.
        alignas(16) float in[84], out[28], want[24];
        float *x = in + round % 4, *got = out + round / 4 % 4;
        for (int i = 0; i < 80; ++i) x[i] = sample(rng, special);
        for (int i = 0; i < 24; ++i) got[i] = want[i] = -1234.5f;
        ASSERT_EQ(op.lib(x, got), kelStsNoErr);
        op.model(x, want);
        for (int i = 0; i < 24; ++i)
            ASSERT_TRUE(same(got[i], want[i])) << op.name << " round " << round << " element " << i << ": " << got[i]
                                               << " want " << want[i];
    }
}

INSTANTIATE_TEST_SUITE_P(Geometry, Single, ::testing::ValuesIn(allOps()),
                         [](const auto& info) { return info.param.name; });

// ---- runs of vectors ---------------------------------------------------------------

struct VectorRun {
    std::string name;
    int n, out;  // floats read and written per vector
    std::function<KelStatus(In m, In src, int ss, F* dst, int ds, int count)> lib;
    std::function<void(In m, In v, F* d)> model;
};

std::vector<VectorRun> allRuns()
{
    using Ta = KelStatus (*)(In, In, int, F*, int, int);
    const struct {
        const char* name;
        int kind, n;
        Ta fn;
    } tfs[] = {{"AffineTransform_m4v2a", 0, 2, kelmAffineTransform_m4v2a_32f},
               {"AffineTransform_m4v3a", 0, 3, kelmAffineTransform_m4v3a_32f},
               {"AffineTransform_m4v4a", 0, 4, kelmAffineTransform_m4v4a_32f},
               {"AffineTransformCoord_m4v2a", 1, 2, kelmAffineTransformCoord_m4v2a_32f},
               {"AffineTransformCoord_m4v3a", 1, 3, kelmAffineTransformCoord_m4v3a_32f},
               {"AffineTransformNormal_m4v2a", 2, 2, kelmAffineTransformNormal_m4v2a_32f},
               {"AffineTransformNormal_m4v3a", 2, 3, kelmAffineTransformNormal_m4v3a_32f}};
    std::vector<VectorRun> runs;
    for (auto& t : tfs) {
        const int kind = t.kind, n = t.n;
        runs.push_back({t.name, n, kind == 0 ? 4 : n, t.fn, [=](In m, In v, F* d) { transform(kind, n, m, v, d); }});
    }
    // Matrices at 0, 16, 32 of m; the viewport 640 x 480, depth 0.25 to 1.
    runs.push_back({"Project_m4v3a", 3, 3,
                    [](In m, In src, int ss, F* dst, int ds, int count) {
                        return kelmProject_m4v3a_32f(m, m + 16, m + 32, src, ss, 640, 480, 0.25f, 1, dst, ds, count);
                    },
                    [](In m, In v, F* d) { project(m, m + 16, m + 32, v, 640, 480, 0.25f, 1, d, true); }});
    // Each vector of the runs as the single form computes it.
    runs.push_back({"Unproject_m4v3a", 3, 3,
                    [](In m, In src, int ss, F* dst, int ds, int count) {
                        return kelmUnproject_m4v3a_32f(m, m + 16, m + 32, src, ss, 640, 480, 0.25f, 1, dst, ds, count);
                    },
                    [](In m, In v, F* d) { kelmUnproject_m4v3_32f(m, m + 16, m + 32, v, 640, 480, 0.25f, 1, d); }});
    return runs;
}

class Runs : public ::testing::TestWithParam<VectorRun> {};

// Every vector as the model computes it alone, whatever the count, strides
// (dense, which takes the batched paths, or with gaps, or backwards) and
// offsets; every other byte of both arenas unchanged.
TEST_P(Runs, EachVectorAsAloneAndNothingElseTouched)
{
    const VectorRun& r = GetParam();
    std::mt19937 rng(7);
    alignas(16) float m[48];
    for (auto& v : m) v = sample(rng, 0.02);
    for (int count : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1001})
        for (int layout = 0; layout < 4; ++layout) {
            const int gap = layout == 1 ? 4 : layout == 2 ? 12 : 0;
            const int ss = 4 * r.n + gap, ds = 4 * r.out + gap;
            const int skip = 4 * (layout % 4) + (layout == 3 ? 1 : 0);  // bytes: 0, 4, 8, 13
            const bool backwards = layout == 3;
            const size_t srcBytes = size_t(ss) * std::max(count, 1) + 32, dstBytes = size_t(ds) * std::max(count, 1) + 32;
            std::vector<unsigned char> src(srcBytes), dst(dstBytes);
            for (auto& b : dst) b = static_cast<unsigned char>(rng());
            for (size_t k = 0; k + 4 <= srcBytes; k += 4) {
                const float v = sample(rng, 0.05);
                std::memcpy(&src[k], &v, 4);
            }
            const int step = backwards ? -ds : ds;
            unsigned char* d0 = dst.data() + skip + (backwards ? size_t(ds) * std::max(count - 1, 0) : 0);
            std::vector<unsigned char> want = dst;
            for (int i = 0; i < count; ++i) {
                float v[4], out[4];
                std::memcpy(v, src.data() + skip + size_t(i) * ss, 4 * r.n);
                r.model(m, v, out);
                std::memcpy(want.data() + (d0 - dst.data()) + std::ptrdiff_t(i) * step, out, 4 * r.out);
            }
            const std::vector<unsigned char> srcBefore = src;
            ASSERT_EQ(r.lib(m, reinterpret_cast<F*>(src.data() + skip), ss, reinterpret_cast<F*>(d0), step, count),
                      kelStsNoErr);
            ASSERT_EQ(src, srcBefore) << r.name;
            for (size_t k = 0; k < dstBytes; ++k) {
                float g, w;
                if (dst[k] == want[k]) continue;
                const size_t at4 = k - (k - skip) % 4;
                std::memcpy(&g, &dst[at4], 4), std::memcpy(&w, &want[at4], 4);
                ASSERT_TRUE(same(g, w)) << r.name << " count " << count << " layout " << layout << " byte " << k;
            }
        }
}

INSTANTIATE_TEST_SUITE_P(Geometry, Runs, ::testing::ValuesIn(allRuns()), [](const auto& info) { return info.param.name; });

// The last vector of a run, and single vectors, end right before a page that
// may not be touched: nothing reads or writes past them.
TEST(GeometryGuard, VectorsEndingAtAPage)
{
    for (const VectorRun& r : allRuns()) {
        alignas(16) float m[48];
        std::mt19937 rng(3);
        for (auto& v : m) v = sample(rng, 0);
        for (int count : {1, 4, 9}) {
            Guarded src(size_t(4) * r.n * count), dst(size_t(4) * r.out * count);
            for (int k = 0; k < r.n * count; ++k) src.as<float>()[k] = sample(rng, 0);
            EXPECT_EQ(r.lib(m, src.as<float>(), 4 * r.n, dst.as<float>(), 4 * r.out, count), kelStsNoErr) << r.name;
        }
    }
    Guarded v(12), out(12);
    for (auto fn : {kelmAffineTransformCoord_m4v3_32f, kelmAffineTransformNormal_m4v3_32f}) {
        const float m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        v.as<float>()[0] = v.as<float>()[1] = v.as<float>()[2] = 2;
        EXPECT_EQ(fn(m, v.as<float>(), out.as<float>()), kelStsNoErr);
        EXPECT_EQ(out.as<float>()[2], 2.0f);
    }
}

// ---- inverses and the way back ---------------------------------------------------

void expectNear(In a, In b, int n, float tol, const char* what)
{
    for (int i = 0; i < n; ++i) ASSERT_NEAR(a[i], b[i], tol) << what << " element " << i;
}

// M * M^-1 is the identity to a few float steps, whether dst is src or not.
TEST(InvertM4, TimesItselfIsIdentity)
{
    std::mt19937 rng(9);
    const float id[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    for (int round = 0; round < 200; ++round) {
        float m[16], inv[16], prod[16], det = 0;
        for (int i = 0; i < 16; ++i) m[i] = sample(rng, 0) + (i % 5 == 0 ? 8.0f : 0.0f);  // diagonally dominant
        ASSERT_EQ(kelmInvert_m4_32f(m, &det, inv), kelStsNoErr);
        F want;
        kelmDet_m4_32f(m, &want);
        ASSERT_NEAR(det, want, 1e-5f * std::fabs(want));
        kelmMul_mm4x4_32f(m, inv, prod);
        expectNear(prod, id, 16, 2e-5f, "M * M^-1");
        float same[16];
        std::memcpy(same, m, sizeof m);
        ASSERT_EQ(kelmInvert_m4_32f(same, nullptr, same), kelStsNoErr);
        ASSERT_EQ(std::memcmp(same, inv, sizeof inv), 0) << "in place";
    }
}

// Determinant 2^-119 is accepted; below it the matrix is refused, *det is
// 0, dst keeps its bytes, and a null det works.
TEST(InvertM4, RefusedBelowTwoToMinus119)
{
    const float a = 0x1p-30f;
    float ok[16] = {a, 0, 0, 0, 0, a, 0, 0, 0, 0, a, 0, 0, 0, 0, 2 * a}, bad[16] = {a, 0, 0, 0, 0, a, 0, 0, 0, 0, a, 0, 0, 0, 0, a};
    float dst[16], det = 5;
    // Accepted (the squared estimate of 2^119 overflows in the Newton step,
    // so the rows are not 2^30: only the status and det are asked for).
    ASSERT_EQ(kelmInvert_m4_32f(ok, &det, dst), kelStsNoErr);
    EXPECT_EQ(det, 0x1p-119f);
    std::fill(dst, dst + 16, 7.0f);
    ASSERT_EQ(kelmInvert_m4_32f(bad, &det, dst), kelStsSingular);
    EXPECT_EQ(det, 0.0f);
    ASSERT_EQ(kelmInvert_m4_32f(bad, nullptr, dst), kelStsSingular);
    for (float v : dst) ASSERT_EQ(v, 7.0f);
}

// Project then Unproject gives the point back; a flattening world matrix
// makes the product singular: the single form leaves the normalised
// coordinates, the run writes nothing (and a run of none succeeds first).
TEST(Unproject, BackToThePointOrSingular)
{
    const float eye[3] = {1, 2, -5}, at[3] = {0, 0, 0}, up[3] = {0, 1, 0};
    float view[16], proj[16], world[16], flat[16];
    kelmLookAtLH_m4_32f(eye, at, up, view);
    kelmPerspectiveFovLH_m4_32f(0.8f, 1.5f, 0.5f, 50, proj);
    kelmRotationYawPitchRoll_m4_32f(0.3f, -0.2f, 0.1f, world);
    kelmScaling_m4_32f(1, 1, 0, flat);
    const float p[3] = {0.5f, -0.25f, 1.0f};
    float screen[3], back[3];
    ASSERT_EQ(kelmProject_m4v3_32f(proj, view, world, p, 640, 480, 0, 1, screen), kelStsNoErr);
    ASSERT_EQ(kelmUnproject_m4v3_32f(proj, view, world, screen, 640, 480, 0, 1, back), kelStsNoErr);
    expectNear(back, p, 3, 1e-4f, "round trip");
    ASSERT_EQ(kelmUnproject_m4v3_32f(proj, view, flat, screen, 640, 480, 0, 1, back), kelStsSingular);
    EXPECT_EQ(back[0], screen[0] * 2 / 640 - 1);
    EXPECT_EQ(back[1], screen[1] * -2 / 480 + 1);
    EXPECT_EQ(back[2], screen[2]);
    float runOut[3] = {9, 9, 9};
    ASSERT_EQ(kelmUnproject_m4v3a_32f(proj, view, flat, screen, 12, 640, 480, 0, 1, runOut, 12, 1), kelStsSingular);
    ASSERT_EQ(kelmUnproject_m4v3a_32f(proj, view, flat, screen, 12, 640, 480, 0, 1, runOut, 12, 0), kelStsNoErr);
    for (float v : runOut) ASSERT_EQ(v, 9.0f);
}

// ---- AffineTransform3DH ----------------------------------------------------------------

Shape shape3DH(const Member&, const GroupInfo& g, const Sizes& sizes)
{
    if (g.kind == "m") return {1, 4, 4};
    return {sizes.at("count"), 1, 3};
}

bool packed3DH(const Case& s) { return s.ops[0].args.s2 == 4 && s.ops[1].args.s2 == 4 && s.ops[2].args.s2 == 4; }

// Results and the status: packed sums (m0*x + m1*y) + (m2*z + m3), strided
// ((m0*x + m3) + m1*y) + m2*z; |w| not above FLT_MIN saturates.
KelStatus model3DH(const Case& s, std::vector<double>& out)
{
    const Operand &m = s.ops[0], &v = s.ops[1];
    KelStatus st = kelStsNoErr;
    for (int n = 0; n < v.objects; ++n) {
        const F x = F(v.get(n, 0, 0)), y = F(v.get(n, 0, 1)), z = F(v.get(n, 0, 2));
        F q[4];
        for (int i = 0; i < 4; ++i) {
            const F a = F(m.get(0, i, 0)), b = F(m.get(0, i, 1)), c = F(m.get(0, i, 2)), d = F(m.get(0, i, 3));
            q[i] = packed3DH(s) ? (a * x + b * y) + (c * z + d) : ((a * x + d) + b * y) + c * z;
        }
        const bool ok = std::fabs(q[3]) > FLT_MIN;
        if (!ok) st = kelStsDivideByZero;
        for (int i = 0; i < 3; ++i) out.push_back(ok ? q[i] * (1.0f / q[3]) : FLT_MAX);
    }
    return st;
}

// Row 3 keeps |w| far from zero: small x, y, z weights and 16 + something.
void fill3DH(Case& c, std::mt19937& rng)
{
    for (int j = 0; j < 4; ++j) c.ops[0].set(0, 3, j, j < 3 ? (int(rng() % 17) - 8) / 64.0 : 16 + int(rng() % 5));
}

KT_FAMILY("AffineTransform3DH", FamilyHooks{shape3DH, {}, {}, fill3DH, nullptr, [](const Case& s) {
                                                std::vector<double> out;
                                                model3DH(s, out);
                                                return out;
                                            }});

// Vectors whose w is 0, -0, FLT_MIN, a NaN or a denormal saturate and set
// the status; the others are transformed; in every layout (vectors side by
// side too) and team size.
TEST(Transform3DH, SmallWSaturatesAndTheRestGoOn)
{
    const Member& m = member("kelmAffineTransform3DH_mva_32f");
    const float bad[] = {0.0f, -0.0f, FLT_MIN, -FLT_MIN, kNaN, 1e-39f};
    forEachTeamSize([&](int) {
        std::vector<Form> forms = everyForm();
        forms.push_back(Form::Planes);
        sweep(m, withCounts(m, {{}}, {7, 140, 1001}), forms, 11, [&](Case& s) {
            // w = x: row 3 is (1, 0, 0, 0).
            for (int j = 0; j < 4; ++j) s.ops[0].set(0, 3, j, j == 0);
            for (int n = 0; n < s.ops[1].objects; ++n) {
                s.ops[1].set(n, 0, 0, n % 5 == 2 ? bad[n / 5 % 6] : 2 + n % 3);
                s.ops[1].set(n, 0, 1, 1), s.ops[1].set(n, 0, 2, -1);
            }
            std::vector<double> want;
            const KelStatus st = model3DH(s, want);
            Expected e(s);
            for (size_t k = 0; k < want.size(); ++k) e.put(2, int(k / 3), 0, int(k % 3), toBits(want[k], 4));
            e.check(st);
        });
    });
}

// Dense runs of vectors (four at a time) give the bits of the same vectors
// spread out, saturated ones included.
TEST(Transform3DH, DenseRunsAsSpreadOut)
{
    std::mt19937 rng(5);
    const int count = 203;
    float m[16], src[4 * count], dense[3 * count];
    for (auto& v : m) v = sample(rng, 0);
    for (auto& v : src) v = sample(rng, 0.02);
    // w = x, and x = 0 in a few vectors.
    m[12] = 1, m[13] = m[14] = m[15] = 0;
    for (int n : {5, 77, 78, 200}) src[4 * n] = 0;
    for (int k = 0; k < 3 * count; ++k) dense[k] = src[k / 3 * 4 + k % 3];
    forEachTeamSize([&](int) {
        float outDense[3 * count], outSpread[4 * count];
        const KelStatus a = kelmAffineTransform3DH_mva_32f(m, 16, 4, dense, 12, 4, outDense, 12, 4, count);
        const KelStatus b = kelmAffineTransform3DH_mva_32f(m, 16, 4, src, 16, 4, outSpread, 16, 4, count);
        ASSERT_EQ(a, kelStsDivideByZero);
        ASSERT_EQ(a, b);
        for (int k = 0; k < 3 * count; ++k) ASSERT_TRUE(same(outDense[k], outSpread[k / 3 * 4 + k % 3])) << k;
    });
}


// ---- angles, identities and the properties that tie the builders together ----------

M kId = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// The weak identity test: m00 == 1, then any column equal to the identity's
// column in its place.
int isIdentityModel(In m)
{
    if (!(m[0] == 1.0f)) return 0;
    for (int c = 0; c < 4; ++c) {
        bool col = true;
        for (int r = 0; r < 4; ++r) col = col && at(m, r, c) == (r == c ? 1.0f : 0.0f);
        if (col) return 1;
    }
    return 0;
}

// Identity matrices with a few elements changed (often to a special value)
// against the model; the documented cases by name.
TEST(IsIdentity, WeakColumnTest)
{
    std::mt19937 rng(3);
    for (int round = 0; round < 4000; ++round) {
        M m;
        std::memcpy(m, kId, sizeof m);
        const int changes = round % 5;
        for (int k = 0; k < changes; ++k) m[rng() % 16] = sample(rng, 0.7);
        int got = -1;
        ASSERT_EQ(kelmIsIdentity_m4_32f(m, &got), kelStsNoErr);
        ASSERT_EQ(got, isIdentityModel(m)) << "round " << round;
    }
    M m;
    std::memcpy(m, kId, sizeof m);
    int got = -1;
    m[9] = 1e-30f;  // m[2][1]: columns 0, 2 and 3 still hold
    kelmIsIdentity_m4_32f(m, &got);
    EXPECT_EQ(got, 1);
    const M none = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    kelmIsIdentity_m4_32f(none, &got);
    EXPECT_EQ(got, 0);
    m[9] = -0.0f;  // exact compare: -0 is 0
    kelmIsIdentity_m4_32f(m, &got);
    EXPECT_EQ(got, 1);
}

using Rot = KelStatus (*)(F, F*);
const Rot kRotations[3] = {kelmRotationX_m4_32f, kelmRotationY_m4_32f, kelmRotationZ_m4_32f};

// Quarter turns carry sinf/cosf's bits (float(pi/2) has s = 1 and
// c = -4.371139e-08), so they are permutations of the axes up to 1e-7; an
// angle of 0 gives the identity bit for bit and -0 keeps its sign in s.
TEST(Rotation, QuarterTurnsAndZero)
{
    const F q = static_cast<F>(M_PI / 2);
    EXPECT_EQ(sinf(q), 1.0f);
    EXPECT_EQ(cosf(q), -4.371139e-08f);
    for (int axis = 0; axis < 3; ++axis) {
        M r;
        kRotations[axis](0.0f, r);
        EXPECT_EQ(std::memcmp(r, kId, sizeof r), 0) << "axis " << axis;
        for (int turns = 1; turns < 4; ++turns) {
            kRotations[axis](q * turns, r);
            for (float v : r) ASSERT_LT(std::fabs(v - std::nearbyint(v)), 1e-6f) << "axis " << axis << " turns " << turns;
        }
        kRotations[axis](q, r);
        const int s = axis == 0 ? 6 : axis == 1 ? 8 : 1;  // where +s lands
        EXPECT_EQ(r[s], 1.0f);
        EXPECT_NEAR(r[5 * ((axis + 1) % 3)], 0.0f, 1e-7f);
    }
    M r;
    kelmRotationX_m4_32f(-0.0f, r);
    EXPECT_TRUE(std::signbit(r[6])) << "m12 is sin(-0)";
}

// Orthonormal rotations with determinant 1; axis rotations about e_k are
// RotationX/Y/Z; yaw alone is RotationY up to zero signs; yaw, pitch, roll
// is Z(roll) * X(pitch) * Y(yaw) for row vectors.
TEST(Rotation, AgreeWithEachOther)
{
    std::mt19937 rng(11);
    for (int round = 0; round < 200; ++round) {
        const F y = sample(rng, 0), p = sample(rng, 0), r = sample(rng, 0);
        M ypr, rx, ry, rz, t, want, tt;
        kelmRotationYawPitchRoll_m4_32f(y, p, r, ypr);
        kelmRotationX_m4_32f(p, rx);
        kelmRotationY_m4_32f(y, ry);
        kelmRotationZ_m4_32f(r, rz);
        kelmMul_mm4x4_32f(rz, rx, t);
        kelmMul_mm4x4_32f(t, ry, want);
        expectNear(ypr, want, 16, 1e-6f, "YPR against Z*X*Y");
        kelmTranspose_m4_32f(ypr, tt);
        kelmMul_mm4x4_32f(ypr, tt, t);
        expectNear(t, kId, 16, 1e-6f, "M * M^T");
        F det;
        kelmDet_m4_32f(ypr, &det);
        ASSERT_NEAR(det, 1.0f, 1e-6f);
        kelmRotationYawPitchRoll_m4_32f(y, 0, 0, t);
        for (int i = 0; i < 16; ++i) ASSERT_EQ(t[i], ry[i]) << "yaw alone, element " << i;
        for (int axis = 0; axis < 3; ++axis) {
            const F e[3] = {F(axis == 0), F(axis == 1), F(axis == 2)};
            M a, b;
            kelmRotationAxis_v3m4_32f(e, y, a);
            kRotations[axis](y, b);
            expectNear(a, b, 16, 1e-6f, "RotationAxis(e_k)");
        }
    }
}

// Lengths, normalisation and interpolation at their ends.
TEST(Vectors, LengthsAndInterpolationEnds)
{
    std::mt19937 rng(12);
    for (int round = 0; round < 500; ++round) {
        F v[4], w[4], t0[4], t1[4], d[4], len, sq;
        for (int i = 0; i < 4; ++i) v[i] = sample(rng, 0), w[i] = sample(rng, 0), t0[i] = sample(rng, 0), t1[i] = sample(rng, 0);
        kelmLen_v3_32f(v, &len);
        kelmLenSqr_v3_32f(v, &sq);
        ASSERT_EQ(len, sqrtf(sq));
        kelmHermite_v4_32f(v, t0, w, t1, 0.0f, d);
        for (int i = 0; i < 4; ++i) ASSERT_EQ(d[i], v[i]) << "Hermite at 0";
        kelmHermite_v4_32f(v, t0, w, t1, 1.0f, d);
        expectNear(d, w, 4, 1e-5f, "Hermite at 1");
        kelmInterpolationCatmullRom_v3_32f(t0, v, w, t1, 0.0f, d);
        for (int i = 0; i < 3; ++i) ASSERT_EQ(d[i], v[i]) << "Catmull-Rom at 0";
    }
    const F v[4] = {1, 0x1p-12f, 0x1p-12f, 0x1p-12f};
    F n[4], len;
    kelmNormalize_v4_32f(v, n);
    kelmLen_v4_32f(v, &len);
    EXPECT_EQ(n[0], 0.99999988f);
    EXPECT_EQ(len, 1.0f);
}

// The view matrix takes the eye to the origin; the projections take the
// frustum's corners to the corners of [-1,1] x [-1,1] x [0,1].
TEST(Builders, EyeToOriginAndFrustumToCube)
{
    const F eye[3] = {3, -2, 7}, at[3] = {-1, 0.5f, 2}, up[3] = {0, 1, 0};
    M view, proj;
    F o[3];
    for (auto lookAt : {kelmLookAtLH_m4_32f, kelmLookAtRH_m4_32f}) {
        lookAt(eye, at, up, view);
        kelmAffineTransformCoord_m4v3_32f(view, eye, o);
        for (F v : o) ASSERT_NEAR(v, 0.0f, 1e-5f);
    }
    const F fov = 1.1f, aspect = 1.6f, zn = 0.5f, zf = 40.0f, th = tanf(fov / 2);
    kelmPerspectiveFovLH_m4_32f(fov, aspect, zn, zf, proj);
    for (int corner = 0; corner < 8; ++corner) {
        const F z = corner & 4 ? zf : zn, sx = corner & 1 ? 1.0f : -1.0f, sy = corner & 2 ? 1.0f : -1.0f;
        const F p[3] = {sx * z * th * aspect, sy * z * th, z}, want[3] = {sx, sy, corner & 4 ? 1.0f : 0.0f};
        kelmAffineTransformCoord_m4v3_32f(proj, p, o);
        expectNear(o, want, 3, 1e-5f, "frustum corner");
    }
}

// Mul tests its pointers; Mul and Transpose load everything before they
// store, so a destination that is a source gives the same bits.
TEST(Matrix4, NullPointersAndAliasing)
{
    std::mt19937 rng(13);
    M a, b, c;
    for (int i = 0; i < 16; ++i) a[i] = sample(rng, 0.1), b[i] = sample(rng, 0.1);
    EXPECT_EQ(kelmMul_mm4x4_32f(nullptr, b, c), kelStsNullPointer);
    EXPECT_EQ(kelmMul_mm4x4_32f(a, nullptr, c), kelStsNullPointer);
    EXPECT_EQ(kelmMul_mm4x4_32f(a, b, nullptr), kelStsNullPointer);
    M want, x;
    kelmMul_mm4x4_32f(a, b, want);
    std::memcpy(x, a, sizeof x);
    kelmMul_mm4x4_32f(x, b, x);
    for (int i = 0; i < 16; ++i) ASSERT_TRUE(same(x[i], want[i])) << "dst = src1, " << i;
    std::memcpy(x, b, sizeof x);
    kelmMul_mm4x4_32f(a, x, x);
    for (int i = 0; i < 16; ++i) ASSERT_TRUE(same(x[i], want[i])) << "dst = src2, " << i;
    kelmMulTranspose_m4_32f(a, b, want);
    std::memcpy(x, a, sizeof x);
    kelmMulTranspose_m4_32f(x, b, x);
    for (int i = 0; i < 16; ++i) ASSERT_TRUE(same(x[i], want[i])) << "MulTranspose dst = src1, " << i;
    kelmTranspose_m4_32f(a, want);
    std::memcpy(x, a, sizeof x);
    kelmTranspose_m4_32f(x, x);
    for (int i = 0; i < 16; ++i) ASSERT_TRUE(same(x[i], want[i])) << "Transpose in place, " << i;
}

}  // namespace
