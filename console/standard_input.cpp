#include "console/standard_input.h"

#include "host/text/encoding.h"

#include <cerrno>
#include <unistd.h>

namespace {

constexpr std::size_t kBlock = 64 * 1024; // bytes

// False at the end of the input.
bool readSome(std::string& bytes)
{
    char block[kBlock];
    ssize_t count = 0;
    do
        count = ::read(STDIN_FILENO, block, sizeof block);
    while (count < 0 && errno == EINTR);
    if (count <= 0)
        return false;
    bytes.append(block, static_cast<std::size_t>(count));
    return true;
}

} // namespace

void typeStandardInput(host::CommandEngine& engine, ConsoleOutput& output, host::Origin origin)
{
    std::string bytes; // read and not yet typed
    engine.run();
    output.flush();
    while (!engine.finished()) {
        const std::size_t end = bytes.find('\n');
        if (end == std::string::npos) {
            if (readSome(bytes))
                continue;
            engine.feed(host::fromUtf8(bytes), origin);
            return;
        }
        engine.feed(host::fromUtf8(std::string_view(bytes).substr(0, end + 1)), origin);
        bytes.erase(0, end + 1);
        engine.run();
        output.flush();
    }
}
