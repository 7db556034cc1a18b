#include "host/files/open_file.h"

#include "host/files/file_descriptor.h"
#include "host/files/file_error.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace host {

std::string readWholeFile(const std::filesystem::path& path, std::string& error)
{
    error.clear();
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) {
        error = fileError("read", path, errno);
        return {};
    }
    // Not by the size that the system tells: pipes and the files of /proc tell none.
    constexpr std::size_t kStep = std::size_t{1} << 18;
    std::string bytes;
    for (;;) {
        const std::size_t former = bytes.size();
        bytes.resize(former + kStep);
        const ssize_t count = ::read(file.get(), bytes.data() + former, kStep);
        const int failure = errno;
        bytes.resize(former + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count < 0 && failure == EINTR)
            continue;
        if (count < 0) {
            error = fileError("read", path, failure);
            return {};
        }
        if (count == 0)
            return bytes;
    }
}

} // namespace host
