#include "classify/stat_command.h"

#include "dialogs/gui_text_box.h"
#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "host/text/wide_format.h"
#include "objects/entity_objects.h"
#include "objects/validation.h"

#include <algorithm>
#include <map>

namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 500;

struct Statistics {
    int entities = 0;
    int unclassified = 0;
    int invalid = 0;                       // an entity as one of its objects
    std::map<const ObjectDef*, int> found; // entities of each object
};

Statistics countObjects(const Description& description, const EntityList& entities)
{
    Statistics counts;
    counts.entities = static_cast<int>(entities.size());
    StoredTables tables(currentStore());
    for (const AcDbObjectId entity : entities) {
        const std::vector<OdRecord> records = tables.recordsOf(entity);
        const auto isValid = [&](const ObjectDef& object, Values values, Fields fields) {
            return validateObject(description, tables, records, object.props.name, values, fields);
        };
        bool classified = false;
        for (const ObjectDef* const object : objectsOfRecords(description, tables, records)) {
            if (!isValid(*object, Values::any, Fields::all))
                continue;
            classified = true;
            ++counts.found[object];
            if (!isValid(*object, Values::legal, Fields::required))
                ++counts.invalid;
        }
        if (!classified)
            ++counts.unclassified;
    }
    return counts;
}

// The lines of the objects have no invalid ones to tell: these show in the total alone.
std::wstring reportOf(const Statistics& counts)
{
    std::vector<std::wstring> lines;
    for (const auto& [object, entities] : counts.found)
        lines.push_back(
            host::format(L"\t%s: %i (%i invalid)", object->props.name.c_str(), entities, 0));
    std::sort(lines.begin(), lines.end());

    std::wstring report =
        host::format(L"Objects: %i (%i unclassified)\n", counts.entities, counts.unclassified);
    report += host::format(L"Classes: %i\n", static_cast<int>(counts.found.size()));
    for (const std::wstring& line : lines)
        report += line + L'\n';
    if (!lines.empty())
        report += L'\n';
    return report + host::format(L"Invalid definitions: %i\n", counts.invalid);
}

} // namespace

void showStatistics()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const std::optional<EntityList> entities = usableEntities(Fallback::askScan);
    if (!entities)
        return;

    GUITextBox box;
    box.title = L"KELMARO_STAT";
    box.SetText(reportOf(countObjects(frame.description(), *entities)));
    box.width = kWidth;
    box.height = kHeight;
    box.DoModal();
}
