#pragma once

#include "host/db/drawing_format.h"
#include "host/db/object_pointer.h"
#include "host/db/reactors.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class AcDbBlockTable;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbIdMapping;
class AcDbLayerTable;
class AcDbLayoutManager;
class AcDbLinetypeTable;
class AcDbRegAppTable;
class AcDbTextStyleTable;
class AcDbUCSTable;
class AcDbViewTable;
class AcDbViewportTable;

namespace host {
struct Lookups;
}

namespace AcDb {

// What becomes of a record whose name the drawing already has.
enum DuplicateRecordCloning { kDrcNotApplicable = 0, kDrcIgnore = 1, kDrcReplace = 2 };

} // namespace AcDb

// One drawing in memory. The address of a deleted database is not handed out again, since maps of
// applications have it as their key; objects of this class are made by new.
class AcDbDatabase : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcDbDatabase)
public:
    // A new metric drawing, or an empty one that readDwgFile fills.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;
    static void* operator new(std::size_t size);
    static void operator delete(void* place);

    // Into an empty database, else eInvalidInput. The content decides, not the name. `message`, if
    // given, gets the text for the user. After a failure the database is empty again.
    Acad::ErrorStatus readDwgFile(const std::filesystem::path& path,
                                  std::wstring* message = nullptr);
    // In the form and version as read.
    Acad::ErrorStatus saveAs(const std::filesystem::path& path, std::wstring* message = nullptr);
    std::wstring getFilename() const; // as last read or saved; empty for a new drawing
    void setFilename(std::wstring name) { fileName_ = std::move(name); }
    const std::vector<std::wstring>& warnings() const { return drawing_->warnings; }
    bool isModified() const; // something differs from the file as opened or last saved

    // Opening a table fails only for the open modes.
    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId ucsTableId() const;
    AcDbObjectId viewTableId() const;
    AcDbObjectId viewportTableId() const;
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbUCSTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbViewTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbViewportTable*& table, AcDb::OpenMode mode);

    AcDbObjectId namedObjectsDictionaryId() const;
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode);

    // "ACAD_LAYOUT"; null id where the drawing has none.
    AcDbObjectId layoutDictionaryId() const;
    // eKeyNotFound where the drawing has none.
    Acad::ErrorStatus getLayoutDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode);

    // "*Model_Space" and the space of the active layout; null id never.
    AcDbObjectId modelSpaceId() const;
    AcDbObjectId paperSpaceId() const;
    AcDbObjectId currentSpaceId() const { return modelSpaceId(); }
    AcDbObjectId layerZero() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;
    AcDbObjectId continuousLinetype() const;
    AcDbObjectId clayer() const;

    // eUnknownHandle when no living object has the handle.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, AcDbHandle handle) const;

    // Copies objects of another database, all of it one, under an owner of this one: a symbol table
    // for its records, a dictionary for its entries, a block for entities. What they own comes
    // along, and what they need by name or hard pointer: layers, linetypes, styles, blocks with
    // their contents, applications, entries of the root's dictionaries. A record or entry whose
    // name this drawing has is left as it is (kDrcIgnore) or takes over the other's contents
    // (kDrcReplace); either way the copies refer to it. Soft pointers to what stays behind become
    // null. Handles are new; the form and the version are this drawing's. The mapping, when given,
    // gets a pair for each object met. eInvalidInput for another rule, an owner that is of another
    // kind or in another database, and ids of several databases or of this one; the status of
    // opening the owner, which nobody may have open; eNotApplicable when a modeller's body was left
    // out, whose shape is kept beside the objects.
    Acad::ErrorStatus wblockCloneObjects(const std::vector<AcDbObjectId>& ids, AcDbObjectId owner,
                                         AcDbIdMapping& mapping,
                                         AcDb::DuplicateRecordCloning duplicates);

    // Copies entities of this drawing into a block of it, with all that they own: extension
    // dictionaries and records, vertices, attributes, the blocks that dimensions and tables show.
    // References between them lead to the copies, others to where they led. eInvalidInput for an
    // owner that is no block and for ids of other databases; the rest as above.
    Acad::ErrorStatus deepCloneObjects(const std::vector<AcDbObjectId>& ids, AcDbObjectId owner,
                                       AcDbIdMapping& mapping);

    // Takes a linetype of a linetype file into the drawing; a name with wildcards takes all that
    // match and that the drawing lacks. A file by its bare name is looked for in the support
    // folders. eFileNotFound; eUndefinedLineType for a name that the file has not, or whose shapes
    // are not found; eDuplicateRecordName for one that the drawing has.
    Acad::ErrorStatus loadLineTypeFile(std::wstring_view name, std::wstring_view file);

    int luprec() const;   // LUPREC: digits of linear display, 4 where the file does not say
    int insunits() const; // INSUNITS: 0 unitless
    int measurement() const;

    void addReactor(AcDbDatabaseReactor* reactor);
    void removeReactor(AcDbDatabaseReactor* reactor);
    // Walks a copy of the list: reactors add and remove themselves inside a call.
    template <class Call> void tellReactors(Call call)
    {
        const std::vector<AcDbDatabaseReactor*> now = reactors_;
        for (AcDbDatabaseReactor* reactor : now)
            if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end())
                call(*reactor);
    }

    host::Drawing& drawing() const { return *drawing_; }
    host::Lookups& lookups() const { return *lookups_; }

    // The open database with this number, or null.
    static AcDbDatabase* withNumber(std::uint32_t number);

private:
    // Of an object: its tags where they differ from the image, and whether it is there.
    struct Saved {
        std::shared_ptr<const host::TagList> tags;
        bool living = false;
        bool operator==(const Saved&) const = default;
    };
    Saved now(std::uint32_t stub) const;
    AcDbObjectId tableId(std::string_view name) const;

    const std::uint32_t number_;
    std::unique_ptr<host::Lookups> lookups_;
    std::unique_ptr<host::Drawing> drawing_;
    std::wstring fileName_;
    std::map<std::uint32_t, Saved> saved_; // what differed from the image when it was saved
    std::vector<AcDbDatabaseReactor*> reactors_;
};

// Takes a style of a multiline style file into the working database, under the same rules.
// eFileNotFound, eKeyNotFound, eDuplicateRecordName.
Acad::ErrorStatus acdbLoadMlineStyleFile(std::wstring_view name, std::wstring_view file);

// What the database asks of the program around it.
class AcDbHostApplicationServices {
public:
    using FolderList = std::function<std::vector<std::wstring>()>;

    AcDbDatabase* workingDatabase() const { return working_; }
    void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }

    // A support file: an absolute name as it stands, a bare one in the folder of the drawing (of
    // the working one for null) and then in the support folders, in order.
    std::optional<std::filesystem::path> findFile(std::wstring_view name,
                                                  const AcDbDatabase* database = nullptr) const;
    // Asked at each search; null for none.
    void setSupportFolders(FolderList folders) { folders_ = std::move(folders); }

    AcDbLayoutManager* layoutManager() const;

private:
    AcDbDatabase* working_ = nullptr;
    FolderList folders_;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
