#include "cli/suggestion.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace tarvik {

namespace {

// The Levenshtein distance: how many characters to insert, remove or replace.
size_t EditDistance(std::string_view from, std::string_view to) {
    std::vector<size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 1; i <= from.size(); ++i) {
        size_t diagonal = std::exchange(row[0], i);
        for (size_t j = 1; j <= to.size(); ++j) {
            const size_t replaced = diagonal + (from[i - 1] == to[j - 1] ? 0 : 1);
            diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, replaced}));
        }
    }
    return row.back();
}

}  // namespace

std::string ClosestWord(std::string_view word, std::span<const std::string> candidates) {
    constexpr size_t kMaxDistance = 2, kMinAbbreviation = 3;
    if (candidates.empty()) return {};
    const auto whole = std::ranges::find_if(
        candidates, [&](const std::string& candidate) { return candidate.starts_with(word); });
    if (whole != candidates.end() && word.size() >= kMinAbbreviation) return *whole;
    const auto distance = [&](const std::string& candidate) { return EditDistance(word, candidate); };
    const auto closest = std::ranges::min_element(candidates, {}, distance);
    return distance(*closest) <= std::min(kMaxDistance, closest->size() / 2) ? *closest : std::string();
}

}  // namespace tarvik
