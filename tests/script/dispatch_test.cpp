#include "script/dispatch.h"

#include "app/log/log.h"
#include "script/object.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// An object with a row for each type of argument, result and access. Its handlers log their arguments.
class CSample : public TableDispatch<CSample> {
  public:
    static constexpr char kClassName[] = "CSample";
    static constexpr bool kTracesCalls = true;
    static std::span<const Member<CSample>> Members();

    bool TakeBool(bool value) { return Log(value ? "true" : "false"), value; }
    Bstr TakeText(BSTR value) {
        Log(value ? "text " + Narrow(Bstr::View(value)) : "null text");
        return Bstr(Bstr::View(value));
    }
    ComPtr<IDispatch> TakeObject(IDispatch* value) { return Log(value ? "object" : "null object"), value; }
    int TakeCoerced(CoercedInt value) { return Log(std::to_string(value.value)), value.value; }
    Variant TakeInt32(AnyInt32 value) { return Log(std::to_string(value.value)), Variant::UI4(7); }
    void TakeAny(AnyValue value) { Log(ValueText(*value.value)); }
    Outcome TakeOptional(BSTR, std::optional<AnyInt32> number) {
        Log(number ? std::to_string(number->value) : "missing");
        return {number ? S_OK : S_FALSE};
    }
    std::optional<uint16_t> Compute(CoercedInt value) {
        Log("computed");
        return value.value ? std::optional(static_cast<uint16_t>(value.value)) : std::nullopt;
    }
    HRESULT Three(bool, BSTR text, AnyInt32) { return Log(Narrow(Bstr::View(text))), E_ABORT; }
    HRESULT Raw(const Call& call) { return Log("raw " + std::to_string(call.Count())), S_OK; }
    int GetSize() { return size_; }
    HRESULT SetSize(AnyInt32 value) {
        if (value.value == 0) throw StatusError(E_INVALIDARG);
        return size_ = value.value, S_OK;
    }
    HRESULT Run(IDispatch* function) {
        CallScriptFunction(function);
        return Log("survived"), S_OK;
    }
    bool Throw() { throw StatusError(E_ABORT); }

    std::vector<std::string> log;
    std::function<void()> onDestroy;
    ~CSample() override {
        if (onDestroy) onDestroy();
    }

  private:
    void Log(std::string text) { log.push_back(std::move(text)); }
    LONG size_ = 3;
};

constexpr Member<CSample> kMembers[] = {
    Method<&CSample::TakeBool>(L"takeBool", -10000),
    Method<&CSample::TakeText>(L"takeText", -9999),
    Method<&CSample::TakeObject>(L"takeObject", -9998),
    Method<&CSample::TakeCoerced>(L"takeCoerced", -9997),
    Method<&CSample::TakeInt32>(L"takeInt32", -9996),
    Method<&CSample::TakeAny>(L"takeAny", -9995),
    Method<&CSample::TakeOptional>(L"takeOptional", -9994),
    Method<&CSample::Three>(L"three", -9993),
    RawMethod<&CSample::Raw, 1, 3>(L"raw", -9992),
    Property<&CSample::GetSize, &CSample::SetSize>(L"size", -9991),
    ReadOnly<&CSample::GetSize>(L"fixed", -9990),
    WriteOnly<&CSample::SetSize>(L"sink", -9989),
    Method<&CSample::Run>(L"run", -9987),
    Method<&CSample::Throw>(L"throw", -9986),
    ResultMethod<&CSample::Compute>(L"compute", -9985),
};
static_assert(IsInOrder(kMembers));
constexpr Member<CSample> kSameName[] = {kMembers[0], Method<&CSample::Throw>(L"takeBool", -9999)};
constexpr Member<CSample> kWrongOrder[] = {kMembers[1], kMembers[0]};
static_assert(!IsInOrder(kSameName) && !IsInOrder(kWrongOrder));

std::span<const Member<CSample>> CSample::Members() {
    return kMembers;
}

class MemberTable : public testing::Test {
  protected:
    template <class... Args>
    std::string Call(const wchar_t* name, Args&&... args) {
        return CallText(sample_.Get(), name, std::forward<Args>(args)...);
    }
    HRESULT InvokeId(DISPID id, WORD flags, VARIANT* result) {
        DISPPARAMS none = {};
        return sample_->Invoke(id, IID_NULL, kScriptLocale, flags, &none, result, nullptr, nullptr);
    }

    ComPtr<CSample> sample_ = MakeCom<CSample>();
};

const std::string kNotImplemented = StatusText(E_NOTIMPL);
const std::string kInvalid = StatusText(E_INVALIDARG);

TEST_F(MemberTable, ConvertsArgumentsAndResults) {
    Variant nullText;
    nullText.bstrVal = nullptr;
    nullText.vt = VT_BSTR;
    EXPECT_EQ(Call(L"takeBool", true), "BOOL true");
    EXPECT_EQ(Call(L"takeText", L"x"), "BSTR x");
    EXPECT_EQ(Call(L"takeText", std::move(nullText)), "BSTR ");
    EXPECT_EQ(Call(L"takeObject", MakeCom<Recorder>()), "DISPATCH");
    EXPECT_EQ(Call(L"takeObject", Variant::Object(nullptr)), "DISPATCH null");
    EXPECT_EQ(Call(L"takeCoerced", L"12"), "I4 12");
    EXPECT_EQ(Call(L"takeCoerced", 2.6), "I4 3");
    EXPECT_EQ(Call(L"takeCoerced", L"no number"), "I4 0");
    EXPECT_EQ(Call(L"takeInt32", Variant::UI4(0xFFFFFFFF)), "UI4 7");
    EXPECT_EQ(Call(L"takeAny", nullptr), "EMPTY");
    EXPECT_EQ(Call(L"raw", 1, L"2", true), "EMPTY");
    EXPECT_THAT(sample_->log, ElementsAre("true", "text x", "null text", "object", "null object", "12", "3",
                                          "0", "-1", "NULL", "raw 3"));
}

TEST_F(MemberTable, RejectsWrongCountsBeforeWrongTypes) {
    EXPECT_EQ(Call(L"takeBool", 1), kInvalid);
    EXPECT_EQ(Call(L"takeText", 1), kInvalid);
    EXPECT_EQ(Call(L"takeObject", nullptr), kInvalid);
    EXPECT_EQ(Call(L"takeInt32", 1.0), kInvalid);
    EXPECT_EQ(Call(L"takeOptional", L"a", 1.0), kInvalid);
    EXPECT_EQ(Call(L"three", true, L"x", L"3"), kInvalid);
    EXPECT_EQ(Call(L"takeBool"), kNotImplemented);
    EXPECT_EQ(Call(L"takeBool", 1, 2), kNotImplemented);
    EXPECT_EQ(Call(L"takeOptional"), kNotImplemented);
    EXPECT_EQ(Call(L"raw"), kNotImplemented);
    EXPECT_EQ(Call(L"raw", 1, 2, 3, 4), kNotImplemented);
    EXPECT_THAT(sample_->log, IsEmpty());
}

TEST_F(MemberTable, PassesArgumentsInScriptOrderAndAllowsMissingOnes) {
    EXPECT_EQ(Call(L"throw"), StatusText(E_ABORT)) << "thrown, not returned";
    EXPECT_EQ(Call(L"three", true, L"middle", 3), StatusText(E_ABORT));
    EXPECT_EQ(Call(L"takeOptional", L"a"), "BOOL false");
    EXPECT_EQ(Call(L"takeOptional", L"a", 5), "BOOL true");
    EXPECT_THAT(sample_->log, ElementsAre("middle", "missing", "5"));
}

TEST_F(MemberTable, ChecksTheAccess) {
    IDispatch* const sample = sample_.Get();
    EXPECT_EQ(GetText(sample, L"size"), "I4 3");
    EXPECT_EQ(PutText(sample, L"size", 9), "EMPTY");
    EXPECT_EQ(GetText(sample, L"fixed"), "I4 9");
    EXPECT_EQ(PutText(sample, L"size", 0), kInvalid);
    EXPECT_EQ(PutText(sample, L"fixed", 1), kNotImplemented);
    EXPECT_EQ(GetText(sample, L"sink"), kNotImplemented);
    EXPECT_EQ(GetText(sample, L"takeBool"), kNotImplemented);
    EXPECT_EQ(Call(L"size"), kNotImplemented);
    EXPECT_EQ(ResultText(InvokeMember(sample, L"size", DISPATCH_PROPERTYPUTREF, {})), kNotImplemented);
    // Engines set both flags for a call whose value is used.
    std::vector<Variant> argument;
    argument.push_back(Variant::Bool(true));
    const WORD both = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    EXPECT_EQ(ResultText(InvokeMember(sample, L"takeBool", both, std::move(argument))), "BOOL true");
}

TEST_F(MemberTable, RequiresAResultSlotForReadsAndResultMethods) {
    EXPECT_THAT(InvokeId(-9991, DISPATCH_PROPERTYGET, nullptr), HasStatus(E_INVALIDARG));
    Variant argument = Variant::Bool(true);
    DISPPARAMS one = {&argument, nullptr, 1, 0};
    const auto call = [&](DISPID id) {
        return sample_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &one, nullptr, nullptr, nullptr);
    };
    EXPECT_THAT(call(-10000), HasStatus(S_OK));
    EXPECT_THAT(call(-9985), HasStatus(E_INVALIDARG));
    EXPECT_THAT(sample_->log, ElementsAre("true"));
    EXPECT_EQ(Call(L"compute", 7), "UI2 7");
    EXPECT_EQ(Call(L"compute", 0), "NULL");
}

TEST_F(MemberTable, RejectsUnknownNamesAndIds) {
    DISPID id = 0;
    EXPECT_THAT(IdOf(sample_.Get(), L"takeText", &id), HasStatus(S_OK));
    EXPECT_EQ(id, -9999);
    EXPECT_THAT(IdOf(sample_.Get(), L"TakeText", &id), HasStatus(DISP_E_UNKNOWNNAME));
    EXPECT_THAT(IdOf(sample_.Get(), L"", &id), HasStatus(DISP_E_UNKNOWNNAME));
    EXPECT_THAT(IdOf(sample_.Get(), nullptr, &id), HasStatus(E_INVALIDARG));
    EXPECT_THAT(IdOf(sample_.Get(), L"takeText", nullptr), HasStatus(E_INVALIDARG));
    Variant result;
    for (const DISPID unknown : {-10001, -9988, -9984, 0})
        EXPECT_THAT(InvokeId(unknown, DISPATCH_METHOD, &result), HasStatus(E_NOTIMPL)) << unknown;
}

TEST_F(MemberTable, LogsUnknownNamesAndOperations) {
    DebugChannel channel;
    const DWORD before = std::exchange(processLog.flags, kLogTrace | kLogError);
    DISPID id = 0;
    UINT count = 0;
    IdOf(sample_.Get(), L"none", &id);
    IdOf(sample_.Get(), L"size", &id);
    EXPECT_THAT(sample_->GetTypeInfoCount(&count), HasStatus(E_NOTIMPL));
    InvokeId(-9990, DISPATCH_METHOD, nullptr);
    processLog.flags = before;
    const std::string line = "\\(\\d\\d\\d\\d\\) CSample::";
    EXPECT_THAT(channel.Texts(),
                ElementsAre(MatchesRegex(line + "GetIDsOfNames Not implement name: none\n"),
                            MatchesRegex(line + "GetTypeInfoCount\n"), MatchesRegex(line + "Invoke\n")));
}

// A callback may release script's last reference to the object whose member calls it.
TEST_F(MemberTable, KeepsTheObjectAliveDuringACall) {
    bool isDestroyed = false;
    bool isDestroyedEarly = false;
    sample_->onDestroy = [&] { isDestroyed = true; };
    CSample* const pointer = sample_.Get();
    const auto function = MakeCom<Recorder>([&](const Recorder::Record&) {
        sample_.Reset();
        isDestroyedEarly = isDestroyed;
        return Variant();
    });
    EXPECT_THAT(CallMember(pointer, L"run", function).status, HasStatus(S_OK));
    EXPECT_FALSE(isDestroyedEarly);
    EXPECT_TRUE(isDestroyed);
}

TEST_F(MemberTable, ReturnsItsOwnStatusForUnknownInterfaces) {
    CDispatchBase* const object = sample_.Get();
    void* out = &out;
    EXPECT_THAT(object->QueryInterface(__uuidof(IStream), &out), HasStatus(E_NOTIMPL));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(object->QueryInterface(IID_IDispatch, nullptr), HasStatus(E_INVALIDARG));
    EXPECT_TRUE(Query<IDispatch>(object));
}

}  // namespace
}  // namespace tarvik
