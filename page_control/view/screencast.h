#pragma once

#include <windows.h>

#include <atomic>
#include <mutex>

#include "page_control/engine/devtools.h"
#include "page_control/view/dirty_tiles.h"
#include "page_control/view/frame_buffer.h"
#include "page_control/view/frame_decoder.h"

namespace tarvik {

// Keeps the frame buffer of a target up to date and repaints a window where it changes.
//
// Each frame costs the engine a capture and an encoding of the whole page, acknowledged or not. So the
// screencast runs only as far as there is something to see:
// - It stops while the window is hidden, and after some frames for a window that has not been shown yet. It
//   resumes when the window is painted.
// - If only a small part of the page has changed for a while, and there was no input, as with a spinner or a
//   progress bar, it is paced: it stops after each frame and resumes for the next one some time later. Input,
//   a larger change, or frames without a change end that.
//
// The engine skips frames in quick succession and during a resize, sometimes even the last one. So the
// screencast restarts once the page is calm again, which makes the engine send its current frame. For the
// same reason the last change is never lost when the pacing ends.
class Screencast {
  public:
    Screencast(HWND window, PageTarget& target, FrameBuffer& frameBuffer);
    ~Screencast();
    Screencast(const Screencast&) = delete;
    Screencast& operator=(const Screencast&) = delete;

    void OnPaint();
    void OnWindowChange();
    void OnInput();
    // The page is being resized.
    void ExpectResize();

    // Handles kFrameMessage, which the decoder posts to the window. False if nothing has changed.
    bool OnFrame();
    void OnTimer();  // kFrameTimer

  private:
    enum class Format { kPng, kJpeg };

    // A series of frames.
    struct Series {
        int frames = 0;
        long long bytes = 0;
        DirtyTiles dirty;
        void Add(const Series& other);
    };

    bool OnArrived(std::string_view base64);     // on the reader's thread
    void OnDecoded(FrameDecoder::Frame& frame);  // on the decoder's thread
    void Start();
    void StopCapture();
    void Stop();
    void Restart(Format format);
    void SetDelay(UINT milliseconds);
    void Repaint(const DirtyTiles& dirty);
    bool FillsWindow();
    bool IsSettled();
    void OnPacedFrame(bool isChanged);
    void EndPacing();
    void StartPeriod();
    void OnPeriod();

    HWND window_;
    PageTarget& target_;
    FrameBuffer& frameBuffer_;
    bool wasShown_ = false;
    bool running_ = false;
    bool capturing_ = false;  // while running: always, unless it is paced
    std::atomic<bool> paced_{false};
    std::atomic<bool> awaiting_{false};  // paced: the frame after a start; others are not decoded
    ULONGLONG started_ = 0;
    int unchanged_ = 0;  // paced frames since the last change
    int unseen_ = 0;     // frames since the window was seen
    Format format_ = Format::kPng;
    UINT delay_ = 0;                    // until the restart; 0 if the frame buffer is up to date
    ULONGLONG arrived_ = 0;             // time of the last frame, on the reader's thread
    std::atomic<bool> hurried_{false};  // two arrived in quick succession, or one may be missing
    std::atomic<bool> posted_{false};

    std::mutex lock_;
    Series arrivals_;  // since the last message; locked
    Series period_;
    ULONGLONG since_ = 0;  // start of the period
    ULONGLONG input_ = 0;  // time of the last one
    FrameDecoder decoder_;
};

}  // namespace tarvik
