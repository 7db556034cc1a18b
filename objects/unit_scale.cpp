#include "objects/unit_scale.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "objects/block_definition.h"

#include <iterator>

namespace {

// Metres by INSUNITS code; unitless and unknown codes count as metres.
constexpr double kMetres[] = {
    1.0,   0.0254, 0.305, 1609.344, 0.001, 0.01,  1.0, 1000.0,         2.54e-8,  2.54e-5,  0.914,
    1e-10, 1e-9,   1e-6,  0.1,      10.0,  100.0, 1e9, 149597870700.0, 9.461e15, 3.086e16,
};

double metresPerUnit(int code)
{
    const bool known = code >= 0 && code < static_cast<int>(std::size(kMetres));
    return known ? kMetres[code] : 1.0;
}

} // namespace

double UnitScaleFactor(const AcDbBlockReference& reference)
{
    const AcDbObjectId definition = blockDefinition(reference);
    const AcDbObjectPointer<AcDbBlockTableRecord> block(definition, AcDb::kForRead);
    if (!block || block->blockInsertUnits() == 0)
        return 1.0;
    return metresPerUnit(block->blockInsertUnits()) /
           metresPerUnit(definition.database()->insunits());
}
