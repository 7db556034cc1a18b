#include "console/arguments.h"
#include "console/console_output.h"
#include "console/run.h"

#include <csignal>
#include <exception>
#include <fcntl.h>
#include <unistd.h>

namespace {

// A stream that is closed must not become the number of a drawing's file.
void openMissingStreams()
{
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", O_RDWR);
}

} // namespace

int main(int count, char** values)
{
    openMissingStreams();
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow further is told like a full disk
    try {
        const auto parsed = parseArguments(count, values);
        if (const auto* const status = std::get_if<ExitStatus>(&parsed))
            return static_cast<int>(*status);
        return static_cast<int>(run(std::get<Arguments>(parsed)));
    } catch (const std::exception& error) {
        reportTrouble(error.what());
        return static_cast<int>(ExitStatus::drawing);
    }
}
