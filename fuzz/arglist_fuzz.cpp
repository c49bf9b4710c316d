// XwkCreateArgList on any command line: a null-ended array of strings, each
// no longer than the line.
#include <Xwk/Desk.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string line(reinterpret_cast<const char *>(data), size);
    size_t length = strlen(line.c_str());
    char **args = XwkCreateArgList(line.c_str());
    if (!args)
        std::abort();
    if (!args[0])
        std::abort();  // at least one argument, maybe empty
    for (char **a = args; *a; a++)
        if (strlen(*a) > length)
            std::abort();
    XwkDestroyArgList(args);
    return 0;
}
