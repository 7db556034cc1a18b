#include "host/commands/current_properties.h"

#include "host/db/entity.h"
#include "host/edit/system_variables.h"

namespace host {

namespace {

std::wstring textVariable(const wchar_t* name)
{
    resbuf value;
    return acedGetVar(name, value) == RTNORM ? value.resval.rstring : std::wstring();
}

} // namespace

void applyCurrentProperties(AcDbEntity& entity)
{
    entity.setLayer(textVariable(L"CLAYER"));
    entity.setColorIndex(
        static_cast<std::uint16_t>(integerVariable(L"CECOLOR", AcCmColor::kByLayerIndex)));
    entity.setLinetype(textVariable(L"CELTYPE"));
    entity.setLinetypeScale(realVariable(L"CELTSCALE", 1.0));
    entity.setLineWeight(integerVariable(L"CELWEIGHT", AcDb::kLnWtByLayer));
}

} // namespace host
