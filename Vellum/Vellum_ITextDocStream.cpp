// The input cursor. A line is searched for its end once; within it every step is arithmetic on offsets.
#include "Vellum_ITextDocStream.h"

#include <algorithm>
#include <limits>

namespace Vellum {

ITextDocStream::ITextDocStream(std::string_view text, int tabSize, Position start)
    : text_(text),
      line_(std::max(start.line, 1)),
      lineStart_(-std::max(start.column, 0)),
      firstLineStart_(lineStart_),
      tabSize_(std::max(tabSize, 1)) {}

int ITextDocStream::peek() const {
    if (!good_ || offset_ == text_.size()) return endOfFile;
    return static_cast<unsigned char>(text_[offset_]);
}

int ITextDocStream::get() {
    const int c = peek();
    if (c == endOfFile) {
        good_ = false;
        return c;
    }
    ++offset_;
    if (c == '\n') startLine();
    return c;
}

bool ITextDocStream::unget() {
    if (!good_ || offset_ == 0) return false;
    --offset_;
    if (text_[offset_] != '\n') return true;
    --line_;
    lineFeed_ = offset_;
    const std::size_t before = offset_ == 0 ? unknown : text_.rfind('\n', offset_ - 1);
    lineStart_ = before == unknown ? firstLineStart_ : static_cast<std::ptrdiff_t>(before) + 1;
    return true;
}

std::string_view ITextDocStream::readWhileBelow(Position limit) {
    if (!good_) return {};
    const std::size_t begin = offset_;
    while (good_ && position() < limit) {
        const std::size_t wanted = line_ < limit.line ? unknown : static_cast<std::size_t>(lineStart_ + limit.column);
        const std::size_t end = lineFeed();
        if (wanted <= end) {
            offset_ = wanted;
        } else if (end < text_.size()) {
            offset_ = end + 1;
            startLine();
        } else {
            offset_ = end;
            good_ = false;
        }
    }
    return text_.substr(begin, offset_ - begin);
}

std::string_view ITextDocStream::readRest() {
    const std::string_view rest = readWhileBelow({std::numeric_limits<int>::max(), 0});
    good_ = false;
    return rest;
}

// The cursor stands behind a line feed.
void ITextDocStream::startLine() {
    ++line_;
    lineStart_ = static_cast<std::ptrdiff_t>(offset_);
    lineFeed_ = unknown;
}

// The offset of the line feed that ends the current line, or the length of the text.
std::size_t ITextDocStream::lineFeed() {
    if (lineFeed_ == unknown) lineFeed_ = std::min(text_.find('\n', offset_), text_.size());
    return lineFeed_;
}

}  // namespace Vellum
