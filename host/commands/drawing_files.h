#pragma once

#include <filesystem>

class AcApDocument;

namespace host {

// Reading and saving drawings by commands: what went wrong, what was kept though wrong, and what
// was saved differently than read is printed. False when nothing was opened or saved.
bool openDrawing(const std::filesystem::path& path);
bool saveDrawing(AcApDocument& document, const std::filesystem::path& path);

// How often one of them failed while the program runs.
int drawingFailures();

} // namespace host
