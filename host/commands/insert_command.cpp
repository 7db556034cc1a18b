#include "host/commands/insert_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/reference_attributes.h"
#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/database_defaults.h"
#include "host/edit/command_engine.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/edit/prompts.h"
#include "host/edit/system_variables.h"
#include "host/edit/typed_values.h"
#include "host/files/paths.h"
#include "host/text/case_mapping.h"

#include <iterator>
#include <optional>

// The sequence: name, insertion point (before it any of the presets), scale, rotation, then the
// value of each attribute that has one, then those to be verified once more. A cancel anywhere
// leaves the drawing as it was.

namespace host {

namespace {

struct Block {
    AcDbObjectId id;
    std::wstring name;
    bool uniform = false; // one scale for all axes
    double unitScale = 1.0;
};

// What the user has settled; a preset takes the prompt for it away.
struct Placement {
    AcGePoint3d point;
    std::optional<double> scales[3];
    std::optional<double> rotation; // radians
};

struct AttributeValue {
    AcDbObjectId definition;
    std::wstring prompt;
    std::wstring value;
    bool verifies = false;
};

// Metres by INSUNITS code; other codes are no unit.
constexpr double kMetres[] = {0.0,
                              0.0254,
                              0.3048,
                              1609.344,
                              0.001,
                              0.01,
                              1.0,
                              1000.0,
                              2.54e-8,
                              2.54e-5,
                              0.9144,
                              1e-10,
                              1e-9,
                              1e-6,
                              0.1,
                              10.0,
                              100.0,
                              1e9,
                              1.495978707e11,
                              9.4607304725808e15,
                              3.0856775814913673e16};

double unitScale(int from, int to)
{
    const auto metres = [](int code) {
        return code > 0 && code < static_cast<int>(std::size(kMetres)) ? kMetres[code] : 0.0;
    };
    return metres(from) > 0.0 && metres(to) > 0.0 ? metres(from) / metres(to) : 1.0;
}

std::wstring lastInserted()
{
    resbuf value;
    return acedGetVar(L"INSNAME", value) == RTNORM ? value.resval.rstring : std::wstring();
}

void keepInserted(const std::wstring& name)
{
    resbuf value;
    value.restype = static_cast<short>(RTSTR);
    value.resval.rstring = name;
    acedSetVar(L"INSNAME", value);
}

void listBlocks(AcDbDatabase& database)
{
    std::wstring pattern;
    if (acedGetString(0, L"Enter block(s) to list <*>: ", pattern) != RTNORM)
        return;
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
    if (!table)
        return;
    print(L"Defined blocks.\n");
    for (const auto each = table->newIterator(); !each->done(); each->step()) {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(each->getRecordId(), AcDb::kForRead);
        if (block && !block->isLayout() && !block->isAnonymous() &&
            (pattern.empty() || wildcardMatches(block->name(), pattern)))
            print(L"    \"" + block->name() + L"\"\n");
    }
}

std::optional<Block> findBlock(AcDbDatabase& database, const std::wstring& name)
{
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
    Block found;
    if (!table || table->getAt(name, found.id) != Acad::eOk)
        return std::nullopt;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(found.id, AcDb::kForRead);
    if (!block || block->isLayout())
        return std::nullopt;
    found.name = block->name();
    found.uniform = block->blockScaling() == AcDbBlockTableRecord::kUniform;
    found.unitScale = unitScale(block->blockInsertUnits(), database.insunits());
    return found;
}

std::optional<Block> askBlock(AcDbDatabase& database)
{
    const std::wstring last = lastInserted();
    const std::wstring prompt =
        L"Enter block name or [?]" + (last.empty() ? last : L" <" + last + L">") + L": ";
    std::wstring name;
    if (acedGetString(0, prompt.c_str(), name) != RTNORM)
        return std::nullopt;
    if (name == L"?") {
        listBlocks(database);
        return std::nullopt;
    }
    if (name.empty())
        name = last;
    std::optional<Block> block = findBlock(database, name);
    if (!block)
        print(L"Cannot find block \"" + name + L"\".\n");
    return block;
}

// Enter alone is `fallback`.
bool askFactor(const wchar_t* prompt, double fallback, std::optional<double>& factor)
{
    double value = fallback;
    acedInitGet(RSG_NOZERO, nullptr);
    const int outcome = acedGetReal(prompt, value);
    if (outcome != RTNORM && outcome != RTNONE)
        return false;
    factor = value;
    return true;
}

bool askRotation(const ads_point* base, std::optional<double>& rotation)
{
    double value = 0.0;
    const int outcome = acedGetAngle(base, L"Specify rotation angle <0>: ", value);
    if (outcome != RTNORM && outcome != RTNONE)
        return false;
    rotation = value;
    return true;
}

bool askPreset(const std::wstring& keyword, Placement& placement)
{
    if (keyword == L"Rotate")
        return askRotation(nullptr, placement.rotation);
    if (keyword == L"X")
        return askFactor(L"Specify X scale factor <1>: ", 1.0, placement.scales[0]);
    if (keyword == L"Y")
        return askFactor(L"Specify Y scale factor <1>: ", 1.0, placement.scales[1]);
    if (keyword == L"Z")
        return askFactor(L"Specify Z scale factor <1>: ", 1.0, placement.scales[2]);
    if (!askFactor(L"Specify scale factor for XYZ axes <1>: ", 1.0, placement.scales[0]))
        return false;
    placement.scales[1] = placement.scales[2] = placement.scales[0];
    return true;
}

bool askPoint(const Block& block, Placement& placement)
{
    const wchar_t* const keywords = block.uniform ? L"Scale Rotate" : L"Scale X Y Z Rotate";
    const wchar_t* const prompt = block.uniform
                                      ? L"Specify insertion point or [Scale/Rotate]: "
                                      : L"Specify insertion point or [Scale/X/Y/Z/Rotate]: ";
    for (;;) {
        acedInitGet(RSG_NONULL, keywords);
        ads_point point{};
        const int outcome = acedGetPoint(nullptr, prompt, point);
        std::wstring keyword;
        if (outcome == RTNORM) {
            placement.point = point;
            return true;
        }
        if (outcome != RTKWORD || acedGetInput(keyword) != RTNORM || !askPreset(keyword, placement))
            return false;
    }
}

bool takeCorner(const AcGePoint3d& corner, Placement& placement)
{
    const AcGeVector3d size = corner - placement.point;
    if (size.x == 0.0 || size.y == 0.0) {
        print(L"Value must be nonzero.\n");
        return false;
    }
    placement.scales[0] = size.x;
    placement.scales[1] = size.y;
    return true;
}

bool askCorner(Placement& placement)
{
    const ads_point base = placement.point;
    for (;;) {
        ads_point corner{};
        if (acedGetCorner(base, L"Specify opposite corner: ", corner) != RTNORM)
            return false;
        if (takeCorner(corner, placement))
            return true;
    }
}

enum class Axes { two, three };

// The X scale, or what stands for all of them; nothing when cancelled.
std::optional<Axes> askFirstScale(Placement& placement)
{
    const ads_point base = placement.point;
    for (;;) {
        acedInitGet(RSG_OTHER, L"Corner XYZ,X");
        ads_point corner{};
        const int outcome = acedGetPoint(
            &base, L"Enter X scale factor, specify opposite corner, or [Corner/XYZ] <1>: ", corner);
        std::wstring typed;
        if (outcome == RTNONE) {
            placement.scales[0] = 1.0;
            return Axes::two;
        }
        if (outcome == RTNORM) {
            if (takeCorner(corner, placement))
                return Axes::two;
            continue;
        }
        if (outcome != RTKWORD || acedGetInput(typed) != RTNORM)
            return std::nullopt;
        if (typed == L"Corner")
            return askCorner(placement) ? std::optional(Axes::two) : std::nullopt;
        if (typed == L"XYZ")
            return askFactor(L"Specify X scale factor <1>: ", 1.0, placement.scales[0])
                       ? std::optional(Axes::three)
                       : std::nullopt;
        const std::optional<double> factor = typedReal(typed);
        if (factor && *factor != 0.0) {
            placement.scales[0] = factor;
            return Axes::two;
        }
        print(factor ? L"Value must be nonzero.\n"
                     : L"Requires numeric value, point, or option keyword.\n");
    }
}

bool askScales(const Block& block, Placement& placement)
{
    std::optional<double>(&scales)[3] = placement.scales;
    if (block.uniform) {
        if (!scales[0] && !askFactor(L"Specify scale factor <1>: ", 1.0, scales[0]))
            return false;
        scales[1] = scales[2] = scales[0];
        return true;
    }
    Axes axes = Axes::two;
    if (!scales[0]) {
        const std::optional<Axes> asked = askFirstScale(placement);
        if (!asked)
            return false;
        axes = *asked;
    }
    if (!scales[1] &&
        !askFactor(L"Enter Y scale factor <use X scale factor>: ", *scales[0], scales[1]))
        return false;
    if (!scales[2] && axes == Axes::three &&
        !askFactor(L"Specify Z scale factor or <use X scale factor>: ", *scales[0], scales[2]))
        return false;
    if (!scales[2])
        scales[2] = *scales[0];
    return true;
}

std::vector<AttributeValue> attributesOf(const Block& block)
{
    std::vector<AttributeValue> attributes;
    for (const AcDbObjectId id : variableDefinitions(block.id)) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id, AcDb::kForRead);
        AttributeValue attribute{id, {}, definition->textString(), definition->isVerifiable()};
        if (!definition->isPreset())
            attribute.prompt =
                definition->prompt().empty() ? definition->tag() : definition->prompt();
        attributes.push_back(std::move(attribute));
    }
    return attributes;
}

bool askValue(AttributeValue& attribute)
{
    const std::wstring shown = attribute.value.empty() ? L"" : L" <" + attribute.value + L">";
    std::wstring answer;
    if (acedGetString(1, (attribute.prompt + shown + L": ").c_str(), answer) != RTNORM)
        return false;
    if (!answer.empty())
        attribute.value = answer;
    return true;
}

bool askValues(std::vector<AttributeValue>& attributes, const wchar_t* heading, bool verifying)
{
    bool told = false;
    for (AttributeValue& attribute : attributes) {
        if (attribute.prompt.empty() || (verifying && !attribute.verifies))
            continue;
        if (!std::exchange(told, true))
            engine().printForPrompt(heading);
        if (!askValue(attribute))
            return false;
    }
    return true;
}

bool askAttributes(std::vector<AttributeValue>& attributes)
{
    return integerVariable(L"ATTREQ", 1) == 0 ||
           (askValues(attributes, L"Enter attribute values\n", false) &&
            askValues(attributes, L"Verify attribute values\n", true));
}

void appendReference(AcDbDatabase& database, const Block& block, const Placement& placement,
                     const std::vector<AttributeValue>& attributes)
{
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockReference> reference;
    reference.acquire(new AcDbBlockReference(placement.point, block.id));
    if (!space || space->appendAcDbEntity(reference.object()) != Acad::eOk)
        return;
    const auto scale = [&](int axis) { return *placement.scales[axis] * block.unitScale; };
    setDatabaseDefaults(*reference);
    reference->setScaleFactors({scale(0), scale(1), scale(2)});
    reference->setRotation(*placement.rotation);
    for (const AttributeValue& value : attributes) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(value.definition,
                                                                    AcDb::kForRead);
        if (!definition)
            continue;
        AcDbObjectPointer<AcDbAttribute> attribute;
        attribute.acquire(attributeOf(*definition, *reference, value.value).release());
        AcDbObjectId id;
        reference->appendAttribute(id, attribute.object());
    }
}

} // namespace

void insertCommand()
{
    AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    AcDbDatabase& database = *document->database();
    const std::optional<Block> block = askBlock(database);
    Placement placement;
    if (!block || !askPoint(*block, placement) || !askScales(*block, placement))
        return;
    const ads_point base = placement.point;
    if (!placement.rotation && !askRotation(&base, placement.rotation))
        return;
    std::vector<AttributeValue> attributes = attributesOf(*block);
    if (!askAttributes(attributes))
        return;
    appendReference(database, *block, placement, attributes);
    keepInserted(block->name);
}

} // namespace host
