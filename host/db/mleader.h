#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

#include <optional>
#include <vector>

namespace host {

class PlaneMap;

// What a multileader is made of: one line from its arrow to its landing, and a text behind it.
struct MLeaderShape {
    enum class Lines { none = 0, straight = 1, spline = 2 };

    std::vector<AcGePoint3d> line; // the arrow's place first, the landing's last; two at least
    std::wstring contents;         // with format codes; empty: nothing behind the line
    Lines lines = Lines::straight;
    bool landing = true;               // a level piece between line and text
    std::optional<double> landingSize; // else the style's
};

} // namespace host

class AcDbBlockReference;

// A leader with its text or block in one. The record describes the content and the lines first, in
// brackets ("CONTEXT_DATA{" to "}"); the leader's own fields stand behind them, and the codes of
// both are partly the same.
class AcDbMLeader : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbMLeader)
public:
    AcDbMLeader() = default;

    AcDbObjectId MLeaderStyle() const;
    Acad::ErrorStatus setMLeaderStyle(AcDbObjectId style); // eInvalidInput for a null id
    std::wstring contents() const;                         // with format codes; empty for a block
    // Becomes a leader of that shape, in the sizes of its style. eInvalidInput without a line,
    // eNoDatabase outside of a drawing.
    Acad::ErrorStatus setShape(const host::MLeaderShape& shape);

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "MULTILEADER"; }
    std::span<const std::string_view> markers() const override;

private:
    std::unique_ptr<AcDbBlockReference> blockContent() const; // null without one
    host::TagRange context() const;                           // brackets included
    std::size_t styleTag() const;
    void mapText(const host::PlaneMap& map);
};
