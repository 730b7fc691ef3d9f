#pragma once

#include <windows.h>

#include <atomic>

#include "control/engine/devtools.h"
#include "control/view/frame_decoder.h"
#include "control/view/picture.h"

namespace tarvik {

// Keeps a picture of a target up to date, and paints a window when it has changed. Frames cost time even when
// nobody sees them: it stops when the window cannot be seen and they keep coming, and goes on when the window
// is painted.
class Screencast {
  public:
    Screencast(HWND window, PageTarget& target, Picture& picture);
    ~Screencast();
    Screencast(const Screencast&) = delete;
    Screencast& operator=(const Screencast&) = delete;

    // The window is being painted: frames are wanted.
    void Want();

    // A frame has arrived, on the window's thread. The view posts this message to its window on the way.
    void OnFrame();
    static constexpr UINT kFrameMessage = WM_APP + 1;

    static constexpr UINT_PTR kTimer = 2;  // of the window
    void OnTimer();

  private:
    enum class Format { kPng, kJpeg };

    void OnDecoded(FrameDecoder::Frame& frame);  // on the decoder's thread
    void Start();
    void Stop();
    void Use(Format format);
    void ChooseFormat();

    HWND window_;
    PageTarget& target_;
    Picture& picture_;
    bool running_ = false;
    int unseen_ = 0;  // frames since the window was seen
    Format format_ = Format::kPng;

    // What the frames of the last moment cost, from the decoder's thread.
    std::atomic<int> frames_{0};
    std::atomic<long long> bytes_{0};
    std::atomic<long long> microseconds_{0};
    std::atomic<bool> posted_{false};
    ULONGLONG since_ = 0;
    FrameDecoder decoder_;
};

}  // namespace tarvik
