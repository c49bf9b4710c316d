// File error messages by code, with the file tests that decide whether
// they show.
#include <Xwk/Dialogs.h>
#include <Xwk/Text.h>

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

namespace {

// The message text is bounded as the original's buffer was: a long file
// name is cut, never written past the end.
const size_t kMessageSize = 1000;

const char kCommon[] = "Can't %s the file\n^b`%s'^b.";
const char kQuestion[] = "\nDo you wish to write over it?";
const char kQuestionLabels[] = "Overwrite\0Cancel";

// A new file is created and removed again; an existing one is only opened
// for writing, never truncated or removed.
bool writable(const char *file)
{
    int fd = open(file, O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (fd >= 0) {
        close(fd);
        unlink(file);
        return true;
    }
    if (errno != EEXIST)
        return false;
    fd = open(file, O_WRONLY);
    if (fd < 0)
        return false;
    close(fd);
    return true;
}

// Code 6 probes by creating and removing, and an existing file goes with the
// probe: only code 2 leaves a file that was there. Kept for compatibility.
bool openable_then_removed(const char *file)
{
    int fd = open(file, O_WRONLY | O_CREAT, 0600);
    if (fd < 0)
        return false;
    close(fd);
    unlink(file);
    return true;
}

int error_box(Widget w, const char *format, const char *verb, const char *file)
{
    char text[kMessageSize];
    if (verb)
        snprintf(text, sizeof text, smi18n_gettext(format), smi18n_gettext(verb), file);
    else
        snprintf(text, sizeof text, smi18n_gettext(format), file);
    return condit(w, "Error", 1, text, nullptr, 0, 1, 2);
}

// Codes 0 and 10: overwrite, keep, or the window closed.
int question_box(Widget w, const char *format, const char *file)
{
    char text[kMessageSize];
    snprintf(text, sizeof text, smi18n_gettext(format), file, smi18n_gettext(kQuestion));
    int answer = condit(w, "Warning", 4, text, kQuestionLabels, 2, 1, 3);
    switch (answer) {
    case 0:
        return 3;
    case 1:
        unlink(file);
        return 1;
    case 2:
        return 2;
    default:
        return -2;
    }
}

}  // namespace

int err_msg(Widget w, const char *file, int code)
{
    bool test = code >= 0;
    if (!file)
        file = "";
    switch (abs(code)) {
    case 0:
        if (test && access(file, F_OK) != 0)
            return 0;
        return question_box(w, "Already exists the file\n^b`%s'^b.%s", file);
    case 1:
        if (test && access(file, F_OK) == 0)
            return 0;
        return error_box(w, kCommon, "find", file);
    case 2:
        if (test && writable(file))
            return 0;
        return error_box(w, kCommon, "create", file);
    case 4:
        if (test && access(file, R_OK) == 0)
            return 0;
        return error_box(w, kCommon, "read", file);
    case 6:
        if (test && openable_then_removed(file))
            return 0;
        return error_box(w, kCommon, "open", file);
    case 8:
        return error_box(w, "Invalid format of the file\n^b`%s'^b.", nullptr, file);
    case 10:
        return question_box(w, "Has been changed the file\n^b`%s'^b.%s", file);
    case 11:
        return error_box(w, "Not enough memory to load the program\n^b`%s'^b.", nullptr, file);
    default:
        return 0;
    }
}

int err_msg_(Widget *w, const char *file, int *code)
{
    return err_msg(w ? *w : nullptr, file, code ? *code : 0);
}
