#include "host/io/dxf_format.h"

#include "host/db/symbol_names.h"
#include "host/files/paths.h"
#include "host/files/safe_save.h"
#include "host/io/drawing_reader.h"
#include "host/io/drawing_writer.h"
#include "host/io/new_drawing.h"
#include "host/io/raised_record.h"
#include "host/io/subclass_parts.h"
#include "host/io/text_form.h"
#include "host/text/encoding.h"

#include <cassert>

namespace host {

namespace {

FileOutcome changedOutside(const std::filesystem::path& path)
{
    return {Acad::eFileAccessErr, shownPath(path) + L" is not saved: another program has changed "
                                                    L"the file that this drawing was opened from"};
}

} // namespace

FileOutcome DxfFormat::read(const std::filesystem::path& path, Drawing& drawing)
{
    std::string error;
    std::shared_ptr<const FileImage> image = FileImage::open(path, error);
    if (!image) {
        std::error_code ignored;
        const bool there = std::filesystem::exists(path, ignored);
        return {there ? Acad::eFileAccessErr : Acad::eFileNotFound, fromUtf8(error)};
    }
    return readDrawing(std::move(image), shownPath(path), drawing);
}

void DxfFormat::makeNew(Drawing& drawing)
{
    [[maybe_unused]] const FileOutcome outcome =
        readDrawing(FileImage::fromBytes(newDrawingText()), L"new drawing", drawing);
    assert(outcome.status == Acad::eOk && drawing.warnings.empty());
}

FileOutcome DxfFormat::save(Drawing& drawing, const std::filesystem::path& path)
{
    if (!drawing.source)
        return {Acad::eInvalidInput, shownPath(path) + L" is not saved: the drawing is empty"};
    const FileImage& image = *drawing.source->image();
    if (image.changedOnDisk())
        return changedOutside(path);
    const WritePlan plan = planWriting(drawing);
    std::string error;
    const std::unique_ptr<SafeSave> file = SafeSave::begin(path, error);
    if (!file)
        return {Acad::eFileAccessErr, fromUtf8(error)};
    for (const WritePiece& piece : plan.pieces) {
        if (piece.length)
            file->write(image, piece.offset, piece.length);
        else
            file->write(piece.bytes);
    }
    // what was cut off meanwhile reads as zeros, which must not take the file's name
    if (image.changedOnDisk())
        return changedOutside(path);
    if (!file->commit(error))
        return {Acad::eFileAccessErr, fromUtf8(error)};
    return {Acad::eOk, plan.message};
}

FileOutcome DxfFormat::write(Drawing& drawing, std::string& bytes)
{
    if (!drawing.source)
        return {Acad::eInvalidInput, L"the drawing is empty"};
    const WritePlan plan = planWriting(drawing);
    const std::string_view image = drawing.source->image()->bytes();
    bytes.clear();
    for (const WritePiece& piece : plan.pieces)
        bytes +=
            piece.length ? image.substr(piece.offset, piece.length) : std::string_view(piece.bytes);
    return {Acad::eOk, plan.message};
}

std::shared_ptr<TagSource> DxfFormat::scratchSource()
{
    return std::make_shared<TagSource>(
        nullptr, std::make_unique<TextForm>(DxfVersion::r2018, CodePage::utf8(), TextStyle()));
}

bool DxfFormat::isEntityOfR12(std::string_view type) const
{
    return host::isEntityOfR12(type);
}

TagList DxfFormat::raisedRecord(Drawing& drawing, std::uint32_t stub)
{
    const RaisedRecord raised(drawing, drawing.source);
    const Stub& record = drawing.index[stub];
    const std::string_view type = drawing.index.types().name(record.type);
    if ((record.flags & (kEntity | kChild)) != 0)
        return raised.entity(stub, 0);
    if (type == "BLOCK" || type == "ENDBLK")
        return raised.blockMark(stub, 0, false);
    if (symbolKind(type))
        return raised.tableEntry(stub, type);
    return raised.complete(stub);
}

std::unique_ptr<DrawingFormat> makeDxfFormat()
{
    return std::make_unique<DxfFormat>();
}

} // namespace host
