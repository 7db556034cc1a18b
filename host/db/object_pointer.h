#pragma once

#include "host/db/object.h"

#include <cassert>
#include <utility>

// Holds an object open for a scope; closes it at the end, or deletes it if no database took it.
template <class T> class AcDbObjectPointer {
public:
    AcDbObjectPointer() = default;
    AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false)
    {
        open(id, mode, openErased);
    }
    AcDbObjectPointer(AcDbObjectPointer&& other) noexcept
        : object_(std::exchange(other.object_, nullptr)),
          status_(std::exchange(other.status_, Acad::eNullObjectPointer))
    {
    }
    AcDbObjectPointer& operator=(AcDbObjectPointer&& other) noexcept
    {
        if (this != &other) {
            close();
            object_ = std::exchange(other.object_, nullptr);
            status_ = std::exchange(other.status_, Acad::eNullObjectPointer);
        }
        return *this;
    }
    ~AcDbObjectPointer() { close(); }

    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false)
    {
        close();
        return status_ = acdbOpenObject(object_, id, mode, openErased);
    }
    // A new object outside of any database.
    Acad::ErrorStatus create()
    {
        close();
        object_ = new T;
        return status_ = Acad::eOk;
    }
    // Takes over an open or new object.
    Acad::ErrorStatus acquire(T* object)
    {
        close();
        object_ = object;
        return status_ = object ? Acad::eOk : Acad::eNullObjectPointer;
    }
    Acad::ErrorStatus close()
    {
        T* const object = std::exchange(object_, nullptr);
        status_ = Acad::eNullObjectPointer;
        if (!object)
            return Acad::eNullObjectPointer;
        if (!object->database()) {
            delete object;
            return Acad::eOk;
        }
        return object->close();
    }

    Acad::ErrorStatus openStatus() const { return status_; }
    explicit operator bool() const { return object_ != nullptr; }
    T* object() const { return object_; }
    T* operator->() const
    {
        assert(object_);
        return object_;
    }
    T& operator*() const
    {
        assert(object_);
        return *object_;
    }

private:
    T* object_ = nullptr;
    Acad::ErrorStatus status_ = Acad::eNullObjectPointer;
};
