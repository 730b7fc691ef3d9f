#pragma once

#include <windows.h>

#include <atomic>

#include "control/engine/devtools.h"
#include "control/view/frame_decoder.h"
#include "control/view/picture.h"

namespace tarvik {

// Keeps a picture of a target up to date, and invalidates a window when it has changed. Frames cost time even
// when nobody sees them: it stops when a frame arrives and the window cannot be seen, and goes on when the
// window asks.
class Screencast {
  public:
    Screencast(HWND window, PageTarget& target, Picture& picture);
    ~Screencast();
    Screencast(const Screencast&) = delete;
    Screencast& operator=(const Screencast&) = delete;

    void SetSize(SIZE size);

    // The window is being painted: frames are wanted.
    void Want();

    // A frame has arrived, on the window's thread. The view posts this message to its window on the way.
    void OnFrame();
    static constexpr UINT kFrameMessage = WM_APP + 1;

  private:
    enum class Format { kPng, kJpeg };

    void Start();
    void Stop();
    void SendSize();
    void ChooseFormat();

    HWND window_;
    PageTarget& target_;
    Picture& picture_;
    bool running_ = false;
    Format format_ = Format::kPng;
    SIZE size_ = {};
    SIZE sent_ = {};
    bool sending_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);

    // What the frames of the last moment cost, from the decoder's thread.
    std::atomic<int> frames_{0};
    std::atomic<long long> bytes_{0};
    std::atomic<long long> microseconds_{0};
    std::atomic<bool> posted_{false};
    ULONGLONG since_ = 0;
    FrameDecoder decoder_;
};

}  // namespace tarvik
