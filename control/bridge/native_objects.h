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

// The native objects that a page's script holds. Script knows each by a number, the same for the same object,
// and says how many of the references that it was given it no longer needs.
class NativeObjects {
  public:
    static constexpr int kExternal = 0;

    // Called now and then when script has been given many objects: those that it has dropped are found by its
    // next collection of garbage only, while they may hold much on this side.
    explicit NativeObjects(std::function<void()> onMany) : onMany_(std::move(onMany)) {}

    void SetExternal(IDispatch* external);

    // Counts one more reference given to script.
    int Give(IUnknown* object);
    void Release(int number, int references);
    void Clear();

    IUnknown* Object(int number) const;
    // Data is an object to script; whatever else may be a function too, and script can try.
    bool IsCallable(int number) const;

    // What script does with an object. Statuses are those of the object; DISP_E_UNKNOWNNAME from it for a
    // name that it does not have. `exception` receives what a failed object tells about it.
    struct Member {
        int object;
        const std::wstring& name;
    };
    HRESULT Find(const Member& member);  // the status of a look-up
    HRESULT Read(const Member& member, VARIANT* value, EXCEPINFO* exception);
    HRESULT Write(const Member& member, const VARIANT& value, EXCEPINFO* exception);
    HRESULT Call(const Member& member, std::vector<Variant>& arguments, VARIANT* value, EXCEPINFO* exception);
    // The object itself, called (DISPATCH_METHOD) or read (DISPATCH_PROPERTYGET).
    HRESULT CallDefault(int object, WORD flags, std::vector<Variant>& arguments, VARIANT* value,
                        EXCEPINFO* exception);
    HRESULT Delete(const Member& member);
    // Of objects that tell; in the object's own order.
    std::vector<std::wstring> Names(int object) const;
    // Whether the object is data that script can extend, whose empty members are values.
    bool IsExtensible(int object) const;

  private:
    struct Entry {
        ComPtr<IUnknown> identity;
        ComPtr<IDispatch> dispatch;
        int references = 0;
        std::unordered_map<std::wstring, DISPID> ids;  // names are looked up once
    };

    static constexpr size_t kMany = 1000;

    ComPtr<IDispatch> Dispatch(int number) const;
    HRESULT IdOf(const Member& member, DISPID* id);

    std::function<void()> onMany_;
    size_t many_ = kMany;
    std::unordered_map<int, Entry> entries_;
    std::unordered_map<IUnknown*, int> numbers_;
    int last_ = kExternal;
};

}  // namespace tarvik
