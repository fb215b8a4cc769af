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
constexpr int32_t kTileCols = 64;               // source columns of a tile
constexpr int32_t kTileRows = 64;               // source rows of a tile

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

// A tile holds up to kTileRows x kTileCols source elements already
// transposed: tile row c is source column c, kTileRows floats long.
struct Tile {
    alignas(64) float e[kTileCols * kTileRows];
    float* row(int32_t c) { return e + c * kTileRows; }
    const float* row(int32_t c) const { return e + c * kTileRows; }
};

// Source columns i0 .. i0 + cols - 1 of `rows` source rows into the tile,
// 4 x 4 elements at a time; leftover columns and rows by element.  Each
// source line is read in one burst, so rows that share the sets of the
// first-level cache (rows a multiple of 4 KiB apart) do not evict one
// another half-read.
void gather(const float* src, int32_t ss1, int32_t i0, int32_t cols, int32_t rows, Tile& t)
{
    int32_t j = 0;
    for (; j + 4 <= rows; j += 4) {
        const float* r0 = at(src, ss1, j, i0);
        const float* r1 = at(src, ss1, j + 1, i0);
        const float* r2 = at(src, ss1, j + 2, i0);
        const float* r3 = at(src, ss1, j + 3, i0);
        int32_t c = 0;
        for (; c + 4 <= cols; c += 4) {
            __m128 a = _mm_loadu_ps(r0 + c), b = _mm_loadu_ps(r1 + c);
            __m128 e = _mm_loadu_ps(r2 + c), f = _mm_loadu_ps(r3 + c);
            _MM_TRANSPOSE4_PS(a, b, e, f);
            _mm_store_ps(t.row(c) + j, a);
            _mm_store_ps(t.row(c + 1) + j, b);
            _mm_store_ps(t.row(c + 2) + j, e);
            _mm_store_ps(t.row(c + 3) + j, f);
        }
        for (; c < cols; ++c) {
            moveWord(r0 + c, t.row(c) + j);
            moveWord(r1 + c, t.row(c) + j + 1);
            moveWord(r2 + c, t.row(c) + j + 2);
            moveWord(r3 + c, t.row(c) + j + 3);
        }
    }
    for (; j < rows; ++j)
        for (int32_t c = 0; c < cols; ++c) moveWord(at(src, ss1, j, i0 + c), t.row(c) + j);
}

// Tile rows 0 .. cols - 1 as destination rows i0 .. i0 + cols - 1, `rows`
// elements each, one destination row after the other.  With `Stream` the
// whole 64-byte lines of each row go by stores that bypass the cache; the
// partial lines at either end take ordinary stores, since a partial
// non-temporal line would be written back piecemeal.
template <bool Stream>
void scatter(const Tile& t, int32_t cols, int32_t rows, float* dst, int32_t ds1, int32_t i0)
{
    for (int32_t c = 0; c < cols; ++c) {
        float* d = offset(dst, mul32(i0 + c, ds1));
        const float* r = t.row(c);
        int32_t k = 0;
        if constexpr (Stream) {
            const uintptr_t first = (addr(d) + 63) & ~uintptr_t(63);                // first whole line
            const uintptr_t last = (addr(d) + uintptr_t(rows) * 4) & ~uintptr_t(63);  // end of the last
            if (first < last && (first - addr(d)) % 4 == 0) {
                const int32_t head = int32_t((first - addr(d)) / 4), end = head + int32_t((last - first) / 4);
                for (; k < head; ++k) moveWord(r + k, d + k);
                for (; k < end; k += 4) _mm_stream_ps(d + k, _mm_loadu_ps(r + k));
            }
        }
        for (; k + 4 <= rows; k += 4) _mm_storeu_ps(d + k, pass(_mm_loadu_ps(r + k)));
        for (; k < rows; ++k) moveWord(r + k, d + k);
    }
}

// One block of `rows` source rows.  The source goes through a tile on the
// stack, kTileRows x kTileCols at a time, and each destination row is
// written in one run.  With ordinary stores, an 8-byte aligned source and a
// 16-byte aligned destination whose rows do not lie a multiple of 1 KiB
// apart (so that a strip's rows fall into different sets of the
// first-level cache) the columns in strips of four go straight from the
// source instead.  Streaming stores end with a store fence, so that the
// writes are ordered before anything that follows.
void block(const float* src, int32_t ss1, float* dst, int32_t ds1, int32_t w, int32_t rows, bool stream)
{
    const bool direct = !stream && addr(src) % 8 == 0 && ss1 % 8 == 0 && addr(dst) % 16 == 0 && ds1 % 16 == 0 &&
                        ss1 % 1024 != 0;
    Tile tile;
    for (int32_t j = 0; j < rows; j += kTileRows) {
        const int32_t tr = std::min(kTileRows, rows - j);
        const float* s = offset(src, mul32(j, ss1));
        float* d = dst + j;
        int32_t i = 0;
        if (direct) {
            i = w / 4 * 4;
            strips(s, ss1, d, ds1, i, tr);
        }
        for (; i < w; i += kTileCols) {
            const int32_t tw = std::min(kTileCols, w - i);
            gather(s, ss1, i, tw, tr, tile);
            if (stream) scatter<true>(tile, tw, tr, d, ds1, i);
            else scatter<false>(tile, tw, tr, d, ds1, i);
        }
    }
    if (stream) _mm_sfence();
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
        block(src, srcStride1, dst, dstStride1, w, rows, s);
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
