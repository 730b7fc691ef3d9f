#pragma once

#include <windows.h>

#include <vector>

namespace tarvik {

// Receives each message of the thread before it is translated and dispatched.
class CMessageFilter {
  public:
    virtual ~CMessageFilter() = default;
    // True if the filter has handled the message: it is then neither translated nor dispatched.
    virtual bool PreTranslateMessage(MSG* message) = 0;
};

class CMessageLoop {
  public:
    // Filters are not owned. The last one added is called first.
    void AddMessageFilter(CMessageFilter* filter);
    void RemoveMessageFilter(CMessageFilter* filter);

    // Runs until WM_QUIT, and returns its wParam.
    int Run();

    // Calls the filters; true if one has handled the message. Nested message loops call this, too.
    bool PreTranslateMessage(MSG* message);

  private:
    std::vector<CMessageFilter*> filters_;
};

// The instance of the program and the message loop of its main thread.
class CAppModule {
  public:
    void Init(HINSTANCE instance) { instance_ = instance; }
    void Term() { loop_ = nullptr; }

    HINSTANCE Instance() const { return instance_; }
    // The loop is not owned.
    void AddMessageLoop(CMessageLoop* loop) { loop_ = loop; }
    void RemoveMessageLoop() { loop_ = nullptr; }
    // Null if there is none.
    CMessageLoop* GetMessageLoop() const { return loop_; }

  private:
    HINSTANCE instance_ = GetModuleHandleW(nullptr);
    CMessageLoop* loop_ = nullptr;
};

// Main thread only.
extern CAppModule appModule;

}  // namespace tarvik
