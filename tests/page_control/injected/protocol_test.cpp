#include "page_control/injected/protocol.h"

#include <regex>
#include <set>
#include <string>

#include "page_control/injected/injected_script.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

using protocol::Kind;
using Names = std::set<std::string>;

Names Listed(Kind kind) {
    Names names;
    for (const protocol::Message& message : protocol::kMessages) {
        if (message.kind == kind) names.emplace(message.name);
    }
    return names;
}

// The first groups of all matches.
Names Matches(std::string_view script, const char* pattern) {
    const std::string text(script);
    const std::regex expression(pattern);
    Names names;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
        names.insert((*match)[1]);
    return names;
}

// The keys of an object literal, each of which begins a line.
Names KeysOf(std::string_view script, std::string_view start, std::string_view end, const Names& others) {
    const size_t begin = script.find(start);
    if (begin == std::string_view::npos) return {};
    Names names = Matches(script.substr(begin, script.find(end, begin) - begin), "\n(\\w+)(?=[:,])");
    for (const std::string& other : others)
        names.erase(other);
    return names;
}

// Fails for a name that is not in the table, and for a row that no script uses.
TEST(Protocol, ListsTheNamesInTheScripts) {
    const std::string bridge = kBridgeScript.Text(), view = kViewScript.Text();
    EXPECT_EQ(Matches(bridge, R"(exchange\('(\w+)')"), Listed(Kind::kCall));
    EXPECT_EQ(Matches(bridge, R"re(post\('\["(\w+)")re"), Listed(Kind::kNotification));
    EXPECT_EQ(Matches(bridge, R"(null, adopt, (\w+) \})"), Listed(Kind::kBridgeFunction));
    EXPECT_EQ(KeysOf(bridge, "const replies = {\n", "\n};", {"__proto__"}), Listed(Kind::kReply));
    EXPECT_EQ(KeysOf(bridge, "const commands = {\n", "\n};", {"__proto__", "values"}),
              Listed(Kind::kCommand));
    EXPECT_EQ(Matches(bridge, R"(return '(\w+)')"), Listed(Kind::kResult));
    EXPECT_EQ(KeysOf(bridge, "return {\n__proto__: null,\neval:", "\n};", {"__proto__"}),
              Listed(Kind::kTask));
    EXPECT_EQ(Matches(bridge, R"re([^(]'\["(\w\w+)")re"), Listed(Kind::kOutcome));
    EXPECT_EQ(Matches(bridge, R"re('\["(.)")re"), Listed(Kind::kPageValue));
    EXPECT_EQ(Matches(bridge, "case '(.)'"), Listed(Kind::kHostValue));
    EXPECT_EQ(Matches(view, R"(post\('(\w+):)"), Listed(Kind::kViewEvent));
    EXPECT_EQ(KeysOf(view, "Object.assign(core, {", "\n});",
                     {"received", "lastKey", "requests", "copies", "settlers", "fields", "choice", "listed",
                      "inDialog", "unlock", "setTimer", "watchList"}),
              Listed(Kind::kViewFunction));
}

}  // namespace
}  // namespace tarvik
