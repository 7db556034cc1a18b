#pragma once

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/object_pointer.h"
#include "tests/support/command_test.h"
#include "tests/support/dxf_drawing.h"

#include <cstdlib>
#include <string>
#include <vector>

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

    // The entities of a block, of model space, in their order.
    std::vector<AcDbObjectId> entities(AcDbObjectId block)
    {
        std::vector<AcDbObjectId> ids;
        const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
        std::unique_ptr<AcDbBlockTableRecordIterator> walk;
        if (record && record->newIterator(walk) == Acad::eOk)
            for (; !walk->done(); walk->step())
                ids.push_back(walk->entityId());
        return ids;
    }
    std::vector<AcDbObjectId> entities() { return entities(database().modelSpaceId()); }
    AcDbObjectId last()
    {
        const std::vector<AcDbObjectId> all = entities();
        return all.empty() ? AcDbObjectId() : all.back();
    }
};
