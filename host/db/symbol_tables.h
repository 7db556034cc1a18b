#pragma once

#include "host/db/color.h"
#include "host/db/symbol_table.h"
#include "host/geom/point.h"

// The tables and records of each kind. `records` of a table are reached through AcDbSymbolTable.
#define HOST_DECLARE_TABLE(TABLE, RECORD)                                                          \
    class TABLE : public AcDbSymbolTable {                                                         \
        ACRX_DECLARE_MEMBERS(TABLE)                                                                \
    public:                                                                                        \
        using Record = RECORD;                                                                     \
        TABLE() = default;                                                                         \
    };

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord)
public:
    AcDbLayerTableRecord() = default;
    bool isFrozen() const; // 70 bit 1
    bool isLocked() const; // 70 bit 4
    bool isOff() const;    // 62 negative
    bool isHidden() const; // xdata-free flag of the platform; no file states it, so false
    Acad::ErrorStatus setIsFrozen(bool on);
    Acad::ErrorStatus setIsLocked(bool on);
    Acad::ErrorStatus setIsOff(bool on);
    AcCmColor color() const; // index without its sign, true colour from 420
    Acad::ErrorStatus setColor(const AcCmColor& color);
    AcDbObjectId linetypeObjectId() const;
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
    int lineWeight() const; // 370, -3 default
    Acad::ErrorStatus setLineWeight(int weight);
    bool isPlottable() const; // 290
    Acad::ErrorStatus setIsPlottable(bool on);

    std::string recordName() const override { return "LAYER"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord)
public:
    AcDbLinetypeTableRecord() = default;
    std::wstring comments() const;
    std::string recordName() const override { return "LTYPE"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord)
public:
    AcDbTextStyleTableRecord() = default;
    double textSize() const;
    double xScale() const;
    double obliquingAngle() const; // radians
    std::wstring fileName() const;
    bool isShapeFile() const; // 70 bit 1: its records name no text style
    Acad::ErrorStatus setShapeFile(std::wstring_view file); // of a new record
    std::string recordName() const override { return "STYLE"; }
    std::span<const std::string_view> markers() const override;

protected:
    bool mayLackName() const override { return isShapeFile(); }
    host::Subclass part() const override;
};

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord)
public:
    AcDbDimStyleTableRecord() = default;
    std::string recordName() const override { return "DIMSTYLE"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord)
public:
    AcDbRegAppTableRecord() = default;
    std::string recordName() const override { return "APPID"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
};

class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord)
public:
    AcDbUCSTableRecord() = default;
    std::string recordName() const override { return "UCS"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
};

class AcDbViewTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbViewTableRecord)
public:
    AcDbViewTableRecord() = default;
    std::string recordName() const override { return "VIEW"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
};

class AcDbViewportTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord)
public:
    AcDbViewportTableRecord() = default;
    std::string recordName() const override { return "VPORT"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
};

HOST_DECLARE_TABLE(AcDbLayerTable, AcDbLayerTableRecord)
HOST_DECLARE_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord)
HOST_DECLARE_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord)
HOST_DECLARE_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord)
HOST_DECLARE_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord)
HOST_DECLARE_TABLE(AcDbUCSTable, AcDbUCSTableRecord)
HOST_DECLARE_TABLE(AcDbViewTable, AcDbViewTableRecord)
HOST_DECLARE_TABLE(AcDbViewportTable, AcDbViewportTableRecord)
