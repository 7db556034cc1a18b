#include "host/files/mapped_ranges.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>

namespace host {

namespace {

// Everything that the handler reads is atomic: a fault may come on any thread at any time.
struct Range {
    std::atomic<std::uintptr_t> begin{0}; // 0: the slot is free
    std::atomic<std::uintptr_t> end{0};
    std::atomic<bool> damaged{false};
};

constinit std::array<Range, 256> ranges;
constinit std::atomic<std::uintptr_t> pageSize{0};
struct sigaction formerAction; // written before the handler is in place
constinit std::mutex tableMutex;

bool layZeros(std::uintptr_t address)
{
    for (Range& range : ranges) {
        const std::uintptr_t begin = range.begin.load();
        if (begin == 0 || address < begin || address >= range.end.load())
            continue;
        range.damaged = true;
        const std::uintptr_t size = pageSize;
        // Page by page: what is not cut off stays readable.
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a place rounded to its page
        void* page = reinterpret_cast<void*>(address & ~(size - 1));
        return mmap(page, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) == page;
    }
    return false;
}

void onBusError(int signal, siginfo_t* info, void* context)
{
    if (layZeros(reinterpret_cast<std::uintptr_t>(info->si_addr)))
        return;
    if (formerAction.sa_flags & SA_SIGINFO) {
        formerAction.sa_sigaction(signal, info, context);
    } else if (formerAction.sa_handler != SIG_DFL && formerAction.sa_handler != SIG_IGN) {
        formerAction.sa_handler(signal);
    } else {
        // The instruction runs again and ends the program the usual way.
        std::signal(signal, SIG_DFL);
    }
}

void setUpHandler()
{
    pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    sigaction(SIGBUS, nullptr, &formerAction);
    struct sigaction action {};
    action.sa_sigaction = onBusError;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    sigaction(SIGBUS, &action, nullptr);
}

} // namespace

std::optional<std::size_t> MappedRanges::add(const void* begin, std::size_t size)
{
    const std::lock_guard lock(tableMutex);
    if (pageSize == 0)
        setUpHandler();
    for (std::size_t slot = 0; slot < ranges.size(); ++slot) {
        Range& range = ranges[slot];
        if (range.begin != 0)
            continue;
        range.damaged = false;
        range.end = reinterpret_cast<std::uintptr_t>(begin) + size;
        range.begin = reinterpret_cast<std::uintptr_t>(begin);
        return slot;
    }
    return std::nullopt;
}

void MappedRanges::remove(std::size_t slot)
{
    ranges[slot].begin = 0;
}

bool MappedRanges::isDamaged(std::size_t slot)
{
    return ranges[slot].damaged;
}

} // namespace host
