#pragma once

#include <windows.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "control/view/picture.h"

namespace tarvik {

// Turns the frames of a screencast into pixels, on a thread of its own. A frame that comes while another one
// is decoded waits; a later one takes its place.
class FrameDecoder {
  public:
    struct Frame {
        Picture::Pixels pixels;
        size_t bytes = 0;  // of the encoded picture
    };
    // Called on the decoder's thread, with a frame that the callee may take from.
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
    std::string waiting_;
    bool has_ = false;
    bool ending_ = false;
    std::thread thread_;
};

}  // namespace tarvik
