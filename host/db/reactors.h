#pragma once

class AcDbDatabase;
class AcDbObject;

// Hears what happens to one object. A reactor may remove itself inside a call.
class AcDbObjectReactor {
public:
    virtual ~AcDbObjectReactor() = default;
    virtual void openedForModify(const AcDbObject*) {}
    virtual void modified(const AcDbObject*) {}
    virtual void erased(const AcDbObject*, bool /*erasing*/) {}
    virtual void goodbye(const AcDbObject*) {}
    virtual void objectClosed(AcDbObject*) {}
};

// Hears what happens to the objects of one database. The object is open for notification: it is
// read through the pointer.
class AcDbDatabaseReactor {
public:
    virtual ~AcDbDatabaseReactor() = default;
    virtual void objectAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectModified(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectErased(const AcDbDatabase*, const AcDbObject*, bool /*erased*/) {}
    virtual void headerSysVarWillChange(const AcDbDatabase*, const wchar_t* /*name*/) {}
    virtual void headerSysVarChanged(const AcDbDatabase*, const wchar_t* /*name*/, bool /*success*/)
    {
    }
    virtual void goodbye(const AcDbDatabase*) {}
};
