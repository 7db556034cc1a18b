#include "host/io/subclass_parts.h"

#include "host/db/tag_view.h"

#include <algorithm>

namespace host {

namespace {

constexpr short kArcCodes[] = {50, 51};
constexpr short kTextVertical[] = {73};
constexpr short kTextCodes[] = {39, 10, 20, 30, 40, 1,  50,  41,  51,
                                7,  71, 72, 11, 21, 31, 210, 220, 230};
constexpr short kAlignedCodes[] = {12, 22, 32, 13, 23, 33, 14, 24, 34, 50, 52};
constexpr short kPointCodes[] = {13, 23, 33, 14, 24, 34, 15, 25, 35, 16, 26, 36};
constexpr short kRadialCodes[] = {15, 25, 35, 40};
constexpr short kNothing[] = {-1}; // a marker with nothing behind it

constexpr SubclassPart kArc[] = {{"AcDbCircle"}, {"AcDbArc", kArcCodes}};
constexpr SubclassPart kText[] = {{"AcDbText"}, {"AcDbText", kTextVertical}};
constexpr SubclassPart kAttribute[] = {{"AcDbText", kTextCodes}, {"AcDbAttribute"}};
constexpr SubclassPart kAttributeDefinition[] = {{"AcDbText", kTextCodes},
                                                 {"AcDbAttributeDefinition"}};

struct TypeParts {
    std::string_view type;
    std::span<const SubclassPart> parts;
};
constexpr TypeParts kSeveral[] = {
    {"ARC", kArc},
    {"TEXT", kText},
    {"ATTRIB", kAttribute},
    {"ATTDEF", kAttributeDefinition},
};

struct TypePart {
    std::string_view type;
    std::string_view marker;
    bool r12;
};
constexpr TypePart kSingle[] = {
    {"LINE", "AcDbLine", true},
    {"3DLINE", "AcDbLine", true},
    {"POINT", "AcDbPoint", true},
    {"CIRCLE", "AcDbCircle", true},
    {"SOLID", "AcDbTrace", true},
    {"TRACE", "AcDbTrace", true},
    {"SHAPE", "AcDbShape", true},
    {"3DFACE", "AcDbFace", true},
    {"VIEWPORT", "AcDbViewport", true},
    {"LWPOLYLINE", "AcDbPolyline", false},
    {"ELLIPSE", "AcDbEllipse", false},
    {"SPLINE", "AcDbSpline", false},
    {"MTEXT", "AcDbMText", false},
    {"HATCH", "AcDbHatch", false},
    {"RAY", "AcDbRay", false},
    {"XLINE", "AcDbXline", false},
    {"MLINE", "AcDbMline", false},
    {"LEADER", "AcDbLeader", false},
    {"TOLERANCE", "AcDbFcf", false},
    {"REGION", "AcDbModelerGeometry", false},
    {"3DSOLID", "AcDbModelerGeometry", false},
    {"BODY", "AcDbModelerGeometry", false},
};

// What R12 has beside those with one part.
constexpr std::string_view kOthersOfR12[] = {"ARC",      "TEXT",   "ATTRIB", "ATTDEF",   "INSERT",
                                             "POLYLINE", "VERTEX", "SEQEND", "DIMENSION"};

constexpr SubclassPart kDimensions[][3] = {
    {{"AcDbDimension"},
     {"AcDbAlignedDimension", kAlignedCodes},
     {"AcDbRotatedDimension", kNothing}},
    {{"AcDbDimension"}, {"AcDbAlignedDimension", kAlignedCodes}, {}},
    {{"AcDbDimension"}, {"AcDb2LineAngularDimension", kPointCodes}, {}},
    {{"AcDbDimension"}, {"AcDbDiametricDimension", kRadialCodes}, {}},
    {{"AcDbDimension"}, {"AcDbRadialDimension", kRadialCodes}, {}},
    {{"AcDbDimension"}, {"AcDb3PointAngularDimension", kPointCodes}, {}},
    {{"AcDbDimension"}, {"AcDbOrdinateDimension", kPointCodes}, {}},
};

std::int64_t flagsOf(const TagList& tags, int code)
{
    const std::size_t at = tags.find(code, 0, dataEnd(tags));
    return at == TagList::npos ? 0 : tags.integer(at);
}

constexpr int k3dPolyline = 8;
constexpr int kMesh = 16;
constexpr int kPolyface = 64;
constexpr int kPolyfaceVertex = 128;

std::vector<SubclassPart> vertexParts(std::int64_t flags, std::int64_t parentFlags)
{
    if (parentFlags & kPolyface) {
        if ((flags & kPolyfaceVertex) && !(flags & kPolyface))
            return {{"AcDbFaceRecord"}};
        return {{"AcDbVertex", kNothing}, {"AcDbPolyFaceMeshVertex"}};
    }
    if (parentFlags & kMesh)
        return {{"AcDbVertex", kNothing}, {"AcDbPolygonMeshVertex"}};
    if (parentFlags & k3dPolyline)
        return {{"AcDbVertex", kNothing}, {"AcDb3dPolylineVertex"}};
    return {{"AcDbVertex", kNothing}, {"AcDb2dVertex"}};
}

std::string_view polylineMarker(std::int64_t flags)
{
    if (flags & kPolyface)
        return "AcDbPolyFaceMesh";
    if (flags & kMesh)
        return "AcDbPolygonMesh";
    return flags & k3dPolyline ? "AcDb3dPolyline" : "AcDb2dPolyline";
}

} // namespace

std::vector<SubclassPart> partsOfEntity(const TagList& tags, std::int64_t parentFlags)
{
    const std::string_view type = tags.empty() ? std::string_view() : tags[0].bytes();
    for (const TypePart& row : kSingle)
        if (row.type == type)
            return {{row.marker}};
    for (const TypeParts& row : kSeveral)
        if (row.type == type)
            return {row.parts.begin(), row.parts.end()};
    if (type == "INSERT") {
        const bool many = flagsOf(tags, 70) > 1 || flagsOf(tags, 71) > 1;
        return {{many ? "AcDbMInsertBlock" : "AcDbBlockReference"}};
    }
    if (type == "POLYLINE")
        return {{polylineMarker(flagsOf(tags, 70))}};
    if (type == "VERTEX")
        return vertexParts(flagsOf(tags, 70), parentFlags);
    if (type == "DIMENSION") {
        const auto kind = static_cast<std::size_t>(flagsOf(tags, 70) & 7);
        const auto& parts = kDimensions[std::min(kind, std::size(kDimensions) - 1)];
        std::vector<SubclassPart> found;
        for (const SubclassPart& part : parts)
            if (!part.marker.empty())
                found.push_back(part);
        return found;
    }
    return {};
}

bool isEntityOfR12(std::string_view type)
{
    for (const TypePart& row : kSingle)
        if (row.type == type)
            return row.r12;
    return std::find(std::begin(kOthersOfR12), std::end(kOthersOfR12), type) !=
           std::end(kOthersOfR12);
}

} // namespace host
