#pragma once

#include "host/db/drawing.h"
#include "host/db/tag_view.h"
#include "host/text/case_mapping.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace host {

// What a complete record holds where nothing else was set, as a text file writes it.
struct FieldDefault {
    short code;
    std::string_view value; // of a literal: ends with a zero
    DxfVersion since = DxfVersion::r10;
};

// The nine symbol tables in the order of a drawing file. The table's name is its records' name too.
struct SymbolKind {
    std::string_view table; // "LAYER"
    Subclass part;          // of its records, under which 2 and 70 stand
    std::span<const FieldDefault> defaults;
};
std::span<const SymbolKind> symbolKinds();
const SymbolKind* symbolKind(std::string_view table); // null for another name

// Adds what is missing of the defaults of a version to the tags of a record.
void addDefaults(TagList& tags, const SymbolKind& kind, DxfVersion version);

// Takes subclass markers and the owner out, which R12 has not.
void dropMarkers(TagList& tags);

// The name of a table record as it stands now; empty where the record gives none.
std::wstring symbolName(Drawing& drawing, std::string_view table, std::uint32_t stub);

// Names of the spaces in R12's writing, "$MODEL_SPACE", as all later versions write them; other
// names unchanged.
std::wstring spaceNameOf(std::wstring_view name);

// The records of each table by name: without case, the first living one of a name. Kept by the
// database, made anew when the symbol tables have changed. Opens no object, so that names are
// found while a table or a record is open for write.
class SymbolNames {
public:
    AcDbObjectId find(Drawing& drawing, std::string_view table, std::wstring_view name);
    // Counts the change that a new record is, without losing the names known so far.
    void added(Drawing& drawing, std::string_view table, std::wstring_view name,
               std::uint32_t stub);

private:
    struct Names {
        std::uint64_t generation = ~std::uint64_t{0};
        std::unordered_map<std::wstring, std::uint32_t, NoCaseHash, NoCaseEqual> stubs;
    };

    static void read(Drawing& drawing, std::string_view table, Names& names);

    std::map<std::string, Names, std::less<>> tables_;
};

// Whether a change of this record is one of the symbol tables' entries.
bool isSymbolRecord(const Drawing& drawing, std::uint32_t stub);

// Null id where the table has no such record.
AcDbObjectId findSymbol(Drawing& drawing, std::string_view table, std::wstring_view name);

} // namespace host
