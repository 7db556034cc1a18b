#include "host/files/file_image.h"

#include "host/files/file_error.h"
#include "host/files/mapped_ranges.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {

std::shared_ptr<FileImage> FileImage::make()
{
    struct Made : FileImage {};
    return std::make_shared<Made>();
}

std::shared_ptr<FileImage> FileImage::fromBytes(std::string bytes)
{
    std::shared_ptr<FileImage> image = make();
    image->size_ = bytes.size();
    image->owned_ = std::move(bytes);
    image->owned_.append(kGuard, '\0');
    image->data_ = image->owned_.data();
    return image;
}

std::shared_ptr<FileImage> FileImage::open(const std::filesystem::path& path, std::string& error,
                                           std::size_t mappedAbove)
{
    error.clear();
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (!file || fstat(file.get(), &status) != 0) {
        error = fileError("open", path, errno);
        return nullptr;
    }
    if (!S_ISREG(status.st_mode)) {
        error =
            fileError("open", path, S_ISDIR(status.st_mode) ? "it is a folder" : "it is no file");
        return nullptr;
    }

    std::shared_ptr<FileImage> image = make();
    const auto size = static_cast<std::size_t>(status.st_size);
    image->modified_ = status.st_mtim;
    int failure = 0;
    if (size > mappedAbove) {
        image->file_ = std::move(file);
        failure = image->map(size);
        if (failure == ENOSPC ||
            failure == ENODEV) { // no free slot, or a file system without mapping
            file = std::move(image->file_);
            failure = image->read(file.get(), size);
        }
    } else {
        failure = image->read(file.get(), size);
    }
    if (failure == 0)
        return image;
    error = fileError("read", path, failure);
    return nullptr;
}

FileImage::~FileImage()
{
    if (!isMapped())
        return;
    MappedRanges::remove(slot_);
    munmap(const_cast<char*>(data_), mapped_);
}

int FileImage::read(int descriptor, std::size_t size)
{
    try {
        owned_.resize(size + kGuard);
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    }
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count =
            pread(descriptor, owned_.data() + done, size - done, static_cast<off_t>(done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            break; // cut meanwhile: the image is what there is
        done += static_cast<std::size_t>(count);
    }
    owned_.resize(done);
    owned_.append(kGuard, '\0');
    data_ = owned_.data();
    size_ = done;
    return 0;
}

// One more page than the file needs is reserved, so that the guard is there when the file ends with
// its page.
int FileImage::map(std::size_t size)
{
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t whole = (size + page - 1) / page * page + page;
    void* space = mmap(nullptr, whole, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (space == MAP_FAILED)
        return errno;
    if (mmap(space, size, PROT_READ, MAP_PRIVATE | MAP_FIXED, file_.get(), 0) == MAP_FAILED) {
        const int failure = errno;
        munmap(space, whole);
        return failure;
    }
    const std::optional<std::size_t> slot = MappedRanges::add(space, whole);
    if (!slot) {
        munmap(space, whole);
        return ENOSPC;
    }
    madvise(space, size, MADV_WILLNEED);
    slot_ = *slot;
    data_ = static_cast<const char*>(space);
    size_ = size;
    mapped_ = whole;
    return 0;
}

bool FileImage::changedOnDisk() const
{
    if (!isMapped())
        return false;
    struct stat status {};
    if (MappedRanges::isDamaged(slot_) || fstat(file_.get(), &status) != 0)
        return true;
    return static_cast<std::size_t>(status.st_size) != size_ ||
           status.st_mtim.tv_sec != modified_.tv_sec || status.st_mtim.tv_nsec != modified_.tv_nsec;
}

} // namespace host
