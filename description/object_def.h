#pragma once

#include "description/graphic_props.h"
#include "description/host_variable.h"

// One object of a description.
struct ObjectDef {
    std::int32_t objectIndex = -1;
    bool drawable = false; // shown in the palettes
    std::wstring icon;     // path of an image, as written; may be empty
    GraphicProps props;
    std::int32_t priority = 0;           // display order, greater is further in front
    std::vector<HostVariable> variables; // set while it is drawn
};
