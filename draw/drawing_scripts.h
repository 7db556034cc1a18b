#pragma once

#include "draw/drawing_engine.h"

#include <optional>

// What the host can do for an object.
struct ScriptChoice {
    std::optional<DrawingScript> script; // which repeats if it may be repeated at all
    bool unsupported = false;            // without a script: whether that is told
};

// The first of the object's types alone decides, and with it what the object gives.
ScriptChoice chooseScript(const GraphicProps& props);
