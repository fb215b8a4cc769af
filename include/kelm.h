/* kelm: linear algebra on small matrices and vectors of float and double.
 *
 * Every operation works on one object or on an array of objects, wherever
 * their elements lie.  The last part of a name tells the description of the
 * operands:
 *   (none)  S: base pointer and byte strides (Stride0 between objects,
 *              Stride1 between rows, Stride2 between elements of a row)
 *   _L      L: a table of object pointers plus a byte RoiShift
 *   _P      P: a table with one pointer per element position plus a byte
 *              RoiShift; Stride0 steps from object to object
 * All strides and shifts are in bytes.  Every function returns a KelStatus.
 *
 * This file is generated from the member tables of the library
 * (tools/kelgen.py); do not edit it by hand.
 */
#ifndef KELM_H
#define KELM_H

#if defined(_WIN32)
#define KELM_API
#elif defined(__GNUC__)
#define KELM_API __attribute__((visibility("default")))
#else
#define KELM_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef float Kel32f;
typedef double Kel64f;
typedef int KelStatus;

/* Status values.  0 is success; every other value is an error. */
enum {
    kelStsNoErr = 0,
    kelStsBadSize = -6,
    kelStsNullPointer = -8,
    kelStsDivideByZero = -10,
    kelStsNotPositiveDefinite = -179,
    kelStsBadStride = -182,
    kelStsSingular = -195,
    kelStsBadRoiShift = -202,
    kelStsBadCount = -203,
    kelStsSizeMismatch = -204,
    kelStsNoConvergence = -205
};

typedef struct {
    int major;
    int minor;
    int majorBuild;
    int build;
    char targetCpu[4];
    const char* name;
    const char* version;
    const char* buildDate;
} KelLibraryVersion;

/* The version record of this build; static, never freed by the caller. */
KELM_API const KelLibraryVersion* kelmGetLibVersion(void);

/* ---- EigenValuesSym (eigensym) ---- */
/* EigenValuesSym: every eigenvalue of a matrix the caller declares */
/* symmetric, by Householder reduction to tridiagonal form and shifted QL or */
/* QR steps, sorted descending (size 2: the larger magnitude first). */
/* pBuffer holds size*size elements of work space.  Returns kelStsSingular */
/* for a matrix judged singular (its values are still written, unsorted, from */
/* size 3) and kelStsNoConvergence when 30 steps do not split off a value. */
KELM_API KelStatus kelmEigenValuesSym_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesSym_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* pBuffer, Kel32f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesSym_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesSym_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* pBuffer, Kel64f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesSym_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesSym_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesSym_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* pBuffer, Kel32f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesSym_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesSym_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesSym_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* pBuffer, Kel64f* dstValues, int size, int count);

/* ---- EigenValuesVectorsSym (eigensymvectors) ---- */
/* EigenValuesVectorsSym: the eigenvalues as EigenValuesSym computes them and */
/* an orthogonal matrix whose column j is the eigenvector of value j, built in */
/* place in the destination matrix.  Returns kelStsSingular for a matrix */
/* judged singular (the single-matrix members still deliver a complete, */
/* sorted result) and kelStsNoConvergence when 30 steps do not split off a */
/* value. */
KELM_API KelStatus kelmEigenValuesVectorsSym_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dstVectors, int dstStride1, int dstStride2, Kel32f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesVectorsSym_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, Kel32f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesVectorsSym_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dstVectors, int dstStride1, int dstStride2, Kel64f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesVectorsSym_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, Kel64f* dstValues, int size);
KELM_API KelStatus kelmEigenValuesVectorsSym_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dstVectors, int dstStride0, int dstStride1, int dstStride2, Kel32f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesVectorsSym_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, Kel32f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesVectorsSym_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, Kel32f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesVectorsSym_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dstVectors, int dstStride0, int dstStride1, int dstStride2, Kel64f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesVectorsSym_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, Kel64f* dstValues, int size, int count);
KELM_API KelStatus kelmEigenValuesVectorsSym_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, Kel64f* dstValues, int size, int count);

/* ---- Add (add) ---- */
/* Add: dst = src1 + src2, element by element, one rounded addition each. */
KELM_API KelStatus kelmAdd_mm_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmAdd_mm_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmAdd_mm_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmAdd_mm_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmAdd_tm_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmAdd_tm_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmAdd_tm_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmAdd_tm_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmAdd_tt_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmAdd_tt_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmAdd_tt_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmAdd_tt_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmAdd_mam_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mam_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mam_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_mam_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mam_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mam_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_mat_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mat_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mat_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_mat_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mat_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mat_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tam_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tam_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tam_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tam_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tam_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tam_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tat_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tat_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tat_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tat_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tat_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tat_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_mama_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mama_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mama_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_mama_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mama_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_mama_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tama_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tama_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tama_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tama_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tama_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tama_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tata_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tata_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tata_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_tata_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tata_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmAdd_tata_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmAdd_vv_32f(const Kel32f* src1, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmAdd_vv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmAdd_vv_64f(const Kel64f* src1, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmAdd_vv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmAdd_vc_32f(const Kel32f* src, int srcStride2, Kel32f val, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmAdd_vc_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmAdd_vc_64f(const Kel64f* src, int srcStride2, Kel64f val, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmAdd_vc_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmAdd_vac_32f(const Kel32f* src, int srcStride0, int srcStride2, Kel32f val, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vac_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vac_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vac_64f(const Kel64f* src, int srcStride0, int srcStride2, Kel64f val, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vac_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vac_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vav_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vav_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vava_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vava_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vca_32f(const Kel32f* src, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vca_32f_L(const Kel32f* src, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vca_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vca_64f(const Kel64f* src, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vca_64f_L(const Kel64f* src, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vca_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vaca_32f(const Kel32f* src, int srcStride0, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vaca_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vaca_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmAdd_vaca_64f(const Kel64f* src, int srcStride0, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vaca_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmAdd_vaca_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);

/* ---- Sub (sub) ---- */
/* Sub: dst = left - right, element by element, one rounded subtraction each. */
/* In the members whose code begins with c the constant is the left operand, */
/* but its arguments still follow the vector's. */
KELM_API KelStatus kelmSub_mm_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_mm_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_mm_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_mm_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_mt_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_mt_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_mt_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_mt_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_tm_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_tm_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_tm_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_tm_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_tt_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_tt_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_tt_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmSub_tt_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmSub_mam_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mam_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mam_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mam_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mam_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mam_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mat_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mat_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mat_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mat_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mat_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mat_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tam_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tam_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tam_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tam_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tam_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tam_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tat_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tat_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tat_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tat_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tat_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tat_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mma_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mma_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mma_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mma_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mma_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mma_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mta_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mta_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mta_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mta_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mta_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mta_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tma_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tma_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tma_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tma_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tma_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tma_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tta_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tta_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tta_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tta_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tta_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tta_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mama_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mama_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mama_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mama_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mama_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mama_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mata_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mata_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mata_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_mata_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mata_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_mata_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tama_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tama_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tama_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tama_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tama_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tama_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tata_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tata_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tata_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_tata_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tata_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmSub_tata_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmSub_vv_32f(const Kel32f* src1, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSub_vv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSub_vv_64f(const Kel64f* src1, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSub_vv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSub_vc_32f(const Kel32f* src, int srcStride2, Kel32f val, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSub_vc_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSub_vc_64f(const Kel64f* src, int srcStride2, Kel64f val, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSub_vc_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSub_cv_32f(const Kel32f* src, int srcStride2, Kel32f val, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSub_cv_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSub_cv_64f(const Kel64f* src, int srcStride2, Kel64f val, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSub_cv_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSub_vac_32f(const Kel32f* src, int srcStride0, int srcStride2, Kel32f val, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vac_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vac_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vac_64f(const Kel64f* src, int srcStride0, int srcStride2, Kel64f val, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vac_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vac_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_cva_32f(const Kel32f* src, int srcStride0, int srcStride2, Kel32f val, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cva_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cva_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_cva_64f(const Kel64f* src, int srcStride0, int srcStride2, Kel64f val, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cva_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cva_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vca_32f(const Kel32f* src, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vca_32f_L(const Kel32f* src, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vca_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vca_64f(const Kel64f* src, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vca_64f_L(const Kel64f* src, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vca_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_cav_32f(const Kel32f* src, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cav_32f_L(const Kel32f* src, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cav_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_cav_64f(const Kel64f* src, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cav_64f_L(const Kel64f* src, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cav_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vaca_32f(const Kel32f* src, int srcStride0, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vaca_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vaca_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vaca_64f(const Kel64f* src, int srcStride0, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vaca_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vaca_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_cava_32f(const Kel32f* src, int srcStride0, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cava_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cava_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_cava_64f(const Kel64f* src, int srcStride0, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cava_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_cava_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vav_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vav_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vva_32f(const Kel32f* src1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vva_32f_L(const Kel32f* src1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vva_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vva_64f(const Kel64f* src1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vva_64f_L(const Kel64f* src1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vva_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vava_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSub_vava_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSub_vava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);

/* ---- LUBackSubst (lubacksubst) ---- */
/* LUBackSubst: solves A x = b from the factors and pivot table that */
/* LUDecomp wrote: one system (mv), one factored matrix with many right-hand */
/* sides (mva), or one factored matrix and table slice per right-hand side */
/* (mava).  Never fails after the argument checks. */
KELM_API KelStatus kelmLUBackSubst_mv_32f(const Kel32f* src, int srcStride1, int srcStride2, const int* pivotIndex, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride2, int size);
KELM_API KelStatus kelmLUBackSubst_mv_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const int* pivotIndex, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmLUBackSubst_mv_64f(const Kel64f* src, int srcStride1, int srcStride2, const int* pivotIndex, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride2, int size);
KELM_API KelStatus kelmLUBackSubst_mv_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const int* pivotIndex, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmLUBackSubst_mva_32f(const Kel32f* src, int srcStride1, int srcStride2, const int* pivotIndex, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mva_32f_L(const Kel32f* src, int srcStride1, int srcStride2, const int* pivotIndex, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mva_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const int* pivotIndex, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mva_64f(const Kel64f* src, int srcStride1, int srcStride2, const int* pivotIndex, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mva_64f_L(const Kel64f* src, int srcStride1, int srcStride2, const int* pivotIndex, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mva_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const int* pivotIndex, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mava_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, const int* pivotIndex, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mava_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, const int* pivotIndex, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mava_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, const int* pivotIndex, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mava_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, const int* pivotIndex, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mava_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, const int* pivotIndex, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUBackSubst_mava_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, const int* pivotIndex, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);

/* ---- LUDecomp (ludecomp) ---- */
/* LUDecomp: dst holds unit lower and upper factors with row pivoting; the */
/* pivot table names, for each elimination step, the row of dst that was */
/* chosen.  Rows of dst are never exchanged.  Returns kelStsSingular when a */
/* pivot is too small. */
KELM_API KelStatus kelmLUDecomp_m_32f(const Kel32f* src, int srcStride1, int srcStride2, int* pivotIndex, Kel32f* dst, int dstStride1, int dstStride2, int size);
KELM_API KelStatus kelmLUDecomp_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int* pivotIndex, Kel32f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmLUDecomp_m_64f(const Kel64f* src, int srcStride1, int srcStride2, int* pivotIndex, Kel64f* dst, int dstStride1, int dstStride2, int size);
KELM_API KelStatus kelmLUDecomp_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int* pivotIndex, Kel64f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmLUDecomp_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, int* pivotIndex, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUDecomp_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int* pivotIndex, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUDecomp_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, int* pivotIndex, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmLUDecomp_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, int* pivotIndex, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUDecomp_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int* pivotIndex, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmLUDecomp_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, int* pivotIndex, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);

/* ---- Copy (copy) ---- */
/* Copy: the objects of an array from one description into another.  The */
/* suffix names the source's description, then the destination's. */
KELM_API KelStatus kelmCopy_ma_32f_LL(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_LP(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_LS(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_PL(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_PP(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_PS(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_SL(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_SP(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_32f_SS(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_LL(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_LP(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_LS(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_PL(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_PP(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_PS(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_SL(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_SP(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmCopy_ma_64f_SS(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmCopy_va_32f_LL(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_LP(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_LS(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_PL(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_PP(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_PS(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_SL(const Kel32f* src, int srcStride0, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_SP(const Kel32f* src, int srcStride0, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmCopy_va_32f_SS(const Kel32f* src, int srcStride0, int srcStride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_LL(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_LP(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_LS(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_PL(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_PP(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_PS(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_SL(const Kel64f* src, int srcStride0, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_SP(const Kel64f* src, int srcStride0, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmCopy_va_64f_SS(const Kel64f* src, int srcStride0, int srcStride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);

/* ---- Extract (extract) ---- */
/* Extract: gathers objects of any description into one dense buffer, each */
/* object row-major without gaps, objects one after the other; t and ta read */
/* a transposed source, so dst holds the transposition. */
KELM_API KelStatus kelmExtract_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* dst, int width, int height);
KELM_API KelStatus kelmExtract_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* dst, int width, int height);
KELM_API KelStatus kelmExtract_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* dst, int width, int height);
KELM_API KelStatus kelmExtract_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* dst, int width, int height);
KELM_API KelStatus kelmExtract_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_t_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* dst, int width, int height);
KELM_API KelStatus kelmExtract_t_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* dst, int width, int height);
KELM_API KelStatus kelmExtract_t_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* dst, int width, int height);
KELM_API KelStatus kelmExtract_t_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* dst, int width, int height);
KELM_API KelStatus kelmExtract_ta_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ta_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ta_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ta_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ta_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_ta_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* dst, int width, int height, int count);
KELM_API KelStatus kelmExtract_v_32f(const Kel32f* src, int srcStride2, Kel32f* dst, int len);
KELM_API KelStatus kelmExtract_v_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* dst, int len);
KELM_API KelStatus kelmExtract_v_64f(const Kel64f* src, int srcStride2, Kel64f* dst, int len);
KELM_API KelStatus kelmExtract_v_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* dst, int len);
KELM_API KelStatus kelmExtract_va_32f(const Kel32f* src, int srcStride0, int srcStride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmExtract_va_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmExtract_va_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmExtract_va_64f(const Kel64f* src, int srcStride0, int srcStride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmExtract_va_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmExtract_va_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* dst, int len, int count);

/* ---- LoadIdentity (loadidentity) ---- */
/* LoadIdentity: every object of the array becomes an identity matrix: 1 at */
/* (j, j) for j below both width and height, 0 everywhere else. */
KELM_API KelStatus kelmLoadIdentity_ma_32f(Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmLoadIdentity_ma_32f_L(Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmLoadIdentity_ma_32f_P(Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmLoadIdentity_ma_64f(Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmLoadIdentity_ma_64f_L(Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmLoadIdentity_ma_64f_P(Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);

/* ---- Transpose (transpose) ---- */
/* Transpose: dst[n](i, j) = src[n](j, i); width and height are the */
/* source's, so the result has width rows of height elements.  In P the */
/* destination table is row-major over the result.  Source and destination */
/* must not overlap. */
KELM_API KelStatus kelmTranspose_m_32f(const Kel32f* src, int srcStride1, int srcStride2, int width, int height, Kel32f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmTranspose_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int width, int height, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmTranspose_m_64f(const Kel64f* src, int srcStride1, int srcStride2, int width, int height, Kel64f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmTranspose_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int width, int height, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmTranspose_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, int width, int height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmTranspose_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int width, int height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmTranspose_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, int width, int height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmTranspose_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, int width, int height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmTranspose_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int width, int height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmTranspose_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, int width, int height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);

/* ---- Gaxpy (gaxpy) ---- */
/* Gaxpy: dst(r) = (sum over k ascending of src1(r, k) * src2(k)) + src3(r); */
/* src3 is added to the complete sum. */
KELM_API KelStatus kelmGaxpy_mv_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride2, int src2Len, const Kel32f* src3, int src3Stride2, int src3Len, Kel32f* dst, int dstStride2);
KELM_API KelStatus kelmGaxpy_mv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Len, const Kel32f* const* ppSrc3, int src3RoiShift, int src3Len, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmGaxpy_mv_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride2, int src2Len, const Kel64f* src3, int src3Stride2, int src3Len, Kel64f* dst, int dstStride2);
KELM_API KelStatus kelmGaxpy_mv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Len, const Kel64f* const* ppSrc3, int src3RoiShift, int src3Len, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmGaxpy_mva_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride2, int src2Len, const Kel32f* src3, int src3Stride0, int src3Stride2, int src3Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mva_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, const Kel32f* const* ppSrc3, int src3RoiShift, int src3Stride2, int src3Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mva_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, const Kel32f* const* ppSrc3, int src3RoiShift, int src3Stride0, int src3Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmGaxpy_mva_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride2, int src2Len, const Kel64f* src3, int src3Stride0, int src3Stride2, int src3Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mva_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, const Kel64f* const* ppSrc3, int src3RoiShift, int src3Stride2, int src3Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mva_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, const Kel64f* const* ppSrc3, int src3RoiShift, int src3Stride0, int src3Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmGaxpy_mvav_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride2, int src2Len, const Kel32f* src3, int src3Stride2, int src3Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mvav_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, const Kel32f* src3, int src3Stride2, int src3Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mvav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, const Kel32f* const* ppSrc3, int src3RoiShift, int src3Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmGaxpy_mvav_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride2, int src2Len, const Kel64f* src3, int src3Stride2, int src3Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mvav_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, const Kel64f* src3, int src3Stride2, int src3Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmGaxpy_mvav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, const Kel64f* const* ppSrc3, int src3RoiShift, int src3Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);

/* ---- Mul (mulc) ---- */
/* Mul by a constant: dst = val * src, one rounded product per element. */
/* In tc and tac, width and height are those of dst; src is stored with */
/* width rows of height elements.  vca and vaca take one constant per object. */
KELM_API KelStatus kelmMul_mc_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f val, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmMul_mc_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmMul_mc_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f val, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmMul_mc_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmMul_tc_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f val, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmMul_tc_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmMul_tc_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f val, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmMul_tc_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmMul_vc_32f(const Kel32f* src, int srcStride2, Kel32f val, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmMul_vc_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmMul_vc_64f(const Kel64f* src, int srcStride2, Kel64f val, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmMul_vc_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmMul_mac_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f val, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_mac_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_mac_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmMul_mac_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f val, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_mac_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_mac_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmMul_tac_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f val, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_tac_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_tac_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmMul_tac_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f val, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_tac_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmMul_tac_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmMul_vac_32f(const Kel32f* src, int srcStride0, int srcStride2, Kel32f val, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vac_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vac_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f val, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmMul_vac_64f(const Kel64f* src, int srcStride0, int srcStride2, Kel64f val, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vac_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vac_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f val, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmMul_vca_32f(const Kel32f* src, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vca_32f_L(const Kel32f* src, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vca_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmMul_vca_64f(const Kel64f* src, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vca_64f_L(const Kel64f* src, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vca_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmMul_vaca_32f(const Kel32f* src, int srcStride0, int srcStride2, const Kel32f* val, int valStride0, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vaca_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel32f* const* ppVal, int valRoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vaca_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel32f* val, int valStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmMul_vaca_64f(const Kel64f* src, int srcStride0, int srcStride2, const Kel64f* val, int valStride0, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vaca_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, const Kel64f* const* ppVal, int valRoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmMul_vaca_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel64f* val, int valStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);

/* ---- Mul (mulmm) ---- */
/* Mul of two matrices: dst(r, c) = sum over k ascending of A(r, k) * B(k, c), */
/* where A and B are src1 and src2 as stored (m) or transposed (t).  Sizes are */
/* those of the stored matrices. */
KELM_API KelStatus kelmMul_mm_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_mm_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_mm_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_mm_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_mt_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_mt_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_mt_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_mt_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_tm_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_tm_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_tm_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_tm_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_tt_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_tt_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_tt_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride1, int dstStride2);
KELM_API KelStatus kelmMul_tt_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_mam_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mam_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mam_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mam_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mam_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mam_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mat_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mat_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mat_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mat_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mat_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mat_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tam_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tam_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tam_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tam_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tam_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tam_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tat_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tat_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tat_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tat_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tat_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tat_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mma_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mma_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mma_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mma_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mma_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mma_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mta_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mta_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mta_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mta_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mta_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mta_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tma_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tma_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tma_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tma_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tma_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tma_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tta_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tta_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tta_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tta_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tta_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tta_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mama_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mama_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mama_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mama_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mama_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mama_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mata_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mata_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mata_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mata_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mata_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_mata_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tama_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tama_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tama_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tama_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tama_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tama_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tata_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tata_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tata_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tata_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tata_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride1, int src2Stride2, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int count);
KELM_API KelStatus kelmMul_tata_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Width, int src2Height, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);

/* ---- Mul (mulmv) ---- */
/* Mul of a matrix (as stored or transposed) and a column vector: */
/* dst(r) = sum over k ascending of A(r, k) * v(k). */
KELM_API KelStatus kelmMul_mv_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride2, int src2Len, Kel32f* dst, int dstStride2);
KELM_API KelStatus kelmMul_mv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Len, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_mv_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride2, int src2Len, Kel64f* dst, int dstStride2);
KELM_API KelStatus kelmMul_mv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Len, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_tv_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride2, int src2Len, Kel32f* dst, int dstStride2);
KELM_API KelStatus kelmMul_tv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Len, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_tv_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride2, int src2Len, Kel64f* dst, int dstStride2);
KELM_API KelStatus kelmMul_tv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Len, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmMul_mav_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride2, int src2Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_mav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride2, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_mav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mav_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride2, int src2Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_mav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride2, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_mav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tav_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride2, int src2Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_tav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride2, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_tav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tav_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride2, int src2Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_tav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride2, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_tav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mva_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_mva_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_mva_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mva_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_mva_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_mva_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tva_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_tva_32f_L(const Kel32f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_tva_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tva_64f(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_tva_64f_L(const Kel64f* src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_tva_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mava_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_mava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_mava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_mava_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_mava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_mava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tava_32f(const Kel32f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_tava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_tava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmMul_tava_64f(const Kel64f* src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* src2, int src2Stride0, int src2Stride2, int src2Len, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmMul_tava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride1, int src1Stride2, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmMul_tava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, int src1Width, int src1Height, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, int src2Len, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);

#ifdef __cplusplus
}
#endif

#endif /* KELM_H */
