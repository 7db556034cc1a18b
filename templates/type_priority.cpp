#include "templates/type_priority.h"

namespace {

struct PriorityRow {
    std::wstring_view type;
    std::int32_t priority;
};

constexpr std::int32_t kOtherTypes = 7000;

constexpr PriorityRow kPriorities[] = {
    {L"Hatch", 0},

    {L"3DSolid", 4000},
    {L"Mesh", 4000},
    {L"Mline", 4000},
    {L"MPolygon", 4000},
    {L"PolyFaceMesh", 4000},
    {L"Surface", 4000},
    {L"Xline", 4000},

    {L"3DFace", 5000},
    {L"3DPolyline", 5000},
    {L"Arc", 5000},
    {L"Circle", 5000},
    {L"Ellipse", 5000},
    {L"Line", 5000},
    {L"Polyline", 5000},
    {L"Ray", 5000},
    {L"Spline", 5000},
    {L"Wipeout", 5000},

    {L"Dimension", 6000},
    {L"MLeader", 6000},

    {L"BlockReference", 8000},
    {L"Point", 8500},
    {L"MText", 9000},
    {L"Text", 9000},
};

} // namespace

std::int32_t typePriority(std::wstring_view type)
{
    for (const PriorityRow& row : kPriorities)
        if (row.type == type)
            return row.priority;
    return kOtherTypes;
}
