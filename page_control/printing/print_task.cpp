#include "page_control/printing/print_task.h"

#include <objbase.h>

#include <thread>

#include "base/wine.h"
#include "page_control/printing/painted_pages.h"
#include "page_control/printing/pdf_pictures.h"
#include "page_control/printing/spooled_file.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

class Apartment {
  public:
    Apartment() { ThrowIfFailed(CoInitializeEx(nullptr, COINIT_MULTITHREADED)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

}  // namespace

PrintTask::PrintTask(std::vector<BYTE> pdf, const std::wstring& title, const PrintSettings& settings) {
    state_->pdf = std::move(pdf);
    state_->title = title;
    state_->settings = settings;
    std::thread([state = state_] {
        state->status = Guard([&] { Print(*state); });
        state->over = true;
    }).detach();
}

PrintTask::~PrintTask() {
    state_->progress.cancelled = true;
}

// Wine cannot draw a PDF file, but passes it to CUPS, whose own format it is.
void PrintTask::Print(State& state) {
    if (IsWine()) return SpoolFile(state.pdf, state.title, state.settings, state.progress);
    const Apartment apartment;
    PaintPages(*MakePdfPictures(state.pdf), state.title, state.settings, state.progress);
}

}  // namespace tarvik
