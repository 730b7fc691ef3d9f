#pragma once

#include "control/bridge/script_bridge.h"
#include "script/dispatch.h"
#include "tests/support/test.h"

namespace tarvik {

// The native object that the pages of these tests find as `external`.
class Desk : public TableDispatch<Desk> {
  public:
    static constexpr char kClassName[] = "Desk";
    static std::span<const Member<Desk>> Members();

    Variant Echo(AnyValue value) { return Variant::Copy(*value.value); }
    std::vector<std::string> notes;
    void Note(AnyValue value) { notes.push_back(ValueText(*value.value)); }
    HRESULT Fail(ExactInt status) { return status.value; }
    // Calls the function with the other arguments, and returns what it returns.
    HRESULT Run(const Call& call);
    // The text forms of members of an object, read one by one.
    Variant Options(IDispatch* object, BSTR names);
    Variant kept;
    void Keep(AnyValue value) { kept = Variant::Copy(*value.value); }
    Variant GetKept() { return Variant::Copy(kept); }
    ComPtr<IDispatch> GetSelf() { return ComPtr<IDispatch>(this); }
    ComPtr<IDispatch> GetFresh() { return MakeCom<Desk>(); }
    Variant text;  // empty at first
    Variant GetText() { return Variant::Copy(text); }
    void SetText(AnyValue value) { text = Variant::Copy(*value.value); }
    // Cannot be read while it is 4.
    Integer GetSize() {
        if (size_ == 4) throw StatusError(E_PENDING);
        return {size_};
    }
    HRESULT SetSize(ExactInt value) {
        if (value.value == 0) throw StatusError(E_INVALIDARG);
        return size_ = value.value, S_OK;
    }

  private:
    LONG size_ = 3;
};

// A page of the engine with the bridge and no window. The engine stays up from test to test.
class BridgedPage : public WorldOwner {
  public:
    BridgedPage();
    ~BridgedPage() override;

    // Opens a document, and waits until it has loaded.
    void Open(const std::string& html);
    // The value of an expression, as JSON; "threw ..." if it throws.
    std::string Evaluate(const std::string& expression);
    // A value of the page as native code gets it.
    Variant Get(const wchar_t* global);

    void OnDocumentStart() override;
    void OnOpenWindow(const std::wstring& url) override { opened.push_back(url); }
    void OnCloseWindow() override {}
    Variant OnDialog(const std::string&, const std::wstring&, const std::wstring&) override { return {}; }
    void OnContextMenu(POINT, IDispatch*) override {}
    void OnMouseDown() override {}
    void OnParked(bool) override {}

    ComPtr<Desk> desk = MakeCom<Desk>();
    std::vector<std::wstring> opened;
    PageTarget target;
    std::unique_ptr<ScriptBridge> bridge;

  private:
    bool loaded_ = false;
};

}  // namespace tarvik
