#include "description/resource_resolution.h"

#include "host/db/database.h"
#include "import/resource_file.h"
#include "import/resource_presence.h"

#include <optional>
#include <set>
#include <unordered_set>

namespace {

// Of one kind: what names it in an object, where the names that files supply are listed, and what
// is told of those that are missing.
struct KindRow {
    ResourceKind kind;
    PropConstraint<std::wstring> GraphicProps::*property;
    bool withAccepted; // what is only accepted is wanted too
    ResourceIndex Description::*index;
    Message missing;
};

// In the order in which names are entered. No object names a layout.
using enum ResourceKind;
constexpr KindRow kRows[] = {
    {block, &GraphicProps::blockName, false, &Description::blockIndex, Message::blockNotFound},
    {dimensionStyle, &GraphicProps::dimensionStyle, false, &Description::dimensionStyleIndex,
     Message::dimensionNotFound},
    {layer, &GraphicProps::layer, true, &Description::layerIndex, Message::layerNotFound},
    {linetype, &GraphicProps::linetype, true, &Description::linetypeIndex,
     Message::linetypeNotFound},
    {mleaderStyle, &GraphicProps::mleaderStyle, false, &Description::mleaderStyleIndex,
     Message::mleaderNotFound},
    {mlineStyle, &GraphicProps::mlineStyle, false, &Description::mlineStyleIndex,
     Message::mlineNotFound},
    {pattern, &GraphicProps::pattern, false, &Description::patternIndex, Message::patternNotFound},
    {textStyle, &GraphicProps::textStyle, false, &Description::textStyleIndex,
     Message::textStyleNotFound},
};

// The names that objects use, each once, in the order of the objects.
class UsedNames {
public:
    // `blockFiles` are drawings that become blocks whole: a block among them is taken from nowhere
    // else.
    UsedNames(const Description& description,
              const std::map<std::wstring, BlockFileDef>& blockFiles)
        : blockFiles_(blockFiles)
    {
        for (const auto& [name, object] : description.objects) {
            for (const KindRow& row : kRows)
                collect(row, object.props.*row.property);
        }
    }

    ResourceNames names;
    std::set<std::wstring> blocksOfFiles;

private:
    void collect(const KindRow& row, const PropConstraint<std::wstring>& property)
    {
        if (!property.isGiven() || property.value == anyText)
            return;
        if (row.kind == block && blockFiles_.contains(property.value)) {
            blocksOfFiles.insert(property.value);
            return;
        }
        add(row.kind, property.value);
        if (!row.withAccepted)
            return;
        for (const std::wstring& accepted : property.accepted) {
            if (accepted != anyText)
                add(row.kind, accepted);
        }
    }

    void add(ResourceKind kind, const std::wstring& name)
    {
        if (known_[static_cast<std::size_t>(kind)].insert(name).second)
            names[kind].push_back(name);
    }

    const std::map<std::wstring, BlockFileDef>& blockFiles_;
    std::array<std::unordered_set<std::wstring>, std::size(kResourceKinds)> known_;
};

// What of it some object needs. Layouts need no object.
ResourceKinds neededKinds(ResourceKinds kinds, const ResourceNames& used)
{
    for (const KindRow& row : kRows) {
        if (used[row.kind].empty())
            kinds &= ~bitOf(row.kind);
    }
    return kinds;
}

void enter(Description& description, const std::wstring& path, const ResourceNames& supplied)
{
    const auto fileIndex = static_cast<std::int32_t>(description.resourceFiles.size());
    for (const KindRow& row : kRows) {
        for (const std::wstring& name : supplied[row.kind])
            (description.*row.index).try_emplace(name, ResourceDef{name, fileIndex});
    }
    description.resourceFiles.push_back(path);
}

void warnOfMissing(ReadingState& state, const ResourceNames& used)
{
    const AcDbDatabase* const drawing = state.store.currentDatabase();
    for (const KindRow& row : kRows) {
        if (used[row.kind].empty())
            continue;
        std::optional<ResourcePresence> present;
        if (drawing)
            present.emplace(row.kind, *drawing);
        for (const std::wstring& name : used[row.kind]) {
            if (!present || !present->has(name))
                state.sink.message(std::nullopt, row.missing, name);
        }
    }
}

} // namespace

bool resolveResources(ReadingState& state)
{
    Description& description = state.description;
    UsedNames used(description, description.blockFiles);

    std::map<std::wstring, ResourceKinds> files;
    for (const auto& [path, kinds] : state.resourceRequests) {
        if (const ResourceKinds needed = neededKinds(kinds, used.names))
            files.emplace(path, needed);
    }
    std::erase_if(description.blockFiles,
                  [&](const auto& entry) { return !used.blocksOfFiles.contains(entry.first); });

    for (const auto& [path, kinds] : files) {
        ResourceNames names = used.names;
        if (!LoadResource(path, kinds, names)) {
            state.sink.message(std::nullopt, Message::unableToLoad, path);
            return false;
        }
        enter(description, path, names);
        used.names.remove(names);
    }
    warnOfMissing(state, used.names);
    return true;
}
