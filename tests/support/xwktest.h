// Test support: a private Xvfb per test process, Xt started on it, event
// pumping, real input through XTest and pixels read back with XGetImage.
#ifndef XWK_TEST_SUPPORT_H
#define XWK_TEST_SUPPORT_H

// Every test includes this first: it brings GoogleTest (ahead of the X
// headers, whose macros clash with it), the library, the Motif widgets the
// tests build their windows from, and the standard containers they use.
#include <gtest/gtest.h>

#include <Xwk/Xwk.h>
#include <Xm/XmP.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Separator.h>
#include <Xm/Text.h>
#include <Xm/ToggleB.h>
#include <X11/Intrinsic.h>
#include <X11/Shell.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/Xatom.h>
#include <X11/keysym.h>
#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stddef.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace xwktest {

// Starts the server on first use and sets DISPLAY to it.
// Screen 0 is 24-bit TrueColor, screen 1 8-bit PseudoColor.
const char *DisplayName();
// The name that selects the 8-bit PseudoColor screen, ":N.1".
std::string PseudoColorDisplayName();

// Way B start-up, once per process: XtVaAppInitialize on the test server,
// then XwkInitialize.  Returns the application shell.
Widget StartApp(const char *app_class = "XwkTest", String *fallback = nullptr);
XtAppContext App();
// An application shell on the 8-bit PseudoColor screen (screen 1 of the
// display StartApp opened).  Made once.
Widget PseudoColorShell();

// Processes events and timers until cond() holds or timeout_ms passes.
bool PumpUntil(const std::function<bool()> &cond, int timeout_ms = 3000);
// Processes events and timers for ms milliseconds.
void Pump(int ms);
// Flushes, waits for the server and handles all that is pending.
void Settle();
// True when the widget is realized and its window and all its ancestors are mapped.
bool Viewable(Widget w);
// Waits until the widget's window is viewable.
bool WaitViewable(Widget w, int timeout_ms = 3000);

// Finds a descendant by widget name, pop-ups included; nullptr if none.
Widget FindWidget(Widget root, const char *name);
// Finds the first descendant of the class (pop-ups included).
Widget FindWidgetOfClass(Widget root, WidgetClass wc);

// Real input through XTest, on the display of the widget.
void RootPosition(Widget w, int *x, int *y);
void MovePointer(Display *dpy, int root_x, int root_y);
void Click(Widget w, int x, int y, unsigned button = 1);
void ClickCenter(Widget w, unsigned button = 1);
void PressKey(Display *dpy, KeySym sym, unsigned modifiers_mask = 0);
// A drag with the button: down at (x0, y0) in root coordinates, then the
// pointer moves in steps of step_ms to (x1, y1), and the button comes up.
// Each step is sent from a timer on the widget's own connection, so that a
// modal loop the press starts (a Motif drag, which may grab the server)
// plays the gesture as it comes.  Returns when the button is up and the
// events are handled.
void DragPointer(Widget w, int x0, int y0, int x1, int y1, unsigned button = 2, int steps = 10,
                 int step_ms = 30);
void TypeText(Display *dpy, const char *text);

// A second client: can it take the pointer and the keyboard right now?
// False while this client (or a menu of it) holds a grab or the server.
bool OthersCanGrab();

// Window manager's close: a WM_DELETE_WINDOW client message to the shell.
void SendDeleteWindow(Widget shell);

// ---- A real window manager on the test server ----
// Starts mwm or openbox on the test server with the suite's own
// configuration (tests/support/wm/) and waits until it manages the screen;
// a null name takes the one XWK_TEST_WM names.  New windows do not get the
// focus by themselves.  The manager stops with the process.  Call it before
// StartApp.  False if the manager cannot start.
bool StartWindowManager(const char *name = nullptr);
// The manager started, or "" on a bare server.
std::string WindowManager();
// The manager's frame around a shell: the child of the root that holds it.
Window FrameOf(Widget shell);
// Waits until the manager has reparented the shell and the shell is viewable.
bool WaitManaged(Widget shell, int timeout_ms = 5000);
// The close a user clicks in the manager's own decorations: Close of the
// window menu under mwm, the title bar's close button under openbox.
void CloseFromFrame(Widget shell);
// Drags the title bar of the shell's frame by dx, dy with button 1.
void DragTitle(Widget shell, int dx, int dy);
// Clicks button 1 in the middle of the title bar of the shell's frame.
void ClickTitle(Widget shell);
// True when the keyboard focus is the shell's window or inside it.
bool HasFocus(Widget shell);
// Position of a top-level window among the root's children, bottom first.
int StackingIndex(Display *dpy, Window top);

// ---- Shared pieces of the widget tests ----
// A top-level pop-up shell of the application StartApp made.
Widget Shell(const char *name, int width, int height);
// Manages w, pops its shell up and waits until w is on the screen.
void Show(Widget w, Widget shell, int pump_ms = 150);
// Pumps past the multi-click time, so that the next click is a first one.
void PastMultiClick(Widget w);
// Holds down (or lets go of) the modifier keys of the mask through XTest.
void HoldModifiers(Display *dpy, unsigned mask, bool down);
// Button pressed (held) and released with the pointer at a place of the
// widget; MoveTo moves the pointer there.  Each pumps for ms after.
void MoveTo(Widget w, int x, int y, int ms = 50);
void Press(Widget w, int x, int y, unsigned button = 1, int ms = 50);
void Release(Widget w, unsigned button = 1, int ms = 50);
// A click with modifier keys held.
void ClickWith(Widget w, int x, int y, unsigned modifiers, unsigned button = 1);
// An icon of one colour (an XPM colour name or #RRGGBB), width x height.
XwkIcon *SolidIcon(Widget w, int width, int height, const char *colour);

// The Xt warnings and X errors that come while it stands.
class Warnings {
public:
    Warnings();
    ~Warnings();
    Warnings(const Warnings &) = delete;
    Warnings &operator=(const Warnings &) = delete;
    std::vector<std::string> texts;
    int XErrors();  // after a round trip
};

// A private temporary directory, removed with all it holds.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;
    // The directory itself, or a name in it.
    std::string Path(const std::string &name = "") const;
    // Writes (replaces) a file in it and returns its path; reads one back.
    std::string Write(const std::string &name, const std::string &text) const;
    std::string Read(const std::string &name) const;
private:
    std::string dir_;
};

// Pixels read back from the server.
class Capture {
public:
    Capture(Display *dpy, Window win, int x, int y, unsigned w, unsigned h);
    explicit Capture(Widget w);
    ~Capture();
    Capture(const Capture &) = delete;
    Capture &operator=(const Capture &) = delete;
    bool ok() const { return image_ != nullptr; }
    unsigned long Pixel(int x, int y) const;
    // Number of pixels in the rectangle whose value is pixel.
    int Count(unsigned long pixel, int x, int y, int w, int h) const;
    int width() const;
    int height() const;
private:
    XImage *image_ = nullptr;
};

unsigned long PixelOf(Widget w, const char *resource);  // e.g. XmNbackground
// A string from XtMalloc as a std::string ("<null>" for none), freed.
std::string Take(char *s);
// The text of an XmText or XmTextField widget.
std::string TextOf(Widget text);
// A named colour allocated in the default colormap of the widget's screen.
unsigned long NamedPixel(Widget w, const char *name);

// Integers kept as pointers (list and table data words), and back.
inline XtPointer W(intptr_t v) { return reinterpret_cast<XtPointer>(v); }
inline intptr_t V(XtPointer p) { return reinterpret_cast<intptr_t>(p); }

// A colour to allocate, all three channels of it.
inline XColor Rgb(unsigned short r, unsigned short g, unsigned short b)
{
    XColor c = {};
    c.red = r, c.green = g, c.blue = b;
    c.flags = DoRed | DoGreen | DoBlue;
    return c;
}

// One resource of a widget, read with XtVaGetValues.
template <class T> T Get(Widget w, const char *resource)
{
    T value{};
    XtVaGetValues(w, resource, &value, nullptr);
    return value;
}

// Another client holding every free cell of the 8-bit screen's default map; Store paints one.
class FullPseudoColorMap {
public:
    FullPseudoColorMap();
    ~FullPseudoColorMap();
    FullPseudoColorMap(const FullPseudoColorMap &) = delete;
    FullPseudoColorMap &operator=(const FullPseudoColorMap &) = delete;
    void Store(size_t i, XColor c);
    std::vector<unsigned long> pixels;
private:
    Display *dpy_;
};
// The colour of a cell of the colormap, as the server reads it back.
XColor QueryColour(Display *dpy, Colormap map, unsigned long pixel);
// The map state of a window (IsUnmapped, IsUnviewable, IsViewable), -1 for no such window.
int MapState(Display *dpy, Window w);

// A search procedure of lists and trees: 0 (found) when the data word is arg.
inline int SameWord(XtPointer data, XtPointer arg)
{
    return V(data) == V(arg) ? 0 : 1;
}

// While it stands the library's user globals name another user (uid and group 4242).
struct AnotherUser {
    int uid = xwkUID, count = xwkNumGIDs, *gids = xwkGIDs, mine[1] = {4242};
    AnotherUser()
    {
        xwkUID = 4242;
        xwkGIDs = mine;
        xwkNumGIDs = 1;
    }
    ~AnotherUser()
    {
        xwkUID = uid;
        xwkGIDs = gids;
        xwkNumGIDs = count;
    }
};

}  // namespace xwktest

#endif
