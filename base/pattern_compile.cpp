#include <cwctype>
#include <iterator>

#include "base/pattern_program.h"

namespace tarvik {

namespace {

struct SyntaxError {};

using Kind = PatternNode::Kind;

// `\a` to `\z`, defined in the pattern language itself.
struct Abbreviation {
    wchar_t letter;
    const wchar_t* set;         // replaces it in a set; null if it is an error there
    const wchar_t* expression;  // replaces it elsewhere; null if that is the same
};

constexpr Abbreviation kAbbreviations[] = {
    {L'a', L"[a-zA-Z0-9]", nullptr},
    {L'b', L"[ \t]", nullptr},
    {L'c', L"[a-zA-Z]", nullptr},
    {L'd', L"[0-9]", nullptr},
    {L'h', L"[0-9a-fA-F]", nullptr},
    {L'n', L"[\r\n]", L"(\r\n|\r|\n)"},
    {L'q', nullptr, L"(\"[^\"]*\"|'[^']*')"},
    {L'w', L"[a-zA-Z]", L"[a-zA-Z]+"},
    {L'z', L"[0-9]", L"[0-9]+"},
};

const Abbreviation* FindAbbreviation(wchar_t letter) {
    for (const Abbreviation& abbreviation : kAbbreviations) {
        if (abbreviation.letter == letter) return &abbreviation;
    }
    return nullptr;
}

// A recursive-descent parser: alternatives, sequence, repeated item, item.
class Compiler {
  public:
    explicit Compiler(std::wstring_view text) : text_(text) {}

    Pattern::Program Compile() {
        Pattern::Program program;
        program.anchoredAtStart = Take(L'^');
        program.anchoredAtEnd = EndsWithAnchor();
        if (program.anchoredAtEnd) text_.remove_suffix(1);
        program.body = Group(-1);
        if (!AtEnd()) throw SyntaxError();
        program.captures = captures_;
        if (highestReference_ >= captures_) throw SyntaxError();
        return program;
    }

  private:
    static constexpr int kMaxDepth = 100;

    bool AtEnd() const { return at_ >= text_.size(); }
    wchar_t Next() {
        if (AtEnd()) throw SyntaxError();
        return text_[at_++];
    }
    bool Take(wchar_t character) {
        if (AtEnd() || text_[at_] != character) return false;
        ++at_;
        return true;
    }
    bool IsAt(std::wstring_view characters) const {
        return !AtEnd() && characters.find(text_[at_]) != std::wstring_view::npos;
    }

    // Whether the last character is a `$` that no backslash escapes.
    bool EndsWithAnchor() const {
        if (text_.size() <= at_ || text_.back() != L'$') return false;
        size_t slashes = 0;
        while (slashes + 1 < text_.size() - at_ && text_[text_.size() - 2 - slashes] == L'\\')
            ++slashes;
        return slashes % 2 == 0;
    }

    PatternNode Group(int capture) {
        if (++depth_ > kMaxDepth) throw SyntaxError();
        PatternNode node;
        node.kind = Kind::kGroup;
        node.capture = capture;
        do {
            node.alternatives.push_back(Sequence());
        } while (Take(L'|'));
        --depth_;
        return node;
    }

    PatternSequence Sequence() {
        PatternSequence sequence;
        while (!AtEnd() && !IsAt(L"|)}"))
            sequence.push_back(Repeated());
        return sequence;
    }

    PatternNode Repeated() {
        PatternNode item = Item();
        if (!IsAt(L"*+?")) return item;
        PatternNode repeat;
        repeat.kind = Kind::kRepeat;
        repeat.minCount = 1;
        repeat.atMostOnce = true;
        // Successive operators combine to the widest bounds: `x?+` is `x*`.
        while (IsAt(L"*+?")) {
            const wchar_t sign = Next();
            if (sign != L'+') repeat.minCount = 0;
            if (sign != L'?') repeat.atMostOnce = false;
        }
        repeat.alternatives.push_back({std::move(item)});
        return repeat;
    }

    PatternNode Item() {
        const wchar_t character = Next();
        switch (character) {
            case L'.':
                return PatternNode{};
            case L'[':
                return Set();
            case L'(':
                return Unwrapped(Closed(Group(-1), L')'));
            case L'{': {
                const int capture = captures_++;
                return Closed(Group(capture), L'}');
            }
            case L'!':
                return Not();
            case L'\\':
                return Escaped();
            case L'*':
            case L'+':
            case L'?':
                throw SyntaxError();
            default:
                return Character(character);
        }
    }

    PatternNode Closed(PatternNode node, wchar_t end) {
        if (!Take(end)) throw SyntaxError();
        return node;
    }

    // A group of a single item is replaced by the item, which saves the matcher a level of recursion.
    static PatternNode Unwrapped(PatternNode group) {
        const bool single = group.alternatives.size() == 1 && group.alternatives[0].size() == 1;
        if (!single) return group;
        PatternNode item = std::move(group.alternatives[0][0]);
        return item;
    }

    static PatternNode Character(wchar_t character) {
        PatternNode node;
        node.kind = Kind::kCharacter;
        node.character = character;
        return node;
    }

    PatternNode Not() {
        if (++depth_ > kMaxDepth) throw SyntaxError();
        PatternNode node;
        node.kind = Kind::kNot;
        node.alternatives.push_back({Item()});
        --depth_;
        return node;
    }

    PatternNode Escaped() {
        const wchar_t character = Next();
        if (character >= L'0' && character <= L'9') return BackReference(character - L'0');
        const Abbreviation* const found = FindAbbreviation(character);
        if (!found) return Character(character);
        return Expanded(found->expression ? found->expression : found->set);
    }

    static PatternNode Expanded(const wchar_t* expression) {
        return Unwrapped(Compiler(expression).Group(-1));
    }

    PatternNode BackReference(int capture) {
        PatternNode node;
        node.kind = Kind::kBackReference;
        node.capture = capture;
        if (capture > highestReference_) highestReference_ = capture;
        return node;
    }

    PatternNode Set() {
        PatternNode node;
        node.kind = Kind::kSet;
        node.set.isComplement = Take(L'^');
        do {
            AddToSet(node.set);
        } while (!Take(L']'));
        return node;
    }

    void AddToSet(PatternSet& set) {
        if (AddAbbreviation(set)) return;
        const wchar_t from = SetCharacter();
        // A minus before the closing bracket is an ordinary character.
        const bool range = IsAt(L"-") && at_ + 1 < text_.size() && text_[at_ + 1] != L']';
        if (range) Next();
        const wchar_t to = range ? SetCharacter() : from;
        if (to < from) throw SyntaxError();
        set.ranges.emplace_back(from, to);
    }

    bool AddAbbreviation(PatternSet& set) {
        const bool escaped = IsAt(L"\\") && at_ + 1 < text_.size();
        const Abbreviation* const found = escaped ? FindAbbreviation(text_[at_ + 1]) : nullptr;
        if (!found || !found->set) return false;
        at_ += 2;
        const PatternNode node = Expanded(found->set);
        set.ranges.insert(set.ranges.end(), node.set.ranges.begin(), node.set.ranges.end());
        return true;
    }

    // One character, possibly escaped, but not an abbreviation.
    wchar_t SetCharacter() {
        const wchar_t character = Next();
        if (character != L'\\') return character;
        const wchar_t escaped = Next();
        if (FindAbbreviation(escaped)) throw SyntaxError();
        return escaped;
    }

    std::wstring_view text_;
    size_t at_ = 0;
    int depth_ = 0;
    int captures_ = 0;
    int highestReference_ = -1;
};

}  // namespace

std::optional<Pattern> Pattern::Compile(std::wstring_view text) {
    try {
        return Pattern(std::make_shared<const Program>(Compiler(text).Compile()));
    } catch (const SyntaxError&) {
        return std::nullopt;
    }
}

}  // namespace tarvik
