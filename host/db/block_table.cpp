#include "host/db/block_table.h"

#include "host/db/block_begin.h"
#include "host/db/dictionary.h"
#include "host/db/dimension.h"
#include "host/db/drawing.h"
#include "host/db/entity.h"
#include "host/db/object_pointer.h"
#include "host/db/sequence.h"
#include "host/db/symbol_names.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <cwchar>

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, "TABLE BLOCK_RECORD")
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, "BLOCK_RECORD")

using host::BlockPlace;
using host::TagList;

namespace {

constexpr int kUnits = 70;
constexpr int kExplodable = 280;
constexpr int kScaling = 281;
constexpr int kLayout = 340;
constexpr int kPaperSpaceCode = 67;
constexpr int kLayoutNameCode = 410;

// A dimension that comes into a space without a block of its own, as one out of a block does, is
// drawn there; one that measures nothing yet stays as it is.
void drawIfBare(AcDbEntity& entity)
{
    AcDbDimension* const dimension = AcDbDimension::cast(&entity);
    if (dimension && dimension->dimBlockId().isNull())
        dimension->recomputeDimBlock();
}

bool isSpaceName(std::wstring_view name)
{
    // paper spaces of further layouts are numbered
    constexpr std::wstring_view paper = ACDB_PAPER_SPACE;
    return host::equalNoCase(name, ACDB_MODEL_SPACE) ||
           (name.size() >= paper.size() && host::equalNoCase(name.substr(0, paper.size()), paper));
}

// The units that the design centre leaves in the extended data of files before R2007: a version
// and the units, both as 1070.
int unitsOfExtendedData(const ResbufChain& items)
{
    bool theirs = false;
    int seen = 0;
    for (const resbuf& item : items) {
        if (item.restype == 1000)
            theirs = item.resval.rstring == L"DesignCenter Data";
        else if (theirs && item.restype == 1070 && ++seen == 2)
            return item.resval.rint;
    }
    return 0;
}

class ObjectTags : public host::TagWriter {
public:
    explicit ObjectTags(AcDbObject& object) : object_(object) {}
    const TagList& tags() const override { return object_.tags(); }
    TagList& tagsForWrite() override { return object_.tagsForWrite(); }

private:
    AcDbObject& object_;
};

} // namespace

std::span<const std::string_view> AcDbBlockTableRecord::markers() const
{
    static constexpr std::string_view own[] = {"AcDbSymbolTableRecord", "AcDbBlockTableRecord"};
    return own;
}

host::Subclass AcDbBlockTableRecord::part() const
{
    static const host::Subclass own = host::symbolKind("BLOCK_RECORD")->part;
    return own;
}

// ---- the BLOCK ----

const BlockPlace* AcDbBlockTableRecord::place() const
{
    if (!drawing())
        return nullptr;
    const auto found = drawing()->blocks.find(stubNumber());
    return found == drawing()->blocks.end() ? nullptr : &found->second;
}

const TagList* AcDbBlockTableRecord::beginTags() const
{
    const BlockPlace* const block = place();
    if (!block || block->begin == 0)
        return nullptr;
    begin_ = drawing()->tagsOf(block->begin);
    return begin_.get();
}

int AcDbBlockTableRecord::beginFlags() const
{
    const TagList* const begin = beginTags();
    return begin ? static_cast<int>(host::integerField(*begin, host::kBlockBeginPart, 70, 0)) : 0;
}

template <class Change> Acad::ErrorStatus AcDbBlockTableRecord::changeBegin(Change change)
{
    const BlockPlace* const block = place();
    if (!block || block->begin == 0)
        return Acad::eOk; // nothing in the file says it
    AcDbObjectPointer<AcDbBlockBegin> begin(drawing()->id(block->begin), AcDb::kForWrite);
    return begin.openStatus() == Acad::eOk ? change(*begin) : begin.openStatus();
}

bool AcDbBlockTableRecord::isAnonymous() const
{
    return name().starts_with(L'*') && !isLayout();
}

bool AcDbBlockTableRecord::isLayout() const
{
    const bool open = drawing() && (stubNumber() == drawing()->modelSpace ||
                                    stubNumber() == drawing()->paperSpace);
    return open || isSpaceName(host::spaceNameOf(name()));
}

bool AcDbBlockTableRecord::isFromExternalReference() const
{
    return (beginFlags() & (host::kExternalBlock | host::kOverlaidBlock)) != 0;
}

bool AcDbBlockTableRecord::isDependent() const
{
    return (beginFlags() & host::kDependentBlock) != 0;
}

AcGePoint3d AcDbBlockTableRecord::origin() const
{
    const TagList* const begin = beginTags();
    return begin ? host::pointField(*begin, host::kBlockBeginPart, 10).value_or(AcGePoint3d())
                 : newOrigin_;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    newOrigin_ = origin;
    return changeBegin([&](AcDbBlockBegin& begin) { return begin.setOrigin(origin); });
}

std::wstring AcDbBlockTableRecord::comments() const
{
    const TagList* const begin = beginTags();
    return begin ? host::textField(*begin, host::kBlockBeginPart, 4, {}) : newComments_;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(std::wstring_view text)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    newComments_ = text;
    return changeBegin([&](AcDbBlockBegin& begin) { return begin.setComments(text); });
}

Acad::ErrorStatus AcDbBlockTableRecord::setName(std::wstring_view newName)
{
    const Acad::ErrorStatus status = AcDbSymbolTableRecord::setName(newName);
    if (status != Acad::eOk)
        return status;
    return changeBegin([&](AcDbBlockBegin& begin) { return begin.setName(newName); });
}

Acad::ErrorStatus AcDbBlockTableRecord::joined()
{
    host::Drawing& drawn = *drawing();
    BlockPlace& block = drawn.blocks[stubNumber()];
    block.record = stubNumber();
    const bool old = drawn.version <= host::DxfVersion::r12;

    const auto take = [&](AcDbEntity& entity, std::uint32_t& stub) {
        const Acad::ErrorStatus status = entity.addToDatabase(drawn, objectId(), 0);
        if (status == Acad::eOk) {
            stub = entity.stubNumber();
            if (old)
                host::dropMarkers(entity.tagsForWrite());
        }
        return status;
    };
    AcDbObjectPointer<AcDbBlockBegin> begin;
    begin.create();
    const std::wstring own = name();
    begin->setName(own);
    begin->setFlags(own.starts_with(L'*') ? host::kAnonymousBlock : 0);
    begin->setOrigin(newOrigin_);
    if (!newComments_.empty())
        begin->setComments(newComments_);
    AcDbObjectPointer<AcDbBlockEnd> end;
    end.create();
    const Acad::ErrorStatus status = take(*begin, block.begin);
    return status == Acad::eOk ? take(*end, block.end) : status;
}

void AcDbBlockTableRecord::subErase(bool erasing)
{
    const BlockPlace* const block = place();
    if (!block)
        return;
    std::vector<std::uint32_t> owned = block->entities; // a copy: reactors hear each erasing
    owned.push_back(block->begin);
    owned.push_back(block->end);
    for (const std::uint32_t stub : owned) {
        AcDbObjectPointer<AcDbObject> object(drawing()->id(stub), AcDb::kForWrite, !erasing);
        if (object.openStatus() == Acad::eOk)
            object->erase(erasing);
    }
}

// ---- what it holds ----

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity)
{
    id.setNull();
    if (!drawing())
        return Acad::eNotInDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (!entity)
        return Acad::eNullObjectPointer;
    if (entity->database())
        return Acad::eAlreadyInDb;
    host::Drawing& drawn = *drawing();
    const bool paper = isLayout() && stubNumber() != drawn.modelSpace;
    std::uint16_t flags = host::kEntity;
    ObjectTags tags(*entity);
    host::removeField(tags, host::kEntityPart, kLayoutNameCode); // a copy's, of where it was
    if (paper) {
        flags |= host::kPaperSpace;
        host::setIntegerField(tags, host::kEntityPart, kPaperSpaceCode, 1, 0);
    } else {
        host::removeField(tags, host::kEntityPart, kPaperSpaceCode);
    }
    const Acad::ErrorStatus status = entity->addToDatabase(drawn, objectId(), flags);
    if (status != Acad::eOk)
        return status;
    BlockPlace& block = drawn.blocks[stubNumber()];
    block.record = stubNumber();
    block.entities.push_back(entity->stubNumber());
    id = entity->objectId();
    if (isLayout())
        drawIfBare(*entity);
    return host::hangNewChildren(*entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus
AcDbBlockTableRecord::newIterator(std::unique_ptr<AcDbBlockTableRecordIterator>& iterator,
                                  bool atBeginning, bool skipDeleted) const
{
    iterator.reset();
    if (!drawing())
        return Acad::eNotInDatabase;
    iterator = std::make_unique<AcDbBlockTableRecordIterator>(*drawing(), stubNumber(), atBeginning,
                                                              skipDeleted);
    return Acad::eOk;
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const
{
    const BlockPlace* const block = place();
    if (!block)
        return false;
    const host::RecordIndex& index = drawing()->index;
    return std::any_of(block->entities.begin(), block->entities.end(), [&](std::uint32_t stub) {
        return (index[stub].flags & host::kErased) == 0 &&
               index.types().name(index[stub].type) == "ATTDEF";
    });
}

int AcDbBlockTableRecord::blockInsertUnits() const
{
    const std::size_t at = host::findField(tags(), part(), kUnits);
    return at != TagList::npos ? static_cast<int>(tags().integer(at))
                               : unitsOfExtendedData(xData(L"ACAD"));
}

Acad::ErrorStatus AcDbBlockTableRecord::setBlockInsertUnits(int units)
{
    return units == blockInsertUnits() ? Acad::eOk : setInteger(part(), kUnits, units, -1);
}

AcDbBlockTableRecord::BlockScaling AcDbBlockTableRecord::blockScaling() const
{
    return integer(part(), kScaling, kAny) == kUniform ? kUniform : kAny;
}

Acad::ErrorStatus AcDbBlockTableRecord::setBlockScaling(BlockScaling scaling)
{
    return setInteger(part(), kScaling, scaling, kAny);
}

bool AcDbBlockTableRecord::explodable() const
{
    return integer(part(), kExplodable, 1) != 0;
}

AcDbObjectId AcDbBlockTableRecord::getLayoutId() const
{
    return id(part(), kLayout);
}

AcDbObjectId AcDbBlockTableRecord::dynamicDefinition() const
{
    for (const resbuf& item : xData(L"AcDbBlockRepBTag"))
        if (item.restype == 1005)
            return idOfHandle(std::wcstoull(item.resval.rstring.c_str(), nullptr, 16));
    return {};
}

bool AcDbBlockTableRecord::isDynamicBlock() const
{
    const AcDbObjectId dictionary = extensionDictionary();
    return !dictionary.isNull() &&
           !host::dictionaryEntry(*drawing(), dictionary.stubNumber(), L"ACAD_ENHANCEDBLOCK")
                .isNull();
}

// ---- iterator ----

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(host::Drawing& drawing,
                                                           std::uint32_t block, bool atBeginning,
                                                           bool skipDeleted)
    : drawing_(drawing), block_(block)
{
    start(atBeginning, skipDeleted);
}

const std::vector<std::uint32_t>& AcDbBlockTableRecordIterator::entities() const
{
    static const std::vector<std::uint32_t> none;
    const auto found = drawing_.blocks.find(block_);
    return found == drawing_.blocks.end() ? none : found->second.entities;
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted)
{
    skipDeleted_ = skipDeleted;
    at_ = atBeginning ? 0 : static_cast<std::ptrdiff_t>(entities().size()) - 1;
    skip(atBeginning);
}

bool AcDbBlockTableRecordIterator::done() const
{
    return at_ < 0 || at_ >= static_cast<std::ptrdiff_t>(entities().size());
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted)
{
    skipDeleted_ = skipDeleted;
    at_ += forward ? 1 : -1;
    skip(forward);
}

void AcDbBlockTableRecordIterator::skip(bool forward)
{
    const std::uint16_t unwanted = skipDeleted_ ? host::kErased : host::kNeverWas;
    for (; !done(); at_ += forward ? 1 : -1)
        if ((drawing_.index[entities()[static_cast<std::size_t>(at_)]].flags & unwanted) == 0)
            return;
}

AcDbObjectId AcDbBlockTableRecordIterator::entityId() const
{
    return done() ? AcDbObjectId() : drawing_.id(entities()[static_cast<std::size_t>(at_)]);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const
{
    id = entityId();
    return done() ? Acad::eInvalidIndex : Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const
{
    entity = nullptr;
    return done() ? Acad::eInvalidIndex : acdbOpenObject(entity, entityId(), mode, openErased);
}
