#pragma once
// Owns one reference to a COM object.

#include <utility>

#include "parse/core/win32.h"

namespace qmx {

template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    // Takes over the caller's reference.
    explicit ComPtr(Interface* owned) : pointer_(owned) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() {
        if (pointer_ != nullptr) pointer_->Release();
    }

    Interface* Get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    // Where a function stores the reference that it returns; only for an empty pointer.
    Interface** Receive() { return &pointer_; }
    // The same for a function that returns any interface.
    void** ReceiveAny() { return reinterpret_cast<void**>(&pointer_); }
    // Gives the reference up to the caller.
    Interface* Detach() { return std::exchange(pointer_, nullptr); }

private:
    Interface* pointer_ = nullptr;
};

}  // namespace qmx
