/* kelm demo: what a first program with the library looks like.
 *
 * 1. Add arrays of 4x4 matrices, with the elements described in each of the
 *    three ways the library knows: base pointer and byte strides (S), a
 *    table of object pointers (L), a table of element pointers (P).
 * 2. The typical road: factorise 1000 4x4 matrices and solve one
 *    right-hand side for each, in float and in double, through S, L and P;
 *    check the residuals; watch a singular matrix being reported; time it
 *    against a plain C solver.
 * 3. Vectors and reductions: cross products of 1000 pairs of 3-vectors,
 *    their dot products with the inputs (zero up to rounding), their
 *    lengths, and the trace and Frobenius norm of an identity matrix.
 * 4. Invert the same matrices and take their determinants: the product of
 *    a matrix and its inverse is the identity, and the determinant of the
 *    inverse is the reciprocal of the matrix's.  The same matrices kept as
 *    16 planes (structure of arrays) give the same determinants, bit for bit.
 * 5. Least squares: fit a parabola to each of 1000 sets of six noisy
 *    points, once with QR on the 6x3 system and once with Cholesky on the
 *    normal equations, and compare the two fits.
 * 6. Principal axes of 100 symmetric tensors: eigenvalues largest first and
 *    orthonormal eigenvectors, checked by A v = lambda v.
 * 7. Eigenvalues and left eigenvectors of a general 3x3 (a companion
 *    matrix), with the scratch size asked of the library first.
 * 8. A camera: view and projection matrices, a cube corner projected to the
 *    screen and unprojected back.
 *
 * Every kelm function returns a status: kelStsNoErr (0) or a negative code.
 * Strides and shifts are counted in bytes. */
#define _POSIX_C_SOURCE 199309L

#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#include "kelcore.h" /* kelSetNumThreads */
#include "kelm.h"

#define N 4        /* matrix order */
#define COUNT 1000 /* objects in an array */

static int failed = 0;

static void expect(KelStatus got, KelStatus want, const char* what)
{
    if (got != want) {
        printf("  %s returned %d, expected %d\n", what, got, want);
        failed = 1;
    }
}

/* Built-in data: a small generator so that every run sees the same numbers. */
static unsigned seed = 12345u;
static double next(void)
{
    seed = seed * 1103515245u + 12345u;
    return (double)((seed >> 8) & 0xffff) / 32768.0 - 1.0; /* in [-1, 1) */
}

/* ---- 1. Adding arrays of matrices in S, L and P ---------------------------- */

static void addDemo(void)
{
    enum { C = 3 };
    static Kel32f a[C][N][N], b[C][N][N], s[C][N][N], l[C][N][N], p[C][N][N];
    const Kel32f* aObj[C];
    const Kel32f* bObj[C];
    Kel32f* lObj[C];
    const Kel32f* aPos[N * N];
    const Kel32f* bPos[N * N];
    Kel32f* pPos[N * N];
    const int row = N * sizeof(Kel32f), obj = N * row;
    int k, j, i, same = 1;

    for (k = 0; k < C; ++k)
        for (j = 0; j < N; ++j)
            for (i = 0; i < N; ++i) {
                a[k][j][i] = (Kel32f)(100 * k + 10 * j + i);
                b[k][j][i] = (j == i) ? 0.5f : 0.0f;
            }

    /* S: where the first element is, then the steps between objects, rows
     * and elements. */
    expect(kelmAdd_mama_32f(&a[0][0][0], obj, row, sizeof(Kel32f), &b[0][0][0], obj, row, sizeof(Kel32f),
                            &s[0][0][0], obj, row, sizeof(Kel32f), N, N, C),
           kelStsNoErr, "kelmAdd_mama_32f");

    /* L: one pointer per object (the objects may lie anywhere), a shift
     * added to each, and the steps between rows and elements. */
    for (k = 0; k < C; ++k) {
        aObj[k] = &a[k][0][0];
        bObj[k] = &b[k][0][0];
        lObj[k] = &l[k][0][0];
    }
    expect(kelmAdd_mama_32f_L(aObj, 0, row, sizeof(Kel32f), bObj, 0, row, sizeof(Kel32f), lObj, 0, row,
                              sizeof(Kel32f), N, N, C),
           kelStsNoErr, "kelmAdd_mama_32f_L");

    /* P: one pointer per element position of the first object, and the step
     * from each element to the same element of the next object. */
    for (j = 0; j < N; ++j)
        for (i = 0; i < N; ++i) {
            aPos[j * N + i] = &a[0][j][i];
            bPos[j * N + i] = &b[0][j][i];
            pPos[j * N + i] = &p[0][j][i];
        }
    expect(kelmAdd_mama_32f_P(aPos, 0, obj, bPos, 0, obj, pPos, 0, obj, N, N, C), kelStsNoErr,
           "kelmAdd_mama_32f_P");

    for (k = 0; k < C; ++k)
        for (j = 0; j < N; ++j)
            for (i = 0; i < N; ++i) same &= s[k][j][i] == l[k][j][i] && s[k][j][i] == p[k][j][i];
    printf("1. Adding %d pairs of 4x4 float matrices, described as S, L and P\n", C);
    printf("   sum of the last pair, first row: %g %g %g %g\n", s[C - 1][0][0], s[C - 1][0][1], s[C - 1][0][2],
           s[C - 1][0][3]);
    printf("   the three descriptions give %s\n\n", same ? "the same sums" : "DIFFERENT sums");
    if (!same) failed = 1;
}

/* ---- 2. Factorise and solve -------------------------------------------------- */

/* Largest |A x - b| over all objects, relative to the size of the terms. */
static double worstResidual(const double* a, const double* b, const double* x)
{
    double worst = 0;
    int k, i, j;
    for (k = 0; k < COUNT; ++k)
        for (i = 0; i < N; ++i) {
            double r = -b[k * N + i], mag = fabs(b[k * N + i]);
            for (j = 0; j < N; ++j) {
                r += a[(k * N + i) * N + j] * x[k * N + j];
                mag += fabs(a[(k * N + i) * N + j] * x[k * N + j]);
            }
            if (fabs(r) / mag > worst) worst = fabs(r) / mag;
        }
    return worst;
}

/* The plain C way, for comparison: exchange rows in a copy, eliminate, solve. */
static void plainSolve(const float* a, const float* b, float* x)
{
    float m[N][N], t;
    int k, i, j, best;
    for (i = 0; i < N; ++i)
        for (j = 0; j < N; ++j) m[i][j] = a[i * N + j];
    for (i = 0; i < N; ++i) x[i] = b[i];
    for (k = 0; k < N; ++k) {
        best = k;
        for (i = k + 1; i < N; ++i)
            if (fabsf(m[i][k]) > fabsf(m[best][k])) best = i;
        for (j = 0; j < N; ++j) {
            t = m[k][j], m[k][j] = m[best][j], m[best][j] = t;
        }
        t = x[k], x[k] = x[best], x[best] = t;
        for (i = k + 1; i < N; ++i) {
            float l = m[i][k] / m[k][k];
            for (j = k; j < N; ++j) m[i][j] -= l * m[k][j];
            x[i] -= l * x[k];
        }
    }
    for (i = N - 1; i >= 0; --i) {
        for (j = i + 1; j < N; ++j) x[i] -= m[i][j] * x[j];
        x[i] /= m[i][i];
    }
}

static double seconds(void)
{
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (double)t.tv_sec + 1e-9 * (double)t.tv_nsec;
}

/* Packed arrays: object k at k * N * N elements, rows of N elements. */
static Kel32f a32[COUNT * N * N], lu32[COUNT * N * N], b32[COUNT * N], x32[COUNT * N];
static Kel64f a64[COUNT * N * N], lu64[COUNT * N * N], b64[COUNT * N], x64[COUNT * N];
static double a32d[COUNT * N * N], b32d[COUNT * N], x32d[COUNT * N];
static int piv[COUNT * N];

static void solveDemo(void)
{
    /* Bytes from one element, row and object to the next. */
    const int e32 = sizeof(Kel32f), row32 = N * e32, obj32 = N * row32;
    const int e64 = sizeof(Kel64f), row64 = N * e64, obj64 = N * row64;
    static Kel64f xL[COUNT * N], xP[COUNT * N], luL[COUNT * N * N], luP[COUNT * N * N];
    static const Kel64f* aObj[COUNT];
    static const Kel64f* bObj[COUNT];
    static const Kel64f* luObjIn[COUNT];
    static Kel64f* luObj[COUNT];
    static Kel64f* xObj[COUNT];
    const Kel64f* aPos[N * N];
    const Kel64f* luPosIn[N * N];
    Kel64f* luPos[N * N];
    const Kel64f* bPos[N];
    Kel64f* xPos[N];
    int k, i, rep, reps = 200, sameL = 1, sameP = 1, refused = -1;
    double t0, tKelm32, tKelm64, tPlain;

    for (i = 0; i < COUNT * N * N; ++i) {
        a64[i] = next();
        a32[i] = (Kel32f)a64[i];
        a32d[i] = a32[i];
    }
    for (i = 0; i < COUNT * N; ++i) {
        b64[i] = next();
        b32[i] = (Kel32f)b64[i];
        b32d[i] = b32[i];
    }

    printf("2. Factorising %d 4x4 matrices and solving A x = b for each\n", COUNT);

    /* Factor: lu holds L and U, piv says which row of lu is read at each
     * step (rows are not moved).  Solve with the factors and the table. */
    expect(kelmLUDecomp_ma_32f(a32, obj32, row32, e32, piv, lu32, obj32, row32, e32, N, COUNT), kelStsNoErr,
           "kelmLUDecomp_ma_32f");
    expect(kelmLUBackSubst_mava_32f(lu32, obj32, row32, e32, piv, b32, row32, e32, x32, row32, e32, N, COUNT),
           kelStsNoErr, "kelmLUBackSubst_mava_32f");
    for (i = 0; i < COUNT * N; ++i) x32d[i] = x32[i];
    printf("   float:  worst relative residual %.1e\n", worstResidual(a32d, b32d, x32d));

    expect(kelmLUDecomp_ma_64f(a64, obj64, row64, e64, piv, lu64, obj64, row64, e64, N, COUNT), kelStsNoErr,
           "kelmLUDecomp_ma_64f");
    expect(kelmLUBackSubst_mava_64f(lu64, obj64, row64, e64, piv, b64, row64, e64, x64, row64, e64, N, COUNT),
           kelStsNoErr, "kelmLUBackSubst_mava_64f");
    printf("   double: worst relative residual %.1e\n", worstResidual(a64, b64, x64));

    /* The same in double through L (object pointers) and P (element
     * pointers, stepping one object at a time). */
    for (k = 0; k < COUNT; ++k) {
        aObj[k] = &a64[k * N * N];
        luObj[k] = &luL[k * N * N];
        luObjIn[k] = luObj[k];
        bObj[k] = &b64[k * N];
        xObj[k] = &xL[k * N];
    }
    expect(kelmLUDecomp_ma_64f_L(aObj, 0, row64, e64, piv, luObj, 0, row64, e64, N, COUNT), kelStsNoErr,
           "kelmLUDecomp_ma_64f_L");
    expect(kelmLUBackSubst_mava_64f_L(luObjIn, 0, row64, e64, piv, bObj, 0, e64, xObj, 0, e64, N, COUNT),
           kelStsNoErr, "kelmLUBackSubst_mava_64f_L");
    for (i = 0; i < N * N; ++i) {
        aPos[i] = &a64[i];
        luPos[i] = &luP[i];
        luPosIn[i] = luPos[i];
    }
    for (i = 0; i < N; ++i) {
        bPos[i] = &b64[i];
        xPos[i] = &xP[i];
    }
    expect(kelmLUDecomp_ma_64f_P(aPos, 0, obj64, piv, luPos, 0, obj64, N, COUNT), kelStsNoErr,
           "kelmLUDecomp_ma_64f_P");
    expect(kelmLUBackSubst_mava_64f_P(luPosIn, 0, obj64, piv, bPos, 0, row64, xPos, 0, row64, N, COUNT),
           kelStsNoErr, "kelmLUBackSubst_mava_64f_P");
    for (i = 0; i < COUNT * N; ++i) {
        sameL &= xL[i] == x64[i];
        sameP &= xP[i] == x64[i];
    }
    printf("   double through L and P: %s\n", sameL && sameP ? "the same solutions, bit for bit" : "DIFFERENT");
    if (!(sameL && sameP)) failed = 1;

    /* A singular matrix: object 500 gets a zero column.  The array call
     * reports kelStsSingular; which object it was, one call per object
     * finds out. */
    for (i = 0; i < N; ++i) a32[(500 * N + i) * N + 2] = 0.0f;
    expect(kelmLUDecomp_ma_32f(a32, obj32, row32, e32, piv, lu32, obj32, row32, e32, N, COUNT), kelStsSingular,
           "kelmLUDecomp_ma_32f on a singular matrix");
    for (k = 0; k < COUNT && refused < 0; ++k)
        if (kelmLUDecomp_m_32f(&a32[k * N * N], row32, e32, &piv[k * N], &lu32[k * N * N], row32, e32, N) ==
            kelStsSingular)
            refused = k;
    printf("   with a zero column in matrix 500: status %d (kelStsSingular), refused object %d\n",
           kelStsSingular, refused);
    if (refused != 500) failed = 1;
    for (i = 0; i < N; ++i) a32[(500 * N + i) * N + 2] = (Kel32f)a64[(500 * N + i) * N + 2];

    /* Timing on one thread: factor and solve, per matrix. */
    kelSetNumThreads(1);
    t0 = seconds();
    for (rep = 0; rep < reps; ++rep) {
        kelmLUDecomp_ma_32f(a32, obj32, row32, e32, piv, lu32, obj32, row32, e32, N, COUNT);
        kelmLUBackSubst_mava_32f(lu32, obj32, row32, e32, piv, b32, row32, e32, x32, row32, e32, N, COUNT);
    }
    tKelm32 = seconds() - t0;
    t0 = seconds();
    for (rep = 0; rep < reps; ++rep) {
        kelmLUDecomp_ma_64f(a64, obj64, row64, e64, piv, lu64, obj64, row64, e64, N, COUNT);
        kelmLUBackSubst_mava_64f(lu64, obj64, row64, e64, piv, b64, row64, e64, x64, row64, e64, N, COUNT);
    }
    tKelm64 = seconds() - t0;
    t0 = seconds();
    for (rep = 0; rep < reps; ++rep)
        for (k = 0; k < COUNT; ++k) plainSolve(&a32[k * N * N], &b32[k * N], &x32[k * N]);
    tPlain = seconds() - t0;
    kelSetNumThreads(0);
    printf("   time per matrix, factor and solve, one thread:\n");
    printf("     kelm float  %6.1f ns\n", 1e9 * tKelm32 / (reps * COUNT));
    printf("     kelm double %6.1f ns\n", 1e9 * tKelm64 / (reps * COUNT));
    printf("     plain C float %4.1f ns\n", 1e9 * tPlain / (reps * COUNT));
}

/* ---- 5. Least squares with QR and with Cholesky ------------------------------ */

enum { PTS = 6, DEG = 3 };

static void fitDemo(void)
{
    /* Row i of a set: 1, t, t^2 at t = i; y = 1 - 2t + 0.5t^2 plus noise. */
    static Kel64f a[COUNT][PTS][DEG], qr[COUNT][PTS][DEG], y[COUNT][PTS], cq[COUNT][DEG];
    static Kel64f n[COUNT][DEG][DEG], l[COUNT][DEG][DEG], r[COUNT][DEG], cc[COUNT][DEG];
    Kel64f buf[PTS];
    const int e = sizeof(Kel64f), row = DEG * e, obj = PTS * row;
    int k, i, j, q;
    double worst = 0, far = 0;

    for (k = 0; k < COUNT; ++k)
        for (i = 0; i < PTS; ++i) {
            a[k][i][0] = 1, a[k][i][1] = i, a[k][i][2] = i * i;
            y[k][i] = 1 - 2.0 * i + 0.5 * i * i + 0.01 * next();
        }
    /* QR: dst holds R and the reflectors; the solve needs a scratch of PTS. */
    expect(kelmQRDecomp_ma_64f(&a[0][0][0], obj, row, e, buf, &qr[0][0][0], obj, row, e, DEG, PTS, COUNT),
           kelStsNoErr, "kelmQRDecomp_ma_64f");
    expect(kelmQRBackSubst_mava_64f(&qr[0][0][0], obj, row, e, buf, &y[0][0], PTS * e, e, &cq[0][0], row, e, DEG,
                                    PTS, COUNT),
           kelStsNoErr, "kelmQRBackSubst_mava_64f");
    /* Cholesky on A^T A c = A^T y: only the lower triangle is read. */
    for (k = 0; k < COUNT; ++k)
        for (i = 0; i < DEG; ++i) {
            r[k][i] = 0;
            for (q = 0; q < PTS; ++q) r[k][i] += a[k][q][i] * y[k][q];
            for (j = 0; j <= i; ++j) {
                n[k][i][j] = 0;
                for (q = 0; q < PTS; ++q) n[k][i][j] += a[k][q][i] * a[k][q][j];
            }
        }
    expect(kelmCholeskyDecomp_ma_64f(&n[0][0][0], DEG * row, row, e, &l[0][0][0], DEG * row, row, e, DEG, COUNT),
           kelStsNoErr, "kelmCholeskyDecomp_ma_64f");
    expect(kelmCholeskyBackSubst_mava_64f(&l[0][0][0], DEG * row, row, e, &r[0][0], row, e, &cc[0][0], row, e, DEG,
                                          COUNT),
           kelStsNoErr, "kelmCholeskyBackSubst_mava_64f");
    for (k = 0; k < COUNT; ++k)
        for (i = 0; i < DEG; ++i) {
            if (fabs(cq[k][i] - cc[k][i]) > worst) worst = fabs(cq[k][i] - cc[k][i]);
            if (fabs(cq[k][i] - (i == 0 ? 1 : i == 1 ? -2 : 0.5)) > far)
                far = fabs(cq[k][i] - (i == 0 ? 1 : i == 1 ? -2 : 0.5));
        }
    printf("\n5. Fitting y = c0 + c1 t + c2 t^2 to %d sets of %d points\n", COUNT, PTS);
    printf("   first set: c = %.4f %.4f %.4f (true 1, -2, 0.5)\n", cq[0][0], cq[0][1], cq[0][2]);
    printf("   QR and Cholesky on the normal equations agree within %.1e; farthest from the truth %.1e\n", worst,
           far);
    if (worst > 1e-9 || far > 0.1) failed = 1;
}

/* ---- 3. Vectors and reductions ------------------------------------------- */

static void vectorDemo(void)
{
    static Kel32f a[COUNT][3], b[COUNT][3], c[COUNT][3], dotA[COUNT], dotB[COUNT], len[COUNT];
    const int vec = 3 * sizeof(Kel32f), e = sizeof(Kel32f);
    Kel32f eye[N][N] = {{0}}, trace = 0, frob = 0, worst = 0;
    int k, i;

    printf("\n3. Cross products of %d pairs of 3-vectors, their dot products and lengths\n", COUNT);
    for (k = 0; k < COUNT; ++k)
        for (i = 0; i < 3; ++i) {
            a[k][i] = (Kel32f)next();
            b[k][i] = (Kel32f)next();
        }
    expect(kelmCrossProduct_vava_32f(&a[0][0], vec, e, &b[0][0], vec, e, &c[0][0], vec, e, COUNT), kelStsNoErr,
           "kelmCrossProduct_vava_32f");
    expect(kelmDotProduct_vava_32f(&c[0][0], vec, e, &a[0][0], vec, e, dotA, 3, COUNT), kelStsNoErr,
           "kelmDotProduct_vava_32f");
    expect(kelmDotProduct_vava_32f(&c[0][0], vec, e, &b[0][0], vec, e, dotB, 3, COUNT), kelStsNoErr,
           "kelmDotProduct_vava_32f");
    expect(kelmL2Norm_va_32f(&c[0][0], vec, e, len, 3, COUNT), kelStsNoErr, "kelmL2Norm_va_32f");
    for (k = 0; k < COUNT; ++k) {
        /* a x b is orthogonal to a and b: what is left is rounding, small
         * against the length of a x b. */
        const Kel32f r = (Kel32f)(fabs(dotA[k]) + fabs(dotB[k])) / (len[k] + 1e-30f);
        if (r > worst) worst = r;
    }
    printf("   worst (|c.a| + |c.b|) / |c| = %.1e\n", worst);
    if (worst > 1e-5f) failed = 1;

    for (i = 0; i < N; ++i) eye[i][i] = 1.0f;
    expect(kelmTrace_m_32f(&eye[0][0], N * e, e, N, &trace), kelStsNoErr, "kelmTrace_m_32f");
    expect(kelmFrobNorm_m_32f(&eye[0][0], N * e, e, N, N, &frob), kelStsNoErr, "kelmFrobNorm_m_32f");
    printf("   identity %dx%d: trace %g, Frobenius norm %g\n", N, N, trace, frob);
    if (trace != 4.0f || frob != 2.0f) failed = 1;
}

/* ---- 4. Inverses and determinants ------------------------------------------ */

static Kel64f inv64[COUNT * N * N], det64[COUNT], detInv64[COUNT], planes64[N * N * COUNT], detPlanes64[COUNT];

static void invertDemo(void)
{
    const int e = sizeof(Kel64f), row = N * e, obj = N * row;
    Kel64f scratch[N * (N + 1)]; /* one object's work space, needed by every call */
    double worst = 0.0, worstDet = 0.0;
    int k, i, j, c;

    printf("\n4. Inverting the %d matrices and taking determinants\n", COUNT);
    expect(kelmInvert_ma_64f(a64, obj, row, e, scratch, inv64, obj, row, e, N, COUNT), kelStsNoErr,
           "kelmInvert_ma_64f");
    expect(kelmDet_ma_64f(a64, obj, row, e, N, scratch, det64, COUNT), kelStsNoErr, "kelmDet_ma_64f");
    expect(kelmDet_ma_64f(inv64, obj, row, e, N, scratch, detInv64, COUNT), kelStsNoErr, "kelmDet_ma_64f");
    for (k = 0; k < COUNT; ++k) {
        const Kel64f* a = &a64[k * N * N];
        const Kel64f* x = &inv64[k * N * N];
        for (i = 0; i < N; ++i)
            for (j = 0; j < N; ++j) {
                double r = i == j ? -1.0 : 0.0;
                for (c = 0; c < N; ++c) r += a[i * N + c] * x[c * N + j];
                if (fabs(r) > worst) worst = fabs(r);
            }
        if (fabs(det64[k] * detInv64[k] - 1.0) > worstDet) worstDet = fabs(det64[k] * detInv64[k] - 1.0);
    }
    printf("   largest |A inv(A) - I|: %.1e; largest |det(A) det(inv(A)) - 1|: %.1e\n", worst, worstDet);
    if (worst > 1e-8 || worstDet > 1e-8) failed = 1;

    /* Element (i, j) of every matrix side by side: plane i * N + j holds it
     * for all COUNT objects.  Stride0 is one element, Stride2 one plane. */
    for (k = 0; k < COUNT; ++k)
        for (i = 0; i < N * N; ++i) planes64[i * COUNT + k] = a64[k * N * N + i];
    expect(kelmDet_ma_64f(planes64, e, N * COUNT * e, COUNT * e, N, scratch, detPlanes64, COUNT), kelStsNoErr,
           "kelmDet_ma_64f on planes");
    for (k = 0, c = 0; k < COUNT; ++k) c += memcmp(&det64[k], &detPlanes64[k], sizeof det64[k]) != 0;
    printf("   determinants from 16 planes of %d elements: %d of %d differ in any bit from those of packed objects\n",
           COUNT, c, COUNT);
    if (c != 0) failed = 1;
}

/* ---- 7. Eigenvalues and eigenvectors of a general matrix ------------------ */

static void eigenDemo(void)
{
    /* The companion matrix of x^3 - 2: eigenvalues 2^(1/3) and a complex
     * pair.  The caller asks for the scratch size first. */
    static const Kel64f a[3][3] = {{0, 0, 2}, {1, 0, 0}, {0, 1, 0}};
    Kel64f re[3], im[3], v[3][3], buf[64];
    int bytes = 0, j, r, c;
    double worst = 0;

    expect(kelmEigenValuesVectorsGetBufSize_64f(3, &bytes), kelStsNoErr, "kelmEigenValuesVectorsGetBufSize_64f");
    printf("\n7. Eigenvalues and vectors of a 3 x 3 companion matrix (scratch: %d bytes)\n", bytes);
    if (bytes > (int)sizeof buf) failed = 1;
    expect(kelmEigenValuesVectorsLeft_m_64f(&a[0][0], 24, 8, &v[0][0], 24, 8, re, im, 3, buf), kelStsNoErr,
           "kelmEigenValuesVectorsLeft_m_64f");
    for (j = 0; j < 3; ++j) printf("   %+.6f %+.6fi\n", re[j], im[j]);
    /* The real eigenvalue's column v satisfies a v = lambda v. */
    for (j = 0; j < 3; ++j)
        if (im[j] == 0)
            for (r = 0; r < 3; ++r) {
                double s = -re[j] * v[r][j];
                for (c = 0; c < 3; ++c) s += a[r][c] * v[c][j];
                if (fabs(s) > worst) worst = fabs(s);
            }
    printf("   largest residual of a v = lambda v for the real eigenvalue: %.1e\n", worst);
    if (worst > 1e-12) failed = 1;
}

/* ---- 8. A camera: view, projection, points to the screen and back -------- */

static void cameraDemo(void)
{
    const Kel32f eye[3] = {0, 2, -6}, at[3] = {0, 0, 0}, up[3] = {0, 1, 0};
    Kel32f view[16], proj[16], world[16], screen[3], back[3];
    const Kel32f corner[3] = {1, 1, 1};
    int i, close = 1;

    printf("\n8. A camera looking at a unit cube\n");
    /* Row vectors: world, then view, then projection. */
    kelmIdentity_m4_32f(world);
    kelmLookAtLH_m4_32f(eye, at, up, view);
    kelmPerspectiveFovLH_m4_32f(0.785398f, 640.0f / 480.0f, 0.1f, 100.0f, proj);
    expect(kelmProject_m4v3_32f(proj, view, world, corner, 640, 480, 0, 1, screen), kelStsNoErr, "Project");
    printf("   corner (1, 1, 1) lands at pixel (%.1f, %.1f), depth %.4f\n", screen[0], screen[1], screen[2]);
    expect(kelmUnproject_m4v3_32f(proj, view, world, screen, 640, 480, 0, 1, back), kelStsNoErr, "Unproject");
    for (i = 0; i < 3; ++i) close &= fabs(back[i] - corner[i]) < 1e-3;
    printf("   and back from the screen: (%.4f, %.4f, %.4f) %s\n", back[0], back[1], back[2],
           close ? "(the corner again)" : "(WRONG)");
    if (!close || screen[0] < 320 || screen[1] > 240) failed = 1;
}

/* ---- 6. Principal axes of symmetric tensors ----------------------------- */

/* Principal axes: 100 symmetric 3x3 matrices (inertia-like tensors, the
 * k-th one (k + 1) times [[2,1,0],[1,2,0],[0,0,5]]) in one call give their
 * eigenvalues, largest first, and an orthonormal eigenvector per column. */
static void tensorDemo(void)
{
    enum { M = 100 };
    static Kel64f t[M][3][3], vec[M][3][3], val[M][3];
    Kel64f work[9];
    const int row = 3 * sizeof(Kel64f), obj = 3 * row;
    double worst = 0.0, worstValue = 0.0;
    int k, i, j, l;
    printf("\n6. Principal axes of %d symmetric 3x3 tensors (EigenValuesVectorsSym)\n", M);
    for (k = 0; k < M; ++k)
        for (i = 0; i < 3; ++i)
            for (j = 0; j < 3; ++j)
                t[k][i][j] = (k + 1) * (i == j ? (i == 2 ? 5.0 : 2.0) : (i + j == 1 ? 1.0 : 0.0));
    expect(kelmEigenValuesVectorsSym_ma_64f(&t[0][0][0], obj, row, sizeof(Kel64f), work, &vec[0][0][0], obj, row,
                                            sizeof(Kel64f), &val[0][0], 3, M),
           kelStsNoErr, "kelmEigenValuesVectorsSym_ma_64f");
    for (k = 0; k < M; ++k)
        for (j = 0; j < 3; ++j) {
            const double want = (k + 1) * (j == 0 ? 5.0 : j == 1 ? 3.0 : 1.0);
            if (fabs(val[k][j] - want) > worstValue) worstValue = fabs(val[k][j] - want);
            for (i = 0; i < 3; ++i) {
                double r = -val[k][j] * vec[k][i][j];
                for (l = 0; l < 3; ++l) r += t[k][i][l] * vec[k][l][j];
                if (fabs(r) > worst) worst = fabs(r);
            }
        }
    printf("   values of tensor 0: %.3f %.3f %.3f (5, 3, 1); largest error of any value %.1e\n", val[0][0],
           val[0][1], val[0][2], worstValue);
    printf("   largest |A v - lambda v| over all tensors: %.1e\n", worst);
    if (worstValue > 1e-12 || worst > 1e-12) failed = 1;
}

int main(void)
{
    const KelLibraryVersion* v = kelmGetLibVersion();
    printf("%s, version %s\n\n", v->name, v->version);
    addDemo();
    solveDemo();
    vectorDemo();
    invertDemo();
    fitDemo();
    tensorDemo();
    eigenDemo();
    cameraDemo();
    printf("\n%s\n", failed ? "Something went wrong." : "All checks passed.");
    return failed ? EXIT_FAILURE : EXIT_SUCCESS;
}
