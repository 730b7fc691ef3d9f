#pragma once

#include <windows.h>
#include <unknwn.h>

#include <atomic>
#include <type_traits>

namespace tarvik {

// The number of ComObject instances alive in the process; tests of object lifetimes compare it.
inline std::atomic<long> liveComObjects{0};

// An entry of ComObject's list: derive from Class, and answer these interfaces with it. For interfaces that
// stand on another one, As<IDispatchEx, IDispatchEx, IDispatch>, and for bases that implement one.
template <class Class, class... Interfaces>
struct As;

namespace detail {

template <class Entry>
struct InterfaceEntry {
    using Interface = Entry;
    template <class Object>
    static void* Find(Object* object, REFIID iid) {
        return iid == __uuidof(Entry) ? static_cast<Entry*>(object) : nullptr;
    }
};

template <class Class, class... Interfaces>
struct InterfaceEntry<As<Class, Interfaces...>> {
    using Interface = Class;
    template <class Object>
    static void* Find(Object* object, REFIID iid) {
        return ((iid == __uuidof(Interfaces)) || ...) ? static_cast<Class*>(object) : nullptr;
    }
};

template <class First, class...>
struct FirstOf {
    using Type = First;
};

}  // namespace detail

// Base of every COM object made here: count and QueryInterface from a list of interfaces, the first of which
// is the identity. Objects start with a count of 1 (see MakeCom). The count is interlocked: some plug-ins
// and streams are kept alive by worker threads.
template <class... Entries>
class ComObject : public detail::InterfaceEntry<Entries>::Interface... {
  public:
    using Identity = typename detail::InterfaceEntry<typename detail::FirstOf<Entries...>::Type>::Interface;

    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = Find(iid);
        if (!*out) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

    IUnknown* AsUnknown() { return static_cast<Identity*>(this); }

  protected:
    ComObject() { ++liveComObjects; }
    virtual ~ComObject() { --liveComObjects; }

    // The interface's pointer without a reference, or null. Override to add what the list cannot say.
    virtual void* Find(REFIID iid) {
        if (iid == __uuidof(IUnknown)) return AsUnknown();
        void* found = nullptr;
        ((found = detail::InterfaceEntry<Entries>::Find(this, iid)) || ...);
        return found;
    }

  private:
    std::atomic<ULONG> count_{1};
};

}  // namespace tarvik
