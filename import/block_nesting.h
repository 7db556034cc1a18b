#pragma once

#include "host/db/object_id.h"

#include <string_view>
#include <unordered_map>

// Follows block references down through the definitions of one drawing.
class BlockNesting {
public:
    // Whether a block holds itself, or some block in it does. Each block is walked once.
    bool isEndless(AcDbObjectId block);

    // Whether some block inside has this name, compared without case.
    static bool holds(AcDbObjectId block, std::wstring_view name);

private:
    enum class State { open, sound, endless };

    std::unordered_map<AcDbObjectId, State> states_;
};
