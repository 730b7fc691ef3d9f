#include <algorithm>
#include <vector>

#include "fuzz/input.h"
#include "page_control/engine/events.h"
#include "page_control/engine/message_parser.h"

namespace tarvik {

namespace {

template <class Event>
void ParseEvent(std::string_view method, const nlohmann::json& params) {
    if (method == Event::kMethod) (void)Event::Parse(params);
}

template <class... Events>
void ParseAnyOf(const nlohmann::json& message) try {
    (ParseEvent<Events>(message.at("method").get_ref<const std::string&>(), message.at("params")), ...);
} catch (const nlohmann::json::exception&) {
}

// A message as far as the host uses it.
std::string Describe(std::string_view text) {
    const auto message = ParseMessage(text);
    if (!message) return "none";
    if (const auto* const frame = std::get_if<ScreencastFrame>(&*message)) {
        Require(text.find(frame->base64) != text.npos);
        return "frame " + frame->session + " " + std::to_string(frame->number);
    }
    if (const auto* const json = std::get_if<nlohmann::json>(&*message)) {
        Require(json->is_object());
        using namespace event;
        ParseAnyOf<TargetCreated, TargetDestroyed, RequestPaused, FrameNavigated, NavigatedWithinDocument,
                   FrameStoppedLoading, FrameDetached, DialogOpening, WindowOpen, ExceptionThrown,
                   BindingCalled, ContextDestroyed>(*json);
        return "message " + std::to_string(json->size());
    }
    return "ignored";
}

std::vector<std::string> Split(std::string_view stream, size_t chunk) {
    std::vector<std::string> messages;
    MessageSplitter splitter;
    const auto handle = [&](std::string_view text) {
        messages.push_back(Describe(text));
        return messages.back() != "none";
    };
    for (; !stream.empty(); stream.remove_prefix(std::min(chunk, stream.size())))
        Require(splitter.Append(stream.substr(0, chunk), handle));
    return messages;
}

}  // namespace

}  // namespace tarvik

// A stream yields the same messages in whatever chunks it arrives.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    if (size == 0) return 0;
    const std::string_view stream(reinterpret_cast<const char*>(data) + 1, size - 1);
    Require(Split(stream, stream.size()) == Split(stream, 1 + data[0]));
    return 0;
}
