#pragma once

#include "host/db/drawing_format.h"

namespace host {

// Fills an empty drawing from the bytes of a DXF file, text or binary as they tell. `name` is what
// messages call the file. On failure the drawing is of no use.
FileOutcome readDrawing(std::shared_ptr<const FileImage> image, std::wstring_view name,
                        Drawing& drawing);

} // namespace host
