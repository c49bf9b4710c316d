// The windows info property as another client may have written it: wrong
// counts, truncated records, missing "|", non-hex digits, any length.
// Input: one parameter byte (bit 0: repeat the text to 100,000 bytes), then
// the text.  Every reader, and publishing and removal on top of it, must
// stay inside the text.
#include <Xwk/Windows.h>

#include <X11/Intrinsic.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "interapp/winfo_private.h"
#include "interapp/winfo_text.h"

namespace {

// A heap copy of exactly the text's size, so that the sanitizer sees any
// read past its end.
struct Copy {
    char *p;
    explicit Copy(const std::string &s) : p(static_cast<char *>(std::malloc(s.size() + 1)))
    {
        std::memcpy(p, s.c_str(), s.size() + 1);
    }
    ~Copy() { std::free(p); }
};

void Parse(const std::string &text)
{
    Copy c(text);
    WindowsInfoRecord *records = nullptr;
    int parsed = 0;
    int count = winfo::ParseRecords(c.p, &records, &parsed);
    if (parsed > count || count > winfo::kMaxCount)
        abort();
    for (int i = 0; i < parsed; i++)
        if (records[i].self != &records[i] || !records[i].title || strchr(records[i].title, '|'))
            abort();
    winfo::FreeRecords(records, count);
}

// A text as this library writes it: the header's count of records, each
// ending where the next begins, and nothing after the last.
bool WellFormed(const std::string &text)
{
    if (text.empty())
        return true;
    if (text.size() < winfo::kHeaderLength || text[5] != ';')
        return false;
    size_t end = winfo::kHeaderLength;
    int n = winfo::WalkRecords(text, [&](const winfo::RecordView &r) {
        if (r.start != end)
            return false;
        end = r.bar + winfo::kRecordTail;
        return true;
    });
    return n == winfo::HeaderCount(text) && end == text.size() && n < 99999;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    std::string text(reinterpret_cast<const char *>(data + 1), size - 1);
    text = text.substr(0, strnlen(text.c_str(), text.size()));  // a property reads to its NUL
    if ((data[0] & 1) && !text.empty())
        while (text.size() < 100000)
            text += text.substr(0, 100000 - text.size());
    Parse(text);

    bool sound = WellFormed(text);
    Copy c(text);
    std::string published = winfo::Publish(c.p, "fuzz", 0x1234, 0x10, 42);
    if (published.size() < winfo::kHeaderLength || published[5] != ';')
        abort();
    Parse(published);
    // What was published is found again, and removal takes one record.
    bool found = false;
    winfo::WalkRecords(published, [&](const winfo::RecordView &r) {
        found |= r.window == 0x1234 && r.parent == 0x10 && r.pid == 42;
        return !found;
    });
    int before = winfo::HeaderCount(published);
    bool removed = winfo::Remove(published, 0x1234);
    if (sound && (!found || !removed || winfo::HeaderCount(published) != before - 1 ||
                  !WellFormed(published)))
        abort();
    Parse(published);
    return 0;
}
