#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/files/paths.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <cmath>

// Linetypes and multiline styles out of their files into a drawing.

using host::LinetypeDash;
using host::LinetypeDefinition;
using host::MlineStyleDefinition;
using host::TagList;

namespace {

constexpr const wchar_t* kMlineStyles = L"ACAD_MLINESTYLE";
constexpr std::wstring_view kByLayer = L"BYLAYER";
constexpr std::wstring_view kStandard = L"Standard";

// What stands in a dash (74).
enum DashFlag { kAbsolute = 1, kText = 2, kShape = 4, kUpright = 8 };

constexpr host::Subclass kStylePart{"AcDbTextStyleTableRecord"};

// The record of a shape file: it has no name, its file tells it. Made when the drawing has none.
AcDbObjectId shapeStyle(AcDbDatabase& database, const std::wstring& file)
{
    host::Drawing& drawing = database.drawing();
    for (const std::uint32_t stub : drawing.tables["STYLE"].records) {
        const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
        if ((drawing.index[stub].flags & host::kErased) == 0 &&
            (host::integerField(*tags, kStylePart, 70, 0) & 1) != 0 &&
            host::equalNoCase(host::textField(*tags, kStylePart, 3, {}), file))
            return drawing.id(stub);
    }
    AcDbObjectPointer<AcDbTextStyleTable> table(database.textStyleTableId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbTextStyleTableRecord> style;
    style.create();
    style->setShapeFile(file);
    AcDbObjectId id;
    if (table.openStatus() != Acad::eOk || table->add(id, style.object()) != Acad::eOk)
        return {};
    return id;
}

// What a text or shape in a dash refers to; `style` null where the drawing or the support folders
// lack it.
struct DashSymbol {
    AcDbObjectId style;
    int shape = 0;
};

DashSymbol symbolOf(AcDbDatabase& database, const LinetypeDash& dash)
{
    if (dash.shape.empty()) {
        const std::wstring_view name = dash.style.empty() ? kStandard : dash.style;
        return {host::findSymbol(database.drawing(), "STYLE", name), 0};
    }
    const AcDbHostApplicationServices& services = *acdbHostApplicationServices();
    const std::optional<std::filesystem::path> file = services.findFile(dash.style, &database);
    const int number =
        file ? host::drawingFormat().definitions().shapeNumber(*file, dash.shape) : 0;
    return number ? DashSymbol{shapeStyle(database, dash.style), number} : DashSymbol();
}

Acad::ErrorStatus addLinetype(AcDbDatabase& database, const LinetypeDefinition& linetype)
{
    // an R12 file has no place for what stands in a dash
    const bool simple = database.drawing().version <= host::DxfVersion::r12;
    AcDbObjectPointer<AcDbLinetypeTableRecord> record;
    record.create();
    record->setName(linetype.name);
    double length = 0.0;
    for (const LinetypeDash& dash : linetype.dashes)
        length += std::abs(dash.length);
    TagList& own = record->tagsForWrite();
    own.addInteger(70, 0);
    own.addText(3, linetype.description);
    own.addInteger(72, 65);
    own.addInteger(73, static_cast<std::int64_t>(linetype.dashes.size()));
    own.addReal(40, length);
    for (const LinetypeDash& dash : linetype.dashes) {
        own.addReal(49, dash.length);
        if (simple)
            continue;
        if (dash.text.empty() && dash.shape.empty()) {
            own.addInteger(74, 0);
            continue;
        }
        const DashSymbol symbol = symbolOf(database, dash);
        if (symbol.style.isNull())
            return Acad::eUndefinedLineType;
        own.addInteger(74, (dash.absolute ? kAbsolute : 0) | (dash.upright ? kUpright : 0) |
                               (dash.shape.empty() ? kText : kShape));
        own.addInteger(75, symbol.shape);
        own.addHandle(340, symbol.style.handle().value());
        own.addReal(46, dash.scale);
        own.addReal(50, dash.rotation);
        own.addReal(44, dash.x);
        own.addReal(45, dash.y);
        if (!dash.text.empty())
            own.addText(9, dash.text);
    }
    AcDbObjectPointer<AcDbLinetypeTable> table(database.linetypeTableId(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk)
        return table.openStatus();
    AcDbObjectId id;
    return table->add(id, record.object());
}

// The element's linetype, from the linetype file of the drawing's measurement where it lacks it.
std::wstring linetypeOfElement(AcDbDatabase& database, const std::wstring& name)
{
    if (name.empty())
        return std::wstring(kByLayer);
    if (host::findSymbol(database.drawing(), "LTYPE", name).isNull() &&
        database.loadLineTypeFile(name, database.measurement() ? L"acadiso.lin" : L"acad.lin") !=
            Acad::eOk)
        return std::wstring(kByLayer);
    return name;
}

} // namespace

Acad::ErrorStatus AcDbDatabase::loadLineTypeFile(std::wstring_view name, std::wstring_view file)
{
    const std::optional<std::filesystem::path> path =
        acdbHostApplicationServices()->findFile(file, this);
    if (!path)
        return Acad::eFileNotFound;
    std::vector<LinetypeDefinition> linetypes;
    const Acad::ErrorStatus read = host::drawingFormat().definitions().linetypes(*path, linetypes);
    if (read != Acad::eOk)
        return read;
    const bool several = host::hasWildcards(name);
    bool met = false;
    for (const LinetypeDefinition& linetype : linetypes) {
        if (several ? !host::wildcardMatches(linetype.name, name)
                    : !host::equalNoCase(linetype.name, name))
            continue;
        met = true;
        const bool known = !host::findSymbol(*drawing_, "LTYPE", linetype.name).isNull();
        const Acad::ErrorStatus status =
            known ? Acad::eDuplicateRecordName : addLinetype(*this, linetype);
        if (!several)
            return status;
        if (status != Acad::eOk && status != Acad::eDuplicateRecordName &&
            status != Acad::eUndefinedLineType)
            return status;
    }
    return met ? Acad::eOk : Acad::eUndefinedLineType;
}

Acad::ErrorStatus acdbLoadMlineStyleFile(std::wstring_view name, std::wstring_view file)
{
    const AcDbHostApplicationServices& services = *acdbHostApplicationServices();
    AcDbDatabase* const database = services.workingDatabase();
    if (!database)
        return Acad::eNoDatabase;
    const std::optional<std::filesystem::path> path = services.findFile(file);
    if (!path)
        return Acad::eFileNotFound;
    std::vector<MlineStyleDefinition> styles;
    const Acad::ErrorStatus read = host::drawingFormat().definitions().mlineStyles(*path, styles);
    if (read != Acad::eOk)
        return read;
    const auto style = std::find_if(styles.begin(), styles.end(), [&](const auto& one) {
        return host::equalNoCase(one.name, name);
    });
    if (style == styles.end())
        return Acad::eKeyNotFound;
    AcDbObjectPointer<AcDbDictionary> dictionary(
        host::standardDictionary(database->drawing(), kMlineStyles), AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk)
        return dictionary.openStatus();
    if (dictionary->has(style->name))
        return Acad::eDuplicateRecordName;

    AcDbObjectPointer<AcDbMlineStyle> record;
    record.create();
    TagList& own = record->tagsForWrite();
    own.addText(2, style->name);
    own.addInteger(70, style->flags);
    own.addText(3, style->description);
    own.addInteger(62, style->fill);
    own.addReal(51, style->startAngle);
    own.addReal(52, style->endAngle);
    own.addInteger(71, static_cast<std::int64_t>(style->elements.size()));
    std::stable_sort(style->elements.begin(), style->elements.end(),
                     [](const auto& a, const auto& b) { return a.offset > b.offset; });
    for (const host::MlineElement& element : style->elements) {
        own.addReal(49, element.offset);
        own.addInteger(62, element.color);
        own.addText(6, linetypeOfElement(*database, element.linetype));
    }
    AcDbObjectId id;
    return dictionary->setAt(style->name, record.object(), id);
}
