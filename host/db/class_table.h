#pragma once

#include "host/db/drawing.h"

#include <memory>
#include <span>
#include <string_view>

class AcDbObject;
class AcRxClass;

// Which class reads which record. One table in order: a DXF name, its class and, where the name
// alone does not tell ("POLYLINE", "DIMENSION", "VERTEX"), what looks into the record.
namespace host {

struct ClassRow {
    std::string_view dxfName; // "CIRCLE"; of a table "TABLE LAYER"
    AcRxClass* (*desc)();
    // The class of a record with these tags, where one name stands for several classes; null
    // elsewhere.
    AcRxClass* (*refined)(Drawing& drawing, std::uint32_t stub) = nullptr;
};

std::span<const ClassRow> classTable();

// The class of a record: never null. A name that the table lacks is an entity or an object of no
// known class, by where it stands.
AcRxClass* classOfRecord(Drawing& drawing, std::uint32_t stub);

// An object of that class, with nothing set.
std::unique_ptr<AcDbObject> newObjectOf(Drawing& drawing, std::uint32_t stub);

} // namespace host
