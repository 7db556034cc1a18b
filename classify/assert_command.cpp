#include "classify/assert_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "frame/selection_result.h"
#include "objects/record_object.h"
#include "objects/validation.h"
#include "session/session.h"

#include <algorithm>

namespace {

struct AssertAnswers {
    int nonRequired = 0;
};

} // namespace

void selectIllegalValues()
{
    const CommandFrame frame;
    if (!frame)
        return;
    int& nonRequired = session().kept<AssertAnswers>().nonRequired;
    if (!askZeroOne(Message::checkNonRequiredPrompt, nonRequired))
        return;
    EntityList entities;
    pickFirstEntities(entities);
    if (!gatherIfEmpty(entities, Fallback::askScan))
        return;
    filterEntities(entities);
    if (entities.empty())
        return tellSelected(entities);

    const Description& description = frame.description();
    const Fields fields = nonRequired ? Fields::all : Fields::required;
    StoredTables tables(currentStore());
    keepIf(entities, [&](AcDbObjectId entity) {
        const std::vector<OdRecord> records = tables.recordsOf(entity);
        return std::any_of(records.begin(), records.end(), [&](const OdRecord& record) {
            const ObjectDef* const object = objectOfRecord(description, record, tables);
            return object && !validateObject(description, tables, records, object->props.name,
                                             Values::legal, fields);
        });
    });
    selectAndTell(entities);
}
