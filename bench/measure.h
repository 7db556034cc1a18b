#pragma once

#include <cstddef>
#include <functional>

// What one piece of work took, run in a process of its own, so that memory of one measure does not
// count in the next.
struct Measured {
    double seconds = 0.0;      // the best of the runs
    std::size_t peakBytes = 0; // resident, pages of mapped files counted; of that run
    bool failed = false;
};

// The work is timed from its call to its return; the best of `runs`, each in a new process.
Measured measure(int runs, const std::function<void()>& work);

// The same with what must stand before and is not timed: the work that `prepare` answers with is.
Measured measurePrepared(int runs, const std::function<std::function<void()>()>& prepare);
