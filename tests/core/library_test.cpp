#include "tarvik/core.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// The plug-in of a library, with a member for each type of argument and result.
class Sample : public Plugin<Sample> {
  public:
    static std::span<const Member<Sample>> Members() {
        static constexpr auto members = NumberedMembers({
            Method<&Sample::Join>(L"join"),
            Method<&Sample::Half>(L"half"),
            Method<&Sample::Not>(L"not"),
            Method<&Sample::Apply>(L"apply"),
            Method<&Sample::Later>(L"later"),
            Property<&Sample::Count, &Sample::SetCount>(L"count"),
            ReadOnly<&Sample::Nothing>(L"nothing"),
            Constant<Sample, 7>(L"seven"),
        });
        return members;
    }

    std::wstring Join(const std::wstring& first, const std::optional<std::wstring>& second) {
        return first + L"+" + second.value_or(L"none");
    }
    double Half(double number) { return number / 2; }
    bool Not(bool value) { return !value; }
    // Calls the property `function` of the object with its property `value`.
    Variant Apply(const ScriptObject& options) {
        const auto function = options.Get<ScriptObject>(L"function");
        if (!function) throw StatusError(E_HANDLE);
        options.Set(L"seen", true);
        return (*function)(options.Get<int>(L"value"), 0.5, L"text", 3'000'000'000ll, options);
    }
    // Calls the function from a worker until it fails.
    void Later(const ScriptObject& function) {
        ThrowIfFailed(StartWorker(std::make_unique<Caller>(function)));
    }
    int Count() const { return count_; }
    void SetCount(int count) { count_ = count; }
    std::optional<int> Nothing() { return {}; }

    ~Sample() override { --alive; }
    Sample() { ++alive; }
    static inline std::atomic<int> alive{0};

  private:
    struct Caller : Worker {
        explicit Caller(const ScriptObject& function) : function_(function) {}
        HRESULT Run() override {
            const ScriptObject& function = function_.Get();
            for (int count = 1;; ++count)
                function(count);
        }
        MarshaledObject function_;
    };
    int count_ = 0;
};

class Library : public testing::Test {
  protected:
    void TearDown() override {
        plugin_.Reset();
        EXPECT_EQ(Sample::alive, 0);
    }

    ComPtr<Sample> plugin_ = MakeCom<Sample>();
};

TEST_F(Library, ChecksAndConvertsArguments) {
    IDispatch* const sample = plugin_.Get();
    EXPECT_EQ(CallText(sample, L"join", L"a", L"b"), "BSTR a+b");
    EXPECT_EQ(CallText(sample, L"join", L"a"), "BSTR a+none");
    EXPECT_EQ(CallText(sample, L"join"), StatusText(E_NOTIMPL));
    EXPECT_EQ(CallText(sample, L"join", L"a", L"b", L"c"), StatusText(E_NOTIMPL));
    EXPECT_EQ(CallText(sample, L"join", L"a", 1), StatusText(E_INVALIDARG));
    EXPECT_EQ(CallText(sample, L"half", 3), "R8 1.500000");
    EXPECT_EQ(CallText(sample, L"half", Variant::UI8(6)), "R8 3.000000");
    EXPECT_EQ(CallText(sample, L"half", L"3"), StatusText(E_INVALIDARG));
    EXPECT_EQ(CallText(sample, L"not", false), "BOOL true");
    EXPECT_EQ(PutText(sample, L"count", 2.0), "EMPTY");
    EXPECT_EQ(GetText(sample, L"count"), "I4 2");
    for (const double number : {2.5, 3e9, std::nan("")})
        EXPECT_EQ(PutText(sample, L"count", number), StatusText(E_INVALIDARG));
    EXPECT_EQ(GetText(sample, L"nothing"), "NULL");
    EXPECT_EQ(PutText(sample, L"nothing", 1), StatusText(E_NOTIMPL));
    EXPECT_EQ(GetText(sample, L"seven"), "I4 7");
    EXPECT_EQ(GetText(sample, L"join"), StatusText(E_NOTIMPL));
    EXPECT_EQ(GetText(sample, L"Count"), StatusText(DISP_E_UNKNOWNNAME));
}

TEST_F(Library, CallsFunctionsOfOptionObjects) {
    const auto function = MakeCom<Recorder>([](const Recorder::Record&) { return Variant::I4(7); });
    const OptionObject options;
    EXPECT_EQ(CallText(plugin_.Get(), L"apply", options), StatusText(E_HANDLE));
    options.Set(L"function", function);
    EXPECT_EQ(CallText(plugin_.Get(), L"apply", options), "I4 7");
    options.Set(L"value", 5);
    CallMember(plugin_.Get(), L"apply", options);
    EXPECT_THAT(function->Texts(),
                ElementsAre("NULL, R8 0.500000, BSTR text, R8 3000000000.000000, DISPATCH",
                            "I4 5, R8 0.500000, BSTR text, R8 3000000000.000000, DISPATCH"));
    EXPECT_EQ(GetText(options, L"seen"), "BOOL true");
    EXPECT_EQ(CallText(plugin_.Get(), L"apply", nullptr), StatusText(E_HANDLE));
}

TEST_F(Library, RejectsNullOutParameters) {
    const auto descriptor = MakeCom<detail::PluginDescriptor>(L"sample", TVK::kRetainedPlugin);
    EXPECT_THAT(descriptor->GetKind(nullptr, 0), HasStatus(E_POINTER));
    EXPECT_THAT(descriptor->GetName(nullptr), HasStatus(E_POINTER));
    EXPECT_THAT(descriptor->GetFlags(nullptr), HasStatus(E_POINTER));
    EXPECT_THAT(CreateInstance<Sample>(IID_IDispatch, nullptr), HasStatus(E_POINTER));
}

// Fails at its third call, like a function whose page has been destroyed.
class FailingFunction : public Recorder {
  public:
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
        Recorder::Invoke(id, iid, locale, flags, parameters, result, exception, argument);
        return calls.size() < 3 ? S_OK : DISP_E_EXCEPTION;
    }
};

TEST_F(Library, RunsWorkersAfterThePluginIsReleased) {
    const long before = detail::liveComObjects - 1;  // without the plug-in
    auto function = MakeCom<FailingFunction>();
    EXPECT_EQ(CallText(plugin_.Get(), L"later", function), "EMPTY");
    plugin_.Reset();
    EXPECT_TRUE(PumpUntil([&] { return function->calls.size() == 3; }));
    EXPECT_THAT(function->Texts(), ElementsAre("I4 1", "I4 2", "I4 3"));
    EXPECT_EQ(function->calls[0].thread, GetCurrentThreadId());
    function.Reset();
    EXPECT_TRUE(PumpUntil([&] { return detail::liveComObjects == before; })) << "the worker leaks objects";
}

}  // namespace
}  // namespace tarvik
