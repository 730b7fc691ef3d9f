// A plug-in library that depends on another library.
#include <tarvik/core.h>

extern "C" __declspec(dllimport) int HelperAnswer();

namespace {

class Needy : public tarvik::Plugin<Needy> {
  public:
    static std::span<const tarvik::Member<Needy>> Members() {
        static constexpr auto members =
            tarvik::NumberedMembers({tarvik::ReadOnly<&Needy::Answer>(L"answer")});
        return members;
    }
    int Answer() { return HelperAnswer(); }
};

}  // namespace

TARVIK_PLUGIN(Needy, L"needy", TVK::kTransientPlugin)
