/**
 * \file
 * \ingroup toolcfg
 * \brief Text services for the tools: the message catalogue, template
 * expansion, file type rules, MD5 and CRC-32.
 *
 * Templates expand `$(name argument)` calls of a table of macro functions,
 * and the file name forms `$@`, `$(@D)` and `$(@F)`, line by line.  File
 * type rules map a file, by its name or its first bytes, to an action and
 * an argument that tell the application what kind of file it is and what
 * to use for it; the rule file also holds named options.  MD5 follows
 * RFC 1321 with the usual context, buffer and stream entry points.
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

/**
 * Translates a user-visible text.  Every user-visible text of the library
 * passes through smi18n_gettext with the English text as key.  The
 * catalogue is English only, so the key is the text.
 *
 * \param text The English text.
 * \return \p text itself, unchanged (not a copy: never free it).
 */
char *smi18n_gettext(const char *text);
/** Sets up the message catalogue; there is nothing to set up, so it does
 * nothing. */
void smi18n_init(void);

/* ---- Template expansion ------------------------------------------------ */

/**
 * A macro function of the template expander.
 *
 * \param argument The expanded argument text of the call, zero-ended;
 *                 empty when there is none.
 * \param user     The user value given to templ_expand.
 * \return A string allocated with malloc, which the expander frees, or
 *         NULL to fail the expansion of the line.
 */
typedef char *(*TemplateProc)(const char *argument, void *user);

/** One macro function, an entry of a singly linked list that the
 * application owns through a head pointer (NULL for an empty list). */
typedef struct TemplateEntry {
    const char *name;              /**< Name used in the text, not copied. */
    const char *description;       /**< Text for a user, not copied. */
    TemplateProc proc;             /**< The function. */
    struct TemplateEntry *next;    /**< Next entry, or NULL. */
} TemplateEntry;

/**
 * Puts a new entry at the head of a list; it hides earlier ones of its
 * name.  Nothing is added when memory runs out.
 *
 * \param list        The head pointer of the list.
 * \param name        The name, letters, digits and '_' starting with a
 *                    letter; not copied, so it must outlive the list.
 * \param description Text for a user; not copied.
 * \param proc        The function.
 */
void templ_add(TemplateEntry **list, const char *name, const char *description,
               TemplateProc proc);
/**
 * Adds the built-in macros, in this order: USER (the user's name), HOST
 * (the host name, empty when unknown), DATE (today as "%d %B %Y"), TIME
 * (now as "%H:%M"), upper and lower (the argument in capitals or in small
 * letters), capitalize (the argument with its first character in
 * capitals), identifier (the argument with a first character that is not a
 * letter, and any other that is neither letter nor digit, made '_'),
 * basename (the argument cut at its last '.'; a '/' is not looked at) and
 * suffix (what follows that '.', empty without one).
 *
 * \param list The head pointer of the list.
 */
void templ_init(TemplateEntry **list);
/**
 * Frees the entries (not their names and descriptions) and sets \p *list
 * to NULL.
 *
 * \param list The head pointer of the list.
 */
void templ_free(TemplateEntry **list);
/**
 * Expands a template text for a file.
 *
 * Each line is expanded on its own.  `$@` becomes the file name, `$(@D)`
 * its directory part (up to its last '/', empty without one) and `$(@F)`
 * the part behind it; after these two forms the one character behind the
 * ')' is copied as it stands, so that at the end of a line the newline is
 * written twice.  `$(name argument)` calls the entry of that name with the
 * argument, itself expanded, so calls nest; blanks after the name are
 * skipped and the closing ')' is found by counting parentheses (the end of
 * the line when it is missing).  A name that no entry has stays in the
 * text as it stands.  Any other '$' is copied with the character behind
 * it.  A line holds at most 4095 characters; a longer text is cut there.
 *
 * \param list   The macro functions; NULL for none.
 * \param file   The file name for the `$@` forms; NULL is empty.
 * \param text   The template; NULL is empty.
 * \param result Receives the expanded text, which the caller frees with
 *               free; left alone on failure.
 * \param user   Value passed to every macro function.
 * \return 0 on success, or the 1-based number of the line that failed: a
 *         macro function returned NULL, its result would make the line
 *         longer than 4095 characters, or calls nest too deep.
 */
int templ_expand(TemplateEntry *list, const char *file, const char *text,
                 char **result, void *user);

/* ---- File type rules --------------------------------------------------- */

/**
 * Looks a file up in the rules of a rule file.
 *
 * The rule file is read at the first call with a path and kept for the
 * life of the process, with at most 250 rules; later paths are ignored.  A
 * line starting with a blank, tab, '#' or ';' is a comment.  Rules, in the
 * file's order, the first that fits deciding:
 *
 * - `.suffix action[,argument]`: the name ends in the suffix, '.'
 *   included (`,text action` likewise fits a name ending in text).  An
 *   action starting with '&' is noted as the fallback, given when no rule
 *   decides.  An action starting with '>' (a compression suffix) answers
 *   at once with flags 1; otherwise the suffix is taken off the name for
 *   the later suffix rules, so that "x.c.gz" can fit the rule of ".c".
 * - `^text action[,argument]`: the file's first line begins with text.
 * - `!text action[,argument]`: the first line is a "#!" line holding text.
 * - `? action[,argument]`: the file is binary (its first 4096 bytes hold a
 *   zero byte); what stands between the '?' and the first blank is passed
 *   over.
 * - `[name]value`: an option, for GetModuleOption.
 *
 * The text of `^` and `!` rules may be in double quotes.  The results
 * point into the kept rule text: never free or change them.
 *
 * \param rule_file Path of the rule file; used at the first call only.
 * \param name      The file's name (path); NULL only loads the rules.
 * \param action    Receives the action (without a leading '&' or '>'), or
 *                  NULL when none; may be NULL.
 * \param argument  Receives the argument, or NULL when none; may be NULL.
 * \param flags     1: a suffix rule whose action starts with '>' answers
 *                  at once; 2: rules that read the file (`?`, `^`, `!`)
 *                  are skipped.
 * \return 0 with the results; 1 when no rule fits (or \p name is NULL, or
 *         no rules are loaded and \p rule_file is NULL); -1 when the rule
 *         file cannot be opened; -2 on a syntax error in it (the rules
 *         before it are kept, and later calls use them); -3 when fstat
 *         fails; -4 when it reads empty.
 */
int CheckFileType(const char *rule_file, const char *name, char **action,
                  char **argument, int flags);
/**
 * The value of an option `[name]value` of the rule file, loading the rules
 * as CheckFileType does when needed.
 *
 * \param rule_file Path of the rule file; used at the first load only.
 * \param name      The option's name.
 * \return The value of the first option of that name, pointing into the
 *         kept rule text (never free it); NULL when there is none or the
 *         load fails.
 */
char *GetModuleOption(const char *rule_file, const char *name);

/* ---- MD5 (RFC 1321) ---------------------------------------------------- */

/** State of an MD5 computation. */
struct md5_ctx {
    uint32_t A, B, C, D;
    uint32_t total[2];             /**< Bytes processed, low word first. */
    uint32_t buflen;               /**< Bytes waiting in buffer. */
    uint32_t buffer[32];           /**< 128 bytes: room for the final padding. */
};

/** \var md5_ctx::A
 * First word of the digest state. */
/** \var md5_ctx::B
 * Second word of the digest state. */
/** \var md5_ctx::C
 * Third word of the digest state. */
/** \var md5_ctx::D
 * Fourth word of the digest state. */

/**
 * Starts a computation.
 *
 * \param ctx The context to set up.
 */
void md5_init_ctx(struct md5_ctx *ctx);
/**
 * Processes whole 64-byte blocks, bypassing the context's buffer: use it
 * only while no bytes wait there.
 *
 * \param buffer The bytes.
 * \param len    Their number; it must be a multiple of 64, a remainder is
 *               not processed.
 * \param ctx    The context.
 */
void md5_process_block(const void *buffer, size_t len, struct md5_ctx *ctx);
/**
 * Processes any number of bytes; a partial block waits in the context.
 *
 * \param buffer The bytes.
 * \param len    Their number.
 * \param ctx    The context.
 */
void md5_process_bytes(const void *buffer, size_t len, struct md5_ctx *ctx);
/**
 * Pads, and writes the 16-byte digest.  The context is finished: start
 * again with md5_init_ctx.
 *
 * \param ctx    The context.
 * \param resbuf Receives the 16 bytes.
 * \return \p resbuf.
 */
void *md5_finish_ctx(struct md5_ctx *ctx, void *resbuf);
/**
 * The digest of what the context holds so far, without the padding: its
 * four state words as 16 bytes.  The context is not changed.
 *
 * \param ctx    The context.
 * \param resbuf Receives the 16 bytes.
 * \return \p resbuf.
 */
void *md5_read_ctx(const struct md5_ctx *ctx, void *resbuf);
/**
 * Digest of a stream, read up to its end.
 *
 * \param stream   The stream, read from where it stands.
 * \param resblock Receives the 16 bytes (left alone on a read error).
 * \return 0, or 1 on a read error.
 */
int md5_stream(FILE *stream, void *resblock);
/**
 * Digest of a buffer.
 *
 * \param buffer   The bytes.
 * \param len      Their number.
 * \param resblock Receives the 16 bytes.
 * \return \p resblock.
 */
void *md5_buffer(const char *buffer, size_t len, void *resblock);
/**
 * Writes a digest as hexadecimal text.
 *
 * \param digest The 16-byte digest.
 * \param hex    Receives 32 lower-case hex digits and a zero byte (33 bytes).
 * \return \p hex.
 */
char *md5_convert_to_hex(const void *digest, char *hex);
/**
 * Reads a digest back from hexadecimal text.
 *
 * \param hex    32 hex digits, either case (what follows them is not looked at).
 * \param digest Receives the 16 bytes; left alone on failure.
 * \return 0, or -1 when the text is not a digest.
 */
int md5_convert_to_digest(const char *hex, void *digest);

/* ---- CRC-32 ------------------------------------------------------------ */

/**
 * CRC-32 with polynomial 0x04C11DB7, most significant bit first, start 0,
 * no final inversion.
 *
 * The binary symbol is "XwkCrc32": zlib exports a crc32 of its own, which
 * libpng and zlib itself call, and a library-wide "crc32" would take their
 * calls over in every process that loads both.  Callers write crc32() as
 * usual; a source file that also includes `<zlib.h>` cannot see both.
 *
 * \param buffer The bytes.
 * \param length Their number.
 * \return The CRC.
 */
uint32_t crc32(const void *buffer, size_t length) __asm__("XwkCrc32");
/**
 * CRC-32 with the same polynomial reflected (0xEDB88320), least
 * significant bit first, start 0, no final inversion.
 *
 * \param buffer The bytes.
 * \param length Their number.
 * \return The CRC.
 */
uint32_t crc32b(const void *buffer, size_t length);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
