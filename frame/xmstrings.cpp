// Compound strings of text with line breaks, without Motif's separator leak.
#include "frame/xmstring_private.h"

#include <cstring>
#include <string>
#include <string_view>

namespace xwk {

XmString LinesString(const char *text, XmStringTag tag)
{
    if (!text)
        text = "";
    if (!strchr(text, '\n'))
        return XmStringCreateLtoR((char *)text, tag);
    static XmString separator = XmStringSeparatorCreate();
    std::string_view rest(text);
    XmString out = nullptr;
    for (;;) {
        size_t end = rest.find('\n');
        std::string line(rest.substr(0, end));
        // Like XmStringCreateLtoR, the first line always gives a segment,
        // later empty lines none.
        if (!out || !line.empty()) {
            XmString piece = XmStringCreateLtoR(line.data(), tag);
            out = out ? XmStringConcatAndFree(out, piece) : piece;
        }
        if (end == std::string_view::npos)
            return out;
        out = XmStringConcatAndFree(out, XmStringCopy(separator));
        rest.remove_prefix(end + 1);
    }
}

}  // namespace xwk
