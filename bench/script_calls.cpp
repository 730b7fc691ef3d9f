// Measures calls from the system's script engine to an object with a member table, and to a minimal
// hand-written object. Prints nanoseconds, without the time of the loop in script.

#include <windows.h>
#include <ole2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cwchar>
#include <limits>
#include <string>

#include "script/dispatch.h"
#include "tarvik/bstr.h"
#include "tests/support/members.h"
#include "tests/support/script_host.h"

namespace tarvik {
namespace {

constexpr size_t kRows = 44;  // like the largest plug-in

class TableObject : public TableDispatch<TableObject> {
  public:
    static constexpr char kClassName[] = "TableObject";
    static std::span<const Member<TableObject>> Members();

    int Add(AnyInt32 left, AnyInt32 right) { return left.value + right.value; }
    Bstr Echo(BSTR text) { return Bstr(Bstr::View(text)); }
    int GetSize() { return 7; }
};

// The look-up of names is linear, so the position of a member matters.
constexpr std::array<Member<TableObject>, kRows> MakeRows() {
    std::array<Member<TableObject>, kRows> rows{};
    for (size_t i = 0; i < kRows; ++i)
        rows[i] = Method<&TableObject::Add>(L"anotherMember", static_cast<DISPID>(i) - 10000);
    rows[0].name = L"addFirst";
    rows[20] = Method<&TableObject::Echo>(L"echo", rows[20].id);
    rows[21] = ReadOnly<&TableObject::GetSize>(L"size", rows[21].id);
    rows[22].name = L"add";
    rows[kRows - 1].name = L"addLast";
    return rows;
}
constexpr auto kMembers = MakeRows();

std::span<const Member<TableObject>> TableObject::Members() {
    return kMembers;
}

// Three members with the checks that they need to be safe, and nothing else.
class PlainObject : public ComObject<IDispatch> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        if (wcscmp(names[0], L"add") == 0) return ids[0] = kAdd, S_OK;
        if (wcscmp(names[0], L"echo") == 0) return ids[0] = kEcho, S_OK;
        if (wcscmp(names[0], L"size") == 0) return ids[0] = kSize, S_OK;
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        const VARIANT* reversed = parameters->rgvarg;
        switch (id) {
            case kAdd:
                if (!(flags & DISPATCH_METHOD) || parameters->cArgs != 2) return E_NOTIMPL;
                if (reversed[0].vt != VT_I4 || reversed[1].vt != VT_I4) return E_INVALIDARG;
                return Return(result, reversed[1].lVal + reversed[0].lVal);
            case kEcho:
                if (!(flags & DISPATCH_METHOD) || parameters->cArgs != 1) return E_NOTIMPL;
                if (reversed[0].vt != VT_BSTR) return E_INVALIDARG;
                if (!result) return S_OK;
                result->bstrVal = SysAllocStringLen(reversed[0].bstrVal, SysStringLen(reversed[0].bstrVal));
                result->vt = VT_BSTR;
                return S_OK;
            case kSize:
                return flags & DISPATCH_PROPERTYGET ? Return(result, 7) : E_NOTIMPL;
            default:
                return E_NOTIMPL;
        }
    }

  private:
    enum : DISPID { kAdd = 1, kEcho, kSize };

    static HRESULT Return(VARIANT* result, LONG value) {
        if (!result) return S_OK;
        result->lVal = value;
        result->vt = VT_I4;
        return S_OK;
    }
};

// The same statement for each object.
struct Case {
    const char* what;
    const wchar_t* plain;
    const wchar_t* table;
};
constexpr Case kCases[] = {
    {"method, 2 integers, row 1 of 44", L"x = plain.add(i, 1)", L"x = table.addFirst(i, 1)"},
    {"method, 2 integers, row 23", L"x = plain.add(i, 1)", L"x = table.add(i, 1)"},
    {"method, 2 integers, row 44", L"x = plain.add(i, 1)", L"x = table.addLast(i, 1)"},
    {"method, 1 string, row 21", L"x = plain.echo('some text')", L"x = table.echo('some text')"},
    {"property, row 22", L"x = plain.size", L"x = table.size"},
};
constexpr int kCalls = 10'000;
constexpr int kRounds = 40;

// The shortest of several rounds, because other programs can only prolong a round.
class Shortest {
  public:
    template <class Work>
    void Time(Work&& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
        nanoseconds_ = std::min(nanoseconds_, spent.count());
    }
    double PerCall() const { return nanoseconds_ / kCalls; }

  private:
    double nanoseconds_ = std::numeric_limits<double>::max();
};

void Define(ScriptHost& engine, const wchar_t* name, const wchar_t* statement) {
    engine.Run((std::wstring(L"function ") + name +
                L"(n) { var plain = external.plain, table = external.table, x;"
                L"for (var i = 0; i < n; i++) { " +
                statement + L"; } return x; }")
                   .c_str());
}

void MeasureFromScript(ScriptHost& engine, const Case& what) {
    Define(engine, L"emptyLoop", L"");
    Define(engine, L"plainLoop", what.plain);
    Define(engine, L"tableLoop", what.table);
    const std::wstring count = L"(" + std::to_wstring(kCalls) + L")";
    Shortest empty, plain, table;
    for (int round = 0; round < kRounds; ++round) {
        empty.Time([&] { engine.Evaluate((L"emptyLoop" + count).c_str()); });
        plain.Time([&] { engine.Evaluate((L"plainLoop" + count).c_str()); });
        table.Time([&] { engine.Evaluate((L"tableLoop" + count).c_str()); });
    }
    const double byHand = plain.PerCall() - empty.PerCall();
    const double byTable = table.PerCall() - empty.PerCall();
    std::printf("%-34s %9.0f %9.0f %7.2f\n", what.what, byHand, byTable, byTable / byHand);
}

// Measures the two steps of a call, GetIDsOfNames and Invoke, without script.
void MeasureSteps(IDispatch* object, const char* what, const wchar_t* name) {
    VARIANT reversed[2] = {};
    reversed[0].vt = reversed[1].vt = VT_I4;
    DISPPARAMS parameters = {reversed, nullptr, 2, 0};
    DISPID id = DISPID_UNKNOWN;
    Shortest lookUp, invoke;
    for (int round = 0; round < kRounds; ++round) {
        lookUp.Time([&] {
            for (int i = 0; i < kCalls; ++i)
                IdOf(object, name, &id);
        });
        invoke.Time([&] {
            for (int i = 0; i < kCalls; ++i) {
                Variant result;
                object->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr);
            }
        });
    }
    std::printf("%-34s %9.0f %9.0f\n", what, lookUp.PerCall(), invoke.PerCall());
}

int Run() {
    const auto plain = MakeCom<PlainObject>();
    const auto table = MakeCom<TableObject>();
    OptionObject both;
    both.Set(L"plain", plain.Get()).Set(L"table", table.Get());
    ScriptHost engine(both);
    std::printf("%-34s %9s %9s %7s\n", "ns per call", "by hand", "by table", "ratio");
    for (const Case& what : kCases)
        MeasureFromScript(engine, what);
    std::printf("\n%-34s %9s %9s\n", "ns per step", "look-up", "invoke");
    MeasureSteps(plain.Get(), "by hand", L"add");
    MeasureSteps(table.Get(), "by table, row 1", L"addFirst");
    MeasureSteps(table.Get(), "by table, row 23", L"add");
    MeasureSteps(table.Get(), "by table, row 44", L"addLast");
    return engine.Errors() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace tarvik

int wmain() {
    OleInitialize(nullptr);
    const int result = tarvik::Run();
    OleUninitialize();
    return result;
}
