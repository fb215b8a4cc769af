// Transpose: dst[n](i, j) = src[n](j, i), elements moved as raw words.
//
// Paths, all giving the same bytes:
//   square 3..6    every element moved once in straight-line code, in every
//                  description; packed 4 x 4 arrays of 32f go through
//                  registers (aligned 128-bit rows, or 64-bit halves);
//   packed rows    large 32f matrices in blocks of source rows, with stores
//                  that bypass the cache when the data outgrow it (the
//                  size of the largest cache is asked only for big data);
//                  64f matrices a destination row at a time;
//   strided        a destination row at a time;
//   P              a source row at a time, entry j * width + i of the
//                  source table to entry i * height + j of the result's;
//   side by side   objects side by side that do not overlap, a pack of
//                  objects' element a step.
// The kernel loops over the objects of an array in order; there is no
// parallel path.
#pragma once

#include <xmmintrin.h>

#include <cstdint>
#include <type_traits>

#include "frame/simd.h"
#include "movement/movement.h"

namespace kel::movement {

namespace transposition {

// Should the packed 32f objects of an array bypass the cache?  Asks the
// cache size only when source and destination together exceed 128 KiB.
bool arrayStreams(int32_t w, int32_t h, int32_t count);

// One packed 32f matrix: blocks of source rows, plain or streaming stores.
// `stream` forces streaming; otherwise a matrix of at least 129 rows and
// columns decides for itself from the cache size.
void blocked32(const float* src, int32_t srcStride1, float* dst, int32_t dstStride1, int32_t w, int32_t h,
               bool stream);

// One packed 64f matrix, a destination row at a time.
void blocked64(const double* src, int32_t srcStride1, double* dst, int32_t dstStride1, int32_t w, int32_t h);

// Four packed floats at any address, as two 64-bit halves.
inline __m128 loadHalves(const float* p)
{
    return _mm_castsi128_ps(_mm_unpacklo_epi64(simd::load64(p), simd::load64(p + 2)));
}
inline void storeHalves(float* p, __m128 v)
{
    const __m128i b = _mm_castps_si128(v);
    simd::store64(p, b);
    simd::store64(p + 2, _mm_unpackhi_epi64(b, b));
}

// Square objects of N x N, any description: each element moved once.
template <int N, class S, class D>
void square(int32_t count, const S& src, const D& dst)
{
    for (int32_t n = 0; n < count; ++n) {
#pragma GCC unroll 6
        for (int j = 0; j < N; ++j) {
#pragma GCC unroll 6
            for (int i = 0; i < N; ++i) moveWord(src.at(n, j, i), dst.at(n, i, j));
        }
    }
}

// Packed 4 x 4 arrays of 32f (S or L): four rows in registers, two stages
// of 32-bit interleaving.  Aligned 128-bit rows when an S array lies on
// 16-byte boundaries with rows of exactly 16 bytes, else 64-bit halves.
template <class S, class D>
void square4Packed(int32_t count, const S& src, const D& dst)
{
    bool aligned = false;
    if constexpr (S::desc == Desc::S) {
        aligned = reinterpret_cast<uintptr_t>(src.base) % 16 == 0 && reinterpret_cast<uintptr_t>(dst.base) % 16 == 0 &&
                  src.s0 % 16 == 0 && dst.s0 % 16 == 0 && src.s1 == 16 && dst.s1 == 16;
    }
    for (int32_t n = 0; n < count; ++n) {
        const float* a = src.object(n);
        float* d = dst.object(n);
        __m128 r0, r1, r2, r3;
        if (aligned) {
            r0 = _mm_load_ps(a), r1 = _mm_load_ps(a + 4), r2 = _mm_load_ps(a + 8), r3 = _mm_load_ps(a + 12);
        } else {
            r0 = loadHalves(a);
            r1 = loadHalves(offset(a, src.s1));
            r2 = loadHalves(offset(a, mul32(2, src.s1)));
            r3 = loadHalves(offset(a, mul32(3, src.s1)));
        }
        _MM_TRANSPOSE4_PS(r0, r1, r2, r3);
        if (aligned) {
            _mm_store_ps(d, r0), _mm_store_ps(d + 4, r1), _mm_store_ps(d + 8, r2), _mm_store_ps(d + 12, r3);
        } else {
            storeHalves(d, r0);
            storeHalves(offset(d, dst.s1), r1);
            storeHalves(offset(d, mul32(2, dst.s1)), r2);
            storeHalves(offset(d, mul32(3, dst.s1)), r3);
        }
    }
}

}  // namespace transposition

struct TransposeKernel {
    int32_t w, h;  // of the source

    template <class S, class D>
    KelStatus operator()(int32_t count, void*, const S& src, const D& dst) const
    {
        using namespace transposition;
        using T = typename D::Elem;
        constexpr bool hasRows = S::desc != Desc::P;  // S and L: rows with a Stride2
        const bool packed = hasRows && src.packed() && dst.packed();
        if (!packed && movedSideBySide<true>(count, src, dst, w, h)) return kelStsNoErr;

        if (w == h && w >= 3 && w <= 6) {
            if constexpr (hasRows && S::array && std::is_same<T, float>::value) {
                if (w == 4 && packed) {
                    square4Packed(count, src, dst);
                    return kelStsNoErr;
                }
            }
            switch (w) {
            case 3: square<3>(count, src, dst); break;
            case 4: square<4>(count, src, dst); break;
            case 5: square<5>(count, src, dst); break;
            default: square<6>(count, src, dst); break;
            }
            return kelStsNoErr;
        }

        if constexpr (hasRows) {
            if (packed) {
                if constexpr (std::is_same<T, float>::value) {
                    bool stream = false;
                    if constexpr (S::array) stream = arrayStreams(w, h, count);
                    for (int32_t n = 0; n < count; ++n)
                        blocked32(src.object(n), src.s1, dst.object(n), dst.s1, w, h, stream);
                } else {
                    for (int32_t n = 0; n < count; ++n) blocked64(src.object(n), src.s1, dst.object(n), dst.s1, w, h);
                }
                return kelStsNoErr;
            }
            for (int32_t n = 0; n < count; ++n)
                for (int32_t i = 0; i < w; ++i)
                    for (int32_t j = 0; j < h; ++j) moveWord(src.at(n, j, i), dst.at(n, i, j));
        } else {
            for (int32_t n = 0; n < count; ++n)
                for (int32_t j = 0; j < h; ++j)
                    for (int32_t i = 0; i < w; ++i) moveWord(src.at(n, j, i), dst.at(n, i, j));
        }
        return kelStsNoErr;
    }
};

// Front end of every Transpose member: the source view, then the result's.
template <class S, class D>
KelStatus transpose(const Traits& tr, const Sizes& s, S src, D dst)
{
    // P tables are row-major: the source's rows have `width` entries, the
    // result's `height`.
    src.setStoredWidth(s.W);
    dst.setStoredWidth(s.H);
    return run(tr, s, noMismatch, DriverInfo{}, TransposeKernel{s.W, s.H}, src, dst);
}

}  // namespace kel::movement
