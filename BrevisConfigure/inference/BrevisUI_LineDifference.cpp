// A line is found again by the number of characters in front of it that are no white space.
#include "inference/BrevisUI_LineDifference.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"

namespace BrevisUI {

namespace {

class Lines {
public:
    explicit Lines(std::string_view text) : rest_(text) { next(); }

    bool isAtEnd() const { return isAtEnd_; }
    std::string_view line() const { return line_; }
    bool isEmpty() const { return characters_ == 0; }
    std::uint64_t before() const { return before_; }

    void next() {
        before_ += characters_;
        isAtEnd_ = rest_.empty();
        const std::size_t size = std::min(rest_.find('\n'), rest_.size());
        line_ = rest_.substr(0, size);
        rest_.remove_prefix(std::min(size + 1, rest_.size()));
        characters_ =
            static_cast<std::uint64_t>(std::ranges::count_if(line_, [](char c) { return !Vellum::isSpace(c); }));
    }

private:
    std::string_view rest_, line_;
    std::uint64_t before_ = 0, characters_ = 0;
    bool isAtEnd_ = false;
};

}  // namespace

LineDifference compareLines(std::string_view source, std::string_view result) {
    LineDifference difference;
    Lines after(result);
    for (Lines before(source); !before.isAtEnd(); before.next()) {
        ++difference.lines;
        // Empty lines are passed in pairs, so that one more or less counts once.
        while (!after.isAtEnd() && (after.before() < before.before() || (after.isEmpty() && !before.isEmpty()))) {
            after.next();
        }
        const bool isSame = !after.isAtEnd() && after.before() == before.before() && after.line() == before.line();
        if (isSame) {
            after.next();
        } else {
            ++difference.changed;
        }
    }
    return difference;
}

}  // namespace BrevisUI
