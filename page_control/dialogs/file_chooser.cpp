#include "page_control/dialogs/file_chooser.h"

#include <utility>

#include "page_control/dialogs/accepted_types.h"
#include "page_control/engine/unix_path.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// `attributes` are names and values in turn.
FileDialog DialogFor(const Json& attributes) {
    FileDialog dialog;
    using Purpose = FileDialog::Purpose;
    for (size_t i = 0; i + 1 < attributes.size(); i += 2) {
        const std::string& name = attributes[i].get_ref<const std::string&>();
        if (name == "webkitdirectory") dialog.purpose = Purpose::kOpenFolder;
        if (name == "multiple" && dialog.purpose == Purpose::kOpenFile) dialog.purpose = Purpose::kOpenFiles;
        if (name == "accept") dialog.pattern = PatternOfAccept(attributes[i + 1]);
    }
    return dialog;
}

}  // namespace

FileChooser::FileChooser(HWND window, PageTarget& target, DialogQueue& queue, Scheduler whenActive)
    : window_(window), target_(target), queue_(queue), whenActive_(std::move(whenActive)) {
    Intercept(State::kIdle);
    opened_ = target_.Events().Subscribe<event::FileChooserOpened>(
        [this](const event::FileChooserOpened& opened) { OnOpened(opened.nodeId); });
}

// Without a field, script has called showOpenFilePicker or its like, which the engine has rejected.
void FileChooser::OnOpened(int field) {
    if (state_ == State::kCancelling) return Intercept(State::kIdle);
    if (!field || state_ == State::kChoosing) return;
    state_ = State::kChoosing;
    target_.Post("DOM.describeNode", {{"backendNodeId", field}},
                 [this, alive = std::weak_ptr(alive_), field](const Json* result) {
                     if (alive.expired()) return;
                     if (!result) return Intercept(State::kIdle);
                     queue_.Add([this, alive, field, node = result->at("node")] {
                         if (!alive.expired()) Show(field, node);
                     });
                 });
}

// The page, and this with it, may be closed while the dialog is open.
void FileChooser::Show(int field, const Json& node) {
    const std::weak_ptr<bool> alive = alive_;
    const FileDialog dialog = DialogFor(node.value("attributes", Json::array()));
    std::vector<std::wstring> paths;
    const HRESULT status = Guard([&] { paths = ChooseFiles(GetAncestor(window_, GA_ROOT), dialog); });
    if (alive.expired()) return;
    if (FAILED(status) || paths.empty()) return Cancel(field);
    state_ = State::kIdle;
    if (dialog.purpose != FileDialog::Purpose::kOpenFolder) return SetFiles(field, paths);
    // The engine does not list a folder while its window is minimized, as that of an inactive page is.
    whenActive_([this, alive, field, paths] {
        if (!alive.expired()) SetFiles(field, paths);
    });
}

void FileChooser::SetFiles(int field, const std::vector<std::wstring>& paths) {
    Json files = Json::array();
    for (const std::wstring& path : paths)
        files.push_back(EnginePath(path));
    target_.Post("DOM.setFileInputFiles", {{"backendNodeId", field}, {"files", std::move(files)}});
}

// Opens the field's dialog again in a state in which the engine cancels it, so that the field gets an event
// from the engine.
void FileChooser::Cancel(int field) {
    target_.Post("DOM.resolveNode", {{"backendNodeId", field}},
                 [this, alive = std::weak_ptr(alive_)](const Json* result) {
                     if (alive.expired()) return;
                     if (!result) return Intercept(State::kIdle);
                     Intercept(State::kCancelling);
                     const auto onReply = [this, alive](const Json* reply) {
                         const bool failed = !reply || reply->contains("exceptionDetails");
                         if (failed && !alive.expired()) Intercept(State::kIdle);
                     };
                     target_.Post("Runtime.callFunctionOn",
                                  {{"objectId", result->at("object").at("objectId")},
                                   {"functionDeclaration", "function() { this.showPicker(); }"},
                                   {"userGesture", true},
                                   {"silent", true}},
                                  onReply);
                 });
}

void FileChooser::Intercept(State state) {
    state_ = state;
    target_.Post("Page.setInterceptFileChooserDialog",
                 {{"enabled", true}, {"cancel", state == State::kCancelling}});
}

}  // namespace tarvik
