// Shared pieces of the tree list tests: the instance part, rows added in
// one call, and a list on a shell of its own.
#ifndef XWK_TREE_TEST_H
#define XWK_TREE_TEST_H

#include "xwktest.h"

#include <Xwk/PrjTreeP.h>

namespace treetest {

inline XmPrjTreePart &Part(Widget w)
{
    return ((XmPrjTreeWidget)w)->tree;
}

inline XmPrjTreeNode AddRow(Widget tree, XmPrjTreeNode parent, const char *label,
                            int state = XmSLAM_CLOSE, long data = 0)
{
    return XmPrjTreeAddItem(tree, parent, (char *)label, nullptr, (XtPointer)data, state, nullptr,
                            nullptr, nullptr);
}

// The record of a column by its number, nullptr if none.
inline XmPrjTreeColumnRec *Column(Widget tree, int number)
{
    for (XwkListNode *e = Part(tree).columns->first; e; e = e->next)
        if (((XmPrjTreeColumnRec *)e->data)->number == number)
            return (XmPrjTreeColumnRec *)e->data;
    return nullptr;
}

// A Motif drag runs a loop of its own until the drop: the whole gesture, in
// root coordinates, is queued in the server at once, each step delayed there.
inline void QueuedDrag(Display *dpy, int x, int y, int dx, int dy, unsigned button, int steps = 8)
{
    XTestFakeMotionEvent(dpy, -1, x, y, 0);
    XTestFakeButtonEvent(dpy, button, True, 60);
    for (int step = 1; step <= steps; step++)
        XTestFakeMotionEvent(dpy, -1, x + dx * step / steps, y + dy * step / steps, 60);
    XTestFakeButtonEvent(dpy, button, False, 200);
    XFlush(dpy);
}

// Top and middle of a shown row, counted from the top row, in the list.
inline int RowTop(Widget tree, int row)
{
    XmPrjTreePart &t = Part(tree);
    Dimension shadow = ((XmManagerWidget)tree)->manager.shadow_thickness;
    return t.treeMarginHeight + shadow + (row - t.topRow) * t.rowHeight;
}

inline int RowMiddle(Widget tree, int row) { return RowTop(tree, row) + Part(tree).rowHeight / 2; }

// The fill of a shown row, read back from the screen right of its label.
inline Pixel RowFill(Widget tree, int row)
{
    xwktest::Settle();
    return xwktest::Capture(tree).Pixel(tree->core.width - 12, RowMiddle(tree, row));
}

using Args = std::initializer_list<std::pair<const char *, XtArgVal>>;

// A list, scrolled or bare, made with the arguments given.
inline Widget Create(Widget parent, const char *name, Args args, bool scrolled = true)
{
    std::vector<Arg> a;
    for (auto &[n, v] : args)
        a.push_back({(String)n, v});
    return scrolled ? XmCreateScrolledTreeList(parent, (String)name, a.data(), (Cardinal)a.size())
                    : XmCreatePrjTree(parent, (String)name, a.data(), (Cardinal)a.size());
}

// A list (scrolled or bare) on a shell of its own; Up() shows it.
struct Window {
    Widget shell, tree;
    explicit Window(Args args = {}, int width = 240, int height = 200, bool scrolled = true,
                    const char *name = "list")
    {
        shell = xwktest::Shell("trees", width, height);
        tree = Create(shell, name, args, scrolled);
    }
    ~Window()
    {
        XtDestroyWidget(shell);
        xwktest::Settle();
    }
    void Up(int pump_ms = 150) { xwktest::Show(tree, shell, pump_ms); }
    int RowTop(int row) { return treetest::RowTop(tree, row); }
    int RowMiddle(int row) { return treetest::RowMiddle(tree, row); }
    void ClickRow(int row, unsigned mods = 0, int x = 60)
    {
        xwktest::ClickWith(tree, x, RowMiddle(row), mods);
        xwktest::Pump(80);
    }
    void Key(KeySym sym, unsigned mods = 0, int ms = 80)
    {
        xwktest::PressKey(XtDisplay(tree), sym, mods);
        xwktest::Pump(ms);
    }
};

}  // namespace treetest

#endif
