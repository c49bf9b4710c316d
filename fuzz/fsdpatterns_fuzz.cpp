// The filter patterns of the file selection desk.  Input, in NUL-separated
// parts: patternsDescription, the user's pattern, then names to match.
#include "filedesk/filedesk_private.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

std::vector<std::string> Split(const uint8_t *data, size_t size)
{
    std::vector<std::string> parts;
    std::string s(reinterpret_cast<const char *>(data), size);
    size_t start = 0;
    for (;;) {
        size_t nul = s.find('\0', start);
        parts.push_back(s.substr(start, nul == std::string::npos ? nul : nul - start));
        if (nul == std::string::npos)
            break;
        start = nul + 1;
    }
    while (parts.size() < 2)
        parts.emplace_back();
    return parts;
}

void Check(bool ok)
{
    if (!ok)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<std::string> parts = Split(data, size);
    FsdPattern **rows = nullptr;
    int failures = -1;
    int count = FsdBuildPatterns(parts[0].c_str(), parts[1].c_str(), &rows, &failures);
    Check(count >= 1 && rows && failures >= 0);
    bool shows_all = false;
    for (int i = 0; i <= count; i++) {
        FsdPattern *row = rows[i];
        Check(row->name && row->text && row->count >= 0);
        Check(row->count <= 1 + int(std::strlen(row->text)));
        for (int g = 0; g < row->count; g++)
            Check(row->globs[g] && !std::strchr(row->globs[g], ';'));
        if (i > 0) {
            int found = FsdFindPatternRow(rows, count, row->text);
            Check(found >= 1 && found <= i);
            shows_all |= FsdPatternMatches(row, "any name");
        }
        for (size_t n = 2; n < parts.size(); n++)
            FsdPatternMatches(row, parts[n].c_str());
    }
    // Unless the description holds it, the last group shows every file.
    Check(shows_all || std::strstr(parts[0].c_str(), "All files|*"));
    int again = -1;
    Check(!FsdSetPatternText(rows[0], parts[1].c_str(), &again) && again == 0);
    FsdSetPatternText(rows[0], (parts[1] + ";x").c_str(), &again);
    Check(again >= 0 && again <= rows[0]->count);
    FsdFreePatterns(rows, count);
    return 0;
}
