#ifndef XWK_INI_H
#define XWK_INI_H

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
