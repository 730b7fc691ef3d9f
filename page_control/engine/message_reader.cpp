#include "page_control/engine/message_reader.h"

#include "tarvik/status.h"

namespace tarvik {

MessageReader::MessageReader(Transport& transport, MessageQueue& queue, std::function<int()> nextId)
    : transport_(transport),
      queue_(queue),
      nextId_(std::move(nextId)),
      ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_([this] { Run(); }) {}

MessageReader::~MessageReader() {
    thread_.join();
}

void MessageReader::ListenToFrames(std::string_view session, DevTools::FrameHandler handler) {
    const std::lock_guard lock(framesLock_);
    if (handler) {
        frameHandlers_[std::string(session)] = std::move(handler);
    } else if (const auto found = frameHandlers_.find(session); found != frameHandlers_.end()) {
        frameHandlers_.erase(found);
    }
}

void MessageReader::Run() {
    (void)Guard([&] {
        MessageSplitter splitter;
        std::string buffer(kReadSize, '\0');
        const auto handle = [this](std::string_view text) {
            bool isMessage = false;
            (void)Guard([&] { isMessage = Handle(text); });
            return isMessage;
        };
        while (const DWORD read = transport_.Read(buffer.data(), kReadSize)) {
            if (!splitter.Append({buffer.data(), read}, handle)) break;
        }
    });
    (void)Guard([&] { queue_.Push(std::nullopt); });
    SetEvent(ended_.Get());
}

bool MessageReader::Handle(std::string_view text) {
    transport_.Trace().WriteReceived(text);
    auto message = ParseMessage(text);
    if (!message) return false;
    if (const auto* const frame = std::get_if<ScreencastFrame>(&*message)) HandleFrame(*frame);
    if (auto* const json = std::get_if<Json>(&*message)) queue_.Push(std::move(*json));
    return true;
}

void MessageReader::HandleFrame(const ScreencastFrame& frame) {
    bool continues = true;
    {
        const std::lock_guard lock(framesLock_);
        if (const auto found = frameHandlers_.find(frame.session); found != frameHandlers_.end())
            continues = found->second(frame.base64);
    }
    const Json answer = {{"id", nextId_()},
                         {"method", continues ? "Page.screencastFrameAck" : "Page.stopScreencast"},
                         {"params", continues ? Json{{"sessionId", frame.number}} : Json::object()},
                         {"sessionId", frame.session}};
    transport_.Write(answer.dump());
}

}  // namespace tarvik
