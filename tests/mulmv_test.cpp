// Matrix-vector Mul and Gaxpy against a plain model written in the
// documented order of arithmetic, over every member, description, type, size
// and layout; the sign of zero sums per size class; the address-dependent
// rounding of Mul_mva_32f; limits and thread counts.
#include <gtest/gtest.h>

#include "guarded.h"
#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <set>

#include "families.h"
#include "harness.h"
#include "lanesum_model.h"

namespace {

using namespace kt;

const std::set<std::string> kMatVecCodes = {"mv", "tv", "mav", "tav", "mva", "tva", "mava", "tava"};

bool isMatVec(const Member& m) { return m.family == "Mul" && kMatVecCodes.count(m.code) > 0; }
bool isGaxpy(const Member& m) { return m.family == "Gaxpy"; }
bool isArray(const GroupInfo& g) { return g.kind.size() == 2 && g.kind[1] == 'a'; }

int sizeOf(const Sizes& s, const char* name)
{
    auto it = s.find(name);
    return it == s.end() ? 1 : it->second;
}

// ---- which kernels have straight-line sizes -----------------------------------------
//
// Square sizes 3 to 6 computed in straight-line code begin each sum with the
// first product; every other sum begins from +0.0.  Packed kernels of Mul by
// member, as built:
const std::set<std::string> kPackedWithSizes = {
    // vector code
    "kelmMul_mv_64f", "kelmMul_mav_32f", "kelmMul_mav_32f_L", "kelmMul_mav_64f", "kelmMul_mav_64f_L",
    "kelmMul_mava_32f", "kelmMul_mava_32f_L", "kelmMul_mava_64f", "kelmMul_mava_64f_L", "kelmMul_tav_32f",
    "kelmMul_tav_32f_L", "kelmMul_tav_64f_L", "kelmMul_tava_32f", "kelmMul_tava_32f_L", "kelmMul_mva_32f",
    "kelmMul_mva_64f", "kelmMul_mva_64f_L", "kelmMul_tva_32f",
    // scalar code
    "kelmMul_mv_32f", "kelmMul_tv_32f", "kelmMul_tv_64f", "kelmMul_tav_64f", "kelmMul_tava_64f", "kelmMul_tva_64f"};
const std::set<std::string> kPackedWithoutSizes = {"kelmMul_mva_32f_L", "kelmMul_tva_32f_L", "kelmMul_tva_64f_L",
                                                   "kelmMul_tava_64f_L"};

enum class Path { Packed, Strided, Table };

Path pathOf(const Case& s)
{
    if (s.m->desc == "P") return Path::Table;
    for (auto& op : s.ops)
        if (!op.info.isSize() && op.args.s2 != s.m->elem) return Path::Strided;
    return Path::Packed;
}

// Does this path of this member compute square sizes in straight-line code?
bool straightLine(const Member& m, Path path)
{
    if (isGaxpy(m)) return path == Path::Packed;  // strided and P kernels have no special sizes
    if (path != Path::Packed) return true;        // every strided and P kernel of Mul has them
    return kPackedWithSizes.count(m.name) > 0;
}

// ---- the model -------------------------------------------------------------------------

int groupOf(const Member& m, const std::string& prefix)
{
    for (size_t k = 0; k < m.groups.size(); ++k)
        if (m.groups[k].prefix == prefix) return static_cast<int>(k);
    return -1;
}

template <class T>
std::vector<double> modelOf(const Case& s)
{
    const Member& m = *s.m;
    const Operand& A = s.ops[groupOf(m, "src1")];
    const Operand& X = s.ops[groupOf(m, "src2")];
    const int yg = groupOf(m, "src3");
    const Operand& D = s.ops[dstGroup(m)];
    const int W1 = sizeOf(s.sizes, "src1Width"), H1 = sizeOf(s.sizes, "src1Height");
    const bool trans = m.code[0] == 't';
    const int R = trans ? W1 : H1, K = trans ? H1 : W1;
    const Path path = pathOf(s);
    const bool square = W1 == H1 && W1 >= 3 && W1 <= 6;
    const bool straight = square && straightLine(m, path);
    const bool laneDot = m.name == "kelmMul_mva_32f" && path == Path::Packed && !square;

    std::vector<double> out(D.offsets.size());
    for (int n = 0; n < D.objects; ++n) {
        const int an = A.objects > 1 ? n : 0, xn = X.objects > 1 ? n : 0;
        std::vector<T> x(K);
        for (int k = 0; k < K; ++k) x[k] = static_cast<T>(X.get(xn, 0, k));
        for (int r = 0; r < R; ++r) {
            std::vector<T> a(K);
            for (int k = 0; k < K; ++k) a[k] = static_cast<T>(trans ? A.get(an, k, r) : A.get(an, r, k));
            T sum;
            if (laneDot) {
                const auto addr = reinterpret_cast<uintptr_t>(X.arena.data() + X.offsets[X.index(xn, 0, 0)]);
                std::vector<float> af(a.begin(), a.end()), xf(x.begin(), x.end());
                sum = static_cast<T>(kt::laneSumModel(af.data(), xf.data(), static_cast<int>(af.size()), addr));
            } else if (straight) {
                sum = a[0] * x[0];
                for (int k = 1; k < K; ++k) sum += a[k] * x[k];
            } else {
                sum = T(0);
                for (int k = 0; k < K; ++k) sum += a[k] * x[k];
            }
            if (yg >= 0) {
                const Operand& Y = s.ops[yg];
                sum += static_cast<T>(Y.get(Y.objects > 1 ? n : 0, 0, r));
            }
            out[D.index(n, 0, r)] = sum;
        }
    }
    return out;
}

std::vector<double> model(const Case& s) { return s.m->elem == 4 ? modelOf<float>(s) : modelOf<double>(s); }

void runAndCompare(const Case& s) { expectResult(s, model(s)); }

// ---- hooks -------------------------------------------------------------------------------

Shape matVecShape(const Member& m, const GroupInfo& g, const Sizes& s)
{
    const int n = isArray(g) ? sizeOf(s, "count") : 1;
    const int W1 = sizeOf(s, "src1Width"), H1 = sizeOf(s, "src1Height");
    if (g.prefix == "src1") return {n, H1, W1};
    if (g.prefix == "src2") return {n, 1, sizeOf(s, "src2Len")};
    if (g.prefix == "src3") return {n, 1, sizeOf(s, "src3Len")};
    return {n, 1, m.code[0] == 't' ? W1 : H1};  // dst
}

// A call of W1 x H1 with the vector lengths that fit.
Sizes matVecSizes(const Member& m, int w, int h, int count)
{
    Sizes s{{"src1Width", w}, {"src1Height", h}};
    if (isGaxpy(m)) s["src2Len"] = w, s["src3Len"] = h;
    else s["src2Len"] = m.code[0] == 't' ? h : w;
    if (m.has("count")) s["count"] = count;
    return s;
}

// Not square, so that a vector length that fits `m` does not fit `t`.
Sizes validMatVecSizes(const Member& m, int count) { return matVecSizes(m, 4, 3, count); }

std::vector<Sizes> matVecMismatches(const Member& m, const Sizes& valid)
{
    const int w = valid.at("src1Width"), h = valid.at("src1Height");
    if (isGaxpy(m))
        return {{{"src2Len", w + 1}}, {{"src3Len", h + 1}}, {{"src1Width", w + 1}}, {{"src1Height", h + 1}}};
    if (m.code[0] == 't') return {{{"src2Len", h + 1}}, {{"src1Height", h + 1}}, {{"src2Len", w}}};
    return {{{"src2Len", w + 1}}, {{"src1Width", w + 1}}, {{"src2Len", h}}};
}

KT_FAMILY("Mul", FamilyHooks{matVecShape, validMatVecSizes, matVecMismatches, {}, isMatVec, model});
KT_FAMILY("Gaxpy", FamilyHooks{matVecShape, validMatVecSizes, matVecMismatches, {}, isGaxpy, model});

std::vector<std::string> members()
{
    std::vector<std::string> out;
    for (auto& m : registry())
        if (isMatVec(m) || isGaxpy(m)) out.push_back(m.name);
    return out;
}

// ---- comparisons ---------------------------------------------------------------------------

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<std::pair<int, int>> shapes;
    for (int k = 1; k <= 9; ++k) shapes.push_back({k, k});
    for (auto wh : {std::pair{3, 4}, {4, 3}, {2, 5}, {7, 3}, {1, 6}, {6, 1}, {9, 2}, {5, 6}, {8, 4}, {17, 2}})
        shapes.push_back(wh);
    std::vector<Sizes> out;
    for (int c : m.has("count") ? std::vector<int>{1, 2, 3, 13} : std::vector<int>{1})
        for (auto wh : shapes) out.push_back(matVecSizes(m, wh.first, wh.second, c));
    return out;
}

class MatVec : public ::testing::TestWithParam<std::string> {};

TEST_P(MatVec, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    sweep(m, sizeGrid(m), everyForm(), 1, [&](Case& s) { runAndCompare(s); });
}

// Every product -0.0 (and src3 -0.0): a straight-line sum is -0.0, a sum
// from +0.0 is +0.0.  Which one a call gives depends on the member, the
// kernel its layout selects and the size.
TEST_P(MatVec, SignOfAZeroSumPerSizeClass)
{
    const Member& m = member(GetParam());
    uint32_t seed = 500;
    for (auto wh : {std::pair{3, 3}, {4, 4}, {5, 5}, {6, 6}, {2, 2}, {7, 7}, {4, 3}, {9, 9}})
        for (Form form : {Form::Packed, Form::Strided}) {
            Case s = makeCase(m, matVecSizes(m, wh.first, wh.second, 3), Layout{form}, seed++);
            for (auto& op : s.ops) {
                if (op.info.isSize() || op.info.isWritten()) continue;
                const double v = op.info.prefix == "src2" ? 1.5 : -0.0;
                for (int n = 0; n < op.objects; ++n)
                    for (int r = 0; r < op.rows; ++r)
                        for (int c = 0; c < op.cols; ++c) op.set(n, r, c, v);
            }
            runAndCompare(s);
            if (HasFatalFailure()) return;
        }
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

INSTANTIATE_TEST_SUITE_P(Products, MatVec, ::testing::ValuesIn(members()), paramName);

// ---- the size-class table ------------------------------------------------------------------

TEST(MatVecTable, EveryPackedMulKernelIsClassified)
{
    int packedMembers = 0;
    for (auto& m : registry()) {
        if (!isMatVec(m) || m.desc == "P") continue;
        ++packedMembers;
        EXPECT_NE(kPackedWithSizes.count(m.name), kPackedWithoutSizes.count(m.name)) << m.name;
    }
    EXPECT_EQ(packedMembers, 28);
    EXPECT_EQ(kPackedWithSizes.size() + kPackedWithoutSizes.size(), 28u);
}

// Hand-computed: products all -0.0, src3 -0.0.
TEST(MatVecTable, SignOfZeroByHand)
{
    const float mz[16] = {-0.0f, -0.0f, -0.0f, -0.0f, -0.0f, -0.0f, -0.0f, -0.0f,
                          -0.0f, -0.0f, -0.0f, -0.0f, -0.0f, -0.0f, -0.0f, -0.0f};
    const float one[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    float d[8];
    const float* pv[1] = {one};
    float* pd[1] = {d};
    // Packed 4x4 in Mul: straight-line, -0.0.
    ASSERT_EQ(kelmMul_mv_32f(mz, 16, 4, 4, 4, one, 4, 4, d, 4), kelStsNoErr);
    EXPECT_TRUE(std::signbit(d[0]) && d[0] == 0.0f);
    // mva_32f_L has no straight-line sizes: +0.0.
    ASSERT_EQ(kelmMul_mva_32f_L(mz, 16, 4, 4, 4, pv, 0, 4, 4, pd, 0, 4, 1), kelStsNoErr);
    EXPECT_FALSE(std::signbit(d[0]));
    // Strided Mul keeps its sizes: -0.0.
    ASSERT_EQ(kelmMul_mv_32f(mz, 16, 4, 4, 4, one, 8, 4, d, 4), kelStsNoErr);
    EXPECT_TRUE(std::signbit(d[0]));
    // 2x2 is the general path everywhere: +0.0.
    ASSERT_EQ(kelmMul_mv_32f(mz, 8, 4, 2, 2, one, 4, 2, d, 4), kelStsNoErr);
    EXPECT_FALSE(std::signbit(d[0]));
    // Gaxpy: packed 3x3 straight-line gives -0.0; src3Stride2 = 8 is strided: +0.0.
    ASSERT_EQ(kelmGaxpy_mv_32f(mz, 12, 4, 3, 3, one, 4, 3, mz, 4, 3, d, 4), kelStsNoErr);
    EXPECT_TRUE(std::signbit(d[2]));
    ASSERT_EQ(kelmGaxpy_mv_32f(mz, 12, 4, 3, 3, one, 4, 3, mz, 8, 3, d, 4), kelStsNoErr);
    EXPECT_FALSE(std::signbit(d[2]));
}

// ---- Mul_mva_32f: rounding that depends on where the vector lies ----------------------------

// Values with a wide spread of magnitudes, so that the order of summation shows.
std::vector<float> spreadValues(std::mt19937& rng, int n)
{
    std::uniform_real_distribution<float> mant(-1.0f, 1.0f);
    std::uniform_int_distribution<int> ex(-12, 12);
    std::vector<float> v(n);
    for (auto& x : v) x = std::ldexp(mant(rng), ex(rng));
    return v;
}

// One 64-byte aligned buffer per call; the vector starts `shift` bytes in.
// The lane sums follow the vector's address; a vector off a 4-byte boundary,
// K = 7 and the L form sum plainly.  The same values 4 bytes further on must
// round differently somewhere, or the test could not tell the orders apart.
TEST(MulMva32f, LaneSumsFollowTheVectorsAddress)
{
    std::mt19937 rng(3);
    for (int K : {7, 8, 9, 17}) {
        int differs = 0;
        for (int trial = 0; trial < 100; ++trial) {
            const std::vector<float> a = spreadValues(rng, K), x = spreadValues(rng, K);
            float plain = 0.0f;
            for (int k = 0; k < K; ++k) plain += a[k] * x[k];
            uint32_t first = 0;
            for (int shift : {0, 4, 8, 12, 2}) {
                alignas(64) unsigned char buf[128];
                std::memcpy(buf + shift, x.data(), K * 4);
                const float* xp = reinterpret_cast<const float*>(buf + shift);
                float d, dl;
                ASSERT_EQ(kelmMul_mva_32f(a.data(), K * 4, 4, K, 1, xp, 128, 4, K, &d, 4, 4, 1), kelStsNoErr);
                const float want = kt::laneSumModel(a.data(), x.data(), static_cast<int>(a.size()), reinterpret_cast<uintptr_t>(xp));
                ASSERT_EQ(toBits(d, 4), toBits(want, 4)) << "K=" << K << " shift=" << shift;
                if (K == 7 || shift == 2) {
                    ASSERT_EQ(toBits(d, 4), toBits(plain, 4));
                }
                if (shift == 0) first = static_cast<uint32_t>(toBits(d, 4));
                if (shift == 4) differs += first != toBits(d, 4);
                float* pd[1] = {&dl};
                ASSERT_EQ(kelmMul_mva_32f_L(a.data(), K * 4, 4, K, 1, &xp, 0, 4, K, pd, 0, 4, 1), kelStsNoErr);
                ASSERT_EQ(toBits(dl, 4), toBits(plain, 4));
            }
        }
        if (K >= 8) {
            EXPECT_GT(differs, 0) << "K=" << K;
        }
    }
}

// ---- limits and documented cases --------------------------------------------------------------

TEST(MatVecLimits, DocumentedBoundaries)
{
    // Gaxpy mva, (2H + W) * C: L 32f strided, 500 serial and 501 driver; S strided serial up to 5000.
    const Member& gl = member("kelmGaxpy_mva_32f_L");
    EXPECT_EQ(queriesFor(gl.name, matVecSizes(gl, 2, 1, 125), Form::Strided), 0);
    EXPECT_EQ(queriesFor(gl.name, matVecSizes(gl, 1, 1, 167), Form::Strided), 2);
    const Member& gs = member("kelmGaxpy_mva_32f");
    EXPECT_EQ(queriesFor(gs.name, matVecSizes(gs, 2, 1, 1250), Form::Strided), 0);
    EXPECT_EQ(queriesFor(gs.name, matVecSizes(gs, 1, 1, 1667), Form::Strided), 2);
    // Gaxpy mvav 64f P, W*C + (C + 1)*H: 7000 serial, 7001 driver.
    const Member& gp = member("kelmGaxpy_mvav_64f_P");
    EXPECT_EQ(queriesFor(gp.name, matVecSizes(gp, 2, 1, 2333), Form::Random), 0);
    EXPECT_EQ(queriesFor(gp.name, matVecSizes(gp, 1, 1, 3500), Form::Random), 2);
    // Mul mva, W*H + (W + H)*C, S 32f packed: 2500 serial, 2501 driver.
    const Member& mm = member("kelmMul_mva_32f");
    EXPECT_EQ(queriesFor(mm.name, matVecSizes(mm, 2, 2, 624), Form::Packed), 0);
    EXPECT_EQ(queriesFor(mm.name, matVecSizes(mm, 1, 1, 1250), Form::Packed), 2);
    // Mul mav, (W*H + H)*C + W, strided: 1440 serial, 1441 driver.
    const Member& ma = member("kelmMul_mav_64f");
    EXPECT_EQ(queriesFor(ma.name, matVecSizes(ma, 2, 1, 479), Form::Strided), 0);  // 3 * 479 + 2 = 1439
    EXPECT_EQ(queriesFor(ma.name, matVecSizes(ma, 1, 1, 720), Form::Strided), 2);  // 2 * 720 + 1 = 1441
}

// The matrix's size does not enter Gaxpy's estimate: a huge matrix with few
// objects stays serial.
TEST(MatVecLimits, GaxpyEstimateLeavesTheMatrixOut)
{
    const Member& m = member("kelmGaxpy_mva_64f");
    EXPECT_EQ(evalEstimate(m.estimate, matVecSizes(m, 100, 100, 16)), 4800);
    EXPECT_EQ(queriesFor(m.name, matVecSizes(m, 100, 100, 16), Form::Packed), 0);
}

// A NaN in src3 reaches its own row only.
TEST(Gaxpy, NaNInTheAddendStaysInItsRow)
{
    for (const char* name : {"kelmGaxpy_mva_32f", "kelmGaxpy_mvav_64f_L", "kelmGaxpy_mv_32f_P"}) {
        const Member& m = member(name);
        Case s = makeCase(m, matVecSizes(m, 4, 4, 3), Layout{Form::Random}, 8);
        s.ops[groupOf(m, "src3")].set(0, 0, 2, std::numeric_limits<double>::quiet_NaN());
        runAndCompare(s);
        const Operand& d = s.ops[dstGroup(m)];
        for (int r = 0; r < 4; ++r) EXPECT_EQ(std::isnan(d.get(0, 0, r)), r == 2) << name << " row " << r;
    }
}

// ---- fast paths stay inside their operands ----------------------------------------------------

using kt::Guarded;

// Packed square operands, each ending at a guard page; small integers make
// every order of summation exact.
template <class T>
void guardedSquares(const char* name)
{
    const Member& m = member(name);
    for (int n = 3; n <= 9; ++n)
        for (int count : {1, 2, 3}) {
            Sizes sizes = matVecSizes(m, n, n, count);
            Case ref = makeCase(m, sizes, Layout{Form::Packed}, 40 + n);
            std::vector<std::unique_ptr<Guarded>> mem;
            Call c = ref.call();
            std::vector<std::vector<T>> values(m.groups.size());
            for (size_t g = 0; g < m.groups.size(); ++g) {
                const Operand& op = ref.ops[g];
                if (op.info.isSize()) continue;
                const int elems = op.objects * op.rows * op.cols;
                mem.push_back(std::make_unique<Guarded>(elems * sizeof(T)));
                T* p = mem.back()->as<T>();
                for (int i = 0; i < elems; ++i) p[i] = op.info.isWritten() ? T(-1) : T((i * 7 + static_cast<int>(g)) % 5 - 2);
                values[g].assign(p, p + elems);
                c.g[g].p = p;
                c.g[g].s2 = sizeof(T);
                c.g[g].s1 = op.cols * sizeof(T);
                c.g[g].s0 = op.rows * op.cols * sizeof(T);
            }
            ASSERT_EQ(m.invoke(c), kelStsNoErr) << name << " n=" << n << " count=" << count;
            const int a = groupOf(m, "src1"), x = groupOf(m, "src2"), y = groupOf(m, "src3"), d = dstGroup(m);
            const bool trans = m.code[0] == 't';
            for (int o = 0; o < ref.ops[d].objects; ++o)
                for (int r = 0; r < n; ++r) {
                    T want = 0;
                    const int ao = ref.ops[a].objects > 1 ? o : 0, xo = ref.ops[x].objects > 1 ? o : 0;
                    for (int k = 0; k < n; ++k)
                        want += values[a][ao * n * n + (trans ? k * n + r : r * n + k)] * values[x][xo * n + k];
                    if (y >= 0) want += values[y][(ref.ops[y].objects > 1 ? o : 0) * n + r];
                    ASSERT_EQ(static_cast<const T*>(c.g[d].p)[o * n + r], want) << name << " n=" << n;
                }
        }
}

TEST(MatVecGuard, PackedPathsStopAtTheLastElement)
{
    for (auto& name : members()) {
        const Member& m = member(name);
        if (m.desc != "S") continue;
        if (m.elem == 4) guardedSquares<float>(name.c_str());
        else guardedSquares<double>(name.c_str());
        if (HasFatalFailure()) return;
    }
}

}  // namespace
