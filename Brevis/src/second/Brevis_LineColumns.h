// Columns of a line, from 0: a tab goes on to the next multiple of the tab size, and a character of UTF-8 takes one
// column, however many bytes it has.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace Brevis {

// Whether the eight characters at `text` are ASCII and none of them is a tab.
inline bool areNarrow(const char* text) {
    constexpr std::uint64_t ones = 0x0101010101010101U, highBits = 0x80 * ones;
    std::uint64_t bytes;
    std::memcpy(&bytes, text, sizeof bytes);
    const std::uint64_t zeroForTab = bytes ^ (ones * '\t');
    return ((bytes | (zeroForTab - ones)) & highBits) == 0;
}

// The column behind `text`, which holds no line feed and begins in `column`.
inline int columnBehind(std::string_view text, int column, int tabSize) {
    constexpr std::size_t step = 8;
    for (std::size_t at = 0; at < text.size(); ++at) {
        while (text.size() - at >= step && areNarrow(text.data() + at)) {
            at += step;
            column += step;
        }
        if (at == text.size()) break;
        if (text[at] == '\t') {
            column += tabSize - column % tabSize;
        } else if ((static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U) {
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
    // The text is another one from `offset` on.
    void forget(std::size_t offset);

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
