// Two passes: over the tokens, which finds the chains of cells in one column of the source, and over the chains from
// left to right, which puts each of them where it stood, or further to the right if that is taken.
#include "second/Brevis_KeptColumns.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;
using Sort = Gap::Sort;

namespace {

// What may stand in one column.
constexpr int comment = 1, operand = 2, number = 3, assignment = 4, others = 100;

// So far may two lines be from each other if both tokens stand behind more than one blank.
constexpr std::uint32_t farthest = 4;

// What makes a call a row of a table.
constexpr TokenIndex longestRow = 64;
constexpr std::size_t rowBlanks = 4;

bool isSign(Role role) { return role == Role::Pointer || role == Role::Reference; }

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

KeptColumns::KeptColumns(const GapText& text, const Scheme& scheme, GapTable& gaps, std::vector<LaidPlace> places)
    : text_(text), scheme_(scheme), gaps_(gaps), places_(std::move(places)) {
    chains_.emplace_back();
}

void KeptColumns::run() {
    lines_.resize(places_[text_.size()].line + 1);
    bool hasWide = false;
    TokenIndex begin = 1;
    for (TokenIndex first = 1; first < text_.size();) {
        const Stretch line = stretchFrom(first);
        const bool endsBlock = line.gaps == Gaps::OfNone && !text_.isTrivia(first);
        hasWide = hasWide || line.gaps == Gaps::Wide;
        first = line.end;
        if (!endsBlock && first < text_.size()) continue;
        readBlock(begin, first, hasWide);
        begin = first;
        hasWide = false;
    }
    leave(above_);
    for (Cell& cell : linked_) cell.left = chainOf(cell);
    std::erase_if(linked_, [](const Cell& cell) { return cell.left == 0; });
    std::stable_sort(linked_.begin(), linked_.end(), [&](const Cell& a, const Cell& b) {
        const int left = chains_[a.left].column, right = chains_[b.left].column;
        return left != right ? left < right : a.left < b.left;
    });
    for (auto begin = linked_.begin(); begin != linked_.end();) {
        const auto end = std::find_if(begin, linked_.end(), [&](const Cell& cell) { return cell.left != begin->left; });
        place(&*begin, &*begin + (end - begin), chains_[begin->left]);
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
    const std::uint32_t number = places_[first].line;
    TokenIndex token = first + 1;
    for (; token < text_.size() && places_[token].line == number; ++token) {
        if (text_.lineFeeds(token) > 0) continue;
        line.gaps = std::max(line.gaps, gapsBefore(text_, token));
    }
    line.end = token;
    return line;
}

KeptColumns::Gaps KeptColumns::gapsBefore(const GapText& text, TokenIndex token) {
    const std::string_view gap = text.gap(token);
    if (gap.size() > 1 || gap == "\t") return Gaps::Wide;
    return gap.empty() && text.kind(token) != Kind::Number ? Gaps::OfNone : Gaps::Narrow;
}

// No column goes beyond a block. In one without wide gaps there is none.
void KeptColumns::readBlock(TokenIndex begin, TokenIndex end, bool hasWide) {
    // Where the line of the source goes on, its columns have to be known.
    while (hasWide && text_.lineFeeds(begin) == 0 && passed_ + 1 < begin) passSource(passed_ + 1);
    for (TokenIndex first = begin; first < end;) {
        TokenIndex last = first;
        while (last + 1 < end && places_[last + 1].line == places_[first].line) ++last;
        if (hasWide) {
            readLine(first, last);
        } else {
            lines_[places_[first].line] = {.first = first, .token = first, .isBegun = begins(first)};
        }
        first = last + 1;
    }
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
    Line& line = lines_[places_[first].line];
    line = {.first = first,
            .token = first,
            .column = places_[first].column,
            .shift = places_[first].column - columns_[0],
            .isBegun = begins(first)};
    if (text_.isTrivia(first) && (first == last || text_.kind(first) == Kind::Directive)) return;

    here_.clear();
    if (gaps_.startsLine(first) && line.isBegun && !isTooLong(first, last)) {
        for (TokenIndex token = first + 1; token <= last && text_.lineFeeds(token) == 0; ++token) {
            if (gaps_[token].sort == Sort::Column) here_.clear();
            readCell(token, first);
        }
    }
    link(line);
}

// Whether wrapping breaks the line, with other neighbours for its parts then.
bool KeptColumns::isTooLong(TokenIndex first, TokenIndex last) const {
    if (!scheme_.lineWrap || scheme_.rightMargin <= 0) return false;
    while (last > first && text_.isTrivia(last)) --last;
    return places_[last].column + static_cast<int>(text_.text(last).size()) > scheme_.rightMargin;
}

// The token below which a line begins, or 0.
TokenIndex KeptColumns::basisOf(TokenIndex first) const {
    const IndentScope& scope = gaps_.scopes()[gaps_[first].scope];
    if (!scope.isAnchored || scope.anchor >= first) return 0;
    if (scope.mode == IndentScope::Mode::At) return scope.anchor;
    return scope.mode == IndentScope::Mode::Behind ? scope.anchor + 1 : 0;
}

// A line that begins below a token of another line moves with that. Where it comes to stand is known if nothing up to
// that token shares a column with further lines.
bool KeptColumns::isPlaced(TokenIndex first) const {
    const IndentScope& scope = gaps_.scopes()[gaps_[first].scope];
    const bool isBelowToken = scope.mode == IndentScope::Mode::Behind || scope.mode == IndentScope::Mode::At;
    if (!scope.isAnchored || scope.anchor >= first) return !isBelowToken;
    const Line& line = lines_[places_[scope.anchor].line];
    return line.isBegun && (!isBelowToken || line.firstLinked > basisOf(first));
}

// A line below a token that may still come to share a column with a line further down can't have columns itself.
bool KeptColumns::begins(TokenIndex first) {
    if (!isPlaced(first)) return false;
    const TokenIndex basis = basisOf(first);
    if (basis == 0) return true;
    const auto isInFront = [&](const Cell& cell) {
        return cell.token <= basis && mayBeFar(cell) && places_[cell.token].line == places_[basis].line;
    };
    joinFar();
    if (std::ranges::none_of(above_, isInFront) && std::ranges::none_of(far_, isInFront)) return true;
    if (stretchFrom(first).gaps == Gaps::OfNone) return false;
    std::erase_if(far_, isInFront);
    for (Cell& cell : above_) cell.isKeptNear = cell.isKeptNear || isInFront(cell);
    return true;
}

void KeptColumns::readCell(TokenIndex token, TokenIndex first) {
    const Sort sort = gaps_[token].sort;
    if (sort == Sort::Fixed || sort == Sort::Column || readJoined(token, first)) return;
    const bool isComment = text_.isComment(token);
    if (isComment && scheme_.alignTrailingComments && gaps_.startsLine(token + 1)) return;
    const std::string_view gap = text_.gap(token);
    const bool isNumber = text_.kind(token) == Kind::Number;
    const bool isFirst = text_.isOpening(token - 1) || text_.kind(token - 1) == Kind::Comma;
    if (gap.empty() && !(isNumber && isFirst)) return;

    Cell cell{.token = token, .anchor = token, .start = columns_[token - first]};
    cell.sort = isComment ? comment : sortOf(text_.kind(token), text_.role(token));
    cell.other = cell.start + (endsColumn(cell.sort) ? static_cast<int>(text_.text(token).size()) - 1 : 0);
    cell.hasTab = gap.find('\t') != std::string_view::npos;
    cell.isWide = gap.size() > 1 || cell.hasTab;
    cell.isLone = isLone(cell);
    if (cell.isLone) {
        cell.left = static_cast<std::uint32_t>(chains_.size());
        chains_.push_back({.column = cell.start, .size = 1, .isWide = true, .hasTab = true});
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
    if (!isSign(role) && (role != Role::None || text_.kind(cell.token) != Kind::Identifier)) return false;
    const Trn::TokenKind before = text_.kind(cell.token - 1);
    const bool isBasic = (before >= Kind::Char && before <= Kind::Void) || before == Kind::Unsigned;
    return roleBefore == Role::None && (before == Kind::Identifier || isBasic);
}

// A sign and what follows it are one cell, which begins behind the gap that parts them from what stands in front: the
// signs of declarators may be written to the type or to the name. So is a number with its sign.
bool KeptColumns::readJoined(TokenIndex token, TokenIndex first) {
    const TokenIndex sign = token - 1;
    const bool isNumber = text_.role(sign) == Role::Prefix && text_.kind(token) == Kind::Number;
    if (!isNumber && !isSign(text_.role(sign))) return false;
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
    cell.anchor = token;
    cell.other = columns_[token - first];
    if (isNumber) {
        cell.sort = number;
        cell.other += static_cast<int>(text_.text(token).size()) - 1;
    }
    if (!isJoined(token)) {
        cell.token = token;
    } else if (!hasCell) {
        cell.token = sign;
        while (cell.token > first && isJoined(cell.token) && isSign(text_.role(cell.token - 1))) --cell.token;
        const Sort sort = gaps_[cell.token].sort;
        if (cell.token == first || sort == Sort::Column || sort == Sort::Fixed) here_.pop_back();
    }
    return true;
}

// What the line begins below doesn't share a column with it: it would take the line along.
void KeptColumns::link(Line& line) {
    const TokenIndex basis = basisOf(line.first);
    const auto behind = std::ranges::find_if(above_, [&](const Cell& cell) { return cell.token > basis; });
    leave({above_.begin(), behind});
    above_.erase(above_.begin(), behind);
    linkBy(&Cell::start, &Cell::left, false);
    linkBy(&Cell::other, &Cell::right, true);
    const auto linked = std::ranges::find_if(here_, [&](const Cell& cell) { return chainOf(cell) != 0; });
    if (linked != here_.end()) line.firstLinked = linked->token;
    for (const Cell& cell : above_) {
        if (chainOf(cell) == 0) continue;
        TokenIndex& firstAbove = lines_[places_[cell.token].line].firstLinked;
        firstAbove = std::min(firstAbove, cell.token);
        break;
    }
    leave(above_);
    above_.swap(here_);
}

// Both lines have their cells in the order of their columns.
void KeptColumns::linkBy(int Cell::*column, std::uint32_t Cell::*chain, bool isRight) {
    auto above = above_.begin();
    for (Cell& cell : here_) {
        while (above != above_.end() && (*above).*column < cell.*column) ++above;
        if (above == above_.end()) return;
        const auto sortHere = [&](const Cell& c) { return c.sort == number && !isRight ? operand : c.sort; };
        if ((*above).*column != cell.*column || sortHere(*above) != sortHere(cell)) continue;
        // In one column with what follows an open bracket at once: only the ends of numbers.
        if (!isRight && (text_.gap(cell.token).empty() || text_.gap(above->token).empty())) continue;
        std::uint32_t& number = (*above).*chain;
        if (number == 0) {
            number = static_cast<std::uint32_t>(chains_.size());
            chains_.push_back({.column = cell.*column,
                               .size = 1,
                               .isWide = above->isWide,
                               .hasTab = above->hasTab,
                               .isRight = isRight});
        }
        cell.*chain = number;
        Chain& found = chains_[number];
        ++found.size;
        found.isWide = found.isWide || cell.isWide;
        found.hasTab = found.hasTab || cell.hasTab;
    }
}

// Cells of one line, whose neighbours are known now.
void KeptColumns::leave(const std::vector<Cell>& cells) {
    joinFar();
    for (const Cell& cell : cells) {
        if (cell.left != 0 || cell.right != 0) linked_.push_back(cell);
        if (!mayBeFar(cell)) continue;
        linkFar(cell);
        left_.push_back(cell);
    }
}

bool KeptColumns::mayBeFar(const Cell& cell) const {
    const bool isFirst = text_.startsLine(lines_[places_[cell.token].line].first);
    return isFirst && cell.isWide && cell.sort != comment && !cell.isKeptNear;
}

// With a line further up in the same scope, past some without the column.
void KeptColumns::linkFar(const Cell& cell) {
    const auto firstOf = [&](const Cell& of) { return lines_[places_[of.token].line].first; };
    const TokenIndex first = firstOf(cell);
    const auto isLike = [&](const Cell& other) {
        return other.sort == cell.sort && gaps_[firstOf(other)].scope == gaps_[first].scope;
    };
    std::erase_if(far_, [&](const Cell& other) { return places_[first].line - places_[other.token].line > farthest; });
    const auto isLess = [](int column, const Cell& other) { return column < other.start; };
    auto found = std::upper_bound(far_.begin(), far_.end(), cell.start, isLess);
    while (found != far_.begin() && (found - 1)->start == cell.start && !isLike(*(found - 1))) --found;
    if (found == far_.begin() || (--found)->start != cell.start) return;
    if (cell.left != 0 && cell.left == found->left) return;
    const auto number = static_cast<std::uint32_t>(chains_.size());
    // Its turn comes behind that of the columns in which they end.
    const int column = std::max(cell.other, found->other);
    chains_.push_back({.column = column, .size = 2, .isWide = true, .isFar = true});
    for (Cell one : {*found, cell}) {
        one.left = number;
        one.right = 0;
        linked_.push_back(one);
        TokenIndex& firstLinked = lines_[places_[one.token].line].firstLinked;
        firstLinked = std::min(firstLinked, one.token);
    }
}

// Those of the last line too, now that it isn't the last one any more.
void KeptColumns::joinFar() {
    const auto middle = static_cast<std::ptrdiff_t>(far_.size());
    far_.insert(far_.end(), left_.begin(), left_.end());
    left_.clear();
    const auto isLess = [](const Cell& a, const Cell& b) { return a.start < b.start; };
    std::inplace_merge(far_.begin(), far_.begin() + middle, far_.end(), isLess);
}

// ---- Columns

// The longer one of the two chains, if one of its tokens stands behind more than one blank. Of two as long as each other
// names with signs go on with names: a sign that stands in their column by chance doesn't take them over.
std::uint32_t KeptColumns::chainOf(const Cell& cell) const {
    const std::uint32_t left = chains_[cell.left].isWide ? cell.left : 0;
    const std::uint32_t right = chains_[cell.right].isWide ? cell.right : 0;
    const int lead = cell.sort == number ? 1 : 0;
    return right != 0 && (left == 0 || chains_[right].size >= chains_[left].size + lead) ? right : left;
}

void KeptColumns::place(const Cell* first, const Cell* last, const Chain& chain) {
    if (chain.isFar) return placeFar(*first, *(first + 1));
    if (last - first < 2 && !first->isLone) return;
    const int tab = scheme_.tabSize;
    const bool hasTabs = chain.hasTab && chain.column % tab == 0;
    const Line& line = lines_[places_[first->token].line];
    int column = std::max(0, chain.column + line.shift);
    if (hasTabs) column = (column + tab / 2) / tab * tab;
    // How far the token stands in front of the column that it shares.
    const auto reach = [&](const Cell& cell) { return chain.isRight ? lastColumn(cell) : 0; };
    for (const Cell* cell = first; cell != last; ++cell) {
        const Gap& gap = gaps_[cell->token];
        int width = gap.sort == Sort::Blanks ? static_cast<int>(gaps_.text(gap.rule).size()) : 1;
        if (!(cell->sort == number && chain.isRight)) width = std::max(width, 1);
        if (gap.sort == Sort::Keep && text_.gap(cell->token).empty()) width = 0;
        column = std::max(column, gapColumn(cell->token) + width + reach(*cell));
    }
    if (hasTabs) column = (column + tab - 1) / tab * tab;
    if (column > std::numeric_limits<std::uint16_t>::max()) return;

    // If nothing stands behind more than one blank, it isn't seen as a column again.
    bool isWide = hasTabs && scheme_.convertWs != 1;
    for (const Cell* cell = first; cell != last && !isWide; ++cell) {
        isWide = column - reach(*cell) - gapColumn(cell->token) > 1;
    }
    if (!isWide) return;
    // Where the author's own white space leads to the column, nothing else is written.
    const auto leads = [&](const Cell& cell, int from, int target) {
        return scheme_.convertWs != 1 && columnBehind(text_.gap(cell.token), from, tab) == target;
    };
    for (const Cell* cell = first; cell != last; ++cell) {
        const int target = column - reach(*cell);
        const int from = gapColumn(cell->token);
        Line& own = lines_[places_[cell->token].line];
        const bool isOwn = leads(*cell, from, target);
        if (from != target && (isOwn || from + widthBehind(cell->token, from) != target)) {
            Gap& gap = gaps_.gap(cell->token);
            gap = {.sort = isOwn ? Sort::OwnColumn : Sort::Column,
                   .rule = ruleOf<&Scheme::keepAlignedColumns>(),
                   .column = static_cast<std::uint16_t>(target),
                   .scope = gap.scope};
        }
        own.token = cell->token;
        own.column = target;
        own.from = from;
    }
}

// They stay in one column if their own white space leads there.
void KeptColumns::placeFar(const Cell& one, const Cell& other) {
    const int column = ownColumn(one);
    if (column < 0 || column != ownColumn(other) || column > std::numeric_limits<std::uint16_t>::max()) return;
    for (const Cell& cell : {one, other}) {
        Line& line = lines_[places_[cell.token].line];
        if (line.token == cell.token) continue;
        line.from = gapColumn(cell.token);
        Gap& gap = gaps_.gap(cell.token);
        gap = {.sort = scheme_.convertWs == 1 ? Sort::Column : Sort::OwnColumn,
               .rule = ruleOf<&Scheme::keepAlignedColumns>(),
               .column = static_cast<std::uint16_t>(column),
               .scope = gap.scope};
        line.token = cell.token;
        line.column = column;
    }
}

// Where a cell is placed already or would be by its own white space, or -1 if it isn't seen behind more than one blank
// there.
int KeptColumns::ownColumn(const Cell& cell) {
    const Line& line = lines_[places_[cell.token].line];
    const bool isPlaced = line.token == cell.token;
    if (line.token > cell.token) return -1;
    const int from = isPlaced ? line.from : gapColumn(cell.token);
    const int column = isPlaced ? line.column : columnBehind(text_.gap(cell.token), from, scheme_.tabSize);
    const bool hasTab = scheme_.convertWs != 1 && text_.gap(cell.token) == "\t";
    return column - from > 1 || hasTab ? column : -1;
}

// From the cell's first column to the one that it shares with others.
int KeptColumns::lastColumn(const Cell& cell) const {
    const int name = places_[cell.anchor].column - places_[cell.token].column;
    return name + (endsColumn(cell.sort) ? static_cast<int>(text_.text(cell.anchor).size()) - 1 : 0);
}

// The column at which the gap in front of a token begins, now that what stands in front of it is placed.
int KeptColumns::gapColumn(TokenIndex token) {
    Line& line = lines_[places_[token].line];
    while (line.token + 1 < token) {
        const TokenIndex next = line.token + 1;
        const int end = line.column + places_[next].gap - places_[line.token].column;
        line.column = end + widthBehind(next, end);
        line.token = next;
    }
    return line.column + places_[token].gap - places_[line.token].column;
}

// How wide the gap in front of a token is if it begins in the column.
int KeptColumns::widthBehind(TokenIndex token, int column) const {
    const Gap& gap = gaps_[token];
    if (gap.sort == Sort::Column || gap.sort == Sort::OwnColumn) return std::max<int>(gap.column - column, 1);
    if (gap.sort != Sort::Keep && gap.sort != Sort::Fixed) return places_[token].column - places_[token].gap;
    int end = column;
    for (const char c : text_.gap(token)) {
        end = c == '\t' ? (end / scheme_.tabSize + 1) * scheme_.tabSize : end + 1;
    }
    return end - column;
}

}  // namespace Brevis
