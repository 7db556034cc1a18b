#include "host/commands/layer_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/property_text.h"
#include "host/db/database.h"
#include "host/db/entity.h"
#include "host/db/symbol_tables.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/edit/prompts.h"
#include "host/edit/selection.h"
#include "host/edit/selection_set.h"
#include "host/edit/system_variables.h"
#include "host/files/paths.h"
#include "host/text/case_mapping.h"

#include <functional>

namespace host {

namespace {

using LayerChange = std::function<Acad::ErrorStatus(AcDbLayerTableRecord& layer)>;

constexpr const wchar_t* kForbidden = L"<>/\\\":;?*|=`,";

std::wstring currentLayer()
{
    resbuf value;
    acedGetVar(L"CLAYER", value);
    return value.resval.rstring;
}

bool isCurrent(const AcDbLayerTableRecord& layer)
{
    return layer.objectId() == layer.database()->clayer();
}

std::vector<std::wstring> namesIn(std::wstring_view list)
{
    std::vector<std::wstring> names;
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(L','), list.size());
        if (comma > 0)
            names.emplace_back(list.substr(0, comma));
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return names;
}

std::vector<AcDbObjectId> recordsOf(AcDbObjectId table)
{
    std::vector<AcDbObjectId> ids;
    AcDbObjectPointer<AcDbSymbolTable> open(table, AcDb::kForRead);
    if (!open)
        return ids;
    for (auto each = open->newIterator(); !each->done(); each->step())
        ids.push_back(each->getRecordId());
    return ids;
}

// The layers that a list of names and patterns means, in the table's order.
std::vector<AcDbObjectId> layersIn(AcDbDatabase& database, std::wstring_view list)
{
    const std::vector<std::wstring> names = namesIn(list);
    std::vector<AcDbObjectId> layers;
    for (const AcDbObjectId id : recordsOf(database.layerTableId())) {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (layer && std::ranges::any_of(names, [&](const std::wstring& name) {
                return hasWildcards(name) ? wildcardMatches(layer->name(), name)
                                          : equalNoCase(layer->name(), name);
            }))
            layers.push_back(id);
    }
    if (layers.empty())
        print(L"No matching layer names found.\n");
    return layers;
}

void changeLayers(const std::vector<AcDbObjectId>& layers, const LayerChange& change)
{
    for (const AcDbObjectId id : layers) {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (layer)
            change(*layer);
    }
}

// Enter alone means the current layer where there is a default, or the layers of the entities that
// the user selects.
enum class WithoutName { nothing, currentLayer, selectsObjects };

std::vector<AcDbObjectId> askLayers(AcDbDatabase& database, std::wstring prompt, WithoutName enter)
{
    if (enter == WithoutName::currentLayer)
        prompt += L" <" + currentLayer() + L">: ";
    else
        prompt += enter == WithoutName::selectsObjects ? L" or <select objects>: " : L": ";
    std::wstring list;
    if (acedGetString(0, prompt.c_str(), list) != RTNORM)
        return {};
    if (!list.empty())
        return layersIn(database, list);
    std::vector<AcDbObjectId> layers;
    if (enter == WithoutName::currentLayer)
        layers.push_back(database.clayer());
    std::vector<AcDbObjectId> entities;
    if (enter == WithoutName::selectsObjects && selectObjects(entities) == RTNORM)
        for (const AcDbObjectId id : entities) {
            AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity && std::ranges::find(layers, entity->layerId()) == layers.end())
                layers.push_back(entity->layerId());
        }
    return layers;
}

// Null id where the name cannot be one.
AcDbObjectId layerNamed(AcDbDatabase& database, const std::wstring& name)
{
    AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
    AcDbObjectId id;
    if (!table || table->getAt(name, id) == Acad::eOk)
        return id;
    if (name.find_first_of(kForbidden) != std::wstring::npos) {
        print(L"Invalid layer name: " + name + L"\n");
        return {};
    }
    AcDbObjectPointer<AcDbLayerTableRecord> layer;
    layer.create();
    layer->setName(name);
    AcCmColor white;
    white.setColorIndex(7);
    layer->setColor(white);
    layer->setLinetypeObjectId(database.continuousLinetype());
    table->upgradeOpen();
    table->add(id, layer.object());
    return id;
}

// A frozen layer cannot be the current one.
bool makeCurrent(AcDbObjectId id)
{
    resbuf value;
    value.restype = static_cast<short>(RTSTR);
    {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (!layer)
            return false;
        if (layer->isFrozen()) {
            print(L"Cannot make a frozen layer current.\n");
            return false;
        }
        value.resval.rstring = layer->name();
    }
    return acedSetVar(L"CLAYER", value) == RTNORM;
}

void listLayers(AcDbDatabase& database)
{
    std::wstring pattern;
    if (acedGetString(0, L"Enter layer name(s) to list <*>: ", pattern) != RTNORM)
        return;
    for (const AcDbObjectId id : layersIn(database, pattern.empty() ? L"*" : pattern)) {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (!layer)
            continue;
        std::wstring linetype;
        if (AcDbObjectPointer<AcDbLinetypeTableRecord> record(layer->linetypeObjectId(),
                                                              AcDb::kForRead);
            record)
            linetype = record->name();
        std::wstring line = L"\"" + layer->name() + L"\"  " + (layer->isOff() ? L"off" : L"on") +
                            (layer->isFrozen() ? L", frozen" : L"") +
                            (layer->isLocked() ? L", locked" : L"") + L"  " +
                            colorText(layer->color()) + L"  \"" + linetype + L"\"  " +
                            lineWeightText(layer->lineWeight());
        print(line + (isCurrent(*layer) ? L"  current\n" : L"\n"));
    }
    print(L"Current layer: \"" + currentLayer() + L"\"\n");
}

void makeLayer(AcDbDatabase& database)
{
    std::wstring name;
    const std::wstring prompt =
        L"Enter name for new layer (becomes the current layer) <" + currentLayer() + L">: ";
    if (acedGetString(0, prompt.c_str(), name) != RTNORM || name.empty())
        return;
    const AcDbObjectId id = layerNamed(database, name);
    if (id.isNull() || !makeCurrent(id))
        return;
    changeLayers({id}, [](AcDbLayerTableRecord& layer) { return layer.setIsOff(false); });
}

void setLayer(AcDbDatabase& database)
{
    std::wstring name;
    if (acedGetString(0, L"Enter layer name to make current or <select object>: ", name) != RTNORM)
        return;
    AcDbObjectId id;
    if (name.empty()) {
        ads_name picked{};
        ads_point place{};
        AcDbObjectId entityId;
        if (acedEntSel(L"Select object: ", picked, place) != RTNORM ||
            acdbGetObjectId(entityId, picked) != Acad::eOk)
            return;
        AcDbObjectPointer<AcDbEntity> entity(entityId, AcDb::kForRead);
        if (entity)
            id = entity->layerId();
    } else {
        AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
        if (table && table->getAt(name, id) != Acad::eOk)
            print(L"Cannot find layer \"" + name + L"\".\n");
    }
    if (!id.isNull())
        makeCurrent(id);
}

void newLayers(AcDbDatabase& database)
{
    std::wstring list;
    if (acedGetString(0, L"Enter name list for new layer(s): ", list) != RTNORM)
        return;
    for (const std::wstring& name : namesIn(list))
        layerNamed(database, name);
}

void turnOn(AcDbDatabase& database)
{
    changeLayers(
        askLayers(database, L"Enter name list of layer(s) to turn on", WithoutName::nothing),
        [](AcDbLayerTableRecord& layer) { return layer.setIsOff(false); });
}

void turnOff(AcDbDatabase& database)
{
    std::vector<AcDbObjectId> layers = askLayers(
        database, L"Enter name list of layer(s) to turn off", WithoutName::selectsObjects);
    const auto current = std::ranges::find(layers, database.clayer());
    if (current != layers.end() &&
        !confirmed(L"Really want layer \"" + currentLayer() + L"\" (the CURRENT layer) off?",
                   false))
        layers.erase(current);
    changeLayers(layers, [](AcDbLayerTableRecord& layer) { return layer.setIsOff(true); });
}

void colorLayers(AcDbDatabase& database)
{
    std::wstring text;
    if (acedGetString(0, L"New color: ", text) != RTNORM || text.empty())
        return;
    const auto color = colorFromText(text);
    if (!color) {
        print(L"A color is a number from 1 to 255, a name, or red,green,blue.\n");
        return;
    }
    changeLayers(askLayers(database, L"Enter name list of layer(s) for color " + colorText(*color),
                           WithoutName::currentLayer),
                 [&](AcDbLayerTableRecord& layer) { return layer.setColor(*color); });
}

void linetypeOfLayers(AcDbDatabase& database)
{
    std::wstring name;
    if (acedGetString(0, L"Enter loaded linetype name <Continuous>: ", name) != RTNORM)
        return;
    if (name.empty())
        name = L"Continuous";
    AcDbObjectId linetype;
    {
        AcDbObjectPointer<AcDbLinetypeTable> table(database.linetypeTableId(), AcDb::kForRead);
        if (table && table->getAt(name, linetype) != Acad::eOk) {
            print(L"Linetype \"" + name + L"\" is not loaded.\n");
            return;
        }
    }
    changeLayers(askLayers(database, L"Enter name list of layer(s) for linetype \"" + name + L"\"",
                           WithoutName::currentLayer),
                 [&](AcDbLayerTableRecord& layer) { return layer.setLinetypeObjectId(linetype); });
}

void lineWeightOfLayers(AcDbDatabase& database)
{
    std::wstring text;
    if (acedGetString(0, L"Enter lineweight (0.0mm - 2.11mm): ", text) != RTNORM || text.empty())
        return;
    const auto weight = lineWeightFromText(text);
    if (!weight) {
        print(L"A lineweight is Default or millimetres from 0.0 to 2.11.\n");
        return;
    }
    changeLayers(askLayers(database,
                           L"Enter name list of layer(s) for lineweight " + lineWeightText(*weight),
                           WithoutName::currentLayer),
                 [&](AcDbLayerTableRecord& layer) { return layer.setLineWeight(*weight); });
}

void freezeLayers(AcDbDatabase& database)
{
    changeLayers(
        askLayers(database, L"Enter name list of layer(s) to freeze", WithoutName::selectsObjects),
        [](AcDbLayerTableRecord& layer) {
            if (isCurrent(layer)) {
                print(L"Cannot freeze layer \"" + layer.name() + L"\". It is the CURRENT layer.\n");
                return Acad::eNotApplicable;
            }
            return layer.setIsFrozen(true);
        });
}

void thawLayers(AcDbDatabase& database)
{
    changeLayers(askLayers(database, L"Enter name list of layer(s) to thaw", WithoutName::nothing),
                 [](AcDbLayerTableRecord& layer) { return layer.setIsFrozen(false); });
}

void lockLayers(AcDbDatabase& database)
{
    changeLayers(
        askLayers(database, L"Enter name list of layer(s) to lock", WithoutName::selectsObjects),
        [](AcDbLayerTableRecord& layer) { return layer.setIsLocked(true); });
}

void unlockLayers(AcDbDatabase& database)
{
    changeLayers(
        askLayers(database, L"Enter name list of layer(s) to unlock", WithoutName::selectsObjects),
        [](AcDbLayerTableRecord& layer) { return layer.setIsLocked(false); });
}

struct LayerOption {
    const wchar_t* keyword;
    void (*run)(AcDbDatabase& database);
};

constexpr LayerOption kOptions[] = {
    {L"?", listLayers},
    {L"Make", makeLayer},
    {L"Set", setLayer},
    {L"New", newLayers},
    {L"ON", turnOn},
    {L"OFF", turnOff},
    {L"Color", colorLayers},
    {L"Ltype", linetypeOfLayers},
    {L"LWeight", lineWeightOfLayers},
    {L"Freeze", freezeLayers},
    {L"Thaw", thawLayers},
    {L"LOck", lockLayers},
    {L"Unlock", unlockLayers},
};

std::wstring optionNames(wchar_t separator)
{
    std::wstring names;
    for (const LayerOption& option : kOptions)
        names += (names.empty() ? std::wstring() : std::wstring(1, separator)) + option.keyword;
    return names;
}

} // namespace

void layerCommand()
{
    AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    print(L"Current layer:  \"" + currentLayer() + L"\"\n");
    const std::wstring keywords = optionNames(L' ');
    const std::wstring prompt = L"Enter an option [" + optionNames(L'/') + L"]: ";
    std::wstring keyword;
    for (;;) {
        acedInitGet(0, keywords.c_str());
        if (acedGetKword(prompt.c_str(), keyword) != RTNORM)
            return;
        for (const LayerOption& option : kOptions)
            if (keyword == option.keyword)
                option.run(*document->database());
    }
}

} // namespace host
