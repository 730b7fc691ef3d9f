#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/stream/growing_block.h"
#include "tarvik/stream.h"

namespace tarvik {

// `stream`: bytes in memory with a position, for scripts and, as TVK::IStream, for plug-ins. Numbers are
// little-endian. Any thread may use it, but only one at a time: there is no lock.
class CStreamPlugin : public TablePlugin<CStreamPlugin, As<TVK::IStream, TVK::IStream, IDispatch>> {
  public:
    static constexpr char kClassName[] = "CStreamPlugin";
    static std::span<const Member<CStreamPlugin>> Members();

    CStreamPlugin();

    STDMETHODIMP Read(void* buffer, uint32_t count, uint32_t* read) override;
    STDMETHODIMP Write(const void* buffer, uint32_t count, uint32_t* written) override;
    STDMETHODIMP Seek(uint64_t offset, uint32_t origin, uint64_t* newPosition) override;
    STDMETHODIMP CopyTo(TVK::IStream* target, uint32_t count, uint32_t* written) override;
    STDMETHODIMP SetSize(uint64_t size) override;
    STDMETHODIMP_(uint64_t) GetSize() override { return size_; }
    STDMETHODIMP_(uint8_t*) GetBuffer() override { return block_.Data(); }

    // The script members. Those named Script... forward to the operation of TVK::IStream. Counts are
    // reinterpreted as unsigned, so -1 means everything, as an absent count does.
    uint32_t ScriptCopyTo(const ComPtr<IDispatch>& target, std::optional<Bits32> count);
    Number ScriptSeek(UInt64 offset, StrictInt32 origin);
    Outcome ScriptSetSize(UInt64 size);
    std::optional<uint8_t> ReadUInt8() { return ReadNumber<uint8_t>(); }
    Outcome WriteUInt8(Bits32 value) { return WriteNumber(static_cast<uint8_t>(value.value)); }
    std::optional<uint16_t> ReadUInt16() { return ReadNumber<uint16_t>(); }
    Outcome WriteUInt16(Bits32 value) { return WriteNumber(static_cast<uint16_t>(value.value)); }
    std::optional<uint32_t> ReadUInt32() { return ReadNumber<uint32_t>(); }
    Outcome WriteUInt32(Bits32 value) { return WriteNumber(static_cast<uint32_t>(value.value)); }
    // By design ReadUInt64 reads an integer, but WriteUInt64 writes the bits of a double.
    std::optional<Number> ReadUInt64();
    Outcome WriteUInt64(Number value) { return WriteNumber(value.value); }
    std::optional<Bstr> ReadString(std::optional<BSTR> encoding, std::optional<Bits32> length);
    Variant WriteString(BSTR text, std::optional<BSTR> encoding);
    int Fill(Int64 value, std::optional<Bits32> count);

  protected:
    void* FindInterface(REFIID iid) override;

  private:
    template <class T>
    std::optional<T> ReadNumber();
    template <class T>
    Outcome WriteNumber(T value) {
        return {Write(&value, sizeof value, nullptr)};
    }

    // The number of bytes after the position, at most `count`.
    uint64_t Available(uint64_t count) const;

    GrowingBlock block_;
    uint64_t position_ = 0;  // may be beyond the end
    uint64_t size_ = 0;      // the rest of the block is zero
    ComPtr<IUnknown> marshaler_;
};

}  // namespace tarvik
