#include "tarvik/async_task.h"

#include <thread>

#include "script/object.h"
#include "script/worker_apartment.h"
#include "tarvik/marshaled_object.h"
#include "tests/support/test.h"

// Cases that no member of a plug-in can bring about.
namespace tarvik {
namespace {

TEST(MarshaledObject, ReleasesAnUnusedReference) {
    const ObjectCheck noLeaks;
    const auto function = MakeCom<Recorder>();
    const MarshaledObject dropped(function.Get());
    MarshaledObject replaced(function.Get());
    replaced = MarshaledObject();
    EXPECT_FALSE(MarshaledObject(static_cast<IDispatch*>(nullptr)).Get());
}

TEST(MarshaledObject, ReleasesObjectsThatAFunctionReturns) {
    const WorkerApartment workers;  // the end of the apartment would release leaked references
    const ObjectCheck noLeaks;
    const auto function =
        MakeCom<Recorder>([](const Recorder::Record&) { return Variant::Object(MakeCom<CObject>().Get()); });
    MarshaledObject marshaled(function.Get());
    OnWorker([&] {
        marshaled.Get()();
        marshaled = MarshaledObject();
    });
    EXPECT_EQ(function->calls.at(0).thread, GetCurrentThreadId());
}

TEST(MarshaledObject, FailsCallsAfterItsApartmentHasEnded) {
    MarshaledObject marshaled;
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        marshaled = MarshaledObject(MakeCom<Recorder>().Get());
        CoUninitialize();
    }).join();
    OnWorker([&] { EXPECT_LT(Guard([&] { marshaled.Get()(); }), 0); });
}

// Two workers that use the same object must not share a proxy.
TEST(MarshaledObject, HasItsOwnProxyAndUnwrapsArguments) {
    const ObjectCheck noLeaks;
    const auto context = MakeCom<Recorder>();
    const auto function = MakeCom<Recorder>([&](const Recorder::Record& call) {
        EXPECT_EQ(call.arguments.at(0).pdispVal, context.Get());
        return Variant::Copy(call.arguments[0]);
    });
    MarshaledObject one(function.Get()), other(function.Get());
    MarshaledValue value(Variant::Object(context.Get()));
    OnWorker([&] {
        MarshaledObject first = std::move(one), second = std::move(other);
        MarshaledValue taken = std::move(value);
        EXPECT_NE(first.Get().As<IUnknown>().Get(), second.Get().As<IUnknown>().Get());
        second.Get()(first.Get()(taken.Get()));
    });
    EXPECT_EQ(function->calls.size(), 2u);
}

class Task : public AsyncTask {
  public:
    explicit Task(const ScriptObject& options) : AsyncTask(options) {}

  private:
    HRESULT Work() override { throw std::bad_alloc(); }
};

bool Start(IDispatch* options) {
    return StartTask(options, [](const ScriptObject& given) { return std::make_unique<Task>(given); });
}

TEST(AsyncTask, ReportsFailureAndIgnoresNonFunctionCallbacks) {
    const long before = detail::liveComObjects;
    {
        const auto fail = MakeCom<Recorder>();
        EXPECT_TRUE(Start(OptionObject().Set(L"fail", fail).Set(L"success", 5).Set(L"context", 7)));
        ASSERT_TRUE(PumpUntil([&] { return !fail->calls.empty(); }));
        EXPECT_EQ(fail->Texts()[0], "I4 " + std::to_string(E_OUTOFMEMORY) + ", I4 7");
        EXPECT_TRUE(Start(OptionObject().Set(L"progress", L"text").Set(L"fail", nullptr)));
    }
    EXPECT_TRUE(PumpUntil([&] { return detail::liveComObjects == before; })) << "a task leaks objects";
}

}  // namespace
}  // namespace tarvik
