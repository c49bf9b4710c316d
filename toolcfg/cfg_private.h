// Shared inside the tool configuration model: item kinds, references and
// the word search of the option text parser.
#ifndef XWK_CFG_PRIVATE_H
#define XWK_CFG_PRIVATE_H

#include <Xwk/ToolCfg.h>

#include <string>

namespace xwk_cfg {

inline bool is_list_kind(int kind)
{
    return kind == IDECFG_CHECK_GROUP || kind == IDECFG_LIST || kind == IDECFG_OPTION_MENU ||
           kind == IDECFG_RADIO_BOX;
}

// A referring division works on the items of the one it refers to.
inline IDECfgDivision *resolved(IDECfgDivision *division)
{
    return division && division->reference ? division->reference : division;
}

// The shared strings of a division's items are freed only by a master.
inline bool owns_shared(const IDECfgDivision *division)
{
    return !division->tool || division->tool->master == division->tool;
}

inline bool is_blank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// The first occurrence of word at or after from that is followed by white
// space or the end; the character before it is not looked at.  npos when
// none, or when word or the text is empty.
size_t word_search(const std::string &text, size_t from, const char *word);

// A copy of text reduced by stpcvt 0x1E: trimmed, white space runs to one
// blank, quoted text untouched.
std::string normalized(const std::string &text);

// XtNewString of a std::string, or NULL when it is empty.
char *new_string_or_null(const std::string &text);

void free_item(IDECfgItem *item, bool shared);
IDECfgItem *copy_item(const IDECfgItem *item);
// Records the control showing an item; the item forgets it when it goes.
void watch_control(IDECfgItem *item, XwkDeskItem *control);

// Parses one division (its reference followed), cutting or blanking what its
// items recognise from text.
bool parse_division(std::string &text, IDECfgDivision *division, bool reset);

}  // namespace xwk_cfg

#endif
