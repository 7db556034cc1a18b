#pragma once

#include "host/db/database.h"
#include "host/db/lookups.h"
#include "host/io/drawing_reader.h"
#include "host/io/dxf_format.h"
#include "host/text/encoding.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

// For objects outside of any drawing: what they are written in.
inline void useDrawingFormat()
{
    static host::DxfFormat format;
    host::setDrawingFormat(&format);
}

// A database filled from the text of a DXF file, without a session around it.
class ReadDrawing {
public:
    explicit ReadDrawing(std::string text)
    {
        useDrawingFormat();
        database_.reset(new AcDbDatabase(false));
        const host::FileOutcome outcome = host::readDrawing(
            host::FileImage::fromBytes(std::move(text)), L"test", database_->drawing());
        EXPECT_EQ(outcome.status, Acad::eOk) << host::toUtf8(outcome.message);
    }

    AcDbDatabase& database() { return *database_; }
    host::Drawing& drawing() { return database_->drawing(); }

    AcDbObjectId idOf(std::string_view handle)
    {
        const std::string text(handle);
        return drawing().idOfHandle(std::strtoull(text.c_str(), nullptr, 16));
    }
    // The text that saving would write.
    std::string written()
    {
        std::string bytes;
        host::drawingFormat().write(drawing(), bytes);
        return bytes;
    }
    // The tags of an object as a file of this drawing's form has them, in lines.
    std::string record(AcDbObjectId id)
    {
        std::string bytes;
        const std::shared_ptr<const host::TagList> tags = drawing().tagsOf(id.stubNumber());
        for (const host::Tag& tag : *tags)
            drawing().source->form().write(tag, bytes);
        return bytes;
    }

private:
    std::unique_ptr<AcDbDatabase> database_;
};

// As drawings write it.
inline std::string handleText(AcDbObjectId id)
{
    char text[24];
    std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(id.handle().value()));
    return text;
}

// The text of a drawing with another version's number.
inline std::string inVersion(std::string text, std::string_view number)
{
    const std::size_t at = text.find("AC1015");
    return text.replace(at, number.size(), number);
}
