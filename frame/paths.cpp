// File names and paths: search, expansion, splitting, permission and copy.
#include <Xwk/Frame.h>
#include <Xwk/Strings.h>

#include <fcntl.h>
#include <limits.h>
#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// Appends to a fixed buffer; what does not fit is cut.
class BoundedText {
public:
    BoundedText(char *buffer, size_t size) : buffer_(buffer), size_(size) { buffer_[0] = '\0'; }
    void Add(const char *text, size_t n)
    {
        size_t room = size_ - 1 - used_;
        if (n > room) n = room;
        std::memcpy(buffer_ + used_, text, n);
        used_ += n;
        buffer_[used_] = '\0';
    }
    void Add(const char *text)
    {
        if (text) Add(text, std::strlen(text));
    }

private:
    char *buffer_;
    size_t size_;
    size_t used_ = 0;
};

bool IsNameChar(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

void ExpandName(const char *name, char **environment, char *buffer, size_t size)
{
    BoundedText out(buffer, size);
    const char *p = name;
    if (p[0] == '~' && p[1] == '/') {
        out.Add(xwkHOME);
        p++;
    }
    while (*p) {
        if (*p != '$') {
            const char *run = p;
            while (*p && *p != '$') p++;
            out.Add(run, static_cast<size_t>(p - run));
            continue;
        }
        p++;
        char close = 0;
        if (*p == '(') close = ')';
        else if (*p == '{') close = '}';
        if (close) p++;
        const char *start = p;
        while (IsNameChar(*p)) p++;
        std::string var(start, p);
        if (close && *p == close) p++;
        // An unknown name, the empty one included, vanishes.
        if (environment) out.Add(XwkGetEnv(environment, var.c_str()));
        else if (!var.empty()) out.Add(std::getenv(var.c_str()));
    }
}

char *Duplicate(const char *start, size_t n)
{
    char *s = XtMalloc(static_cast<Cardinal>(n + 1));
    std::memcpy(s, start, n);
    s[n] = '\0';
    return s;
}

char *Join(const char *a, const char *b)
{
    size_t la = std::strlen(a);
    size_t lb = std::strlen(b);
    char *s = XtMalloc(static_cast<Cardinal>(la + lb + 1));
    std::memcpy(s, a, la);
    std::memcpy(s + la, b, lb + 1);
    return s;
}

bool WriteAll(int fd, const char *data, size_t n)
{
    while (n > 0) {
        ssize_t w = write(fd, data, n);
        if (w < 0 && errno == EINTR) continue;
        if (w <= 0) return false;
        data += w;
        n -= static_cast<size_t>(w);
    }
    return true;
}

}  // namespace

extern "C" Boolean XwkIsFileExist(const char *path)
{
    return path && access(path, F_OK) == 0;
}

extern "C" char *XwkFindPath(const char *name, const char *search)
{
    return XwkFindPathExt(name, search, nullptr);
}

extern "C" char *XwkFindPathExt(const char *name, const char *search, char **environment)
{
    static char expanded[PATH_MAX];
    static char candidate[PATH_MAX];
    if (!name) return nullptr;
    ExpandName(name, environment, expanded, sizeof expanded);
    struct stat st;
    if (expanded[0] == '/' && stat(expanded, &st) == 0) return expanded;
    if (!search) return nullptr;
    for (const char *dir = search;;) {
        const char *end = std::strchr(dir, ':');
        size_t len = end ? static_cast<size_t>(end - dir) : std::strlen(dir);
        BoundedText out(candidate, sizeof candidate);
        out.Add(dir, len);
        out.Add("/", 1);
        out.Add(expanded);
        if (stat(candidate, &st) == 0) return candidate;
        if (!end) break;
        dir = end + 1;
    }
    return nullptr;
}

extern "C" char *XwkGetExtFromPattern(const char *pattern)
{
    if (!pattern) return nullptr;
    for (const char *p = pattern + std::strlen(pattern); p > pattern; p--) {
        if (p[-1] == '/') return nullptr;
        if (p[-1] == '.') return XtNewString(p);
    }
    return nullptr;
}

extern "C" char *XwkGetMatchPattern(const char *glob)
{
    if (!glob) return nullptr;
    std::string re = "^";
    for (const char *p = glob; *p && *p != '/'; p++) {
        switch (*p) {
        case '.': re += "\\."; break;
        case '*': re += ".*"; break;
        case '?': re += '.'; break;
        default: re += *p; break;
        }
    }
    re += '$';
    return XtNewString(re.c_str());
}

// The absolute form comes from the system: the process steps into the
// directory for a moment and always returns to where it was.
extern "C" char *XwkGetFullPath(char *output, const char *path)
{
    if (!output || !path) return nullptr;
    char saved[PATH_MAX];
    if (!getcwd(saved, sizeof saved)) return nullptr;
    const char *last = path;
    const char *slash = std::strrchr(path, '/');
    // A slash in the first column does not split: "/x" is tried whole.
    if (slash && slash != path && slash[1]) {
        std::string dir(path, slash);
        if (chdir(dir.c_str()) != 0) return nullptr;
        last = slash + 1;
    }
    char *result = output;
    char here[PATH_MAX];
    bool entered = chdir(last) == 0;
    if (!getcwd(here, sizeof here)) {
        result = nullptr;
    } else {
        BoundedText out(output, PATH_MAX);
        out.Add(here);
        if (!entered) {
            out.Add("/", 1);
            out.Add(last);
        }
    }
    if (chdir(saved) != 0) result = nullptr;
    return result;
}

extern "C" void XwkSplitPath(const char *path, char **directory, char **name, char **extension)
{
    if (directory) *directory = nullptr;
    if (name) *name = nullptr;
    if (extension) *extension = nullptr;
    if (!path) return;
    const char *slash = std::strrchr(path, '/');
    if (directory && slash) *directory = Duplicate(path, static_cast<size_t>(slash - path));
    const char *rest = slash ? slash + 1 : path;
    const char *dot = extension ? std::strrchr(rest, '.') : nullptr;
    const char *name_end = dot ? dot : rest + std::strlen(rest);
    if (name && name_end > rest) *name = Duplicate(rest, static_cast<size_t>(name_end - rest));
    if (dot && dot[1]) *extension = XtNewString(dot + 1);
}

extern "C" char *XwkExpandTilde(const char *path)
{
    if (!path) return nullptr;
    if (path[0] != '~') return XtNewString(path);
    if (path[1] == '\0' || path[1] == '/') return Join(xwkHOME ? xwkHOME : "", path + 1);
    const char *rest = std::strchr(path, '/');
    if (!rest) rest = path + std::strlen(path);
    std::string user(path + 1, rest);
    struct passwd *pw = getpwnam(user.c_str());
    if (!pw || !pw->pw_dir) return XtNewString(path);
    return Join(pw->pw_dir, rest);
}

// Decided on the stat record and the user globals alone, with no system
// call.  The others' class needs the execute bit too, also for plain files.
extern "C" Boolean XwkAccess(struct stat *st, int mode)
{
    if (!st) return False;
    if (xwkUID == 0) return True;
    mode_t others, group, owner;
    if (mode == 4) {
        others = S_IROTH | S_IXOTH;
        group = S_IRGRP;
        owner = S_IRUSR;
    } else if (mode == 2) {
        others = S_IWOTH | S_IXOTH;
        group = S_IWGRP;
        owner = S_IWUSR;
    } else {
        return False;
    }
    if (S_ISDIR(st->st_mode)) {
        group |= S_IXGRP;
        owner |= S_IXUSR;
    }
    if ((st->st_mode & others) == others) return True;
    for (int i = 0; xwkGIDs && i < xwkNumGIDs; i++) {
        if (static_cast<gid_t>(xwkGIDs[i]) == st->st_gid && (st->st_mode & group) == group)
            return True;
    }
    return static_cast<uid_t>(xwkUID) == st->st_uid && (st->st_mode & owner) == owner;
}

// The original looked for symbolic links after stat, which follows them:
// links are copied through.  A source that cannot be opened, or is a
// directory, leaves the destination alone.
extern "C" int XwkCopyFile(const char *source, const char *destination)
{
    if (!source || !destination) return -1;
    struct stat st;
    if (stat(source, &st) != 0) return -1;
    if (std::strcmp(source, destination) == 0) return 0;
    if (S_ISDIR(st.st_mode)) return -2;
    int in = open(source, O_RDONLY | O_CLOEXEC);
    if (in < 0) return -2;
    if (S_ISREG(st.st_mode)) {
        unlink(destination);
        int fd = open(destination, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, st.st_mode & 07777);
        if (fd < 0) {
            close(in);
            return -3;
        }
        close(fd);
    }
    int out = open(destination, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (out < 0) {
        unlink(destination);
        out = open(destination, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        if (out < 0) {
            close(in);
            return -3;
        }
    }
    int result = 0;
    char block[8191];
    for (;;) {
        ssize_t n = read(in, block, sizeof block);
        if (n < 0 && errno == EINTR) continue;
        if (n == 0) break;
        if (n < 0 || !WriteAll(out, block, static_cast<size_t>(n))) {
            result = -4;
            break;
        }
    }
    close(in);
    if (close(out) != 0) result = -4;
    return result;
}
