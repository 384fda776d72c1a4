// Only white space that may change is read; what lies between is copied in stretches, and columns are counted where
// they are asked for.
#include "second/Brevis_BlankConverter.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "second/Brevis_LineColumns.h"

namespace Brevis {

namespace Kind = Trn::Kind;

namespace {

// Takes the text in pieces that follow each other.
class BlankConverter {
public:
    BlankConverter(const Scheme& scheme, std::string_view laid) : scheme_(scheme), laid_(laid) {
        result_.reserve(laid.size() + laid.size() / 8);
    }

    // Tells soon of most gaps and tokens, by themselves, that there is nothing to convert.
    bool isPlain(std::string_view gap, std::string_view token, bool holdsLines) {
        if (scheme_.convertWs == 2) return gap.size() <= 1 && !holdsLines;
        const std::size_t end = copied_ + gap.size() + token.size();
        if (nextTab_ < copied_) nextTab_ = std::min(laid_.find('\t', copied_), laid_.size());
        return nextTab_ >= end;
    }
    void copy(std::string_view piece) { copied_ += piece.size(); }
    void convert(std::string_view piece);
    void convertGap(std::string_view gap);
    void convertColumn(std::string_view gap);
    void convertComment(std::string_view text);
    void convertName(std::string_view text);
    void convertDirective(std::string_view text);
    std::string take() {
        flush();
        return std::move(result_);
    }

private:
    void toBlanks(std::string_view piece);
    void toTabs(std::string_view piece);
    void convertLater(std::string_view text, int indent, bool isFree);
    void write(char c, int count);
    void pass(std::size_t size);
    void flush();
    int column();
    // Of a comment or a directive: nothing to convert in it.
    bool isUnchanged(std::string_view text) const {
        return text.find(scheme_.convertWs == 1 ? '\t' : '\n') == std::string_view::npos;
    }
    int toTabStop() { return scheme_.tabSize - column() % scheme_.tabSize; }

    const Scheme& scheme_;
    std::string_view laid_;
    std::string result_;
    std::size_t written_ = 0;  // of the laid text
    std::size_t copied_ = 0;   // up to here it comes out as it is
    std::size_t nextTab_ = 0;  // in the laid text, unless that lies behind
    int column_ = 0;           // of the result, at `counted_`
    std::size_t counted_ = 0;
};

void BlankConverter::convert(std::string_view piece) {
    if (scheme_.convertWs == 1) return toBlanks(piece);
    if (scheme_.convertWs == 2 && scheme_.tabSize > 1 && piece.size() > 1) return toTabs(piece);
    copy(piece);
}

void BlankConverter::toBlanks(std::string_view piece) {
    for (;;) {
        const std::size_t tab = std::min(piece.find('\t'), piece.size());
        copy(piece.substr(0, tab));
        if (tab == piece.size()) return;
        write(' ', toTabStop());
        pass(1);
        piece.remove_prefix(tab + 1);
    }
}

// Of a run of blanks those in front of the first tab stop and behind the last one stay.
void BlankConverter::toTabs(std::string_view piece) {
    while (!piece.empty()) {
        const std::size_t blanks = std::min(piece.find_first_not_of(' '), piece.size());
        const int end = column() + static_cast<int>(blanks);
        const int toStop = toTabStop() % scheme_.tabSize;
        if (column_ + toStop + scheme_.tabSize <= end) {
            write(' ', toStop);
            while (column_ + scheme_.tabSize <= end) write('\t', 1);
            write(' ', end - column_);
            pass(blanks);
        } else {
            copy(piece.substr(0, blanks));
        }
        piece.remove_prefix(blanks);
        const std::size_t others = std::min(piece.find(' '), piece.size());
        copy(piece.substr(0, others));
        piece.remove_prefix(others);
    }
}

// Instead of what comes next in the laid text, which `pass` leaves out.
void BlankConverter::write(char c, int count) {
    column();
    flush();
    const std::string text(static_cast<std::size_t>(count), c);
    result_ += text;
    column_ = columnBehind(text, column_, scheme_.tabSize);
}

void BlankConverter::pass(std::size_t size) { written_ = copied_ = counted_ = copied_ + size; }

void BlankConverter::flush() {
    result_.append(laid_, written_, copied_ - written_);
    written_ = copied_;
}

int BlankConverter::column() {
    const std::string_view fresh = laid_.substr(counted_, copied_ - counted_);
    const std::size_t feed = fresh.rfind('\n');
    if (feed != std::string_view::npos) column_ = 0;
    column_ = columnBehind(fresh.substr(feed + 1), column_, scheme_.tabSize);
    counted_ = copied_;
    return column_;
}

// An indent gets as many tabs as go into it.
void BlankConverter::convertGap(std::string_view gap) {
    const std::size_t lead = gap.rfind('\n') + 1;
    convert(gap.substr(0, lead));
    gap.remove_prefix(lead);
    if (scheme_.convertWs != 2 || gap.empty()) return convert(gap);
    if (blankSize(gap) < gap.size()) return convert(gap);
    // No blanks in front of a tab.
    const bool holdsTab = std::cmp_greater_equal(gap.size(), toTabStop() + scheme_.tabSize);
    const bool isAtStop = column() % scheme_.tabSize == 0;
    if (column_ > 0 && (isAtStop || !holdsTab)) return convert(gap);
    convertColumn(gap);
}

// So does the way to a column, unless it is one blank.
void BlankConverter::convertColumn(std::string_view gap) {
    if (scheme_.convertWs != 2 || gap.empty() || gap == " ") return convert(gap);
    const int target = columnBehind(gap, column(), scheme_.tabSize);
    if (target - column_ == 1) return convert(gap);
    while (column_ + toTabStop() <= target) write('\t', 1);
    write(' ', target - column_);
    pass(gap.size());
}

// The white space of a comment is its author's, but for tabs that have to go, and for the indent of its later lines as
// far as that of the first one goes.
void BlankConverter::convertComment(std::string_view text) {
    if (isUnchanged(text)) return copy(text);
    convertLater(text, column(), false);
}

// One that goes on behind a line end, where any white space does.
void BlankConverter::convertName(std::string_view text) {
    convertLater(text, std::numeric_limits<int>::max(), true);
}

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
        copy("\n");
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
    if (scheme_.convertWs != 1 || isUnchanged(text)) return copy(text);
    char quote = '\0', last = '\0';
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        const bool isInside = quote != '\0';
        if (c == '\n' || (c == quote && last != '\\')) {
            quote = '\0';
        } else if (!isInside && last != '\\' && (c == '"' || c == '\'')) {
            quote = c;
        }
        last = c;
        if (isInside) {
            copy(text.substr(at, 1));
        } else {
            convert(text.substr(at, 1));
        }
    }
}

}  // namespace

std::string convertBlanks(const GapText& text, const GapTable& gaps, const Scheme& scheme, std::string_view laid,
                          const PieceSizes& pieces) {
    BlankConverter converter(scheme, laid);
    PieceSizes::Reader sizes(pieces);
    sizes.next();  // nothing stands in front of the first gap
    std::size_t at = 0;
    for (TokenIndex token = 1; token <= text.size(); ++token) {
        const std::string_view gap = laid.substr(at, sizes.next());
        const std::size_t begin = at + gap.size();
        const std::string_view body = laid.substr(begin, token < text.size() ? sizes.next() : laid.size() - begin);
        const std::string_view both = laid.substr(at, gap.size() + body.size());
        at += both.size();
        if (converter.isPlain(gap, body, text.token(token).holdsLines)) {
            converter.copy(both);
            continue;
        }
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
