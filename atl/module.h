#pragma once

#include <windows.h>

#include <vector>

namespace tarvik {

// Sees each message of the thread before it is translated and dispatched.
class CMessageFilter {
  public:
    virtual ~CMessageFilter() = default;
    // True takes the message: it is then neither translated nor dispatched.
    virtual bool PreTranslateMessage(MSG* message) = 0;
};

class CMessageLoop {
  public:
    // Filters are not owned. They are asked from the last added to the first.
    void AddMessageFilter(CMessageFilter* filter);
    void RemoveMessageFilter(CMessageFilter* filter);

    // Runs until WM_QUIT; the result is its parameter.
    int Run();

    // Queries the filters; true if one takes the message. For a loop that runs inside this one.
    bool PreTranslateMessage(MSG* message);

  private:
    std::vector<CMessageFilter*> filters_;
};

// The program as a whole: its instance and the message loop of its main thread.
class CAppModule {
  public:
    void Init(HINSTANCE instance) { instance_ = instance; }
    void Term() { loop_ = nullptr; }

    HINSTANCE Instance() const { return instance_; }
    // The loop is not owned; null before it is registered and after.
    void AddMessageLoop(CMessageLoop* loop) { loop_ = loop; }
    void RemoveMessageLoop() { loop_ = nullptr; }
    CMessageLoop* GetMessageLoop() const { return loop_; }

  private:
    HINSTANCE instance_ = GetModuleHandleW(nullptr);
    CMessageLoop* loop_ = nullptr;
};

// Main-thread data, like everything that uses it.
extern CAppModule appModule;

}  // namespace tarvik
