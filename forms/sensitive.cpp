// Sensitivity by hand, so that text widgets deep in a tree keep their text
// selectable while they look disabled.
#include <Xwk/Desk.h>

#include <Xm/XmP.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <X11/IntrinsicP.h>
#include <X11/CompositeP.h>
#include <X11/Xresource.h>

namespace {

struct SavedLook {
    Pixel foreground;
    Pixel background;
    Boolean editable;
    Boolean cursor_visible;
    bool disabled;
};

XContext look_context()
{
    static XContext context;
    if (!context)
        context = (XContext)XrmUniqueQuark();
    return context;
}

SavedLook *find_look(Widget text)
{
    XPointer data = nullptr;
    if (XFindContext(XtDisplay(text), (XID)text, look_context(), &data) != 0)
        return nullptr;
    return (SavedLook *)data;
}

void forget_look(Widget text, XtPointer client_data, XtPointer)
{
    XDeleteContext(XtDisplay(text), (XID)text, look_context());
    delete (SavedLook *)client_data;
}

SavedLook *look_of(Widget text)
{
    SavedLook *look = find_look(text);
    if (look)
        return look;
    look = new SavedLook{};
    XSaveContext(XtDisplay(text), (XID)text, look_context(), (XPointer)look);
    XtAddCallback(text, XtNdestroyCallback, forget_look, look);
    return look;
}

// The first background up the tree, from the grandparent, that differs
// from the text's own; the text's own when there is none.
Pixel surrounding_background(Widget text)
{
    Pixel own = text->core.background_pixel;
    Widget w = XtParent(text) ? XtParent(XtParent(text)) : nullptr;
    for (; w; w = XtParent(w))
        if (XtIsWidget(w) && w->core.background_pixel != own)
            return w->core.background_pixel;
    return own;
}

bool is_text(Widget w)
{
    return XmIsText(w) || XmIsTextField(w);
}

void walk(Widget w, Boolean state, const char *resource)
{
    if (is_text(w)) {
        XwkSetTextSensitive(w, state);
        return;
    }
    bool top = resource == XtNsensitive;
    Boolean current = top ? w->core.sensitive : w->core.ancestor_sensitive;
    if (current != state)
        XtVaSetValues(w, resource, state, NULL);
    // As Xt does: the state goes to the children of a widget whose own
    // ancestors are sensitive, and further down only below a child that is
    // sensitive in itself; under an insensitive one the subtree stays off.
    bool passes = top ? w->core.ancestor_sensitive : w->core.sensitive;
    if (!passes || !XtIsComposite(w))
        return;
    CompositeWidget c = (CompositeWidget)w;
    for (Cardinal i = 0; i < c->composite.num_children; i++) {
        Widget child = c->composite.children[i];
        if (XtIsRectObj(child))
            walk(child, state, XtNancestorSensitive);
    }
}

}  // namespace

void XwkSetTextSensitive(Widget text, Boolean state)
{
    if (!text)
        return;
    SavedLook *look = state ? find_look(text) : look_of(text);
    if (!state && !look->disabled) {
        Pixel bottom = 0;
        XtVaGetValues(text, XmNforeground, &look->foreground, XmNbackground, &look->background,
                      XmNeditable, &look->editable, XmNcursorPositionVisible,
                      &look->cursor_visible, XmNbottomShadowColor, &bottom, NULL);
        look->disabled = true;
        XtVaSetValues(text, XmNeditable, False, XmNcursorPositionVisible, False, XmNbackground,
                      surrounding_background(text), XmNforeground, bottom, NULL);
    } else if (state && look && look->disabled) {
        look->disabled = false;
        XtVaSetValues(text, XmNforeground, look->foreground, XmNbackground, look->background,
                      XmNeditable, look->editable, XmNcursorPositionVisible, look->cursor_visible,
                      NULL);
    }
    XtVaSetValues(text, XtNsensitive, True, XtNancestorSensitive, True, NULL);
}

void XwkSetSensitive(Widget w, Boolean state)
{
    if (!w)
        return;
    walk(w, state ? True : False, XtNsensitive);
}
