#include "tests/soak/archive_mutator.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

constexpr std::uint64_t kValues[] = {0,
                                     1,
                                     2,
                                     22,
                                     46,
                                     0x7F,
                                     0x80,
                                     0xFF,
                                     0x7FFF,
                                     0x8000,
                                     0xFFFF,
                                     0x7FFFFFFF,
                                     0x80000000,
                                     0xFFFFFFF0,
                                     0xFFFFFFFF,
                                     0x100000000,
                                     ~std::uint64_t{0},
                                     ~std::uint64_t{0} - 100};

const std::string kNames[] = {
    "../escaped",  "..\\escaped", "a/../../escaped",      "/escaped", "\\escaped",
    "C:\\escaped", "C:escaped",   "file:stream",          "NUL",      "con.txt",
    "../",         "..",          std::string("a\0b", 3), "//s/h/x",  ". ./escaped"};

void Put(std::string& archive, size_t place, std::uint64_t value, size_t width) {
    for (size_t i = 0; i < width && place + i < archive.size(); ++i)
        archive[place + i] = static_cast<char>(value >> 8 * i);
}

}  // namespace

std::vector<size_t> FindHeaders(const std::string& archive, const std::string& signature) {
    std::vector<size_t> found;
    for (size_t at = archive.find(signature); at != std::string::npos; at = archive.find(signature, at + 1))
        found.push_back(at);
    return found;
}

std::string ArchiveMutator::Mutate(std::string archive) {
    do {
        Edit(archive);
    } while (Below(3) == 0);
    return archive;
}

// Half of the time inside a header.
size_t ArchiveMutator::Place(const std::string& archive) {
    if (const auto headers = FindHeaders(archive, "PK"); !headers.empty() && Below(2) == 0)
        return std::min(headers[Below(headers.size())] + Below(50), archive.size() - 1);
    return Below(archive.size());
}

void ArchiveMutator::Edit(std::string& archive) {
    if (archive.empty()) return;
    const size_t place = Place(archive);
    switch (Below(10)) {
        case 0:
            archive[place] ^= static_cast<char>(1 << Below(8));
            break;
        case 1:
            archive[place] = static_cast<char>(random_());
            break;
        case 2:
            archive.resize(place);
            break;
        case 3:
            archive.erase(place, 1 + Below(40));
            break;
        case 4:
            MoveBlock(archive);
            break;
        case 5:
        case 6:
            SetName(archive);
            break;
        case 7:
            SetWideField(archive);
            break;
        default:
            SetField(archive);
            break;
    }
}

void ArchiveMutator::SetField(std::string& archive) {
    const std::uint64_t value = kValues[Below(std::size(kValues))];
    Put(archive, Place(archive), value, size_t{1} << Below(4));
}

// The first of the 64-bit values that stand in for sizes and offsets.
void ArchiveMutator::SetWideField(std::string& archive) {
    const auto fields = FindHeaders(archive, std::string("\1\0\x8\0", 4));
    if (!fields.empty())
        Put(archive, fields[Below(fields.size())] + 4, kValues[Below(std::size(kValues))], 8);
}

// A name of the central directory, as long as it was.
void ArchiveMutator::SetName(std::string& archive) {
    constexpr size_t kLengthAt = 28;
    constexpr size_t kNameAt = 46;
    const auto headers = FindHeaders(archive, "PK\1\2");
    if (headers.empty()) return;
    const size_t header = headers[Below(headers.size())];
    if (header + kNameAt >= archive.size()) return;
    const size_t length = static_cast<unsigned char>(archive[header + kLengthAt]);
    std::string name = kNames[Below(std::size(kNames))];
    name.resize(length, 'x');
    archive.replace(header + kNameAt, std::min(length, archive.size() - header - kNameAt), name);
}

void ArchiveMutator::MoveBlock(std::string& archive) {
    const std::string block = archive.substr(Place(archive), 1 + Below(200));
    const size_t place = Place(archive);
    if (Below(2) == 0) {
        archive.insert(place, block);
    } else {
        archive.replace(place, block.size(), block);
    }
}

}  // namespace tarvik
