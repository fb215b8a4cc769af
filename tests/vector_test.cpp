// Vector algebra and reductions (DotProduct, CrossProduct, L2Norm, LComb,
// Saxpy, FrobNorm, Trace) against models in the documented orders of
// arithmetic, bit for bit, over every member, description, type, length and
// layout; the lane sums at every address; the paths of FrobNorm_m_32f; the
// sign of zero, overflow and NaN; memory that may not be touched.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include "families.h"
#include "guarded.h"
#include "harness.h"
#include "lanesum_model.h"

namespace {

using namespace kt;

const std::vector<std::string> kFamilies = {"DotProduct", "CrossProduct", "L2Norm", "LComb",
                                            "Saxpy",      "FrobNorm",     "Trace"};

bool isArray(const GroupInfo& g) { return g.kind.size() == 2 && g.kind[1] == 'a'; }
int sizeOr(const Sizes& s, const char* name, int dflt)
{
    auto it = s.find(name);
    return it == s.end() ? dflt : it->second;
}

// ---- hooks -----------------------------------------------------------------------------

Shape vectorShape(const Member& m, const GroupInfo& g, const Sizes& s)
{
    const int n = isArray(g) || g.kind == "out" ? sizeOr(s, "count", 1) : 1;
    if (g.kind == "out" || g.kind == "c") return {n, 1, 1};
    if (g.kind[0] == 'v') return {n, 1, m.family == "CrossProduct" ? 3 : s.at("len")};
    const int w = s.at("width");
    return {n, m.family == "Trace" ? w : s.at("height"), w};
}

enum class Path { Packed, Strided, Table };

Path pathOf(const Case& s)
{
    if (s.m->desc == "P") return Path::Table;
    for (auto& op : s.ops)
        if (op.info.kind[0] == 'v' || op.info.kind[0] == 'm')
            if (op.args.s2 != s.m->elem) return Path::Strided;
    return Path::Packed;
}

uintptr_t addressOf(const Operand& op, int n, int r = 0)
{
    if (op.objects == 1) n = 0;
    return reinterpret_cast<uintptr_t>(op.arena.data() + op.offsets[op.index(n, r, 0)]);
}

// Straight-line orders of 3 to 6 terms.
enum class Order { Ascending, Scattered, LanePairs, Pairs };

template <class T>
T straight(const std::vector<T>& t, Order o)
{
    const size_t n = t.size();
    switch (o) {
    case Order::Scattered: {
        const std::vector<std::vector<int>> idx = {{1, 2, 0}, {3, 1, 2, 0}, {4, 2, 3, 0, 1}, {5, 3, 4, 0, 1, 2}};
        T s = t[idx[n - 3][0]];
        for (size_t k = 1; k < n; ++k) s += t[idx[n - 3][k]];
        return s;
    }
    case Order::LanePairs:
        if (n == 4) return (t[0] + t[2]) + (t[1] + t[3]);
        if (n == 5) return ((t[0] + t[2]) + (t[1] + t[3])) + t[4];
        if (n == 6) return (t[0] + (t[2] + t[4])) + (t[1] + (t[3] + t[5]));
        break;
    case Order::Pairs:
        if (n == 4) return (t[0] + t[1]) + (t[2] + t[3]);
        if (n == 5) return ((t[0] + t[1]) + (t[2] + t[3])) + t[4];
        if (n == 6) return ((t[0] + t[1]) + (t[2] + t[3])) + (t[4] + t[5]);
        break;
    default:
        break;
    }
    T s = t[0];
    for (size_t k = 1; k < n; ++k) s += t[k];
    return s;
}
template <class T>
T plain(const std::vector<T>& t)
{
    T s = T(0);
    for (T x : t) s += x;
    return s;
}

// ---- models --------------------------------------------------------------------------

// DotProduct and L2Norm: the terms of object n, then the order of the kernel.
template <class T>
double dotModel(const Case& s, int n)
{
    const Member& m = *s.m;
    const bool norm = m.family == "L2Norm";
    const Operand& A = s.ops[0];
    const Operand& B = s.ops[norm ? 0 : 1];
    const auto a = objectOf<T>(A, n), b = objectOf<T>(B, n);
    const int len = static_cast<int>(a.size());
    std::vector<T> t(len);
    for (int k = 0; k < len; ++k) t[k] = a[k] * b[k];
    const Path path = pathOf(s);
    const bool single = m.code == "vv" || m.code == "v";
    T r;
    if (len >= 3 && len <= 6) {
        Order o = Order::Ascending;
        if (norm) o = Order::Pairs;
        else if (single && path == Path::Strided) o = Order::Scattered;
        else if (single && path == Path::Packed && m.elem == 8) o = Order::LanePairs;
        r = straight(t, o);
    } else if (m.elem == 4 && path == Path::Packed && (norm ? single : (m.code == "vv" || m.code == "vava"))) {
        std::vector<float> af(a.begin(), a.end()), bf(b.begin(), b.end());
        r = T(laneSumModel(af.data(), bf.data(), len, addressOf(B, n)));
    } else {
        r = plain(t);
    }
    return norm ? double(T(std::sqrt(r))) : double(r);
}

// FrobNorm: the sum of squares of object n in the kernel's association.
template <class T>
T frobSum(const Case& s, int n)
{
    const Member& m = *s.m;
    const Operand& A = s.ops[0];
    const int W = s.sizes.at("width"), H = s.sizes.at("height");
    const auto x = objectOf<T>(A, n);
    std::vector<T> sq(x.size());
    for (size_t k = 0; k < x.size(); ++k) sq[k] = x[k] * x[k];
    const Path path = pathOf(s);
    const bool f32 = m.elem == 4, single = m.code == "m";
    if (path == Path::Table) {
        T t = 0;
        size_t k = 0;
        for (; k + 1 < sq.size(); k += 2) t += sq[k] + sq[k + 1];
        if (k < sq.size()) t += sq[k];
        return t;
    }
    if (!f32 && (single || path == Path::Strided)) return plain(sq);
    if (W == H && W <= 5 && (single ? W >= 2 : path == Path::Packed)) {
        T l[4] = {0, 0, 0, 0}, c4 = 0;
        for (int j = 0; j < H; ++j)
            for (int i = 0; i < W; ++i) (i < 4 ? l[i] : c4) += sq[j * W + i];
        return (l[0] + l[2]) + (l[1] + l[3]) + c4;
    }
    if (path == Path::Strided && !single) {
        T t = 0;
        for (int j = 0; j < H; ++j) {
            T p[4] = {t, 0, 0, 0}, q[4] = {0, 0, 0, 0};
            const int whole = W / 8 * 8;
            for (int i = 0; i < whole; ++i) (i % 8 < 4 ? p : q)[i % 4] += sq[j * W + i];
            t = (p[0] + q[0] + (p[1] + q[1])) + (p[2] + q[2] + (p[3] + q[3]));
            for (int i = whole; i < W; ++i) t += sq[j * W + i];
        }
        return t;
    }
    const bool gapless = A.args.s1 == A.args.s2 * W;
    if (f32 && m.desc == "L" && !gapless) {
        float t = 0;
        for (int j = 0; j < H; ++j) {
            std::vector<float> row(x.begin() + j * W, x.begin() + (j + 1) * W);
            t = laneSumModel(row.data(), row.data(), W, addressOf(A, n, j), t);
        }
        return T(t);
    }
    // Four lanes: one vector when gapless, else row by row.
    const uintptr_t addr = addressOf(A, n);
    T l[4] = {0, 0, 0, 0};
    auto run = [&](int first, int count, int peel) {
        int k = 0;
        for (; k < std::min(peel, count); ++k) l[0] += sq[first + k];
        for (; k + 8 <= count; k += 8)
            for (int i = 0; i < 8; ++i) l[i % 4] += sq[first + k + i];
        for (; k < count; ++k) l[0] += sq[first + k];
    };
    if (addr % sizeof(T) == 0 && gapless) {
        const bool packed = A.args.s2 == int(sizeof(T));
        run(0, W * H, packed && addr % 16 ? int((16 - addr % 16) / sizeof(T)) : 0);
    } else {
        for (int j = 0; j < H; ++j) run(j * W, W, 0);
    }
    return (l[0] + l[2]) + (l[1] + l[3]);
}

template <class T>
std::vector<double> modelOf(const Case& s)
{
    const Member& m = *s.m;
    const int dst = dstGroup(m);
    const Operand& D = s.ops[dst];
    std::vector<double> out(D.offsets.size());
    for (int n = 0; n < D.objects; ++n) {
        if (m.family == "DotProduct" || m.family == "L2Norm") {
            out[n] = dotModel<T>(s, n);
        } else if (m.family == "FrobNorm") {
            out[n] = T(std::sqrt(frobSum<T>(s, n)));
        } else if (m.family == "Trace") {
            const auto x = objectOf<T>(s.ops[0], n);
            const int w = s.sizes.at("width");
            std::vector<T> d(w);
            for (int k = 0; k < w; ++k) d[k] = x[k * w + k];
            out[n] = w >= 3 && w <= 6 ? straight(d, Order::Ascending) : plain(d);
        } else if (m.family == "CrossProduct") {
            const auto a = objectOf<T>(s.ops[0], n), b = objectOf<T>(s.ops[1], n);
            out[D.index(n, 0, 0)] = a[1] * b[2] - a[2] * b[1];
            out[D.index(n, 0, 1)] = a[2] * b[0] - a[0] * b[2];
            out[D.index(n, 0, 2)] = a[0] * b[1] - a[1] * b[0];
        } else {  // LComb, Saxpy: groups src1 scale(1) src2 [scale2] dst
            const bool lcomb = m.family == "LComb";
            const auto a = objectOf<T>(s.ops[0], n), b = objectOf<T>(s.ops[2], n);
            const T s1 = T(s.ops[1].value), s2 = lcomb ? T(s.ops[3].value) : T(1);
            for (size_t k = 0; k < a.size(); ++k)
                out[D.index(n, 0, int(k))] = lcomb ? s1 * a[k] + s2 * b[k] : s1 * a[k] + b[k];
        }
    }
    return out;
}

std::vector<double> model(const Case& s)
{
    return byElem(*s.m, [&](auto t) { return modelOf<decltype(t)>(s); });
}

const FamilyHooks kHooks{vectorShape, {}, {}, {}, nullptr, model};
KT_FAMILY("DotProduct", kHooks);
KT_FAMILY("CrossProduct", kHooks);
KT_FAMILY("L2Norm", kHooks);
KT_FAMILY("LComb", kHooks);
KT_FAMILY("Saxpy", kHooks);
KT_FAMILY("FrobNorm", kHooks);
KT_FAMILY("Trace", kHooks);

// ---- every member --------------------------------------------------------------------

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> shapes;
    if (m.family == "CrossProduct") return withCounts(m, {{}}, {1, 2, 5, 9, 13});
    if (m.family == "FrobNorm") {
        for (int w = 1; w <= 9; ++w)
            for (int h = 1; h <= 9; ++h) shapes.push_back({{"width", w}, {"height", h}});
        shapes.push_back({{"width", 17}, {"height", 2}});
        return withCounts(m, shapes, {1, 5, 13});
    }
    if (m.family == "Trace") {
        for (int w : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12}) shapes.push_back({{"width", w}});
        return withCounts(m, shapes);
    }
    for (int len = 1; len <= 20; ++len) shapes.push_back({{"len", len}});
    for (int len : {31, 32, 33}) shapes.push_back({{"len", len}});
    return withCounts(m, shapes, {1, 2, 5, 13});
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

class Vector : public ::testing::TestWithParam<std::string> {};

TEST_P(Vector, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    sweep(m, sizeGrid(m), everyForm(), 1, [](Case& s) { expectResult(s, model(s)); });
}

// Products or diagonals that are all -0.0: sums from +0.0 give +0.0,
// straight-line sums -0.0.
TEST_P(Vector, SignOfZeroSums)
{
    const Member& m = member(GetParam());
    if (m.family != "DotProduct" && m.family != "Trace") GTEST_SKIP() << "no zero sums of signed terms";
    const char* size = m.family == "Trace" ? "width" : "len";
    std::vector<Sizes> shapes;
    for (int n : {1, 2, 3, 4, 5, 6, 7, 9}) shapes.push_back({{size, n}});
    sweep(m, withCounts(m, shapes, {2}), everyForm(), 300, [&](Case& s) {
        for (int g = 0; g < 2; ++g) {
            Operand& op = s.ops[g];
            if (op.info.kind == "out" || op.info.isSize()) continue;
            for (int n = 0; n < op.objects; ++n)
                for (int r = 0; r < op.rows; ++r)
                    for (int c = 0; c < op.cols; ++c) op.set(n, r, c, g == 0 ? (m.family == "Trace" ? -0.0 : 0.0) : -1.5);
        }
        const auto want = model(s);
        const bool straight = s.sizes.at(size) >= 3 && s.sizes.at(size) <= 6;
        ASSERT_EQ(std::signbit(want[0]), straight) << describe(s);
        expectResult(s, want);
    });
}

INSTANTIATE_TEST_SUITE_P(All, Vector, ::testing::ValuesIn(memberNames(kFamilies)), paramName);

// ---- addresses ---------------------------------------------------------------------------


// The lane sums follow the second vector's (the norm's vector's) address: at
// +0, 4, 8, 12 bytes from a 16-byte boundary, and off a 4-byte boundary
// (+2, plain).  Length 8 at +4 has a peel of 3 and is plain.  Two objects of
// vava_32f lie at different offsets, each taking its own peel.
TEST(VectorLanes, SumsFollowTheAddress)
{
    std::mt19937 rng(5);
    for (int len : {7, 8, 9, 17, 33})
        for (int shift : {0, 4, 8, 12, 2}) {
            const auto a = spreadValues(rng, 2 * len), b = spreadValues(rng, 2 * len);
            alignas(64) unsigned char buf[2 * 33 * 4 + 64];
            float* bp = reinterpret_cast<float*>(buf + shift);
            const int stride0 = len * 4 + 4;  // object 1 lies 4 bytes further on
            std::memcpy(bp, b.data(), len * 4);
            std::memcpy(reinterpret_cast<unsigned char*>(bp) + stride0, b.data() + len, len * 4);
            auto at = [&](int n) { return reinterpret_cast<uintptr_t>(bp) + n * stride0; };
            float d[2], norm;
            ASSERT_EQ(kelmDotProduct_vv_32f(a.data(), 4, bp, 4, d, len), kelStsNoErr);
            EXPECT_EQ(d[0], laneSumModel(a.data(), b.data(), len, at(0))) << len << " +" << shift;
            ASSERT_EQ(kelmDotProduct_vava_32f(a.data(), len * 4, 4, bp, stride0, 4, d, len, 2), kelStsNoErr);
            for (int n = 0; n < 2; ++n)
                EXPECT_EQ(d[n], laneSumModel(&a[n * len], &b[n * len], len, at(n))) << len << " +" << shift;
            ASSERT_EQ(kelmL2Norm_v_32f(bp, 4, &norm, len), kelStsNoErr);
            EXPECT_EQ(norm, std::sqrt(laneSumModel(b.data(), b.data(), len, at(0)))) << len << " +" << shift;
            if (len == 8 && shift == 4) {
                float p = 0;
                for (int k = 0; k < len; ++k) p += a[k] * b[k];
                ASSERT_EQ(kelmDotProduct_vv_32f(a.data(), 4, bp, 4, d, len), kelStsNoErr);
                EXPECT_EQ(d[0], p);
            }
        }
}

// FrobNorm_m_32f, one kernel for every layout: gapless with Stride2 4 (the
// peel follows src), gapless with another Stride2 (gathered, no peel), rows
// with gaps, and a src off a 4-byte boundary (rows); squares 2 to 5 and,
// for contrast, 6 x 6 and oblong sizes.
TEST(VectorLanes, FrobNormPathsOfOneMatrix)
{
    std::mt19937 rng(9);
    struct Lay {
        int shift, s2, gap;  // bytes from a 16-byte boundary, Stride2 in elements, elements after a row
    };
    for (auto [w, h] : {std::pair{6, 6}, {2, 2}, {4, 4}, {5, 5}, {3, 7}, {9, 2}, {8, 3}, {17, 1}, {7, 7}})
        for (Lay lay : {Lay{0, 1, 0}, {4, 1, 0}, {8, 1, 0}, {12, 1, 0}, {0, 2, 0}, {4, 2, 0}, {4, 1, 3}, {8, 2, 1},
                        {2, 1, 0}, {2, 1, 2}}) {
            const auto x = spreadValues(rng, w * h);
            const int s2 = lay.s2 * 4, s1 = s2 * w + 4 * lay.gap;
            std::vector<unsigned char> buf(s1 * h + 64);
            unsigned char* base = buf.data() + (16 - reinterpret_cast<uintptr_t>(buf.data()) % 16) + lay.shift;
            for (int j = 0; j < h; ++j)
                for (int i = 0; i < w; ++i) std::memcpy(base + j * s1 + i * s2, &x[j * w + i], 4);
            float got = 0;
            ASSERT_EQ(kelmFrobNorm_m_32f(reinterpret_cast<float*>(base), s1, s2, w, h, &got), kelStsNoErr);
            // The model of the one-matrix kernel, by way of a case laid out the same.
            Case c = makeCase(member("kelmFrobNorm_m_32f"), {{"width", w}, {"height", h}}, Layout{Form::Packed}, 1);
            Operand& A = c.ops[0];
            A.arena.assign(buf.begin(), buf.end());
            for (int j = 0; j < h; ++j)
                for (int i = 0; i < w; ++i) A.offsets[A.index(0, j, i)] = base - buf.data() + j * s1 + i * s2;
            A.args.s1 = s1, A.args.s2 = s2;
            EXPECT_EQ(got, std::sqrt(frobSum<float>(c, 0))) << w << "x" << h << " +" << lay.shift << " s2 " << s2
                                                           << " s1 " << s1;
        }
}

// ---- values ---------------------------------------------------------------------------

TEST(VectorValues, OverflowAndNaNPassThrough)
{
    const float inf = std::numeric_limits<float>::infinity();
    for (int len : {1, 3, 4, 5, 6, 8, 17}) {
        std::vector<float> big(2 * len, FLT_MAX / 2), x(2 * len, 1.0f), y(2 * len, 2.0f), d(2 * len);
        float norm[2];
        ASSERT_EQ(kelmL2Norm_v_32f(big.data(), 4, norm, len), kelStsNoErr);
        EXPECT_EQ(norm[0], inf) << len;
        ASSERT_EQ(kelmL2Norm_va_32f(big.data(), len * 4, 4, norm, len, 2), kelStsNoErr);
        EXPECT_EQ(norm[1], inf) << len;
        // 0 * inf is NaN: the product is always formed, packed or strided.
        x[len - 1] = inf;
        for (int s2 : {4, 8}) {
            const int n = s2 == 4 ? len : (len + 1) / 2;
            ASSERT_EQ(kelmSaxpy_vv_32f(x.data() + len - 1 - (n - 1) * s2 / 4, s2, 0.0f, y.data(), s2, d.data(), s2, n),
                      kelStsNoErr);
            EXPECT_TRUE(std::isnan(d[(n - 1) * s2 / 4])) << len << " " << s2;
        }
    }
}

// ---- memory -----------------------------------------------------------------------------

// Packed objects that end right before a page that may not be touched: no
// kernel reads or writes past the last element of the last vector, and the
// results are those of the same call elsewhere in memory.
TEST(VectorMemory, NothingPastTheLastElement)
{
    std::mt19937 rng(3);
    for (const char* name : {"kelmCrossProduct_vava_32f", "kelmCrossProduct_vv_32f", "kelmCrossProduct_vav_64f",
                             "kelmCrossProduct_vva_32f", "kelmLComb_vv_32f", "kelmLComb_vava_32f", "kelmSaxpy_vav_32f",
                             "kelmSaxpy_vva_64f", "kelmDotProduct_vava_32f", "kelmDotProduct_vav_32f",
                             "kelmL2Norm_va_32f", "kelmL2Norm_v_32f", "kelmFrobNorm_ma_32f", "kelmTrace_ma_32f"}) {
        const Member& m = member(name);
        for (int len : {1, 2, 3, 5, 9}) {
            if (m.family == "CrossProduct" && len != 3) continue;
            Sizes sizes{{"len", len}, {"width", len}, {"height", len}};
            if (m.array) sizes["count"] = 5;
            Case s = makeCase(m, sizes, Layout{Form::Packed}, len);
            const auto want = model(s);
            // Each operand's bytes again, at the end of guarded memory.
            std::vector<std::unique_ptr<Guarded>> pages;
            Call c = s.call();
            for (size_t g = 0; g < s.ops.size(); ++g) {
                const Operand& op = s.ops[g];
                if (op.info.isSize() || op.constant) continue;
                const int64_t first = op.offsets.front(), bytes = op.offsets.back() + op.elem - first;
                pages.push_back(std::make_unique<Guarded>(bytes));
                std::memcpy(pages.back()->as<char>(), op.arena.data() + first, bytes);
                c.g[g].p = pages.back()->as<char>();
            }
            ASSERT_EQ(m.invoke(c), kelStsNoErr) << name;
            const int dst = dstGroup(m);
            const Operand& D = s.ops[dst];
            for (size_t k = 0; k < D.offsets.size(); ++k) {
                double v;
                if (D.elem == 4) {
                    float f;
                    std::memcpy(&f, static_cast<char*>(c.g[dst].p) + D.offsets[k] - D.offsets.front(), 4);
                    v = f;
                } else {
                    std::memcpy(&v, static_cast<char*>(c.g[dst].p) + D.offsets[k] - D.offsets.front(), 8);
                }
                // Sums longer than 5 may round otherwise at another address.
                if (len <= 5 || m.family == "LComb" || m.family == "Saxpy" || m.family == "CrossProduct") {
                    EXPECT_EQ(toBits(v, D.elem), toBits(want[k], D.elem)) << name << " " << len << " " << k;
                }
            }
        }
    }
}

// A packed dst longer than 6 elements that overlaps a source one element on
// is computed element by element, ascending: each element reads what the
// previous one wrote.
TEST(VectorMemory, OverlappingCombinationsRunInAscendingOrder)
{
    for (int len : {7, 8, 9, 13, 20}) {
        std::vector<float> a(len + 1), b(len);
        for (int k = 0; k <= len; ++k) a[k] = float(k + 1);
        for (int k = 0; k < len; ++k) b[k] = float(2 * k - 3);
        for (bool lcomb : {false, true}) {
            std::vector<float> want = a, got = a;
            for (int k = 0; k < len; ++k) want[k + 1] = lcomb ? 2.0f * want[k] + 0.5f * b[k] : 2.0f * want[k] + b[k];
            const KelStatus st = lcomb ? kelmLComb_vv_32f(got.data(), 4, 2.0f, b.data(), 4, 0.5f, got.data() + 1, 4, len)
                                       : kelmSaxpy_vv_32f(got.data(), 4, 2.0f, b.data(), 4, got.data() + 1, 4, len);
            ASSERT_EQ(st, kelStsNoErr);
            EXPECT_EQ(got, want) << len << (lcomb ? " LComb" : " Saxpy");
        }
    }
}

}  // namespace
