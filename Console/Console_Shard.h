// A part of a set of files that several machines share: each formats the files of one part, without talking to the
// others.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Console {

struct Shard {
    std::uint64_t index = 1;  // from 1 to `count`
    std::uint64_t count = 1;

    // Whether the file of this name belongs to the part. Each name belongs to one part of `count`, on every machine and
    // in every version of the program.
    bool holds(std::string_view name) const;
};

// Reads "I/N"; nothing for what is no part.
std::optional<Shard> parseShard(std::string_view text);

}  // namespace Console
