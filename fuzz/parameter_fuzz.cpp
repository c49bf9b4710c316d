// GetParameterExt on any text.  Input: one byte of index (signed, so both
// the silent and the boxed way are taken; before start-up the box is not
// shown), one byte choosing mode 16 or 9999, then the source text.
#include <Xwk/Desk.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return 0;
    int index = (int8_t)data[0];
    int mode = (data[1] & 1) ? 16 : 9999;
    std::string source(reinterpret_cast<const char *>(data + 2), size - 2);
    // Exactly the room the contract asks for, so that the sanitizer sees
    // any write beyond it.
    size_t room = strlen(source.c_str()) + 1;
    char *destination = static_cast<char *>(std::malloc(room));
    int fields = GetParameterExt(source.c_str(), destination, index, mode);
    if (fields < 0)
        std::abort();
    if (index < 0 && fields > -index)
        std::abort();
    std::free(destination);
    return 0;
}
