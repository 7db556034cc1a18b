#pragma once

#include "host/db/object_id.h"

#include <string_view>

class AcDbDatabase;

// Styles and blocks by name, without regard to case; a null id for what the drawing lacks.
AcDbObjectId blockNamed(const AcDbDatabase& database, std::wstring_view name);
AcDbObjectId dimensionStyleNamed(const AcDbDatabase& database, std::wstring_view name);
AcDbObjectId textStyleNamed(const AcDbDatabase& database, std::wstring_view name);

// Gives a text or a multiline text that is open for write a style of its drawing; one that is not
// there changes nothing.
template <class T> void setTextStyleNamed(T& text, std::wstring_view name)
{
    if (const AcDbObjectId style = textStyleNamed(*text.database(), name); !style.isNull())
        text.setTextStyle(style);
}

// An entry of a dictionary of the root: "ACAD_MLINESTYLE", "ACAD_MLEADERSTYLE".
AcDbObjectId dictionaryEntry(const AcDbDatabase& database, std::wstring_view dictionary,
                             std::wstring_view name);
