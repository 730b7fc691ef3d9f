#include <windows.h>
#include <objbase.h>

#include <string>

#include "app/command_line/command_line.h"
#include "app/self_unpack.h"
#include "atl/module.h"
#include "base/com_ptr.h"
#include "control/page/register.h"
#include "host/registry/plugin_library.h"
#include "host/web_browser.h"
#include "script/worker_apartment.h"

namespace tarvik {

namespace {

// The application is the folder that `d` names, or what is attached to the executable. Neither is an error:
// the first window then looks beside the executable.
void ChooseFolder(const CCommandLine& commandLine, std::wstring& unpackFolder) {
    // Unpacking waits without pumping messages, and so must not be done in a single-threaded apartment.
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (const wchar_t* folder = commandLine.GetValue(L"d")) {
        SetCurrentDirectoryW(folder);
    } else {
        (void)SelfUnpack(unpackFolder);
    }
    if (SUCCEEDED(apartment)) CoUninitialize();
}

int RunApplication(HINSTANCE instance) {
    appModule.Init(instance);
    const PageControlClass pageControl;
    const WorkerApartment workers;
    CMessageLoop loop;
    appModule.AddMessageLoop(&loop);
    auto first = MakeCom<CWebBrowser>();
    first->CreateHidden(nullptr, nullptr);
    const int exitCode = loop.Run();
    appModule.RemoveMessageLoop();
    first.Reset();
    appModule.Term();
    return exitCode;
}

}  // namespace

}  // namespace tarvik

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    tarvik::PageControlClass::Prepare();
    std::wstring unpackFolder;
    const tarvik::CCommandLine commandLine;
    tarvik::ChooseFolder(commandLine, unpackFolder);
    const int exitCode = tarvik::RunApplication(instance);
    tarvik::FreePluginLibraries();
    tarvik::RemoveUnpacked(unpackFolder);
    return exitCode;
}
