/**
 * \file
 * \ingroup interapp
 * \brief Starting programs from the event loop, and pseudo-terminals.
 *
 * XwkRunProcess starts a command line with its standard input, output and
 * error on one end of a socket pair whose other end the Xt loop reads, so
 * that the application is never blocked.  When the program ends, its status
 * is decoded; a failure is shown in a message box titled "Error":
 *
 * | Status | Message |
 * |---|---|
 * | exit code 127 | "Can't execute `path'" and "." or ":" and the output's last chunk |
 * | exit code 2 or 13 | "Can't execute `path':" and the system's text of the code |
 * | other non-zero exit code | "`path' exited:" and the system's text of the code |
 * | killed by a signal | "`path' terminated:" and the signal's name |
 *
 * The exit code is read as an errno by convention: a child that cannot
 * start its program exits with errno.  Only the last chunk of output (up to
 * 8191 bytes) is kept, which is the end of what the program printed.  A
 * started program finds the decimal id of the window of the widget that
 * started it in its environment variable "_XWK_PARENT_WINDOW", and leads a
 * process group of its own.
 *
 * \code
 * XwkRunProcess(button, "make -C src all");
 * \endcode
 *
 * XwkPtyOpen opens the master side of a pseudo-terminal and names its
 * slave; XwkPtyChildInit sets the slave up as a plain terminal in a child.
 */
#ifndef XWK_PROCESS_H
#define XWK_PROCESS_H

#include <X11/Intrinsic.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/**
 * \brief Called when a program started by XwkRunProcessDefaultProc ends,
 * before its status is decoded.
 *
 * \param widget The widget the program was started for, or NULL when it
 *               was destroyed meanwhile.
 * \param data   The data of the XwkRunDoneRec.
 * \param path   The program's path as it was started; owned by the library
 *               and valid during the call only.
 */
typedef void (*XwkRunDoneProc)(Widget widget, XtPointer data, const char *path);

/** A done procedure and its data, for XwkRunProcessDefaultProc.  Copied at
 * the call; the caller may reuse the record. */
typedef struct {
    XwkRunDoneProc proc;  /**< Called at the end of the program; may be NULL. */
    XtPointer data;       /**< Passed to proc. */
} XwkRunDoneRec;

/**
 * \brief A procedure that starts a command line for a widget; the signature
 * of XwkRunProcessDefaultProc without the done record.
 *
 * \param widget  The widget the program is started for.
 * \param command The command line.
 * \return The process id, or -1.
 */
typedef int (*XwkRunProgramProc)(Widget widget, const char *command);

/** The procedure XwkRunProcess starts programs with instead of
 * XwkRunProcessDefaultProc; NULL (the default) for that one.  Set it with
 * XwkSetRunCommand. */
extern XwkRunProgramProc xwkRunProgramProc;

/**
 * \brief Finds a program in the search path.
 *
 * A name beginning with '.' or '/' is returned as it stands, arguments and
 * all.  Otherwise the name ends at its first blank or tab and is looked up:
 * first in the directory of the last successful search, where it must be a
 * regular file executable by others; then in the directories of "PATH" in
 * order, where it must pass access() for execute.  An empty directory in
 * "PATH" is the current directory.  The directory where it was found is
 * remembered for the next search.
 *
 * \param name        The program name, maybe followed by arguments.
 * \param environment A NULL-ended table of "NAME=value" strings whose
 *                    "PATH" entry is used, or NULL for the process's own
 *                    environment.
 * \return A string from malloc, which the caller frees with free(); NULL
 *         when the name is NULL, there is no "PATH" or the program is not
 *         found.
 */
char *XwkFindExecPath(const char *name, char **environment);

/**
 * \brief Starts a command line with its output read on the event loop, and
 * reports its failure in a message box.
 *
 * The command is split as XwkCreateArgList does; a program not beginning
 * with '.' or '/' is looked up with XwkFindExecPath in xwkEnviron (or the
 * process's environment).  The child's standard input, output and error are
 * one end of a socket pair; it leads its own process group, has
 * "_XWK_PARENT_WINDOW" set to the widget's window id, and runs with
 * xwkEnviron merged into its environment when that is set.  When it cannot
 * start the program it prints "Error: Can't run process `program': reason"
 * on its standard error and exits with errno.
 *
 * When the child closes its end, the loop reaps it, calls the done
 * procedure and, while the widget lives, shows the message of its status
 * (see the table at the top of this file); a program that exits with 0
 * shows nothing.  A widget destroyed meanwhile shows no box; the record is
 * freed all the same.
 *
 * \param widget  The widget the program is started for; its window (0 when
 *                unrealized) goes to the child, its application context
 *                reads the output.  NULL uses xwkApp and shows no box.
 * \param command The command line.
 * \param done    A done procedure and its data, or NULL.
 * \return The child's process id, or -1 when the socket pair, the split of
 *         the command or fork failed, or there is no application context.
 */
int XwkRunProcessDefaultProc(Widget widget, const char *command, XwkRunDoneRec *done);

/**
 * \brief Replaces the procedure XwkRunProcess starts programs with.
 * \param proc The procedure; NULL restores XwkRunProcessDefaultProc.
 * \return 0.
 */
int XwkSetRunCommand(XwkRunProgramProc proc);

/**
 * \brief Shows the application busy and starts a command line.
 *
 * Sets the busy status of the widget's application, then starts the
 * command through xwkRunProgramProc when set, else through
 * XwkRunProcessDefaultProc without a done procedure.
 *
 * \param widget  The widget the program is started for.
 * \param command The command line.
 * \return What the start procedure returned: the process id, or -1.
 */
int XwkRunProcess(Widget widget, const char *command);

/**
 * \brief Receives the failures of XwkPtyOpen.
 *
 * \param data     The report data given to XwkPtyOpen.
 * \param format   A printf format with at most one "%s", ending in a
 *                 newline, e.g. "Can't open the pty-multiplexer device
 *                 `%s'.\n".
 * \param argument The device name for the "%s", or NULL when the format
 *                 has none.
 */
typedef void (*XwkPtyReportProc)(XtPointer data, const char *format, const char *argument);

/**
 * \brief Opens the master side of a pseudo-terminal.
 *
 * Tries the multiplexer "/dev/ptmx" first: the slave is "/dev/pts/N",
 * unlocked and checked for read and write access.  Failing that, the old
 * BSD pairs "/dev/ptyXY" and "/dev/ttyXY" are tried in order.
 *
 * \param slave_name Receives the slave's device name, in static storage
 *                   that the next call overwrites, or NULL on failure;
 *                   may be NULL.
 * \param report     Called for each failure with a text and the device
 *                   name; may be NULL.
 * \param report_data Passed to \p report.
 * \return The master's file descriptor, which the caller closes; 0 on
 *         failure.
 */
int XwkPtyOpen(char **slave_name, XwkPtyReportProc report, XtPointer report_data);

/**
 * \brief Sets up the master side of a pseudo-terminal in the parent: makes
 * it non-blocking, keeping its other flags.
 * \param fd The master's file descriptor.
 */
void XwkPtyParentInit(int fd);

/**
 * \brief Sets up the slave side of a pseudo-terminal in the child, before
 * it runs its program.
 *
 * Clears the descriptor's status flags, sets a canonical line with echo,
 * output newline translation, the control characters ^C, ^\\, DEL, ^U and
 * ^D and line discipline 0, and puts "TERM=dumb" into the environment.
 * Failures of the terminal settings are printed with perror.
 *
 * \param fd The slave's file descriptor.
 */
void XwkPtyChildInit(int fd);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
