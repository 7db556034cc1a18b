#include "host/files/safe_save.h"

#include "host/files/file_error.h"
#include "host/files/file_image.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace host {

namespace {

constexpr std::size_t kBuffer = std::size_t{1} << 20;   // bytes
constexpr std::size_t kDirect = std::size_t{256} << 10; // ranges from here on are not gathered
constexpr std::size_t kLargest = std::size_t{1} << 30;  // what one system call takes for certain

// The file that a chain of links ends at, whether it exists or not.
fs::path withoutLinks(fs::path path, int& failure)
{
    constexpr int kMostLinks = 40;
    for (int links = 0; links < kMostLinks; ++links) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        const fs::path next = fs::read_symlink(path, error);
        if (error) {
            failure = error.value();
            return path;
        }
        path = path.parent_path() / next;
    }
    failure = ELOOP;
    return path;
}

fs::path folderOf(const fs::path& path)
{
    const fs::path folder = path.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

// A name of its own length, so that a target with the longest possible name can be saved too.
fs::path temporaryBeside(const fs::path& target)
{
    static std::atomic<unsigned> count{0};
    char name[64];
    std::snprintf(name, sizeof name, ".save-%ld-%u.tmp", static_cast<long>(getpid()), ++count);
    return folderOf(target) / name;
}

void syncFolder(const fs::path& folder)
{
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened)
        fsync(opened.get()); // some file systems know no such thing; the file is whole either way
}

// Where links are impossible: on FAT, on some network disks.
int copyFile(const fs::path& from, const fs::path& to)
{
    std::error_code failure;
    fs::copy_file(from, to, fs::copy_options::overwrite_existing, failure);
    if (failure)
        return failure.value();
    const FileDescriptor copy(::open(to.c_str(), O_RDONLY | O_CLOEXEC));
    return !copy || fsync(copy.get()) != 0 ? errno : 0;
}

} // namespace

std::unique_ptr<SafeSave> SafeSave::begin(const fs::path& target, std::string& error, Backup backup)
{
    struct Made : SafeSave {};
    error.clear();
    std::unique_ptr<SafeSave> save = std::make_unique<Made>();
    save->backup_ = backup;
    if (const int failure = save->prepare(target); failure == ENOENT)
        error = fileError("write", target, "the folder does not exist");
    else if (failure != 0)
        error = fileError("write", target, failure);
    if (!error.empty())
        return nullptr;
    return save;
}

int SafeSave::prepare(const fs::path& target)
{
    int failure = 0;
    target_ = withoutLinks(target, failure);
    if (failure != 0)
        return failure;

    struct stat former {};
    replaces_ = stat(target_.c_str(), &former) == 0;
    if (!replaces_ && errno != ENOENT)
        return errno;
    if (replaces_) {
        if (S_ISDIR(former.st_mode))
            return EISDIR;
        if (!S_ISREG(former.st_mode))
            return EPERM; // a device or a pipe has no contents to replace
        // A file without any write bit is protected from its owner and the administrator too.
        constexpr mode_t kWritable = S_IWUSR | S_IWGRP | S_IWOTH;
        if ((former.st_mode & kWritable) == 0 || access(target_.c_str(), W_OK) != 0)
            return EACCES;
    } else if (target_.filename().empty()) {
        return EISDIR;
    }

    for (;;) {
        const fs::path candidate = temporaryBeside(target_);
        file_.reset(::open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (file_) {
            temporary_ = candidate;
            break;
        }
        if (errno != EEXIST) // left behind by a program that died
            return errno;
    }
    if (replaces_) {
        // The owner is kept where the system lets us; changing it may clear mode bits, so it comes
        // first.
        if (former.st_uid != geteuid() || former.st_gid != getegid()) {
            if (fchown(file_.get(), former.st_uid, former.st_gid) != 0)
                errno = 0;
        }
        if (fchmod(file_.get(), former.st_mode & 07777) != 0 && errno != EPERM)
            return errno;
    }
    return 0;
}

SafeSave::~SafeSave()
{
    if (!temporary_.empty())
        ::unlink(temporary_.c_str());
}

void SafeSave::fail(int errorNumber)
{
    if (error_.empty())
        error_ = fileError("write", target_, errorNumber);
    buffer_.clear();
}

void SafeSave::writeThrough(std::string_view bytes)
{
    while (!bytes.empty() && !hasFailed()) {
        const ssize_t count = ::write(file_.get(), bytes.data(), std::min(bytes.size(), kLargest));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return fail(count < 0 ? errno : ENOSPC);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void SafeSave::flush()
{
    writeThrough(buffer_);
    buffer_.clear();
}

void SafeSave::write(std::string_view bytes)
{
    if (hasFailed())
        return;
    if (bytes.size() < kDirect) {
        if (buffer_.size() + bytes.size() > kBuffer)
            flush();
        if (buffer_.capacity() < kBuffer)
            buffer_.reserve(kBuffer);
        buffer_ += bytes;
        return;
    }
    flush();
    writeThrough(bytes);
}

// Between two files the system may share the blocks instead of copying them. False: it cannot, and
// what is left is for write().
bool SafeSave::copyRange(const FileImage& image, std::size_t& offset, std::size_t& size)
{
    while (size > 0) {
        auto from = static_cast<off_t>(offset);
        const ssize_t count = copy_file_range(image.descriptor(), &from, file_.get(), nullptr,
                                              std::min(size, kLargest), 0);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        offset += static_cast<std::size_t>(count);
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

void SafeSave::write(const FileImage& image, std::size_t offset, std::size_t size)
{
    assert(offset <= image.size() && size <= image.size() - offset);
    if (image.isMapped() && size >= kDirect && !hasFailed()) {
        flush();
        if (hasFailed() || copyRange(image, offset, size))
            return;
    }
    write(image.bytes().substr(offset, size));
}

// NAME.bak is replaced by a rename as well, so that there is one at every moment.
bool SafeSave::keepBackup()
{
    fs::path backup = target_;
    backup += ".bak";
    const fs::path link = temporaryBeside(target_);
    ::unlink(link.c_str());
    int failure = 0;
    if (::link(target_.c_str(), link.c_str()) != 0)
        failure = copyFile(target_, link);
    if (failure == 0 && ::rename(link.c_str(), backup.c_str()) != 0)
        failure = errno;
    // Renaming does nothing when both names are one file already, as after a save that failed at
    // the end.
    ::unlink(link.c_str());
    if (failure != 0)
        error_ = fileError("write", backup, failure);
    return failure == 0;
}

bool SafeSave::finish()
{
    flush();
    if (!hasFailed() && fsync(file_.get()) != 0)
        fail(errno);
    if (!hasFailed() && ::close(file_.release()) != 0)
        fail(errno);
    if (hasFailed() || (replaces_ && backup_ == Backup::keep && !keepBackup()))
        return false;
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) {
        fail(errno);
        return false;
    }
    temporary_.clear();
    syncFolder(folderOf(target_));
    return true;
}

bool SafeSave::commit(std::string& error)
{
    assert(!temporary_.empty());
    const bool done = finish();
    if (!done) {
        file_.reset();
        ::unlink(temporary_.c_str());
        temporary_.clear();
    }
    error = error_;
    return done;
}

} // namespace host
