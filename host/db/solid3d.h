#pragma once

#include "host/db/entity.h"

// Bodies of a modeller. Their geometry is the modeller's own and is kept as the file has it, so
// they neither draw themselves nor have extents.
class AcDb3dSolid : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDb3dSolid)
public:
    AcDb3dSolid() = default;
    std::string recordName() const override { return "3DSOLID"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbRegion : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbRegion)
public:
    AcDbRegion() = default;
    std::string recordName() const override { return "REGION"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbBody : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbBody)
public:
    AcDbBody() = default;
    std::string recordName() const override { return "BODY"; }
    std::span<const std::string_view> markers() const override;
};
