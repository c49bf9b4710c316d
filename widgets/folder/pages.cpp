// The folder's pages: the array of page records, the callbacks that
// announce changes, and the exported operations on pages and children.
//
// A callback may add and delete pages: across one, a page is held by its
// id and looked up again afterwards, never by index or pointer.
#include "widgets/folder/folder.h"

#include <Xwk/ComboBox.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace xwk::folder {

namespace {

bool Alive(Widget child) { return child && !child->core.being_destroyed; }

int ActiveId(Widget w)
{
    XmFolderPart &p = Part(w);
    if (p.pageCount <= 0 || p.activePage < 1 || p.activePage > p.pageCount)
        return 0;
    return p.pages[p.activePage - 1].id;
}

// A page lets go of its child; a label the child owns is copied first.
void Unbind(XmFolderPage &page)
{
    if (LabelOwnedByChild(page))
        page.label = XmStringCopy(page.label);
    page.widget = nullptr;
}

void FreeLabel(XmFolderPage &page)
{
    if (page.label && !LabelOwnedByChild(page))
        XmStringFree(page.label);
    page.label = nullptr;
}

void Hide(Widget w, Widget child)
{
    if (!Alive(child) || !XtIsManaged(child))
        return;
    XmFolderPart &p = Part(w);
    unsigned int was = p.flags & XmFOLDER_MANAGING;
    p.flags |= XmFOLDER_MANAGING;
    XtUnmanageChild(child);
    p.flags = (p.flags & ~XmFOLDER_MANAGING) | was;
}

// The popup list keeps one entry a page, so that positions match page
// numbers: a page without a label has an empty one there.
void AddListItem(Widget list, XmString label, int pos)
{
    if (label) {
        XwkComboBoxAddItem(list, label, pos, False);
        return;
    }
    XmString empty = XmStringCreate((char *)"", (char *)XmFONTLIST_DEFAULT_TAG);
    XwkComboBoxAddItem(list, empty, pos, False);
    XmStringFree(empty);
}

void ClearStrip(Widget w, Bool exposures)
{
    if (!XtIsRealized(w))
        return;
    XClearArea(XtDisplay(w), XtWindow(w), 0, 0, w->core.width, Part(w).tabAreaHeight + Shadow(w) + 1,
               exposures);
}

}  // namespace

bool LabelOwnedByChild(const XmFolderPage &page)
{
    return page.widget && page.label && page.widget->core.constraints &&
           Con(page.widget).folderLabelString == page.label;
}

int IndexOfId(Widget w, int id)
{
    XmFolderPart &p = Part(w);
    if (id == 0)
        return -1;
    for (int i = 0; i < p.pageCount; i++)
        if (p.pages[i].id == id)
            return i;
    return -1;
}

int IndexOfWidget(Widget w, Widget child)
{
    XmFolderPart &p = Part(w);
    for (int i = 0; i < p.pageCount; i++)
        if (p.pages[i].widget == child)
            return i;
    return -1;
}

void MeasurePage(Widget w, XmFolderPage &page)
{
    XmFolderPart &p = Part(w);
    Dimension aw = 0, ah = 0, tw = 0, th = 0;
    if (page.label) {
        XmStringExtent(p.activeTabFontList, page.label, &aw, &ah);
        XmStringExtent(p.tabFontList, page.label, &tw, &th);
    }
    page.textWidth = std::max(aw, tw);
    page.textHeight = std::max(ah, th);
    int iw = page.icon ? (int)page.icon->attributes.width : 0;
    int ih = page.icon ? (int)page.icon->attributes.height : 0;
    page.tabWidth = (Dimension)std::min(0xFFFF, page.textWidth + p.spacing + iw);
    page.tabHeight = (Dimension)std::max((int)page.textHeight, ih);
}

void MeasureAll(Widget w)
{
    XmFolderPart &p = Part(w);
    for (int i = 0; i < p.pageCount; i++)
        MeasurePage(w, p.pages[i]);
    ComputeTabAreaHeight(w);
}

void TabsChanged(Widget w)
{
    XmFolderPart &p = Part(w);
    Dimension old = p.tabAreaHeight;
    ComputeTabAreaHeight(w);
    if (old != p.tabAreaHeight || !(p.flags & XmFOLDER_LAYOUT_VALID)) {
        p.flags &= ~XmFOLDER_LAYOUT_VALID;
        if (!XtIsRealized(w))
            return;
        Layout(w);
        XClearArea(XtDisplay(w), XtWindow(w), 0, 0, 0, 0, True);
        return;
    }
    RedrawStrip(w);
}

int AppendPage(Widget w, XmString label, XwkIcon *icon, Widget child)
{
    XmFolderPart &p = Part(w);
    p.pages = (XmFolderPage *)XtRealloc((char *)p.pages, (Cardinal)((p.pageCount + 1) * sizeof(XmFolderPage)));
    XmFolderPage &page = p.pages[p.pageCount];
    std::memset(&page, 0, sizeof page);
    page.id = p.nextFolderId++;
    page.label = label;
    page.icon = icon;
    page.widget = child;
    MeasurePage(w, page);
    p.pageCount++;
    if (p.folderList)
        AddListItem(p.folderList, label, 0);
    TabsChanged(w);
    return page.id;
}

void SetLabel(Widget w, int index, XmString label, bool free_old)
{
    XmFolderPart &p = Part(w);
    XmFolderPage &page = p.pages[index];
    // Deleted and added again: XmList loses memory when it replaces items.
    if (p.folderList) {
        XwkComboBoxDeletePos(p.folderList, index + 1, False);
        AddListItem(p.folderList, label, index + 1);
    }
    if (free_old && page.label)
        XmStringFree(page.label);
    page.label = label;
    MeasurePage(w, page);
    TabsChanged(w);
}

void Notify(Widget w, int reason, XEvent *event, int from_id, int to_id)
{
    if (w->core.being_destroyed || XtHasCallbacks(w, XmNchangePageCallback) != XtCallbackHasSome)
        return;
    XmFolderCallbackStruct cbs = {reason, event, from_id, to_id};
    XtCallCallbackList(w, Part(w).changePageCallback, &cbs);
}

void ActivateByUser(Widget w, int n, XEvent *event, int reason)
{
    XmFolderPart &p = Part(w);
    if (n < 1 || n > p.pageCount)
        return;
    int from = ActiveId(w), to = p.pages[n - 1].id;
    if (!p.autoManage) {
        Notify(w, reason, event, from, to);
        n = IndexOfId(w, to) + 1;
        if (n < 1)
            return;
    }
    ChangePage(w, n, true);
    if (p.autoManage)
        Notify(w, reason, event, from, to);
}

bool DeletePage(Widget w, int id, bool notify, XEvent *event)
{
    XmFolderPart &p = Part(w);
    if (IndexOfId(w, id) < 0)
        return false;
    // A page deleted again from its own deletion callback goes at once.
    static std::vector<std::pair<Widget, int>> announcing;
    std::pair<Widget, int> key{w, id};
    if (notify && std::find(announcing.begin(), announcing.end(), key) == announcing.end()) {
        announcing.push_back(key);
        Notify(w, XmCR_FOLDER_DELETE_PAGE, event, ActiveId(w), id);
        announcing.erase(std::find(announcing.begin(), announcing.end(), key));
    }
    int index = IndexOfId(w, id);
    if (index < 0)
        return true;  // the callback deleted it
    XmFolderPage &page = p.pages[index];
    Widget child = Alive(page.widget) ? page.widget : nullptr;
    if (child && Con(child).folderId == id)
        Con(child).folderId = 0;
    FreeLabel(page);
    if (p.pageCount == 1) {
        XtFree((char *)p.pages);
        p.pages = nullptr;
        p.pageCount = 0;
        p.activePage = p.topTab = 1;
        p.armedTab = 0;
        if (child && !p.autoManage)
            Hide(w, child);
        if (p.folderList)
            XwkComboBoxDeleteAllItems(p.folderList);
        if (notify && XtIsRealized(w))
            XClearWindow(XtDisplay(w), XtWindow(w));
        ComputeTabAreaHeight(w);
        return true;
    }
    if (p.folderList)
        XwkComboBoxDeletePos(p.folderList, index + 1, False);
    std::memmove(p.pages + index, p.pages + index + 1, (size_t)(p.pageCount - index - 1) * sizeof(XmFolderPage));
    p.pageCount--;
    p.armedTab = 0;
    // Its child is no page any more, whichever way the folder works.
    if (child && IndexOfWidget(w, child) < 0)
        Hide(w, child);
    int number = index + 1;
    if (notify) {
        if (number == p.activePage) {
            p.activePage = std::min(number, p.pageCount);
            ChangePage(w, p.activePage, false);
        } else if (number < p.activePage) {
            p.activePage--;
        }
        ClearStrip(w, True);
    }
    p.activePage = std::clamp(p.activePage, 1, p.pageCount);
    TabsChanged(w);
    return true;
}

void FreePages(Widget w)
{
    XmFolderPart &p = Part(w);
    for (int i = 0; i < p.pageCount; i++) {
        p.pages[i].widget = nullptr;
        if (p.pages[i].label)
            XmStringFree(p.pages[i].label);
    }
    XtFree((char *)p.pages);
    p.pages = nullptr;
    p.pageCount = 0;
}

}  // namespace xwk::folder

using namespace xwk::folder;

extern "C" {

int XmFolderAddPage(Widget w, char *text, XwkIcon *icon)
{
    if (!IsFolder(w))
        return 0;
    XmString label = XmStringCreate(text ? text : (char *)"", (char *)XmFONTLIST_DEFAULT_TAG);
    return AppendPage(w, label, icon, nullptr);
}

Boolean XmFolderDeletePage(Widget w, int id)
{
    return IsFolder(w) && DeletePage(w, id, true, nullptr);
}

Boolean XmFolderSetActivePage(Widget w, int id, Boolean notify)
{
    if (!IsFolder(w) || id == 0)
        return False;
    XmFolderPart &p = Part(w);
    int index = IndexOfId(w, id);
    if (index < 0)
        return False;
    int from = ActiveId(w);
    if (notify && !p.autoManage) {
        Notify(w, XmCR_VALUE_CHANGED, nullptr, from, id);
        index = IndexOfId(w, id);
        if (index < 0)
            return False;
    }
    ChangePage(w, index + 1, true);
    if (notify && p.autoManage)
        Notify(w, XmCR_VALUE_CHANGED, nullptr, from, id);
    return True;
}

Boolean XmFolderSetActivePageWidget(Widget child, Boolean notify)
{
    Widget w = FolderOf(child);
    if (!w)
        return False;
    int index = IndexOfWidget(w, child);
    return index >= 0 && XmFolderSetActivePage(w, Part(w).pages[index].id, notify);
}

int XmFolderGetActivePage(Widget w) { return IsFolder(w) ? ActiveId(w) : 0; }

Widget XmFolderGetActivePageWidget(Widget w)
{
    if (!IsFolder(w) || !ActiveId(w))
        return nullptr;
    return Part(w).pages[Part(w).activePage - 1].widget;
}

Widget XmFolderGetPageWidget(Widget w, int id)
{
    int index = IsFolder(w) ? IndexOfId(w, id) : -1;
    return index >= 0 ? Part(w).pages[index].widget : nullptr;
}

int XmFolderGetFolderIdByPageNumber(Widget w, int n)
{
    if (!IsFolder(w) || n < 1 || n > Part(w).pageCount)
        return 0;
    return Part(w).pages[n - 1].id;
}

int XmFolderGetPageNumberByFolderId(Widget w, int id)
{
    return IsFolder(w) ? IndexOfId(w, id) + 1 : 0;
}

int XmFolderGetPageWidgetFolderId(Widget child)
{
    return FolderOf(child) ? (int)Con(child).folderId : 0;
}

int XmFolderGetNumPages(Widget w) { return IsFolder(w) ? Part(w).pageCount : -1; }

Dimension XmFolderGetTabsHeight(Widget w)
{
    if (!IsFolder(w))
        return 0xFFFF;
    XmFolderPart &p = Part(w);
    if (!p.useTabs)
        return 0;
    return (Dimension)(p.maxTabHeight + 2 * p.tabMarginHeight + p.activeTabOffset);
}

Boolean XmFolderSetPageLabel(Widget w, int id, XmString label)
{
    int index = IsFolder(w) ? IndexOfId(w, id) : -1;
    if (index < 0)
        return False;
    XmFolderPage &page = Part(w).pages[index];
    XmString copy = label ? XmStringCopy(label) : nullptr;
    bool equal = page.label && copy ? XmStringCompare(page.label, copy) : page.label == copy;
    if (LabelOwnedByChild(page)) {
        // The child keeps the label it shows.
        XmFolderConstraintPart &c = Con(page.widget);
        XmString old = c.folderLabelString;
        if (equal)
            page.label = copy;
        else
            SetLabel(w, index, copy, false);
        c.folderLabelString = copy;
        XmStringFree(old);
        return True;
    }
    if (equal) {
        if (page.label)
            XmStringFree(page.label);
        page.label = copy;
        return True;
    }
    SetLabel(w, index, copy, true);
    return True;
}

XmString XmFolderGetPageLabel(Widget w, int id)
{
    int index = IsFolder(w) ? IndexOfId(w, id) : -1;
    return index >= 0 ? Part(w).pages[index].label : nullptr;
}

Boolean XmFolderSetPageIcon(Widget w, int id, XwkIcon *icon)
{
    int index = IsFolder(w) ? IndexOfId(w, id) : -1;
    if (index < 0)
        return False;
    XmFolderPage &page = Part(w).pages[index];
    page.icon = icon;
    MeasurePage(w, page);
    TabsChanged(w);
    return True;
}

XwkIcon *XmFolderGetPageIcon(Widget w, int id)
{
    int index = IsFolder(w) ? IndexOfId(w, id) : -1;
    return index >= 0 ? Part(w).pages[index].icon : nullptr;
}

Boolean XmFolderConfigureChild(Widget child, Boolean show)
{
    Widget w = FolderOf(child);
    if (!w)
        return False;
    XmFolderPart &p = Part(w);
    if (show && ActiveId(w)) {
        XmFolderPage &page = p.pages[p.activePage - 1];
        if (page.widget != child) {
            Unbind(page);
            page.widget = child;
        }
        Con(child).folderId = page.id;
    }
    PlaceChild(w, child, show, true);
    return True;
}

Boolean XmFolderBindWidgetToFolderId(Widget child, int id)
{
    Widget w = FolderOf(child);
    int index = w ? IndexOfId(w, id) : -1;
    if (index < 0)
        return False;
    XmFolderPage &page = Part(w).pages[index];
    if (page.widget == child && Con(child).folderId == id)
        return True;
    if (page.widget)
        Unbind(page);
    page.widget = child;
    Con(child).folderId = id;
    Part(w).flags &= ~XmFOLDER_LAYOUT_VALID;
    Layout(w);
    return True;
}

unsigned char XmFolderUnbindWidget(Widget child)
{
    Widget w = FolderOf(child);
    if (!w)
        return 0;
    XmFolderPart &p = Part(w);
    int count = 0;
    Con(child).folderId = 0;
    for (int i = 0; i < p.pageCount; i++) {
        if (p.pages[i].widget != child)
            continue;
        Unbind(p.pages[i]);
        count++;
    }
    p.flags &= ~XmFOLDER_LAYOUT_VALID;
    Layout(w);
    return (unsigned char)count;
}

}  // extern "C"
