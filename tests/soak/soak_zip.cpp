// soak_zip [ARCHIVES [SEED]]: unpacks damaged archives. Fails on a crash, on a file outside of the
// destination, and if handles leak.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <random>

#include "plugins/zip/zip_plugin.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/course.h"
#include "tests/support/temp_folder.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

std::mt19937_64 chance;

size_t Below(size_t limit) {
    return limit ? chance() % limit : 0;
}

template <class List>
auto Any(const List& list) {
    return list[Below(std::size(list))];
}

std::vector<std::string> GoodArchives() {
    std::string noise;
    for (int i = 0; i < 5000; ++i)
        noise += static_cast<char>(Below(64) + ' ');
    const std::string text(9000, 't');
    return {
        WriteArchive({{"folder/name/", ""}, {"folder/name/text.txt", text}, {"folder/empty.txt", ""}}),
        WriteArchive({{"stored-file.bin", noise, 0}, {"packed-file.bin", noise}}, {.comment = "a comment"}),
        WriteArchive({{.name = "wide-stored.bin", .content = noise, .method = 0, .wide = true},
                      {.name = "wide-packed.bin", .content = noise, .wide = true}}),
        std::string(3000, 'M') + WriteArchive({{"first-archive.txt", "1"}}) +
            WriteArchive({{.name = "\xC3\xA9t\xC3\xA9/second.txt", .content = text, .flags = kUtf8Name}}),
        WriteArchive({}),
    };
}

// A random position, half of the time inside a header.
size_t Place(const std::string& archive) {
    const size_t place = Below(archive.size());
    const size_t header = Below(2) == 0 ? archive.find("PK", place) : std::string::npos;
    return header == std::string::npos ? place : std::min(header + Below(50), archive.size() - 1);
}

// Overwrites 1, 2, 4 or 8 bytes with a number.
void SetField(std::string& archive, size_t place) {
    constexpr std::int64_t kValues[] = {-101,   -1,         0,          1,          2,          22,
                                        46,     0x7F,       0x80,       0xFF,       0x7FFF,     0x8000,
                                        0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFF, 0x100000000};
    const auto value = static_cast<std::uint64_t>(Any(kValues));
    const size_t width = size_t{1} << Below(4);
    for (size_t i = 0; i < width && place + i < archive.size(); ++i)
        archive[place + i] = static_cast<char>(value >> 8 * i);
}

std::string Damaged(std::string archive) {
    do {
        if (archive.empty()) return archive;
        const size_t place = Place(archive);
        const std::string block = archive.substr(Place(archive), 1 + Below(200));
        switch (Below(6)) {
            case 0:
                archive[place] ^= static_cast<char>(1 << Below(8));
                break;
            case 1:
                archive.resize(place);
                break;
            case 2:
                archive.insert(place, block);
                break;
            case 3:
                archive.replace(place, block.size(), block);
                break;
            default:
                SetField(archive, place);
                break;
        }
    } while (Below(3) == 0);
    return archive;
}

// A copy of bytes directly before an inaccessible memory page, so that reading beyond their end crashes.
class GuardedBytes {
  public:
    explicit GuardedBytes(Bytes bytes) : size_(bytes.size()) {
        constexpr size_t kPage = 4096;
        const size_t capacity = (size_ / kPage + 1) * kPage;
        memory_ =
            static_cast<std::uint8_t*>(VirtualAlloc(nullptr, capacity + kPage, MEM_RESERVE, PAGE_NOACCESS));
        VirtualAlloc(memory_, capacity, MEM_COMMIT, PAGE_READWRITE);
        start_ = memory_ + capacity - size_;
        if (size_) std::memcpy(start_, bytes.data(), size_);
    }
    ~GuardedBytes() { VirtualFree(memory_, 0, MEM_RELEASE); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    Bytes Content() const { return {start_, size_}; }

  private:
    size_t size_;
    std::uint8_t* memory_;
    std::uint8_t* start_;
};

// Finds the archive with this index and extracts it, both from guarded bytes.
bool Unpack(const std::string& archive, ULONG index, const std::wstring& dest) {
    const auto plugin = MakeCom<CZipPlugin>();
    const Variant noContext;
    const ExtractOptions options{dest, false, nullptr, &noContext};
    const GuardedBytes file(BytesOf(archive));
    const HRESULT status = Guard([&] {
        const GuardedBytes found(FindArchive(file.Content(), index).value_or(file.Content()));
        plugin->ExtractMemory(found.Content(), options);
    });
    return SUCCEEDED(status);
}

bool Soak(int runs) {
    const std::vector<std::string> good = GoodArchives();
    const TempFolder folder;
    const std::wstring dest = folder / L"out";
    int unpacked = 0;
    Course course("runs", [&] {
        return Reading{ResourceCounts::Now(),
                       {{"handles", static_cast<double>(CountHandles()), 0},
                        {"unpacked", static_cast<double>(unpacked), 1e9}}};
    });
    constexpr int kWarmUp = 100;
    const bool level = course.Run(kWarmUp, runs, [&](int) {
        unpacked += Unpack(Damaged(Any(good)), static_cast<ULONG>(Below(3)), dest);
        fs::remove_all(dest);
        return fs::is_empty(folder.Path());
    });
    return level && unpacked > 0;
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    tarvik::chance.seed(argc > 2 ? _wcstoui64(argv[2], nullptr, 10) : 1);
    return tarvik::Soak(argc > 1 ? _wtoi(argv[1]) : 100'000) ? 0 : 1;
}
