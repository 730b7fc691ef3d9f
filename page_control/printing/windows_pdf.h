#pragma once

#include <windows.h>
#include <hstring.h>
#include <inspectable.h>

// Windows.Data.Pdf, of which the compiler has no declarations. Not in an unnamed namespace: the compiler
// would conclude that nothing implements the interfaces.
namespace tarvik::windows_pdf {

struct PdfRectangle {
    float x, y, width, height;
};

struct PdfSize {  // in pixels of 1/96 inch
    float width;
    float height;
};

struct AsyncAction : IInspectable {
    virtual HRESULT STDMETHODCALLTYPE PutCompleted(IUnknown* handler) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCompleted(IUnknown** handler) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetResults() = 0;
};

template <class Result>
struct AsyncOperation : IInspectable {
    virtual HRESULT STDMETHODCALLTYPE PutCompleted(IUnknown* handler) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCompleted(IUnknown** handler) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetResults(Result** result) = 0;
};

// Each is declared as far as it is used.
struct PdfPageRenderOptions : IInspectable {
    virtual HRESULT STDMETHODCALLTYPE GetSourceRect(void* rectangle) = 0;
    virtual HRESULT STDMETHODCALLTYPE PutSourceRect(PdfRectangle rectangle) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDestinationWidth(UINT32* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE PutDestinationWidth(UINT32 value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDestinationHeight(UINT32* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE PutDestinationHeight(UINT32 value) = 0;
};

struct PdfPage : IInspectable {
    virtual HRESULT STDMETHODCALLTYPE RenderToStreamAsync(IUnknown* stream, AsyncAction** action) = 0;
    virtual HRESULT STDMETHODCALLTYPE RenderWithOptionsToStreamAsync(IUnknown* stream,
                                                                     PdfPageRenderOptions* options,
                                                                     AsyncAction** action) = 0;
    virtual HRESULT STDMETHODCALLTYPE PreparePageAsync(AsyncAction** action) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIndex(UINT32* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSize(PdfSize* value) = 0;
};

struct PdfDocument : IInspectable {
    virtual HRESULT STDMETHODCALLTYPE GetPage(UINT32 index, PdfPage** page) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPageCount(UINT32* value) = 0;
};

struct PdfDocumentStatics : IInspectable {
    virtual HRESULT STDMETHODCALLTYPE LoadFromFileAsync(IUnknown* file,
                                                        AsyncOperation<PdfDocument>** operation) = 0;
    virtual HRESULT STDMETHODCALLTYPE LoadFromFileWithPasswordAsync(
        IUnknown* file, HSTRING password, AsyncOperation<PdfDocument>** operation) = 0;
    virtual HRESULT STDMETHODCALLTYPE LoadFromStreamAsync(IUnknown* stream,
                                                          AsyncOperation<PdfDocument>** operation) = 0;
};

inline constexpr IID kDocumentStatics = {
    0x433A0B5F, 0xC007, 0x4788, {0x90, 0xF2, 0x08, 0x14, 0x3D, 0x92, 0x25, 0x99}};
inline constexpr IID kPageRenderOptions = {
    0x3C98056F, 0xB7CF, 0x4C29, {0x9A, 0x04, 0x52, 0xD9, 0x02, 0x67, 0xF4, 0x25}};
inline constexpr IID kRandomAccessStream = {
    0x905A0FE1, 0xBC53, 0x11DF, {0x8C, 0x49, 0x00, 0x1E, 0x4F, 0xC6, 0x86, 0xDA}};

}  // namespace tarvik::windows_pdf
