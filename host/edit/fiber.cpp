#include "host/edit/fiber.h"

#include <cassert>
#include <cstdint>
#include <cxxabi.h>
#include <new>
#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#include <sanitizer/common_interface_defs.h>
#define HOST_ASAN 1
#else
#define HOST_ASAN 0
#endif

namespace host {

namespace {

constexpr std::size_t kStackSize = 1024 * 1024;

struct Stack {
    char* memory = nullptr; // the guard page first, the stack behind it
    std::size_t guard = 0;

    char* bottom() const { return memory + guard; }
};

std::vector<Stack>& freeStacks()
{
    static std::vector<Stack> stacks;
    return stacks;
}

Stack takeStack()
{
    std::vector<Stack>& pool = freeStacks();
    if (!pool.empty()) {
        const Stack stack = pool.back();
        pool.pop_back();
#if HOST_ASAN
        __asan_unpoison_memory_region(stack.bottom(), kStackSize);
#endif
        return stack;
    }
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const memory = mmap(nullptr, page + kStackSize, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
    if (memory == MAP_FAILED || mprotect(memory, page, PROT_NONE) != 0)
        throw std::bad_alloc();
    return {static_cast<char*>(memory), page};
}

// What the C++ runtime keeps for each thread about exceptions under way belongs to the stack that
// they are on: a body may yield inside a handler.
struct ExceptionState {
    void* caught = nullptr;
    unsigned uncaught = 0;
};

ExceptionState exchangeExceptions(const ExceptionState& next)
{
    auto* const globals = reinterpret_cast<ExceptionState*>(abi::__cxa_get_globals());
    const ExceptionState old = *globals;
    *globals = next;
    return old;
}

} // namespace

struct Fiber::State {
    std::function<void()> body;
    Stack stack;
    ucontext_t own{};
    ucontext_t resumer{};
    ExceptionState ownExceptions;
    ExceptionState resumerExceptions;
    bool begun = false;
    bool done = false;
    bool running = false;
    // For the address sanitizer: the fake frames of both sides and the resumer's stack.
    void* ownFrames = nullptr;
    void* resumerFrames = nullptr;
    const void* resumerBottom = nullptr;
    std::size_t resumerSize = 0;
};

Fiber::Fiber(std::function<void()> body) : state_(std::make_unique<State>())
{
    state_->body = std::move(body);
}

Fiber::~Fiber()
{
    if (!state_->begun)
        return;
    if (state_->done)
        freeStacks().push_back(state_->stack);
    else
        static_cast<void>(state_.release());
}

void Fiber::resume()
{
    State& s = *state_;
    assert(!s.done && !s.running);
    if (!s.begun) {
        s.stack = takeStack();
        getcontext(&s.own);
        s.own.uc_stack.ss_sp = s.stack.bottom();
        s.own.uc_stack.ss_size = kStackSize;
        s.own.uc_link = nullptr;
        const auto address = reinterpret_cast<std::uintptr_t>(this);
        makecontext(&s.own, reinterpret_cast<void (*)()>(&Fiber::enter), 2,
                    static_cast<unsigned>(address), static_cast<unsigned>(address >> 32));
        s.begun = true;
    }
    s.running = true;
    s.resumerExceptions = exchangeExceptions(s.ownExceptions);
#if HOST_ASAN
    __sanitizer_start_switch_fiber(&s.resumerFrames, s.stack.bottom(), kStackSize);
#endif
    swapcontext(&s.resumer, &s.own);
#if HOST_ASAN
    __sanitizer_finish_switch_fiber(s.resumerFrames, nullptr, nullptr);
#endif
    s.ownExceptions = exchangeExceptions(s.resumerExceptions);
    s.running = false;
}

void Fiber::yield()
{
    State& s = *state_;
    assert(s.running);
#if HOST_ASAN
    __sanitizer_start_switch_fiber(&s.ownFrames, s.resumerBottom, s.resumerSize);
#endif
    swapcontext(&s.own, &s.resumer);
#if HOST_ASAN
    __sanitizer_finish_switch_fiber(s.ownFrames, &s.resumerBottom, &s.resumerSize);
#endif
}

bool Fiber::done() const
{
    return state_->done;
}

void Fiber::enter(unsigned low, unsigned high)
{
    const std::uintptr_t address = std::uintptr_t{low} | std::uintptr_t{high} << 32;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): makecontext hands on integers only
    State& s = *reinterpret_cast<Fiber*>(address)->state_;
#if HOST_ASAN
    __sanitizer_finish_switch_fiber(nullptr, &s.resumerBottom, &s.resumerSize);
#endif
    s.body();
    s.body = nullptr;
    s.done = true;
#if HOST_ASAN
    __sanitizer_start_switch_fiber(nullptr, s.resumerBottom, s.resumerSize);
#endif
    swapcontext(&s.own, &s.resumer);
}

} // namespace host
