#pragma once

#include "host/db/object.h"

#include <string>
#include <vector>

// A style of multiple lines, in the dictionary ACAD_MLINESTYLE.
class AcDbMlineStyle : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbMlineStyle)
public:
    AcDbMlineStyle() = default;

    std::wstring name() const; // its own (2), which may differ from its key in letter case
    std::wstring description() const;

    std::span<const std::string_view> markers() const override;
};

// A style of multileaders, in the dictionary ACAD_MLEADERSTYLE.
class AcDbMLeaderStyle : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbMLeaderStyle)
public:
    AcDbMLeaderStyle() = default;

    // The key under which its dictionary holds it, since the record has no name of its own.
    std::wstring name() const;
    std::wstring description() const;

    std::span<const std::string_view> markers() const override;
};

// A named set of entities, in the dictionary ACAD_GROUP. An entity names its groups among its
// reactors.
class AcDbGroup : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbGroup)
public:
    AcDbGroup() = default;

    std::wstring name() const; // its key
    std::wstring description() const;
    bool isAnonymous() const;
    bool isSelectable() const;
    std::vector<AcDbObjectId> allEntityIds() const; // living ones, in order
    void loseReference(std::size_t at) override;    // a member goes

    std::span<const std::string_view> markers() const override;

protected:
    void memberErased(AcDbObjectId member) override;
};

// An object that only marks an entry of a dictionary, as plot style names do.
class AcDbPlaceHolder : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbPlaceHolder)
public:
    AcDbPlaceHolder() = default;
};
