#include "tests/soak/archive_mutator.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tarvik {

namespace {

constexpr std::int64_t kValues[] = {-101,   -1,         0,          1,          2,          22,
                                    46,     0x7F,       0x80,       0xFF,       0x7FFF,     0x8000,
                                    0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFF, 0x100000000};

const std::string kNames[] = {
    "../escaped",  "..\\escaped", "a/../../escaped",      "/escaped", "\\escaped",
    "C:\\escaped", "C:escaped",   "file:stream",          "NUL",      "con.txt",
    "../",         "..",          std::string("a\0b", 3), "//s/h/x",  ". ./escaped"};

}  // namespace

std::string ArchiveMutator::Mutate(std::string archive) {
    do {
        Edit(archive);
    } while (Below(3) == 0);
    return archive;
}

size_t ArchiveMutator::Find(const std::string& archive, const std::string& text) {
    std::vector<size_t> found;
    for (size_t at = archive.find(text); at != std::string::npos; at = archive.find(text, at + 1))
        found.push_back(at);
    return found.empty() ? archive.size() : found[Below(found.size())];
}

// Half of the time inside a header.
size_t ArchiveMutator::Place(const std::string& archive) {
    if (Below(2) == 0) return Below(archive.size());
    return std::min(Find(archive, "PK") + Below(50), archive.size() - 1);
}

void ArchiveMutator::Edit(std::string& archive) {
    if (archive.empty()) return;
    const size_t place = Place(archive);
    const std::string block = archive.substr(Place(archive), 1 + Below(200));
    switch (Below(10)) {
        case 0:
            archive[place] ^= static_cast<char>(1 << Below(8));
            break;
        case 1:
            archive.resize(place);
            break;
        case 2:
            archive.erase(place, 1 + Below(40));
            break;
        case 3:
            archive.insert(place, block);
            break;
        case 4:
            archive.replace(place, block.size(), block);
            break;
        case 5:
        case 6:
            SetName(archive);
            break;
        case 7:  // the first of the 64-bit values that stand in for sizes and offsets
            SetField(archive, Find(archive, std::string("\1\0\x8\0", 4)) + 4, 8);
            break;
        default:
            SetField(archive, place, size_t{1} << Below(4));
            break;
    }
}

void ArchiveMutator::SetField(std::string& archive, size_t place, size_t width) {
    const auto value = static_cast<std::uint64_t>(kValues[Below(std::size(kValues))]);
    for (size_t i = 0; i < width && place + i < archive.size(); ++i)
        archive[place + i] = static_cast<char>(value >> 8 * i);
}

// A name of the central directory, as long as it was.
void ArchiveMutator::SetName(std::string& archive) {
    constexpr size_t kLengthAt = 28;
    constexpr size_t kNameAt = 46;
    const size_t header = Find(archive, "PK\1\2");
    if (header + kNameAt >= archive.size()) return;
    const size_t length = static_cast<unsigned char>(archive[header + kLengthAt]);
    std::string name = kNames[Below(std::size(kNames))];
    name.resize(length, 'x');
    archive.replace(header + kNameAt, std::min(length, archive.size() - header - kNameAt), name);
}

}  // namespace tarvik
