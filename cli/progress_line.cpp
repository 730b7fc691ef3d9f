#include "cli/progress_line.h"

#include <algorithm>

#include "cli/console.h"
#include "cli/interrupt.h"

namespace tarvik {

ProgressLine::ProgressLine(std::wstring_view title, ULONGLONG total) : title_(title), total_(total) {
    if (Console::Out().IsConsole()) {
        Show(0);
    } else {
        Console::Out().Write(title_ + L"\n");
    }
}

ProgressLine::~ProgressLine() {
    if (Console::Out().IsConsole()) Console::Out().Write(L"\n");
}

void ProgressLine::Advance(ULONGLONG count) {
    Interrupt::ThrowIfRequested();
    done_ += count;
    const auto percent = static_cast<unsigned>(std::min(done_, total_) * 100 / std::max(total_, 1ULL));
    if (percent != shown_ && Console::Out().IsConsole()) Show(percent);
}

void ProgressLine::Show(unsigned percent) {
    shown_ = percent;
    const std::wstring number = std::to_wstring(percent);
    Console::Out().Write(L"\r" + title_ + L" " + std::wstring(3 - number.size(), L' ') + number + L" %");
}

}  // namespace tarvik
