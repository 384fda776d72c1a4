// Finds the place in a file that a message is about. It knows the forms that our messages have and asks no disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace BrevisUI {

struct MessagePlace {
    std::string path;  // full
    int line = 0;      // from 1; 0 is the file as a whole
    int column = 0;    // from 1; 0 is the line as a whole

    bool operator==(const MessagePlace&) const = default;
};

// What a message like `/a.c(12) : error: col 7: Expected "(".` or `Formatting "/a.c".` tells about; nothing for one
// without a full path.
std::optional<MessagePlace> findPlace(std::string_view message);

}  // namespace BrevisUI
