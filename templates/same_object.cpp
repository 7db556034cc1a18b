#include "templates/same_object.h"

#include "description/property_table.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <tuple>

namespace {

bool sameField(const FieldDef& a, const FieldDef& b)
{
    return std::tie(a.description, a.kind, a.name, a.flags, a.type, a.defaultValue, a.values) ==
           std::tie(b.description, b.kind, b.name, b.flags, b.type, b.defaultValue, b.values);
}

bool sameTable(const TableDef& a, const TableDef& b)
{
    return a.name == b.name && std::equal(a.fields.begin(), a.fields.end(), b.fields.begin(),
                                          b.fields.end(), sameField);
}

class Hash {
public:
    std::size_t value() const { return static_cast<std::size_t>(state_); }

    template <class T> void add(const T& value) { mix(std::hash<T>()(value)); }
    template <class T> void add(const std::vector<T>& values)
    {
        mix(values.size());
        for (const T& value : values)
            add(value);
    }
    void add(const ScaleFactors& factors)
    {
        for (const double factor : factors)
            add(factor);
    }
    template <class T> void add(const PropConstraint<T>& constraint)
    {
        add(constraint.mode);
        if (constraint.isGiven()) {
            add(constraint.value);
            add(constraint.accepted);
        }
    }

private:
    // Multiplying carries upward, the shift brings it down again.
    void mix(std::uint64_t value)
    {
        state_ = (state_ ^ value) * 0x9E3779B97F4A7C15ull;
        state_ ^= state_ >> 29;
    }

    std::uint64_t state_ = 0;
};

} // namespace

bool SameObject(const GraphicProps& a, const GraphicProps& b)
{
    const auto agree = [&](const PropertyRow& row) {
        return std::visit([&](auto member) { return a.*member == b.*member; }, row.member);
    };
    const std::span<const PropertyRow> rows = propertyTable();
    return std::all_of(rows.begin(), rows.end(), agree) && a.name == b.name && a.types == b.types &&
           std::equal(a.tables.begin(), a.tables.end(), b.tables.begin(), b.tables.end(),
                      sameTable);
}

std::size_t hashOfObject(const GraphicProps& props)
{
    Hash hash;
    for (const PropertyRow& row : propertyTable())
        std::visit([&](auto member) { hash.add(props.*member); }, row.member);
    hash.add(props.name);
    hash.add(props.types);
    for (const TableDef& table : props.tables)
        hash.add(table.name);
    return hash.value();
}

void UniqueObjects::add(GraphicProps props)
{
    const std::size_t hash = hashOfObject(props);
    const auto [first, last] = positions_.equal_range(hash);
    for (auto known = first; known != last; ++known)
        if (SameObject(objects_[known->second], props))
            return;
    positions_.emplace(hash, objects_.size());
    objects_.push_back(std::move(props));
}
