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

// Four rows of four floats, `ss` bytes apart, read and interleaved in two
// stages of 32-bit lanes: on return a..d hold the four columns.  With
// `Aligned` the second and fourth rows are read as operands of the
// interleaving itself, which saves four instructions per block.
template <bool Aligned>
inline void columns4(const float* r, int32_t ss, __m128& a, __m128& b, __m128& c, __m128& d)
{
    const float *r1 = offset(r, ss), *r2 = offset(r, mul32(2, ss)), *r3 = offset(r, mul32(3, ss));
    __m128 t0, t1, t2, t3;
    if constexpr (Aligned) {
        t0 = _mm_unpacklo_ps(_mm_load_ps(r), *reinterpret_cast<const __m128*>(r1));
        t1 = _mm_unpackhi_ps(_mm_load_ps(r), *reinterpret_cast<const __m128*>(r1));
        t2 = _mm_unpacklo_ps(_mm_load_ps(r2), *reinterpret_cast<const __m128*>(r3));
        t3 = _mm_unpackhi_ps(_mm_load_ps(r2), *reinterpret_cast<const __m128*>(r3));
    } else {
        const __m128 x0 = _mm_loadu_ps(r), x1 = _mm_loadu_ps(r1), x2 = _mm_loadu_ps(r2), x3 = _mm_loadu_ps(r3);
        t0 = _mm_unpacklo_ps(x0, x1);
        t1 = _mm_unpackhi_ps(x0, x1);
        t2 = _mm_unpacklo_ps(x2, x3);
        t3 = _mm_unpackhi_ps(x2, x3);
    }
    a = _mm_movelh_ps(t0, t2);
    b = _mm_movehl_ps(t2, t0);
    c = _mm_movelh_ps(t1, t3);
    d = _mm_movehl_ps(t3, t1);
}

// One tile of 16 x 16 elements straight from the source rows into the
// destination rows, 4 x 4 at a time, any alignment.  Each group of four
// destination rows is written whole before the next, so that only four
// destination lines are open at a time.
void tile16(const float* src, int32_t ss1, float* dst, int32_t ds1)
{
    for (int32_t h = 0; h < 16; h += 4) {
        float* d0 = offset(dst, mul32(h, ds1));
        float *d1 = offset(d0, ds1), *d2 = offset(d0, mul32(2, ds1)), *d3 = offset(d0, mul32(3, ds1));
        for (int32_t g = 0; g < 16; g += 4) {
            __m128 a, b, c, d;
            columns4<false>(at(src, ss1, g, h), ss1, a, b, c, d);
            _mm_storeu_ps(d0 + g, a);
            _mm_storeu_ps(d1 + g, b);
            _mm_storeu_ps(d2 + g, c);
            _mm_storeu_ps(d3 + g, d);
        }
    }
}

// The whole 16 x 16 tiles of `rows` source rows and `cols` source columns
// (both multiples of 16), a column of tiles at a time.  While one tile
// moves, the sixteen source lines of the next are fetched into the
// first-level cache.
void tiles16(const float* src, int32_t ss1, float* dst, int32_t ds1, int32_t cols, int32_t rows)
{
    for (int32_t i = 0; i < cols; i += 16)
        for (int32_t j = 0; j < rows; j += 16) {
            const int32_t nj = j + 16 < rows ? j + 16 : 0, ni = j + 16 < rows ? i : i + 16;
            if (ni < cols)
                for (int32_t k = 0; k < 16; ++k)
                    _mm_prefetch(reinterpret_cast<const char*>(at(src, ss1, nj + k, ni)), _MM_HINT_T0);
            tile16(at(src, ss1, j, i), ss1, offset(dst, mul32(i, ds1)) + j, ds1);
        }
}

// A tile holds up to kTileRows x kTileCols source elements already
// transposed: tile row c is source column c, kTileRows floats long.
struct Tile {
    alignas(64) float e[kTileCols * kTileRows];
    float* row(int32_t c) { return e + size_t(c) * kTileRows; }
    const float* row(int32_t c) const { return e + size_t(c) * kTileRows; }
};

// Source columns i0 .. i0 + cols - 1 of `rows` source rows into the tile,
// 4 x 4 elements at a time; leftover columns and rows by element.  Each
// source line is read in one burst, so rows that share the sets of the
// first-level cache (rows a multiple of 4 KiB apart) do not evict one
// another half-read.
template <bool Aligned>
inline void gather(const float* src, int32_t ss1, int32_t i0, int32_t cols, int32_t rows, Tile& t)
{
    int32_t j = 0;
    for (; j + 4 <= rows; j += 4) {
        const float* r0 = at(src, ss1, j, i0);
        int32_t c = 0;
        for (; c + 4 <= cols; c += 4) {
            __m128 a, b, e, f;
            columns4<Aligned>(r0 + c, ss1, a, b, e, f);
            _mm_store_ps(t.row(c) + j, a);
            _mm_store_ps(t.row(c + 1) + j, b);
            _mm_store_ps(t.row(c + 2) + j, e);
            _mm_store_ps(t.row(c + 3) + j, f);
        }
        for (; c < cols; ++c)
            for (int32_t k = 0; k < 4; ++k) moveWord(at(src, ss1, j + k, i0 + c), t.row(c) + j + k);
    }
    for (; j < rows; ++j)
        for (int32_t c = 0; c < cols; ++c) moveWord(at(src, ss1, j, i0 + c), t.row(c) + j);
}

// Tile rows 0 .. cols - 1 as destination rows i0 .. i0 + cols - 1, `rows`
// elements each, one destination row after the other, sixteen elements a
// step.  With `Stream` the whole 64-byte lines of each row go by stores
// that bypass the cache; the partial lines at either end take ordinary
// stores, since a partial non-temporal line would be written back
// piecemeal.
template <bool Stream>
inline void scatter(const Tile& t, int32_t cols, int32_t rows, float* dst, int32_t ds1, int32_t i0)
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
        for (; k + 16 <= rows; k += 16) {
            const __m128 x0 = pass(_mm_load_ps(r + k)), x1 = pass(_mm_load_ps(r + k + 4));
            const __m128 x2 = pass(_mm_load_ps(r + k + 8)), x3 = pass(_mm_load_ps(r + k + 12));
            _mm_storeu_ps(d + k, x0);
            _mm_storeu_ps(d + k + 4, x1);
            _mm_storeu_ps(d + k + 8, x2);
            _mm_storeu_ps(d + k + 12, x3);
        }
        for (; k + 4 <= rows; k += 4) _mm_storeu_ps(d + k, pass(_mm_loadu_ps(r + k)));
        for (; k < rows; ++k) moveWord(r + k, d + k);
    }
}

// Source columns i0 .. w - 1 of `rows` source rows through the tile on the
// stack, kTileRows x kTileCols at a time; each destination row is written
// in one run.
void tiled(const float* src, int32_t ss1, float* dst, int32_t ds1, int32_t i0, int32_t w, int32_t rows, bool stream)
{
    const bool aligned = addr(src) % 16 == 0 && ss1 % 16 == 0;
    Tile tile;
    for (int32_t j = 0; j < rows; j += kTileRows) {
        const int32_t tr = std::min(kTileRows, rows - j);
        const float* s = offset(src, mul32(j, ss1));
        float* d = dst + j;
        for (int32_t i = i0; i < w; i += kTileCols) {
            const int32_t tw = std::min(kTileCols, w - i);
            if (tw == kTileCols && tr == kTileRows && !stream) {
                // Whole tiles with ordinary stores: loops of known length.
                if (aligned) gather<true>(s, ss1, i, kTileCols, kTileRows, tile);
                else gather<false>(s, ss1, i, kTileCols, kTileRows, tile);
                scatter<false>(tile, kTileCols, kTileRows, d, ds1, i);
                continue;
            }
            if (aligned) gather<true>(s, ss1, i, tw, tr, tile);
            else gather<false>(s, ss1, i, tw, tr, tile);
            if (stream) scatter<true>(tile, tw, tr, d, ds1, i);
            else scatter<false>(tile, tw, tr, d, ds1, i);
        }
    }
}

// Elements from `p` to the next 64-byte line when rows `stride` bytes apart
// all start at the same place in a line; 0 otherwise.
int32_t toLine(const float* p, int32_t stride)
{
    return addr(p) % 4 == 0 && stride % 64 == 0 ? int32_t((64 - addr(p) % 64) % 64 / 4) : 0;
}

// One block of `rows` source rows.  With ordinary stores and the rows of
// both matrices spread over the sets of the first-level cache (row
// distances not a multiple of 512 bytes), the whole 16 x 16 tiles go
// straight from source to destination, their source rows whole cache
// lines where the rows allow it; the columns left and right of them and
// the rows below take the staging tile.  Rows that share a few sets (a
// multiple of 512 bytes apart, 4 KiB above all) cannot keep sixteen source
// or destination lines open at once, so their blocks go through the
// staging tile, which reads and writes whole rows.  Streaming stores end
// with a store fence, so that the writes are ordered before anything that
// follows.
void block(const float* src, int32_t ss1, float* dst, int32_t ds1, int32_t w, int32_t rows, bool stream)
{
    if (!stream && ss1 % 512 != 0 && ds1 % 512 != 0) {
        const int32_t i0 = std::min(w, toLine(src, ss1));
        const int32_t w16 = (w - i0) / 16 * 16, r16 = rows / 16 * 16;
        tiled(src, ss1, dst, ds1, 0, i0, r16, false);
        tiles16(src + i0, ss1, offset(dst, mul32(i0, ds1)), ds1, w16, r16);
        tiled(src, ss1, dst, ds1, i0 + w16, w, r16, false);
        tiled(offset(src, mul32(r16, ss1)), ss1, dst + r16, ds1, 0, w, rows - r16, false);
        return;
    }
    tiled(src, ss1, dst, ds1, 0, w, rows, stream);
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
