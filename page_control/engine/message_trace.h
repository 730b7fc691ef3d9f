#pragma once

#include <mutex>
#include <string_view>

#include "tarvik/owners.h"

namespace tarvik {

// Writes the messages between host and engine to the file that the environment variable
// TARVIK_DEVTOOLS_TRACE names, a line each; CONTRIBUTING.md says how to read it. Without the variable it does
// nothing. Any thread.
class MessageTrace {
  public:
    MessageTrace();

    void WriteSent(std::string_view message) { Write("> ", message); }
    void WriteReceived(std::string_view message) { Write("< ", message); }

  private:
    void Write(const char* direction, std::string_view message);

    UniqueHandle file_;
    std::mutex lock_;
};

}  // namespace tarvik
