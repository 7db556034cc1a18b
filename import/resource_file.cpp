#include "import/resource_file.h"

#include "host/db/database.h"
#include "host/files/paths.h"
#include "import/definition_names.h"
#include "import/drawing_resources.h"
#include "import/pattern_definitions.h"
#include "import/readable_file.h"
#include "import/support_path.h"
#include "text/text_file.h"

namespace {

// A file that can be read, and the drawing that takes what it supplies.
struct Import {
    std::filesystem::path file;
    ResourceKinds kinds;
    AcDbDatabase& drawing;

    std::wstring name() const { return host::shownPath(file); }
};

bool importDrawing(const Import& import, const ResourceNames& wanted, ResourceNames& found)
{
    return cloneResources(import.file, import.kinds, wanted, import.drawing, found);
}

bool importLinetypes(const Import& import, const ResourceNames& wanted, ResourceNames& found)
{
    const std::vector<std::wstring>& names = wanted[ResourceKind::linetype];
    std::vector<std::wstring>& loaded = found[ResourceKind::linetype];
    for (const std::wstring& name : names) {
        if (import.drawing.loadLineTypeFile(name, import.name()) == Acad::eOk)
            loaded.push_back(name);
    }
    if (!names.empty())
        return true;
    if (import.drawing.loadLineTypeFile(L"?*", import.name()) != Acad::eOk)
        return false;
    if (std::optional<TextFileLines> lines = TextFileLines::open(import.name()))
        loaded = definedNames(*lines);
    return true;
}

bool importMlineStyles(const Import& import, const ResourceNames& wanted, ResourceNames& found)
{
    for (const std::wstring& name : wanted[ResourceKind::mlineStyle]) {
        if (acdbLoadMlineStyleFile(name, import.name()) == Acad::eOk)
            found[ResourceKind::mlineStyle].push_back(name);
    }
    return true;
}

// The host knows only the patterns of its own files, so they are added there.
bool importPatterns(const Import& import, const ResourceNames& wanted, ResourceNames& found)
{
    const std::vector<std::wstring>& names = wanted[ResourceKind::pattern];
    if (names.empty())
        return true;
    const std::optional<std::wstring> folder = patternFolder();
    std::optional<TextFileLines> lines = TextFileLines::open(import.name());
    if (!folder || !lines)
        return false;
    const PatternDefinitions definitions = readPatternDefinitions(*lines);
    std::vector<std::wstring>& defined = found[ResourceKind::pattern];
    for (const std::wstring& name : names) {
        if (definitions.contains(name))
            defined.push_back(name);
    }
    for (const wchar_t* file : {L"acad.pat", L"acadiso.pat"}) {
        if (!appendPatterns(host::joinPath(*folder, file), definitions, defined))
            return false;
    }
    return true;
}

// What the files of an extension supply, and how.
struct FileRow {
    std::wstring_view extension;
    ResourceKinds kinds;
    bool (*import)(const Import& import, const ResourceNames& wanted, ResourceNames& found);
};
constexpr ResourceKinds kAnyKind = ~ResourceKinds{0};
constexpr FileRow kFiles[] = {
    {L".dwg", kAnyKind, importDrawing},
    {L".dwt", kAnyKind, importDrawing},
    {L".lin", bitOf(ResourceKind::linetype), importLinetypes},
    {L".mln", bitOf(ResourceKind::mlineStyle), importMlineStyles},
    {L".pat", bitOf(ResourceKind::pattern), importPatterns},
};

} // namespace

bool LoadResource(std::wstring_view path, ResourceKinds kinds, ResourceNames& names)
{
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    const std::optional<std::filesystem::path> file = readableFile(path);
    if (kinds == 0 || !drawing || !file)
        return false;
    for (const FileRow& row : kFiles) {
        if ((row.kinds & kinds) == 0 || !hasExtension(path, row.extension))
            continue;
        ResourceNames found;
        if (!row.import({*file, kinds, *drawing}, names, found))
            return false;
        names = std::move(found);
        return true;
    }
    return false;
}
