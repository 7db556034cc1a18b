#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

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

    bool strokes(host::StrokeSink& sink) const override;
    std::string recordName() const override { return "MULTILEADER"; }
    std::span<const std::string_view> markers() const override;

private:
    host::TagRange context() const; // brackets included
    std::size_t styleTag() const;
};
