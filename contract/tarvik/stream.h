#pragma once

// A growable block of memory with a position: the one type in which bytes cross between plug-ins. The host's
// own is the plug-in `stream`; a library may implement it too, or take such an object from script and ask it
// for this interface.
//
// It has no lock: whoever uses it has it alone for that time. The host's streams may be used on any thread as
// they are; of other objects, what is to be used on a worker thread is asked for on the main thread.

#include <windows.h>
#include <oaidl.h>

#include <cstdint>

namespace TVK {

enum StreamOrigin : uint32_t { kFromBegin = 0, kFromCurrent = 1, kFromEnd = 2 };

// Counts and positions are bytes. Out parameters may be null. A count of 0 is S_OK and does nothing; with
// another count a null buffer or target is E_INVALIDARG.
MIDL_INTERFACE("92F4F789-5735-4852-A8AC-B0B5E5E2DD88")
IStream : public IDispatch {
  public:
    // Copies what there is from the position on, `count` at most, and moves the position. At the end, 0 bytes
    // and S_OK.
    STDMETHOD(Read)(void* buffer, uint32_t count, uint32_t* read) = 0;
    // Grows as needed; E_OUTOFMEMORY writes nothing.
    STDMETHOD(Write)(const void* buffer, uint32_t count, uint32_t* written) = 0;
    // Any place is allowed, also beyond the end: a write there fills the gap with zeros. E_INVALIDARG for
    // another origin.
    STDMETHOD(Seek)(uint64_t offset, uint32_t origin, uint64_t * newPosition) = 0;
    // Writes from the position on to `target`, which is borrowed, without moving the position here: that is
    // intended. A count of 0xFFFFFFFF means all. A failure is that of the target's Write.
    STDMETHOD(CopyTo)(IStream * target, uint32_t count, uint32_t * written) = 0;
    // The position stays. New content is zero. E_OUTOFMEMORY changes nothing.
    STDMETHOD(SetSize)(uint64_t size) = 0;
    STDMETHOD_(uint64_t, GetSize)() = 0;
    // The first byte; null for a stream that never held one. It stays the stream's, and is valid until the
    // stream next grows.
    STDMETHOD_(uint8_t*, GetBuffer)() = 0;
};

}  // namespace TVK

#ifdef __CRT_UUID_DECL  // compilers that cannot read the id from the declaration
__CRT_UUID_DECL(TVK::IStream, 0x92F4F789, 0x5735, 0x4852, 0xA8, 0xAC, 0xB0, 0xB5, 0xE5, 0xE2, 0xDD, 0x88)
#endif
