#pragma once

#include "host/db/object.h"

#include <memory>
#include <string>
#include <vector>

class AcDbSymbolTableIterator;

// An entry of a symbol table; 70 holds its standard flags.
class AcDbSymbolTableRecord : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord)
public:
    Acad::ErrorStatus getName(std::wstring& name) const;
    std::wstring name() const; // empty where the file gives none
    // eDuplicateKey, eInvalidKey. What refers to the record by its name is not touched.
    virtual Acad::ErrorStatus setName(std::wstring_view name);
    virtual bool isDependent() const; // of an external reference

protected:
    friend class AcDbSymbolTable;

    AcDbSymbolTableRecord() = default;
    // Whether a table takes the record without a name.
    virtual bool mayLackName() const { return false; }
    // Gives a new record what a complete one has; called before a table takes it.
    virtual void complete(host::Drawing& drawing);
    // Called once a table has taken the record, which is open for write.
    virtual Acad::ErrorStatus joined() { return Acad::eOk; }
    // A change of what lookups keep: names, layer states.
    void noteSymbolChange();

    // The marker of the class, under which 2 and 70 stand.
    virtual host::Subclass part() const = 0;
};

// A symbol table: named records; names compare without case, the first of a name counts.
class AcDbSymbolTable : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable)
public:
    // eKeyNotFound
    Acad::ErrorStatus getAt(std::wstring_view name, AcDbObjectId& id) const;
    template <class T>
    Acad::ErrorStatus getAt(std::wstring_view name, T*& record, AcDb::OpenMode mode) const
    {
        AcDbObjectId found;
        record = nullptr;
        const Acad::ErrorStatus status = getAt(name, found);
        return status == Acad::eOk ? acdbOpenObject(record, found, mode) : status;
    }
    bool has(std::wstring_view name) const;
    bool has(AcDbObjectId id) const;
    // The record becomes the table's and is then open for write. eDuplicateKey, eInvalidKey (no
    // name), eWrongObjectType (a record of another table). A block name of "*" and one letter gets
    // the next free number.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    // Living records in order; holds a copy of the ids.
    std::unique_ptr<AcDbSymbolTableIterator> newIterator() const;

    std::string recordName() const override { return "TABLE"; }
    std::span<const std::string_view> markers() const override;

protected:
    AcDbSymbolTable() = default;

private:
    std::string_view tableName() const; // "LAYER"
};

class AcDbSymbolTableIterator {
public:
    explicit AcDbSymbolTableIterator(std::vector<AcDbObjectId> records)
        : records_(std::move(records))
    {
    }
    void start() { at_ = 0; }
    bool done() const { return at_ >= records_.size(); }
    void step() { ++at_; }
    AcDbObjectId getRecordId() const { return records_[at_]; }
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const
    {
        id = records_[at_];
        return Acad::eOk;
    }
    template <class T>
    Acad::ErrorStatus getRecord(T*& record, AcDb::OpenMode mode = AcDb::kForRead) const
    {
        return acdbOpenObject(record, records_[at_], mode);
    }

private:
    std::vector<AcDbObjectId> records_;
    std::size_t at_ = 0;
};
