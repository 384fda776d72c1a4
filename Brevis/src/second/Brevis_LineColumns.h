// Columns of a line, from 0: a tab goes on to the next multiple of the tab size, and a character of UTF-8 takes one
// column, however many bytes it has.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace Brevis {

// The column behind `text`, which holds no line feed and begins in `column`.
inline int columnBehind(std::string_view text, int column, int tabSize) {
    for (const char c : text) {
        if (c == '\t') {
            column += tabSize - column % tabSize;
        } else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) {
            ++column;
        }
    }
    return column;
}

// How many bytes of blanks and tabs `text` begins with.
inline std::size_t blankSize(std::string_view text) {
    std::size_t size = 0;
    while (size < text.size() && (text[size] == ' ' || text[size] == '\t')) ++size;
    return size;
}

// Tells the columns of places in one text, which may grow at its end. Reads no more of a line than it has to: behind
// the place of the last question, or behind a mark.
class LineColumns {
public:
    explicit LineColumns(int tabSize) : tabSize_(tabSize) {}

    // The column of `offset`, on the line that begins at `lineBegin`.
    int columnOf(std::string_view text, std::size_t lineBegin, std::size_t offset);

    // True if so much of the line lies in front of `offset` that a question about a place near it would cost too much.
    bool needsMark(std::size_t lineBegin, std::size_t offset) const {
        return offset - lineBegin > longLine && (marks_.empty() || offset - marks_.back().offset > longLine);
    }
    // For offsets in ascending order.
    void mark(std::string_view text, std::size_t lineBegin, std::size_t offset);

private:
    static constexpr std::size_t longLine = 1024;

    struct Place {
        std::size_t line = 0;
        std::size_t offset = 0;
        int column = 0;
    };

    int tabSize_;
    Place last_;
    std::vector<Place> marks_;
};

}  // namespace Brevis
