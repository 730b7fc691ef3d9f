#include "control/view/screencast.h"

#include <algorithm>

namespace tarvik {

namespace {

// PNG loses nothing and is cheap for plain pages. Pictures that fill a window are dear in it. Measured.
constexpr double kDearBytes = 0.5;   // a pixel
constexpr double kLivelyFrames = 5;  // a second
constexpr int kJpegQuality = 80;

// Milliseconds
constexpr ULONGLONG kMoment = 1000;
constexpr ULONGLONG kHurry = 100;
constexpr UINT kCalm = 150;
constexpr UINT kLongestDelay = 5000;

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
                                    [this](std::string_view base64) { OnArrived(base64); });
    Start();
}

Screencast::~Screencast() {
    target_.Engine().ListenToFrames(target_.Session(), nullptr);
    Stop();
}

void Screencast::OnArrived(std::string_view base64) {
    const ULONGLONG now = GetTickCount64();
    if (now - arrived_ < kHurry) hurried_ = true;
    arrived_ = now;
    decoder_.Submit(base64);
}

void Screencast::OnDecoded(FrameDecoder::Frame& frame) {
    picture_.Replace(frame.pixels);
    ++frames_;
    bytes_ += static_cast<long long>(frame.bytes);
    if (!posted_.exchange(true) && !PostMessageW(window_, kFrameMessage, 0, 0)) posted_ = false;
}

void Screencast::Start() {
    Json parameters = {{"format", format_ == Format::kPng ? "png" : "jpeg"}, {"everyNthFrame", 1}};
    if (format_ == Format::kJpeg) parameters["quality"] = kJpegQuality;
    target_.Post("Page.startScreencast", std::move(parameters));
    running_ = true;
    SetDelay(std::max(delay_, kCalm));
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
        SetTimer(window_, kTimer, delay_, nullptr);
    } else {
        KillTimer(window_, kTimer);
    }
}

void Screencast::Want() {
    unseen_ = 0;
    if (!running_) Start();
}

void Screencast::ExpectChange() {
    if (running_) SetDelay(kCalm);
}

void Screencast::OnFrame() {
    posted_ = false;
    if (!running_) return;
    SetDelay(IsSettled() ? 0 : kCalm);
    if (!IsSeen(window_)) {
        if (++unseen_ > kUnseenFrames) Stop();
        return;
    }
    InvalidateRect(window_, nullptr, FALSE);
    // Frames come faster than a busy thread has idle moments, in which paints are made.
    UpdateWindow(window_);
    ChooseFormat();
}

// Whether the picture is what the page looks like, unless it changes again.
bool Screencast::IsSettled() {
    RECT area = {};
    GetClientRect(window_, &area);
    const SIZE size = picture_.Size();
    const bool fits = IsRectEmpty(&area) || (size.cx == area.right && size.cy == area.bottom);
    return !hurried_.exchange(false) && fits && format_ == Format::kPng;
}

// A page that gives no frame now has its reasons; it is asked less and less.
void Screencast::OnTimer() {
    delay_ = std::min(delay_ * 2, kLongestDelay);
    Restart(Format::kPng);
}

void Screencast::ChooseFormat() {
    const ULONGLONG now = GetTickCount64();
    if (now - since_ < kMoment) return;
    const double seconds = static_cast<double>(now - since_) / 1000;
    const bool first = since_ == 0;
    const int frames = frames_.exchange(0);
    const double bytes = static_cast<double>(bytes_.exchange(0));
    since_ = now;
    const SIZE size = picture_.Size();
    const double dear = kDearBytes * size.cx * size.cy;
    const bool lively = !first && frames / seconds >= kLivelyFrames;
    if (format_ == Format::kPng && lively && bytes / frames > dear) Restart(Format::kJpeg);
}

}  // namespace tarvik
