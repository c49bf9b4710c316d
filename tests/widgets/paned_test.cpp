// The paned window: layout along either orientation, sashes dragged with the
// pointer and moved with keys, the orientation switch and the pane queries.
#include "xwktest.h"

#include <Xwk/PanedWP.h>
#include <Xm/DrawingA.h>
#include <Xm/SashP.h>

namespace {

// A paned window of count drawing areas, red, green, blue, yellow.
struct Panes {
    Widget shell, paned;
    std::vector<Widget> panes;
    explicit Panes(int count, const char *name = "paned", ArgList args = nullptr, Cardinal n = 0)
    {
        Widget app = xwktest::StartApp();
        shell = xwktest::Shell("panes", 300, 240);
        paned = XwkCreatePanedWindow(shell, (String)name, args, n);
        static const char *colours[] = {"red", "green", "blue", "yellow"};
        for (int i = 0; i < count; i++)
            panes.push_back(XtVaCreateManagedWidget(
                ("pane" + std::to_string(i)).c_str(), xmDrawingAreaWidgetClass, paned, XmNwidth,
                300, XmNheight, 70, XmNbackground, xwktest::NamedPixel(app, colours[i % 4]),
                XmNmarginWidth, 0, XmNmarginHeight, 0, NULL));
        xwktest::Show(paned, shell, 0);
    }
    ~Panes()
    {
        XtDestroyWidget(shell);
        xwktest::Settle();
    }
    std::vector<Widget> Sashes()
    {
        std::vector<Widget> out;
        CompositeWidget c = (CompositeWidget)paned;
        for (Cardinal i = 0; i < c->composite.num_children; i++)
            if (XmIsSash(c->composite.children[i]) && XtIsManaged(c->composite.children[i]))
                out.push_back(c->composite.children[i]);
        return out;
    }
    int Height(int i) { return panes[i]->core.height; }
};

Widget SashOf(Widget pane)
{
    return ((XwkPanedWindowConstraintPtr)pane->core.constraints)->panedw.sash;
}

// Drags the middle of w by dx, dy with button 1.
void Drag(Widget w, int dx, int dy)
{
    int x, y;
    xwktest::RootPosition(w, &x, &y);
    x += w->core.width / 2;
    y += w->core.height / 2;
    xwktest::DragPointer(w, x, y, x + dx, y + dy, 1, 4, 1);
}

TEST(PanedWindow, StacksPanesWithSashesBetween)
{
    Panes p(3);
    EXPECT_EQ(XwkGetPanedWindowPanesCount(p.paned, True), 3);
    EXPECT_EQ(p.Sashes().size(), 2u);
    int y = 3;
    for (Widget pane : p.panes) {
        EXPECT_EQ(pane->core.x, 3);
        EXPECT_EQ(pane->core.y, y);
        EXPECT_EQ(pane->core.width, p.paned->core.width - 6);
        y += pane->core.height + 8;
    }
    EXPECT_EQ(y - 8 + 3, p.paned->core.height);
    // The default indent of -10 puts each sash 10 pixels in from the right.
    for (Widget sash : p.Sashes())
        EXPECT_EQ(sash->core.x + sash->core.width + 10, p.paned->core.width);

    WidgetList list = nullptr;
    ASSERT_EQ(XwkGetPanedWindowPanes(p.paned, &list, True), 3);
    EXPECT_EQ(list[0], p.panes[0]);
    EXPECT_EQ(list[2], p.panes[2]);
    XtFree((char *)list);
    Dimension sash_size = XwkGetPaneSashSize(p.panes[0]);
    EXPECT_GT(sash_size, 0u);
    XtWidgetGeometry preferred = {};
    XtQueryGeometry(p.panes[0], nullptr, &preferred);
    EXPECT_EQ(XwkGetPaneChildSize(p.panes[0]), preferred.height + (int)sash_size);

    XtUnmanageChild(p.panes[1]);
    xwktest::Settle();
    EXPECT_EQ(XwkGetPanedWindowPanesCount(p.paned, True), 2);
    EXPECT_EQ(XwkGetPanedWindowPanesCount(p.paned, False), 3);
    EXPECT_EQ(p.Sashes().size(), 1u);
    // Destroying a pane takes its sash and separator with it.
    size_t before = ((CompositeWidget)p.paned)->composite.num_children;
    XtDestroyWidget(p.panes[1]);
    xwktest::Settle();
    EXPECT_EQ(((CompositeWidget)p.paned)->composite.num_children, before - 3);
    EXPECT_EQ(XwkGetPanedWindowPanesCount(p.paned, False), 2);
}

TEST(PanedWindow, WrongWidgetsAndSinglePane)
{
    Panes p(1);
    EXPECT_EQ(XwkGetPanedWindowPanesCount(p.shell, True), -1);
    WidgetList list = nullptr;
    EXPECT_EQ(XwkGetPanedWindowPanes(p.shell, &list, True), -1);
    EXPECT_EQ(XwkGetPaneSashSize(p.paned), 0xFFFFu);
    EXPECT_EQ(XwkGetPaneSashSize(p.panes[0]), 0u);
    EXPECT_TRUE(p.Sashes().empty());
    XwkTogglePanedWindowOrientation(p.paned);
    EXPECT_EQ(xwktest::Get<unsigned char>(p.paned, XmNorientation), XmVERTICAL);
    XwkTogglePanedWindowOrientation(p.shell);
    XwkConfigureSash(p.shell, True);
}

TEST(PanedWindow, DraggingASashMovesSpaceBetweenNeighbours)
{
    Panes p(3);
    int h0 = p.Height(0), h1 = p.Height(1), h2 = p.Height(2);
    Drag(SashOf(p.panes[0]), 0, 30);
    EXPECT_EQ(p.Height(0), h0 + 30);
    EXPECT_EQ(p.Height(1), h1 - 30);
    EXPECT_EQ(p.Height(2), h2);
    EXPECT_EQ(p.panes[1]->core.y, p.panes[0]->core.y + h0 + 30 + 8);

    Drag(SashOf(p.panes[1]), 0, -20);
    EXPECT_EQ(p.Height(1), h1 - 50);
    EXPECT_EQ(p.Height(2), h2 + 20);
    EXPECT_EQ(p.Height(0), h0 + 30);
}

TEST(PanedWindow, FixedPaneIsSkippedAndHasNoSash)
{
    Panes p(3);
    XtVaSetValues(p.panes[1], XmNpaneMinimum, 70, XmNpaneMaximum, 70, NULL);
    xwktest::Settle();
    // The fixed middle pane keeps its separator but loses its sash.
    ASSERT_EQ(p.Sashes().size(), 1u);
    int h0 = p.Height(0), h2 = p.Height(2);
    Drag(SashOf(p.panes[0]), 0, 25);
    EXPECT_EQ(p.Height(0), h0 + 25);
    EXPECT_EQ(p.Height(1), 70);
    EXPECT_EQ(p.Height(2), h2 - 25);
}

TEST(PanedWindow, KeysWithinTheMultiClickTimeMoveAsOne)
{
    Panes p(2);
    Widget sash = p.Sashes()[0];
    int h0 = p.Height(0);
    XtSetKeyboardFocus(p.shell, sash);
    XmProcessTraversal(sash, XmTRAVERSE_CURRENT);
    xwktest::ClickCenter(p.panes[1]);
    xwktest::Settle();
    XmProcessTraversal(sash, XmTRAVERSE_CURRENT);
    xwktest::Settle();
    for (int i = 0; i < 4; i++)
        xwktest::PressKey(XtDisplay(sash), XK_Down, ControlMask);
    xwktest::Settle();
    EXPECT_EQ(p.Height(0), h0);  // still gathering
    XwkPanedWindowWidget pw = (XwkPanedWindowWidget)p.paned;
    EXPECT_EQ(pw->paned_window.increment, 40);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return pw->paned_window.increment == 0; }));
    xwktest::Settle();
    EXPECT_EQ(p.Height(0), h0 + 40);
}

TEST(PanedWindow, OrientationSwitchesAtRunTime)
{
    Panes p(3);
    Pixel red = xwktest::NamedPixel(p.paned, "red"), blue = xwktest::NamedPixel(p.paned, "blue");
    int w = p.paned->core.width, h = p.paned->core.height;
    xwktest::Capture tall(p.paned);
    ASSERT_TRUE(tall.ok());
    EXPECT_EQ(tall.Pixel(w / 2, 10), red);
    EXPECT_EQ(tall.Pixel(w / 2, h - 10), blue);
    XwkTogglePanedWindowOrientation(p.paned);
    xwktest::Settle();
    EXPECT_EQ(xwktest::Get<unsigned char>(p.paned, XmNorientation), XmHORIZONTAL);
    for (size_t i = 1; i < p.panes.size(); i++) {
        EXPECT_EQ(p.panes[i]->core.y, p.panes[0]->core.y);
        EXPECT_GT(p.panes[i]->core.x, p.panes[i - 1]->core.x + p.panes[i - 1]->core.width);
    }
    for (size_t i = 0; i + 1 < p.panes.size(); i++) {
        Widget sash = SashOf(p.panes[i]);
        int centre = sash->core.x + sash->core.width / 2;
        EXPECT_GT(centre, p.panes[i]->core.x + (int)p.panes[i]->core.width);
        EXPECT_LT(centre, p.panes[i + 1]->core.x);
        EXPECT_EQ(sash->core.y + sash->core.height + 10, p.paned->core.height);
    }
    xwktest::Capture wide(p.paned);
    EXPECT_EQ(wide.Pixel(5, h / 2), red);
    EXPECT_EQ(wide.Pixel(w - 5, h / 2), blue);
    // A horizontal drag now moves the space between columns.
    int w0 = p.panes[0]->core.width;
    Drag(SashOf(p.panes[0]), 15, 0);
    EXPECT_EQ(p.panes[0]->core.width, w0 + 15);

    XwkTogglePanedWindowOrientation(p.paned);
    xwktest::Settle();
    EXPECT_EQ(p.panes[1]->core.x, p.panes[0]->core.x);
    EXPECT_GT(p.panes[1]->core.y, p.panes[0]->core.y);
}

TEST(PanedWindow, FlatSashesRunTheFullLength)
{
    Panes p(2);
    XwkConfigureSash(p.paned, False);
    xwktest::Settle();
    XtResizeWidget(p.shell, 320, 260, 0);
    xwktest::Pump(100);
    xwktest::Settle();
    Widget sash = p.Sashes()[0];
    EXPECT_EQ(sash->core.width, p.paned->core.width);
    EXPECT_EQ(sash->core.height, 6);
    EXPECT_EQ(sash->core.x, 0);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !xwktest::Get<Boolean>(sash, XmNtraversalOn); }));
    // Space given by the sash drag goes to the first pane.
    int h0 = p.Height(0);
    Drag(sash, 0, 20);
    EXPECT_EQ(p.Height(0), h0 + 20);
}

TEST(PanedWindow, NegativeIndentFallsBackToZeroWhenOutside)
{
    Arg args[1];
    XtSetArg(args[0], XmNsashIndent, -1000);
    Panes p(2, "paned", args, 1);
    EXPECT_EQ(p.Sashes()[0]->core.x, 0);
    XtVaSetValues(p.paned, XmNsashIndent, 12, NULL);
    xwktest::Settle();
    EXPECT_EQ(p.Sashes()[0]->core.x, 12);
}

TEST(PanedWindow, ResourceDatabaseSetsOrientation)
{
    XrmDatabase db = XtDatabase(XtDisplay(xwktest::StartApp()));
    XrmPutStringResource(&db, "*sideways.orientation", "horizontal");
    XrmPutStringResource(&db, "*sideways.spacing", "14");
    Panes p(2, "sideways");
    EXPECT_EQ(xwktest::Get<unsigned char>(p.paned, XmNorientation), XmHORIZONTAL);
    EXPECT_EQ(p.panes[1]->core.x, p.panes[0]->core.x + p.panes[0]->core.width + 14);
}

TEST(PanedWindow, InvalidLimitsWarnAndAreRepaired)
{
    Panes p(2);
    xwktest::Warnings log;
    XtVaSetValues(p.panes[0], XmNpaneMinimum, 0, NULL);
    XtVaSetValues(p.panes[1], XmNpaneMinimum, 50, XmNpaneMaximum, 20, NULL);
    ASSERT_EQ(log.texts.size(), 2u);
    EXPECT_NE(log.texts[0].find("Invalid minimum value, must be > 0."), std::string::npos);
    EXPECT_NE(log.texts[1].find("Invalid minimum/maximum value, minimum must be < maximum."),
              std::string::npos);
    EXPECT_EQ(xwktest::Get<Dimension>(p.panes[1], XmNpaneMinimum), 50);
    EXPECT_EQ(xwktest::Get<Dimension>(p.panes[1], XmNpaneMaximum), 51);
}

}  // namespace
