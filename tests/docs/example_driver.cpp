// Runs an example program of the reference headless and works it as a user
// would:
//
//     example_driver desk|msgbox|treelist PROGRAM
//
// PROGRAM runs on the private Xvfb with its standard output on a pipe; its
// windows are found on the server (top-level windows by title, controls by
// their place in the window tree) and driven with real input through XTest.
// The driver then waits, with a bound, for the program to exit and checks
// its exit status and the lines it printed.  Some examples run more than
// once, to take each way through them.  Exit status 0: every run passed.
#include "xwktest.h"

#include <stdarg.h>
#include <sys/prctl.h>

#include <chrono>
#include <cmath>
#include <map>

namespace {

// Bounds of the waits.  Generous: a sanitized build starts slowly.
const int kTimeoutMs = 30000;
const int kPaintTimeoutMs = 10000;

// The desk's scale: controls stand at 28 pixels per centimetre.
const double kPixelsPerCm = 28.0;

Display *dpy;
const char *program, *example_name;

struct Child {
    pid_t pid = -1;
    int out = -1;          // read end of the child's standard output
    std::string output;    // what it printed so far
    bool exited = false;
    int status = 0;
} child;

void Drain()
{
    char buf[4096];
    ssize_t n = 1;
    while (child.out >= 0 && (n = read(child.out, buf, sizeof buf)) > 0)
        child.output.append(buf, (size_t)n);
    if (n == 0) {
        close(child.out);
        child.out = -1;
    }
}

// True while the child runs; reaps it once it has ended.
bool ChildRunning()
{
    if (child.pid <= 0 || child.exited)
        return false;
    if (waitpid(child.pid, &child.status, WNOHANG) != child.pid)
        return true;
    child.exited = true;
    return false;
}

[[noreturn]] __attribute__((format(printf, 1, 2))) void Fail(const char *format, ...)
{
    va_list ap;
    va_start(ap, format);
    fprintf(stderr, "FAILED %s: ", example_name);
    vfprintf(stderr, format, ap);
    fprintf(stderr, "\n");
    va_end(ap);
    if (ChildRunning()) {
        kill(child.pid, SIGKILL);
        waitpid(child.pid, &child.status, 0);
        child.exited = true;
        fprintf(stderr, "  the program was still running and has been killed\n");
    } else if (child.exited && WIFEXITED(child.status)) {
        fprintf(stderr, "  the program ended with exit status %d\n", WEXITSTATUS(child.status));
    } else if (child.exited) {
        fprintf(stderr, "  the program was killed by signal %d\n", WTERMSIG(child.status));
    }
    Drain();
    fprintf(stderr, "  its output:\n%s\n", child.output.c_str());
    exit(1);  // the server stops with the process
}

void StartChild()
{
    int fds[2];
    if (pipe(fds) != 0)
        Fail("pipe: %s", strerror(errno));
    fflush(nullptr);
    pid_t pid = fork();
    if (pid < 0)
        Fail("fork: %s", strerror(errno));
    if (pid == 0) {
        // The program must not outlive the driver.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(fds[1], 1);
        close(fds[0]);
        close(fds[1]);
        execl(program, example_name, (char *)nullptr);
        fprintf(stderr, "cannot run %s: %s\n", program, strerror(errno));
        _exit(127);
    }
    close(fds[1]);
    fcntl(fds[0], F_SETFL, O_NONBLOCK);
    child = Child();
    child.pid = pid;
    child.out = fds[0];
}

// Waits, with a bound, until `done`; fails with `what` when the bound passes.
void WaitUntil(const std::function<bool()> &done, int timeout_ms, const std::string &what,
               int poll_ms = 20)
{
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end)
            Fail("%s within %d ms", what.c_str(), timeout_ms);
        poll(nullptr, 0, poll_ms);
    }
}

// Waits, with a bound, for the child to end, and checks that it ended well
// and printed exactly the lines expected.
void ExpectExit(const std::vector<std::string> &lines)
{
    WaitUntil([] { Drain(); return !ChildRunning(); }, kTimeoutMs, "the program did not exit",
              10);
    // The pipe stays open until the last writer is gone.
    while (child.out >= 0) {
        pollfd p = {child.out, POLLIN, 0};
        if (poll(&p, 1, 2000) <= 0)
            break;
        Drain();
    }
    if (!WIFEXITED(child.status) || WEXITSTATUS(child.status) != 0)
        Fail("the program did not end well");
    std::string expected;
    for (const std::string &l : lines)
        expected += l + "\n";
    if (child.output != expected)
        Fail("the output differs; expected:\n%s", expected.c_str());
}

// ---- Windows on the server ---------------------------------------------------

// A viewable window and its viewable children.
struct Win {
    Window id = 0;
    int x = 0, y = 0;            // in root coordinates
    int px = 0, py = 0;          // in the parent
    int w = 0, h = 0;
    std::vector<Win> kids;
    bool operator==(const Win &) const = default;
};

bool Load(Window id, Win *out)
{
    XWindowAttributes a;
    if (!XGetWindowAttributes(dpy, id, &a) || a.map_state != IsViewable)
        return false;
    Window dummy;
    out->id = id;
    out->px = a.x;
    out->py = a.y;
    out->w = a.width;
    out->h = a.height;
    if (!XTranslateCoordinates(dpy, id, DefaultRootWindow(dpy), 0, 0, &out->x, &out->y, &dummy))
        return false;
    Window root, parent, *kids = nullptr;
    unsigned n = 0;
    if (!XQueryTree(dpy, id, &root, &parent, &kids, &n))
        return false;
    for (unsigned i = 0; i < n; i++) {
        Win k;
        if (Load(kids[i], &k))
            out->kids.push_back(k);
    }
    XFree(kids);
    return true;
}

bool Viewable(Window id)
{
    return xwktest::MapState(dpy, id) == IsViewable;
}

// The viewable top-level window with the title, 0 if there is none.  There
// is no window manager: the program's shells are children of the root.
Window FindTop(const std::string &title)
{
    Window root, parent, *kids = nullptr;
    unsigned n = 0;
    Window found = 0;
    if (!XQueryTree(dpy, DefaultRootWindow(dpy), &root, &parent, &kids, &n))
        return 0;
    for (unsigned i = n; i-- > 0 && !found;) {   // top of the stack first
        char *name = nullptr;
        if (Viewable(kids[i]) && XFetchName(dpy, kids[i], &name) && title == name)
            found = kids[i];
        XFree(name);
    }
    XFree(kids);
    return found;
}

// Waits until the window with the title is up and its layout has settled:
// the same window tree, at the same places, twice in a row.
Win WaitForWindow(const std::string &title)
{
    Window id = 0;
    WaitUntil([&] {
        if (!ChildRunning())
            Fail("the program ended before its window \"%s\" came up", title.c_str());
        return (id = FindTop(title)) != 0;
    }, kTimeoutMs, "no window \"" + title + "\"");
    Win w, last;
    WaitUntil([&] {
        w = Win();
        if (!Load(id, &w))
            Fail("the window \"%s\" went away", title.c_str());
        return std::exchange(last, w) == w;
    }, kTimeoutMs, "the window \"" + title + "\" did not settle", 150);
    return w;
}

// Windows without viewable children, large enough to be a control.
std::vector<Win> Leaves(const Win &w)
{
    if (w.kids.empty())
        return w.w >= 8 && w.h >= 8 ? std::vector<Win>{w} : std::vector<Win>{};
    std::vector<Win> out;
    for (const Win &k : w.kids)
        for (const Win &leaf : Leaves(k))
            out.push_back(leaf);
    return out;
}

// The work area of a desk: the window whose children stand at the given
// places (in centimetres), each the top left corner of a control.  Returns
// the children in the order of the places.
std::vector<Win> ControlsAt(const Win &top, const std::vector<std::pair<double, double>> &cm)
{
    std::vector<std::pair<int, int>> px;
    for (auto [x, y] : cm)
        px.push_back({(int)std::lround(x * kPixelsPerCm), (int)std::lround(y * kPixelsPerCm)});
    std::function<std::vector<Win>(const Win &)> search = [&](const Win &w) {
        for (const Win &k : w.kids) {
            // The first control fixes the offset of the area's origin (the
            // form's margins), the others must follow at theirs.
            int dx = k.px - px[0].first, dy = k.py - px[0].second;
            if (std::abs(dx) > 10 || std::abs(dy) > 10)
                continue;
            std::vector<Win> found;
            for (auto [x, y] : px)
                for (const Win &c : w.kids)
                    if (c.px == x + dx && c.py == y + dy) {
                        found.push_back(c);
                        break;
                    }
            if (found.size() == px.size())
                return found;
        }
        for (const Win &k : w.kids)
            if (std::vector<Win> found = search(k); !found.empty())
                return found;
        return std::vector<Win>{};
    };
    std::vector<Win> out = search(top);
    if (out.empty())
        Fail("no work area with controls at the places the program gives");
    return out;
}

void Click(int root_x, int root_y, int times = 1)
{
    xwktest::MovePointer(dpy, root_x, root_y);
    for (int i = 0; i < times; i++) {
        XTestFakeButtonEvent(dpy, 1, True, CurrentTime);
        XTestFakeButtonEvent(dpy, 1, False, CurrentTime);
    }
    XSync(dpy, False);
}

void ClickCenter(const Win &w)
{
    Click(w.x + w.w / 2, w.y + w.h / 2);
}

// ---- The examples -----------------------------------------------------------

// The buttons of the window with the title (a desk's action area, a message
// box's), once it is up: the lowest row of controls, from left to right.
std::vector<Win> Buttons(const char *title, size_t count, Win *window)
{
    *window = WaitForWindow(title);
    std::vector<Win> leaves = Leaves(*window), buttons;
    int lowest = -1;
    for (const Win &l : leaves)
        lowest = std::max(lowest, l.y);
    for (const Win &l : leaves)
        if (std::abs(l.y - lowest) <= 2)
            buttons.push_back(l);
    std::sort(buttons.begin(), buttons.end(), [](const Win &a, const Win &b) { return a.x < b.x; });
    if (buttons.size() != count)
        Fail("\"%s\" shows %zu buttons, not %zu", title, buttons.size(), count);
    return buttons;
}

// A second run of a desk that presses its Cancel button.
void CancelRun(const char *title, const std::vector<std::string> &lines)
{
    StartChild();
    Win desk;
    ClickCenter(Buttons(title, 3, &desk)[1]);
    ExpectExit(lines);
}

// desk.c: fill in the form and press OK; then, in a second run, Cancel.
void DriveDesk()
{
    StartChild();
    Win desk;
    std::vector<Win> buttons = Buttons("Send report", 3, &desk);
    // The places SetLabel, SetEditField and SetCheckBox were given.
    std::vector<Win> controls = ControlsAt(desk, {{0.5, 0.5}, {0.5, 1.5}, {0.5, 2.75}, {0.5, 4.0}});
    // An edit field is its title and, right behind it, the taller text.
    auto text_of = [](const Win &control) {
        std::vector<Win> leaves = Leaves(control);
        if (leaves.size() != 2)
            Fail("an edit field shows %zu windows, not a title and a text", leaves.size());
        return leaves[0].h > leaves[1].h ? leaves[0] : leaves[1];
    };
    Win name = text_of(controls[1]);
    Win copies = text_of(controls[2]);
    std::vector<Win> toggle = Leaves(controls[3]);
    if (toggle.size() != 1)
        Fail("the check box shows %zu windows, not one toggle", toggle.size());

    ClickCenter(name);
    xwktest::TypeText(dpy, "Ada Lovelace");
    ClickCenter(copies);        // the field shows 1: replace it
    xwktest::PressKey(dpy, XK_End);
    xwktest::PressKey(dpy, XK_BackSpace);
    xwktest::TypeText(dpy, "3");
    ClickCenter(toggle[0]);
    ClickCenter(buttons[0]);    // OK
    ExpectExit({"name: Ada Lovelace", "copies: 3", "copy to me: yes"});

    CancelRun("Send report", {"cancelled"});
}

// msgbox.c: Yes and the confirmation; No and a button of the second box;
// No and Escape in the second box.
void DriveMsgBox()
{
    // The button of the question, the second box and its button (-1:
    // Escape, with the pointer over the box: the keyboard follows it).
    struct Run {
        int answer;
        const char *second;
        size_t count;
        int button;
        std::vector<std::string> lines;
    } runs[] = {
        {0, "Information", 1, 0, {"save: yes", "saved"}},
        {1, "Unsaved changes", 3, 1, {"save: no", "changes: keep a copy"}},
        {1, "Unsaved changes", 3, -1, {"save: no", "changes: cancel"}},
    };
    for (const Run &r : runs) {
        Win box;
        StartChild();
        ClickCenter(Buttons("Question", 2, &box)[r.answer]);
        WaitUntil([&] { return !Viewable(box.id); }, kTimeoutMs, "the question stayed up");
        std::vector<Win> buttons = Buttons(r.second, r.count, &box);
        if (r.button >= 0) {
            ClickCenter(buttons[r.button]);
        } else {
            xwktest::MovePointer(dpy, box.x + box.w / 2, box.y + box.h / 2);
            xwktest::PressKey(dpy, XK_Escape);  // the Cancel button
        }
        ExpectExit(r.lines);
    }
}

// The rows of the tree list that are painted as selected: runs of pixels
// other than the background in a column near the right edge, where labels
// do not reach but the selection's fill does.  Each run is [first, end).
std::vector<std::pair<int, int>> SelectedBands(const Win &tree)
{
    xwktest::Capture shot(dpy, tree.id, 0, 0, (unsigned)tree.w, (unsigned)tree.h);
    if (!shot.ok())
        Fail("cannot read the pixels of the tree list");
    int x = tree.w - 8;
    std::map<unsigned long, int> count;
    for (int y = 0; y < tree.h; y++)
        count[shot.Pixel(x, y)]++;
    unsigned long background = std::max_element(count.begin(), count.end(), [](auto &a, auto &b) {
        return a.second < b.second;
    })->first;
    std::vector<std::pair<int, int>> bands;
    for (int y = 0; y < tree.h; y++) {
        int first = y;
        while (y < tree.h && shot.Pixel(x, y) != background)
            y++;
        if (y > first && first > 0 && y < tree.h)   // the border's shadow is no row
            bands.push_back({first, y});
    }
    return bands;
}

// Waits until exactly one row is painted selected and it is not the row
// at `not_at` (a band centre); returns that row's centre.
int WaitSelectedRow(const Win &tree, int not_at)
{
    int centre = not_at;
    WaitUntil([&] {
        std::vector<std::pair<int, int>> bands = SelectedBands(tree);
        if (bands.size() == 1)
            centre = (bands[0].first + bands[0].second) / 2;
        if (!ChildRunning())
            Fail("the program ended while a row was being selected");
        return std::abs(centre - not_at) > 2;
    }, kPaintTimeoutMs, "no single row other than the last came to be painted selected");
    return centre;
}

// treelist.c: click rows, open a branch with a double click, select a row
// inside it and press OK; then, in a second run, Cancel.
void DriveTreeList()
{
    StartChild();
    Win desk;
    std::vector<Win> buttons = Buttons("Project files", 3, &desk);
    // The list is the largest control of the desk.
    std::vector<Win> leaves = Leaves(desk);
    Win tree = *std::max_element(leaves.begin(), leaves.end(), [](const Win &a, const Win &b) {
        return a.w * a.h < b.w * b.h;
    });
    if (tree.w < (int)(5 * kPixelsPerCm) || tree.h < (int)(4 * kPixelsPerCm))
        Fail("the largest control, %dx%d, is too small to be the tree list", tree.w, tree.h);

    // The first row is current from the start.  Its painted band tells
    // where the rows are: the row below begins at most a band's height
    // below the band's end.
    std::vector<std::pair<int, int>> bands = SelectedBands(tree);
    if (bands.size() != 1)
        Fail("the tree list shows %zu selected rows at start, not one", bands.size());
    int first = (bands[0].first + bands[0].second) / 2;
    int below = bands[0].second + (bands[0].second - bands[0].first);
    int x = tree.x + tree.w * 2 / 3;   // over the rows' labels, right of their start
    Click(x, tree.y + below);                           // main.c
    int second = WaitSelectedRow(tree, first);
    int row = second - first;                           // the height of a row
    if (row < 8 || row > 3 * (bands[0].second - bands[0].first))
        Fail("rows %d pixels apart cannot be right", row);

    Click(x, tree.y + first + 3 * row, 2);              // include: opens it
    int fourth = WaitSelectedRow(tree, second);
    if (std::abs(fourth - (first + 3 * row)) > 2)
        Fail("the fourth row is painted at %d, not %d", fourth, first + 3 * row);
    Click(x, tree.y + first + 4 * row);                 // util.h, shown now
    WaitSelectedRow(tree, fourth);
    ClickCenter(buttons[0]);                            // OK
    ExpectExit({"selected: src", "selected: main.c", "selected: include", "selected: util.h",
                "chosen: include/util.h"});

    CancelRun("Project files", {"selected: src", "cancelled"});
}

}  // namespace

int main(int argc, char **argv)
{
    const std::map<std::string, void (*)()> drivers = {
        {"desk", DriveDesk}, {"msgbox", DriveMsgBox}, {"treelist", DriveTreeList}};
    auto driver = argc == 3 ? drivers.find(argv[1]) : drivers.end();
    if (driver == drivers.end()) {
        fprintf(stderr, "usage: %s desk|msgbox|treelist PROGRAM\n", argv[0]);
        return 2;
    }
    example_name = argv[1];
    program = argv[2];
    signal(SIGPIPE, SIG_IGN);
    dpy = XOpenDisplay(xwktest::DisplayName());  // the program finds it in DISPLAY
    if (!dpy)
        Fail("cannot open the display %s", getenv("DISPLAY"));
    // Windows of the program come and go while the driver looks at them.
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });

    driver->second();

    XCloseDisplay(dpy);
    printf("%s: all runs passed\n", example_name);
    return 0;
}
