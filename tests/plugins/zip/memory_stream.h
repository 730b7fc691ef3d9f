#pragma once

#include <algorithm>
#include <string>

#include "base/com_object.h"
#include "host/contract/stream.h"

namespace tarvik {

// A stream as a plug-in library would have one. It takes as many bytes as it has room for.
class MemoryStream : public ComObject<As<TVK::IStream, TVK::IStream, IDispatch>> {
  public:
    explicit MemoryStream(size_t room = SIZE_MAX) : room_(room) {}

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    STDMETHODIMP Write(const void* buffer, uint32_t count, uint32_t* written) override {
        *written = static_cast<uint32_t>(std::min<size_t>(count, room_ - std::min(room_, position_)));
        if (bytes.size() < position_ + *written) bytes.resize(position_ + *written);
        bytes.replace(position_, *written, static_cast<const char*>(buffer), *written);
        position_ += *written;
        return S_OK;
    }
    STDMETHODIMP Seek(uint64_t offset, uint32_t, uint64_t*) override {
        position_ = static_cast<size_t>(offset);
        return S_OK;
    }
    STDMETHODIMP Read(void*, uint32_t, uint32_t*) override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(TVK::IStream*, uint32_t, uint32_t*) override { return E_NOTIMPL; }
    STDMETHODIMP SetSize(uint64_t) override { return E_NOTIMPL; }
    STDMETHODIMP_(uint64_t) GetSize() override { return bytes.size(); }
    STDMETHODIMP_(uint8_t*) GetBuffer() override { return nullptr; }

    std::string bytes;

  private:
    size_t room_;
    size_t position_ = 0;
};

}  // namespace tarvik
