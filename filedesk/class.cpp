// The file selection desk class: resources, representation types, class
// record, and building, changing and tearing down an instance.
#include "filedesk/filedesk_widget.h"

#include <Xm/BulletinBP.h>
#include <Xm/DialogS.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RepType.h>
#include <Xm/Separator.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xwk/ComboBox.h>
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>
#include <Xwk/PanedW.h>
#include <Xwk/Strings.h>
#include <Xwk/Text.h>

#include <cstring>

extern "C" {
XtTranslations _XmFileSDPanelsTranslts = nullptr;
XtTranslations _XmFileSDComboBoxTextTranslts = nullptr;
}

namespace {

#define D_OFFSET(field) XtOffsetOf(XmFileSelectionDeskRec, fsd.field)

const char *kStyleNames[] = {"file_selection_use_action_area", "file_selection_simple_desk"};
const char *kAppearanceNames[] = {"appearance_none",         "appearance_above_desk",
                                  "appearance_above_dir_tree", "appearance_above_file_desk",
                                  "appearance_under_desk",   "appearance_under_dir_tree",
                                  "appearance_under_file_desk"};
// The third name runs two together; it is the name applications use.
const char *kDeskSelectionNames[] = {"select_any_entry", "select_only_dirs",
                                     "select_only_filesselect_executables"};
const char *kRepresentationNames[] = {"representation_name_only", "representation_large_icons",
                                      "representation_small_icons", "representation_detail"};
const char *kDirectionNames[] = {"direction_ascending", "direction_descending"};
const char *kOrderNames[] = {"order_name", "order_type", "order_date", "order_size"};
const char *kInfoModeNames[] = {"info_brief", "info_full"};

const char *kDefaultInfoLabels[] = {"Brief Info", "Full Info"};

#define RES(name, cls, type, size, field, deftype, def) \
    {(String)name, (String)cls, (String)type, size, D_OFFSET(field), (String)deftype, (XtPointer)(def)}
// Each class is the resource name with a capital first letter, callbacks
// and icons too.  Icons are XwkIcon handles: no converter may make one.
#define CB(name, cls, field) RES(name, cls, XmRCallback, sizeof(XtCallbackList), field, XmRCallback, nullptr)
#define ICON(name, cls, kind) RES(name, cls, XmRPointer, sizeof(XtPointer), icons[kind], XmRImmediate, nullptr)
#define STR(name, cls, field, def) RES(name, cls, XmRString, sizeof(String), field, XmRString, def)

void DefaultActiveBackground(Widget w, int, XrmValue *value);
void DefaultActiveForeground(Widget w, int, XrmValue *value);

XtResource resources[] = {
    RES(XmNstyle, "Style", "style", 1, style, XmRImmediate, 1),
    RES(XmNdefaultInfoMode, "DefaultInfoMode", "infoMode", 1, default_info_mode, XmRImmediate, 1),
    RES(XmNuseExtendedInfoMode, "UseExtendedInfoMode", XmRBoolean, sizeof(Boolean), use_extended_info_mode, XmRImmediate, True),
    RES(XmNrepresentation, "Representation", "representation", 1, representation, XmRImmediate, 1),
    RES(XmNplaceDirection, "PlaceDirection", "placeDirection", 1, place_direction, XmRImmediate, 0),
    RES(XmNplaceOrder, "PlaceOrder", "placeOrder", 1, place_order, XmRImmediate, 0),
    RES(XmNactiveBackground, XmCBackground, XmRPixel, sizeof(Pixel), active_background, XmRCallProc, DefaultActiveBackground),
    RES(XmNactiveForeground, XmCForeground, XmRPixel, sizeof(Pixel), active_foreground, XmRCallProc, DefaultActiveForeground),
    RES(XmNnormalBackground, "NormalBackground", XmRPixel, sizeof(Pixel), normal_background, XmRImmediate, 0),
    RES(XmNnormalForeground, "NormalForeground", XmRPixel, sizeof(Pixel), normal_foreground, XmRImmediate, 0),
    STR(XmNdirectory, XmCDirectory, directory, "."),
    STR(XmNdirectoryTreeTitle, "DirectoryTreeTitle", directory_tree_title, nullptr),
    STR(XmNpattern, XmCPattern, pattern, ""),
    STR(XmNpatternsDescription, "PatternsDescription", patterns_description, "All files|*"),
    RES(XmNpatternPosition, "PatternPosition", XmRInt, sizeof(int), pattern_position, XmRImmediate, 1),
    STR(XmNtitleString, XmCTitleString, title_string, "%s   (%d) Nodes"),
    RES(XmNuseFileDesk, "UseFileDesk", XmRBoolean, sizeof(Boolean), use_file_desk, XmRImmediate, True),
    RES(XmNrepeatDelay, XmCRepeatDelay, XmRInt, sizeof(int), repeat_delay, XmRImmediate, 100),
    RES(XmNmultipleSelectionDragIcon, "MultipleSelectionDragIcon", XmRPointer, sizeof(XtPointer), drag_icon, XmRImmediate, nullptr),
    RES(XmNuseDenyReadIcon, "UseDenyReadIcon", XmRBoolean, sizeof(Boolean), use_deny_read_icon, XmRImmediate, True),
    RES(XmNuseDenyWriteIcon, "UseDenyWriteIcon", XmRBoolean, sizeof(Boolean), use_deny_write_icon, XmRImmediate, False),
    ICON(XmNdeskRegularIcon, "DeskRegularIcon", FSD_ICON_DESK_REGULAR),
    ICON(XmNdeskExecIcon, "DeskExecIcon", FSD_ICON_DESK_EXEC),
    ICON(XmNdeskDirIcon, "DeskDirIcon", FSD_ICON_DESK_DIR),
    ICON(XmNdeskDirDenyReadIcon, "DeskDirDenyReadIcon", FSD_ICON_DESK_DIR_DENY_READ),
    ICON(XmNdeskDirDenyWriteIcon, "DeskDirDenyWriteIcon", FSD_ICON_DESK_DIR_DENY_WRITE),
    ICON(XmNdeskDirUpIcon, "DeskDirUpIcon", FSD_ICON_DESK_DIR_UP),
    ICON(XmNtreeDirIcon, "TreeDirIcon", FSD_ICON_TREE_DIR),
    ICON(XmNtreeDirUpIcon, "TreeDirUpIcon", FSD_ICON_TREE_DIR_UP),
    ICON(XmNtreeDirOpenIcon, "TreeDirOpenIcon", FSD_ICON_TREE_DIR_OPEN),
    ICON(XmNtreeDirDenyReadIcon, "TreeDirDenyReadIcon", FSD_ICON_TREE_DIR_DENY_READ),
    ICON(XmNtreeDirDenyWriteIcon, "TreeDirDenyWriteIcon", FSD_ICON_TREE_DIR_DENY_WRITE),
    ICON(XmNtreeRegularIcon, "TreeRegularIcon", FSD_ICON_TREE_REGULAR),
    STR(XmNokButtonLabelString, "OkButtonLabelString", ok.label, "OK"),
    STR(XmNcancelButtonLabelString, "CancelButtonLabelString", cancel.label, "Cancel"),
    STR(XmNfilterButtonLabelString, "FilterButtonLabelString", filter.label, "Filter"),
    RES(XmNinfoButtonLabelString, "InfoButtonLabelString", XtRStringTable, sizeof(String *), info_labels, XmRImmediate, nullptr),
    STR(XmNnewFileButtonLabelString, "NewFileButtonLabelString", new_file.label, "New File"),
    STR(XmNhelpButtonLabelString, "HelpButtonLabelString", help.label, "Help"),
    STR(XmNfilterLabelString, "FilterLabelString", filter_label_string, "Filter:"),
    STR(XmNselectionLabelString, "SelectionLabelString", selection_label_string, "Selection:"),
    STR(XmNselectionTextString, "SelectionTextString", selection_text_string, nullptr),
    RES(XmNselectionPolicy, XmCSelectionPolicy, XmRUnsignedChar, 1, selection_policy, XmRImmediate, 0),
    RES(XmNfilterAppearance, "FilterAppearance", "Appearance", 1, filter_appearance, XmRImmediate, 0),
    RES(XmNselectionAppearance, "SelectionAppearance", "Appearance", 1, selection_appearance, XmRImmediate, 0),
    RES(XmNselectionDeskType, "SelectionDeskType", "DeskSelection", 1, selection_desk_type, XmRImmediate, 0),
    RES(XmNbusyCursor, "BusyCursor", XmRCursor, sizeof(Cursor), busy_cursor, XmRImmediate, None),
    RES(XmNuseBusyCursor, "UseBusyCursor", XmRBoolean, sizeof(Boolean), use_busy_cursor, XmRImmediate, False),
    RES(XmNuseNewFileButton, "UseNewFileButton", XmRBoolean, sizeof(Boolean), use_new_file_button, XmRImmediate, False),
    RES(XmNscanDirOnSubDirs, "ScanDirOnSubDirs", XmRBoolean, sizeof(Boolean), scan_dir_on_sub_dirs, XmRImmediate, False),
    CB(XmNokCallback, "OkCallback", ok.callback),
    CB(XmNcancelCallback, "CancelCallback", cancel.callback),
    CB(XmNnoMatchCallback, "NoMatchCallback", no_match_callback),
    CB(XmNfilterCallback, "FilterCallback", filter.callback),
    CB(XmNinfoCallback, "InfoCallback", info_callback),
    CB(XmNnewFileCallback, "NewFileCallback", new_file.callback),
    CB(XmNfileListChangedCallback, "FileListChangedCallback", file_list_changed_callback),
    CB(XmNsingleSelectionCallback, "SingleSelectionCallback", single_selection_callback),
    CB(XmNmultipleSelectionCallback, "MultipleSelectionCallback", multiple_selection_callback),
    CB(XmNdefaultActionCallback, "DefaultActionCallback", default_action_callback),
    CB(XmNfocusCallback, "FocusCallback", focus_callback),
    CB(XmNtransferDoneCallback, "TransferDoneCallback", transfer_done_callback),
    RES(XmNcreateIconProc, XmCCreateIconProc, XmRPointer, sizeof(XtPointer), create_icon_proc, XmRImmediate, nullptr),
    RES(XmNgetIconProc, "GetIconProc", XmRPointer, sizeof(XtPointer), get_icon_proc, XmRImmediate, nullptr),
    STR(XmNfullInfoLayoutString, XmCLayoutString, full_info_layout, ""),
    RES(XmNsortColumn, XmCSortColumn, XmRInt, sizeof(int), sort_column, XmRImmediate, 1),
    RES(XmNsortDirection, XmCSortDirection, "sortDirection", 1, sort_direction, XmRImmediate, 0),
    RES(XmNpaneOrientation, "PaneOrientation", XmROrientation, 1, pane_orientation, XmRImmediate, XmHORIZONTAL),
    RES(XmNconfigureSash, "ConfigureSash", XmRBoolean, sizeof(Boolean), configure_sash, XmRImmediate, True),
};

// ---- Synthetic resources --------------------------------------------------

void GetWidgetField(Widget w, int offset, XtArgVal *value)
{
    *value = FsdIsDesk(w) ? (XtArgVal) * reinterpret_cast<Widget *>(reinterpret_cast<char *>(w) + offset) : 0;
}

void GetSeparator(Widget w, int, XtArgVal *value)
{
    *value = FsdIsDesk(w) ? (XtArgVal)FsdPart(w).separator_lower : 0;
}

XtArgVal Copy(const char *text) { return (XtArgVal)(text ? XtNewString(text) : nullptr); }

void GetDirectory(Widget w, int, XtArgVal *value)
{
    if (!FsdIsDesk(w))
        return void(*value = 0);
    auto &p = FsdPart(w);
    *value = Copy(p.current_dir ? p.current_dir->path : p.directory);
}

void GetPattern(Widget w, int, XtArgVal *value)
{
    if (!FsdIsDesk(w))
        return void(*value = 0);
    const char *text = XmFileSDGetFilterPatternString(w, nullptr);
    *value = Copy(text ? text : FsdPart(w).pattern);
}

void GetFilterTextString(Widget w, int, XtArgVal *value)
{
    if (!FsdIsDesk(w))
        return void(*value = 0);
    auto &p = FsdPart(w);
    if (p.filter_text) {
        char *text = XmTextGetString(p.filter_text);
        *value = (XtArgVal)text;
        return;
    }
    *value = Copy(p.pattern);
}

void GetSelectionTextString(Widget w, int, XtArgVal *value)
{
    if (!FsdIsDesk(w))
        return void(*value = 0);
    auto &p = FsdPart(w);
    if (!p.selection_text)
        return void(*value = 0);
    char *text = XmTextGetString(p.selection_text);
    XwkRemoveAllSpaces(text);
    if (text[0] == '~') {
        char *expanded = XwkExpandTilde(text);
        if (expanded) {
            XtFree(text);
            text = XtNewString(expanded);
            free(expanded);
        }
    }
    *value = (XtArgVal)text;
}

void GetLayoutString(Widget w, int, XtArgVal *value)
{
    if (!FsdIsDesk(w))
        return void(*value = 0);
    auto &p = FsdPart(w);
    if (p.file_list && XtIsRealized(p.file_list)) {
        char *layout = XmPrjTreeGetColumnsLayoutString(p.file_list);
        if (layout)
            return void(*value = (XtArgVal)layout);
    }
    *value = Copy(p.full_info_layout);
}

XtArgVal LabelOf(Widget label)
{
    if (!label)
        return 0;
    XmString string = nullptr;
    XtVaGetValues(label, XmNlabelString, &string, nullptr);
    char *text = nullptr;
    if (string) {
        text = (char *)XmStringUnparse(string, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0,
                                       XmOUTPUT_ALL);
        XmStringFree(string);
    }
    if (!text)
        return 0;
    char *copy = XtNewString(text);
    XtFree(text);
    return (XtArgVal)copy;
}

void GetLabelOfWidgetField(Widget w, int offset, XtArgVal *value)
{
    Widget child = nullptr;
    GetWidgetField(w, offset, (XtArgVal *)&child);
    *value = LabelOf(child);
}

void GetItemCount(Widget w, int, XtArgVal *value)
{
    *value = FsdIsDesk(w) ? (XtArgVal)FsdPart(w).item_count : 0;
}

void GetItems(Widget w, int, XtArgVal *value)
{
    *value = FsdIsDesk(w) ? (XtArgVal)FsdPart(w).entries : 0;
}

#define SYN(name, field, proc) {(String)name, sizeof(XtPointer), D_OFFSET(field), proc, nullptr}

XmSyntheticResource syn_resources[] = {
    SYN(XmNactionArea, action_area, GetWidgetField),
    SYN(XmNdirectoryTree, dir_tree, GetWidgetField),
    SYN(XmNfileDesk, file_view, GetWidgetField),
    SYN(XmNseparator, separator_lower, GetSeparator),
    SYN(XmNuserArea, user_area, GetWidgetField),
    SYN(XmNokButton, ok.button, GetWidgetField),
    SYN(XmNcancelButton, cancel.button, GetWidgetField),
    SYN(XmNfilterButton, filter.button, GetWidgetField),
    SYN(XmNinfoButton, info_button, GetWidgetField),
    SYN(XmNnewFileButton, new_file.button, GetWidgetField),
    SYN(XmNhelpButton, help.button, GetWidgetField),
    SYN(XmNfilterLabel, filter_label, GetWidgetField),
    SYN(XmNfilterText, filter_text, GetWidgetField),
    SYN(XmNselectionLabel, selection_label, GetWidgetField),
    SYN(XmNselectionText, selection_text, GetWidgetField),
    SYN(XmNtitle, title_label, GetWidgetField),
    SYN(XmNdirectory, directory, GetDirectory),
    SYN(XmNpattern, pattern, GetPattern),
    SYN(XmNfilterTextString, filter_text, GetFilterTextString),
    SYN(XmNselectionTextString, selection_text_string, GetSelectionTextString),
    SYN(XmNfullInfoLayoutString, full_info_layout, GetLayoutString),
    SYN(XmNokButtonLabelString, ok.button, GetLabelOfWidgetField),
    SYN(XmNcancelButtonLabelString, cancel.button, GetLabelOfWidgetField),
    SYN(XmNfilterButtonLabelString, filter.button, GetLabelOfWidgetField),
    SYN(XmNinfoButtonLabelString, info_button, GetLabelOfWidgetField),
    SYN(XmNnewFileButtonLabelString, new_file.button, GetLabelOfWidgetField),
    SYN(XmNhelpButtonLabelString, help.button, GetLabelOfWidgetField),
    SYN(XmNfilterLabelString, filter_label, GetLabelOfWidgetField),
    SYN(XmNselectionLabelString, selection_label, GetLabelOfWidgetField),
    SYN(XmNitemCount, item_count, GetItemCount),
    SYN(XmNitems, entries, GetItems),
};

void DefaultActiveBackground(Widget w, int, XrmValue *value)
{
    static Pixel pixel;
    Widget parent = XtParent(w);
    Pixel background = 0;
    XtVaGetValues(parent, XmNbackground, &background, nullptr);
    Pixel select = background;
    XmGetColors(XtScreen(w), w->core.colormap, background, nullptr, nullptr, nullptr, &select);
    pixel = select;
    value->addr = (XPointer)&pixel;
    value->size = sizeof pixel;
}

void DefaultActiveForeground(Widget w, int, XrmValue *value)
{
    static Pixel pixel;
    pixel = BlackPixelOfScreen(XtScreen(w));
    XtVaGetValues(XtParent(w), XmNforeground, &pixel, nullptr);
    value->addr = (XPointer)&pixel;
    value->size = sizeof pixel;
}

// ---- Actions -------------------------------------------------------------

void ProcessTab(Widget w, XEvent *, String *params, Cardinal *count)
{
    Widget desk = XmFindFileSelectionDeskByChild(w);
    if (!desk || !*count)
        return;
    auto &p = FsdPart(desk);
    if (!XtIsShell(XtParent(desk))) {
        if (params[0][0] == 'n')
            XmProcessTraversal(w, XmTRAVERSE_NEXT_TAB_GROUP);
        else if (params[0][0] == 'p')
            XmProcessTraversal(w, XmTRAVERSE_PREV_TAB_GROUP);
        return;
    }
    if (p.file_view && w == p.file_view)
        XmProcessTraversal(p.dir_tree, XmTRAVERSE_CURRENT);
    else if (p.file_view)
        XmProcessTraversal(p.file_view, XmTRAVERSE_CURRENT);
}

void SwapPanels(Widget w, XEvent *, String *, Cardinal *)
{
    Widget desk = XmFindFileSelectionDeskByChild(w);
    if (!desk || !FsdPart(desk).paned_window)
        return;
    Widget paned = FsdPart(desk).paned_window;
    CompositeWidget cw = reinterpret_cast<CompositeWidget>(paned);
    int first = -1;
    int second = -1;
    for (Cardinal i = 0; i < cw->composite.num_children; i++) {
        if (!XmIsForm(cw->composite.children[i]))
            continue;
        if (first < 0)
            first = int(i);
        else if (second < 0)
            second = int(i);
    }
    if (second < 0)
        return;
    // Unmanaging the panels takes the focus from them: it goes back after.
    Widget focus = XmGetFocusWidget(desk);
    XtUnmanageChildren(cw->composite.children, cw->composite.num_children);
    std::swap(cw->composite.children[first], cw->composite.children[second]);
    XtManageChildren(cw->composite.children, cw->composite.num_children);
    if (focus)
        XmProcessTraversal(focus, XmTRAVERSE_CURRENT);
}

void ChangeOrientation(Widget w, XEvent *, String *, Cardinal *)
{
    Widget desk = XmFindFileSelectionDeskByChild(w);
    if (!desk || !FsdPart(desk).paned_window)
        return;
    Widget focus = XmGetFocusWidget(desk);
    XwkTogglePanedWindowOrientation(FsdPart(desk).paned_window);
    if (focus)
        XmProcessTraversal(focus, XmTRAVERSE_CURRENT);
}

void ActivateFilter(Widget w, XEvent *, String *, Cardinal *)
{
    Widget desk = XmFindFileSelectionDeskByChild(w);
    if (!desk)
        return;
    const char *text = XmFileSDGetFilterPatternString(desk, nullptr);
    if (XmTextGetEditable(w) || !text)
        return;
    XtVaSetValues(w, XmNeditable, True, XmNcursorPositionVisible, True, nullptr);
    char *shown = XmTextGetString(w);
    if (std::strcmp(shown, text) != 0)
        XmTextSetString(w, const_cast<char *>(text));
    XtFree(shown);
}

XtActionsRec actions[] = {
    {(String) "FSDProcessTab", ProcessTab},
    {(String) "FSDSwapPanels", SwapPanels},
    {(String) "FSDChangeOrientation", ChangeOrientation},
    {(String) "FSDActivateFilter", ActivateFilter},
};

// ---- Class methods -------------------------------------------------------

void ClassInitialize()
{
    XmRepTypeRegister((String) "style", (String *)kStyleNames, nullptr, 2);
    XmRepTypeRegister((String) "Appearance", (String *)kAppearanceNames, nullptr, 7);
    XmRepTypeRegister((String) "DeskSelection", (String *)kDeskSelectionNames, nullptr, 3);
    XmRepTypeRegister((String) "representation", (String *)kRepresentationNames, nullptr, 4);
    XmRepTypeRegister((String) "placeDirection", (String *)kDirectionNames, nullptr, 2);
    XmRepTypeRegister((String) "placeOrder", (String *)kOrderNames, nullptr, 4);
    XmRepTypeRegister((String) "infoMode", (String *)kInfoModeNames, nullptr, 2);
    // The tree list's class registers "sortDirection"; make sure it did.
    XtInitializeWidgetClass(xmPrjTreeWidgetClass);
    _XmFileSDPanelsTranslts = XtParseTranslationTable(
        "#override\ns ~m ~a <Key>Tab:\tFSDProcessTab(p)\n~m ~a <Key>Tab:\tFSDProcessTab(n)\n"
        "Ctrl <Key>u:\t\tFSDSwapPanels()\nCtrl <Key>o:\t\tFSDChangeOrientation()\n");
    _XmFileSDComboBoxTextTranslts = XtParseTranslationTable(
        "#override\n~c ~s ~m ~a <Btn1Down>:\tgrab-focus() FSDActivateFilter()\n");
    XwkInitializeUser();
}

Boolean DefaultGetIcon(Widget desk, struct stat *st, char *, XtPointer *icon)
{
    auto &p = FsdPart(desk);
    FsdIconKind kind = FsdFileIcon(st, p.representation == XmREPRESENTATION_DETAIL);
    *icon = p.icons[kind];
    return *icon != nullptr;
}

void CreateIcons(Widget w)
{
    auto &p = FsdPart(w);
    for (int kind = 0; kind < FSD_ICON_COUNT; kind++) {
        if (p.icons[kind])
            continue;
        bool deny_read = kind == FSD_ICON_TREE_DIR_DENY_READ || kind == FSD_ICON_DESK_DIR_DENY_READ;
        bool deny_write = kind == FSD_ICON_TREE_DIR_DENY_WRITE || kind == FSD_ICON_DESK_DIR_DENY_WRITE;
        if ((deny_read && !p.use_deny_read_icon) || (deny_write && !p.use_deny_write_icon))
            continue;
        const FsdBuiltinIcon &builtin = kFsdBuiltinIcons[kind];
        if (p.create_icon_proc)
            p.icons[kind] = p.create_icon_proc(w, builtin.data, nullptr, builtin.name);
        else
            p.icons[kind] = XwkIconCreateFromData(w, builtin.data);
        if (!p.icons[kind]) {
            char message[80];
            snprintf(message, sizeof message, "Can't create %s icon.", builtin.name);
            XmeWarning(w, message);
        }
    }
}

Widget MakeButton(Widget w, Widget area, const char *name, const char *label, int id);
void ButtonActivated(Widget button, XtPointer client_data, XtPointer call_data);
void BuildActionArea(Widget w);
void CreateRows(Widget w, XmString *names);
void SetDefaultButtons(Widget w);
void PlaceRows(Widget w);

Widget CreateTitle(Widget w, Widget *frame_out)
{
    Widget frame = XtVaCreateManagedWidget("", xmFrameWidgetClass, w, XmNtopAttachment,
                                           XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                                           XmNrightAttachment, XmATTACH_FORM, XmNtopOffset, 2,
                                           XmNshadowType, XmSHADOW_ETCHED_IN, XmNshadowThickness, 3,
                                           XmNmarginHeight, 0, nullptr);
    XmString text = XmStringCreateLocalized(smi18n_gettext(" Scanning..."));
    Widget label = XtVaCreateManagedWidget("fsdTitle", xmLabelWidgetClass, frame, XmNmarginHeight,
                                           0, XmNrecomputeSize, False, XmNlabelString, text,
                                           XmNalignment, XmALIGNMENT_CENTER, XmNtraversalOn,
                                           False, nullptr);
    XmStringFree(text);
    XtUninstallTranslations(label);
    *frame_out = frame;
    return label;
}

void Initialize(Widget, Widget w, ArgList, Cardinal *)
{
    auto &p = FsdPart(w);
    p.state = new FsdState;
    p.initializing = True;
    p.title_label = p.paned_window = p.left_form = p.dir_tree_sw = p.dir_tree = nullptr;
    p.right_form = p.right_sw_form = p.filter_label = p.filter_text = p.filter_combo = nullptr;
    p.selection_label = p.selection_text = p.user_area = nullptr;
    p.separator_upper = p.separator_lower = nullptr;
    p.file_view = p.file_desk = p.file_list = p.action_area = nullptr;
    p.action_buttons = nullptr;
    p.ok.button = p.cancel.button = p.filter.button = p.info_button = nullptr;
    p.new_file.button = p.help.button = nullptr;
    p.gc = nullptr;
    p.current_dir = nullptr;
    p.entries = nullptr;
    p.item_count = p.entry_count = 0;
    p.select_timer = p.scroll_timer = 0;
    p.pending_open = nullptr;
    p.flags = 0;
    p.user_cache = p.group_cache = nullptr;
    p.shown_directory = nullptr;
    p.patterns = nullptr;
    p.pattern_count = 0;
    std::memset(&p.saved_tree_event, 0, sizeof p.saved_tree_event);
    p.directory = XtNewString(p.directory ? p.directory : ".");
    p.pattern = XtNewString(p.pattern ? p.pattern : "");
    p.patterns_description = XtNewString(p.patterns_description ? p.patterns_description : "");
    p.full_info_layout = XtNewString(p.full_info_layout ? p.full_info_layout : "");
    // The field's text is borrowed: it may point into a directory node.
    FsdStateOf(w).initial_selection = p.selection_text_string ? p.selection_text_string : "";
    p.selection_text_string = const_cast<char *>(FsdStateOf(w).initial_selection.c_str());
    if (!p.info_labels)
        p.info_labels = (String *)kDefaultInfoLabels;
    if (p.selection_desk_type > 2)
        p.selection_desk_type = 0;
    if (p.repeat_delay < 1)
        p.repeat_delay = 100;
    if (!p.get_icon_proc)
        p.get_icon_proc = DefaultGetIcon;
    if (p.representation > XmREPRESENTATION_DETAIL)
        p.representation = XmREPRESENTATION_NAME_ONLY;
    CreateIcons(w);

    if (p.style > 1)
        p.style = 0;
    if (p.filter_appearance > 6)
        p.filter_appearance = 0;
    if (p.selection_appearance > 6)
        p.selection_appearance = 0;
    XmString *names = nullptr;
    bool want_names = p.style == 0 && p.filter_appearance != XmAPPEARANCE_NONE;
    XmFileSDCreateFilterPatternsData(w, want_names ? &names : nullptr);
    if (p.pattern_position < 0)
        p.pattern_position = 0;
    if (p.pattern_position > p.pattern_count)
        p.pattern_position = p.pattern_count;

    Widget parent = w;
    if (p.use_file_desk) {
        p.paned_window = XtVaCreateWidget(
            "fsdPanedW", xwkPanedWindowWidgetClass, w, XmNorientation, p.pane_orientation,
            XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM,
            XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNspacing, 4,
            XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
        if (p.configure_sash)
            XwkConfigureSash(p.paned_window, False);
        p.left_form = XtVaCreateManagedWidget("fsdLeftForm", xmFormWidgetClass, p.paned_window,
                                              nullptr);
        parent = p.left_form;
    }
    Arg args[16];
    Cardinal n = 0;
    XtSetArg(args[n], XmNtraversalOn, True), n++;
    XtSetArg(args[n], XmNcanSlam, 1), n++;
    XtSetArg(args[n], XmNslamPolicy, 1), n++;
    XtSetArg(args[n], XmNselectedIcon, p.icons[FSD_ICON_TREE_DIR_OPEN]), n++;
    XtSetArg(args[n], XmNhPad, 2), n++;
    XtSetArg(args[n], XmNvPad, 0), n++;
    XtSetArg(args[n], XmNvisibleLines, 8), n++;
    XtSetArg(args[n], XmNuseSort, 1), n++;
    XtSetArg(args[n], XmNnumColumns, 1), n++;
    XtSetArg(args[n], XmNvisualMode, 1), n++;
    XtSetArg(args[n], XmNdontMove, 1), n++;
    if (p.directory_tree_title)
        XtSetArg(args[n], XmNtitleString, p.directory_tree_title), n++;
    p.dir_tree = XmCreateScrolledTreeList(parent, (String) "fsdDirTree", args, n);
    p.dir_tree_sw = XtParent(p.dir_tree);
    XtVaSetValues(p.dir_tree_sw, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                  XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
                  XmATTACH_FORM, nullptr);
    XtOverrideTranslations(p.dir_tree, _XmFileSDPanelsTranslts);
    XmPrjTreeSetColumnSortable(p.dir_tree, 1, True);
    XtVaGetValues(p.dir_tree, XmNbackground, &p.normal_background, XmNforeground,
                  &p.normal_foreground, nullptr);
    XtVaSetValues(p.dir_tree, XmNactiveBackground, p.active_background, XmNactiveForeground,
                  p.active_foreground, nullptr);

    FsdBuildTree(w, p.directory);
    XtManageChild(p.dir_tree);
    XtManageChild(p.dir_tree_sw);
    FsdSetupTreeCallbacks(w);

    if (p.use_file_desk) {
        FsdRegisterDropSite(w, p.dir_tree);
        p.right_form = XtVaCreateManagedWidget("fsdRightForm", xmFormWidgetClass, p.paned_window,
                                               XmNwidth, 400, nullptr);
        Pixel background = 0;
        XtVaGetValues(XtParent(p.dir_tree), XmNbackground, &background, nullptr);
        p.right_sw_form = XtVaCreateManagedWidget(
            "fsdRightSWForm", xmFormWidgetClass, p.right_form, XmNtopAttachment, XmATTACH_FORM,
            XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
            XmNrightAttachment, XmATTACH_FORM, XmNbackground, background, nullptr);
    }

    if (p.style == 0 && p.use_file_desk) {
        Widget title_frame = nullptr;
        p.title_label = CreateTitle(w, &title_frame);
        CreateRows(w, names);
        BuildActionArea(w);
        SetDefaultButtons(w);
        PlaceRows(w);
    }
    if (names) {
        for (int i = 0; i < p.pattern_count; i++)
            XmStringFree(names[i]);
        XtFree(reinterpret_cast<char *>(names));
    }

    p.initializing = False;
    if (XtClass(w) == xmFileSelectionDeskWidgetClass && p.paned_window)
        XtManageChild(p.paned_window);
    if (p.paned_window) {
        CompositeWidget cw = reinterpret_cast<CompositeWidget>(p.paned_window);
        for (int i = int(cw->composite.num_children) - 1; i >= 0; i--) {
            Widget child = cw->composite.children[i];
            if (XmIsSash(child)) {
                XtVaSetValues(child, XmNtraversalOn, False, nullptr);
                break;
            }
        }
    }
    FsdShowPattern(w);
}

// ---- Action area and rows -----------------------------------------------

enum { kOk = 4, kCancel = 2, kFilter = 17, kInfo = 18, kNewFile = 19, kHelp = 7 };

void ButtonActivated(Widget button, XtPointer client_data, XtPointer call_data)
{
    Widget desk = XmFindFileSelectionDeskByChild(button);
    if (!desk)
        return;
    auto *cbs = static_cast<XmAnyCallbackStruct *>(call_data);
    FsdActivateButton(desk, int(reinterpret_cast<intptr_t>(client_data)), cbs ? cbs->event : nullptr);
}

void FilterButtonActivated(Widget button, XtPointer, XtPointer call_data)
{
    Widget desk = XmFindFileSelectionDeskByChild(button);
    if (!desk)
        return;
    auto *cbs = static_cast<XmAnyCallbackStruct *>(call_data);
    XmFileSDShowNewPattern(desk, FsdPart(desk).filter_combo, False, cbs ? cbs->event : nullptr);
}

void InfoButtonActivated(Widget button, XtPointer, XtPointer)
{
    Widget desk = XmFindFileSelectionDeskByChild(button);
    if (!desk)
        return;
    unsigned char next = FsdPart(desk).representation == XmREPRESENTATION_DETAIL
                             ? XmREPRESENTATION_LARGE_ICONS
                             : XmREPRESENTATION_DETAIL;
    XtVaSetValues(desk, XmNrepresentation, next, nullptr);
}

Widget MakeButton(Widget, Widget area, const char *name, const char *label, int id)
{
    XmString text = XmStringCreateLocalized(smi18n_gettext(label ? label : ""));
    Widget button = XtVaCreateManagedWidget(
        name, xmPushButtonWidgetClass, area, XmNlabelString, text, XmNdefaultButtonShadowThickness,
        1, XmNmarginHeight, 4, XmNtopAttachment, XmATTACH_FORM, XmNrecomputeSize, False, nullptr);
    XmStringFree(text);
    XtAddCallback(button, XmNactivateCallback, ButtonActivated, reinterpret_cast<XtPointer>(intptr_t(id)));
    return button;
}

void BuildActionArea(Widget w)
{
    auto &p = FsdPart(w);
    p.action_area = XtVaCreateWidget("fsdActionArea", xmFormWidgetClass, w, XmNleftAttachment,
                                     XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                                     XmNbottomAttachment, XmATTACH_FORM, nullptr);
    std::vector<Widget> buttons;
    auto add = [&](Widget *slot, const char *name, const char *label, int id) {
        *slot = MakeButton(w, p.action_area, name, label, id);
        buttons.push_back(*slot);
    };
    add(&p.ok.button, "OK", p.ok.label, kOk);
    add(&p.cancel.button, "Cancel", p.cancel.label, kCancel);
    if (p.filter_appearance != XmAPPEARANCE_NONE) {
        add(&p.filter.button, "Filter", p.filter.label, kFilter);
        XtAddCallback(p.filter.button, XmNactivateCallback, FilterButtonActivated, nullptr);
    }
    if (p.use_extended_info_mode) {
        const char *label = p.info_labels[p.representation == XmREPRESENTATION_DETAIL ? 0 : 1];
        add(&p.info_button, "Info", label, kInfo);
        XtAddCallback(p.info_button, XmNactivateCallback, InfoButtonActivated, nullptr);
    }
    if (p.use_new_file_button)
        add(&p.new_file.button, "NewFile", p.new_file.label, kNewFile);
    add(&p.help.button, "Help", p.help.label, kHelp);

    p.action_buttons = reinterpret_cast<WidgetList>(XtCalloc(buttons.size() + 1, sizeof(Widget)));
    Dimension widest = 0;
    size_t longest = 1;
    for (size_t i = 0; i < buttons.size(); i++) {
        p.action_buttons[i] = buttons[i];
        Dimension width = 0;
        XtVaGetValues(buttons[i], XmNwidth, &width, nullptr);
        widest = std::max(widest, width);
        char *label = (char *)LabelOf(buttons[i]);
        if (label)
            longest = std::max(longest, std::strlen(label));
        XtFree(label);
        if (i == 0)
            XtVaSetValues(buttons[i], XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, 5, nullptr);
        else
            XtVaSetValues(buttons[i], XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget,
                          buttons[i - 1], XmNleftOffset, 5, nullptr);
    }
    XtVaSetValues(buttons.back(), XmNrightAttachment, XmATTACH_FORM, XmNrightOffset, 5, nullptr);
    Dimension width = Dimension(widest + widest / longest);
    for (Widget button : buttons)
        XtVaSetValues(button, XmNwidth, width, nullptr);
    Dimension height = 0;
    XtVaGetValues(buttons[0], XmNheight, &height, nullptr);
    Widget parent = XtParent(w);
    if (XtIsShell(parent)) {
        int min_width = -1;
        int min_height = -1;
        XtVaGetValues(parent, XmNminWidth, &min_width, XmNminHeight, &min_height, nullptr);
        int want_width = (width + 5) * int(buttons.size()) + 10;
        // The title frame is not sized yet: its height is the one it asks for.
        Widget title = XtParent(p.title_label);
        XtWidgetGeometry preferred{};
        XtQueryGeometry(title, nullptr, &preferred);
        int title_height = preferred.request_mode & CWHeight ? preferred.height : title->core.height;
        int want_height = height + 8 + title_height;
        if (min_width < want_width)
            XtVaSetValues(parent, XmNminWidth, want_width, nullptr);
        if (min_height < want_height)
            XtVaSetValues(parent, XmNminHeight, want_height, nullptr);
    }
    XtVaSetValues(w, XmNcancelButton, p.cancel.button, nullptr);
    XtManageChild(p.action_area);

    p.separator_lower = XtVaCreateManagedWidget(
        "fsdSeparator", xmSeparatorWidgetClass, w, XmNorientation, XmHORIZONTAL, XmNleftAttachment,
        XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_WIDGET,
        XmNbottomWidget, p.action_area, nullptr);
    p.separator_upper = XtVaCreateManagedWidget(
        "fsdSeparator", xmSeparatorWidgetClass, w, XmNorientation, XmHORIZONTAL, XmNseparatorType,
        XmNO_LINE, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
        XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, p.separator_lower, nullptr);
    XtVaSetValues(p.paned_window, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget,
                  XtParent(p.title_label), XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget,
                  p.separator_upper, nullptr);
}

void ComboSelected(Widget combo, XtPointer client_data, XtPointer call_data)
{
    auto *cbs = static_cast<XmAnyCallbackStruct *>(call_data);
    XmFileSDShowNewPattern((Widget)client_data, combo, True, cbs ? cbs->event : nullptr);
}

void ComboLosingFocus(Widget, XtPointer client_data, XtPointer)
{
    XmFileSDSetRealPattern((Widget)client_data, nullptr);
}

void ComboPoppedDown(Widget, XtPointer client_data, XtPointer)
{
    Widget desk = (Widget)client_data;
    XmFileSDRestorePatternAfterComboBox(desk, FsdPart(desk).filter_text);
}

void MakeDefault(Widget, XtPointer client_data, XtPointer)
{
    Widget button = (Widget)client_data;
    if (button)
        XtVaSetValues(XmFindFileSelectionDeskByChild(button), XmNdefaultButton, button, nullptr);
}

Widget RowParent(Widget w, unsigned char appearance)
{
    auto &p = FsdPart(w);
    switch (appearance) {
    case 2:
    case 5:
        return XtParent(p.dir_tree_sw);
    case 3:
    case 6:
        return XtParent(p.right_sw_form);
    default:
        return w;
    }
}

// Places a row (label and control) by its appearance; previous is the
// control of the row placed before in the same place, or NULL.
void PlaceRow(Widget w, Widget label, Widget control, unsigned char appearance, Widget previous)
{
    auto &p = FsdPart(w);
    Dimension control_height = 0;
    Dimension label_height = 0;
    XtVaGetValues(control, XmNheight, &control_height, nullptr);
    XtVaGetValues(label, XmNheight, &label_height, nullptr);
    int offset = (int(control_height) - int(label_height)) / 2;
    bool under = appearance >= 4;
    Widget anchor = nullptr;
    if (appearance == 4)
        anchor = p.separator_upper;
    else if (appearance == 1)
        anchor = XtParent(p.title_label);
    if (previous)
        anchor = previous;
    const char *side = under ? XmNbottomAttachment : XmNtopAttachment;
    const char *side_widget = under ? XmNbottomWidget : XmNtopWidget;
    const char *side_offset = under ? XmNbottomOffset : XmNtopOffset;
    unsigned char kind = anchor ? XmATTACH_WIDGET : XmATTACH_FORM;
    XtVaSetValues(label, XmNleftAttachment, XmATTACH_FORM, side, kind, side_widget, anchor,
                  side_offset, offset > 0 ? offset : 0, nullptr);
    XtVaSetValues(control, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, label,
                  XmNrightAttachment, XmATTACH_FORM, side, kind, side_widget, anchor, nullptr);
    Widget moved = p.paned_window;
    if (appearance == 2 || appearance == 5)
        moved = p.dir_tree_sw;
    else if (appearance == 3 || appearance == 6)
        moved = p.right_sw_form;
    XtVaSetValues(moved, side, XmATTACH_WIDGET, side_widget, control, nullptr);
    if (appearance == 6)
        XtVaSetValues(p.paned_window, XmNsashIndent, -int(control_height), nullptr);
}

// The filter row, then the selection row; placed by PlaceRows once the
// action area and its separators exist.
void CreateRows(Widget w, XmString *names)
{
    auto &p = FsdPart(w);
    if (p.filter_appearance != XmAPPEARANCE_NONE) {
        Widget parent = RowParent(w, p.filter_appearance);
        XmString text = XmStringCreateLocalized(smi18n_gettext(p.filter_label_string));
        p.filter_label = XtVaCreateManagedWidget("fsdFilterLabel", xmLabelWidgetClass, parent,
                                                 XmNlabelString, text, nullptr);
        XmStringFree(text);
        p.filter_combo = XtVaCreateManagedWidget(
            "fsdFilterComboBox", xwkComboBoxWidgetClass, parent, XmNcomboBoxType, 2, XmNitems,
            names, XmNitemCount, names ? p.pattern_count : 0, XmNselectedPosition,
            p.pattern_position > 0 ? p.pattern_position : 1, XmNshadowType, XmSHADOW_IN,
            XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, p.filter_label, nullptr);
        p.filter_text = XwkComboBoxGetText(p.filter_combo);
        Widget shell = XwkComboBoxGetShell(p.filter_combo);
        if (shell)
            XtAddCallback(shell, XmNpopdownCallback, ComboPoppedDown, w);
        XtOverrideTranslations(p.filter_text, _XmFileSDComboBoxTextTranslts);
        XtAddCallback(p.filter_combo, XmNselectionCallback, ComboSelected, w);
        XtAddCallback(p.filter_combo, XmNlosingFocusCallback, ComboLosingFocus, w);
    }
    if (p.selection_appearance != XmAPPEARANCE_NONE) {
        Widget parent = RowParent(w, p.selection_appearance);
        XmString text = XmStringCreateLocalized(smi18n_gettext(p.selection_label_string));
        p.selection_label = XtVaCreateManagedWidget("fsdSelectionLabel", xmLabelWidgetClass,
                                                    parent, XmNlabelString, text, nullptr);
        XmStringFree(text);
        p.selection_text = XtVaCreateManagedWidget(
            "fsdSelectionText", xmTextWidgetClass, parent, XmNvalue,
            p.selection_text_string ? p.selection_text_string : "", XmNeditable, True, XmNrows, 1,
            XmNeditMode, XmSINGLE_LINE_EDIT, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget,
            p.selection_label, nullptr);
        XmTextSetInsertionPosition(p.selection_text, XmTextGetLastPosition(p.selection_text));
    }
}

void SetDefaultButtons(Widget w)
{
    auto &p = FsdPart(w);
    if (p.filter_combo)
        XtAddCallback(p.filter_combo, XmNfocusCallback, MakeDefault, p.filter.button);
    if (p.selection_text)
        XtAddCallback(p.selection_text, XmNfocusCallback, MakeDefault, p.ok.button);
    XtAddCallback(p.dir_tree, XmNactivateCallback, MakeDefault, p.filter.button);
}

void PlaceRows(Widget w)
{
    auto &p = FsdPart(w);
    if (p.selection_text)
        PlaceRow(w, p.selection_label, p.selection_text, p.selection_appearance, nullptr);
    if (p.filter_combo) {
        bool same_place = p.selection_text && p.selection_appearance == p.filter_appearance;
        PlaceRow(w, p.filter_label, p.filter_combo, p.filter_appearance,
                 same_place ? p.selection_text : nullptr);
    }
}

// ---- Destroy, set values, children --------------------------------------

void Destroy(Widget w)
{
    auto &p = FsdPart(w);
    FsdCancelSelectTimer(w);
    if (p.scroll_timer)
        XtRemoveTimeOut(p.scroll_timer);
    p.scroll_timer = 0;
    FsdFreeTransfers(w);
    auto &state = FsdStateOf(w);
    if (state.restore_work)
        XtRemoveWorkProc(state.restore_work);
    XtFree(reinterpret_cast<char *>(p.action_buttons));
    FsdFreeEntries(w);
    FsdFreePatterns(p.patterns, p.pattern_count);
    p.patterns = nullptr;
    XtFree(p.directory);
    XtFree(p.shown_directory);
    XtFree(p.pattern);
    XtFree(p.patterns_description);
    if (p.gc)
        XtReleaseGC(w, p.gc);
    FsdFreeNameCache(&p.user_cache);
    FsdFreeNameCache(&p.group_cache);
    XtFree(p.full_info_layout);
    for (XtPointer &icon : p.icons) {
        if (icon)
            XwkIconFree(w, static_cast<XwkIcon *>(icon));
        icon = nullptr;
    }
    delete &state;
    p.state = nullptr;
}

// A text resource of set_values: an empty or equal text keeps the old
// pointer; another is copied and the old freed.  True when it changed.
bool TakeText(String *now, String before, size_t limit = 0)
{
    if (*now == before)
        return false;
    bool same = *now && before &&
                (limit ? std::strncmp(*now, before, limit) == 0 : std::strcmp(*now, before) == 0);
    if (!*now || !**now || same) {
        *now = before;
        return false;
    }
    *now = XtNewString(*now);
    XtFree(before);
    return true;
}

void RelabelInfo(Widget w)
{
    auto &p = FsdPart(w);
    if (p.style != 0 || !p.info_button)
        return;
    const char *label = p.info_labels[p.representation == XmREPRESENTATION_DETAIL ? 0 : 1];
    XmString text = XmStringCreateLocalized(smi18n_gettext(label));
    XtVaSetValues(p.info_button, XmNlabelString, text, XmNrecomputeSize, True, nullptr);
    XmStringFree(text);
    XtVaSetValues(p.info_button, XmNrecomputeSize, False, nullptr);
    Dimension info_width = 0;
    Dimension first_width = 0;
    XtVaGetValues(p.info_button, XmNwidth, &info_width, nullptr);
    XtVaGetValues(p.action_buttons[0], XmNwidth, &first_width, nullptr);
    if (info_width > first_width) {
        for (WidgetList b = p.action_buttons; *b; b++)
            XtVaSetValues(*b, XmNwidth, info_width, nullptr);
    } else {
        XtVaSetValues(p.info_button, XmNwidth, first_width, nullptr);
    }
}

Boolean SetValues(Widget old_w, Widget, Widget w, ArgList, Cardinal *)
{
    auto &old = FsdPart(old_w);
    auto &p = FsdPart(w);
    bool update = false;
    if (!p.get_icon_proc)
        p.get_icon_proc = DefaultGetIcon;
    if (p.repeat_delay < 1)
        old.repeat_delay = p.repeat_delay;  // kept as it always was: only the old record changes
    if (p.selection_policy != old.selection_policy)
        p.selection_policy = 0;
    if (p.dir_tree && (p.active_foreground != old.active_foreground ||
                       p.active_background != old.active_background))
        XtVaSetValues(p.dir_tree, XmNactiveForeground, p.active_foreground, XmNactiveBackground,
                      p.active_background, nullptr);
    Pixel foreground = reinterpret_cast<XmManagerWidget>(w)->manager.foreground;
    if (w->core.background_pixel != old_w->core.background_pixel ||
        foreground != reinterpret_cast<XmManagerWidget>(old_w)->manager.foreground) {
        for (Widget child : {p.dir_tree_sw, p.dir_tree, p.file_view})
            if (child)
                XtVaSetValues(child, XmNbackground, w->core.background_pixel, XmNforeground,
                              foreground, nullptr);
    }
    if (TakeText(&p.patterns_description, old.patterns_description)) {
        XmString *names = nullptr;
        XmFileSDCreateFilterPatternsData(w, p.filter_combo ? &names : nullptr);
        if (p.filter_combo) {
            XtVaSetValues(p.filter_combo, XmNitems, names, XmNitemCount, p.pattern_count, nullptr);
            for (int i = 0; i < p.pattern_count; i++)
                XmStringFree(names[i]);
            XtFree(reinterpret_cast<char *>(names));
        }
        if (p.pattern_position < 0 || p.pattern_position > p.pattern_count)
            p.pattern_position = 1;  // initialize clamps; here it is 1 on purpose
        if (p.pattern && *p.pattern && p.pattern == old.pattern)
            FsdShowPattern(w);
        update = true;
    }
    if (p.pattern != old.pattern) {
        if (TakeText(&p.pattern, old.pattern, kFsdPatternCompareLength)) {
            int failures = 0;
            if (p.patterns && FsdSetPatternText(p.patterns[0], p.pattern, &failures) && failures)
                FsdBell(w);
            update = true;
        }
        FsdShowPattern(w);
    }
    if (p.pattern_position != old.pattern_position) {
        if (p.pattern_position < 0)
            p.pattern_position = 0;
        if (p.pattern_position > p.pattern_count)
            p.pattern_position = p.pattern_count;
        if (p.filter_combo && p.pattern_position > 0)
            XtVaSetValues(p.filter_combo, XmNselectedPosition, p.pattern_position, nullptr);
        update = true;
    }
    if (TakeText(&p.directory, old.directory))
        _XmFileSelectionDeskUpdate(w, p.directory, 0);
    if ((p.sort_column != old.sort_column || p.sort_direction != old.sort_direction) &&
        p.file_list && XtIsRealized(p.file_list)) {
        unsigned char direction = 0;
        p.sort_column = XmPrjTreeGetSortColumn(p.file_list, &direction);
        p.sort_direction = direction;
    }
    if (TakeText(&p.full_info_layout, old.full_info_layout) && p.file_list &&
        XtIsRealized(p.file_list))
        XmPrjTreeSetColumnsLayoutString(p.file_list, p.full_info_layout);
    if (p.representation > XmREPRESENTATION_DETAIL)
        p.representation = old.representation;
    if (p.representation != old.representation) {
        if (XtIsRealized(w) && p.file_view && !p.select_timer) {
            std::memset(&p.saved_tree_event, 0, sizeof p.saved_tree_event);
            p.flags |= FSD_SCAN_REPRESENT_ONLY;
            Widget focus = XmGetFocusWidget(w);
            bool had_focus = focus && focus == p.file_view;
            FsdScan(w);
            if (had_focus && p.file_view)
                XmProcessTraversal(p.file_view, XmTRAVERSE_CURRENT);
            p.flags &= ~FSD_SCAN_REPRESENT_ONLY;
        }
        RelabelInfo(w);
    }
    if (update)
        XmFileSelectionDeskUpdate(w, 1);
    return False;
}

void InsertChild(Widget child)
{
    Widget w = XtParent(child);
    auto &p = FsdPart(w);
    if (!XtIsShell(child) && XtIsRectObj(child) && !p.initializing && !p.user_area) {
        p.user_area = child;
        if (p.style == 0 && p.separator_upper && p.separator_lower) {
            XtVaSetValues(p.separator_upper, XmNbottomWidget, child, XmNseparatorType,
                          XmSHADOW_ETCHED_IN, nullptr);
            XtVaSetValues(child, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
                          XmATTACH_FORM, XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget,
                          p.separator_lower, nullptr);
        } else if (p.paned_window) {
            XtVaSetValues(p.paned_window, XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget,
                          child, nullptr);
            XtVaSetValues(child, XmNbottomAttachment, XmATTACH_FORM, nullptr);
        }
    }
    xmFormClassRec.composite_class.insert_child(child);
}

void ChangeManaged(Widget w)
{
    FsdCheckDirectoryChanged(w);
    xmFormClassRec.composite_class.change_managed(w);
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes)
{
    auto &p = FsdPart(w);
    if (p.current_dir && p.current_dir->tree_item)
        XmPrjTreeSetNode(p.dir_tree, static_cast<XmPrjTreeNode>(p.current_dir->tree_item));
    xmFormClassRec.core_class.realize(w, mask, attributes);
    if (p.file_view) {
        if (p.use_busy_cursor && p.busy_cursor) {
            XDefineCursor(XtDisplay(w), XtWindow(w), p.busy_cursor);
            XSync(XtDisplay(w), False);
        }
        XmProcessTraversal(p.file_view, XmTRAVERSE_CURRENT);
    }
}

}  // namespace

XmFileSelectionDeskClassRec xmFileSelectionDeskClassRec = {
    {
        /* superclass */ (WidgetClass)&xmFormClassRec,
        /* class_name */ (String) "XmFileSelectionDesk",
        /* widget_size */ sizeof(XmFileSelectionDeskRec),
        /* class_initialize */ ClassInitialize,
        /* class_part_initialize */ nullptr,
        /* class_inited */ False,
        /* initialize */ Initialize,
        /* initialize_hook */ nullptr,
        /* realize */ Realize,
        /* actions */ actions,
        /* num_actions */ XtNumber(actions),
        /* resources */ resources,
        /* num_resources */ XtNumber(resources),
        /* xrm_class */ NULLQUARK,
        /* compress_motion */ True,
        /* compress_exposure */ XtExposeCompressMaximal,
        /* compress_enterleave */ True,
        /* visible_interest */ False,
        /* destroy */ Destroy,
        /* resize */ XtInheritResize,
        /* expose */ XtInheritExpose,
        /* set_values */ SetValues,
        /* set_values_hook */ nullptr,
        /* set_values_almost */ XtInheritSetValuesAlmost,
        /* get_values_hook */ nullptr,
        /* accept_focus */ nullptr,
        /* version */ XtVersion,
        /* callback_private */ nullptr,
        /* tm_table */ XtInheritTranslations,
        /* query_geometry */ XtInheritQueryGeometry,
        /* display_accelerator */ nullptr,
        /* extension */ nullptr,
    },
    {
        /* geometry_manager */ XtInheritGeometryManager,
        /* change_managed */ ChangeManaged,
        /* insert_child */ InsertChild,
        /* delete_child */ XtInheritDeleteChild,
        /* extension */ nullptr,
    },
    {
        /* resources */ nullptr,
        /* num_resources */ 0,
        /* constraint_size */ sizeof(XmFormConstraintRec),
        /* initialize */ nullptr,
        /* destroy */ nullptr,
        /* set_values */ nullptr,
        /* extension */ nullptr,
    },
    {
        /* translations */ XtInheritTranslations,
        /* syn_resources */ syn_resources,
        /* num_syn_resources */ XtNumber(syn_resources),
        /* syn_constraint_resources */ nullptr,
        /* num_syn_constraint_resources */ 0,
        /* parent_process */ XmInheritParentProcess,
        /* extension */ nullptr,
    },
    {
        /* always_install_accelerators */ False,
        /* geo_matrix_create */ XmInheritGeoMatrixCreate,
        /* focus_moved_proc */ XmInheritFocusMovedProc,
        /* extension */ nullptr,
    },
    {
        /* extension */ nullptr,
    },
    {
        /* extension */ nullptr,
    },
};

extern "C" {

WidgetClass xmFileSelectionDeskWidgetClass = (WidgetClass)&xmFileSelectionDeskClassRec;

Widget XmCreateFileSelectionDesk(Widget parent, String name, ArgList args, Cardinal count)
{
    return XtCreateWidget(name, xmFileSelectionDeskWidgetClass, parent, args, count);
}

Widget XmFindFileSelectionDeskByChild(Widget widget)
{
    if (!widget)
        return nullptr;
    for (Widget w = XtParent(widget); w; w = XtParent(w)) {
        if (XtIsShell(w))
            return nullptr;
        if (XtIsSubclass(w, xmFileSelectionDeskWidgetClass))
            return w;
    }
    return nullptr;
}

unsigned char XmFileSelectionDeskGetRepresentation(Widget widget)
{
    return FsdIsDesk(widget) ? FsdPart(widget).representation : 0;
}

const char *GetUserName(Widget desk, unsigned int uid)
{
    return FsdIsDesk(desk) ? FsdUserName(&FsdPart(desk).user_cache, uid) : nullptr;
}

const char *GetGroupName(Widget desk, unsigned int gid)
{
    return FsdIsDesk(desk) ? FsdGroupName(&FsdPart(desk).group_cache, gid) : nullptr;
}

}  // extern "C"

Boolean FsdIsDesk(Widget w)
{
    return w && XtIsSubclass(w, xmFileSelectionDeskWidgetClass);
}

void FsdBell(Widget w)
{
    Boolean audible = True;
    Widget shell = w;
    while (shell && !XtIsVendorShell(shell))
        shell = XtParent(shell);
    if (shell)
        XtVaGetValues(shell, XmNaudibleWarning, &audible, nullptr);
    if (XtIsManaged(w) && audible)
        XBell(XtDisplay(w), 0);
}

void FsdCallCallbacks(Widget w, XtCallbackList list, int reason, XEvent *event, const char *path,
                      const char *directory, const char *name, struct stat *st)
{
    if (!list)
        return;
    FsdCallbackStruct cbs;
    cbs.reason = reason;
    cbs.event = event;
    cbs.path = const_cast<char *>(path);
    cbs.directory = const_cast<char *>(directory);
    cbs.name = const_cast<char *>(name);
    cbs.stat = st;
    XtCallCallbackList(w, list, &cbs);
}
