/* A client built against the installed tree with pkg-config. */
#include <Xwk/Xwk.h>
#include <stdio.h>
#include <string.h>

int main(void)
{
    if (strstr(XwkVersionString, "Xwk GUI Library.") == NULL) {
        fprintf(stderr, "unexpected version string\n");
        return 1;
    }
    return 0;
}
