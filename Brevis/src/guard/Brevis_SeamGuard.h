// The last step of each pass: walks the text that the pass read and the text that it wrote side by side and leaves the
// written text with exactly the tokens of the other. It touches white space only, and only where it has to.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Brevis {

// 1. Without white space, both texts are equal.
// 2. White space inside literals is that of the source; inside comments and directives only the start of a line may
//    differ, and tabs and blanks may stand for each other; blanks at the end of a line may go if the pass may trim
//    lines. A backslash at a line end keeps its line end.
// 3. Tokens that white space kept apart don't run together, and none is torn by white space.
// 4. A `#` is first on its line where it was, and nowhere else; line comments and directives keep their ends.
class SeamGuard {
public:
    // What a pass may do to the blanks with which lines of comments and directives end.
    enum class LineEnds { Kept, Trimmed };

    // Whether a literal with a backslash near its front is kept apart from a sign. Nothing asks for that but results
    // that have to stay as they have always been.
    enum class Literals { Parted, Free };

    // `source` is what the pass read, its line ends line feeds. It must outlive the guard.
    explicit SeamGuard(std::string_view source, LineEnds lineEnds = LineEnds::Kept,
                       Literals literals = Literals::Parted)
        : source_(source), lineEnds_(lineEnds), literals_(literals) {}

    // Mends what the pass wrote and gives the number of places that needed it. Throws Trn::Exception with the place
    // if the texts differ in more than white space. Linear in both texts.
    std::size_t mend(std::string& output) const;

private:
    std::string_view source_;
    LineEnds lineEnds_;
    Literals literals_;
};

}  // namespace Brevis
