// Two passes: over the tokens, which finds the chains of cells in one column of the source, and over the chains from
// left to right, which puts each of them where it stood, or further to the right if that is taken.
#include "second/Brevis_KeptColumns.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

namespace {

// What may stand in one column.
constexpr int comment = 1, operand = 2, number = 3, assignment = 4, binary = 5, anyElement = 6, others = 100;

// What makes a call a row of a table.
constexpr TokenIndex longestRow = 64;
constexpr std::size_t rowBlanks = 4;

int sortOf(Trn::TokenKind kind, Role role) {
    switch (role) {
        case Role::None:
        case Role::Prefix:
        case Role::Pointer:
        case Role::Reference:
        case Role::Destructor:
            return kind == Kind::Number ? number : operand;
        case Role::Assignment:
        case Role::Initializer:
            return assignment;
        case Role::Binary:
        case Role::Comparison:
            return binary;
        case Role::DeclaratorGroup:
            return kind == Kind::OpenParen ? operand : others + kind;
        default:
            return others + kind;
    }
}

// Whether cells that end in one column belong together.
bool endsColumn(int sort) { return sort == number || sort == assignment; }

}  // namespace

bool KeptColumns::isWanted(const GapText& text, const Scheme& scheme) {
    if (!scheme.keepAlignedColumns) return false;
    for (TokenIndex token = 2; token < text.size(); ++token) {
        if (text.lineFeeds(token) == 0 && gapsBefore(text, token) == Gaps::Wide) return true;
    }
    return false;
}

KeptColumns::KeptColumns(const GapText& text, const Scheme& scheme, GapTable& gaps)
    : text_(text), scheme_(scheme), gaps_(gaps) {}

// No column goes beyond a line without gaps that ends an item.
KeptColumns::Block KeptColumns::blockFrom(TokenIndex begin) {
    Block block{.begin = begin, .firstLine = lines_.size()};
    for (TokenIndex first = begin; first < text_.size();) {
        lines_.push_back({.first = first, .token = first});
        const Stretch line = stretchFrom(first);
        const bool endsBlock = line.gaps == Gaps::OfNone && !text_.isTrivia(first) && endsItem(line.end - 1);
        block.hasWide = block.hasWide || line.gaps == Gaps::Wide;
        block.end = first = line.end;
        if (endsBlock) break;
    }
    return block;
}

void KeptColumns::read(const Block& block) {
    begin_ = block.begin;
    if (!block.hasWide) return passLines(block);
    lines_.resize(block.firstLine);
    chains_.assign(1, {});
    linked_.clear();
    readLines(block);
    placeColumns();
}

void KeptColumns::placeColumns() {
    for (Cell& cell : linked_) {
        cell.left = chainOf(cell);
        if (isInTable(cell)) gaps_.gap(cell.token).sort = Gap::Sort::Keep;
    }
    std::erase_if(linked_, [](const Cell& cell) { return cell.left == 0; });
    std::stable_sort(linked_.begin(), linked_.end(), [&](const Cell& a, const Cell& b) {
        const int left = chains_[a.left].column, right = chains_[b.left].column;
        return left != right ? left < right : a.left < b.left;
    });
    for (auto begin = linked_.begin(); begin != linked_.end();) {
        const auto end = std::find_if(begin, linked_.end(), [&](const Cell& cell) { return cell.left != begin->left; });
        placeChain(&*begin, &*begin + (end - begin), chains_[begin->left]);
        begin = end;
    }
}

void KeptColumns::keepRows(const GapText& text, const Scheme& scheme, GapTable& gaps) {
    if (scheme.convertWs == 1) return;
    const auto isWide = [&](TokenIndex token) {
        const std::string_view gap = text.gap(token);
        return text.lineFeeds(token) == 0 && (gap.size() >= rowBlanks || gap.find('\t') != std::string_view::npos);
    };
    for (TokenIndex open = 1; open < text.size(); ++open) {
        if (text.role(open) != Role::Call || text.kind(open) != Kind::OpenParen) continue;
        const TokenIndex close = text.partner(open);
        if (close <= open || close - open > longestRow || (!isWide(open + 1) && !isWide(close))) continue;
        TokenIndex token = open + 1;
        while (token <= close && text.lineFeeds(token) == 0 && !text.isTrivia(token)) ++token;
        if (token <= close) continue;
        for (token = open + 1; token <= close; ++token) gaps.keep(token);
    }
}

// ---- Chains

// The line of the result that begins at `first`.
KeptColumns::Stretch KeptColumns::stretchFrom(TokenIndex first) const {
    Stretch line;
    TokenIndex token = first + 1;
    for (; token < text_.size() && !beginsLine(token); ++token) {
        if (text_.lineFeeds(token) == 0) line.gaps = std::max(line.gaps, gapsBefore(text_, token));
    }
    line.end = token;
    return line;
}

inline bool KeptColumns::beginsLine(TokenIndex token) const {
    const GapToken& before = text_.token(token - 1);
    if (before.holdsLines || Trn::isLineToken(before.kind)) return true;
    const Gap::Sort sort = gaps_[token].sort;
    if (text_.lineFeeds(token) == 0) return sort == Gap::Sort::Lines || sort == Gap::Sort::Break;
    return gaps_.startsLine(token) || text_.kind(token) == Kind::Directive;
}

// Whether no expression goes on behind the token.
bool KeptColumns::endsItem(TokenIndex token) const {
    const Trn::TokenKind kind = text_.kind(token);
    return kind == Kind::Semicolon || kind == Kind::OpenBrace || kind == Kind::CloseBrace || kind == Kind::Colon;
}

inline KeptColumns::Gaps KeptColumns::gapsBefore(const GapText& text, TokenIndex token) {
    const GapToken& at = text.token(token);
    const std::size_t size = at.begin - text.token(token - 1).end;
    if (size > 1) return Gaps::Wide;
    const bool isNumber = at.kind == Kind::Number;
    if (size == 0) return isNumber || text.isComment(token) ? Gaps::Narrow : Gaps::OfNone;
    if (text.source()[at.begin - 1] == '\t') return Gaps::Wide;
    return (isNumber || at.role == Role::Prefix) && text.isOpening(token - 1) ? Gaps::Wide : Gaps::Narrow;
}

// Lines without columns, on which later ones may be anchored.
void KeptColumns::passLines(const Block& block) {
    for (std::size_t line = block.firstLine; line < lines_.size(); ++line) {
        lines_[line].isBegun = isPlaced(lines_[line].first);
    }
}

void KeptColumns::readLines(const Block& block) {
    // Where the line of the source goes on, its columns have to be known.
    while (text_.lineFeeds(block.begin) == 0 && passed_ + 1 < block.begin) passSource(passed_ + 1);
    for (TokenIndex first = block.begin; first < block.end;) {
        TokenIndex last = first;
        while (last + 1 < block.end && place(last + 1).line == place(first).line) ++last;
        readLine(first, last);
        first = last + 1;
    }
    for (const Cell& cell : above_) keepLinked(cell);
    above_.clear();
}

void KeptColumns::passSource(TokenIndex token) {
    const auto pass = [&](std::string_view text) {
        const std::size_t feed = text.rfind('\n');
        if (feed != std::string_view::npos) sourceColumn_ = 0;
        sourceColumn_ = columnBehind(text.substr(feed + 1), sourceColumn_, scheme_.tabSize);
    };
    passed_ = token;
    pass(text_.gap(token));
    columns_.push_back(sourceColumn_);
    if (text_.token(token).holdsLines) return pass(text_.text(token));
    sourceColumn_ = text_.columnBehind(token, sourceColumn_, scheme_.tabSize);
}

// The tokens of a line of the result. What comes from another line of the source than its first one is left alone, for
// its columns mean nothing here; and so is what stands in front of a column that another key has made.
void KeptColumns::readLine(TokenIndex first, TokenIndex last) {
    columns_.clear();
    lastOfLine_ = last;
    for (TokenIndex token = first; token <= last; ++token) passSource(token);
    columns_.push_back(sourceColumn_);
    const LaidPlace& laid = place(first);
    lines_.push_back({.number = laid.line,
                      .first = first,
                      .token = first,
                      .column = laid.column,
                      .shift = laid.column - columns_[0],
                      .isBegun = isPlaced(first)});
    const auto index = static_cast<std::uint32_t>(lines_.size() - 1);
    for (TokenIndex token = first; token <= last; ++token) places_[token - begin_].line = index;
    Line& line = lines_.back();
    if (text_.isTrivia(first) && (first == last || text_.kind(first) == Kind::Directive)) return;

    here_.clear();
    if (gaps_.startsLine(first) && line.isBegun && !isTooLong(first, last)) {
        readFirst(first);
        for (TokenIndex token = first + 1; token <= last && text_.lineFeeds(token) == 0; ++token) {
            if (gaps_[token].sort == Gap::Sort::Column) here_.clear();
            readCell(token, first);
            if (text_.kind(token) == Kind::Number) ++line.numbers;
        }
        readEnd(first, last);
    }
    link(line);
}

// Whether wrapping breaks the line, with other neighbours for its parts then.
bool KeptColumns::isTooLong(TokenIndex first, TokenIndex last) const {
    if (!scheme_.lineWrap || scheme_.rightMargin <= 0) return false;
    while (last > first && text_.isTrivia(last)) --last;
    return place(last).column + static_cast<int>(text_.text(last).size()) > scheme_.rightMargin;
}

// The token below which a line begins, or 0.
TokenIndex KeptColumns::basisOf(TokenIndex first) const {
    const IndentScope& scope = gaps_.scopes()[gaps_[first].scope];
    if (!scope.isAnchored || scope.anchor() >= first) return 0;
    if (scope.mode == IndentScope::Mode::At) return scope.anchor();
    return scope.mode == IndentScope::Mode::Behind ? scope.anchor() + 1 : 0;
}

// A line that begins below a token of another line moves with that. Where it comes to stand is known if nothing up to
// that token shares a column with further lines.
bool KeptColumns::isPlaced(TokenIndex first) const {
    const IndentScope& scope = gaps_.scopes()[gaps_[first].scope];
    const bool isBelowToken = scope.mode == IndentScope::Mode::Behind || scope.mode == IndentScope::Mode::At;
    if (!scope.isAnchored || scope.anchor() >= first) return !isBelowToken;
    const Line& line = lineInFront(scope.anchor());
    return line.isBegun && (!isBelowToken || line.firstLinked > basisOf(first));
}

// The line of any token so far. Lines that follow each other mostly ask for the same.
const KeptColumns::Line& KeptColumns::lineInFront(TokenIndex token) const {
    if (token != lookedUp_) {
        const auto isBehind = [](TokenIndex at, const Line& line) { return at < line.first; };
        const auto behind = std::upper_bound(lines_.begin(), lines_.end(), token, isBehind);
        lookedUp_ = token;
        found_ = static_cast<std::size_t>(behind - lines_.begin()) - 1;
    }
    return lines_[found_];
}

void KeptColumns::readCell(TokenIndex token, TokenIndex first) {
    const Gap::Sort sort = gaps_[token].sort;
    if (sort == Gap::Sort::Fixed || sort == Gap::Sort::Column || readJoined(token, first)) return;
    const bool isComment = text_.isComment(token);
    if (isComment && scheme_.alignTrailingComments && gaps_.startsLine(token + 1)) return;
    // The sign of a cast stands below a name by chance alone.
    const TokenIndex close = isPointerSign(text_.role(token)) ? text_.partner(token + 1) : 0;
    if (close != 0 && close < token) return;
    const std::string_view gap = text_.gap(token);
    const bool hasSign = text_.role(token) == Role::Prefix && text_.kind(token + 1) == Kind::Number;
    const bool isNumber = hasSign || text_.kind(token) == Kind::Number;
    const bool isFirst = text_.isOpening(token - 1) || text_.kind(token - 1) == Kind::Comma;
    if (gap.empty() && !(isNumber && isFirst) && !(isComment && !text_.isOpening(token - 1))) return;
    // A body of several lines is no element of a column.
    if (text_.kind(token) == Kind::OpenBrace && gaps_.startsLine(text_.next(token))) return;

    Cell cell{.token = token, .anchor = nameAt(token), .start = columns_[token - first]};
    const bool isElement = isComment && !gaps_.startsLine(token + 1);
    cell.sort = isElement ? operand : isComment ? comment : sortOf(text_.kind(token), text_.role(token));
    // Of a list any element.
    if (cell.sort >= others && text_.role(token - 1) == Role::ElementComma) cell.sort = operand;
    cell.other = columns_[cell.anchor - first] +
                 (endsColumn(cell.sort) ? static_cast<int>(text_.text(token).size()) - 1 : 0);
    cell.hasTab = gap.find('\t') != std::string_view::npos;
    cell.isWide = gap.size() > 1 || cell.hasTab;
    cell.isPadded = gap.size() == 1 && isPadded(token);
    cell.gap = gapBegin(token, first);
    cell.isLone = isLone(cell);
    if (cell.isLone) {
        cell.left = static_cast<std::uint32_t>(chains_.size());
        chains_.push_back({.column = cell.start, .size = 1, .wide = 1, .hasTab = true});
    }
    here_.push_back(cell);
}

// A value or a declared name that a tab has led to a tab stop is a column even if no other line shares it: its neighbours
// are further away, or on other lines of what it belongs to.
bool KeptColumns::isLone(const Cell& cell) const {
    if (scheme_.convertWs == 1 || !cell.hasTab || cell.start % scheme_.tabSize != 0) return false;
    if (cell.sort == assignment) return true;
    const Role role = text_.role(cell.token);
    const Role roleBefore = text_.role(cell.token - 1);
    // A value with its next line below it.
    if (roleBefore == Role::Assignment || roleBefore == Role::Initializer) {
        const TokenIndex below = lastOfLine_ + 1;
        return below < text_.size() && text_.column(below, scheme_.tabSize) == cell.start;
    }
    if (!isPointerSign(role) && (role != Role::None || text_.kind(cell.token) != Kind::Identifier)) return false;
    const Trn::TokenKind before = text_.kind(cell.token - 1);
    const bool isBasic = (before >= Kind::Char && before <= Kind::Void) || before == Kind::Unsigned;
    return roleBefore == Role::None && (before == Kind::Identifier || isBasic);
}

// The name in the bracket of `(*name)`, or the token itself.
TokenIndex KeptColumns::nameAt(TokenIndex token) const {
    if (text_.role(token) != Role::DeclaratorGroup || text_.partner(token) < token) return token;
    TokenIndex name = token;
    for (TokenIndex at = token + 1; at <= lastOfLine_ && text_.lineFeeds(at) == 0; ++at) {
        if (text_.kind(at) == Kind::Identifier) {
            name = at;
        } else if (!isPointerSign(text_.role(at))) {
            break;
        }
    }
    return name;
}

// From the sign that ends a row to the next element.
int KeptColumns::reachOfEnd(TokenIndex sign) const { return text_.kind(sign) == Kind::Comma ? 2 : 1; }

// Behind the last element of a row and its comma the next one would stand, and longer rows of the list may have one there.
void KeptColumns::readEnd(TokenIndex first, TokenIndex last) {
    const auto closesList = [&](TokenIndex token) {
        return text_.kind(token) == Kind::CloseBrace && text_.role(token) == Role::BracedInitializer &&
               text_.partner(token) < first && isJoined(token);
    };
    TokenIndex end = first + 1;
    while (end < last && !closesList(end)) ++end;
    const bool isEnd = end <= last && (closesList(end) || text_.role(end) == Role::ElementComma);
    if (!isEnd || text_.lineFeeds(end) > 0) return;
    const int start = columns_[end - first] + reachOfEnd(end);
    const auto place = std::ranges::find_if(here_, [&](const Cell& cell) { return cell.start >= start; });
    here_.insert(place,
                 {.token = end, .anchor = end, .start = start, .other = start, .sort = anyElement, .isEnd = true});
}

// The column of the source at which the gap begins, of a token that does not begin the line.
int KeptColumns::gapBegin(TokenIndex token, TokenIndex first) const {
    const TokenIndex before = token - 1;
    if (!text_.token(before).holdsLines) return text_.columnBehind(before, columns_[before - first], scheme_.tabSize);
    return columns_[token - first] - static_cast<int>(text_.gap(token).size());
}

// Whether any blank in front of the token is there for a column: `{ 1, ...` above `{10, ...`.
bool KeptColumns::isPadded(TokenIndex token) const {
    const Gap& gap = gaps_[token];
    return text_.kind(token - 1) == Kind::OpenBrace && gap.sort == Gap::Sort::Blanks && gaps_.text(gap.rule).empty();
}

// The number that a row of a table begins with.
void KeptColumns::readFirst(TokenIndex first) {
    TokenIndex token = first;
    if (text_.role(first) == Role::Prefix && isJoined(first + 1)) ++token;
    if (text_.kind(token) != Kind::Number) return;
    const int size = columns_[token - first] - columns_[0] + static_cast<int>(text_.text(token).size());
    here_.push_back({.token = first,
                     .anchor = token,
                     .start = columns_[0],
                     .other = columns_[0] + size - 1,
                     .sort = number,
                     .isFixed = true});
}

// A sign and what follows it are one cell, which begins behind the gap that parts them from what stands in front: the
// signs of declarators may be written to the type or to the name. So is a number with its sign.
bool KeptColumns::readJoined(TokenIndex token, TokenIndex first) {
    const TokenIndex sign = token - 1;
    const bool isNumber = text_.role(sign) == Role::Prefix && text_.kind(token) == Kind::Number;
    if (!isNumber && !isPointerSign(text_.role(sign))) return false;
    // `T &   >` has no name for a column.
    if (text_.kind(token) == Kind::Greater || text_.kind(token) == Kind::ShiftRight) return true;
    if (!here_.empty() && here_.back().anchor == token) return true;
    const bool hasCell = !here_.empty() && here_.back().anchor == sign;
    if (!hasCell) {
        const std::string_view gap = text_.gap(token);
        if (isNumber || gap.empty() || !isJoined(token)) return isJoined(token);
        here_.push_back({.start = columns_[token - first],
                         .sort = operand,
                         .isWide = gap.size() > 1 || gap[0] == '\t',
                         .hasTab = gap.find('\t') != std::string_view::npos});
    }
    Cell& cell = here_.back();
    cell.anchor = nameAt(token);
    cell.other = columns_[cell.anchor - first];
    if (isNumber) {
        cell.sort = number;
        cell.other += static_cast<int>(text_.text(token).size()) - 1;
    }
    if (!isJoined(token)) {
        cell.token = token;
    } else if (!hasCell) {
        cell.token = sign;
        while (cell.token > first && isJoined(cell.token) && isPointerSign(text_.role(cell.token - 1))) --cell.token;
        const Gap::Sort sort = gaps_[cell.token].sort;
        if (cell.token == first || sort == Gap::Sort::Column || sort == Gap::Sort::Fixed) {
            here_.pop_back();
            return true;
        }
    }
    cell.gap = gapBegin(cell.token, first);
    return true;
}

// What the line begins below doesn't share a column with it: it would take the line along.
void KeptColumns::link(Line& line) {
    const TokenIndex basis = basisOf(line.first);
    const bool isBegun = line.first == 1 || text_.lineFeeds(line.first) > 0;
    std::erase_if(above_, [&](const Cell& cell) {
        if (cell.token > basis && (isBegun || !cell.isPassed)) return false;
        keepLinked(cell);
        return true;
    });
    linkBy(&Cell::start, &Cell::left, false);
    linkBy(&Cell::other, &Cell::right, true);
    const auto linked = std::ranges::find_if(here_, [&](const Cell& cell) { return chainOf(cell) != 0; });
    if (linked != here_.end()) line.firstLinked = linked->token;
    for (const Cell& cell : above_) {
        if (chainOf(cell) == 0) continue;
        TokenIndex& firstAbove = lineOf(cell.token).firstLinked;
        firstAbove = std::min(firstAbove, cell.token);
        break;
    }
    if (isBegun) passCells(line.first);
    for (const Cell& cell : above_) keepLinked(cell);
    above_.swap(here_);
}

// Columns are seen through one line that is blank where they stand: it is shorter, or lacks an element or a comment.
void KeptColumns::passCells(TokenIndex first) {
    const auto isEdge = [&](const Cell& cell) {
        const bool isSort = cell.sort == comment || cell.sort == number || cell.sort >= others;
        return isSort && !cell.isPassed && (cell.isWide || chainOf(cell) != 0);
    };
    if (std::ranges::none_of(above_, isEdge)) return;
    through_.clear();
    TokenIndex token = first;
    const TokenIndex end = first + static_cast<TokenIndex>(columns_.size()) - 1;
    std::erase_if(above_, [&](Cell& cell) {
        if (!isEdge(cell)) return false;
        // Nothing may stand in the line where the cell stands, and nothing to the right of a comment.
        const int last = cell.sort == comment ? std::numeric_limits<int>::max() : std::max(cell.start, cell.other);
        while (token < end &&
               text_.columnBehind(token, columns_[token - first], scheme_.tabSize) <= cell.start) ++token;
        if ((token < end && columns_[token - first] <= last) || !staysClear(token, first, cell)) return false;
        through_.push_back(cell);
        through_.back().isPassed = true;
        return true;
    });
    if (through_.empty()) return;
    const auto middle = static_cast<std::ptrdiff_t>(here_.size());
    here_.insert(here_.end(), through_.begin(), through_.end());
    std::inplace_merge(here_.begin(), here_.begin() + middle, here_.end(),
                       [](const Cell& a, const Cell& b) { return a.start < b.start; });
}

// Whether the line is blank there in the result too, as far as that is known. Behind the cell it goes on with `token`.
bool KeptColumns::staysClear(TokenIndex token, TokenIndex first, const Cell& cell) const {
    const Line& line = lineOf(cell.token);
    if (text_.lineFeeds(line.first) == 0 && line.first > 1) return false;
    if (token == first) return place(first).column > std::max(cell.start, cell.other) + std::max(0, line.shift);
    const int end = text_.columnBehind(token - 1, place(token - 1).column, scheme_.tabSize);
    return end <= cell.start + std::min(0, line.shift);
}

// Both lines have their cells in the order of their columns.
void KeptColumns::linkBy(int Cell::*column, std::uint32_t Cell::*chain, bool isRight) {
    auto above = above_.begin();
    for (Cell& cell : here_) {
        while (above != above_.end() && (*above).*column < cell.*column) ++above;
        if (above == above_.end()) return;
        const auto sortHere = [&](const Cell& c) { return c.sort == number && !isRight ? operand : c.sort; };
        if ((*above).*column != cell.*column) continue;
        if (above->isEnd || cell.isEnd) {
            const Cell& other = above->isEnd ? cell : *above;
            if (isRight || other.isEnd || text_.role(other.token - 1) != Role::ElementComma) continue;
        } else if (sortHere(*above) != sortHere(cell)) {
            continue;
        }
        // In one column with what follows an open bracket at once: only the ends of numbers.
        const auto isTight = [&](const Cell& c) { return text_.gap(c.token).empty() && !c.isEnd; };
        if (!isRight && (isTight(cell) || isTight(*above)) && cell.sort != comment) continue;
        std::uint32_t& number = (*above).*chain;
        if (number == 0) {
            number = static_cast<std::uint32_t>(chains_.size());
            chains_.push_back({.column = cell.*column,
                               .size = 1,
                               .wide = above->isWide ? 1 : 0,
                               .isPadded = above->isPadded,
                               .hasTab = above->hasTab,
                               .isRight = isRight});
        }
        cell.*chain = number;
        Chain& found = chains_[number];
        ++found.size;
        found.wide += cell.isWide ? 1 : 0;
        found.isPadded = found.isPadded || cell.isPadded;
        found.hasTab = found.hasTab || cell.hasTab;
    }
}

void KeptColumns::keepLinked(const Cell& cell) {
    const bool mayStay = cell.sort == number && cell.isWide && !cell.hasTab && !cell.isFixed;
    if (cell.left != 0 || cell.right != 0 || mayStay) linked_.push_back(cell);
}

// A number in one of several rows of numbers, which stays where no column takes it along. Rows that the author has set by hand
// don't come out ragged where a column of theirs is not exact.
bool KeptColumns::isInTable(const Cell& cell) const {
    if (cell.sort != number || !cell.isWide || cell.hasTab || cell.isFixed || cell.isEnd) return false;
    if (gaps_[cell.token].sort != Gap::Sort::Blanks || text_.role(cell.token - 1) != Role::ElementComma) return false;
    constexpr int least = 4;
    const auto isRow = [&](std::size_t line, std::uint32_t number) {
        return line < lines_.size() && lines_[line].number == number && lines_[line].numbers >= least;
    };
    const std::size_t line = place(cell.token).line;
    const std::uint32_t number = lines_[line].number;
    if (!isRow(line, number)) return false;
    return isRow(line + 1, number + 1) || (line > 0 && isRow(line - 1, number - 1));
}

// ---- Columns

// The longer one of the two chains, if one of its tokens stands behind more than one blank: where there are several such
// it isn't one that further lines have joined by chance. Of two as long as each other names with signs go on with names: a
// sign that stands in their column by chance doesn't take them over.
std::uint32_t KeptColumns::chainOf(const Cell& cell) const {
    const auto isColumn = [&](std::uint32_t chain) { return chains_[chain].wide > 0 || chains_[chain].isPadded; };
    const std::uint32_t left = isColumn(cell.left) ? cell.left : 0;
    const std::uint32_t right = isColumn(cell.right) ? cell.right : 0;
    if (left == 0 || right == 0) return left + right;
    const int lead = cell.sort == number ? 1 : 0;
    const bool isSingle = chains_[left].wide == 1 && chains_[right].wide > 1;
    return isSingle || chains_[right].size >= chains_[left].size + lead ? right : left;
}

void KeptColumns::placeChain(const Cell* first, const Cell* last, const Chain& chain) {
    if (last - first < 2 && !first->isLone) return;
    const int tab = scheme_.tabSize;
    const bool hasTabs = chain.hasTab && chain.column % tab == 0;
    const Line& line = lineOf(first->token);
    int column = std::max(0,
                          chain.column + (hasTabs ? line.shift : std::min(line.shift, moved(first, last, line.shift))));
    if (hasTabs) column = (column + tab / 2) / tab * tab;
    // How far the token stands in front of the column that it shares.
    const auto reach = [&](const Cell& cell) { return chain.isRight ? lastColumn(cell) : 0; };
    int fixed = -1;
    for (const Cell* cell = first; cell != last; ++cell) {
        if (!cell->isFixed) continue;
        const int stood = place(cell->token).column + reach(*cell);
        if (fixed >= 0 && stood != fixed) return;
        column = fixed = stood;
    }
    const bool arePadded = chain.isRight && std::all_of(first, last, [&](const Cell& cell) {
        return cell.sort == number && !cell.isFixed && isPadded(cell.token);
    });
    if (chain.wide == 0 && !arePadded) return;
    if (arePadded || (!hasTabs && areTight(first, last))) column = 0;
    for (const Cell* cell = first; cell != last; ++cell) {
        if (cell->isFixed) continue;
        if (cell->isEnd) {
            column = std::max(column, columnBehindEnd(cell->token));
            continue;
        }
        const Gap& gap = gaps_[cell->token];
        int width = gap.sort == Gap::Sort::Blanks ? static_cast<int>(gaps_.text(gap.rule).size()) : 1;
        if (!(cell->sort == number && chain.isRight)) width = std::max(width, 1);
        const bool isTight = gap.sort == Gap::Sort::Keep && text_.gap(cell->token).empty();
        if (isTight && (cell->sort != comment || scheme_.wsBeforeTrailingComment.text.empty())) width = 0;
        column = std::max(column, gapColumn(cell->token) + width + reach(*cell));
    }
    if (hasTabs) column = (column + tab - 1) / tab * tab;
    if (column > std::numeric_limits<std::uint16_t>::max() || (fixed >= 0 && column != fixed)) return;

    // Blanks in brackets make a column of what stands close together, and not more of it.
    if (chain.wide == 0 && std::any_of(first, last, [&](const Cell& cell) {
            return column - reach(cell) - gapColumn(cell.token) > cell.start - cell.gap;
        })) {
        return;
    }
    // If nothing stands behind more than one blank, it isn't seen as a column again.
    bool isWide = hasTabs && scheme_.convertWs != 1;
    for (const Cell* cell = first; cell != last && !isWide; ++cell) {
        isWide = !cell->isFixed && !cell->isEnd && column - reach(*cell) - gapColumn(cell->token) > (arePadded ? 0 : 1);
    }
    if (!isWide) return;
    // Where the author's own white space leads to the column, nothing else is written.
    const auto leads = [&](const Cell& cell) {
        if (cell.isFixed || cell.isEnd) return true;
        const int from = gapColumn(cell.token);
        return columnBehind(text_.gap(cell.token), from, tab) == column - reach(cell);
    };
    for (const Cell* cell = first; cell != last; ++cell) {
        const bool isOwn = scheme_.convertWs != 1 && leads(*cell);
        if (!cell->isFixed && !cell->isEnd) moveTo(cell->token, column - reach(*cell), isOwn);
    }
}

void KeptColumns::moveTo(TokenIndex token, int column, bool isOwn) {
    const int from = gapColumn(token);
    Line& own = lineOf(token);
    if (from != column && (isOwn || from + widthBehind(token, from) != column)) {
        Gap& gap = gaps_.gap(token);
        gap = {.sort = isOwn ? Gap::Sort::OwnColumn : Gap::Sort::Column,
               .rule = ruleOf<&Scheme::keepAlignedColumns>(),
               .column = static_cast<std::uint16_t>(column),
               .scope = gap.scope};
    }
    own.token = token;
    own.column = column;
}

// How far what stands in front of the cells has moved, if that is alike for all. Comments stay where they are.
int KeptColumns::moved(const Cell* first, const Cell* last, int otherwise) {
    if (first->sort == comment || std::any_of(first, last, [](const Cell& cell) { return cell.isFixed; })) {
        return otherwise;
    }
    const int moved = gapColumn(first->token) - first->gap;
    const auto isAlike = [&](const Cell& cell) { return gapColumn(cell.token) - cell.gap == moved; };
    return std::all_of(first + 1, last, isAlike) ? moved : otherwise;
}

// Whether they are comments that stand as near to the code as they may: behind the longest line at their distance.
bool KeptColumns::areTight(const Cell* first, const Cell* last) const {
    int least = std::numeric_limits<int>::max();
    for (const Cell* cell = first; cell != last; ++cell) {
        if (text_.kind(cell->token) != Kind::LineComment) return false;
        least = std::min(least, cell->start - cell->gap);
    }
    const auto& distance = scheme_.wsBeforeTrailingComment;
    return distance.isSet && least == static_cast<int>(distance.text.size());
}

// From the cell's first column to the one that it shares with others.
int KeptColumns::lastColumn(const Cell& cell) const {
    const int name = place(cell.anchor).column - place(cell.token).column;
    return name + (endsColumn(cell.sort) ? static_cast<int>(text_.text(cell.anchor).size()) - 1 : 0);
}

// The column at which the gap in front of a token begins, now that what stands in front of it is placed.
int KeptColumns::gapColumn(TokenIndex token) {
    Line& line = lineOf(token);
    while (line.token + 1 < token) {
        const TokenIndex next = line.token + 1;
        const int end = line.column + place(next).gap - place(line.token).column;
        line.column = end + widthBehind(next, end);
        line.token = next;
    }
    return line.column + place(token).gap - place(line.token).column;
}

// Where the next element would stand, now that what stands in front of it is placed.
int KeptColumns::columnBehindEnd(TokenIndex sign) {
    const int begin = gapColumn(sign);
    return begin + widthBehind(sign, begin) + reachOfEnd(sign);
}

// How wide the gap in front of a token is if it begins in the column.
int KeptColumns::widthBehind(TokenIndex token, int column) const {
    const Gap& gap = gaps_[token];
    if (gap.sort == Gap::Sort::Column || gap.sort == Gap::Sort::OwnColumn) return std::max<int>(gap.column - column, 1);
    if (gap.sort != Gap::Sort::Keep && gap.sort != Gap::Sort::Fixed) return place(token).column - place(token).gap;
    int end = column;
    for (const char c : text_.gap(token)) {
        end = c == '\t' ? (end / scheme_.tabSize + 1) * scheme_.tabSize : end + 1;
    }
    return end - column;
}

}  // namespace Brevis
