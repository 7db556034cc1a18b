#pragma once

#include "host/db/database.h"

// Reads an object for a scope, also one that somebody has open for write just then: looking a name
// up or drawing a block must not fail because a command holds a table or an entity meanwhile.
namespace host {

template <class T> class Reading {
public:
    explicit Reading(AcDbObjectId id)
    {
        const Acad::ErrorStatus status = acdbOpenObject(opened_, id, AcDb::kForRead);
        object_ = opened_;
        if (status != Acad::eWasOpenForWrite && status != Acad::eWasOpenForNotify)
            return;
        const AcDbDatabase* const database = id.database();
        object_ = database ? T::cast(static_cast<const AcRxObject*>(
                                 database->drawing().index[id.stubNumber()].object))
                           : nullptr;
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading()
    {
        if (opened_)
            opened_->close();
    }

    explicit operator bool() const { return object_ != nullptr; }
    const T* operator->() const { return object_; }
    const T& operator*() const { return *object_; }

private:
    T* opened_ = nullptr;
    const T* object_ = nullptr;
};

} // namespace host
