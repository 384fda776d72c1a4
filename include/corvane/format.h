// Formats C and C++ source: changes its white space and nothing else.
#pragma once

#include <corvane/messages.h>
#include <corvane/scheme.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

enum class Outcome {
    Formatted,
    Refused,  // the text can't be parsed; the messages tell where
};

struct FormatResult {
    Outcome outcome = Outcome::Refused;
    std::string text;       // the whole formatted text; empty unless formatted
    Messages messages;      // about the source, in the order in which they were found
    std::size_t seams = 0;  // places where the scheme alone would have changed the program, all mended

    explicit operator bool() const { return outcome == Outcome::Formatted; }
};

// Formats `source`, a whole file in any encoding that keeps ASCII bytes, under a scheme. Lines may end in any way;
// those of the result end with line feeds. Time and memory are linear in the source. Throws Error, and std::bad_alloc.
// May be called by several threads at the same time, also with the same scheme.
[[gnu::visibility("default")]] FormatResult format(std::string_view source, const Scheme& scheme);

// The version of the library, such as "1.2.1".
[[gnu::visibility("default")]] std::string_view version() noexcept;

}  // namespace corvane
