#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "page_control/engine/devtools.h"

namespace tarvik {

// Does in a page what assistive technology requests.
class NodeActions {
  public:
    // The queue of the page's input runs a task when the page can receive it.
    using Queue = std::function<void(std::function<void()> task)>;
    NodeActions(PageTarget& target, Queue queue) : target_(target), queue_(std::move(queue)) {}
    ~NodeActions() { *alive_ = false; }
    NodeActions(const NodeActions&) = delete;
    NodeActions& operator=(const NodeActions&) = delete;

    // Of an element, by the engine's number. They return at once.
    void Press(std::int64_t element) { Add(element, "press", {}); }
    void Focus(std::int64_t element) { Add(element, "focus", {}); }
    void Write(std::int64_t element, const std::string& text) { Add(element, "write", text); }

  private:
    void Add(std::int64_t element, const char* action, const std::string& text);
    void Call(const Json& object, const Json& arguments);

    PageTarget& target_;
    const Queue queue_;
    const std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
