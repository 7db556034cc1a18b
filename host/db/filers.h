#pragma once

#include "host/db/object_id.h"
#include "host/geom/point.h"
#include "host/runtime/error_status.h"

#include <cstdint>
#include <span>
#include <string_view>

// Takes an object's groups one by one, in the order of a drawing file, the type name (code 0)
// first. Points come as one item under the code of their x.
class AcDbDxfFiler {
public:
    virtual ~AcDbDxfFiler() = default;
    virtual Acad::ErrorStatus writeString(int /*code*/, std::wstring_view) { return Acad::eOk; }
    virtual Acad::ErrorStatus writeBoolean(int /*code*/, bool) { return Acad::eOk; }
    virtual Acad::ErrorStatus writeInt16(int /*code*/, std::int16_t) { return Acad::eOk; }
    virtual Acad::ErrorStatus writeInt32(int /*code*/, std::int32_t) { return Acad::eOk; }
    virtual Acad::ErrorStatus writeInt64(int /*code*/, std::int64_t) { return Acad::eOk; }
    virtual Acad::ErrorStatus writeDouble(int /*code*/, double) { return Acad::eOk; }
    virtual Acad::ErrorStatus writePoint3d(int /*code*/, const AcGePoint3d&) { return Acad::eOk; }
    virtual Acad::ErrorStatus writeHandle(int /*code*/, AcDbHandle) { return Acad::eOk; }
    virtual Acad::ErrorStatus writeBChunk(int /*code*/, std::span<const std::uint8_t>)
    {
        return Acad::eOk;
    }
};
