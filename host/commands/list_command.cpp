#include "host/commands/list_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/entity_properties.h"
#include "host/commands/entity_records.h"
#include "host/commands/property_text.h"
#include "host/db/entity.h"
#include "host/db/object_pointer.h"
#include "host/edit/command_line.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

namespace host {

namespace {

constexpr std::size_t kLayerColumn = 20; // characters

void printList(const PropertyList& list, std::wstring_view indent)
{
    for (const auto& [name, value] : list)
        print(std::wstring(indent).append(name).append(L": ").append(value).append(L"\n"));
}

void listEntity(const AcDbEntity& entity)
{
    std::wstring line = entity.tags().text(0); // the type, also of what is not understood
    line.resize(std::max(line.size() + 1, kLayerColumn), L' ');
    print(line + L"Layer: " + quotedText(entity.layer()) + L"\n");
    print(L"  Handle = " + fromUtf8(handleText(entity.handle().value())) + L"\n");
    printList(propertiesOf(entity), L"  ");
    for (const EntityRecord& record : recordsOf(entity)) {
        print(L"  Record " + quotedText(record.table) + L"\n");
        printList(record.values, L"    ");
    }
}

} // namespace

void listCommand()
{
    if (!documentOfCommand())
        return;
    const auto entities = entitiesOfCommand();
    if (!entities)
        return;
    for (const AcDbObjectId id : *entities) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity)
            listEntity(*entity);
    }
}

} // namespace host
