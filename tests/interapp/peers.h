// Other applications of the family for the windows tests: winfo_peer
// processes on the test's X server, and the session's table as read back
// from the root window.
#ifndef XWK_TESTS_INTERAPP_PEERS_H
#define XWK_TESTS_INTERAPP_PEERS_H

#include "xwktest.h"

#include <sstream>

namespace peers {

// One winfo_peer process; stdin closed ends it.
class Peer {
public:
    explicit Peer(std::vector<std::string> args, std::vector<std::string> env = {})
    {
        int in[2], out[2];
        // Close-on-exec: a later peer must not hold this one's stdin open.
        if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0)
            return;
        pid_ = fork();
        if (pid_ == 0) {
            dup2(in[0], 0);
            dup2(out[1], 1);
            close(in[1]);
            close(out[0]);
            putenv((char *)"ASAN_OPTIONS=detect_leaks=0");
            for (auto &e : env)
                putenv(strdup(e.c_str()));
            std::vector<char *> argv{(char *)WINFO_PEER};
            for (auto &a : args)
                argv.push_back((char *)a.c_str());
            argv.push_back(nullptr);
            execv(WINFO_PEER, argv.data());
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        in_ = in[1];
        out_ = out[0];
        fcntl(out_, F_SETFL, O_NONBLOCK);
    }
    ~Peer()
    {
        if (in_ >= 0)
            close(in_);
        if (out_ >= 0)
            close(out_);
        if (pid_ > 0 && !Reaped(2000))
            Kill();
    }
    Peer(const Peer &) = delete;
    Peer &operator=(const Peer &) = delete;

    pid_t pid() const { return pid_; }
    void Send(const char *line) { (void)!write(in_, line, strlen(line)); }
    // The next line of output, with the test's own events handled while it
    // waits; "" when none came in time.
    std::string Line(int timeout_ms = 10000)
    {
        std::string line;
        xwktest::PumpUntil([&] {
            char c;
            while (read(out_, &c, 1) == 1) {
                if (c == '\n')
                    return true;
                buf_ += c;
            }
            return false;
        }, timeout_ms);
        line.swap(buf_);
        return line;
    }
    // Window ids that follow "ready" on its first line.
    std::vector<Window> Ready()
    {
        std::istringstream in(Line());
        std::string word;
        std::vector<Window> ids;
        if (in >> word && word == "ready")
            for (Window id; in >> id;)
                ids.push_back(id);
        return ids;
    }
    void Kill()
    {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
        pid_ = -1;
    }
    bool Running() { return pid_ > 0 && waitpid(pid_, nullptr, WNOHANG) == 0; }

private:
    bool Reaped(int timeout_ms)
    {
        for (int t = 0; t < timeout_ms; t += 10) {
            if (waitpid(pid_, nullptr, WNOHANG) == pid_)
                return true;
            usleep(10000);
        }
        return false;
    }
    pid_t pid_ = -1;
    int in_ = -1, out_ = -1;
    std::string buf_;
};

struct Entry {
    std::string title;
    unsigned long window, parent;
    int pid;
};

// The raw text of a session's property, "" when there is none.
inline std::string RawText(Widget w, int key)
{
    Atom type;
    int format;
    unsigned long n, after;
    unsigned char *data = nullptr;
    std::string text;
    if (XGetWindowProperty(XtDisplay(w), DefaultRootWindow(XtDisplay(w)),
                           XwkGetWindowsInfoAtom(w, key), 0, 100000, False, XA_STRING, &type,
                           &format, &n, &after, &data) == Success &&
        data) {
        text.assign((char *)data, n);
        XFree(data);
    }
    return text;
}

inline std::vector<Entry> Table(Widget w, int key)
{
    std::string raw = RawText(w, key);
    std::vector<Entry> out;
    WindowsInfoRecord *r = nullptr;
    int n = ParsePropertyString(w, raw.c_str(), &r);
    for (int i = 0; i < n; i++) {
        out.push_back({r[i].title ? r[i].title : "", r[i].window, r[i].parent, r[i].pid});
        XtFree(r[i].title);
    }
    XtFree((char *)r);
    return out;
}

}  // namespace peers

#endif
