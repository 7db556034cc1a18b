#include "import/resource_presence.h"

#include "host/db/database.h"

ResourcePresence::ResourcePresence(ResourceKind kind, const AcDbDatabase& database,
                                   AcDbHatch::HatchPatternType otherwise)
    : otherwise_(otherwise)
{
    if (kind == ResourceKind::pattern)
        hatch_.create();
    else if (isSymbolKind(kind))
        table_.open(ownerOf(kind, database), AcDb::kForRead);
    else
        dictionary_.open(ownerOf(kind, database), AcDb::kForRead);
}

bool ResourcePresence::has(std::wstring_view name)
{
    if (table_)
        return table_->has(name);
    if (dictionary_)
        return dictionary_->has(name);
    return hatch_ && (hatch_->setPattern(AcDbHatch::kPreDefined, name) == Acad::eOk ||
                      hatch_->setPattern(otherwise_, name) == Acad::eOk);
}
