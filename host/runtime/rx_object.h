#pragma once

#include <string>
#include <string_view>

class AcRxClass;

// Root of every class that knows its own class at run time.
class AcRxObject {
public:
    virtual ~AcRxObject() = default;

    static AcRxClass* desc();
    virtual AcRxClass* isA() const { return desc(); }
    bool isKindOf(const AcRxClass* aClass) const;

protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};

// One run-time class: its name ("AcDbLine"), its parent and, where drawings hold it, its DXF name
// ("LINE"). Each class has one descriptor, made on first use and kept for the life of the program.
class AcRxClass : public AcRxObject {
public:
    using Factory = AcRxObject* (*)();

    AcRxClass(const wchar_t* name, const wchar_t* dxfName, AcRxClass* parent, Factory factory);

    static AcRxClass* desc();
    AcRxClass* isA() const override { return desc(); }

    const wchar_t* name() const { return name_; }
    const wchar_t* dxfName() const
    {
        return dxfName_;
    } // null for a class that no drawing holds by itself
    AcRxClass* myParent() const { return parent_; }
    bool isDerivedFrom(const AcRxClass* other) const;
    AcRxObject* create() const; // null for an abstract class; the caller owns the object

private:
    const wchar_t* name_;
    const wchar_t* dxfName_;
    AcRxClass* parent_;
    Factory factory_;
};

// Declared first in a class body. `cast` answers null when the object is not of that kind.
#define ACRX_DECLARE_MEMBERS(CLASS)                                                                \
public:                                                                                            \
    static AcRxClass* desc();                                                                      \
    AcRxClass* isA() const override                                                                \
    {                                                                                              \
        return desc();                                                                             \
    }                                                                                              \
    static CLASS* cast(AcRxObject* object)                                                         \
    {                                                                                              \
        return object && object->isKindOf(desc()) ? static_cast<CLASS*>(object) : nullptr;         \
    }                                                                                              \
    static const CLASS* cast(const AcRxObject* object)                                             \
    {                                                                                              \
        return object && object->isKindOf(desc()) ? static_cast<const CLASS*>(object) : nullptr;   \
    }                                                                                              \
                                                                                                   \
private:

// An abstract class, or one that only the program holds.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT)                                                 \
    AcRxClass* CLASS::desc()                                                                       \
    {                                                                                              \
        static AcRxClass instance(L"" #CLASS, nullptr, PARENT::desc(), nullptr);                   \
        return &instance;                                                                          \
    }

// A class that drawings hold under a DXF name.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, DXF_NAME)                                           \
    AcRxClass* CLASS::desc()                                                                       \
    {                                                                                              \
        static AcRxClass instance(L"" #CLASS, L"" DXF_NAME, PARENT::desc(),                        \
                                  []() -> AcRxObject* { return new CLASS; });                      \
        return &instance;                                                                          \
    }
