#pragma once

// A growable block of memory with a position: plug-ins pass bytes to each other in streams only. The plug-in
// `stream` implements it for the host. A library may implement it too, or query an object from script for it.
//
// A stream has no lock: one thread uses it at a time. The host's streams work on any thread without
// marshaling. For streams of other origin, query IStream on the main thread and marshal it to the worker.

#include <windows.h>
#include <oaidl.h>

#include <cstdint>

namespace TVK {

enum StreamOrigin : uint32_t { kFromBegin = 0, kFromCurrent = 1, kFromEnd = 2 };

// Sizes, counts and positions are in bytes. Every out parameter may be null. Read and Write do nothing for a
// count of 0 and return S_OK; for any other count a null buffer gives E_INVALIDARG.
MIDL_INTERFACE("92F4F789-5735-4852-A8AC-B0B5E5E2DD88")
IStream : public IDispatch {
  public:
    // Copies at most `count` bytes from the position on into the caller's `buffer`, and advances the position
    // by the number copied, which `read` receives. At the end that is 0, with S_OK.
    STDMETHOD(Read)(void* buffer, uint32_t count, uint32_t* read) = 0;

    // Writes `count` bytes at the position, and advances it. The stream grows as needed; bytes between its
    // old end and the position become 0. E_OUTOFMEMORY if it cannot grow: then nothing was written.
    STDMETHOD(Write)(const void* buffer, uint32_t count, uint32_t* written) = 0;

    // Sets the position to `offset` bytes from a StreamOrigin, modulo 2^64: pass a negative offset in two's
    // complement. A position beyond the end is valid. E_INVALIDARG for an unknown origin.
    STDMETHOD(Seek)(uint64_t offset, uint32_t origin, uint64_t * newPosition) = 0;

    // Writes at most `count` bytes, from the position on, to `target`. By design the position of this stream
    // does not change. A count of 0xFFFFFFFF means all that follow. E_INVALIDARG for a null target; otherwise
    // the status of the target's Write.
    STDMETHOD(CopyTo)(IStream * target, uint32_t count, uint32_t * written) = 0;

    // Cuts or extends the stream; bytes that it gains are 0. The position does not change. E_OUTOFMEMORY if
    // it cannot grow: then nothing was changed.
    STDMETHOD(SetSize)(uint64_t size) = 0;

    STDMETHOD_(uint64_t, GetSize)() = 0;

    // The first byte of the stream's own memory; null if the stream has never held any. Valid until the
    // stream next grows or is destroyed.
    STDMETHOD_(uint8_t*, GetBuffer)() = 0;
};

}  // namespace TVK

#ifdef __CRT_UUID_DECL  // compilers that cannot read the id from the declaration
__CRT_UUID_DECL(TVK::IStream, 0x92F4F789, 0x5735, 0x4852, 0xA8, 0xAC, 0xB0, 0xB5, 0xE5, 0xE2, 0xDD, 0x88)
#endif
