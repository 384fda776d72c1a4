// The input cursor: reads a text that somebody else owns and reports line and column exactly.
// It copies nothing and converts nothing; line ends must be normalised before (Vellum_LineEnds.h).
#pragma once

#include <cstddef>
#include <string_view>

#include "Vellum_Position.h"

namespace Vellum {

// Reading is by single characters (get, peek, unget) or by stretches (readWhileBelow, readRest).
// A stretch is a view of the text given to the constructor and lives as long as that text.
//
// A read that meets the end of the text fails and leaves the stream no longer good; from then on every
// read fails and unget has no effect.
class ITextDocStream {
public:
    static constexpr int endOfFile = -1;

    // startLine counts from 1 and startColumn from 0; smaller values are raised to these.
    // A tab size below 1 becomes 1. It is kept for callers that measure text; the cursor counts a tab as one column.
    explicit ITextDocStream(std::string_view text, int tabSize = 1, Position start = {1, 0});

    // The next character (0 to 255), or endOfFile.
    int get();
    int peek() const;

    // Steps back over the last character read, across a line end too. False at the start of the text
    // and on a stream that is no longer good.
    bool unget();

    bool good() const { return good_; }
    Position position() const { return {line_, column()}; }
    int line() const { return line_; }
    int column() const { return static_cast<int>(static_cast<std::ptrdiff_t>(offset_) - lineStart_); }
    // Byte offset of the cursor in the text given to the constructor.
    std::size_t offset() const { return offset_; }

    int tabSize() const { return tabSize_; }
    void setTabSize(int tabSize) { tabSize_ = tabSize < 1 ? 1 : tabSize; }

    // Reads characters while the cursor is below `limit` and the read succeeds.
    // Meeting the end of the text below `limit` is a failed read.
    std::string_view readWhileBelow(Position limit);

    // All that is left. The stream is no longer good afterwards.
    std::string_view readRest();

private:
    static constexpr std::size_t unknown = std::string_view::npos;

    void startLine();
    std::size_t lineFeed();

    std::string_view text_;
    std::size_t offset_ = 0;
    int line_;
    // Where column 0 of the current line is, which on the first line may lie in front of the text.
    std::ptrdiff_t lineStart_;
    std::ptrdiff_t firstLineStart_;
    std::size_t lineFeed_ = unknown;  // the offset at which the current line ends, once it has been looked for
    int tabSize_;
    bool good_ = true;
};

}  // namespace Vellum
