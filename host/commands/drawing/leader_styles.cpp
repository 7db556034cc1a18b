#include "host/commands/drawing/leader_styles.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/object_pointer.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_tables.h"
#include "host/edit/system_variables.h"

namespace host {

namespace {

constexpr const wchar_t* kStyles = L"ACAD_MLEADERSTYLE";
constexpr const wchar_t* kStandard = L"Standard";

// What the platform writes for its standard style, in order.
struct StyleField {
    short code;
    double value;
    enum Form : char { integer, real, text, handle } form = integer;
    DxfVersion since = DxfVersion::r10;
};
constexpr double kByBlock = -1056964608;
constexpr short kName = 3;
constexpr short kTextStyle = 342;
constexpr StyleField kFields[] = {
    {179, 2, StyleField::integer, DxfVersion::r2010},
    {170, 2},
    {171, 1},
    {172, 0},
    {90, 2},
    {40, 0.0, StyleField::real},
    {41, 0.0, StyleField::real},
    {173, 1},
    {91, kByBlock},
    {340, 0, StyleField::handle},
    {92, -2},
    {290, 1},
    {42, 2.0, StyleField::real},
    {291, 1},
    {43, 8.0, StyleField::real},
    {kName, 0, StyleField::text},
    {341, 0, StyleField::handle},
    {44, 4.0, StyleField::real},
    {300, 0, StyleField::text},
    {kTextStyle, 0, StyleField::handle},
    {174, 1},
    {178, 1},
    {175, 1},
    {176, 0},
    {93, kByBlock},
    {45, 4.0, StyleField::real},
    {292, 0},
    {297, 0},
    {46, 4.0, StyleField::real},
    {343, 0, StyleField::handle},
    {94, kByBlock},
    {47, 1.0, StyleField::real},
    {49, 1.0, StyleField::real},
    {140, 1.0, StyleField::real},
    {293, 1},
    {141, 0.0, StyleField::real},
    {294, 1},
    {177, 0},
    {142, 1.0, StyleField::real},
    {295, 0},
    {296, 0},
    {143, 3.75, StyleField::real},
    {271, 0, StyleField::integer, DxfVersion::r2010},
    {272, 9, StyleField::integer, DxfVersion::r2010},
    {273, 9, StyleField::integer, DxfVersion::r2010},
};

std::uint64_t standardTextStyle(const AcDbDatabase& database)
{
    const AcDbObjectPointer<AcDbTextStyleTable> table(database.textStyleTableId(), AcDb::kForRead);
    AcDbObjectId id;
    return table && table->getAt(kStandard, id) == Acad::eOk ? id.handle().value() : 0;
}

AcDbObjectId makeStandard(AcDbDatabase& database, AcDbDictionary& styles)
{
    AcDbObjectPointer<AcDbMLeaderStyle> style;
    style.create();
    TagList& tags = style->tagsForWrite();
    for (const StyleField& field : kFields) {
        if (database.drawing().version < field.since)
            continue;
        if (field.form == StyleField::real)
            tags.addReal(field.code, field.value);
        else if (field.form == StyleField::integer)
            tags.addInteger(field.code, static_cast<std::int64_t>(field.value));
        else if (field.form == StyleField::text)
            tags.addText(field.code, field.code == kName ? kStandard : L"");
        else
            tags.addHandle(field.code, field.code == kTextStyle ? standardTextStyle(database) : 0);
    }
    AcDbObjectId id;
    styles.setAt(kStandard, style.object(), id);
    return id;
}

} // namespace

AcDbObjectId currentLeaderStyle(AcDbDatabase& database)
{
    const AcDbObjectPointer<AcDbDictionary> styles(standardDictionary(database.drawing(), kStyles),
                                                   AcDb::kForWrite);
    AcDbObjectId id;
    resbuf current;
    if (!styles)
        return id;
    if (acedGetVar(L"CMLEADERSTYLE", current) == RTNORM &&
        styles->getAt(current.resval.rstring, id) == Acad::eOk)
        return id;
    return styles->getAt(kStandard, id) == Acad::eOk ? id : makeStandard(database, *styles);
}

} // namespace host
