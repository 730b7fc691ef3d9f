#pragma once

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// The native objects that a page's script holds. Each has a number, the same for the same object, and a count
// of the references sent to script, which script releases.
class NativeObjects {
  public:
    static constexpr int kExternal = 0;

    // `onManyObjects` is called when the number of objects has doubled: only a garbage collection of script
    // releases them, and each may hold much memory here.
    explicit NativeObjects(std::function<void()> onManyObjects) : onManyObjects_(std::move(onManyObjects)) {}

    void SetExternal(IDispatch* external);

    // Counts one more reference and returns the object's number.
    int AddReference(IUnknown* object);
    void Release(int number, int references);
    void Clear();

    IUnknown* Object(int number) const;
    // False for IDispatchEx objects that declare themselves not callable. Any other object may be a function.
    bool IsCallable(int number) const;

    // Operations of script on an object. They return the object's status, DISP_E_UNKNOWNNAME if it has no
    // such member. `exception` receives the object's description of a failure.
    struct Member {
        int object;
        const std::wstring& name;
    };
    HRESULT Find(const Member& member);
    HRESULT Read(const Member& member, VARIANT* value, EXCEPINFO* exception);
    HRESULT Write(const Member& member, const VARIANT& value, EXCEPINFO* exception);
    HRESULT Call(const Member& member, std::vector<Variant>& arguments, VARIANT* value, EXCEPINFO* exception);
    // Calls (DISPATCH_METHOD) or reads (DISPATCH_PROPERTYGET) the object itself.
    HRESULT CallDefault(int object, WORD flags, std::vector<Variant>& arguments, VARIANT* value,
                        EXCEPINFO* exception);
    HRESULT Delete(const Member& member);
    // In the object's order; empty for objects that cannot be enumerated.
    std::vector<std::wstring> Names(int object) const;
    // Whether script can add members to the object. Then an empty member is a value, not a method.
    bool IsExtensible(int object) const;

  private:
    struct Entry {
        ComPtr<IUnknown> identity;
        ComPtr<IDispatch> dispatch;
        int references = 0;
        std::unordered_map<std::wstring, DISPID> ids;  // by name
    };

    static constexpr size_t kCollectThreshold = 1000;

    ComPtr<IDispatch> Dispatch(int number) const;
    HRESULT IdOf(const Member& member, DISPID* id);

    std::function<void()> onManyObjects_;
    size_t threshold_ = kCollectThreshold;
    std::unordered_map<int, Entry> entries_;
    std::unordered_map<IUnknown*, int> numbers_;
    int last_ = kExternal;
};

}  // namespace tarvik
