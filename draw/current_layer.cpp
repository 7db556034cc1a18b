#include "draw/current_layer.h"

#include "host/db/database.h"
#include "host/db/symbol_tables.h"
#include "host/edit/system_variables.h"

namespace {

void makeCurrent(const std::wstring& layer)
{
    resbuf value;
    value.restype = static_cast<short>(RTSTR);
    value.resval.rstring = layer;
    acedSetVar(L"CLAYER", value);
}

std::wstring lockedCurrentLayer()
{
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(
        database ? database->clayer() : AcDbObjectId(), AcDb::kForRead);
    return layer && layer->isLocked() ? layer->name() : std::wstring();
}

} // namespace

UsableCurrentLayer::UsableCurrentLayer(const std::wstring& instead) : before_(lockedCurrentLayer())
{
    if (!before_.empty())
        makeCurrent(instead);
}

UsableCurrentLayer::~UsableCurrentLayer()
{
    if (!before_.empty())
        makeCurrent(before_);
}
