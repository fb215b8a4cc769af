// Copy, Extract, LoadIdentity and Transpose against plain models, over every
// member, description, type, size and layout.  Sources hold arbitrary bit
// patterns (signalling and quiet NaNs with payloads, signed zeros,
// subnormals), and results are compared bit for bit: these families move
// words, they never compute.  Then overlapping operands in element order,
// documented cases by hand, and the packed Transpose paths with their cache
// questions, right before pages that may not be touched.
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <random>
#include <stdexcept>

#include "families.h"
#include "guarded.h"
#include "harness.h"

namespace {

using namespace kt;

// Stored shapes.  Extract's dense dst holds `count` objects of the result's
// shape; Transpose's dst has `width` rows of `height` elements; everything
// else is stored like an element-wise operand.
Shape movementShape(const Member& m, const GroupInfo& g, const Sizes& sizes)
{
    auto size = [&](const char* name) { return sizes.count(name) ? sizes.at(name) : 1; };
    if (g.kind == "out")
        return m.has("len") ? Shape{size("count"), 1, size("len")}
                            : Shape{size("count"), size("height"), size("width")};
    if (m.family == "Transpose" && g.isWritten())
        return {g.kind == "ma" ? size("count") : 1, size("width"), size("height")};
    return elementwiseShape(m, g, sizes);
}

KT_FAMILY("Copy", FamilyHooks{movementShape, {}, {}, {}});
KT_FAMILY("Extract", FamilyHooks{movementShape, {}, {}, {}});
KT_FAMILY("LoadIdentity", FamilyHooks{movementShape, {}, {}, {}});
KT_FAMILY("Transpose", FamilyHooks{movementShape, {}, {}, {}});

uint64_t one(int elem) { return elem == 4 ? 0x3f800000u : 0x3ff0000000000000ull; }

// Random element bits, rich in the patterns float arithmetic would change.
uint64_t randomBits(std::mt19937_64& rng, int elem)
{
    const uint64_t r = rng();
    const bool f = elem == 4;
    switch (r % 8) {
    case 0:
        return f ? 0x7f800000u | ((r >> 8) & 0x3fffffu) | 1u
                 : 0x7ff0000000000000ull | ((r >> 8) & 0x7ffffffffffffull) | 1u;  // signalling NaN
    case 1:
        return f ? 0xffc00000u | ((r >> 8) & 0x3fffffu)
                 : 0xfff8000000000000ull | ((r >> 8) & 0x7ffffffffffffull);  // quiet NaN, sign set
    case 2:
        return f ? 0x80000000u : 0x8000000000000000ull;  // -0
    case 3:
        return f ? (r >> 9) & 0x7fffffu : (r >> 12) & 0xfffffffffffffull;  // subnormal or +0
    default:
        return f ? (r >> 16) & 0xffffffffu : r;
    }
}

// ---- every member against the model ------------------------------------------------

// Overwrites every source element with random bits, runs the case and
// expects in every dst element (n, r, c), by family:
//   Copy          source element (n, r, c)
//   Extract       result element (r, c): stored (r, c), or (c, r) for t, ta
//   LoadIdentity  1 on the diagonal, 0 elsewhere
//   Transpose     source element (n, c, r)
void checkMove(Case& s, uint32_t seed)
{
    const Member& m = *s.m;
    std::mt19937_64 rng(seed);
    const Operand* src = nullptr;
    for (auto& op : s.ops) {
        if (op.info.isSize() || op.info.isWritten()) continue;
        src = &op;
        for (int64_t k = 0; k < int64_t(op.offsets.size()); ++k) {
            const uint64_t bits = randomBits(rng, op.elem);
            std::memcpy(op.arena.data() + op.offsets[k], &bits, op.elem);
        }
    }
    const int d = dstGroup(m);
    const Operand& dst = s.ops[d];
    const bool trans = m.family == "Transpose" || m.code[0] == 't';
    Expected e(s);
    for (int n = 0; n < dst.objects; ++n)
        for (int r = 0; r < dst.rows; ++r)
            for (int c = 0; c < dst.cols; ++c) {
                const int sn = src && src->objects > 1 ? n : 0;
                e.put(d, n, r, c,
                      !src    ? (r == c ? one(m.elem) : 0)
                      : trans ? src->bits(sn, c, r)
                              : src->bits(sn, r, c));
            }
    e.check();
}

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> shapes, large;
    if (m.has("len")) {
        for (int len : {1, 2, 3, 4, 5, 6, 7, 8, 9, 17}) shapes.push_back({{"len", len}});
    } else {
        for (int k = 1; k <= 9; ++k) shapes.push_back({{"width", k}, {"height", k}});
        for (auto [w, h] :
             {std::pair{2, 3}, {3, 2}, {3, 4}, {4, 3}, {2, 5}, {7, 3}, {1, 6}, {6, 1}, {9, 2}, {5, 6}, {17, 5}})
            shapes.push_back({{"width", w}, {"height", h}});
        // Transpose: blocks of source rows, leftover strips and columns, the cache question.
        for (auto [w, h] : {std::pair{130, 70}, {70, 130}, {200, 300}, {129, 129}, {16, 300}, {133, 67}})
            if (m.family == "Transpose") large.push_back({{"width", w}, {"height", h}});
    }
    auto grid = withCounts(m, shapes), more = withCounts(m, large, {1, 2});
    grid.insert(grid.end(), more.begin(), more.end());
    // However large the array, these families never fork.
    if (m.has("count"))
        grid.push_back(m.has("len") ? Sizes{{"len", 2}, {"count", 1500}}
                                    : Sizes{{"width", 2}, {"height", 2}, {"count", 1500}});
    return grid;
}

class Movement : public ::testing::TestWithParam<std::string> {};

// Copy and LoadIdentity test a Stride0 only for more than one object: with
// one, it may hold anything.  No member asks for a thread count.
TEST_P(Movement, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    const bool anyStride0 = m.family == "Copy" || m.family == "LoadIdentity";
    uint32_t seed = 1;
    forceThreads(4);
    resetThreadQueries();
    std::vector<Form> forms = everyForm();
    forms.push_back(Form::Planes);   // objects side by side
    sweep(m, sizeGrid(m), forms, 1, [&](Case& s) {
        if (anyStride0 && s.sizes.at("count") == 1)
            for (auto& op : s.ops)
                if (op.args.s0) op.args.s0 = std::vector<int>{0, -m.elem, 2}[seed % 3];
        checkMove(s, seed++);
    });
    forceThreads(0);
    EXPECT_EQ(threadQueries(), 0);
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

INSTANTIATE_TEST_SUITE_P(All, Movement,
                         ::testing::ValuesIn(memberNames({"Copy", "Extract", "LoadIdentity", "Transpose"})), paramName);

// ---- element order when objects overlap ---------------------------------------------

// An operand placed in the first few hundred bytes of a shared block, so
// that objects, rows and operands overlap, with its own address arithmetic
// (64-bit, independent of the library's views).
struct Placed {
    char desc = 'S';
    int w = 1;
    CallGroup args;
    std::vector<void*> table;
    int64_t base = 0, s0 = 0, s1 = 0, s2 = 0, roi = 0;
    std::vector<int64_t> slots;  // L: object starts, P: element positions

    Placed() = default;
    Placed(char d, bool vec, int elem, int width, int h, int count, unsigned char* mem, std::mt19937& rng)
        : desc(d), w(width)
    {
        auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
        s0 = elem * pick(1, 6), s1 = vec ? 0 : elem * pick(1, 6), s2 = pick(0, 1) ? elem : elem * pick(1, 3);
        roi = desc == 'S' ? 0 : elem * pick(0, 2);
        base = 4 * pick(0, 64);
        slots.resize(desc == 'S' ? 0 : desc == 'L' ? count : w * h);
        for (auto& s : slots) s = 4 * pick(0, 64), table.push_back(mem + s);
        args = {mem + base, table.data(), int(s0), int(s1), int(s2), int(roi)};
    }
    int64_t at(int n, int j, int i) const
    {
        if (desc == 'S') return base + n * s0 + j * s1 + i * s2;
        if (desc == 'L') return slots[n] + roi + j * s1 + i * s2;
        return slots[j * w + i] + roi + n * s0;
    }
};

class ElementOrder : public ::testing::TestWithParam<std::string> {};

// Copy moves elements one at a time, objects, rows and elements ascending;
// LoadIdentity clears each row, then sets its diagonal element.  With
// overlapping operands the result is exactly that sequence of stores.
TEST_P(ElementOrder, OverlappingOperandsFollowTheElementOrder)
{
    const Member& m = member(GetParam());
    const int e = m.elem;
    const bool vec = m.has("len");
    for (uint32_t seed = 1; seed <= 300; ++seed) {
        std::mt19937 rng(seed);
        auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
        const int w = pick(1, 6), h = vec ? 1 : pick(1, 6), count = pick(1, 4);
        std::vector<unsigned char> mem(1024);
        for (auto& b : mem) b = static_cast<unsigned char>(rng());
        Call c;
        c.sizes = vec ? Sizes{{"len", w}, {"count", count}} : Sizes{{"width", w}, {"height", h}, {"count", count}};
        std::vector<Placed> placed(m.groups.size());
        const Placed *src = nullptr, *dst = nullptr;
        for (size_t k = 0; k < m.groups.size(); ++k) {
            const GroupInfo& g = m.groups[k];
            if (!g.isSize()) {
                placed[k] = Placed(g.desc, vec, e, w, h, count, mem.data(), rng);
                (g.isWritten() ? dst : src) = &placed[k];
            }
            c.g.push_back(placed[k].args);
        }
        std::vector<unsigned char> want = mem;
        for (int n = 0; n < count; ++n)
            for (int j = 0; j < h; ++j) {
                for (int i = 0; i < w; ++i) {
                    if (src)
                        std::memmove(&want[dst->at(n, j, i)], &want[src->at(n, j, i)], e);
                    else
                        std::memset(&want[dst->at(n, j, i)], 0, e);
                }
                const uint64_t unit = one(e);
                if (!src && j < w) std::memcpy(&want[dst->at(n, j, j)], &unit, e);
            }
        ASSERT_EQ(m.invoke(c), kelStsNoErr) << m.name << " seed " << seed;
        ASSERT_EQ(mem, want) << m.name << " seed " << seed << " w " << w << " h " << h << " count " << count;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ElementOrder, ::testing::ValuesIn(memberNames({"Copy", "LoadIdentity"})), paramName);

// ---- documented cases ---------------------------------------------------------------

TEST(Movement, TwoByThreeTransposedGivesRowsOfTwo)
{
    const float stored[6] = {1, 2, 3, 4, 5, 6};  // 2 rows of 3
    const float want[8] = {1, 4, 2, 5, 3, 6, -1, -1};
    float out[8] = {-1, -1, -1, -1, -1, -1, -1, -1};
    ASSERT_EQ(kelmExtract_t_32f(stored, 12, 4, out, 2, 3), kelStsNoErr);
    EXPECT_EQ(std::memcmp(out, want, sizeof out), 0);
    std::fill(out, out + 8, -1.0f);
    ASSERT_EQ(kelmTranspose_m_32f(stored, 12, 4, 3, 2, out, 8, 4), kelStsNoErr);
    EXPECT_EQ(std::memcmp(out, want, sizeof out), 0);
}

// Checks whose order or presence the member tables record, and Extract of
// P tables whose width * height wraps to 0 or below: no error, and nothing
// read or written.
TEST(Movement, DocumentedChecks)
{
    float src[4] = {1, 2, 3, 4}, dst[4] = {0, 0, 0, 0}, x = 0;
    double s64[2] = {1, 2}, d64[2], y = 0;
    double* dt64[1] = {d64};
    const float* ps[1] = {src};
    float* pd[1] = {dst};
    const float* px[1] = {&x};
    const double* py[1] = {&y};
    const std::pair<KelStatus, KelStatus> cases[] = {
        // Stride0 of Copy counts for more than one object only; ROI shifts always.
        {kelmCopy_ma_32f_SS(src, 0, 8, 4, dst, 16, 8, 4, 2, 2, 1), kelStsNoErr},
        {kelmCopy_ma_32f_SS(src, -4, 8, 4, dst, 16, 8, 4, 2, 2, 1), kelStsNoErr},
        {kelmCopy_ma_32f_SS(src, 0, 8, 4, dst, 16, 8, 4, 2, 2, 2), kelStsBadStride},
        {kelmCopy_va_64f_SP(s64, 16, 8, dt64, 0, 4, 1, 1), kelStsNoErr},
        {kelmCopy_va_64f_SP(s64, 16, 8, dt64, 0, 4, 1, 2), kelStsBadStride},
        {kelmCopy_ma_32f_PP(ps, -4, 4, pd, 0, 4, 1, 1, 1), kelStsBadRoiShift},
        // Some P members of Extract test sizes before pointers.
        {kelmExtract_m_32f_P(px, 0, nullptr, 0, 1), kelStsBadSize},
        {kelmExtract_m_32f(&x, 4, 4, nullptr, 0, 1), kelStsNullPointer},
        {kelmExtract_v_32f_P(px, 0, nullptr, 0), kelStsNullPointer},
        {kelmExtract_v_64f_P(py, 0, nullptr, 0), kelStsBadSize},
        {kelmExtract_m_32f_P(ps, 0, pd[0], 65536, 65536), kelStsNoErr},         // product 0
        {kelmExtract_ma_32f_P(ps, 0, 4, pd[0], 65536, 32768, 2), kelStsNoErr},  // product -2^31
    };
    for (size_t k = 0; k < std::size(cases); ++k) EXPECT_EQ(cases[k].first, cases[k].second) << "case " << k;
    for (int k = 0; k < 4; ++k) EXPECT_EQ(dst[k], float(k + 1));
}

TEST(GuardPage, LoadIdentityStopsAtTheLastElement)
{
    for (int n = 1; n <= 9; ++n)
        for (int count : {1, 2, 3})
            for (int skew : {0, 4}) {  // 16-byte aligned objects, or not
                const int elems = n * n * count;
                Guarded g(elems * 4 + skew);
                float* d = g.as<float>(skew);
                ASSERT_EQ(kelmLoadIdentity_ma_32f(d, n * n * 4, n * 4, 4, n, n, count), kelStsNoErr);
                for (int k = 0; k < elems; ++k) ASSERT_EQ(d[k], k / n % n == k % n ? 1.0f : 0.0f) << n << " " << k;
            }
}

// ---- Transpose: packed paths and the cache question ---------------------------------

enum class Via { Single, Array, List };

struct Packed {
    int w, h, count = 1;
    int srcAlign = -1, dstAlign = -1;  // address of the first element mod 16; -1: as it falls
    int srcPad = 0, dstPad = 0;        // elements after each row
};

// Memory for packed objects that ends right before a page that may not be
// touched, but for up to 12 bytes that give the first element the wanted
// alignment; 16 bytes before it.  Random bytes throughout.  Two blocks
// (source, destination) serve every call.
struct Region {
    unsigned char* base;
    size_t bytes;
    Region(int which, size_t span, int align, std::mt19937_64& rng)
    {
        static constexpr size_t kMax = 8 << 20;
        static Guarded blocks[2] = {Guarded(kMax), Guarded(kMax)};
        bytes = 16 + span + (align < 0 ? 0 : (32 - span % 16 - align) % 16);
        if (bytes > kMax) throw std::length_error("objects too large for the guarded blocks");
        base = blocks[which].as<unsigned char>(kMax - bytes);
        for (size_t k = 0; k < bytes; k += 8) {
            const uint64_t r = rng();
            std::memcpy(base + k, &r, std::min<size_t>(8, bytes - k));
        }
    }
    unsigned char* first() const { return base + 16; }
};

// Transposes packed matrices, checks every byte of the destination's memory
// and returns the number of cache questions.
template <class T>
int transposePacked(const Packed& p, Via via, uint32_t seed)
{
    const int e = sizeof(T), count = via == Via::Single ? 1 : p.count;
    const int srow = (p.w + p.srcPad) * e, drow = (p.h + p.dstPad) * e, sobj = srow * p.h, dobj = drow * p.w;
    std::mt19937_64 rng(seed);
    Region src(0, size_t(sobj) * (count - 1) + size_t(srow) * (p.h - 1) + p.w * e, p.srcAlign, rng);
    Region dst(1, size_t(dobj) * (count - 1) + size_t(drow) * (p.w - 1) + p.h * e, p.dstAlign, rng);
    std::vector<unsigned char> want(dst.base, dst.base + dst.bytes);
    for (int n = 0; n < count; ++n)
        for (int j = 0; j < p.h; ++j)
            for (int i = 0; i < p.w; ++i)
                std::memcpy(&want[16 + size_t(n) * dobj + size_t(i) * drow + j * e],
                            src.first() + size_t(n) * sobj + size_t(j) * srow + i * e, e);
    std::vector<void*> ps, pd;
    for (int n = 0; n < count; ++n) ps.push_back(src.first() + n * sobj), pd.push_back(dst.first() + n * dobj);
    const std::string name =
        std::string("kelmTranspose_") + (via == Via::Single ? "m_" : "ma_") + (e == 4 ? "32f" : "64f");
    Call c{{{ps[0], ps.data(), sobj, srow, e}, {}, {}, {pd[0], pd.data(), dobj, drow, e}, {}},
           {{"width", p.w}, {"height", p.h}, {"count", count}}};
    resetCacheQueries();
    const KelStatus st = member(via == Via::List ? name + "_L" : name).invoke(c);
    const int queries = cacheQueries();
    EXPECT_EQ(st, kelStsNoErr);
    size_t bad = 0;
    while (bad < dst.bytes && dst.base[bad] == want[bad]) ++bad;
    EXPECT_EQ(bad, dst.bytes) << "first wrong byte of " << p.w << "x" << p.h << " count " << count << " aligned "
                              << p.srcAlign << "/" << p.dstAlign << " pads " << p.srcPad << "/" << p.dstPad;
    return queries;
}

struct CacheGuard {
    explicit CacheGuard(int bytes) { setCacheSize(bytes); }
    ~CacheGuard() { setCacheSize(256 * 1024); }
};

// Every combination of alignment, row padding (rows a multiple of 16 bytes
// or 1 KiB apart, or not), leftover rows and columns, and cache answer
// (none, fits, streaming) gives the transposition, and no path reads past
// the source's last element (a stray store shows in the destination's
// bytes).
TEST(TransposePacked, EveryPathGivesTheTransposition)
{
    const std::pair<int, int> sizes[] = {{3, 3},     {4, 4},     {5, 5},    {6, 6},    {129, 129}, {130, 70},
                                         {133, 131}, {200, 300}, {67, 150}, {256, 67}, {250, 71},  {7, 1000},
                                         {144, 80}};
    uint32_t seed = 1;
    for (int cache : {0, 1 << 30, 4096}) {
        CacheGuard g(cache);
        for (auto [w, h] : sizes) {
            const int rowsTo16 = (4 - h % 4) % 4, rowsTo1K = (256 - w % 256) % 256;
            for (int srcAlign : {-1, 0, 4, 8})
                for (int dstAlign : {0, 4, 8})
                    for (int srcPad : {0, 1, rowsTo1K})
                        for (int dstPad : {rowsTo16, rowsTo16 + 1}) {
                            const Packed p{w, h, 2, srcAlign, dstAlign, srcPad, dstPad};
                            transposePacked<float>(p, Via::Single, seed++);
                            transposePacked<float>(p, Via::Array, seed++);
                            if (seed % 3 == 0) transposePacked<float>(p, Via::List, seed);
                            if (seed % 3 == 1) transposePacked<double>(p, Via::Array, seed);
                            if (seed % 3 == 2) transposePacked<double>(p, Via::Single, seed);
                            if (HasFailure()) return;
                        }
        }
    }
}

// The cache is asked only about packed 32f data: a matrix of at least 129
// rows and columns once; an array of more than 128 KiB once, and then, if
// it does not stream (three quarters of the cache or less, or no answer),
// each large object once more.  Square sizes 3 to 6 and 64f never ask.
TEST(TransposePacked, CacheQuestions)
{
    struct Q {
        int cache;
        Packed p;
        Via via;
        int queries;
    };
    const Q cases[] = {
        {256 << 10, {128, 1000}, Via::Single, 0}, {256 << 10, {1000, 128}, Via::Single, 0},
        {133128, {129, 129}, Via::Single, 1},     {133128, {200, 300}, Via::Single, 1},   // 129 x 129 fits
        {133127, {129, 129}, Via::Single, 1},     {133127, {200, 300}, Via::Single, 1},   // both stream
        {0, {129, 129}, Via::Single, 1},          {0, {200, 300}, Via::Single, 1},        // no answer
        {1 << 30, {64, 64, 4}, Via::Array, 0},    {1 << 30, {64, 64, 5}, Via::Array, 1},  // 131072 bytes; more
        {1 << 30, {129, 129, 2}, Via::Array, 3},  {1 << 30, {4, 4, 20000}, Via::Array, 0},
        {355008, {129, 129, 2}, Via::Array, 3},   {355004, {129, 129, 2}, Via::Array, 1},  // 266256 bytes
        {0, {129, 129, 2}, Via::Array, 3},        {4096, {300, 300, 1}, Via::List, 1},
    };
    uint32_t seed = 1;
    for (const Q& q : cases) {
        CacheGuard g(q.cache);
        EXPECT_EQ(transposePacked<float>(q.p, q.via, seed++), q.queries)
            << q.p.w << "x" << q.p.h << " count " << q.p.count << " cache " << q.cache;
    }
    EXPECT_EQ(transposePacked<double>({300, 300}, Via::Single, seed), 0);
    // Strided rows, or a failed check, never ask.
    CacheGuard g(4096);
    std::vector<float> src(2 * 300 * 300), dst(2 * 300 * 300);
    resetCacheQueries();
    ASSERT_EQ(kelmTranspose_m_32f(src.data(), 300 * 8, 8, 150, 300, dst.data(), 300 * 4, 4), kelStsNoErr);
    ASSERT_EQ(kelmTranspose_ma_32f_L(nullptr, 0, 4, 4, 300, 300, nullptr, 0, 4, 4, 1), kelStsNullPointer);
    EXPECT_EQ(cacheQueries(), 0);
}

}  // namespace
