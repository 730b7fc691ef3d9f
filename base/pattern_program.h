#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/pattern.h"

// The compiled form of a pattern: what the compiler makes and the matcher walks.
namespace tarvik {

struct PatternSet {
    bool opposite = false;
    std::vector<std::pair<wchar_t, wchar_t>> ranges;

    bool Has(wchar_t character) const {
        for (const auto& [low, high] : ranges) {
            if (character >= low && character <= high) return !opposite;
        }
        return opposite;
    }
};

struct PatternNode;
using PatternSequence = std::vector<PatternNode>;

struct PatternNode {
    enum class Kind { kCharacter, kAny, kSet, kGroup, kBackReference, kNot, kRepeat };

    Kind kind = Kind::kAny;
    wchar_t character = 0;
    PatternSet set;
    // kGroup: its alternatives. kNot, kRepeat: one alternative with one node.
    std::vector<PatternSequence> alternatives;
    int capture = -1;   // kGroup: the number of its capture; kBackReference: the capture meant
    int least = 0;      // kRepeat
    bool once = false;  // kRepeat: at most once

    const PatternNode& Item() const { return alternatives[0][0]; }
};

struct Pattern::Program {
    bool fromStart = false;
    bool toEnd = false;
    int captures = 0;
    PatternNode body;  // a group
};

}  // namespace tarvik
