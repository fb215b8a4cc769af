// Model of the lane sum (src/frame/lanesum.h), element by element: lane i
// of p and q sums the products at k = peel + 8j + i and k = peel + 8j + 4 + i;
// the running sum t takes `start` and the peel products and begins lane 0 of
// p; the lanes are reduced as (s0 + s1) + (s2 + s3); the tail is added in
// ascending order.  `address` is where b lies.
#pragma once

#include <cstdint>

namespace kt {

inline float laneSumModel(const float* a, const float* b, int K, uintptr_t address, float start = 0.0f)
{
    const int peel = address % 16 == 0 ? 0 : static_cast<int>((16 - address % 16) / 4);
    float t = start;
    if (address % 4 != 0 || peel + 8 > K) {
        for (int k = 0; k < K; ++k) t += a[k] * b[k];
        return t;
    }
    for (int k = 0; k < peel; ++k) t += a[k] * b[k];
    float p[4] = {t, 0, 0, 0}, q[4] = {0, 0, 0, 0};
    const int end = K - (K - peel) % 8;
    for (int k = peel; k < end; k += 8)
        for (int i = 0; i < 4; ++i) {
            p[i] += a[k + i] * b[k + i];
            q[i] += a[k + 4 + i] * b[k + 4 + i];
        }
    float s[4];
    for (int i = 0; i < 4; ++i) s[i] = p[i] + q[i];
    float total = (s[0] + s[1]) + (s[2] + s[3]);
    for (int k = end; k < K; ++k) total += a[k] * b[k];
    return total;
}

}  // namespace kt
