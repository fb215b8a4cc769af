/* The README's example, compiled as C99: add a constant matrix to an array
 * of 4x4 matrices. */
#include <stdio.h>

#include "kelm.h"

int main(void)
{
    Kel32f a[3][4][4], b[4][4], sum[3][4][4];
    int n, j, i;
    KelStatus st;
    for (n = 0; n < 3; ++n)
        for (j = 0; j < 4; ++j)
            for (i = 0; i < 4; ++i) a[n][j][i] = (Kel32f)(n * 16 + j * 4 + i);
    for (j = 0; j < 4; ++j)
        for (i = 0; i < 4; ++i) b[j][i] = (j == i) ? 100.0f : 0.0f;

    /* src1: array (Stride0 = one matrix), src2: one matrix, dst: array. */
    st = kelmAdd_mam_32f(&a[0][0][0], sizeof a[0], sizeof a[0][0], sizeof(Kel32f),
                         &b[0][0], sizeof b[0], sizeof(Kel32f),
                         &sum[0][0][0], sizeof sum[0], sizeof sum[0][0], sizeof(Kel32f), 4, 4, 3);
    if (st != kelStsNoErr) return 1;
    if (sum[2][3][3] != 147.0f || sum[1][0][1] != 17.0f) return 2;
    printf("%s %s: sum[2] diagonal %g %g %g %g\n", kelmGetLibVersion()->name, kelmGetLibVersion()->version,
           sum[2][0][0], sum[2][1][1], sum[2][2][2], sum[2][3][3]);
    return 0;
}
