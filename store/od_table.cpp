#include "store/od_table.h"

#include "text/text_comparison.h"

int findField(std::span<const OdField> fields, std::wstring_view name)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (textEqualNoCase(fields[i].getName(), name))
            return static_cast<int>(i);
    }
    return -1;
}

AcMap::EErrCode getField(const OdTable& table, std::size_t index, OdField& field)
{
    if (index >= table.fields.size())
        return AcMap::kNotFound;
    field = table.fields[index];
    return AcMap::kOk;
}

void initRecord(const OdTable& table, OdRecord& record)
{
    record.name = table.name;
    record.fields = table.fields;
}
