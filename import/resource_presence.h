#pragma once

#include "host/db/dictionary.h"
#include "host/db/hatch.h"
#include "host/db/object_pointer.h"
#include "host/db/symbol_table.h"
#include "import/resource_kind.h"

#include <memory>
#include <string_view>

// Tells for one kind which names a drawing has. What holds them is open for reading meanwhile.
// Patterns are asked of a hatch that no drawing takes: it knows those of the pattern files, and is
// tried with the predefined type before `otherwise`.
class ResourcePresence {
public:
    ResourcePresence(ResourceKind kind, const AcDbDatabase& database,
                     AcDbHatch::HatchPatternType otherwise = AcDbHatch::kCustomDefined);

    // False where there is nothing to ask; it then has no name.
    bool isOpen() const { return table_ || dictionary_ || hatch_; }
    bool has(std::wstring_view name);

private:
    AcDbObjectPointer<AcDbSymbolTable> table_;
    AcDbObjectPointer<AcDbDictionary> dictionary_;
    AcDbObjectPointer<AcDbHatch> hatch_;
    AcDbHatch::HatchPatternType otherwise_;
};
