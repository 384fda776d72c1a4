// What a piece of work costs, counted: the same on every machine and however busy that is. A build under sanitizers
// counts (see CMakeLists.txt there), and no other.
#pragma once

#include <cstdint>
#include <ostream>

namespace StepCount {

struct Cost {
    std::uint64_t steps = 0;  // stretches of the engine's code without a jump that were run through
    std::uint64_t bytes = 0;  // allocated in the meantime, those given back included

    friend std::ostream& operator<<(std::ostream& out, const Cost& cost) {
        return out << cost.steps << " steps and " << cost.bytes << " bytes";
    }
};

// All so far, in this thread.
Cost now();

template <class Work>
Cost of(Work work) {
    const Cost begin = now();
    work();
    const Cost end = now();
    return {end.steps - begin.steps, end.bytes - begin.bytes};
}

// Whether `more` is at most so many times `once`, in steps and in bytes. Small costs say nothing. False in a build that
// doesn't count.
inline bool isWithin(const Cost& more, double times, const Cost& once) {
    constexpr double fewSteps = 20'000, fewBytes = 100'000;
    const auto isLess = [times](std::uint64_t big, std::uint64_t small, double few) {
        return static_cast<double>(big) <= times * static_cast<double>(small) + few;
    };
    return more.steps > 0 && isLess(more.steps, once.steps, fewSteps) && isLess(more.bytes, once.bytes, fewBytes);
}

}  // namespace StepCount
