#pragma once

#include "host/db/block_table.h"
#include "host/text/encoding.h"
#include "objects/entity_type.h"
#include "objects/stored_tables.h"
#include "tests/support/plugin_test.h"

// Objects drawn by typed input, and what is in model space then.
class ObjectDrawingTest : public PluginTest {
protected:
    ObjectDrawingTest() { openPlain(); }

    // Layers Walls and Locked; nothing in model space.
    void openPlain(const char* name = "plain.dxf")
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("Locked", 4);
        open(drawing, name);
    }

    static bool tells(const std::wstring& printed, std::wstring_view text)
    {
        return printed.find(text) != std::wstring::npos;
    }

    // "Line Walls 1 WALLS": the word of the class, the layer, the colour, tables of the records.
    std::string look(AcDbObjectId id)
    {
        std::string text;
        {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (!entity)
                return "gone";
            text = host::toUtf8(entityTypeName(*entity)) + " " + host::toUtf8(entity->layer()) +
                   " " + std::to_string(entity->colorIndex());
        }
        StoredTables tables(storeId());
        for (const OdRecord& record : tables.recordsOf(id))
            text += " " + host::toUtf8(record.name);
        return text;
    }
    std::vector<std::string> drawn()
    {
        std::vector<std::string> all;
        for (const AcDbObjectId id : entities())
            all.push_back(look(id));
        return all;
    }

    template <class T> AcDbObjectPointer<T> opened(AcDbObjectId id)
    {
        return AcDbObjectPointer<T>(id, AcDb::kForRead);
    }
};

using Looks = std::vector<std::string>;
