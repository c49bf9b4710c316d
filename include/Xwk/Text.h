/*
 * Xwk/Text.h - text services for the tools: the message catalogue, template
 * expansion, file type rules, MD5 and CRC-32.
 */
#ifndef XWK_TEXT_H
#define XWK_TEXT_H

#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* Every user-visible text of the library passes through smi18n_gettext with
 * the English text as key. */
char *smi18n_gettext(const char *text);
void smi18n_init(void);

/* ---- Template expansion ------------------------------------------------ */

/* A macro function gets its argument text (empty when there is none) and the
 * user value given to templ_expand.  It returns a malloc'ed string, which the
 * expander frees, or NULL to fail the expansion. */
typedef char *(*TemplateProc)(const char *argument, void *user);

typedef struct TemplateEntry {
    const char *name;              /* not copied */
    const char *description;       /* not copied */
    TemplateProc proc;
    struct TemplateEntry *next;
} TemplateEntry;

/* Puts a new entry at the head of *list; it hides earlier ones of its name. */
void templ_add(TemplateEntry **list, const char *name, const char *description,
               TemplateProc proc);
/* Adds USER, HOST, DATE, TIME, upper, lower, capitalize, identifier,
 * basename and suffix. */
void templ_init(TemplateEntry **list);
/* Frees the entries (not their names) and sets *list to NULL. */
void templ_free(TemplateEntry **list);
/* Expands text for the file name file.  Returns 0 and a malloc'ed *result,
 * or the 1-based number of the line that failed, leaving *result alone. */
int templ_expand(TemplateEntry *list, const char *file, const char *text,
                 char **result, void *user);

/* ---- File type rules --------------------------------------------------- */

/* Looks name up in the rules of rule_file, which is read at the first call
 * with a path and kept for the life of the process.  flags 1: a suffix rule
 * whose action starts with '>' answers at once; flags 2: rules that read the
 * file are skipped.  Returns 0 with the results (pointing into the kept
 * rule text), 1 when no rule fits, -1 when the rule file cannot be opened,
 * -2 on a syntax error in it, -3 when fstat fails, -4 when it reads empty. */
int CheckFileType(const char *rule_file, const char *name, char **action,
                  char **argument, int flags);
/* The value of the option [name] of the rule file, or NULL. */
char *GetModuleOption(const char *rule_file, const char *name);

/* ---- MD5 (RFC 1321) ---------------------------------------------------- */

struct md5_ctx {
    uint32_t A, B, C, D;
    uint32_t total[2];             /* bytes processed, low word first */
    uint32_t buflen;
    uint32_t buffer[32];           /* 128 bytes: room for the final padding */
};

void md5_init_ctx(struct md5_ctx *ctx);
/* len must be a multiple of 64; a remainder is not processed. */
void md5_process_block(const void *buffer, size_t len, struct md5_ctx *ctx);
void md5_process_bytes(const void *buffer, size_t len, struct md5_ctx *ctx);
/* Pads, and writes the 16-byte digest to resbuf, which it returns. */
void *md5_finish_ctx(struct md5_ctx *ctx, void *resbuf);
/* The digest of what the context holds so far, without the padding. */
void *md5_read_ctx(const struct md5_ctx *ctx, void *resbuf);
/* Digest of a stream up to its end; 0, or 1 on a read error. */
int md5_stream(FILE *stream, void *resblock);
void *md5_buffer(const char *buffer, size_t len, void *resblock);
/* 16-byte digest to 32 lower-case hex digits and a NUL (33 bytes). */
char *md5_convert_to_hex(const void *digest, char *hex);
/* 32 hex digits back to 16 bytes; 0, or -1 when the text is not a digest. */
int md5_convert_to_digest(const char *hex, void *digest);

/* ---- CRC-32 ------------------------------------------------------------ */

/* Polynomial 0x04C11DB7, most significant bit first, start 0, no final
 * inversion.
 * The binary symbol is "XwkCrc32": zlib exports a crc32 of its own, which
 * libpng and zlib itself call, and a library-wide "crc32" would take their
 * calls over in every process that loads both.  Callers write crc32() as
 * usual; a source file that also includes <zlib.h> cannot see both. */
uint32_t crc32(const void *buffer, size_t length) __asm__("XwkCrc32");
/* The same polynomial reflected (0xEDB88320), least significant bit first,
 * start 0, no final inversion. */
uint32_t crc32b(const void *buffer, size_t length);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
