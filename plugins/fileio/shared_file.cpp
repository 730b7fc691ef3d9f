#include "plugins/fileio/shared_file.h"

#include "tarvik/status.h"

namespace tarvik {

namespace {

void Check(BOOL succeeded) {
    if (!succeeded) ThrowLastError();
}

}  // namespace

HANDLE SharedFile::Handle() const {
    if (!handle_) throw StatusError(HRESULT_FROM_WIN32(ERROR_INVALID_HANDLE));
    return handle_.Get();
}

bool SharedFile::IsOpen() {
    const std::lock_guard hold(lock_);
    return static_cast<bool>(handle_);
}

void SharedFile::Close() {
    const std::lock_guard hold(lock_);
    handle_.Reset();
}

DWORD SharedFile::Read(void* buffer, DWORD count) {
    const std::lock_guard hold(lock_);
    DWORD read = 0;
    Check(ReadFile(Handle(), buffer, count, &read, nullptr));
    return read;
}

DWORD SharedFile::Write(const void* bytes, DWORD count) {
    const std::lock_guard hold(lock_);
    DWORD written = 0;
    Check(WriteFile(Handle(), bytes, count, &written, nullptr));
    return written;
}

LONGLONG SharedFile::Move(LONGLONG offset, DWORD origin) const {
    LARGE_INTEGER position = {};
    Check(SetFilePointerEx(Handle(), {.QuadPart = offset}, &position, origin));
    return position.QuadPart;
}

LONGLONG SharedFile::Seek(LONGLONG offset, DWORD origin) {
    const std::lock_guard hold(lock_);
    return Move(offset, origin);
}

LONGLONG SharedFile::Size() {
    const std::lock_guard hold(lock_);
    LARGE_INTEGER size = {};
    Check(GetFileSizeEx(Handle(), &size));
    return size.QuadPart;
}

void SharedFile::Resize(LONGLONG size) {
    const std::lock_guard hold(lock_);
    const LONGLONG position = Move(0, FILE_CURRENT);
    Move(size, FILE_BEGIN);
    Check(SetEndOfFile(Handle()));
    Move(position, FILE_BEGIN);
}

}  // namespace tarvik
