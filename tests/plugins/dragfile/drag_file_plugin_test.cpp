#include "plugins/dragfile/drag_file_plugin.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

class DragFile : public testing::Test {
  protected:
    template <class... Args>
    HRESULT Bind(Args&&... args) {
        return CallMember(plugin_.Get(), L"bind", std::forward<Args>(args)...).status;
    }
    // "first I4 7": the name of the bound function, and the context. The object is the caller's to change.
    std::string Bound(const wchar_t* id) {
        const Outgoing out = CallMember(plugin_.Get(), L"get", id);
        if (out.status != S_OK || !out.value.Is(VT_DISPATCH)) return ResultText(out);
        const Variant callback = std::move(GetMember(out.value.pdispVal, L"callback").value);
        const Variant context = std::move(GetMember(out.value.pdispVal, L"context").value);
        PutMember(out.value.pdispVal, L"context", L"changed");
        return (callback.pdispVal == first_.Get() ? "first " : "other ") + ValueText(context);
    }

    const ObjectCheck nothingLeft_;
    const ComPtr<Recorder> first_ = MakeCom<Recorder>();
    const ComPtr<CDragFilePlugin> plugin_ = MakeCom<CDragFilePlugin>();
};

TEST_F(DragFile, KeepsOneBindingForAnId) {
    EXPECT_EQ(Bound(L"box"), "EMPTY");
    EXPECT_THAT(Bind(L"box", first_, 7, L"no further argument"), HasStatus(S_OK));
    EXPECT_EQ(Bound(L"box"), "first I4 7");
    EXPECT_EQ(Bound(L"box"), "first I4 7");
    EXPECT_EQ(Bound(L"BOX"), "EMPTY");
    Bind(L"BOX", first_);
    Bind(L"box", MakeCom<Recorder>());
    EXPECT_EQ(Bound(L"box"), "other EMPTY") << "the context goes with its function";
    EXPECT_THAT(Bind(L"box", nullptr, 7), HasStatus(S_OK));
    EXPECT_EQ(Bound(L"box"), "EMPTY");
    Bind(L"BOX", L"no function");
    EXPECT_EQ(Bound(L"BOX"), "EMPTY");
}

TEST_F(DragFile, RefusesWrongArguments) {
    EXPECT_THAT(Bind(L"box"), HasStatus(E_INVALIDARG));
    EXPECT_THAT(Bind(1, first_), HasStatus(E_INVALIDARG));
    Variant null;
    null.vt = VT_BSTR;
    Argument wrong[] = {1, nullptr, first_, std::move(null)};
    for (Argument& id : wrong)
        EXPECT_THAT(CallMember(plugin_.Get(), L"get", std::move(id)).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(plugin_.Get(), L"get").status, HasStatus(E_INVALIDARG));
}

}  // namespace
}  // namespace tarvik
