#include <windows.h>
#include <objbase.h>

#include <memory>
#include <string>

#include "app/command_line/command_line.h"
#include "app/log/report.h"
#include "app/self_unpack.h"
#include "atl/module.h"
#include "base/library_search.h"
#include "base/path.h"
#include "host/page_address.h"
#include "host/plugin_registry/plugin_library.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "script/worker_apartment.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

namespace {

void UseFolder(const wchar_t* folder) {
    if (!SetCurrentDirectoryW(folder))
        ReportToAuthor(L"The folder \"" + std::wstring(folder) + L"\" (-d) cannot be opened.");
}

void UnpackAttached(UnpackFolder& unpackFolder, SharedEngine& engine) {
    if (!HasAttachedArchive()) return;
    PageControlClass::Prelaunch(engine);  // unpacking takes a while, in which the engine can start
    // SelfUnpack waits without pumping messages, which a single-threaded apartment must not do.
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    (void)SelfUnpack(unpackFolder);
    if (SUCCEEDED(apartment)) CoUninitialize();
}

// The application is the folder given with -d, or the archive attached to the executable. Without either, the
// first window looks for a page beside the executable.
void ChooseFolder(UnpackFolder& unpackFolder, SharedEngine& engine) {
    const CCommandLine commandLine;
    if (const wchar_t* folder = commandLine.GetValue(L"d")) {
        UseFolder(folder);
    } else {
        UnpackAttached(unpackFolder, engine);
    }
}

void ReportNoPage() {
    ReportToAuthor(L"The program has no window and runs until it is terminated.\nusage: " +
                   FileNameOf(ExecutablePath()) +
                   L" [-d FOLDER] [-f PAGE]\n"
                   L"FOLDER contains resource\\index.html; PAGE is the path or URL of another page.");
}

// Never destroyed: ending it would mean serving the pending calls of workers, and the page's script that they
// call may never return.
void KeepWorkerApartment() {
    static_cast<void>(new WorkerApartment);
}

bool FilterMessage(MSG* message) {
    CMessageLoop* const loop = appModule.GetMessageLoop();
    return loop && loop->PreTranslateMessage(message);
}

int RunApplication(HINSTANCE instance, const std::shared_ptr<SharedEngine>& engine) {
    const bool hasPage = ChooseFirstPage();
    if (hasPage) {
        PageControlClass::Prelaunch(*engine);
    } else {
        engine->Shutdown();
    }
    appModule.Init(instance);
    const PageControlClass pageControl(engine, FilterMessage);
    KeepWorkerApartment();
    CMessageLoop loop;
    appModule.AddMessageLoop(&loop);
    auto first = MakeCom<CWebBrowser>();
    first->CreateHidden(nullptr, nullptr);
    if (!hasPage) ReportNoPage();
    const int exitCode = loop.Run();
    appModule.RemoveMessageLoop();
    first.Reset();
    appModule.Term();
    return exitCode;
}

}  // namespace

}  // namespace tarvik

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    tarvik::UseSystemLibrariesOnly();
    tarvik::UnpackFolder unpackFolder;
    const auto engine = std::make_shared<tarvik::SharedEngine>();
    tarvik::ChooseFolder(unpackFolder, *engine);
    const int exitCode = tarvik::RunApplication(instance, engine);
    tarvik::FreePluginLibraries();
    tarvik::RemoveUnpacked(unpackFolder);
    return exitCode;
}
