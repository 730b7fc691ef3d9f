#pragma once

#include <string>

#include <nlohmann/json.hpp>

// The events of the DevTools protocol that the page control handles, with the parameters it uses. Parse
// throws a JSON exception if a required parameter is missing.
namespace tarvik::event {

using nlohmann::json;

namespace detail {

// Base of an event whose parameters are not used.
template <class Event>
struct WithoutParameters {
    static Event Parse(const json&) { return {}; }
};

inline std::string Text(const json& object, const char* name) {
    return object.value(name, std::string());
}

// Throws for a fraction, whose conversion to an integer could be undefined.
inline int Integer(const json& number) {
    return static_cast<int>(number.get_ref<const json::number_integer_t&>());
}

}  // namespace detail

struct TargetCreated {
    static constexpr const char* kMethod = "Target.targetCreated";
    static TargetCreated Parse(const json& params) { return {params.at("targetInfo").at("targetId")}; }
    std::string targetId;
};

struct TargetDestroyed {
    static constexpr const char* kMethod = "Target.targetDestroyed";
    static TargetDestroyed Parse(const json& params) { return {params.at("targetId")}; }
    std::string targetId;
};

// Synthetic, see DevTools.
struct Disconnected : detail::WithoutParameters<Disconnected> {
    static constexpr const char* kMethod = "Inspector.disconnected";
};

struct TargetCrashed : detail::WithoutParameters<TargetCrashed> {
    static constexpr const char* kMethod = "Inspector.targetCrashed";
};

struct RequestPaused {
    static constexpr const char* kMethod = "Fetch.requestPaused";
    static RequestPaused Parse(const json& params) {
        return {params.at("requestId"), detail::Text(params, "frameId"),
                detail::Text(params.at("request"), "url"), params.contains("redirectedRequestId"),
                detail::Text(params, "resourceType") == "Document"};
    }
    std::string requestId;
    std::string frameId;
    std::string url;
    bool isRedirected;
    bool isDocument;
};

struct AuthRequired {
    static constexpr const char* kMethod = "Fetch.authRequired";
    static AuthRequired Parse(const json& params) {
        const json& challenge = params.at("authChallenge");
        return {params.at("requestId"), detail::Text(challenge, "origin"), detail::Text(challenge, "realm"),
                detail::Text(challenge, "source") == "Proxy"};
    }
    std::string requestId;
    std::string origin;
    std::string realm;
    bool isProxy;
};

struct FrameNavigated {
    static constexpr const char* kMethod = "Page.frameNavigated";
    static FrameNavigated Parse(const json& params) {
        const json& frame = params.at("frame");
        const std::string url = detail::Text(frame, "url") + detail::Text(frame, "urlFragment");
        return {detail::Text(frame, "id"), !frame.contains("parentId"), frame.contains("unreachableUrl"),
                frame.value("unreachableUrl", url)};
    }
    std::string frameId;
    bool isTop;
    bool isError;
    std::string url;  // if it cannot be opened, the requested address and not that of the engine's error page
};

struct NavigatedWithinDocument {
    static constexpr const char* kMethod = "Page.navigatedWithinDocument";
    static NavigatedWithinDocument Parse(const json& params) {
        return {detail::Text(params, "frameId"), detail::Text(params, "url")};
    }
    std::string frameId;
    std::string url;
};

struct LoadEventFired : detail::WithoutParameters<LoadEventFired> {
    static constexpr const char* kMethod = "Page.loadEventFired";
};

struct FrameStoppedLoading {
    static constexpr const char* kMethod = "Page.frameStoppedLoading";
    static FrameStoppedLoading Parse(const json& params) { return {detail::Text(params, "frameId")}; }
    std::string frameId;
};

struct FrameDetached {
    static constexpr const char* kMethod = "Page.frameDetached";
    static FrameDetached Parse(const json& params) { return {detail::Text(params, "frameId")}; }
    std::string frameId;
};

struct DialogOpening {
    static constexpr const char* kMethod = "Page.javascriptDialogOpening";
    static DialogOpening Parse(const json& params) {
        return {detail::Text(params, "type"), detail::Text(params, "message"),
                detail::Text(params, "defaultPrompt")};
    }
    std::string type;
    std::string message;
    std::string defaultPrompt;
};

struct FileChooserOpened {
    static constexpr const char* kMethod = "Page.fileChooserOpened";
    static FileChooserOpened Parse(const json& params) { return {params.value("backendNodeId", 0)}; }
    int nodeId;  // of the field; 0 for a dialog that script opens by itself
};

struct DownloadWillBegin {
    static constexpr const char* kMethod = "Page.downloadWillBegin";
    static DownloadWillBegin Parse(const json& params) {
        return {params.at("guid"), detail::Text(params, "url"), detail::Text(params, "suggestedFilename")};
    }
    std::string id;
    std::string url;
    std::string name;
};

struct DownloadProgress {
    static constexpr const char* kMethod = "Page.downloadProgress";
    static DownloadProgress Parse(const json& params) {
        return {params.at("guid"), params.value("totalBytes", 0.0), params.value("receivedBytes", 0.0),
                detail::Text(params, "state")};
    }
    std::string id;
    double total;  // 0 while it is unknown
    double received;
    std::string state;  // "inProgress", "completed" or "canceled", which includes failures
};

struct DragIntercepted {
    static constexpr const char* kMethod = "Input.dragIntercepted";
    static DragIntercepted Parse(const json& params) { return {params.at("data")}; }
    json data;  // Input.DragData
};

struct WindowOpen {
    static constexpr const char* kMethod = "Page.windowOpen";
    static WindowOpen Parse(const json& params) { return {detail::Text(params, "url")}; }
    std::string url;
};

struct ExceptionThrown {
    static constexpr const char* kMethod = "Runtime.exceptionThrown";
    static ExceptionThrown Parse(const json& params);
    std::string message;
    std::string url;
    int line;  // from 1
    int column;
};

struct BindingCalled {
    static constexpr const char* kMethod = "Runtime.bindingCalled";
    static BindingCalled Parse(const json& params) {
        return {params.at("name"), params.at("payload"), detail::Integer(params.at("executionContextId"))};
    }
    std::string name;
    std::string payload;
    int contextId;
};

struct ContextsCleared : detail::WithoutParameters<ContextsCleared> {
    static constexpr const char* kMethod = "Runtime.executionContextsCleared";
};

struct ContextDestroyed {
    static constexpr const char* kMethod = "Runtime.executionContextDestroyed";
    static ContextDestroyed Parse(const json& params) {
        return {detail::Integer(params.value("executionContextId", json(0)))};
    }
    int contextId;
};

struct Paused : detail::WithoutParameters<Paused> {
    static constexpr const char* kMethod = "Debugger.paused";
};

struct Resumed : detail::WithoutParameters<Resumed> {
    static constexpr const char* kMethod = "Debugger.resumed";
};

struct NodesUpdated : detail::WithoutParameters<NodesUpdated> {
    static constexpr const char* kMethod = "Accessibility.nodesUpdated";
};

}  // namespace tarvik::event
