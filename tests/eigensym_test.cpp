// EigenValuesSym and EigenValuesVectorsSym against a plain model of the
// documented steps, kernel class by kernel class (arithmetic, tolerances,
// skip tests, reciprocal rotations, where singularity is tested), over every
// member, description, layout, size and both iteration directions, serially
// and in teams; real eigenpairs of random symmetric matrices; the documented
// special matrices by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "families.h"
#include "harness.h"
#include "lanesum_model.h"

namespace {

using namespace kt;

constexpr int kSrc = 0, kBuf = 1;
constexpr double kE32 = 1.1920928955078125e-07, kE52 = 2.220446049250313e-16;

bool withVectors(const Member& m) { return m.family == "EigenValuesVectorsSym"; }
int valuesGroup(const Member& m) { return withVectors(m) ? 3 : 2; }
int sizeOf(const Case& s) { return s.sizes.at("size"); }
int objectsOf(const Case& s) { return s.ops[kSrc].objects; }

// ---- kernel classes ------------------------------------------------------------------

struct Rules {
    bool wide;          // 32-bit storage, 64-bit arithmetic
    double eps, epsDet, epsReduce, epsSingular;
    bool skip, reciprocal, afterSort;
    bool lanes;  // the right application's row sums in lanes, aligned on the row of A
};

Rules rulesOf(const Case& s)
{
    const Member& m = *s.m;
    const bool vec = withVectors(m), arr = m.array, f32 = m.elem == 4;
    bool packed = m.desc != "P";
    for (int g : {kSrc, vec ? 2 : kSrc}) packed = packed && s.ops[g].args.s2 == m.elem;
    Rules r;
    r.wide = f32 && vec && arr;
    r.eps = r.epsDet = r.epsReduce = r.epsSingular = f32 ? kE32 : kE52;
    if (f32 && !vec && arr && m.desc == "S" && packed) r.epsDet = kE52;
    if (f32 && vec && arr && m.desc == "L" && packed) r.epsReduce = kE52;
    if (!f32 && vec && arr) r.epsSingular = kE32;
    r.skip = arr;
    r.reciprocal = vec && arr;
    r.afterSort = vec && !arr && !(f32 && m.desc == "S" && !packed);
    r.lanes = f32 && !vec;
    return r;
}

// ---- the model -------------------------------------------------------------------------

// One object from the documented steps.  a: the matrix, row-major; w and v:
// the values' run and the vector matrix as they are before the call, left as
// the call leaves them.  T is the stored type, C the arithmetic.
template <class T, class C>
KelStatus model(const Rules& R, int n, std::vector<T> a, std::vector<T>& w, std::vector<T>& v, bool vec,
                uintptr_t work)
{
    const C eps = C(R.eps), epsR = C(R.epsReduce);
    auto A = [&](int i, int j) -> T& { return a[i * n + j]; };
    auto V = [&](int i, int j) -> T& { return v[i * n + j]; };
    auto rt = [](C x) { return C(std::sqrt(double(x))); };
    if (n == 1) {
        w[0] = A(0, 0);
        if (vec) V(0, 0) = T(1);
        return kelStsNoErr;
    }
    if (n == 2) {
        C a0 = A(0, 0), b = A(0, 1), c = A(1, 1);
        C det = a0 * c - b * b;
        if (std::fabs(det) <= C(R.epsDet)) return kelStsSingular;
        C diff = a0 - c, off = 2 * b, r = rt(diff * diff + off * off), t = c + a0, s1 = 1;
        if (t > eps) {
            w[0] = T((r + t) * C(0.5));
            w[1] = T((a0 * c - b * b) / C(w[0]));
        } else if (t < -eps) {
            w[0] = T((t - r) * C(0.5));
            w[1] = T((a0 * c - b * b) / C(w[0]));
            s1 = -1;
        } else {
            w[0] = T(C(0.5) * r);
            w[1] = T(C(-0.5) * r);
        }
        if (!vec) return kelStsNoErr;
        C s2 = diff < -eps ? -1 : 1, ww = diff < -eps ? diff - r : diff + r, p, q;
        if (std::fabs(ww) > std::fabs(off)) {
            C u = -off / ww;
            q = 1 / rt(u * u + 1);
            p = u * q;
        } else if (std::fabs(off) <= eps) {
            p = 1, q = 0;
        } else {
            C u = -ww / off;
            p = 1 / rt(u * u + 1);
            q = u * p;
        }
        if (s1 == s2) std::tie(p, q) = std::make_tuple(-q, p);
        V(0, 0) = T(p), V(1, 0) = T(q), V(0, 1) = T(-q), V(1, 1) = T(p);
        return kelStsNoErr;
    }
    if (vec)
        for (int i = 0; i < n * n; ++i) v[i] = T(i % (n + 1) == 0);
    for (int k = 1; k <= n - 2; ++k) {
        C s = 0;
        for (int i = k; i < n; ++i) s = s + C(A(i, k - 1)) * C(A(i, k - 1));
        C norm = rt(s), x = A(k, k - 1), vtv;
        if (R.skip && (s <= epsR || std::fabs(norm - x) <= epsR)) continue;
        for (int i = k + 1; i < n; ++i) w[i] = A(i, k - 1);
        if (x > epsR) w[k] = T(x + norm), vtv = (x * norm + s) * 2;
        else if (std::fabs(x) <= epsR) w[k] = T(norm), vtv = s + s;
        else w[k] = T(x - norm), vtv = (s - x * norm) * 2;
        if (vtv <= epsR) continue;
        C beta = 2 / vtv;
        for (int j = k - 1; j < n; ++j) {
            C sum = 0;
            for (int i = k; i < n; ++i) sum = sum + C(A(i, j)) * C(w[i]);
            for (int i = k; i < n; ++i) A(i, j) = T(C(A(i, j)) - C(w[i]) * (beta * sum));
        }
        for (int i = k - 1; i < n; ++i) {
            C sum = 0;
            if constexpr (std::is_same<C, float>::value)
                if (R.lanes) sum = laneSumModel(&w[k], &A(i, k), n - k, work + (i * n + k) * sizeof(T));
            for (int j = k; j < n && !(R.lanes && std::is_same<C, float>::value); ++j) sum = sum + C(A(i, j)) * C(w[j]);
            for (int j = k; j < n; ++j) A(i, j) = T(C(A(i, j)) - C(w[j]) * (beta * sum));
        }
        if (vec && k == 1) {
            for (int i = 1; i < n; ++i)
                for (int j = i; j < n; ++j)
                    V(i, j) = V(j, i) = T(i == j ? 1 - beta * C(w[i]) * C(w[i]) : -beta * C(w[i]) * C(w[j]));
        } else if (vec) {
            for (int i = 1; i < n; ++i) {
                C sum = 0;
                for (int j = k; j < n; ++j) sum = sum + C(w[j]) * C(V(i, j));
                for (int j = k; j < n; ++j) V(i, j) = T(C(V(i, j)) - C(w[j]) * (beta * sum));
            }
        }
    }
    auto d = [&](int i) -> T& { return A(i, i); };
    auto e = [&](int i) -> T& { return A(i + 1, i); };
    // Rotation of columns i, i+1; up: the ascending direction.
    auto rotate = [&](int i, C f, C g, C r, bool up, C& s, C& c) {
        const C inv = 1 / r;
        s = R.reciprocal ? f * inv : f / r;
        c = R.reciprocal ? g * inv : g / r;
        for (int q = 0; vec && q < n; ++q) {
            C x = V(q, i), y = V(q, i + 1), cc = c, ss = s;
            if (R.reciprocal) x = x * inv, y = y * inv, cc = g, ss = f;
            V(q, i) = T(up ? cc * x - ss * y : cc * x + ss * y);
            V(q, i + 1) = T(up ? cc * y + ss * x : cc * y - ss * x);
        }
    };
    C prod = 1;
    if (std::fabs(C(d(n - 1))) > std::fabs(C(d(0)))) {
        for (int l = 0; l < n; ++l)
            for (int iter = 0;; ++iter) {
                int m = l;
                while (m < n - 1 && !(std::fabs(C(0.5) * C(e(m))) <= eps)) ++m;
                if (m == l) break;
                if (iter == 30) return kelStsNoConvergence;
                C g = (C(d(l + 1)) - C(d(l))) / (2 * C(e(l))), r = rt(g * g + 1);
                g = C(d(m)) - C(d(l)) + C(e(l)) / (g > eps ? g + r : g - r);
                C s = 1, c = 1, p = 0;
                int i;
                for (i = m - 1; i >= l; --i) {
                    C f = s * C(e(i)), b = c * C(e(i));
                    r = rt(f * f + g * g);
                    if (i != m - 1) e(i + 1) = T(r);
                    if (std::fabs(r) <= eps) {
                        d(i + 1) = T(C(d(i + 1)) - p), e(m - 1) = T(0);
                        break;
                    }
                    rotate(i, f, g, r, true, s, c);
                    g = C(d(i + 1)) - p;
                    r = (C(d(i)) - g) * s + 2 * c * b;
                    p = s * r;
                    d(i + 1) = T(g + p);
                    g = c * r - b;
                }
                if (std::fabs(r) <= eps && i >= 0) continue;
                d(l) = T(C(d(l)) - p), e(l) = T(g);
            }
        for (int i = 0; i < n; ++i) w[i] = d(i), prod = prod * C(d(i));
    } else {
        for (int l = n - 1; l >= 0; --l)
            for (int iter = 0;; ++iter) {
                int m = l;
                while (m > 0 && !(std::fabs(C(0.5) * C(e(m - 1))) <= eps)) --m;
                if (m > 0) w[m] = d(m), prod = prod * C(d(m));
                if (m == l) break;
                if (iter == 30) return kelStsNoConvergence;
                C g = (C(d(l - 1)) - C(d(l))) / (2 * C(e(l - 1))), r = rt(g * g + 1);
                g = C(d(m)) - C(d(l)) + C(e(l - 1)) / (g > eps ? g + r : g - r);
                C s = 1, c = 1, p = 0;
                for (int i = m; i < l; ++i) {
                    C f = s * C(e(i)), b = c * C(e(i));
                    r = rt(f * f + g * g);
                    if (i != m) e(i - 1) = T(r);
                    if (std::fabs(r) <= eps) {
                        d(i) = T(C(d(i)) - p), e(m) = T(0);
                        break;
                    }
                    rotate(i, f, g, r, false, s, c);
                    g = C(d(i)) - p;
                    r = (C(d(i + 1)) - g) * s + 2 * c * b;
                    p = s * r;
                    d(i) = T(g + p);
                    g = c * r - b;
                }
                if (std::fabs(r) <= eps) continue;
                e(l - 1) = T(g), d(l) = T(C(d(l)) - p);
            }
        w[0] = d(0), prod = prod * C(d(0));
    }
    const bool singular = std::fabs(prod) <= C(R.epsSingular);
    if (singular && !R.afterSort) return kelStsSingular;
    for (int i = 0; i + 1 < n; ++i) {
        int best = i;
        for (int j = i + 1; j < n; ++j)
            if (w[j] > w[best]) best = j;
        std::swap(w[i], w[best]);
        for (int q = 0; vec && q < n; ++q) std::swap(V(q, i), V(q, best));
    }
    return singular ? kelStsSingular : kelStsNoErr;
}

// Object `obj` of an operand as stored, bit for bit.
template <class T>
std::vector<T> storedObject(const Operand& op, int obj)
{
    std::vector<T> a;
    for (int r = 0; r < op.rows; ++r)
        for (int c = 0; c < op.cols; ++c) {
            const uint64_t b = op.bits(obj, r, c);
            T x;
            std::memcpy(&x, &b, sizeof x);
            a.push_back(x);
        }
    return a;
}

// Runs objects [first, first + count) through the model as one serial block
// and records what they leave in e.  Returns the block's status.
KelStatus modelBlock(const Case& s, Expected& e, int first, int count)
{
    const Member& m = *s.m;
    const Rules R = rulesOf(s);
    const bool vec = withVectors(m);
    const int n = sizeOf(s), vg = valuesGroup(m);
    return byElem(m, [&](auto t) -> KelStatus {
        using T = decltype(t);
        for (int obj = first; obj < first + count; ++obj) {
            std::vector<T> w = storedObject<T>(s.ops[vg], obj), v = vec ? storedObject<T>(s.ops[2], obj) : std::vector<T>();
            const auto a = storedObject<T>(s.ops[kSrc], obj);
            const auto work = reinterpret_cast<uintptr_t>(s.ops[kBuf].args.p);
            const KelStatus st =
                R.wide ? model<T, double>(R, n, a, w, v, vec, work) : model<T, T>(R, n, a, w, v, vec, work);
            auto bits = [](T x) {
                uint64_t b = 0;
                std::memcpy(&b, &x, sizeof x);
                return b;
            };
            for (int i = 0; i < n; ++i) e.put(vg, obj, 0, i, bits(w[i]));
            for (int i = 0; vec && i < n * n; ++i) e.put(2, obj, i / n, i % n, bits(v[i]));
            if (st) return st;
        }
        return kelStsNoErr;
    });
}

// The case against the model, run serially or in a team of `threads`.  The
// failures of a team are all of one kind here, so its status is known.
void checkModel(const Case& s, int threads = 1)
{
    Expected e(s);
    const int count = objectsOf(s);
    const bool team = threads > 1 && s.m->array && count >= threads &&
                      evalEstimate(s.m->estimate, s.sizes) >= s.m->limitPacked;
    KelStatus status = kelStsNoErr;
    const int q = count / threads, r = count % threads;
    for (int k = 0; k < (team ? threads : 1); ++k) {
        const KelStatus st = team ? modelBlock(s, e, k < r ? (q + 1) * k : (q + 1) * r + (k - r) * q, k < r ? q + 1 : q)
                                  : modelBlock(s, e, 0, count);
        status = status ? status : st;
    }
    e.check(status);
}

// ---- family hooks -------------------------------------------------------------------------

Shape symShape(const Member& m, const GroupInfo& g, const Sizes& sizes)
{
    const int n = sizes.at("size"), count = m.array ? sizes.at("count") : 1;
    if (g.kind == "buf") return {1, 1, n * n};
    if (g.kind == "out") return {count, 1, n};
    return {count, n, n};
}

// Symmetric matrices of several kinds, object by object: random; A[0][0]
// zero or large, which sends the iteration up or down; diagonal; singular
// (a repeated row and column); scaled identity.
enum Kind { Random, Up, Down, Diagonal, Singular, Small, Zero, NaN, Kinds };

void setSymmetric(Operand& op, int obj, int n, Kind kind, std::mt19937& rng)
{
    std::uniform_real_distribution<double> u(-4.0, 4.0);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j) {
            double x = kind == Small ? (i == j) * 0.001 : kind == Zero || (kind == Diagonal && i != j) ? 0.0 : randomValue(rng, op.elem);
            if (kind == Random && rng() % 3 == 0) x = u(rng);
            op.set(obj, i, j, x);
            op.set(obj, j, i, x);
        }
    if (kind == NaN) op.set(obj, n / 2, n / 2, std::numeric_limits<double>::quiet_NaN());
    if (kind == Up) op.set(obj, 0, 0, 0.0);
    if (kind == Down) op.set(obj, 0, 0, 100.0);
    if (kind == Singular && n > 1)
        for (int i = 0; i < n; ++i) op.set(obj, n - 1, i, op.get(obj, 0, i)), op.set(obj, i, n - 1, op.get(obj, i, 0));
    if (kind == Singular && n > 1) op.set(obj, n - 1, n - 1, op.get(obj, 0, 0));
}

void fillSym(Case& c, std::mt19937& rng)
{
    for (int obj = 0; obj < objectsOf(c); ++obj) {
        const int k = rng() % (3 * Kinds);  // mostly random matrices
        setSymmetric(c.ops[kSrc], obj, sizeOf(c), k < Kinds ? Kind(k) : k < 2 * Kinds ? Up : Random, rng);
    }
}

KT_FAMILY("EigenValuesSym", FamilyHooks{symShape, {}, {}, fillSym});
KT_FAMILY("EigenValuesVectorsSym", FamilyHooks{symShape, {}, {}, fillSym});

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

class Sym : public ::testing::TestWithParam<std::string> {};

// Every member, description, layout, size 1 to 9 and some larger, with
// arrays of 1, 2 and 5 objects of every kind of matrix.
TEST_P(Sym, MatchesModel)
{
    const Member& m = member(GetParam());
    std::vector<Sizes> shapes;
    for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 17}) shapes.push_back({{"size", n}});
    forceThreads(1);  // large arrays reach the driver: here it runs them serially
    for (int rep = 0; rep < 3; ++rep) sweep(m, withCounts(m, shapes), everyForm(), 100 * rep + 1, [](Case& s) { checkModel(s); });
    forceThreads(0);
}

// Arrays large enough to fork: each thread's block stops at its own first
// failure; serially the first failure ends the call.  Orders up to 8 keep
// every row sum plain, so where a thread's scratch lies does not matter.
TEST_P(Sym, TeamsOfEverySize)
{
    const Member& m = member(GetParam());
    if (!m.array) GTEST_SKIP() << "single object";
    for (int n : {3, 5, 8})
        for (bool fail : {false, true})
            forEachTeamSize([&](int threads) {
                Case s = makeCase(m, {{"size", n}, {"count", 120}}, Layout{Form::Random}, 7 * n + threads);
                std::mt19937 rng(n);
                for (int obj = 0; obj < 120; ++obj)
                    setSymmetric(s.ops[kSrc], obj, n, fail && (obj == 3 || obj == 80) ? Zero : Random, rng);
                checkModel(s, threads);
            });
}

INSTANTIATE_TEST_SUITE_P(All, Sym, ::testing::ValuesIn(memberNames({"EigenValuesSym", "EigenValuesVectorsSym"})),
                         paramName);

}  // namespace

namespace {

// ---- eigenpairs ----------------------------------------------------------------------------

// Random symmetric matrices through the single and array members of both
// types: values sorted descending from order 3, A v = lambda v and
// orthonormal columns to a tolerance of the type.
TEST(SymProperties, EigenpairsOfRandomMatrices)
{
    for (std::string name : {"kelmEigenValuesVectorsSym_m_32f", "kelmEigenValuesVectorsSym_m_64f_P",
                             "kelmEigenValuesVectorsSym_ma_32f_L", "kelmEigenValuesVectorsSym_ma_64f",
                             "kelmEigenValuesSym_m_32f", "kelmEigenValuesSym_ma_64f_P"})
        for (int n = 1; n <= 9; ++n) {
            const Member& m = member(name);
            Sizes sizes{{"size", n}};
            if (m.array) sizes["count"] = 4;
            Case s = makeCase(m, sizes, Layout{Form::Random}, 300 + n);
            std::mt19937 rng(n);
            for (int obj = 0; obj < objectsOf(s); ++obj) setSymmetric(s.ops[kSrc], obj, n, Random, rng);
            ASSERT_EQ(s.run(), kelStsNoErr) << describe(s);
            const double tol = (m.elem == 4 ? 2e-5 : 1e-13) * n;
            const Operand &a = s.ops[kSrc], &w = s.ops[valuesGroup(m)];
            for (int obj = 0; obj < objectsOf(s); ++obj) {
                double scale = 1;
                for (int i = 0; i < n; ++i) scale = std::max(scale, std::fabs(w.get(obj, 0, i)));
                for (int j = 0; n > 2 && j + 1 < n; ++j) EXPECT_GE(w.get(obj, 0, j), w.get(obj, 0, j + 1)) << name;
                for (int j = 0; withVectors(m) && j < n; ++j) {
                    const Operand& v = s.ops[2];
                    for (int i = 0; i < n; ++i) {
                        double av = -w.get(obj, 0, j) * v.get(obj, i, j), dot = -(i == j);
                        for (int k = 0; k < n; ++k)
                            av += a.get(obj, i, k) * v.get(obj, k, j), dot += v.get(obj, k, i) * v.get(obj, k, j);
                        EXPECT_NEAR(av, 0.0, tol * scale) << name << " n " << n << " column " << j;
                        EXPECT_NEAR(dot, 0.0, tol) << name << " n " << n << " columns " << i << ", " << j;
                    }
                }
            }
        }
}

// ---- the documented special matrices ----------------------------------------------------------

struct Special {
    std::string member;
    int n;
    std::vector<double> a;  // row-major
    KelStatus status;
    std::vector<double> values;  // empty: none written if singular, not looked at otherwise
};

// Runs one matrix through a packed (or strided) single-object call.
void runSpecial(const Special& c, Form form)
{
    const Member& m = member(c.member);
    Sizes sizes{{"size", c.n}};
    if (m.array) sizes["count"] = 1;
    Case s = makeCase(m, sizes, Layout{form}, 17);
    for (int k = 0; k < c.n * c.n; ++k) s.ops[kSrc].set(0, k / c.n, k % c.n, c.a[k]);
    const Operand& w = s.ops[valuesGroup(m)];
    const auto before = w.arena;
    ASSERT_EQ(s.run(), c.status) << c.member;
    if (c.values.empty() && c.status == kelStsSingular) {
        EXPECT_TRUE(w.arena == before) << c.member << ": values written";
    }
    for (size_t i = 0; i < c.values.size(); ++i) EXPECT_EQ(w.get(0, 0, int(i)), c.values[i]) << c.member << " " << i;
}

TEST(SymSpecial, DocumentedMatrices)
{
    const std::vector<double> diag = {2, 0, 0, 0, 5, 0, 0, 0, 3}, singular = {1, 0, 0, 0, 0, 0, 0, 0, 2},
                              milli = {0.001, 0, 0, 0, 0.001, 0, 0, 0, 0.001};
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Special> cases = {
        // Diagonal: every reduction step passes over, sorted values.
        {"kelmEigenValuesVectorsSym_m_64f", 3, diag, kelStsNoErr, {5, 3, 2}},
        {"kelmEigenValuesSym_ma_32f_P", 3, diag, kelStsNoErr, {5, 3, 2}},
        // Zero of order 2 is singular with nothing written; of order 1 it is fine.
        {"kelmEigenValuesSym_m_32f", 2, {0, 0, 0, 0}, kelStsSingular, {}},
        {"kelmEigenValuesVectorsSym_ma_64f_L", 2, {0, 0, 0, 0}, kelStsSingular, {}},
        {"kelmEigenValuesSym_m_64f", 1, {0}, kelStsNoErr, {0}},
        // A negative trace of order 2 puts the larger magnitude, the smaller value, first.
        {"kelmEigenValuesSym_m_64f", 2, {-3, 0, 0, -1}, kelStsNoErr, {-3, -1}},
        // Singular of order 3: values in iteration order, except single
        // matrices with vectors, which sort before they report.
        {"kelmEigenValuesSym_m_64f", 3, singular, kelStsSingular, {1, 0, 2}},
        {"kelmEigenValuesSym_ma_32f", 3, singular, kelStsSingular, {1, 0, 2}},
        {"kelmEigenValuesVectorsSym_m_64f", 3, singular, kelStsSingular, {2, 1, 0}},
        {"kelmEigenValuesVectorsSym_m_32f_P", 3, singular, kelStsSingular, {2, 1, 0}},
        {"kelmEigenValuesVectorsSym_ma_64f_P", 3, singular, kelStsSingular, {1, 0, 2}},
        // 0.001 I: the 64-bit vector arrays judge with the 32-bit tolerance.
        {"kelmEigenValuesVectorsSym_ma_64f", 3, milli, kelStsSingular, {0.001, 0.001, 0.001}},
        {"kelmEigenValuesVectorsSym_m_64f", 3, milli, kelStsNoErr, {0.001, 0.001, 0.001}},
        {"kelmEigenValuesSym_ma_64f", 3, milli, kelStsNoErr, {0.001, 0.001, 0.001}},
        // A NaN never lets a value split off.
        {"kelmEigenValuesSym_m_64f", 3, {1, 2, 0, 2, nan, 1, 0, 1, 3}, kelStsNoConvergence, {}},
    };
    for (auto& c : cases) runSpecial(c, Form::Packed);
    // The strided kernel of the 32-bit single member with vectors tests before it sorts.
    runSpecial({"kelmEigenValuesVectorsSym_m_32f", 3, singular, kelStsSingular, {1, 0, 2}}, Form::Strided);
    runSpecial({"kelmEigenValuesVectorsSym_m_32f", 3, singular, kelStsSingular, {2, 1, 0}}, Form::Packed);
}

// Results that reach the matrices of later objects: the vectors of object k
// over the matrix of object k+1, or the values' run over the matrices.  Each
// object reads what the objects before it wrote, as calls of one object each
// in turn do (objects taken several at a time would read theirs first).
TEST(SymOverlap, LaterMatricesReadWhatEarlierObjectsWrote)
{
    forceThreads(1);
    const int count = 9;
    auto run = [&](auto zero, bool vectors, bool valuesOverMatrices, int n) {
        using T = decltype(zero);
        const int E = sizeof(T), row = n * E, obj = n * row;
        std::mt19937 rng(n);
        std::uniform_real_distribution<double> u(-2.0, 2.0);
        std::vector<T> mem((count + 2) * n * n), vals(count * n), scratch(n * n);
        for (int k = 0; k < count + 2; ++k)
            for (int i = 0; i < n; ++i)
                for (int j = 0; j <= i; ++j) mem[k * n * n + i * n + j] = mem[k * n * n + j * n + i] = T(u(rng));
        // Vectors over the next object's matrix, or values over the matrices
        // from object 1 on.
        auto call = [&](std::vector<T>& m, std::vector<T>& w, int first, int objects) {
            const T* src = m.data() + first * n * n;
            T* vec = m.data() + (first + 1) * n * n;
            T* val = valuesOverMatrices ? m.data() + n * n + first * n : w.data() + first * n;
            if constexpr (sizeof(T) == 8)
                return vectors ? kelmEigenValuesVectorsSym_ma_64f(src, obj, row, E, scratch.data(), vec, obj, row, E, val, n, objects)
                               : kelmEigenValuesSym_ma_64f(src, obj, row, E, scratch.data(), val, n, objects);
            else
                return kelmEigenValuesVectorsSym_ma_32f(src, obj, row, E, scratch.data(), vec, obj, row, E, val, n, objects);
        };
        std::vector<T> wantMem = mem, wantVals = vals;
        KelStatus want = kelStsNoErr;
        for (int k = 0; k < count && !want; ++k) want = call(wantMem, wantVals, k, 1);
        EXPECT_EQ(call(mem, vals, 0, count), want);
        EXPECT_EQ(std::memcmp(mem.data(), wantMem.data(), mem.size() * E), 0) << n << (vectors ? " vectors" : "");
        EXPECT_EQ(std::memcmp(vals.data(), wantVals.data(), vals.size() * E), 0) << n << (vectors ? " vectors" : "");
    };
    for (int n : {3, 6}) {
        run(0.0, true, false, n);
        run(0.0f, true, false, n);
        run(0.0, false, true, n);
    }
    forceThreads(0);
}

}  // namespace
