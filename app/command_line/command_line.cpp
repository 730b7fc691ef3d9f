#include "app/command_line/command_line.h"

#include <shellapi.h>

namespace tarvik {

CCommandLine::CCommandLine(const wchar_t* text) {
    argv = CommandLineToArgvW(text, &argc);
    if (!argv) argc = 0;
    arguments_.Reset(argv);
    if (argc > 1) options_ = OptionSet({argv + 1, argv + argc});
}

}  // namespace tarvik
