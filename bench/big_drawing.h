#pragma once

#include <cstddef>
#include <filesystem>

// Writes a drawing of so many entities in model space: lines, polylines, inserts with attributes,
// texts and hatches; 30 % of them have an extension dictionary with one record of the table
// "parcel". The same count gives the same bytes.
void writeBigDrawing(const std::filesystem::path& path, std::size_t entities);

// A description that knows the objects of such a drawing.
void writeBigDescription(const std::filesystem::path& path);
