// The text of the windows info property: "%5.5d;" then records
// "%s|%8.8lx,%8.8lx,%8.8lx;".  Pure string work, shared by the X side, the
// fuzz target and the tests.  Every read is bounded by the text's end, so a
// property written by a hostile client is read as far as it is sound.
#ifndef XWK_INTERAPP_WINFO_TEXT_H
#define XWK_INTERAPP_WINFO_TEXT_H

#include <string>
#include <string_view>

namespace winfo {

// From a record's "|" to the start of the next record.
constexpr size_t kRecordTail = 28;
// The header "%5.5d;".
constexpr size_t kHeaderLength = 6;
// The longest record publishing appends, its terminating NUL left out.
constexpr size_t kMaxNewRecord = 1023;
// No property read holds more records than this; a larger count is hostile.
constexpr int kMaxCount = 100000;

struct RecordView {
    size_t start;             // index of the title's first character
    size_t bar;               // index of the "|"
    std::string_view title;
    unsigned long window;
    unsigned long parent;
    int pid;
};

// Where the first record starts: after the first ";".
size_t FirstRecord(std::string_view text);

// The header's count, 0 when the text holds no ";"; clamped to 0..kMaxCount.
int HeaderCount(std::string_view text);

// Walks up to HeaderCount records; visit(record) returns false to stop.
// Returns the number of records visited.
template <class Visit>
int WalkRecords(std::string_view text, Visit visit);

// One record at pos, or false when no "|" follows.
bool RecordAt(std::string_view text, size_t pos, RecordView *out);

std::string FormatRecord(const char *title, unsigned long window, unsigned long parent, int pid);
std::string FormatHeader(int count);

// The text after publishing (window, parent, pid) with title: every record
// of that triple is replaced in place, else one is appended and the count
// raised.  old may be null (no property).
std::string Publish(const char *old, const char *title, unsigned long window,
                    unsigned long parent, int pid);
// Removes the first record of window; false when none matched.
bool Remove(std::string &text, unsigned long window);

template <class Visit>
int WalkRecords(std::string_view text, Visit visit)
{
    int count = HeaderCount(text);
    size_t pos = FirstRecord(text);
    int n = 0;
    RecordView r;
    while (n < count && RecordAt(text, pos, &r)) {
        n++;
        if (!visit(r))
            break;
        pos = r.bar + kRecordTail;
    }
    return n;
}

}  // namespace winfo

#endif
