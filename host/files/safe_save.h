#pragma once

#include "host/files/file_descriptor.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace host {

class FileImage;

// Writes a file so that a whole one, the old or the new, is under the name at every moment: the
// bytes go to a temporary file in the same folder, reach the disk, and then take the name. A save
// that is not committed leaves nothing behind.
class SafeSave {
public:
    enum class Backup { keep, none };

    // Links are followed; the file they lead to is replaced. A file that may not be written is
    // refused here, although its folder would allow it. Null on failure; errors are one line and
    // name the file.
    static std::unique_ptr<SafeSave> begin(const std::filesystem::path& target, std::string& error,
                                           Backup backup = Backup::keep);

    ~SafeSave();
    SafeSave(const SafeSave&) = delete;
    SafeSave& operator=(const SafeSave&) = delete;

    // Once a write has failed all further ones do nothing, and commit() tells why.
    void write(std::string_view bytes);
    void write(const FileImage& image, std::size_t offset, std::size_t size);

    bool hasFailed() const { return !error_.empty(); }

    // The former file stays as NAME.bak, in place of an older one. False: the old file is
    // untouched, the temporary one removed. At most once.
    bool commit(std::string& error);

private:
    SafeSave() = default;
    int prepare(const std::filesystem::path& target); // 0 or an error number
    void flush();
    void writeThrough(std::string_view bytes);
    bool copyRange(const FileImage& image, std::size_t& offset, std::size_t& size);
    void fail(int errorNumber);
    bool keepBackup();
    bool finish();

    std::filesystem::path target_;    // with links resolved
    std::filesystem::path temporary_; // empty when there is none
    Backup backup_ = Backup::keep;
    bool replaces_ = false; // a former file
    FileDescriptor file_;
    std::string buffer_;
    std::string error_; // of the first failure
};

} // namespace host
