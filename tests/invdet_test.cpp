// Invert and Det against plain models of the documented arithmetic, over
// every member, description, type, size and layout.  The routines that take
// the processor's reciprocal estimate (4 x 4 and block forms in packed
// single precision) are checked by their residual against the identity;
// the rest bit for bit, with what a refused matrix leaves behind.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <tuple>
#include <vector>

#include "families.h"
#include "frame/simd.h"
#include "harness.h"

namespace {

using namespace kt;

// The source is the first group; the scratch follows it in Invert and
// comes after the size in Det.
constexpr int kSrc = 0;
int bufGroup(const Member& m) { return m.family == "Det" ? 2 : 1; }

int sizeOf(const Case& s) { return s.sizes.at("size"); }

// S and L calls whose source and destination have Stride2 the element size.
bool packedCall(const Case& s)
{
    const Operand &a = s.ops[kSrc], &d = s.ops[dstGroup(*s.m)];
    return s.m->desc != "P" && a.args.s2 == a.elem && (d.info.kind == "out" || d.args.s2 == d.elem);
}

// ---- models ---------------------------------------------------------------------

// Minor over the rows and columns of two bit sets of equal size: expansion
// along the last row, columns from the last to the first, element times
// minor, a term subtracted at odd (size - 1 + position).
template <class T>
T minor(const std::vector<T>& a, int n, unsigned rows, unsigned cols)
{
    std::vector<int> c;
    for (int i = 0; i < n; ++i)
        if (cols >> i & 1u) c.push_back(i);
    int r = n - 1;
    while (!(rows >> r & 1u)) --r;
    const int k = int(c.size());
    if (k == 1) return a[r * n + c[0]];
    auto term = [&](int m) { return a[r * n + c[m]] * minor(a, n, rows & ~(1u << r), cols & ~(1u << c[m])); };
    T acc = term(k - 1);
    for (int m = k - 2; m >= 0; --m) acc = (k - 1 + m) % 2 ? acc - term(m) : acc + term(m);
    return acc;
}

template <class T>
T tolerance(int n, int c = 0)
{
    return T(c ? c : 2 * n * n * n) * std::numeric_limits<T>::min();
}

// Det.  inArray: a small pivot gives det * (0 * e).
template <class T>
T detModel(const std::vector<T>& src, int n, bool inArray)
{
    const unsigned all = (1u << n) - 1;
    if (n == 4) {
        auto m3 = [&](unsigned cols) { return minor(src, 4, 0b0111, cols); };
        const T A = m3(0b0111), B = m3(0b1011), C = m3(0b1101), D = m3(0b1110);
        return A * src[15] - B * src[14] + (T(0) - src[12]) * D + C * src[13];
    }
    if (n >= 3 && n <= 6) return minor(src, n, all, all);
    std::vector<T> a = src;
    std::vector<int> p(n);
    std::iota(p.begin(), p.end(), 0);
    const T t = tolerance<T>(n);
    T det = 1, sign = 1;
    for (int k = 0; k < n - 1; ++k) {
        int best = k;
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(a[p[i] * n + k]) > std::fabs(a[p[best] * n + k])) best = i;
        if (best != k) std::swap(p[k], p[best]), sign = -sign;
        const T v = a[p[k] * n + k];
        if (t > std::fabs(v)) {
            if (!inArray) return T(0);
            sign = 0;
            break;
        }
        for (int i = k + 1; i < n; ++i) {
            const T m = a[p[i] * n + k] / v;
            for (int j = k + 1; j < n; ++j) a[p[i] * n + j] = a[p[i] * n + j] - a[p[k] * n + j] * m;
        }
        det = det * v;
    }
    const T e = a[p[n - 1] * n + n - 1];
    return std::fabs(e) > t ? det * (sign * e) : T(0);
}

// Partial pivoting in double precision.
template <class T>
double detInDouble(const std::vector<T>& src, int n)
{
    std::vector<double> a(src.begin(), src.end());
    double det = 1;
    for (int k = 0; k < n; ++k) {
        int best = k;
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(a[i * n + k]) > std::fabs(a[best * n + k])) best = i;
        if (best != k) det = -det;
        for (int j = 0; j < n; ++j) std::swap(a[k * n + j], a[best * n + j]);
        det *= a[k * n + k];
        for (int i = k + 1; i < n && a[k * n + k] != 0; ++i)
            for (int j = n - 1; j >= k; --j) a[i * n + j] -= a[k * n + j] * (a[i * n + k] / a[k * n + k]);
    }
    return det;
}

enum class Way { Scalar, Closed, Vector3, Estimate4, Block, General };

Way wayOf(const Case& s)
{
    const int n = sizeOf(s);
    const Member& m = *s.m;
    if (n == 1) return Way::Scalar;
    if (n == 2 || n >= 7) return Way::General;
    if (m.elem == 8 || !packedCall(s)) return Way::Closed;
    if (n == 3) return m.code == "ma" && m.desc == "S" ? Way::Closed : Way::Vector3;
    return n == 4 ? Way::Estimate4 : Way::Block;
}

// What an inversion leaves: the status, the inverse (row-major) unless
// refused or only approximate, and the leftovers of a refusal.
template <class T>
struct Inverse {
    KelStatus status = kelStsNoErr;
    bool exact = true;
    std::vector<T> x;
    int scratchRows = 0;        // rows of dst holding the source's rows after a refusal
    bool zeroedWork = false;    // work element 0 set to 0
};

template <class T>
Inverse<T> invertModel(const std::vector<T>& a, int n, Way way, bool packed)
{
    Inverse<T> r;
    r.x.assign(n * n, T(0));
    auto at = [&](int j, int i) { return a[j * n + i]; };
    const unsigned all = (1u << n) - 1;
    if (way == Way::Scalar) {
        if (!(std::fabs(a[0]) > T(2) * std::numeric_limits<T>::min())) r.status = kelStsSingular;
        r.x[0] = T(1) / a[0];
    } else if (way == Way::Closed || way == Way::Vector3) {
        const T det = minor(a, n, all, all);
        const int c = sizeof(T) == 8 && packed && n <= 4 ? 4 * n * n * n : 0;
        if (tolerance<T>(n, c) > std::fabs(double(det))) r.status = kelStsSingular;
        const T rcp = way == Way::Closed ? T(1) / det : T(kel::simd::refinedReciprocal(float(det)));
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                const T m = minor(a, n, all & ~(1u << i), all & ~(1u << j));
                r.x[j * n + i] = ((i + j) % 2 ? T(0) - m : m) * rcp;
            }
    } else if (way == Way::General) {
        const T t = tolerance<T>(n);
        // Elimination of b (a copy, size x size): the product of the pivots,
        // the sign of the exchanges and the last element in table order as
        // they stand at the end, or at a small pivot, which returns false.
        auto eliminate = [&](std::vector<T> b, int size, T& prod, T& sign, T& last) {
            std::vector<int> p(size);
            std::iota(p.begin(), p.end(), 0);
            prod = 1, sign = 1;
            for (int k = 0; k + 1 < size; ++k) {
                int best = k;
                for (int i = k + 1; i < size; ++i)
                    if (std::fabs(b[p[i] * size + k]) > std::fabs(b[p[best] * size + k])) best = i;
                if (best != k) std::swap(p[k], p[best]), sign = -sign;
                const T v = b[p[k] * size + k];
                last = b[p[size - 1] * size + size - 1];
                if (t > std::fabs(double(v))) return false;
                const T rcp = T(1) / v;
                for (int i = k + 1; i < size; ++i) {
                    const T m = b[p[i] * size + k] * rcp;
                    for (int j = k + 1; j < size; ++j) b[p[i] * size + j] = b[p[i] * size + j] - b[p[k] * size + j] * m;
                }
                prod = prod * v;
            }
            last = b[p[size - 1] * size + size - 1];
            return true;
        };
        T det, sign, last;
        if (!eliminate(a, n, det, sign, last)) {
            r.status = kelStsSingular, r.zeroedWork = true;
            return r;
        }
        det = det * last * sign;
        if (t >= std::fabs(double(det))) r.status = kelStsSingular;
        const T inverse = T(1) / det;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                std::vector<T> b;
                for (int jj = 0; jj < n; ++jj)
                    for (int ii = 0; ii < n; ++ii)
                        if (jj != i && ii != j) b.push_back(at(jj, ii));
                T d, s, e;
                if (!eliminate(b, n - 1, d, s, e)) d = t;
                const T v = std::fabs(double(e)) > t ? s * e * d : t;
                r.x[j * n + i] = v * inverse * ((i + j) % 2 ? T(-1) : T(1));
            }
    } else {
        // The estimate paths: refused when no pivot is found among the
        // first row's candidates (block forms) or when the determinant
        // is below the tolerance (the tests keep clear of the boundary).
        r.exact = false;
        r.scratchRows = way == Way::Block ? n - 4 : 0;
        T big = 0;
        for (int c = 0; c < (n == 5 ? 4 : n); ++c) big = std::max(big, std::fabs(at(0, c)));
        if (tolerance<T>(n) > big || tolerance<T>(n) > std::fabs(detInDouble(a, n))) r.status = kelStsSingular;
    }
    return r;
}

// A matrix that the block forms and every tolerance accept.
template <class T>
std::vector<T> wellConditioned(int n, std::mt19937& rng)
{
    std::vector<T> a(n * n);
    for (auto& x : a) x = T(std::uniform_real_distribution<double>(-1.0, 1.0)(rng));
    for (int i = 0; i < n; ++i) a[i * n + i] = a[i * n + i] + T(a[i * n + i] < 0 ? -n : n);
    return a;
}

// Largest |A X - I| against n * eps * max |A| |X|, for results of the
// estimate paths.
template <class T>
void expectInverse(const std::vector<T>& a, const std::vector<T>& x, int n, const std::string& what)
{
    double worst = 0, scale = 0;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            double r = i == j ? -1.0 : 0.0, mag = 0;
            for (int k = 0; k < n; ++k) r += double(a[i * n + k]) * x[k * n + j], mag += std::fabs(double(a[i * n + k]) * x[k * n + j]);
            worst = std::max(worst, std::fabs(r)), scale = std::max(scale, mag);
        }
    EXPECT_LE(worst, 16.0 * n * std::numeric_limits<T>::epsilon() * scale) << what;
}

// ---- family hooks ----------------------------------------------------------------

Shape shape(const Member&, const GroupInfo& g, const Sizes& sizes)
{
    const int n = sizes.at("size"), count = sizes.count("count") ? sizes.at("count") : 1;
    if (g.kind == "buf") return {1, 1, n * (n + 1)};
    if (g.kind == "out") return {count, 1, 1};
    return {g.kind == "ma" ? count : 1, n, n};
}

// Invert: matrices the model accepts (a redraw keeps the harness's zeros
// and integers where they pass).  Det: the harness's values, and in every
// third object two equal rows, so that elimination meets exact zeros.
void fillInvert(Case& c, std::mt19937& rng)
{
    byElem(*c.m, [&](auto t) {
        using T = decltype(t);
        const int n = sizeOf(c);
        Operand& a = c.ops[kSrc];
        const Way way = wayOf(c);
        for (int obj = 0; obj < a.objects; ++obj) {
            const auto m = invertModel<T>(objectOf<T>(a, obj), n, way, packedCall(c));
            if (m.status == kelStsNoErr && m.exact) continue;
            const auto w = wellConditioned<T>(n, rng);
            for (int k = 0; k < n * n; ++k) a.set(obj, k / n, k % n, w[k]);
        }
    });
}

void fillDet(Case& c, std::mt19937& rng)
{
    Operand& a = c.ops[kSrc];
    const int n = sizeOf(c);
    for (int obj = 2; n > 1 && obj < a.objects; obj += 3) {
        const int r = int(rng() % (n - 1));
        for (int k = 0; k < n; ++k) a.set(obj, r + 1, k, a.get(obj, r, k));
    }
}

std::vector<double> detValues(const Case& s)
{
    std::vector<double> out;
    byElem(*s.m, [&](auto t) {
        using T = decltype(t);
        for (int obj = 0; obj < s.ops[kSrc].objects; ++obj)
            out.push_back(detModel<T>(objectOf<T>(s.ops[kSrc], obj), sizeOf(s), s.m->array));
    });
    return out;
}

std::vector<double> invertValues(const Case& s)
{
    std::vector<double> out;
    byElem(*s.m, [&](auto t) {
        using T = decltype(t);
        for (int obj = 0; obj < s.ops[kSrc].objects; ++obj)
            for (T x : invertModel<T>(objectOf<T>(s.ops[kSrc], obj), sizeOf(s), wayOf(s), packedCall(s)).x)
                out.push_back(x);
    });
    return out;
}

Sizes sizeThree(const Member& m, int count)
{
    Sizes s{{"size", 3}};
    if (m.has("count")) s["count"] = count;
    return s;
}

KT_FAMILY("Invert", FamilyHooks{shape, sizeThree, {}, fillInvert, nullptr, invertValues});
KT_FAMILY("Det", FamilyHooks{shape, sizeThree, {}, fillDet, nullptr, detValues});

// ---- checks -------------------------------------------------------------------------

// Runs an Invert case and checks every byte: the model's bits for exact
// paths, the residual for estimate paths, nothing written after the first
// refused object but the documented leftovers.
void checkInvert(const Case& s)
{
    const Member& m = *s.m;
    const int n = sizeOf(s), d = dstGroup(m);
    auto before = s.snapshot();
    std::vector<uint64_t> want;
    for (int k = 0; k < int(s.ops[d].offsets.size()); ++k) want.push_back(s.ops[d].bits(k / (n * n), k / n % n, k % n));
    std::vector<std::pair<int, size_t>> pinned;
    std::vector<int> approx;
    KelStatus status = byElem(m, [&](auto t) -> KelStatus {
        using T = decltype(t);
        for (int obj = 0; obj < s.ops[kSrc].objects; ++obj) {
            const auto a = objectOf<T>(s.ops[kSrc], obj);
            const auto r = invertModel<T>(a, n, wayOf(s), packedCall(s));
            if (r.status) {
                for (int k = 0; k < r.scratchRows * n; ++k) want[obj * n * n + k] = toBits(a[k], sizeof(T));
                if (r.zeroedWork) {
                    pinned.push_back({bufGroup(m), 0});
                    std::memset(before[bufGroup(m)].data() + s.ops[bufGroup(m)].offsets[0], 0, sizeof(T));
                }
                return r.status;
            }
            if (!r.exact) approx.push_back(obj);
            for (int k = 0; k < n * n; ++k) want[obj * n * n + k] = toBits(r.x[k], sizeof(T));
        }
        return kelStsNoErr;
    });
    ASSERT_EQ(s.run(), status) << describe(s);
    byElem(m, [&](auto t) {
        using T = decltype(t);
        for (int obj : approx) {
            const auto x = objectOf<T>(s.ops[d], obj);
            expectInverse<T>(objectOf<T>(s.ops[kSrc], obj), x, n, describe(s));
            for (int k = 0; k < n * n; ++k) want[obj * n * n + k] = toBits(x[k], sizeof(T));
        }
    });
    const std::string diff = compareAfterBits(s, before, want, pinned);
    ASSERT_TRUE(diff.empty()) << diff;
}

void checkDet(const Case& s)
{
    Expected e(s);
    const auto v = detValues(s);
    for (size_t k = 0; k < v.size(); ++k) e.put(dstGroup(*s.m), int(k), 0, 0, toBits(v[k], s.m->elem));
    e.check();
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

class InvDet : public ::testing::TestWithParam<std::string> {};

// Every size class on every layout, singly and in arrays.
TEST_P(InvDet, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    std::vector<Sizes> shapes;
    for (int n = 1; n <= 9; ++n) shapes.push_back({{"size", n}});
    sweep(m, withCounts(m, shapes), everyForm(), 1, m.family == "Det" ? checkDet : checkInvert);
}

// Objects that are refused (or whose determinant is zero) in the middle of
// an array, in every lane of a pack of four and of a pair: a zero column, a
// NaN in the first object.
TEST_P(InvDet, RefusedAndNaNObjects)
{
    const Member& m = member(GetParam());
    uint32_t seed = 300;
    for (int n = 1; n <= 8; ++n)
        for (int bad = 0; bad < 2; ++bad)
            for (int obj : m.array ? std::vector<int>{1, 2, 3, 4} : std::vector<int>{0}) {
                Sizes sizes{{"size", n}};
                if (m.array) sizes["count"] = 6;
                Case s = makeCase(m, sizes, Layout{obj % 2 ? Form::Random : Form::Gapless}, ++seed);
                const bool estimate = wayOf(s) == Way::Estimate4 || wayOf(s) == Way::Block;
                for (int r = 0; r < n; ++r)
                    s.ops[kSrc].set(obj, r, n / 2, bad || estimate ? 0.0 : r == n - 1 ? 1e-30 : 0.0);
                if (m.array && n < 4) s.ops[kSrc].set(0, 0, 0, std::numeric_limits<double>::quiet_NaN());
                if (m.family == "Det") checkDet(s);
                else checkInvert(s);
                if (HasFatalFailure()) return;
            }
}

INSTANTIATE_TEST_SUITE_P(All, InvDet, ::testing::ValuesIn(memberNames({"Invert", "Det"})), paramName);

// ---- by hand -----------------------------------------------------------------------------

// A packed or strided 1-object call of `name` on the n x n matrix a (row
// major); returns the status and fills out (Invert: n x n; Det: one value).
template <class T>
KelStatus call(const std::string& name, const std::vector<T>& a, int n, std::vector<T>& out, bool strided = false)
{
    const Member& m = member(name);
    const int e = sizeof(T), s2 = strided ? 2 * e : e;
    auto at = [&](int k) { return (k / n) * n * s2 / e + (k % n) * s2 / e; };
    std::vector<T> src(2 * n * n), buf(n * (n + 1)), dst(2 * n * n, T(-99));
    std::vector<void*> ps(n * n), pd(n * n), os{src.data()}, od{dst.data()};
    for (int k = 0; k < n * n; ++k) src[at(k)] = a[k], ps[k] = &src[at(k)], pd[k] = &dst[at(k)];
    auto group = [&](T* p, std::vector<void*>& elems, std::vector<void*>& objects) {
        if (m.desc == "P") return CallGroup{nullptr, elems.data(), e};
        return CallGroup{p, m.desc == "L" ? objects.data() : nullptr, 2 * n * n * e, n * s2, s2};
    };
    const bool det = m.family == "Det";
    Call c;
    c.g = {group(src.data(), ps, os), CallGroup{buf.data()}, det ? CallGroup{dst.data()} : group(dst.data(), pd, od)};
    if (det) c.g.insert(c.g.begin() + 1, CallGroup{});
    c.sizes = {{"size", n}};
    if (m.array) c.sizes["count"] = 1;
    const KelStatus st = m.invoke(c);
    out.clear();
    for (int k = 0; k < (det ? 1 : n * n); ++k) out.push_back(dst[det ? 0 : at(k)]);
    return st;
}

template <class T>
std::vector<T> diag(int n, T first)
{
    std::vector<T> a(n * n, T(0));
    for (int i = 0; i < n; ++i) a[i * n + i] = T(1);
    a[0] = first;
    return a;
}

template <class T>
class ByHand : public ::testing::Test {};
using Types = ::testing::Types<float, double>;
TYPED_TEST_SUITE(ByHand, Types);

// The determinant at the tolerance: closed forms refuse below it, the
// elimination at it and below; order 1 refuses 2M and NaN.
TYPED_TEST(ByHand, InvertToleranceBoundaries)
{
    using T = TypeParam;
    const std::string type = sizeof(T) == 4 ? "32f" : "64f";
    std::vector<T> x;
    for (int n = 1; n <= 8; ++n) {
        const T t = n == 1 ? T(2) * std::numeric_limits<T>::min() : tolerance<T>(n);
        const bool inclusive = n <= 2 || n >= 7;
        for (std::string name : {"kelmInvert_m_" + type + "_P", "kelmInvert_ma_" + type + "_L"}) {
            EXPECT_EQ(call(name, diag(n, t), n, x, true), inclusive ? kelStsSingular : kelStsNoErr) << name << n;
            EXPECT_EQ(call(name, diag(n, std::nextafter(t, T(0))), n, x, true), kelStsSingular) << name << n;
            EXPECT_EQ(call(name, diag(n, std::nextafter(t, T(1))), n, x, true), kelStsNoErr) << name << n;
        }
    }
    EXPECT_EQ(call("kelmInvert_m_" + type, diag(1, std::numeric_limits<T>::quiet_NaN()), 1, x), kelStsSingular);
    // diag(2, 4) at order 2: the zero cofactors come out as t * (1/8).
    ASSERT_EQ(call("kelmInvert_m_" + type, std::vector<T>{2, 0, 0, 4}, 2, x), kelStsNoErr);
    EXPECT_EQ(x, (std::vector<T>{T(0.5), -tolerance<T>(2) / 8, -tolerance<T>(2) / 8, T(0.25)}));
}

// |det| = 60 M at order 3 in double precision: the packed routine's
// tolerance is 108 M, the strided and P kernels' 54 M.  A first row
// (0, 0, 0, 0, 1) at order 5 in single precision: the packed block form
// finds no pivot among columns 0 to 3; the closed forms invert.
TEST(InvertByHand, PackedDiffersFromStrided)
{
    std::vector<double> x;
    const auto a = diag(3, 60 * std::numeric_limits<double>::min());
    EXPECT_EQ(call("kelmInvert_m_64f", a, 3, x), kelStsSingular);
    EXPECT_EQ(x, std::vector<double>(9, -99));
    EXPECT_EQ(call("kelmInvert_m_64f", a, 3, x, true), kelStsNoErr);
    EXPECT_EQ(call("kelmInvert_m_64f_P", a, 3, x), kelStsNoErr);

    std::mt19937 rng(5);
    auto b = wellConditioned<float>(5, rng);
    std::vector<float> y;
    for (int i = 0; i < 5; ++i) b[i] = i == 4 ? 1.0f : 0.0f;
    b[20] = b[20] + 5.0f;
    EXPECT_EQ(call("kelmInvert_m_32f", b, 5, y), kelStsSingular);
    EXPECT_EQ(std::vector<float>(y.begin(), y.begin() + 5), std::vector<float>(b.begin(), b.begin() + 5));
    EXPECT_EQ(std::vector<float>(y.begin() + 5, y.end()), std::vector<float>(20, -99.0f));
    EXPECT_EQ(call("kelmInvert_m_32f", b, 5, y, true), kelStsNoErr);
    expectInverse(b, y, 5, "strided");
}

// Elimination by hand: [[1, 2], [3, 4]] pivots on 3 and divides, so the
// result is 3 * -(2 - 4 * (1/3)) and not -2; a permutation needing an odd
// number of exchanges gives -1; pivots below 16 M give 0 at order 2, while
// order 3 returns the closed form's tiny value; 2M at order 1 gives 0.
TYPED_TEST(ByHand, DetByHand)
{
    using T = TypeParam;
    const std::string name = sizeof(T) == 4 ? "kelmDet_m_32f" : "kelmDet_m_64f_P";
    const T M = std::numeric_limits<T>::min();
    std::vector<T> d;
    call(name, std::vector<T>{1, 2, 3, 4}, 2, d);
    EXPECT_EQ(d[0], T(3) * (T(-1) * (T(2) - T(4) * (T(1) / T(3)))));
    std::vector<T> p(49, T(0));
    for (int i = 0; i < 7; ++i) p[i * 7 + (i + 1) % 7] = T(1);  // a 7-cycle: even
    call(name, p, 7, d);
    EXPECT_EQ(d[0], T(1));
    std::swap_ranges(p.begin(), p.begin() + 7, p.begin() + 7);
    call(name, p, 7, d);
    EXPECT_EQ(d[0], T(-1));
    call(name, std::vector<T>{8 * M, 0, 0, 1}, 2, d);
    EXPECT_EQ(d[0], T(0));
    call(name, diag(3, 8 * M), 3, d);
    EXPECT_EQ(d[0], 8 * M);
    call(name, std::vector<T>{2 * M}, 1, d);
    EXPECT_EQ(d[0], T(0));
    call(name, std::vector<T>{std::nextafter(2 * M, T(1))}, 1, d);
    EXPECT_EQ(d[0], std::nextafter(2 * M, T(1)));
}

// A null pBuffer is refused at every size, also where it is not used.
TEST(InvDetByHand, NullScratchAtEverySize)
{
    for (const auto& name : memberNames({"Invert", "Det"}))
        for (int n : {1, 2, 3, 4, 7}) {
            const Member& m = member(name);
            Case s = makeCase(m, m.array ? Sizes{{"size", n}, {"count", 2}} : Sizes{{"size", n}}, Layout{}, n);
            Call c = s.call();
            c.g[bufGroup(m)].p = nullptr;
            EXPECT_EQ(m.invoke(c), kelStsNullPointer) << name << " " << n;
        }
}

// 4 x 4 pairs (objects and rows 16 bytes apart on 16-byte boundaries) give
// the bits of the single routine; a refused object leaves its pair
// unwritten and everything after it.
TEST(InvertByHand, PairsOfFourByFour)
{
    const int count = 5;
    alignas(16) float src[count][16], dst[count][16], one[16];
    float buf[20];
    std::mt19937 rng(9);
    for (int bad = -1; bad < count; ++bad) {
        for (int k = 0; k < count; ++k) {
            auto w = wellConditioned<float>(4, rng);
            for (int i = 0; i < 16; ++i) src[k][i] = k == bad && i % 4 == 2 ? 0.0f : w[i], dst[k][i] = -99;
        }
        const KelStatus st = kelmInvert_ma_32f(&src[0][0], 64, 16, 4, buf, &dst[0][0], 64, 16, 4, 4, count);
        EXPECT_EQ(st, bad < 0 ? kelStsNoErr : kelStsSingular);
        const int written = bad < 0 ? count : bad & ~1;
        for (int k = 0; k < count; ++k) {
            std::fill(one, one + 16, -99.0f);
            if (k < written) {
                ASSERT_EQ(kelmInvert_m_32f(src[k], 16, 4, buf, one, 16, 4, 4), kelStsNoErr);
            }
            EXPECT_EQ(std::memcmp(one, dst[k], sizeof one), 0) << bad << " " << k;
        }
    }
}

}  // namespace
