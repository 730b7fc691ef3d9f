#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tarvik {

// Damages archives, with a liking for their headers. The same seed gives the same damage.
class ArchiveMutator {
  public:
    explicit ArchiveMutator(std::uint64_t seed) : random_(seed) {}

    std::string Mutate(std::string archive);
    size_t Below(size_t limit) { return limit ? random_() % limit : 0; }

  private:
    size_t Place(const std::string& archive);
    void Edit(std::string& archive);
    void SetField(std::string& archive);
    void SetWideField(std::string& archive);
    void SetName(std::string& archive);
    void MoveBlock(std::string& archive);

    std::mt19937_64 random_;
};

// Where the headers of an archive start.
std::vector<size_t> FindHeaders(const std::string& archive, const std::string& signature);

}  // namespace tarvik
