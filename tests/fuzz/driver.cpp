// Feeds damaged inputs to a fuzz target: PROGRAM SECONDS|COUNTx|show [@FIRST] SEED-FILE...
// "30" runs for 30 seconds, "100000x" makes so many inputs; "@17" is the number of the first. A
// crash or a hang names the number of its input, which makes the same input again; "show" writes
// that one to standard output.

#include "tests/fuzz/target.h"

#include "host/text/encoding.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <unistd.h>

// Undefined behaviour ends the program by a signal, so that its input is named.
extern "C" const char* __ubsan_default_options()
{
    return "abort_on_error=1:print_stacktrace=1";
}

// There when the program is built with the sanitizers.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

constexpr unsigned kHangSeconds = 20;

volatile std::uint64_t currentInput = 0;

// Only what may be called in a signal handler.
void say(const char* text)
{
    [[maybe_unused]] const auto written =
        ::write(STDERR_FILENO, text, std::char_traits<char>::length(text));
}

void nameInput()
{
    char digits[24];
    char* at = digits + sizeof digits;
    *--at = '\0';
    std::uint64_t rest = currentInput;
    do {
        *--at = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    say("\nfuzz: input @");
    say(at);
    say("\n");
}

void died(int signal)
{
    say(signal == SIGALRM ? "\nfuzz: no end" : "\nfuzz: died");
    nameInput();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void watch()
{
    std::signal(SIGABRT, died);
    std::signal(SIGALRM, died);
    if (__sanitizer_set_death_callback) { // names the fault itself, and where it is
        __sanitizer_set_death_callback(nameInput);
        return;
    }
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE})
        std::signal(signal, died);
}

std::string contents(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

} // namespace

void fuzz::require(bool holds, const char* promise, std::wstring_view detail)
{
    if (holds)
        return;
    std::fprintf(stderr, "\nfuzz: not so: %s %s", promise, host::toUtf8(detail).c_str());
    std::abort();
}

int main(int count, char** arguments)
{
    using Clock = std::chrono::steady_clock;
    int at = 2;
    const bool numbered = at < count && arguments[at][0] == '@';
    const std::uint64_t first = numbered ? std::strtoull(arguments[at++] + 1, nullptr, 10) : 0;
    std::vector<std::string> seeds;
    for (; at < count; ++at)
        seeds.push_back(contents(arguments[at]));
    if (seeds.empty()) {
        std::fprintf(stderr, "usage: %s SECONDS|COUNTx|show [@FIRST] SEED-FILE...\n", arguments[0]);
        return 1;
    }
    const std::string much = arguments[1];
    const bool counted = much.back() == 'x';
    const std::uint64_t limit = std::strtoull(much.c_str(), nullptr, 10);
    fuzz::Mutator mutator(fuzz::language(), std::move(seeds));
    if (much == "show") {
        const std::string input = mutator.make(first);
        std::fwrite(input.data(), 1, input.size(), stdout);
        return 0;
    }

    watch();
    const Clock::time_point begin = Clock::now();
    const Clock::time_point end = begin + std::chrono::seconds(limit);
    std::uint64_t made = 0;
    std::uint64_t slowest = first;
    Clock::duration slowestTime{};
    Clock::time_point now = begin;
    while (counted ? made < limit : now < end) {
        currentInput = first + made;
        const std::string input = mutator.make(currentInput);
        const Clock::time_point start = Clock::now();
        ::alarm(kHangSeconds);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        ::alarm(0);
        ++made;
        now = Clock::now();
        if (now - start > slowestTime) {
            slowestTime = now - start;
            slowest = currentInput;
        }
    }
    using Seconds = std::chrono::duration<double>;
    std::printf("%s: %llu damaged inputs in %.0f s, no crash, no hang; the slowest, @%llu, took "
                "%.2f s\n",
                arguments[0], static_cast<unsigned long long>(made), Seconds(now - begin).count(),
                static_cast<unsigned long long>(slowest), Seconds(slowestTime).count());
    return 0;
}
