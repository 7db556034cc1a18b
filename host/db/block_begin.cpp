#include "host/db/block_begin.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity, "BLOCK")
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity, "ENDBLK")

namespace {

constexpr short kOrder[] = {2, 70, 10, 3, 1, 4};

}

namespace host {

const Subclass kBlockBeginPart{"AcDbBlockBegin", kOrder};

} // namespace host

std::span<const std::string_view> AcDbBlockBegin::markers() const
{
    static constexpr std::string_view own[] = {"AcDbEntity", "AcDbBlockBegin"};
    return own;
}

std::span<const std::string_view> AcDbBlockEnd::markers() const
{
    static constexpr std::string_view own[] = {"AcDbEntity", "AcDbBlockEnd"};
    return own;
}

Acad::ErrorStatus AcDbBlockBegin::setName(std::wstring_view name)
{
    const Acad::ErrorStatus status = setText(host::kBlockBeginPart, 2, name);
    // R12 mostly leaves the second writing of the name out
    if (status != Acad::eOk ||
        (!isNewObject() && findField(tags(), host::kBlockBeginPart, 3) == host::TagList::npos))
        return status;
    return setText(host::kBlockBeginPart, 3, name);
}

Acad::ErrorStatus AcDbBlockBegin::setOrigin(const AcGePoint3d& origin)
{
    return setPoint(host::kBlockBeginPart, 10, origin);
}

Acad::ErrorStatus AcDbBlockBegin::setComments(std::wstring_view text)
{
    return setText(host::kBlockBeginPart, 4, text);
}

Acad::ErrorStatus AcDbBlockBegin::setFlags(int flags)
{
    return setInteger(host::kBlockBeginPart, 70, flags, -1);
}
