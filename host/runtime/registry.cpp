#include "host/runtime/registry.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

AcRxObject* AcRxDictionary::at(std::wstring_view key) const
{
    const auto found = objects_.find(key);
    return found == objects_.end() ? nullptr : found->second;
}

AcRxObject* AcRxDictionary::atPut(std::wstring_view key, AcRxObject* object)
{
    if (!object)
        return remove(key);
    AcRxObject*& place = objects_[std::wstring(key)];
    AcRxObject* former = place;
    place = object;
    return former;
}

AcRxObject* AcRxDictionary::remove(std::wstring_view key)
{
    const auto found = objects_.find(key);
    if (found == objects_.end())
        return nullptr;
    AcRxObject* former = found->second;
    objects_.erase(found);
    return former;
}

AcRxDictionary* acrxSysRegistry()
{
    static AcRxDictionary registry;
    return &registry;
}
