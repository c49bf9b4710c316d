#include "interapp/winfo_text.h"

#include <stdio.h>
#include <stdlib.h>

namespace winfo {

namespace {

// A field of 8 hexadecimal digits at pos, read as strtoul reads the digits
// cut out in place: a short or non-hex field gives what its prefix holds.
unsigned long HexField(std::string_view text, size_t pos)
{
    char buf[9] = {0};
    if (pos < text.size())
        text.substr(pos, 8).copy(buf, 8);
    return strtoul(buf, nullptr, 16);
}

std::string_view Rest(std::string_view text, size_t pos)
{
    return pos < text.size() ? text.substr(pos) : std::string_view();
}

// The header replaces the first six characters, or as many as there are.
std::string WithHeader(std::string_view text, int count)
{
    return FormatHeader(count) + std::string(Rest(text, kHeaderLength));
}

}  // namespace

size_t FirstRecord(std::string_view text)
{
    size_t semi = text.find(';');
    return semi == std::string_view::npos ? text.size() : semi + 1;
}

int HeaderCount(std::string_view text)
{
    if (text.find(';') == std::string_view::npos)
        return 0;
    char buf[16] = {0};
    text.substr(0, sizeof buf - 1).copy(buf, sizeof buf - 1);
    long count = strtol(buf, nullptr, 10);
    if (count < 0)
        return 0;
    return count > kMaxCount ? kMaxCount : (int)count;
}

bool RecordAt(std::string_view text, size_t pos, RecordView *out)
{
    if (pos >= text.size())
        return false;
    size_t bar = text.find('|', pos);
    if (bar == std::string_view::npos)
        return false;
    out->start = pos;
    out->bar = bar;
    out->title = text.substr(pos, bar - pos);
    out->window = HexField(text, bar + 1);
    out->parent = HexField(text, bar + 10);
    out->pid = (int)HexField(text, bar + 19);
    return true;
}

std::string FormatRecord(const char *title, unsigned long window, unsigned long parent, int pid)
{
    char fields[64];
    snprintf(fields, sizeof fields, "|%8.8lx,%8.8lx,%8.8lx;", window, parent,
             (unsigned long)(unsigned)pid);
    return std::string(title ? title : "") + fields;
}

std::string FormatHeader(int count)
{
    // A count past five digits would shift every record: it stays at 99999.
    if (count > 99999)
        count = 99999;
    char buf[16];
    snprintf(buf, sizeof buf, "%5.5d;", count);
    return buf;
}

std::string Publish(const char *old, const char *title, unsigned long window,
                    unsigned long parent, int pid)
{
    std::string text = old ? old : "";
    std::string record = FormatRecord(title, window, parent, pid);
    int count = HeaderCount(text);
    bool replaced = false;
    size_t pos = FirstRecord(text);
    RecordView r;
    for (int n = 0; n < count && RecordAt(text, pos, &r); n++) {
        if (r.window != window || r.parent != parent || r.pid != pid) {
            pos = r.bar + kRecordTail;
            continue;
        }
        std::string tail(Rest(text, r.bar + kRecordTail));
        text.resize(r.start);
        text += record;
        pos = text.size();
        text += tail;
        replaced = true;
    }
    if (replaced)
        return text;
    // A new record is made in a buffer of 1024 bytes: a longer title is cut
    // so that the record's fields stay whole.
    if (record.size() > kMaxNewRecord)
        record = FormatRecord(std::string(title).substr(0, kMaxNewRecord - kRecordTail).c_str(),
                              window, parent, pid);
    if (count == 0)
        return FormatHeader(1) + record;
    return WithHeader(text, count + 1) + record;
}

bool Remove(std::string &text, unsigned long window)
{
    int count = HeaderCount(text);
    size_t pos = FirstRecord(text);
    RecordView r;
    for (int n = 0; n < count && RecordAt(text, pos, &r); n++) {
        if (r.window != window) {
            pos = r.bar + kRecordTail;
            continue;
        }
        text.erase(r.start, r.bar + kRecordTail - r.start);
        text = WithHeader(text, count - 1);
        return true;
    }
    return false;
}

}  // namespace winfo
