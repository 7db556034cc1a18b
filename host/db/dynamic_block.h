#pragma once

#include "host/db/object_id.h"

class AcDbBlockReference;

// What a block reference has to do with dynamic blocks. A reference whose parameters were set
// refers to an anonymous block of its own; which definition that one was made from stands in the
// reference's extension dictionary (AcDbBlockRepresentation, AcDbRepData) and in the extended data
// of the anonymous block. A reference as first inserted refers to the definition itself.
class AcDbDynBlockReference {
public:
    explicit AcDbDynBlockReference(AcDbObjectId reference);
    explicit AcDbDynBlockReference(const AcDbBlockReference* reference);

    bool isDynamicBlock() const { return !definition_.isNull(); }
    AcDbObjectId dynamicBlockTableRecord() const // the reference's own block when not dynamic
    {
        return isDynamicBlock() ? definition_ : block_;
    }
    AcDbObjectId anonymousBlockTableRecord() const // null id for the definition as inserted
    {
        return isDynamicBlock() && definition_ != block_ ? block_ : AcDbObjectId();
    }

private:
    void read(const AcDbBlockReference& reference);

    AcDbObjectId block_;
    AcDbObjectId definition_;
};
