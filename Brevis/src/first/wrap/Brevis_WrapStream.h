// The scratch stream of the expression line wrapper: an output stream opened at a place, with an indent that is only
// spelled out when something is written through it.
#pragma once

#include <string>
#include <string_view>

#include "first/wrap/Brevis_WrapPlace.h"

namespace Brevis {

class WrapStream {
public:
    explicit WrapStream(const WrapPlace& place);

    // Character for character.
    void raw(std::string_view text) {
        writeRaw(out_, text);
        rawSize_ += text.size();
    }
    // A line feed, unless the line has just been broken behind a backslash: the white space there stays as it is.
    void lineFeed();
    // Writes the leading white space of `text` and its first other character raw, takes them off `text` and gives that
    // character's output column. A text of white space alone is written and emptied, and gives 0.
    int writeFirstChar(std::string_view& text);

    // The stream with its indent, for ordinary writing.
    OIndentStream& stream();

    // The number of characters written raw.
    std::size_t rawSize() const { return rawSize_; }
    ColumnFold* fold() const { return place_.fold; }
    int column() const { return out_.column(); }
    int tabSize() const { return out_.tabSize(); }
    int indentWidth() const { return place_.indentWidth(); }
    // The place at which the next text will stand, under the indent in force or under one that reaches a column.
    WrapPlace place() const;
    WrapPlace placeUnder(int indentColumn) const;

    std::string takeText() { return out_.takeStr(); }

private:
    WrapPlace place_;
    OIndentStream out_;
    bool hasIndent_;
    std::size_t rawSize_ = 0;
};

}  // namespace Brevis
