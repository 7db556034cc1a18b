#pragma once

#include "host/db/database.h"
#include "tests/support/command_test.h"
#include "tests/support/dxf_drawing.h"

#include <cstdlib>
#include <string>

// A test on a drawing that it wrote itself.
class DrawingTest : public CommandTest {
protected:
    // Opens the drawing as the current document.
    void open(const DxfDrawing& drawing, std::string_view name = "drawing.dxf")
    {
        std::wstring message;
        AcApDocument* const document =
            session().documents().openDocument(drawing.write(folder(), name), false, message);
        ASSERT_NE(document, nullptr) << std::string(message.begin(), message.end());
    }

    // The object with this handle in the current drawing.
    AcDbObjectId idOf(const std::string& handle)
    {
        AcDbObjectId id;
        database().getAcDbObjectId(id, AcDbHandle(std::strtoull(handle.c_str(), nullptr, 16)));
        return id;
    }
};
