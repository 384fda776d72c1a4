// One pass over the laid text with its column.
#include "second/Brevis_BlankConverter.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "second/Brevis_LineColumns.h"

namespace Brevis {

namespace Kind = Trn::Kind;

namespace {

class BlankConverter {
public:
    BlankConverter(const Scheme& scheme, std::size_t size) : scheme_(scheme) { result_.reserve(size + size / 8); }

    void copy(std::string_view text) {
        for (const char c : text) write(c);
    }
    void convert(std::string_view text) {
        for (const char c : text) convert(c);
    }
    void convertGap(std::string_view gap);
    void convertColumn(std::string_view gap);
    void convertComment(std::string_view text);
    void convertName(std::string_view text);
    void convertDirective(std::string_view text);
    std::string take() {
        writePending();
        return std::move(result_);
    }

private:
    void convert(char c);
    void convertLater(std::string_view text, int indent, bool isFree);
    void write(char c);
    void writePending();
    int toTabStop() const { return scheme_.tabSize - column_ % scheme_.tabSize; }

    const Scheme& scheme_;
    std::string result_;
    int column_ = 0;
    int pending_ = 0;  // blanks since a tab stop that are not written yet
};

void BlankConverter::convert(char c) {
    if (scheme_.convertWs == 1 && c == '\t') {
        const int size = toTabStop();
        result_.append(static_cast<std::size_t>(size), ' ');
        column_ += size;
    } else if (scheme_.convertWs == 2 && c == ' ' && (pending_ > 0 || column_ % scheme_.tabSize == 0)) {
        ++column_;
        if (++pending_ < scheme_.tabSize || scheme_.tabSize == 1) return;
        pending_ = 0;
        result_ += '\t';
    } else {
        write(c);
    }
}

void BlankConverter::write(char c) {
    writePending();
    result_ += c;
    if (c == '\n') {
        column_ = 0;
    } else {
        column_ = columnBehind({&c, 1}, column_, scheme_.tabSize);
    }
}

void BlankConverter::writePending() {
    result_.append(static_cast<std::size_t>(pending_), ' ');
    pending_ = 0;
}

// An indent gets as many tabs as go into it.
void BlankConverter::convertGap(std::string_view gap) {
    const std::size_t lead = gap.rfind('\n') + 1;
    convert(gap.substr(0, lead));
    gap.remove_prefix(lead);
    if (blankSize(gap) < gap.size()) return convert(gap);
    // No blanks in front of a tab.
    const bool holdsTab = std::cmp_greater_equal(gap.size(), toTabStop() + scheme_.tabSize);
    const bool isAtStop = column_ % scheme_.tabSize == 0;
    if (column_ > 0 && (isAtStop || !holdsTab)) return convert(gap);
    convertColumn(gap);
}

// So does the way to a column, unless it is one blank.
void BlankConverter::convertColumn(std::string_view gap) {
    const int target = columnBehind(gap, column_, scheme_.tabSize);
    if (scheme_.convertWs != 2 || target - column_ == 1) return convert(gap);
    while (column_ + toTabStop() <= target) write('\t');
    while (column_ < target) write(' ');
}

// The white space of a comment is its author's, but for tabs that have to go, and for the indent of its later lines as
// far as that of the first one goes.
void BlankConverter::convertComment(std::string_view text) { convertLater(text, column_, false); }

// One that goes on behind a line end, where any white space does.
void BlankConverter::convertName(std::string_view text) { convertLater(text, std::numeric_limits<int>::max(), true); }

void BlankConverter::convertLater(std::string_view text, int indent, bool isFree) {
    for (;;) {
        const std::size_t size = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, size);
        if (scheme_.convertWs == 1 || isFree) {
            convert(line);
        } else {
            copy(line);
        }
        if (size == text.size()) return;
        write('\n');
        text.remove_prefix(size + 1);
        const std::size_t blanks = blankSize(text);
        std::size_t lead = 0;
        for (int column = 0; lead < blanks; ++lead) {
            column = columnBehind(text.substr(lead, 1), column, scheme_.tabSize);
            if (column > indent) break;
        }
        convertColumn(text.substr(0, lead));
        text.remove_prefix(lead);
    }
}

// Tabs go, but for those in quotes, which a line feed ends.
void BlankConverter::convertDirective(std::string_view text) {
    if (scheme_.convertWs != 1) return copy(text);
    char quote = '\0', last = '\0';
    for (const char c : text) {
        const bool isInside = quote != '\0';
        if (c == '\n' || (c == quote && last != '\\')) {
            quote = '\0';
        } else if (!isInside && last != '\\' && (c == '"' || c == '\'')) {
            quote = c;
        }
        last = c;
        if (isInside) {
            write(c);
        } else {
            convert(c);
        }
    }
}

}  // namespace

std::string convertBlanks(const GapText& text, const GapTable& gaps, const Scheme& scheme, std::string_view laid,
                          const std::vector<std::uint32_t>& places) {
    BlankConverter converter(scheme, laid.size());
    for (TokenIndex token = 1; token <= text.size(); ++token) {
        const std::uint32_t* place = &places[2 * std::size_t{token} - 2];
        const std::size_t end = token < text.size() ? place[2] : laid.size();
        const std::string_view gap = laid.substr(place[0], place[1] - place[0]);
        const std::string_view body = laid.substr(place[1], end - place[1]);
        const bool isFixed = gaps[token].sort == Gap::Sort::Fixed;
        if (isFixed || gaps[token].sort == Gap::Sort::OwnColumn) {
            converter.copy(gap);
        } else if (text.hasBlanksBeforeOperator(token) && gap.find('\n') == std::string_view::npos) {
            converter.copy(gap);
        } else if (gaps[token].sort == Gap::Sort::Column) {
            converter.convertColumn(gap);
        } else {
            converter.convertGap(gap);
        }
        if (!isFixed && text.isNameOverLines(token)) {
            converter.convertName(body);
        } else if (isFixed || !text.isTrivia(token)) {
            converter.copy(body);
        } else if (text.isComment(token)) {
            converter.convertComment(body);
        } else {
            converter.convertDirective(body);
        }
    }
    return converter.take();
}

}  // namespace Brevis
