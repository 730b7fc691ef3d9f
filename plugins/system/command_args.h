#pragma once

#include <optional>

#include "app/command_line/command_line.h"
#include "script/dispatch.h"

namespace tarvik {

// `system.cmdArgs`: the command line that the program was started with.
class CCmdArgs : public TableDispatch<CCmdArgs> {
  public:
    static constexpr char kClassName[] = "CCmdArgs";
    static std::span<const Member<CCmdArgs>> Members();

    CCmdArgs() = default;
    explicit CCmdArgs(const wchar_t* text) : line_(text) {}

    // The raw arguments; the first is the program.
    int GetOrgArgsCount();
    std::optional<Bstr> GetOrgArg(AnyInt32 index);
    bool IsSwitchExist(BSTR name);
    std::optional<Bstr> GetArgPair(BSTR name);

  private:
    const CCommandLine line_;
};

}  // namespace tarvik
