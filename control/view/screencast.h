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
//
// The engine leaves frames out when they come quickly or while a page changes its size, also the last one. So
// once a page is calm after such a time, it is asked for its picture again.
class Screencast {
  public:
    Screencast(HWND window, PageTarget& target, Picture& picture);
    ~Screencast();
    Screencast(const Screencast&) = delete;
    Screencast& operator=(const Screencast&) = delete;

    // The window is being painted: frames are wanted.
    void Want();
    // The page is getting another size.
    void ExpectChange();

    // A frame has arrived, on the window's thread. The view posts this message to its window on the way.
    void OnFrame();
    static constexpr UINT kFrameMessage = WM_APP + 1;

    static constexpr UINT_PTR kTimer = 2;  // of the window
    void OnTimer();

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
    Picture& picture_;
    bool running_ = false;
    int unseen_ = 0;  // frames since the window was seen
    Format format_ = Format::kPng;
    UINT delay_ = 0;                    // until the picture is asked for again; 0: it is the page's
    ULONGLONG arrived_ = 0;             // when the last frame did, on the reader's thread
    std::atomic<bool> hurried_{false};  // two came shortly one after the other
    std::atomic<bool> posted_{false};

    // The frames of the last moment, and what they took.
    std::atomic<int> frames_{0};
    std::atomic<long long> bytes_{0};
    ULONGLONG since_ = 0;
    FrameDecoder decoder_;
};

}  // namespace tarvik
