// Shared between the files of the combo box.
#ifndef XWK_WIDGETS_COMBO_H
#define XWK_WIDGETS_COMBO_H

#include <Xwk/ComboBoxP.h>

namespace xwk::combo {

inline XwkComboBoxWidget Combo(Widget w) { return (XwkComboBoxWidget)w; }
inline XwkComboBoxPart &Part(Widget w) { return ((XwkComboBoxWidget)w)->combo; }
bool IsCombo(Widget w);

// Layout (layout.cpp).
void PreferredSize(Widget w, Dimension *width, Dimension *height);
void Layout(Widget w);
void Resize(Widget w);
XtGeometryResult GeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *reply);
void SizeAndLayout(Widget w);
void ResizeListChain(Widget w);

// Drawing (draw.cpp).
void Redisplay(Widget w, XEvent *event, Region region);
void DrawHighlight(Widget w, bool on);
void RedrawArrow(Widget w);
void ArrowExposeCallback(Widget arrow, XtPointer closure, XtPointer call_data);

// Popup and grabs (popup.cpp).
void PopupFromArrow(Widget w, XEvent *event);
void PopupAt(Widget w, Position x, Position y);
void Popdown(Widget w);
bool ShellIsUp(Widget w);
void AddScrollBarHandlers(Widget w);
void CancelPendingGrab(Widget w);

// Actions and the selection (actions.cpp).
extern XtActionsRec actions[];
extern const Cardinal num_actions;
extern const char combo_translations[], list_translations[], text_translations[],
    arrow_translations[];
void ParseTranslations();
XtTranslations ListTranslations();
XtTranslations TextTranslations();
XtTranslations ArrowTranslations();
void ShowSelection(Widget w);
void SelectAgain(Widget w);
void CallSelection(Widget w, int reason, XEvent *event);
void ListDefaultAction(Widget list, XtPointer closure, XtPointer call_data);
void TextFocus(Widget text, XtPointer closure, XtPointer call_data);
void TextLosingFocus(Widget text, XtPointer closure, XtPointer call_data);
void FreeOwnedItem(Widget w);

}  // namespace xwk::combo

#endif
