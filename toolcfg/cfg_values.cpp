// Tool configuration: settings read and written by option name, their
// sensitivity, and the desk controls that show a division.
#include "toolcfg/cfg_private.h"

#include <Xwk/Strings.h>

#include <Xm/List.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>
#include <Xm/ToggleB.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using namespace xwk_cfg;

namespace {

bool same(const char *a, const char *b)
{
    return a && b && strcmp(a, b) == 0;
}

bool control_alive(const IDECfgItem *item)
{
    return item->control && item->control->desk && item->control->desk->self == item->control->desk;
}

template <typename Visit>
IDECfgItem *find_item(IDECfgDivision *division, Visit visit)
{
    division = resolved(division);
    for (int i = 0; division && division->items && i < division->item_count; i++)
        if (division->items[i] && visit(division->items[i]))
            return division->items[i];
    return nullptr;
}

Boolean get_value(IDECfgItem *item, const char *name, XtPointer *value)
{
    if (is_list_kind(item->kind)) {
        auto *list = (IDECfgListItem *)item;
        if (same(list->prefix, name)) {
            for (int i = 0; list->options && i < list->option_count; i++) {
                if (list->options[i] && list->options[i]->state) {
                    if (value)
                        *value = list->options[i]->value;
                    return True;
                }
            }
        }
        for (int i = 0; list->options && i < list->option_count; i++) {
            IDECfgOption *option = list->options[i];
            if (option && same(option->value, name)) {
                if (value)
                    *value = option->state ? option->value : nullptr;
                return True;
            }
        }
        return False;
    }
    if (item->kind == IDECFG_TOGGLE) {
        auto *toggle = (IDECfgToggleItem *)item;
        if (!same(toggle->option, name))
            return False;
        if (value)
            *value = toggle->state ? toggle->option : nullptr;
        return True;
    }
    if (item->kind == IDECFG_EDIT) {
        auto *edit = (IDECfgEditItem *)item;
        if (!same(edit->prefix, name) || !edit->value || !value)
            return False;
        if (edit->value_type == 1)
            *value = (XtPointer)strtol(edit->value, nullptr, 10);
        else if (edit->value_type == 2 || edit->value_type == 3)
            *value = (XtPointer)(long)XwkAtoF(edit->value);
        else
            *value = edit->value;
        return True;
    }
    return False;
}

void show_option(IDECfgItem *item, int index, Boolean state)
{
    if (!control_alive(item))
        return;
    XwkDeskItem *control = item->control;
    switch (item->kind) {
    case IDECFG_CHECK_GROUP:
    case IDECFG_RADIO_BOX: {
        auto *toggles = (XwkToggleItem *)control;
        if (index >= toggles->count)
            return;
        if (item->kind == IDECFG_RADIO_BOX && XtIsManaged(control->widget))
            for (int i = 0; i < toggles->count; i++)
                XmToggleButtonSetState(toggles->toggles[i], False, False);
        XmToggleButtonSetState(toggles->toggles[index], state, False);
        return;
    }
    case IDECFG_LIST:
        if (state)
            XmListSelectPos(((XwkListItem *)control)->list, index + 1, False);
        else
            XmListDeselectPos(((XwkListItem *)control)->list, index + 1);
        return;
    case IDECFG_OPTION_MENU: {
        auto *menu = (XwkOptionItem *)control;
        if (index < menu->count && state) {
            XtVaSetValues(control->widget, XmNmenuHistory, menu->buttons[index], NULL);
            menu->selected = index + 1;
        }
        return;
    }
    case IDECFG_TOGGLE:
        if (((XwkToggleItem *)control)->count > 0)
            XmToggleButtonSetState(((XwkToggleItem *)control)->toggles[0], state, False);
        return;
    }
}

void show_text(IDECfgEditItem *edit)
{
    if (!control_alive(&edit->head))
        return;
    Widget text = ((XwkEditItem *)edit->head.control)->text;
    if (!text || !XmIsText(text))
        return;
    XmTextSetString(text, edit->value ? edit->value : (char *)"");
    if (edit->mode == 1)
        XmTextSetInsertionPosition(text, XmTextGetLastPosition(text));
}

Boolean set_value(IDECfgItem *item, const char *name, XtPointer value)
{
    if (is_list_kind(item->kind)) {
        auto *list = (IDECfgListItem *)item;
        for (int i = 0; list->options && i < list->option_count; i++) {
            IDECfgOption *option = list->options[i];
            if (option && same(option->value, name)) {
                option->state = *(Boolean *)value;
                show_option(item, i, option->state);
                return True;
            }
        }
        return False;
    }
    if (item->kind == IDECFG_TOGGLE) {
        auto *toggle = (IDECfgToggleItem *)item;
        if (!same(toggle->option, name))
            return False;
        toggle->state = *(Boolean *)value;
        show_option(item, 0, toggle->state);
        return True;
    }
    if (item->kind == IDECFG_EDIT) {
        auto *edit = (IDECfgEditItem *)item;
        if (!same(edit->prefix, name))
            return False;
        XtFree(edit->value);
        char number[64];
        if (edit->value_type == 1) {
            snprintf(number, sizeof number, "%d", *(int *)value);
            edit->value = XtNewString(number);
        } else if (edit->value_type == 2 || edit->value_type == 3) {
            snprintf(number, sizeof number, "%f", (double)*(float *)value);
            edit->value = XtNewString(number);
        } else {
            const char *text = *(char **)value;
            edit->value = text ? XtNewString(text) : nullptr;
        }
        show_text(edit);
        return True;
    }
    return False;
}

// An insensitive widget gets an empty translation table; its own table is
// kept aside and given back when it turns sensitive again.
XContext kept_translations;

void set_widget_translations(Widget w, XwkDeskItem *control, Boolean sensitive)
{
    if (!w)
        return;
    if (!kept_translations)
        kept_translations = XUniqueContext();
    Display *dpy = XtDisplay(w);
    XPointer kept = nullptr;
    bool have = XFindContext(dpy, (XID)(uintptr_t)w, kept_translations, &kept) == 0;
    if (sensitive) {
        XtTranslations back = have ? (XtTranslations)kept : control->translations;
        if (have)
            XDeleteContext(dpy, (XID)(uintptr_t)w, kept_translations);
        if (back)
            XtVaSetValues(w, XtNtranslations, back, NULL);
        return;
    }
    static XtTranslations none;
    if (!none)
        none = XtParseTranslationTable("");
    if (!have) {
        XtTranslations own = nullptr;
        XtVaGetValues(w, XtNtranslations, &own, NULL);
        XSaveContext(dpy, (XID)(uintptr_t)w, kept_translations, (XPointer)own);
    }
    XtVaSetValues(w, XtNtranslations, none, NULL);
}

void show_edit_sensitivity(IDECfgEditItem *edit, Boolean sensitive)
{
    if (edit->companion)
        XtSetSensitive(edit->companion, sensitive);
    if (!control_alive(&edit->head))
        return;
    auto *field = (XwkEditItem *)edit->head.control;
    if (!field->text || !XmIsText(field->text))
        return;
    Pixel background = field->background;
    Widget form = field->item.widget;
    if (!sensitive && form && XtParent(form))
        XtVaGetValues(XtParent(form), XmNbackground, &background, NULL);
    XtVaSetValues(field->text, XmNtraversalOn, sensitive, XmNeditable, sensitive,
                  XmNcursorPositionVisible, sensitive, XmNbackground, background, NULL);
}

// Lists are not matched by name: each one shown takes the translations and
// the search goes on, as applications rely on.
Boolean set_sensitivity(IDECfgItem *item, const char *name, Boolean sensitive)
{
    XwkDeskItem *control = control_alive(item) ? item->control : nullptr;
    if (item->kind == IDECFG_LIST) {
        if (control && XtIsManaged(control->widget))
            set_widget_translations(((XwkListItem *)control)->list, control, sensitive);
        return False;
    }
    if (is_list_kind(item->kind)) {
        auto *list = (IDECfgListItem *)item;
        for (int i = 0; list->options && i < list->option_count; i++) {
            IDECfgOption *option = list->options[i];
            if (!option || !same(option->value, name))
                continue;
            option->sensitive = sensitive;
            if (!control)
                return True;
            Widget w = nullptr;
            if (item->kind == IDECFG_OPTION_MENU) {
                auto *menu = (XwkOptionItem *)control;
                w = i < menu->count ? menu->buttons[i] : nullptr;
            } else {
                auto *toggles = (XwkToggleItem *)control;
                w = i < toggles->count ? toggles->toggles[i] : nullptr;
            }
            set_widget_translations(w, control, sensitive);
            return True;
        }
        return False;
    }
    if (item->kind == IDECFG_TOGGLE) {
        auto *toggle = (IDECfgToggleItem *)item;
        if (!same(toggle->option, name))
            return False;
        toggle->sensitive = sensitive;
        if (control && ((XwkToggleItem *)control)->count > 0)
            set_widget_translations(((XwkToggleItem *)control)->toggles[0], control, sensitive);
        return True;
    }
    if (item->kind == IDECFG_EDIT) {
        auto *edit = (IDECfgEditItem *)item;
        if (!same(edit->prefix, name))
            return False;
        edit->sensitive = sensitive;
        show_edit_sensitivity(edit, sensitive);
        return True;
    }
    return False;
}

// Packed option labels for the desk controls.
std::string packed_labels(const IDECfgListItem *list)
{
    std::string packed;
    for (int i = 0; i < list->option_count; i++) {
        const IDECfgOption *option = list->options[i];
        const char *label = option && option->label ? option->label : "";
        packed.append(label, strlen(label) + 1);
    }
    return packed;
}

int first_on(const IDECfgListItem *list)
{
    for (int i = 0; i < list->option_count; i++)
        if (list->options[i] && list->options[i]->state)
            return i + 1;
    return 0;
}

XwkDeskItem *create_list_control(XwkDeskRec *desk, float x, float y, IDECfgListItem *list)
{
    XwkDeskItem *control = nullptr;
    std::string labels = packed_labels(list);
    int count = list->option_count;
    std::vector<int> states(count > 0 ? count : 1);
    for (int i = 0; i < count; i++)
        states[i] = list->options[i] && list->options[i]->state;
    const char *title = list->head.label;
    switch (list->head.kind) {
    case IDECFG_CHECK_GROUP:
        // A frame also for a single option, so the group keeps its title.
        SetCheckBox(desk, x, y, title, labels.c_str(), count == 1 ? -1 : count, states.data(),
                    &control);
        break;
    case IDECFG_RADIO_BOX:
        SetRadioBox(desk, x, y, title, labels.c_str(), count, first_on(list), &control);
        break;
    case IDECFG_OPTION_MENU:
        SetOptionMenu(desk, x, y, title, 0, labels.c_str(), count, first_on(list), &control);
        break;
    case IDECFG_LIST: {
        SetScrolledListExt(desk, x, y, title, labels.c_str(), count, count < 5 ? count : 5,
                           nullptr, XmMULTIPLE_SELECT, &control);
        std::vector<int> on;
        for (int i = 0; i < count; i++)
            if (states[i])
                on.push_back(i + 1);
        if (control && !on.empty())
            ChangeScrolledListExt(control, on.data(), (int)on.size());
        break;
    }
    }
    return control;
}

XwkDeskItem *create_control(XwkDeskRec *desk, float x, float y, IDECfgItem *item)
{
    XwkDeskItem *control = nullptr;
    if (is_list_kind(item->kind))
        return create_list_control(desk, x, y, (IDECfgListItem *)item);
    if (item->kind == IDECFG_TOGGLE) {
        auto *toggle = (IDECfgToggleItem *)item;
        int state = toggle->state;
        const char *label = item->label ? item->label : toggle->option ? toggle->option : "";
        std::string packed(label, strlen(label) + 1);
        SetCheckBox(desk, x, y, nullptr, packed.c_str(), 1, &state, &control);
        return control;
    }
    if (item->kind == IDECFG_EDIT) {
        auto *edit = (IDECfgEditItem *)item;
        char *value = edit->value ? edit->value : (char *)"";
        int rows = edit->mode >= 2 ? 3 : 1;
        SetEditMultiField(desk, x, y, item->label, 0, value, XWK_FIELD_STRING, 4096, rows, 30,
                          &control);
        return control;
    }
    if (item->kind == IDECFG_LABEL || item->kind == IDECFG_LABEL_WORD)
        SetLabel(desk, x, y, item->label ? item->label : "", &control);
    return control;
}

void apply_sensitivity(IDECfgItem *item)
{
    if (is_list_kind(item->kind) && item->kind != IDECFG_LIST) {
        auto *list = (IDECfgListItem *)item;
        for (int i = 0; i < list->option_count; i++)
            if (list->options[i] && !list->options[i]->sensitive)
                set_sensitivity(item, list->options[i]->value, False);
    } else if (item->kind == IDECFG_TOGGLE && !((IDECfgToggleItem *)item)->sensitive) {
        set_sensitivity(item, ((IDECfgToggleItem *)item)->option, False);
    } else if (item->kind == IDECFG_EDIT && !((IDECfgEditItem *)item)->sensitive) {
        set_sensitivity(item, ((IDECfgEditItem *)item)->prefix, False);
    }
}

bool set_state(Boolean *state, bool on)
{
    if (*state == (Boolean)on)
        return false;
    *state = on;
    return true;
}

bool read_control(IDECfgItem *item)
{
    XwkDeskItem *control = item->control;
    bool changed = false;
    if (is_list_kind(item->kind)) {
        auto *list = (IDECfgListItem *)item;
        std::vector<int> on(list->option_count > 0 ? list->option_count : 1);
        if (item->kind == IDECFG_CHECK_GROUP) {
            auto *toggles = (XwkToggleItem *)control;
            for (int i = 0; i < toggles->count && i < list->option_count; i++)
                on[i] = XmToggleButtonGetState(toggles->toggles[i]);
        } else if (item->kind == IDECFG_LIST) {
            int *positions = nullptr, count = 0;
            GetScrolledListExt(control, &positions, &count);
            for (int i = 0; i < count; i++)
                if (positions[i] >= 1 && positions[i] <= list->option_count)
                    on[positions[i] - 1] = 1;
            XtFree((char *)positions);
        } else {
            int selected = 0;
            if (item->kind == IDECFG_OPTION_MENU)
                GetOptionMenu(control, &selected);
            else
                GetRadioBox(control, &selected);
            if (selected >= 1 && selected <= list->option_count)
                on[selected - 1] = 1;
        }
        for (int i = 0; i < list->option_count; i++)
            if (list->options[i])
                changed |= set_state(&list->options[i]->state, on[i]);
    } else if (item->kind == IDECFG_TOGGLE) {
        auto *toggles = (XwkToggleItem *)control;
        if (toggles->count > 0)
            changed = set_state(&((IDECfgToggleItem *)item)->state,
                                XmToggleButtonGetState(toggles->toggles[0]));
    } else if (item->kind == IDECFG_EDIT) {
        auto *edit = (IDECfgEditItem *)item;
        Widget text = ((XwkEditItem *)control)->text;
        if (!text || !XmIsText(text))
            return false;
        char *now = XmTextGetString(text);
        const char *before = edit->value ? edit->value : "";
        if (now && strcmp(now, before) != 0) {
            XtFree(edit->value);
            edit->value = XtNewString(now);
            changed = true;
        }
        XtFree(now);
    }
    return changed;
}

}  // namespace

extern "C" {

Boolean IDECfgGetDivisionValue(IDECfgDivision *division, const char *name, XtPointer *value)
{
    if (value)
        *value = nullptr;
    if (!name)
        return False;
    return find_item(division, [&](IDECfgItem *item) { return get_value(item, name, value); }) !=
           nullptr;
}

Boolean IDECfgGetValue(IDECfgTool *tool, const char *name, XtPointer *value)
{
    if (value)
        *value = nullptr;
    for (int i = 0; tool && tool->divisions && i < tool->division_count; i++)
        if (IDECfgGetDivisionValue(tool->divisions[i], name, value))
            return True;
    return False;
}

Boolean IDECfgSetDivisionValue(IDECfgDivision *division, const char *name, XtPointer value)
{
    if (!division || !name || !value)
        return False;
    return find_item(division, [&](IDECfgItem *item) { return set_value(item, name, value); }) !=
           nullptr;
}

Boolean IDECfgSetValue(IDECfgTool *tool, const char *name, XtPointer value)
{
    for (int i = 0; tool && tool->divisions && i < tool->division_count; i++)
        if (IDECfgSetDivisionValue(tool->divisions[i], name, value))
            return True;
    return False;
}

Boolean IDECfgSetSensitivity(IDECfgTool *tool, const char *name, Boolean sensitive)
{
    if (!name)
        return False;
    for (int i = 0; tool && tool->divisions && i < tool->division_count; i++)
        if (find_item(tool->divisions[i],
                      [&](IDECfgItem *item) { return set_sensitivity(item, name, sensitive); }))
            return True;
    return False;
}

float IDECfgCreateDivisionControls(XwkDeskRec *desk, IDECfgDivision *division, float x, float y)
{
    division = resolved(division);
    for (int i = 0; division && division->items && i < division->item_count; i++) {
        IDECfgItem *item = division->items[i];
        if (!item)
            continue;
        XwkDeskItem *control = create_control(desk, x, y, item);
        if (!control)
            continue;
        watch_control(item, control);
        apply_sensitivity(item);
        float height = 0;
        GetDeskItemSize(control, nullptr, &height);
        y += height + 0.2f;
    }
    return y;
}

Boolean IDECfgReadDivisionControls(IDECfgDivision *division)
{
    division = resolved(division);
    bool changed = false;
    for (int i = 0; division && division->items && i < division->item_count; i++) {
        IDECfgItem *item = division->items[i];
        if (item && control_alive(item))
            changed |= read_control(item);
    }
    return changed;
}

}  // extern "C"
