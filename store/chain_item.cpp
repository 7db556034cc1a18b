#include "store/chain_item.h"

namespace {

struct GroupRow {
    int group;
    OdType type;
    OdValue (*read)(const resbuf::Value& from);
    void (*write)(const OdValue& value, resbuf::Value& to);
};

const GroupRow kGroups[] = {
    {1, OdType::character, [](const resbuf::Value& from) { return OdValue(from.rstring); },
     [](const OdValue& value, resbuf::Value& to) { to.rstring = value.asText(); }},
    {10, OdType::point, [](const resbuf::Value& from) { return OdValue(AcGePoint3d(from.rpoint)); },
     [](const OdValue& value, resbuf::Value& to) { to.rpoint = value.asPoint(); }},
    {40, OdType::real, [](const resbuf::Value& from) { return OdValue(from.rreal); },
     [](const OdValue& value, resbuf::Value& to) { to.rreal = value.asReal(); }},
    {90, OdType::integer, [](const resbuf::Value& from) { return OdValue(from.rlong); },
     [](const OdValue& value, resbuf::Value& to) { to.rlong = value.asInteger(); }},
};

const GroupRow* rowOfGroup(int group)
{
    for (const GroupRow& row : kGroups) {
        if (row.group == group)
            return &row;
    }
    return nullptr;
}

const GroupRow* rowOfType(OdType type)
{
    for (const GroupRow& row : kGroups) {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

} // namespace

OdType typeOfGroup(int group)
{
    const GroupRow* row = rowOfGroup(group);
    return row ? row->type : OdType::none;
}

OdValue valueOfItem(const resbuf& item)
{
    const GroupRow* row = rowOfGroup(item.restype);
    return row ? row->read(item.resval) : OdValue();
}

resbuf itemOfValue(const OdValue& value)
{
    resbuf item;
    item.restype = 0;
    if (const GroupRow* row = rowOfType(value.getType())) {
        item.restype = static_cast<short>(row->group);
        row->write(value, item.resval);
    }
    return item;
}
