/**
 * \file
 * \ingroup interapp
 * \brief The help client: showing a widget's help page in the help server.
 *
 * Help is shown by a separate program, the help server
 * "$(C_SMELD)/c-smeld_hs", of which one serves all applications on a host.
 * Widgets carry help data, set with XwkSetHelpData (Xwk/Frame.h): a file, a
 * page and an anchor.  XwkShowHelp makes sure that a server runs, starting
 * one with the widget's help data on its command line when none does, and
 * then owns the selection "<host>:_SMELD_HELP" (the host's node name).  The
 * server watches that selection and asks its owner for the targets
 * "_SMELD_HELP_FILE", "_SMELD_HELP_PAGE" and "_SMELD_HELP_ANCHOR", which
 * the library answers with the help data of the widget (see
 * XwkGetHelpData).
 *
 * The server writes its process id into the property "_SMELD_HELP_PID" of
 * the root window (type "_SMELD_HELP_PID", format 32, one item).  A server
 * whose process is gone is started anew; one of another user is used.
 *
 * The server is started as "c-smeld_hs -display <display> [flags]
 * <file|-man> [page] [anchor] -geometry -0+0 -colormap <id>", where the file
 * is found by XwkFindPath in ".:.." and "-man" (in any case) asks for a
 * manual page.  It goes with the application: the application shell's
 * destruction sends it SIGTERM.
 *
 * The project's own server is installed beside its sample help file; set
 * C_SMELD to that directory.
 */
#ifndef XWK_HELP_H
#define XWK_HELP_H

#include <X11/Intrinsic.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** The process id of the help server known to this application; 0 when
 * none is known.  Set by XwkShowHelp. */
extern int xwkHelpPID;
/** Flags appended to the help server's command line, e.g. "-iconic"; NULL
 * (the default) for none.  Set by the client and never freed. */
extern char *xwkHelpCmdLineFlags;

/**
 * \brief Reads a process id from a property of the root window.
 *
 * The property is read under a server grab; it counts when its type is the
 * property's own atom, its format 32 and it holds one item.
 *
 * \param widget    A widget on the display.
 * \param atom_name The property's name, e.g. "_SMELD_HELP_PID".
 * \return The process id, or 0 when the property is missing or malformed,
 *         or \p widget or \p atom_name is NULL.
 */
int XwkGetHelpPIDProperty(Widget widget, const char *atom_name);

/**
 * \brief Shows the help page of a widget in the help server, starting the
 * server when none runs.
 *
 * A known server process that is alive (kill with signal 0 succeeds or
 * fails with EPERM) is used; otherwise the one named by "_SMELD_HELP_PID";
 * otherwise a new one is started with XwkRunProcess.  A server that cannot
 * be found or started is reported in a message box titled "Error": "Help
 * system is not available!", or "Help data is not available!" when the
 * widget has no help file or it is not found.  Then the widget owns the
 * help selection and answers the server's requests.
 *
 * \param widget The widget whose help data (XwkGetHelpData) is shown; a
 *               gadget owns the selection through its parent.
 * \return True when the selection was owned, False when \p widget is NULL
 *         or being destroyed, went while a failure box stood, or it (or the
 *         widget that would own the selection) is not realized.
 */
Boolean XwkShowHelp(Widget widget);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
