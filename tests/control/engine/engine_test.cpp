#include <thread>

#include "tarvik/status.h"
#include "control/engine/connection.h"
#include "control/engine/launch.h"
#include "control/engine/transport.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

using namespace std::string_literals;

// As after a program that was killed. Nothing is started here: there is no such engine.
TEST(Engine, RemovesProfilesThatWereLeft) {
    const std::wstring temp = ReadPath([](wchar_t* buffer) { GetTempPathW(kPathLength, buffer); });
    const std::wstring left = temp + UniqueName() + L".profile", used = temp + UniqueName() + L".profile",
                       marked = temp + UniqueName() + L".profile", other = temp + L"tarvik-other";
    for (const std::wstring& folder : {left, used, marked, other})
        ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    // The mark of a program that ended together with the system.
    UniqueHandle(CreateFileW((marked + L".used").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    UniqueHandle mark(CreateFileW((used + L".used").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    const auto start = [] { EXPECT_THROW(StartThroughPipes(L"C:\\none.exe"), StatusError); };
    start();
    EXPECT_FALSE(FileExists(left));
    EXPECT_FALSE(FileExists(marked));
    EXPECT_FALSE(FileExists(marked + L".used"));
    EXPECT_TRUE(FileExists(used));
    mark.Reset();
    start();
    EXPECT_FALSE(FileExists(used));
    EXPECT_TRUE(RemoveDirectoryW(other.c_str()));
}

class PipeToTest : public Transport {
  public:
    using Transport::Transport;
    void Kill() override {}
};

// Sends everything at once, and more only when the test says so.
class ScriptedEngine {
  public:
    explicit ScriptedEngine(std::string words) {
        UniqueHandle fromEngine, toEngine;
        CreatePipe(fromEngine.Receive(), toHost_.Receive(), nullptr, 0);
        CreatePipe(fromHost_.Receive(), toEngine.Receive(), nullptr, 0);
        connection.emplace(std::make_unique<PipeToTest>(std::move(fromEngine), std::move(toEngine)));
        speaker_ = std::thread([this, words = std::move(words)] {
            DWORD written = 0;
            WriteFile(toHost_.Get(), words.data(), static_cast<DWORD>(words.size()), &written, nullptr);
            hasSpoken_ = true;
        });
    }
    ~ScriptedEngine() {
        if (hasSpoken_) toHost_.Reset();
        connection.reset();
        speaker_.join();
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
    std::atomic<bool> hasSpoken_ = false;
    std::thread speaker_;
};

TEST(Engine, IsGivenUpWhenItSendsNoMessages) {
    constexpr size_t kMuch = 1'500'000;
    std::string pieces;
    while (pieces.size() < kMuch)
        pieces += "no message\0"s;
    for (const std::string& words : {std::string(kMuch, 'x'), pieces}) {
        ScriptedEngine engine(words);
        const HRESULT status =
            Guard([&] { engine.connection->Call("", "Any.method", Json::object(), 10'000); });
        EXPECT_THAT(status, HasStatus(RPC_E_DISCONNECTED));
    }
}

TEST(Engine, IsHeardAfterMessagesOfAWrongShape) {
    ScriptedEngine engine(
        "\0[1]\0{\"id\":\"x\"}\0{\"method\":7,\"sessionId\":\"\"}\0{\"method\":\"x\",\"sessionId\":5}\0"
        "{\"id\":1,\"result\":{\"good\":true}}\0"s);
    EXPECT_TRUE(engine.connection->Call("", "Any.method", Json::object(), 10'000).at("good"));
}

// As one does in whose page a navigation is under way.
TEST(Engine, IsAskedAgainToCloseAPageThatStays) {
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
