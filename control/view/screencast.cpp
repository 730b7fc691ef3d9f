#include "control/view/screencast.h"

namespace tarvik {

namespace {

// PNG loses nothing and is cheap for plain pages; pictures that fill a window are dear in it. Measured.
constexpr double kSlowMilliseconds = 30;
constexpr double kLargeBytes = 400 * 1024;
constexpr double kLivelyFrames = 5;  // a second
constexpr ULONGLONG kMoment = 1000;  // milliseconds
constexpr UINT kCalm = 300;
constexpr int kJpegQuality = 80;

// So many frames a page gets that is not shown yet, so that its picture is there when it is.
constexpr int kUnseenFrames = 60;

bool IsSeen(HWND window) {
    return IsWindowVisible(window) && !IsIconic(GetAncestor(window, GA_ROOT));
}

}  // namespace

Screencast::Screencast(HWND window, PageTarget& target, Picture& picture)
    : window_(window),
      target_(target),
      picture_(picture),
      decoder_([this](FrameDecoder::Frame& frame) { OnDecoded(frame); }) {
    target_.Engine().ListenToFrames(target_.Session(),
                                    [this](std::string_view text) { decoder_.Submit(text); });
    Start();
}

Screencast::~Screencast() {
    target_.Engine().ListenToFrames(target_.Session(), nullptr);
    KillTimer(window_, kTimer);
    Stop();
}

void Screencast::OnDecoded(FrameDecoder::Frame& frame) {
    picture_.Replace(frame.pixels);
    ++frames_;
    bytes_ += static_cast<long long>(frame.bytes);
    microseconds_ += static_cast<long long>(frame.milliseconds * 1000);
    if (!posted_.exchange(true) && !PostMessageW(window_, kFrameMessage, 0, 0)) posted_ = false;
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
    unseen_ = 0;
    if (!running_) Start();
}

void Screencast::OnFrame() {
    posted_ = false;
    if (!IsSeen(window_)) {
        if (++unseen_ > kUnseenFrames) Stop();
        return;
    }
    InvalidateRect(window_, nullptr, FALSE);
    // Frames come faster than a busy thread has idle moments, in which paints are made.
    UpdateWindow(window_);
    if (format_ == Format::kJpeg) SetTimer(window_, kTimer, kCalm, nullptr);
    ChooseFormat();
}

// No frame for a while: what stands still is seen without loss.
void Screencast::OnTimer() {
    KillTimer(window_, kTimer);
    Use(Format::kPng);
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
    if (first || frames / seconds < kLivelyFrames) return;
    if (milliseconds / frames > kSlowMilliseconds || bytes / frames > kLargeBytes) Use(Format::kJpeg);
}

void Screencast::Use(Format format) {
    if (format == format_) return;
    format_ = format;
    if (!running_) return;
    Stop();
    Start();
}

}  // namespace tarvik
