#include "classify/select_conforming_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "frame/selection_result.h"
#include "objects/conformity.h"
#include "objects/record_object.h"
#include "objects/validation.h"
#include "session/session.h"

#include <algorithm>

namespace {

// Answers, kept from run to run; each command has its own.
struct Answers {
    int useProperties = 1; // the look
    int useObjects = 1;    // the records
    int match = 1;         // 1 keeps what passes, 0 what fails
};
struct OneObjectAnswers : Answers {};
struct AllObjectsAnswers : Answers {};

// False if the command ends: cancelled, or nothing to test.
bool ask(Answers& answers)
{
    return askZeroOne(Message::usePropertiesPrompt, answers.useProperties) &&
           askZeroOne(Message::useObjectsPrompt, answers.useObjects) &&
           (answers.useProperties || answers.useObjects) &&
           askZeroOne(Message::matchPrompt, answers.match);
}

// Gathers, keeps what the test says, selects.
template <class Test> void selectWhere(Test test)
{
    std::optional<EntityList> entities = usableEntities(Fallback::askScan);
    if (!entities)
        return;
    if (entities->empty())
        return tellSelected(*entities);
    StoredTables tables(currentStore());
    keepIf(*entities, [&](AcDbObjectId entity) { return test(tables, entity); });
    selectAndTell(*entities);
}

bool passesAs(const Description& description, StoredTables& tables, AcDbObjectId entity,
              const std::wstring& name, const Answers& answers)
{
    if (answers.useObjects &&
        !validateObject(description, tables, entity, name, Values::any, Fields::all))
        return false;
    return !answers.useProperties || conforms(description, entity, name);
}

// One passing record is enough; an entity without records never passes.
bool someRecordPasses(const Description& description, StoredTables& tables, AcDbObjectId entity,
                      const Answers& answers)
{
    const std::vector<OdRecord> records = tables.recordsOf(entity);
    return std::any_of(records.begin(), records.end(), [&](const OdRecord& record) {
        const ObjectDef* const object = objectOfRecord(description, record, tables);
        if (!object)
            return false;
        const std::wstring& name = object->props.name;
        if (answers.useProperties && !conforms(description, entity, name))
            return false;
        return !answers.useObjects ||
               validateObject(description, tables, records, name, Values::any, Fields::all);
    });
}

} // namespace

void selectByConformity()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const std::optional<std::wstring> name = askObjectName();
    Answers& answers = session().kept<OneObjectAnswers>();
    if (!name || !ask(answers))
        return;
    const bool match = answers.match != 0;
    selectWhere([&](StoredTables& tables, AcDbObjectId entity) {
        return passesAs(frame.description(), tables, entity, *name, answers) == match;
    });
}

void selectAllByConformity()
{
    const CommandFrame frame;
    if (!frame)
        return;
    Answers& answers = session().kept<AllObjectsAnswers>();
    if (!ask(answers))
        return;
    const bool match = answers.match != 0;
    selectWhere([&](StoredTables& tables, AcDbObjectId entity) {
        return someRecordPasses(frame.description(), tables, entity, answers) == match;
    });
}
