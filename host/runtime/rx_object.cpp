#include "host/runtime/rx_object.h"

AcRxClass* AcRxObject::desc()
{
    static AcRxClass instance(L"AcRxObject", nullptr, nullptr, nullptr);
    return &instance;
}

bool AcRxObject::isKindOf(const AcRxClass* aClass) const
{
    return isA()->isDerivedFrom(aClass);
}

AcRxClass::AcRxClass(const wchar_t* name, const wchar_t* dxfName, AcRxClass* parent,
                     Factory factory)
    : name_(name), dxfName_(dxfName), parent_(parent), factory_(factory)
{
}

AcRxClass* AcRxClass::desc()
{
    static AcRxClass instance(L"AcRxClass", nullptr, AcRxObject::desc(), nullptr);
    return &instance;
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const
{
    for (const AcRxClass* one = this; one; one = one->parent_) {
        if (one == other)
            return true;
    }
    return false;
}

AcRxObject* AcRxClass::create() const
{
    return factory_ ? factory_() : nullptr;
}
