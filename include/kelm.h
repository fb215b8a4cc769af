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

/* ---- EigenValues (eigenvalues) ---- */
/* EigenValues: all eigenvalues of a general real square matrix, real parts */
/* in dstValuesRe and imaginary parts in dstValuesIm (size entries per */
/* object, complex pairs adjacent with the positive imaginary part first), */
/* by Hessenberg reduction and double-shift QR iteration.  pBuffer holds */
/* kelmEigenValuesGetBufSize bytes.  Returns kelStsNoConvergence when the */
/* iteration gives up. */
KELM_API KelStatus kelmEigenValues_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValues_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValues_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValues_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValues_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValues_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValues_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValues_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValues_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValues_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);

/* ---- EigenValuesGetBufSize (eigenvaluesbufsize) ---- */
/* EigenValuesGetBufSize: the bytes of pBuffer that kelmEigenValues needs */
/* for a matrix of the given size. */
KELM_API KelStatus kelmEigenValuesGetBufSize_32f(int size, int* bufSize);
KELM_API KelStatus kelmEigenValuesGetBufSize_64f(int size, int* bufSize);

/* ---- EigenValuesVectors (eigenvectors) ---- */
/* EigenValuesVectors: eigenvalues as kelmEigenValues gives them, and both */
/* kinds of eigenvector from one Schur form: dstVectorsRight as */
/* kelmEigenValuesVectorsRight gives them (transpose(src) v = lambda v), */
/* dstVectorsLeft as kelmEigenValuesVectorsLeft (src v = lambda v). */
/* pBuffer holds kelmEigenValuesVectorsGetBufSize bytes; the vector */
/* destinations are written only on success.  Returns kelStsNoConvergence */
/* when the iteration gives up. */
KELM_API KelStatus kelmEigenValuesVectors_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* dstVectorsRight, int dstRightStride1, int dstRightStride2, Kel32f* dstVectorsLeft, int dstLeftStride1, int dstLeftStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* const* ppDstRight, int dstRightRoiShift, Kel32f* const* ppDstLeft, int dstLeftRoiShift, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* dstVectorsRight, int dstRightStride1, int dstRightStride2, Kel64f* dstVectorsLeft, int dstLeftStride1, int dstLeftStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* const* ppDstRight, int dstRightRoiShift, Kel64f* const* ppDstLeft, int dstLeftRoiShift, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dstVectorsRight, int dstRightStride0, int dstRightStride1, int dstRightStride2, Kel32f* dstVectorsLeft, int dstLeftStride0, int dstLeftStride1, int dstLeftStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* const* ppDstRight, int dstRightRoiShift, int dstRightStride1, int dstRightStride2, Kel32f* const* ppDstLeft, int dstLeftRoiShift, int dstLeftStride1, int dstLeftStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDstRight, int dstRightRoiShift, int dstRightStride0, Kel32f* const* ppDstLeft, int dstLeftRoiShift, int dstLeftStride0, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dstVectorsRight, int dstRightStride0, int dstRightStride1, int dstRightStride2, Kel64f* dstVectorsLeft, int dstLeftStride0, int dstLeftStride1, int dstLeftStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* const* ppDstRight, int dstRightRoiShift, int dstRightStride1, int dstRightStride2, Kel64f* const* ppDstLeft, int dstLeftRoiShift, int dstLeftStride1, int dstLeftStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectors_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDstRight, int dstRightRoiShift, int dstRightStride0, Kel64f* const* ppDstLeft, int dstLeftRoiShift, int dstLeftStride0, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);

/* ---- EigenValuesVectorsGetBufSize (eigenvectorsbufsize) ---- */
/* EigenValuesVectorsGetBufSize: the bytes of pBuffer that */
/* kelmEigenValuesVectors, kelmEigenValuesVectorsLeft and */
/* kelmEigenValuesVectorsRight need for a matrix of the given size. */
KELM_API KelStatus kelmEigenValuesVectorsGetBufSize_32f(int size, int* bufSize);
KELM_API KelStatus kelmEigenValuesVectorsGetBufSize_64f(int size, int* bufSize);

/* ---- EigenValuesVectorsLeft (eigenvectorsleft) ---- */
/* EigenValuesVectorsLeft: eigenvalues as kelmEigenValues gives them and */
/* the vectors v with src v = lambda v, column j for */
/* eigenvalue j (a complex pair: real part, then imaginary part, of the */
/* first one's vector), each of unit length.  pBuffer holds */
/* kelmEigenValuesVectorsGetBufSize bytes; dstVectors is written only on */
/* success.  Returns kelStsNoConvergence when the iteration gives up. */
KELM_API KelStatus kelmEigenValuesVectorsLeft_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* dstVectors, int dstStride1, int dstStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* const* ppDst, int dstRoiShift, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* dstVectors, int dstStride1, int dstStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* const* ppDst, int dstRoiShift, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dstVectors, int dstStride0, int dstStride1, int dstStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dstVectors, int dstStride0, int dstStride1, int dstStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsLeft_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);

/* ---- EigenValuesVectorsRight (eigenvectorsright) ---- */
/* EigenValuesVectorsRight: eigenvalues as kelmEigenValues gives them and */
/* the vectors v with transpose(src) v = lambda v, column j for */
/* eigenvalue j (a complex pair: real part, then imaginary part, of the */
/* first one's vector), each of unit length.  pBuffer holds */
/* kelmEigenValuesVectorsGetBufSize bytes; dstVectors is written only on */
/* success.  Returns kelStsNoConvergence when the iteration gives up. */
KELM_API KelStatus kelmEigenValuesVectorsRight_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* dstVectors, int dstStride1, int dstStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* const* ppDst, int dstRoiShift, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* dstVectors, int dstStride1, int dstStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* const* ppDst, int dstRoiShift, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dstVectors, int dstStride0, int dstStride1, int dstStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, Kel32f* dstValuesRe, Kel32f* dstValuesIm, int size, int count, Kel32f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dstVectors, int dstStride0, int dstStride1, int dstStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);
KELM_API KelStatus kelmEigenValuesVectorsRight_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, Kel64f* dstValuesRe, Kel64f* dstValuesIm, int size, int count, Kel64f* pBuffer);

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

/* ---- CholeskyBackSubst (choleskybacksubst) ---- */
/* CholeskyBackSubst: solves A x = b from the factor that CholeskyDecomp */
/* wrote (reciprocals on its diagonal): one system (mv), one factor with */
/* many right-hand sides (mva), or one factor per right-hand side (mava). */
/* Never fails after the argument checks. */
KELM_API KelStatus kelmCholeskyBackSubst_mv_32f(const Kel32f* src, int srcStride1, int srcStride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride2, int size);
KELM_API KelStatus kelmCholeskyBackSubst_mv_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmCholeskyBackSubst_mv_64f(const Kel64f* src, int srcStride1, int srcStride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride2, int size);
KELM_API KelStatus kelmCholeskyBackSubst_mv_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmCholeskyBackSubst_mva_32f(const Kel32f* src, int srcStride1, int srcStride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mva_32f_L(const Kel32f* src, int srcStride1, int srcStride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mva_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mva_64f(const Kel64f* src, int srcStride1, int srcStride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mva_64f_L(const Kel64f* src, int srcStride1, int srcStride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mva_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mava_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mava_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mava_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mava_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mava_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyBackSubst_mava_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);

/* ---- CholeskyDecomp (choleskydecomp) ---- */
/* CholeskyDecomp: the lower factor L of a symmetric positive definite */
/* matrix, with 1/L(i,i) stored on the diagonal.  Only the lower triangle of */
/* src is read and of dst written.  Returns kelStsNotPositiveDefinite when a */
/* diagonal step is not above the kernel's tolerance. */
KELM_API KelStatus kelmCholeskyDecomp_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* dst, int dstStride1, int dstStride2, int size);
KELM_API KelStatus kelmCholeskyDecomp_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmCholeskyDecomp_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* dst, int dstStride1, int dstStride2, int size);
KELM_API KelStatus kelmCholeskyDecomp_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmCholeskyDecomp_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyDecomp_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyDecomp_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmCholeskyDecomp_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyDecomp_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmCholeskyDecomp_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);

/* ---- Det (det) ---- */
/* Det: the determinant of each matrix into a plain run of results, one */
/* element per object with no stride.  pBuffer is scratch for one object, */
/* size * (size + 1) elements, required at every size.  Never fails after */
/* the argument checks: a matrix that elimination finds singular gives 0. */
KELM_API KelStatus kelmDet_m_32f(const Kel32f* src, int srcStride1, int srcStride2, int size, Kel32f* pBuffer, Kel32f* dst);
KELM_API KelStatus kelmDet_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int size, Kel32f* pBuffer, Kel32f* dst);
KELM_API KelStatus kelmDet_m_64f(const Kel64f* src, int srcStride1, int srcStride2, int size, Kel64f* pBuffer, Kel64f* dst);
KELM_API KelStatus kelmDet_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int size, Kel64f* pBuffer, Kel64f* dst);
KELM_API KelStatus kelmDet_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, int size, Kel32f* pBuffer, Kel32f* dst, int count);
KELM_API KelStatus kelmDet_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int size, Kel32f* pBuffer, Kel32f* dst, int count);
KELM_API KelStatus kelmDet_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, int size, Kel32f* pBuffer, Kel32f* dst, int count);
KELM_API KelStatus kelmDet_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, int size, Kel64f* pBuffer, Kel64f* dst, int count);
KELM_API KelStatus kelmDet_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int size, Kel64f* pBuffer, Kel64f* dst, int count);
KELM_API KelStatus kelmDet_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, int size, Kel64f* pBuffer, Kel64f* dst, int count);

/* ---- Invert (invert) ---- */
/* Invert: the inverse of each matrix, in the description of the source. */
/* pBuffer is scratch for one object, size * (size + 1) elements, required */
/* at every size.  Returns kelStsSingular at the first matrix whose pivot or */
/* determinant is too small; src and dst must not overlap. */
KELM_API KelStatus kelmInvert_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dst, int dstStride1, int dstStride2, int size);
KELM_API KelStatus kelmInvert_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmInvert_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dst, int dstStride1, int dstStride2, int size);
KELM_API KelStatus kelmInvert_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int size);
KELM_API KelStatus kelmInvert_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmInvert_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmInvert_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);
KELM_API KelStatus kelmInvert_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmInvert_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int size, int count);
KELM_API KelStatus kelmInvert_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int size, int count);

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

/* ---- QRBackSubst (qrbacksubst) ---- */
/* QRBackSubst: applies the reflectors that QRDecomp stored to b and solves */
/* with R: the least-squares solution for a tall matrix.  pBuffer holds */
/* `height` elements of scratch.  Never fails after the argument checks. */
KELM_API KelStatus kelmQRBackSubst_mv_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* pBuffer, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride2, int width, int height);
KELM_API KelStatus kelmQRBackSubst_mv_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* pBuffer, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmQRBackSubst_mv_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* pBuffer, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride2, int width, int height);
KELM_API KelStatus kelmQRBackSubst_mv_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* pBuffer, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmQRBackSubst_mva_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* pBuffer, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mva_32f_L(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* pBuffer, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mva_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* pBuffer, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mva_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* pBuffer, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mva_64f_L(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* pBuffer, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mva_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* pBuffer, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mava_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* pBuffer, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mava_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* pBuffer, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mava_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* pBuffer, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mava_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* pBuffer, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mava_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* pBuffer, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRBackSubst_mava_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* pBuffer, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);

/* ---- QRDecomp (qrdecomp) ---- */
/* QRDecomp: Householder reduction of a matrix with at least as many rows */
/* as columns.  dst holds R on and above the diagonal and each reflector's */
/* tail below it; pBuffer holds `height` elements of scratch.  Returns */
/* kelStsDivideByZero when a column's squared norm is below the tolerance. */
KELM_API KelStatus kelmQRDecomp_m_32f(const Kel32f* src, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmQRDecomp_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmQRDecomp_m_64f(const Kel64f* src, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dst, int dstStride1, int dstStride2, int width, int height);
KELM_API KelStatus kelmQRDecomp_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int width, int height);
KELM_API KelStatus kelmQRDecomp_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRDecomp_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRDecomp_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* pBuffer, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);
KELM_API KelStatus kelmQRDecomp_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* dst, int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRDecomp_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
KELM_API KelStatus kelmQRDecomp_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* pBuffer, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int width, int height, int count);

/* ---- builders (builders) ---- */
/* 4x4 float matrices, row-major, for row vectors multiplying from the */
/* left (v * M): identity, view, projection, rotation, scaling and */
/* translation matrices.  All 16 elements are written; nothing is tested. */
KELM_API KelStatus kelmIdentity_m4_32f(Kel32f* dst);
KELM_API KelStatus kelmLookAtLH_m4_32f(const Kel32f* eye, const Kel32f* at, const Kel32f* up, Kel32f* dst);
KELM_API KelStatus kelmLookAtRH_m4_32f(const Kel32f* eye, const Kel32f* at, const Kel32f* up, Kel32f* dst);
KELM_API KelStatus kelmOrthoLH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmOrthoRH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmPerspectiveLH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmPerspectiveRH_m4_32f(Kel32f w, Kel32f h, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmOrthoOffCenterLH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmOrthoOffCenterRH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmPerspectiveOffCenterLH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmPerspectiveOffCenterRH_m4_32f(Kel32f l, Kel32f r, Kel32f b, Kel32f t, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmPerspectiveFovLH_m4_32f(Kel32f fovY, Kel32f aspect, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmPerspectiveFovRH_m4_32f(Kel32f fovY, Kel32f aspect, Kel32f zn, Kel32f zf, Kel32f* dst);
KELM_API KelStatus kelmRotationX_m4_32f(Kel32f angle, Kel32f* dst);
KELM_API KelStatus kelmRotationY_m4_32f(Kel32f angle, Kel32f* dst);
KELM_API KelStatus kelmRotationZ_m4_32f(Kel32f angle, Kel32f* dst);
KELM_API KelStatus kelmRotationYawPitchRoll_m4_32f(Kel32f yaw, Kel32f pitch, Kel32f roll, Kel32f* dst);
KELM_API KelStatus kelmRotationAxis_v3m4_32f(const Kel32f* axis, Kel32f angle, Kel32f* dst);
KELM_API KelStatus kelmScaling_m4_32f(Kel32f x, Kel32f y, Kel32f z, Kel32f* dst);
KELM_API KelStatus kelmTranslation_m4_32f(Kel32f x, Kel32f y, Kel32f z, Kel32f* dst);

/* ---- matrix4 (matrix4) ---- */
/* Operations on 4x4 float matrices and transforms of 2-, 3- and 4-vectors */
/* (row vectors, v * M), singly and in runs (`a`: byte strides from vector */
/* to vector, nothing done for count < 1).  Mul_mm4x4 returns */
/* kelStsNullPointer for a null pointer; Invert_m4 and the Unprojects */
/* return kelStsSingular for a matrix they cannot invert; the others test */
/* nothing. */
KELM_API KelStatus kelmDet_m4_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmInvert_m4_32f(const Kel32f* src, Kel32f* det, Kel32f* dst);
KELM_API KelStatus kelmIsIdentity_m4_32f(const Kel32f* src, int* result);
KELM_API KelStatus kelmTranspose_m4_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmMul_mm4x4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmMulTranspose_m4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmAffineTransform_m4v2_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmAffineTransform_m4v2a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmAffineTransform_m4v3_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmAffineTransform_m4v3a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmAffineTransform_m4v4_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmAffineTransform_m4v4a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmAffineTransformCoord_m4v2_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmAffineTransformCoord_m4v2a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmAffineTransformCoord_m4v3_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmAffineTransformCoord_m4v3a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmAffineTransformNormal_m4v2_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmAffineTransformNormal_m4v2a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmAffineTransformNormal_m4v3_32f(const Kel32f* matrix, const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmAffineTransformNormal_m4v3a_32f(const Kel32f* matrix, const Kel32f* src, int srcStride0, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmProject_m4v3_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld, const Kel32f* src, Kel32f viewWidth, Kel32f viewHeight, Kel32f minZ, Kel32f maxZ, Kel32f* dst);
KELM_API KelStatus kelmProject_m4v3a_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld, const Kel32f* src, int srcStride0, Kel32f viewWidth, Kel32f viewHeight, Kel32f minZ, Kel32f maxZ, Kel32f* dst, int dstStride0, int count);
KELM_API KelStatus kelmUnproject_m4v3_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld, const Kel32f* src, Kel32f viewWidth, Kel32f viewHeight, Kel32f minZ, Kel32f maxZ, Kel32f* dst);
KELM_API KelStatus kelmUnproject_m4v3a_32f(const Kel32f* mProjection, const Kel32f* mView, const Kel32f* mWorld, const Kel32f* src, int srcStride0, Kel32f viewWidth, Kel32f viewHeight, Kel32f minZ, Kel32f maxZ, Kel32f* dst, int dstStride0, int count);

/* ---- AffineTransform3DH (transform3dh) ---- */
/* AffineTransform3DH: a 4x4 matrix applied to 3-vectors taken as column */
/* vectors with a fourth component 1, then divided by the resulting w.  A */
/* vector whose |w| is not above the smallest normal float gets the largest */
/* float in its three components and the call returns kelStsDivideByZero; */
/* the other vectors are still transformed. */
KELM_API KelStatus kelmAffineTransform3DH_mva_32f(const Kel32f* src1, int src1Stride1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int count);

/* ---- vectors (vectors) ---- */
/* Vectors of 2, 3 or 4 floats at plain pointers: arithmetic, lengths, */
/* products and interpolation.  Every function returns 0 and tests nothing. */
/* Hermite takes position 1, tangent 1, position 2, tangent 2; CrossProduct */
/* of 2-vectors writes one float (the z of the product), of 4-vectors takes */
/* three vectors. */
KELM_API KelStatus kelmAdd_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmSub_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmMulC_v2_32f(const Kel32f* src, Kel32f val, Kel32f* dst);
KELM_API KelStatus kelmMin_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmMax_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmLen_v2_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmLenSqr_v2_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmNormalize_v2_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmDotProduct_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmCrossProduct_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmBaryCentric_v2_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, Kel32f f, Kel32f g, Kel32f* dst);
KELM_API KelStatus kelmHermite_v2_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, const Kel32f* src4, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmInterpolationLinear_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmInterpolationCatmullRom_v2_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, const Kel32f* src4, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmAdd_v3_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmSub_v3_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmMulC_v3_32f(const Kel32f* src, Kel32f val, Kel32f* dst);
KELM_API KelStatus kelmMin_v3_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmMax_v3_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmLen_v3_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmLenSqr_v3_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmNormalize_v3_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmDotProduct_v3_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmCrossProduct_v3_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmBaryCentric_v3_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, Kel32f f, Kel32f g, Kel32f* dst);
KELM_API KelStatus kelmHermite_v3_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, const Kel32f* src4, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmInterpolationLinear_v3_32f(const Kel32f* src1, const Kel32f* src2, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmInterpolationCatmullRom_v3_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, const Kel32f* src4, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmAdd_v4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmSub_v4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmMulC_v4_32f(const Kel32f* src, Kel32f val, Kel32f* dst);
KELM_API KelStatus kelmMin_v4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmMax_v4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmLen_v4_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmLenSqr_v4_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmNormalize_v4_32f(const Kel32f* src, Kel32f* dst);
KELM_API KelStatus kelmDotProduct_v4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst);
KELM_API KelStatus kelmCrossProduct_v4_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, Kel32f* dst);
KELM_API KelStatus kelmBaryCentric_v4_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, Kel32f f, Kel32f g, Kel32f* dst);
KELM_API KelStatus kelmHermite_v4_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, const Kel32f* src4, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmInterpolationLinear_v4_32f(const Kel32f* src1, const Kel32f* src2, Kel32f s, Kel32f* dst);
KELM_API KelStatus kelmInterpolationCatmullRom_v4_32f(const Kel32f* src1, const Kel32f* src2, const Kel32f* src3, const Kel32f* src4, Kel32f s, Kel32f* dst);

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

/* ---- CrossProduct (crossproduct) ---- */
/* CrossProduct of two 3-vectors: dst = (a1 b2 - a2 b1, a2 b0 - a0 b2, */
/* a0 b1 - a1 b0).  No size argument; the count is tested at a different */
/* step by different operand codes. */
KELM_API KelStatus kelmCrossProduct_vv_32f(const Kel32f* src1, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride2);
KELM_API KelStatus kelmCrossProduct_vv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmCrossProduct_vv_64f(const Kel64f* src1, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride2);
KELM_API KelStatus kelmCrossProduct_vv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift);
KELM_API KelStatus kelmCrossProduct_vav_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmCrossProduct_vav_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmCrossProduct_vva_32f(const Kel32f* src1, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vva_32f_L(const Kel32f* src1, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vva_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmCrossProduct_vva_64f(const Kel64f* src1, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vva_64f_L(const Kel64f* src1, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vva_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmCrossProduct_vava_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int count);
KELM_API KelStatus kelmCrossProduct_vava_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int count);
KELM_API KelStatus kelmCrossProduct_vava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int count);

/* ---- DotProduct (dotproduct) ---- */
/* DotProduct: dst(n) = sum over k of src1(n)(k) * src2(n)(k), one element */
/* of the plain dst for each object. */
KELM_API KelStatus kelmDotProduct_vv_32f(const Kel32f* src1, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int len);
KELM_API KelStatus kelmDotProduct_vv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* dst, int len);
KELM_API KelStatus kelmDotProduct_vv_64f(const Kel64f* src1, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int len);
KELM_API KelStatus kelmDotProduct_vv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* dst, int len);
KELM_API KelStatus kelmDotProduct_vav_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* src2, int src2Stride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vav_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* src2, int src2Stride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vava_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vava_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmDotProduct_vava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* dst, int len, int count);

/* ---- FrobNorm (frobnorm) ---- */
/* FrobNorm: dst(n) = square root of the sum of the squares of all elements */
/* of matrix n, in the element type. */
KELM_API KelStatus kelmFrobNorm_m_32f(const Kel32f* src, int srcStride1, int srcStride2, int width, int height, Kel32f* dst);
KELM_API KelStatus kelmFrobNorm_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int width, int height, Kel32f* dst);
KELM_API KelStatus kelmFrobNorm_m_64f(const Kel64f* src, int srcStride1, int srcStride2, int width, int height, Kel64f* dst);
KELM_API KelStatus kelmFrobNorm_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int width, int height, Kel64f* dst);
KELM_API KelStatus kelmFrobNorm_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, int width, int height, Kel32f* dst, int count);
KELM_API KelStatus kelmFrobNorm_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int width, int height, Kel32f* dst, int count);
KELM_API KelStatus kelmFrobNorm_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, int width, int height, Kel32f* dst, int count);
KELM_API KelStatus kelmFrobNorm_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, int width, int height, Kel64f* dst, int count);
KELM_API KelStatus kelmFrobNorm_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int width, int height, Kel64f* dst, int count);
KELM_API KelStatus kelmFrobNorm_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, int width, int height, Kel64f* dst, int count);

/* ---- L2Norm (l2norm) ---- */
/* L2Norm: dst(n) = square root of the sum of the squares of src(n), in the */
/* element type, with no scaling (squares that overflow give infinity). */
KELM_API KelStatus kelmL2Norm_v_32f(const Kel32f* src, int srcStride2, Kel32f* dst, int len);
KELM_API KelStatus kelmL2Norm_v_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, Kel32f* dst, int len);
KELM_API KelStatus kelmL2Norm_v_64f(const Kel64f* src, int srcStride2, Kel64f* dst, int len);
KELM_API KelStatus kelmL2Norm_v_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, Kel64f* dst, int len);
KELM_API KelStatus kelmL2Norm_va_32f(const Kel32f* src, int srcStride0, int srcStride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmL2Norm_va_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride2, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmL2Norm_va_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, Kel32f* dst, int len, int count);
KELM_API KelStatus kelmL2Norm_va_64f(const Kel64f* src, int srcStride0, int srcStride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmL2Norm_va_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride2, Kel64f* dst, int len, int count);
KELM_API KelStatus kelmL2Norm_va_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, Kel64f* dst, int len, int count);

/* ---- LComb (lcomb) ---- */
/* LComb: dst(k) = scale1 * src1(k) + scale2 * src2(k), two rounded */
/* products and one addition. */
KELM_API KelStatus kelmLComb_vv_32f(const Kel32f* src1, int src1Stride2, Kel32f scale1, const Kel32f* src2, int src2Stride2, Kel32f scale2, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmLComb_vv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, Kel32f scale1, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f scale2, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmLComb_vv_64f(const Kel64f* src1, int src1Stride2, Kel64f scale1, const Kel64f* src2, int src2Stride2, Kel64f scale2, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmLComb_vv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, Kel64f scale1, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f scale2, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmLComb_vav_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, Kel32f scale1, const Kel32f* src2, int src2Stride2, Kel32f scale2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel32f scale1, const Kel32f* src2, int src2Stride2, Kel32f scale2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel32f scale1, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f scale2, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmLComb_vav_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, Kel64f scale1, const Kel64f* src2, int src2Stride2, Kel64f scale2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel64f scale1, const Kel64f* src2, int src2Stride2, Kel64f scale2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel64f scale1, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f scale2, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmLComb_vava_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, Kel32f scale1, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f scale2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel32f scale1, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f scale2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel32f scale1, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f scale2, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmLComb_vava_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, Kel64f scale1, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f scale2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel64f scale1, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f scale2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmLComb_vava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel64f scale1, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f scale2, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);

/* ---- Saxpy (saxpy) ---- */
/* Saxpy: dst(k) = scale * src1(k) + src2(k), one rounded product and one */
/* addition; the scale multiplies the first vector also where it is single. */
KELM_API KelStatus kelmSaxpy_vv_32f(const Kel32f* src1, int src1Stride2, Kel32f scale, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSaxpy_vv_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, Kel32f scale, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSaxpy_vv_64f(const Kel64f* src1, int src1Stride2, Kel64f scale, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride2, int len);
KELM_API KelStatus kelmSaxpy_vv_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, Kel64f scale, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int len);
KELM_API KelStatus kelmSaxpy_vav_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, Kel32f scale, const Kel32f* src2, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vav_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel32f scale, const Kel32f* src2, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vav_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel32f scale, const Kel32f* const* ppSrc2, int src2RoiShift, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSaxpy_vav_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, Kel64f scale, const Kel64f* src2, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vav_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel64f scale, const Kel64f* src2, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vav_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel64f scale, const Kel64f* const* ppSrc2, int src2RoiShift, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSaxpy_vva_32f(const Kel32f* src1, int src1Stride2, Kel32f scale, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vva_32f_L(const Kel32f* src1, int src1Stride2, Kel32f scale, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vva_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, Kel32f scale, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSaxpy_vva_64f(const Kel64f* src1, int src1Stride2, Kel64f scale, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vva_64f_L(const Kel64f* src1, int src1Stride2, Kel64f scale, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vva_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, Kel64f scale, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSaxpy_vava_32f(const Kel32f* src1, int src1Stride0, int src1Stride2, Kel32f scale, const Kel32f* src2, int src2Stride0, int src2Stride2, Kel32f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vava_32f_L(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel32f scale, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel32f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vava_32f_P(const Kel32f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel32f scale, const Kel32f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel32f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);
KELM_API KelStatus kelmSaxpy_vava_64f(const Kel64f* src1, int src1Stride0, int src1Stride2, Kel64f scale, const Kel64f* src2, int src2Stride0, int src2Stride2, Kel64f* dst, int dstStride0, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vava_64f_L(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride2, Kel64f scale, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride2, Kel64f* const* ppDst, int dstRoiShift, int dstStride2, int len, int count);
KELM_API KelStatus kelmSaxpy_vava_64f_P(const Kel64f* const* ppSrc1, int src1RoiShift, int src1Stride0, Kel64f scale, const Kel64f* const* ppSrc2, int src2RoiShift, int src2Stride0, Kel64f* const* ppDst, int dstRoiShift, int dstStride0, int len, int count);

/* ---- Trace (trace) ---- */
/* Trace: dst(n) = sum of the diagonal x(k, k), k = 0..width-1, of square */
/* matrix n. */
KELM_API KelStatus kelmTrace_m_32f(const Kel32f* src, int srcStride1, int srcStride2, int width, Kel32f* dst);
KELM_API KelStatus kelmTrace_m_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int width, Kel32f* dst);
KELM_API KelStatus kelmTrace_m_64f(const Kel64f* src, int srcStride1, int srcStride2, int width, Kel64f* dst);
KELM_API KelStatus kelmTrace_m_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int width, Kel64f* dst);
KELM_API KelStatus kelmTrace_ma_32f(const Kel32f* src, int srcStride0, int srcStride1, int srcStride2, int width, Kel32f* dst, int count);
KELM_API KelStatus kelmTrace_ma_32f_L(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int width, Kel32f* dst, int count);
KELM_API KelStatus kelmTrace_ma_32f_P(const Kel32f* const* ppSrc, int srcRoiShift, int srcStride0, int width, Kel32f* dst, int count);
KELM_API KelStatus kelmTrace_ma_64f(const Kel64f* src, int srcStride0, int srcStride1, int srcStride2, int width, Kel64f* dst, int count);
KELM_API KelStatus kelmTrace_ma_64f_L(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride1, int srcStride2, int width, Kel64f* dst, int count);
KELM_API KelStatus kelmTrace_ma_64f_P(const Kel64f* const* ppSrc, int srcRoiShift, int srcStride0, int width, Kel64f* dst, int count);

#ifdef __cplusplus
}
#endif

#endif /* KELM_H */
