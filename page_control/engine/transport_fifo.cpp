// Under Wine the engine is a Unix program, which Wine's own pipes do not reach. A pair of named FIFOs in a
// private folder does; see fifo_engine.sh.

#include "base/embedded_text.h"
#include "base/text.h"
#include "page_control/engine/launch.h"
#include "page_control/engine/transport.h"
#include "page_control/engine/unix_path.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

extern const EmbeddedText kFifoEngineScript;  // fifo_engine.sh

namespace {

constexpr DWORD kStartTimeout = 15000;  // milliseconds
constexpr DWORD kRetryInterval = 3;

// Without a display the engine would find no mouse: media queries for a pointer that is fine and can hover.
constexpr const wchar_t* kPointer =
    L" --blink-settings=primaryHoverType=2,availableHoverTypes=2,primaryPointerType=4,availablePointerTypes="
    L"4";

// `arguments` are quoted where necessary.
void StartShell(std::string_view script, const std::wstring& arguments) {
    std::wstring line = L"Z:\\bin\\sh -c " + QuoteArgument(Widen(script)) + L" fifo_engine " + arguments;
    STARTUPINFOW startup = {sizeof startup};
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(L"Z:\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        ThrowLastError();
    }
    // The handles are not closed: for a Unix program Wine returns stack garbage, which may be the value of
    // another handle of this process.
}

// Polls: the shell creates the folder, so only a watch on all of /tmp could report the FIFOs earlier.
UniqueHandle OpenWithRetry(const std::wstring& path, DWORD access) {
    const ULONGLONG end = GetTickCount64() + kStartTimeout;
    for (;;) {
        UniqueHandle file(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
        if (file) return file;
        if (GetTickCount64() > end) throw StatusError(RPC_E_TIMEOUT);
        Sleep(kRetryInterval);
    }
}

class FifoTransport : public Transport {
  public:
    struct Fifos {
        UniqueHandle fromEngine;
        UniqueHandle ownWriter;  // of the same FIFO
        UniqueHandle toEngine;
        UniqueHandle life;
    };
    // `path` is that of the folder in this process.
    FifoTransport(Fifos fifos, std::wstring folder, const std::wstring& path)
        : Transport(std::move(fifos.fromEngine), std::move(fifos.toEngine), path + L"\\d"),
          ownWriter_(std::move(fifos.ownWriter)),
          life_(std::move(fifos.life)),
          folder_(std::move(folder)) {}

    // Until the first bytes arrive, only this process's own writer keeps the FIFO from reading as ended.
    DWORD Read(char* buffer, DWORD size) override {
        const DWORD read = Transport::Read(buffer, size);
        CloseOwnWriter();
        return read;
    }

    void CloseWriting() override {
        CloseOwnWriter();
        Transport::CloseWriting();
    }

    void Kill() override {
        (void)Guard(
            [&] { StartShell(R"sh(kill -s KILL -- "-$(cat "$1")")sh", QuoteArgument(folder_ + L"/pid")); });
    }

  private:
    void CloseOwnWriter() {
        const std::lock_guard lock(lock_);
        ownWriter_.Reset();
    }

    std::mutex lock_;
    UniqueHandle ownWriter_;
    const UniqueHandle life_;    // carries no data; closing it signals the end of the host
    const std::wstring folder_;  // its Unix path
};

}  // namespace

std::unique_ptr<Transport> StartThroughFifos(const std::wstring& engine, const std::wstring& profile) {
    const std::wstring name = UniqueName();
    const std::wstring folder = L"/tmp/" + name;
    const std::wstring profilePath = profile.empty() ? std::wstring() : Widen(UnixPath(profile));
    StartShell(kFifoEngineScript.Text(), folder + L" " + QuoteArgument(profilePath) + L" " +
                                             QuoteArgument(engine) + EngineArguments() + kPointer);
    const std::wstring path = L"Z:\\tmp\\" + name;
    FifoTransport::Fifos fifos;
    fifos.fromEngine = OpenWithRetry(path + L"\\a", GENERIC_READ);
    fifos.ownWriter = OpenWithRetry(path + L"\\a", GENERIC_WRITE);
    fifos.toEngine = OpenWithRetry(path + L"\\b", GENERIC_WRITE);
    fifos.life = OpenWithRetry(path + L"\\c", GENERIC_WRITE);
    return std::make_unique<FifoTransport>(std::move(fifos), folder, path);
}

}  // namespace tarvik
