// Line ends outside the engine, which gives line feeds: each line gets back the end that it has in the source, or the
// one that the user wants.
#pragma once

#include <string>
#include <string_view>

namespace BrevisUI {

enum class LineEndMode { Keep, LineFeed, CarriageReturnLineFeed, Native };

class LineEnds {
public:
    // `formatted` is what the engine has made of `source`. A line that ends at the same place of the code in both keeps
    // its end; one that is new has the end that most lines of the source have.
    static std::string restore(std::string_view source, std::string formatted, LineEndMode mode);
};

}  // namespace BrevisUI
