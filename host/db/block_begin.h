#pragma once

#include "host/db/entity.h"

// The BLOCK that opens a block definition in the file: name, origin, flags and comments.
class AcDbBlockBegin : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbBlockBegin)
public:
    AcDbBlockBegin() = default;

    Acad::ErrorStatus setName(std::wstring_view name); // 2 and 3
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    Acad::ErrorStatus setComments(std::wstring_view text); // 4
    Acad::ErrorStatus setFlags(int flags);                 // 70

    std::span<const std::string_view> markers() const override;
};

class AcDbBlockEnd : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbBlockEnd)
public:
    AcDbBlockEnd() = default;
    std::span<const std::string_view> markers() const override;
};

namespace host {

// The BLOCK's own tags; 70 has these bits.
extern const Subclass kBlockBeginPart;

enum BlockFlag : int {
    kAnonymousBlock = 1,
    kBlockHasAttributes = 2,
    kExternalBlock = 4,
    kOverlaidBlock = 8,
    kDependentBlock = 16,
};

} // namespace host
