/*
 * Xwk/Ini.h - sectioned settings files of "key = value" lines.
 *
 * A line is at most 4095 characters; a longer one reads as several.  Lines
 * beginning ';', '#' or ".*" are comments and stay where they are.  A write
 * streams the file through a temporary file in the system's temporary
 * directory and copies the result back, keeping comments, other sections
 * and the keys it was not asked to change.  The last line of a file that
 * has no newline is not seen, and a rewrite drops it.  There is no locking.
 */
#ifndef XWK_INI_H
#define XWK_INI_H

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* Set by a client while it parses a configuration file; error texts of
 * GetParameterExt name them.  The functions below leave them alone. */
extern char *xwkConfigFileName;
extern unsigned long xwkConfigFileLine;

/* Reads the entries of [section]: *keys and *values become arrays (malloc,
 * each string strdup) of *count entries, null and 0 when there are none or
 * on failure.  Returns the count reduced to a signed byte (256 entries give
 * 0): use *count. */
signed char XwkReadIni(const char *file, const char *section, char ***keys, char ***values,
                       int *count);
/* Sets count keys of [section], creating the file or the section as
 * needed; a key also replaces the first entry it is a prefix of.  A null
 * value writes as empty.  1 on success, 0 on failure; when writing fails
 * the file keeps its old text. */
int XwkWriteIni(const char *file, const char *section, char **keys, char **values, int count);
/* Removes from [section] the entries that begin with key or whose value
 * contains value; with both null, the whole section but its comments. */
void XwkDeleteIni(const char *file, const char *section, const char *key, const char *value);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
