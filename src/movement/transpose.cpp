// The packed general paths of Transpose: blocks of source rows for 32f with
// the cache decision, and the 64f row path.
#include <emmintrin.h>
#include <xmmintrin.h>

#include <algorithm>
#include <cstdint>

#include "kelcore.h"
#include "movement/transpose.h"

namespace kel::movement::transposition {

namespace {

constexpr int32_t kArrayQueryBytes = 0x20000;  // 128 KiB: smaller arrays never ask
constexpr int32_t kMatrixQuerySide = 129;       // smaller matrices never ask
constexpr int32_t kBlockRows = 64;
constexpr int32_t kTileCols = 64;               // columns of a staged tile

uintptr_t addr(const void* p) { return reinterpret_cast<uintptr_t>(p); }

// Size of the largest cache in bytes; 0 when the core library has no answer.
int32_t largestCache()
{
    int c = 0;
    kelGetMaxCacheSizeB(&c);
    return c;
}

// Source element (j, i) of a packed matrix.
const float* at(const float* src, int32_t srcStride1, int32_t j, int32_t i)
{
    return offset(src, mul32(j, srcStride1)) + i;
}

// A register on its way from a load to a store.  The empty asm keeps the
// compiler from turning a staging loop into a call of memcpy, which is
// slow for runs of a few hundred bytes.
inline __m128 pass(__m128 v)
{
    asm("" : "+x"(v));
    return v;
}

// Strips of four source columns, `cols` of them in all (a multiple of 4),
// become four destination rows each, 4 x 4 elements at a time through two
// stages of 32-bit interleaving; rows left over in a strip (up to 3) go by
// element.  `dst` and `ds1` are multiples of 16.
void strips(const float* src, int32_t ss1, float* dst, int32_t ds1, int32_t cols, int32_t rows)
{
    for (int32_t i = 0; i < cols; i += 4) {
        float* d[4];
        for (int k = 0; k < 4; ++k) d[k] = offset(dst, mul32(i + k, ds1));
        int32_t j = 0;
        for (; j + 4 <= rows; j += 4) {
            __m128 r0 = _mm_loadu_ps(at(src, ss1, j, i)), r1 = _mm_loadu_ps(at(src, ss1, j + 1, i));
            __m128 r2 = _mm_loadu_ps(at(src, ss1, j + 2, i)), r3 = _mm_loadu_ps(at(src, ss1, j + 3, i));
            _MM_TRANSPOSE4_PS(r0, r1, r2, r3);
            _mm_store_ps(d[0] + j, r0);
            _mm_store_ps(d[1] + j, r1);
            _mm_store_ps(d[2] + j, r2);
            _mm_store_ps(d[3] + j, r3);
        }
        for (; j < rows; ++j)
            for (int k = 0; k < 4; ++k) moveWord(at(src, ss1, j, i + k), d[k] + j);
    }
}

// `rows` source rows (at most a block) with ordinary stores.  With an
// 8-byte aligned source and a 16-byte aligned destination, the columns in
// strips of four go through `strips`.  When the source rows lie a multiple
// of 1 KiB apart, all the rows of a block compete for the same few sets of
// the first-level cache and a strip would fetch each source line four
// times; the block is then staged, up to 64 columns at a time, in a dense
// tile on the stack, read row by row.  Other columns, and all columns when
// the alignment test fails, are one destination row each: by element up to
// a 16-byte boundary, then four source rows gathered into one aligned
// store, the last up to 3 by element.
void block(const float* src, int32_t ss1, float* dst, int32_t ds1, int32_t w, int32_t rows)
{
    int32_t i = 0;
    if (addr(src) % 8 == 0 && ss1 % 8 == 0 && addr(dst) % 16 == 0 && ds1 % 16 == 0) {
        const int32_t cols = w / 4 * 4;
        if (ss1 % 1024 == 0 && rows <= kBlockRows) {
            alignas(16) float tile[kBlockRows * kTileCols];
            for (; i < cols; i += kTileCols) {
                const int32_t tw = std::min(kTileCols, cols - i);
                for (int32_t j = 0; j < rows; ++j) {
                    const float* r = at(src, ss1, j, i);
                    float* t = tile + j * tw;
                    if (tw == kTileCols) {
                        for (int c = 0; c < kTileCols; c += 4) _mm_store_ps(t + c, pass(_mm_loadu_ps(r + c)));
                    } else {
                        for (int32_t c = 0; c < tw; c += 4) _mm_store_ps(t + c, pass(_mm_loadu_ps(r + c)));
                    }
                }
                strips(tile, tw * 4, offset(dst, mul32(i, ds1)), ds1, tw, rows);
            }
        } else {
            strips(src, ss1, dst, ds1, cols, rows);
        }
        i = cols;
    }
    for (; i < w; ++i) {
        float* d = offset(dst, mul32(i, ds1));
        int32_t j = 0;
        for (; j < rows && addr(d + j) % 16 != 0; ++j) moveWord(at(src, ss1, j, i), d + j);
        for (; j + 4 <= rows; j += 4) {
            const __m128i v = _mm_setr_epi32(load<int32_t>(at(src, ss1, j, i)), load<int32_t>(at(src, ss1, j + 1, i)),
                                             load<int32_t>(at(src, ss1, j + 2, i)), load<int32_t>(at(src, ss1, j + 3, i)));
            _mm_store_si128(reinterpret_cast<__m128i*>(d + j), v);
        }
        for (; j < rows; ++j) moveWord(at(src, ss1, j, i), d + j);
    }
}

// `rows` source rows with 32-bit stores that bypass the cache: two source
// columns at a time, an odd last column alone, then a store fence so that
// the writes are ordered before anything that follows.
void blockStream(const float* src, int32_t ss1, float* dst, int32_t ds1, int32_t w, int32_t rows)
{
    int32_t i = 0;
    for (; i + 2 <= w; i += 2) {
        int* d0 = reinterpret_cast<int*>(offset(dst, mul32(i, ds1)));
        int* d1 = reinterpret_cast<int*>(offset(dst, mul32(i + 1, ds1)));
        for (int32_t j = 0; j < rows; ++j) {
            const uint64_t pair = load<uint64_t>(at(src, ss1, j, i));
            _mm_stream_si32(d0 + j, static_cast<int>(static_cast<uint32_t>(pair)));
            _mm_stream_si32(d1 + j, static_cast<int>(static_cast<uint32_t>(pair >> 32)));
        }
    }
    if (i < w) {
        int* d0 = reinterpret_cast<int*>(offset(dst, mul32(i, ds1)));
        for (int32_t j = 0; j < rows; ++j) _mm_stream_si32(d0 + j, load<int>(at(src, ss1, j, i)));
    }
    _mm_sfence();
}

}  // namespace

bool arrayStreams(int32_t w, int32_t h, int32_t count)
{
    // Source and destination of all objects, 4 bytes each, in wrapping
    // 32-bit arithmetic.
    const int32_t bytes = mul32(mul32(w, 8), mul32(h, count));
    if (bytes <= kArrayQueryBytes) return false;
    const int32_t c = largestCache();
    if (c == 0) return false;
    return bytes > c - c / 4;  // beyond three quarters of the cache
}

void blocked32(const float* src, int32_t srcStride1, float* dst, int32_t dstStride1, int32_t w, int32_t h, bool stream)
{
    bool s = stream;
    int32_t bh = 0;  // block height, rows of the source
    if (!s && std::min(w, h) >= kMatrixQuerySide) {
        const int32_t c = largestCache();
        if (c != 0) {
            if (c >= mul32(mul32(w, 8), h)) bh = std::min(h, kBlockRows);  // the matrix fits
            else s = true;
        }
    }
    if (bh == 0) bh = ((s && w % 16 != 0) || h < kBlockRows + 1) ? h : kBlockRows;
    for (int32_t left = h; left > 0;) {
        const int32_t rows = std::min(bh, left);
        if (s) blockStream(src, srcStride1, dst, dstStride1, w, rows);
        else block(src, srcStride1, dst, dstStride1, w, rows);
        src = offset(src, mul32(bh, srcStride1));
        dst += bh;
        left -= rows;
    }
}

void blocked64(const double* src, int32_t srcStride1, double* dst, int32_t dstStride1, int32_t w, int32_t h)
{
    const bool pairs = addr(dst) % 16 == 0 && dstStride1 % 16 == 0;
    for (int32_t i = 0; i < w; ++i) {
        double* d = offset(dst, mul32(i, dstStride1));
        const double* s = src + i;
        int32_t j = 0;
        for (; j + 8 <= h; j += 8) {
            uint64_t v[8];
            for (int k = 0; k < 8; ++k) v[k] = load<uint64_t>(offset(s, mul32(j + k, srcStride1)));
            if (pairs) {
                for (int k = 0; k < 8; k += 2)
                    _mm_store_si128(reinterpret_cast<__m128i*>(d + j + k),
                                    _mm_set_epi64x(static_cast<long long>(v[k + 1]), static_cast<long long>(v[k])));
            } else {
                for (int k = 0; k < 8; ++k) store<uint64_t>(d + j + k, v[k]);
            }
        }
        for (; j < h; ++j) moveWord(offset(s, mul32(j, srcStride1)), d + j);
    }
}

}  // namespace kel::movement::transposition
