// LUDecomp and LUBackSubst against a plain model of the documented
// arithmetic, over every member, description, type, size and layout; the
// pivot rules of each size class; what a refused matrix leaves behind, alone,
// in a serial array and in a team; solves that round-trip.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <utility>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

bool straightLine(int n) { return n >= 3 && n <= 6; }

// ---- reference model ------------------------------------------------------------

// What a factorisation leaves: the status, dst's rows in source order, which
// of them were written, and the table.
template <class T>
struct Factors {
    KelStatus status = kelStsNoErr;
    std::vector<T> m;
    std::vector<bool> written;
    std::vector<int> p;
};

template <class T>
Factors<T> luModel(std::vector<T> a, int n)
{
    Factors<T> f;
    f.p.resize(n);
    std::iota(f.p.begin(), f.p.end(), 0);
    std::vector<int>& p = f.p;
    auto at = [&](int row, int col) -> T& { return a[row * n + col]; };
    auto search = [&](int k, int& best) {
        best = k;
        T big = std::fabs(at(p[k], k));
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(at(p[i], k)) > big) best = i, big = std::fabs(at(p[i], k));
        return big;
    };
    if (!straightLine(n)) {
        // dst is the work area: all of it is written, even when refused.
        const T tol = std::numeric_limits<T>::epsilon();
        f.written.assign(n, true);
        for (int k = 0; k < n - 1 && !f.status; ++k) {
            int best;
            if (search(k, best) <= tol) {
                f.status = kelStsSingular;
                break;
            }
            std::swap(p[k], p[best]);
            const T r = T(1) / at(p[k], k);
            for (int i = k + 1; i < n; ++i) at(p[i], k) = at(p[i], k) * r;
            for (int i = k + 1; i < n; ++i)
                for (int j = k + 1; j < n; ++j) at(p[i], j) = at(p[i], j) - at(p[i], k) * at(p[k], j);
        }
        if (!f.status && std::fabs(at(p[n - 1], n - 1)) <= tol) f.status = kelStsSingular;
        f.m = a;
        return f;
    }
    // A private copy; a row reaches dst when its step is done.
    const T tol = T(2) * std::numeric_limits<T>::min();
    f.m.assign(n * n, T(0));
    f.written.assign(n, false);
    auto finish = [&](int row) {
        for (int j = 0; j < n; ++j) f.m[row * n + j] = at(row, j);
        f.written[row] = true;
    };
    for (int k = 0; k < n - 1; ++k) {
        int best;
        const T big = search(k, best);
        std::swap(p[k], p[best]);
        if (tol > big) {
            f.status = kelStsSingular;
            return f;
        }
        if (k < n - 2) {
            const T r = T(1) / at(p[k], k);
            for (int i = k + 1; i < n; ++i) at(p[i], k) = at(p[i], k) * r;
        } else {
            at(p[k + 1], k) = at(p[k + 1], k) / at(p[k], k);
        }
        for (int i = k + 1; i < n; ++i)
            for (int j = k + 1; j < n; ++j) at(p[i], j) = at(p[i], j) - at(p[k], j) * at(p[i], k);
        finish(p[k]);
    }
    if (tol > std::fabs(at(p[n - 1], n - 1))) {
        f.status = kelStsSingular;
        return f;
    }
    finish(p[n - 1]);
    return f;
}

// The solve.  hoisted: one matrix for many vectors, multiplying by the
// diagonal's reciprocals in the straight-line class.  aliased: the result
// is written over the right-hand side.
template <class T>
std::vector<T> solveModel(const std::vector<T>& f, const std::vector<int>& p, int n, std::vector<T> b, bool hoisted,
                          bool aliased)
{
    auto a = [&](int k, int j) { return f[p[k] * n + j]; };
    if (straightLine(n)) {
        std::vector<T> y(n), x(n);
        y[0] = b[p[0]];
        for (int i = 1; i < n; ++i) {
            T v = b[p[i]];
            for (int j = 1; j < i; ++j) v = v - a(i, j) * y[j];
            y[i] = v - a(i, 0) * y[0];
        }
        auto scale = [&](int i, T v) { return hoisted ? v * (T(1) / a(i, i)) : v / a(i, i); };
        x[n - 1] = scale(n - 1, y[n - 1]);
        for (int i = n - 2; i >= 0; --i) {
            T v = y[i];
            for (int j = n - 1; j > i; --j) v = v - a(i, j) * x[j];
            x[i] = scale(i, v);
        }
        return x;
    }
    std::vector<T> own(n);
    std::vector<T>& x = aliased ? b : own;
    x[0] = b[p[0]];
    for (int i = 1; i < n; ++i) {
        T s = T(0);
        for (int j = 0; j < i; ++j) s = s + a(i, j) * x[j];
        x[i] = b[p[i]] - s;
    }
    x[n - 1] = x[n - 1] / a(n - 1, n - 1);
    for (int i = n - 2; i >= 0; --i) {
        T s = T(0);
        for (int j = i + 1; j < n; ++j) s = s + a(i, j) * x[j];
        x[i] = (x[i] - s) / a(i, i);
    }
    return x;
}

// ---- operands of a case ---------------------------------------------------------------

struct Groups {
    int src = -1, piv = -1, src2 = -1, dst = -1;
};
Groups groupsOf(const Member& m)
{
    Groups g;
    for (size_t k = 0; k < m.groups.size(); ++k) {
        const std::string& p = m.groups[k].prefix;
        if (p == "src") g.src = int(k);
        if (p == "pivotIndex") g.piv = int(k);
        if (p == "src2") g.src2 = int(k);
        if (p == "dst") g.dst = int(k);
    }
    return g;
}

int sizeOf(const Case& s) { return s.sizes.at("size"); }

template <class T>
std::vector<T> matrixOf(const Operand& op, int obj, int n)
{
    std::vector<T> a(n * n);
    for (int r = 0; r < n; ++r)
        for (int c = 0; c < n; ++c) a[r * n + c] = T(op.get(obj, r, c));
    return a;
}
template <class T>
std::vector<T> vectorOf(const Operand& op, int obj, int n)
{
    std::vector<T> v(n);
    for (int i = 0; i < n; ++i) v[i] = T(op.get(obj, 0, i));
    return v;
}
std::vector<int> pivotsOf(const Operand& op, int obj, int n)
{
    std::vector<int> p(n);
    for (int k = 0; k < n; ++k) std::memcpy(&p[k], op.arena.data() + op.offsets[op.index(obj, 0, k)], 4);
    return p;
}
void setPivots(Operand& op, int obj, const std::vector<int>& p)
{
    for (size_t k = 0; k < p.size(); ++k) std::memcpy(op.arena.data() + op.offsets[op.index(obj, 0, int(k))], &p[k], 4);
}

template <class T>
T uniformValue(std::mt19937& rng)
{
    return T(std::uniform_real_distribution<double>(-4.0, 4.0)(rng));
}

template <class T>
std::vector<T> invertibleMatrix(int n, std::mt19937& rng)
{
    std::vector<T> a(n * n);
    do
        for (auto& x : a) x = uniformValue<T>(rng);
    while (luModel<T>(a, n).status != kelStsNoErr);
    return a;
}

// Every byte of a case as it should be after the call: the snapshot, with
// expected elements and table entries put in.
struct Expect {
    const Case& s;
    std::vector<std::vector<unsigned char>> want;
    explicit Expect(const Case& c) : s(c), want(c.snapshot()) {}
    template <class T>
    void elem(int g, int obj, int r, int c, T v)
    {
        const Operand& op = s.ops[g];
        const int home = g == dstGroup(*s.m) && s.inPlaceOf >= 0 ? s.inPlaceOf : g;
        std::memcpy(want[home].data() + op.offsets[op.index(obj, r, c)], &v, sizeof v);
    }
    void pivot(int g, int obj, int k, int v)
    {
        const Operand& op = s.ops[g];
        std::memcpy(want[g].data() + op.offsets[op.index(obj, 0, k)], &v, 4);
    }
    std::string diff() const { return compareAfter(s, want, {}); }
};

// ---- family hooks -------------------------------------------------------------------

Shape luShape(const Member& m, const GroupInfo& g, const Sizes& sizes)
{
    const int n = sizes.count("size") ? sizes.at("size") : 1;
    const int count = sizes.count("count") ? sizes.at("count") : 1;
    const bool perObject = g.kind == "ma" || g.kind == "va" ||
                           ((g.kind == "piv" || g.kind == "cpiv") && (m.code == "ma" || m.code == "mava"));
    const int objects = perObject ? count : 1;
    if (g.kind == "m" || g.kind == "ma") return {objects, n, n};
    return {objects, 1, n};
}

template <class T>
void fillDecomp(Case& c, std::mt19937& rng)
{
    const Groups g = groupsOf(*c.m);
    Operand& src = c.ops[g.src];
    const int n = sizeOf(c);
    // Keep the harness's values (zeros, ties) where they factorise.
    for (int obj = 0; obj < src.objects; ++obj)
        if (luModel<T>(matrixOf<T>(src, obj, n), n).status != kelStsNoErr) {
            auto a = invertibleMatrix<T>(n, rng);
            for (int r = 0; r < n; ++r)
                for (int col = 0; col < n; ++col) src.set(obj, r, col, a[r * n + col]);
        }
}

// Factors and tables of invertible matrices, right-hand sides as laid out.
template <class T>
void fillSolve(Case& c, std::mt19937& rng)
{
    const Groups g = groupsOf(*c.m);
    Operand& src = c.ops[g.src];
    const int n = sizeOf(c);
    for (int obj = 0; obj < src.objects; ++obj) {
        auto f = luModel<T>(invertibleMatrix<T>(n, rng), n);
        for (int r = 0; r < n; ++r)
            for (int col = 0; col < n; ++col) src.set(obj, r, col, f.m[r * n + col]);
        setPivots(c.ops[g.piv], obj, f.p);
    }
}

template <void (*F32)(Case&, std::mt19937&), void (*F64)(Case&, std::mt19937&)>
void byType(Case& c, std::mt19937& rng)
{
    if (c.m->elem == 4) F32(c, rng);
    else F64(c, rng);
}

KT_FAMILY("LUDecomp", FamilyHooks{luShape, {}, {}, byType<fillDecomp<float>, fillDecomp<double>>});
KT_FAMILY("LUBackSubst", FamilyHooks{luShape, {}, {}, byType<fillSolve<float>, fillSolve<double>>});

// ---- running cases --------------------------------------------------------------------

using Blocks = std::vector<std::pair<int, int>>;  // (first object, objects)

// The blocks a team of t threads computes.
Blocks teamBlocks(int count, int t)
{
    Blocks b;
    const int q = count / t, r = count % t;
    for (int k = 0; k < t; ++k) b.push_back(k < r ? std::pair{(q + 1) * k, q + 1} : std::pair{(q + 1) * r + (k - r) * q, q});
    return b;
}

// Expected bytes and status of a factorisation run as the given serial
// blocks: each block stops at its first refused object.
template <class T>
KelStatus expectDecomp(Expect& e, const Blocks& blocks)
{
    const Case& s = e.s;
    const Groups g = groupsOf(*s.m);
    const int n = sizeOf(s);
    KelStatus status = kelStsNoErr;
    for (auto [first, count] : blocks)
        for (int obj = first; obj < first + count; ++obj) {
            auto f = luModel<T>(matrixOf<T>(s.ops[g.src], obj, n), n);
            for (int k = 0; k < n; ++k) e.pivot(g.piv, obj, k, f.p[k]);
            for (int r = 0; r < n; ++r)
                if (f.written[r])
                    for (int c = 0; c < n; ++c) e.elem<T>(g.dst, obj, r, c, f.m[r * n + c]);
            if (f.status) {
                if (!status) status = f.status;
                break;
            }
        }
    return status;
}

template <class T>
void checkDecomp(Case& s, const Blocks& blocks)
{
    Expect e(s);
    const KelStatus want = expectDecomp<T>(e, blocks);
    ASSERT_EQ(s.run(), want) << describe(s);
    const std::string diff = e.diff();
    ASSERT_TRUE(diff.empty()) << diff;
}

Blocks serial(const Case& s) { return {{0, s.ops[groupsOf(*s.m).dst].objects}}; }

void checkDecomp(Case& s, const Blocks& blocks)
{
    if (s.m->elem == 4) checkDecomp<float>(s, blocks);
    else checkDecomp<double>(s, blocks);
}

template <class T>
void checkSolve(Case& s)
{
    const Member& m = *s.m;
    const Groups g = groupsOf(m);
    const int n = sizeOf(s);
    const bool shared = m.code != "mava";
    Expect e(s);
    for (int obj = 0; obj < s.ops[g.dst].objects; ++obj) {
        const int mo = shared ? 0 : obj;
        auto x = solveModel<T>(matrixOf<T>(s.ops[g.src], mo, n), pivotsOf(s.ops[g.piv], mo, n), n,
                               vectorOf<T>(s.ops[g.src2], obj, n), m.code == "mva", s.inPlaceOf >= 0);
        for (int i = 0; i < n; ++i) e.elem<T>(g.dst, obj, 0, i, x[i]);
    }
    ASSERT_EQ(s.run(), kelStsNoErr) << describe(s);
    const std::string diff = e.diff();
    ASSERT_TRUE(diff.empty()) << diff;
}

void checkSolve(Case& s)
{
    if (s.m->elem == 4) checkSolve<float>(s);
    else checkSolve<double>(s);
}

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> out;
    for (int c : m.array ? std::vector<int>{1, 2, 5} : std::vector<int>{1})
        for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12}) {
            Sizes s{{"size", n}};
            if (m.array) s["count"] = c;
            out.push_back(s);
        }
    return out;
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

// ---- LUDecomp over every member -------------------------------------------------------

class LUDecomp : public ::testing::TestWithParam<std::string> {};

TEST_P(LUDecomp, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    sweep(m, sizeGrid(m), everyForm(), 1, [&](Case& s) { checkDecomp(s, serial(s)); });
}

// dst may be src: the straight-line class reads the whole matrix first, the
// general loop copies it onto itself.
TEST_P(LUDecomp, InPlace)
{
    const Member& m = member(GetParam());
    uint32_t seed = 500;
    for (auto& sizes : sizeGrid(m))
        for (Form form : {Form::Packed, Form::Random}) {
            Case s = makeCase(m, sizes, Layout{form}, seed++, true);
            ASSERT_GE(s.inPlaceOf, 0);
            checkDecomp(s, serial(s));
            if (HasFatalFailure()) return;
        }
}

// Column k all zero: refused at step k (at the last test for k = n - 1),
// with the class's leftovers.  In an array of three the first object is
// complete and the third untouched.
TEST_P(LUDecomp, RefusedAtEveryStep)
{
    const Member& m = member(GetParam());
    uint32_t seed = 900;
    for (int n : {1, 2, 3, 4, 5, 6, 7, 9})
        for (int k = 0; k < n; ++k)
            for (Form form : {Form::Packed, Form::Random}) {
                Sizes sizes{{"size", n}};
                if (m.array) sizes["count"] = 3;
                const bool inPlace = ++seed % 3 == 0;
                Case s = makeCase(m, sizes, Layout{form}, seed, inPlace);
                const int bad = m.array ? 1 : 0;
                const int home = groupsOf(m).src;
                for (int r = 0; r < n; ++r) s.ops[home].set(bad, r, k, 0.0);
                checkDecomp(s, serial(s));
                if (HasFatalFailure()) return;
            }
}

// NaN compares false: never refused, never chosen unless it stands first.
TEST_P(LUDecomp, NaNIsNeverRefused)
{
    const Member& m = member(GetParam());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    uint32_t seed = 1300;
    for (int n : {1, 2, 4, 6, 8})
        for (int row : {0, n - 1}) {
            Sizes sizes{{"size", n}};
            if (m.array) sizes["count"] = 2;
            Case s = makeCase(m, sizes, Layout{Form::Random}, seed++);
            s.ops[groupsOf(m).src].set(0, row, 0, nan);
            checkDecomp(s, serial(s));
            if (HasFatalFailure()) return;
        }
}

INSTANTIATE_TEST_SUITE_P(All, LUDecomp, ::testing::ValuesIn(memberNames({"LUDecomp"})), paramName);

// ---- arrays: serial stop, team blocks, thread counts ------------------------------------

class LUDecompArray : public ::testing::TestWithParam<std::string> {};

// Two refused objects.  Serially the first ends the call; in a team every
// thread stops at its own first failure and the others finish their blocks.
TEST_P(LUDecompArray, SerialStopsAtFirstTeamFinishesBlocks)
{
    const Member& m = member(GetParam());
    for (auto [n, count] : {std::pair{4, 300}, std::pair{8, 40}, std::pair{2, 700}}) {
        for (int threads : {1, 2, 3, 7}) {
            Case s = makeCase(m, {{"size", n}, {"count", count}}, Layout{Form::Random}, 40 + threads);
            const int src = groupsOf(m).src;
            for (int bad : {count / 30, count - count / 6})
                for (int r = 0; r < n; ++r) s.ops[src].set(bad, r, n / 2, 0.0);
            forceThreads(threads);
            checkDecomp(s, threads == 1 ? serial(s) : teamBlocks(count, threads));
            forceThreads(0);
            if (HasFatalFailure()) return;
        }
    }
}

TEST_P(LUDecompArray, SameResultForEveryThreadCount)
{
    const Member& m = member(GetParam());
    for (auto [n, count] : {std::pair{4, 611}, std::pair{6, 97}, std::pair{11, 13}})
        for (int threads : {1, 2, 3, 7}) {
            forceThreads(threads);
            Case s = makeCase(m, {{"size", n}, {"count", count}}, Layout{Form::Random}, 70 + threads);
            checkDecomp(s, serial(s));
            forceThreads(0);
            if (HasFatalFailure()) return;
        }
}

std::vector<std::string> arrayMembers(const std::string& family)
{
    std::vector<std::string> out;
    for (auto& name : memberNames({family}))
        if (member(name).array) out.push_back(name);
    return out;
}

INSTANTIATE_TEST_SUITE_P(All, LUDecompArray, ::testing::ValuesIn(arrayMembers("LUDecomp")), paramName);

// The estimates by hand, at the limits: size*size*count 1000 / 1001,
// (2*count + size)*size 700 / 701, (size + 2)*size*count 1200 / 1203.
TEST(LUDriver, EstimatesAtTheLimits)
{
    struct Call {
        const char* name;
        int size, count;
        bool driver;
    };
    for (auto c : {Call{"kelmLUDecomp_ma_32f", 10, 10, false}, Call{"kelmLUDecomp_ma_64f_P", 1, 1001, true},
                   Call{"kelmLUBackSubst_mva_64f_L", 10, 30, false}, Call{"kelmLUBackSubst_mva_32f", 1, 350, true},
                   Call{"kelmLUBackSubst_mava_32f_P", 10, 10, false}, Call{"kelmLUBackSubst_mava_64f", 1, 401, true}}) {
        Case s = makeCase(member(c.name), {{"size", c.size}, {"count", c.count}}, Layout{Form::Packed}, 3);
        forceThreads(2);
        resetThreadQueries();
        EXPECT_EQ(s.run(), kelStsNoErr) << c.name;
        EXPECT_EQ(threadQueries(), c.driver ? 2 : 0) << c.name;
        forceThreads(0);
    }
}

// ---- pivot rules by size class ------------------------------------------------------------

template <class T>
class LUDecompRule : public ::testing::Test {};
using Types = ::testing::Types<float, double>;
TYPED_TEST_SUITE(LUDecompRule, Types);

template <class T>
KelStatus decomp(const std::vector<T>& a, std::vector<int>& p, std::vector<T>& d, int n)
{
    p.assign(n, -7);
    d.assign(n * n, T(-99));
    const int row = n * int(sizeof(T));
    if constexpr (sizeof(T) == 4) return kelmLUDecomp_m_32f(a.data(), row, 4, p.data(), d.data(), row, 4, n);
    else return kelmLUDecomp_m_64f(a.data(), row, 8, p.data(), d.data(), row, 8, n);
}

// Identity with one diagonal element replaced.
template <class T>
std::vector<T> identityWith(int n, int k, T v)
{
    std::vector<T> a(n * n, T(0));
    for (int i = 0; i < n; ++i) a[i * n + i] = T(1);
    a[k * n + k] = v;
    return a;
}

// A pivot equal to the tolerance: refused at orders 1, 2 and from 7 (machine
// epsilon, inclusive), accepted at orders 3 to 6 (twice the smallest normal,
// strict), where the next smaller number is refused.  The same at the first
// step and at the last test.
TYPED_TEST(LUDecompRule, ToleranceBoundaryByClass)
{
    using T = TypeParam;
    const T eps = std::numeric_limits<T>::epsilon(), tiny = T(2) * std::numeric_limits<T>::min();
    std::vector<int> p;
    std::vector<T> d;
    for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 10})
        for (int k : {0, n - 1}) {
            const T tol = straightLine(n) ? tiny : eps;
            const T below = std::nextafter(tol, T(0)), above = std::nextafter(tol, T(1));
            EXPECT_EQ(decomp(identityWith(n, k, tol), p, d, n), straightLine(n) ? kelStsNoErr : kelStsSingular)
                << n << " " << k;
            EXPECT_EQ(decomp(identityWith(n, k, -tol), p, d, n), straightLine(n) ? kelStsNoErr : kelStsSingular)
                << n << " " << k;
            EXPECT_EQ(decomp(identityWith(n, k, below), p, d, n), kelStsSingular) << n << " " << k;
            EXPECT_EQ(decomp(identityWith(n, k, above), p, d, n), kelStsNoErr) << n << " " << k;
        }
}

// The tolerances are absolute: a pivot of 1e-30 passes at order 4 and is
// refused at orders 2 and 8.
TYPED_TEST(LUDecompRule, TolerancesAreNotScaled)
{
    using T = TypeParam;
    std::vector<int> p;
    std::vector<T> d;
    EXPECT_EQ(decomp(identityWith(4, 2, T(1e-30)), p, d, 4), kelStsNoErr);
    EXPECT_EQ(decomp(identityWith(2, 0, T(1e-30)), p, d, 2), kelStsSingular);
    EXPECT_EQ(decomp(identityWith(8, 5, T(1e-30)), p, d, 8), kelStsSingular);
}

// The general loop tests before it exchanges, the straight-line class after:
// the largest candidate sits in the last row and is too small.
TYPED_TEST(LUDecompRule, RefusedTableByClass)
{
    using T = TypeParam;
    std::vector<int> p;
    std::vector<T> d;
    for (int n : {2, 3, 6, 7}) {
        std::vector<T> a = identityWith(n, 0, T(0));
        a[(n - 1) * n] = std::numeric_limits<T>::min();  // column 0: 0, 0, ..., min
        ASSERT_EQ(decomp(a, p, d, n), kelStsSingular);
        std::vector<int> want(n);
        std::iota(want.begin(), want.end(), 0);
        if (straightLine(n)) std::swap(want[0], want[n - 1]);
        EXPECT_EQ(p, want) << n;
        // General loop: dst is the whole copy; straight-line: nothing written.
        for (int i = 0; i < n * n; ++i) EXPECT_EQ(d[i], straightLine(n) ? T(-99) : a[i]) << n << " " << i;
    }
}

// Order 1: a copy and one test.  Ties keep the earlier row.
TYPED_TEST(LUDecompRule, HandComputedCases)
{
    using T = TypeParam;
    std::vector<int> p;
    std::vector<T> d;
    EXPECT_EQ(decomp({T(-0.5)}, p, d, 1), kelStsNoErr);
    EXPECT_EQ(p, std::vector<int>{0});
    EXPECT_EQ(d, std::vector<T>{T(-0.5)});
    EXPECT_EQ(decomp({std::numeric_limits<T>::epsilon()}, p, d, 1), kelStsSingular);
    EXPECT_EQ(d, std::vector<T>{std::numeric_limits<T>::epsilon()});

    // Rows (1, 2) and (-1, 3): |1| ties |-1|, the table stays 0, 1.
    EXPECT_EQ(decomp({T(1), T(2), T(-1), T(3)}, p, d, 2), kelStsNoErr);
    EXPECT_EQ(p, (std::vector<int>{0, 1}));
    EXPECT_EQ(d, (std::vector<T>{T(1), T(2), T(-1), T(5)}));

    // Order 3, rows stay where they are: row 2 is the first pivot, row 0 the
    // second.  [[1,1,1],[2,4,2],[4,2,1]]: p = 2, 1, 0.
    EXPECT_EQ(decomp({T(1), T(1), T(1), T(2), T(4), T(2), T(4), T(2), T(1)}, p, d, 3), kelStsNoErr);
    EXPECT_EQ(p, (std::vector<int>{2, 1, 0}));
    // Row 2 = U(0) = (4, 2, 1) after a reciprocal 1/4; row 1 = (1/2, 3, 3/2);
    // row 0 = (1/4, l, 3/4 - (3/2) l), where the last step divides: l = 0.5 / 3.
    const T l = T(0.5) / T(3);
    EXPECT_EQ(d, (std::vector<T>{T(0.25), l, T(0.75) - T(1.5) * l, T(0.5), T(3), T(1.5), T(4), T(2), T(1)}));
}

// ---- LUBackSubst over every member -------------------------------------------------------

class LUBackSubst : public ::testing::TestWithParam<std::string> {};

TEST_P(LUBackSubst, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    sweep(m, sizeGrid(m), everyForm(), 1, [&](Case& s) { checkSolve(s); });
}

// dst over src2: right at orders 3 to 6; the general loop overwrites the
// right-hand side as it goes, as the model does.
TEST_P(LUBackSubst, InPlace)
{
    const Member& m = member(GetParam());
    uint32_t seed = 700;
    for (auto& sizes : sizeGrid(m))
        for (Form form : {Form::Packed, Form::Random}) {
            Case s = makeCase(m, sizes, Layout{form}, seed++, true);
            ASSERT_EQ(s.inPlaceOf, groupsOf(m).src2);
            checkSolve(s);
            if (HasFatalFailure()) return;
        }
}

TEST_P(LUBackSubst, SameResultForEveryThreadCount)
{
    const Member& m = member(GetParam());
    if (!m.array) GTEST_SKIP() << "single system";
    for (auto [n, count] : {std::pair{4, 611}, std::pair{6, 97}, std::pair{11, 40}})
        for (int threads : {1, 2, 3, 7}) {
            forceThreads(threads);
            Case s = makeCase(m, {{"size", n}, {"count", count}}, Layout{Form::Random}, 90 + threads);
            checkSolve(s);
            forceThreads(0);
            if (HasFatalFailure()) return;
        }
}

INSTANTIATE_TEST_SUITE_P(All, LUBackSubst, ::testing::ValuesIn(memberNames({"LUBackSubst"})), paramName);

// ---- solves through the plain S members -------------------------------------------------

template <class T>
class LUSolve : public ::testing::Test {};
TYPED_TEST_SUITE(LUSolve, Types);

template <class T>
struct Api;
template <>
struct Api<float> {
    static constexpr auto decompArray = kelmLUDecomp_ma_32f;
    static constexpr auto mv = kelmLUBackSubst_mv_32f;
    static constexpr auto mva = kelmLUBackSubst_mva_32f;
    static constexpr auto mava = kelmLUBackSubst_mava_32f;
};
template <>
struct Api<double> {
    static constexpr auto decompArray = kelmLUDecomp_ma_64f;
    static constexpr auto mv = kelmLUBackSubst_mv_64f;
    static constexpr auto mva = kelmLUBackSubst_mva_64f;
    static constexpr auto mava = kelmLUBackSubst_mava_64f;
};

// One factored matrix against many vectors multiplies by reciprocals at
// orders 3 to 6, one system at a time divides: each equals its own model,
// and the two differ somewhere.
TYPED_TEST(LUSolve, MvaReciprocalsAgainstMvDivisions)
{
    using T = TypeParam;
    std::mt19937 rng(5);
    for (int n = 3; n <= 6; ++n) {
        const int count = 200, E = sizeof(T), row = n * E;
        auto f = luModel<T>(invertibleMatrix<T>(n, rng), n);
        std::vector<T> b(n * count), many(n * count), one(n * count);
        for (auto& x : b) x = uniformValue<T>(rng);
        ASSERT_EQ(Api<T>::mva(f.m.data(), row, E, f.p.data(), b.data(), row, E, many.data(), row, E, n, count),
                  kelStsNoErr);
        int differ = 0;
        for (int v = 0; v < count; ++v) {
            ASSERT_EQ(Api<T>::mv(f.m.data(), row, E, f.p.data(), &b[v * n], E, &one[v * n], E, n), kelStsNoErr);
            const std::vector<T> bv(b.begin() + v * n, b.begin() + (v + 1) * n);
            auto withRcp = solveModel<T>(f.m, f.p, n, bv, true, false);
            auto withDiv = solveModel<T>(f.m, f.p, n, bv, false, false);
            for (int i = 0; i < n; ++i) {
                ASSERT_EQ(toBits(many[v * n + i], E), toBits(withRcp[i], E)) << n << " " << v << " " << i;
                ASSERT_EQ(toBits(one[v * n + i], E), toBits(withDiv[i], E)) << n << " " << v << " " << i;
                differ += many[v * n + i] != one[v * n + i];
            }
        }
        EXPECT_GT(differ, 0) << n;
    }
}

// A zero on the diagonal divides through: infinity, and no status.
TYPED_TEST(LUSolve, ZeroDiagonalIsNotChecked)
{
    using T = TypeParam;
    const int E = sizeof(T);
    for (int n : {1, 2, 4, 7}) {
        std::vector<T> f(n * n, T(0)), b(n, T(1)), x(n, T(0));
        for (int i = 0; i < n - 1; ++i) f[i * n + i] = T(1);
        std::vector<int> p(n);
        std::iota(p.begin(), p.end(), 0);
        ASSERT_EQ(Api<T>::mv(f.data(), n * E, E, p.data(), b.data(), E, x.data(), E, n), kelStsNoErr);
        EXPECT_TRUE(std::isinf(x[n - 1])) << n;
    }
    // Order 1: the right-hand side over the only element.
    const T one = T(3), rhs = T(1);
    T out = 0;
    int p0 = 0;
    ASSERT_EQ(Api<T>::mv(&one, E, E, &p0, &rhs, E, &out, E, 1), kelStsNoErr);
    EXPECT_EQ(out, T(1) / T(3));
}

// Factor with the library, solve with the library, multiply back.
TYPED_TEST(LUSolve, RoundTripResiduals)
{
    using T = TypeParam;
    const int E = sizeof(T);
    std::mt19937 rng(17);
    for (int n = 1; n <= 10; ++n) {
        const int count = 64, row = n * E, obj = n * row;
        std::vector<T> a(n * n * count), lu(n * n * count), b(n * count), x(n * count), x1(n * count);
        std::vector<int> p(n * count);
        for (int k = 0; k < count; ++k) {
            auto m = invertibleMatrix<T>(n, rng);
            std::copy(m.begin(), m.end(), a.begin() + k * n * n);
        }
        for (auto& v : b) v = uniformValue<T>(rng);
        ASSERT_EQ(Api<T>::decompArray(a.data(), obj, row, E, p.data(), lu.data(), obj, row, E, n, count), kelStsNoErr);
        ASSERT_EQ(Api<T>::mava(lu.data(), obj, row, E, p.data(), b.data(), row, E, x.data(), row, E, n, count),
                  kelStsNoErr);
        // The first matrix against every right-hand side.
        ASSERT_EQ(Api<T>::mva(lu.data(), row, E, p.data(), b.data(), row, E, x1.data(), row, E, n, count), kelStsNoErr);
        for (int k = 0; k < count; ++k)
            for (auto [sol, mat] : {std::pair{&x, k}, std::pair{&x1, 0}}) {
                // Residual against the size of the terms, with room for growth.
                double worst = 0, scale = 0;
                for (int i = 0; i < n; ++i) {
                    double s = -double(b[k * n + i]), mag = std::fabs(double(b[k * n + i]));
                    for (int j = 0; j < n; ++j) {
                        const double t = double(a[mat * n * n + i * n + j]) * double((*sol)[k * n + j]);
                        s += t;
                        mag += std::fabs(t);
                    }
                    worst = std::max(worst, std::fabs(s));
                    scale = std::max(scale, mag);
                }
                EXPECT_LE(worst, 64.0 * n * std::numeric_limits<T>::epsilon() * scale) << n << " " << k;
            }
    }
}

}  // namespace
