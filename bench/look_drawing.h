#pragma once

#include <cstddef>
#include <filesystem>

// Drawings and descriptions for the commands that go by looks and objects.

inline constexpr std::size_t kLooks = 5000;   // distinct ones: type, layer and colour
inline constexpr std::size_t kObjects = 1000; // of a description

enum class Classified { no, yes };

// Writes a drawing of so many lines, circles, polylines, texts and inserts in model space, whose
// looks come round after kLooks entities. If classified, nine in ten have the record of one of the
// objects below, one of them in two thousand with an area out of bounds. The same count gives the
// same bytes.
void writeLookDrawing(const std::filesystem::path& path, std::size_t entities,
                      Classified classified);

// How objects tell their entities: half of them by layer and the other half by colour and linetype
// scale, each of one type; or all by colour and linetype scale, each of all five types.
enum class ObjectsBy { layerOrColor, colorAlone };

// A description of kObjects objects, under which nine in ten entities look like some object.
void writeLookDescription(const std::filesystem::path& path, ObjectsBy by);
