#pragma once

#include "host/db/drawing.h"
#include "host/db/hatch_lines.h"
#include "host/runtime/error_status.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// What became of reading or writing a file: a text for the user when it failed, and what was kept
// though wrong.
struct FileOutcome {
    Acad::ErrorStatus status = Acad::eOk;
    std::wstring message; // without a line end; names the file and, where it can, the line
};

// A hatch pattern as its file defines it: lengths at scale 1, the offsets along and across the
// lines.
struct PatternDefinition {
    std::wstring name;
    std::vector<PatternLine> lines;
};

// One stretch of a linetype: drawn when positive, left out when negative, a dot when zero; with a
// text or a shape of a shape file at its end where `text` or `shape` is not empty.
struct LinetypeDash {
    double length = 0.0;
    std::wstring text;
    std::wstring shape;
    std::wstring style; // a text's style, a shape's file; empty: Standard
    double scale = 1.0;
    double rotation = 0.0; // degrees
    bool absolute = false; // the rotation counts from the world's x axis, not from the line
    bool upright = false;  // turned so that it can be read
    double x = 0.0;        // from the end of the stretch, along the line and across
    double y = 0.0;
};

struct LinetypeDefinition {
    std::wstring name;
    std::wstring description;
    std::vector<LinetypeDash> dashes;
};

struct MlineElement {
    double offset = 0.0;
    int color = 256;
    std::wstring linetype; // empty: ByLayer
};

// A multiline style: flags (70), the colour of its fill (62), the angles of its ends in degrees.
struct MlineStyleDefinition {
    std::wstring name;
    std::wstring description;
    int flags = 0;
    int fill = 256;
    double startAngle = 90.0;
    double endAngle = 90.0;
    std::vector<MlineElement> elements;
};

// Knows the files that define patterns, linetypes and multiline styles. What is broken in a file is
// left out, what is good of it counts. Each answers eFileNotFound or eFileAccessErr for a file that
// cannot be read.
class DefinitionFiles {
public:
    virtual ~DefinitionFiles() = default;

    // eKeyNotFound when the file has no pattern of that name, in whatever letters.
    virtual Acad::ErrorStatus pattern(const std::filesystem::path& file, std::wstring_view name,
                                      PatternDefinition& pattern) = 0;
    // In the order of the file; of one name only the first.
    virtual Acad::ErrorStatus linetypes(const std::filesystem::path& file,
                                        std::vector<LinetypeDefinition>& linetypes) = 0;
    virtual Acad::ErrorStatus mlineStyles(const std::filesystem::path& file,
                                          std::vector<MlineStyleDefinition>& styles) = 0;
    // The number of a shape in a compiled shape file; 0 when it has none of that name.
    virtual int shapeNumber(const std::filesystem::path& file, std::wstring_view name) = 0;
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
    // Whether R12 knows entities of the type. Those that it does not raise the drawing at saving,
    // so they have their markers from the start.
    virtual bool isEntityOfR12(std::string_view type) const = 0;
    // The tags of an R12 drawing's entity, table record or BLOCK as later versions have them: with
    // a head and markers. They belong to the drawing's own source.
    virtual TagList raisedRecord(Drawing& drawing, std::uint32_t stub) = 0;
    virtual DefinitionFiles& definitions() = 0;
};

// The one in use; set at the start of the host, before the first database.
DrawingFormat& drawingFormat();
void setDrawingFormat(DrawingFormat* format);

} // namespace host
