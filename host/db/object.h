#pragma once

#include "host/db/filers.h"
#include "host/db/object_id.h"
#include "host/db/reactors.h"
#include "host/db/tag_view.h"
#include "host/runtime/error_status.h"
#include "host/runtime/resbuf.h"
#include "host/runtime/rx_object.h"

#include <memory>
#include <vector>

namespace AcDb {

enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

} // namespace AcDb

namespace host {
class Drawing;
}

// An object of a drawing database. Its contents are its tags; classes are typed views of them.
// Opening for reading splits no tags until a field is asked for. What no class names is kept.
//
// Open modes: any number of readers or one writer. Setters answer eNotOpenForWrite on an object
// that is not open for write. An object made by `new` belongs to its maker until a container takes
// it; it then is open for write.
class AcDbObject : public AcRxObject, protected host::TagWriter {
    ACRX_DECLARE_MEMBERS(AcDbObject)
public:
    ~AcDbObject() override;

    AcDbObjectId objectId() const;
    AcDbHandle handle() const { return objectId().handle(); }
    AcDbDatabase* database() const;
    AcDbObjectId ownerId() const;

    bool isReadEnabled() const { return writer_ || readers_ > 0 || !drawing_; }
    bool isWriteEnabled() const { return writer_ || !drawing_; }
    bool isErased() const;
    bool isModified() const;  // differs from the file as it was opened
    bool isNewObject() const; // made since the drawing was opened

    // An object outside of a database closes with eNotInDatabase and stays its maker's.
    Acad::ErrorStatus close();
    Acad::ErrorStatus upgradeOpen(); // eWasOpenForRead with other readers about
    Acad::ErrorStatus downgradeOpen();
    // Erasing takes along what the object owns; the entry in its owner stays with the owner's kind.
    Acad::ErrorStatus erase(bool erasing = true);

    // The extension dictionary's id, null if there is none (or it is erased).
    AcDbObjectId extensionDictionary() const;
    Acad::ErrorStatus createExtensionDictionary();  // eAlreadyInDb if there is one
    Acad::ErrorStatus releaseExtensionDictionary(); // eContainerNotEmpty while it has entries

    // Extended data, of one application or of all; items as they stand, from 1001 on.
    ResbufChain xData(std::wstring_view application = {}) const;
    // Replaces the data of the application that the first item (1001) names; the application alone
    // removes it.
    Acad::ErrorStatus setXData(const ResbufChain& data);

    void addReactor(AcDbObjectReactor* reactor);
    void removeReactor(AcDbObjectReactor* reactor);
    // Ids in the reactors group.
    std::vector<AcDbObjectId> persistentReactors() const;
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId id);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId id);

    // All groups as a drawing of the newest version would hold them, subclass markers included.
    virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;

    // A copy outside of any database, with the same contents and no handle.
    std::unique_ptr<AcDbObject> clone() const;
    // An object outside of any database with these tags: the type, then no head. Null for a class
    // that has no objects.
    static std::unique_ptr<AcDbObject> withTags(const AcRxClass& kind, host::TagList tags);
    // The tags behind the head are replaced by these, which begin with the type.
    void replaceContents(const host::TagList& contents);
    // The dictionary has this object as its owner already.
    void adoptExtensionDictionary(AcDbObjectId dictionary);
    // The pointer at this position has no target any more: it becomes null, or goes with what
    // belongs to it. Tags before those that go stay in their places.
    virtual void loseReference(std::size_t at);

    // Gives the object to a database under an owner; what containers call. The object is then open
    // for write.
    Acad::ErrorStatus addToDatabase(host::Drawing& drawing, AcDbObjectId owner,
                                    std::uint16_t stubFlags);
    void setOwnerId(AcDbObjectId owner);

    // For the rooms that know tags.
    const host::TagList& tags() const override;
    host::TagList&
    tagsForWrite() override; // asserts write access; tells the journal before the first change
    host::Drawing* drawing() const { return drawing_; }
    std::uint32_t stubNumber() const { return stub_; }
    AcDbObjectId
    idOfHandle(std::uint64_t handle) const; // null for 0, unknown or outside of a drawing

    // The DXF name for a new record of this class, and the markers that a complete record has, in
    // order.
    virtual std::string recordName() const;
    virtual std::span<const std::string_view> markers() const { return {}; }

protected:
    AcDbObject();

    // Fields, typed. A missing one gives the fallback.
    double real(const host::Subclass& part, int code, double fallback) const
    {
        return realField(tags(), part, code, fallback);
    }
    int integer(const host::Subclass& part, int code, int fallback) const
    {
        return static_cast<int>(integerField(tags(), part, code, fallback));
    }
    bool flag(const host::Subclass& part, int code, int bit) const
    {
        return (integer(part, code, 0) & bit) != 0;
    }
    std::wstring text(const host::Subclass& part, int code, std::wstring_view fallback = {}) const
    {
        return textField(tags(), part, code, fallback);
    }
    AcGePoint3d point(const host::Subclass& part, int code, const AcGePoint3d& fallback = {}) const
    {
        return pointField(tags(), part, code).value_or(fallback);
    }
    AcDbObjectId id(const host::Subclass& part, int code) const
    {
        return idOfHandle(handleField(tags(), part, code));
    }

    Acad::ErrorStatus setReal(const host::Subclass& part, int code, double value, double fallback);
    Acad::ErrorStatus setInteger(const host::Subclass& part, int code, int value, int fallback);
    Acad::ErrorStatus setFlag(const host::Subclass& part, int code, int bit, bool on);
    Acad::ErrorStatus setText(const host::Subclass& part, int code, std::wstring_view value,
                              std::wstring_view fallback = {});
    Acad::ErrorStatus setPoint(const host::Subclass& part, int code, const AcGePoint3d& value);
    Acad::ErrorStatus setId(const host::Subclass& part, int code, AcDbObjectId value);
    Acad::ErrorStatus removeFieldOf(const host::Subclass& part, int code);

    // Called after tags were replaced from outside (undo, redo): what was computed from them goes.
    virtual void tagsReplaced() {}
    // An object that names this one among its reactors was erased: a group or a hatch drops the
    // member.
    virtual void memberErased(AcDbObjectId /*member*/) {}
    // Called inside `erase`, after the object itself is flagged.
    virtual void subErase(bool /*erasing*/) {}

private:
    friend class host::Drawing;
    friend class AcDbDatabase;
    friend Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*&, AcDbObjectId, AcDb::OpenMode, bool);

    template <class Call> void tellReactors(Call call) const; // walks a copy of the list
    void tellModified();
    void endWriting();      // what closing and downgrading share
    void takeGivenHandle(); // into the tags, where the file has none or one that was taken
    AcDbObjectId ownExtensionDictionary() const; // erased or not
    // What the record points to as its own and that names it as owner: the extension dictionary, an
    // image's reactor.
    std::vector<AcDbObjectId> hardOwned() const;

    host::Drawing* drawing_ = nullptr;
    std::uint32_t stub_ = 0;
    std::int32_t readers_ = 0;
    bool writer_ = false;
    bool changing_ = false;       // changed since it was opened for write
    bool fresh_ = false;          // just added to the database, not yet closed
    std::size_t queuedBytes_ = 0; // counted while it waits among the decoded objects
    mutable std::shared_ptr<const host::TagList> tags_; // null until asked for
    std::vector<AcDbObjectReactor*> reactors_;
};

// Opens an object. eNullObjectId, eNoDatabase (it was closed), eUnknownHandle, eWasErased,
// ePermanentlyErased (its creation was undone), eWasOpenForRead, eWasOpenForWrite, eOnLockedLayer.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

// Typed opening; eNotThatKindOfClass for an object of another class, which is then closed again.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false)
{
    AcDbObject* opened = nullptr;
    object = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, openErased);
    if (status != Acad::eOk)
        return status;
    object = T::cast(opened);
    if (object)
        return Acad::eOk;
    opened->close();
    return Acad::eNotThatKindOfClass;
}
