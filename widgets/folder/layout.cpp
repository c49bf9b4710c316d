// The folder's geometry: the tab row, which tabs fit, the preferred size,
// where children go, and changing the page shown.
#include "widgets/folder/folder.h"

#include <Xm/XmP.h>

#include <algorithm>

namespace xwk::folder {

namespace {

bool Alive(Widget child) { return child && !child->core.being_destroyed; }

// Tabs that fit from topTab between marginWidth and limit; *cut is set when
// one did not fit.
int CountTabs(Widget w, int limit, bool *cut)
{
    XmFolderPart &p = Part(w);
    int x = p.marginWidth, count = 0;
    *cut = false;
    for (int i = p.topTab - 1; i < p.pageCount; i++) {
        int tw = TabOuterWidth(w, p.pages[i]);
        if (x + tw > limit) {
            *cut = true;
            break;
        }
        x += tw;
        count++;
    }
    return count;
}

void SetManaging(Widget w, bool on)
{
    if (on)
        Part(w).flags |= XmFOLDER_MANAGING;
    else
        Part(w).flags &= ~XmFOLDER_MANAGING;
}

Widget ActiveChild(Widget w)
{
    XmFolderPart &p = Part(w);
    if (p.pageCount <= 0 || p.activePage < 1 || p.activePage > p.pageCount)
        return nullptr;
    Widget child = p.pages[p.activePage - 1].widget;
    return Alive(child) ? child : nullptr;
}

}  // namespace

int TabInset(Widget w)
{
    return Shadow(w) + Part(w).tabHighlightThickness + Part(w).tabMarginWidth;
}

int TabOuterWidth(Widget w, const XmFolderPage &page) { return 2 * TabInset(w) + page.tabWidth; }

void ComputeTabAreaHeight(Widget w)
{
    XmFolderPart &p = Part(w);
    int tallest = 0;
    for (int i = 0; i < p.pageCount; i++)
        tallest = std::max(tallest, (int)p.pages[i].tabHeight);
    p.maxTabHeight = (Dimension)tallest;
    int h = Shadow(w) + p.marginHeight;
    if (p.useTabs)
        h += tallest + 2 * (p.tabHighlightThickness + p.tabMarginHeight) + p.activeTabOffset;
    p.tabAreaHeight = (Dimension)std::min(h, 0x7FFF);
}

int ArrowSize(Widget w)
{
    XmFolderPart &p = Part(w);
    return std::max(0, p.tabAreaHeight - p.marginHeight - 2 * p.activeTabOffset - p.tabMarginHeight);
}

int LastTopTab(Widget w)
{
    XmFolderPart &p = Part(w);
    return std::max(1, p.pageCount - p.visibleTabCount + 1);
}

void FitTabs(Widget w)
{
    XmFolderPart &p = Part(w);
    int s = Shadow(w), a = ArrowSize(w);
    int left_x = (int)w->core.width - p.marginWidth - 2 * a;
    int right_x = left_x + a + s;
    short ay = (short)(p.marginHeight + p.activeTabOffset);
    p.leftArrow = XRectangle{(short)left_x, ay, (unsigned short)a, (unsigned short)a};
    p.rightArrow = XRectangle{(short)right_x, ay, (unsigned short)a, (unsigned short)a};
    p.topTab = std::clamp(p.topTab, 1, std::max(1, p.pageCount));
    if (p.pageCount == 0) {
        p.visibleTabCount = 0;
        p.leftArrowShown = p.rightArrowShown = False;
        return;
    }
    int limit = p.topTab < 2 ? right_x - 2 * s : left_x - 2 * s;
    bool cut;
    bool overflow = p.leftArrowShown;
    p.visibleTabCount = CountTabs(w, (int)w->core.width - p.marginWidth, &cut);
    overflow = overflow || cut;
    p.rightArrowShown = False;
    p.leftArrowShown = p.topTab != 1 && p.visibleTabCount < p.pageCount;
    if (p.leftArrowShown)
        overflow = true;
    if (!overflow)
        return;
    p.visibleTabCount = CountTabs(w, limit, &cut);
    if (p.visibleTabCount >= 1 && p.topTab + p.visibleTabCount - 1 < p.pageCount)
        p.rightArrowShown = True;
}

void PlaceChild(Widget w, Widget child, bool show, bool traversal)
{
    if (!Alive(child))
        return;
    XmFolderPart &p = Part(w);
    XmFolderConstraintPart &c = Con(child);
    int s = Shadow(w), mw = c.folderMarginWidth, mh = c.folderMarginHeight;
    int x = s + p.marginWidth + mw;
    int width = p.preferredWidth - 2 * x;
    int y, height;
    if (p.useTabs) {
        y = p.tabAreaHeight + mh + s;
        height = p.preferredHeight - s - 2 * mh - p.tabAreaHeight - s - p.marginHeight;
    } else {
        y = s + p.marginHeight + mh;
        height = p.preferredHeight - 2 * y;
    }
    width = std::max(1, width);
    height = std::max(1, height);
    if (!show && XtIsManaged(child)) {
        SetManaging(w, true);
        XtUnmanageChild(child);
        SetManaging(w, false);
    } else if (show && !XtIsManaged(child)) {
        Notify(w, XmCR_FOLDER_SHOW_PAGE, nullptr, 0, (int)c.folderId);
        if (!Alive(child))
            return;
        XtSetMappedWhenManaged(child, False);
        SetManaging(w, true);
        XtManageChild(child);
        SetManaging(w, false);
    }
    if (!show) {
        // Off the screen, so that a hidden page never shows through.
        x += WidthOfScreen(XtScreen(w));
        y += HeightOfScreen(XtScreen(w));
    }
    XtConfigureWidget(child, (Position)std::min(x, 0x7FFF), (Position)std::min(y, 0x7FFF),
                      (Dimension)width, (Dimension)height, child->core.border_width);
    if (!show)
        return;
    XtSetMappedWhenManaged(child, True);
    if (p.doTraversal && p.autoManage && traversal)
        XmProcessTraversal(child, XmTRAVERSE_CURRENT);
}

// The size the pages need: the largest child, the tab row and the frame.
void ComputePreferred(Widget w)
{
    XmFolderPart &p = Part(w);
    ComputeTabAreaHeight(w);
    int s = Shadow(w), widest = 0, tallest = 0;
    for (Cardinal i = 0; i < Folder(w)->composite.num_children; i++) {
        Widget child = Folder(w)->composite.children[i];
        if (!IsPageChild(w, child))
            continue;
        XtWidgetGeometry pref = {};
        XtQueryGeometry(child, nullptr, &pref);
        int cw = (pref.request_mode & CWWidth) ? pref.width : child->core.width;
        int ch = (pref.request_mode & CWHeight) ? pref.height : child->core.height;
        widest = std::max(widest, cw + 2 * Con(child).folderMarginWidth);
        tallest = std::max(tallest, ch + 2 * Con(child).folderMarginHeight);
    }
    int pw = widest + 2 * (p.marginWidth + s);
    int ph = tallest + p.tabAreaHeight + 2 * s + p.marginHeight;
    p.preferredWidth = (Dimension)std::clamp(pw, 1, 0x7FFF);
    p.preferredHeight = (Dimension)std::clamp(ph, 1, 0x7FFF);
}

void Layout(Widget w)
{
    XmFolderPart &p = Part(w);
    p.activePage = std::clamp(p.activePage, 1, std::max(1, p.pageCount));
    ComputePreferred(w);
    p.flags |= XmFOLDER_LAYOUT_VALID;
    if (p.preferredWidth != w->core.width || p.preferredHeight != w->core.height) {
        Dimension rw = 0, rh = 0;
        if (XtMakeResizeRequest(w, p.preferredWidth, p.preferredHeight, &rw, &rh) == XtGeometryAlmost)
            XtMakeResizeRequest(w, rw, rh, nullptr, nullptr);
        p.preferredWidth = std::max<Dimension>(1, w->core.width);
        p.preferredHeight = std::max<Dimension>(1, w->core.height);
    }
    Widget active = ActiveChild(w);
    // Hidden ones first, so that two pages are never up together.
    for (Cardinal i = 0; i < Folder(w)->composite.num_children; i++) {
        Widget child = Folder(w)->composite.children[i];
        if (!IsPageChild(w, child) || child == active)
            continue;
        if (Con(child).folderId == 0 && !p.autoManage) {
            // Content the application manages itself stands in the page area.
            if (XtIsManaged(child))
                PlaceChild(w, child, true, false);
            continue;
        }
        PlaceChild(w, child, false, false);
    }
    if (active)
        PlaceChild(w, active, true, false);
}

void ChangePage(Widget w, int n, bool redraw)
{
    XmFolderPart &p = Part(w);
    if (p.pageCount <= 0)
        return;
    n = std::clamp(n, 1, p.pageCount);
    FitTabs(w);
    if (n < p.topTab || n >= p.topTab + p.visibleTabCount)
        p.topTab = n;
    p.topTab = std::min(p.topTab, p.pageCount - p.visibleTabCount + 1);
    p.topTab = std::clamp(p.topTab, 1, p.pageCount);
    FitTabs(w);
    p.activePage = n;
    if (p.autoManage) {
        Widget shown = ActiveChild(w);
        if (shown)
            PlaceChild(w, shown, true, true);
        for (Cardinal i = 0; i < Folder(w)->composite.num_children; i++) {
            Widget child = Folder(w)->composite.children[i];
            if (child != shown && IsPageChild(w, child) && XtIsManaged(child))
                PlaceChild(w, child, false, false);
        }
    }
    if (!(p.flags & XmFOLDER_LAYOUT_VALID))
        Layout(w);
    if (redraw && XtIsRealized(w)) {
        RedrawStrip(w);
        XFlush(XtDisplay(w));
    }
}

void Resize(Widget w)
{
    XmFolderPart &p = Part(w);
    if (p.pageCount > 0 && p.leftArrowShown && !p.rightArrowShown) {
        // Scrolled to the end: the row stays full up to the last tab.
        int s = Shadow(w), a = ArrowSize(w);
        int x = 2 * a + 3 * s, count = 0;
        for (int i = p.pageCount - 1; i >= 0; i--) {
            int tw = TabOuterWidth(w, p.pages[i]);
            if (x + tw > (int)w->core.width - p.marginWidth)
                break;
            x += tw;
            count++;
        }
        p.topTab = std::max(1, p.pageCount - count + 1);
    }
    bool had_layout = p.preferredHeight != 0;
    p.preferredWidth = std::max<Dimension>(1, w->core.width);
    p.preferredHeight = std::max<Dimension>(1, w->core.height);
    if (XtIsRealized(w)) {
        if (had_layout)
            XClearArea(XtDisplay(w), XtWindow(w), 0, 0, 0, 0, False);
        Redisplay(w, nullptr, nullptr);
    }
    PlaceChild(w, ActiveChild(w), true, false);
}

void ChangeManaged(Widget w)
{
    XmFolderPart &p = Part(w);
    // The folder's own managing and unmanaging of pages needs no new layout.
    if (!(p.flags & XmFOLDER_MANAGING)) {
        p.flags |= XmFOLDER_MANAGED_ONCE;
        Layout(w);
        if (XtIsRealized(w))
            RedrawStrip(w);
    }
    XmeNavigChangeManaged(w);
}

XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *reply)
{
    XmFolderPart &p = Part(w);
    if (p.preferredHeight == 0)
        ComputePreferred(w);
    reply->request_mode = CWWidth | CWHeight;
    reply->width = std::max<Dimension>(1, p.preferredWidth);
    reply->height = std::max<Dimension>(1, p.preferredHeight);
    return XmeReplyToQueryGeometry(w, intended, reply);
}

XtGeometryResult GeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *reply)
{
    if (request->request_mode & ~(CWWidth | CWHeight))
        return XtGeometryNo;
    reply->request_mode = CWWidth | CWHeight;
    reply->width = (request->request_mode & CWWidth) ? request->width : child->core.width;
    reply->height = (request->request_mode & CWHeight) ? request->height : child->core.height;
    return XtGeometryYes;
}

}  // namespace xwk::folder
