// Add and Sub against a plain model, over every member, description, type,
// size and layout.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

// The logical element (j, i) of object n of the operand standing for letter
// `code` ("ma", "t", "c", ...).
double logical(const Operand& op, const std::string& code, int n, int j, int i)
{
    const bool array = code.size() == 2;
    const int obj = array ? n : 0;
    if (code[0] == 'c') return array ? op.get(n, 0, 0) : op.value;
    if (code[0] == 'v') return op.get(obj, 0, i);
    if (code[0] == 't') return op.get(obj, i, j);
    return op.get(obj, j, i);
}

// Groups standing for the letters of the operand code, in operation order.
std::vector<int> operandGroups(const Member& m)
{
    std::vector<int> out;
    std::vector<bool> used(m.groups.size(), false);
    for (auto& letter : splitCode(m.code)) {
        for (size_t k = 0; k < m.groups.size(); ++k) {
            if (!used[k] && m.groups[k].kind == letter && !m.groups[k].isWritten()) {
                used[k] = true;
                out.push_back(static_cast<int>(k));
                break;
            }
        }
    }
    return out;
}

template <class T>
T combine(const std::string& family, T a, T b)
{
    return family == "Sub" ? a - b : a + b;
}

// The model: one rounded operation per element, left operand first.
std::vector<double> model(const Case& s)
{
    const Member& m = *s.m;
    auto ops = operandGroups(m);
    auto letters = splitCode(m.code);
    const Operand& dst = s.ops[dstGroup(m)];
    std::vector<double> out(dst.offsets.size());
    for (int n = 0; n < dst.objects; ++n)
        for (int j = 0; j < dst.rows; ++j)
            for (int i = 0; i < dst.cols; ++i) {
                double a = logical(s.ops[ops[0]], letters[0], n, j, i);
                double b = logical(s.ops[ops[1]], letters[1], n, j, i);
                out[dst.index(n, j, i)] = m.elem == 4 ? combine<float>(m.family, float(a), float(b))
                                                      : combine<double>(m.family, a, b);
            }
    return out;
}

// Runs one setup and checks every byte.
void runAndCompare(Case& s) { expectResult(s, model(s)); }

std::vector<std::map<std::string, int>> sizeGrid(const Member& m)
{
    std::vector<std::map<std::string, int>> out;
    const bool array = m.has("count");
    std::vector<int> counts = array ? std::vector<int>{1, 2, 5, 13} : std::vector<int>{1};
    for (int c : counts) {
        if (m.has("len")) {
            for (int len : {1, 2, 3, 4, 5, 6, 7, 8, 9, 17}) out.push_back({{"len", len}, {"count", c}});
        } else {
            for (int k = 1; k <= 9; ++k) out.push_back({{"width", k}, {"height", k}, {"count", c}});
            for (auto wh : {std::pair{3, 4}, {4, 3}, {2, 5}, {7, 3}, {1, 6}, {6, 1}, {9, 2}, {5, 6}})
                out.push_back({{"width", wh.first}, {"height", wh.second}, {"count", c}});
        }
    }
    if (!array)
        for (auto& s : out) s.erase("count");
    return out;
}

class Elementwise : public ::testing::TestWithParam<std::string> {};

TEST_P(Elementwise, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    sweep(m, sizeGrid(m), everyForm(), 1, [&](Case& s) { runAndCompare(s); });
}

TEST_P(Elementwise, InPlaceWithTheSameLayout)
{
    const Member& m = member(GetParam());
    uint32_t seed = 1000;
    for (auto& sizes : sizeGrid(m)) {
        for (Form form : {Form::Packed, Form::Random}) {
            Case s = makeCase(m, sizes, Layout{form}, seed++, true);
            if (s.inPlaceOf < 0) GTEST_SKIP() << "no source shares the result's shape";
            runAndCompare(s);
            if (HasFatalFailure()) return;
        }
    }
}

// NaN stays in its own element; a NaN in the single operand reaches every object.
TEST_P(Elementwise, NaNStaysInItsElement)
{
    const Member& m = member(GetParam());
    std::map<std::string, int> sizes = validSizes(m, 4);
    Case s = makeCase(m, sizes, Layout{Form::Random}, 5);
    auto ops = operandGroups(m);
    Operand& first = s.ops[ops[0]];
    first.set(0, 0, 0, std::numeric_limits<double>::quiet_NaN());
    runAndCompare(s);
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

KT_FAMILY("Add", FamilyHooks{elementwiseShape, {}, {}, {}, nullptr, model});
KT_FAMILY("Sub", FamilyHooks{elementwiseShape, {}, {}, {}, nullptr, model});

INSTANTIATE_TEST_SUITE_P(Add, Elementwise, ::testing::ValuesIn(memberNames({"Add"})), paramName);
INSTANTIATE_TEST_SUITE_P(Sub, Elementwise, ::testing::ValuesIn(memberNames({"Sub"})), paramName);

// The constant on the left is that very subtraction, not a negated one.
TEST(Sub, ConstantOnTheLeft)
{
    const float src[3] = {1, 2, 3};
    float cv[3], vc[3];
    ASSERT_EQ(kelmSub_cv_32f(src, 4, 1.0f, cv, 4, 3), kelStsNoErr);
    ASSERT_EQ(kelmSub_vc_32f(src, 4, 1.0f, vc, 4, 3), kelStsNoErr);
    EXPECT_EQ(cv[0], 0.0f);
    EXPECT_FALSE(std::signbit(cv[0]));  // 1 - 1 is +0; -(1 - 1) would be -0
    EXPECT_EQ(cv[1], -1.0f);
    EXPECT_EQ(cv[2], -2.0f);
    EXPECT_EQ(vc[1], 1.0f);
    EXPECT_EQ(vc[2], 2.0f);
}

// With NaN on both sides the left operand's payload survives.
TEST(Sub, LeftNaNPayloadWins)
{
    auto nan = [](uint64_t payload) {
        uint64_t b = 0x7ff8000000000000ull | payload;
        double d;
        std::memcpy(&d, &b, 8);
        return d;
    };
    const double left = nan(0x1234), right = nan(0x5678);
    const double v[4] = {right, right, right, right};
    double out[4];
    ASSERT_EQ(kelmSub_cv_64f(v, 8, left, out, 8, 4), kelStsNoErr);
    uint64_t got;
    std::memcpy(&got, &out[3], 8);
    EXPECT_EQ(got & 0xffff, 0x1234u);
    ASSERT_EQ(kelmSub_vc_64f(v, 8, left, out, 8, 4), kelStsNoErr);
    std::memcpy(&got, &out[3], 8);
    EXPECT_EQ(got & 0xffff, 0x5678u);
}

}  // namespace

namespace {

// A result one object further on than its left operand, objects side by
// side: each object reads what the one before it wrote, as in the plain
// object-by-object loop, in both types (the lanes would read them all first).
TEST(Add, OverlappingResultGoesObjectByObject)
{
    kt::forceThreads(1);
    const int count = 11, w = 4, h = 3, span = count + 1;
    auto run = [&](auto zero) {
        using T = decltype(zero);
        const int e = sizeof(T);
        std::vector<T> a(w * h * span), b(w * h * count);
        for (size_t k = 0; k < a.size(); ++k) a[k] = T(0.25 * (k % 13) + 1);
        for (size_t k = 0; k < b.size(); ++k) b[k] = T(1.0 / (3 + k % 7));
        std::vector<T> want = a;
        for (int n = 0; n < count; ++n)
            for (int j = 0; j < h; ++j)
                for (int i = 0; i < w; ++i)
                    want[(j * w + i) * span + n + 1] = want[(j * w + i) * span + n] + b[(j * w + i) * count + n];
        KelStatus st;
        if constexpr (sizeof(T) == 4)
            st = kelmAdd_mama_32f(a.data(), e, e * w * span, e * span, b.data(), e, e * w * count, e * count, a.data() + 1,
                                  e, e * w * span, e * span, w, h, count);
        else
            st = kelmAdd_mama_64f(a.data(), e, e * w * span, e * span, b.data(), e, e * w * count, e * count, a.data() + 1,
                                  e, e * w * span, e * span, w, h, count);
        ASSERT_EQ(st, kelStsNoErr);
        ASSERT_EQ(std::memcmp(a.data(), want.data(), a.size() * e), 0);
    };
    run(0.0f);
    run(0.0);
    kt::forceThreads(0);
}

}  // namespace
