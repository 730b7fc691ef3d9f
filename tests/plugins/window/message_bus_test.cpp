// Messages between the windows of this process, sent through the script members, and forged ones in hand-made
// blocks.

#include <windows.h>

#include "host/web_browser.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

constexpr UINT kMessage = 3025;

std::wstring BlockName(HWND target) {
    wchar_t name[64];
    swprintf(name, 64, L"Tarvik_MsgMap_%08X_%08X", static_cast<unsigned>(GetCurrentProcessId()),
             static_cast<unsigned>(reinterpret_cast<uintptr_t>(target)));
    return name;
}

bool IsBlockThere(HWND target) {
    return static_cast<bool>(UniqueHandle(OpenFileMappingW(FILE_MAP_READ, FALSE, BlockName(target).c_str())));
}

// Sends a forged block: one page of memory, followed by `reserved` bytes that are not committed.
HRESULT SendByHand(HWND target, std::wstring_view text, size_t size, DWORD reserved = 0) {
    constexpr DWORD kPage = 0x1000;
    const UniqueHandle block(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr,
                                                PAGE_READWRITE | (reserved ? SEC_RESERVE : 0), 0,
                                                kPage + reserved, BlockName(target).c_str()));
    EXPECT_TRUE(block && GetLastError() != ERROR_ALREADY_EXISTS);
    const UniqueView view(MapViewOfFile(block.Get(), FILE_MAP_WRITE, 0, 0, 0));
    if (reserved) VirtualAlloc(view.Get(), kPage, MEM_COMMIT, PAGE_READWRITE);
    text.copy(static_cast<wchar_t*>(view.Get()), text.size());
    return static_cast<HRESULT>(SendMessageW(target, kMessage, GetCurrentProcessId(), size));
}
HRESULT SendByHand(HWND target, std::wstring_view text) {
    return SendByHand(target, text, text.size() * sizeof(wchar_t));
}

// A browser window and its `msg` object.
class Endpoint {
  public:
    explicit Endpoint(const std::wstring& page) : window_(browser_->CreateHidden(nullptr, page.c_str())) {
        browser_->GetPlugin(L"window", plugin_.GetAddressOf());
        const InvokeResult msg = GetMember(plugin_.Get(), L"msg");
        msg_ = msg.value.vt == VT_DISPATCH ? msg.value.pdispVal : nullptr;
    }
    ~Endpoint() { Close(); }

    void Close() {
        if (IsWindow(window_)) DestroyWindow(window_);
        PumpOnce();
    }
    void ReleasePlugin() { plugin_.Reset(); }

    HWND Window() const { return window_; }
    IDispatch* Msg() const { return msg_.Get(); }

    void Receive(const wchar_t* identifier) const { PutMember(Msg(), L"uniqueID", identifier); }
    template <class... Args>
    std::string Call(const wchar_t* member, Args&&... args) const {
        return CallText(Msg(), member, std::forward<Args>(args)...);
    }
    // Registers a function for a message, with the context "in".
    ComPtr<Recorder> On(const wchar_t* name, Recorder::Handler handler = {}) const {
        const auto function = MakeCom<Recorder>(std::move(handler));
        EXPECT_EQ(Call(L"registerMsg", name, function, L"in"), "BOOL true");
        return function;
    }

  private:
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
    const HWND window_;
    ComPtr<IDispatch> plugin_;
    ComPtr<IDispatch> msg_;
};

class MessageBus : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(one_.Msg() && two_.Msg());
        one_.Receive(L"one");
        two_.Receive(L"two");
    }
    void TearDown() override {
        EXPECT_FALSE(IsBlockThere(one_.Window()));
        EXPECT_FALSE(IsBlockThere(two_.Window()));
    }

    const ObjectCheck objects_;
    const TempFolder folder_;
    const std::wstring page_ = folder_.Write(L"page.html", "<html></html>");
    Endpoint one_{page_};
    Endpoint two_{page_};
};

TEST_F(MessageBus, ReceivesForEveryIdentifier) {
    const auto news = one_.On(L"news");
    one_.Receive(L"both");
    PutMember(one_.Msg(), L"uniqueID", 42);
    const std::wstring tooLong(300, L'x');
    one_.Receive(tooLong.c_str());
    EXPECT_EQ(GetText(one_.Msg(), L"uniqueID"), "BSTR 42");
    for (const wchar_t* identifier : {L"one", L"both", L"42"})
        EXPECT_EQ(two_.Call(L"sendMsg", identifier, L"news"), "BOOL true");
    for (const wchar_t* identifier : {L"unused", tooLong.c_str()})
        EXPECT_EQ(two_.Call(L"sendMsg", identifier, L"news"), "BOOL false");
    EXPECT_EQ(two_.Call(L"sendMsg", L"one", L"unknown"), "BOOL true");
    EXPECT_EQ(news->calls.size(), 3u);
}

// Another process may have created a block of that name.
TEST_F(MessageBus, WritesOnlyToItsOwnBlock) {
    const auto news = one_.On(L"news");
    const UniqueHandle squatter(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 0x1000,
                                                   BlockName(one_.Window()).c_str()));
    EXPECT_EQ(two_.Call(L"sendMsg", L"one", L"news", L"secret"), "BOOL true");
    EXPECT_THAT(news->calls, IsEmpty());
}

TEST_F(MessageBus, RejectsForgedBlocks) {
    const auto news = one_.On(L"news");
    const HWND target = one_.Window();
    const std::wstring good(L"news\0text\0", 10);
    EXPECT_EQ(SendMessageW(target, kMessage, GetCurrentProcessId(), 20), E_FAIL) << "no block";
    EXPECT_EQ(SendByHand(target, good, 0), E_FAIL);
    EXPECT_EQ(SendByHand(target, good, 0x1001), E_FAIL) << "larger than the memory";
    EXPECT_EQ(SendByHand(target, good, ~size_t{0}), E_FAIL);
    EXPECT_EQ(SendByHand(target, good, 0x1002, 0x1000), E_FAIL) << "beyond the committed memory";
    EXPECT_EQ(SendByHand(target, std::wstring(0x800, L'x')), E_FAIL) << "a name without a terminator";
    EXPECT_EQ(SendByHand(target, std::wstring(L"\0text\0", 6)), E_FAIL) << "an empty name";
    EXPECT_EQ(SendByHand(target, std::wstring(L"old\0text\0", 9)), E_FAIL);
    EXPECT_EQ(SendByHand(target, good, 1), E_FAIL);
    EXPECT_THAT(news->calls, IsEmpty());

    EXPECT_EQ(SendByHand(target, good), S_OK);
    EXPECT_EQ(SendByHand(target, good, 0x1000, 0x1000), S_OK) << "to the end of the memory";
    EXPECT_EQ(SendByHand(target, good.substr(0, 5)), S_OK) << "cut after the name";
    EXPECT_EQ(SysStringLen(news->calls[1].arguments[0].bstrVal), 0x800u - 6);
    EXPECT_EQ(Recorder::Text(news->calls[2]), "BSTR , BSTR in");
}

TEST_F(MessageBus, SurvivesTheEndOfItsWindow) {
    one_.ReleasePlugin();
    const auto news = one_.On(L"news", [&](const auto&) {
        one_.Close();
        EXPECT_EQ(one_.Call(L"sendMsg", L"one", L"news"), "BOOL false") << "the window has been destroyed";
        return Variant();
    });
    EXPECT_EQ(two_.Call(L"sendMsg", L"one", L"news", L"end"), "BOOL true");
    EXPECT_EQ(news->calls.size(), 1u);
    EXPECT_EQ(one_.Call(L"unregisterMsg", L"one"), StatusText(E_FAIL));
    EXPECT_THAT(GetMember(one_.Msg(), L"uniqueID").status, HasStatus(E_FAIL));
    EXPECT_THAT(PutMember(one_.Msg(), L"uniqueID", L"x").status, HasStatus(E_FAIL));
}

}  // namespace
}  // namespace tarvik
