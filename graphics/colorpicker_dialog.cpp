// The colour picker dialog: a picker on a desk, run modally.
#include "graphics/colorpicker_private.h"

#include <Xwk/Desk.h>
#include <Xwk/Frame.h>
#include <Xwk/Text.h>

#include <Xm/Xm.h>
#include <X11/IntrinsicP.h>

#include <algorithm>

namespace {

constexpr int kPickerOffset = 4;

Widget shell_of(Widget w)
{
    while (w && !XtIsShell(w))
        w = XtParent(w);
    return w;
}

// The dialog's widgets are made on the screen's colormap, where Motif finds
// their colours, and then move to the picker's own, a copy in which their
// pixels keep those colours.
void use_colormap(Widget w, Colormap colormap)
{
    XtVaSetValues(w, XmNcolormap, colormap, NULL);
    if (XtIsComposite(w)) {
        CompositeWidget c = (CompositeWidget)w;
        for (Cardinal i = 0; i < c->composite.num_children; i++)
            use_colormap(c->composite.children[i], colormap);
    }
}

bool has_writable_cells(Widget w)
{
    Visual *visual = nullptr;
    Widget shell = shell_of(w);
    if (shell)
        XtVaGetValues(shell, XtNvisual, &visual, NULL);
    if (!visual)
        visual = DefaultVisualOfScreen(XtScreen(w));
    return visual->c_class == PseudoColor || visual->c_class == GrayScale;
}

int run(XwkDeskRec *desk)
{
    int button = 0;
    do
        UseDesk(desk, &button);
    while (button == 0);
    return button;
}

}  // namespace

extern "C" Boolean XwkColorPicker(Widget parent, const char *title, XwkPalette *palette,
                                  XColor *color)
{
    if (!color)
        return False;
    XwkDeskRec *desk = nullptr;
    CreateDesk(parent, 2.0f, 2.0f, title ? title : smi18n_gettext("Colour|colorpicker"), &desk);
    if (!desk)
        return False;
    XwkPalette *own = nullptr;
    if (has_writable_cells(desk->form)) {
        own = XwkPaletteCreate(desk->form);
    }
    Widget picker = ColorPicker(desk->work, "colorPicker", own, palette);
    XtVaSetValues(picker, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, kPickerOffset,
                  XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, kPickerOffset, NULL);
    XtWidgetGeometry size = {};
    XtQueryGeometry(picker, nullptr, &size);
    desk->extent_w = (unsigned short)std::max<int>(desk->extent_w, size.width + 2 * kPickerOffset);
    desk->extent_h = (unsigned short)std::max<int>(desk->extent_h, size.height + 2 * kPickerOffset);
    ColorPickerSetColor(picker, color);
    OpenDesk(desk);
    if (own)
        use_colormap(shell_of(desk->form), own->colormap);
    int button = run(desk);
    bool chosen = button == 1;
    if (chosen) {
        ColorPickerGetColor(picker, color);
        XwkPalette *target = palette ? palette : XwkPaletteGetDefault(parent ? parent : xwkTopLevel);
        XColor asked = *color;
        color->pixel = XwkPaletteAlloc(target, &asked);
    }
    if (button != -1)
        CloseDesk(desk);
    if (own) {
        Display *dpy = own->display;
        Colormap colormap = own->colormap;
        XwkPaletteDelete(own);
        XFreeColormap(dpy, colormap);
    }
    return chosen;
}
