#include "host/commands/attsync_command.h"

#include "host/commands/attribute_sync.h"
#include "host/commands/command_entities.h"
#include "host/commands/reference_attributes.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dynamic_block.h"
#include "host/db/object_pointer.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/edit/prompts.h"
#include "host/edit/selection_set.h"

#include <algorithm>

namespace host {

namespace {

std::wstring nameOf(AcDbObjectId block)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    return record ? record->name() : std::wstring();
}

void listBlocks(const AcDbDatabase& database)
{
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
    if (!table)
        return;
    print(L"Blocks with attributes:\n");
    for (const auto each = table->newIterator(); !each->done(); each->step()) {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(each->getRecordId(), AcDb::kForRead);
        if (block && !block->isLayout() && !block->isAnonymous() &&
            block->hasAttributeDefinitions())
            print(L"    \"" + block->name() + L"\"\n");
    }
}

AcDbObjectId askName(const AcDbDatabase& database)
{
    for (;;) {
        std::wstring name;
        if (acedGetString(1, L"Enter block name to synchronize or [?]: ", name) != RTNORM ||
            name.empty())
            return {};
        if (name == L"?") {
            listBlocks(database);
            continue;
        }
        if (name.size() > 1 && name.front() == L'"' && name.back() == L'"')
            name = name.substr(1, name.size() - 2);
        const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
        AcDbObjectId block;
        if (table && table->getAt(name, block) == Acad::eOk)
            return block;
        print(L"Cannot find block \"" + name + L"\".\n");
        return {};
    }
}

AcDbObjectId askReference()
{
    for (;;) {
        ads_name picked{};
        ads_point at{};
        AcDbObjectId id;
        const int outcome = acedEntSel(L"Select a block: ", picked, at);
        if (outcome != RTNORM || acdbGetObjectId(id, picked) != Acad::eOk)
            return {};
        const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
        if (!reference) {
            print(L"That is not a block.\n");
            continue;
        }
        const AcDbObjectId block =
            AcDbDynBlockReference(reference.object()).dynamicBlockTableRecord();
        std::wstring answer;
        acedInitGet(0, L"Yes No");
        const int confirmed = acedGetKword(
            (L"ATTSYNC block " + nameOf(block) + L"? [Yes/No] <Yes>: ").c_str(), answer);
        if (confirmed == RTNONE || (confirmed == RTNORM && answer == L"Yes"))
            return block;
        if (confirmed != RTNORM)
            return {};
    }
}

// The block that the user means; a null id when there is nothing to do.
AcDbObjectId askBlock(const AcDbDatabase& database)
{
    for (;;) {
        std::wstring option;
        acedInitGet(0, L"? Name Select");
        const int outcome = acedGetKword(L"Enter an option [?/Name/Select] <Select>: ", option);
        if (outcome == RTNONE || (outcome == RTNORM && option == L"Select"))
            return askReference();
        if (outcome != RTNORM)
            return {};
        if (option == L"Name")
            return askName(database);
        listBlocks(database);
    }
}

bool hasAttributes(AcDbObjectId reference)
{
    const AcDbObjectPointer<AcDbBlockReference> open(reference, AcDb::kForRead);
    return open && !open->attributes().empty();
}

} // namespace

void attsyncCommand()
{
    const AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    const AcDbObjectId block = askBlock(*document->database());
    if (block.isNull())
        return;
    const std::vector<AcDbObjectId> references = referencesOfBlock(block);
    if (variableDefinitions(block).empty() &&
        std::none_of(references.begin(), references.end(), hasAttributes)) {
        print(L"Block \"" + nameOf(block) + L"\" has no attributes.\n");
        return;
    }
    const SyncOutcome outcome = syncAttributes(block);
    if (outcome.locked == 1)
        print(L"1 was on a locked layer.\n");
    else if (outcome.locked > 1)
        acutPrintf(L"%d were on a locked layer.\n", outcome.locked);
}

} // namespace host
