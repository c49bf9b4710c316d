// The folder class: resources, class record, and building, changing and
// tearing down an instance and the constraint records of its children.
#include "widgets/folder/folder.h"

#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/BaseClassP.h>
#include <Xwk/ComboBox.h>

namespace xwk::folder {

bool IsFolder(Widget w) { return w && XtIsSubclass(w, xmFolderWidgetClass); }

Widget FolderOf(Widget child)
{
    if (!child || XtIsShell(child))
        return nullptr;
    Widget parent = XtParent(child);
    return IsFolder(parent) ? parent : nullptr;
}

bool IsPageChild(Widget w, Widget child)
{
    return XtIsRectObj(child) && !child->core.being_destroyed && child != Part(w).folderList;
}

}  // namespace xwk::folder

using namespace xwk::folder;

namespace {

#define F_OFFSET(field) XtOffsetOf(XmFolderRec, folder.field)
#define C_OFFSET(field) XtOffsetOf(XmFolderConstraintRec, folder.field)

XtResource resources[] = {
    {(String)XmNtraversalOn, (String)XmCTraversalOn, (String)XmRBoolean, sizeof(Boolean),
     XtOffsetOf(XmFolderRec, manager.traversal_on), (String)XmRImmediate, (XtPointer)True},
    {XmNautoManage, XmCAutoManage, (String)XmRBoolean, sizeof(Boolean), F_OFFSET(autoManage),
     (String)XmRImmediate, (XtPointer)True},
    {XmNdoTraversal, XmCDoTraversal, (String)XmRBoolean, sizeof(Boolean), F_OFFSET(doTraversal),
     (String)XmRImmediate, (XtPointer)True},
    {XmNactivePage, XmCActivePage, (String)XmRInt, sizeof(int), F_OFFSET(activePage),
     (String)XmRImmediate, (XtPointer)1},
    {XmNtopTab, XmCTopTab, (String)XmRInt, sizeof(int), F_OFFSET(topTab), (String)XmRImmediate,
     (XtPointer)1},
    {XmNvisibleTabCount, XmCVisibleTabCount, (String)XmRInt, sizeof(int), F_OFFSET(visibleTabCount),
     (String)XmRImmediate, (XtPointer)1},
    {XmNactiveTabFontList, XmCActiveTabFontList, (String)XmRFontList, sizeof(XmFontList),
     F_OFFSET(activeTabFontList), (String)XmRImmediate, nullptr},
    {XmNactiveTabOffset, XmCActiveTabOffset, (String)XmRDimension, sizeof(Dimension),
     F_OFFSET(activeTabOffset), (String)XmRImmediate, (XtPointer)3},
    {XmNtabFontList, XmCTabFontList, (String)XmRFontList, sizeof(XmFontList), F_OFFSET(tabFontList),
     (String)XmRImmediate, nullptr},
    {(String)XmNfontList, (String)XmCFontList, (String)XmRFontList, sizeof(XmFontList),
     F_OFFSET(fontList), (String)XmRImmediate, nullptr},
    {(String)XmNmarginWidth, (String)XmCMarginWidth, (String)XmRHorizontalDimension, sizeof(Dimension),
     F_OFFSET(marginWidth), (String)XmRImmediate, (XtPointer)2},
    {(String)XmNmarginHeight, (String)XmCMarginHeight, (String)XmRVerticalDimension, sizeof(Dimension),
     F_OFFSET(marginHeight), (String)XmRImmediate, (XtPointer)2},
    {XmNtabMarginWidth, (String)XmCMarginWidth, (String)XmRHorizontalDimension, sizeof(Dimension),
     F_OFFSET(tabMarginWidth), (String)XmRImmediate, (XtPointer)6},
    {XmNtabMarginHeight, (String)XmCMarginHeight, (String)XmRVerticalDimension, sizeof(Dimension),
     F_OFFSET(tabMarginHeight), (String)XmRImmediate, (XtPointer)2},
    {XmNtabCornerSize, XmCTabCornerSize, (String)XmRDimension, sizeof(Dimension),
     F_OFFSET(tabCornerSize), (String)XmRImmediate, (XtPointer)0},
    {XmNtabHighlightThickness, (String)XmCHighlightThickness, (String)XmRDimension, sizeof(Dimension),
     F_OFFSET(tabHighlightThickness), (String)XmRImmediate, (XtPointer)(Dimension)-1},
    {(String)XmNspacing, (String)XmCSpacing, (String)XmRDimension, sizeof(Dimension), F_OFFSET(spacing),
     (String)XmRImmediate, (XtPointer)3},
    {XmNchangePageCallback, (String)XmCCallback, (String)XmRCallback, sizeof(XtCallbackList),
     F_OFFSET(changePageCallback), (String)XmRCallback, nullptr},
    {XmNfolderHighlightColor, XmCFolderHighlightColor, (String)XmRPixel, sizeof(Pixel),
     F_OFFSET(folderHighlightColor), (String)XmRCallProc, (XtPointer)_XmSelectColorDefault},
    {XmNhighlightNonActive, XmCHighlightNonActive, (String)XmRBoolean, sizeof(Boolean),
     F_OFFSET(highlightNonActive), (String)XmRImmediate, (XtPointer)False},
    {XmNuseHighlight, XmCUseHighlight, (String)XmRBoolean, sizeof(Boolean), F_OFFSET(useHighlight),
     (String)XmRImmediate, (XtPointer)False},
    {XmNuseTabs, XmCUseTabs, (String)XmRBoolean, sizeof(Boolean), F_OFFSET(useTabs),
     (String)XmRImmediate, (XtPointer)True},
    {XmNuseMenu, XmCUseMenu, (String)XmRBoolean, sizeof(Boolean), F_OFFSET(useMenu),
     (String)XmRImmediate, (XtPointer)False},
};

XtResource constraint_resources[] = {
    {XmNfolderId, XmCFolderId, (String)"Long", sizeof(long), C_OFFSET(folderId), (String)XmRImmediate,
     (XtPointer)0},
    {XmNfolderLabelString, XmCFolderLabelString, (String)XmRXmString, sizeof(XmString),
     C_OFFSET(folderLabelString), (String)XmRImmediate, nullptr},
    {XmNfolderLabelIcon, XmCFolderLabelIcon, (String)XmRPointer, sizeof(XtPointer),
     C_OFFSET(folderLabelIcon), (String)XmRImmediate, nullptr},
    {XmNfolderMarginWidth, XmCFolderMarginWidth, (String)XmRHorizontalDimension, sizeof(Dimension),
     C_OFFSET(folderMarginWidth), (String)XmRImmediate, (XtPointer)0},
    {XmNfolderMarginHeight, XmCFolderMarginHeight, (String)XmRVerticalDimension, sizeof(Dimension),
     C_OFFSET(folderMarginHeight), (String)XmRImmediate, (XtPointer)0},
};

XmSyntheticResource syn_resources[] = {
    {(String)XmNmarginWidth, sizeof(Dimension), F_OFFSET(marginWidth), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {(String)XmNmarginHeight, sizeof(Dimension), F_OFFSET(marginHeight), XmeFromVerticalPixels,
     XmeToVerticalPixels},
    {XmNtabMarginWidth, sizeof(Dimension), F_OFFSET(tabMarginWidth), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {XmNtabMarginHeight, sizeof(Dimension), F_OFFSET(tabMarginHeight), XmeFromVerticalPixels,
     XmeToVerticalPixels},
};

XmSyntheticResource syn_constraint_resources[] = {
    {XmNfolderMarginWidth, sizeof(Dimension), C_OFFSET(folderMarginWidth), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {XmNfolderMarginHeight, sizeof(Dimension), C_OFFSET(folderMarginHeight), XmeFromVerticalPixels,
     XmeToVerticalPixels},
};

#undef F_OFFSET
#undef C_OFFSET

// A thickness left at -1 comes from the screen's database; the first byte
// of the entry is the number, as it always was.
Dimension ResolveTabHighlight(Widget w, Dimension given)
{
    if (given == 0)
        return 2;
    if (given != (Dimension)-1)
        return given;
    char *type = nullptr;
    XrmValue value = {0, nullptr};
    XrmDatabase db = XtScreenDatabase(XtScreen(w));
    if (db && XrmGetResource(db, XmNtabHighlightThickness, XmCHighlightThickness, &type, &value) &&
        value.addr && value.size > 0)
        return (unsigned char)value.addr[0];
    return 1;
}

XmFontList CopyOrDefault(Widget w, XmFontList given, XmFontList fallback)
{
    if (given)
        return XmFontListCopy(given);
    if (fallback)
        return XmFontListCopy(fallback);
    return XmFontListCopy(XmeGetDefaultRenderTable(w, XmLABEL_FONTLIST));
}

void Initialize(Widget, Widget nw, ArgList, Cardinal *)
{
    XmFolderPart &p = Part(nw);
    p.flags = XmFOLDER_INITIALIZING;
    p.nextFolderId = 1;
    p.pages = nullptr;
    p.pageCount = 0;
    p.tabAreaHeight = p.preferredWidth = p.preferredHeight = p.maxTabHeight = 0;
    p.leftArrowShown = p.rightArrowShown = False;
    p.leftArrow = p.rightArrow = XRectangle{0, 0, 0, 0};
    p.segments = nullptr;
    p.segmentCapacity = 0;
    p.savedPage = p.armedTab = 0;
    p.armedArrow = 0;
    p.folderList = nullptr;
    p.pressTime = 0;
    p.repeatTimer = 0;
    p.redraw = XRectangle{0, 0, 0, 0};
    p.inExpose = False;
    p.tabHighlightThickness = ResolveTabHighlight(nw, p.tabHighlightThickness);
    p.fontList = CopyOrDefault(nw, p.fontList, nullptr);
    p.tabFontList = CopyOrDefault(nw, p.tabFontList, p.fontList);
    p.activeTabFontList = CopyOrDefault(nw, p.activeTabFontList, p.tabFontList);
    MakeContexts(nw);
    if (p.useMenu)
        MakeFolderList(nw);
    ComputeTabAreaHeight(nw);
    p.flags &= ~XmFOLDER_INITIALIZING;
}

void Destroy(Widget w)
{
    XmFolderPart &p = Part(w);
    XtRemoveAllCallbacks(w, XmNchangePageCallback);
    StopRepeat(w);
    FreeContexts(w);
    XmFontListFree(p.fontList);
    XmFontListFree(p.tabFontList);
    XmFontListFree(p.activeTabFontList);
    p.fontList = p.tabFontList = p.activeTabFontList = nullptr;
    XtFree((char *)p.segments);
    p.segments = nullptr;
    p.segmentCapacity = 0;
    FreePages(w);
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attrs)
{
    XmFolderPart &p = Part(w);
    if (w->core.width == 0)
        w->core.width = 1;
    if (w->core.height == 0)
        w->core.height = 1;
    Layout(w);
    *mask |= CWBitGravity;
    attrs->bit_gravity = ForgetGravity;
    xmManagerClassRec.core_class.realize(w, mask, attrs);
    GrabPageKeys(w);
    if (p.pageCount > 0)
        ChangePage(w, p.activePage, false);
    p.savedPage = p.activePage;
    if (p.doTraversal && p.autoManage && p.pageCount > 0) {
        Widget child = p.pages[p.activePage - 1].widget;
        if (child && XtIsManaged(child))
            XmProcessTraversal(child, XmTRAVERSE_CURRENT);
    }
}

Boolean SetValues(Widget cw, Widget, Widget nw, ArgList, Cardinal *)
{
    XmFolderPart &o = Part(cw), &p = Part(nw);
    XmFolderWidget ofw = Folder(cw), fw = Folder(nw);
    Boolean redisplay = False;
    bool measure = false;
    if (p.fontList != o.fontList) {
        XmFontListFree(o.fontList);
        p.fontList = CopyOrDefault(nw, p.fontList, nullptr);
        measure = true;
    }
    if (p.tabFontList != o.tabFontList) {
        XmFontListFree(o.tabFontList);
        p.tabFontList = CopyOrDefault(nw, p.tabFontList, p.fontList);
        measure = true;
    }
    if (p.activeTabFontList != o.activeTabFontList) {
        XmFontListFree(o.activeTabFontList);
        p.activeTabFontList = CopyOrDefault(nw, p.activeTabFontList, p.tabFontList);
        measure = true;
    }
    if (p.tabHighlightThickness == 0)
        p.tabHighlightThickness = 2;
    if (p.tabHighlightThickness != o.tabHighlightThickness || p.tabMarginWidth != o.tabMarginWidth ||
        p.tabMarginHeight != o.tabMarginHeight || p.spacing != o.spacing ||
        p.activeTabOffset != o.activeTabOffset || p.marginWidth != o.marginWidth ||
        p.marginHeight != o.marginHeight ||
        fw->manager.shadow_thickness != ofw->manager.shadow_thickness)
        measure = true;
    if (measure) {
        MeasureAll(nw);
        p.flags &= ~XmFOLDER_LAYOUT_VALID;
        redisplay = True;
    }
    if (nw->core.background_pixel != cw->core.background_pixel ||
        fw->manager.foreground != ofw->manager.foreground ||
        p.folderHighlightColor != o.folderHighlightColor) {
        FreeContexts(nw);
        MakeContexts(nw);
        redisplay = True;
    }
    if (p.highlightNonActive != o.highlightNonActive)
        redisplay = True;
    if (p.useTabs != o.useTabs) {
        ComputeTabAreaHeight(nw);
        Layout(nw);
        redisplay = True;
    } else if (measure) {
        Layout(nw);
    }
    if (p.topTab != o.topTab)
        redisplay = True;
    if (p.activePage != o.activePage && p.pageCount > 0) {
        int n = p.activePage;
        p.activePage = o.activePage;
        ChangePage(nw, n, false);
        redisplay = True;
    }
    if (p.useHighlight != o.useHighlight && XtIsRealized(nw)) {
        XClearArea(XtDisplay(nw), XtWindow(nw), 0, 0, 0, 0, False);
        Redisplay(nw, nullptr, nullptr);
    }
    p.useMenu = o.useMenu;
    return redisplay;
}

void InsertChild(Widget child)
{
    Widget w = XtParent(child);
    XmFolderPart &p = Part(w);
    if (p.autoManage && XtIsRectObj(child) && !(p.flags & XmFOLDER_INITIALIZING)) {
        XmFolderConstraintPart &c = Con(child);
        if (!c.folderLabelString)
            c.folderLabelString = XmStringCreate(XtName(child), (char *)XmFONTLIST_DEFAULT_TAG);
        c.folderId = AppendPage(w, c.folderLabelString, (XwkIcon *)c.folderLabelIcon, child);
    }
    xmManagerClassRec.composite_class.insert_child(child);
}

void ConstraintInitialize(Widget, Widget nw, ArgList, Cardinal *)
{
    XmFolderConstraintPart &c = Con(nw);
    if (c.folderLabelString)
        c.folderLabelString = XmStringCopy(c.folderLabelString);
}

void ConstraintDestroy(Widget child)
{
    Widget w = XtParent(child);
    XmFolderPart &p = Part(w);
    XmFolderConstraintPart &c = Con(child);
    if (child == p.folderList) {
        p.folderList = nullptr;
        return;
    }
    bool folder_going = w->core.being_destroyed;
    for (int i = p.pageCount - 1; i >= 0 && i < p.pageCount; i--) {
        XmFolderPage &page = p.pages[i];
        if (page.widget != child)
            continue;
        bool owned = LabelOwnedByChild(page);
        if (!folder_going && p.autoManage && owned) {
            DeletePage(w, page.id, true, nullptr);
            continue;
        }
        if (owned)
            page.label = nullptr;
        page.widget = nullptr;
    }
    // A callback of the deletion may have bound the child again.
    for (int i = 0; i < p.pageCount; i++)
        if (p.pages[i].widget == child)
            p.pages[i].widget = nullptr;
    if (c.folderLabelString)
        XmStringFree(c.folderLabelString);
    c.folderLabelString = nullptr;
}

Boolean ConstraintSetValues(Widget old, Widget, Widget nw, ArgList, Cardinal *)
{
    XmFolderConstraintPart &o = Con(old), &c = Con(nw);
    Widget w = XtParent(nw);
    int index = IndexOfWidget(w, nw);
    if (c.folderLabelString != o.folderLabelString) {
        XmString given = c.folderLabelString;
        c.folderLabelString = given ? XmStringCopy(given) : nullptr;
        // A page that showed the child's label follows it.
        if (index >= 0 && Part(w).pages[index].label == o.folderLabelString) {
            if (!c.folderLabelString)
                c.folderLabelString = XmStringCreate(XtName(nw), (char *)XmFONTLIST_DEFAULT_TAG);
            SetLabel(w, index, c.folderLabelString, false);
        }
        if (o.folderLabelString)
            XmStringFree(o.folderLabelString);
    }
    if (c.folderLabelIcon != o.folderLabelIcon && index >= 0)
        XmFolderSetPageIcon(w, Part(w).pages[index].id, (XwkIcon *)c.folderLabelIcon);
    if (c.folderMarginWidth != o.folderMarginWidth || c.folderMarginHeight != o.folderMarginHeight)
        Part(w).flags &= ~XmFOLDER_LAYOUT_VALID;
    return False;
}

XmBaseClassExtRec base_class_extension = {
    nullptr, NULLQUARK, XmBaseClassExtVersion, sizeof(XmBaseClassExtRec),
    XmInheritInitializePrehook, XmInheritSetValuesPrehook,
    XmInheritInitializePosthook, XmInheritSetValuesPosthook,
    XmInheritClass, XmInheritSecObjectCreate, XmInheritGetSecResData,
    {0},
    XmInheritGetValuesPrehook, XmInheritGetValuesPosthook,
    nullptr, nullptr,
    nullptr, nullptr, 0, FALSE,
    XmInheritWidgetNavigable, XmInheritFocusChange,
    nullptr,
};

void ClassInitialize()
{
    base_class_extension.record_type = XmQmotif;
    RegisterGrabActions();
}

}  // namespace

extern "C" {

XmFolderClassRec xmFolderClassRec = {
    {
        (WidgetClass)&xmManagerClassRec,      // superclass
        (String) "XmFolder",                  // class_name
        sizeof(XmFolderRec),                  // widget_size
        ClassInitialize,                      // class_initialize
        nullptr,                              // class_part_initialize
        FALSE,                                // class_inited
        Initialize,                           // initialize
        nullptr,                              // initialize_hook
        Realize,                              // realize
        actions, num_actions,                 // actions
        resources, XtNumber(resources),       // resources
        NULLQUARK,                            // xrm_class
        TRUE,                                 // compress_motion
        XtExposeCompressMaximal,              // compress_exposure
        TRUE,                                 // compress_enterleave
        FALSE,                                // visible_interest
        Destroy,                              // destroy
        Resize,                               // resize
        Redisplay,                            // expose
        SetValues,                            // set_values
        nullptr,                              // set_values_hook
        XtInheritSetValuesAlmost,             // set_values_almost
        nullptr,                              // get_values_hook
        nullptr,                              // accept_focus
        XtVersion,                            // version
        nullptr,                              // callback_private
        (String)translations,                 // tm_table
        QueryGeometry,                        // query_geometry
        nullptr,                              // display_accelerator
        (XtPointer)&base_class_extension,     // extension
    },
    {
        GeometryManager,                      // geometry_manager
        ChangeManaged,                        // change_managed
        InsertChild,                          // insert_child
        XtInheritDeleteChild,                 // delete_child
        nullptr,                              // extension
    },
    {
        constraint_resources, XtNumber(constraint_resources), sizeof(XmFolderConstraintRec),
        ConstraintInitialize, ConstraintDestroy, ConstraintSetValues, nullptr,
    },
    {
        XtInheritTranslations,                // translations
        syn_resources, XtNumber(syn_resources),
        syn_constraint_resources, XtNumber(syn_constraint_resources),
        XmInheritParentProcess,
        nullptr,
    },
    {nullptr},
};

WidgetClass xmFolderWidgetClass = (WidgetClass)&xmFolderClassRec;

Widget XmCreateFolder(Widget parent, String name, ArgList args, Cardinal num_args)
{
    return XtCreateWidget(name, xmFolderWidgetClass, parent, args, num_args);
}

}  // extern "C"
