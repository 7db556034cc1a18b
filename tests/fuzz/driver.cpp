// Feeds damaged inputs to a fuzz target: PROGRAM SECONDS|COUNTx [FIRST] SEED-FILE...
// "30" runs for 30 seconds, "100000x" makes so many inputs; FIRST ("@17") is the number of the first. A crash or a hang names the
// number of its input, which makes the same input again.

#include "tests/fuzz/target.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace {

constexpr unsigned kHangSeconds = 20;

volatile std::uint64_t currentInput = 0;

// Only what may be called in a signal handler.
void say(const char* text) { [[maybe_unused]] const auto written = ::write(STDERR_FILENO, text, std::char_traits<char>::length(text)); }

void nameInput(int signal)
{
    char digits[24];
    char* at = digits + sizeof digits;
    *--at = '\0';
    std::uint64_t rest = currentInput;
    do {
        *--at = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    say(signal == SIGALRM ? "\nfuzz: no end in input @" : "\nfuzz: died of input @");
    say(at);
    say("\n");
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

std::string contents(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 3) {
        std::fprintf(stderr, "usage: %s SECONDS|COUNTx [@FIRST] SEED-FILE...\n", arguments[0]);
        return 1;
    }
    const std::string much = arguments[1];
    const bool counted = much.back() == 'x';
    const std::uint64_t limit = std::strtoull(much.c_str(), nullptr, 10);
    int at = 2;
    const std::uint64_t first = arguments[at][0] == '@' ? std::strtoull(arguments[at++] + 1, nullptr, 10) : 0;
    std::vector<std::string> seeds;
    for (; at < count; ++at)
        seeds.push_back(contents(arguments[at]));
    if (seeds.empty())
        return 1;

    for (const int signal : { SIGABRT, SIGALRM, SIGSEGV, SIGBUS, SIGFPE })
        std::signal(signal, nameInput);
    fuzz::Mutator mutator(fuzz::language(), std::move(seeds));
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(counted ? 1 << 30 : limit);
    std::uint64_t made = 0;
    while (counted ? made < limit : std::chrono::steady_clock::now() < end) {
        currentInput = first + made;
        const std::string input = mutator.make(currentInput);
        ::alarm(kHangSeconds);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        ::alarm(0);
        ++made;
    }
    std::printf("%s: %llu damaged inputs, no crash, no hang\n", arguments[0], static_cast<unsigned long long>(made));
    return 0;
}
