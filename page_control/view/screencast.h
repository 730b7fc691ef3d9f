#pragma once

#include <windows.h>

#include <atomic>

#include "page_control/engine/devtools.h"
#include "page_control/view/frame_buffer.h"
#include "page_control/view/frame_decoder.h"

namespace tarvik {

// Keeps the frame buffer of a target up to date and repaints a window when it changes. Frames cost time even
// if the window is invisible: then the screencast stops after some frames, and resumes when the window is
// painted.
//
// The engine skips frames in quick succession and during a resize, sometimes even the last one. So the
// screencast restarts once the page is calm again, which makes the engine send its current frame.
class Screencast {
  public:
    Screencast(HWND window, PageTarget& target, FrameBuffer& frameBuffer);
    ~Screencast();
    Screencast(const Screencast&) = delete;
    Screencast& operator=(const Screencast&) = delete;

    // Starts it if it has stopped: the window is being painted.
    void EnsureRunning();
    // The page is being resized.
    void ExpectResize();

    // Handles kFrameMessage, which the decoder posts to the window.
    void OnFrame();
    void OnTimer();  // kFrameTimer

  private:
    enum class Format { kPng, kJpeg };

    void OnArrived(std::string_view base64);     // on the reader's thread
    void OnDecoded(FrameDecoder::Frame& frame);  // on the decoder's thread
    void Start();
    void Stop();
    void Restart(Format format);
    void SetDelay(UINT milliseconds);
    bool IsSettled();
    void ChooseFormat();

    HWND window_;
    PageTarget& target_;
    FrameBuffer& frameBuffer_;
    bool running_ = false;
    int unseen_ = 0;  // frames since the window was seen
    Format format_ = Format::kPng;
    UINT delay_ = 0;                    // until the restart; 0 if the frame buffer is up to date
    ULONGLONG arrived_ = 0;             // time of the last frame, on the reader's thread
    std::atomic<bool> hurried_{false};  // two arrived in quick succession
    std::atomic<bool> posted_{false};

    // The frames of the current period, and their size.
    std::atomic<int> frames_{0};
    std::atomic<long long> bytes_{0};
    ULONGLONG since_ = 0;
    FrameDecoder decoder_;
};

}  // namespace tarvik
