#include <windows.h>
#include <objbase.h>

#include <memory>
#include <string>

#include "app/command_line/command_line.h"
#include "app/log/error_report.h"
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

void ChangeFolder(const wchar_t* folder) {
    if (!SetCurrentDirectoryW(folder))
        ReportError(L"The folder \"" + std::wstring(folder) + L"\" (-d) cannot be opened.");
}

void UnpackAttached(UnpackFolder& unpackFolder, SharedEngine& engine) {
    if (!HasAttachedArchive()) return;
    PageControlClass::Prelaunch(engine);  // the engine can start while this unpacks
    // Not single-threaded: SelfUnpack waits without pumping messages.
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    (void)SelfUnpack(unpackFolder);
    if (SUCCEEDED(apartment)) CoUninitialize();
}

// The application is the folder given with -d, or the archive attached to the executable. Without either, the
// first window looks for a page beside the executable.
void ChooseFolder(UnpackFolder& unpackFolder, SharedEngine& engine) {
    const CCommandLine commandLine;
    if (const wchar_t* folder = commandLine.GetValue(L"d")) {
        ChangeFolder(folder);
    } else {
        UnpackAttached(unpackFolder, engine);
    }
}

void ReportNoPage() {
    ReportError(L"The program has no window and runs until it is terminated.\nusage: " +
                FileNameOf(ExecutablePath()) +
                L" [-d FOLDER] [-f PAGE]\n"
                L"FOLDER contains resource\\index.html; PAGE is the path or URL of another page.");
}

// Leaked by design: the destructor would serve the workers' pending calls to the page, and a script may never
// return.
void StartWorkerApartment() {
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
    StartWorkerApartment();
    CMessageLoop loop;
    appModule.AddMessageLoop(&loop);
    auto firstWindow = MakeCom<CWebBrowser>();
    firstWindow->CreateHidden(nullptr, nullptr);
    if (!hasPage) ReportNoPage();
    const int exitCode = loop.Run();
    appModule.RemoveMessageLoop();
    firstWindow.Reset();
    appModule.Term();
    return exitCode;
}

}  // namespace

}  // namespace tarvik

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    tarvik::UseSystemLibrariesOnly();
    tarvik::UnpackFolder unpackFolder;
    const auto engine = std::make_shared<tarvik::SharedEngine>(tarvik::ReportError);
    tarvik::ChooseFolder(unpackFolder, *engine);
    const int exitCode = tarvik::RunApplication(instance, engine);
    tarvik::FreePluginLibraries();
    tarvik::RemoveUnpacked(unpackFolder);
    return exitCode;
}
