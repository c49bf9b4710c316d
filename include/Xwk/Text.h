/*
 * Xwk/Text.h - text services for the tools: the message catalogue.
 */
#ifndef XWK_TEXT_H
#define XWK_TEXT_H

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* Every user-visible text of the library passes through smi18n_gettext with
 * the English text as key. */
char *smi18n_gettext(const char *text);
void smi18n_init(void);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
