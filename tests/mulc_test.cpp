// Mul by a constant against a plain model, over every member, description,
// type, size and layout, in place and with every team size; the limits that
// the tables give.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

const std::set<std::string> kConstantCodes = {"mc", "tc", "vc", "mac", "tac", "vac", "vca", "vaca"};

bool isMulC(const Member& m) { return m.family == "Mul" && kConstantCodes.count(m.code) > 0; }

std::vector<std::string> members()
{
    std::vector<std::string> out;
    for (auto& m : registry())
        if (isMulC(m)) out.push_back(m.name);
    return out;
}

// dst(n, j, i) = val(n) * src(n, j, i), one rounded product; in tc and tac
// the source is stored with `width` rows of `height` elements.
std::vector<double> model(const Case& s)
{
    const Member& m = *s.m;
    const Operand& src = s.ops[0];
    const Operand& val = s.ops[1];
    const Operand& dst = s.ops[dstGroup(m)];
    const bool trans = m.code[0] == 't';
    std::vector<double> out(dst.offsets.size());
    for (int n = 0; n < dst.objects; ++n) {
        const double c = val.constant ? val.value : val.get(n, 0, 0);
        for (int j = 0; j < dst.rows; ++j)
            for (int i = 0; i < dst.cols; ++i) {
                const int sn = src.objects > 1 ? n : 0;
                const double x = trans ? src.get(sn, i, j) : src.get(sn, j, i);
                out[dst.index(n, j, i)] = m.elem == 4 ? double(float(c) * float(x)) : c * x;
            }
    }
    return out;
}

void runAndCompare(const Case& s) { expectResult(s, model(s)); }

KT_FAMILY("Mul", FamilyHooks{elementwiseShape, {}, {}, {}, isMulC, model});

std::vector<Sizes> sizeGrid(const Member& m)
{
    std::vector<Sizes> out;
    for (int c : m.has("count") ? std::vector<int>{1, 2, 5, 13} : std::vector<int>{1}) {
        if (m.has("len")) {
            for (int len : {1, 2, 3, 4, 5, 6, 7, 8, 9, 17}) out.push_back({{"len", len}, {"count", c}});
        } else {
            for (int k = 1; k <= 9; ++k) out.push_back({{"width", k}, {"height", k}, {"count", c}});
            for (auto wh : {std::pair{2, 3}, {3, 4}, {4, 3}, {2, 5}, {7, 3}, {1, 6}, {6, 1}, {9, 2}, {5, 6}})
                out.push_back({{"width", wh.first}, {"height", wh.second}, {"count", c}});
        }
    }
    if (!m.has("count"))
        for (auto& s : out) s.erase("count");
    return out;
}

class MulC : public ::testing::TestWithParam<std::string> {};

TEST_P(MulC, MatchesModelOnEveryLayout)
{
    const Member& m = member(GetParam());
    sweep(m, sizeGrid(m), everyForm(), 1, [&](Case& s) { runAndCompare(s); });
}

// Each element is read before it is written, so dst may be the source in
// the same layout, except when transposing.
TEST_P(MulC, InPlaceWithTheSameLayout)
{
    const Member& m = member(GetParam());
    if (m.code[0] == 't') GTEST_SKIP() << "a transposing product is not defined in place";
    uint32_t seed = 1000;
    for (auto& sizes : sizeGrid(m))
        for (Form form : {Form::Packed, Form::Random}) {
            Case s = makeCase(m, sizes, Layout{form}, seed++, true);
            if (s.inPlaceOf < 0) GTEST_SKIP() << "no source shares the result's shape";
            runAndCompare(s);
            if (HasFatalFailure()) return;
        }
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

INSTANTIATE_TEST_SUITE_P(Products, MulC, ::testing::ValuesIn(members()), paramName);

// ---- documented cases --------------------------------------------------------------------

// tc: width and height are dst's; the source has `width` rows of `height`.
TEST(MulCByHand, TransposedSizesAreThoseOfTheResult)
{
    const float src[6] = {1, 2, 3, 4, 5, 6};  // 2 rows of 3
    float dst[6] = {};
    ASSERT_EQ(kelmMul_tc_32f(src, 12, 4, 2.0f, dst, 8, 4, 2, 3), kelStsNoErr);  // dst: 3 rows of 2
    const float want[6] = {2, 8, 4, 10, 6, 12};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(dst[i], want[i]) << i;
}

TEST(MulCByHand, ZeroTimesInfinityIsNaN)
{
    const double src[3] = {std::numeric_limits<double>::infinity(), -2, 0};
    double dst[3];
    ASSERT_EQ(kelmMul_vc_64f(src, 8, 0.0, dst, 8, 3), kelStsNoErr);
    EXPECT_TRUE(std::isnan(dst[0]));
    EXPECT_EQ(dst[1], 0.0);
    EXPECT_TRUE(std::signbit(dst[1]));  // 0 * -2 is -0
}

TEST(MulCByHand, ConstantArraysAreChecked)
{
    const float src[3] = {1, 2, 3}, val[2] = {2, 3};
    float dst[6];
    EXPECT_EQ(kelmMul_vca_32f(src, 4, val, 0, dst, 12, 4, 3, 2), kelStsBadStride);
    EXPECT_EQ(kelmMul_vca_32f(src, 4, nullptr, 4, dst, 12, 4, 3, 2), kelStsNullPointer);
    ASSERT_EQ(kelmMul_vca_32f(src, 4, val, 4, dst, 12, 4, 3, 2), kelStsNoErr);
    const float want[6] = {2, 4, 6, 3, 6, 9};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(dst[i], want[i]);
}

TEST(MulCLimits, DocumentedBoundaries)
{
    // mac: 2*W*H*C, serial up to 3500.
    EXPECT_EQ(queriesFor("kelmMul_mac_32f", {{"width", 1}, {"height", 1}, {"count", 1750}}, Form::Packed), 0);
    EXPECT_EQ(queriesFor("kelmMul_mac_32f", {{"width", 1}, {"height", 1}, {"count", 1751}}, Form::Packed), 2);
    // mac_32f_L strided: serial up to 1500.
    EXPECT_EQ(queriesFor("kelmMul_mac_32f_L", {{"width", 1}, {"height", 1}, {"count", 750}}, Form::Strided), 0);
    EXPECT_EQ(queriesFor("kelmMul_mac_32f_L", {{"width", 1}, {"height", 1}, {"count", 751}}, Form::Strided), 2);
    // vaca_P: C*(2l + 1), serial up to 650.
    EXPECT_EQ(queriesFor("kelmMul_vaca_32f_P", {{"len", 2}, {"count", 130}}, Form::Random), 0);
    EXPECT_EQ(queriesFor("kelmMul_vaca_32f_P", {{"len", 1}, {"count", 217}}, Form::Random), 2);
    // vca: l*C + l + C, the same limit for packed and strided calls.
    EXPECT_EQ(queriesFor("kelmMul_vca_64f", {{"len", 1}, {"count", 1049}}, Form::Strided), 0);  // 2099
    EXPECT_EQ(queriesFor("kelmMul_vca_64f", {{"len", 1}, {"count", 1050}}, Form::Strided), 2);  // 2101
    EXPECT_EQ(queriesFor("kelmMul_vca_64f", {{"len", 1}, {"count", 1050}}, Form::Packed), 2);
}

}  // namespace
