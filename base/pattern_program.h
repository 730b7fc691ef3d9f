#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/pattern.h"

// The compiled form of a pattern: a syntax tree that the matcher walks.
namespace tarvik {

struct PatternSet {
    bool isComplement = false;
    std::vector<std::pair<wchar_t, wchar_t>> ranges;

    bool Contains(wchar_t character) const {
        for (const auto& [low, high] : ranges) {
            if (character >= low && character <= high) return !isComplement;
        }
        return isComplement;
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
    // kGroup: the index of its capture, -1 for none. kBackReference: the index of the capture it refers to.
    int capture = -1;
    int minCount = 0;         // kRepeat
    bool atMostOnce = false;  // kRepeat

    const PatternNode& Item() const { return alternatives[0][0]; }
};

struct Pattern::Program {
    bool anchoredAtStart = false;
    bool anchoredAtEnd = false;
    int captures = 0;
    PatternNode body;  // a group
};

}  // namespace tarvik
