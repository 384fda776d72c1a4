// What the library tells about a text or a scheme file.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace corvane {

enum class Severity { Information = 1, Warning = 2, Error = 3 };

struct Message {
    Severity severity = Severity::Error;
    int line = 0;      // from 1; 0 where there is no place
    int column = 0;    // from 1, in bytes, a tab being one; 0 where there is none
    int code = 0;      // a number for the sort of message that stays the same from version to version; 0 for none
    std::string text;  // in English, without a line feed
};

using Messages = std::vector<Message>;

// Thrown where a text goes beyond a fixed limit, such as 1000 levels of nesting, or where the engine finds that its own
// result would change more than white space. Anything that is wrong with an input is a Message instead.
class [[gnu::visibility("default")]] Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~Error() override;
};

}  // namespace corvane
