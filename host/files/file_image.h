#pragma once

#include "host/files/file_descriptor.h"

#include <cstddef>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace host {

// A file's bytes as they were at opening, never written to. Behind them kGuard zero bytes may be
// read, so that a scanner needs no check for the end inside a block of bytes.
class FileImage {
public:
    static constexpr std::size_t kGuard = 64;
    static constexpr std::size_t kMappedAbove = std::size_t{64} << 20; // bytes

    // Files up to `mappedAbove` bytes are read, greater ones mapped. Null on failure; the error is
    // one line and names the file.
    static std::shared_ptr<FileImage> open(const std::filesystem::path& path, std::string& error,
                                           std::size_t mappedAbove = kMappedAbove);
    static std::shared_ptr<FileImage> fromBytes(std::string bytes);

    ~FileImage();
    FileImage(const FileImage&) = delete;
    FileImage& operator=(const FileImage&) = delete;

    const char* data() const { return data_; }
    std::size_t size() const { return size_; }
    std::string_view bytes() const { return {data_, size_}; }
    bool isMapped() const { return mapped_ != 0; }

    // Whether another program wrote to the mapped file or cut it. What it cut off reads as zeros. A
    // file that was replaced under its name keeps its old contents here and counts as unchanged; so
    // does one that was read.
    bool changedOnDisk() const;

    int descriptor() const { return file_.get(); } // of a mapped file; -1 otherwise

private:
    FileImage() = default;
    static std::shared_ptr<FileImage> make();
    int read(int descriptor, std::size_t size); // 0 or an error number
    int map(std::size_t size);

    const char* data_ = nullptr;
    std::size_t size_ = 0;
    std::string owned_; // what was read, with its guard
    FileDescriptor file_;
    std::size_t mapped_ = 0; // bytes of address space, the guard included
    std::size_t slot_ = 0;   // in MappedRanges
    timespec modified_{};
};

} // namespace host
