#pragma once

#include <memory>

#include "page_control/printing/print_progress.h"
#include "page_control/printing/print_settings.h"

namespace tarvik {

// A document that a thread of its own prints, so that no driver holds up the window. The thread ends by
// itself, even after the task, which cancels it.
class PrintTask {
  public:
    PrintTask(std::vector<BYTE> pdf, const std::wstring& title, const PrintSettings& settings);
    ~PrintTask();
    PrintTask(const PrintTask&) = delete;
    PrintTask& operator=(const PrintTask&) = delete;

    const PrintProgress& Progress() const { return state_->progress; }
    // Whether the document is with the printer, or has failed.
    bool IsOver() const { return state_->over; }
    // Of a task that is over.
    HRESULT Status() const { return state_->status; }

  private:
    struct State {
        std::vector<BYTE> pdf;
        std::wstring title;
        PrintSettings settings;
        PrintProgress progress;
        HRESULT status = S_OK;
        std::atomic<bool> over = false;
    };
    static void Print(State& state);

    const std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace tarvik
