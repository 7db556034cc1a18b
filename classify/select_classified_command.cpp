#include "classify/select_classified_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "frame/selection_result.h"
#include "objects/entity_objects.h"
#include "objects/validation.h"
#include "session/session.h"

#include <algorithm>

namespace {

struct ClassifiedAnswers {
    int match = 1; // 1 keeps what is classified, 0 what is not
};

} // namespace

void selectClassified()
{
    const CommandFrame frame;
    if (!frame)
        return;
    EntityList entities;
    pickFirstEntities(entities);
    int& match = session().kept<ClassifiedAnswers>().match;
    if (!askZeroOne(Message::matchPrompt, match) || !gatherIfEmpty(entities, Fallback::askScan))
        return;
    filterEntities(entities);
    if (entities.empty())
        return tellSelected(entities);

    const Description& description = frame.description();
    StoredTables tables(currentStore());
    keepIf(entities, [&](AcDbObjectId entity) {
        const std::vector<OdRecord> records = tables.recordsOf(entity);
        const std::vector<const ObjectDef*> objects =
            objectsOfRecords(description, tables, records);
        const bool classified =
            std::any_of(objects.begin(), objects.end(), [&](const ObjectDef* object) {
                return validateObject(description, tables, records, object->props.name, Values::any,
                                      Fields::all);
            });
        return classified == (match != 0);
    });
    selectAndTell(entities);
}
