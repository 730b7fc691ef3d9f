#pragma once

#include "script/dispatch.h"
#include "tarvik/script_object.h"

namespace tarvik {

// Passes the chunks that a worker has read to `progress`. The worker calls this object through a proxy, as a
// function of the address (VT_I8) and the size (VT_UI4) of a chunk, and gets the result of `progress`. So the
// chunk's stream is created on the main thread: scripts hold no proxy, and it outlives the worker.
class ChunkNotifier : public SmallDispatch<ChunkNotifier, AnyAccessRules> {
  public:
    static std::span<const Member<ChunkNotifier>> Members();

    ChunkNotifier(const ScriptObject& progress, Variant context)
        : progress_(progress), context_(std::move(context)) {}

    HRESULT Notify(const Call& call);

  private:
    const ScriptObject progress_;
    Variant context_;
};

}  // namespace tarvik
