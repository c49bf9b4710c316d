#include <Xwk/Text.h>

// The catalogue is English only: the key is the text.
char *smi18n_gettext(const char *text)
{
    return const_cast<char *>(text);
}

void smi18n_init(void)
{
}
