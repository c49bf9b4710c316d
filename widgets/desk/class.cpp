// The desk list class: resources, the class record, and building, changing
// and tearing down an instance.
#include "widgets/desk/desk.h"
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/BaseClassP.h>
#include <Xm/PrimitiveP.h>
#include <Xm/ScrolledW.h>


using namespace xwk::desk;

namespace {

#define OFF(field) XtOffsetOf(XmPrjDeskRec, desk.field)
#define RES(name, cls, type, field, deftype, def)                                              \
    {(String)(name), (String)(cls), (String)(type), sizeof(((XmPrjDeskPart *)0)->field),     \
     OFF(field), (String)(deftype), (XtPointer)(def)}
#define CB(name, field) RES(name, XmCCallback, XmRCallback, field, XmRCallback, nullptr)

const char kSpace[] = "Space";

XtResource resources[] = {
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
    RES(XmNdontMove, XmCDontMove, XmRBoolean, dontMove, XmRImmediate, False),
    RES(XmNsortItems, XmCSortItems, XmRBoolean, sortItems, XmRImmediate, True),
    RES(XmNsortProc, XmCSortProc, XmRProc, sortProc, XmRImmediate, XmPrjDeskDefaultSortProc),
    RES(XmNmarginWidth, XmCMarginWidth, XmRHorizontalDimension, marginWidth, XmRImmediate, 2),
    RES(XmNmarginHeight, XmCMarginHeight, XmRVerticalDimension, marginHeight, XmRImmediate, 2),
    RES(XmNhPad, kSpace, XmRHorizontalDimension, hPad, XmRImmediate, 2),
    RES(XmNvPad, kSpace, XmRVerticalDimension, vPad, XmRImmediate, 2),
    RES(XmNhIconPad, kSpace, XmRHorizontalDimension, hIconPad, XmRImmediate, 5),
    RES(XmNvFontPad, kSpace, XmRVerticalDimension, vFontPad, XmRImmediate, 0),
    RES(XmNmenuWidget, XmCMenuWidget, XmRWidget, menuWidget, XmRImmediate, nullptr),
    RES(XmNfontList, XmCFontList, XmRFontList, fontList, XmRImmediate, nullptr),
    RES(XmNmaxChars, XmCMaxChars, XmRInt, maxChars, XmRImmediate, 12),
    RES(XmNselected, XmCSelected, XmRPointer, selected, XmRImmediate, nullptr),
    RES(XmNselectionPolicy, XmCSelectionPolicy, XmRSelectionPolicy, selectionPolicy,
        XmRImmediate, XmSINGLE_SELECT),
    CB(XmNselectionChanged, selectionChanged),
    CB(XmNsingleSelectionCallback, singleSelectionCallback),
    CB(XmNstartDragCallback, startDragCallback),
    CB(XmNmultipleSelectionCallback, multipleSelectionCallback),
    CB(XmNdefaultActionCallback, defaultActionCallback),
    CB(XmNfocusCallback, focusCallback),
    CB(XmNlosingFocusCallback, losingFocusCallback),
    RES(XmNshadowType, XmCShadowType, XmRShadowType, shadowType, XmRImmediate, XmSHADOW_IN),
    RES(XmNscrollBarDisplayPolicy, XmCScrollBarDisplayPolicy, XmRScrollBarDisplayPolicy,
        scrollBarDisplayPolicy, XmRImmediate, XmAS_NEEDED),
};

void GetClones(Widget w, int, XtArgVal *value)
{
    *value = IsDesk(w) ? (XtArgVal)M(w).clones : 0;
}

void GetNumClones(Widget w, int, XtArgVal *value)
{
    *value = IsDesk(w) ? (XtArgVal)M(w).numClones : 0;
}

#define SYN(name, field, proc) {(String)(name), sizeof(((XmPrjDeskPart *)0)->field), OFF(field), proc, nullptr}

XmSyntheticResource syn_resources[] = {
    SYN(XmNclones, clones, GetClones),
    SYN(XmNnumClones, numClones, GetNumClones),
};

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
    XmInheritWidgetNavigable,
    XmInheritFocusChange,
    nullptr,
};

void ClassInitialize()
{
    base_class_extension.record_type = XmQmotif;
}

// The focus frame is the desk's own: Motif's border highlight stays off.
void NoBorderHighlight(Widget) {}

void InitMother(Widget w)
{
    XmPrjDeskPart &d = P(w);
    d.mother = w;
    d.clones = nullptr;
    d.numClones = 0;
    d.selectedCount = 0;
    d.current = nullptr;
    d.selected = nullptr;
    d.highlighted = nullptr;
    d.highlightedDesk = nullptr;
    d.sortedCount = 0;
    XmFontList fonts = d.fontList ? d.fontList : XmeGetDefaultRenderTable(w, XmLABEL_FONTLIST);
    d.fontList = XmFontListCopy(fonts);
    d.items = l_create(FreeItemNode, (XtPointer)w);
}

void ResetView(Widget w)
{
    XmPrjDeskPart &d = P(w);
    d.x = d.y = 0;
    d.width = d.height = 0;
    d.topRow = 0;
    d.lastTopRow = -1;
    d.maxTopRow = 0;
    d.bandAnchorX = d.bandAnchorY = d.bandLastX = d.bandLastY = d.bandNewX = d.bandNewY = -32768;
    d.columns = d.visibleRows = d.totalRows = 1;
    d.lastClicked = nullptr;
    d.scrollBar = nullptr;
    d.hasFocus = False;
    d.lastClickTime = 0;
    d.autoScrollTimer = 0;
    d.clickCount = 0;
    d.buttonState = 0;
    d.dragTimer = 0;
    d.dragAction = nullptr;
    d.stateFlags = 0;
    d.backgroundGC = d.textGC = d.activeFillGC = d.activeTextGC = nullptr;
    d.inactiveFillGC = d.inactiveTextGC = d.frameOnGC = d.frameOffGC = nullptr;
    d.topShadowGC = d.bottomShadowGC = d.xorGC = nullptr;
}

void Initialize(Widget request, Widget w, ArgList, Cardinal *)
{
    XmPrjDeskPart &d = P(w);
    bool clone = d.mother && d.mother != w && IsDesk(d.mother);
    if (clone)
        InitClone(w);
    else
        InitMother(w);
    ResetView(w);
    d.state = new State();
    Widget parent = XtParent(w);
    if (XmIsScrolledWindow(parent)) {
        unsigned char policy = 0, visual = 0;
        XtVaGetValues(parent, XmNscrollingPolicy, &policy, XmNvisualPolicy, &visual, NULL);
        if (policy != XmAPPLICATION_DEFINED)
            XtVaSetValues(parent, XmNscrollingPolicy, XmAPPLICATION_DEFINED, NULL);
        if (visual != XmVARIABLE)
            XtVaSetValues(parent, XmNvisualPolicy, XmVARIABLE, NULL);
        CreateScrollBar(w);
    }
    CreateGCs(w);
    d.stateFlags |= XmDESK_INITIAL_SIZE;
    ComputeSizes(w);
    Dimension width, height;
    PreferredSize(w, &width, &height);
    if (!request->core.width)
        w->core.width = width;
    if (!request->core.height)
        w->core.height = height;
}

void Destroy(Widget w)
{
    XmPrjDeskPart &d = P(w);
    if (d.autoScrollTimer)
        XtRemoveTimeOut(d.autoScrollTimer);
    d.autoScrollTimer = 0;
    State *state = (State *)d.state;
    if (state && state->repaintTimer)
        XtRemoveTimeOut(state->repaintTimer);
    if (state && state->barTimer)
        XtRemoveTimeOut(state->barTimer);
    bool mother = d.mother == w || !d.mother;
    if (mother) {
        RemoveCallbackLists(w);
        if (d.dragTimer)
            XtRemoveTimeOut(d.dragTimer);
        d.dragTimer = 0;
        // Items go before the font list: their strings were made in it.
        DestroyItems(w);
        if (d.fontList)
            XmFontListFree(d.fontList);
        d.fontList = nullptr;
        ForgetFonts();
        // A clone cannot outlive its mother: it lets go of what it shared
        // with her and goes too.
        WidgetList clones = d.clones;
        Cardinal count = d.numClones;
        d.clones = nullptr;
        d.numClones = 0;
        for (Cardinal i = 0; i < count; i++)
            OrphanClone(clones[i]);
        XtFree((char *)clones);
    } else {
        DestroyClone(w);
    }
    ForgetCallbackLists(w);
    FreeGCs(w);
    delete state;
    d.state = nullptr;
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes)
{
    if (w->core.width < 1)
        w->core.width = 1;
    if (w->core.height < 1)
        w->core.height = 1;
    XmPrjDeskPart &d = P(w);
    if (!(d.stateFlags & XmDESK_SIZES_KNOWN))
        ComputeSizes(w);
    GridOne(w);
    (*xmPrimitiveClassRec.core_class.realize)(w, mask, attributes);
    XmPrjDeskPart &m = M(w);
    if (!m.current && m.items && m.items->first) {
        m.current = m.items->first;
        RefreshSelected(w);
    }
}

void Resize(Widget w)
{
    XmPrjDeskPart &d = P(w);
    d.stateFlags |= XmDESK_RESIZED;
    if (d.stateFlags & XmDESK_GRID_RUNNING)
        return;
    S(w).inResize = true;
    GridOne(w);
    S(w).inResize = false;
    if (XtIsRealized(w))
        SetClips(w);
}

XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *preferred)
{
    XmPrjDeskPart &d = P(w);
    if (d.stateFlags & XmDESK_GRID_RUNNING)
        return XtGeometryYes;
    Dimension width, height;
    PreferredSize(w, &width, &height);
    preferred->request_mode = CWWidth | CWHeight;
    preferred->width = width;
    preferred->height = height;
    if (!(intended->request_mode & (CWWidth | CWHeight)))
        return XtGeometryAlmost;
    if (d.scrollBar && !XtIsRealized(w)) {
        bool almost = false;
        if ((intended->request_mode & CWWidth) && intended->width <= 2 * InsetX(w) &&
            intended->width < width)
            almost = true;
        else
            preferred->width = intended->width;
        if ((intended->request_mode & CWHeight) && intended->height <= 2 * InsetY(w) &&
            intended->height < height)
            almost = true;
        else
            preferred->height = intended->height;
        if (almost)
            return XtGeometryAlmost;
    }
    return XtGeometryYes;
}

// Labels are made and measured again, after a change of font or width.
void MeasureAll(Widget w)
{
    for (XwkListNode *n = P(w).items->first; n; n = n->next) {
        XmPrjDeskItem item = Item(n);
        if (item->labelString)
            XmStringFree(item->labelString);
        item->labelString = nullptr;
        MeasureItem(w, item);
    }
    ExtentsChanged(w);
}

Boolean SetValues(Widget old, Widget, Widget w, ArgList args, Cardinal *num_args)
{
    XmPrjDeskPart &o = P(old);
    XmPrjDeskPart &d = P(w);
    if (d.mother != w && d.mother) {
        // A clone's resources are its mother's.
        d = o;
        XtSetValues(d.mother, args, *num_args);
        return False;
    }
    bool sizes = false, repaint = false;
    if (d.fontList != o.fontList) {
        XmFontList fonts = d.fontList ? d.fontList : XmeGetDefaultRenderTable(w, XmLABEL_FONTLIST);
        d.fontList = XmFontListCopy(fonts);
        if (o.fontList)
            XmFontListFree(o.fontList);
        ForgetFonts();
        MeasureAll(w);
        for (Widget v : Views(w))
            UpdateGCs(v);
        sizes = repaint = true;
    } else if (d.maxChars != o.maxChars) {
        MeasureAll(w);
        sizes = repaint = true;
    }
    auto *op = (XmPrimitiveWidget)old;
    auto *np = (XmPrimitiveWidget)w;
    if (np->primitive.foreground != op->primitive.foreground ||
        w->core.background_pixel != old->core.background_pixel ||
        np->primitive.top_shadow_color != op->primitive.top_shadow_color ||
        np->primitive.bottom_shadow_color != op->primitive.bottom_shadow_color ||
        np->primitive.top_shadow_pixmap != op->primitive.top_shadow_pixmap ||
        np->primitive.bottom_shadow_pixmap != op->primitive.bottom_shadow_pixmap ||
        np->primitive.highlight_color != op->primitive.highlight_color ||
        d.activeBackground != o.activeBackground || d.activeForeground != o.activeForeground ||
        d.inactiveBackground != o.inactiveBackground ||
        d.inactiveForeground != o.inactiveForeground) {
        for (Widget v : Views(w)) {
            if (v != w) {
                P(v).activeBackground = d.activeBackground;
                P(v).activeForeground = d.activeForeground;
                P(v).inactiveBackground = d.inactiveBackground;
                P(v).inactiveForeground = d.inactiveForeground;
            }
            UpdateGCs(v);
        }
        repaint = true;
    }
    if (d.hPad != o.hPad || d.vPad != o.vPad || d.hIconPad != o.hIconPad ||
        d.vFontPad != o.vFontPad || d.marginWidth != o.marginWidth ||
        d.marginHeight != o.marginHeight ||
        np->primitive.shadow_thickness != op->primitive.shadow_thickness ||
        np->primitive.highlight_thickness != op->primitive.highlight_thickness)
        sizes = repaint = true;
    if (d.sortProc != o.sortProc)
        S(w).sorted = false;
    if ((d.sortItems && !o.sortItems) || (o.dontMove && !d.dontMove && d.sortItems))
        Sort(w);
    if (o.dontMove && !d.dontMove)
        sizes = repaint = true;
    if (d.shadowType != o.shadowType || d.selectionPolicy != o.selectionPolicy)
        repaint = true;
    if (sizes && !d.dontMove) {
        ComputeSizes(w);
        Grid(w);
    }
    if (repaint && XtIsRealized(w) && !d.dontMove)
        RepaintAll(w, true);
    return False;
}

}  // namespace

extern "C" {

XmPrjDeskClassRec xmPrjDeskClassRec = {
    {
        /* superclass */ (WidgetClass)&xmPrimitiveClassRec,
        /* class_name */ (String) "XmPrjDesk",
        /* widget_size */ sizeof(XmPrjDeskRec),
        /* class_initialize */ ClassInitialize,
        /* class_part_initialize */ nullptr,
        /* class_inited */ False,
        /* initialize */ Initialize,
        /* initialize_hook */ nullptr,
        /* realize */ Realize,
        /* actions */ xwk::desk::actions,
        /* num_actions */ XtNumber(xwk::desk::actions),
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
        /* expose */ xwk::desk::ExposeProc,
        /* set_values */ SetValues,
        /* set_values_hook */ nullptr,
        /* set_values_almost */ XtInheritSetValuesAlmost,
        /* get_values_hook */ nullptr,
        /* accept_focus */ nullptr,
        /* version */ XtVersion,
        /* callback_private */ nullptr,
        /* tm_table */ (String)xwk::desk::default_translations,
        /* query_geometry */ QueryGeometry,
        /* display_accelerator */ XtInheritDisplayAccelerator,
        /* extension */ (XtPointer)&base_class_extension,
    },
    {
        /* border_highlight */ NoBorderHighlight,
        /* border_unhighlight */ NoBorderHighlight,
        /* translations */ nullptr,
        /* arm_and_activate */ nullptr,
        /* syn_resources */ syn_resources,
        /* num_syn_resources */ XtNumber(syn_resources),
        /* extension */ nullptr,
    },
    {
        /* extension */ nullptr,
    },
};

WidgetClass xmPrjDeskWidgetClass = (WidgetClass)&xmPrjDeskClassRec;

Widget XmCreatePrjDesk(Widget parent, String name, ArgList args, Cardinal argCount)
{
    return XtCreateWidget(name, xmPrjDeskWidgetClass, parent, args, argCount);
}

Widget XmCreateDeskList(Widget parent, String name, ArgList args, Cardinal argCount)
{
    return XtCreateWidget(name, xmPrjDeskWidgetClass, parent, args, argCount);
}

Widget XmCreateScrolledDeskList(Widget parent, String name, ArgList args, Cardinal argCount)
{
    return xwk::tree::CreateInScrolledWindow(xmPrjDeskWidgetClass, parent, name, args, argCount);
}

}  // extern "C"

namespace xwk::desk {

bool IsDesk(Widget w)
{
    return w && (XtClass(w) == xmPrjDeskWidgetClass || XtIsSubclass(w, xmPrjDeskWidgetClass));
}

std::vector<Widget> Views(Widget w)
{
    Widget m = Mother(w);
    std::vector<Widget> views{m};
    XmPrjDeskPart &d = P(m);
    for (Cardinal i = 0; i < d.numClones; i++)
        views.push_back(d.clones[i]);
    return views;
}

bool Alive(Widget w)
{
    return !w->core.being_destroyed && P(w).state;
}

bool Paintable(Widget w)
{
    return XtIsRealized(w) && !w->core.being_destroyed && P(w).state;
}

State &S(Widget w)
{
    return *(State *)P(w).state;
}

}  // namespace xwk::desk
