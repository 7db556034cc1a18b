#include "description/description.h"

#include "host/text/case_mapping.h"

const ObjectDef* Description::findObject(std::wstring_view name) const
{
    const auto found = objects.find(host::lowerCased(name));
    return found == objects.end() ? nullptr : &found->second;
}

const GraphicProps* Description::findProps(std::wstring_view name) const
{
    const ObjectDef* object = findObject(name);
    return object ? &object->props : nullptr;
}
