#pragma once

#include "host/db/entity.h"

// Records of names that no class here reads. They are kept, moved to layers, coloured, given
// extension dictionaries and erased like all others.
class AcDbGenericEntity : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbGenericEntity)
public:
    AcDbGenericEntity() = default;
    std::string recordName() const override;
};

class AcDbGenericObject : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbGenericObject)
public:
    AcDbGenericObject() = default;
    std::string recordName() const override;
};
