#include "import/readable_file.h"

#include "host/files/file_descriptor.h"
#include "host/files/paths.h"

#include <fcntl.h>

std::optional<std::filesystem::path> readableFile(std::wstring_view path)
{
    std::optional<std::filesystem::path> found = host::findPath(path);
    std::error_code failure;
    if (!found || std::filesystem::is_directory(*found, failure))
        return std::nullopt;
    // not to wait for a writer where the name is a pipe's
    const host::FileDescriptor file(::open(found->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return file ? found : std::nullopt;
}

bool hasExtension(std::wstring_view path, std::wstring_view extension)
{
    const std::size_t at = path.find(extension);
    return at != path.npos && at + extension.size() == path.size();
}
