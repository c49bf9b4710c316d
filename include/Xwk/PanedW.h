#ifndef XWK_PANEDW_H
#define XWK_PANEDW_H

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
