#include "script/async_task.h"

#include <thread>

#include "base/status.h"
#include "script/object.h"
#include "script/properties.h"
#include "script/ticket.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(ScriptTicket, TakesACallbackToAnotherThreadOnce) {
    const ObjectCheck nothingLeft;
    const auto function = MakeCom<Recorder>([](const Recorder::Record&) { return Variant::I4(42); });
    Ticket first(function.Get());
    Ticket ticket;
    ticket = std::move(first);
    EXPECT_FALSE(first.Get()) << "a moved ticket has no claim";
    OnWorker([&] {
        Ticket used = std::move(ticket);
        Variant answer;
        const Variant five = Variant::I4(5);
        EXPECT_THAT(CallScriptFunction(used.Get(), {&five}, &answer), HasStatus(S_OK));
        EXPECT_EQ(ValueText(answer), "I4 42");
    });
    EXPECT_THAT(function->Texts(), ElementsAre("I4 5"));
    EXPECT_EQ(function->calls[0].thread, GetCurrentThreadId());
}

TEST(ScriptTicket, LosesNothingWhenItIsDropped) {
    const ObjectCheck nothingLeft;
    const auto function = MakeCom<Recorder>();
    const Ticket dropped(function.Get());
    Ticket replaced(function.Get());
    replaced = Ticket();
    EXPECT_FALSE(Ticket(static_cast<IDispatch*>(nullptr)).Get());
}

TEST(ScriptTicket, FailsEachCallWhenItsThreadIsGone) {
    Ticket ticket;
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        ticket = Ticket(MakeCom<Recorder>().Get());
        CoUninitialize();
    }).join();
    OnWorker([&] { EXPECT_LT(CallScriptFunction(ticket.Get()), 0); });
}

// What the runs of these tests do; script chooses by options. The plug-in is held by the run.
class TestTask : public AsyncTask {
  public:
    TestTask(IDispatch* plugin, const Options& options)
        : AsyncTask(options), plugin_(plugin), boom_(options.Flag(L"boom")) {}

  private:
    HRESULT Work() override {
        const Variant half = Variant::I4(50);
        if (Progress()) CallWithContext(Progress(), half, Context(), nullptr);
        if (boom_) throw std::bad_alloc();
        return S_OK;
    }

    ComPtr<IDispatch> plugin_;
    bool boom_;
};

class AsyncRun : public testing::Test {
  protected:
    OptionObject AllCallbacks() {
        return OptionObject().Set(L"progress", progress_).Set(L"success", success_).Set(L"fail", fail_);
    }

    static bool Start(IDispatch* plugin, IDispatch* options) {
        return StartTask(
            options, [plugin](const Options& given) { return std::make_unique<TestTask>(plugin, given); });
    }

    // Until the worker has let go of everything: then the plug-in is held here alone.
    void Run(const OptionObject& options) {
        const auto plugin = MakeCom<CObject>();
        EXPECT_TRUE(Start(plugin.Get(), options));
        EXPECT_TRUE(PumpUntil([&] { return plugin->AddRef(), plugin->Release() == 1; }));
    }

    void TearDown() override {
        progress_.Reset();
        success_.Reset();
        fail_.Reset();
        EXPECT_TRUE(PumpUntil([&] { return liveComObjects == before_; })) << "something is left of a run";
    }

    const long before_ = liveComObjects;
    ComPtr<Recorder> progress_ = MakeCom<Recorder>();
    ComPtr<Recorder> success_ = MakeCom<Recorder>();
    ComPtr<Recorder> fail_ = MakeCom<Recorder>();
};

TEST_F(AsyncRun, EndsInOneCallWithTheContext) {
    Run(AllCallbacks().Set(L"context", L"mine"));
    EXPECT_THAT(progress_->Texts(), ElementsAre("I4 50, BSTR mine"));
    EXPECT_THAT(success_->Texts(), ElementsAre("BSTR mine"));
    EXPECT_EQ(success_->calls[0].thread, GetCurrentThreadId());
    Run(AllCallbacks().Set(L"boom", true).Set(L"context", 7));
    EXPECT_THAT(fail_->Texts(), ElementsAre("I4 " + std::to_string(E_OUTOFMEMORY) + ", I4 7"));
    EXPECT_EQ(success_->calls.size(), 1u);
}

TEST_F(AsyncRun, TakesWhatIsNoFunctionAsAbsent) {
    OptionObject options;
    options.Set(L"progress", L"text").Set(L"success", nullptr).Set(L"fail", 3).Set(L"boom", true);
    Run(options);
}

// An object that cannot be taken to another thread.
class Rooted : public Recorder {
  public:
    STDMETHODIMP QueryInterface(REFIID, void** out) override { return *out = nullptr, E_ABORT; }
};

TEST_F(AsyncRun, LosesNothingWhenAnObjectCannotTravel) {
    const auto plugin = MakeCom<CObject>();
    EXPECT_FALSE(Start(plugin.Get(), AllCallbacks().Set(L"context", MakeCom<Rooted>())));
    EXPECT_EQ(fail_->calls.size(), 1u);
    EXPECT_THAT(success_->Texts(), IsEmpty());
}

}  // namespace
}  // namespace tarvik
