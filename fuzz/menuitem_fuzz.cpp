// XwkPrepareMenuItem on any label, short help and accelerator text: the
// label splitting of XwkCreateString and XwkCreateStringSimple and the
// accelerator parser together.  The input is split at its first two zero
// bytes.
#include <Xwk/Bars.h>
#include <Xm/PushB.h>
#include <Xm/Separator.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string input(reinterpret_cast<const char *>(data), size);
    input.append(2, '\0');
    const char *label = input.c_str();
    const char *help = label + strlen(label) + 1;
    const char *acc = help + strlen(help) + 1;
    XwkMenuItem item;
    XwkPrepareMenuItem(&item, label, help, *acc ? acc : nullptr, &xmPushButtonWidgetClass, nullptr,
                       nullptr, nullptr, nullptr);
    // The label loses at most its prefix and one mnemonic marker.
    size_t shortened = strlen(label) - strlen(item.name);
    if (shortened > 2 || (item.insensitive && label[0] != '*'))
        std::abort();
    if (label[0] == '-' && item.widget_class != &xmSeparatorWidgetClass)
        std::abort();
    if (strlen(item.short_help) + 1 < strlen(help))
        std::abort();
    XtFree(item.name);
    XtFree(item.accelerator);
    XtFree(item.accelerator_text);
    XtFree(item.short_help);
    return 0;
}
