#include "classify/objects_by_look.h"

#include "host/text/case_mapping.h"
#include "objects/conformity.h"
#include "objects/entity_type.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <set>

namespace {

// The only layers, lower-cased, on which an entity can look like the object; nothing when there are
// others.
std::optional<std::set<std::wstring>> layersOf(const PropConstraint<std::wstring>& layer)
{
    if (!layer.isGiven() || layer.value == anyText || layer.mode == kValueAndRange)
        return std::nullopt;
    std::set<std::wstring> layers = {host::lowerCased(layer.value)};
    if (layer.mode == kValueAndList)
        for (const std::wstring& each : layer.accepted) {
            if (each == anyText)
                return std::nullopt;
            layers.insert(host::lowerCased(each));
        }
    return layers;
}

} // namespace

ObjectsByLook::ObjectsByLook(const Description& description, Undrawable undrawable)
{
    for (const auto& [name, object] : description.objects)
        if ((object.drawable || undrawable == Undrawable::takesPart) &&
            object.priority > std::numeric_limits<std::int32_t>::min())
            ranked_.push_back(&object);
    std::ranges::stable_sort(ranked_, std::ranges::greater{}, &ObjectDef::priority);

    for (std::uint32_t place = 0; place < ranked_.size(); ++place) {
        const GraphicProps& props = ranked_[place]->props;
        const std::optional<std::set<std::wstring>> layers = layersOf(props.layer);
        for (const std::wstring& type : std::set(props.types.begin(), props.types.end())) {
            OfType& ofType = byType_[type];
            if (!layers)
                ofType.onAnyLayer.push_back(place);
            else
                for (const std::wstring& layer : *layers)
                    ofType.byLayer[layer].push_back(place);
        }
    }
}

const ObjectDef* ObjectsByLook::bestFor(const AcDbEntity& entity) const
{
    const auto ofType = byType_.find(entityTypeName(entity));
    if (ofType == byType_.end())
        return nullptr;
    static const Objects none;
    const Objects& anywhere = ofType->second.onAnyLayer;
    const auto onLayer = ofType->second.byLayer.find(host::lowerCased(entity.layer()));
    const Objects& there = onLayer == ofType->second.byLayer.end() ? none : onLayer->second;

    auto first = anywhere.begin();
    auto second = there.begin();
    while (first != anywhere.end() || second != there.end()) {
        const bool takeFirst =
            second == there.end() || (first != anywhere.end() && *first < *second);
        const ObjectDef& object = *ranked_[takeFirst ? *first++ : *second++];
        if (looksLike(object, entity))
            return &object;
    }
    return nullptr;
}
