#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace tarvik {

// Damages archives, with a liking for their headers. The same seed gives the same damage.
class ArchiveMutator {
  public:
    explicit ArchiveMutator(std::uint64_t seed) : random_(seed) {}

    std::string Mutate(std::string archive);
    size_t Below(size_t limit) { return limit ? random_() % limit : 0; }

  private:
    // One of the places where this stands; the archive's size if there is none.
    size_t Find(const std::string& archive, const std::string& text);
    size_t Place(const std::string& archive);
    void Edit(std::string& archive);
    void SetField(std::string& archive, size_t place, size_t width);
    void SetName(std::string& archive);

    std::mt19937_64 random_;
};

}  // namespace tarvik
