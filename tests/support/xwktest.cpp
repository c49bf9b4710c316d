#include "xwktest.h"

#include "xvfb.h"

#include <X11/CompositeP.h>
#include <X11/IntrinsicP.h>
#include <X11/XKBlib.h>

#include <iterator>

namespace xwktest {
namespace {

XwkXvfb server = {-1, -1};
XtAppContext app_context;
Widget app_shell;

struct ServerStopper {
    ~ServerStopper() { xwk_xvfb_stop(&server); }
} stopper;

long NowMs()
{
    timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec * 1000L + ts.tv_nsec / 1000000L;
}

// One step of the loop: dispatch what is there, or wait a little for more.
void Step(XtAppContext app, int wait_ms)
{
    XtInputMask mask = XtAppPending(app);
    if (mask & XtIMXEvent) {
        XwkAppProcessEvents(app);
        return;
    }
    if (mask) {
        XtAppProcessEvent(app, mask);
        return;
    }
    Display *dpy = xwkDisplay;
    if (!dpy)
        return;
    // Idle: let Xt run its work procedures, as XtAppNextEvent does in the
    // real loop, then wait for the guard timer or an earlier one.
    bool fired = false;
    XtIntervalId guard = XtAppAddTimeOut(
        app, wait_ms, [](XtPointer closure, XtIntervalId *) { *(bool *)closure = true; }, &fired);
    XtAppProcessEvent(app, XtIMTimer);
    if (!fired)
        XtRemoveTimeOut(guard);
}

Widget Search(Widget w, const std::function<bool(Widget)> &match)
{
    if (!w)
        return nullptr;
    if (match(w))
        return w;
    // Gadgets (an option menu's label and button) are objects: no core
    // pop-up fields to read.
    for (Cardinal i = 0; XtIsWidget(w) && i < w->core.num_popups; i++)
        if (Widget f = Search(w->core.popup_list[i], match))
            return f;
    if (XtIsComposite(w)) {
        CompositeWidget c = (CompositeWidget)w;
        for (Cardinal i = 0; i < c->composite.num_children; i++)
            if (Widget f = Search(c->composite.children[i], match))
                return f;
    }
    return nullptr;
}

}  // namespace

const char *DisplayName()
{
    if (server.pid <= 0 && xwk_xvfb_start(&server, 0) != 0) {
        fprintf(stderr, "xwktest: cannot start Xvfb\n");
        abort();
    }
    return getenv("DISPLAY");
}

std::string PseudoColorDisplayName()
{
    DisplayName();
    return ":" + std::to_string(server.display) + ".1";
}

Widget StartApp(const char *app_class, String *fallback)
{
    if (app_shell)
        return app_shell;
    DisplayName();
    static int argc = 1;
    static char arg0[] = "xwktest";
    static char *argv[] = {arg0, nullptr};
    app_shell = XtVaAppInitialize(&app_context, app_class, nullptr, 0, &argc, argv,
                                  fallback, XmNwidth, 200, XmNheight, 100, nullptr);
    XwkInitialize(app_context, app_shell);
    return app_shell;
}

XtAppContext App()
{
    return xwkApp ? xwkApp : app_context;
}

Widget PseudoColorShell()
{
    static Widget shell;
    if (shell)
        return shell;
    Widget top = StartApp();
    Display *dpy = XtDisplay(top);
    if (ScreenCount(dpy) < 2) {
        fprintf(stderr, "xwktest: the server has no PseudoColor screen\n");
        abort();
    }
    shell = XtVaAppCreateShell("pseudo", "XwkTest", applicationShellWidgetClass, dpy, XtNscreen,
                               ScreenOfDisplay(dpy, 1), XtNdepth, DefaultDepth(dpy, 1), XtNcolormap,
                               DefaultColormap(dpy, 1), XmNwidth, 60, XmNheight, 40, nullptr);
    return shell;
}

bool PumpUntil(const std::function<bool()> &cond, int timeout_ms)
{
    long end = NowMs() + timeout_ms;
    for (;;) {
        if (cond())
            return true;
        if (NowMs() >= end)
            return false;
        if (xwkDisplay)
            XFlush(xwkDisplay);
        Step(App(), 5);
    }
}

void Pump(int ms)
{
    PumpUntil([] { return false; }, ms);
}

void Settle()
{
    if (!xwkDisplay)
        return;
    for (int round = 0; round < 3; round++) {
        XSync(xwkDisplay, False);
        while (XtAppPending(App()))
            Step(App(), 0);
    }
}

bool Viewable(Widget w)
{
    return w && XtIsRealized(w) && MapState(XtDisplay(w), XtWindow(w)) == IsViewable;
}

bool WaitViewable(Widget w, int timeout_ms)
{
    return PumpUntil([w] { return Viewable(w); }, timeout_ms);
}

Widget FindWidget(Widget root, const char *name)
{
    return Search(root, [name](Widget w) { return std::strcmp(XtName(w), name) == 0; });
}

Widget FindWidgetOfClass(Widget root, WidgetClass wc)
{
    return Search(root, [wc](Widget w) { return XtClass(w) == wc; });
}

bool OthersCanGrab()
{
    Display *other = XOpenDisplay(DisplayName());
    if (!other)
        return false;
    Window root = DefaultRootWindow(other);
    int p = XGrabPointer(other, root, False, ButtonPressMask, GrabModeAsync, GrabModeAsync, None,
                         None, CurrentTime);
    int k = XGrabKeyboard(other, root, False, GrabModeAsync, GrabModeAsync, CurrentTime);
    XUngrabPointer(other, CurrentTime);
    XUngrabKeyboard(other, CurrentTime);
    XCloseDisplay(other);
    return p == GrabSuccess && k == GrabSuccess;
}

void RootPosition(Widget w, int *x, int *y)
{
    Window child;
    Display *dpy = XtDisplay(w);
    XTranslateCoordinates(dpy, XtWindow(w), RootWindowOfScreen(XtScreen(w)), 0, 0, x, y, &child);
}

// XTest moves the pointer within its present screen only: a warp takes it
// to another screen first.
static void PointerTo(Display *dpy, Screen *screen, int root_x, int root_y)
{
    Window root, child;
    int x, y, wx, wy;
    unsigned mask;
    if (!XQueryPointer(dpy, RootWindowOfScreen(screen), &root, &child, &x, &y, &wx, &wy, &mask))
        XWarpPointer(dpy, None, RootWindowOfScreen(screen), 0, 0, 0, 0, root_x, root_y);
    XTestFakeMotionEvent(dpy, XScreenNumberOfScreen(screen), root_x, root_y, CurrentTime);
    XSync(dpy, False);
}

void MovePointer(Display *dpy, int root_x, int root_y)
{
    PointerTo(dpy, ScreenOfDisplay(dpy, 0), root_x, root_y);
}

void Click(Widget w, int x, int y, unsigned button)
{
    Display *dpy = XtDisplay(w);
    int rx, ry;
    RootPosition(w, &rx, &ry);
    PointerTo(dpy, XtScreen(w), rx + x, ry + y);
    XTestFakeButtonEvent(dpy, button, True, CurrentTime);
    XTestFakeButtonEvent(dpy, button, False, CurrentTime);
    XSync(dpy, False);
}

void ClickCenter(Widget w, unsigned button)
{
    Click(w, w->core.width / 2, w->core.height / 2, button);
}

void PressKey(Display *dpy, KeySym sym, unsigned modifiers_mask)
{
    static const struct { unsigned mask; KeySym sym; } mods[] = {
        {ShiftMask, XK_Shift_L}, {ControlMask, XK_Control_L}, {Mod1Mask, XK_Alt_L}};
    for (auto &m : mods)
        if (modifiers_mask & m.mask)
            XTestFakeKeyEvent(dpy, XKeysymToKeycode(dpy, m.sym), True, CurrentTime);
    KeyCode code = XKeysymToKeycode(dpy, sym);
    bool shifted = !(modifiers_mask & ShiftMask) && XkbKeycodeToKeysym(dpy, code, 0, 0) != sym &&
                   XkbKeycodeToKeysym(dpy, code, 0, 1) == sym;
    KeyCode shift = XKeysymToKeycode(dpy, XK_Shift_L);
    if (shifted)
        XTestFakeKeyEvent(dpy, shift, True, CurrentTime);
    XTestFakeKeyEvent(dpy, code, True, CurrentTime);
    XTestFakeKeyEvent(dpy, code, False, CurrentTime);
    if (shifted)
        XTestFakeKeyEvent(dpy, shift, False, CurrentTime);
    for (auto &m : mods)
        if (modifiers_mask & m.mask)
            XTestFakeKeyEvent(dpy, XKeysymToKeycode(dpy, m.sym), False, CurrentTime);
    XSync(dpy, False);
}

namespace {
struct Gesture {
    Display *dpy;
    int screen;
    int x0, y0, x1, y1;
    unsigned button;
    int steps, step_ms, step;
    bool done;
    XtIntervalId timer;
};

void GestureStep(XtPointer closure, XtIntervalId *)
{
    auto *g = static_cast<Gesture *>(closure);
    if (++g->step <= g->steps) {
        XTestFakeMotionEvent(g->dpy, g->screen, g->x0 + (g->x1 - g->x0) * g->step / g->steps,
                             g->y0 + (g->y1 - g->y0) * g->step / g->steps, CurrentTime);
        g->timer = XtAppAddTimeOut(App(), g->step_ms, GestureStep, g);
    } else {
        XTestFakeButtonEvent(g->dpy, g->button, False, CurrentTime);
        g->done = true;
        g->timer = 0;
    }
    XFlush(g->dpy);
}
}  // namespace

void DragPointer(Widget w, int x0, int y0, int x1, int y1, unsigned button, int steps, int step_ms)
{
    Gesture g{XtDisplay(w), XScreenNumberOfScreen(XtScreen(w)),
              x0,           y0,
              x1,           y1,
              button,       steps,
              step_ms,      0,
              false,        0};
    PointerTo(g.dpy, XtScreen(w), x0, y0);
    XTestFakeButtonEvent(g.dpy, button, True, CurrentTime);
    XFlush(g.dpy);
    g.timer = XtAppAddTimeOut(App(), step_ms, GestureStep, &g);
    if (!PumpUntil([&] { return g.done; }, (steps + 2) * step_ms + 5000)) {
        XtRemoveTimeOut(g.timer);
        XTestFakeButtonEvent(g.dpy, button, False, CurrentTime);
    }
    Settle();
}

void TypeText(Display *dpy, const char *text)
{
    for (const char *p = text; *p; p++) {
        KeySym sym;
        if (*p == '\n')
            sym = XK_Return;
        else if (*p == ' ')
            sym = XK_space;
        else {
            char one[2] = {*p, 0};
            sym = XStringToKeysym(one);
            if (sym == NoSymbol)
                sym = (KeySym)(unsigned char)*p;
        }
        PressKey(dpy, sym);
    }
}

void SendDeleteWindow(Widget shell)
{
    Display *dpy = XtDisplay(shell);
    XEvent ev;
    std::memset(&ev, 0, sizeof ev);
    ev.xclient.type = ClientMessage;
    ev.xclient.window = XtWindow(shell);
    ev.xclient.message_type = XInternAtom(dpy, "WM_PROTOCOLS", False);
    ev.xclient.format = 32;
    ev.xclient.data.l[0] = (long)XInternAtom(dpy, "WM_DELETE_WINDOW", False);
    ev.xclient.data.l[1] = CurrentTime;
    XSendEvent(dpy, XtWindow(shell), False, NoEventMask, &ev);
    XSync(dpy, False);
}

Capture::Capture(Display *dpy, Window win, int x, int y, unsigned w, unsigned h)
{
    XSync(dpy, False);
    image_ = XGetImage(dpy, win, x, y, w, h, AllPlanes, ZPixmap);
}

Capture::Capture(Widget w)
    : Capture(XtDisplay(w), XtWindow(w), 0, 0, w->core.width, w->core.height)
{
}

Capture::~Capture()
{
    if (image_)
        XDestroyImage(image_);
}

unsigned long Capture::Pixel(int x, int y) const
{
    return XGetPixel(image_, x, y);
}

int Capture::Count(unsigned long pixel, int x, int y, int w, int h) const
{
    int n = 0;
    for (int j = y; j < y + h && j < image_->height; j++)
        for (int i = x; i < x + w && i < image_->width; i++)
            if (XGetPixel(image_, i, j) == pixel)
                n++;
    return n;
}

int Capture::width() const
{
    return image_->width;
}

int Capture::height() const
{
    return image_->height;
}

std::string Take(char *s)
{
    std::string out = s ? s : "<null>";
    XtFree(s);
    return out;
}

std::string TextOf(Widget text)
{
    char *s = XmTextGetString(text);
    std::string out = s ? s : "";
    XtFree(s);
    return out;
}

unsigned long NamedPixel(Widget w, const char *name)
{
    XColor c, exact;
    XAllocNamedColor(XtDisplay(w), DefaultColormapOfScreen(XtScreen(w)), name, &c, &exact);
    return c.pixel;
}

unsigned long PixelOf(Widget w, const char *resource)
{
    Pixel p = 0;
    XtVaGetValues(w, resource, &p, nullptr);
    return p;
}

Widget Shell(const char *name, int width, int height)
{
    return XtVaCreatePopupShell(name, topLevelShellWidgetClass, StartApp(), XtNwidth, width,
                                XtNheight, height, nullptr);
}

void Show(Widget w, Widget shell, int pump_ms)
{
    XtManageChild(w);
    XtPopup(shell, XtGrabNone);
    if (!WaitViewable(w))
        ADD_FAILURE() << XtName(w) << " did not come up";
    Pump(pump_ms);
    Settle();
}

void PastMultiClick(Widget w)
{
    Pump((int)XtGetMultiClickTime(XtDisplay(w)) + 50);
}

void HoldModifiers(Display *dpy, unsigned mask, bool down)
{
    static const struct { unsigned mask; KeySym sym; } mods[] = {
        {ShiftMask, XK_Shift_L}, {ControlMask, XK_Control_L}, {Mod1Mask, XK_Alt_L}};
    for (auto &m : mods)
        if (mask & m.mask)
            XTestFakeKeyEvent(dpy, XKeysymToKeycode(dpy, m.sym), down, CurrentTime);
    XSync(dpy, False);
}

void MoveTo(Widget w, int x, int y, int ms)
{
    int rx, ry;
    RootPosition(w, &rx, &ry);
    PointerTo(XtDisplay(w), XtScreen(w), rx + x, ry + y);
    Pump(ms);
}

void Press(Widget w, int x, int y, unsigned button, int ms)
{
    MoveTo(w, x, y, 0);
    XTestFakeButtonEvent(XtDisplay(w), button, True, CurrentTime);
    XSync(XtDisplay(w), False);
    Pump(ms);
}

void Release(Widget w, unsigned button, int ms)
{
    XTestFakeButtonEvent(XtDisplay(w), button, False, CurrentTime);
    XSync(XtDisplay(w), False);
    Pump(ms);
}

void ClickWith(Widget w, int x, int y, unsigned modifiers, unsigned button)
{
    HoldModifiers(XtDisplay(w), modifiers, true);
    Click(w, x, y, button);
    HoldModifiers(XtDisplay(w), modifiers, false);
}

XwkIcon *SolidIcon(Widget w, int width, int height, const char *colour)
{
    std::string header = std::to_string(width) + " " + std::to_string(height) + " 1 1";
    std::string colours = std::string("x c ") + colour;
    std::string row((size_t)width, 'x');
    std::vector<char *> data{(char *)header.c_str(), (char *)colours.c_str()};
    for (int i = 0; i < height; i++)
        data.push_back((char *)row.c_str());
    return XwkIconCreateFromData(w, data.data());
}

namespace {
Warnings *current_warnings;
int x_errors;

void WarningMsg(String name, String, String, String def, String *, Cardinal *)
{
    if (current_warnings)
        current_warnings->texts.push_back(def ? def : name);
}

void WarningText(String message)
{
    if (current_warnings)
        current_warnings->texts.push_back(message ? message : "");
}

int CountXError(Display *, XErrorEvent *)
{
    x_errors++;
    return 0;
}

XErrorHandler old_x_handler;
}  // namespace

Warnings::Warnings()
{
    current_warnings = this;
    XtAppSetWarningMsgHandler(App(), WarningMsg);
    XtAppSetWarningHandler(App(), WarningText);
    XSync(XtDisplay(StartApp()), False);
    x_errors = 0;
    old_x_handler = XSetErrorHandler(CountXError);
}

Warnings::~Warnings()
{
    XSync(XtDisplay(StartApp()), False);
    XSetErrorHandler(old_x_handler);
    XtAppSetWarningMsgHandler(App(), nullptr);
    XtAppSetWarningHandler(App(), nullptr);
    current_warnings = nullptr;
}

int Warnings::XErrors()
{
    XSync(XtDisplay(StartApp()), False);
    return x_errors;
}

TempDir::TempDir()
{
    char tmpl[] = "/tmp/xwktestXXXXXX";
    if (!mkdtemp(tmpl))
        ADD_FAILURE() << "no temporary directory";
    dir_ = tmpl;
}

TempDir::~TempDir()
{
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
}

std::string TempDir::Path(const std::string &name) const
{
    return name.empty() ? dir_ : dir_ + "/" + name;
}

std::string TempDir::Write(const std::string &name, const std::string &text) const
{
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
}

std::string TempDir::Read(const std::string &name) const
{
    std::ifstream in(Path(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

FullPseudoColorMap::FullPseudoColorMap() : dpy_(XOpenDisplay(PseudoColorDisplayName().c_str()))
{
    Colormap map = DefaultColormap(dpy_, DefaultScreen(dpy_));
    for (unsigned n = 256; n > 0;) {
        std::vector<unsigned long> px(n);
        if (XAllocColorCells(dpy_, map, False, nullptr, 0, px.data(), n)) {
            pixels.insert(pixels.end(), px.begin(), px.end());
            continue;
        }
        n /= 2;
    }
    XSync(dpy_, False);
}

FullPseudoColorMap::~FullPseudoColorMap()
{
    XCloseDisplay(dpy_);
}

void FullPseudoColorMap::Store(size_t i, XColor c)
{
    c.pixel = pixels[i];
    XStoreColor(dpy_, DefaultColormap(dpy_, DefaultScreen(dpy_)), &c);
    XSync(dpy_, False);
}

XColor QueryColour(Display *dpy, Colormap map, unsigned long pixel)
{
    XColor c = {};
    c.pixel = pixel;
    XQueryColor(dpy, map, &c);
    return c;
}

int MapState(Display *dpy, Window w)
{
    XWindowAttributes a;
    return XGetWindowAttributes(dpy, w, &a) ? a.map_state : -1;
}

}  // namespace xwktest
