#include "tests/control/bridge/bridge_fixture.h"

#include <sstream>

#include "script/properties.h"

namespace tarvik {

namespace {

constexpr Member<Desk> kMembers[] = {
    Method<&Desk::Echo>(-10000, L"echo"),
    Method<&Desk::Note>(-9999, L"note"),
    Method<&Desk::Fail>(-9998, L"fail"),
    RawMethod<&Desk::Run, 1, 9>(-9997, L"run"),
    Method<&Desk::Keep>(-9996, L"keep"),
    ReadOnly<&Desk::GetKept>(-9995, L"kept"),
    ReadOnly<&Desk::GetSelf>(-9994, L"self"),
    Property<&Desk::GetSize, &Desk::SetSize>(-9993, L"size"),
    ReadOnly<&Desk::GetFresh>(-9992, L"fresh"),
    Method<&Desk::Options>(-9991, L"options"),
    Property<&Desk::GetText, &Desk::SetText>(-9990, L"text"),
};

std::string Escaped(const std::string& text) {
    std::string escaped;
    char code[4];
    for (const unsigned char character : text) {
        std::snprintf(code, sizeof code, "%%%02x", character);
        escaped += code;
    }
    return escaped;
}

}  // namespace

std::span<const Member<Desk>> Desk::Members() {
    return kMembers;
}

HRESULT Desk::Run(const Call& call) {
    IDispatch* function = nullptr;
    if (!Read(call.At(0), function)) return E_INVALIDARG;
    std::vector<const VARIANT*> arguments;
    for (size_t i = 1; i < call.Count(); ++i)
        arguments.push_back(&call.At(i));
    return CallScriptFunction(function, arguments, call.Result());
}

Variant Desk::Options(IDispatch* object, BSTR names) {
    std::wistringstream list{std::wstring(Bstr::View(names))};
    std::wstring texts;
    for (std::wstring name; list >> name;) {
        Variant value;
        const HRESULT status = GetScriptProperty(object, name.c_str(), &value);
        const bool isObject = value.Is(VT_DISPATCH) && value.pdispVal;
        texts += (texts.empty() ? L"" : L", ");
        texts += status == DISP_E_UNKNOWNNAME ? L"none"
                 : isObject                   ? std::wstring(L"object")
                                              : Widen(ValueText(value));
    }
    return Variant::Text(texts);
}

BridgedPage::BridgedPage() : target(DevTools::Acquire()) {
    target.Engine().Listen(target.Session(), [this](std::string_view method, const Json& params) {
        if (bridge && bridge->HandleEvent(method, params)) return;
        if (method == "Page.loadEventFired") loaded_ = true;
    });
    target.Post("Page.enable");
    bridge = std::make_unique<ScriptBridge>(target, *this);
}

BridgedPage::~BridgedPage() {
    bridge.reset();
}

void BridgedPage::OnDocumentStart() {
    bridge->World()->SetExternal(desk.Get());
}

void BridgedPage::Open(const std::string& html) {
    loaded_ = false;
    target.Call("Page.navigate", {{"url", "data:text/html," + Escaped(html)}});
    ASSERT_TRUE(target.Engine().WaitUntil([&] { return loaded_; }, 10'000));
}

std::string BridgedPage::Evaluate(const std::string& expression) {
    const Json reply =
        target.Call("Runtime.evaluate",
                    {{"expression", "JSON.stringify(" + expression + ")"}, {"returnByValue", true}}, 30'000);
    if (reply.contains("exceptionDetails"))
        return "threw " + reply["exceptionDetails"]["exception"].value("description", std::string());
    return reply["result"].value("value", std::string("undefined"));
}

Variant BridgedPage::Get(const wchar_t* global) {
    return ReadScriptProperty(bridge->World()->Window().Get(), global);
}

}  // namespace tarvik
