#include "page_control/view/screencast.h"

#include <algorithm>
#include <cmath>

#include "page_control/engine/launch.h"
#include "page_control/view/page_scale.h"
#include "page_control/view/window_numbers.h"
#include "page_control/view/window_state.h"

namespace tarvik {

namespace {

// PNG is lossless and cheap for most pages, but expensive for photographs and the like. Measured.
constexpr double kExpensiveBytes = 0.5;  // a pixel
constexpr double kAnimatedFrames = 5;    // a second
constexpr int kJpegQuality = 80;

// Milliseconds
constexpr ULONGLONG kMeasurePeriod = 1000;
constexpr ULONGLONG kQuickSuccession = 100;
constexpr UINT kCalmPeriod = 150;
constexpr UINT kMaxDelay = 5000;

// Frames for a window that is not shown yet, so that it shows the page at once.
constexpr int kUnseenFrames = 60;

}  // namespace

Screencast::Screencast(HWND window, PageTarget& target, FrameBuffer& frameBuffer)
    : window_(window),
      target_(target),
      frameBuffer_(frameBuffer),
      decoder_([this](FrameDecoder::Frame& frame) { OnDecoded(frame); }) {
    target_.Engine().ListenToFrames(target_.Session(),
                                    [this](std::string_view base64) { OnArrived(base64); });
    Start();
}

Screencast::~Screencast() {
    target_.Engine().ListenToFrames(target_.Session(), nullptr);
    Stop();
}

void Screencast::OnArrived(std::string_view base64) {
    const ULONGLONG now = GetTickCount64();
    if (now - arrived_ < kQuickSuccession) hurried_ = true;
    arrived_ = now;
    decoder_.Submit(base64);
}

void Screencast::OnDecoded(FrameDecoder::Frame& frame) {
    frameBuffer_.Replace(frame.pixels);
    ++frames_;
    bytes_ += static_cast<long long>(frame.bytes);
    if (!posted_.exchange(true) && !PostMessageW(window_, kFrameMessage, 0, 0)) posted_ = false;
}

void Screencast::Start() {
    Json parameters = {{"format", format_ == Format::kPng ? "png" : "jpeg"}, {"everyNthFrame", 1}};
    if (format_ == Format::kJpeg) parameters["quality"] = kJpegQuality;
    target_.Post("Page.startScreencast", std::move(parameters));
    running_ = true;
    SetDelay(std::max(delay_, kCalmPeriod));
}

void Screencast::Stop() {
    if (running_) target_.Post("Page.stopScreencast");
    running_ = false;
    SetDelay(0);
}

void Screencast::Restart(Format format) {
    const UINT delay = delay_;
    format_ = format;
    Stop();
    delay_ = delay;
    Start();
}

void Screencast::SetDelay(UINT milliseconds) {
    delay_ = milliseconds;
    if (delay_) {
        SetTimer(window_, kFrameTimer, delay_, nullptr);
    } else {
        KillTimer(window_, kFrameTimer);
    }
}

void Screencast::EnsureRunning() {
    unseen_ = 0;
    if (!running_) Start();
}

void Screencast::ExpectResize() {
    if (running_) SetDelay(kCalmPeriod);
}

void Screencast::OnFrame() {
    posted_ = false;
    if (!running_) return;
    SetDelay(IsSettled() ? 0 : kCalmPeriod);
    if (!IsShown(window_)) {
        if (++unseen_ > kUnseenFrames) Stop();
        return;
    }
    InvalidateRect(window_, nullptr, FALSE);
    // WM_PAINT comes only to an idle queue, which a quick succession of frames never leaves.
    UpdateWindow(window_);
    ChooseFormat();
}

// Whether the frame buffer shows the page's current state.
bool Screencast::IsSettled() {
    RECT area = {};
    GetClientRect(window_, &area);
    const SIZE size = frameBuffer_.Size(), page = PageSizeOf(area, PageScaleOf(window_));
    // The engine may round a size up or down.
    const auto fills = [](LONG pixels, LONG units) { return std::abs(pixels - units * EngineScale()) < 1; };
    const bool fits = IsRectEmpty(&area) || (fills(size.cx, page.cx) && fills(size.cy, page.cy));
    return !hurried_.exchange(false) && fits && format_ == Format::kPng;
}

// A page that sends no frame now may have stopped painting, so the delay grows.
void Screencast::OnTimer() {
    delay_ = std::min(delay_ * 2, kMaxDelay);
    Restart(Format::kPng);
}

void Screencast::ChooseFormat() {
    const ULONGLONG now = GetTickCount64();
    if (now - since_ < kMeasurePeriod) return;
    const double seconds = static_cast<double>(now - since_) / 1000;
    const bool first = since_ == 0;
    const int frames = frames_.exchange(0);
    const double bytes = static_cast<double>(bytes_.exchange(0));
    since_ = now;
    const SIZE size = frameBuffer_.Size();
    const double expensive = kExpensiveBytes * size.cx * size.cy;
    const bool animated = !first && frames / seconds >= kAnimatedFrames;
    if (format_ == Format::kPng && animated && bytes / frames > expensive) Restart(Format::kJpeg);
}

}  // namespace tarvik
