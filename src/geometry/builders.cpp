// 4x4 matrix builders.  Each fills a zeroed matrix with the elements it
// names and writes all 16 floats.  The forms
// `0 - d` are kept as written: they give +0 where `-d` would give -0.
#include <cmath>

#include "geometry/geometry.h"

namespace kel::geometry {
namespace {

// The elements go into a zeroed array and out to dst.  to() writes them
// one by one: a row load that had to gather four element stores would wait
// for them (no store forwards into a wider load), which cost
// PerspectiveFovLH two thirds of its time.  toRows() writes four 16-byte
// rows: LookAt, whose elements come after square roots and divisions, is
// faster so.
struct Build {
    float m[16] = {};
    float& operator()(int r, int c) { return m[4 * r + c]; }
    KelStatus to(float* dst) const
    {
#pragma GCC unroll 16
        for (int i = 0; i < 16; ++i) dst[i] = m[i];
        return kelStsNoErr;
    }
    KelStatus toRows(float* dst) const
    {
        for (int i = 0; i < 4; ++i) P::load(m + 4 * i).store(dst + 4 * i);
        return kelStsNoErr;
    }
};

Build identity()
{
    Build b;
    for (int i = 0; i < 4; ++i) b(i, i) = 1.0f;
    return b;
}

// Which way the depth axis points.
enum Hand { LH, RH };

KelStatus lookAt(Hand hand, const float* eye, const float* at, const float* up, float* dst)
{
    float z[3], x[3], y[3], upz[3];
    for (int i = 0; i < 3; ++i) z[i] = hand == LH ? at[i] - eye[i] : eye[i] - at[i];
    normalize<3>(z, z);
    cross3(up, z, upz);
    normalize<3>(upz, x);
    cross3(z, x, y);
    Build b;
    for (int i = 0; i < 3; ++i) {
        b(i, 0) = x[i];
        b(i, 1) = y[i];
        b(i, 2) = z[i];
    }
    b(3, 0) = 0.0f - dot<3>(x, eye);
    b(3, 1) = 0.0f - dot<3>(y, eye);
    b(3, 2) = 0.0f - dot<3>(z, eye);
    b(3, 3) = 1.0f;
    return b.toRows(dst);
}

// Depth column of the orthographic projections (depth mapped to [0, 1]).
void orthoDepth(Build& b, Hand hand, float zn, float zf)
{
    b(2, 2) = hand == LH ? 1.0f / (zf - zn) : 1.0f / (zn - zf);
    b(3, 2) = hand == LH ? zn / (0.0f - (zf - zn)) : zn / (zn - zf);
    b(3, 3) = 1.0f;
}

// Depth column and w of the perspective projections; m[3][2] of the
// field-of-view form is set by its caller.
void perspectiveDepth(Build& b, Hand hand, float zn, float zf)
{
    b(2, 2) = hand == LH ? zf / (zf - zn) : zf / (zn - zf);
    b(2, 3) = hand == LH ? 1.0f : -1.0f;
    b(3, 2) = hand == LH ? zn * zf / (0.0f - (zf - zn)) : zn * zf / (zn - zf);
}

KelStatus ortho(Hand hand, float w, float h, float zn, float zf, float* dst)
{
    Build b;
    b(0, 0) = 2.0f / w;
    b(1, 1) = 2.0f / h;
    orthoDepth(b, hand, zn, zf);
    return b.to(dst);
}

KelStatus orthoOffCenter(Hand hand, float l, float r, float bo, float t, float zn, float zf, float* dst)
{
    Build b;
    b(0, 0) = 2.0f / (r - l);
    b(1, 1) = 2.0f / (t - bo);
    b(3, 0) = (l + r) / (0.0f - (r - l));
    b(3, 1) = (bo + t) / (0.0f - (t - bo));
    orthoDepth(b, hand, zn, zf);
    return b.to(dst);
}

KelStatus perspective(Hand hand, float w, float h, float zn, float zf, float* dst)
{
    Build b;
    b(0, 0) = (zn + zn) / w;
    b(1, 1) = (zn + zn) / h;
    perspectiveDepth(b, hand, zn, zf);
    return b.to(dst);
}

KelStatus perspectiveOffCenter(Hand hand, float l, float r, float bo, float t, float zn, float zf, float* dst)
{
    Build b;
    b(0, 0) = (zn + zn) / (r - l);
    b(1, 1) = (zn + zn) / (t - bo);
    b(2, 0) = hand == LH ? (l + r) / (0.0f - (r - l)) : (l + r) / (r - l);
    b(2, 1) = hand == LH ? (bo + t) / (0.0f - (t - bo)) : (bo + t) / (t - bo);
    perspectiveDepth(b, hand, zn, zf);
    return b.to(dst);
}

KelStatus perspectiveFov(Hand hand, float fovY, float aspect, float zn, float zf, float* dst)
{
    Build b;
    const float yScale = std::cos(fovY * 0.5f) / std::sin(fovY * 0.5f);
    b(0, 0) = yScale / aspect;
    b(1, 1) = yScale;
    perspectiveDepth(b, hand, zn, zf);
    // The left-handed form negates the product, not the quotient: zn = 0
    // gives +0 here.
    if (hand == LH) b(3, 2) = (0.0f - zn * zf) / (zf - zn);
    return b.to(dst);
}

// Rotation about axis k: rows and columns i, j (the other two axes in the
// order that keeps the turn right-handed for row vectors) hold c, s, -s, c.
KelStatus rotation(int i, int j, float angle, float* dst)
{
    const float s = std::sin(angle), c = std::cos(angle);
    Build b = identity();
    b(i, i) = c;
    b(i, j) = s;
    b(j, i) = 0.0f - s;
    b(j, j) = c;
    return b.to(dst);
}

}  // namespace
}  // namespace kel::geometry

using namespace kel::geometry;

extern "C" {

KelStatus kelmIdentity_m4_32f(Kel32f* dst) { return identity().to(dst); }

KelStatus kelmScaling_m4_32f(Kel32f x, Kel32f y, Kel32f z, Kel32f* dst)
{
    Build b;
    b(0, 0) = x;
    b(1, 1) = y;
    b(2, 2) = z;
    b(3, 3) = 1.0f;
    return b.to(dst);
}

KelStatus kelmTranslation_m4_32f(Kel32f x, Kel32f y, Kel32f z, Kel32f* dst)
{
    Build b = identity();
    b(3, 0) = x;
    b(3, 1) = y;
    b(3, 2) = z;
    return b.to(dst);
}

KelStatus kelmLookAtLH_m4_32f(const Kel32f* eye, const Kel32f* at, const Kel32f* up, Kel32f* dst)
{
    return lookAt(LH, eye, at, up, dst);
}
KelStatus kelmLookAtRH_m4_32f(const Kel32f* eye, const Kel32f* at, const Kel32f* up, Kel32f* dst)
{
    return lookAt(RH, eye, at, up, dst);
}

KelStatus kelmOrthoLH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return ortho(LH, w, h, zn, zf, dst);
}
KelStatus kelmOrthoRH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return ortho(RH, w, h, zn, zf, dst);
}
KelStatus kelmOrthoOffCenterLH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return orthoOffCenter(LH, l, r, b, t, zn, zf, dst);
}
KelStatus kelmOrthoOffCenterRH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return orthoOffCenter(RH, l, r, b, t, zn, zf, dst);
}
KelStatus kelmPerspectiveLH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return perspective(LH, w, h, zn, zf, dst);
}
KelStatus kelmPerspectiveRH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return perspective(RH, w, h, zn, zf, dst);
}
KelStatus kelmPerspectiveOffCenterLH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf,
                                            Kel32f* dst)
{
    return perspectiveOffCenter(LH, l, r, b, t, zn, zf, dst);
}
KelStatus kelmPerspectiveOffCenterRH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf,
                                            Kel32f* dst)
{
    return perspectiveOffCenter(RH, l, r, b, t, zn, zf, dst);
}
KelStatus kelmPerspectiveFovLH_m4_32f(Kel32f fovY, Kel32f aspect, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return perspectiveFov(LH, fovY, aspect, zn, zf, dst);
}
KelStatus kelmPerspectiveFovRH_m4_32f(Kel32f fovY, Kel32f aspect, Kel32f zn, Kel32f zf, Kel32f* dst)
{
    return perspectiveFov(RH, fovY, aspect, zn, zf, dst);
}

KelStatus kelmRotationX_m4_32f(Kel32f angle, Kel32f* dst) { return rotation(1, 2, angle, dst); }
KelStatus kelmRotationY_m4_32f(Kel32f angle, Kel32f* dst) { return rotation(2, 0, angle, dst); }
KelStatus kelmRotationZ_m4_32f(Kel32f angle, Kel32f* dst) { return rotation(0, 1, angle, dst); }

// Row vectors turn by roll about z, then pitch about x, then yaw about y.
KelStatus kelmRotationYawPitchRoll_m4_32f(Kel32f yaw, Kel32f pitch, Kel32f roll, Kel32f* dst)
{
    const float sy = std::sin(yaw), cy = std::cos(yaw);
    const float sp = std::sin(pitch), cp = std::cos(pitch);
    const float sr = std::sin(roll), cr = std::cos(roll);
    Build b;
    b(0, 0) = sr * (sy * sp) + cy * cr;
    b(0, 1) = sr * cp;
    b(0, 2) = sr * (sp * cy) - sy * cr;
    b(1, 0) = (sy * sp) * cr - cy * sr;
    b(1, 1) = cr * cp;
    b(1, 2) = sy * sr + cr * (sp * cy);
    b(2, 0) = sy * cp;
    b(2, 1) = 0.0f - sp;
    b(2, 2) = cy * cp;
    b(3, 3) = 1.0f;
    return b.to(dst);
}

// Rotation about any axis; the axis is normalised here (float square root).
KelStatus kelmRotationAxis_v3m4_32f(const Kel32f* axis, Kel32f angle, Kel32f* dst)
{
    const float s = std::sin(angle), c = std::cos(angle);
    const float len = std::sqrt(axis[0] * axis[0] + axis[1] * axis[1] + axis[2] * axis[2]);
    const float nx = axis[0] / len, ny = axis[1] / len, nz = axis[2] / len;
    const float t = 1.0f - c;
    Build b;
    b(0, 0) = (t * nx) * nx + c;
    b(0, 1) = (t * ny) * nx + s * nz;
    b(0, 2) = (t * nz) * nx - s * ny;
    b(1, 0) = (t * nx) * ny - s * nz;
    b(1, 1) = (t * ny) * ny + c;
    b(1, 2) = ny * (t * nz) + s * nx;
    b(2, 0) = s * ny + (t * nx) * nz;
    b(2, 1) = (t * ny) * nz - s * nx;
    b(2, 2) = c + nz * (t * nz);
    b(3, 3) = 1.0f;
    return b.to(dst);
}

}  // extern "C"
