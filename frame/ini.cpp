// Ini files: sections of "key = value" lines, read, rewritten and pruned.
#include <Xwk/Ini.h>
#include <Xwk/Strings.h>

#include "frame/strings_private.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

char *xwkConfigFileName;
unsigned long xwkConfigFileLine;

namespace {

// fgets into 4096 bytes: a longer line comes in pieces.
constexpr int kLineSize = 4096;

// Reads the next line without its newline.  A last line without a newline
// ends the file together with fgets and is never returned, as it always
// was.  A NUL byte ends the line's text.
bool NextLine(FILE *fp, char *line)
{
    if (!std::fgets(line, kLineSize, fp) || std::feof(fp)) return false;
    size_t len = std::strlen(line);
    if (len > 0 && line[len - 1] == '\n') line[len - 1] = '\0';
    return true;
}

bool IsComment(const char *line)
{
    return line[0] == ';' || line[0] == '#' || (line[0] == '.' && line[1] == '*');
}

bool StartsWith(const char *line, const std::string &prefix)
{
    return std::strncmp(line, prefix.c_str(), prefix.size()) == 0;
}

// The directory tempnam(NULL, ...) would choose.
std::string TempDirectory()
{
    const char *env = std::getenv("TMPDIR");
    struct stat st;
    if (env && *env && stat(env, &st) == 0 && S_ISDIR(st.st_mode) && access(env, W_OK | X_OK) == 0)
        return env;
    return P_tmpdir;
}

// The temporary copy of a file being rewritten.  It goes away with the
// object unless kept, which happens when copying it back failed: then it
// holds the only complete text.
class TempFile {
public:
    bool Open()
    {
        std::string path = TempDirectory() + "/iniXXXXXX";
        std::vector<char> name(path.begin(), path.end());
        name.push_back('\0');
        int fd = mkstemp(name.data());
        if (fd < 0) return false;
        name_ = name.data();
        // The file is copied back with its mode: make it what fopen gives.
        mode_t mask = umask(0);
        umask(mask);
        fchmod(fd, 0666 & ~mask);
        fp_ = fdopen(fd, "w");
        if (!fp_) close(fd);
        return fp_ != nullptr;
    }
    ~TempFile()
    {
        if (fp_) std::fclose(fp_);
        if (!name_.empty() && !keep_) unlink(name_.c_str());
    }
    FILE *fp() const { return fp_; }
    // Closes the file; false when anything written to it was lost.
    bool Close()
    {
        bool ok = !std::ferror(fp_);
        if (std::fclose(fp_) != 0) ok = false;
        fp_ = nullptr;
        return ok;
    }
    const char *name() const { return name_.c_str(); }
    void Keep() { keep_ = true; }

private:
    FILE *fp_ = nullptr;
    std::string name_;
    bool keep_ = false;
};

void PutLine(FILE *fp, const char *line) { std::fprintf(fp, "%s\n", line); }

void PutEntry(FILE *fp, const char *key, const char *value)
{
    std::fprintf(fp, "%s = %s\n", key, value ? value : "");
}

// Ends a rewrite: the text goes back over the file only when all of it was
// read and written.  Returns whether the file now holds the new text.
bool Finish(FILE *in, TempFile &tmp, const char *file)
{
    bool read_ok = !std::ferror(in);
    std::fclose(in);
    if (!tmp.Close() || !read_ok) return false;
    if (XwkCopyFile(tmp.name(), file) != 0) {
        tmp.Keep();
        return false;
    }
    return true;
}

// Writes the held-back lines of the section with the call's keys set.
void Flush(FILE *out, const std::vector<std::string> &held, char **keys, char **values, int count)
{
    std::vector<bool> taken(held.size());
    std::vector<bool> matched(static_cast<size_t>(count));
    for (int i = 0; i < count; i++) {
        if (!keys[i]) continue;
        size_t len = std::strlen(keys[i]);
        // A prefix is enough: key "a" takes the line "ab = 1".
        for (size_t j = 0; j < held.size(); j++) {
            if (taken[j] || std::strncmp(held[j].c_str(), keys[i], len) != 0) continue;
            taken[j] = true;
            matched[static_cast<size_t>(i)] = true;
            PutEntry(out, keys[i], values[i]);
            break;
        }
    }
    for (int i = 0; i < count; i++)
        if (!matched[static_cast<size_t>(i)] && keys[i] && keys[i][0]) PutEntry(out, keys[i], values[i]);
    for (size_t j = 0; j < held.size(); j++)
        if (!taken[j]) PutLine(out, held[j].c_str());
}

void FreeStrings(std::vector<char *> &v)
{
    for (char *s : v) std::free(s);
    v.clear();
}

char **ToMallocArray(const std::vector<char *> &v)
{
    char **array = static_cast<char **>(std::malloc(v.size() * sizeof(char *)));
    if (array) std::memcpy(array, v.data(), v.size() * sizeof(char *));
    return array;
}

}  // namespace

extern "C" signed char XwkReadIni(const char *file, const char *section, char ***keys,
                                  char ***values, int *count)
{
    if (keys) *keys = nullptr;
    if (values) *values = nullptr;
    if (count) *count = 0;
    if (!file || !section || !keys || !values || !count) return 0;
    FILE *fp = std::fopen(file, "r");
    if (!fp) return 0;

    const std::string header = "[" + std::string(section) + "]";
    std::vector<char *> key_list, value_list;
    bool in_section = false;
    bool failed = false;
    char line[kLineSize];
    while (!failed && NextLine(fp, line)) {
        if (IsComment(line)) continue;
        if (!in_section) {
            in_section = StartsWith(line, header);
            continue;
        }
        if (line[0] == '[') break;
        char *eq = std::strchr(line, '=');
        if (!eq) continue;
        *eq = '\0';
        char *key = strdup(stpcvt(line, 6));
        char *value = strdup(stpcvt(eq + 1, 2));
        key_list.push_back(key);
        value_list.push_back(value);
        failed = !key || !value;
    }
    if (std::ferror(fp)) failed = true;
    std::fclose(fp);

    char **key_array = nullptr, **value_array = nullptr;
    if (!failed && !key_list.empty()) {
        key_array = ToMallocArray(key_list);
        value_array = ToMallocArray(value_list);
        failed = !key_array || !value_array;
    }
    if (failed) {
        std::free(key_array);
        std::free(value_array);
        FreeStrings(key_list);
        FreeStrings(value_list);
        return 0;
    }
    *keys = key_array;
    *values = value_array;
    *count = static_cast<int>(key_list.size());
    // Callers of old read the count as a char; the output has it whole.
    return static_cast<signed char>(static_cast<unsigned char>(key_list.size() & 0xFF));
}

extern "C" int XwkWriteIni(const char *file, const char *section, char **keys, char **values,
                           int count)
{
    if (!file || !section || section == xwkEmptyString || !keys || !values || count <= 0) return 0;
    FILE *in = std::fopen(file, "r+");
    if (!in) in = std::fopen(file, "w");
    if (!in) return 0;
    TempFile tmp;
    if (!tmp.Open()) {
        std::fclose(in);
        return 0;
    }
    struct stat st;
    bool empty = fstat(fileno(in), &st) != 0 || st.st_size == 0;
    FILE *out = tmp.fp();

    const std::string header = "[" + std::string(section) + "]";
    std::vector<std::string> held;  // lines of the section, waiting for the flush
    bool in_section = false;
    bool flushed = false;
    char line[kLineSize];
    while (!empty && NextLine(in, line)) {
        if (IsComment(line)) {
            PutLine(out, line);
        } else if (!in_section) {
            PutLine(out, line);
            in_section = StartsWith(line, header);
        } else if (line[0] == '[' && !held.empty()) {
            Flush(out, held, keys, values, count);
            held.clear();
            in_section = false;
            flushed = true;
            PutLine(out, line);
        } else {
            // A header right behind the section's own is held back too: an
            // empty section swallows the next one, as it always did.
            held.push_back(line);
        }
    }
    if (!flushed) {
        if (in_section) {
            Flush(out, held, keys, values, count);
        } else {
            if (!empty) std::fputs("\n", out);
            PutLine(out, header.c_str());
            for (int i = 0; i < count; i++)
                if (keys[i] && keys[i][0]) PutEntry(out, keys[i], values[i]);
        }
    }
    return Finish(in, tmp, file) ? 1 : 0;
}

extern "C" void XwkDeleteIni(const char *file, const char *section, const char *key,
                             const char *value)
{
    if (!file || !section) return;
    FILE *in = std::fopen(file, "r+");
    if (!in) return;
    TempFile tmp;
    if (!tmp.Open()) {
        std::fclose(in);
        return;
    }
    FILE *out = tmp.fp();
    const std::string header = "[" + std::string(section) + "]";
    const size_t key_len = key ? std::strlen(key) : 0;
    bool in_section = false;
    char line[kLineSize];
    while (NextLine(in, line)) {
        if (IsComment(line)) {
            PutLine(out, line);
        } else if (!in_section) {
            in_section = StartsWith(line, header);
            if (!in_section || key || value) PutLine(out, line);
        } else if (line[0] == '[') {
            in_section = false;
            PutLine(out, line);
        } else {
            const char *eq = std::strchr(line, '=');
            bool drop = (key && std::strncmp(line, key, key_len) == 0) ||
                        (value && eq && std::strstr(eq + 1, value)) || (!key && !value);
            if (!drop) PutLine(out, line);
        }
    }
    Finish(in, tmp, file);
}
