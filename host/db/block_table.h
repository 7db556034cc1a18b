#pragma once

#include "host/db/symbol_table.h"
#include "host/geom/point.h"

#include <memory>
#include <string>
#include <vector>

class AcDbEntity;
class AcDbSortentsTable;
class AcDbBlockTableRecordIterator;

namespace host {
struct BlockPlace;
}

// A block definition or a space: a BLOCK_RECORD (R12 has none; it is implicit there) with its BLOCK
// and the entities.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord)
public:
    AcDbBlockTableRecord() = default;

    // The entity becomes the block's last and is then open for write.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    // eKeyNotFound where there is none and none is to be made. The block must be open for write
    // when one is made.
    Acad::ErrorStatus getSortentsTable(AcDbSortentsTable*& table,
                                       AcDb::OpenMode mode = AcDb::kForRead,
                                       bool createIfNecessary = true);
    // From the first to the last entity; erased ones left out unless asked for.
    Acad::ErrorStatus newIterator(std::unique_ptr<AcDbBlockTableRecordIterator>& iterator,
                                  bool atBeginning = true, bool skipDeleted = true) const;

    bool isAnonymous() const; // "*U12", "*D3"; the spaces are none
    bool isLayout() const;    // a space
    bool isFromExternalReference() const;
    bool hasAttributeDefinitions() const;
    bool isDependent() const override;
    // As the BLOCK says; of a new block also before a table takes it.
    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    std::wstring comments() const;
    Acad::ErrorStatus setComments(std::wstring_view text);
    // 70 of the record; in files without it the units of its extended data, else 0.
    int blockInsertUnits() const;
    Acad::ErrorStatus setBlockInsertUnits(int units);
    // Whether references may be scaled by axis or by one factor only (281).
    enum BlockScaling { kAny = 0, kUniform = 1 };
    BlockScaling blockScaling() const;
    Acad::ErrorStatus setBlockScaling(BlockScaling scaling);
    bool explodable() const; // by the user's command (280); yes where the file says nothing
    AcDbObjectId getLayoutId() const;
    // The dynamic block that an anonymous one stands for; null id when it stands for none.
    AcDbObjectId dynamicDefinition() const;
    bool isDynamicBlock() const;

    Acad::ErrorStatus setName(std::wstring_view name) override; // of its BLOCK too

    std::string recordName() const override { return "BLOCK_RECORD"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::Subclass part() const override;
    Acad::ErrorStatus joined() override; // makes BLOCK and ENDBLK
    void subErase(bool erasing) override;

private:
    const host::BlockPlace* place() const;  // null outside of a drawing
    const host::TagList* beginTags() const; // of the BLOCK; null without one
    int beginFlags() const;                 // its 70
    template <class Change> Acad::ErrorStatus changeBegin(Change change);

    mutable std::shared_ptr<const host::TagList> begin_; // keeps beginTags() alive
    AcGePoint3d newOrigin_;                              // until there is a BLOCK
    std::wstring newComments_;
};

class AcDbBlockTable : public AcDbSymbolTable {
    ACRX_DECLARE_MEMBERS(AcDbBlockTable)
public:
    using Record = AcDbBlockTableRecord;
    AcDbBlockTable() = default;
};

// Names of the spaces, compared without case; R12's "$MODEL_SPACE" counts as the same.
inline constexpr const wchar_t* ACDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const wchar_t* ACDB_PAPER_SPACE = L"*Paper_Space";

// Walks a block's entities by number: it opens nothing by itself, and entities appended meanwhile
// are met too.
class AcDbBlockTableRecordIterator {
public:
    AcDbBlockTableRecordIterator(host::Drawing& drawing, std::uint32_t block, bool atBeginning,
                                 bool skipDeleted);
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    AcDbObjectId entityId() const;
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;

private:
    const std::vector<std::uint32_t>& entities() const;
    void skip(bool forward);

    host::Drawing& drawing_;
    std::uint32_t block_;
    std::ptrdiff_t at_ = 0;
    bool skipDeleted_ = true;
};
