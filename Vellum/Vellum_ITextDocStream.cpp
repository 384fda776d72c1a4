// The input cursor. Stretches are read by looking for line feeds only, never character by character.
#include "Vellum_ITextDocStream.h"

#include <algorithm>

namespace Vellum {

ITextDocStream::ITextDocStream(std::string_view text, int tabSize, Position start)
    : text_(text),
      start_{std::max(start.line, 1), std::max(start.column, 0)},
      position_(start_),
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
    if (c == '\n') {
        ++position_.line;
        position_.column = 0;
    } else {
        ++position_.column;
    }
    return c;
}

bool ITextDocStream::unget() {
    if (!good_ || offset_ == 0) return false;
    --offset_;
    if (position_.column > 0) {
        --position_.column;
        return true;
    }
    // Back over a line feed: the column is the length of the line that it ends, measured from the start
    // column on the first line.
    const std::size_t lineFeed = offset_ == 0 ? std::string_view::npos : text_.rfind('\n', offset_ - 1);
    const bool onFirstLine = lineFeed == std::string_view::npos;
    --position_.line;
    position_.column = onFirstLine ? start_.column + static_cast<std::int32_t>(offset_)
                                   : static_cast<std::int32_t>(offset_ - lineFeed - 1);
    return true;
}

std::string_view ITextDocStream::readWhileBelow(Position limit) {
    if (!good_) return {};
    const std::size_t begin = offset_;
    while (position_ < limit) {
        const std::size_t wanted = position_.line < limit.line
                                       ? std::string_view::npos
                                       : static_cast<std::size_t>(limit.column - position_.column);
        const std::string_view stretch = text_.substr(offset_, wanted);
        const std::size_t lineFeed = stretch.find('\n');
        if (lineFeed != std::string_view::npos) {
            offset_ += lineFeed + 1;
            position_ = {position_.line + 1, 0};
            continue;
        }
        offset_ += stretch.size();
        position_.column += static_cast<std::int32_t>(stretch.size());
        if (stretch.size() < wanted) {
            good_ = false;
            break;
        }
    }
    return text_.substr(begin, offset_ - begin);
}

std::string_view ITextDocStream::readRest() {
    if (!good_) return {};
    const std::string_view rest = text_.substr(offset_);
    const std::size_t lastLineFeed = rest.rfind('\n');
    if (lastLineFeed == std::string_view::npos) {
        position_.column += static_cast<std::int32_t>(rest.size());
    } else {
        position_.line += static_cast<std::int32_t>(std::count(rest.begin(), rest.end(), '\n'));
        position_.column = static_cast<std::int32_t>(rest.size() - lastLineFeed - 1);
    }
    offset_ = text_.size();
    good_ = false;
    return rest;
}

}  // namespace Vellum
