#include "tests/support/leak_check.h"

#include <windows.h>
#include <tlhelp32.h>

#include "base/com_object.h"
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

std::string Grown(const char* what, long before, long now) {
    if (now <= before) return {};
    return std::string(what) + ": " + std::to_string(before) + " -> " + std::to_string(now) + "; ";
}

}  // namespace

Holdings Holdings::Now() {
    Holdings now;
    now.comObjects_ = liveComObjects;
    now.threads_ = CountThreads();
    now.gdiHandles_ = static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
    now.userHandles_ = static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
    return now;
}

std::string Holdings::GrownSince(const Holdings& before) const {
    return Grown("COM objects", before.comObjects_, comObjects_) +
           Grown("threads", before.threads_, threads_) +
           Grown("GDI handles", before.gdiHandles_, gdiHandles_) +
           Grown("USER handles", before.userHandles_, userHandles_);
}

}  // namespace tarvik
