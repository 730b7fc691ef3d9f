#include "script/async.h"

#include <shlwapi.h>
#include <combaseapi.h>

#include <memory>

#include "base/status.h"
#include "script/object.h"
#include "script/properties.h"
#include "script/ticket.h"

namespace tarvik {

namespace {

// Keys of the parameter object, the one argument of a worker. Tickets are kept in it as unknowns.
constexpr const wchar_t* kSelf = L"this";
constexpr const wchar_t* kOptions = L"ori";
constexpr const wchar_t* kContext = L"context";
constexpr const wchar_t* kObjects[] = {L"progress", L"success", L"fail", kContext};

void PutTicket(CObject* parameters, const wchar_t* key, IDispatch* object) {
    Ticket ticket(object);
    ThrowIfFailed(SetScriptProperty(parameters, key, Variant::Unknown(ticket.Stream())));
    ticket.Detach();
}

ComPtr<IDispatch> TakeTicket(CObject* parameters, const wchar_t* key) {
    Variant value = ReadScriptProperty(parameters, key);
    if (!value.Is(VT_UNKNOWN)) return nullptr;
    return Ticket(Query<IStream>(value.punkVal)).Redeem();
}

// What goes to the worker. Tickets that nobody took out are redeemed at its end, so that no object's
// reference is lost with its stream; one that was taken out has nothing more to give.
struct Start {
    explicit Start(const AsyncMember& toRun) : member(toRun), parameters(MakeCom<CObject>()) {}
    ~Start() {
        TakeTicket(parameters.Get(), kOptions);
        for (const wchar_t* key : kObjects)
            TakeTicket(parameters.Get(), key);
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    const AsyncMember& member;
    const ComPtr<CObject> parameters;
};

void PutParameters(CObject* parameters, IDispatch* self, IDispatch* options) {
    ThrowIfFailed(SetScriptProperty(parameters, kSelf, Variant::Object(self)));
    PutTicket(parameters, kOptions, options);
    for (const wchar_t* key : kObjects) {
        const Variant value = ReadScriptProperty(options, key);
        if (value.Is(VT_DISPATCH) && value.pdispVal) PutTicket(parameters, key, value.pdispVal);
    }
}

AsyncTask OpenTask(CObject* parameters) {
    const Variant self = ReadScriptProperty(parameters, kSelf);
    AsyncTask task{ComPtr<IDispatch>(self.pdispVal),    Options(TakeTicket(parameters, kOptions).Get()),
                   TakeTicket(parameters, L"progress"), TakeTicket(parameters, L"success"),
                   TakeTicket(parameters, L"fail"),     Variant()};
    const auto contextObject = TakeTicket(parameters, kContext);
    task.context = contextObject ? Variant::Object(contextObject.Get()) : task.options.Value(kContext);
    return task;
}

HRESULT RunTask(const AsyncMember& member, CObject* parameters) noexcept {
    return Guard([&] {
        const AsyncTask task = OpenTask(parameters);
        const HRESULT status = Guard([&] { return member.work(task); });
        if (status == S_OK) {
            if (task.success) member.succeed(task);
        } else if (status != kEndInSilence && task.fail) {
            member.fail(task, status);
        }
        return status;
    });
}

DWORD WINAPI Work(void* argument) {
    std::unique_ptr<Start> start(static_cast<Start*>(argument));
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    const HRESULT status = RunTask(start->member, start->parameters.Get());
    start.reset();
    if (SUCCEEDED(apartment)) CoUninitialize();
    return static_cast<DWORD>(status);
}

}  // namespace

void SucceedWithContext(const AsyncTask& task) {
    CallScriptFunction(task.success.Get(), {&task.context});
}

void StartAsync(const AsyncMember& member, IDispatch* self, IDispatch* options) {
    auto start = std::make_unique<Start>(member);
    PutParameters(start->parameters.Get(), self, options);
    if (SHCreateThread(Work, start.get(), 0, nullptr)) start.release();
}

}  // namespace tarvik
