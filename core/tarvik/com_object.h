#pragma once

#include <windows.h>
#include <unknwn.h>

#include <atomic>
#include <type_traits>

namespace tarvik {

// An entry in the list of ComObject: the object derives from Class, and returns it for these interfaces.
// Needed for an interface that derives from another one, As<IDispatchEx, IDispatchEx, IDispatch>, and for a
// Class that implements interfaces.
template <class Class, class... Interfaces>
struct As;

namespace detail {

// The number of ComObject instances in this module; tests compare it to find leaks.
inline std::atomic<long> liveComObjects{0};

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

// The base of a COM object: implements IUnknown for a list of interfaces, the first of which is the identity
// of the object. An entry is an interface, or As<...>. Create objects with MakeCom (tarvik/com_ptr.h). The
// reference count is atomic; the last Release destroys the object, on the thread that calls it.
template <class... Entries>
class ComObject : public detail::InterfaceEntry<Entries>::Interface... {
  public:
    using Identity = typename detail::InterfaceEntry<typename detail::FirstOf<Entries...>::Type>::Interface;

    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = FindInterface(iid);
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

    // The identity, without a further reference.
    IUnknown* AsUnknown() { return static_cast<Identity*>(this); }

  protected:
    ComObject() { ++detail::liveComObjects; }
    virtual ~ComObject() { --detail::liveComObjects; }

    // A pointer to the interface, without a further reference; null if the object does not have it. Override
    // this for interfaces that the list cannot express.
    virtual void* FindInterface(REFIID iid) {
        if (iid == __uuidof(IUnknown)) return AsUnknown();
        void* found = nullptr;
        ((found = detail::InterfaceEntry<Entries>::Find(this, iid)) || ...);
        return found;
    }

  private:
    std::atomic<ULONG> count_{1};
};

}  // namespace tarvik
