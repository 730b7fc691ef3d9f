#include "page_control/view/screencast.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

// Pacing: the share of the page that changes during a period, and the unchanged frames that end it.
constexpr double kSmallShare = 1.0 / 32;
constexpr int kUnchangedFrames = 4;

// Milliseconds
constexpr ULONGLONG kPeriod = 1000;
constexpr ULONGLONG kQuickSuccession = 100;
constexpr UINT kPacedInterval = 110;
constexpr UINT kCalmPeriod = 150;
constexpr UINT kMaxDelay = 5000;

// Frames for a window that is not shown yet, so that it shows the page at once.
constexpr int kUnseenFrames = 60;

}  // namespace

void Screencast::Series::Add(const Series& other) {
    frames += other.frames;
    bytes += other.bytes;
    dirty.Add(other.dirty);
}

Screencast::Screencast(HWND window, PageTarget& target, FrameBuffer& frameBuffer)
    : window_(window),
      target_(target),
      frameBuffer_(frameBuffer),
      decoder_([this](FrameDecoder::Frame& frame) { OnDecoded(frame); }) {
    target_.Engine().ListenToFrames(target_.Session(),
                                    [this](std::string_view base64) { return OnArrived(base64); });
    Start();
}

Screencast::~Screencast() {
    target_.Engine().ListenToFrames(target_.Session(), nullptr);
    Stop();
}

bool Screencast::OnArrived(std::string_view base64) {
    const ULONGLONG now = GetTickCount64();
    if (now - arrived_ < kQuickSuccession) hurried_ = true;
    arrived_ = now;
    if (paced_ && !awaiting_.exchange(false)) return false;
    decoder_.Submit(base64);
    return !paced_;
}

void Screencast::OnDecoded(FrameDecoder::Frame& frame) {
    Series series = {1, static_cast<long long>(frame.bytes), {}};
    if (!frame.isRepeated) {
        frameBuffer_.Replace(frame.pixels);
        series.dirty = frameBuffer_.DifferenceFrom(frame.pixels);
    }
    {
        const std::lock_guard lock(lock_);
        arrivals_.Add(series);
    }
    if (!posted_.exchange(true) && !PostMessageW(window_, kFrameMessage, 0, 0)) posted_ = false;
}

// ---- On and off

void Screencast::Start() {
    Json parameters = {{"format", format_ == Format::kPng ? "png" : "jpeg"}, {"everyNthFrame", 1}};
    if (format_ == Format::kJpeg) parameters["quality"] = kJpegQuality;
    target_.Post("Page.startScreencast", std::move(parameters));
    running_ = true;
    capturing_ = true;
    awaiting_ = true;
    started_ = GetTickCount64();
    SetDelay(std::max(delay_, kCalmPeriod));
}

void Screencast::StopCapture() {
    if (std::exchange(capturing_, false)) target_.Post("Page.stopScreencast");
}

void Screencast::Stop() {
    StopCapture();
    running_ = false;
    // The reader's thread may be about to stop it for a paced frame, after the next start.
    if (paced_.exchange(false)) hurried_ = true;
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

// A window that is not shown may be painted, too.
void Screencast::OnPaint() {
    if (!IsShown(window_)) return;
    wasShown_ = true;
    unseen_ = 0;
    if (!running_) Start();
}

void Screencast::OnWindowChange() {
    if (wasShown_ && running_ && !IsShown(window_)) Stop();
}

void Screencast::OnInput() {
    input_ = GetTickCount64();
    if (paced_) EndPacing();
}

void Screencast::ExpectResize() {
    if (!running_) return;
    if (paced_) EndPacing();
    SetDelay(kCalmPeriod);
}

// ---- Frames

bool Screencast::OnFrame() {
    posted_ = false;
    Series arrivals;
    {
        const std::lock_guard lock(lock_);
        std::swap(arrivals, arrivals_);
    }
    const bool isChanged = !arrivals.dirty.IsEmpty();
    if (!running_) return isChanged;
    const bool isShown = IsShown(window_);
    if (!paced_) SetDelay(IsSettled() ? 0 : kCalmPeriod);
    if (!isShown) {
        if (++unseen_ > kUnseenFrames) Stop();
        return isChanged;
    }
    Repaint(arrivals.dirty);
    period_.Add(arrivals);
    if (paced_)
        OnPacedFrame(isChanged);
    else if (GetTickCount64() - since_ >= kPeriod)
        OnPeriod();
    return isChanged;
}

void Screencast::Repaint(const DirtyTiles& dirty) {
    if (dirty.IsEmpty()) return;
    const double scale = PageScaleOf(window_) / EngineScale();
    RECT bounds = dirty.Bounds();
    if (scale == 1 && FillsWindow())
        InvalidateRect(window_, &bounds, FALSE);
    else
        InvalidateRect(window_, nullptr, FALSE);
    // WM_PAINT comes only to an idle queue, which a quick succession of frames never leaves.
    UpdateWindow(window_);
}

// Whether the frame has the window's size.
bool Screencast::FillsWindow() {
    RECT area = {};
    GetClientRect(window_, &area);
    const SIZE size = frameBuffer_.Size(), page = PageSizeOf(area, PageScaleOf(window_));
    // The engine may round a size up or down.
    const auto fills = [](LONG pixels, LONG units) { return std::abs(pixels - units * EngineScale()) < 1; };
    return IsRectEmpty(&area) || (fills(size.cx, page.cx) && fills(size.cy, page.cy));
}

// Whether the frame buffer shows the page's current state.
bool Screencast::IsSettled() {
    return !hurried_.exchange(false) && FillsWindow() && format_ == Format::kPng;
}

// A page that sends no frame now may have stopped painting, so the delay grows.
void Screencast::OnTimer() {
    if (paced_ && !capturing_) return Start();
    delay_ = std::min(delay_ * 2, kMaxDelay);
    Restart(Format::kPng);
}

// ---- Pacing and format

void Screencast::OnPacedFrame(bool isChanged) {
    unchanged_ = isChanged ? 0 : unchanged_ + 1;
    if (unchanged_ >= kUnchangedFrames || period_.dirty.Share() > kSmallShare || !FillsWindow())
        return EndPacing();
    if (GetTickCount64() - since_ >= kPeriod) StartPeriod();
    // A frame that was under way when the screencast stopped.
    if (!std::exchange(capturing_, false)) return;
    const ULONGLONG elapsed = GetTickCount64() - started_;
    SetDelay(elapsed < kPacedInterval ? static_cast<UINT>(kPacedInterval - elapsed) : 1);
}

void Screencast::EndPacing() {
    StartPeriod();
    Restart(Format::kPng);
}

void Screencast::StartPeriod() {
    since_ = GetTickCount64();
    period_ = {};
}

void Screencast::OnPeriod() {
    const ULONGLONG now = GetTickCount64();
    const double seconds = static_cast<double>(now - since_) / 1000;
    const Series period = std::exchange(period_, {});
    const bool isFirst = std::exchange(since_, now) == 0;
    if (isFirst || period.frames / seconds < kAnimatedFrames) return;
    const SIZE size = frameBuffer_.Size();
    const double expensive = kExpensiveBytes * size.cx * size.cy;
    if (period.dirty.Share() <= kSmallShare && now - input_ >= kPeriod) {
        format_ = Format::kPng;
        paced_ = true;
        unchanged_ = 0;
        StopCapture();
        SetDelay(kPacedInterval);
    } else if (format_ == Format::kPng && static_cast<double>(period.bytes) / period.frames > expensive) {
        Restart(Format::kJpeg);
    }
}

}  // namespace tarvik
