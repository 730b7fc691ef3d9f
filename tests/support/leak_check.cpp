#include "tests/support/leak_check.h"

#include <windows.h>
#include <tlhelp32.h>

#include "base/owners.h"

namespace tarvik {

namespace {

long CountThreads() {
    const UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry = {sizeof entry};
    long count = 0;
    for (BOOL more = Thread32First(snapshot.Get(), &entry); more;
         more = Thread32Next(snapshot.Get(), &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    return count;
}

}  // namespace

Holdings Holdings::Now() {
    const HANDLE process = GetCurrentProcess();
    Holdings now;
    now.counts_ = {{"COM objects", liveComObjects},
                   {"threads", CountThreads()},
                   {"GDI handles", static_cast<long>(GetGuiResources(process, GR_GDIOBJECTS))},
                   {"USER handles", static_cast<long>(GetGuiResources(process, GR_USEROBJECTS))}};
    return now;
}

std::string Holdings::GrownSince(const Holdings& before) const {
    std::string grown;
    for (const auto& [what, count] : counts_) {
        const long then = before.counts_.at(what);
        if (count > then) grown += what + ": " + std::to_string(then) + " -> " + std::to_string(count) + "; ";
    }
    return grown;
}

}  // namespace tarvik
