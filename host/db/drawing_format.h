#pragma once

#include "host/db/drawing.h"
#include "host/runtime/error_status.h"

#include <filesystem>
#include <string>

namespace host {

// What became of reading or writing a file: a text for the user when it failed, and what was kept
// though wrong.
struct FileOutcome {
    Acad::ErrorStatus status = Acad::eOk;
    std::wstring message; // without a line end; names the file and, where it can, the line
};

// Knows the files of drawings. Implemented where files are read and written; the database reaches
// it through here.
class DrawingFormat {
public:
    virtual ~DrawingFormat() = default;

    // Fills an empty drawing from a file, judged by its content. On failure the drawing is of no
    // use.
    virtual FileOutcome read(const std::filesystem::path& path, Drawing& drawing) = 0;
    // Fills an empty drawing with a new metric one of the newest version.
    virtual void makeNew(Drawing& drawing) = 0;
    // Saves in the form and version as read, raised where the contents demand it (`message` then
    // says so with eOk). A failure leaves the file and the drawing as they were.
    virtual FileOutcome save(Drawing& drawing, const std::filesystem::path& path) = 0;
    // The bytes that saving would write.
    virtual FileOutcome write(Drawing& drawing, std::string& bytes) = 0;
    // A source for objects that belong to no drawing yet: text of the newest version in UTF-8.
    virtual std::shared_ptr<TagSource> scratchSource() = 0;
};

// Knows the definition files: patterns, linetypes, multiline styles.
class DefinitionFiles {
public:
    virtual ~DefinitionFiles() = default;
};

// The one in use; set at the start of the host, before the first database.
DrawingFormat& drawingFormat();
void setDrawingFormat(DrawingFormat* format);

} // namespace host
