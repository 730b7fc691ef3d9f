#include "page_control/engine/message_parser.h"

namespace tarvik {

namespace {

using nlohmann::json;

constexpr std::string_view kFramePrefix = R"({"method":"Page.screencastFrame","params":{"data":")";
constexpr std::string_view kPausedPrefix = R"({"method":"Debugger.paused")";
constexpr std::string_view kParsedPrefix = R"({"method":"Debugger.scriptParsed")";

// A frame has several hundred kilobytes of base64. Only the rest is parsed.
std::optional<EngineMessage> ParseFrame(std::string_view text) {
    const std::string_view rest = text.substr(kFramePrefix.size());
    const size_t end = rest.find('"');
    if (end == std::string_view::npos || end + 2 > rest.size()) return IgnoredMessage();
    const std::string tailText = R"({"params":{)" + std::string(rest.substr(end + 2));
    const json tail = json::parse(std::string_view(tailText), nullptr, false);
    if (tail.is_discarded()) return IgnoredMessage();
    return ScreencastFrame{tail.value("sessionId", std::string()),
                           tail.at("params").at("sessionId").get_ref<const json::number_integer_t&>(),
                           rest.substr(0, end)};
}

// A pause reports all frames of the stack, of which nothing is used.
std::optional<EngineMessage> ParsePaused(std::string_view text) {
    constexpr std::string_view kSession = R"("sessionId":")";
    const size_t session = text.rfind(kSession);
    if (session == std::string_view::npos) return std::nullopt;
    const std::string_view id = text.substr(session + kSession.size());
    return json{{"method", "Debugger.paused"}, {"sessionId", id.substr(0, id.find('"'))}};
}

}  // namespace

bool MessageSplitter::Append(std::string_view bytes,
                             const std::function<bool(std::string_view text)>& handle) {
    sinceMessage_ += bytes.size();
    for (size_t end; (end = bytes.find('\0')) != std::string_view::npos; bytes.remove_prefix(end + 1)) {
        pending_.append(bytes.substr(0, end));
        if (handle(pending_)) {
            limit_ = kMaxLater;
            sinceMessage_ = 0;
        }
        pending_.clear();
    }
    pending_.append(bytes);
    return sinceMessage_ <= limit_;
}

std::optional<EngineMessage> ParseMessage(std::string_view text) try {
    if (text.starts_with(kFramePrefix)) return ParseFrame(text);
    if (text.starts_with(kPausedPrefix)) return ParsePaused(text);
    if (text.starts_with(kParsedPrefix)) return IgnoredMessage();  // one for each evaluation
    json parsed = json::parse(text, nullptr, false);
    if (!parsed.is_object()) return std::nullopt;
    return parsed;
} catch (const json::exception&) {
    return std::nullopt;  // members of the wrong types
}

}  // namespace tarvik
