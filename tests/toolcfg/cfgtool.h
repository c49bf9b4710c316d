// A sample compiler description for the tool configuration tests: every item
// kind, with and without prefixes, in three divisions.
#ifndef XWK_TEST_CFGTOOL_H
#define XWK_TEST_CFGTOOL_H

// Also compiled into a fuzz target, which has no GoogleTest: not the
// tests' prelude.
#include <Xwk/ToolCfg.h>

#include <initializer_list>
#include <utility>

namespace cfgtest {

inline char *S(const char *s)
{
    return s ? XtNewString(s) : nullptr;
}

inline IDECfgItem *List(int kind, const char *label, const char *prefix,
                        std::initializer_list<std::pair<const char *, const char *>> options)
{
    auto *item = (IDECfgListItem *)XtCalloc(1, sizeof(IDECfgListItem));
    item->head.kind = kind;
    item->head.label = S(label);
    item->prefix = S(prefix);
    item->option_count = (int)options.size();
    item->options = (IDECfgOption **)XtCalloc(item->option_count, sizeof(IDECfgOption *));
    int i = 0;
    for (auto &o : options) {
        auto *option = (IDECfgOption *)XtCalloc(1, sizeof(IDECfgOption));
        option->label = S(o.first);
        option->value = S(o.second);
        option->sensitive = True;
        item->options[i++] = option;
    }
    return &item->head;
}

inline IDECfgItem *Toggle(const char *label, const char *option)
{
    auto *item = (IDECfgToggleItem *)XtCalloc(1, sizeof(IDECfgToggleItem));
    item->head.kind = IDECFG_TOGGLE;
    item->head.label = S(label);
    item->option = S(option);
    item->sensitive = True;
    return &item->head;
}

inline IDECfgItem *Edit(const char *label, const char *prefix, int mode, int type = 4)
{
    auto *item = (IDECfgEditItem *)XtCalloc(1, sizeof(IDECfgEditItem));
    item->head.kind = IDECFG_EDIT;
    item->head.label = S(label);
    item->prefix = S(prefix);
    item->mode = mode;
    item->value_type = type;
    item->sensitive = True;
    return &item->head;
}

inline IDECfgItem *Label(const char *label)
{
    auto *item = (IDECfgItem *)XtCalloc(1, sizeof(IDECfgItem));
    item->kind = IDECFG_LABEL;
    item->label = S(label);
    return item;
}

inline IDECfgDivision *Division(IDECfgTool *tool, const char *name, const char *macro,
                                std::initializer_list<IDECfgItem *> items)
{
    auto *d = (IDECfgDivision *)XtCalloc(1, sizeof(IDECfgDivision));
    d->name = S(name);
    d->macro = S(macro);
    d->tool = tool;
    d->item_count = (int)items.size();
    d->items = (IDECfgItem **)XtCalloc(d->item_count, sizeof(IDECfgItem *));
    int i = 0;
    for (IDECfgItem *item : items)
        d->items[i++] = item;
    return d;
}

// cc: code generation, paths and environment.
inline IDECfgTool *SampleTool(const char *name = "cc")
{
    auto *t = (IDECfgTool *)XtCalloc(1, sizeof(IDECfgTool));
    t->master = t;
    t->name = S(name);
    t->exec = S("/usr/bin/cc");
    t->std_macro = S("CC");
    t->options_macro = S("CFLAGS");
    t->division_count = 3;
    t->divisions = (IDECfgDivision **)XtCalloc(3, sizeof(IDECfgDivision *));
    t->divisions[0] = Division(
        t, "Code", "CODEFLAGS",
        {List(IDECFG_RADIO_BOX, "Optimize", "-O", {{"None", "0"}, {"Some", "1"}, {"More", "2"}}),
         List(IDECFG_CHECK_GROUP, "Warnings", nullptr,
              {{"All", "-Wall"}, {"Extra", "-Wextra"}, {"Pedantic", "-pedantic"}}),
         Toggle("Debug information", "-g"),
         List(IDECFG_OPTION_MENU, "Standard", "-std=", {{"C99", "c99"}, {"C11", "c11"}}),
         nullptr, Label("Code generation")});
    t->divisions[1] = Division(
        t, "Paths", "PATHFLAGS",
        {Edit("Include directories", "-I", 2), Edit("Defines", "-D", 2),
         List(IDECFG_LIST, "Libraries", nullptr, {{"Maths", "-lm"}, {"Threads", "-lpthread"}}),
         Edit("Output", "-o", 1), Edit("Jobs", "--jobs=", 1, 1)});
    t->divisions[2] = Division(t, "Environment", nullptr, {Edit("Variables", " ", 2)});
    t->macro_count = 2;
    t->macros = (char **)XtCalloc(2, sizeof(char *));
    t->macros[0] = S("LD=ld");
    t->macros[1] = S("NOVALUE");
    return t;
}

}  // namespace cfgtest

#endif
