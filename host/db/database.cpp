#include "host/db/database.h"

#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/header_variables.h"
#include "host/db/lookups.h"
#include "host/db/symbol_tables.h"
#include "host/text/encoding.h"

#include <new>
#include <unordered_map>

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)

namespace {

constexpr int kDefaultLuprec = 4;

// The open databases by number. A number is not given twice.
struct Open {
    std::unordered_map<std::uint32_t, AcDbDatabase*> databases;
    std::uint32_t lastNumber = 0;
};

Open& open()
{
    static Open one;
    return one;
}

std::uint32_t enter(AcDbDatabase* database)
{
    const std::uint32_t number = ++open().lastNumber;
    open().databases.emplace(number, database);
    return number;
}

bool isLiving(const host::Stub& stub)
{
    return (stub.flags & (host::kErased | host::kNeverWas)) == 0;
}

int shortVariable(const host::Drawing& drawing, std::string_view name, int fallback)
{
    const std::optional<resbuf> value = host::headerVariable(drawing, name);
    return value && value->restype == RTSHORT ? value->resval.rint : fallback;
}

} // namespace

// ---- life ----

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool /*noDocument*/)
    : number_(enter(this)), lookups_(std::make_unique<host::Lookups>()),
      drawing_(std::make_unique<host::Drawing>(*this, number_))
{
    if (buildDefaultDrawing)
        host::drawingFormat().makeNew(*drawing_);
}

AcDbDatabase::~AcDbDatabase()
{
    drawing_->closeAllOpen(); // its notices come before the last one
    tellReactors([&](AcDbDatabaseReactor& reactor) { reactor.goodbye(this); });
    AcDbHostApplicationServices& services = *acdbHostApplicationServices();
    if (services.workingDatabase() == this)
        services.setWorkingDatabase(nullptr);
    open().databases.erase(number_);
}

void* AcDbDatabase::operator new(std::size_t size)
{
    return ::operator new(size);
}

void AcDbDatabase::operator delete(void* place)
{
    // the memory stays taken, and reachable for tools that look for leaks
    static std::vector<void*>& taken = *new std::vector<void*>;
    taken.push_back(place);
}

AcDbDatabase* AcDbDatabase::withNumber(std::uint32_t number)
{
    const auto found = open().databases.find(number);
    return found == open().databases.end() ? nullptr : found->second;
}

// ---- files ----

Acad::ErrorStatus AcDbDatabase::readDwgFile(const std::filesystem::path& path,
                                            std::wstring* message)
{
    if (drawing_->index.count() != 0)
        return Acad::eInvalidInput;
    const host::FileOutcome outcome = host::drawingFormat().read(path, *drawing_);
    if (message)
        *message = outcome.message;
    if (outcome.status == Acad::eOk) {
        fileName_ = host::fromUtf8(path.string());
    } else {
        drawing_ = std::make_unique<host::Drawing>(*this, number_);
        *lookups_ = host::Lookups();
    }
    return outcome.status;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const std::filesystem::path& path, std::wstring* message)
{
    const host::FileOutcome outcome = host::drawingFormat().save(*drawing_, path);
    if (message)
        *message = outcome.message;
    if (outcome.status != Acad::eOk)
        return outcome.status;
    fileName_ = host::fromUtf8(path.string());
    saved_.clear();
    for (const std::uint32_t stub : drawing_->changed())
        saved_.emplace(stub, now(stub));
    return Acad::eOk;
}

std::wstring AcDbDatabase::getFilename() const
{
    return fileName_;
}

AcDbDatabase::Saved AcDbDatabase::now(std::uint32_t stub) const
{
    return {drawing_->state(stub).tags, isLiving(drawing_->index[stub])};
}

bool AcDbDatabase::isModified() const
{
    for (const std::uint32_t stub : drawing_->changed()) {
        const Saved current = now(stub);
        const auto before = saved_.find(stub);
        if (before != saved_.end()) {
            if (current != before->second)
                return true;
            continue;
        }
        const host::Stub& record = drawing_->index[stub];
        const bool wasThere = record.length > 0 || (record.flags & host::kImplicit) != 0;
        if (current.living != wasThere || (wasThere && current.tags))
            return true;
    }
    return false;
}

// ---- tables and spaces ----

AcDbObjectId AcDbDatabase::tableId(std::string_view name) const
{
    const auto table = drawing_->tables.find(name);
    return table == drawing_->tables.end() ? AcDbObjectId() : drawing_->id(table->second.table);
}

AcDbObjectId AcDbDatabase::blockTableId() const
{
    return tableId("BLOCK_RECORD");
}
AcDbObjectId AcDbDatabase::layerTableId() const
{
    return tableId("LAYER");
}
AcDbObjectId AcDbDatabase::linetypeTableId() const
{
    return tableId("LTYPE");
}
AcDbObjectId AcDbDatabase::textStyleTableId() const
{
    return tableId("STYLE");
}
AcDbObjectId AcDbDatabase::dimStyleTableId() const
{
    return tableId("DIMSTYLE");
}
AcDbObjectId AcDbDatabase::regAppTableId() const
{
    return tableId("APPID");
}
AcDbObjectId AcDbDatabase::ucsTableId() const
{
    return tableId("UCS");
}
AcDbObjectId AcDbDatabase::viewTableId() const
{
    return tableId("VIEW");
}
AcDbObjectId AcDbDatabase::viewportTableId() const
{
    return tableId("VPORT");
}

#define HOST_SYMBOL_TABLE(TABLE, ID)                                                               \
    Acad::ErrorStatus AcDbDatabase::getSymbolTable(TABLE*& table, AcDb::OpenMode mode)             \
    {                                                                                              \
        return acdbOpenObject(table, ID(), mode);                                                  \
    }

HOST_SYMBOL_TABLE(AcDbBlockTable, blockTableId)
HOST_SYMBOL_TABLE(AcDbLayerTable, layerTableId)
HOST_SYMBOL_TABLE(AcDbLinetypeTable, linetypeTableId)
HOST_SYMBOL_TABLE(AcDbTextStyleTable, textStyleTableId)
HOST_SYMBOL_TABLE(AcDbDimStyleTable, dimStyleTableId)
HOST_SYMBOL_TABLE(AcDbRegAppTable, regAppTableId)
HOST_SYMBOL_TABLE(AcDbUCSTable, ucsTableId)
HOST_SYMBOL_TABLE(AcDbViewTable, viewTableId)
HOST_SYMBOL_TABLE(AcDbViewportTable, viewportTableId)

#undef HOST_SYMBOL_TABLE

AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const
{
    return drawing_->id(drawing_->rootDictionary);
}

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                          AcDb::OpenMode mode)
{
    return acdbOpenObject(dictionary, namedObjectsDictionaryId(), mode);
}

AcDbObjectId AcDbDatabase::layoutDictionaryId() const
{
    return host::dictionaryEntry(*drawing_, drawing_->rootDictionary, L"ACAD_LAYOUT");
}

Acad::ErrorStatus AcDbDatabase::getLayoutDictionary(AcDbDictionary*& dictionary,
                                                    AcDb::OpenMode mode)
{
    dictionary = nullptr;
    const AcDbObjectId id = layoutDictionaryId();
    return id.isNull() ? Acad::eKeyNotFound : acdbOpenObject(dictionary, id, mode);
}

AcDbObjectId AcDbDatabase::modelSpaceId() const
{
    return drawing_->id(drawing_->modelSpace);
}
AcDbObjectId AcDbDatabase::paperSpaceId() const
{
    return drawing_->id(drawing_->paperSpace);
}

AcDbObjectId AcDbDatabase::layerZero() const
{
    return findSymbol(*drawing_, "LAYER", L"0");
}

AcDbObjectId AcDbDatabase::byLayerLinetype() const
{
    return findSymbol(*drawing_, "LTYPE", L"ByLayer");
}

AcDbObjectId AcDbDatabase::byBlockLinetype() const
{
    return findSymbol(*drawing_, "LTYPE", L"ByBlock");
}

AcDbObjectId AcDbDatabase::continuousLinetype() const
{
    return findSymbol(*drawing_, "LTYPE", L"Continuous");
}

AcDbObjectId AcDbDatabase::clayer() const
{
    const std::optional<resbuf> name = host::headerVariable(*drawing_, "CLAYER");
    AcDbObjectId layer;
    if (name)
        layer = findSymbol(*drawing_, "LAYER", name->resval.rstring);
    return layer.isNull() ? layerZero() : layer;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, AcDbHandle handle) const
{
    const std::uint32_t stub = drawing_->index.findHandle(handle.value());
    if (stub == 0 || !isLiving(drawing_->index[stub])) {
        id.setNull();
        return Acad::eUnknownHandle;
    }
    id = drawing_->id(stub);
    return Acad::eOk;
}

// ---- variables, reactors ----

int AcDbDatabase::luprec() const
{
    return shortVariable(*drawing_, "LUPREC", kDefaultLuprec);
}
int AcDbDatabase::insunits() const
{
    return shortVariable(*drawing_, "INSUNITS", 0);
}
int AcDbDatabase::measurement() const
{
    return shortVariable(*drawing_, "MEASUREMENT", 0);
}

void AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor)
{
    if (std::find(reactors_.begin(), reactors_.end(), reactor) == reactors_.end())
        reactors_.push_back(reactor);
}

void AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor)
{
    std::erase(reactors_, reactor);
}
