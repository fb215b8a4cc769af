// LoadIdentity: for each object, each row ascending, all elements of the row
// are set to 0, then, if the row number is below `width`, its diagonal
// element to 1.
//
// Objects side by side (interleaved S, P over planes) whose positions lie
// apart go a pack of objects at a time.  Packed S arrays of 32f have their
// own paths: 4 x 4 objects as four 128-bit
// row stores, 3 x 3 objects as nine elements straight, other sizes with rows
// cleared eight elements a step between a peel and a tail.  Each row is
// still finished before the next one starts, so objects that overlap give
// the same bytes on every path.
#pragma once

#include <xmmintrin.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "movement/movement.h"

namespace kel::movement {

namespace identity {

// One row of 32f elements, any length: zeros, then the diagonal element.
inline void rowFloat(float* p, int32_t w, int32_t diag)
{
    const uintptr_t a = reinterpret_cast<uintptr_t>(p);
    int32_t i = 0;
    if (a % 4 == 0) {
        const int32_t peel = static_cast<int32_t>((16 - a % 16) % 16 / 4);
        if (w >= peel + 8) {
            for (; i < peel; ++i) putValue(p + i, 0.0f);
            const __m128 zero = _mm_setzero_ps();
            for (; i + 8 <= w; i += 8) {
                _mm_store_ps(p + i, zero);
                _mm_store_ps(p + i + 4, zero);
            }
        }
    }
    for (; i < w; ++i) putValue(p + i, 0.0f);
    if (diag < w) putValue(p + diag, 1.0f);
}

// Packed S array of 32f (Stride2 of 4).
template <class D>
void packedFloat(int32_t count, int32_t w, int32_t h, const D& dst)
{
    if (w == 4 && h == 4) {
        const __m128 rows[4] = {_mm_setr_ps(1, 0, 0, 0), _mm_setr_ps(0, 1, 0, 0), _mm_setr_ps(0, 0, 1, 0),
                                _mm_setr_ps(0, 0, 0, 1)};
        const bool aligned =
            reinterpret_cast<uintptr_t>(dst.base) % 16 == 0 && dst.s0 % 16 == 0 && dst.s1 == 16;
        for (int32_t n = 0; n < count; ++n) {
            float* o = dst.object(n);
            if (aligned) {
                for (int j = 0; j < 4; ++j) _mm_store_ps(o + 4 * j, rows[j]);
            } else {
                for (int j = 0; j < 4; ++j) _mm_storeu_ps(offset(o, mul32(j, dst.s1)), rows[j]);
            }
        }
    } else if (w == 3 && h == 3) {
        static const float rows[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        for (int32_t n = 0; n < count; ++n) {
            float* o = dst.object(n);
            for (int j = 0; j < 3; ++j) std::memcpy(offset(o, mul32(j, dst.s1)), rows[j], sizeof rows[j]);
        }
    } else {
        for (int32_t n = 0; n < count; ++n)
            for (int32_t j = 0; j < h; ++j) rowFloat(dst.row(n, j), w, j);
    }
}

}  // namespace identity

struct IdentityKernel {
    int32_t w, h;

    template <class D>
    KelStatus operator()(int32_t count, void*, const D& dst) const
    {
        using T = typename D::Elem;
        if constexpr (D::desc == Desc::S && std::is_same<T, float>::value) {
            if (dst.packed()) {
                identity::packedFloat(count, w, h, dst);
                return kelStsNoErr;
            }
        }
        if constexpr (D::array && lanesPossible<D>()) {
            // Objects side by side whose positions lie apart: each
            // position's run of elements set a pack at a time.
            if (w <= kLaneMaxSide && h <= kLaneMaxSide && sideBySide(dst) && positionsApart(dst, count, w, h)) {
                using P = simd::Pack<simd::Sse, T>;
                const LaneOperand<simd::Sse, D> y(dst, h, w);
                forLanes<T>(count, [&](int32_t first, int k) {
                    for (int32_t j = 0; j < h; ++j)
                        for (int32_t i = 0; i < w; ++i) y.store(j, i, first, P::splat(T(i == j ? 1 : 0)), k);
                });
                return kelStsNoErr;
            }
        }
        for (int32_t n = 0; n < count; ++n)
            for (int32_t j = 0; j < h; ++j) {
                for (int32_t i = 0; i < w; ++i) putValue(dst.at(n, j, i), T(0));
                if (j < w) putValue(dst.at(n, j, j), T(1));
            }
        return kelStsNoErr;
    }
};

template <class D>
KelStatus loadIdentity(const Traits& tr, const Sizes& s, D dst)
{
    dst.setStoredWidth(s.W);
    return run(tr, s, noMismatch, DriverInfo{}, IdentityKernel{s.W, s.H}, dst);
}

}  // namespace kel::movement
