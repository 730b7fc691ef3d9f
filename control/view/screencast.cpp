#include "control/view/screencast.h"

namespace tarvik {

namespace {

// PNG loses nothing and is cheap for plain pages; pictures that fill a window are dear in it. Measured.
constexpr double kSlowMilliseconds = 30;
constexpr double kLargeBytes = 400 * 1024;
constexpr double kCalmFrames = 5;  // a second
constexpr ULONGLONG kMoment = 1000;
constexpr int kJpegQuality = 80;

bool IsSeen(HWND window) {
    return IsWindowVisible(window) && !IsIconic(GetAncestor(window, GA_ROOT));
}

}  // namespace

Screencast::Screencast(HWND window, PageTarget& target, Picture& picture)
    : window_(window), target_(target), picture_(picture), decoder_([this](FrameDecoder::Frame& frame) {
          picture_.Replace(frame.pixels);
          ++frames_;
          bytes_ += static_cast<long long>(frame.bytes);
          microseconds_ += static_cast<long long>(frame.milliseconds * 1000);
          if (!posted_.exchange(true)) PostMessageW(window_, kFrameMessage, 0, 0);
      }) {
    target_.Engine().ListenToFrames(target_.Session(),
                                    [this](std::string_view text) { decoder_.Submit(text); });
    Start();
}

Screencast::~Screencast() {
    *alive_ = false;
    target_.Engine().ListenToFrames(target_.Session(), nullptr);
    Stop();
}

void Screencast::Start() {
    Json parameters = {{"format", format_ == Format::kPng ? "png" : "jpeg"}, {"everyNthFrame", 1}};
    if (format_ == Format::kJpeg) parameters["quality"] = kJpegQuality;
    target_.Post("Page.startScreencast", std::move(parameters));
    running_ = true;
}

void Screencast::Stop() {
    if (running_) target_.Post("Page.stopScreencast");
    running_ = false;
}

void Screencast::Want() {
    if (!running_) Start();
}

void Screencast::OnFrame() {
    posted_ = false;
    if (!IsSeen(window_)) return Stop();
    InvalidateRect(window_, nullptr, FALSE);
    // Frames come faster than a busy thread has idle moments, in which paints are made.
    UpdateWindow(window_);
    ChooseFormat();
}

void Screencast::ChooseFormat() {
    const ULONGLONG now = GetTickCount64();
    if (now - since_ < kMoment) return;
    const int frames = frames_.exchange(0);
    const double bytes = static_cast<double>(bytes_.exchange(0));
    const double milliseconds = static_cast<double>(microseconds_.exchange(0)) / 1000;
    const double seconds = static_cast<double>(now - since_) / 1000;
    const bool first = since_ == 0;
    since_ = now;
    if (first || frames == 0) return;
    const bool dear = milliseconds / frames > kSlowMilliseconds || bytes / frames > kLargeBytes;
    const bool calm = frames / seconds < kCalmFrames;
    const Format wanted = format_ == Format::kPng ? (dear && !calm ? Format::kJpeg : Format::kPng)
                                                  : (calm ? Format::kPng : Format::kJpeg);
    if (wanted == format_) return;
    format_ = wanted;
    Stop();
    Start();
}

void Screencast::SetSize(SIZE size) {
    size_ = size;
    if (!sending_) SendSize();
}

// One change at a time: a window that is being dragged changes faster than a page can be laid out.
void Screencast::SendSize() {
    if (size_.cx <= 0 || size_.cy <= 0 || (size_.cx == sent_.cx && size_.cy == sent_.cy)) return;
    sent_ = size_;
    sending_ = true;
    target_.Post("Emulation.setDeviceMetricsOverride",
                 {{"width", sent_.cx}, {"height", sent_.cy}, {"deviceScaleFactor", 1}, {"mobile", false}},
                 [this, alive = alive_](const Json*) {
                     if (!*alive) return;
                     sending_ = false;
                     SendSize();
                 });
}

}  // namespace tarvik
