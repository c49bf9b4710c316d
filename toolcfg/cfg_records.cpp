// Tool configuration records: clones, deep copies, freeing, look-ups,
// dependencies, references and the saved twins of the settings.
#include "toolcfg/cfg_private.h"

#include <Xwk/PrjTree.h>

#include <Xm/Xm.h>

#include <cstring>

using namespace xwk_cfg;

namespace {

char *copy_string(const char *s)
{
    return s ? XtNewString(s) : nullptr;
}

bool same(const char *a, const char *b)
{
    return a && b && strcmp(a, b) == 0;
}

void forget_control(Widget, XtPointer closure, XtPointer)
{
    ((IDECfgItem *)closure)->control = nullptr;
}

IDECfgOption *copy_option(const IDECfgOption *option)
{
    if (!option)
        return nullptr;
    IDECfgOption *copy = (IDECfgOption *)XtMalloc(sizeof *copy);
    *copy = *option;
    return copy;
}

IDECfgItem *new_record(const IDECfgItem *item, size_t size)
{
    IDECfgItem *copy = (IDECfgItem *)XtCalloc(1, size);
    memcpy(copy, item, size);
    copy->control = nullptr;
    return copy;
}

}  // namespace

namespace xwk_cfg {

IDECfgItem *copy_item(const IDECfgItem *item)
{
    if (!item)
        return nullptr;
    if (is_list_kind(item->kind)) {
        auto *list = (IDECfgListItem *)new_record(item, sizeof(IDECfgListItem));
        const auto *from = (const IDECfgListItem *)item;
        if (item->kind != IDECFG_LIST)
            list->reserved = 0;
        list->options = nullptr;
        if (from->option_count > 0 && from->options) {
            list->options = (IDECfgOption **)XtCalloc(from->option_count, sizeof(IDECfgOption *));
            for (int i = 0; i < from->option_count; i++)
                list->options[i] = copy_option(from->options[i]);
        }
        return &list->head;
    }
    switch (item->kind) {
    case IDECFG_TOGGLE:
        return new_record(item, sizeof(IDECfgToggleItem));
    case IDECFG_EDIT: {
        auto *edit = (IDECfgEditItem *)new_record(item, sizeof(IDECfgEditItem));
        edit->value = copy_string(edit->value);
        edit->saved_value = copy_string(edit->saved_value);
        edit->companion = nullptr;
        return &edit->head;
    }
    case IDECFG_LABEL:
        return new_record(item, sizeof(IDECfgItem));
    case IDECFG_LABEL_WORD:
        return new_record(item, sizeof(IDECfgWordItem));
    default:
        return nullptr;
    }
}

void free_item(IDECfgItem *item, bool shared)
{
    if (!item)
        return;
    if (item->control && item->control->widget)
        XtRemoveCallback(item->control->widget, XmNdestroyCallback, forget_control, item);
    if (is_list_kind(item->kind)) {
        auto *list = (IDECfgListItem *)item;
        for (int i = 0; list->options && i < list->option_count; i++) {
            IDECfgOption *option = list->options[i];
            if (option && shared) {
                XtFree(option->label);
                XtFree(option->value);
            }
            XtFree((char *)option);
        }
        XtFree((char *)list->options);
        if (shared)
            XtFree(list->prefix);
    } else if (item->kind == IDECFG_TOGGLE) {
        if (shared)
            XtFree(((IDECfgToggleItem *)item)->option);
    } else if (item->kind == IDECFG_EDIT) {
        auto *edit = (IDECfgEditItem *)item;
        XtFree(edit->value);
        XtFree(edit->saved_value);
        if (shared)
            XtFree(edit->prefix);
    }
    if (shared)
        XtFree(item->label);
    XtFree((char *)item);
}

// Called by the dialog builder: the item forgets a control that goes.
void watch_control(IDECfgItem *item, XwkDeskItem *control)
{
    if (item->control && item->control->widget)
        XtRemoveCallback(item->control->widget, XmNdestroyCallback, forget_control, item);
    item->control = control;
    if (control && control->widget)
        XtAddCallback(control->widget, XmNdestroyCallback, forget_control, item);
}

}  // namespace xwk_cfg

extern "C" {

IDECfgDivision *IDECfgCopyDivision(IDECfgDivision *source, IDECfgDivision *target)
{
    if (!source || !target)
        return nullptr;
    target->items = nullptr;
    target->item_count = source->item_count;
    if (source->item_count > 0 && source->items) {
        target->items = (IDECfgItem **)XtCalloc(source->item_count, sizeof(IDECfgItem *));
        for (int i = 0; i < source->item_count; i++)
            target->items[i] = copy_item(source->items[i]);
    }
    return target;
}

void IDECfgFreeDivisionItems(IDECfgDivision *division)
{
    if (!division || division->reference)
        return;
    bool shared = owns_shared(division);
    for (int i = 0; division->items && i < division->item_count; i++)
        free_item(division->items[i], shared);
    XtFree((char *)division->items);
    division->items = nullptr;
    division->item_count = 0;
    division->spare = 0;
}

IDECfgTool *IDECfgNewTool(IDECfgTool *tool)
{
    if (!tool)
        return nullptr;
    IDECfgTool *clone = (IDECfgTool *)XtMalloc(sizeof *clone);
    *clone = *tool;
    clone->exec = copy_string(tool->exec);
    clone->options_override = copy_string(tool->options_override);
    clone->extra_options = tool->no_extra ? nullptr : copy_string(tool->extra_options);
    clone->pairs = nullptr;
    clone->pair_count = 0;
    clone->tree_item = nullptr;
    clone->divisions = nullptr;
    if (tool->division_count > 0 && tool->divisions)
        clone->divisions =
            (IDECfgDivision **)XtCalloc(tool->division_count, sizeof(IDECfgDivision *));
    for (int i = 0; clone->divisions && i < tool->division_count; i++) {
        const IDECfgDivision *from = tool->divisions[i];
        if (!from)
            continue;
        IDECfgDivision *division = (IDECfgDivision *)XtMalloc(sizeof *division);
        *division = *from;
        division->tool = clone;
        division->ref_count = 0;
        division->items = nullptr;
        division->item_count = 0;
        if (!division->reference)
            IDECfgCopyDivision(tool->divisions[i], division);
        clone->divisions[i] = division;
    }
    return clone;
}

void IDECfgFreeTool(IDECfgTool *tool)
{
    if (!tool)
        return;
    if (tool->tree_item) {
        Widget tree = XmPrjTreeGetTreeWidgetFromItem(tool->tree_item);
        if (tree) {
            Widget shell = XtParent(tree);
            while (shell && !XtIsShell(shell))
                shell = XtParent(shell);
            if (shell && XtIsRealized(shell))
                XtUnmapWidget(shell);
            XmPrjTreeDeleteItem(tree, tool->tree_item);
        }
        tool->tree_item = nullptr;
    }
    bool master = tool->master == tool;
    for (int i = 0; tool->divisions && i < tool->division_count; i++) {
        IDECfgDivision *division = tool->divisions[i];
        if (!division)
            continue;
        IDECfgFreeDivisionItems(division);
        if (master) {
            XtFree(division->name);
            XtFree(division->text1);
            XtFree(division->text2);
            XtFree(division->macro);
            XtFree(division->text3);
        }
        XtFree((char *)division);
    }
    XtFree((char *)tool->divisions);
    XtFree(tool->exec);
    XtFree(tool->options_override);
    XtFree(tool->extra_options);
    for (int i = 0; tool->pairs && i < tool->pair_count; i++) {
        XtFree(tool->pairs[i].name);
        XtFree(tool->pairs[i].value);
    }
    XtFree((char *)tool->pairs);
    if (master) {
        XtFree(tool->name);
        XtFree(tool->text1);
        XtFree(tool->text2);
        XtFree(tool->std_macro);
        XtFree(tool->options_macro);
        XtFree(tool->text3);
        XtFree(tool->text4);
        XtFree(tool->text5);
        for (int i = 0; tool->macros && i < tool->macro_count; i++)
            XtFree(tool->macros[i]);
        XtFree((char *)tool->macros);
        // Clones share the dependency tables with their master.
        for (int i = 0; tool->depend_names && i < tool->depend_count; i++)
            XtFree(tool->depend_names[i]);
        XtFree((char *)tool->depend_names);
        XtFree((char *)tool->depend_tools);
    }
    XtFree((char *)tool);
}

IDECfgDivision *IDECfgGetDivisionByName(IDECfgTool *tool, const char *name, int *position)
{
    if (!tool || !name)
        return nullptr;
    for (int i = 0; tool->divisions && i < tool->division_count; i++) {
        IDECfgDivision *division = tool->divisions[i];
        if (division && same(division->name, name)) {
            if (position)
                *position = i + 1;
            return division;
        }
    }
    return nullptr;
}

IDECfgTool *IDECfgGetToolByName(IDECfgTool **tools, int count, const char *name)
{
    for (int i = 0; tools && name && i < count; i++)
        if (tools[i] && same(tools[i]->name, name))
            return tools[i];
    return nullptr;
}

IDECfgTool *IDECfgGetToolByStdMacro(IDECfgTool **tools, int count, const char *macro)
{
    for (int i = 0; tools && macro && i < count; i++)
        if (tools[i] && same(tools[i]->std_macro, macro))
            return tools[i];
    return nullptr;
}

IDECfgListItem *IDECfgGetItemByPrefix(IDECfgTool *tool, const char *prefix)
{
    if (!tool || !prefix)
        return nullptr;
    for (int d = 0; tool->divisions && d < tool->division_count; d++) {
        IDECfgDivision *division = tool->divisions[d];
        for (int i = 0; division && division->items && i < division->item_count; i++) {
            IDECfgItem *item = division->items[i];
            if (item && is_list_kind(item->kind) && same(((IDECfgListItem *)item)->prefix, prefix))
                return (IDECfgListItem *)item;
        }
    }
    return nullptr;
}

void IDECfgCollectDependTools(IDECfgTool **tools, int count)
{
    for (int t = 0; tools && t < count; t++) {
        IDECfgTool *tool = tools[t];
        if (!tool || !tool->depend_names)
            continue;
        XtFree((char *)tool->depend_tools);
        IDECfgTool **found = (IDECfgTool **)XtCalloc(tool->depend_count + 1, sizeof *found);
        int kept = 0;
        for (int i = 0; i < tool->depend_count; i++) {
            IDECfgTool *other = IDECfgGetToolByName(tools, count, tool->depend_names[i]);
            if (other)
                found[kept++] = other;
            XtFree(tool->depend_names[i]);
        }
        XtFree((char *)tool->depend_names);
        tool->depend_names = nullptr;
        tool->depend_tools = found;
        tool->depend_count = kept;
    }
}

static void drop_references(IDECfgTool *tool, IDECfgTool **tools, int count, bool copy)
{
    if (!tool || !tools)
        return;
    for (int d = 0; tool->divisions && d < tool->division_count; d++) {
        IDECfgDivision *referred = tool->divisions[d];
        if (!referred || referred->ref_count <= 0)
            continue;
        for (int t = 0; t < count; t++) {
            IDECfgTool *other = tools[t];
            for (int e = 0; other && other->divisions && e < other->division_count; e++) {
                IDECfgDivision *division = other->divisions[e];
                if (!division || division->reference != referred)
                    continue;
                division->reference = nullptr;
                if (copy)
                    IDECfgCopyDivision(referred, division);
            }
        }
    }
}

void IDECfgUnlinkReferencesToTool(IDECfgTool *tool, IDECfgTool **tools, int count)
{
    drop_references(tool, tools, count, true);
}

void IDECfgDisableReferencesToTool(IDECfgTool *tool, IDECfgTool **tools, int count)
{
    drop_references(tool, tools, count, false);
}

static bool item_changed(const IDECfgItem *item)
{
    if (is_list_kind(item->kind)) {
        const auto *list = (const IDECfgListItem *)item;
        for (int i = 0; list->options && i < list->option_count; i++)
            if (list->options[i] && list->options[i]->state != list->options[i]->saved)
                return true;
        return false;
    }
    if (item->kind == IDECFG_TOGGLE) {
        const auto *toggle = (const IDECfgToggleItem *)item;
        return toggle->state != toggle->saved;
    }
    if (item->kind == IDECFG_EDIT) {
        const auto *edit = (const IDECfgEditItem *)item;
        return edit->value && edit->saved_value && strcmp(edit->value, edit->saved_value) != 0;
    }
    return false;
}

Boolean IDECfgToolIsChanged(IDECfgTool *tool)
{
    for (int d = 0; tool && tool->divisions && d < tool->division_count; d++) {
        IDECfgDivision *division = resolved(tool->divisions[d]);
        for (int i = 0; division && division->items && i < division->item_count; i++)
            if (division->items[i] && item_changed(division->items[i]))
                return True;
    }
    return False;
}

// Mode 2 restores, mode 4 saves; bit 8 clears the saved twin and bit 16 the
// state.  The modes are compared exactly, so with either bit set neither
// restoring nor saving applies.
static void update_state(Boolean *state, Boolean *saved, int mode)
{
    if (mode == 2)
        *state = *saved;
    if (mode == 4)
        *saved = *state;
    if (mode & 8)
        *saved = False;
    if (mode & 16)
        *state = False;
}

static void update_text(char **value, char **saved, int mode)
{
    if (mode == 2 && *saved && !same(*value, *saved)) {
        XtFree(*value);
        *value = XtNewString(*saved);
    }
    if (mode == 4 && *value && !same(*value, *saved)) {
        XtFree(*saved);
        *saved = XtNewString(*value);
    }
    if (mode & 8) {
        XtFree(*saved);
        *saved = nullptr;
    }
    if (mode & 16) {
        XtFree(*value);
        *value = nullptr;
    }
}

void IDECfgUpdateDivisionSettings(IDECfgDivision *division, int mode)
{
    division = resolved(division);
    for (int i = 0; division && division->items && i < division->item_count; i++) {
        IDECfgItem *item = division->items[i];
        if (!item)
            continue;
        if (is_list_kind(item->kind)) {
            auto *list = (IDECfgListItem *)item;
            for (int o = 0; list->options && o < list->option_count; o++)
                if (list->options[o])
                    update_state(&list->options[o]->state, &list->options[o]->saved, mode);
        } else if (item->kind == IDECFG_TOGGLE) {
            auto *toggle = (IDECfgToggleItem *)item;
            update_state(&toggle->state, &toggle->saved, mode);
        } else if (item->kind == IDECFG_EDIT) {
            auto *edit = (IDECfgEditItem *)item;
            update_text(&edit->value, &edit->saved_value, mode);
        }
    }
}

void IDECfgUpdateSettings(IDECfgTool *tool, int mode)
{
    for (int d = 0; tool && tool->divisions && d < tool->division_count; d++)
        IDECfgUpdateDivisionSettings(tool->divisions[d], mode);
}

}  // extern "C"
