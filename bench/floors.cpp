#include "bench/floors.h"

#include "host/db/tag.h"

#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* skipBlanks(const char* at, const char* end)
{
    while (at < end && *at == ' ')
        ++at;
    return at;
}

} // namespace

double splitAndConvert(const std::filesystem::path& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    ::fstat(file, &status);
    const auto size = static_cast<std::size_t>(status.st_size);
    const auto* const data =
        static_cast<const char*>(::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0));
    ::close(file);
    double sum = 0.0;
    const char* at = data;
    const char* const end = data + size;
    while (at < end) {
        const auto* codeEnd =
            static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        if (!codeEnd || codeEnd + 1 >= end)
            break;
        int code = 0;
        std::from_chars(skipBlanks(at, codeEnd), codeEnd, code);
        const char* const value = codeEnd + 1;
        const auto* valueEnd = static_cast<const char*>(
            std::memchr(value, '\n', static_cast<std::size_t>(end - value)));
        if (!valueEnd)
            valueEnd = end;
        const char* const first = skipBlanks(value, valueEnd);
        switch (host::tagKind(code)) {
        case host::TagKind::real: {
            double number = 0.0;
            std::from_chars(first, valueEnd, number);
            sum += number;
            break;
        }
        case host::TagKind::handle: {
            std::uint64_t number = 0;
            std::from_chars(first, valueEnd, number, 16);
            sum += static_cast<double>(number);
            break;
        }
        case host::TagKind::int16:
        case host::TagKind::int32:
        case host::TagKind::int64:
        case host::TagKind::boolean: {
            std::int64_t number = 0;
            std::from_chars(first, valueEnd, number);
            sum += static_cast<double>(number);
            break;
        }
        default:
            sum += static_cast<double>(valueEnd - value);
        }
        at = valueEnd + 1;
    }
    ::munmap(const_cast<char*>(data), size);
    return sum;
}

void copyAndSync(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing);
    const int file = ::open(to.c_str(), O_RDONLY | O_CLOEXEC);
    ::fsync(file);
    ::close(file);
}
