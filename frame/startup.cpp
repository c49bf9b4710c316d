// Binding the library to one Xt application: user identity, class hooks,
// colour allocation, drag icons and shadow colours.
#include <Xwk/Frame.h>

#include <Xm/XmP.h>
#include <Xm/DragIcon.h>
#include <Xm/LabelP.h>
#include <Xm/SashP.h>
#include <Xm/Screen.h>

#include <grp.h>
#include <pwd.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

namespace {

const int kLibraryMajor = 1;
const int kLibraryMinor = 0;

bool has_gid(int gid)
{
    for (int i = 0; i < xwkNumGIDs; i++)
        if (xwkGIDs[i] == gid)
            return true;
    return false;
}

bool is_member(char **members, const char *user)
{
    for (char **m = members; m && *m; m++)
        if (strcmp(*m, user) == 0)
            return true;
    return false;
}

void add_user_groups()
{
    setgrent();
    while (struct group *g = getgrent()) {
        if (xwkUID != 0 && !is_member(g->gr_mem, xwkUSER))
            continue;
        if (has_gid((int)g->gr_gid))
            continue;
        xwkGIDs = (int *)XtRealloc((char *)xwkGIDs, (Cardinal)((xwkNumGIDs + 1) * sizeof(int)));
        xwkGIDs[xwkNumGIDs++] = (int)g->gr_gid;
    }
    endgrent();
}

// Motif calls its colour allocation procedure as returning Status; this keeps
// the call well-typed while XwkFindColor returns a Boolean.
Status alloc_color_through_find_color(Display *display, Colormap colormap, XColor *color)
{
    return XwkFindColor(display, colormap, color) ? 1 : 0;
}

struct DragIconData {
    const char *name;
    int hot_x, hot_y;
    unsigned char bits[32];
    unsigned char mask[32];
};

const DragIconData kInvalidIcon = {
    "invalidDragIcon", 0, 0,
    {0x1f, 0xfc, 0xe7, 0xf3, 0xfb, 0xef, 0x1d, 0xdc, 0xed, 0xde, 0x76, 0xb7, 0xb6, 0xb3, 0xd6, 0xb5,
     0xe6, 0xb6, 0x76, 0xb7, 0xbd, 0xdb, 0x1d, 0xdc, 0xfb, 0xef, 0xe7, 0xf3, 0x1f, 0xfc, 0xff, 0xff},
    {0xe0, 0x03, 0xf8, 0x0f, 0xfc, 0x1f, 0xfe, 0x3f, 0x1e, 0x3f, 0x8f, 0x7f, 0xcf, 0x7f, 0xef, 0x7b,
     0xff, 0x79, 0xff, 0x78, 0x7e, 0x3c, 0xfe, 0x3f, 0xfc, 0x1f, 0xf8, 0x0f, 0xe0, 0x03, 0x00, 0x00}};

const DragIconData kValidIcon = {
    "validDragIcon", 1, 1,
    {0xfc, 0xff, 0xfa, 0xff, 0xf6, 0xff, 0xee, 0xff, 0xde, 0xff, 0xbe, 0xff, 0x7e, 0xff, 0xfe, 0xfe,
     0xfe, 0xfd, 0x3e, 0xfc, 0xb6, 0xff, 0x6a, 0xff, 0x6c, 0xff, 0xdf, 0xfe, 0xdf, 0xfe, 0x3f, 0xfe},
    {0x03, 0x00, 0x07, 0x00, 0x0f, 0x00, 0x1f, 0x00, 0x3f, 0x00, 0x7f, 0x00, 0xff, 0x00, 0xff, 0x01,
     0xff, 0x03, 0xff, 0x03, 0x7f, 0x00, 0xf7, 0x00, 0xf3, 0x00, 0xe0, 0x01, 0xe0, 0x01, 0xc0, 0x01}};

Widget create_drag_icon(Widget xm_screen, const DragIconData &icon)
{
    Display *dpy = XtDisplay(xm_screen);
    Window root = RootWindowOfScreen(XtScreen(xm_screen));
    Pixmap bits = XCreateBitmapFromData(dpy, root, (const char *)icon.bits, 16, 16);
    Pixmap mask = XCreateBitmapFromData(dpy, root, (const char *)icon.mask, 16, 16);
    Arg args[9];
    Cardinal n = 0;
    XtSetArg(args[n], XmNhotX, icon.hot_x); n++;
    XtSetArg(args[n], XmNhotY, icon.hot_y); n++;
    XtSetArg(args[n], XmNwidth, 16); n++;
    XtSetArg(args[n], XmNheight, 16); n++;
    XtSetArg(args[n], XmNdepth, 1); n++;
    XtSetArg(args[n], XmNpixmap, bits); n++;
    XtSetArg(args[n], XmNmask, mask); n++;
    XtSetArg(args[n], XmNoffsetX, -8); n++;
    XtSetArg(args[n], XmNoffsetY, -8); n++;
    return XmCreateDragIcon(xm_screen, (char *)icon.name, args, n);
}

Widget create_source_icon(Widget xm_screen)
{
    static const char blank[1] = {0};
    Display *dpy = XtDisplay(xm_screen);
    Window root = RootWindowOfScreen(XtScreen(xm_screen));
    Pixmap pixel = XCreatePixmapFromBitmapData(dpy, root, (char *)blank, 1, 1, 0, 0, 1);
    Arg args[6];
    Cardinal n = 0;
    XtSetArg(args[n], XmNhotX, 0); n++;
    XtSetArg(args[n], XmNhotY, 0); n++;
    XtSetArg(args[n], XmNwidth, 1); n++;
    XtSetArg(args[n], XmNheight, 1); n++;
    XtSetArg(args[n], XmNdepth, 1); n++;
    XtSetArg(args[n], XmNpixmap, pixel); n++;
    return XmCreateDragIcon(xm_screen, (char *)"sourceDragIcon", args, n);
}

void set_up_drag_icons(Widget shell)
{
    Widget xm_display = XmGetXmDisplay(XtDisplay(shell));
    XtVaSetValues(xm_display,
                  XmNdragInitiatorProtocolStyle, XmDRAG_PREFER_RECEIVER,
                  XmNdragReceiverProtocolStyle, XmDRAG_DYNAMIC, NULL);
    Widget xm_screen = XmGetXmScreen(XtScreen(shell));
    Widget invalid = create_drag_icon(xm_screen, kInvalidIcon);
    Widget valid = create_drag_icon(xm_screen, kValidIcon);
    Widget source = create_source_icon(xm_screen);
    XtVaSetValues(xm_screen,
                  XmNdefaultValidCursorIcon, valid,
                  XmNdefaultInvalidCursorIcon, invalid,
                  XmNdefaultNoneCursorIcon, invalid,
                  XmNdefaultSourceCursorIcon, source, NULL);
}

void put_pixel_resource(XrmDatabase *db, const char *name, Pixel pixel)
{
    XrmValue value;
    value.size = sizeof(Pixel);
    value.addr = (XPointer)&pixel;
    XrmPutResource(db, name, "Pixel", &value);
}

void put_shadow_colors(Widget shell)
{
    Screen *screen = XtScreen(shell);
    XrmDatabase db = XtScreenDatabase(screen);
    Colormap colormap = shell->core.colormap;
    Pixel foreground, top, bottom, select;
    XmGetColors(screen, colormap, shell->core.background_pixel, &foreground, &top, &bottom, &select);
    put_pixel_resource(&db, "*TopShadowColor", top);
    put_pixel_resource(&db, "*BottomShadowColor", bottom);
}

void install_class_hooks()
{
    XwkSashRealizeClassOriginalProc = xmSashClassRec.core_class.realize;
    xmSashClassRec.core_class.realize = XwkSashRealizeClassProc;
    XwkLabelExposeClassOriginalProc = xmLabelClassRec.core_class.expose;
    xmLabelClassRec.core_class.expose = XwkLabelExposeClassProc;
}

}  // namespace

char *XwkGetHomeDir(void)
{
    if (char *home = getenv("HOME"))
        return home;
    struct passwd *pw = nullptr;
    if (const char *user = getenv("USER"))
        pw = getpwnam(user);
    else
        pw = getpwuid(getuid());
    if (!pw || !pw->pw_dir)
        return nullptr;
    // putenv keeps the string: it stays allocated for the life of the process.
    size_t size = strlen(pw->pw_dir) + sizeof "HOME=";
    char *entry = (char *)malloc(size);
    if (!entry)
        return nullptr;
    snprintf(entry, size, "HOME=%s", pw->pw_dir);
    putenv(entry);
    return entry + 5;
}

void XwkInitializeUser(void)
{
    if (xwkGIDs)
        return;
    if (const char *home = XwkGetHomeDir())
        xwkHOME = XtNewString(home);
    xwkUID = (int)getuid();
    xwkGIDs = (int *)XtMalloc(sizeof(int));
    xwkGIDs[0] = (int)getgid();
    xwkNumGIDs = 1;
    struct passwd *pw = getpwuid((uid_t)xwkUID);
    if (!pw || !pw->pw_name)
        return;
    xwkUSER = XtNewString(pw->pw_name);
    add_user_groups();
}

void XwkInitialize(XtAppContext app, Widget toplevel)
{
    static bool initialized;
    if (initialized)
        return;
    initialized = true;

    XwkInitializeUser();
    xwkApp = app;
    xwkTopLevel = toplevel;
    xwkParentWidget = toplevel;
    xwkDisplay = toplevel ? XtDisplay(toplevel) : nullptr;
    xwkCmWidth = 28.0f;
    xwkCmHeight = 28.0f;
    install_class_hooks();
    if (!toplevel)
        return;
    XtVaSetValues(XmGetXmScreen(XtScreen(toplevel)),
                  XmNcolorAllocationProc, alloc_color_through_find_color, NULL);
    set_up_drag_icons(toplevel);
    put_shadow_colors(toplevel);
}

int XwkCheckVersion(int major, int minor)
{
    return major == kLibraryMajor && minor <= kLibraryMinor;
}
