#include "host/db/transforming.h"

#include "host/db/angle.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kSimilar = 1e-9;     // lengths and cosines of the mapped axes
constexpr double kRounding = 1.5e-15; // what building a map leaves of its zeros and ones

double snapped(double entry)
{
    for (const double exact : {0.0, 1.0, -1.0})
        if (std::abs(entry - exact) <= kRounding)
            return exact;
    return entry;
}

AcGeMatrix3d snapped(AcGeMatrix3d linear)
{
    for (unsigned i = 0; i < 3; ++i)
        for (unsigned j = 0; j < 3; ++j)
            linear.entry[i][j] = snapped(linear.entry[i][j]);
    return linear;
}

AcGeMatrix3d scaled(AcGeMatrix3d linear, double factor)
{
    for (unsigned i = 0; i < 3; ++i)
        for (unsigned j = 0; j < 3; ++j)
            linear.entry[i][j] *= factor;
    return linear;
}

void setOrigin(AcGeMatrix3d& map, const AcGePoint3d& origin)
{
    for (unsigned i = 0; i < 3; ++i)
        map.entry[i][3] = origin[i];
}

bool isSimilarMap(const AcGeMatrix3d& map, double scale)
{
    const AcGeVector3d axes[] = {map.axis(0), map.axis(1), map.axis(2)};
    for (unsigned i = 0; i < 3; ++i) {
        if (std::abs(axes[i].length() - scale) > kSimilar * scale)
            return false;
        if (std::abs(axes[i].dotProduct(axes[(i + 1) % 3])) > kSimilar * scale * scale)
            return false;
    }
    return scale > 0.0;
}

} // namespace

PlaneMap::PlaneMap(const AcGeMatrix3d& world, const AcGeVector3d& normal)
    : oldNormal_(normal), normal_(normal)
{
    AcGeMatrix3d linear = world;
    setOrigin(linear, {});
    scale_ = linear.axis(0).length();
    similar_ = isSimilarMap(linear, scale_);
    scale_ = snapped(scale_);
    if (similar_) {
        turned_ = snapped(scaled(linear, 1.0 / scale_));
        linear = scaled(turned_, scale_);
    } else {
        turned_ = linear;
    }
    mirrors_ = linear.det() < 0.0;
    world_ = linear;
    setOrigin(world_, world.origin());

    const AcGeVector3d mapped = (turned_ * normal).normal();
    if (!mapped.isZeroLength() && !mapped.isEqualTo(normal, AcGeTol(1e-14, 1e-14)))
        normal_ = mapped;
    for (unsigned i = 0; i < 3; ++i)
        normal_[i] = snapped(normal_[i]) + 0.0; // no -0.0
    const AcGeMatrix3d back = AcGeMatrix3d::arbitraryAxes(normal_).inverse();
    AcGeMatrix3d inPlane = back * turned_ * AcGeMatrix3d::arbitraryAxes(normal);
    if (similar_)
        inPlane = snapped(inPlane);
    turn_ = tidyDegrees(toDegrees(std::atan2(inPlane.entry[1][0], inPlane.entry[0][0])));
    plane_ = similar_ ? scaled(inPlane, scale_) : inPlane;
    setOrigin(plane_, back * world_.origin());
}

Acad::ErrorStatus PlaneMap::check(const AcDbObject& object, Takes takes) const
{
    if (!object.isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (world_.isSingular())
        return Acad::eInvalidInput;
    return similar_ || takes == Takes::any ? Acad::eOk : Acad::eCannotScaleNonUniformly;
}

AcGeVector3d PlaneMap::direction(const AcGeVector3d& v) const
{
    const AcGeVector3d mapped = turned_ * v;
    return similar_ ? mapped : mapped.normal() * v.length();
}

double PlaneMap::degrees(double angle) const
{
    return mirrors_ ? tidyDegrees(turn_ - angle)
                    : (turn_ == 0.0 ? angle : tidyDegrees(angle + turn_));
}

double tidyDegrees(double degrees)
{
    const double rounded = std::round(degrees * 1e9) / 1e9;
    if (std::abs(rounded - degrees) <= 1e-12)
        degrees = rounded;
    degrees = std::fmod(degrees, 360.0);
    return (degrees < 0.0 ? degrees + 360.0 : degrees) + 0.0;
}

// ---- fields ----

namespace {

class FieldMapper {
public:
    FieldMapper(TagWriter& object, TagRange range, const PlaneMap& map)
        : object_(object), range_(range), map_(map)
    {
    }

    std::size_t run(std::span<const MappedField> fields)
    {
        for (std::size_t i = range_.first; i < range_.last; ++i) {
            const int code = object_.tags()[i].code;
            const auto field = std::find_if(fields.begin(), fields.end(),
                                            [&](const MappedField& f) { return f.code == code; });
            if (field != fields.end())
                mapField(i, field->form);
        }
        return range_.last;
    }

private:
    void mapField(std::size_t i, FieldForm form)
    {
        const double value = object_.tags().real(i);
        const AcGePoint3d p = placeAt(i);
        switch (form) {
        case FieldForm::point:
            return setPlace(i, p, map_.world() * p);
        case FieldForm::vector:
            return setPlace(i, p, AcGePoint3d() + map_.world() * p.asVector());
        case FieldForm::direction:
            return setPlace(i, p, AcGePoint3d() + map_.direction(p.asVector()));
        case FieldForm::planePoint:
            return setPlace(i, p, map_.plane() * p);
        case FieldForm::flatPoint:
            return setPlace(i, p, AcGePoint3d((map_.plane() * p).convert2d(), p.z));
        case FieldForm::flatVector:
            return setPlace(
                i, p, AcGePoint3d((AcGePoint3d() + map_.plane() * p.asVector()).convert2d(), p.z));
        case FieldForm::length:
            return set(i, value * map_.scale());
        case FieldForm::bulge:
            return set(i, map_.mirrors() && value != 0.0 ? -value : value);
        case FieldForm::angle:
            return set(i, map_.degrees(value));
        }
    }
    bool isZ(std::size_t i) const
    {
        const TagList& tags = object_.tags();
        return i + 2 < range_.last && tags[i + 1].code == tags[i].code + 10 &&
               tags[i + 2].code == tags[i].code + 20;
    }
    // Without a z of its own the elevation counts in the oldest files.
    AcGePoint3d placeAt(std::size_t i) const
    {
        AcGePoint3d p = pointAt(object_.tags(), i);
        if (!isZ(i) && !hasMarkers(object_.tags())) {
            const std::size_t at = findInRecord(object_.tags(), 38);
            p.z = at == TagList::npos ? 0.0 : object_.tags().real(at);
        }
        return p;
    }
    void set(std::size_t i, double value)
    {
        value += 0.0; // no -0.0
        if (object_.tags().real(i) != value)
            object_.tagsForWrite().setReal(i, value);
    }
    void setPlace(std::size_t i, const AcGePoint3d& from, const AcGePoint3d& to)
    {
        set(i, to.x);
        const int code = object_.tags()[i].code;
        const bool hasY = i + 1 < range_.last && object_.tags()[i + 1].code == code + 10;
        if (!hasY && to.y == from.y && to.z == from.z)
            return;
        if (!hasY)
            insert(i + 1, code + 10, to.y);
        else
            set(i + 1, to.y);
        if (isZ(i))
            set(i + 2, to.z);
        else if (to.z != from.z)
            insert(i + 2, code + 20, to.z);
    }
    void insert(std::size_t at, int code, double value)
    {
        object_.tagsForWrite().insertReal(at, code, value);
        ++range_.last;
    }

    TagWriter& object_;
    TagRange range_;
    const PlaneMap& map_;
};

} // namespace

std::size_t mapFields(TagWriter& object, TagRange range, std::span<const MappedField> fields,
                      const PlaneMap& map)
{
    return FieldMapper(object, range, map).run(fields);
}

void mapFields(TagWriter& object, const Subclass& part, std::span<const MappedField> fields,
               const PlaneMap& map)
{
    for (std::size_t from = 0;;) {
        const std::optional<TagRange> range = subclassRange(object.tags(), part.marker, from);
        if (!range || range->last <= from)
            return;
        from = mapFields(object, *range, fields, map);
        if (!hasMarkers(object.tags()))
            return;
    }
}

void mapExtendedData(TagWriter& object, const PlaneMap& map)
{
    static constexpr MappedField kFields[] = {{1011, FieldForm::point},
                                              {1012, FieldForm::vector},
                                              {1013, FieldForm::direction},
                                              {1041, FieldForm::length},
                                              {1042, FieldForm::length}};
    static constexpr MappedField kSizes[] = {{1040, FieldForm::length}};
    struct Bracket {
        std::string_view begin, end;
    };
    static constexpr Bracket kBrackets[] = {
        {"ACAD_MTEXT_COLUMN_INFO_BEGIN", "ACAD_MTEXT_COLUMN_INFO_END"},
        {"ACAD_MTEXT_DEFINED_HEIGHT_BEGIN", "ACAD_MTEXT_DEFINED_HEIGHT_END"}};
    constexpr int kText = 1000;
    const std::size_t first = dataEnd(object.tags());
    if (first == object.tags().size())
        return;
    mapFields(object, {first, object.tags().size()}, kFields, map);
    for (const Bracket& bracket : kBrackets) {
        const std::size_t begin = object.tags().find(kText, bracket.begin, first);
        const std::size_t end =
            std::min(object.tags().find(kText, bracket.end, first), object.tags().size());
        if (begin < end)
            mapFields(object, {begin, end}, kSizes, map);
    }
}

void mapAngle(TagWriter& object, const Subclass& part, int code, const PlaneMap& map, double more)
{
    const double angle = realField(object.tags(), part, code, 0.0);
    const double mapped = map.degrees(angle);
    setRealField(object, part, code, more == 0.0 ? mapped : tidyDegrees(mapped + more), 0.0);
}

void mapNormal(TagWriter& object, const Subclass& part, const PlaneMap& map)
{
    if (map.normal() != map.oldNormal())
        setPointField(object, part, 210, AcGePoint3d() + map.normal());
}

void mapThickness(TagWriter& object, const Subclass& part, const PlaneMap& map)
{
    constexpr int kThickness = 39;
    const double thickness = realField(object.tags(), part, kThickness, 0.0);
    if (thickness != 0.0) {
        const double length = (map.world() * map.oldNormal()).length() * std::abs(thickness);
        const double mapped =
            map.isSimilar() ? thickness * map.scale() : std::copysign(length, thickness);
        setRealField(object, part, kThickness, mapped, 0.0);
    }
    mapNormal(object, part, map);
}

} // namespace host
