#pragma once

#include <filesystem>
#include <string>

class AcApDocument;

namespace host {

// Reading and saving drawings by commands: what went wrong, what was kept though wrong, and what
// was saved differently than read is printed. False when nothing was opened or saved.
bool openDrawing(const std::filesystem::path& path);
bool saveDrawing(AcApDocument& document, const std::filesystem::path& path);

// "plan.dxf: 1 record without a handle; it was given one": what was wrong in the drawing's file and
// was kept, in one line; empty where nothing was.
std::wstring warningLine(const AcApDocument& document);

// How often one of them failed while the program runs.
int drawingFailures();

} // namespace host
