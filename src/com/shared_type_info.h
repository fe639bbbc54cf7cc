#pragma once
// The description of a dual interface in the registered type library, loaded when the first call
// needs it and shared by all objects with that interface for as long as one of them holds it.

#include <memory>

#include "com/com_ptr.h"

namespace qmx {

using TypeInfo = ComPtr<ITypeInfo>;

class SharedTypeInfo {
public:
    constexpr explicit SharedTypeInfo(const IID& iid) : iid_(iid) {}

    // Stores the description in `held`, unless it has it already.
    HRESULT Hold(LCID locale, std::shared_ptr<const TypeInfo>& held);

private:
    const IID& iid_;
    SRWLOCK lock_ = SRWLOCK_INIT;
    std::weak_ptr<const TypeInfo> loaded_;
};

}  // namespace qmx
