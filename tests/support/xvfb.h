/* Starts and stops a private Xvfb server; shared by the test harness and the demo. */
#ifndef XWK_TEST_XVFB_H
#define XWK_TEST_XVFB_H

#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct {
    pid_t pid;
    int display;   /* the display number the server chose */
} XwkXvfb;

/* Screen 0 is 24-bit TrueColor, screen 1 8-bit PseudoColor.  The server dies
 * with the calling process, also when that process crashes.  Returns 0 on
 * success and fills *server; sets DISPLAY unless keep_env is non-zero. */
int xwk_xvfb_start(XwkXvfb *server, int keep_env);
void xwk_xvfb_stop(XwkXvfb *server);

#ifdef __cplusplus
}
#endif

#endif
