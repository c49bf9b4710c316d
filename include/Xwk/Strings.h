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

#include <X11/Intrinsic.h>
#include <sys/stat.h>

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

/* Index of the first c in string, -1 if none. */
int stschind(int c, const char *string);
/* Replaces each character of string found in from by the character at the
 * same index of to, or by a blank where to is shorter; returns string. */
char *stpxlate(char *string, const char *from, const char *to);
/* Turns runs of blanks back into tabs for stops every width columns, in
 * place; returns string. */
char *stptabfy(char *string, int width);
/* Expands the tabs of input into output, stops every width columns (0 or
 * less: tabs stay), using at most size - 1 characters and the ending zero.
 * Returns null when all the input was taken, else the rest of the input. */
char *stpexpan(char *output, const char *input, int width, int size);
/* Justifies input in exactly width characters (negative counts as 0) padded
 * with pad: mode 0 centres, 1 aligns right, others align left; a longer
 * input is cut.  output must hold width + 1 bytes; returns output. */
char *stpjust(char *output, const char *input, int pad, int width, int mode);
char *stpjust_(char *output, const char *input, const char *pad, const int *width,
               const int *mode);

/* As strsep: cuts *stringp at the first character of delim and moves it
 * behind, or sets it to null at the end.  Returns the token. */
char *XwkStrSep(char **stringp, const char *delim);
/* The value of name in an environment array of "NAME=value" strings. */
char *XwkGetEnv(char **environment, const char *name);
/* Parses "key=value, key=value" in place.  *keys and *values become arrays
 * (XtMalloc, free the arrays only) of pointers into text; returns their
 * length. */
int XwkExtractString(char *text, char ***keys, char ***values);
/* A new null-ended array (XtMalloc, free the array only) of the strings of
 * old, each replaced by the first string of add that has its beginning up
 * to separator, followed by the strings of add that replaced none. */
char **XwkMergeStrings(char **old, char **add, int separator);
/* Cuts text at separator, where a backslash before it keeps it as text (the
 * backslash stays), and drops empty pieces.  The null-ended array and each
 * piece are allocated; *count gets the number of pieces. */
char **XwkConvertStringToStringTable(const char *text, int separator, int *count);
/* Allocated copy of text with every from replaced by to, again and again
 * until none is left.  Where to contains from, or from is empty, the text
 * is gone through once, left to right. */
char *XwkReplaceString(const char *text, const char *from, const char *to);
/* Appends second to first (consumed, may be null) with XtRealloc. */
char *concat(char *first, const char *second);
/* Sorts count strings by strcmp. */
void XwkSortStrings(char **strings, int count);

/* "%ld.%ld" of the whole part and of the fraction times 1000000 in a
 * static buffer: leading zeros of the fraction are lost (1.05 gives
 * "1.50000") and so is the sign of values between -1 and 0. */
char *XwkFtoA(double value);
/* Decimal text to float: sign, digits, '.', digits; no exponent. */
float XwkAtoF(const char *text);

/* Path services. */
Boolean XwkIsFileExist(const char *path);
char *XwkFindPath(const char *name, const char *search);
/* Expands ~/, $NAME, $(NAME) and ${NAME} in name (from environment, or the
 * process's when null) and finds it as an absolute path or in a directory
 * of the ':' list search.  The result is a static buffer of PATH_MAX bytes
 * (texts longer are cut), or null. */
char *XwkFindPathExt(const char *name, const char *search, char **environment);
/* Allocated text behind the last '.' of pattern, null without one. */
char *XwkGetExtFromPattern(const char *pattern);
/* Allocated regular expression for a file glob, up to its first '/'. */
char *XwkGetMatchPattern(const char *glob);
/* The absolute form of path in output, which must hold PATH_MAX bytes; a
 * longer result is cut to PATH_MAX - 1 characters.  Only the directory
 * above the last part needs to exist.  Returns output, or null. */
char *XwkGetFullPath(char *output, const char *path);
/* Allocated directory, name and extension of path; each output optional. */
void XwkSplitPath(const char *path, char **directory, char **name, char **extension);
/* Allocated copy of path with ~ or ~user replaced by the home directory. */
char *XwkExpandTilde(const char *path);
/* Whether the user of the process may read (mode 4) or write (mode 2) the
 * file of the stat record, by xwkUID and xwkGIDs. */
Boolean XwkAccess(struct stat *st, int mode);
/* Copies source over destination: 0, or -1 (no source), -2 (source not
 * readable, or a directory), -3 (destination not writable), -4 (copying
 * failed part way). */
int XwkCopyFile(const char *source, const char *destination);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
