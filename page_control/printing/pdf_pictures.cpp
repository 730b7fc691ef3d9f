#include "page_control/printing/pdf_pictures.h"

#include <asyncinfo.h>
#include <objidl.h>
#include <shlwapi.h>

#include <chrono>
#include <thread>

#include "base/module_function.h"
#include "page_control/printing/windows_pdf.h"
#include "tarvik/com_ptr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

using namespace windows_pdf;

constexpr auto kPollInterval = std::chrono::milliseconds(2);
constexpr double kUnitsPerInch = 96;

template <class Function>
Function& Require(const wchar_t* module, const char* name) {
    Function* const function = FindFunction<Function>(module, name);
    if (!function) throw StatusError(E_NOTIMPL);
    return *function;
}

// The class's activation factory, or an object of the class.
ComPtr<IInspectable> Activate(const std::wstring& className, const IID* factory) {
    using CreateReference = HRESULT WINAPI(const wchar_t*, UINT32, HSTRING_HEADER*, HSTRING*);
    using GetFactory = HRESULT WINAPI(HSTRING, REFIID, void**);
    using CreateObject = HRESULT WINAPI(HSTRING, IInspectable**);
    const wchar_t* const module = L"combase.dll";
    HSTRING_HEADER header = {};
    HSTRING name = nullptr;
    ThrowIfFailed(Require<CreateReference>(module, "WindowsCreateStringReference")(
        className.c_str(), static_cast<UINT32>(className.size()), &header, &name));
    ComPtr<IInspectable> object;
    ThrowIfFailed(factory ? Require<GetFactory>(module, "RoGetActivationFactory")(
                                name, *factory, reinterpret_cast<void**>(object.GetAddressOf()))
                          : Require<CreateObject>(module, "RoActivateInstance")(name, object.GetAddressOf()));
    return object;
}

ComPtr<IUnknown> RandomAccess(IStream& stream) {
    using Create = HRESULT WINAPI(IStream*, DWORD, REFIID, void**);
    ComPtr<IUnknown> result;
    ThrowIfFailed(Require<Create>(L"shcore.dll", "CreateRandomAccessStreamOverStream")(
        &stream, 0, kRandomAccessStream, reinterpret_cast<void**>(result.GetAddressOf())));
    return result;
}

// Waits for the end of an operation.
void Await(IInspectable* operation) {
    const auto info = Query<IAsyncInfo>(operation);
    ThrowIfFailed(info ? S_OK : E_NOINTERFACE);
    AsyncStatus status = Started;
    while (true) {
        ThrowIfFailed(info->get_Status(&status));
        if (status != Started) break;
        std::this_thread::sleep_for(kPollInterval);
    }
    if (status != Completed) throw StatusError(E_FAIL);
}

std::vector<BYTE> Contents(IStream& stream) {
    STATSTG state = {};
    ThrowIfFailed(stream.Stat(&state, STATFLAG_NONAME));
    std::vector<BYTE> bytes(static_cast<size_t>(state.cbSize.QuadPart));
    ThrowIfFailed(stream.Seek({}, STREAM_SEEK_SET, nullptr));
    ThrowIfFailed(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr));
    return bytes;
}

class PdfPictures : public PagePictures {
  public:
    explicit PdfPictures(std::span<const BYTE> pdf) {
        const auto found = Activate(L"Windows.Data.Pdf.PdfDocument", &kDocumentStatics);
        auto* const statics = static_cast<PdfDocumentStatics*>(found.Get());
        ComPtr<IStream> stream;
        stream.Attach(SHCreateMemStream(pdf.data(), static_cast<UINT>(pdf.size())));
        if (!stream) throw StatusError(E_OUTOFMEMORY);
        ComPtr<AsyncOperation<PdfDocument>> operation;
        ThrowIfFailed(
            statics->LoadFromStreamAsync(RandomAccess(*stream.Get()).Get(), operation.GetAddressOf()));
        Await(operation.Get());
        ThrowIfFailed(operation->GetResults(document_.GetAddressOf()));
    }

    int Count() const override {
        UINT32 count = 0;
        ThrowIfFailed(document_->GetPageCount(&count));
        return static_cast<int>(count);
    }

    Size SizeOf(int page) const override {
        PdfSize size = {};
        ThrowIfFailed(PageAt(page)->GetSize(&size));
        return {size.width / kUnitsPerInch, size.height / kUnitsPerInch};
    }

    void Render(int page, int width, int height, Pixels& pixels) const override {
        const auto object = Activate(L"Windows.Data.Pdf.PdfPageRenderOptions", nullptr);
        ComPtr<PdfPageRenderOptions> options;
        ThrowIfFailed(
            object->QueryInterface(kPageRenderOptions, reinterpret_cast<void**>(options.GetAddressOf())));
        ThrowIfFailed(options->PutDestinationWidth(static_cast<UINT32>(width)));
        ThrowIfFailed(options->PutDestinationHeight(static_cast<UINT32>(height)));
        ComPtr<IStream> picture;
        ThrowIfFailed(CreateStreamOnHGlobal(nullptr, TRUE, picture.GetAddressOf()));
        ComPtr<AsyncAction> action;
        ThrowIfFailed(PageAt(page)->RenderWithOptionsToStreamAsync(RandomAccess(*picture.Get()).Get(),
                                                                   options.Get(), action.GetAddressOf()));
        Await(action.Get());
        ThrowIfFailed(action->GetResults());
        codec_.Decode(Contents(*picture.Get()), GUID_WICPixelFormat32bppBGR, pixels);
    }

  private:
    ComPtr<PdfPage> PageAt(int page) const {
        ComPtr<PdfPage> found;
        ThrowIfFailed(document_->GetPage(static_cast<UINT32>(page), found.GetAddressOf()));
        return found;
    }

    const PictureCodec codec_;
    ComPtr<PdfDocument> document_;
};

}  // namespace

std::unique_ptr<PagePictures> MakePdfPictures(std::span<const BYTE> pdf) {
    return std::make_unique<PdfPictures>(pdf);
}

}  // namespace tarvik
