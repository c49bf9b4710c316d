// The file selection desk widget: shared declarations of its sources
// (class, views and scan, dialog and transfers).
#ifndef XWK_FILEDESK_WIDGET_H
#define XWK_FILEDESK_WIDGET_H

#include "filedesk/filedesk_private.h"

#include <Xwk/FileSDP.h>
#include <Xwk/Graphics.h>

#include <string>

struct FsdBuiltinIcon {
    const char *name;
    char **data;
};
extern const FsdBuiltinIcon kFsdBuiltinIcons[FSD_ICON_COUNT];

// The C++ side of a desk, behind XmFileSelectionDeskPart.state.
struct FsdState {
    FsdEntryStore store;
    XtWorkProcId restore_work = 0;
    Widget restore_text = nullptr;
    std::string initial_selection;
    // The hidden detail list still holds a row for every item of the
    // entries, added with this selectionDeskType.
    bool list_rows_kept = false;
    unsigned char list_rows_type = 0;
};

inline XmFileSelectionDeskPart &FsdPart(Widget w)
{
    return reinterpret_cast<XmFileSelectionDeskWidget>(w)->fsd;
}
inline FsdState &FsdStateOf(Widget w) { return *static_cast<FsdState *>(FsdPart(w).state); }
inline XwkIcon *FsdIcon(Widget w, int kind)
{
    return static_cast<XwkIcon *>(FsdPart(w).icons[kind]);
}

// True when the file view is the desk list (not the detail list).
inline bool FsdIsDeskView(Widget w)
{
    return FsdPart(w).file_view && FsdPart(w).file_view == FsdPart(w).file_desk;
}

Boolean FsdIsDesk(Widget w);
void FsdBell(Widget w);
void FsdCallCallbacks(Widget w, XtCallbackList list, int reason, XEvent *event, const char *path,
                      const char *directory, const char *name, struct stat *st);

// views.cpp
void FsdBuildTree(Widget w, const char *path);
void FsdScan(Widget w);
void FsdSetupTreeCallbacks(Widget w);
void FsdCancelSelectTimer(Widget w);
void FsdFreeEntries(Widget w);
void FsdShowPattern(Widget w);
void FsdActivateButton(Widget w, int id, XEvent *event);
void FsdSetDefaultButtonFor(Widget w, FsdFileItem *item);
// Reads a node's sub-directories into the tree when it has none yet and
// selects the named child; True when it read.
bool FsdDescend(Widget w, FsdDirNode *node, const char *name);
// The file view's callbacks; client data the desk.
void FsdViewSelection(Widget view, XtPointer client_data, XtPointer call_data);
void FsdViewDefaultAction(Widget view, XtPointer client_data, XtPointer call_data);
void FsdViewFocus(Widget view, XtPointer client_data, XtPointer call_data);
void FsdStartDrag(Widget view, XtPointer client_data, XtPointer call_data);

// dialog.cpp
void FsdRegisterDropSite(Widget w, Widget site);
void FsdFreeTransfers(Widget w);
void FsdCheckDirectoryChanged(Widget w);

#endif
