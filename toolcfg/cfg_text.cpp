// Tool configuration: from item states to option text and back, and the
// macro table of a tool.
#include "toolcfg/cfg_private.h"

#include <Xwk/Strings.h>

#include <cstring>
#include <vector>

using namespace xwk_cfg;

namespace {

// Option texts have a fixed limit; longer ones are cut.
constexpr size_t kTextLimit = 50000 - 1;
constexpr int kNormalize = XWK_CVT_LEADING_SPACE | XWK_CVT_TRAILING_SPACE |
                           XWK_CVT_REDUCE_SPACE | XWK_CVT_KEEP_QUOTED;
constexpr char kComma = (char)0xFF;

void append(std::string &out, const char *text)
{
    if (!text || out.size() >= kTextLimit)
        return;
    out.append(text, std::min(strlen(text), kTextLimit - out.size()));
}

// The line structure of a multi-value field, with its commas protected, as
// the list that the parameter splitter cuts at ','.
std::string edit_value_as_list(const char *value)
{
    std::string copy;
    size_t n = strlen(value);
    for (size_t i = 0; i < n; i++) {
        char c = value[i];
        if (c == ',') {
            copy += kComma;
        } else if (c == '\n') {
            // A newline that starts the value is a blank even when it also ends it.
            if (i == 0 || value[i + 1] == '\n' || value[i + 1] == ' ')
                copy += ' ';
            else if (i == n - 1)
                break;
            else
                copy += ',';
        } else {
            copy += c;
        }
    }
    return copy;
}

// The fields of a list as GetParameterExt cuts them in mode 16 (',' and ';'
// separate, white space after a separator is skipped, a backslash escapes,
// quotes are plain), all in one pass instead of one call per field.
std::vector<std::string> split_fields(const std::string &list)
{
    std::vector<std::string> fields(1);
    for (size_t i = 0; i < list.size(); i++) {
        char c = list[i];
        if (c == '\\') {
            if (i + 1 == list.size())
                break;
            c = list[++i];
            fields.back() += c == 'n' ? '\n' : c == 't' ? '\t' : c;
        } else if (c == ',' || c == ';') {
            fields.emplace_back();
            while (i + 1 < list.size() && is_blank(list[i + 1]))
                i++;
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

void write_edit(std::string &out, const IDECfgEditItem *edit)
{
    bool first = true;
    for (std::string &p : split_fields(edit_value_as_list(edit->value))) {
        if (p.empty())
            continue;
        bool quoted = p.find(' ') != std::string::npos && p != " ";
        for (char &c : p)
            if (c == kComma)
                c = ',';
        if (!first)
            append(out, " ");
        first = false;
        append(out, edit->prefix);
        if (quoted)
            append(out, "\"");
        append(out, p.c_str());
        if (quoted)
            append(out, "\"");
    }
}

void write_item(std::string &out, const IDECfgItem *item)
{
    if (is_list_kind(item->kind)) {
        const auto *list = (const IDECfgListItem *)item;
        for (int i = 0; list->options && i < list->option_count; i++) {
            const IDECfgOption *option = list->options[i];
            if (!option || !option->state)
                continue;
            if (i > 0)
                append(out, " ");
            append(out, list->prefix);
            append(out, option->value);
        }
    } else if (item->kind == IDECFG_TOGGLE) {
        const auto *toggle = (const IDECfgToggleItem *)item;
        if (toggle->state)
            append(out, toggle->option);
    } else if (item->kind == IDECFG_EDIT) {
        const auto *edit = (const IDECfgEditItem *)item;
        if (edit->value)
            write_edit(out, edit);
    }
}

void cut(std::string &text, size_t at, size_t length)
{
    // The character behind a recognised word goes with it.
    if (at + length < text.size())
        length++;
    text.erase(at, length);
}

bool parse_list(std::string &text, IDECfgListItem *list, bool reset)
{
    bool changed = false;
    if (!list->prefix) {
        for (int i = 0; list->options && i < list->option_count; i++) {
            IDECfgOption *option = list->options[i];
            // Values of one character, or starting with a blank, stand for
            // no option at all.
            if (!option || !option->value || strlen(option->value) < 2 || option->value[0] == ' ')
                continue;
            size_t at = word_search(text, 0, option->value);
            if (at != std::string::npos) {
                option->state = True;
                cut(text, at, strlen(option->value));
                changed = true;
            } else if (reset) {
                option->state = False;
            }
        }
        return changed;
    }
    size_t at = *list->prefix ? text.find(list->prefix) : 0;
    size_t behind = at + strlen(list->prefix);
    if (at == std::string::npos || (behind < text.size() && is_blank(text[behind])))
        return false;
    for (int i = 0; list->options && i < list->option_count; i++) {
        IDECfgOption *option = list->options[i];
        if (!option)
            continue;
        if (option->value && behind <= text.size() &&
            word_search(text, behind, option->value) == behind) {
            option->state = True;
            cut(text, at, behind - at + strlen(option->value));
            changed = true;
        } else if (reset) {
            option->state = False;
        }
    }
    return changed;
}

bool parse_toggle(std::string &text, IDECfgToggleItem *toggle, bool reset)
{
    size_t at = toggle->option ? word_search(text, 0, toggle->option) : std::string::npos;
    if (at != std::string::npos) {
        toggle->state = True;
        cut(text, at, strlen(toggle->option));
        return true;
    }
    if (reset)
        toggle->state = False;
    return false;
}

size_t token_end(const std::string &text, size_t from)
{
    size_t end = text.find_first_of(" \t", from);
    return end == std::string::npos ? text.size() : end;
}

void blank(std::string &text, size_t from, size_t to)
{
    for (size_t i = from; i < to && i < text.size(); i++)
        text[i] = ' ';
}

void add_value(std::string &collected, bool several, const std::string &value)
{
    if (several && !collected.empty())
        collected += '\n';
    else if (!several)
        collected.clear();
    collected += value;
}

// name=value words, for a field whose prefix is one blank or empty.
bool parse_assignments(std::string &text, bool several, std::string &collected)
{
    bool any = false;
    size_t scan = 0;
    for (;;) {
        size_t equal = text.find('=', scan);
        if (equal == std::string::npos)
            break;
        size_t name = equal;
        while (name > 0 && !is_blank(text[name - 1]))
            name--;
        size_t value = equal + 1;
        size_t end;
        if (value < text.size() && (text[value] == '"' || text[value] == '\'')) {
            size_t close = text.find(text[value], value + 1);
            end = close == std::string::npos ? std::string::npos : text.find_first_of(" \t", close);
        } else {
            end = text.find_first_of(" \t", value);
        }
        any = true;
        if (end == std::string::npos) {
            add_value(collected, several, text.substr(name));
            blank(text, name, text.size());
            break;
        }
        // A single value takes the rest of the text; the rest is not cut.
        add_value(collected, several, several ? text.substr(name, end - name) : text.substr(name));
        blank(text, name, end);
        scan = end;
    }
    return any;
}

// Values behind a prefix that starts the text or follows white space.
bool parse_prefixed(std::string &text, const char *prefix, bool several, std::string &collected)
{
    bool any = false;
    size_t length = strlen(prefix);
    size_t scan = 0;
    for (;;) {
        size_t at = text.find(prefix, scan);
        if (at == std::string::npos)
            break;
        if (at > 0 && !is_blank(text[at - 1])) {
            scan = at + 1;
            continue;
        }
        size_t start = at + length;
        size_t end;
        std::string value;
        if (start < text.size() && text[start] == '"') {
            size_t close = text.find('"', start + 1);
            if (close == std::string::npos) {
                value = text.substr(start + 1);
                end = text.size();
            } else {
                value = text.substr(start + 1, close - start - 1);
                end = token_end(text, close + 1);
            }
        } else {
            // The value stops at a quote; the quoted part (to its partner, not
            // one behind a backslash) only stretches the token that is blanked.
            end = text.find_first_of("\"' \t", start);
            if (end == std::string::npos)
                end = text.size();
            value = text.substr(start, end - start);
            if (end < text.size() && (text[end] == '"' || text[end] == '\'')) {
                char quote = text[end];
                size_t partner = end + 1;
                while (partner < text.size() &&
                       (text[partner] != quote || text[partner - 1] == '\\'))
                    partner++;
                end = partner < text.size() ? token_end(text, partner + 1) : text.size();
            }
        }
        add_value(collected, several, value);
        any = true;
        blank(text, at, end);
        scan = end;
    }
    return any;
}

bool parse_edit(std::string &text, IDECfgEditItem *edit, bool reset)
{
    bool several = edit->mode >= 2;
    std::string collected;
    const char *prefix = edit->prefix ? edit->prefix : "";
    bool any = (!*prefix || strcmp(prefix, " ") == 0)
                   ? parse_assignments(text, several, collected)
                   : parse_prefixed(text, prefix, several, collected);
    if (any || reset) {
        XtFree(edit->value);
        edit->value = new_string_or_null(collected);
    }
    return any;
}

}  // namespace

namespace xwk_cfg {

size_t word_search(const std::string &text, size_t from, const char *word)
{
    size_t length = word ? strlen(word) : 0;
    if (!length || text.empty())
        return std::string::npos;
    while (from <= text.size()) {
        size_t at = text.find(word, from, length);
        if (at == std::string::npos)
            return at;
        size_t behind = at + length;
        if (behind == text.size() || is_blank(text[behind]))
            return at;
        from = behind;
    }
    return std::string::npos;
}

std::string normalized(const std::string &text)
{
    std::vector<char> buffer(text.begin(), text.end());
    buffer.push_back(0);
    stpcvt(buffer.data(), kNormalize);
    return buffer.data();
}

char *new_string_or_null(const std::string &text)
{
    return text.empty() ? nullptr : XtNewString(text.c_str());
}

bool parse_division(std::string &text, IDECfgDivision *division, bool reset)
{
    division = resolved(division);
    bool changed = false;
    for (int i = 0; division && division->items && i < division->item_count; i++) {
        IDECfgItem *item = division->items[i];
        if (!item)
            continue;
        if (is_list_kind(item->kind))
            changed |= parse_list(text, (IDECfgListItem *)item, reset);
        else if (item->kind == IDECFG_TOGGLE)
            changed |= parse_toggle(text, (IDECfgToggleItem *)item, reset);
        else if (item->kind == IDECFG_EDIT)
            changed |= parse_edit(text, (IDECfgEditItem *)item, reset);
    }
    return changed;
}

}  // namespace xwk_cfg

extern "C" {

char *IDECfgDivisionToString(IDECfgDivision *division)
{
    division = resolved(division);
    if (!division)
        return nullptr;
    std::string out;
    for (int i = 0; division->items && i < division->item_count; i++) {
        if (!division->items[i])
            continue;
        std::string piece;
        write_item(piece, division->items[i]);
        if (piece.empty())
            continue;
        if (!out.empty())
            append(out, " ");
        append(out, piece.c_str());
    }
    return new_string_or_null(normalized(out));
}

char *IDECfgGetToolOptions(IDECfgTool *tool)
{
    if (!tool)
        return nullptr;
    if (tool->options_override)
        return XtNewString(tool->options_override);
    std::string out;
    for (int i = 0; tool->divisions && i < tool->division_count; i++) {
        char *text = IDECfgDivisionToString(tool->divisions[i]);
        if (text) {
            if (!out.empty())
                out += ' ';
            out += text;
        }
        XtFree(text);
    }
    if (tool->extra_options) {
        out += ' ';
        out += tool->extra_options;
    }
    return new_string_or_null(normalized(out));
}

Boolean IDECfgUpdateStringToTool(const char *text, IDECfgTool *tool, Boolean reset)
{
    if (!tool)
        return False;
    std::string work = (!text || !*text) ? std::string(" ") : normalized(text);
    bool changed = false;
    for (int i = 0; tool->divisions && i < tool->division_count; i++)
        changed |= parse_division(work, tool->divisions[i], reset);
    XtFree(tool->extra_options);
    tool->extra_options = tool->no_extra ? nullptr : new_string_or_null(normalized(work));
    return changed;
}

Boolean IDECfgStringToTool(const char *text, IDECfgTool *tool)
{
    return IDECfgUpdateStringToTool(text, tool, True);
}

Boolean IDECfgStringToDivision(const char *text, IDECfgDivision *division)
{
    if (!division)
        return False;
    std::string work = text ? text : "";
    return parse_division(work, division, true);
}

int IDECfgGetMacrosesForTool(IDECfgTool *tool, char ***names, char ***values)
{
    if (names)
        *names = nullptr;
    if (values)
        *values = nullptr;
    if (!tool)
        return 0;
    std::vector<std::string> row_names;
    std::vector<char *> row_values;
    auto add = [&](const char *name, char *value) {
        row_names.push_back(name ? name : "");
        row_values.push_back(value);
    };
    auto copy = [](const char *s) { return s ? XtNewString(s) : nullptr; };
    add(tool->name, copy(tool->exec));
    if (tool->std_macro && !(tool->name && strcmp(tool->std_macro, tool->name) == 0))
        add(tool->std_macro, copy(tool->exec));
    size_t options_row = 0;
    char *options = nullptr;
    if (tool->options_macro && *tool->options_macro) {
        options_row = row_names.size();
        add(tool->options_macro, nullptr);
        options = IDECfgGetToolOptions(tool);
    }
    for (int i = 0; tool->divisions && i < tool->division_count; i++) {
        IDECfgDivision *division = tool->divisions[i];
        if (!division || !division->macro || !*division->macro)
            continue;
        char *text = IDECfgDivisionToString(division);
        add(division->macro, text ? text : XtNewString(""));
    }
    if (options_row) {
        // The options macro names the division macros, so it includes them.
        std::string value;
        for (size_t r = options_row + 1; r < row_names.size(); r++)
            value += "$(" + row_names[r] + ") ";
        value += ' ';
        if (options)
            value += options;
        row_values[options_row] = XtNewString(normalized(value).c_str());
    }
    XtFree(options);
    for (int i = 0; tool->macros && i < tool->macro_count; i++) {
        const char *macro = tool->macros[i] ? tool->macros[i] : "";
        const char *equal = strchr(macro, '=');
        if (equal)
            add(std::string(macro, equal - macro).c_str(), XtNewString(equal + 1));
        else
            add(macro, nullptr);
    }
    int count = (int)row_names.size();
    if (names) {
        *names = (char **)XtMalloc(count * sizeof(char *));
        for (int i = 0; i < count; i++)
            (*names)[i] = XtNewString(row_names[i].c_str());
    }
    if (values)
        *values = (char **)XtMalloc(count * sizeof(char *));
    for (int i = 0; i < count; i++) {
        if (values)
            (*values)[i] = row_values[i];
        else
            XtFree(row_values[i]);
    }
    return count;
}

}  // extern "C"
