#pragma once
// What all COM objects of the module share: identity, reference count, aggregation, module lock.

#include <atomic>
#include <new>
#include <type_traits>

#include "com/com_ptr.h"
#include "com/module.h"

namespace qmx {

// An object with these interfaces besides IUnknown.
//
// Within an aggregate the interfaces speak for the outer object: their IUnknown methods pass on to
// it.  Only the inner unknown, which the outer object holds, speaks for this object and counts its
// references.  An object that is no part of another is its own outer object.
template <class... Interfaces>
class ComObject : public Interfaces... {
public:
    ComObject(CQMExifModule& module, IUnknown* outer)
        : lock_(module.locks()), inner_(*this), outer_(outer != nullptr ? outer : &inner_) {}
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) noexcept override {
        return outer_->QueryInterface(iid, out);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return outer_->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return outer_->Release(); }

    IUnknown* inner() { return &inner_; }

protected:
    virtual ~ComObject() = default;

private:
    class Inner final : public IUnknown {
    public:
        explicit Inner(ComObject& object) : object_(object) {}

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) noexcept override {
            if (out == nullptr) return E_POINTER;
            IUnknown* found = iid == __uuidof(IUnknown) ? this : object_.Find(iid);
            *out = found;
            if (found == nullptr) return E_NOINTERFACE;
            found->AddRef();
            return S_OK;
        }
        ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
        ULONG STDMETHODCALLTYPE Release() noexcept override {
            const ULONG left = --references_;
            if (left == 0) {
                // What the destructor releases may reach back here; that must not end it twice.
                references_ = kEnding;
                delete &object_;
            }
            return left;
        }

    private:
        static constexpr ULONG kEnding = 0x40000000;

        ComObject& object_;
        std::atomic<ULONG> references_ = 1;
    };

    template <class Interface>
    static bool Answers(REFIID iid) {
        if constexpr (std::is_base_of_v<IDispatch, Interface>)
            if (iid == __uuidof(IDispatch)) return true;
        return iid == __uuidof(Interface);
    }

    template <class Interface>
    bool Take(REFIID iid, IUnknown*& found) {
        if (!Answers<Interface>(iid)) return false;
        found = static_cast<Interface*>(this);
        return true;
    }

    // An interface pointer and its IUnknown are one address.
    IUnknown* Find(REFIID iid) {
        IUnknown* found = nullptr;
        static_cast<void>((Take<Interfaces>(iid, found) || ...));
        return found;
    }

    // The lock is the last to go, when nothing of the object is left to run.
    const ModuleLock lock_;
    Inner inner_;
    IUnknown* const outer_;
};

// Makes an object and returns one of its interfaces.
template <class Class>
HRESULT CreateObject(CQMExifModule& module, IUnknown* outer, REFIID iid, void** out) {
    auto* object = new (std::nothrow) Class(module, outer);
    if (object == nullptr) return E_OUTOFMEMORY;
    const ComPtr<IUnknown> inner(object->inner());
    return inner->QueryInterface(iid, out);
}

}  // namespace qmx
