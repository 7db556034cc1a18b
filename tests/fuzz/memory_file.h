#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace fuzz {

// A file in memory under a path, for readers that want one.
class MemoryFile {
public:
    MemoryFile(const void* data, std::size_t size)
        : descriptor_(::memfd_create("fuzz", MFD_CLOEXEC))
    {
        [[maybe_unused]] const auto written = ::write(descriptor_, data, size);
    }
    ~MemoryFile() { ::close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::filesystem::path path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

} // namespace fuzz
