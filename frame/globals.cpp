#include <Xwk/Frame.h>

XtAppContext xwkApp;
Widget xwkTopLevel;
Widget xwkParentWidget;
Display *xwkDisplay;
float xwkCmWidth;
float xwkCmHeight;
char *xwkHOME;
char *xwkUSER;
int xwkUID;
int *xwkGIDs;
int xwkNumGIDs;
int xargc;
char **xargv;
String *xwkFallbackResources;
Boolean XwkAppExitFlag;
void (*XwkSashRealizeClassOriginalProc)(Widget, XtValueMask *, XSetWindowAttributes *);
void (*XwkLabelExposeClassOriginalProc)(Widget, XEvent *, Region);
char **xwkEnviron;

void *xwkMainWin;
void *xwkMenuBar;
void *xwkDrawingArea;
void *xwkMenuWait;
void *xwkMessageArea;
void *xwkColormap;
void *xwkMaxCellsColormap;
void *xwkHelpFile;
void *xwkHelpPage;
void *xwkHelpAnchor;

static char version_banner[] = "\nXwk GUI Library.\nCopyright (c) the Xwk developers. All rights reserved.\n";
char *XwkVersionString = version_banner;
