#include "plugins/dragfile/drag_file_plugin.h"

#include "tests/support/test.h"

namespace tarvik {
namespace {

class DragFile : public testing::Test {
  protected:
    template <class... Args>
    HRESULT Bind(Args&&... args) {
        const Outgoing out = CallMember(plugin_.Get(), L"bind", std::forward<Args>(args)...);
        EXPECT_EQ(ValueText(out.value), "EMPTY");
        return out.status;
    }
    // "first I4 7": the name of the bound function, and the context.
    std::string Bound(const wchar_t* id) {
        const Outgoing out = CallMember(plugin_.Get(), L"get", id);
        if (out.status != S_OK || !out.value.Is(VT_DISPATCH)) return ResultText(out);
        IDispatch* const binding = out.value.pdispVal;
        const Variant callback = std::move(GetMember(binding, L"callback").value);
        const char* const name = callback.pdispVal == first_.Get() ? "first " : "second ";
        return name + ValueText(GetMember(binding, L"context").value);
    }

    const ObjectCheck nothingLeft_;
    const ComPtr<Recorder> first_ = MakeCom<Recorder>();
    const ComPtr<Recorder> second_ = MakeCom<Recorder>();
    ComPtr<CDragFilePlugin> plugin_ = MakeCom<CDragFilePlugin>();
};

TEST_F(DragFile, KeepsOneBindingForAnId) {
    EXPECT_EQ(Bound(L"box"), "EMPTY");
    EXPECT_THAT(Bind(L"box", first_, 7), HasStatus(S_OK));
    EXPECT_EQ(Bound(L"box"), "first I4 7");
    EXPECT_EQ(Bound(L"BOX"), "EMPTY");
    Bind(L"BOX", first_, first_, L"no further argument");
    Bind(L"box", second_);
    EXPECT_EQ(Bound(L"box"), "second EMPTY") << "the context goes with its function";
    EXPECT_THAT(Bound(L"BOX"), testing::StartsWith("first DISPATCH"));
    for (const wchar_t* id : {L"box", L"none"})
        EXPECT_THAT(Bind(id, nullptr, 7), HasStatus(S_OK));
    EXPECT_EQ(Bound(L"box"), "EMPTY");
    Bind(L"box", first_);
    Bind(L"box", L"no function");
    EXPECT_EQ(Bound(L"box"), "EMPTY");
}

TEST_F(DragFile, GivesEachTimeAnObjectOfItsOwn) {
    Bind(L"box", first_, L"kept");
    const Outgoing given = CallMember(plugin_.Get(), L"get", L"box");
    PutMember(given.value.pdispVal, L"context", 5);
    EXPECT_EQ(Bound(L"box"), "first BSTR kept");
    Bind(L"box", nullptr);
    plugin_.Reset();
    EXPECT_EQ(GetMember(given.value.pdispVal, L"callback").value.pdispVal, first_.Get());
}

TEST_F(DragFile, RefusesWrongArguments) {
    EXPECT_THAT(Bind(), HasStatus(E_INVALIDARG));
    EXPECT_THAT(Bind(L"box"), HasStatus(E_INVALIDARG));
    EXPECT_THAT(Bind(1, first_), HasStatus(E_INVALIDARG));
    Variant null;
    null.vt = VT_BSTR;
    Argument wrong[] = {1, nullptr, first_, std::move(null)};
    for (Argument& id : wrong)
        EXPECT_THAT(CallMember(plugin_.Get(), L"get", std::move(id)).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(plugin_.Get(), L"get").status, HasStatus(E_INVALIDARG));
    DISPID id = 0;
    EXPECT_THAT(IdOf(plugin_.Get(), L"", &id), HasStatus(DISP_E_UNKNOWNNAME));
    EXPECT_THAT(IdOf(plugin_.Get(), L"Bind", &id), HasStatus(DISP_E_UNKNOWNNAME));
}

// An object whose end uses the plug-in again.
class Farewell : public Recorder {
  public:
    explicit Farewell(IDispatch* plugin) : plugin_(plugin) {}
    ~Farewell() override { CallMember(plugin_, L"bind", L"box", MakeCom<Recorder>(), L"from the end"); }

  private:
    IDispatch* plugin_;
};

TEST_F(DragFile, IsUsedAgainByTheEndOfWhatItLetsGoOf) {
    Bind(L"box", MakeCom<Farewell>(plugin_.Get()));
    Bind(L"box", first_, 3);
    EXPECT_EQ(Bound(L"box"), "second BSTR from the end");
}

}  // namespace
}  // namespace tarvik
