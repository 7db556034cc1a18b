#include "console/console_output.h"

#include "host/text/encoding.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t kPendingLimit = 64 * 1024; // bytes

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

void ConsoleOutput::put(std::string_view bytes)
{
    if (broken_ || writeAll(STDOUT_FILENO, bytes))
        return;
    broken_ = true;
    if (errno != EPIPE)
        reportTrouble("cannot write standard output: " + std::string(std::strerror(errno)));
}

void ConsoleOutput::write(std::wstring_view text)
{
    pending_ += host::toUtf8(text);
    if (pending_.size() >= kPendingLimit)
        flushLines();
}

void ConsoleOutput::flush()
{
    put(pending_);
    pending_.clear();
}

void ConsoleOutput::flushLines()
{
    const std::size_t lines = pending_.rfind('\n') + 1; // 0 when there is none
    put(std::string_view(pending_).substr(0, lines));
    pending_.erase(0, lines);
}

std::string ConsoleOutput::takeUnfinished()
{
    flushLines();
    return std::exchange(pending_, {});
}

void reportTrouble(std::string_view text)
{
    writeAll(STDERR_FILENO, "kelmaro: " + std::string(text) + "\n");
}

void reportTrouble(std::wstring_view text)
{
    reportTrouble(host::toUtf8(text));
}
