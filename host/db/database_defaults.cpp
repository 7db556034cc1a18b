#include "host/db/database_defaults.h"

#include "host/db/database.h"
#include "host/db/header_variables.h"
#include "host/db/mtext.h"
#include "host/db/symbol_names.h"
#include "host/db/text.h"

namespace host {

namespace {

constexpr double kTextSize = 2.5;

std::wstring textVariable(const Drawing& drawing, std::string_view name, const wchar_t* fallback)
{
    const std::optional<resbuf> value = headerVariable(drawing, name);
    return value && !value->resval.rstring.empty() ? value->resval.rstring : fallback;
}

int shortVariable(const Drawing& drawing, std::string_view name, int fallback)
{
    const std::optional<resbuf> value = headerVariable(drawing, name);
    return value ? value->resval.rint : fallback;
}

double positiveVariable(const Drawing& drawing, std::string_view name, double fallback)
{
    const std::optional<resbuf> value = headerVariable(drawing, name);
    return value && value->resval.rreal > 0.0 ? value->resval.rreal : fallback;
}

} // namespace

void setDatabaseDefaults(AcDbEntity& entity)
{
    AcDbDatabase* const database = entity.database();
    if (!database)
        return;
    Drawing& drawing = database->drawing();
    entity.setLayer(database->clayer());
    entity.setColorIndex(
        static_cast<std::uint16_t>(shortVariable(drawing, "CECOLOR", AcCmColor::kByLayerIndex)));
    entity.setLinetype(textVariable(drawing, "CELTYPE", L"ByLayer"));
    entity.setLinetypeScale(positiveVariable(drawing, "CELTSCALE", 1.0));
    entity.setLineWeight(shortVariable(drawing, "CELWEIGHT", AcDb::kLnWtByLayer));

    const AcDbObjectId style =
        findSymbol(drawing, "STYLE", textVariable(drawing, "TEXTSTYLE", L"Standard"));
    const double height = positiveVariable(drawing, "TEXTSIZE", kTextSize);
    if (auto* const text = AcDbText::cast(&entity)) {
        if (!style.isNull())
            text->setTextStyle(style);
        if (text->height() <= 0.0)
            text->setHeight(height);
    } else if (auto* const paragraph = AcDbMText::cast(&entity)) {
        if (!style.isNull())
            paragraph->setTextStyle(style);
        if (paragraph->textHeight() <= 0.0)
            paragraph->setTextHeight(height);
    }
}

} // namespace host
