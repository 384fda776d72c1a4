// The form of an input.
#include "Fuzz_Targets.h"

#include "Vellum_LineEnds.h"

namespace Fuzz {

// The choices stand last, so that source files are inputs as they are, and no change of a text moves them.
Input splitInput(std::string_view data) {
    const std::size_t border = data.rfind('\xff');
    Input input{std::string(data.substr(0, border)), {}};
    if (border != std::string_view::npos) input.choices = data.substr(border + 1);
    Vellum::normalizeLineEnds(input.text);
    return input;
}

}  // namespace Fuzz
