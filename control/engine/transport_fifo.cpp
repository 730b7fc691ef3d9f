// Under Wine the engine is a program of the system underneath, which Wine's own pipes do not reach. A pair of
// named FIFOs in a private folder does. A shell makes the folder, starts the engine and removes the folder
// after it; it goes on when this process is killed. A third FIFO carries nothing: its end is the end of this
// process.

#include "tarvik/status.h"
#include "base/text.h"
#include "control/engine/launch.h"
#include "control/engine/transport.h"

namespace tarvik {

namespace {

constexpr DWORD kTimeout = 15000;  // milliseconds for the shell to come up
constexpr DWORD kPause = 3;

std::wstring Quoted(std::wstring_view text) {
    std::wstring quoted = L"'";
    for (wchar_t character : text)
        quoted += character == L'\'' ? std::wstring(L"'\\''") : std::wstring(1, character);
    return quoted + L"'";
}

// One zero byte, an empty message, tells that the FIFOs are open; from then on their end is the engine's. The
// engine must run as root without its sandbox only there, and must not warn of it in its window, which would
// move the page. What the engine leaves behind when it is killed or fails, sockets and reports of its
// failure, is in the folder and goes with it. It leads a process group, whose number is kept. When the engine
// was killed, the others of its group would go on for a moment and make the folder again.
//
// Two watchers run beside the shell, $g and $w. The first ends the shell if nobody opens the FIFOs; opening
// waits for the other side. The second kills an engine that does not end although this process has ended.
std::wstring ShellScript(const std::wstring& engine, const std::wstring& folder) {
    return L"umask 077; d=" + Quoted(folder) +
           L"; mkdir $d && mkfifo $d/a $d/b $d/c || exit 1; p=$$; "
           L"(trap 'kill -KILL $! 2>/dev/null; exit' TERM; sleep 20 & wait $! && { kill $p; rm -rf $d; }) "
           L"</dev/null "
           L">/dev/null 2>&1 & "
           L"g=$!; exec 4>$d/a 3<$d/b 5<$d/c; head -c1 /dev/zero >&4; kill $g; [ $(id -u) = 0 ] && "
           L"r='--no-sandbox --test-type'; TMPDIR=$d BREAKPAD_DUMP_LOCATION=$d setsid " +
           Quoted(engine) + EngineArguments() +
           L" --user-data-dir=$d/p --remote-debugging-pipe $r about:blank </dev/null >/dev/null 2>&1 5<&- & "
           L"e=$!; echo $e >$d/pid; "
           L"(read x <&5; trap 'kill -KILL $! 2>/dev/null; exit' TERM; sleep 5 & wait $!; kill -s KILL -- "
           L"-$e) "
           L"</dev/null >/dev/null 2>&1 3<&- 4>&- & w=$!; "
           L"{ wait $e; kill $w; for i in 1 2 3 4 5; do kill -s KILL -- -$e || break; sleep .1; done; "
           L"rm -rf $d || { sleep 1; rm -rf $d; }; } 2>/dev/null";
}

void StartShell(const std::wstring& script) {
    std::wstring line = L"Z:\\bin\\sh -c " + QuoteArgument(script);
    STARTUPINFOW startup = {sizeof startup};
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(L"Z:\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        ThrowLastError();
    }
    // Not closed: of a Unix program Wine tells no handles, but what happened to be on its stack, which may be
    // the number of another handle of this process.
}

UniqueHandle OpenWhenThere(const std::wstring& path, DWORD access) {
    const ULONGLONG end = GetTickCount64() + kTimeout;
    for (;;) {
        UniqueHandle file(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
        if (file) return file;
        if (GetTickCount64() > end) throw StatusError(RPC_E_TIMEOUT);
        Sleep(kPause);
    }
}

class FifoTransport : public Transport {
  public:
    FifoTransport(UniqueHandle fromEngine, UniqueHandle toEngine, UniqueHandle life,
                  std::function<bool()> isStarting, std::wstring folder)
        : Transport(std::move(fromEngine), std::move(toEngine), std::move(isStarting)),
          life_(std::move(life)),
          folder_(std::move(folder)) {}

    void Kill() override {
        (void)Guard([&] { StartShell(L"kill -s KILL -- -$(cat " + Quoted(folder_ + L"/pid") + L")"); });
    }

  private:
    const UniqueHandle life_;    // the third FIFO
    const std::wstring folder_;  // in the system underneath
};

}  // namespace

std::unique_ptr<Transport> StartThroughFifos(const std::wstring& engine) {
    const std::wstring name = UniqueName();
    StartShell(ShellScript(engine, L"/tmp/" + name));
    const std::wstring folder = L"Z:\\tmp\\" + name;
    UniqueHandle fromEngine = OpenWhenThere(folder + L"\\a", GENERIC_READ);
    UniqueHandle toEngine = OpenWhenThere(folder + L"\\b", GENERIC_WRITE);
    UniqueHandle life = OpenWhenThere(folder + L"\\c", GENERIC_WRITE);
    // None of them waits for the shell to open its ends, and reading finds an end until it has. The folder
    // goes when the engine has ended.
    const auto isStarting = [folder, end = GetTickCount64() + kTimeout] {
        return GetTickCount64() < end && GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES;
    };
    return std::make_unique<FifoTransport>(std::move(fromEngine), std::move(toEngine), std::move(life),
                                           isStarting, L"/tmp/" + name);
}

}  // namespace tarvik
