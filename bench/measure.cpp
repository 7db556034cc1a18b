#include "bench/measure.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Report {
    double seconds;
    std::size_t peakBytes;
};

// Runs in the child: what it measured goes through the pipe.
[[noreturn]] void runAndReport(int pipe, const std::function<std::function<void()>()>& prepare)
{
    try {
        const std::function<void()> work = prepare();
        const auto begin = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        const Report report{spent.count(), static_cast<std::size_t>(usage.ru_maxrss) * 1024};
        if (::write(pipe, &report, sizeof report) != sizeof report)
            ::_exit(1);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        ::_exit(1);
    }
    ::_exit(0); // without taking anything down: that is not measured
}

} // namespace

Measured measure(int runs, const std::function<void()>& work)
{
    return measurePrepared(runs, [&] { return work; });
}

Measured measurePrepared(int runs, const std::function<std::function<void()>()>& prepare)
{
    Measured best;
    for (int run = 0; run < runs; ++run) {
        int ends[2];
        if (::pipe(ends) != 0)
            return {.failed = true};
        std::fflush(nullptr);
        const pid_t child = ::fork();
        if (child == 0)
            runAndReport(ends[1], prepare);
        ::close(ends[1]);
        Report report{};
        const bool complete = ::read(ends[0], &report, sizeof report) == sizeof report;
        ::close(ends[0]);
        int status = 0;
        ::waitpid(child, &status, 0);
        if (!complete)
            return {.failed = true};
        if (run == 0 || report.seconds < best.seconds)
            best = {report.seconds, report.peakBytes, false};
    }
    return best;
}
