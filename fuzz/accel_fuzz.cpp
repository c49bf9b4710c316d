// XwkCreateAcc and XwkCreateAccText on any accelerator text.
#include <Xwk/Desk.h>

#include <X11/Intrinsic.h>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string text(reinterpret_cast<const char *>(data), size);
    const char *s = text.c_str();
    char *acc = XwkCreateAcc(s);
    if (acc && !strstr(acc, "<Key>"))
        std::abort();
    XtFree(acc);
    char *copy = XwkCreateAccText(s);
    if (copy && strcmp(copy, s) != 0)
        std::abort();
    XtFree(copy);
    return 0;
}
