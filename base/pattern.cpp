#include "base/pattern.h"

#include <algorithm>
#include <utility>

#include "base/pattern_program.h"

namespace tarvik {

namespace {

using Kind = PatternNode::Kind;
using Captures = std::vector<std::optional<Pattern::Range>>;

// A continuation: matches the rest of the expression at a position. It refers to a function that outlives it.
class Continuation {
  public:
    template <class Function>
    Continuation(const Function& function)
        : function_(&function), call_([](const void* target, size_t at) -> bool {
              return (*static_cast<const Function*>(target))(at);
          }) {}
    bool operator()(size_t at) const { return call_(function_, at); }

  private:
    const void* function_;
    bool (*call_)(const void* function, size_t at);
};

// A backtracking matcher: a node matches at a position only if the `rest` of the expression matches after it.
class Matcher {
  public:
    Matcher(std::wstring_view text, int captures, int maxSteps)
        : text_(text), captures_(static_cast<size_t>(captures)), maxSteps_(maxSteps) {}

    bool Match(const PatternNode& node, size_t at, const Continuation& rest) {
        if (exhausted_ || ++steps_ > maxSteps_ || depth_ >= kMaxDepth) {
            exhausted_ = true;
            return false;
        }
        ++depth_;
        const bool matched = MatchKind(node, at, rest);
        --depth_;
        return matched;
    }

    const Captures& Found() const { return captures_; }
    bool IsExhausted() const { return exhausted_; }

  private:
    // More than any path needs. It limits the stack to about half a megabyte.
    static constexpr int kMaxDepth = 1'200;

    bool MatchKind(const PatternNode& node, size_t at, const Continuation& rest) {
        const bool hasCharacter = at < text_.size();
        switch (node.kind) {
            case Kind::kCharacter:
                return hasCharacter && text_[at] == node.character && rest(at + 1);
            case Kind::kAny:
                return hasCharacter && rest(at + 1);
            case Kind::kSet:
                return hasCharacter && node.set.Contains(text_[at]) && rest(at + 1);
            case Kind::kGroup:
                return MatchGroup(node, at, rest);
            case Kind::kBackReference:
                return MatchBackReference(node, at, rest);
            case Kind::kNot:
                return MatchNot(node, at) && rest(at);
            case Kind::kRepeat:
                return MatchesOneCharacter(node.Item()) ? MatchCharacters(node, at, rest)
                                                        : MatchRepeat(node, 0, at, rest);
        }
        return false;
    }

    bool MatchSequence(const PatternSequence& sequence, size_t index, size_t at, const Continuation& rest) {
        if (index == sequence.size()) return rest(at);
        return Match(sequence[index], at,
                     [&, index](size_t next) { return MatchSequence(sequence, index + 1, next, rest); });
    }

    bool MatchGroup(const PatternNode& node, size_t at, const Continuation& rest) {
        for (const PatternSequence& alternative : node.alternatives) {
            const bool matched = MatchSequence(alternative, 0, at, [&](size_t end) {
                if (node.capture < 0) return rest(end);
                auto& capture = captures_[static_cast<size_t>(node.capture)];
                const auto before = std::exchange(capture, Pattern::Range{at, end});
                if (rest(end)) return true;
                capture = before;
                return false;
            });
            if (matched) return true;
        }
        return false;
    }

    bool MatchBackReference(const PatternNode& node, size_t at, const Continuation& rest) {
        const auto& capture = captures_[static_cast<size_t>(node.capture)];
        if (!capture) return false;
        const std::wstring_view wanted = capture->In(text_);
        return text_.substr(at, wanted.size()) == wanted && rest(at + wanted.size());
    }

    // Captures inside the negation are discarded.
    bool MatchNot(const PatternNode& node, size_t at) {
        const Captures before = captures_;
        const bool matched = Match(node.Item(), at, [](size_t) { return true; });
        captures_ = before;
        return !matched && !exhausted_;
    }

    static bool MatchesOneCharacter(const PatternNode& node) {
        return node.kind == Kind::kCharacter || node.kind == Kind::kAny || node.kind == Kind::kSet;
    }

    // The repetition of a single character, the usual case: a loop instead of a recursion for each character.
    bool MatchCharacters(const PatternNode& node, size_t at, const Continuation& rest) {
        const size_t limit = node.atMostOnce ? std::min(at + 1, text_.size()) : text_.size();
        size_t end = at;
        while (end < limit && Match(node.Item(), end, [](size_t) { return true; }))
            ++end;
        for (;; --end) {
            if (exhausted_ || end < at + static_cast<size_t>(node.minCount)) return false;
            if (rest(end)) return true;
            if (end == at) return false;
        }
    }

    bool MatchRepeat(const PatternNode& node, int count, size_t at, const Continuation& rest) {
        const bool more = !node.atMostOnce || count == 0;
        // An item that matches the empty string would repeat for ever.
        const bool again =
            more && Match(node.Item(), at, [&](size_t end) {
                return (end != at || count < node.minCount) && MatchRepeat(node, count + 1, end, rest);
            });
        return again || (count >= node.minCount && rest(at));
    }

    std::wstring_view text_;
    Captures captures_;
    const int maxSteps_;
    int steps_ = 0;
    int depth_ = 0;
    bool exhausted_ = false;
};

}  // namespace

std::optional<Pattern::Match> Pattern::Search(std::wstring_view text, int maxSteps) const {
    const size_t last = program_->anchoredAtStart ? 0 : text.size();
    Matcher matcher(text, program_->captures, maxSteps);
    for (size_t from = 0; from <= last && !matcher.IsExhausted(); ++from) {
        size_t to = from;
        const bool matched = matcher.Match(program_->body, from, [&](size_t end) {
            to = end;
            return !program_->anchoredAtEnd || end == text.size();
        });
        if (matched) return Match{{from, to}, matcher.Found()};
    }
    return std::nullopt;
}

}  // namespace tarvik
