// Products of two matrices against a plain model that sums in ascending k,
// over every member, description, type, size and layout.
#include <gtest/gtest.h>

#include "guarded.h"
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstring>
#include <set>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

// ---- shapes -----------------------------------------------------------------------

struct Letters {
    bool transA, transB;
};
Letters lettersOf(const Member& m)
{
    auto l = splitCode(m.code);
    return {l[0][0] == 't', l[1][0] == 't'};
}

int sizeOf(const Sizes& s, const char* name)
{
    auto it = s.find(name);
    return it == s.end() ? 1 : it->second;
}

// Result rows R, columns C and inner length K of a call, from the stored sizes.
struct Dims {
    int R, C, K;
};
Dims dimsOf(const Member& m, const Sizes& s)
{
    const Letters t = lettersOf(m);
    return {t.transA ? sizeOf(s, "src1Width") : sizeOf(s, "src1Height"),
            t.transB ? sizeOf(s, "src2Height") : sizeOf(s, "src2Width"),
            t.transA ? sizeOf(s, "src1Height") : sizeOf(s, "src1Width")};
}

// Stored sizes of a product of R x K by K x C.
Sizes storedSizes(const Member& m, int R, int K, int C, int count)
{
    const Letters t = lettersOf(m);
    Sizes s{{"src1Height", t.transA ? K : R}, {"src1Width", t.transA ? R : K},
            {"src2Height", t.transB ? C : K}, {"src2Width", t.transB ? K : C}};
    if (m.has("count")) s["count"] = count;
    return s;
}

Shape mulShape(const Member& m, const GroupInfo& g, const Sizes& s)
{
    const bool array = g.kind.size() == 2;
    const int n = array ? sizeOf(s, "count") : 1;
    if (g.prefix == "src1") return {n, sizeOf(s, "src1Height"), sizeOf(s, "src1Width")};
    if (g.prefix == "src2") return {n, sizeOf(s, "src2Height"), sizeOf(s, "src2Width")};
    const Dims d = dimsOf(m, s);
    return {n, d.R, d.C};
}

// Valid sizes that tell every dimension apart.
Sizes validMulSizes(const Member& m, int count) { return storedSizes(m, 2, 3, 4, count); }

// Each of the two inner lengths off by one.
std::vector<Sizes> mulMismatches(const Member& m, const Sizes& valid)
{
    const Letters t = lettersOf(m);
    const char* innerA = t.transA ? "src1Height" : "src1Width";
    const char* innerB = t.transB ? "src2Width" : "src2Height";
    return {{{innerA, valid.at(innerA) + 1}}, {{innerB, valid.at(innerB) + 1}}};
}

// Products of two matrices: both operands are matrices, stored or transposed.
bool isMatMat(const Member& m)
{
    if (m.family != "Mul") return false;
    for (auto& letter : splitCode(m.code))
        if (letter[0] != 'm' && letter[0] != 't') return false;
    return true;
}

std::vector<std::string> matMatMembers()
{
    std::vector<std::string> out;
    for (auto& m : registry())
        if (isMatMat(m)) out.push_back(m.name);
    return out;
}

std::vector<double> model(const Case& s);
KT_FAMILY("Mul", FamilyHooks{mulShape, validMulSizes, mulMismatches, {}, isMatMat, model});

// ---- size classes -------------------------------------------------------------------

// Square sizes n (all four stored sizes equal) whose sums begin with the first
// product rather than with +0.0, by kernel.  Every kernel has 3, 4, 5 and 6
// except those listed.
enum class Path { Packed, Strided, Table };

const std::map<std::string, std::set<int>>& fewerSizes(Path p)
{
    static const std::map<std::string, std::set<int>> packed = {
        {"kelmMul_tm_32f", {3, 4, 5}},
        {"kelmMul_mta_32f_L", {3}},
        {"kelmMul_tta_32f_L", {3}},
        {"kelmMul_tta_64f_L", {3}},
    };
    static const std::map<std::string, std::set<int>> strided = {
        {"kelmMul_mama_32f", {3, 4, 5}}, {"kelmMul_mat_32f", {3}},   {"kelmMul_tam_32f", {3}},
        {"kelmMul_mam_32f_L", {3}},      {"kelmMul_mat_32f_L", {3}}, {"kelmMul_tam_32f_L", {3}},
        {"kelmMul_tat_32f_L", {3}},
    };
    static const std::map<std::string, std::set<int>> table = {
        {"kelmMul_mam_32f_P", {3}},
        {"kelmMul_mat_32f_P", {3}},
        {"kelmMul_tam_32f_P", {3}},
    };
    return p == Path::Packed ? packed : p == Path::Strided ? strided : table;
}

bool straightLine(const Member& m, Path p, int n)
{
    if (n < 3 || n > 6) return false;
    auto& fewer = fewerSizes(p);
    auto it = fewer.find(m.name);
    return it == fewer.end() || it->second.count(n) != 0;
}

// The kernel a call reaches: P, or packed when every Stride2 is the element size.
Path pathOf(const Case& s)
{
    if (s.m->desc == "P") return Path::Table;
    for (auto& op : s.ops)
        if (!op.info.isSize() && op.args.s2 != s.m->elem) return Path::Strided;
    return Path::Packed;
}

int squareSize(const Sizes& s)
{
    const int w1 = sizeOf(s, "src1Width");
    for (const char* k : {"src1Height", "src2Width", "src2Height"})
        if (sizeOf(s, k) != w1) return 0;
    return w1;
}

// ---- model ----------------------------------------------------------------------------

// Groups of src1, src2, dst in argument order.
struct Groups {
    int a = -1, b = -1, d = -1;
};
Groups groupsOf(const Member& m)
{
    Groups g;
    for (size_t k = 0; k < m.groups.size(); ++k) {
        if (m.groups[k].prefix == "src1") g.a = static_cast<int>(k);
        if (m.groups[k].prefix == "src2") g.b = static_cast<int>(k);
        if (m.groups[k].prefix == "dst") g.d = static_cast<int>(k);
    }
    return g;
}

// Each element: the first product (straight-line) or +0.0 plus the first
// product (general), then the other products added in ascending k, every
// operation rounded to the element type.
template <class T>
std::vector<double> modelT(const Case& s)
{
    const Member& m = *s.m;
    const Groups g = groupsOf(m);
    const Letters t = lettersOf(m);
    const Dims dm = dimsOf(m, s.sizes);
    const bool straight = straightLine(m, pathOf(s), squareSize(s.sizes));
    const Operand &A = s.ops[g.a], &B = s.ops[g.b], &D = s.ops[g.d];
    auto a = [&](int n, int r, int k) {
        const int o = A.objects > 1 ? n : 0;
        return static_cast<T>(t.transA ? A.get(o, k, r) : A.get(o, r, k));
    };
    auto b = [&](int n, int k, int c) {
        const int o = B.objects > 1 ? n : 0;
        return static_cast<T>(t.transB ? B.get(o, c, k) : B.get(o, k, c));
    };
    std::vector<double> out(D.offsets.size());
    for (int n = 0; n < D.objects; ++n)
        for (int r = 0; r < dm.R; ++r)
            for (int c = 0; c < dm.C; ++c) {
                T sum = a(n, r, 0) * b(n, 0, c);
                if (!straight) sum = T(0) + sum;
                for (int k = 1; k < dm.K; ++k) sum = sum + a(n, r, k) * b(n, k, c);
                out[D.index(n, r, c)] = sum;
            }
    return out;
}
std::vector<double> model(const Case& s) { return s.m->elem == 4 ? modelT<float>(s) : modelT<double>(s); }

void runAndCompare(Case& s) { expectResult(s, model(s)); }

// Square sizes 1..9, and shapes (R, K, C) whose stored sizes differ; some of
// them match a square size in one or three of the four stored sizes only.
std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> out;
    std::vector<int> counts = m.array ? std::vector<int>{1, 2, 5} : std::vector<int>{1};
    for (int c : counts) {
        for (int n = 1; n <= 9; ++n) out.push_back(storedSizes(m, n, n, n, c));
        for (auto rkc : {std::array<int, 3>{2, 3, 4}, {5, 3, 2}, {1, 7, 3}, {4, 1, 5}, {9, 2, 1}, {3, 4, 3},
                         {4, 4, 3}, {3, 3, 4}, {6, 5, 6}, {1, 1, 9}})
            out.push_back(storedSizes(m, rkc[0], rkc[1], rkc[2], c));
    }
    return out;
}

class Mul : public ::testing::TestWithParam<std::string> {};

TEST_P(Mul, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    sweep(m, sizeGrid(m), everyForm(), 1, [&](Case& s) { runAndCompare(s); });
}

// Lays an S or L operand out like a C array of matrices: rows back to back,
// objects back to back, keeping its values.
void makeDense(Operand& op, std::mt19937& rng)
{
    const int e = op.elem, N = op.objects, R = op.rows, C = op.cols;
    std::vector<double> values(op.offsets.size());
    for (int n = 0; n < N; ++n)
        for (int r = 0; r < R; ++r)
            for (int c = 0; c < C; ++c) values[op.index(n, r, c)] = op.get(n, r, c);
    const int64_t start = 64;
    op.arena.resize(static_cast<size_t>(start + int64_t(N) * R * C * e + 64));
    for (auto& b : op.arena) b = static_cast<unsigned char>(rng());
    for (size_t k = 0; k < op.offsets.size(); ++k) op.offsets[k] = start + int64_t(k) * e;
    if (op.info.desc == 'L' && op.info.kind.size() == 2) {
        op.table.resize(N);
        for (int n = 0; n < N; ++n) op.table[n] = op.arena.data() + op.offsets[op.index(n, 0, 0)];
        op.args.pp = op.table.data();
        op.args.roi = 0;
    } else {
        op.args.p = op.arena.data() + start;
        op.args.s0 = op.info.kind.size() == 2 ? R * C * e : 0;
    }
    op.args.s1 = C * e;
    op.args.s2 = e;
    for (size_t k = 0; k < values.size(); ++k) op.set(int(k / (R * C)), int(k / C % R), int(k % C), values[k]);
}

// Objects in C-array order, the layout of most callers, with every count
// around the runs of four objects.
TEST_P(Mul, DenseArrays)
{
    const Member& m = member(GetParam());
    if (m.desc == "P") GTEST_SKIP() << "element tables";
    std::mt19937 rng(5);
    uint32_t seed = 500;
    for (int count : m.array ? std::vector<int>{1, 2, 3, 4, 5, 8, 9} : std::vector<int>{1})
        for (auto rkc : {std::array<int, 3>{3, 3, 3}, {4, 4, 4}, {5, 5, 5}, {6, 6, 6}, {2, 2, 2}, {7, 7, 7}, {3, 4, 3},
                         {4, 3, 4}}) {
            Case s = makeCase(m, storedSizes(m, rkc[0], rkc[1], rkc[2], count), Layout{Form::Packed}, seed++);
            for (auto& op : s.ops)
                if (!op.info.isSize()) makeDense(op, rng);
            runAndCompare(s);
            if (HasFatalFailure()) return;
        }
}

// Every product -0.0 (a positive A times B of -0.0): a sum that begins with
// its first product is -0.0, one that begins from +0.0 is +0.0.
TEST_P(Mul, SignOfAZeroSumPerSizeClass)
{
    const Member& m = member(GetParam());
    const Groups g = groupsOf(m);
    uint32_t seed = 300;
    std::mt19937 rng(3);
    for (int n : {2, 3, 4, 5, 6, 7}) {
        for (int layout = 0; layout < 3; ++layout) {  // packed, strided, dense
            Case s = makeCase(m, storedSizes(m, n, n, n, 5), Layout{layout == 1 ? Form::Strided : Form::Packed}, seed++);
            if (layout == 2 && m.desc != "P")
                for (auto& op : s.ops)
                    if (!op.info.isSize()) makeDense(op, rng);
            Operand &A = s.ops[g.a], &B = s.ops[g.b];
            for (int o = 0; o < A.objects; ++o)
                for (int r = 0; r < A.rows; ++r)
                    for (int c = 0; c < A.cols; ++c) A.set(o, r, c, 1.5 + r + c);
            for (int o = 0; o < B.objects; ++o)
                for (int r = 0; r < B.rows; ++r)
                    for (int c = 0; c < B.cols; ++c) B.set(o, r, c, -0.0);
            const bool straight = straightLine(m, pathOf(s), n);
            const Operand& D = s.ops[g.d];
            std::vector<double> expected(D.offsets.size(), straight ? -0.0 : 0.0);
            auto before = s.snapshot();
            ASSERT_EQ(s.run(), kelStsNoErr);
            std::string diff = compareAfter(s, before, expected);
            ASSERT_TRUE(diff.empty()) << (straight ? "want -0.0: " : "want +0.0: ") << diff;
        }
    }
}

// The work figure counts every element the call touches: a single operand
// once, array operands and dst count times.
TEST_P(Mul, WorkFigureAndLimits)
{
    const Member& m = member(GetParam());
    if (!m.array) {
        EXPECT_TRUE(m.estimate.empty());
        return;
    }
    auto l = splitCode(m.code);
    for (auto rkc : {std::array<int, 4>{2, 3, 4, 5}, {7, 1, 6, 11}, {1, 9, 2, 3}}) {
        const int R = rkc[0], K = rkc[1], C = rkc[2], count = rkc[3];
        const int a = R * K * (l[0].size() == 2 ? count : 1);
        const int b = K * C * (l[1].size() == 2 ? count : 1);
        EXPECT_EQ(evalEstimate(m.estimate, storedSizes(m, R, K, C, count)), a + b + R * C * count) << m.name;
    }
    int packed = m.elem == 4 && m.desc == "S" ? 2501 : 3601, strided = 1441;
    if (m.desc == "P") packed = strided = 1441;
    EXPECT_EQ(m.limitPacked, packed) << m.name;
    EXPECT_EQ(m.limitStrided, strided) << m.name;
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }
INSTANTIATE_TEST_SUITE_P(MatrixMatrix, Mul, ::testing::ValuesIn(matMatMembers()), paramName);

// ---- documented cases -------------------------------------------------------------------

TEST(MulCases, TransposedSizesAreThoseAsStored)
{
    // tt: src1 stored with W1 = 2, H1 = 3 gives R = 2 and K = 3; src2 stored
    // with W2 = 2, H2 = 4 has an inner length of W2 = 2: a mismatch.
    const double a[6] = {}, b[8] = {};
    double d[8];
    EXPECT_EQ(kelmMul_tt_64f(a, 16, 8, 2, 3, b, 16, 8, 2, 4, d, 32, 8), kelStsSizeMismatch);
    // With src2 stored 4 x 3 the product is 2 x 4.
    const double a2[6] = {1, 2, 3, 4, 5, 6};  // rows (1 2) (3 4) (5 6)
    const double b2[12] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 1, 1, 1};
    ASSERT_EQ(kelmMul_tt_64f(a2, 16, 8, 2, 3, b2, 24, 8, 3, 4, d, 32, 8), kelStsNoErr);
    const double want[8] = {1, 3, 5, 9, 2, 4, 6, 12};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(d[i], want[i]) << i;
}

// ---- guard pages ---------------------------------------------------------------------------

using kt::Guarded;

// Packed square matrices that end right before a guard page, a single
// operand at the end of its own memory: the straight-line paths read and
// write no byte past the last element of any operand.
template <class T, class F>
void guardedSquares(bool arrayA, bool arrayB, F mul)
{
    for (int n = 1; n <= 7; ++n)
        for (int count : {1, 2, 3, 4, 5, 9}) {
            const int per = n * n, row = n * int(sizeof(T)), obj = n * row;
            const int na = arrayA ? count : 1, nb = arrayB ? count : 1;
            Guarded ga(per * na * sizeof(T)), gb(per * nb * sizeof(T)), gd(per * count * sizeof(T));
            T *a = ga.as<T>(), *b = gb.as<T>(), *d = gd.as<T>();
            for (int i = 0; i < per * na; ++i) a[i] = T(i % 7 + 1);
            for (int i = 0; i < per * nb; ++i) b[i] = T(i % 5 - 2);
            ASSERT_EQ(mul(a, b, d, obj, row, n, count), kelStsNoErr) << n;
            for (int o = 0; o < count; ++o)
                for (int r = 0; r < n; ++r)
                    for (int c = 0; c < n; ++c) {
                        const T* x = a + (arrayA ? o * per : 0) + r * n;
                        const T* y = b + (arrayB ? o * per : 0) + c;
                        T s = T(0);
                        for (int k = 0; k < n; ++k) s = s + x[k] * y[k * n];
                        ASSERT_EQ(d[o * per + r * n + c], s) << n << " " << o << " " << r << " " << c;
                    }
        }
}

TEST(MulGuardPage, PackedPathsStopAtTheLastElement)
{
    guardedSquares<float>(true, true, [](const float* a, const float* b, float* d, int obj, int row, int n, int c) {
        return kelmMul_mama_32f(a, obj, row, 4, n, n, b, obj, row, 4, n, n, d, obj, row, 4, c);
    });
    guardedSquares<double>(true, true, [](const double* a, const double* b, double* d, int obj, int row, int n, int c) {
        return kelmMul_mama_64f(a, obj, row, 8, n, n, b, obj, row, 8, n, n, d, obj, row, 8, c);
    });
    guardedSquares<float>(true, false, [](const float* a, const float* b, float* d, int obj, int row, int n, int c) {
        return kelmMul_mam_32f(a, obj, row, 4, n, n, b, row, 4, n, n, d, obj, row, 4, c);
    });
    guardedSquares<double>(false, true, [](const double* a, const double* b, double* d, int obj, int row, int n, int c) {
        return kelmMul_mma_64f(a, row, 8, n, n, b, obj, row, 8, n, n, d, obj, row, 8, c);
    });
}

}  // namespace
