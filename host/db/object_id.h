#pragma once

#include <compare>
#include <cstdint>
#include <functional>

class AcDbDatabase;
class AcRxClass;

// The number that names an object inside one drawing file, for the object's whole life.
class AcDbHandle {
public:
    constexpr AcDbHandle() = default;
    constexpr explicit AcDbHandle(std::uint64_t value) : value_(value) {}

    constexpr bool isNull() const { return value_ == 0; }
    constexpr std::uint64_t value() const { return value_; }
    constexpr auto operator<=>(const AcDbHandle&) const = default;

private:
    std::uint64_t value_ = 0;
};

// The name of an object in an open database: the database's number and the object's stub number.
// Neither number is used twice while the program runs, so an id of a closed database is refused,
// not followed.
class AcDbObjectId {
public:
    static const AcDbObjectId kNull;

    constexpr AcDbObjectId() = default;
    constexpr AcDbObjectId(std::uint32_t database, std::uint32_t stub)
        : value_(std::uint64_t{database} << 32 | stub)
    {
    }

    constexpr bool isNull() const { return value_ == 0; }
    bool isValid() const; // names a stub of an open database, erased or not
    void setNull() { value_ = 0; }

    AcDbDatabase* database() const; // null once the database is closed
    AcDbHandle handle() const;      // null for an id that is not valid
    AcRxClass* objectClass() const; // null for an id that is not valid
    bool isErased() const;          // also true for an id that is not valid

    constexpr std::uint32_t databaseNumber() const
    {
        return static_cast<std::uint32_t>(value_ >> 32);
    }
    constexpr std::uint32_t stubNumber() const { return static_cast<std::uint32_t>(value_); }

    constexpr std::int64_t asOldId() const { return static_cast<std::int64_t>(value_); }
    void setFromOldId(std::int64_t id) { value_ = static_cast<std::uint64_t>(id); }

    constexpr auto operator<=>(const AcDbObjectId&) const = default;

private:
    std::uint64_t value_ = 0;
};

inline constexpr AcDbObjectId AcDbObjectId::kNull{};

template <> struct std::hash<AcDbObjectId> {
    std::size_t operator()(const AcDbObjectId& id) const noexcept
    {
        return std::hash<std::int64_t>{}(id.asOldId());
    }
};
