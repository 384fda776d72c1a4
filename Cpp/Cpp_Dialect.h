// Which C or C++ a text is read as. The classic dialect is that of the late nineties; what it can't read the modern one
// takes, which knows the tokens and constructs of today.
#pragma once

#include <cstdint>

namespace Cpp {

enum class Dialect : std::uint8_t { classic, modern };

// The language of a text in the modern dialect. In C, words such as `class`, `new` and `private` are names.
enum class Language : std::uint8_t { c, cpp };

}  // namespace Cpp
