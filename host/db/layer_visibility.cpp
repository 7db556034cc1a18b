#include "host/db/layer_visibility.h"

#include "host/db/database.h"
#include "host/db/lookups.h"
#include "host/db/tag_view.h"

namespace host {

namespace {

constexpr std::wstring_view kLayerZero = L"0";
constexpr std::int64_t kFrozenBit = 1;
constexpr std::int64_t kLockedBit = 4;

thread_local int unlockings = 0;

LayerState readState(Drawing& drawing, std::uint32_t layerNumber)
{
    LayerState state;
    state.record = findSymbol(drawing, "LAYER", writtenLayerName(drawing, layerNumber));
    if (state.record.isNull())
        return state;
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(state.record.stubNumber());
    const Subclass& part = symbolKind("LAYER")->part;
    const std::int64_t flags = integerField(*tags, part, 70, 0);
    state.frozen = (flags & kFrozenBit) != 0;
    state.locked = (flags & kLockedBit) != 0;
    state.off = integerField(*tags, part, 62, 0) < 0;
    return state;
}

} // namespace

std::wstring writtenLayerName(const Drawing& drawing, std::uint32_t layerNumber)
{
    if (layerNumber == 0)
        return std::wstring(kLayerZero);
    const std::string_view bytes = drawing.index.layers().name(layerNumber);
    Tag tag;
    tag.code = 8;
    tag.value = bytes.data();
    tag.length = static_cast<std::uint32_t>(bytes.size());
    return drawing.source->form().text(tag);
}

LayerState LayerStates::state(Drawing& drawing, std::uint32_t layerNumber)
{
    if (generation_ != drawing.symbolGeneration) {
        states_.clear();
        generation_ = drawing.symbolGeneration;
    }
    if (layerNumber >= states_.size())
        states_.resize(drawing.index.layers().size() + 1);
    std::optional<LayerState>& known = states_[layerNumber];
    if (!known)
        known = readState(drawing, layerNumber);
    return *known;
}

LayerState layerState(Drawing& drawing, std::uint32_t layerNumber)
{
    return drawing.database.lookups().layers.state(drawing, layerNumber);
}

AcDbObjectId layerRecord(Drawing& drawing, std::uint32_t layerNumber)
{
    return layerState(drawing, layerNumber).record;
}

bool layerIsLocked(Drawing& drawing, std::uint32_t layerNumber)
{
    return unlockings == 0 && layerState(drawing, layerNumber).locked;
}

LayersUnlocked::LayersUnlocked()
{
    ++unlockings;
}

LayersUnlocked::~LayersUnlocked()
{
    --unlockings;
}

std::wstring layerName(Drawing& drawing, std::uint32_t layerNumber)
{
    const AcDbObjectId record = layerRecord(drawing, layerNumber);
    return record.isNull() ? writtenLayerName(drawing, layerNumber)
                           : symbolName(drawing, "LAYER", record.stubNumber());
}

} // namespace host
