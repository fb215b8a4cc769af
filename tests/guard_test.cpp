// Fast paths never touch memory past the last element: each operand ends
// right before a page that may not be read or written.
#include <gtest/gtest.h>

#include "guarded.h"
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

#include "kelm.h"

namespace {

using kt::Guarded;

template <class T>
void fill(T* p, int n, T start)
{
    for (int i = 0; i < n; ++i) p[i] = start + T(i);
}

template <class T, class F>
void checkMatrices(F add)
{
    for (int n = 3; n <= 6; ++n)
        for (int count : {1, 2, 3}) {
            const int elems = n * n * count, row = n * int(sizeof(T)), obj = n * row;
            Guarded a(elems * sizeof(T)), b(elems * sizeof(T)), d(elems * sizeof(T));
            fill(a.as<T>(), elems, T(1));
            fill(b.as<T>(), elems, T(100));
            ASSERT_EQ(add(a.as<T>(), obj, row, b.as<T>(), d.as<T>(), n, count), kelStsNoErr);
            for (int i = 0; i < elems; ++i) ASSERT_EQ(d.as<T>()[i], T(101 + 2 * i)) << n << " " << count;
        }
}

TEST(GuardPage, PackedMatrixArraysStopAtTheLastElement)
{
    checkMatrices<float>([](const float* a, int obj, int row, const float* b, float* d, int n, int count) {
        return kelmAdd_mama_32f(a, obj, row, 4, b, obj, row, 4, d, obj, row, 4, n, n, count);
    });
    checkMatrices<double>([](const double* a, int obj, int row, const double* b, double* d, int n, int count) {
        return kelmAdd_mama_64f(a, obj, row, 8, b, obj, row, 8, d, obj, row, 8, n, n, count);
    });
}

TEST(GuardPage, SingleOperandHeldOverTheArray)
{
    for (int n = 3; n <= 6; ++n) {
        const int count = 2, row = n * 4, obj = n * row;
        Guarded a(n * n * count * 4), b(n * n * 4), d(n * n * count * 4);
        fill(a.as<float>(), n * n * count, 1.0f);
        fill(b.as<float>(), n * n, 0.5f);
        ASSERT_EQ(kelmAdd_mam_32f(a.as<float>(), obj, row, 4, b.as<float>(), row, 4, d.as<float>(), obj, row, 4, n, n,
                                  count),
                  kelStsNoErr);
        EXPECT_EQ(d.as<float>()[n * n * count - 1], float(n * n * count) + float(n * n - 1) + 0.5f);
    }
}

TEST(GuardPage, VectorsOfEveryLength)
{
    for (int len = 1; len <= 9; ++len) {
        const int count = 3;
        Guarded a(len * count * 4), d(len * count * 4), v(len * 4);
        fill(a.as<float>(), len * count, 1.0f);
        fill(v.as<float>(), len, 10.0f);
        ASSERT_EQ(kelmAdd_vav_32f(a.as<float>(), len * 4, 4, v.as<float>(), 4, d.as<float>(), len * 4, 4, len, count),
                  kelStsNoErr);
        ASSERT_EQ(kelmAdd_vc_32f(a.as<float>(), 4, 2.0f, d.as<float>(), 4, len), kelStsNoErr);
        EXPECT_EQ(d.as<float>()[len - 1], float(len) + 2.0f);
        Guarded ad(len * count * 8), dd(len * count * 8);
        fill(ad.as<double>(), len * count, 1.0);
        ASSERT_EQ(kelmAdd_vac_64f(ad.as<double>(), len * 8, 8, 0.25, dd.as<double>(), len * 8, 8, len, count),
                  kelStsNoErr);
        EXPECT_EQ(dd.as<double>()[len * count - 1], double(len * count) + 0.25);
    }
}

}  // namespace
