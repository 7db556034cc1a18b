#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"
#include "host/db/hatch_lines.h"
#include "host/db/hatch_loop.h"

namespace host {

// Where a hatch's fields stand: before the boundary paths, the paths, and behind them. The codes of
// the paths are partly those of the fields.
struct HatchParts {
    TagRange head;
    TagRange loops;
    TagRange pattern;
};
HatchParts hatchParts(const TagList& tags, const Subclass& part);

class PlaneMap;

} // namespace host

// An area filled with a pattern of lines, one colour, or a gradient. Boundaries lie in the plane of
// the normal at one elevation.
class AcDbHatch : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbHatch)
public:
    enum HatchPatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    enum HatchStyle { kNormal = 0, kOuter = 1, kIgnore = 2 };
    enum HatchLoopType {
        kDefault = 0,
        kExternal = 1,
        kPolyline = 2,
        kDerived = 4,
        kTextbox = 8,
        kOutermost = 16
    };

    AcDbHatch() = default;

    std::wstring patternName() const;
    HatchPatternType patternType() const;
    double patternAngle() const; // radians
    double patternScale() const; // 1 for a filled one
    bool patternDouble() const;
    bool isSolidFill() const;
    bool isGradient() const;
    bool associative() const;
    HatchStyle hatchStyle() const;
    double elevation() const;
    AcGeVector3d normal() const { return host::normalField(tags(), part()); }
    AcCmColor backgroundColor() const; // none where the file has no colour
    int numLoops() const { return static_cast<int>(loops().size()); }
    std::vector<host::HatchLoop> loops() const;
    std::vector<host::PatternLine> patternLines() const; // as drawn: scaled and turned
    // Entities that the boundaries were taken from; those that are gone are left out.
    std::vector<AcDbObjectId> getAssocObjIds() const;

    Acad::ErrorStatus setPatternAngle(double angle); // the lines stay until the pattern is set
    Acad::ErrorStatus setPatternScale(double scale); // eInvalidInput unless positive
    Acad::ErrorStatus setPatternDouble(bool on);
    Acad::ErrorStatus setBackgroundColor(const AcCmColor& color);
    Acad::ErrorStatus setAssociative(bool on);
    Acad::ErrorStatus setHatchStyle(HatchStyle style);
    Acad::ErrorStatus setElevation(double elevation);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setLoops(std::span<const host::HatchLoop> loops);
    // One more path, taken from one entity of the drawing that is closed and lies in the hatch's
    // plane: a polyline or a circle; eInvalidInput for anything else.
    Acad::ErrorStatus appendLoop(int type, const std::vector<AcDbObjectId>& sources);
    // Makes the record whole. The lines were laid when the pattern was set, and are cut when they
    // are drawn. eInvalidInput without a path.
    Acad::ErrorStatus evaluateHatch(bool underestimateNumLines = false);
    // Fills with a pattern of the pattern files, turned and scaled by the pattern's angle and
    // scale; SOLID fills. Predefined ones stand in acad.pat, or acadiso.pat for metric drawings
    // (the working one's measurement before the hatch is in a drawing), custom ones in NAME.pat; a
    // user's pattern is the one called "_USER", or "U", of parallel lines. eInvalidInput for a name
    // that is not found; the hatch then stays as it is.
    Acad::ErrorStatus setPattern(HatchPatternType type, std::wstring_view name);
    // Fills with the lines of a definition, turned and scaled by the pattern's angle and scale.
    Acad::ErrorStatus setPatternLines(HatchPatternType type, std::wstring_view name,
                                      std::span<const host::PatternLine> lines);
    Acad::ErrorStatus setSolidFill();

    // A path's source goes, and the hatch is then no longer associative.
    void loseReference(std::size_t at) override;
    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "HATCH"; }
    std::span<const std::string_view> markers() const override;

protected:
    virtual const host::Subclass& part() const;
    virtual int solidCode() const { return 70; }
    // Loses a boundary that was erased, and is then no longer associative.
    void memberErased(AcDbObjectId member) override;

    // Fields behind the paths.
    std::size_t findInPattern(int code) const;
    double patternReal(int code, double fallback) const;
    int patternInteger(int code, int fallback) const;
    std::size_t placeInPattern(int code) const;
    Acad::ErrorStatus setPatternReal(int code, double value, double fallback);
    Acad::ErrorStatus setPatternInteger(int code, int value, int fallback);
    // Fields before them.
    std::size_t findInHead(int code) const;
    std::size_t placeInHead(int code) const;
    int headInteger(int code, int fallback) const;
    Acad::ErrorStatus setHeadInteger(int code, int value, int fallback);

private:
    void completeParts();
    void mapPattern(const host::PlaneMap& map);
    Acad::ErrorStatus writePattern(HatchPatternType type, std::wstring_view name, bool solid,
                                   std::span<const host::PatternLine> lines);
};
