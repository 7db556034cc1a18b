#include "host/db/tag.h"

namespace host {

namespace {

struct KindRange {
    int first;
    int last;
    TagKind kind;
};

// The ranges of group codes, ascending.
constexpr KindRange kKinds[] = {
    {5, 5, TagKind::handle},       {10, 59, TagKind::real},       {60, 79, TagKind::int16},
    {90, 99, TagKind::int32},      {105, 105, TagKind::handle},   {110, 149, TagKind::real},
    {160, 169, TagKind::int64},    {170, 179, TagKind::int16},    {210, 239, TagKind::real},
    {270, 289, TagKind::int16},    {290, 299, TagKind::boolean},  {310, 319, TagKind::binary},
    {320, 369, TagKind::handle},   {370, 389, TagKind::int16},    {390, 399, TagKind::handle},
    {400, 409, TagKind::int16},    {420, 429, TagKind::int32},    {440, 459, TagKind::int32},
    {460, 469, TagKind::real},     {480, 481, TagKind::handle},   {999, 999, TagKind::comment},
    {1004, 1004, TagKind::binary}, {1005, 1005, TagKind::handle}, {1010, 1059, TagKind::real},
    {1060, 1070, TagKind::int16},  {1071, 1071, TagKind::int32},
};

constexpr int kTableSize = 1072;

struct KindTable {
    TagKind kinds[kTableSize] = {};
    constexpr KindTable()
    {
        for (const KindRange& range : kKinds)
            for (int code = range.first; code <= range.last; ++code)
                kinds[code] = range.kind;
    }
};

constexpr KindTable kTable;

} // namespace

TagKind tagKind(int code)
{
    return code >= 0 && code < kTableSize ? kTable.kinds[code] : TagKind::text;
}

} // namespace host
