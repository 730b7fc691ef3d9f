#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <nlohmann/json.hpp>

// The engine's byte stream, read without the platform's headers.
namespace tarvik {

// Splits a stream into texts, each of which ends with a NUL.
class MessageSplitter {
  public:
    // Passes on the texts that are complete. The handler returns whether a text was a message. Returns false
    // when more bytes have arrived than any message has: then the sender is not the engine.
    bool Append(std::string_view bytes, const std::function<bool(std::string_view text)>& handle);

  private:
    // The first message is a short one; the longest contains the longest string of script.
    static constexpr size_t kMaxFirst = size_t{1} << 20;
    static constexpr size_t kMaxLater = size_t{1} << 31;

    std::string pending_;
    size_t limit_ = kMaxFirst;
    size_t sinceMessage_ = 0;
};

// A frame of a screencast, which is not parsed as JSON because of its size.
struct ScreencastFrame {
    std::string session;
    std::int64_t number;      // to acknowledge
    std::string_view base64;  // in the parsed text
};

// Long and frequent events without a handler.
struct IgnoredMessage {};

using EngineMessage = std::variant<IgnoredMessage, ScreencastFrame, nlohmann::json>;

// Empty if the text is not a message.
std::optional<EngineMessage> ParseMessage(std::string_view text);

}  // namespace tarvik
