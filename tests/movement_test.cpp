// Copy, Extract, LoadIdentity and Transpose against plain models, over every
// member, description, type, size and layout.  Sources hold arbitrary bit
// patterns (signalling and quiet NaNs with payloads, signed zeros,
// subnormals), and results are compared bit for bit: these families move
// words, they never compute.
#include <gtest/gtest.h>

#include "guarded.h"
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <random>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

bool isArray(const std::string& kind) { return kind.size() == 2 && kind[1] == 'a'; }

int sizeOr(const Sizes& s, const char* name, int dflt)
{
    auto it = s.find(name);
    return it == s.end() ? dflt : it->second;
}

// Stored shapes.  Extract's dense dst holds `count` objects of the result's
// shape; Transpose's dst has `width` rows of `height` elements; everything
// else is stored like an element-wise operand.
Shape movementShape(const Member& m, const GroupInfo& g, const Sizes& sizes)
{
    const int count = sizeOr(sizes, "count", 1);
    const int w = sizeOr(sizes, "width", 1), h = sizeOr(sizes, "height", 1), len = sizeOr(sizes, "len", 1);
    if (g.kind == "out") return m.has("len") ? Shape{count, 1, len} : Shape{count, h, w};
    if (m.family == "Transpose" && g.isWritten()) return {isArray(g.kind) ? count : 1, w, h};
    return elementwiseShape(m, g, sizes);
}

KT_FAMILY("Copy", FamilyHooks{movementShape, {}, {}, {}});
KT_FAMILY("Extract", FamilyHooks{movementShape, {}, {}, {}});
KT_FAMILY("LoadIdentity", FamilyHooks{movementShape, {}, {}, {}});
KT_FAMILY("Transpose", FamilyHooks{movementShape, {}, {}, {}});

// ---- bit patterns ------------------------------------------------------------------

uint64_t one(int elem) { return elem == 4 ? 0x3f800000u : 0x3ff0000000000000ull; }

// Random element bits, rich in the patterns float arithmetic would change.
uint64_t randomBits(std::mt19937_64& rng, int elem)
{
    const uint64_t r = rng();
    const bool f = elem == 4;
    switch (r % 8) {
    case 0: return f ? 0x7f800000u | ((r >> 8) & 0x3fffffu) | 1u : 0x7ff0000000000000ull | ((r >> 8) & 0x7ffffffffffffull) | 1u;  // signalling NaN
    case 1: return f ? 0xffc00000u | ((r >> 8) & 0x3fffffu) : 0xfff8000000000000ull | ((r >> 8) & 0x7ffffffffffffull);  // quiet NaN, sign set
    case 2: return f ? 0x80000000u : 0x8000000000000000ull;  // -0
    case 3: return f ? (r >> 9) & 0x7fffffu : (r >> 12) & 0xfffffffffffffull;  // subnormal or +0
    default: return f ? (r >> 16) & 0xffffffffu : r;
    }
}

void setBits(Operand& op, int n, int r, int c, uint64_t bits)
{
    std::memcpy(op.arena.data() + op.offsets[op.index(n, r, c)], &bits, op.elem);
}

// Overwrites every source element with random bits.
void fillBits(Case& s, uint32_t seed)
{
    std::mt19937_64 rng(seed);
    for (auto& op : s.ops) {
        if (op.info.isSize() || op.info.isWritten()) continue;
        for (int n = 0; n < op.objects; ++n)
            for (int r = 0; r < op.rows; ++r)
                for (int c = 0; c < op.cols; ++c) setBits(op, n, r, c, randomBits(rng, op.elem));
    }
}

// ---- the model -----------------------------------------------------------------------

const Operand* sourceOf(const Case& s)
{
    for (auto& op : s.ops)
        if (!op.info.isSize() && !op.info.isWritten()) return &op;
    return nullptr;
}

// Expected bits of every dst element, indexed like the dst operand.  The dst
// element (n, r, c) is, by family:
//   Copy          source element (n, r, c)
//   Extract       result element (r, c): stored (r, c), or (c, r) for t, ta
//   LoadIdentity  1 on the diagonal, 0 elsewhere
//   Transpose     source element (n, c, r)
std::vector<uint64_t> model(const Case& s)
{
    const Member& m = *s.m;
    const Operand& dst = s.ops[dstGroup(m)];
    const Operand* src = sourceOf(s);
    const bool trans = m.code[0] == 't';
    std::vector<uint64_t> out(dst.offsets.size());
    for (int n = 0; n < dst.objects; ++n) {
        const int sn = src && src->objects > 1 ? n : 0;
        for (int r = 0; r < dst.rows; ++r)
            for (int c = 0; c < dst.cols; ++c) {
                uint64_t v;
                if (m.family == "LoadIdentity") v = r == c ? one(m.elem) : 0;
                else if (m.family == "Transpose" || trans) v = src->bits(sn, c, r);
                else v = src->bits(sn, r, c);
                out[dst.index(n, r, c)] = v;
            }
    }
    return out;
}

void runAndCompare(Case& s)
{
    auto expected = model(s);
    auto before = s.snapshot();
    ASSERT_EQ(s.run(), kelStsNoErr) << describe(s);
    std::string diff = compareAfterBits(s, before, expected);
    ASSERT_TRUE(diff.empty()) << diff;
}

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> out;
    const bool array = m.has("count");
    for (int c : array ? std::vector<int>{1, 2, 5} : std::vector<int>{1}) {
        if (m.has("len")) {
            for (int len : {1, 2, 3, 4, 5, 6, 7, 8, 9, 17}) out.push_back({{"len", len}, {"count", c}});
            continue;
        }
        for (int k = 1; k <= 9; ++k) out.push_back({{"width", k}, {"height", k}, {"count", c}});
        for (auto wh : {std::pair{2, 3}, {3, 2}, {3, 4}, {4, 3}, {2, 5}, {7, 3}, {1, 6}, {6, 1}, {9, 2}, {5, 6}, {17, 5}})
            out.push_back({{"width", wh.first}, {"height", wh.second}, {"count", c}});
    }
    if (m.family == "Transpose") {
        // Blocks of source rows, leftover strips and columns, the cache query.
        for (int c : array ? std::vector<int>{1, 2} : std::vector<int>{1})
            for (auto wh : {std::pair{130, 70}, {70, 130}, {200, 300}, {129, 129}, {16, 300}, {133, 67}})
                out.push_back({{"width", wh.first}, {"height", wh.second}, {"count", c}});
    }
    if (!array)
        for (auto& s : out) s.erase("count");
    return out;
}

// ---- every member against the model ------------------------------------------------

class Movement : public ::testing::TestWithParam<std::string> {};

TEST_P(Movement, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    uint32_t bits = 1;
    sweep(m, sizeGrid(m), everyForm(), 1, [&](Case& s) {
        fillBits(s, bits++);
        runAndCompare(s);
    });
}

// These families never ask for a thread count, however large the array.
TEST_P(Movement, LargeArraysStaySerial)
{
    const Member& m = member(GetParam());
    if (!m.has("count")) GTEST_SKIP() << "single object";
    Sizes sizes{{"count", 1500}};
    for (auto& g : m.groups)
        if (g.isSize() && g.prefix != "count") sizes[g.prefix] = 2;
    Case s = makeCase(m, sizes, Layout{Form::Random}, 3);
    fillBits(s, 3);
    forceThreads(4);
    resetThreadQueries();
    runAndCompare(s);
    forceThreads(0);
    EXPECT_EQ(threadQueries(), 0);
}

// Copy and LoadIdentity leave Stride0 alone for a single object: any value
// passes, and the object is done as usual.
class OneObject : public ::testing::TestWithParam<std::string> {};

TEST_P(OneObject, AnyStride0Passes)
{
    const Member& m = member(GetParam());
    auto sizes = validSizes(m, 1);
    for (int bad : {0, -m.elem, 2}) {
        Case s = makeCase(m, sizes, Layout{Form::Random}, 5);
        fillBits(s, 5);
        bool any = false;
        for (size_t k = 0; k < m.groups.size(); ++k)
            if (m.groups[k].desc == 'S' || m.groups[k].desc == 'P')
                if (!m.groups[k].isSize()) s.ops[k].args.s0 = bad, any = true;
        if (!any) GTEST_SKIP() << "no Stride0";
        runAndCompare(s);
        if (HasFatalFailure()) return;
    }
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

INSTANTIATE_TEST_SUITE_P(Copy, Movement, ::testing::ValuesIn(memberNames({"Copy"})), paramName);
INSTANTIATE_TEST_SUITE_P(Extract, Movement, ::testing::ValuesIn(memberNames({"Extract"})), paramName);
INSTANTIATE_TEST_SUITE_P(LoadIdentity, Movement, ::testing::ValuesIn(memberNames({"LoadIdentity"})), paramName);
INSTANTIATE_TEST_SUITE_P(Transpose, Movement, ::testing::ValuesIn(memberNames({"Transpose"})), paramName);
INSTANTIATE_TEST_SUITE_P(Copy, OneObject, ::testing::ValuesIn(memberNames({"Copy"})), paramName);
INSTANTIATE_TEST_SUITE_P(LoadIdentity, OneObject, ::testing::ValuesIn(memberNames({"LoadIdentity"})), paramName);

// ---- element order when objects overlap ---------------------------------------------

// A description of one operand inside a shared block of memory, with its
// own address arithmetic (64-bit, independent of the library's views).
struct Placed {
    char desc = 'S';
    int w = 1;
    CallGroup args;
    std::vector<void*> table;
    int64_t base = 0, s0 = 0, s1 = 0, s2 = 0, roi = 0;
    std::vector<int64_t> slots;  // L: object starts, P: element positions

    int64_t at(int n, int j, int i) const
    {
        if (desc == 'S') return base + n * s0 + j * s1 + i * s2;
        if (desc == 'L') return slots[n] + roi + j * s1 + i * s2;
        return slots[j * w + i] + roi + n * s0;
    }
};

// Places an operand of `count` objects of h x w within the first few hundred
// bytes of `mem`, so that objects, rows and operands overlap.
Placed place(char desc, bool vec, int elem, int w, int h, int count, unsigned char* mem, std::mt19937& rng)
{
    auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    Placed p;
    p.desc = desc, p.w = w;
    p.s0 = elem * pick(1, 6);
    p.s1 = vec ? 0 : elem * pick(1, 6);
    p.s2 = pick(0, 1) ? elem : elem * pick(1, 3);
    p.roi = desc == 'S' ? 0 : elem * pick(0, 2);
    if (desc == 'S') {
        p.base = 4 * pick(0, 64);
        p.args.p = mem + p.base;
    } else {
        p.slots.resize(desc == 'L' ? count : w * h);
        p.table.resize(p.slots.size());
        for (size_t k = 0; k < p.slots.size(); ++k) {
            p.slots[k] = 4 * pick(0, 64);
            p.table[k] = mem + p.slots[k];
        }
        p.args.pp = p.table.data();
        p.args.roi = static_cast<int>(p.roi);
    }
    p.args.s0 = static_cast<int>(p.s0);
    p.args.s1 = static_cast<int>(p.s1);
    p.args.s2 = static_cast<int>(p.s2);
    return p;
}

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
        const int w = std::uniform_int_distribution<int>(1, 6)(rng);
        const int h = vec ? 1 : std::uniform_int_distribution<int>(1, 6)(rng);
        const int count = std::uniform_int_distribution<int>(1, 4)(rng);
        std::vector<unsigned char> mem(1024), want;
        for (auto& b : mem) b = static_cast<unsigned char>(rng());
        Call c;
        int src = -1, dst = -1;
        std::vector<Placed> placed(m.groups.size());
        for (size_t k = 0; k < m.groups.size(); ++k) {
            const GroupInfo& g = m.groups[k];
            if (!g.isSize()) {
                placed[k] = place(g.desc, vec, e, w, h, count, mem.data(), rng);
                (g.isWritten() ? dst : src) = static_cast<int>(k);
            }
            c.g.push_back(placed[k].args);
        }
        c.sizes = vec ? Sizes{{"len", w}, {"count", count}} : Sizes{{"width", w}, {"height", h}, {"count", count}};

        want = mem;
        const Placed& d = placed[dst];
        auto put = [&](int64_t to, uint64_t bits) { std::memcpy(want.data() + to, &bits, e); };
        for (int n = 0; n < count; ++n)
            for (int j = 0; j < h; ++j) {
                for (int i = 0; i < w; ++i) {
                    if (src >= 0) std::memmove(want.data() + d.at(n, j, i), want.data() + placed[src].at(n, j, i), e);
                    else put(d.at(n, j, i), 0);
                }
                if (src < 0 && j < w) put(d.at(n, j, j), one(e));
            }
        ASSERT_EQ(m.invoke(c), kelStsNoErr) << m.name << " seed " << seed;
        ASSERT_EQ(mem, want) << m.name << " seed " << seed << " w " << w << " h " << h << " count " << count;
    }
}

INSTANTIATE_TEST_SUITE_P(Copy, ElementOrder, ::testing::ValuesIn(memberNames({"Copy"})), paramName);
INSTANTIATE_TEST_SUITE_P(LoadIdentity, ElementOrder, ::testing::ValuesIn(memberNames({"LoadIdentity"})), paramName);

// ---- documented cases ---------------------------------------------------------------

// Bits of the element at p, read without passing through a float register.
template <class T>
uint64_t bitsAt(const T* p)
{
    uint64_t b = 0;
    std::memcpy(&b, p, sizeof(T));
    return b;
}

TEST(Extract, TransposedTwoByThreeGivesRowsOfTwo)
{
    const float stored[6] = {1, 2, 3, 4, 5, 6};  // 2 rows of 3
    float out[8] = {-1, -1, -1, -1, -1, -1, -1, -1};
    ASSERT_EQ(kelmExtract_t_32f(stored, 12, 4, out, 2, 3), kelStsNoErr);
    const float want[8] = {1, 4, 2, 5, 3, 6, -1, -1};
    for (int k = 0; k < 8; ++k) EXPECT_EQ(out[k], want[k]) << k;
}

TEST(Extract, SizesBeforePointersInSomePMembers)
{
    const float x = 0;
    const float* table[1] = {&x};
    float out[1];
    EXPECT_EQ(kelmExtract_m_32f_P(table, 0, nullptr, 0, 1), kelStsBadSize);
    EXPECT_EQ(kelmExtract_m_32f(&x, 4, 4, nullptr, 0, 1), kelStsNullPointer);
    EXPECT_EQ(kelmExtract_v_32f_P(table, 0, nullptr, 0), kelStsNullPointer);
    const double y = 0;
    const double* table64[1] = {&y};
    EXPECT_EQ(kelmExtract_v_64f_P(table64, 0, nullptr, 0), kelStsBadSize);
    EXPECT_EQ(kelmExtract_m_32f_P(table, 0, out, 1, 1), kelStsNoErr);
}

// width * height wrapping to 0 or below: nothing is read or written, and no
// error is reported.
TEST(Extract, WrappedElementCountWritesNothing)
{
    const float x = 7;
    const float* table[1] = {&x};
    float out[4] = {1, 2, 3, 4};
    EXPECT_EQ(kelmExtract_m_32f_P(table, 0, out, 65536, 65536), kelStsNoErr);  // product 0
    EXPECT_EQ(kelmExtract_ma_32f_P(table, 0, 4, out, 65536, 32768, 2), kelStsNoErr);  // product -2^31
    for (int k = 0; k < 4; ++k) EXPECT_EQ(out[k], float(k + 1));
}

TEST(LoadIdentity, TallObjectKeepsItsLastRowsZero)
{
    double d[6];
    std::memset(d, 0xab, sizeof d);
    ASSERT_EQ(kelmLoadIdentity_ma_64f(d, 48, 16, 8, 2, 3, 1), kelStsNoErr);
    const double want[6] = {1, 0, 0, 1, 0, 0};
    for (int k = 0; k < 6; ++k) EXPECT_EQ(bitsAt(&d[k]), bitsAt(&want[k])) << k;
}

TEST(LoadIdentity, GapsBetweenRowsStayUntouched)
{
    for (int count : {1, 3}) {
        std::vector<float> d(8 * 4 * count);
        for (size_t k = 0; k < d.size(); ++k) d[k] = 100.0f + float(k);
        ASSERT_EQ(kelmLoadIdentity_ma_32f(d.data(), 128, 32, 4, 4, 4, count), kelStsNoErr);
        for (size_t k = 0; k < d.size(); ++k) {
            const int row = int(k / 8) % 4, col = int(k % 8);
            const float want = col >= 4 ? 100.0f + float(k) : (col == row ? 1.0f : 0.0f);
            EXPECT_EQ(bitsAt(&d[k]), bitsAt(&want)) << "count " << count << " element " << k;
        }
    }
}

TEST(Copy, Stride0OnlyMattersForSeveralObjects)
{
    float src[4] = {1, 2, 3, 4}, dst[4] = {0, 0, 0, 0};
    EXPECT_EQ(kelmCopy_ma_32f_SS(src, 0, 8, 4, dst, 16, 8, 4, 2, 2, 1), kelStsNoErr);
    EXPECT_EQ(kelmCopy_ma_32f_SS(src, -4, 8, 4, dst, 16, 8, 4, 2, 2, 1), kelStsNoErr);
    EXPECT_EQ(dst[3], 4.0f);
    EXPECT_EQ(kelmCopy_ma_32f_SS(src, 0, 8, 4, dst, 16, 8, 4, 2, 2, 2), kelStsBadStride);
    double s64[2] = {1, 2}, d64[2];
    double* table[1] = {d64};
    EXPECT_EQ(kelmCopy_va_64f_SP(s64, 16, 8, table, 0, 4, 1, 1), kelStsNoErr);
    EXPECT_EQ(kelmCopy_va_64f_SP(s64, 16, 8, table, 0, 4, 1, 2), kelStsBadStride);
    const float* ps[1] = {src};
    float* pd[1] = {dst};
    EXPECT_EQ(kelmCopy_ma_32f_PP(ps, -4, 4, pd, 0, 4, 1, 1, 1), kelStsBadRoiShift);
}

// NaN payloads, signalling NaNs and signed zeros arrive unchanged.
TEST(RawWords, SpecialValuesArriveBitForBit)
{
    const uint32_t f[4] = {0x7f800001u, 0xffc12345u, 0x80000000u, 0x00000001u};
    const uint64_t d[4] = {0x7ff0000000000001ull, 0xfff8000000abcdefull, 0x8000000000000000ull, 1};
    float fs[4], fo[4];
    double ds[4], dout[4];
    std::memcpy(fs, f, 16);
    std::memcpy(ds, d, 32);
    auto same32 = [&](const float* got, std::initializer_list<int> order) {
        int k = 0;
        for (int o : order) EXPECT_EQ(bitsAt(&got[k++]), uint64_t(f[o]));
    };
    ASSERT_EQ(kelmCopy_va_32f_SS(fs, 16, 4, fo, 16, 4, 4, 1), kelStsNoErr);
    same32(fo, {0, 1, 2, 3});
    ASSERT_EQ(kelmExtract_t_32f(fs, 8, 4, fo, 2, 2), kelStsNoErr);
    same32(fo, {0, 2, 1, 3});
    ASSERT_EQ(kelmTranspose_m_32f(fs, 8, 4, 2, 2, fo, 8, 4), kelStsNoErr);
    same32(fo, {0, 2, 1, 3});
    ASSERT_EQ(kelmCopy_va_64f_SS(ds, 32, 8, dout, 32, 8, 4, 1), kelStsNoErr);
    for (int k = 0; k < 4; ++k) EXPECT_EQ(bitsAt(&dout[k]), d[k]);
    ASSERT_EQ(kelmTranspose_m_64f(ds, 16, 8, 2, 2, dout, 16, 8), kelStsNoErr);
    EXPECT_EQ(bitsAt(&dout[1]), d[2]);
    EXPECT_EQ(bitsAt(&dout[2]), d[1]);
}

// ---- Transpose: the cache query and the blocked paths -------------------------------

// Random bits in a buffer of `n` words.
template <class W>
std::vector<W> randomWords(size_t n, uint32_t seed)
{
    std::mt19937_64 rng(seed);
    std::vector<W> v(n);
    for (auto& x : v) x = static_cast<W>(randomBits(rng, sizeof(W)));
    return v;
}

// A packed w x h matrix (or an array of them) at `srcOff` words into a
// buffer, rows `srcPad` words apart beyond their length; the result at
// `dstOff` with `dstPad`.  Returns the number of cache queries, and checks
// every word of the destination buffer.
struct PackedCase {
    int w, h, count = 1;
    int srcOff = 0, srcPad = 0, dstOff = 0, dstPad = 0;
};

template <class T>
int transposePacked(const PackedCase& p, bool array, uint32_t seed)
{
    using W = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;
    const int e = sizeof(T);
    const int srow = p.w + p.srcPad, drow = p.h + p.dstPad;
    const int sobj = srow * p.h, dobj = drow * p.w;
    // Words at the front keep the alignment of the offset within 16 bytes.
    std::vector<W> src = randomWords<W>(p.srcOff + size_t(sobj) * p.count + 8, seed);
    std::vector<W> dst = randomWords<W>(p.dstOff + size_t(dobj) * p.count + 8, seed + 1);
    std::vector<W> want = dst;
    for (int n = 0; n < p.count; ++n)
        for (int j = 0; j < p.h; ++j)
            for (int i = 0; i < p.w; ++i)
                want[p.dstOff + size_t(n) * dobj + size_t(i) * drow + j] = src[p.srcOff + size_t(n) * sobj + size_t(j) * srow + i];
    const T* s = reinterpret_cast<const T*>(src.data() + p.srcOff);
    T* d = reinterpret_cast<T*>(dst.data() + p.dstOff);
    resetCacheQueries();
    KelStatus st;
    if constexpr (sizeof(T) == 4) {
        st = array ? kelmTranspose_ma_32f(s, sobj * e, srow * e, e, p.w, p.h, d, dobj * e, drow * e, e, p.count)
                   : kelmTranspose_m_32f(s, srow * e, e, p.w, p.h, d, drow * e, e);
    } else {
        st = array ? kelmTranspose_ma_64f(s, sobj * e, srow * e, e, p.w, p.h, d, dobj * e, drow * e, e, p.count)
                   : kelmTranspose_m_64f(s, srow * e, e, p.w, p.h, d, drow * e, e);
    }
    const int queries = cacheQueries();
    EXPECT_EQ(st, kelStsNoErr);
    size_t bad = 0;
    while (bad < dst.size() && dst[bad] == want[bad]) ++bad;
    EXPECT_EQ(bad, dst.size()) << "first wrong word " << bad << " of " << p.w << "x" << p.h << " count " << p.count
                               << " offsets " << p.srcOff << "/" << p.dstOff << " pads " << p.srcPad << "/"
                               << p.dstPad;
    return queries;
}

struct CacheGuard {
    explicit CacheGuard(int bytes) { setCacheSize(bytes); }
    ~CacheGuard() { setCacheSize(256 * 1024); }
};

// Every combination of alignment (16-byte aligned, 8-byte, 4-byte), row
// padding, leftover rows and columns, and cache answer (none, fits,
// streaming) gives the transposition.
TEST(TransposeBlocked, EveryPathGivesTheTransposition)
{
    const std::pair<int, int> sizes[] = {{129, 129}, {130, 70}, {131, 133}, {200, 300}, {67, 150}, {256, 130}, {250, 71}, {7, 1000}};
    uint32_t seed = 1;
    for (int cache : {0, 1 << 30, 4096}) {
        CacheGuard g(cache);
        for (auto wh : sizes) {
            const int rowsTo16 = (4 - wh.second % 4) % 4;  // dst pad giving 16-byte rows
            const int rowsTo1K = (256 - wh.first % 256) % 256;  // src pad giving rows 1 KiB apart
            for (int srcOff : {0, 1, 2})
                for (int dstOff : {0, 1, 2})
                    for (int srcPad : {0, 1, rowsTo1K})
                        for (int dstPad : {rowsTo16, rowsTo16 + 1}) {
                            PackedCase p{wh.first, wh.second, 1, srcOff, srcPad, dstOff, dstPad};
                            transposePacked<float>(p, false, seed++);
                            p.count = 2;
                            transposePacked<float>(p, true, seed++);
                            if (srcOff < 2 && dstOff < 2) {
                                p.dstPad = dstPad % 2;
                                transposePacked<double>(p, true, seed++);
                            }
                            if (HasFailure()) return;
                        }
        }
    }
}

TEST(TransposeCache, SmallMatricesNeverAsk)
{
    CacheGuard g(256 * 1024);
    EXPECT_EQ(transposePacked<float>({128, 1000}, false, 1), 0);
    EXPECT_EQ(transposePacked<float>({1000, 128}, false, 2), 0);
    EXPECT_EQ(transposePacked<float>({129, 129}, false, 3), 1);
    // 64f has no cache decision at all.
    EXPECT_EQ(transposePacked<double>({300, 300}, false, 4), 0);
}

TEST(TransposeCache, ArraysAskFromOneHundredTwentyEightKiB)
{
    CacheGuard g(1 << 30);
    // 64 * 8 * 64 * 4 = 131072 bytes exactly: no question; 5 objects: one.
    EXPECT_EQ(transposePacked<float>({64, 64, 4}, true, 1), 0);
    EXPECT_EQ(transposePacked<float>({64, 64, 5}, true, 2), 1);
    // Objects of 129 x 129 then make their own decision, one question each.
    EXPECT_EQ(transposePacked<float>({129, 129, 2}, true, 3), 3);
    // Square sizes 3..6 have their own path and never ask.
    EXPECT_EQ(transposePacked<float>({4, 4, 20000}, true, 4), 0);
}

TEST(TransposeCache, StreamingArraysDecideOnce)
{
    // 129 * 8 * 129 * 2 = 266256 bytes; three quarters of 355008 is exactly
    // that, so the array does not stream and each object asks again.
    {
        CacheGuard g(355008);
        EXPECT_EQ(transposePacked<float>({129, 129, 2}, true, 1), 3);
    }
    {
        CacheGuard g(355004);  // three quarters: 266253
        EXPECT_EQ(transposePacked<float>({129, 129, 2}, true, 2), 1);
    }
    {
        CacheGuard g(0);  // no answer: never streams, each object asks
        EXPECT_EQ(transposePacked<float>({129, 129, 2}, true, 3), 3);
    }
}

TEST(TransposeCache, SingleMatrixFitsOrStreams)
{
    // 129 * 8 * 129 = 133128: with a cache that size the matrix fits (blocks
    // of 64 rows), one byte less and it streams in one block.
    for (int cache : {133128, 133127, 0}) {
        CacheGuard g(cache);
        EXPECT_EQ(transposePacked<float>({129, 129}, false, 7), 1) << cache;
        EXPECT_EQ(transposePacked<float>({200, 300}, false, 8), 1) << cache;
    }
}

TEST(TransposeCache, OnlyPackedThirtyTwoBitPathsAsk)
{
    CacheGuard g(4096);
    std::vector<float> src(2 * 300 * 300), dst(2 * 300 * 300);
    resetCacheQueries();
    // Strided rows of the source.
    ASSERT_EQ(kelmTranspose_m_32f(src.data(), 300 * 8, 8, 150, 300, dst.data(), 300 * 4, 4), kelStsNoErr);
    ASSERT_EQ(kelmTranspose_ma_32f_L(nullptr, 0, 4, 4, 3, 3, nullptr, 0, 4, 4, 1), kelStsNullPointer);
    EXPECT_EQ(cacheQueries(), 0);
    const float* ps[1] = {src.data()};
    float* pd[1] = {dst.data()};
    ASSERT_EQ(kelmTranspose_ma_32f_L(ps, 0, 300 * 4, 4, 300, 300, pd, 0, 300 * 4, 4, 1), kelStsNoErr);
    EXPECT_EQ(cacheQueries(), 1);
}

// ---- guard pages ----------------------------------------------------------------------

using kt::Guarded;

TEST(GuardPage, LoadIdentityFastPathsStopAtTheLastElement)
{
    for (int n = 1; n <= 9; ++n)
        for (int count : {1, 2, 3})
            for (int skew : {0, 4}) {  // 16-byte aligned objects, or not
                const int elems = n * n * count;
                Guarded g(elems * 4 + skew);
                float* d = g.as<float>(skew);
                ASSERT_EQ(kelmLoadIdentity_ma_32f(d, n * n * 4, n * 4, 4, n, n, count), kelStsNoErr);
                for (int k = 0; k < elems; ++k) {
                    const int r = k / n % n, c = k % n;
                    ASSERT_EQ(d[k], r == c ? 1.0f : 0.0f) << n << " " << count << " " << k;
                }
            }
}

template <class T, class F>
void transposeAtPageEnd(F call, std::initializer_list<int> counts = {1, 2, 3})
{
    for (int n = 3; n <= 6; ++n)
        for (int count : counts)
            for (int skew : {0, 4}) {
                const int elems = n * n * count;
                Guarded a(elems * sizeof(T) + skew), d(elems * sizeof(T) + skew);
                T* s = a.as<T>(skew);
                for (int k = 0; k < elems; ++k) s[k] = T(k);
                ASSERT_EQ(call(s, d.as<T>(skew), n, count), kelStsNoErr);
                for (int k = 0; k < elems; ++k) {
                    const int obj = k / (n * n), r = k / n % n, c = k % n;
                    ASSERT_EQ(d.as<T>(skew)[k], T(obj * n * n + c * n + r)) << n << " " << count << " " << k;
                }
            }
}

TEST(GuardPage, TransposeSquarePathsStopAtTheLastElement)
{
    transposeAtPageEnd<float>([](const float* s, float* d, int n, int count) {
        return kelmTranspose_ma_32f(s, n * n * 4, n * 4, 4, n, n, d, n * n * 4, n * 4, 4, count);
    });
    transposeAtPageEnd<float>([](const float* s, float* d, int n, int count) {
        std::vector<const float*> ps(count);
        std::vector<float*> pd(count);
        for (int k = 0; k < count; ++k) ps[k] = s + k * n * n, pd[k] = d + k * n * n;
        return kelmTranspose_ma_32f_L(ps.data(), 0, n * 4, 4, n, n, pd.data(), 0, n * 4, 4, count);
    });
    transposeAtPageEnd<double>([](const double* s, double* d, int n, int count) {
        return kelmTranspose_ma_64f(s, n * n * 8, n * 8, 8, n, n, d, n * n * 8, n * 8, 8, count);
    });
    transposeAtPageEnd<float>(
        [](const float* s, float* d, int n, int) { return kelmTranspose_m_32f(s, n * 4, 4, n, n, d, n * 4, 4); }, {1});
    transposeAtPageEnd<double>(
        [](const double* s, double* d, int n, int) { return kelmTranspose_m_64f(s, n * 8, 8, n, n, d, n * 8, 8); },
        {1});
}

TEST(GuardPage, TransposeBlockedPathsStopAtTheLastElement)
{
    for (int cache : {0, 4096}) {
        CacheGuard cg(cache);
        for (auto wh : {std::pair{130, 70}, {200, 300}, {133, 131}, {256, 67}}) {
            const int w = wh.first, h = wh.second;
            Guarded a(size_t(w) * h * 8), d(size_t(w) * h * 8);
            float* s = a.as<float>(size_t(w) * h * 4);
            for (int k = 0; k < w * h; ++k) s[k] = float(k);
            float* out = d.as<float>(size_t(w) * h * 4);
            ASSERT_EQ(kelmTranspose_m_32f(s, w * 4, 4, w, h, out, h * 4, 4), kelStsNoErr);
            for (int k = 0; k < w * h; ++k) ASSERT_EQ(out[k], float(k % h * w + k / h)) << w << "x" << h << " " << k;
            double* s64 = a.as<double>();
            for (int k = 0; k < w * h; ++k) s64[k] = double(k);
            double* out64 = d.as<double>();
            ASSERT_EQ(kelmTranspose_m_64f(s64, w * 8, 8, w, h, out64, h * 8, 8), kelStsNoErr);
            for (int k = 0; k < w * h; ++k) ASSERT_EQ(out64[k], double(k % h * w + k / h)) << w << "x" << h << " " << k;
        }
    }
}


// The tiled and streaming blocked paths at the end of a page: rows 1 KiB
// apart, odd sizes, destination rows whose length is not a multiple of 16
// bytes (so rows start at every 4-byte offset within a line), with ordinary
// and streaming stores.  Both matrices end exactly at a protected page; the
// padding between destination rows must keep its contents.
TEST(GuardPage, TransposeTiledPathsStopAtTheLastElement)
{
    constexpr float kPad = -7.0f;
    for (int cache : {0, 4096}) {
        CacheGuard cg(cache);
        for (auto wh : {std::pair{256, 67}, {129, 129}, {67, 150}, {1024, 65}})
            for (int srcPad : {0, 1})
                for (int dstPad : {0, 1, 5}) {
                    const int w = wh.first, h = wh.second, srow = w + srcPad, drow = h + dstPad;
                    const size_t srcElems = size_t(h - 1) * srow + w, dstElems = size_t(w - 1) * drow + h;
                    Guarded a(srcElems * 4), d(dstElems * 4);
                    float* s = a.as<float>();
                    float* out = d.as<float>();
                    for (size_t k = 0; k < srcElems; ++k) s[k] = float(k);
                    std::fill(out, out + dstElems, kPad);
                    ASSERT_EQ(kelmTranspose_m_32f(s, srow * 4, 4, w, h, out, drow * 4, 4), kelStsNoErr);
                    for (int i = 0; i < w; ++i)
                        for (int j = 0; j < drow && size_t(i) * drow + j < dstElems; ++j) {
                            const float want = j < h ? s[size_t(j) * srow + i] : kPad;
                            ASSERT_EQ(out[size_t(i) * drow + j], want)
                                << w << "x" << h << " pads " << srcPad << "/" << dstPad << " cache " << cache << " at "
                                << i << "," << j;
                        }
                }
    }
}

}  // namespace
