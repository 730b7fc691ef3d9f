#pragma once

#include <windows.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "page_control/encoding/picture_codec.h"

namespace tarvik {

// Decodes the frames of a screencast on its own thread. A frame that arrives during a decoding waits until a
// later one replaces it. The engine repeats frames, which need no decoding.
class FrameDecoder {
  public:
    struct Frame {
        Pixels pixels;
        size_t bytes = 0;         // of the encoded image
        bool isRepeated = false;  // equal to the one before, whose pixels the handler has got
    };
    // Called on the decoder's thread; the handler may move the pixels out of the frame.
    using Handler = std::function<void(Frame& frame)>;

    explicit FrameDecoder(Handler handler);
    ~FrameDecoder();
    FrameDecoder(const FrameDecoder&) = delete;
    FrameDecoder& operator=(const FrameDecoder&) = delete;

    // Any thread; the text is copied.
    void Submit(std::string_view base64);

  private:
    void Work();

    Handler handler_;
    std::mutex lock_;
    std::condition_variable wake_;
    std::string next_;
    bool hasNext_ = false;
    bool stopping_ = false;
    std::thread thread_;
};

}  // namespace tarvik
