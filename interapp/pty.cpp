// Pseudo-terminals: the multiplexer first, the old BSD pairs after, and the
// terminal settings of a plain line in the child.
#include <Xwk/Process.h>

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termio.h>
#include <unistd.h>

namespace {

// The request numbers of the Linux ioctls, as the terminal driver defines
// them: TIOCGPTN, TIOCSPTLCK, TCGETA, TCSETA and TIOCSETD.
const unsigned long kGetPtyNumber = 0x80045430;
const unsigned long kSetPtyLock = 0x40045431;
const unsigned long kGetTermio = 0x5405;
const unsigned long kSetTermio = 0x5406;
const unsigned long kSetLineDiscipline = 0x5423;

char slave[64];

struct Reporter {
    XwkPtyReportProc proc;
    XtPointer data;

    void operator()(const char *format, const char *argument) const
    {
        if (proc)
            proc(data, format, argument);
    }
};

int fail(int fd, const Reporter &report, const char *format, const char *device)
{
    if (format)
        report(format, device);
    close(fd);
    return 0;
}

// The slave's name into slave; 0 on failure, with the master closed.
int open_multiplexer(const Reporter &report)
{
    const char *device = "/dev/ptmx";
    int fd = open(device, O_RDWR);
    if (fd < 0) {
        report("Can't open the pty-multiplexer device `%s'.\n", device);
        return 0;
    }
    if (!isatty(fd))
        return fail(fd, report, "Can't check the pty-multiplexer device `%s' as a 'real' tty.\n",
                    device);
    if (!ttyname(fd))
        return fail(fd, report, "Can't get the name of the associated slave pty for `%s'.\n",
                    device);
    unsigned int number = 0;
    if (ioctl(fd, kGetPtyNumber, &number) != 0)
        return fail(fd, report, "Can't get pty number of the pty-multiplexer device `%s'.\n",
                    device);
    snprintf(slave, sizeof slave, "/dev/pts/%u", number);
    if (access(slave, R_OK | W_OK) != 0) {
        if (number < 256)
            return fail(fd, report, nullptr, nullptr);
        return fail(fd, report, "Pty number of the pty-multiplexer device `%s' must be < 256.\n",
                    device);
    }
    int unlock = 0;
    if (ioctl(fd, kSetPtyLock, &unlock) != 0)
        return fail(fd, report, "Can't lock slave pty `%s'.\n", slave);
    return fd;
}

int open_old_style(const Reporter &report)
{
    static const char first[] = "pqrstuvwxyzPQRST";
    static const char second[] = "0123456789abcdef";
    for (const char *a = first; *a; a++) {
        for (const char *b = second; *b; b++) {
            snprintf(slave, sizeof slave, "/dev/tty%c%c", *a, *b);
            if (access(slave, R_OK | W_OK) != 0)
                continue;
            char master[64];
            snprintf(master, sizeof master, "/dev/pty%c%c", *a, *b);
            int fd = open(master, O_RDWR);
            if (fd >= 0)
                return fd;
        }
    }
    report("Can't open old style slave pty.\n", nullptr);
    return 0;
}

}  // namespace

int XwkPtyOpen(char **slave_name, XwkPtyReportProc report, XtPointer report_data)
{
    Reporter reporter = {report, report_data};
    slave[0] = '\0';
    int fd = open_multiplexer(reporter);
    if (!fd)
        fd = open_old_style(reporter);
    if (slave_name)
        *slave_name = fd ? slave : nullptr;
    return fd;
}

void XwkPtyParentInit(int fd)
{
    int flags = fcntl(fd, F_GETFL);
    if (flags >= 0)
        fcntl(fd, F_SETFL, flags | O_NONBLOCK);
}

void XwkPtyChildInit(int fd)
{
    struct termio t = {};
    ioctl(fd, kGetTermio, &t);
    fcntl(fd, F_SETFL, 0);
    t.c_iflag = 0x0500;
    t.c_oflag |= 0x1805;
    t.c_cflag = 0x05BD;
    t.c_lflag = 0x003B;
    t.c_line = 0;
    static const unsigned char control[] = {3, 0x1C, 0x7F, 0x15, 4};
    for (size_t i = 0; i < sizeof control; i++)
        t.c_cc[i] = control[i];
    if (ioctl(fd, kSetTermio, &t) != 0)
        perror("slave TCSETA");
    int discipline = 0;
    if (ioctl(fd, kSetLineDiscipline, &discipline) != 0)
        perror("slave TIOCSETD");
    putenv((char *)"TERM=dumb");
}
