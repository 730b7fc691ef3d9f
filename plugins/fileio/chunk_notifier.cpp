#include "plugins/fileio/chunk_notifier.h"

#include "host/plugin_registry/plugin_registry.h"
#include "script/value_operations.h"
#include "tarvik/properties.h"
#include "tarvik/stream.h"

namespace tarvik {

namespace {

constexpr Member<ChunkNotifier> kMembers[] = {
    Method<&ChunkNotifier::Notify>(L"notify", DISPID_VALUE),
};
static_assert(IsInOrder(kMembers));

ComPtr<TVK::IStream> MakeChunk(const void* bytes, ULONG count) {
    const PluginEntry* const entry = FindPlugin(L"stream");
    ComPtr<TVK::IStream> chunk;
    if (entry) entry->factory(__uuidof(TVK::IStream), reinterpret_cast<void**>(chunk.GetAddressOf()));
    if (!chunk) throw StatusError(E_FAIL);
    ThrowIfFailed(chunk->Write(bytes, count, nullptr));
    ThrowIfFailed(chunk->Seek(0, TVK::kFromBegin, nullptr));
    return chunk;
}

}  // namespace

std::span<const Member<ChunkNotifier>> ChunkNotifier::Members() {
    return kMembers;
}

HRESULT ChunkNotifier::Notify(const Call& call) {
    if (call.Count() != 2 || call.At(0).vt != VT_I8 || call.At(1).vt != VT_UI4) return E_INVALIDARG;
    const auto* const bytes = reinterpret_cast<const void*>(call.At(0).llVal);
    const Variant chunk = Variant::Object(MakeChunk(bytes, call.At(1).ulVal).Get());
    return CallWithContext(progress_.AsDispatch(), chunk, context_, call.Result());
}

}  // namespace tarvik
