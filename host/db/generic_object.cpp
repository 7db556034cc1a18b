#include "host/db/generic_object.h"

#include "host/db/drawing.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbGenericEntity, AcDbEntity, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbGenericObject, AcDbObject, "")

namespace {

// The name of the record it was read from; without a drawing there is none to ask.
std::string readName(const AcDbObject& object)
{
    if (!object.drawing())
        return {};
    const host::RecordIndex& index = object.drawing()->index;
    return std::string(index.types().name(index[object.stubNumber()].type));
}

} // namespace

std::string AcDbGenericEntity::recordName() const
{
    return readName(*this);
}

std::string AcDbGenericObject::recordName() const
{
    return readName(*this);
}
