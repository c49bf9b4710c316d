#ifndef XWK_LISTS_H
#define XWK_LISTS_H

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
