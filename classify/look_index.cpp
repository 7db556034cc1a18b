#include "classify/look_index.h"

#include <array>
#include <bit>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace {

// Values of one property that are kept; a property with more, such as the text of texts, has a
// value for nearly every entity.
constexpr std::size_t kMostValues = 4096;

constexpr std::size_t kWordBits = 64;

// Some of the objects, by their places.
class Places {
public:
    static Places all(std::size_t count)
    {
        Places places;
        places.words_.assign(count / kWordBits + 1, ~std::uint64_t{0});
        places.words_.back() = bit(count) - 1;
        return places;
    }

    bool has(std::size_t place) const { return words_[place / kWordBits] & bit(place); }
    void remove(std::size_t place) { words_[place / kWordBits] &= ~bit(place); }
    void keepOnly(const Places& others)
    {
        for (std::size_t at = 0; at < words_.size(); ++at)
            words_[at] &= others.words_[at];
    }
    // Nothing when there is none.
    std::optional<std::size_t> first() const
    {
        for (std::size_t at = 0; at < words_.size(); ++at)
            if (words_[at])
                return at * kWordBits + static_cast<std::size_t>(std::countr_zero(words_[at]));
        return std::nullopt;
    }

private:
    static std::uint64_t bit(std::size_t place) { return std::uint64_t{1} << place % kWordBits; }

    std::vector<std::uint64_t> words_;
};

// What tells values apart: bits where numbers can be unordered.
std::uint64_t keyOf(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}
std::int32_t keyOf(std::int32_t value)
{
    return value;
}
const std::wstring& keyOf(const std::wstring& value)
{
    return value;
}
std::array<std::uint64_t, 3> keyOf(const ScaleFactors& value)
{
    return {keyOf(value[0]), keyOf(value[1]), keyOf(value[2])};
}
std::array<int, 5> keyOf(const AcCmColor& value)
{
    return {value.colorMethod(), value.colorIndex(), value.red(), value.green(), value.blue()};
}

template <class T> bool isOpen(const PropertyReading<T>& reading, const GraphicProps& props)
{
    return reading.isOpen(props);
}
bool isOpen(const ColorReading& reading, const GraphicProps& props)
{
    return (props.*reading.property).empty();
}

template <class T> T valueOf(const PropertyReading<T>& reading, const AcDbEntity& entity)
{
    return reading.tested(entity);
}
AcCmColor valueOf(const ColorReading& reading, const AcDbEntity& entity)
{
    return reading.read(entity);
}

template <class T>
bool acceptsValue(const PropertyReading<T>& reading, const GraphicProps& props, const T& value)
{
    return matches(props.*reading.property, reading.any, value);
}
bool acceptsValue(const ColorReading& reading, const GraphicProps& props, const AcCmColor& value)
{
    return matches(props.*reading.property, value, reading.none);
}

} // namespace

class LookIndex::PropertyIndex {
public:
    virtual ~PropertyIndex() = default;
    // Takes away the objects that do not accept what the entity has.
    virtual void narrow(Places& candidates, const AcDbEntity& entity) = 0;
};

template <class Reading> class LookIndex::ValueIndex final : public PropertyIndex {
public:
    // The objects must outlive it.
    ValueIndex(const Reading& reading, const std::vector<const ObjectDef*>& objects)
        : reading_(reading), objects_(objects)
    {
        for (std::size_t place = 0; place < objects.size(); ++place)
            if (!isOpen(reading, objects[place]->props))
                stating_.push_back(place);
    }

    bool isStated() const { return !stating_.empty(); }

    void narrow(Places& candidates, const AcDbEntity& entity) override
    {
        const Value value = valueOf(reading_, entity);
        const auto known = accepting_.find(keyOf(value));
        if (known != accepting_.end()) {
            candidates.keepOnly(known->second);
        } else if (accepting_.size() < kMostValues) {
            Places accepting = Places::all(objects_.size());
            removeRefusing(accepting, value);
            candidates.keepOnly(accepting);
            accepting_.emplace(keyOf(value), std::move(accepting));
        } else {
            removeRefusing(candidates, value);
        }
    }

private:
    using Value =
        decltype(valueOf(std::declval<const Reading&>(), std::declval<const AcDbEntity&>()));
    using Key = std::decay_t<decltype(keyOf(std::declval<const Value&>()))>;

    void removeRefusing(Places& places, const Value& value) const
    {
        for (const std::size_t place : stating_)
            if (places.has(place) && !acceptsValue(reading_, objects_[place]->props, value))
                places.remove(place);
    }

    Reading reading_;
    const std::vector<const ObjectDef*>& objects_;
    std::vector<std::size_t> stating_; // the others accept any value
    std::map<Key, Places> accepting_;
};

LookIndex::LookIndex(std::vector<const ObjectDef*> objects,
                     std::span<const EntityProperty> classProperties)
    : objects_(std::move(objects))
{
    add(commonProperties());
    add(classProperties);
}

LookIndex::~LookIndex() = default;

void LookIndex::add(std::span<const EntityProperty> properties)
{
    for (const EntityProperty& property : properties)
        std::visit(
            [&](const auto& reading) {
                using Reading = std::decay_t<decltype(reading)>;
                auto index = std::make_unique<ValueIndex<Reading>>(reading, objects_);
                if (index->isStated())
                    properties_.push_back(std::move(index));
            },
            property);
}

const ObjectDef* LookIndex::firstLike(const AcDbEntity& entity)
{
    Places candidates = Places::all(objects_.size());
    for (const std::unique_ptr<PropertyIndex>& property : properties_) {
        property->narrow(candidates, entity);
        if (!candidates.first())
            return nullptr;
    }
    const std::optional<std::size_t> first = candidates.first();
    return first ? objects_[*first] : nullptr;
}
