#include "tests/plugins/file/file_fixture.h"

#include <algorithm>

#include "base/owners.h"
#include "base/text.h"
#include "host/page_address.h"
#include "tests/support/waiting.h"

namespace tarvik {

namespace {

// Only what the plug-in asks of its window.
class PageCore : public ComObject<As<TVK::ICore>> {
  public:
    explicit PageCore(const std::wstring& page) : location_(L"file:///" + page) {}

    STDMETHODIMP CreateBrowserWindow(const wchar_t*, BOOL, const VARIANT*, const VARIANT*,
                                     IDispatch**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP_(HWND) GetWindowHandle() override { return nullptr; }
    STDMETHODIMP GetPlugin(const wchar_t*, IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP ResolveUrl(const wchar_t* url, BSTR* out) override {
        *out = Bstr(ResolveAgainst(url, location_)).Detach();
        return S_OK;
    }
    STDMETHODIMP CreateScriptObject(const wchar_t*, IDispatch**) override { return E_NOTIMPL; }

  private:
    std::wstring location_;
};

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

std::string UnderlyingPath(const std::wstring& path) {
    using Translate = char*(__cdecl*)(const wchar_t*);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name");
    return found ? reinterpret_cast<Translate>(reinterpret_cast<void*>(found))(path.c_str()) : std::string();
}

// Wine gives no handle to such a process, so the caller looks for what it does.
void RunUnderlying(const std::string& command) {
    std::wstring line = Widen(command);
    STARTUPINFOW start = {sizeof start};
    PROCESS_INFORMATION process = {};
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process);
    const UniqueHandle thread(process.hThread), ended(process.hProcess);
}

}  // namespace

std::string FailText(HRESULT status) {
    return "fail: I4 " + std::to_string(status) + ", EMPTY";
}

File::File() {
    ComPtr<IUnknown> browser;
    CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                     reinterpret_cast<void**>(browser.GetAddressOf()));
    const auto core = MakeCom<PageCore>(folder_ / L"page.html");
    EXPECT_THAT(plugin_->Initialize(core.Get(), browser.Get()), HasStatus(S_OK));
}

Ending File::Run(const wchar_t* member, OptionObject& options, Recorder::Answer progress) {
    Ending ending;
    const auto note = [&ending](const char* name) {
        return MakeCom<Recorder>([&ending, name](const Recorder::Record& call) {
            ending.texts.push_back(name + Recorder::Text(call));
            return Variant();
        });
    };
    const auto told = MakeCom<Recorder>(std::move(progress));
    const auto success = note("success: ");
    const auto fail = note("fail: ");
    options.Set(L"progress", told).Set(L"success", success).Set(L"fail", fail);
    const ULONG before = References(fail.Get());
    ending.started = CallMember(plugin_.Get(), member, static_cast<IDispatch*>(options)).value.boolVal != 0;
    EXPECT_TRUE(PumpUntil([&] { return References(fail.Get()) == before; })) << "the run does not end";
    ending.progress = told->Texts();
    options.Set(L"progress", nullptr).Set(L"success", nullptr).Set(L"fail", nullptr);
    return ending;
}

Ending File::Run(const wchar_t* member, const std::wstring& src, const std::wstring& dest,
                 bool replaceExisting) {
    OptionObject options;
    options.Set(L"srcPath", src.c_str()).Set(L"destPath", dest.c_str());
    options.Set(L"replaceExisting", replaceExisting);
    return Run(member, options);
}

FolderLink::FolderLink(const std::wstring& link, const std::wstring& target) : link_(link) {
    CreateSymbolicLinkW(link.c_str(), target.c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY);
    if (*this || UnderlyingPath(link).empty()) return;
    RunUnderlying("/bin/ln -s " + UnderlyingPath(target) + " " + UnderlyingPath(link));
    PumpUntil([this] { return FileExists(link_); });
}

FolderLink::~FolderLink() {
    if (!*this || RemoveDirectoryW(link_.c_str())) return;
    RunUnderlying("/bin/rm " + UnderlyingPath(link_));
    PumpUntil([this] { return !FileExists(link_); });
}

}  // namespace tarvik
