#include "draw/property_prompts.h"

#include "description/property_parser.h"
#include "description/property_table.h"
#include "host/edit/prompts.h"

#include <algorithm>
#include <vector>

namespace {

// Whether a property is stated but left open; it is then reset.
template <class T> bool resetIfOpen(GraphicProps& props, PropConstraint<T> GraphicProps::*property)
{
    static const GraphicProps kUnset;
    const PropConstraint<T>& stated = props.*property;
    if (!stated.isGiven() || stated.value != (kUnset.*property).value)
        return false;
    props.*property = kUnset.*property;
    return true;
}

bool resetIfOpen(GraphicProps& props, ColorList GraphicProps::*property)
{
    ColorList& colors = props.*property;
    if (colors.empty() || !colors.front().empty())
        return false;
    colors.clear();
    return true;
}

bool resetIfOpen(GraphicProps&, bool GraphicProps::*)
{
    return false;
}

std::vector<const PropertyRow*> rowsInPromptOrder()
{
    std::vector<const PropertyRow*> rows;
    for (const PropertyRow& row : propertyTable())
        if (row.promptOrder > 0)
            rows.push_back(&row);
    std::ranges::sort(rows, {}, &PropertyRow::promptOrder);
    return rows;
}

} // namespace

bool PromptProperty(std::wstring_view keyword, GraphicProps& props)
{
    std::wstring answer;
    return acedGetString(1, (std::wstring(keyword) + L": ").c_str(), answer) == RTNORM &&
           parseProperty(props, keyword, answer, {});
}

bool promptOpenProperties(GraphicProps& props)
{
    for (const PropertyRow* const row : rowsInPromptOrder()) {
        const bool open =
            std::visit([&](auto member) { return resetIfOpen(props, member); }, row->member);
        if (open && !PromptProperty(row->keyword, props))
            return false;
    }
    return true;
}
