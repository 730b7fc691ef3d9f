#include "plugins/window/drag_sink.h"

#include <windows.h>

#include <optional>

#include "base/bstr.h"
#include "base/variant.h"
#include "control/page/html_members.h"
#include "tests/support/silent_object.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// An element of a page, as far as the sink looks at it. An attribute that is nothing cannot be read.
class FakeElement : public SilentObject<As<ElementMembers, IHTMLElement, IDispatch>> {
  public:
    FakeElement(const wchar_t* tag, std::optional<Variant> attribute, ComPtr<IHTMLElement> parent)
        : tag_(tag), attribute_(std::move(attribute)), parent_(std::move(parent)) {}

    STDMETHODIMP get_tagName(BSTR* out) override {
        *out = Bstr(tag_).Detach();
        return S_OK;
    }
    STDMETHODIMP getAttribute(BSTR, LONG, VARIANT* out) override {
        if (!attribute_) return E_FAIL;
        Variant::Copy(*attribute_).MoveInto(out);
        return S_OK;
    }
    STDMETHODIMP get_parentElement(IHTMLElement** out) override { return HandOut(parent_, out); }

  private:
    const wchar_t* tag_;
    std::optional<Variant> attribute_;
    ComPtr<IHTMLElement> parent_;
};

// A document with one element at the place of the mouse.
class FakeDocument : public SilentObject<As<DocumentMembers, IHTMLDocument2, IHTMLDocument, IDispatch>> {
  public:
    STDMETHODIMP elementFromPoint(LONG, LONG, IHTMLElement** out) override { return HandOut(element, out); }

    ComPtr<IHTMLElement> element;
};

class DragSink : public testing::Test {
  protected:
    // A further element, inside of those that are there.
    void Add(const wchar_t* tag, std::optional<Variant> attribute = Variant::Null()) {
        auto inner = MakeCom<FakeElement>(tag, std::move(attribute), document_->element);
        document_->element = ComPtr<IHTMLElement>(inner.Get());
    }
    bool Drags(DISPID event = DISPID_MOUSEDOWN) {
        const HRESULT status =
            sink_->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr);
        MSG message = {};
        const bool posted =
            PeekMessageW(&message, window_.Get(), WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN, PM_REMOVE);
        EXPECT_THAT(status, HasStatus(posted ? S_OK : E_NOTIMPL));
        EXPECT_TRUE(!posted || (message.wParam == HTCAPTION && message.lParam == 0));
        return posted;
    }

    const ObjectCheck nothingLeft_;
    const UniqueWindow window_{CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 30, 20, 100, 100, nullptr,
                                               nullptr, nullptr, nullptr)};
    const ComPtr<FakeDocument> document_ = MakeCom<FakeDocument>();
    const ComPtr<CDragSink> sink_ =
        MakeCom<CDragSink>(window_.Get(), ComPtr<IHTMLDocument2>(document_.Get()));
};

TEST_F(DragSink, LetsTheNearestElementDecide) {
    EXPECT_FALSE(Drags()) << "nothing is there";
    Add(L"HTML");
    EXPECT_FALSE(Drags());
    Add(L"BODY", Variant::Text(L"True"));
    EXPECT_TRUE(Drags());
    EXPECT_TRUE(Drags(static_cast<DISPID>(0x8001000B)));
    EXPECT_FALSE(Drags(DISPID_MOUSEUP));
    Add(L"DIV", Variant::Text(L"yes"));
    EXPECT_TRUE(Drags()) << "other words say nothing";
    Variant empty;
    empty.vt = VT_BSTR;
    Add(L"DIV", std::move(empty));
    EXPECT_TRUE(Drags()) << "nor do none";
    Add(L"DIV", std::nullopt);
    EXPECT_TRUE(Drags()) << "nor does what cannot be read";
    Add(L"DIV", Variant::Bool(false));
    EXPECT_FALSE(Drags());
    Add(L"DIV", Variant::Bool(true));
    EXPECT_TRUE(Drags());
    Add(L"DIV", Variant::Text(L"FALSE"));
    EXPECT_FALSE(Drags());
}

TEST_F(DragSink, NeverDragsByAControl) {
    for (const wchar_t* tag : {L"INPUT", L"textarea", L"Button"}) {
        document_->element.Reset();
        Add(L"BODY", Variant::Text(L"true"));
        Add(tag, Variant::Text(L"true"));
        EXPECT_FALSE(Drags()) << tag;
        Add(L"B");
        EXPECT_FALSE(Drags()) << "inside of " << tag;
    }
}

}  // namespace
}  // namespace tarvik
