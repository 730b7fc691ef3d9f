#include "host/file_drop.h"

#include <shlobj.h>

#include <cstring>

#include "script/object.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// Files on their way from the desktop. The memory goes to who asks for it.
class DraggedFiles : public ComObject<IDataObject> {
  public:
    explicit DraggedFiles(std::wstring list) : list_(std::move(list)) {}

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override {
        if (format->cfFormat != CF_HDROP || !(format->tymed & TYMED_HGLOBAL)) return DV_E_FORMATETC;
        const size_t bytes = list_.size() * sizeof(wchar_t);
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + bytes);
        auto* const files = static_cast<DROPFILES*>(GlobalLock(medium->hGlobal));
        files->pFiles = sizeof(DROPFILES);
        files->fWide = TRUE;
        std::memcpy(files + 1, list_.data(), bytes);
        GlobalUnlock(medium->hGlobal);
        return S_OK;
    }
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    STDMETHODIMP QueryGetData(FORMATETC*) override { return E_NOTIMPL; }
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DUnadvise(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

  private:
    std::wstring list_;
};

TEST(FileDrop, GivesTheFilesAndTheContextToTheBinding) {
    const ObjectCheck nothingLeft;
    ComPtr<IDispatch> array;
    ASSERT_THAT(CreateScriptObject(L"array", array.GetAddressOf()), HasStatus(S_OK));
    const auto data = MakeCom<DraggedFiles>(std::wstring(L"C:\\a.txt\0D:\\\u00e4 b\0\0", 17));
    ASSERT_THAT(ReadDroppedFiles(data.Get(), array.Get()), HasStatus(S_OK));
    EXPECT_EQ(GetText(array.Get(), L"length"), "UI8 2");
    EXPECT_EQ(GetText(array.Get(), L"0"), "BSTR C:\\a.txt");

    const auto callback = MakeCom<Recorder>();
    OptionObject binding;
    binding.Set(L"callback", callback).Set(L"context", 5);
    CallDropBinding(binding, array.Get());
    EXPECT_THAT(callback->Texts(), ElementsAre("DISPATCH, I4 5"));
    EXPECT_EQ(callback->calls[0].arguments[0].pdispVal, array.Get());
    CallDropBinding(OptionObject(), array.Get());
}

}  // namespace
}  // namespace tarvik
