// LUDecomp and LUBackSubst against plain models of the documented
// arithmetic, over every member, description, type, size and layout, in
// place and in teams of every size; what a refused matrix leaves behind; the
// pivot rules of each size class by hand; solves that really solve.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <tuple>
#include <utility>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

bool straightLine(int n) { return n >= 3 && n <= 6; }

// ---- reference models ------------------------------------------------------------

// What a factorisation leaves: the status, dst's rows in source order, which
// of them were written, and the table.
template <class T>
struct Factors {
    KelStatus status = kelStsNoErr;
    std::vector<T> m;
    std::vector<bool> written;
    std::vector<int> p;
};

// Sizes 1, 2 and from 7 eliminate in dst (all of it written, even when
// refused) and test a pivot against machine epsilon, inclusive, before the
// step's exchange.  Sizes 3 to 6 eliminate in a private copy, write a row to
// dst when its step is done, test against twice the smallest normal,
// strictly, after the exchange, and divide rather than multiply by a
// reciprocal at the last step.  The last test is a step with one candidate.
template <class T>
Factors<T> luModel(std::vector<T> a, int n)
{
    const bool unrolled = straightLine(n);
    const T tol = unrolled ? T(2) * std::numeric_limits<T>::min() : std::numeric_limits<T>::epsilon();
    Factors<T> f{kelStsNoErr, unrolled ? std::vector<T>(n * n) : a, std::vector<bool>(n, !unrolled),
                 std::vector<int>(n)};
    std::vector<int>& p = f.p;
    std::iota(p.begin(), p.end(), 0);
    auto at = [&](int row, int col) -> T& { return a[row * n + col]; };
    for (int k = 0; k < n; ++k) {
        int best = k;
        T big = std::fabs(at(p[k], k));
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(at(p[i], k)) > big) best = i, big = std::fabs(at(p[i], k));
        if (unrolled) std::swap(p[k], p[best]);
        if (unrolled ? tol > big : big <= tol) {
            f.status = kelStsSingular;
            break;
        }
        std::swap(p[k], p[unrolled ? k : best]);
        if (unrolled && k == n - 2) {
            at(p[k + 1], k) = at(p[k + 1], k) / at(p[k], k);
        } else {
            const T r = T(1) / at(p[k], k);
            for (int i = k + 1; i < n; ++i) at(p[i], k) = at(p[i], k) * r;
        }
        for (int i = k + 1; i < n; ++i)
            for (int j = k + 1; j < n; ++j) at(p[i], j) = at(p[i], j) - at(p[i], k) * at(p[k], j);
        if (unrolled) std::copy_n(&at(p[k], 0), n, &f.m[p[k] * n]), f.written[p[k]] = true;
    }
    if (!unrolled) f.m = a;
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

// ---- operands of a case --------------------------------------------------------------

// Groups in argument order: the matrix and the table first in both
// families, then dst (LUDecomp) or src2 and dst (LUBackSubst).
constexpr int kSrc = 0, kPiv = 1, kSrc2 = 2;

int sizeOf(const Case& s) { return s.sizes.at("size"); }

// Object `obj` of a matrix or vector operand, row-major.
template <class T>
std::vector<T> objectOf(const Operand& op, int obj)
{
    std::vector<T> a;
    for (int r = 0; r < op.rows; ++r)
        for (int c = 0; c < op.cols; ++c) a.push_back(T(op.get(obj, r, c)));
    return a;
}
std::vector<int> pivotsOf(const Operand& op, int obj)
{
    std::vector<int> p;
    for (int k = 0; k < op.cols; ++k) p.push_back(int32_t(op.bits(obj, 0, k)));
    return p;
}
void setPivot(Operand& op, int obj, int k, int32_t v)
{
    std::memcpy(op.arena.data() + op.offsets[op.index(obj, 0, k)], &v, 4);
}

template <class T>
std::vector<T> invertibleMatrix(int n, std::mt19937& rng)
{
    std::vector<T> a(n * n);
    do
        for (auto& x : a) x = T(std::uniform_real_distribution<double>(-4.0, 4.0)(rng));
    while (luModel<T>(a, n).status != kelStsNoErr);
    return a;
}

// ---- family hooks -------------------------------------------------------------------

// Matrices n x n, vectors and table slices of n; a table slice for each
// object of an array of matrices.
Shape luShape(const Member& m, const GroupInfo& g, const Sizes& sizes)
{
    const bool perObject =
        g.kind == "ma" || g.kind == "va" || (g.kind.find("piv") != std::string::npos && m.code.find("ma") == 0);
    const int n = sizes.at("size"), objects = perObject ? sizes.at("count") : 1;
    return {objects, g.kind[0] == 'm' ? n : 1, n};
}

// Sources that factorise; the harness's values (zeros, ties) are kept where
// they do.
void fillDecomp(Case& c, std::mt19937& rng)
{
    byElem(*c.m, [&](auto t) {
        using T = decltype(t);
        const int n = sizeOf(c);
        for (int obj = 0; obj < c.ops[kSrc].objects; ++obj)
            if (luModel<T>(objectOf<T>(c.ops[kSrc], obj), n).status != kelStsNoErr) {
                auto a = invertibleMatrix<T>(n, rng);
                for (int k = 0; k < n * n; ++k) c.ops[kSrc].set(obj, k / n, k % n, a[k]);
            }
    });
}

// Factors and tables of invertible matrices, right-hand sides as laid out.
// Now and then, in small calls, a zero on the diagonal: the solve divides
// through it to infinities and NaN without a word.
void fillSolve(Case& c, std::mt19937& rng)
{
    byElem(*c.m, [&](auto t) {
        using T = decltype(t);
        const int n = sizeOf(c);
        const bool small = !c.sizes.count("count") || c.sizes.at("count") < 10;
        for (int obj = 0; obj < c.ops[kSrc].objects; ++obj) {
            auto f = luModel<T>(invertibleMatrix<T>(n, rng), n);
            if (small && rng() % 4 == 0) f.m[f.p[n - 1] * n + n - 1] = T(0);
            for (int k = 0; k < n * n; ++k) c.ops[kSrc].set(obj, k / n, k % n, f.m[k]);
            for (int k = 0; k < n; ++k) setPivot(c.ops[kPiv], obj, k, f.p[k]);
        }
    });
}

KT_FAMILY("LUDecomp", FamilyHooks{luShape, {}, {}, fillDecomp});
KT_FAMILY("LUBackSubst", FamilyHooks{luShape, {}, {}, fillSolve});

// ---- expected results ------------------------------------------------------------------

using Blocks = std::vector<std::pair<int, int>>;  // (first object, objects)

Blocks serial(const Case& s) { return {{0, s.ops[dstGroup(*s.m)].objects}}; }

// The blocks a team of t threads computes.
Blocks teamBlocks(int count, int t)
{
    Blocks b;
    const int q = count / t, r = count % t;
    for (int k = 0; k < t; ++k)
        b.push_back(k < r ? std::pair{(q + 1) * k, q + 1} : std::pair{(q + 1) * r + (k - r) * q, q});
    return b;
}

// A factorisation run as the given serial blocks: each block stops at its
// first refused object.
void checkDecomp(const Case& s, const Blocks& blocks)
{
    const int n = sizeOf(s), dst = dstGroup(*s.m);
    Expected e(s);
    e.check(byElem(*s.m, [&](auto t) {
        using T = decltype(t);
        KelStatus status = kelStsNoErr;
        for (auto [first, count] : blocks)
            for (int obj = first; obj < first + count; ++obj) {
                auto f = luModel<T>(objectOf<T>(s.ops[kSrc], obj), n);
                for (int k = 0; k < n; ++k) e.put(kPiv, obj, 0, k, uint32_t(f.p[k]));
                for (int k = 0; k < n * n; ++k)
                    if (f.written[k / n]) e.put(dst, obj, k / n, k % n, toBits(f.m[k], sizeof(T)));
                if (f.status) {
                    status = status ? status : f.status;
                    break;
                }
            }
        return status;
    }));
}

// One matrix for every vector (mv, mva) or one each (mava).
void checkSolve(const Case& s)
{
    const Member& m = *s.m;
    const int n = sizeOf(s), dst = dstGroup(m);
    Expected e(s);
    byElem(m, [&](auto t) {
        using T = decltype(t);
        for (int obj = 0; obj < s.ops[dst].objects; ++obj) {
            const int mo = m.code == "mava" ? obj : 0;
            auto x = solveModel<T>(objectOf<T>(s.ops[kSrc], mo), pivotsOf(s.ops[kPiv], mo), n,
                                   objectOf<T>(s.ops[kSrc2], obj), m.code == "mva", s.inPlaceOf >= 0);
            for (int i = 0; i < n; ++i) e.put(dst, obj, 0, i, toBits(x[i], sizeof(T)));
        }
    });
    e.check();
}

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> shapes;
    for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12}) shapes.push_back({{"size", n}});
    return withCounts(m, shapes);
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

// ---- every member ---------------------------------------------------------------------

class LU : public ::testing::TestWithParam<std::string> {};

void check(const Case& s) { s.m->family == "LUDecomp" ? checkDecomp(s, serial(s)) : checkSolve(s); }

// In place: LUDecomp's straight-line class reads the whole matrix first, its
// general loop copies it onto itself; LUBackSubst is right at orders 3 to 6
// and its general loop overwrites the right-hand side as it goes, as the
// model does.
TEST_P(LU, MatchesModelOnEveryLayoutAndInPlace)
{
    const Member& m = member(GetParam());
    for (bool inPlace : {false, true}) sweep(m, sizeGrid(m), everyForm(), inPlace ? 500 : 1, check, inPlace);
}

// Large arrays give the serial bits in teams of every size; hundreds of
// vectors also show the reciprocals of one matrix against many vectors,
// where a division would differ in the last bit.  With refused matrices a
// serial call ends at the first, while in a team every thread stops at its
// own first failure and the others finish their blocks.
TEST_P(LU, TeamsOfEverySize)
{
    const Member& m = member(GetParam());
    if (!m.array) GTEST_SKIP() << "single object";
    struct Run {
        int n, count;
        bool refuse;
    };
    for (auto r : {Run{3, 300, false}, Run{4, 611, false}, Run{5, 150, false}, Run{6, 97, false}, Run{11, 40, false},
                   Run{4, 300, true}, Run{8, 40, true}, Run{2, 700, true}}) {
        if (r.refuse && m.family != "LUDecomp") continue;
        forEachTeamSize([&](int threads) {
            Case s = makeCase(m, {{"size", r.n}, {"count", r.count}}, Layout{Form::Random}, 40 + threads);
            for (int bad : {r.count / 30, r.count - r.count / 6})
                for (int row = 0; r.refuse && row < r.n; ++row) s.ops[kSrc].set(bad, row, r.n / 2, 0.0);
            if (r.refuse && threads > 1)
                checkDecomp(s, teamBlocks(r.count, threads));
            else
                check(s);
        });
    }
}

INSTANTIATE_TEST_SUITE_P(All, LU, ::testing::ValuesIn(memberNames({"LUDecomp", "LUBackSubst"})), paramName);

// Column k below the tolerance of either class, a tiny value in the last
// row and zeros above it: refused at step k (the last test for k = n - 1),
// after the exchange in the straight-line class and before it in the
// general loop, with the class's leftovers.  A NaN in column 0, first or
// last: never refused, never chosen unless it stands first.  In an array of
// three the first object is complete and the third untouched.
class LUDecomp : public ::testing::TestWithParam<std::string> {};

TEST_P(LUDecomp, RefusedOrNaNMatrices)
{
    const Member& m = member(GetParam());
    const double tiny = (m.elem == 4 ? std::numeric_limits<float>::min() : std::numeric_limits<double>::min()) / 128;
    uint32_t seed = 900;
    for (int n : {1, 2, 3, 4, 5, 6, 7, 9})
        for (int k = -2; k < n; ++k) {
            Sizes sizes{{"size", n}};
            if (m.array) sizes["count"] = 3;
            ++seed;
            Case s = makeCase(m, sizes, Layout{seed % 2 ? Form::Packed : Form::Random}, seed, seed % 3 == 0);
            Operand& a = s.ops[kSrc];
            const int bad = m.array ? 1 : 0;
            if (k < 0)
                a.set(bad, k == -1 ? 0 : n - 1, 0, std::numeric_limits<double>::quiet_NaN());
            else
                for (int r = 0; r < n; ++r) a.set(bad, r, k, r == n - 1 ? tiny : 0.0);
            checkDecomp(s, serial(s));
            if (HasFatalFailure()) return;
        }
}

INSTANTIATE_TEST_SUITE_P(All, LUDecomp, ::testing::ValuesIn(memberNames({"LUDecomp"})), paramName);

// ---- documented cases by hand -------------------------------------------------------------

// The work estimates at the limits: size*size*count 1000 / 1001,
// (2*count + size)*size 700 / 701, (size + 2)*size*count 1200 / 1203.
TEST(LUDriver, EstimatesAtTheLimits)
{
    for (auto [name, size, count, driver] : {std::tuple{"kelmLUDecomp_ma_32f", 10, 10, false},
                                             {"kelmLUDecomp_ma_64f_P", 1, 1001, true},
                                             {"kelmLUBackSubst_mva_64f_L", 10, 30, false},
                                             {"kelmLUBackSubst_mva_32f", 1, 350, true},
                                             {"kelmLUBackSubst_mava_32f_P", 10, 10, false},
                                             {"kelmLUBackSubst_mava_64f", 1, 401, true}}) {
        Case s = makeCase(member(name), {{"size", size}, {"count", count}}, Layout{Form::Packed}, 3);
        forceThreads(2);
        resetThreadQueries();
        EXPECT_EQ(s.run(), kelStsNoErr) << name;
        EXPECT_EQ(threadQueries(), driver ? 2 : 0) << name;
        forceThreads(0);
    }
}

template <class T>
class LUByHand : public ::testing::Test {
};
using Types = ::testing::Types<float, double>;
TYPED_TEST_SUITE(LUByHand, Types);

// Factorises a packed n x n matrix into d, which starts as -99 everywhere.
template <class T>
KelStatus decomp(const std::vector<T>& a, std::vector<int>& p, std::vector<T>& d, int n)
{
    p.assign(n, -7);
    d.assign(n * n, T(-99));
    const int e = sizeof(T);
    Call c{{{(void*)a.data(), nullptr, 0, n * e, e}, {p.data()}, {d.data(), nullptr, 0, n * e, e}, {}}, {{"size", n}}};
    return member(e == 4 ? "kelmLUDecomp_m_32f" : "kelmLUDecomp_m_64f").invoke(c);
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
// step and at the last test; the tolerances do not grow with the order.
TYPED_TEST(LUByHand, ToleranceBoundaryByClass)
{
    using T = TypeParam;
    std::vector<int> p;
    std::vector<T> d;
    for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 10})
        for (int k : {0, n - 1}) {
            const T tol = straightLine(n) ? T(2) * std::numeric_limits<T>::min() : std::numeric_limits<T>::epsilon();
            const KelStatus atTol = straightLine(n) ? kelStsNoErr : kelStsSingular;
            EXPECT_EQ(decomp(identityWith(n, k, tol), p, d, n), atTol) << n << " " << k;
            EXPECT_EQ(decomp(identityWith(n, k, -tol), p, d, n), atTol) << n << " " << k;
            EXPECT_EQ(decomp(identityWith(n, k, std::nextafter(tol, T(0))), p, d, n), kelStsSingular) << n << " " << k;
            EXPECT_EQ(decomp(identityWith(n, k, std::nextafter(tol, T(1))), p, d, n), kelStsNoErr) << n << " " << k;
        }
}

TYPED_TEST(LUByHand, Factorisations)
{
    using T = TypeParam;
    std::vector<int> p;
    std::vector<T> d;
    // Order 1: a copy and one test.
    EXPECT_EQ(decomp({std::numeric_limits<T>::epsilon()}, p, d, 1), kelStsSingular);
    EXPECT_EQ(d, std::vector<T>{std::numeric_limits<T>::epsilon()});
    // Rows (1, 2) and (-1, 3): |1| ties |-1|, the table stays 0, 1.
    EXPECT_EQ(decomp({T(1), T(2), T(-1), T(3)}, p, d, 2), kelStsNoErr);
    EXPECT_EQ(p, (std::vector<int>{0, 1}));
    EXPECT_EQ(d, (std::vector<T>{T(1), T(2), T(-1), T(5)}));
    // [[1,1,1],[2,4,2],[4,2,1]]: row 2 is the first pivot, row 1 the second,
    // and the rows stay where they are.  Row 2 = U(0) = (4, 2, 1) after a
    // reciprocal 1/4; row 1 = (1/2, 3, 3/2); row 0 = (1/4, l, 3/4 - (3/2) l),
    // where the last step divides: l = 0.5 / 3.
    EXPECT_EQ(decomp({T(1), T(1), T(1), T(2), T(4), T(2), T(4), T(2), T(1)}, p, d, 3), kelStsNoErr);
    EXPECT_EQ(p, (std::vector<int>{2, 1, 0}));
    const T l = T(0.5) / T(3);
    EXPECT_EQ(d, (std::vector<T>{T(0.25), l, T(0.75) - T(1.5) * l, T(0.5), T(3), T(1.5), T(4), T(2), T(1)}));
    // Column 0 is 0, ..., 0, min: the general loop refuses before it
    // exchanges and leaves the whole copy; the straight-line class exchanges
    // first and writes nothing.
    for (int n : {2, 3, 6, 7}) {
        std::vector<T> a = identityWith(n, 0, T(0));
        a[(n - 1) * n] = std::numeric_limits<T>::min();
        std::vector<int> want(n);
        std::iota(want.begin(), want.end(), 0);
        if (straightLine(n)) std::swap(want[0], want[n - 1]);
        EXPECT_EQ(decomp(a, p, d, n), kelStsSingular);
        EXPECT_EQ(p, want) << n;
        EXPECT_EQ(d, straightLine(n) ? std::vector<T>(n * n, T(-99)) : a) << n;
    }
}

// Factor with the library, hand its factors and table to the library's
// solve, multiply back: the residual is small against the size of the
// terms, with room for growth.
TEST(LUSolve, RoundTrip)
{
    for (std::string type : {"32f", "64f"})
        for (int n = 1; n <= 10; ++n) {
            const int count = 64;
            const Sizes sizes{{"size", n}, {"count", count}};
            Case f = makeCase(member("kelmLUDecomp_ma_" + type), sizes, Layout{}, n);
            Case x = makeCase(member("kelmLUBackSubst_mava_" + type), sizes, Layout{}, n);
            ASSERT_EQ(f.run(), kelStsNoErr);
            for (int k = 0; k < count * n * n; ++k) {
                const int o = k / (n * n), i = k / n % n, j = k % n;
                x.ops[kSrc].set(o, i, j, f.ops[dstGroup(*f.m)].get(o, i, j));
                if (j == 0) setPivot(x.ops[kPiv], o, i, int32_t(f.ops[kPiv].bits(o, 0, i)));
            }
            ASSERT_EQ(x.run(), kelStsNoErr);
            const double eps =
                type == "32f" ? std::numeric_limits<float>::epsilon() : std::numeric_limits<double>::epsilon();
            for (int o = 0; o < count; ++o) {
                double worst = 0, scale = 0;
                for (int i = 0; i < n; ++i) {
                    double r = -x.ops[kSrc2].get(o, 0, i), mag = std::fabs(r);
                    for (int j = 0; j < n; ++j) {
                        const double t = f.ops[kSrc].get(o, i, j) * x.ops[dstGroup(*x.m)].get(o, 0, j);
                        r += t, mag += std::fabs(t);
                    }
                    worst = std::max(worst, std::fabs(r)), scale = std::max(scale, mag);
                }
                EXPECT_LE(worst, 64.0 * n * eps * scale) << type << " " << n << " " << o;
            }
        }
}

}  // namespace
