// CholeskyDecomp, CholeskyBackSubst, QRDecomp and QRBackSubst against plain
// models of their arithmetic, over every member, description, type, shape
// and layout, in place and in teams; what a refused matrix leaves behind;
// the tolerances at their boundaries; solves that really solve.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "families.h"
#include "frame/simd.h"
#include "harness.h"

namespace {

using namespace kt;

bool straightLine(int n) { return n >= 3 && n <= 6; }
bool isCholesky(const Member& m) { return m.family.rfind("Cholesky", 0) == 0; }
bool isDecomp(const Member& m) { return m.family.find("Decomp") != std::string::npos; }

template <class T>
void setObject(Operand& op, int obj, const std::vector<T>& a, bool lowerOnly = false)
{
    for (int r = 0; r < op.rows; ++r)
        for (int c = 0; c < op.cols; ++c)
            if (!lowerOnly || c <= r) op.set(obj, r, c, a[r * op.cols + c]);
}

// ---- reference models ------------------------------------------------------------

// A factorisation's result: status, dst elements (row-major) and which of
// them the call writes.
template <class T>
struct Factor {
    KelStatus status = kelStsNoErr;
    std::vector<T> a;
    std::vector<bool> written;
};

template <class T>
T invSqrtModel(T s)
{
    if constexpr (sizeof(T) == 4) return kel::simd::rsqrtRefined(s);
    else return 1.0 / std::sqrt(s);
}

// By rows; each off-diagonal stored at once, the diagonal (as 1 / L(i,i))
// once its step passed: s at or below the tolerance is refused.
template <class T>
Factor<T> cholModel(const std::vector<T>& a, int n, double tol)
{
    Factor<T> f{kelStsNoErr, std::vector<T>(n * n), std::vector<bool>(n * n)};
    auto l = [&](int i, int k) -> T& { return f.a[i * n + k]; };
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < i; ++j) {
            T s = a[i * n + j];
            for (int k = 0; k < j; ++k) s = s - l(i, k) * l(j, k);
            l(i, j) = s * l(j, j);
            f.written[i * n + j] = true;
        }
        T s = a[i * n + i];
        for (int k = 0; k < i; ++k) s = s - l(i, k) * l(i, k);
        if (s <= T(tol)) {
            f.status = kelStsNotPositiveDefinite;
            break;
        }
        l(i, i) = invSqrtModel(s);
        f.written[i * n + i] = true;
    }
    return f;
}

// Forward with j ascending; backward from j = n-1 down at orders 3 to 6,
// from j = i+1 up otherwise.
template <class T>
std::vector<T> cholSolveModel(const std::vector<T>& l, int n, const std::vector<T>& b)
{
    std::vector<T> y(n), x(n);
    for (int i = 0; i < n; ++i) {
        T s = b[i];
        for (int j = 0; j < i; ++j) s = s - l[i * n + j] * y[j];
        y[i] = s * l[i * n + i];
    }
    for (int i = n - 1; i >= 0; --i) {
        T s = y[i];
        if (straightLine(n))
            for (int j = n - 1; j > i; --j) s = s - l[j * n + i] * x[j];
        else
            for (int j = i + 1; j < n; ++j) s = s - l[j * n + i] * x[j];
        x[i] = s * l[i * n + i];
    }
    return x;
}

int reflections(int w, int h) { return w == h ? w - 1 : w; }

// Householder steps on a copy (every element written); a squared column
// norm strictly below the tolerance is refused.
template <class T>
Factor<T> qrModel(std::vector<T> a, int w, int h)
{
    const double tol = sizeof(T) == 4 ? 0x1p-23 : 0x1p-52;
    auto at = [&](int i, int c) -> T& { return a[i * w + c]; };
    std::vector<T> v(h);
    for (int k = 0; k < reflections(w, h); ++k) {
        T n2 = 0;
        for (int i = k; i < h; ++i) n2 = n2 + at(i, k) * at(i, k);
        if (tol > std::fabs(double(n2))) return {kelStsDivideByZero, a, std::vector<bool>(w * h, true)};
        T n = T(std::sqrt(double(n2)));
        if (!(at(k, k) > 0)) n = -n;
        const T r = T(1) / (n + at(k, k));
        T q = 1;
        v[k] = 1;
        for (int i = k + 1; i < h; ++i) v[i] = at(i, k) * r, q = q + v[i] * v[i];
        const T tau = T(-2) / q;
        for (int c = k; c < w; ++c) {
            T t = at(k, c);
            for (int i = k + 1; i < h; ++i) t = t + at(i, c) * v[i];
            t = t * tau;
            for (int i = k; i < h; ++i) at(i, c) = at(i, c) + v[i] * t;
        }
        for (int i = k + 1; i < h; ++i) at(i, k) = v[i];
    }
    return {kelStsNoErr, a, std::vector<bool>(w * h, true)};
}

template <class T>
std::vector<T> qrSolveModel(const std::vector<T>& a, int w, int h, std::vector<T> z)
{
    for (int k = 0; k < reflections(w, h); ++k) {
        T d = z[k], q = 1;
        for (int i = k + 1; i < h; ++i) d = d + z[i] * a[i * w + k], q = q + a[i * w + k] * a[i * w + k];
        const T t = (T(-2) / q) * d;
        z[k] = z[k] + t;
        for (int i = k + 1; i < h; ++i) z[i] = z[i] + a[i * w + k] * t;
    }
    std::vector<T> x(w);
    x[w - 1] = z[w - 1] / a[(w - 1) * w + w - 1];
    for (int i = w - 2; i >= 0; --i) {
        T u = 0;
        for (int j = i + 1; j < w; ++j) u = u + a[i * w + j] * x[j];
        x[i] = (z[i] - u) / a[i * w + i];
    }
    return x;
}

// ---- operands of a case ------------------------------------------------------------

// Groups in argument order: src first; Cholesky src (src2) dst, QR src
// pBuffer (src2) dst.
constexpr int kSrc = 0;
int src2Group(const Member& m) { return isCholesky(m) ? 1 : 2; }

int sizeOr(const Sizes& s, const char* name) { return s.count(name) ? s.at(name) : 1; }
int widthOf(const Case& s) { return isCholesky(*s.m) ? s.sizes.at("size") : s.sizes.at("width"); }
int heightOf(const Case& s) { return isCholesky(*s.m) ? s.sizes.at("size") : s.sizes.at("height"); }

Shape factorShape(const Member& m, const GroupInfo& g, const Sizes& sizes)
{
    const int w = isCholesky(m) ? sizes.at("size") : sizes.at("width");
    const int h = isCholesky(m) ? w : sizes.at("height");
    const int objects = g.kind == "ma" || g.kind == "va" ? sizeOr(sizes, "count") : 1;
    if (g.kind == "buf") return {1, 1, h};
    if (g.kind[0] == 'm') return {objects, h, w};
    return {objects, 1, g.isWritten() ? w : h};
}

// Symmetric positive definite: B B^T + n I with B's elements in [-1, 1].
template <class T>
std::vector<T> spdMatrix(int n, std::mt19937& rng)
{
    std::uniform_real_distribution<double> u(-1, 1);
    std::vector<double> b(n * n);
    for (auto& x : b) x = u(rng);
    std::vector<T> a(n * n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            double s = i == j ? n : 0;
            for (int k = 0; k < n; ++k) s += b[i * n + k] * b[j * n + k];
            a[i * n + j] = T(s);
        }
    return a;
}

template <class T>
std::vector<T> fullRankMatrix(int w, int h, std::mt19937& rng)
{
    // A wide shape has no full rank to find (the call refuses it anyway).
    std::vector<T> a(w * h);
    for (int tries = 0; tries < 100; ++tries) {
        for (auto& x : a) x = T(std::uniform_real_distribution<double>(-4, 4)(rng));
        if (w > h || qrModel(a, w, h).status == kelStsNoErr) break;
    }
    return a;
}

// Decompositions get matrices they accept (Cholesky: lower triangle only,
// every other object with NaN above the diagonal, which must not matter);
// the harness's values stay where QR accepts them.  Solves get factors of
// such matrices.
void fillFactors(Case& c, std::mt19937& rng)
{
    const Member& m = *c.m;
    const int w = widthOf(c), h = heightOf(c);
    byElem(m, [&](auto t) {
        using T = decltype(t);
        Operand& a = c.ops[kSrc];
        for (int obj = 0; obj < a.objects; ++obj) {
            if (isCholesky(m)) {
                auto spd = spdMatrix<T>(w, rng);
                if (isDecomp(m)) {
                    if (obj % 2)
                        for (int k = 0; k < w * w; ++k)
                            if (k % w > k / w) spd[k] = std::numeric_limits<T>::quiet_NaN();
                    setObject(a, obj, spd, obj % 2 == 0);
                } else {
                    setObject(a, obj, cholModel(spd, w, 0.0).a, true);
                }
            } else if (isDecomp(m)) {
                if (qrModel(objectOf<T>(a, obj), w, h).status) setObject(a, obj, fullRankMatrix<T>(w, h, rng));
            } else {
                setObject(a, obj, qrModel(fullRankMatrix<T>(w, h, rng), w, h).a);
            }
        }
    });
}

// The tolerance of a Cholesky step for a case: P kernels at order 3; the
// strided S array kernel in double when it runs alone, at order 6 and in
// the general loop.
double cholTolerance(const Case& s, bool forked)
{
    const Member& m = *s.m;
    const int n = widthOf(s), d = dstGroup(m);
    if (m.desc == "P") return n == 3 ? 0x1p-23 : 0.0;
    const bool strided = s.ops[kSrc].args.s2 != m.elem || s.ops[d].args.s2 != m.elem;
    const bool loopOr6 = n == 6 || !straightLine(n);
    return m.desc == "S" && m.array && m.elem == 8 && strided && !forked && loopOr6 ? 0x1p-52 : 0.0;
}

template <class T>
Factor<T> decompModel(const Case& s, int obj, bool forked)
{
    const int w = widthOf(s), h = heightOf(s);
    auto a = objectOf<T>(s.ops[kSrc], obj);
    return isCholesky(*s.m) ? cholModel(a, w, cholTolerance(s, forked)) : qrModel(a, w, h);
}

template <class T>
std::vector<T> solveModel(const Case& s, int obj)
{
    const Member& m = *s.m;
    const int mo = m.code == "mava" ? obj : 0, w = widthOf(s), h = heightOf(s);
    auto a = objectOf<T>(s.ops[kSrc], mo);
    auto b = objectOf<T>(s.ops[src2Group(m)], obj);
    return isCholesky(m) ? cholSolveModel(a, w, b) : qrSolveModel(a, w, h, b);
}

// Every dst element of a successful serial call, for the generic team tests.
std::vector<double> model(const Case& s)
{
    const Operand& dst = s.ops[dstGroup(*s.m)];
    std::vector<double> out;
    byElem(*s.m, [&](auto t) {
        using T = decltype(t);
        for (int obj = 0; obj < dst.objects; ++obj) {
            if (isDecomp(*s.m)) {
                const auto f = decompModel<T>(s, obj, false);
                for (size_t k = 0; k < f.a.size(); ++k)
                    out.push_back(f.written[k] ? f.a[k] : dst.get(obj, k / dst.cols, k % dst.cols));
            } else {
                for (T x : solveModel<T>(s, obj)) out.push_back(x);
            }
        }
    });
    return out;
}

Sizes qrSizes(const Member&, int count) { return {{"width", 3}, {"height", 4}, {"count", count}}; }
std::vector<Sizes> qrMismatch(const Member&, const Sizes& valid) { return {{{"width", valid.at("height") + 1}}}; }

KT_FAMILY("CholeskyDecomp", FamilyHooks{factorShape, {}, {}, fillFactors, nullptr, model});
KT_FAMILY("CholeskyBackSubst", FamilyHooks{factorShape, {}, {}, fillFactors, nullptr, model});
KT_FAMILY("QRDecomp", FamilyHooks{factorShape, qrSizes, qrMismatch, fillFactors, nullptr, model});
KT_FAMILY("QRBackSubst", FamilyHooks{factorShape, qrSizes, qrMismatch, fillFactors, nullptr, model});

// ---- expected results ---------------------------------------------------------------

// A decomposition run as the given blocks (one block: serial), each block
// stopping at its first refused object.
void checkDecomp(const Case& s, const Blocks& blocks)
{
    const int d = dstGroup(*s.m);
    const bool forked = blocks.size() > 1;
    Expected e(s);
    e.check(byElem(*s.m, [&](auto t) {
        using T = decltype(t);
        KelStatus status = kelStsNoErr;
        for (auto [first, count] : blocks)
            for (int obj = first; obj < first + count; ++obj) {
                const auto f = decompModel<T>(s, obj, forked);
                const int cols = s.ops[d].cols;
                for (size_t k = 0; k < f.a.size(); ++k)
                    if (f.written[k]) e.put(d, obj, k / cols, k % cols, toBits(f.a[k], sizeof(T)));
                if (f.status) {
                    status = status ? status : f.status;
                    break;
                }
            }
        return status;
    }));
}

void checkSolve(const Case& s)
{
    const int d = dstGroup(*s.m);
    Expected e(s);
    byElem(*s.m, [&](auto t) {
        using T = decltype(t);
        for (int obj = 0; obj < s.ops[d].objects; ++obj) {
            const auto x = solveModel<T>(s, obj);
            for (size_t i = 0; i < x.size(); ++i) e.put(d, obj, 0, i, toBits(x[i], sizeof(T)));
        }
    });
    e.check();
}

void check(const Case& s) { isDecomp(*s.m) ? checkDecomp(s, {{0, s.ops[dstGroup(*s.m)].objects}}) : checkSolve(s); }

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> shapes;
    if (isCholesky(m))
        for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12}) shapes.push_back({{"size", n}});
    else
        for (auto [w, h] : {std::pair{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}, {7, 7}, {3, 4}, {4, 6}, {2, 7},
                            {1, 3}, {5, 9}})
            shapes.push_back({{"width", w}, {"height", h}});
    return withCounts(m, shapes);
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

const std::vector<std::string> kFamilies{"CholeskyDecomp", "CholeskyBackSubst", "QRDecomp", "QRBackSubst"};

// ---- every member --------------------------------------------------------------------

class CholQR : public ::testing::TestWithParam<std::string> {};

// In place wherever dst has the shape of a source: Cholesky reads each
// element before its own place is written, QR copies onto itself.
TEST_P(CholQR, MatchesModelOnEveryLayoutAndInPlace)
{
    const Member& m = member(GetParam());
    const bool inPlace = isCholesky(m) || isDecomp(m);
    std::vector<Form> forms = everyForm();
    forms.push_back(Form::Planes);   // objects side by side
    sweep(m, sizeGrid(m), forms, 1, check);
    if (inPlace) sweep(m, sizeGrid(m), forms, 500, check, true);
}

INSTANTIATE_TEST_SUITE_P(All, CholQR, ::testing::ValuesIn(memberNames(kFamilies)), paramName);

// Refused objects: a Cholesky row with nothing left on its diagonal, a QR
// column of zeros.  A serial call ends at the first refused object with the
// rows (Cholesky) or reflections (QR) before the refused step done; in a
// team every thread stops at its own first one and the others finish.
class Refusals : public ::testing::TestWithParam<std::string> {};

TEST_P(Refusals, StopAtTheFirstRefusedObject)
{
    const Member& m = member(GetParam());
    struct Run {
        int w, h, count;
    };
    const std::vector<Run> runs = isCholesky(m) ? std::vector<Run>{{1, 1, 3}, {3, 3, 300}, {6, 6, 97}, {8, 8, 40}, {2, 2, 700}}
                                                : std::vector<Run>{{1, 2, 3}, {4, 4, 300}, {3, 5, 200}, {8, 9, 40}};
    for (auto r : runs) {
        const int count = m.array ? r.count : 1;
        const int team = m.array ? 7 : 1;
        forEachTeamSize([&](int threads) {
            if (threads > team) return;
            Sizes sizes = isCholesky(m) ? Sizes{{"size", r.w}} : Sizes{{"width", r.w}, {"height", r.h}};
            if (m.array) sizes["count"] = count;
            for (Form form : {threads % 2 ? Form::Packed : Form::Random, Form::Planes}) {
                Case s = makeCase(m, sizes, Layout{form}, 40 + threads);
                for (int bad : {count / 30, count - 1 - count / 6}) {
                    const int k = (bad + r.w / 2) % std::max(1, reflections(r.w, r.h));
                    for (int i = 0; i < r.h; ++i)
                        for (int j = 0; j < r.w; ++j)
                            if (isCholesky(m) ? i == k && j <= k : j == k) s.ops[kSrc].set(bad, i, j, 0.0);
                }
                bool packed = true;
                for (const Operand& op : s.ops) packed &= op.info.isSize() || op.args.s2 == 0 || op.args.s2 == m.elem;
                const int32_t limit = packed ? m.limitPacked : m.limitStrided;
                const bool forked = m.array && threads > 1 && count >= threads && evalEstimate(m.estimate, sizes) >= limit;
                checkDecomp(s, forked ? teamBlocks(count, threads) : Blocks{{0, count}});
            }
        });
        if (HasFatalFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Refusals, ::testing::ValuesIn(memberNames({"CholeskyDecomp", "QRDecomp"})), paramName);

// ---- tolerances by hand ---------------------------------------------------------------------

// One matrix, lower triangle given, in a Cholesky decomposition member
// (count 1 for arrays): the status, and whether the call was strided.
std::pair<KelStatus, bool> cholStatus(const std::string& name, int n, const std::vector<double>& a, Form form)
{
    const Member& m = member(name);
    Sizes sizes{{"size", n}};
    if (m.array) sizes["count"] = 1;
    Case s = makeCase(m, sizes, Layout{form}, 5);
    for (int k = 0; k < n * n; ++k) s.ops[kSrc].set(0, k / n, k % n, a[k]);
    const bool strided = s.ops[kSrc].args.s2 != m.elem || s.ops[dstGroup(m)].args.s2 != m.elem;
    return {s.run(), strided};
}

std::vector<double> diagonal(int n, int at, double v)
{
    std::vector<double> a(n * n, 0.0);
    for (int i = 0; i < n; ++i) a[i * n + i] = i == at ? v : 1.0;
    return a;
}

// Zero refused everywhere; 1e-10 at order 3 refused by P kernels only, in
// both types; 2^-23 at order 3 refused by P kernels and its successor
// accepted; 1e-20 at order 6 and 2^-52 at order 7 refused only by the
// strided S array kernel in double.
TEST(CholeskyTolerance, ByKernel)
{
    enum Who { All, P, Strict, None };
    for (const auto& name : memberNames({"CholeskyDecomp"})) {
        const Member& m = member(name);
        for (Form form : {Form::Packed, Form::Strided}) {
            auto expect = [&](int n, int at, double v, Who who) {
                const auto [st, strided] = cholStatus(name, n, diagonal(n, at, v), form);
                const bool refused = who == All || (who == P && m.desc == "P") ||
                                     (who == Strict && m.desc == "S" && m.array && m.elem == 8 && strided);
                EXPECT_EQ(st, refused ? kelStsNotPositiveDefinite : kelStsNoErr)
                    << name << " n=" << n << " row " << at << " value " << v << (strided ? " strided" : " packed");
            };
            for (int n : {1, 2, 3, 4, 6, 7}) expect(n, n - 1, 0.0, All);
            expect(3, 1, 1e-10, P);
            expect(3, 2, 0x1p-23, P);
            expect(3, 0, m.elem == 4 ? std::nextafter(0x1p-23f, 1.0f) : std::nextafter(0x1p-23, 1.0), None);
            expect(4, 2, 1e-10, None);
            if (m.elem == 8) {
                expect(6, 5, 1e-20, Strict);
                expect(7, 3, 0x1p-52, Strict);
                expect(2, 1, std::nextafter(0x1p-52, 1.0), None);
                expect(5, 4, 1e-20, None);
            }
        }
    }
}

// A NaN on the diagonal passes and fills the factor with NaN; order 1 of 4
// stores 1/2, not 2.
TEST(CholeskyByHand, NaNAndOrderOne)
{
    for (std::string t : {"32f", "64f"}) {
        EXPECT_EQ(cholStatus("kelmCholeskyDecomp_m_" + t, 3, diagonal(3, 1, NAN), Form::Packed).first, kelStsNoErr);
        Case s = makeCase(member("kelmCholeskyDecomp_m_" + t), {{"size", 1}}, Layout{Form::Packed}, 3);
        s.ops[kSrc].set(0, 0, 0, 4.0);
        ASSERT_EQ(s.run(), kelStsNoErr);
        EXPECT_NEAR(s.ops[dstGroup(*s.m)].get(0, 0, 0), 0.5, t == "32f" ? 1e-7 : 0.0) << t;
    }
}

// One QR decomposition by hand: status and dst.
template <class T>
KelStatus qr(int w, int h, const std::vector<T>& a, std::vector<T>* out = nullptr)
{
    Case s = makeCase(member(sizeof(T) == 4 ? "kelmQRDecomp_m_32f" : "kelmQRDecomp_m_64f"),
                      {{"width", w}, {"height", h}}, Layout{Form::Packed}, 9);
    setObject(s.ops[kSrc], 0, a);
    const KelStatus st = s.run();
    if (out) *out = objectOf<T>(s.ops[dstGroup(*s.m)], 0);
    return st;
}

template <class T>
class QRByHand : public ::testing::Test {};
using Types = ::testing::Types<float, double>;
TYPED_TEST_SUITE(QRByHand, Types);

// The squared norm equal to the tolerance passes, the next value below it
// fails; the tolerance is absolute, so a tiny but invertible 2 x 2 fails; a
// zero column fails even where it is the only one; a 1 x 1 matrix is copied,
// even 0; a zero on the diagonal takes the negative sign, so R(0,0) of
// [[0, 1], [1, 0]] is 1 and the reflector's tail -1.
TYPED_TEST(QRByHand, TolerancesAndSigns)
{
    using T = TypeParam;
    const bool f = sizeof(T) == 4;
    // float: 2^-24 + 2^-24; double: 2^-52 + 0.
    const T x = f ? T(0x1p-12) : T(0x1p-26), y = f ? x : T(0);
    EXPECT_EQ(qr<T>(1, 2, {x, y}), kelStsNoErr);
    EXPECT_EQ(qr<T>(1, 2, {x, f ? std::nextafter(y, T(0)) : y}), f ? kelStsDivideByZero : kelStsNoErr);
    EXPECT_EQ(qr<T>(1, 2, {std::nextafter(x, T(0)), y}), kelStsDivideByZero);
    const T tiny = f ? T(1e-5) : T(1e-9);
    EXPECT_EQ(qr<T>(2, 2, {tiny, T(1), tiny, T(2)}), kelStsDivideByZero);
    EXPECT_EQ(qr<T>(2, 2, {T(0), T(1), T(0), T(2)}), kelStsDivideByZero);
    EXPECT_EQ(qr<T>(1, 2, {T(0), T(0)}), kelStsDivideByZero);
    std::vector<T> d;
    EXPECT_EQ(qr<T>(1, 1, {T(0)}, &d), kelStsNoErr);
    EXPECT_EQ(d, std::vector<T>{T(0)});
    EXPECT_EQ(qr<T>(2, 2, {T(0), T(1), T(1), T(0)}, &d), kelStsNoErr);
    EXPECT_EQ(d[0], T(1));
    EXPECT_EQ(d[2], T(-1));
    // Singular only in the last column of a square matrix: never tested.
    EXPECT_EQ(qr<T>(2, 2, {T(1), T(1), T(1), T(1)}, &d), kelStsNoErr);
}

// ---- solves that solve ------------------------------------------------------------------------

// Factor with the library, hand the factors to the library's solve (mava):
// Cholesky leaves a small residual A x - b; QR's x meets the normal
// equations A^T (A x - b) = 0, both against the size of their terms.
TEST(CholQRSolve, RoundTrips)
{
    struct Run {
        const char* family;
        int w, h;
    };
    for (std::string type : {"32f", "64f"})
        for (auto r : {Run{"Cholesky", 1, 1}, Run{"Cholesky", 4, 4}, Run{"Cholesky", 6, 6}, Run{"Cholesky", 9, 9},
                       Run{"QR", 3, 3}, Run{"QR", 4, 6}, Run{"QR", 2, 7}, Run{"QR", 8, 8}}) {
            const bool chol = r.family[0] == 'C';
            const int count = 32;
            Sizes sizes = chol ? Sizes{{"size", r.w}} : Sizes{{"width", r.w}, {"height", r.h}};
            sizes["count"] = count;
            Case f = makeCase(member("kelm" + std::string(r.family) + "Decomp_ma_" + type), sizes, Layout{}, r.w);
            Case x = makeCase(member("kelm" + std::string(r.family) + "BackSubst_mava_" + type), sizes, Layout{}, r.h);
            Operand& a = f.ops[kSrc];
            std::mt19937 rng(r.h);
            for (int o = 0; o < count; ++o)
                for (int i = 0; i < r.h; ++i)
                    for (int j = 0; j < r.w; ++j)
                        if (!chol)  // well conditioned
                            a.set(o, i, j, std::uniform_real_distribution<double>(-4, 4)(rng));
                        else if (j > i)  // the whole symmetric matrix, for the residual
                            a.set(o, i, j, a.get(o, j, i));
            ASSERT_EQ(f.run(), kelStsNoErr);
            const Operand& fd = f.ops[dstGroup(*f.m)];
            for (int o = 0; o < count; ++o)
                for (int i = 0; i < r.h; ++i)
                    for (int j = 0; j < r.w; ++j) x.ops[kSrc].set(o, i, j, fd.get(o, i, j));
            ASSERT_EQ(x.run(), kelStsNoErr);
            const Operand& b = x.ops[src2Group(*x.m)];
            const Operand& sol = x.ops[dstGroup(*x.m)];
            const double eps = type == "32f" ? 0x1p-23 : 0x1p-52;
            for (int o = 0; o < count; ++o) {
                std::vector<double> res(r.h), mag(r.h);
                for (int i = 0; i < r.h; ++i) {
                    res[i] = -b.get(o, 0, i), mag[i] = std::fabs(res[i]);
                    for (int j = 0; j < r.w; ++j) {
                        const double t = a.get(o, i, j) * sol.get(o, 0, j);
                        res[i] += t, mag[i] += std::fabs(t);
                    }
                }
                for (int j = 0; j < (chol ? r.h : r.w); ++j) {
                    double v = res[j], scale = mag[j];
                    if (!chol) {  // column j of A^T times the residual
                        v = 0, scale = 0;
                        for (int i = 0; i < r.h; ++i)
                            v += a.get(o, i, j) * res[i], scale += std::fabs(a.get(o, i, j)) * mag[i];
                    }
                    EXPECT_LE(std::fabs(v), 64.0 * r.h * eps * scale) << type << " " << r.family << " " << r.w << "x"
                                                                       << r.h << " object " << o << " row " << j;
                }
            }
        }
}

}  // namespace
