#pragma once

#include <sstream>

#include "page_control/bridge/script_bridge.h"
#include "page_control/engine/shared_engine.h"
#include "script/dispatch.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {

// The `external` object of the tests' pages.
class Desk : public TableDispatch<Desk> {
  public:
    static constexpr char kClassName[] = "Desk";
    static std::span<const Member<Desk>> Members();

    Variant Echo(AnyValue value) { return Variant::Copy(*value.value); }
    std::vector<std::string> notes;
    void Note(AnyValue value) { notes.push_back(ValueText(*value.value)); }
    HRESULT Fail(AnyInt32 status) { return status.value; }
    // Calls the function with the other arguments, and returns what it returns.
    HRESULT Run(const Call& call) {
        IDispatch* function = nullptr;
        if (!FromVariant(call.At(0), function)) return E_INVALIDARG;
        std::vector<const VARIANT*> arguments;
        for (size_t i = 1; i < call.Count(); ++i)
            arguments.push_back(&call.At(i));
        return CallScriptFunction(function, arguments, call.Result());
    }
    // The members of an object as text, read one by one.
    Variant Options(IDispatch* object, BSTR names) {
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
    Variant kept;
    Variant GetKept() { return Variant::Copy(kept); }
    Variant text;  // empty at first
    Variant GetText() { return Variant::Copy(text); }
    void SetText(AnyValue value) { text = Variant::Copy(*value.value); }
    // Reading fails while the value is 4.
    int GetSize() {
        if (size_ == 4) throw StatusError(E_PENDING);
        return size_;
    }
    HRESULT SetSize(AnyInt32 value) {
        if (value.value == 0) throw StatusError(E_INVALIDARG);
        return size_ = value.value, S_OK;
    }

  private:
    LONG size_ = 3;
};

inline constexpr Member<Desk> kDeskMembers[] = {
    Method<&Desk::Echo>(L"echo", -10000),      Method<&Desk::Note>(L"note", -9999),
    Method<&Desk::Fail>(L"fail", -9998),       RawMethod<&Desk::Run, 1, 9>(L"run", -9997),
    ReadOnly<&Desk::GetKept>(L"kept", -9996),  Property<&Desk::GetSize, &Desk::SetSize>(L"size", -9995),
    Method<&Desk::Options>(L"options", -9994), Property<&Desk::GetText, &Desk::SetText>(L"text", -9993),
};

inline std::span<const Member<Desk>> Desk::Members() {
    return kDeskMembers;
}

// A page of the engine with a bridge and without a window.
class BridgedPage : public ScriptContextDelegate {
  public:
    explicit BridgedPage(SharedEngine& engine) : target(engine.Acquire()) {
        loads_ = target.Events().Subscribe<event::LoadEventFired>([this](const auto&) { loaded_ = true; });
        target.Post("Page.enable");
        bridge = std::make_unique<ScriptBridge>(target, *this);
    }
    ~BridgedPage() override { bridge.reset(); }

    bool CanRunScript() override { return true; }

    // Opens a document and waits until it has loaded.
    void Open(const std::string& html) {
        loaded_ = false;
        target.Call("Page.navigate", {{"url", "data:text/html," + Escaped(html)}});
        ASSERT_TRUE(target.Engine().WaitUntil([&] { return loaded_; }, 10'000));
    }
    // The value of an expression, as JSON; "threw ..." if it throws.
    std::string Evaluate(const std::string& expression) {
        const Json reply = target.Call(
            "Runtime.evaluate",
            {{"expression", "JSON.stringify(" + expression + ")"}, {"returnByValue", true}}, 30'000);
        if (reply.contains("exceptionDetails"))
            return "threw " + reply["exceptionDetails"]["exception"].value("description", std::string());
        return reply["result"].value("value", std::string("undefined"));
    }
    // A global of the page as a native value.
    Variant Get(const wchar_t* global) {
        return ReadScriptProperty(bridge->Context()->Window().Get(), global);
    }

    void OnDocumentStart() override { bridge->Context()->SetExternal(desk.Get()); }
    void OnOpenWindow(const std::wstring& url) override { opened.push_back(url); }
    void OnCloseWindow() override {}
    Variant OnDialog(const std::string&, const std::wstring&, const std::wstring&) override { return {}; }
    void OnContextMenu(POINT, IDispatch*) override {}
    void OnMouseDown() override {}
    void OnNativeCall(bool) override {}

    ComPtr<Desk> desk = MakeCom<Desk>();
    std::vector<std::wstring> opened;
    PageTarget target;
    std::unique_ptr<ScriptBridge> bridge;

  private:
    static std::string Escaped(const std::string& text) {
        std::string escaped;
        char code[4];
        for (const unsigned char character : text) {
            std::snprintf(code, sizeof code, "%%%02x", character);
            escaped += code;
        }
        return escaped;
    }

    bool loaded_ = false;
    EventRouter::Subscription loads_;
};

}  // namespace tarvik
