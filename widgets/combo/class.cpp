// The combo box class: representation types, resources, class record, and
// building, validating and tearing down an instance.
#include "widgets/combo/combo.h"

#include <Xm/XmP.h>
#include <Xm/BaseClassP.h>
#include <Xm/DrawnB.h>
#include <Xm/Frame.h>
#include <Xm/List.h>
#include <Xm/RepType.h>
#include <Xm/ScrollBar.h>
#include <Xm/Text.h>
#include <X11/Shell.h>

using namespace xwk::combo;

namespace {

XmRepTypeId combo_type_id = XmREP_TYPE_INVALID;
XmRepTypeId placement_id = XmREP_TYPE_INVALID;

#define CB_OFFSET(field) XtOffsetOf(XwkComboBoxRec, combo.field)

XtResource resources[] = {
    {(String)XmNshadowThickness, (String)XmCShadowThickness, (String)XmRHorizontalDimension,
     sizeof(Dimension), XtOffsetOf(XwkComboBoxRec, manager.shadow_thickness), (String)XmRImmediate,
     (XtPointer)2},
    {(String)XmNactivateCallback, (String)XmCCallback, (String)XmRCallback, sizeof(XtCallbackList),
     CB_OFFSET(activateCallback), (String)XmRCallback, nullptr},
    {(String)XmNarrowSpacing, (String)XmCArrowSpacing, (String)XmRHorizontalDimension, sizeof(Dimension),
     CB_OFFSET(arrowSpacing), (String)XmRImmediate, (XtPointer)0},
    {(String)XmNcolumns, (String)XmCColumns, (String)XmRShort, sizeof(short), CB_OFFSET(columns),
     (String)XmRImmediate, (XtPointer)20},
    {(String)XmNhighlightThickness, (String)XmCHighlightThickness, (String)XmRHorizontalDimension,
     sizeof(Dimension), CB_OFFSET(highlightThickness), (String)XmRImmediate, (XtPointer)2},
    {(String)XmNitemCount, (String)XmCItemCount, (String)XmRInt, sizeof(int), CB_OFFSET(itemCount),
     (String)XmRImmediate, (XtPointer)0},
    {(String)XmNitems, (String)XmCItems, (String)XmRXmStringTable, sizeof(XmStringTable),
     CB_OFFSET(items), (String)XmRImmediate, nullptr},
    {(String)XmNmarginHeight, (String)XmCMarginHeight, (String)XmRVerticalDimension, sizeof(Dimension),
     CB_OFFSET(marginHeight), (String)XmRImmediate, (XtPointer)0},
    {(String)XmNmarginWidth, (String)XmCMarginWidth, (String)XmRHorizontalDimension, sizeof(Dimension),
     CB_OFFSET(marginWidth), (String)XmRImmediate, (XtPointer)2},
    {(String)XwkNtextMarginHeight, (String)XwkCTextMarginHeight, (String)XmRVerticalDimension,
     sizeof(Dimension), CB_OFFSET(textMarginHeight), (String)XmRImmediate, (XtPointer)2},
    {(String)XwkNtextMarginWidth, (String)XwkCTextMarginWidth, (String)XmRHorizontalDimension,
     sizeof(Dimension), CB_OFFSET(textMarginWidth), (String)XmRImmediate, (XtPointer)5},
    {(String)XmNlistMarginHeight, (String)XmCListMarginHeight, (String)XmRVerticalDimension,
     sizeof(Dimension), CB_OFFSET(listMarginHeight), (String)XmRImmediate, (XtPointer)2},
    {(String)XmNlistMarginWidth, (String)XmCListMarginWidth, (String)XmRHorizontalDimension,
     sizeof(Dimension), CB_OFFSET(listMarginWidth), (String)XmRImmediate, (XtPointer)2},
    {(String)XmNmaxLength, (String)XmCMaxLength, (String)XmRInt, sizeof(int), CB_OFFSET(maxLength),
     (String)XmRImmediate, (XtPointer)0x7FFF},
    {(String)XwkNarrowPlacement, (String)XwkCArrowPlacement, (String)XwkRArrowPlacement,
     sizeof(unsigned char), CB_OFFSET(arrowPlacement), (String)XmRImmediate, (XtPointer)XwkARROW_RIGHT},
    {(String)XmNselectedItem, (String)XmCSelectedItem, (String)XmRXmString, sizeof(XmString),
     CB_OFFSET(selectedItem), (String)XmRImmediate, nullptr},
    {(String)XmNselectedPosition, (String)XmCSelectedPosition, (String)XmRInt, sizeof(int),
     CB_OFFSET(selectedPosition), (String)XmRImmediate, (XtPointer)1},
    {(String)XmNselectionCallback, (String)XmCCallback, (String)XmRCallback, sizeof(XtCallbackList),
     CB_OFFSET(selectionCallback), (String)XmRCallback, nullptr},
    {(String)XmNfocusCallback, (String)XmCCallback, (String)XmRCallback, sizeof(XtCallbackList),
     CB_OFFSET(focusCallback), (String)XmRCallback, nullptr},
    {(String)XmNlosingFocusCallback, (String)XmCCallback, (String)XmRCallback, sizeof(XtCallbackList),
     CB_OFFSET(losingFocusCallback), (String)XmRCallback, nullptr},
    {(String)XmNcomboBoxType, (String)XmCComboBoxType, (String)XwkRComboBoxType, sizeof(unsigned char),
     CB_OFFSET(comboBoxType), (String)XmRImmediate, (XtPointer)XwkDROP_DOWN_LIST},
    {(String)XmNshadowType, (String)XmCShadowType, (String)XmRShadowType, sizeof(unsigned char),
     CB_OFFSET(shadowType), (String)XmRImmediate, (XtPointer)XmSHADOW_IN},
    {(String)XmNvisibleItemCount, (String)XmCVisibleItemCount, (String)XmRInt, sizeof(int),
     CB_OFFSET(visibleItemCount), (String)XmRImmediate, (XtPointer)10},
};

void GetFromText(Widget w, int offset, XtArgVal *value)
{
    Widget text = Part(w).text;
    Dimension d = *(Dimension *)((char *)w + offset);
    if (text) {
        if (offset == CB_OFFSET(textMarginWidth))
            XtVaGetValues(text, XmNmarginWidth, &d, NULL);
        else
            XtVaGetValues(text, XmNmarginHeight, &d, NULL);
    }
    *value = (XtArgVal)d;
}

void GetColumns(Widget w, int, XtArgVal *value)
{
    short columns = Part(w).columns;
    if (Part(w).text)
        XtVaGetValues(Part(w).text, XmNcolumns, &columns, NULL);
    *value = (XtArgVal)columns;
}

void GetFromList(Widget w, int offset, XtArgVal *value)
{
    Widget list = Part(w).list;
    Dimension d = *(Dimension *)((char *)w + offset);
    if (list)
        XtVaGetValues(list, offset == CB_OFFSET(listMarginWidth) ? XmNlistMarginWidth : XmNlistMarginHeight,
                      &d, NULL);
    *value = (XtArgVal)d;
}

XmSyntheticResource syn_resources[] = {
    {(String)XmNshadowThickness, sizeof(Dimension), XtOffsetOf(XwkComboBoxRec, manager.shadow_thickness),
     XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {(String)XmNhighlightThickness, sizeof(Dimension), CB_OFFSET(highlightThickness),
     XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {(String)XmNarrowSpacing, sizeof(Dimension), CB_OFFSET(arrowSpacing), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {(String)XmNmarginWidth, sizeof(Dimension), CB_OFFSET(marginWidth), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {(String)XmNmarginHeight, sizeof(Dimension), CB_OFFSET(marginHeight), XmeFromVerticalPixels,
     XmeToVerticalPixels},
    {(String)XwkNtextMarginWidth, sizeof(Dimension), CB_OFFSET(textMarginWidth), GetFromText, nullptr},
    {(String)XwkNtextMarginHeight, sizeof(Dimension), CB_OFFSET(textMarginHeight), GetFromText, nullptr},
    {(String)XmNlistMarginWidth, sizeof(Dimension), CB_OFFSET(listMarginWidth), GetFromList, nullptr},
    {(String)XmNlistMarginHeight, sizeof(Dimension), CB_OFFSET(listMarginHeight), GetFromList, nullptr},
    {(String)XmNcolumns, sizeof(short), CB_OFFSET(columns), GetColumns, nullptr},
};

#undef CB_OFFSET

void Validate(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (!XmRepTypeValidValue(combo_type_id, p.comboBoxType, nullptr))
        p.comboBoxType = XwkDROP_DOWN_LIST;
    if (p.comboBoxType == XwkCOMBO_BOX) {
        XmeWarning(w, (char *)"Sorry, type of XmCOMBO_BOX while is not implemented, using default.");
        p.comboBoxType = XwkDROP_DOWN_LIST;
    }
    if (!XmRepTypeValidValue(placement_id, p.arrowPlacement, nullptr))
        p.arrowPlacement = XwkARROW_RIGHT;
    if (p.marginHeight == (Dimension)-1)
        p.marginHeight = 2;
    if (p.marginWidth == (Dimension)-1)
        p.marginWidth = 2;
    if (p.itemCount < 0)
        p.itemCount = 0;
    if (p.itemCount > 0 && p.selectedPosition > p.itemCount)
        p.selectedPosition = 1;
}

void ShellDestroyed(Widget, XtPointer closure, XtPointer)
{
    // Runs before the children's records go, so the grabs can still be
    // given back through them.
    Popdown((Widget)closure);
}

void BuildText(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    XwkComboBoxWidget cb = Combo(w);
    Arg args[16];
    Cardinal n = 0;
    XtSetArg(args[n], XmNcolumns, p.columns); n++;
    XtSetArg(args[n], XmNmaxLength, p.maxLength); n++;
    XtSetArg(args[n], XmNeditMode, XmSINGLE_LINE_EDIT); n++;
    XtSetArg(args[n], XmNhighlightThickness, 0); n++;
    XtSetArg(args[n], XmNnavigationType, XmNONE); n++;
    XtSetArg(args[n], XmNborderWidth, 0); n++;
    XtSetArg(args[n], XmNmarginWidth, p.textMarginWidth); n++;
    XtSetArg(args[n], XmNmarginHeight, p.textMarginHeight); n++;
    if (p.comboBoxType == XwkDROP_DOWN_COMBO_BOX) {
        XtSetArg(args[n], XmNshadowThickness, cb->manager.shadow_thickness); n++;
    } else {
        XtSetArg(args[n], XmNeditable, False); n++;
        XtSetArg(args[n], XmNcursorPositionVisible, False); n++;
        XtSetArg(args[n], XmNshadowThickness, 0); n++;
    }
    p.text = XtCreateManagedWidget("Text", xmTextWidgetClass, w, args, n);
    XtOverrideTranslations(p.text, TextTranslations());
    XtAddCallback(p.text, XmNfocusCallback, TextFocus, w);
    XtAddCallback(p.text, XmNlosingFocusCallback, TextLosingFocus, w);
}

void BuildArrow(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    XwkComboBoxWidget cb = Combo(w);
    Arg args[10];
    Cardinal n = 0;
    XtSetArg(args[n], XmNtraversalOn, False); n++;
    XtSetArg(args[n], XmNhighlightThickness, 0); n++;
    XtSetArg(args[n], XmNnavigationType, XmNONE); n++;
    XtSetArg(args[n], XmNforeground, w->core.background_pixel); n++;
    XtSetArg(args[n], XmNpushButtonEnabled, False); n++;
    if (p.shadowType == XmSHADOW_OUT) {
        XtSetArg(args[n], XmNshadowThickness, 0); n++;
    } else {
        XtSetArg(args[n], XmNshadowThickness, cb->manager.shadow_thickness); n++;
        XtSetArg(args[n], XmNshadowType, XmSHADOW_OUT); n++;
        // The combo draws one shadow round text and arrow: its margins move
        // into the text.
        if (p.text) {
            XtVaSetValues(p.text, XmNmarginWidth, p.textMarginWidth + p.marginWidth, XmNmarginHeight,
                          p.textMarginHeight + p.marginHeight, XmNshadowThickness, 0, NULL);
            p.marginWidth = p.marginHeight = 0;
        }
    }
    p.arrow = XtCreateManagedWidget("Button", xmDrawnButtonWidgetClass, w, args, n);
    XtOverrideTranslations(p.arrow, ArrowTranslations());
    XtAddCallback(p.arrow, XmNexposeCallback, ArrowExposeCallback, w);
}

void ColourScrollBar(Widget sb, Pixel background)
{
    if (!sb)
        return;
    Pixel fg, top, bottom, select;
    XmGetColors(XtScreen(sb), sb->core.colormap, background, &fg, &top, &bottom, &select);
    XtVaSetValues(sb, XmNbackground, background, XmNtroughColor, select, NULL);
}

void BuildShellAndList(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    p.shell = XtVaCreatePopupShell("Shell", vendorShellWidgetClass, w, XmNoverrideRedirect, True,
                                   XmNallowShellResize, True, NULL);
    XtAddCallback(p.shell, XmNdestroyCallback, ShellDestroyed, w);
    Widget frame = XtVaCreateManagedWidget("", xmFrameWidgetClass, p.shell, XmNshadowType, XmSHADOW_OUT,
                                           XmNmarginWidth, 0, XmNmarginHeight, 0, NULL);
    Arg args[16];
    Cardinal n = 0;
    XtSetArg(args[n], XmNselectionPolicy, XmBROWSE_SELECT); n++;
    XtSetArg(args[n], XmNautomaticSelection, True); n++;
    XtSetArg(args[n], XmNitemCount, p.itemCount); n++;
    XtSetArg(args[n], XmNitems, p.items); n++;
    XtSetArg(args[n], XmNvisibleItemCount, p.visibleItemCount > 0 ? p.visibleItemCount : 1); n++;
    XtSetArg(args[n], XmNlistSizePolicy, XmVARIABLE); n++;
    XtSetArg(args[n], XmNnavigationType, XmNONE); n++;
    XtSetArg(args[n], XmNborderWidth, 0); n++;
    XtSetArg(args[n], XmNlistSpacing, 0); n++;
    XtSetArg(args[n], XmNspacing, 0); n++;
    XtSetArg(args[n], XmNlistMarginWidth, p.listMarginWidth); n++;
    XtSetArg(args[n], XmNlistMarginHeight, p.listMarginHeight); n++;
    XtSetArg(args[n], XmNshadowThickness, 0); n++;
    p.list = XmCreateScrolledList(frame, (char *)"List", args, n);
    Widget sw = XtParent(p.list);
    Widget vsb = nullptr, hsb = nullptr;
    XtVaGetValues(sw, XmNverticalScrollBar, &vsb, XmNhorizontalScrollBar, &hsb, NULL);
    ColourScrollBar(vsb, sw->core.background_pixel);
    ColourScrollBar(hsb, sw->core.background_pixel);
    XtOverrideTranslations(p.list, ListTranslations());
    XtManageChild(p.list);
    // The list keeps its own copy of the items.
    XtVaGetValues(p.list, XmNitems, &p.items, XmNitemCount, &p.itemCount, NULL);
}

void ClassInitialize();
void ClassPartInitialize(WidgetClass) {}

void Initialize(Widget, Widget nw, ArgList, Cardinal *)
{
    XwkComboBoxPart &p = Part(nw);
    p.flags = 0;
    p.savedTop = 0;
    p.text = p.arrow = p.shell = p.list = nullptr;
    p.ownedItem = nullptr;
    p.popupTime = (Time)-1;
    p.grabProc = 0;
    p.savedTransfer = 0;
    p.arrowSize = 0;
    Validate(nw);
    if (p.selectedItem)
        p.selectedItem = p.ownedItem = XmStringCopy(p.selectedItem);

    if (p.comboBoxType != XwkPOPUP_LIST) {
        BuildText(nw);
        BuildArrow(nw);
    }
    BuildShellAndList(nw);
    SelectAgain(nw);
    XtRealizeWidget(p.shell);
    XtAddCallback(p.list, XmNdefaultActionCallback, ListDefaultAction, nw);
    ShowSelection(nw);
    if (p.comboBoxType != XwkPOPUP_LIST) {
        Dimension width, height;
        PreferredSize(nw, &width, &height);
        if (nw->core.width == 0)
            nw->core.width = width;
        if (nw->core.height == 0)
            nw->core.height = height;
        Layout(nw);
    }
    if (nw->core.width == 0)
        nw->core.width = 1;
    if (nw->core.height == 0)
        nw->core.height = 1;
    AddScrollBarHandlers(nw);
}

void Destroy(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    CancelPendingGrab(w);
    FreeOwnedItem(w);
    XtRemoveAllCallbacks(w, XmNactivateCallback);
    XtRemoveAllCallbacks(w, XmNselectionCallback);
    XtRemoveAllCallbacks(w, XmNfocusCallback);
    XtRemoveAllCallbacks(w, XmNlosingFocusCallback);
    p.text = p.arrow = p.shell = p.list = nullptr;
}

Boolean SetValues(Widget cw, Widget, Widget nw, ArgList, Cardinal *)
{
    XwkComboBoxPart &o = Part(cw), &p = Part(nw);
    XwkComboBoxWidget oldcb = Combo(cw), cb = Combo(nw);
    Validate(nw);
    // The kind fixes which children exist; only the text's manner can change.
    bool had_text = o.comboBoxType != XwkPOPUP_LIST;
    if ((p.comboBoxType == XwkPOPUP_LIST) == had_text)
        p.comboBoxType = o.comboBoxType;
    if (p.text && p.comboBoxType != o.comboBoxType) {
        bool editable = p.comboBoxType == XwkDROP_DOWN_COMBO_BOX;
        XtVaSetValues(p.text, XmNeditable, editable, XmNcursorPositionVisible, editable, NULL);
    }

    bool list_changed = p.items != o.items || p.itemCount != o.itemCount ||
                        p.visibleItemCount != o.visibleItemCount;
    if (list_changed) {
        if (p.visibleItemCount <= 0)
            p.visibleItemCount = 1;
        XtVaSetValues(p.list, XmNitems, p.items, XmNitemCount, p.items ? p.itemCount : 0,
                      XmNvisibleItemCount, p.visibleItemCount, NULL);
        XtVaGetValues(p.list, XmNitems, &p.items, XmNitemCount, &p.itemCount, NULL);
        ResizeListChain(nw);
    }
    if (p.text && (p.columns != o.columns || p.maxLength != o.maxLength))
        XtVaSetValues(p.text, XmNcolumns, p.columns, XmNmaxLength, p.maxLength, NULL);

    if (p.selectedItem != o.selectedItem) {
        XmString given = p.selectedItem;
        p.selectedItem = given ? XmStringCopy(given) : nullptr;
        if (o.ownedItem)
            XmStringFree(o.ownedItem);
        p.ownedItem = p.selectedItem;
    }
    if (list_changed || p.selectedItem != o.selectedItem || p.selectedPosition != o.selectedPosition)
        SelectAgain(nw);

    bool shape = p.marginWidth != o.marginWidth || p.marginHeight != o.marginHeight ||
                 p.arrowSpacing != o.arrowSpacing || p.arrowPlacement != o.arrowPlacement ||
                 p.highlightThickness != o.highlightThickness || p.columns != o.columns ||
                 cb->manager.shadow_thickness != oldcb->manager.shadow_thickness ||
                 p.shadowType != o.shadowType;
    if (shape && p.comboBoxType != XwkPOPUP_LIST) {
        Dimension width, height;
        PreferredSize(nw, &width, &height);
        nw->core.width = width;
        nw->core.height = height;
        Layout(nw);
        return True;
    }
    return p.comboBoxType != o.comboBoxType;
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

String combo_type_names[] = {(String) "combo_box", (String) "drop_down_combo_box",
                             (String) "drop_down_list", (String) "popup_list"};
String placement_names[] = {(String) "left", (String) "right"};

void ClassInitialize()
{
    base_class_extension.record_type = XmQmotif;
    combo_type_id = XmRepTypeRegister((String)XwkRComboBoxType, combo_type_names, nullptr, 4);
    placement_id = XmRepTypeRegister((String)XwkRArrowPlacement, placement_names, nullptr, 2);
    ParseTranslations();
}

}  // namespace

namespace xwk::combo {

bool IsCombo(Widget w) { return w && XtIsSubclass(w, xwkComboBoxWidgetClass); }

}  // namespace xwk::combo

extern "C" {

XwkComboBoxClassRec xwkComboBoxClassRec = {
    {
        (WidgetClass)&xmManagerClassRec,      // superclass
        (String) "XwkComboBox",               // class_name
        sizeof(XwkComboBoxRec),               // widget_size
        ClassInitialize,                      // class_initialize
        ClassPartInitialize,                  // class_part_initialize
        FALSE,                                // class_inited
        Initialize,                           // initialize
        nullptr,                              // initialize_hook
        XtInheritRealize,                     // realize
        actions, num_actions,                 // actions
        resources, XtNumber(resources),       // resources
        NULLQUARK,                            // xrm_class
        TRUE,                                 // compress_motion
        XtExposeCompressSeries,               // compress_exposure
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
        (String)combo_translations,           // tm_table
        XtInheritQueryGeometry,               // query_geometry
        nullptr,                              // display_accelerator
        (XtPointer)&base_class_extension,     // extension
    },
    {
        GeometryManager,                      // geometry_manager
        XtInheritChangeManaged,               // change_managed
        XtInheritInsertChild,                 // insert_child
        XtInheritDeleteChild,                 // delete_child
        nullptr,                              // extension
    },
    {
        nullptr, 0, sizeof(XmManagerConstraintRec), nullptr, nullptr, nullptr, nullptr,
    },
    {
        XtInheritTranslations,                // translations
        syn_resources, XtNumber(syn_resources),
        nullptr, 0,
        XmInheritParentProcess,
        nullptr,
    },
    {nullptr},
};

WidgetClass xwkComboBoxWidgetClass = (WidgetClass)&xwkComboBoxClassRec;

Widget XwkCreateComboBox(Widget parent, String name, ArgList args, Cardinal num_args)
{
    return XtCreateWidget(name, xwkComboBoxWidgetClass, parent, args, num_args);
}

}  // extern "C"
