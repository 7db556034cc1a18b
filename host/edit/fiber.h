#pragma once

#include <functional>
#include <memory>

namespace host {

// A function on a stack of its own, which can stop in the middle and be gone on with later. The
// stacks have 1 MiB, end in a page that cannot be touched, and are used again. Only one thread runs
// fibers.
class Fiber {
public:
    // `body` must let no exception out.
    explicit Fiber(std::function<void()> body);
    // A fiber that has begun and not ended keeps its stack for good: what lies on it may still be
    // pointed to.
    ~Fiber();
    Fiber(const Fiber&) = delete;
    Fiber& operator=(const Fiber&) = delete;

    // Runs the body until it yields or ends; called from any other stack.
    void resume();
    // Inside the body: back to who resumed it.
    void yield();
    bool done() const;

private:
    struct State;
    static void enter(unsigned low, unsigned high);

    std::unique_ptr<State> state_;
};

} // namespace host
