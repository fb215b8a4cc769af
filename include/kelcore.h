/* kelcore: the small platform library that libkelmq4 links against.
 *
 * libkelmq4 reaches these functions through the dynamic linker, so a
 * program may define its own ownGetNumThreads or kelGetMaxCacheSizeB and
 * the library will call that definition instead. */
#ifndef KELCORE_H
#define KELCORE_H

#if defined(__GNUC__)
#define KELCORE_API __attribute__((visibility("default")))
#else
#define KELCORE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Number of threads the library may use for one call.  Defaults to the
 * OpenMP maximum; kelSetNumThreads overrides it. */
KELCORE_API int ownGetNumThreads(void);

/* Choose the answer of ownGetNumThreads: n > 0 fixes it, n <= 0 returns to
 * the OpenMP default. */
KELCORE_API void kelSetNumThreads(int n);

/* What ownGetNumThreads answers now. */
KELCORE_API int kelGetNumThreads(void);

/* Stores the size in bytes of the largest cache of this machine in *size,
 * or 0 when it cannot be found out.  Returns 0. */
KELCORE_API int kelGetMaxCacheSizeB(int* size);

#ifdef __cplusplus
}
#endif

#endif
