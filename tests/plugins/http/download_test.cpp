#include <windows.h>
#include <wininet.h>

#include "app/log/log.h"
#include "tarvik/properties.h"
#include "tests/plugins/support/page_core.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

constexpr size_t kChunkSize = 65536;

std::string BodyOf(size_t size) {
    std::string body(size, '\0');
    for (size_t i = 0; i < size; ++i)
        body[i] = static_cast<char>(i * 31 + i / 251);
    return body;
}

std::string WinInetFailure(DWORD error) {
    return FailText(HRESULT_FROM_WIN32(error), "I4 7");
}

class Download : ObjectCheck, public PluginOfPage {
  protected:
    Download() : PluginOfPage(L"http") {}

    OptionObject Options(const std::wstring& url, const wchar_t* name = L"got") const {
        return OptionObject().Set(L"url", url.c_str()).Set(L"destPath", name).Set(L"context", 7);
    }
    Completion Run(const std::wstring& url, Recorder::Handler handler = {}) const {
        return RunToCompletion(client_.Get(), L"downloadToFile", Options(url), std::move(handler));
    }
    std::unique_ptr<AsyncOperation> Start(const std::wstring& url, const wchar_t* name) const {
        return std::make_unique<AsyncOperation>(client_.Get(), L"downloadToFile", Options(url, name));
    }
    bool Exists() const { return FileExists(got_); }

    static constexpr char kDone[] = "success: I4 7";
    const ComPtr<IDispatch> client_{CallMember(plugin_.Get(), L"createClient").value.pdispVal};
    const std::wstring got_ = folder_ / L"got";
};

TEST_F(Download, NeedsAResultForItsClient) {
    DISPPARAMS none = {};
    DebugChannel channel;
    const DWORD flags = std::exchange(processLog.flags, kLogError);
    EXPECT_THAT(
        plugin_->Invoke(-10000, IID_NULL, kScriptLocale, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
        HasStatus(S_OK));
    processLog.flags = flags;
    EXPECT_THAT(channel.Texts(), ElementsAre(EndsWith("CHttpPlugin::CreateClient pResult is NULL.\n")));
}

TEST_F(Download, StoresABodyOfAnySizeAndReportsEachChunk) {
    for (const size_t size : {kChunkSize, kChunkSize + 1, size_t{1'000'000}}) {
        const std::string body = BodyOf(size);
        std::string head;
        const WebServer server([&](const WebExchange& exchange) {
            head = exchange.Head();
            exchange.Respond(body);
        });
        bool wasClosed = false;
        ULONG reported = 0;
        const Completion end = Run(server.Url(L"a?b=c"), [&](const Recorder::Record& call) {
            EXPECT_GT(call.arguments[0].ulVal, reported);
            EXPECT_LE(call.arguments[0].ulVal - reported, kChunkSize);
            reported = call.arguments[0].ulVal;
            if (reported == size) wasClosed = static_cast<bool>(HoldFile(got_));
            return Variant::I4(0);
        });
        const std::string number = "UI4 " + std::to_string(size);
        EXPECT_EQ(end.result, "BOOL true");
        ASSERT_EQ(end.text, kDone);
        EXPECT_EQ(end.progress.back(), number + ", " + number + ", I4 7");
        EXPECT_EQ(end.progress.size() == 1, size <= kChunkSize) << size;
        EXPECT_TRUE(wasClosed) << "before the last call";
        EXPECT_TRUE(ReadFileBytes(got_) == body) << size;
        EXPECT_THAT(head, testing::StartsWith("GET /a?b=c HTTP/1.1\r\n"));
        EXPECT_THAT(head, HasSubstr("User-Agent: Tarvik\r\n"));
    }
}

TEST_F(Download, ReadsContentLengthBytes) {
    const std::string eFail = FailText(E_FAIL, "I4 7");
    const struct {
        const char* answer;
        std::string end;
        const char* content;  // null if the file is deleted
    } rows[] = {
        {"HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\nnone", kDone, "none"},
        {"HTTP/1.1 302 Found\r\nLocation: /new\r\nContent-Length: 4\r\n\r\nnone", kDone, "moved"},
        {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nmore than that", kDone, "mor"},
        {"HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", eFail, "old"},
        {"HTTP/1.1 200 OK\r\nContent-Length: many\r\n\r\nbody", eFail, "old"},
        {"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nshort", eFail, nullptr},
        {"HTTP/1.1 200 OK\r\nContent-Length: 99999999999\r\n\r\nhuge", eFail, nullptr},
        {"HTTP/1.1 200 OK\r\n\r\nto the end", WinInetFailure(ERROR_HTTP_HEADER_NOT_FOUND), "old"},
    };
    for (const auto& row : rows) {
        const WebServer server([&](const WebExchange& exchange) {
            exchange.Path() == "/new" ? exchange.Respond("moved") : (void)exchange.Send(row.answer);
        });
        folder_.Write(L"got", "old");
        EXPECT_EQ(Run(server.Url()).text, row.end) << row.answer;
        EXPECT_EQ(Exists(), row.content != nullptr) << row.answer;
        EXPECT_TRUE(!row.content || ReadFileBytes(got_) == row.content) << row.answer;
    }
}

TEST_F(Download, ReportsTheReasonOfAFailure) {
    const std::wstring closed = L"http://127.0.0.1:" + std::to_wstring(ClosedPort()) + L"/";
    EXPECT_EQ(Run(closed).text, WinInetFailure(ERROR_INTERNET_CANNOT_CONNECT));
    EXPECT_EQ(Run(L"no url").text, WinInetFailure(ERROR_INTERNET_UNRECOGNIZED_SCHEME));
    const WebServer server([](const WebExchange& exchange) { exchange.Respond("body"); });
    folder_.Write(L"got", "in use");
    {
        const UniqueHandle lock = HoldFile(got_);
        EXPECT_EQ(Run(server.Url()).text, WinInetFailure(ERROR_SHARING_VIOLATION));
    }
    EXPECT_EQ(ReadFileBytes(got_), "in use");
    for (const wchar_t* missing : {L"url", L"destPath"}) {
        const Completion end =
            RunToCompletion(client_.Get(), L"downloadToFile", Options(server.Url()).Set(missing, L""));
        EXPECT_EQ(end.result, "BOOL false");
        EXPECT_EQ(end.text, FailText(E_INVALIDARG, "I4 7"));
    }
}

TEST_F(Download, IsCancelledByProgress) {
    const std::string body = BodyOf(3 * kChunkSize);
    const WebServer server([&](const WebExchange& exchange) { exchange.Respond(body); });
    const auto cancel = [](const Recorder::Record&) { return Variant::Bool(false); };
    const Completion first = Run(server.Url(), cancel);
    EXPECT_EQ(first.progress.size(), 1u);
    EXPECT_EQ(first.text, "") << "a cancel is silent";
    EXPECT_FALSE(Exists());
    const Completion last = Run(server.Url(), [&](const Recorder::Record& call) {
        return Variant::Bool(call.arguments[0].ulVal < body.size());
    });
    EXPECT_EQ(last.text, "");
    EXPECT_TRUE(ReadFileBytes(got_) == body) << "the file was complete";

    ScriptHost script(client_.Get());
    const auto fail = MakeCom<Recorder>();
    const OptionObject options = Options(server.Url()).Set(L"fail", fail);
    options.Set(L"progress", script.Evaluate(L"(function () { throw new Error('no'); })"));
    const long before = detail::liveComObjects;
    CallMember(client_.Get(), L"downloadToFile", static_cast<IDispatch*>(options));
    EXPECT_TRUE(PumpUntil([&] { return !fail->calls.empty() && detail::liveComObjects == before; }));
    EXPECT_THAT(fail->Texts(), ElementsAre(testing::StartsWith("I4 -")));
    EXPECT_FALSE(Exists()) << "deleted before fail is called";
    EXPECT_EQ(script.Errors(), 1);
}

TEST_F(Download, ContinuesWithoutItsPage) {
    const std::string body = BodyOf(3 * kChunkSize);
    const WebServer server([&](const WebExchange& exchange) { exchange.Respond(body); });
    const auto success = MakeCom<Recorder>();
    const OptionObject options = Options(server.Url()).Set(L"success", success);
    const long before = detail::liveComObjects;
    {
        ScriptHost script(client_.Get());
        options.Set(L"progress", script.Evaluate(L"(function () { return false; })"));
        CallMember(client_.Get(), L"downloadToFile", static_cast<IDispatch*>(options));
    }  // before this thread serves the first call
    EXPECT_TRUE(PumpUntil([&] { return !success->calls.empty() && detail::liveComObjects == before; }));
    EXPECT_THAT(success->Texts(), ElementsAre("I4 7"));
    EXPECT_TRUE(ReadFileBytes(got_) == body);
}

TEST_F(Download, RunsAHundredAtOnce) {
    constexpr int kDownloads = 100;
    const std::string body = BodyOf(3 * kChunkSize);
    const WebServer server([&](const WebExchange& exchange) { exchange.Respond(body + exchange.Path()); });
    const ResourceCounts before = ResourceCounts::Now();
    const long handles = CountHandles();
    std::vector<std::unique_ptr<AsyncOperation>> downloads;
    for (int i = 0; i < kDownloads; ++i) {
        const std::wstring name = std::to_wstring(i);
        downloads.push_back(Start(server.Url(name), name.c_str()));
    }
    const auto isComplete = [](const auto& download) { return download->IsComplete(); };
    EXPECT_TRUE(PumpUntil([&] { return std::ranges::all_of(downloads, isComplete); }));
    for (int i = 0; i < kDownloads; ++i) {
        EXPECT_EQ(downloads[i]->Result().text, kDone);
        EXPECT_TRUE(ReadFileBytes(folder_ / std::to_wstring(i)) == body + "/" + std::to_string(i));
    }
    downloads.clear();
    // The system keeps some threads, but not one for each download.
    const auto threads = [] { return ResourceCounts::Now().Take("threads"); };
    const long limit = ResourceCounts(before).Take("threads") + kDownloads / 2;
    EXPECT_TRUE(PumpUntil([&] { return threads() < limit; })) << threads();
    EXPECT_LT(CountHandles(), handles + kDownloads);
}

TEST_F(Download, TimesOutIfTheServerStopsSending) {
    const WebServer server([](const WebExchange& exchange) {
        if (exchange.Path() == "/begun") exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nabc");
        exchange.WaitForDisconnect();
    });
    const auto silent = Start(server.Url(L"silent"), L"silent"),
               begun = Start(server.Url(L"begun"), L"begun");
    EXPECT_TRUE(PumpUntil([&] { return silent->IsComplete() && begun->IsComplete(); }));
    for (const auto& download : {silent.get(), begun.get()})
        EXPECT_THAT(download->Result().text, testing::StartsWith("fail: I4 -2147"));
    EXPECT_FALSE(FileExists(folder_ / L"begun"));
}

}  // namespace
}  // namespace tarvik
