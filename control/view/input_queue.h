#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "control/engine/devtools.h"
#include "control/view/page_side.h"

namespace tarvik {

// Input on its way to a page, in order. The engine throws away what reaches a page whose script stands still
// in a native call, and confirms it nevertheless. So input waits here while the page is known to stand still;
// and since it may stop at any moment, it is asked whether it has seen what must not be lost. If it has not,
// and has stood still meanwhile, that is sent again.
class InputQueue {
  public:
    InputQueue(PageTarget& target, PageSide& page) : target_(target), page_(page) {}
    ~InputQueue() { *alive_ = false; }
    InputQueue(const InputQueue&) = delete;
    InputQueue& operator=(const InputQueue&) = delete;

    enum class Care {
        kLatest,  // sent when the one before has been answered; a later one may take its place until then
        kInTurn,  // the next does not wait for it
        kDone,    // the next waits until it is done
        kSeen,    // and until the page has seen it
        kText,    // the same for the text of a key
    };
    void Add(Care care, const char* method, Json parameters);

    // The page is in a native call.
    void SetParked(bool parked);
    // The session's events tell when script stands still and goes on.
    void OnEvent(std::string_view method);

  private:
    struct Input {
        Care care;
        const char* method;
        Json parameters;
        ULONGLONG since = 0;  // it is being sent
    };
    using Step = void (InputQueue::*)(const Json& value);

    void OnNewDocument();
    void Advance();
    void Start(Input input);
    void Post(const Input& input, Step next);
    void Look(Step next);
    void OnMoved(const Json&);
    void SendCurrent(const Json& seenBefore);
    void OnAnswered(const Json&);
    void OnLook(const Json& seen);
    void Repeat();
    void Finish();
    bool StandsStill() const { return parked_ || stopped_; }

    PageTarget& target_;
    PageSide& page_;
    std::deque<Input> waiting_;
    std::optional<Input> current_;  // that the next one waits for
    bool moving_ = false;           // a kLatest has not been answered
    bool parked_ = false;
    bool stopped_ = false;
    unsigned stops_ = 0;
    unsigned stopsBefore_ = 0;  // when the current one was sent
    Json seen_;                 // the page's count; null when it is not known
    unsigned round_ = 0;        // what is answered in a later one comes too late
    ULONGLONG sentAt_ = 0;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
