// A quick look at the stretches of both texts in which nothing can have gone wrong, so that the sweep need not cut them
// into tokens. It reads the two texts and touches nothing.
#pragma once

#include <cstddef>
#include <string_view>

namespace Brevis {

struct PlainRun {
    std::size_t source = 0;  // the length of what needs no second look; its last byte is a lone punctuator, or it is 0
    std::size_t output = 0;  // and of what was written for it
    std::size_t seen = 0;    // how much of the source was looked at
};

// What a `<` may begin beside a punctuator.
enum class Less { Nothing, HeaderName };
Less lessOf(std::string_view source);

// Both texts begin behind the same token, which is in no directive, and no backslash ends the source's. `less` is that of
// the whole source.
PlainRun findPlainRun(std::string_view source, std::string_view output, Less less);

}  // namespace Brevis
