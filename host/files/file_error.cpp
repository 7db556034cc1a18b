#include "host/files/file_error.h"

#include <cerrno>
#include <system_error>

namespace host {

namespace {

std::string reasonFor(int errorNumber)
{
    struct Reason {
        int errorNumber;
        const char* text;
    };
    static constexpr Reason kReasons[] = {
        {ENOENT, "no such file or folder"},
        {ENOTDIR, "a part of the path is no folder"},
        {EISDIR, "it is a folder"},
        {EACCES, "permission denied"},
        {EPERM, "permission denied"},
        {EROFS, "the disk is read-only"},
        {ENOSPC, "no space left on the disk"},
        {EDQUOT, "no space left for this user"},
        {EFBIG, "the file would be too large"},
        {EIO, "the disk reports an error"},
        {EFAULT, "a file that it is made from was changed by another program"},
        {ENAMETOOLONG, "the name is too long"},
        {ELOOP, "too many links"},
        {EMFILE, "too many open files"},
        {ENOMEM, "not enough memory"},
    };
    for (const Reason& reason : kReasons) {
        if (reason.errorNumber == errorNumber)
            return reason.text;
    }
    return std::generic_category().message(errorNumber);
}

} // namespace

std::string fileError(const char* action, const std::filesystem::path& path, int errorNumber)
{
    return fileError(action, path, reasonFor(errorNumber));
}

std::string fileError(const char* action, const std::filesystem::path& path,
                      const std::string& reason)
{
    return std::string("cannot ") + action + " '" + path.string() + "': " + reason;
}

} // namespace host
