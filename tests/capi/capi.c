/* Compiled as C: the umbrella header is valid C and every export links. */
#include <Xwk/Xwk.h>
#include <stdio.h>
#include <string.h>

int main(void)
{
    if (strstr(XwkVersionString, "Xwk GUI Library.") == NULL) {
        fprintf(stderr, "version string lacks the title\n");
        return 1;
    }
    return 0;
}
