#include "host/db/style_objects.h"

#include "host/db/dictionary.h"
#include "host/db/drawing.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbMlineStyle, AcDbObject, "MLINESTYLE")
ACRX_DXF_DEFINE_MEMBERS(AcDbMLeaderStyle, AcDbObject, "MLEADERSTYLE")
ACRX_DXF_DEFINE_MEMBERS(AcDbGroup, AcDbObject, "GROUP")
ACRX_DXF_DEFINE_MEMBERS(AcDbPlaceHolder, AcDbObject, "ACDBPLACEHOLDER")

namespace {

constexpr host::Subclass kMlineStyle{"AcDbMlineStyle"};
constexpr host::Subclass kMLeaderStyle{"AcDbMLeaderStyle"};
constexpr host::Subclass kGroup{"AcDbGroup"};
constexpr int kMember = 340;

std::wstring keyOf(const AcDbObject& object)
{
    return object.drawing() ? host::dictionaryKey(*object.drawing(), object.ownerId().stubNumber(),
                                                  object.stubNumber())
                            : std::wstring();
}

} // namespace

std::span<const std::string_view> AcDbMlineStyle::markers() const
{
    static constexpr std::string_view own[] = {kMlineStyle.marker};
    return own;
}

std::wstring AcDbMlineStyle::name() const
{
    return text(kMlineStyle, 2);
}

std::wstring AcDbMlineStyle::description() const
{
    return text(kMlineStyle, 3);
}

std::span<const std::string_view> AcDbMLeaderStyle::markers() const
{
    static constexpr std::string_view own[] = {kMLeaderStyle.marker};
    return own;
}

std::wstring AcDbMLeaderStyle::name() const
{
    return keyOf(*this);
}

std::wstring AcDbMLeaderStyle::description() const
{
    return text(kMLeaderStyle, 3);
}

std::span<const std::string_view> AcDbGroup::markers() const
{
    static constexpr std::string_view own[] = {kGroup.marker};
    return own;
}

std::wstring AcDbGroup::name() const
{
    return keyOf(*this);
}

std::wstring AcDbGroup::description() const
{
    return text(kGroup, 300);
}

bool AcDbGroup::isAnonymous() const
{
    return integer(kGroup, 70, 0) != 0;
}

bool AcDbGroup::isSelectable() const
{
    return integer(kGroup, 71, 0) != 0;
}

std::vector<AcDbObjectId> AcDbGroup::allEntityIds() const
{
    std::vector<AcDbObjectId> ids;
    const std::optional<host::TagRange> range = host::subclassRange(tags(), kGroup.marker);
    for (std::size_t i = range ? range->first : 0; range && i < range->last; ++i) {
        if (tags()[i].code != kMember)
            continue;
        const AcDbObjectId member = idOfHandle(tags().handle(i));
        if (!member.isErased())
            ids.push_back(member);
    }
    return ids;
}

void AcDbGroup::memberErased(AcDbObjectId member)
{
    const std::uint64_t handle = member.handle().value();
    const std::optional<host::TagRange> range = host::subclassRange(tags(), kGroup.marker);
    for (std::size_t i = range ? range->last : 0; range && i-- > range->first;)
        if (tags()[i].code == kMember && tags().handle(i) == handle)
            loseReference(i);
}

void AcDbGroup::loseReference(std::size_t at)
{
    if (tags()[at].code == kMember)
        tagsForWrite().erase(at, at + 1);
    else
        AcDbObject::loseReference(at);
}
