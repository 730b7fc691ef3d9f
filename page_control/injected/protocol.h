#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

// The protocol between the injected scripts and the host. The host's code takes all names from this table; a
// test compares the scripts with it.
namespace tarvik::protocol {

enum class Kind {
    // The bridge's script posts a JSON array [name, ...].
    kCall,          // [name, call id, fields...]: the page pauses until the host sends the reply
    kNotification,  // [name, fields...]: the page continues
    // The host evaluates a function of the bridge's core.
    kBridgeFunction,
    kReply,    // to a call; its first field is the call's id
    kCommand,  // at any time; a paused page runs it before it pauses again
    kResult,   // of receive, besides an empty text and a task's outcome
    // Names in "run", and the tags of its outcome.
    kTask,
    kOutcome,
    // Tags of values that are arrays [tag, fields...], in messages of the bridge's script and of the host.
    // All
    // other values are JSON, or JavaScript from the host.
    kPageValue,
    kHostValue,
    // The view's script posts the text "name:field".
    kViewEvent,
    // The host calls a function of the view's core, at any time.
    kViewFunction,
};

struct Message {
    Kind kind;
    std::string_view name;
    std::string_view fields;
    std::string_view use;
};

inline constexpr Message kMessages[] = {
    // The fields `object` are ids of native objects in calls, and numbers of script objects in tasks.
    {Kind::kCall, "start", "names", "first: a document starts; the members of Object.prototype"},
    {Kind::kCall, "get", "object, name", "a member is read; the reply is a value or \"method\""},
    {Kind::kCall, "put", "object, name, value", "a member is written"},
    {Kind::kCall, "call", "object, name or null, values", "a member, or the object itself, is called"},
    {Kind::kCall, "default", "object", "the object is converted to a primitive value"},
    {Kind::kCall, "has", "object, name", "`in` operator"},
    {Kind::kCall, "delete", "object, name", "`delete` operator"},
    {Kind::kCall, "keys", "object", "enumeration; the reply is an array of names"},
    {Kind::kCall, "open", "url", "window.open of a new window"},
    {Kind::kCall, "dialog", "type, message, proposal",
     "alert, confirm, prompt or print; the reply is the result"},

    {Kind::kNotification, "result", "task id, outcome, awaits",
     "a queued task has run; whether the page pauses again"},
    {Kind::kNotification, "release", "object, count", "script has dropped a native object"},
    {Kind::kNotification, "unloading", "", "the engine no longer pauses the page, so a call has failed"},
    {Kind::kNotification, "close", "", "window.close"},
    {Kind::kNotification, "mousedown", "", "after \"listen\": a press has reached the document's body"},
    {Kind::kNotification, "menu", "x, y, element", "a context menu is requested"},

    {Kind::kBridgeFunction, "receive", "releases, name, fields...",
     "takes a reply or a command; `releases` are numbers of script objects, each followed by the count of "
     "released references"},

    {Kind::kReply, "value", "call id, value", "the call has succeeded"},
    {Kind::kReply, "method", "call id, isPermanent", "to \"get\": the member is a method"},
    {Kind::kReply, "error", "call id, number, message", "the call throws an Error"},

    {Kind::kCommand, "run", "task id, task, object, member, values, quiet", "runs a task"},
    {Kind::kCommand, "listen", "", "reports mouse presses from now on"},
    {Kind::kCommand, "release", "", "carries only releases"},

    {Kind::kResult, "queued", "", "the page is paused; its innermost call will read the message"},

    {Kind::kTask, "eval", "-, text", "evaluates global script"},
    {Kind::kTask, "call", "object, this, values", "calls a function"},
    {Kind::kTask, "new", "object, -, values", "constructs an object"},
    {Kind::kTask, "member", "object, name, values", "calls a method, or reads a property"},
    {Kind::kTask, "get", "object, name", "reads a property"},
    {Kind::kTask, "find", "object, name", "looks a member up; the outcome may be \"members\""},
    {Kind::kTask, "findOne", "object, name", "looks a member up, only this one"},
    {Kind::kTask, "set", "object, name, [value]", "writes a property"},
    {Kind::kTask, "delete", "object, name", "deletes a property"},
    {Kind::kTask, "keys", "object", "enumerates"},
    {Kind::kTask, "text", "object", "converts to a string"},

    {Kind::kOutcome, "value", "value", "of the task"},
    {Kind::kOutcome, "absent", "", "there is no such member"},
    {Kind::kOutcome, "present", "", "the member exists; its value must be read"},
    {Kind::kOutcome, "members", "isComplete, name, value, ...", "several members"},
    {Kind::kOutcome, "names", "name, ...", "of an enumeration"},
    {Kind::kOutcome, "error", "number, message", "the task has thrown"},

    {Kind::kPageValue, "u", "", "undefined"},
    {Kind::kPageValue, "n", "text", "a number that JSON cannot write: -0, NaN, Infinity, -Infinity"},
    {Kind::kPageValue, "i", "integer", "a BigInt"},
    {Kind::kPageValue, "s", "[code unit, ...]", "a string that is not well-formed"},
    {Kind::kPageValue, "o", "id", "a native object"},
    {Kind::kPageValue, "f", "number, isCallable", "a script object"},
    {Kind::kPageValue, "?", "", "in \"members\": must be read"},

    {Kind::kHostValue, "o", "id, isCallable", "a native object"},
    {Kind::kHostValue, "f", "number", "a script object"},
    {Kind::kHostValue, "d", "milliseconds", "a date"},
    {Kind::kHostValue, "a", "[value, ...]", "an array"},

    {Kind::kViewEvent, "copied", "id", "the page copies, or has written to the clipboard"},
    {Kind::kViewEvent, "reading", "id", "the page waits to read the clipboard"},
    {Kind::kViewEvent, "window", "url", "a click requests a new window"},
    {Kind::kViewEvent, "size", "seen or missed", "after \"watchSize\": whether the page got the event"},
    {Kind::kViewEvent, "picker", "JSON",
     "the engine has opened the picker of a field: id, type, value, min, max, step, list"},
    {Kind::kViewEvent, "suggestions", "JSON or null",
     "the engine has opened, or closed, the list of a field: id, left, above, width, height, items, "
     "selected"},
    {Kind::kViewEvent, "press", "key", "the engine's picker or list, which takes the keys, is to get one"},
    {Kind::kViewEvent, "fullscreen", "on or off", "an element fills the screen, or none does"},
    {Kind::kViewEvent, "lock", "on or off", "an element locks the pointer, or releases it"},
    {Kind::kViewEvent, "focus", "text or other", "whether an element that takes composed text has the focus"},

    {Kind::kViewFunction, "receipt", "isText", "returns how much input the page has received"},
    {Kind::kViewFunction, "handlesTouch", "", "returns whether the page prevents the last contact's default"},
    {Kind::kViewFunction, "hasSelection", "", "returns whether text is selected"},
    {Kind::kViewFunction, "copy", "id", "returns whether the page has copied, once the copy is over"},
    {Kind::kViewFunction, "settle", "id, succeeded", "the clipboards hold the same"},
    {Kind::kViewFunction, "pick", "id, value or null, row, needsFocus",
     "writes the user's choice to a field; a promise, of a number if it must wait"},
    {Kind::kViewFunction, "caret", "", "returns left, top and height of the caret, or null"},
    {Kind::kViewFunction, "cursorAt", "x, y", "returns the name of a cursor"},
    {Kind::kViewFunction, "titleAt", "x, y", "returns the text of a tooltip"},
    {Kind::kViewFunction, "dragImage", "",
     "returns a box of the page, a hot spot in it, and a data URL or an empty text"},
    {Kind::kViewFunction, "dropEffect", "", "returns what the page would do with a drop"},
    {Kind::kViewFunction, "endDrag", "effect", "tells what a drop outside of the page has done"},
    {Kind::kViewFunction, "unlockPointer", "", "releases a pointer that is locked"},
    {Kind::kViewFunction, "watchState", "", "the page gets the events of its window's state"},
    {Kind::kViewFunction, "watchSize", "", "reports whether the page gets the event of its new size"},
};

// A name that is in the table; any other does not compile.
template <Kind kind>
class Name {
  public:
    consteval Name(const char* name) : text_(name) {
        if (std::ranges::none_of(kMessages, [&](const Message& message) {
                return message.kind == kind && message.name == text_;
            }))
            throw "not in the protocol";
    }
    constexpr operator std::string_view() const { return text_; }
    friend constexpr bool operator==(const Name& left, const Name& right) = default;
    friend constexpr bool operator==(Name name, std::string_view text) { return name.text_ == text; }

  private:
    std::string_view text_;
};

consteval std::size_t Count(Kind kind) {
    return static_cast<std::size_t>(std::ranges::count(kMessages, kind, &Message::kind));
}

}  // namespace tarvik::protocol
