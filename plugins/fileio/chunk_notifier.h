#pragma once

#include "script/dispatch.h"

namespace tarvik {

// Gives a page the pieces that a worker has read. The worker calls it through a proxy, as a function with the
// address (VT_I8) and the size (VT_UI4) of a piece, and has the answer of script. So the chunk is made on the
// page's own thread: it is no proxy there, and stays when the worker has gone.
class ChunkTeller : public SmallDispatch<ChunkTeller, AnyAccessRules> {
  public:
    static std::span<const Member<ChunkTeller>> Members();

    ChunkTeller(ComPtr<IDispatch> progress, Variant context)
        : progress_(std::move(progress)), context_(std::move(context)) {}

    HRESULT Tell(const Call& call);

  private:
    ComPtr<IDispatch> progress_;
    Variant context_;
};

}  // namespace tarvik
