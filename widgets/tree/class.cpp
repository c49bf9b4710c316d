// The tree list class: representation types, resources, the class record,
// and building, changing and tearing down an instance.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/BaseClassP.h>
#include <Xm/DrawingAP.h>
#include <Xm/PushB.h>
#include <Xm/RepType.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>
#include <Xwk/ComboBox.h>

#include <cstring>
#include <string>

using namespace xwk::tree;

namespace xwk::tree {
XwkTreeFreeProc TreeFreeProc();
}

namespace {

XmRepTypeId slam_policy_id = XmREP_TYPE_INVALID;
XmRepTypeId slam_state_id = XmREP_TYPE_INVALID;
XmRepTypeId visual_mode_id = XmREP_TYPE_INVALID;
XmRepTypeId sort_direction_id = XmREP_TYPE_INVALID;
XmRepTypeId cell_type_id = XmREP_TYPE_INVALID;

#define OFF(field) XtOffsetOf(XmPrjTreeRec, tree.field)
#define RES(name, cls, type, field, deftype, def)                                              \
    {(String)(name), (String)(cls), (String)(type), sizeof(((XmPrjTreePart *)0)->field),     \
     OFF(field), (String)(deftype), (XtPointer)(def)}
#define CB(name, field) RES(name, XmCCallback, XmRCallback, field, XmRCallback, nullptr)

XtResource resources[] = {
    RES(XmNhighlightThickness, XmCHighlightThickness, XmRHorizontalDimension, highlightThickness,
        XmRImmediate, 2),
    RES(XmNmother, XmCMather, XmRWidget, mother, XmRImmediate, nullptr),
    RES(XmNclones, XmCClones, XmRWidgetList, clones, XmRImmediate, nullptr),
    RES(XmNnumClones, XmCNumClones, XmRCardinal, numClones, XmRImmediate, 0),
    RES(XmNactiveBackground, XmCActiveBackground, XmRPixel, activeBackground, XmRCallProc,
        _XmSelectColorDefault),
    RES(XmNactiveForeground, XmCActiveForeground, XmRPixel, activeForeground, XmRCallProc,
        _XmForegroundColorDefault),
    RES(XmNinactiveBackground, XmCInactiveBackground, XmRPixel, inactiveBackground, XmRCallProc,
        _XmSelectColorDefault),
    RES(XmNinactiveForeground, XmCInactiveForeground, XmRPixel, inactiveForeground, XmRCallProc,
        _XmForegroundColorDefault),
    RES(XmNtreeTrunkColor, XmCTreeTrunkColor, XmRPixel, treeTrunkColor, XmRCallProc,
        _XmForegroundColorDefault),
    RES(XmNgridColor, XmCGridColor, XmRPixel, gridColor, XmRCallProc, _XmForegroundColorDefault),
    CB(XmNactivateCallback, activateCallback),
    CB(XmNfocusCallback, focusCallback),
    CB(XmNlosingFocusCallback, losingFocusCallback),
    CB(XmNselectionChanged, selectionChanged),
    CB(XmNstartDragCallback, startDragCallback),
    CB(XmNmultipleSelectionCallback, multipleSelectionCallback),
    CB(XmNdefaultActionCallback, defaultActionCallback),
    CB(XmNdeleteCallback, deleteCallback),
    CB(XmNinsertCallback, insertCallback),
    RES(XmNcanSlam, XmCCanSlam, XmRBoolean, canSlam, XmRImmediate, False),
    RES(XmNuseDashLine, XmCUseDashLine, XmRBoolean, useDashLine, XmRImmediate, True),
    RES(XmNclosedStateIcon, XmCClosedStateIcon, XmRPointer, closedStateIcon, XmRImmediate, 0xff),
    RES(XmNdontMove, XmCDontMove, XmRBoolean, dontMove, XmRImmediate, False),
    RES(XmNclearOnUpdate, XmCClearOnUpdate, XmRBoolean, clearOnUpdate, XmRImmediate, True),
    RES(XmNfruitlessStateIcon, XmCFruitlessStateIcon, XmRPointer, fruitlessStateIcon,
        XmRImmediate, 0xff),
    RES(XmNhIconPad, XmCMargin, XmRHorizontalDimension, hIconPad, XmRImmediate, 2),
    RES(XmNhPad, XmCMargin, XmRHorizontalDimension, hPad, XmRImmediate, 2),
    RES(XmNrowHeight, XmCRowHeight, XmRVerticalDimension, rowHeight, XmRImmediate, 0),
    RES(XmNrowWidth, XmCRowWidth, XmRHorizontalDimension, rowWidth, XmRImmediate, 0),
    RES(XmNmenuWidget, XmCMenuWidget, XmRWidget, menuWidget, XmRImmediate, nullptr),
    RES(XmNopenStateIcon, XmCOpenStateIcon, XmRPointer, openStateIcon, XmRImmediate, 0xff),
    RES(XmNselected, XmCSelected, XmRPointer, selected, XmRImmediate, nullptr),
    RES(XmNselectedIcon, XmCSelectedIcon, XmRPointer, selectedIcon, XmRImmediate, 0xff),
    RES(XmNselectionPolicy, XmCSelectionPolicy, XmRUnsignedChar, selectionPolicy, XmRImmediate,
        0),
    RES(XmNscrollBarDisplayPolicy, XmCScrollBarDisplayPolicy, XmRScrollBarDisplayPolicy,
        scrollBarDisplayPolicy, XmRImmediate, XmAS_NEEDED),
    RES(XmNshadowType, XmCShadowType, XmRShadowType, shadowType, XmRImmediate, XmSHADOW_IN),
    RES(XmNslamPolicy, XmCSlamPolicy, "slamPolicy", slamPolicy, XmRImmediate, XmSLAM_DEFAULT),
    RES(XmNvisualMode, XmCVisualMode, "visualMode", visualMode, XmRImmediate, XmSIMPLE_LIST),
    RES(XmNsashCursor, XmCSashCursor, XmRCursor, sashCursor, XmRImmediate, 0),
    RES(XmNnumColumns, XmCNumColumns, XmRInt, numColumns, XmRImmediate, 1),
    RES(XmNdelimeter, XmCDelimeter, XmRUnsignedChar, delimeter, XmRImmediate, ' '),
    RES(XmNtitleWidget, XmCTitleWidget, XmRWidget, titleWidget, XmRImmediate, nullptr),
    RES(XmNtitleHeight, XmCTitleHeight, XmRVerticalDimension, titleHeight, XmRImmediate, 0),
    RES(XmNtitleBackground, XmCTitleBackground, XmRPixel, titleBackground, XmRCallProc,
        _XmBackgroundColorDefault),
    RES(XmNtitleForeground, XmCTitleForeground, XmRPixel, titleForeground, XmRCallProc,
        _XmForegroundColorDefault),
    RES(XmNtitleString, XmCTitleString, XmRString, titleString, XmRImmediate, nullptr),
    RES(XmNtitleMargin, XmCTitleMargin, XmRHorizontalDimension, titleMargin, XmRImmediate, 1),
    RES(XmNtitleFontList, XmCTitleFontList, XmRFontList, titleFontList, XmRImmediate, nullptr),
    RES(XmNtitleItemAlignment, XmCTitleItemAlignment, XmRUnsignedChar, titleItemAlignment,
        XmRImmediate, 0),
    RES(XmNtitleItemType, XmCTitleItemType, "cellType", titleItemType, XmRImmediate,
        XmCELL_LABEL),
    RES(XmNlayoutString, XmCLayoutString, XmRString, layoutString, XmRImmediate, nullptr),
    RES(XmNtitleDragIcon, XmCTitleDragIcon, XmRPointer, titleDragIcon, XmRImmediate, 0xff),
    RES(XmNfontList, XmCFontList, XmRFontList, fontList, XmRImmediate, nullptr),
    RES(XmNdefaultCharSet, XmCDefaultCharSet, XmRString, defaultCharSet, XmRImmediate,
        XmFONTLIST_DEFAULT_TAG),
    RES(XmNselectCharSet, XmCSelectCharSet, XmRString, selectCharSet, XmRImmediate, "BOLD"),
    RES(XmNtreeMarginWidth, XmCTreeMarginWidth, XmRHorizontalDimension, treeMarginWidth,
        XmRImmediate, 2),
    RES(XmNtreeMarginHeight, XmCTreeMarginHeight, XmRVerticalDimension, treeMarginHeight,
        XmRImmediate, 2),
    RES(XmNtreeTrunkDrawing, XmCTreeTrunkDrawing, XmRBoolean, treeTrunkDrawing, XmRImmediate,
        True),
    RES(XmNvFontPad, XmCMargin, XmRVerticalDimension, vFontPad, XmRImmediate, 1),
    RES(XmNvisibleLines, XmCVisibleLines, XmRInt, visibleLines, XmRImmediate, 0),
    RES(XmNvPad, XmCMargin, XmRVerticalDimension, vPad, XmRImmediate, 0),
    RES(XmNcreateIconProc, XmCCreateIconProc, XmRProc, createIconProc, XmRImmediate, nullptr),
    RES(XmNsortProc, XmCSortProc, XmRProc, sortProc, XmRImmediate, XmPrjTreeDefaultSortProc),
    RES(XmNuseSort, XmCUseSort, XmRBoolean, useSort, XmRImmediate, False),
    RES(XmNuseAverageColumnWidth, XmCUseAverageColumnWidth, XmRBoolean, useAverageColumnWidth,
        XmRImmediate, True),
    RES(XmNuseTitleScrolling, XmCUseTitleScrolling, XmRBoolean, useTitleScrolling, XmRImmediate,
        True),
    RES(XmNsortColumn, XmCSortColumn, XmRInt, sortColumn, XmRImmediate, 1),
    RES(XmNsortDirection, XmCSortDirection, "sortDirection", sortDirection, XmRImmediate,
        XmSORT_ASCENDING),
    RES(XmNshowGrid, XmCShowGrid, XmRBoolean, showGrid, XmRImmediate, False),
    RES(XmNcellTextField, XmCCellTextField, XmRWidget, cellTextField, XmRImmediate, nullptr),
    RES(XmNcellComboBox, XmCCellComboBox, XmRWidget, cellComboBox, XmRImmediate, nullptr),
    RES(XmNcellPushButton, XmCCellPushButton, XmRWidget, cellPushButton, XmRImmediate, nullptr),
    RES(XmNcellActive, XmCCellActive, XmRWidget, cellActive, XmRImmediate, nullptr),
    RES(XmNcellNodeId, XmCCellNodeId, XmRPointer, cellNodeId, XmRImmediate, nullptr),
    RES(XmNcellColumn, XmCCellColumn, XmRInt, cellColumn, XmRImmediate, 0),
    RES(XmNcurrentNodeId, XmCCurrentNodeId, XmRPointer, currentNodeId, XmRImmediate, nullptr),
    CB(XmNcellManageCallback, cellManageCallback),
};

void GetVisibleLines(Widget w, int, XtArgVal *value)
{
    *value = (XtArgVal)P(w).visibleRows;
}

void GetSelected(Widget w, int, XtArgVal *value)
{
    XwkTreeNode *current = M(w).currentNode;
    *value = (XtArgVal)(current && Item(current) ? Item(current)->clientData : nullptr);
}

void GetClones(Widget w, int, XtArgVal *value)
{
    *value = (XtArgVal)M(w).clones;
}

void GetNumClones(Widget w, int, XtArgVal *value)
{
    *value = (XtArgVal)M(w).numClones;
}

void GetTextField(Widget w, int, XtArgVal *value) { *value = (XtArgVal)MakeEditor(w, 0); }
void GetComboBox(Widget w, int, XtArgVal *value) { *value = (XtArgVal)MakeEditor(w, 1); }
void GetPushButton(Widget w, int, XtArgVal *value) { *value = (XtArgVal)MakeEditor(w, 2); }

#define SYN(name, field, proc) {(String)(name), sizeof(((XmPrjTreePart *)0)->field), OFF(field), proc, nullptr}

XmSyntheticResource syn_resources[] = {
    SYN(XmNvisibleLines, visibleLines, GetVisibleLines),
    SYN(XmNselected, selected, GetSelected),
    SYN(XmNclones, clones, GetClones),
    SYN(XmNnumClones, numClones, GetNumClones),
    SYN(XmNcellTextField, cellTextField, GetTextField),
    SYN(XmNcellComboBox, cellComboBox, GetComboBox),
    SYN(XmNcellPushButton, cellPushButton, GetPushButton),
};

// The list takes the keyboard focus itself, as a primitive would.
XmNavigability WidgetNavigable(Widget w)
{
    auto *mgr = (XmManagerWidget)w;
    if (!XtIsSensitive(w) || !mgr->manager.traversal_on)
        return XmNOT_NAVIGABLE;
    XmNavigationType nav = mgr->manager.navigation_type;
    if (nav == XmSTICKY_TAB_GROUP || nav == XmEXCLUSIVE_TAB_GROUP || nav == XmTAB_GROUP)
        return XmTAB_NAVIGABLE;
    return XmCONTROL_NAVIGABLE;
}

XmBaseClassExtRec base_class_extension = {
    nullptr,
    NULLQUARK,
    XmBaseClassExtVersion,
    sizeof(XmBaseClassExtRec),
    XmInheritInitializePrehook,
    XmInheritSetValuesPrehook,
    XmInheritInitializePosthook,
    XmInheritSetValuesPosthook,
    XmInheritClass,
    XmInheritSecObjectCreate,
    XmInheritGetSecResData,
    {0},
    XmInheritGetValuesPrehook,
    XmInheritGetValuesPosthook,
    XmInheritClassPartInitPrehook,
    XmInheritClassPartInitPosthook,
    nullptr,
    nullptr,
    0,
    False,
    WidgetNavigable,
    XmInheritFocusChange,
    nullptr,
};

void ClassInitialize()
{
    base_class_extension.record_type = XmQmotif;
    static const char *slam_policy[] = {"slam_default", "slam_per_row"};
    static const char *slam_state[] = {"slam_open", "slam_close", "slam_undefined", "slam_none"};
    static const char *visual_mode[] = {"simple_list", "table_list", "spreadsheet"};
    static const char *sort_direction[] = {"sort_ascending", "sort_discending"};
    static const char *cell_type[] = {"label", "icon", "toggle_icon", "edit_text",
                                      "drop_down_combo_box", "drop_down_list", "push_button"};
    slam_policy_id = XmRepTypeRegister((String) "slamPolicy", (String *)slam_policy, nullptr, 2);
    slam_state_id = XmRepTypeRegister((String) "slamState", (String *)slam_state, nullptr, 4);
    visual_mode_id = XmRepTypeRegister((String) "visualMode", (String *)visual_mode, nullptr, 3);
    sort_direction_id =
        XmRepTypeRegister((String) "sortDirection", (String *)sort_direction, nullptr, 2);
    cell_type_id = XmRepTypeRegister((String) "cellType", (String *)cell_type, nullptr, 7);
}

XwkIcon *IconResource(XwkIcon *icon)
{
    return (XtPointer)icon == XmTREE_ICON_DEFAULT ? nullptr : icon;
}

void InitMother(Widget w)
{
    XmPrjTreePart &t = P(w);
    t.clones = nullptr;
    t.numClones = 0;
    t.selectedCount = 0;
    t.currentNode = nullptr;
    t.selected = nullptr;
    t.highlightedNode = nullptr;
    t.highlightedWidget = nullptr;
    t.tourStart = nullptr;
    t.iconWidth = t.stateIconWidth = 0;
    t.visibleList = t.canSlam ? l_create(nullptr, nullptr) : nullptr;
    t.builtinOpen = t.builtinClosed = t.builtinFruitless = False;
    if (t.canSlam)
        CreateStateIcons(w);
    t.openStateIcon = IconResource(t.openStateIcon);
    t.closedStateIcon = IconResource(t.closedStateIcon);
    t.fruitlessStateIcon = IconResource(t.fruitlessStateIcon);
    t.tree = t_create(XWK_TREE_PREORDER, TreeFreeProc(), (XtPointer)t.visibleList);
    t_tlink(t.tree, nullptr, nullptr);
    // Numbered from the start, so that rows appended keep fresh numbers
    // without a renumbering.
    t_enumerate(t.tree);
    RegisterTree(w);
    XmFontList fonts = t.fontList ? t.fontList : XmeGetDefaultRenderTable(w, XmTEXT_FONTLIST);
    t.fontList = XmFontListCopy(fonts);
    if (t.titleString)
        t.titleString = XtNewString(t.titleString);
    t.title = nullptr;
    t.columns = nullptr;
    MakeTitleDragIcon(w);
    if (t.visualMode == XmTABLE_LIST || t.visualMode == XmSPREADSHEET)
        ParseTitle(w);
}

// The callback lists stand in the mother and serve every view: a clone
// holds copies of her pointers, which only she frees (Xt does, with her).
const char *const kCallbackLists[] = {
    XmNactivateCallback,     XmNfocusCallback,          XmNlosingFocusCallback,
    XmNselectionChanged,     XmNstartDragCallback,      XmNmultipleSelectionCallback,
    XmNdefaultActionCallback, XmNdeleteCallback,        XmNinsertCallback,
    XmNcellManageCallback};

void RemoveCallbackLists(Widget w)
{
    for (const char *name : kCallbackLists)
        if (XtHasCallbacks(w, (String)name) == XtCallbackHasSome)
            XtRemoveAllCallbacks(w, (String)name);
}

// Xt frees a widget's callback resources with it: a clone's copies of the
// mother's lists are cleared first, so that hers survive.
void ForgetCallbackLists(Widget w)
{
    XmPrjTreePart &t = P(w);
    t.activateCallback = t.focusCallback = t.losingFocusCallback = nullptr;
    t.selectionChanged = t.startDragCallback = t.multipleSelectionCallback = nullptr;
    t.defaultActionCallback = t.deleteCallback = t.insertCallback = nullptr;
    t.cellManageCallback = nullptr;
}

// A clone cannot outlive its mother: it lets go of every pointer it shares
// with her, so that its own destroy frees nothing of hers, and goes too.
void OrphanClone(Widget w)
{
    XmPrjTreePart &t = P(w);
    ForgetCallbackLists(w);
    t.mother = w;
    t.tree = nullptr;
    t.visibleList = nullptr;
    t.titleString = nullptr;
    t.fontList = nullptr;
    t.clones = nullptr;
    t.numClones = 0;
    t.builtinOpen = t.builtinClosed = t.builtinFruitless = False;
    t.openStateIcon = t.closedStateIcon = t.fruitlessStateIcon = nullptr;
    t.title = nullptr;
    t.columns = nullptr;
    t.cellActive = nullptr;
    t.cellNodeId = nullptr;
    if (!w->core.being_destroyed)
        XtDestroyWidget(w);
}

void InitClone(Widget w)
{
    // A clone begins as a copy of its mother's part; the row data stay
    // the mother's and are read through `mother`.  Lists given to the clone
    // itself go before her pointers replace them.
    RemoveCallbackLists(w);
    Widget mother = P(w).mother;
    // A clone paints on its mother's background.  Its depth stays its
    // parent's: a window of another depth would not be made.
    w->core.colormap = mother->core.colormap;
    w->core.background_pixel = mother->core.background_pixel;
    w->core.background_pixmap = mother->core.background_pixmap;
    XmPrjTreePart keep = P(w);
    P(w) = P(mother);
    XmPrjTreePart &t = P(w);
    t.mother = mother;
    t.dontMove = keep.dontMove;
    t.clearOnUpdate = keep.clearOnUpdate;
    t.selectedIcon = keep.selectedIcon;
    t.menuWidget = keep.menuWidget;
    t.showGrid = keep.showGrid;
    t.treeMarginWidth = keep.treeMarginWidth;
    t.treeMarginHeight = keep.treeMarginHeight;
    t.highlightThickness = keep.highlightThickness;
    XmPrjTreePart &m = P(mother);
    m.clones = (WidgetList)XtRealloc((char *)m.clones, (m.numClones + 1) * sizeof(Widget));
    m.clones[m.numClones++] = w;
}

void Initialize(Widget request, Widget w, ArgList, Cardinal *)
{
    XmPrjTreePart &t = P(w);
    bool clone = t.mother && t.mother != w && IsTree(t.mother);
    if (clone)
        InitClone(w);
    else
        t.mother = w;
    t.state = new State();
    // An empty index is a valid one: appended rows extend it.
    S(w).indexValid = true;
    t.selectedIcon = IconResource(t.selectedIcon);
    t.xOrigin = 0;
    t.topRow = 0;
    t.lastHScroll = t.lastVScroll = -1;
    t.lastClickTime = 0;
    t.clickCount = 0;
    t.autoScrollTimer = 0;
    t.visibleRows = 0;
    t.hasFocus = False;
    t.hScrollBar = t.vScrollBar = nullptr;
    t.sashPosition = -1;
    t.titleMotion = 0;
    t.buttonState = 0;
    t.lastClickNode = nullptr;
    t.relayoutTimer = 0;
    t.dragTimer = 0;
    t.flags = 0;
    t.cellTextField = t.cellComboBox = t.cellPushButton = nullptr;
    t.pressNode = nullptr;
    t.titleWidget = nullptr;
    t.sashGC = t.titleTextGC = t.titleEraseGC = t.titleShadowGC = nullptr;
    if (clone)
        t.sashCursor = 0;
    if (!clone) {
        t.cellActive = nullptr;
        t.cellNodeId = nullptr;
        t.cellColumn = 0;
        InitMother(w);
    }
    FindFont(w);
    CreateGCs(w);
    if (UnderScrolledWindow(w))
        CreateScrollBars(w);
    CreateTitle(w);
    if (clone)
        CopyDropSite(w);
    else if (t.visualMode == XmSPREADSHEET && M(w).title)
        RegisterCellDropSite(w);
    Dimension width, height;
    PreferredSize(w, &width, &height);
    if (t.visibleLines) {
        ApplyVisibleLines(w);
        return;
    }
    if (!request->core.width)
        w->core.width = width;
    if (!request->core.height) {
        w->core.height = height;
        return;
    }
    // A given height gives the number of lines.
    Dimension row = M(w).rowHeight ? M(w).rowHeight
                                   : (M(w).labelHeight ? M(w).labelHeight : 1);
    if (t.selectedIcon && IconHeight(t.selectedIcon) > row)
        row = (Dimension)IconHeight(t.selectedIcon);
    int room = (int)w->core.height -
               2 * ((int)((XmManagerWidget)w)->manager.shadow_thickness + t.highlightThickness +
                    t.treeMarginHeight);
    int lines = 0, total = row;
    while (total <= room) {
        lines++;
        total += t.vPad + row;
    }
    t.visibleLines = lines ? lines : 1;
}

void RemoveTimers(Widget w)
{
    XmPrjTreePart &t = P(w);
    if (t.relayoutTimer)
        XtRemoveTimeOut(t.relayoutTimer);
    if (t.autoScrollTimer)
        XtRemoveTimeOut(t.autoScrollTimer);
    if (t.mother == w && t.dragTimer)
        XtRemoveTimeOut(t.dragTimer);
    t.relayoutTimer = t.autoScrollTimer = t.dragTimer = 0;
}

void Destroy(Widget w)
{
    XmPrjTreePart &t = P(w);
    RemoveTimers(w);
    DestroyTitle(w);
    // A drag timer armed from a clone must not outlive it.
    if (t.mother && t.mother != w && IsTree(t.mother)) {
        XmPrjTreePart &m = P(t.mother);
        if (m.dragTimer && XtIsRealized(w) && m.dragEvent.xany.window == XtWindow(w)) {
            XtRemoveTimeOut(m.dragTimer);
            m.dragTimer = 0;
        }
    }
    bool mother = t.mother == w || !t.mother;
    if (!mother)
        ForgetCallbackLists(w);
    if (mother) {
        if (t.visibleList) {
            // The rows leave the list all at once, not one renumbering each.
            EmptyVisibleList(w);
            l_destroy(t.visibleList);
            t.visibleList = nullptr;
            t.tree->user = nullptr;
        }
        ForgetStrings(w);
        if (t.tree) {
            // The rows' nodes go back to the pool; t_destroy takes the root.
            XwkTreeNode *root = t.tree->root;
            for (XwkTreeNode *c = root->first_child, *next; c; c = next) {
                next = c->next_sibling;
                FreeRows(w, c);
            }
            root->first_child = root->last_child = nullptr;
            root->nchildren = 0;
            t_destroy(t.tree);
            UnregisterTree(w);
            t.tree = nullptr;
        }
        XtFree(t.titleString);
        t.titleString = nullptr;
        FreeTitle(w);
        FreeTitleDragIcon(w);
        if (t.fontList)
            XmFontListFree(t.fontList);
        t.fontList = nullptr;
        ForgetFonts();
        for (Cardinal i = 0; i < t.numClones; i++)
            OrphanClone(t.clones[i]);
        XtFree((char *)t.clones);
        t.clones = nullptr;
        t.numClones = 0;
        if (t.builtinOpen)
            XwkIconFree(w, t.openStateIcon);
        if (t.builtinClosed)
            XwkIconFree(w, t.closedStateIcon);
        if (t.builtinFruitless)
            XwkIconFree(w, t.fruitlessStateIcon);
    } else if (t.mother) {
        XmPrjTreePart &m = P(t.mother);
        Cardinal j = 0;
        for (Cardinal i = 0; i < m.numClones; i++)
            if (m.clones[i] != w)
                m.clones[j++] = m.clones[i];
        m.numClones = j;
        if (!j) {
            XtFree((char *)m.clones);
            m.clones = nullptr;
        }
    }
    FreeGCs(w);
    delete (State *)t.state;
    t.state = nullptr;
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes)
{
    XmPrjTreePart &t = P(w);
    XmPrjTreePart &m = M(w);
    if (!m.currentNode && t.mother == w) {
        XwkTreeNode *first = XmPrjTreeGetFirstNode(w);
        if (first) {
            m.currentNode = first;
            m.selected = Item(first)->clientData;
            XmPrjTreeItem item = Item(first);
            if ((item->flags & XmTREE_ITEM_SELECTABLE) && !(item->flags & XmTREE_ITEM_SELECTED)) {
                item->flags |= XmTREE_ITEM_SELECTED;
                m.selectedCount++;
            }
        }
    }
    if (m.useAverageColumnWidth)
        t.flags |= XmTREE_COLUMN_WIDTHS;
    if (!(t.flags & XmTREE_RESIZE_ASKED) || (t.flags & XmTREE_COLUMN_WIDTHS))
        LayoutPass(w);
    ConfigureScrollBars(w);
    PaintTitle(w);
    (*xmDrawingAreaClassRec.core_class.realize)(w, mask, attributes);
    if (t.mother == w && m.selectionChanged)
        RaiseSelectionChanged(w, XmCR_TREE_SELECTION_CHANGED, nullptr, m.currentNode,
                              XmTREE_PART_ROW);
    if (Alive(w))
        PlaceFirstCell(w);
    if (Alive(w) && m.cellActive && XtParent(m.cellActive) == w && XtIsManaged(m.cellActive) &&
        t.hasFocus)
        XmProcessTraversal(m.cellActive, XmTRAVERSE_CURRENT);
    t.flags &= ~XmTREE_COLUMN_WIDTHS;
}

void Resize(Widget w)
{
    XmPrjTreePart &t = P(w);
    if (t.flags & XmTREE_IN_RESIZE)
        return;
    t.flags |= XmTREE_IN_RESIZE;
    PlaceTitle(w);
    if (!HasRelayoutPending(w) && RealizedAndManaged(w)) {
        if (!(t.flags & XmTREE_SCROLLBARS_BUSY))
            ConfigureScrollBars(w);
        else
            CountVisibleRows(w);
        XClearArea(XtDisplay(w), XtWindow(w), 0, 0, 0, 0, False);
        Repaint(w, 0, 0, w->core.width, w->core.height);
    } else {
        CountVisibleRows(w);
    }
    t.flags &= ~XmTREE_IN_RESIZE;
}

XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *preferred)
{
    if (HasRelayoutPending(w))
        return XtGeometryYes;
    Dimension width, height;
    PreferredSize(w, &width, &height);
    preferred->request_mode = CWWidth | CWHeight;
    preferred->width = width;
    preferred->height = height;
    if (!intended->request_mode || RowCount(w) == 0)
        return XtGeometryAlmost;
    XmPrjTreePart &t = P(w);
    if (UnderScrolledWindow(w) && t.vScrollBar && !RealizedAndManaged(w)) {
        int edge = 2 * (((XmManagerWidget)w)->manager.shadow_thickness + t.highlightThickness +
                        t.treeMarginWidth);
        if ((intended->request_mode & CWWidth) && intended->width <= edge &&
            intended->width < width)
            return XtGeometryAlmost;
        if ((intended->request_mode & CWHeight) && intended->height <= edge &&
            intended->height < height)
            return XtGeometryAlmost;
    }
    return XtGeometryYes;
}

Boolean SetValues(Widget old, Widget request, Widget w, ArgList args, Cardinal *num_args)
{
    (void)request;
    XmPrjTreePart &o = P(old);
    XmPrjTreePart &t = P(w);
    if (t.mother != w && t.mother) {
        XtSetValues(t.mother, args, *num_args);
        return False;
    }
    bool relayout = false, repaint = false, title = false;
    GeometryChanged(w);
    auto *om = (XmManagerWidget)old;
    auto *nm = (XmManagerWidget)w;
    if (t.fontList != o.fontList) {
        ForgetFonts();
        if (o.fontList)
            XmFontListFree(o.fontList);
        XmFontList fonts = t.fontList ? t.fontList : XmeGetDefaultRenderTable(w, XmTEXT_FONTLIST);
        t.fontList = XmFontListCopy(fonts);
        t.flags |= XmTREE_FONT_CHANGED;
        for (Widget v : Views(w))
            FindFont(v);
        relayout = repaint = true;
    }
    // The colours of selection and highlight only change their GCs: rows
    // show them at their next paint.
    bool shown = nm->manager.foreground != om->manager.foreground ||
                 w->core.background_pixel != old->core.background_pixel ||
                 t.useDashLine != o.useDashLine || t.treeTrunkColor != o.treeTrunkColor ||
                 t.gridColor != o.gridColor || t.showGrid != o.showGrid ||
                 t.treeTrunkDrawing != o.treeTrunkDrawing;
    if (shown || t.activeBackground != o.activeBackground ||
        t.activeForeground != o.activeForeground || t.inactiveBackground != o.inactiveBackground ||
        t.inactiveForeground != o.inactiveForeground ||
        nm->manager.highlight_color != om->manager.highlight_color) {
        for (Widget v : Views(w))
            UpdateColourGCs(v);
        repaint |= shown;
    }
    if (t.canSlam != o.canSlam) {
        if (t.canSlam) {
            // The built-in state icons come with canSlam, where none was given.
            for (XwkIcon **icon : {&t.openStateIcon, &t.closedStateIcon, &t.fruitlessStateIcon})
                if (!*icon)
                    *icon = (XwkIcon *)XmTREE_ICON_DEFAULT;
            CreateStateIcons(w);
            o.openStateIcon = t.openStateIcon;
            o.closedStateIcon = t.closedStateIcon;
            o.fruitlessStateIcon = t.fruitlessStateIcon;
            GiveElementSlots(w);
            t.visibleList = l_create(nullptr, nullptr);
            XwkTreeNode *root = t.tree->root;
            for (XwkTreeNode *c = root->first_child; c; c = c->next_sibling)
                InsertSubtreeVisible(w, c);
        } else if (t.visibleList) {
            EmptyVisibleList(w);
            l_destroy(t.visibleList);
            t.visibleList = nullptr;
        }
        t.tree->user = (XtPointer)t.visibleList;
        RowsChanged(w);
        relayout = repaint = true;
    }
    if (t.defaultCharSet != o.defaultCharSet) {
        char *now = t.defaultCharSet;
        t.defaultCharSet = o.defaultCharSet;
        KeepCharsets(w);
        t.defaultCharSet = now;
    }
    if (t.slamPolicy != o.slamPolicy)
        XmeWarning(w, (char *)"You can't change slam policy on the fly!");
    if (t.treeMarginWidth != o.treeMarginWidth || t.treeMarginHeight != o.treeMarginHeight ||
        t.shadowType != o.shadowType)
        repaint = true;
    if (t.sortColumn != o.sortColumn && t.sortDirection == o.sortDirection)
        t.sortDirection = XmSORT_ASCENDING;
    if (t.openStateIcon != o.openStateIcon || t.closedStateIcon != o.closedStateIcon ||
        t.fruitlessStateIcon != o.fruitlessStateIcon) {
        if (t.openStateIcon != o.openStateIcon)
            t.builtinOpen = False;
        if (t.closedStateIcon != o.closedStateIcon)
            t.builtinClosed = False;
        if (t.fruitlessStateIcon != o.fruitlessStateIcon)
            t.builtinFruitless = False;
        t.openStateIcon = IconResource(t.openStateIcon);
        t.closedStateIcon = IconResource(t.closedStateIcon);
        t.fruitlessStateIcon = IconResource(t.fruitlessStateIcon);
        if (t.canSlam)
            relayout = repaint = true;
    }
    if (t.selectedIcon != o.selectedIcon)
        t.selectedIcon = IconResource(t.selectedIcon);
    if (t.showGrid != o.showGrid || t.hPad != o.hPad || t.vPad != o.vPad ||
        t.hIconPad != o.hIconPad || t.vFontPad != o.vFontPad ||
        t.highlightThickness != o.highlightThickness || (o.dontMove && !t.dontMove))
        relayout = repaint = true;
    if (t.titleString != o.titleString) {
        XtFree(o.titleString);
        t.titleString = t.titleString ? XtNewString(t.titleString) : nullptr;
        if (t.visualMode == XmTABLE_LIST || t.visualMode == XmSPREADSHEET) {
            if (t.title)
                XmPrjTreeDeleteAllItems(w);
            ParseTitle(w);
            title = relayout = repaint = true;
        }
    }
    if (t.titleForeground != o.titleForeground || t.titleBackground != o.titleBackground ||
        t.titleFontList != o.titleFontList) {
        for (Widget v : Views(w)) {
            XmPrjTreePart &tv = P(v);
            for (GC *gc : {&tv.titleTextGC, &tv.titleEraseGC, &tv.titleShadowGC, &tv.sashGC})
                if (*gc)
                    XFreeGC(XtDisplay(v), *gc);
            CreateTitleGCs(v);
        }
        title = repaint = true;
    }
    if (t.sortColumn != o.sortColumn || t.sortDirection != o.sortDirection ||
        t.useSort != o.useSort)
        title = true;
    if (t.visibleLines != o.visibleLines && t.visibleLines) {
        LayoutPass(w);
        ApplyVisibleLines(w);
        repaint = true;
    }
    if (relayout) {
        t.flags |= XmTREE_GEOMETRY_STALE;
        if (!t.dontMove) {
            LayoutPass(w);
            ConfigureAllScrollBars(w);
        }
    }
    if (repaint && RealizedAndManaged(w) && !t.dontMove)
        RepaintAll(w, t.clearOnUpdate);
    if (title && !t.dontMove)
        RepaintTitles(w);
    return False;
}

void ChangeManaged(Widget w)
{
    RaiseCellManage(w);
}

void ConstraintDestroy(Widget child)
{
    Widget w = XtParent(child);
    if (!IsTree(w))
        return;
    XmPrjTreePart &t = P(w);
    if (t.cellTextField == child)
        t.cellTextField = nullptr;
    if (t.cellComboBox == child)
        t.cellComboBox = nullptr;
    if (t.cellPushButton == child)
        t.cellPushButton = nullptr;
    if (t.mother && P(t.mother).cellActive == child)
        P(t.mother).cellActive = nullptr;
}

Boolean ParentProcess(Widget w, XmParentProcessData data)
{
    XmPrjTreePart &m = M(w);
    if (data->any.process_type == XmINPUT_ACTION &&
        data->input_action.action == XmPARENT_ACTIVATE && m.cellActive &&
        XtIsManaged(m.cellActive))
        return True;
    Widget parent = XtParent(w);
    return XmIsManager(parent) && _XmParentProcess(parent, data);
}

}  // namespace

extern "C" {

XmPrjTreeClassRec xmPrjTreeClassRec = {
    {
        /* superclass */ (WidgetClass)&xmDrawingAreaClassRec,
        /* class_name */ (String) "XmPrjTree",
        /* widget_size */ sizeof(XmPrjTreeRec),
        /* class_initialize */ ClassInitialize,
        /* class_part_initialize */ nullptr,
        /* class_inited */ False,
        /* initialize */ Initialize,
        /* initialize_hook */ nullptr,
        /* realize */ Realize,
        /* actions */ xwk::tree::actions,
        /* num_actions */ XtNumber(xwk::tree::actions),
        /* resources */ resources,
        /* num_resources */ XtNumber(resources),
        /* xrm_class */ NULLQUARK,
        /* compress_motion */ True,
        /* compress_exposure */ XtExposeCompressMaximal | XtExposeGraphicsExposeMerged |
            XtExposeNoRegion,
        /* compress_enterleave */ True,
        /* visible_interest */ False,
        /* destroy */ Destroy,
        /* resize */ Resize,
        /* expose */ ExposeProc,
        /* set_values */ SetValues,
        /* set_values_hook */ nullptr,
        /* set_values_almost */ XtInheritSetValuesAlmost,
        /* get_values_hook */ nullptr,
        /* accept_focus */ nullptr,
        /* version */ XtVersion,
        /* callback_private */ nullptr,
        /* tm_table */ (String)xwk::tree::default_translations,
        /* query_geometry */ QueryGeometry,
        /* display_accelerator */ XtInheritDisplayAccelerator,
        /* extension */ (XtPointer)&base_class_extension,
    },
    {
        /* geometry_manager */ nullptr,
        /* change_managed */ ChangeManaged,
        /* insert_child */ XtInheritInsertChild,
        /* delete_child */ XtInheritDeleteChild,
        /* extension */ nullptr,
    },
    {
        /* resources */ nullptr,
        /* num_resources */ 0,
        /* constraint_size */ sizeof(XmPrjTreeConstraintRec),
        /* initialize */ nullptr,
        /* destroy */ ConstraintDestroy,
        /* set_values */ nullptr,
        /* extension */ nullptr,
    },
    {
        /* translations */ nullptr,
        /* syn_resources */ syn_resources,
        /* num_syn_resources */ XtNumber(syn_resources),
        /* syn_constraint_resources */ nullptr,
        /* num_syn_constraint_resources */ 0,
        /* parent_process */ ParentProcess,
        /* extension */ nullptr,
    },
    {
        /* extension */ nullptr,
    },
    {
        /* extension */ nullptr,
    },
};

WidgetClass xmPrjTreeWidgetClass = (WidgetClass)&xmPrjTreeClassRec;

Widget XmCreatePrjTree(Widget parent, String name, ArgList args, Cardinal argCount)
{
    return XtCreateWidget(name, xmPrjTreeWidgetClass, parent, args, argCount);
}

Widget XmCreateTreeList(Widget parent, String name, ArgList args, Cardinal argCount)
{
    return XtCreateWidget(name, xmPrjTreeWidgetClass, parent, args, argCount);
}

Widget XmCreateScrolledTreeList(Widget parent, String name, ArgList args, Cardinal argCount)
{
    return CreateInScrolledWindow(xmPrjTreeWidgetClass, parent, name, args, argCount);
}

}  // extern "C"

namespace xwk::tree {

namespace {

void DestroyWindowOfList(Widget, XtPointer client_data, XtPointer)
{
    auto sw = (Widget)client_data;
    if (!sw->core.being_destroyed)
        XtDestroyWidget(sw);
}

}  // namespace

Widget CreateInScrolledWindow(WidgetClass widget_class, Widget parent, String name, ArgList args,
                              Cardinal argCount)
{
    std::string sw_name = std::string(name ? name : "") + "SW";
    Arg own[4];
    Cardinal n = 0;
    XtSetArg(own[n], XmNscrollingPolicy, XmAPPLICATION_DEFINED); n++;
    XtSetArg(own[n], XmNvisualPolicy, XmVARIABLE); n++;
    XtSetArg(own[n], XmNscrollBarDisplayPolicy, XmSTATIC); n++;
    XtSetArg(own[n], XmNshadowThickness, 0); n++;
    ArgList merged = XtMergeArgLists(args, argCount, own, n);
    Widget sw = XtCreateManagedWidget(sw_name.c_str(), xmScrolledWindowWidgetClass, parent, merged,
                                      argCount + n);
    XtFree((char *)merged);
    Widget list = XtCreateWidget(name, widget_class, sw, args, argCount);
    XtAddCallback(list, XmNdestroyCallback, DestroyWindowOfList, (XtPointer)sw);
    return list;
}

bool IsTree(Widget w)
{
    return w && (XtClass(w) == xmPrjTreeWidgetClass || XtIsSubclass(w, xmPrjTreeWidgetClass));
}

std::vector<Widget> Views(Widget w)
{
    Widget m = Mother(w);
    std::vector<Widget> views{m};
    XmPrjTreePart &t = P(m);
    for (Cardinal i = 0; i < t.numClones; i++)
        views.push_back(t.clones[i]);
    return views;
}

bool RealizedAndManaged(Widget w)
{
    return XtIsRealized(w) && XtIsManaged(w);
}

bool Alive(Widget w)
{
    return !w->core.being_destroyed && P(w).state;
}

State &S(Widget w)
{
    return *(State *)P(w).state;
}

bool TableMode(Widget w)
{
    XmPrjTreePart &m = M(w);
    return m.title && m.numColumns >= 2;
}

}  // namespace xwk::tree
