#pragma once

#include <filesystem>

// What nothing can be faster than, measured in the same run.

// Splits the lines of a text DXF into codes and values and converts every number; keeps nothing.
// Answers a sum that depends on all of it.
double splitAndConvert(const std::filesystem::path& path);

// Copies the file and waits until the copy is on the disk.
void copyAndSync(const std::filesystem::path& from, const std::filesystem::path& to);
