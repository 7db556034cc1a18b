#pragma once

#include "host/db/bulge_path.h"
#include "host/db/entity.h"
#include "host/geom/stroke_sink.h"

namespace host {

using EntityParts = std::vector<std::unique_ptr<AcDbEntity>>;

// Gives a part the layer, colour, linetype, weight and what else is common to all entities, but not
// the space that the whole stands in.
void handOnProperties(const AcDbEntity& whole, AcDbEntity& part);

// What a part says of itself holds, except what it leaves to the block that it is in: the layer 0
// and the properties "by block" become those of the whole.
void resolveByBlock(const AcDbEntity& whole, AcDbEntity& part);

// Makes entities of strokes, with the common properties of what drew them: lines of polylines,
// arcs, circles and ellipses, splines, texts, points, and solids of filled areas of three or four
// corners. Segments without length are left out.
class PartSink : public StrokeSink {
public:
    PartSink(const AcDbEntity& whole, EntityParts& parts) : whole_(whole), parts_(parts) {}

    // Flat figures: what the lines and arcs get. Arcs run counter-clockwise seen against the
    // normal.
    void setPlane(const AcGeVector3d& normal, double thickness)
    {
        normal_ = normal;
        thickness_ = thickness;
    }
    void setTextStyle(AcDbObjectId style) { textStyle_ = style; }

    void polyline(std::span<const AcGePoint3d> points, bool closed) override;
    void arc(const Arc3d& arc) override;
    void spline(const NurbsCurve& curve) override;
    void filledArea(std::span<const Outline> outlines) override;
    void textBox(const TextBox& box) override;
    void point(const AcGePoint3d& position) override;

    // A part that was made elsewhere.
    void add(std::unique_ptr<AcDbEntity> part);
    // eNotApplicable when nothing was drawn.
    Acad::ErrorStatus outcome() const { return made_ ? Acad::eOk : Acad::eNotApplicable; }

private:
    void line(const AcGePoint3d& from, const AcGePoint3d& to);

    const AcDbEntity& whole_;
    EntityParts& parts_;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
    double thickness_ = 0.0;
    AcDbObjectId textStyle_;
    bool made_ = false;
};

// The lines and arcs of a flat polyline, along its centre.
struct FlatPlace {
    double elevation = 0.0;
    double thickness = 0.0;
    AcGeVector3d normal;
};
Acad::ErrorStatus explodeBulgePath(const AcDbEntity& whole, std::span<const BulgeVertex> vertices,
                                   bool closed, const FlatPlace& place, EntityParts& parts);

// A face of these corners, three or more; what has more than four becomes several faces whose
// common edges are invisible. `visible` tells of the edge from each corner to the next; all are
// when it is empty.
void addFaces(PartSink& parts, std::span<const AcGePoint3d> corners,
              const std::vector<bool>& visible = {});

// An arc, a circle or an ellipse in the plane of its axes, or a line where they lie in one line.
std::unique_ptr<AcDbEntity> entityOfArc(const Arc3d& arc, const AcGeVector3d& normal);

} // namespace host
