/**
 * \file
 * \ingroup companions
 * \brief XmFolder, the folder: pages behind a row of tabs.
 *
 * XmFolder is a Motif manager widget (class name "XmFolder", a subclass of
 * xmManagerWidgetClass) that shows one page at a time below a row of tabs.
 * Each page has a numeric id (from 1, never reused in one folder), a label
 * and an icon, and usually a child widget.  Tabs that do not fit are
 * reached with two arrow buttons at the right of the tab row, or with a
 * popup list of all pages (XmNuseMenu).
 *
 * **Two ways of working.**  With XmNautoManage True (the default) every
 * child becomes a page when it is created: its label is the constraint
 * XmNfolderLabelString or else the child's name, its icon
 * XmNfolderLabelIcon.  The folder manages the child of the active page and
 * unmanages the others; destroying a child deletes its page.  With
 * XmNautoManage False, pages are added with XmFolderAddPage; a child may
 * be bound to a page (XmFolderBindWidgetToFolderId), and the application
 * swaps the content in XmNchangePageCallback, which then comes before the
 * change.
 *
 * **The user.**  A click on a tab shows its page (the press and the
 * release must fall on the same tab).  A click on an arrow scrolls the
 * tabs by one; held, it repeats every 100 ms after 250 ms.  With Shift,
 * the arrows change the page instead.  Button 3 on the tab row pops up the
 * list of pages (with XmNuseMenu).  Keys, also while the focus is inside
 * a page: Ctrl+PageDown, Ctrl+equal and Ctrl+Alt+Tab show the next page,
 * Ctrl+PageUp, Ctrl+minus and Ctrl+Shift+Alt+Tab the previous one,
 * Ctrl+1 to Ctrl+9 page 1 to 9, Ctrl+0 pops up the list of pages.
 *
 * Resources, besides those of XmManager (whose XmNshadowThickness, 0 by
 * default, is the thickness of the tabs' and the page frame's shadows: set
 * it, usually to 2, for visible tabs):
 *
 * | Name | Type | Default | Meaning |
 * |---|---|---|---|
 * | XmNtraversalOn | Boolean | True | |
 * | XmNautoManage | Boolean | True | children are pages |
 * | XmNdoTraversal | Boolean | True | the keyboard focus moves into the page shown |
 * | XmNactivePage | int | 1 | number of the page shown, from 1 |
 * | XmNtopTab | int | 1 | number of the page whose tab is the first shown |
 * | XmNvisibleTabCount | int | 1 | tabs shown (computed, read only) |
 * | XmNactiveTabFontList | XmFontList | NULL | font of the active tab; NULL: XmNtabFontList |
 * | XmNactiveTabOffset | Dimension | 3 | how much higher the active tab stands |
 * | XmNtabFontList | XmFontList | NULL | font of the other tabs; NULL: XmNfontList |
 * | XmNfontList | XmFontList | NULL | NULL: the default render table |
 * | XmNmarginWidth, XmNmarginHeight | Dimension | 2, 2 | round tabs and frame |
 * | XmNtabMarginWidth, XmNtabMarginHeight | Dimension | 6, 2 | inside a tab |
 * | XmNtabCornerSize | Dimension | 0 | kept, not used: tab corners are square |
 * | XmNtabHighlightThickness | Dimension | (Dimension)-1 | added round a tab's inside; -1 takes the "tabHighlightThickness" entry of the screen's resource database (its first byte as the number) or 1; 0 is taken as 2 |
 * | XmNspacing | Dimension | 3 | between icon and text on a tab |
 * | XmNchangePageCallback | callback | | see XmFolderCallbackStruct |
 * | XmNfolderHighlightColor | Pixel | the select colour | fill of the active tab with XmNuseHighlight |
 * | XmNhighlightNonActive | Boolean | False | inactive tabs get a darker fill |
 * | XmNuseHighlight | Boolean | False | active tab and page margins in XmNfolderHighlightColor |
 * | XmNuseTabs | Boolean | True | False draws only the frame |
 * | XmNuseMenu | Boolean | False | creation only: make the popup list "folderList" |
 *
 * Constraint resources of each child:
 *
 * | Name | Type | Default | Meaning |
 * |---|---|---|---|
 * | XmNfolderId | long | 0 | id of the page the child is bound to; 0 none |
 * | XmNfolderLabelString | XmString | NULL | label of its page (XmNautoManage); copied |
 * | XmNfolderLabelIcon | XwkIcon * | NULL | icon of its page (XmNautoManage); borrowed |
 * | XmNfolderMarginWidth, XmNfolderMarginHeight | Dimension | 0, 0 | room left and right, above and below the child in the page |
 *
 * Every function tests the class of the folder (of the child's parent for
 * the functions that take a child) and answers 0, -1 or nothing for a
 * widget of another class.  An unknown id or page number changes nothing
 * and gives 0.  Labels are copied; icons (Xwk/Graphics.h) are borrowed and
 * must outlive their pages.
 */
#ifndef XWK_FOLDER_H
#define XWK_FOLDER_H

#include <Xm/Xm.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

struct _XwkIcon;

/** The class pointer of XmFolder, for XtCreateWidget and XtIsSubclass. */
extern WidgetClass xmFolderWidgetClass;

/** Pointer to the class record of XmFolder (see Xwk/FolderP.h). */
typedef struct _XmFolderClassRec *XmFolderWidgetClass;
/** Pointer to an XmFolder instance record (see Xwk/FolderP.h). */
typedef struct _XmFolderRec *XmFolderWidget;

/* ---- Resource names ------------------------------------------------------ */

/** Resource \c autoManage (Boolean, default True): every child is a page,
 * and the folder manages the child of the active page only. */
#define XmNautoManage ((char *)"autoManage")
/** Resource class of XmNautoManage. */
#define XmCAutoManage ((char *)"AutoManage")
/** Resource \c doTraversal (Boolean, default True): with XmNautoManage the
 * keyboard focus moves into the page shown. */
#define XmNdoTraversal ((char *)"doTraversal")
/** Resource class of XmNdoTraversal. */
#define XmCDoTraversal ((char *)"DoTraversal")
/** Resource \c activePage (int, default 1): number of the page shown, from
 * 1.  Setting it shows that page, without a callback. */
#define XmNactivePage ((char *)"activePage")
/** Resource class of XmNactivePage. */
#define XmCActivePage ((char *)"ActivePage")
/** Resource \c topTab (int, default 1): number of the page whose tab is
 * the first in the row. */
#define XmNtopTab ((char *)"topTab")
/** Resource class of XmNtopTab. */
#define XmCTopTab ((char *)"TopTab")
/** Resource \c visibleTabCount (int, default 1): number of tabs shown,
 * computed at each drawing. */
#define XmNvisibleTabCount ((char *)"visibleTabCount")
/** Resource class of XmNvisibleTabCount. */
#define XmCVisibleTabCount ((char *)"VisibleTabCount")
/** Resource \c activeTabFontList (XmFontList, default NULL): font of the
 * active tab; NULL takes XmNtabFontList.  The folder keeps a copy. */
#define XmNactiveTabFontList ((char *)"activeTabFontList")
/** Resource class of XmNactiveTabFontList. */
#define XmCActiveTabFontList ((char *)"ActiveTabFontList")
/** Resource \c activeTabOffset (Dimension, default 3): how much higher
 * than the others the active tab stands. */
#define XmNactiveTabOffset ((char *)"activeTabOffset")
/** Resource class of XmNactiveTabOffset. */
#define XmCActiveTabOffset ((char *)"ActiveTabOffset")
/** Resource \c tabFontList (XmFontList, default NULL): font of the tabs;
 * NULL takes XmNfontList.  The folder keeps a copy. */
#define XmNtabFontList ((char *)"tabFontList")
/** Resource class of XmNtabFontList. */
#define XmCTabFontList ((char *)"TabFontList")
#ifndef XmNtabMarginWidth
/** Resource \c tabMarginWidth (Dimension, default 6, class
 * XmCMarginWidth): room left and right of a tab's icon and text. */
#define XmNtabMarginWidth ((char *)"tabMarginWidth")
#endif
#ifndef XmNtabMarginHeight
/** Resource \c tabMarginHeight (Dimension, default 2, class
 * XmCMarginHeight): room above and below a tab's icon and text. */
#define XmNtabMarginHeight ((char *)"tabMarginHeight")
#endif
/** Resource \c tabCornerSize (Dimension, default 0): kept and never read;
 * tab corners are square. */
#define XmNtabCornerSize ((char *)"tabCornerSize")
/** Resource class of XmNtabCornerSize. */
#define XmCTabCornerSize ((char *)"TabCornerSize")
/** Resource \c tabHighlightThickness (Dimension, class
 * XmCHighlightThickness, default (Dimension)-1): room round a tab's
 * inside; -1 is resolved at creation, 0 is taken as 2. */
#define XmNtabHighlightThickness ((char *)"tabHighlightThickness")
/** Resource \c changePageCallback (callback list): the page changes or a
 * page goes; the call data is an XmFolderCallbackStruct. */
#define XmNchangePageCallback ((char *)"changePageCallback")
/** Resource \c folderHighlightColor (Pixel, default the select colour of
 * the background): fill of the active tab and the page margins with
 * XmNuseHighlight. */
#define XmNfolderHighlightColor ((char *)"folderHighlightColor")
/** Resource class of XmNfolderHighlightColor. */
#define XmCFolderHighlightColor ((char *)"FolderHighlightColor")
/** Resource \c highlightNonActive (Boolean, default False): the inactive
 * tabs are filled with the select colour of the background. */
#define XmNhighlightNonActive ((char *)"highlightNonActive")
/** Resource class of XmNhighlightNonActive. */
#define XmCHighlightNonActive ((char *)"HighlightNonActive")
/** Resource \c useHighlight (Boolean, default False): the active tab and
 * the margins of the active page are filled with XmNfolderHighlightColor. */
#define XmNuseHighlight ((char *)"useHighlight")
/** Resource class of XmNuseHighlight. */
#define XmCUseHighlight ((char *)"UseHighlight")
/** Resource \c useTabs (Boolean, default True): False draws the frame
 * without tabs. */
#define XmNuseTabs ((char *)"useTabs")
/** Resource class of XmNuseTabs. */
#define XmCUseTabs ((char *)"UseTabs")
/** Resource \c useMenu (Boolean, default False, creation only): the
 * folder makes its popup list of pages, the XwkComboBox "folderList" of
 * the popup_list kind. */
#define XmNuseMenu ((char *)"useMenu")
/** Resource class of XmNuseMenu. */
#define XmCUseMenu ((char *)"UseMenu")

/** Constraint resource \c folderId (long, default 0): id of the page the
 * child is bound to, 0 for none. */
#define XmNfolderId ((char *)"folderId")
/** Resource class of XmNfolderId. */
#define XmCFolderId ((char *)"FolderId")
/** Constraint resource \c folderLabelString (XmString, default NULL):
 * with XmNautoManage, the label of the child's page; NULL takes the
 * child's name.  The child keeps a copy. */
#define XmNfolderLabelString ((char *)"folderLabelString")
/** Resource class of XmNfolderLabelString. */
#define XmCFolderLabelString ((char *)"FolderLabelString")
/** Constraint resource \c folderLabelIcon (pointer to an XwkIcon, default
 * NULL): with XmNautoManage, the icon of the child's page; borrowed. */
#define XmNfolderLabelIcon ((char *)"folderLabelIcon")
/** Resource class of XmNfolderLabelIcon. */
#define XmCFolderLabelIcon ((char *)"FolderLabelIcon")
/** Constraint resource \c folderMarginWidth (Dimension, default 0): room
 * left and right of the child inside the page frame. */
#define XmNfolderMarginWidth ((char *)"folderMarginWidth")
/** Resource class of XmNfolderMarginWidth. */
#define XmCFolderMarginWidth ((char *)"FolderMarginWidth")
/** Constraint resource \c folderMarginHeight (Dimension, default 0): room
 * above and below the child inside the page frame. */
#define XmNfolderMarginHeight ((char *)"folderMarginHeight")
/** Resource class of XmNfolderMarginHeight. */
#define XmCFolderMarginHeight ((char *)"FolderMarginHeight")

/* ---- Callbacks ----------------------------------------------------------- */

/** Reason of XmNchangePageCallback just before a page is deleted with
 * notification (XmFolderDeletePage, the destruction of a page's child);
 * \c toId is that page (546). */
#define XmCR_FOLDER_DELETE_PAGE 546
/** Reason of XmNchangePageCallback just before the folder manages a
 * hidden child to show it; \c toId is the child's page, the other fields
 * are 0 (547). */
#define XmCR_FOLDER_SHOW_PAGE 547

/**
 * Call data of XmNchangePageCallback.
 *
 * | Reason | When |
 * |---|---|
 * | XmCR_ACTIVATE (10) | the user changes the page: a tab, an arrow with Shift, a key |
 * | XmCR_VALUE_CHANGED (2) | XmFolderSetActivePage with notify, a choice in the popup list |
 * | XmCR_FOLDER_DELETE_PAGE (546) | a page is about to go |
 * | XmCR_FOLDER_SHOW_PAGE (547) | a hidden child is about to be managed |
 *
 * With XmNautoManage False the changes (10 and 2) are announced before
 * they happen, so that the application can swap the content; with it True,
 * after.  A callback may add and delete pages, the current one included.
 */
typedef struct {
    int reason;     /**< One of the reasons above. */
    XEvent *event;  /**< The event that caused the call, or NULL. */
    int fromId;     /**< Id of the page shown before (0 for 547). */
    int toId;       /**< Id of the page shown after, deleted or about to be shown. */
} XmFolderCallbackStruct;

/* ---- Functions ----------------------------------------------------------- */

/**
 * Creates an unmanaged folder (XtCreateWidget of xmFolderWidgetClass).
 *
 * \param parent   Parent widget.
 * \param name     Widget name.
 * \param args     Resources to set, or NULL.
 * \param num_args Number of \p args.
 * \return The new folder.
 */
Widget XmCreateFolder(Widget parent, String name, ArgList args, Cardinal num_args);

/**
 * Adds a page without a child at the end, its label made from \p text with
 * the default tag.  The tab is drawn at once when it is in view.
 *
 * \param w    The folder.
 * \param text The label; copied.  NULL gives an empty label.
 * \param icon The icon, or NULL; borrowed.
 * \return The new page's id; 0 for a widget that is no folder.
 */
int XmFolderAddPage(Widget w, char *text, struct _XwkIcon *icon);
/**
 * Deletes a page with notification: XmNchangePageCallback with reason
 * XmCR_FOLDER_DELETE_PAGE first, then the page goes from the list of
 * pages; a child bound to it is unbound and unmanaged.  When it was the
 * active page, the page that takes its number (or the new last page) is
 * shown.  Deleting the last remaining page clears the window.
 *
 * \param w  The folder.
 * \param id The page's id.
 * \return True when the page was deleted; False for an unknown id.
 */
Boolean XmFolderDeletePage(Widget w, int id);
/**
 * Shows a page.
 *
 * \param w      The folder.
 * \param id     The page's id.
 * \param notify True: XmNchangePageCallback with reason XmCR_VALUE_CHANGED
 *               (before the change with XmNautoManage False, after it
 *               otherwise).
 * \return True when the page exists; False with no pages, id 0 or an
 *         unknown id.
 */
Boolean XmFolderSetActivePage(Widget w, int id, Boolean notify);
/**
 * Shows the page of a child, as XmFolderSetActivePage.
 *
 * \param child  A child of the folder bound to a page.
 * \param notify True: XmNchangePageCallback with reason XmCR_VALUE_CHANGED.
 * \return True when the child's page exists.
 */
Boolean XmFolderSetActivePageWidget(Widget child, Boolean notify);
/**
 * The id of the page shown.
 *
 * \param w The folder.
 * \return The id; 0 with no pages.
 */
int XmFolderGetActivePage(Widget w);
/**
 * The child of the page shown.
 *
 * \param w The folder.
 * \return The child, or NULL with no pages or no child bound.
 */
Widget XmFolderGetActivePageWidget(Widget w);
/**
 * The child bound to a page.
 *
 * \param w  The folder.
 * \param id The page's id.
 * \return The child; NULL for an unknown id or a page without a child.
 */
Widget XmFolderGetPageWidget(Widget w, int id);
/**
 * The id of the page at a place in the row of tabs.
 *
 * \param w The folder.
 * \param n The page number, from 1.
 * \return The id; 0 when \p n is out of range.
 */
int XmFolderGetFolderIdByPageNumber(Widget w, int n);
/**
 * The place of a page in the row of tabs.
 *
 * \param w  The folder.
 * \param id The page's id.
 * \return The page number, from 1; 0 for an unknown id.
 */
int XmFolderGetPageNumberByFolderId(Widget w, int id);
/**
 * The id of the page a child is bound to (its XmNfolderId).
 *
 * \param child A child of the folder.
 * \return The id; 0 when the child is bound to none or its parent is no
 *         folder.
 */
int XmFolderGetPageWidgetFolderId(Widget child);
/**
 * The number of pages.
 *
 * \param w The folder.
 * \return The count; -1 for a widget that is no folder.
 */
int XmFolderGetNumPages(Widget w);
/**
 * The height that the highest tab needs: the largest tab content plus
 * twice XmNtabMarginHeight plus XmNactiveTabOffset.
 *
 * \param w The folder.
 * \return The height in pixels; 0 with XmNuseTabs False; 0xFFFF for a
 *         widget that is no folder.
 */
Dimension XmFolderGetTabsHeight(Widget w);
/**
 * Sets the label of a page, and its entry in the popup list.  A label
 * equal to the present one (XmStringCompare) is only copied again.
 *
 * \param w     The folder.
 * \param id    The page's id.
 * \param label The label; copied.  NULL leaves the page without a label
 *              (an empty tab, an empty entry in the popup list).
 * \return True when the page exists.
 */
Boolean XmFolderSetPageLabel(Widget w, int id, XmString label);
/**
 * The label of a page.
 *
 * \param w  The folder.
 * \param id The page's id.
 * \return The folder's own label, not a copy: do not free it, and copy it
 *         to keep it; NULL for an unknown id or a page without a label.
 */
XmString XmFolderGetPageLabel(Widget w, int id);
/**
 * Sets the icon of a page and measures its tab again.
 *
 * \param w    The folder.
 * \param id   The page's id.
 * \param icon The icon, or NULL; borrowed.
 * \return True when the page exists.
 */
Boolean XmFolderSetPageIcon(Widget w, int id, struct _XwkIcon *icon);
/**
 * The icon of a page.
 *
 * \param w  The folder.
 * \param id The page's id.
 * \return The icon, borrowed; NULL for an unknown id or a page without one.
 */
struct _XwkIcon *XmFolderGetPageIcon(Widget w, int id);
/**
 * Places a child in the page area and shows or hides it.  Shown, the
 * child is bound to the active page, managed (after
 * XmCR_FOLDER_SHOW_PAGE when it was unmanaged) and, with XmNdoTraversal
 * and XmNautoManage, given the keyboard focus.  Hidden, it is unmanaged
 * and moved off the screen.
 *
 * \param child A child of the folder.
 * \param show  True to show, False to hide.
 * \return True; False when the parent is no folder.
 */
Boolean XmFolderConfigureChild(Widget child, Boolean show);
/**
 * Binds a child to a page: the page shows the child, the child's
 * XmNfolderId names the page.  The folder lays out again.
 *
 * \param child A child of the folder.
 * \param id    The page's id.
 * \return True, at once when already bound; False for an unknown id.
 */
Boolean XmFolderBindWidgetToFolderId(Widget child, int id);
/**
 * Unbinds a child from every page that shows it, clears its XmNfolderId
 * and lays out again.
 *
 * \param child A child of the folder.
 * \return The number of pages that showed the child; 0 when the parent is
 *         no folder.
 */
unsigned char XmFolderUnbindWidget(Widget child);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
