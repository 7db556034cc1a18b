#include "draw/object_dependencies.h"

#include "host/db/database.h"
#include "host/text/case_mapping.h"
#include "import/block_file.h"
#include "import/resource_file.h"
#include "import/resource_presence.h"

#include <map>

namespace {

struct DependencyRow {
    ResourceKind kind;
    PropConstraint<std::wstring> GraphicProps::*property;
    ResourceIndex Description::*index;
};

constexpr DependencyRow kRows[] = {
    {ResourceKind::block, &GraphicProps::blockName, &Description::blockIndex},
    {ResourceKind::dimensionStyle, &GraphicProps::dimensionStyle,
     &Description::dimensionStyleIndex},
    {ResourceKind::layer, &GraphicProps::layer, &Description::layerIndex},
    {ResourceKind::linetype, &GraphicProps::linetype, &Description::linetypeIndex},
    {ResourceKind::mleaderStyle, &GraphicProps::mleaderStyle, &Description::mleaderStyleIndex},
    {ResourceKind::mlineStyle, &GraphicProps::mlineStyle, &Description::mlineStyleIndex},
    {ResourceKind::pattern, &GraphicProps::pattern, &Description::patternIndex},
    {ResourceKind::textStyle, &GraphicProps::textStyle, &Description::textStyleIndex},
};

enum class Presence { there, missing, unknown };

Presence presenceOf(ResourceKind kind, const AcDbDatabase& database, const std::wstring& name)
{
    ResourcePresence presence(kind, database, AcDbHatch::kUserDefined);
    if (!presence.isOpen() && kind == ResourceKind::textStyle)
        return Presence::unknown;
    return presence.has(name) ? Presence::there : Presence::missing;
}

// What is to be read, file by file.
struct Wanted {
    std::map<std::wstring, ResourceKinds> files; // by path
    ResourceNames names;
    bool any = false;

    void add(ResourceKind kind, const std::wstring& path, const std::wstring& name)
    {
        if (kind == ResourceKind::dimensionStyle)
            // a style never adds its kind to a file that is read for a block: it is not brought
            // then
            files.emplace(path, bitOf(kind));
        else
            files[path] |= bitOf(kind);
        names[kind].push_back(name);
        any = true;
    }

    bool load()
    {
        if (!any)
            return true;
        for (const auto& [path, kinds] : files) {
            ResourceNames found = names;
            if (!LoadResource(path, kinds, found))
                return false;
            names.remove(found);
        }
        return true;
    }
};

} // namespace

bool LoadObjectDependencies(const GraphicProps& props, const Description& description)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database)
        return false;
    Wanted wanted;
    for (const DependencyRow& row : kRows) {
        const PropConstraint<std::wstring>& property = props.*row.property;
        if (!property.isGiven() || property.value == anyText)
            continue;
        const Presence presence = presenceOf(row.kind, *database, property.value);
        if (presence == Presence::unknown)
            return false;
        if (presence == Presence::there)
            continue;

        const std::wstring name = host::lowerCased(property.value);
        const ResourceIndex& index = description.*row.index;
        const auto indexed = index.find(name);
        if (indexed != index.end()) {
            const auto at = static_cast<std::size_t>(indexed->second.fileIndex);
            if (at >= description.resourceFiles.size())
                return false;
            wanted.add(row.kind, description.resourceFiles[at], name);
            continue;
        }
        const auto file = description.blockFiles.find(name);
        if (row.kind != ResourceKind::block || file == description.blockFiles.end())
            return false;
        LoadBlockFile(file->second.path, file->second.blockName, *database);
    }
    return wanted.load();
}

bool LoadObjectDependencies(std::wstring_view name, const Description& description)
{
    const GraphicProps* const props = description.findProps(name);
    return props && LoadObjectDependencies(*props, description);
}

bool LoadedDependencies::load(const ObjectDef& object, const Description& description)
{
    if (loaded_.contains(&object))
        return true;
    if (!LoadObjectDependencies(object.props, description))
        return false;
    loaded_.insert(&object);
    return true;
}
