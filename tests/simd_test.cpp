// The vector layer against its scalar twin, and the element-wise kernel run
// with both on the same operands.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

#include "elementwise/elementwise.h"
#include "frame/lanes.h"
#include "frame/lanesum.h"
#include "frame/simd.h"
#include "guarded.h"
#include "lanesum_model.h"

namespace {

using namespace kel;

template <class T>
std::vector<T> randomRow(std::mt19937& rng, int n)
{
    std::uniform_real_distribution<double> d(-100, 100);
    std::vector<T> v(n);
    for (auto& x : v) x = static_cast<T>(d(rng));
    return v;
}

template <class T>
void partialAccessesTouchExactlyK()
{
    constexpr int L = simd::kLanes<T>;
    for (int k = 1; k < L; ++k) {
        // Sentinels around the k elements must survive a load, op and store.
        std::vector<T> buf(L + 2, T(-7)), out(L + 2, T(-9));
        for (int i = 0; i < k; ++i) buf[1 + i] = T(i + 1);
        auto a = simd::Pack<simd::Sse, T>::loadPart(&buf[1], k);
        auto b = simd::Pack<simd::Scalar, T>::loadPart(&buf[1], k);
        (a + a).storePart(&out[1], k);
        std::vector<T> out2(L + 2, T(-9));
        (b + b).storePart(&out2[1], k);
        EXPECT_EQ(out, out2);
        EXPECT_EQ(out[0], T(-9));
        for (int i = k + 1; i < L + 2; ++i) EXPECT_EQ(out[i], T(-9)) << "k=" << k << " i=" << i;
        for (int i = 0; i < k; ++i) EXPECT_EQ(out[1 + i], T(2 * (i + 1)));
    }
}

TEST(Simd, PartialAccessesTouchExactlyK)
{
    partialAccessesTouchExactlyK<float>();
    partialAccessesTouchExactlyK<double>();
}

template <class T, class Op>
void kernelsAgree(int w, int h, int count)
{
    std::mt19937 rng(w * 100 + h * 10 + count);
    const int rowStride = (w + 1) * sizeof(T);  // a gap after each row
    const int objStride = rowStride * h;
    auto a = randomRow<T>(rng, (w + 1) * h * count);
    auto b = randomRow<T>(rng, (w + 1) * h);
    std::vector<T> d1((w + 1) * h * count, T(3)), d2 = d1;
    auto va = matArrS<const T>(a.data(), objStride, rowStride, sizeof(T));
    auto vb = matS<const T>(b.data(), rowStride, sizeof(T));
    auto vd1 = matArrS<T>(d1.data(), objStride, rowStride, sizeof(T));
    auto vd2 = matArrS<T>(d2.data(), objStride, rowStride, sizeof(T));
    elementwise::Kernel<Op, simd::Sse>{w, h}(count, nullptr, va, vb, vd1);
    elementwise::Kernel<Op, simd::Scalar>{w, h}(count, nullptr, va, vb, vd2);
    ASSERT_EQ(std::memcmp(d1.data(), d2.data(), d1.size() * sizeof(T)), 0) << w << "x" << h;
}

TEST(Simd, ElementwiseKernelEqualsScalarTwin)
{
    for (int w = 1; w <= 9; ++w)
        for (int h : {1, 3, w}) {
            kernelsAgree<float, elementwise::Plus>(w, h, 3);
            kernelsAgree<double, elementwise::Minus>(w, h, 3);
        }
}

// The refined inverse square root is good to a few units in the last place
// over the whole range of normal numbers, whatever the processor's
// estimate: one Newton step squares the estimate's 12-bit error.
TEST(Simd, RefinedInverseSquareRootAgainstDouble)
{
    std::mt19937 rng(7);
    for (int k = 0; k < 20000; ++k) {
        const float s = std::ldexp(std::uniform_real_distribution<float>(1.0f, 2.0f)(rng), k % 250 - 125);
        const double want = 1.0 / std::sqrt(double(s)), got = simd::rsqrtRefined(s);
        ASSERT_LE(std::fabs(got - want), 0x1p-21 * want) << s;
    }
}

// The named reductions, the square root and the transposition keep their
// orders in both forms; the lane sum gives the model's bits in both, at
// every offset of b from a 16-byte boundary and with a running start.
TEST(Simd, ReductionsAndLaneSumEqualScalarTwinAndModel)
{
    std::mt19937 rng(11);
    for (int trial = 0; trial < 50; ++trial) {
        const auto x = randomRow<float>(rng, 16);
        simd::Pack<simd::Sse, float> a[4];
        simd::Pack<simd::Scalar, float> b[4];
        for (int i = 0; i < 4; ++i) {
            a[i] = simd::Pack<simd::Sse, float>::load(&x[4 * i]);
            b[i] = simd::Pack<simd::Scalar, float>::load(&x[4 * i]);
        }
        const float* s = x.data();
        EXPECT_EQ(simd::sumPairs(a[0]), (s[0] + s[1]) + (s[2] + s[3]));
        EXPECT_EQ(simd::sumHalves(a[0]), (s[0] + s[2]) + (s[1] + s[3]));
        EXPECT_EQ(simd::sumPairs(b[0]), simd::sumPairs(a[0]));
        EXPECT_EQ(simd::sumHalves(b[0]), simd::sumHalves(a[0]));
        // Four packs at once: pack o's sum in lane o.
        float four[4], fourScalar[4];
        simd::sumHalves(a).store(four);
        simd::sumHalves(b).store(fourScalar);
        for (int o = 0; o < 4; ++o) {
            EXPECT_EQ(four[o], simd::sumHalves(a[o])) << o;
            EXPECT_EQ(fourScalar[o], four[o]) << o;
        }
        simd::transpose4(a);
        simd::transpose4(b);
        float ta[16], tb[16];
        for (int i = 0; i < 4; ++i) {
            simd::sqrt(a[i] * a[i]).store(&ta[4 * i]);
            simd::sqrt(b[i] * b[i]).store(&tb[4 * i]);
        }
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) EXPECT_EQ(ta[4 * i + j], std::sqrt(x[4 * j + i] * x[4 * j + i]));
        EXPECT_EQ(std::memcmp(ta, tb, sizeof ta), 0);
    }
    for (int K : {1, 7, 8, 9, 12, 17, 33})
        for (int shift : {0, 4, 8, 12, 2}) {
            const auto a = randomRow<float>(rng, K), b = randomRow<float>(rng, K);
            alignas(16) unsigned char buf[4 * 40];
            std::memcpy(buf + shift, b.data(), 4 * K);
            const float* bp = reinterpret_cast<const float*>(buf + shift);
            const auto at = reinterpret_cast<uintptr_t>(bp);
            for (float start : {0.0f, 3.25f}) {
                const float want = kt::laneSumModel(a.data(), b.data(), K, at, start);
                EXPECT_EQ(laneDot<simd::Sse>(a.data(), bp, K, start), want) << K << " " << shift;
                EXPECT_EQ(laneDot<simd::Scalar>(a.data(), bp, K, start), want) << K << " " << shift;
            }
        }
}

}  // namespace

// Rows of packed objects into lanes and back: element i of object l's row
// lands in lane l of r[i], the way back restores the rows, and exactly w
// elements of each row are touched (each row ends at a guard page; the
// element after it in the other direction keeps its value).
template <class T>
void rowsThroughLanes()
{
    constexpr int L = simd::kLanes<T>;
    std::mt19937 rng(5);
    for (int w = 1; w <= kLaneMaxSide; ++w) {
        std::vector<std::unique_ptr<kt::Guarded>> mem;
        T* row[L];
        for (int l = 0; l < L; ++l) {
            mem.push_back(std::make_unique<kt::Guarded>((w + 1) * sizeof(T)));
            row[l] = mem.back()->template as<T>(sizeof(T));
            mem.back()->template as<T>()[0] = T(-7);
            const auto v = randomRow<T>(rng, w);
            std::copy(v.begin(), v.end(), row[l]);
        }
        simd::Lanes<T> r[kLaneMaxSide];
        lanesOfRow([&](int l) { return static_cast<const T*>(row[l]); }, w, r);
        for (int i = 0; i < w; ++i)
            for (int l = 0; l < L; ++l) ASSERT_EQ(r[i].lane(l), row[l][i]) << w << " " << i << " " << l;
        for (int i = 0; i < w; ++i) r[i] = r[i] + simd::Lanes<T>(T(1));
        std::vector<T> want[L];
        for (int l = 0; l < L; ++l)
            for (int i = 0; i < w; ++i) want[l].push_back(row[l][i] + T(1));
        rowOfLanes(r, w, [&](int l) { return row[l]; });
        for (int l = 0; l < L; ++l) {
            EXPECT_EQ(std::memcmp(row[l], want[l].data(), w * sizeof(T)), 0) << w << " " << l;
            EXPECT_EQ(row[l][-1], T(-7)) << w << " " << l;
        }
    }
}

// Gapless objects of H x W elements, an odd number, through their blocks, a
// pair of doubles or four floats at a time: element (j, i) of object o
// lands in lane o (skewed, object (l*E) % 4 in lane l), the way back
// restores them, and nothing outside the objects is touched (they end at a
// guard page; the element before them keeps its value).
template <class T, int H, int W, bool Skewed = false>
void throughBlocks()
{
    constexpr int E = H * W, N = simd::kLanes<T>;
    std::mt19937 rng(E);
    kt::Guarded mem((N * E + 1) * sizeof(T));
    T* p = mem.as<T>(sizeof(T));
    p[-1] = T(-7);
    const auto v = randomRow<T>(rng, N * E);
    std::copy(v.begin(), v.end(), p);
    simd::Lanes<T> a[H][W];
    if constexpr (N == 2) pairsOfBlocks(p, a);
    else quadsOfBlocks<H, W, Skewed>(p, a);
    for (int e = 0; e < E; ++e) {
        for (int l = 0; l < N; ++l) {
            const int o = Skewed ? l * E % 4 : l;
            ASSERT_EQ(a[e / W][e % W].lane(l), p[o * E + e]) << H << "x" << W << " " << e << " lane " << l;
        }
        a[e / W][e % W] = a[e / W][e % W] + simd::Lanes<T>(T(1));
    }
    if constexpr (N == 2) blocksOfPairs(a, p);
    else blocksOfQuads<H, W, Skewed>(a, p);
    for (int e = 0; e < N * E; ++e) EXPECT_EQ(p[e], v[e] + T(1)) << H << "x" << W << " " << e;
    EXPECT_EQ(p[-1], T(-7));
}
template <int H, int W>
void everyThroughBlocks()
{
    throughBlocks<double, H, W>();
    throughBlocks<float, H, W>();
    throughBlocks<float, H, W, true>();
}

TEST(Lanes, RowsOfPackedObjectsThroughLanes)
{
    rowsThroughLanes<float>();
    rowsThroughLanes<double>();
    everyThroughBlocks<1, 1>();
    everyThroughBlocks<1, 3>();
    everyThroughBlocks<1, 5>();
    everyThroughBlocks<3, 3>();
    everyThroughBlocks<5, 5>();
}
