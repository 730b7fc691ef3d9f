// Messages sent through the script members, and forged ones in hand-made blocks.

#include "base/owners.h"
#include "tests/plugins/window/window_fixture.h"

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

// A window that sends messages to itself; tests/page tests messages between windows.
class MessageBus : public WindowPluginTest {
  protected:
    void SetUp() override {
        WindowPluginTest::SetUp();
        msg_ = GetMember(plugin_.Get(), L"msg").value.pdispVal;
        Receive(L"one");
    }
    void TearDown() override { EXPECT_FALSE(IsBlockThere(window_)); }

    void Receive(Argument identifier) const { PutMember(msg_.Get(), L"uniqueID", std::move(identifier)); }
    std::string Send(const std::wstring& identifier, auto... payload) const {
        return CallText(msg_.Get(), L"sendMsg", identifier.c_str(), L"news", payload...);
    }
    // Registers a function for the message "news", with the context "in".
    ComPtr<Recorder> OnNews(Recorder::Handler answer = {}) const {
        const auto function = MakeCom<Recorder>(std::move(answer));
        EXPECT_EQ(CallText(msg_.Get(), L"registerMsg", L"news", function, L"in"), "BOOL true");
        return function;
    }

    ComPtr<IDispatch> msg_;
};

TEST_F(MessageBus, ReceivesForEveryIdentifier) {
    EXPECT_EQ(Send(L"one"), "BOOL true") << "a receiver without a function";
    const auto news = OnNews();
    const std::wstring tooLong(300, L'x');
    for (const auto& identifier : {Argument(L"both"), Argument(42), Argument(tooLong.c_str())})
        Receive(Variant::Copy(identifier));
    EXPECT_EQ(GetText(msg_.Get(), L"uniqueID"), "BSTR 42");
    for (const wchar_t* identifier : {L"one", L"both", L"42"})
        EXPECT_EQ(Send(identifier), "BOOL true");
    for (const std::wstring& identifier : {std::wstring(L"unused"), tooLong})
        EXPECT_EQ(Send(identifier), "BOOL false");
    EXPECT_EQ(news->calls.size(), 3u);
}

// Another process may have created a block of that name.
TEST_F(MessageBus, WritesOnlyToItsOwnBlock) {
    const auto news = OnNews();
    {
        const UniqueHandle squatter(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                                       0x1000, BlockName(window_).c_str()));
        EXPECT_EQ(Send(L"one", L"secret"), "BOOL true");
    }
    EXPECT_THAT(news->calls, IsEmpty());
}

TEST_F(MessageBus, RejectsForgedBlocks) {
    const auto news = OnNews();
    const std::wstring good(L"news\0text\0", 10);
    EXPECT_EQ(SendMessageW(window_, kMessage, GetCurrentProcessId(), 20), E_FAIL) << "no block";
    EXPECT_EQ(SendByHand(window_, good, 0), E_FAIL);
    EXPECT_EQ(SendByHand(window_, good, 0x1001), E_FAIL) << "larger than the memory";
    EXPECT_EQ(SendByHand(window_, good, ~size_t{0}), E_FAIL);
    EXPECT_EQ(SendByHand(window_, good, 0x1002, 0x1000), E_FAIL) << "beyond the committed memory";
    EXPECT_EQ(SendByHand(window_, std::wstring(0x800, L'x')), E_FAIL) << "a name without a terminator";
    EXPECT_EQ(SendByHand(window_, std::wstring(L"\0text\0", 6)), E_FAIL) << "an empty name";
    EXPECT_THAT(news->calls, IsEmpty());

    EXPECT_EQ(SendByHand(window_, good), S_OK);
    EXPECT_EQ(SendByHand(window_, good, 0x1000, 0x1000), S_OK) << "to the end of the memory";
    EXPECT_EQ(SendByHand(window_, good.substr(0, 5)), S_OK) << "cut after the name";
    EXPECT_EQ(SysStringLen(news->calls[1].arguments[0].bstrVal), 0x800u - 6);
    EXPECT_EQ(Recorder::Text(news->calls[2]), "BSTR , BSTR in");
}

TEST_F(MessageBus, SurvivesTheEndOfItsWindow) {
    plugin_.Reset();
    const auto news = OnNews([&](const auto&) {
        DestroyWindow(window_);
        return Variant();
    });
    EXPECT_EQ(Send(L"one", L"end"), "BOOL true");
    EXPECT_EQ(news->calls.size(), 1u);
    PumpOnce();
    EXPECT_EQ(Send(L"one"), StatusText(E_FAIL));
    EXPECT_EQ(GetText(msg_.Get(), L"uniqueID"), StatusText(E_FAIL));
    EXPECT_EQ(PutText(msg_.Get(), L"uniqueID", L"x"), StatusText(E_FAIL));
}

}  // namespace
}  // namespace tarvik
