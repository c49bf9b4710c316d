#define _GNU_SOURCE
#include "xvfb.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

static void exec_server(int fd)
{
    char fdtext[16];
    int devnull;

    /* The server must not outlive a crashed test. */
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    snprintf(fdtext, sizeof fdtext, "%d", fd);
    devnull = open("/dev/null", O_RDWR);
    if (devnull >= 0) {
        dup2(devnull, 0);
        dup2(devnull, 1);
        dup2(devnull, 2);
    }
    execlp("Xvfb", "Xvfb", "-displayfd", fdtext,
           "-screen", "0", "1280x1024x24", "-screen", "1", "1024x768x8",
           "-nolisten", "tcp", "-noreset", "+extension", "XTEST", (char *)0);
    _exit(127);
}

static int read_display_number(int fd)
{
    char buf[32];
    size_t used = 0;

    while (used < sizeof buf - 1) {
        struct pollfd p = { fd, POLLIN, 0 };
        int r = poll(&p, 1, 20000);
        if (r < 0 && errno == EINTR)
            continue;
        if (r <= 0)
            return -1;
        ssize_t n = read(fd, buf + used, sizeof buf - 1 - used);
        if (n <= 0)
            return -1;
        used += (size_t)n;
        buf[used] = 0;
        if (strchr(buf, '\n'))
            return atoi(buf);
    }
    return -1;
}

int xwk_xvfb_start(XwkXvfb *server, int keep_env)
{
    int fds[2];

    server->pid = -1;
    server->display = -1;
    if (pipe(fds) != 0)
        return -1;
    pid_t pid = fork();
    if (pid < 0) {
        close(fds[0]);
        close(fds[1]);
        return -1;
    }
    if (pid == 0) {
        close(fds[0]);
        exec_server(fds[1]);
    }
    close(fds[1]);
    int display = read_display_number(fds[0]);
    close(fds[0]);
    if (display < 0) {
        kill(pid, SIGKILL);
        waitpid(pid, NULL, 0);
        return -1;
    }
    server->pid = pid;
    server->display = display;
    if (!keep_env) {
        char name[32];
        snprintf(name, sizeof name, ":%d", display);
        setenv("DISPLAY", name, 1);
    }
    return 0;
}

void xwk_xvfb_stop(XwkXvfb *server)
{
    if (server->pid <= 0)
        return;
    kill(server->pid, SIGTERM);
    waitpid(server->pid, NULL, 0);
    server->pid = -1;
}
