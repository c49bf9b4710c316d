// The option text parser of the tool configuration on arbitrary text: parse
// into a sample tool with and without reset, write the text back, parse that
// again into a clone, and build the macro table.  A division's text never
// exceeds its limit, and no text is empty or starts with a blank.
#include <Xwk/ToolCfg.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/toolcfg/cfgtool.h"

namespace {

void Check(char *text)
{
    if (!text)
        return;
    size_t n = strlen(text);
    if (n == 0 || text[0] == ' ')
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string input(reinterpret_cast<const char *>(data), size);
    input.resize(std::strlen(input.c_str()));
    IDECfgTool *tool = cfgtest::SampleTool();
    IDECfgUpdateStringToTool(input.c_str(), tool, False);
    IDECfgStringToTool(input.c_str(), tool);
    for (int i = 0; i < tool->division_count; i++) {
        char *division = IDECfgDivisionToString(tool->divisions[i]);
        if (division && strlen(division) > 49999)
            std::abort();
        XtFree(division);
    }
    char *text = IDECfgGetToolOptions(tool);
    Check(text);
    IDECfgTool *clone = IDECfgNewTool(tool);
    IDECfgStringToTool(text, clone);
    char *again = IDECfgGetToolOptions(clone);
    Check(again);
    char **names = nullptr, **values = nullptr;
    int rows = IDECfgGetMacrosesForTool(clone, &names, &values);
    for (int i = 0; i < rows; i++) {
        XtFree(names[i]);
        XtFree(values[i]);
    }
    XtFree((char *)names);
    XtFree((char *)values);
    XtFree(text);
    XtFree(again);
    IDECfgFreeTool(clone);
    IDECfgFreeTool(tool);
    return 0;
}
