/*
 * Xwk/Strings.h - small text, path and environment routines.
 *
 * Routines that work in place change the caller's buffer and return it.
 * Results described as allocated come from XtMalloc and are freed with
 * XtFree by the caller.  Every routine given a null pointer where a text or
 * buffer is needed does nothing and returns null (or 0, -1 for stschind).
 */
#ifndef XWK_STRINGS_H
#define XWK_STRINGS_H

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* Mode bits of stpcvt, combined by or; applied in one pass. */
#define XWK_CVT_ALL_SPACE      0x01  /* remove all white space */
#define XWK_CVT_LEADING_SPACE  0x02  /* remove leading white space */
#define XWK_CVT_TRAILING_SPACE 0x04  /* remove trailing white space */
#define XWK_CVT_REDUCE_SPACE   0x08  /* a run of white space becomes one blank */
#define XWK_CVT_KEEP_QUOTED    0x10  /* text in '...' or "..." stays as it is */
#define XWK_CVT_UPPER          0x20  /* upper case, CP866 Cyrillic included */
#define XWK_CVT_LOWER          0x40  /* lower case, CP866 Cyrillic included */
#define XWK_CVT_CONTROL        0x80  /* remove other control characters */
#define XWK_CVT_IDENTIFIER     0x100 /* white space and most punctuation to '_' */

/* Filters string in place by the mode bits above; returns string. */
char *stpcvt(char *string, int mode);
char *stpcvt_(char *string, const int *mode);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
