#include "host/db/attribute.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbText, "ATTRIB")
ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, "ATTDEF")

bool AcDbAttribute::strokes(host::StrokeSink& sink) const
{
    return isInvisible() || AcDbText::strokes(sink);
}

std::span<const std::string_view> AcDbAttribute::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbText", "AcDbAttribute"};
    return kMarkers;
}

std::span<const std::string_view> AcDbAttributeDefinition::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbText",
                                                    "AcDbAttributeDefinition"};
    return kMarkers;
}
