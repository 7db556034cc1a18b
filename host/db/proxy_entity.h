#pragma once

#include "host/db/entity.h"

// An entity of a program that is not there, kept as it came. The record names its class by a number
// (91) into the drawing's class list.
class AcDbProxyEntity : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbProxyEntity)
public:
    AcDbProxyEntity() = default;

    std::wstring originalClassName() const; // "AcDbProxyEntity" itself where the list lacks it
    std::wstring originalDxfName() const;
    std::wstring applicationDescription() const;

    std::string recordName() const override { return "ACAD_PROXY_ENTITY"; }
    std::span<const std::string_view> markers() const override;
};

// The same of an object that is not drawn.
class AcDbProxyObject : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbProxyObject)
public:
    AcDbProxyObject() = default;

    std::wstring originalClassName() const;
    std::wstring originalDxfName() const;

    std::string recordName() const override { return "ACAD_PROXY_OBJECT"; }
    std::span<const std::string_view> markers() const override;
};
