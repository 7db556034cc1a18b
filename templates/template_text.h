#pragma once

#include "description/graphic_props.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

// The objects grouped into a class for each type, the types in plain order of their words; within a
// class they keep their order and are named by the format.
std::wstring classesText(std::span<const GraphicProps> objects, std::wstring_view format);

// The drawing as the source of every kind of resource, kept as comments.
std::wstring resourcesText(std::wstring_view drawingName);

// The host's units and precision as they stand; empty when it tells neither.
std::wstring variablesText();

// The tables of the drawing's store as comments, without those that other programs keep there. A
// drawing without a store gets none.
std::wstring tablesText(AcDbDatabase& database);
