#pragma once

#include "host/db/entity_fields.h"
#include "host/db/object.h"

#include <span>

// Moving, turning, scaling and mirroring of entities by their fields. What a map leaves as it is
// keeps its tag.
namespace host {

// A map of the world as an entity sees it whose fields lie in the plane of a normal. The normal
// goes along as a direction, so a mirroring within the plane keeps it and reverses what turns about
// it: bulges, the sense of angles.
class PlaneMap {
public:
    explicit PlaneMap(const AcGeMatrix3d& world, const AcGeVector3d& normal = AcGeVector3d::kZAxis);

    // What all kinds ask of a map and of the object's open mode. Most kinds take similar maps only.
    enum class Takes { similar, any };
    Acad::ErrorStatus check(const AcDbObject& object, Takes takes = Takes::similar) const;

    bool isSimilar() const { return similar_; }     // one scale in all directions
    double scale() const { return scale_; }         // above 0; of a similar map
    bool mirrors() const { return mirrors_; }       // turns the plane's sense of rotation round
    AcGeVector3d normal() const { return normal_; } // of the mapped plane
    AcGeVector3d oldNormal() const { return oldNormal_; }
    const AcGeMatrix3d& plane() const { return plane_; } // from its coordinates to the mapped one's
    const AcGeMatrix3d& world() const { return world_; }

    AcGeVector3d direction(const AcGeVector3d& v) const; // turned; keeps its length
    // Of a direction in the plane, counter-clockwise from its x axis; 0 to 360, or as it was.
    double degrees(double angle) const;
    double turn() const { return turn_; } // degrees that the plane's x axis gets

private:
    AcGeMatrix3d world_;
    AcGeMatrix3d turned_; // the linear part at scale 1
    AcGeMatrix3d plane_;
    AcGeVector3d oldNormal_;
    AcGeVector3d normal_;
    double scale_ = 1.0;
    double turn_ = 0.0;
    bool similar_ = true;
    bool mirrors_ = false;
};

// Degrees from 0 to 360 without the last bits that adding leaves; of an angle that changed.
double tidyDegrees(double degrees);

// How a field follows a map.
enum class FieldForm {
    point,      // x, y, z in the world
    vector,     // in the world, with its length
    direction,  // in the world, of a length that means nothing
    planePoint, // x, y and the height over the plane
    flatPoint,  // x, y in the plane
    flatVector, // in the plane, with its length
    length,
    bulge, // changes its sign
    angle  // degrees in the plane
};
struct MappedField {
    short code;
    FieldForm form;
};

// Maps every tag of these codes in the parts with this marker, or in a range; a list of vertices is
// many tags of one code. Answers the range's end, which moves where a flat point is raised.
void mapFields(TagWriter& object, const Subclass& part, std::span<const MappedField> fields,
               const PlaneMap& map);
std::size_t mapFields(TagWriter& object, TagRange range, std::span<const MappedField> fields,
                      const PlaneMap& map);

// Places, displacements, directions and lengths that applications keep with an entity, and the
// sizes of a text's columns.
void mapExtendedData(TagWriter& object, const PlaneMap& map);

// The field may be missing, which is 0 degrees. `more` is added, as half a turn.
void mapAngle(TagWriter& object, const Subclass& part, int code, const PlaneMap& map,
              double more = 0.0);
void mapNormal(TagWriter& object, const Subclass& part, const PlaneMap& map);
// Thickness and normal of what lies in no plane.
void mapThickness(TagWriter& object, const Subclass& part, const PlaneMap& map);

} // namespace host
