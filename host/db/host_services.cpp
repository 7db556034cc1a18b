#include "host/db/database.h"
#include "host/db/layout_manager.h"
#include "host/files/paths.h"

std::optional<std::filesystem::path>
AcDbHostApplicationServices::findFile(std::wstring_view name, const AcDbDatabase* database) const
{
    if (name.empty())
        return std::nullopt;
    const auto existing = [](std::wstring_view path) {
        std::optional<std::filesystem::path> found = host::findPath(path);
        std::error_code failure;
        if (found && !std::filesystem::is_regular_file(*found, failure))
            found.reset();
        return found;
    };
    if (host::isAbsolutePath(name))
        return existing(name);
    std::vector<std::wstring> folders;
    if (const AcDbDatabase* const drawn = database ? database : working_)
        folders.push_back(host::folderOf(drawn->getFilename()));
    if (folders_)
        for (std::wstring& folder : folders_())
            folders.push_back(std::move(folder));
    for (const std::wstring& folder : folders)
        if (!folder.empty())
            if (std::optional<std::filesystem::path> found = existing(host::joinPath(folder, name)))
                return found;
    return std::nullopt;
}

AcDbLayoutManager* AcDbHostApplicationServices::layoutManager() const
{
    static AcDbLayoutManager manager;
    return &manager;
}

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    static AcDbHostApplicationServices services;
    return &services;
}
