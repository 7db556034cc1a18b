#include "templates/object_writer.h"

#include "description/property_table.h"
#include "host/db/database.h"
#include "templates/type_priority.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <optional>
#include <type_traits>

namespace {

const std::wstring kObjectIndent = L"\t";
const std::wstring kItemIndent = L"\t\t";

std::wstring joined(const std::vector<std::wstring>& texts)
{
    std::wstring text;
    for (std::size_t at = 0; at < texts.size(); ++at)
        text += (at ? L", " : L"") + texts[at];
    return text;
}

std::wstring_view wordOf(std::wstring_view keyword, std::int32_t code)
{
    const PropertyRow* const row = findProperty(keyword);
    return row ? wordOfCode(row->words, code) : std::wstring_view();
}

// One property's value as a line states it; nothing for a property that is left open.
class PropertyText {
public:
    PropertyText(const GraphicProps& props, int decimals) : props_(props), decimals_(decimals) {}

    std::optional<std::wstring> of(const PropertyRow& row) const
    {
        return std::visit([&](auto member) { return textOf(row, props_.*member); }, row.member);
    }

private:
    using Text = std::optional<std::wstring>;

    template <class T> static bool isOpen(const PropConstraint<T>& given, const T& any)
    {
        return !given.isGiven() || given.value == any;
    }
    std::wstring number(double value) const { return realText(value, decimals_); }

    Text textOf(const PropertyRow& row, const PropConstraint<double>& given) const
    {
        if (isOpen(given, kAnyReal))
            return std::nullopt;
        // an angle is taken for radians here, whatever wrote it
        const bool isAngle = row.member == PropertyMember(&GraphicProps::angle);
        return number(isAngle ? given.value * 180.0 / std::numbers::pi : given.value);
    }
    Text textOf(const PropertyRow&, const PropConstraint<ScaleFactors>& given) const
    {
        if (isOpen(given, anyScale))
            return std::nullopt;
        const auto& [x, y, z] = given.value;
        const double tolerance = std::pow(0.1, decimals_);
        if (std::abs(x - y) < tolerance && std::abs(x - z) < tolerance)
            return number(x);
        return L"(" + number(x) + L" " + number(y) + L" " + number(z) + L")";
    }
    Text textOf(const PropertyRow& row, const PropConstraint<std::wstring>& given) const
    {
        if (isOpen(given, anyText))
            return std::nullopt;
        // of layers alone a line also tells what else is accepted
        if (row.member != PropertyMember(&GraphicProps::layer))
            return given.value;
        const std::vector<std::wstring>& accepted = given.accepted;
        if (given.mode == kValueAndList)
            return given.value + L"\t" + joined(accepted);
        if (given.mode == kValueAndRange && accepted.size() >= 2)
            return given.value + L"\t" + accepted[0] + L":" + accepted[1];
        return given.value;
    }
    Text textOf(const PropertyRow& row, const PropConstraint<std::uint8_t>& given) const
    {
        if (isOpen(given, kAnyByte))
            return std::nullopt;
        if (row.grammar != PropertyGrammar::code)
            return integerText(given.value);
        const std::wstring_view word = wordOfCode(row.words, given.value);
        return std::wstring(word.empty() ? L"Zero" : word);
    }
    Text textOf(const PropertyRow& row, const PropConstraint<std::int32_t>& given) const
    {
        const bool isWeight = row.grammar == PropertyGrammar::wordOrNumber;
        if (isOpen(given, isWeight ? kAnyLineWeight : kAnyCode))
            return std::nullopt;
        const std::wstring_view word = wordOfCode(row.words, given.value);
        return word.empty() && isWeight ? integerText(given.value) : std::wstring(word);
    }
    Text textOf(const PropertyRow&, const ColorList& colors) const
    {
        if (colors.empty())
            return std::nullopt;
        std::vector<std::wstring> texts;
        std::transform(colors.begin(), colors.end(), std::back_inserter(texts), TextOfColor);
        return joined(texts);
    }
    Text textOf(const PropertyRow&, bool) const { return std::nullopt; }

    const GraphicProps& props_;
    int decimals_;
};

std::wstring headLine(const GraphicProps& props, const Description* description)
{
    const ObjectDef* const known = description ? description->findObject(props.name) : nullptr;
    std::wstring icon;
    std::int32_t priority = 0;
    if (known) {
        icon = known->icon;
        priority = known->priority;
    } else {
        if (!props.types.empty())
            icon = L"Icons/" + props.types.front() + L".png";
        for (const std::wstring& type : props.types)
            priority = std::max(priority, typePriority(type));
    }
    std::wstring line = L"obj_name\t" + props.name + L"\t" +
                        (known && !known->drawable ? L"0" : L"1") + L"\t" + integerText(priority);
    if (!icon.empty())
        line += L"\t" + icon;
    return line + L"\n";
}

std::wstring propertyLine(const PropertyRow& row, const std::wstring& value)
{
    return kItemIndent + L"obj_prop\t" + std::wstring(row.written) + L"\t" + value + L"\n";
}

// A circle is always drawn in some mode.
std::optional<std::wstring> circleModeInstead(const GraphicProps& props, const PropertyText& values)
{
    const PropertyRow& mode = *findProperty(L"circlemode");
    const PropertyRow& radius = *findProperty(L"circleradius");
    if (props.types.empty() || props.types.front() != L"Circle" || values.of(mode) ||
        values.of(radius))
        return std::nullopt;
    return propertyLine(mode, L"Center");
}

std::wstring fieldLine(const FieldDef& field)
{
    if (field.kind == FieldKind::key)
        return kItemIndent + L"od_key\t" + field.name + L"\n";

    std::wstring line = kItemIndent + L"od_fld\t" + field.name + L"\t" + field.description + L"\t";
    constexpr std::pair<FieldFlag, const wchar_t*> kFlagWords[] = {
        {kConstField, L"const "}, {kNotEmptyField, L"notempty "}, {kRequiredField, L"required "}};
    for (const auto& [flag, word] : kFlagWords)
        if (field.hasFlag(flag))
            line += word;
    line += fieldTypeWord(field.type);
    // a blank keeps the column of a default that is not there
    if (!field.defaultValue.empty() || !field.values.empty())
        line += L"\t" + (field.defaultValue.empty() ? L" " : field.defaultValue);
    if (field.kind == FieldKind::range && field.values.size() == 2)
        line += L"\t" + field.values[0] + L":" + field.values[1];
    else if (!field.values.empty())
        line += L"\t" + joined(field.values);
    return line + L"\n";
}

} // namespace

std::wstring& WriteObject(const GraphicProps& props, std::wstring& text,
                          const Description* description)
{
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    const PropertyText values(props, drawing ? drawing->luprec() : 0);

    text = headLine(props, description);
    text += kObjectIndent + L"obj_type\t" + joined(props.types) + L"\n";
    for (const PropertyRow& row : propertyTable()) {
        if (const std::optional<std::wstring> value = values.of(row))
            text += propertyLine(row, *value);
        if (row.member == PropertyMember(&GraphicProps::circleRadius))
            text += circleModeInstead(props, values).value_or(L"");
    }
    for (const TableDef& table : props.tables) {
        text += kObjectIndent + L"od_name\t" + table.name + L"\n";
        for (const FieldDef& field : table.fields)
            text += fieldLine(field);
    }
    return text;
}

std::wstring TextOfColor(const ColorEntry& entry)
{
    if (entry.size() == 3)
        return L"(" + integerText(entry[0]) + L" " + integerText(entry[1]) + L" " +
               integerText(entry[2]) + L")";
    if (entry.size() != 1)
        return {};
    // backgrounds have the words of all colours, and one more
    const std::wstring_view word = wordOf(L"backgroundcolor", entry[0]);
    return word.empty() ? integerText(entry[0]) : std::wstring(word);
}

std::wstring_view TextOfAttachment(std::int32_t code)
{
    return wordOf(L"mtextattachmentpoint", code);
}

std::wstring_view TextOfJustification(std::int32_t code)
{
    return wordOf(L"textjustification", code);
}

std::wstring_view fieldTypeWord(OdType type)
{
    constexpr std::pair<OdType, std::wstring_view> kWords[] = {{OdType::integer, L"Integer"},
                                                               {OdType::real, L"Real"},
                                                               {OdType::character, L"Character"},
                                                               {OdType::point, L"Point"}};
    for (const auto& [known, word] : kWords)
        if (known == type)
            return word;
    return L"Unknown";
}
