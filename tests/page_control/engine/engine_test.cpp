#include <thread>

#include "page_control/engine/application_name.h"
#include "page_control/engine/connection.h"
#include "page_control/engine/launch.h"
#include "page_control/engine/profile.h"
#include "page_control/engine/transport.h"
#include "tarvik/status.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

using namespace std::string_literals;

// As after a program was killed. No engine is started: the path does not exist.
TEST(Engine, RemovesStaleProfiles) {
    const std::wstring temp = ReadPath([](wchar_t* buffer) { GetTempPathW(kPathLength, buffer); });
    const std::wstring stale = temp + UniqueName() + L".profile", used = temp + UniqueName() + L".profile",
                       locked = temp + UniqueName() + L".profile", other = temp + L"tarvik-other";
    for (const std::wstring& folder : {stale, used, locked, other})
        ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    // The lock file of a program that ended with the system.
    UniqueHandle(CreateFileW((locked + L".used").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr))
        .Reset();
    UniqueHandle lock(CreateFileW((used + L".used").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    const auto start = [] { EXPECT_THROW(StartThroughPipes(L"C:\\none.exe", L""), StatusError); };
    start();
    EXPECT_FALSE(FileExists(stale));
    EXPECT_FALSE(FileExists(locked));
    EXPECT_FALSE(FileExists(locked + L".used"));
    EXPECT_TRUE(FileExists(used));
    lock.Reset();
    start();
    EXPECT_FALSE(FileExists(used));
    EXPECT_TRUE(RemoveDirectoryW(other.c_str()));
}

TEST(Profile, IsUsedByOneProcessAtATime) {
    const TempFolder folder;
    wchar_t before[MAX_PATH] = {};
    GetEnvironmentVariableW(L"LOCALAPPDATA", before, MAX_PATH);
    SetEnvironmentVariableW(L"LOCALAPPDATA", (folder / L"").c_str());
    SetEnvironmentVariableW(L"TARVIK_PROFILE", nullptr);
    std::wstring reported;
    const auto report = [&](const std::wstring& text) { reported = text; };
    {
        const Profile first(report);
        EXPECT_THAT(first.Folder(), testing::EndsWith(L"\\Tarvik\\test_page_control_engine"));
        EXPECT_TRUE(FileExists(first.Folder()));
        EXPECT_EQ(reported, L"");
        EXPECT_EQ(Profile(report).Folder(), L"");
        EXPECT_THAT(reported, testing::HasSubstr(L"is in use by another process"));
    }
    EXPECT_NE(Profile(report).Folder(), L"");
    SetEnvironmentVariableW(L"TARVIK_PROFILE", L"temporary");
    SetEnvironmentVariableW(L"LOCALAPPDATA", before);
    EXPECT_EQ(Profile(report).Folder(), L"");
}

// An empty name would make the folder of all profiles the application's own.
TEST(Profile, HasANameThatAFolderCanHave) {
    EXPECT_EQ(ApplicationName(L"", L"", L"Sea.v2.exe"), L"Sea.v2");
    EXPECT_EQ(ApplicationName(L"Maker", L"", L"Sea.exe"), L"Sea");
    EXPECT_EQ(ApplicationName(L"Maker: A/S", L"Sea*.", L"x.exe"), L"Maker_ A_S - Sea_");
    EXPECT_EQ(ApplicationName(L"", L" ..", L"Sea.exe"), L"Sea");
    EXPECT_EQ(ApplicationName(L"", L"", L".exe"), L"Application");
    const std::wstring longName(79, L'n');
    EXPECT_EQ(ApplicationName(L"", longName + L"\xD83C\xDF0A", L"x.exe"), longName) << "half a character";
}

class PipeToTest : public Transport {
  public:
    using Transport::Transport;
    void Kill() override {}
};

// Sends a text at once, and more on request.
class ScriptedEngine {
  public:
    explicit ScriptedEngine(std::string text) {
        UniqueHandle fromEngine, toEngine;
        CreatePipe(fromEngine.Receive(), toHost_.Receive(), nullptr, 0);
        CreatePipe(fromHost_.Receive(), toEngine.Receive(), nullptr, 0);
        connection.emplace(
            std::make_unique<PipeToTest>(std::move(fromEngine), std::move(toEngine), std::wstring()));
        sender_ = std::thread([this, text = std::move(text)] {
            DWORD written = 0;
            WriteFile(toHost_.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
            hasSent_ = true;
        });
    }
    ~ScriptedEngine() {
        // The connection ends with the pipe; one that has ended no longer reads what is being sent.
        WaitFor([&] { return hasSent_ || !connection->IsOpen(); });
        if (hasSent_) toHost_.Reset();
        connection.reset();
        sender_.join();
    }

    void Send(const std::string& message) {
        DWORD written = 0;
        WriteFile(toHost_.Get(), message.c_str(), static_cast<DWORD>(message.size() + 1), &written, nullptr);
    }

    // The next command from the host, serving the message loop until it comes.
    Json NextCommand() {
        std::string message;
        EXPECT_TRUE(PumpUntil([&] {
            DWORD available = 0, read = 0;
            for (char next; PeekNamedPipe(fromHost_.Get(), nullptr, 0, nullptr, &available, nullptr) &&
                            available > 0 && ReadFile(fromHost_.Get(), &next, 1, &read, nullptr);) {
                if (next == '\0') return true;
                message += next;
            }
            return false;
        }));
        return Json::parse(message);
    }

    std::optional<Connection> connection;

  private:
    UniqueHandle toHost_;
    UniqueHandle fromHost_;
    std::atomic<bool> hasSent_ = false;
    std::thread sender_;
};

TEST(Connection, EndsIfTheEngineSendsNoMessages) {
    constexpr size_t kMuch = 1'500'000;
    std::string texts;
    while (texts.size() < kMuch)
        texts += "no message\0"s;
    for (const std::string& text : {std::string(kMuch, 'x'), texts}) {
        ScriptedEngine engine(text);
        const HRESULT status =
            Guard([&] { engine.connection->Call("", "Any.method", Json::object(), 10'000); });
        EXPECT_THAT(status, HasStatus(RPC_E_DISCONNECTED));
    }
}

TEST(Connection, IgnoresMalformedMessages) {
    ScriptedEngine engine(
        "\0[1]\0{\"id\":\"x\"}\0{\"method\":7,\"sessionId\":\"\"}\0{\"method\":\"x\",\"sessionId\":5}\0"
        "{\"id\":1,\"result\":{\"good\":true}}\0"s);
    EXPECT_TRUE(engine.connection->Call("", "Any.method", Json::object(), 10'000).at("good"));
}

// As during a navigation of the page.
TEST(EnginePages, RepeatsTheCloseCommandUntilTheTargetIsDestroyed) {
    ScriptedEngine engine(R"({"id":1,"result":{"targetInfos":[{"type":"page","targetId":"first"}]}})"
                          "\0"s);
    engine.connection->Handshake();
    const auto nextToClose = [&] {
        for (;;) {
            const Json command = engine.NextCommand();
            if (command.at("method") == "Target.closeTarget") return command.at("params").at("targetId");
        }
    };
    engine.connection->ClosePage("first");
    for (int times = 0; times < 3; ++times)
        EXPECT_EQ(nextToClose(), "first");
    engine.Send(R"({"method":"Target.targetDestroyed","params":{"targetId":"first"}})");
    engine.connection->ClosePage("second");
    while (nextToClose() == "first") {
    }
    for (int times = 0; times < 3; ++times)
        EXPECT_EQ(nextToClose(), "second");
}

}  // namespace
}  // namespace tarvik
