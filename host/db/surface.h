#pragma once

#include "host/db/entity.h"

// Surfaces of a modeller: what made them stands in the record, their shape is the modeller's own.
class AcDbSurface : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbSurface)
public:
    AcDbSurface() = default;
    std::string recordName() const override { return "SURFACE"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbExtrudedSurface : public AcDbSurface {
    ACRX_DECLARE_MEMBERS(AcDbExtrudedSurface)
public:
    AcDbExtrudedSurface() = default;
    std::string recordName() const override { return "EXTRUDEDSURFACE"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbLoftedSurface : public AcDbSurface {
    ACRX_DECLARE_MEMBERS(AcDbLoftedSurface)
public:
    AcDbLoftedSurface() = default;
    std::string recordName() const override { return "LOFTEDSURFACE"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbRevolvedSurface : public AcDbSurface {
    ACRX_DECLARE_MEMBERS(AcDbRevolvedSurface)
public:
    AcDbRevolvedSurface() = default;
    std::string recordName() const override { return "REVOLVEDSURFACE"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbSweptSurface : public AcDbSurface {
    ACRX_DECLARE_MEMBERS(AcDbSweptSurface)
public:
    AcDbSweptSurface() = default;
    std::string recordName() const override { return "SWEPTSURFACE"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbPlaneSurface : public AcDbSurface {
    ACRX_DECLARE_MEMBERS(AcDbPlaneSurface)
public:
    AcDbPlaneSurface() = default;
    std::string recordName() const override { return "PLANESURFACE"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbNurbSurface : public AcDbSurface {
    ACRX_DECLARE_MEMBERS(AcDbNurbSurface)
public:
    AcDbNurbSurface() = default;
    std::string recordName() const override { return "NURBSURFACE"; }
    std::span<const std::string_view> markers() const override;
};
