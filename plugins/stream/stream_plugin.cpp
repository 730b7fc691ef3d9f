#include "plugins/stream/stream_plugin.h"

#include <objbase.h>

#include <algorithm>
#include <cstring>

#include "plugins/stream/stream_text.h"

namespace tarvik {

namespace {

constexpr Member<CStreamPlugin> kMembers[] = {
    Method<&CStreamPlugin::ScriptCopyTo>(L"copyTo", -10000),
    Method<&CStreamPlugin::ScriptSeek>(L"seek", -9999),
    Method<&CStreamPlugin::ScriptSetSize>(L"setSize", -9998),
    Method<&CStreamPlugin::GetSize>(L"getSize", -9997),
    ResultMethod<&CStreamPlugin::ReadUInt8>(L"readUInt8", -9996),
    Method<&CStreamPlugin::WriteUInt8>(L"writeUInt8", -9995),
    ResultMethod<&CStreamPlugin::ReadUInt16>(L"readUInt16", -9994),
    Method<&CStreamPlugin::WriteUInt16>(L"writeUInt16", -9993),
    ResultMethod<&CStreamPlugin::ReadUInt32>(L"readUInt32", -9992),
    Method<&CStreamPlugin::WriteUInt32>(L"writeUInt32", -9991),
    ResultMethod<&CStreamPlugin::ReadUInt64>(L"readUInt64", -9990),
    Method<&CStreamPlugin::WriteUInt64>(L"writeUInt64", -9989),
    ResultMethod<&CStreamPlugin::ReadString>(L"readString", -9988),
    Method<&CStreamPlugin::WriteString>(L"writeString", -9987),
    Method<&CStreamPlugin::Fill>(L"fill", -9986),
    Constant<CStreamPlugin, TVK::kFromBegin>(L"BEGIN", -9985),
    Constant<CStreamPlugin, TVK::kFromCurrent>(L"CURRENT", -9984),
    Constant<CStreamPlugin, TVK::kFromEnd>(L"END", -9983),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CStreamPlugin>(L"stream", TVK::kTransientPlugin);

constexpr uint32_t kAll = 0xFFFFFFFF;

// A count argument; kAll if it is absent. Rejects 0.
uint32_t CountOrAll(const std::optional<Bits32>& count) {
    if (!count) return kAll;
    if (count->value == 0) throw StatusError(E_INVALIDARG);
    return count->value;
}

TextEncoding EncodingArgument(const std::optional<BSTR>& name) {
    return name ? ParseEncoding(Bstr::View(*name)) : TextEncoding::kUtf8;
}

}  // namespace

std::span<const Member<CStreamPlugin>> CStreamPlugin::Members() {
    return kMembers;
}

// The free-threaded marshaler lets workers of other plug-ins use the object directly, without a proxy.
CStreamPlugin::CStreamPlugin() {
    ThrowIfFailed(CoCreateFreeThreadedMarshaler(AsUnknown(), marshaler_.GetAddressOf()));
}

void* CStreamPlugin::FindInterface(REFIID iid) {
    // The marshaler is aggregated, so this object's reference keeps it alive.
    if (iid == __uuidof(IMarshal)) return Query<IMarshal>(marshaler_.Get()).Get();
    return ComObject::FindInterface(iid);
}

uint64_t CStreamPlugin::Available(uint64_t count) const {
    return position_ < size_ ? std::min(count, size_ - position_) : 0;
}

STDMETHODIMP CStreamPlugin::Read(void* buffer, uint32_t count, uint32_t* read) {
    if (read) *read = 0;
    if (count == 0) return S_OK;
    if (!buffer) return E_INVALIDARG;
    const uint64_t taken = Available(count);
    if (taken == 0) return S_OK;
    std::memcpy(buffer, block_.Data() + position_, taken);
    position_ += taken;
    if (read) *read = static_cast<uint32_t>(taken);
    return S_OK;
}

STDMETHODIMP CStreamPlugin::Write(const void* buffer, uint32_t count, uint32_t* written) {
    if (written) *written = 0;
    if (count == 0) return S_OK;
    if (!buffer) return E_INVALIDARG;
    const uint64_t end = position_ + count;
    if (end < position_ || !block_.Reserve(end, size_)) return E_OUTOFMEMORY;
    // memmove, because a stream may be copied onto itself.
    std::memmove(block_.Data() + position_, buffer, count);
    position_ = end;
    size_ = std::max(size_, end);
    if (written) *written = count;
    return S_OK;
}

STDMETHODIMP CStreamPlugin::Seek(uint64_t offset, uint32_t origin, uint64_t* newPosition) {
    const uint64_t bases[] = {0, position_, size_};
    if (origin >= std::size(bases)) return E_INVALIDARG;
    position_ = bases[origin] + offset;
    if (newPosition) *newPosition = position_;
    return S_OK;
}

STDMETHODIMP CStreamPlugin::CopyTo(TVK::IStream* target, uint32_t count, uint32_t* written) {
    if (written) *written = 0;
    if (!target) return E_INVALIDARG;
    const auto available = static_cast<uint32_t>(Available(count));
    return available == 0 ? S_OK : target->Write(block_.Data() + position_, available, written);
}

STDMETHODIMP CStreamPlugin::SetSize(uint64_t size) {
    if (!block_.Reserve(size, size_)) return E_OUTOFMEMORY;
    if (size < size_) std::memset(block_.Data() + size, 0, size_ - size);
    size_ = size;
    return S_OK;
}

uint32_t CStreamPlugin::ScriptCopyTo(const ComPtr<IDispatch>& target, std::optional<Bits32> count) {
    if (!target) throw StatusError(E_INVALIDARG);
    const ComPtr<TVK::IStream> stream = Query<TVK::IStream>(target.Get());
    if (!stream) throw StatusError(E_NOINTERFACE);
    uint32_t written = 0;
    ThrowIfFailed(CopyTo(stream.Get(), CountOrAll(count), &written));
    return written;
}

Number CStreamPlugin::ScriptSeek(UInt64 offset, StrictInt32 origin) {
    uint64_t position = 0;
    ThrowIfFailed(Seek(offset.value, static_cast<uint32_t>(origin.value), &position));
    return {static_cast<double>(position)};
}

Outcome CStreamPlugin::ScriptSetSize(UInt64 size) {
    return {SetSize(size.value)};
}

// Reads nothing if the stream ends within the number.
template <class T>
std::optional<T> CStreamPlugin::ReadNumber() {
    T value = 0;
    if (Available(sizeof value) < sizeof value) return std::nullopt;
    Read(&value, sizeof value, nullptr);
    return value;
}

std::optional<Number> CStreamPlugin::ReadUInt64() {
    const auto value = ReadNumber<uint64_t>();
    return value ? std::optional(Number{static_cast<double>(*value)}) : std::nullopt;
}

std::optional<Bstr> CStreamPlugin::ReadString(std::optional<BSTR> encoding, std::optional<Bits32> length) {
    const TextEncoding textEncoding = EncodingArgument(encoding);
    const uint32_t count = CountOrAll(length);
    if (Available(kAll) == 0) return std::nullopt;
    // The length is signed: a negative one reads an empty text. No string is longer than INT32_MAX.
    const int32_t limit = count == kAll ? INT32_MAX : std::max(static_cast<int32_t>(count), 0);
    const char* const bytes = reinterpret_cast<const char*>(block_.Data() + position_);
    DecodedText decoded = DecodeText({bytes, Available(static_cast<uint64_t>(limit))}, textEncoding);
    position_ += decoded.consumed;
    return std::move(decoded.text);
}

// The contract requires another type for 0 than for other counts.
Variant CStreamPlugin::WriteString(BSTR text, std::optional<BSTR> encoding) {
    const std::string bytes = EncodeText(Bstr::View(text), EncodingArgument(encoding));
    uint32_t written = 0;
    ThrowIfFailed(Write(bytes.data(), static_cast<uint32_t>(bytes.size()), &written));
    return written == 0 ? Variant::I4(0) : Variant::UI4(written);
}

// Overwrites content only, so the stream never grows.
int CStreamPlugin::Fill(Int64 value, std::optional<Bits32> count) {
    const uint32_t limit = CountOrAll(count);
    if (value.value > 0xFF) throw StatusError(E_INVALIDARG);
    const uint64_t filled = Available(limit == kAll ? size_ : limit);
    if (filled > 0) std::memset(block_.Data() + position_, static_cast<int>(value.value), filled);
    position_ += filled;
    return static_cast<int>(filled);
}

}  // namespace tarvik
