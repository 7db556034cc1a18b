#pragma once

#include "host/db/object_id.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace host {

class Drawing;

// What a layer's record says of the entities on it.
struct LayerState {
    AcDbObjectId record; // null for a name that has no record
    bool frozen = false;
    bool locked = false;
    bool off = false;
    bool hidden = false;

    bool visible() const { return !frozen && !off && !hidden; }
};

// The layers by the number that stubs carry, so that filtering entities by their layer decodes
// none. Kept by the database, made anew when the symbol tables have changed.
class LayerStates {
public:
    LayerState state(Drawing& drawing, std::uint32_t layerNumber);

private:
    std::vector<std::optional<LayerState>> states_; // by layer number; 0 is layer "0"
    std::uint64_t generation_ = ~std::uint64_t{0};
};

// Number 0 (no layer in the file) is layer "0".
LayerState layerState(Drawing& drawing, std::uint32_t layerNumber);
AcDbObjectId layerRecord(Drawing& drawing, std::uint32_t layerNumber);
bool layerIsLocked(Drawing& drawing, std::uint32_t layerNumber);

// While one lives, no layer counts as locked: what belongs to an entity (attributes, vertices, the
// block of a dimension) goes with it, whatever its own layer.
class LayersUnlocked {
public:
    LayersUnlocked();
    LayersUnlocked(const LayersUnlocked&) = delete;
    LayersUnlocked& operator=(const LayersUnlocked&) = delete;
    ~LayersUnlocked();
};

// The name as entities of the file write it.
std::wstring writtenLayerName(const Drawing& drawing, std::uint32_t layerNumber);

// The name as the layer's record writes it; without a record, as the file writes it at the entity.
std::wstring layerName(Drawing& drawing, std::uint32_t layerNumber);

} // namespace host
