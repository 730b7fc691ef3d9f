#include "pack/host_program.h"

#include <windows.h>

#include <cstring>

#include "archive/mapped_file.h"
#include "cli/failure.h"

namespace tarvik {

namespace {

// Copies, because headers in a file need not be aligned. False if the file ends too early.
template <class Header>
bool ReadAt(Bytes bytes, size_t offset, Header& header) {
    if (offset > bytes.size() || sizeof header > bytes.size() - offset) return false;
    std::memcpy(&header, bytes.data() + offset, sizeof header);
    return true;
}

bool ReadHeaders(Bytes program, IMAGE_NT_HEADERS64& headers) {
    IMAGE_DOS_HEADER dos;
    return ReadAt(program, 0, dos) && dos.e_magic == IMAGE_DOS_SIGNATURE && dos.e_lfanew > 0 &&
           ReadAt(program, static_cast<size_t>(dos.e_lfanew), headers) &&
           headers.Signature == IMAGE_NT_SIGNATURE &&
           headers.FileHeader.Machine == IMAGE_FILE_MACHINE_AMD64 &&
           headers.OptionalHeader.Magic == IMAGE_NT_OPTIONAL_HDR64_MAGIC;
}

}  // namespace

void CheckHost(const std::wstring& path) {
    const std::wstring name = L"The host \"" + path + L"\"";
    const MappedFile file = WithContext(name + L" cannot be read", [&] { return MappedFile(path); });
    IMAGE_NT_HEADERS64 headers;
    if (!ReadHeaders(file.Content(), headers)) throw Failure(name + L" is not a program for 64-bit Windows.");
    if (headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_SECURITY].Size != 0) {
        throw Failure(name +
                      L" is signed, and packing would invalidate the signature. Use an unsigned host and "
                      L"sign the packed program.");
    }
    if (FindArchive(file.Content(), 0))
        throw Failure(name + L" already has an archive attached. Use the host as it was built.");
}

}  // namespace tarvik
