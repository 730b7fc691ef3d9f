// A plug-in library that needs another library.
#include <tarvik/kit.h>

extern "C" __declspec(dllimport) int HelperAnswer();

namespace {

class Needy : public TVK::Plugin<Needy> {
  public:
    static TVK::Members<Needy> Members() {
        static constexpr TVK::Member<Needy> members[] = {TVK::ReadOnly<&Needy::Answer>(L"answer")};
        return members;
    }
    int Answer() { return HelperAnswer(); }
};

}  // namespace

TARVIK_PLUGIN(Needy, L"needy", TVK::kTransientPlugin)
