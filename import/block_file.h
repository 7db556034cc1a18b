#pragma once

#include <string_view>

class AcDbDatabase;

// Makes the model space of a drawing file into a block of this name; a block that is there stays.
// False when the file cannot be read, or when the block would hold itself; the drawing is then
// unchanged. An empty file gives no block, and true.
bool LoadBlockFile(std::wstring_view path, std::wstring_view blockName, AcDbDatabase& database);
