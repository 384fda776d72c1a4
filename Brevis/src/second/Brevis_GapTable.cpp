// How a value comes into a gap.
#include "second/Brevis_GapTable.h"

#include <algorithm>

namespace Brevis {

namespace Kind = Trn::Kind;

namespace {

// Words and literals are what comments are about; the white space of signs belongs to the sign.
bool isSignOrDots(Trn::TokenKind kind) {
    return (kind >= Kind::Semicolon && kind <= Kind::ArrowStar) || kind == Kind::Spaceship || kind == Kind::Ellipsis;
}

}  // namespace

GapTable::GapTable(const GapText& text, const Scheme& scheme) : text_(&text), gaps_(text.size() + 1) {
    for (std::size_t row = 0; row < std::size(Catalogue::properties); ++row) {
        const auto* member = std::get_if<WsProperty Scheme::*>(&Catalogue::properties[row].field);
        if (member != nullptr && (scheme.**member).isSet) add(static_cast<GapRule>(row), (scheme.**member).text);
    }
    add(GapRule::Nothing, "");
    add(GapRule::Blank, " ");
    add(GapRule::LineFeed, "\n");
    add(GapRule::Wrapped, "\n");
    addBlankLines(ruleOf<&Scheme::minBlankLinesBetweenFnDefns>(), scheme.minBlankLinesBetweenFnDefns);
    for (TokenIndex token = 1; text.hasFixed() && token <= text.size(); ++token) {
        if (text.token(token).isFixed) fix(token);
    }
    // A table that grows stands twice in memory for a while; room that nobody uses takes none.
    scopes_.reserve(2 * std::size_t{text.size()});
    scopes_.push_back({.mode = IndentScope::Mode::Distance});
}

void GapTable::add(GapRule rule, std::string_view text) {
    const std::size_t feed = text.rfind('\n');
    holdsTabs_ = holdsTabs_ || text.find('\t') != std::string_view::npos;
    values_[index(rule)] = {true, text, feed == std::string_view::npos ? text : text.substr(feed + 1),
                            static_cast<int>(std::count(text.begin(), text.end(), '\n'))};
}

// The text of a rule whose value is a number of empty lines.
void GapTable::addBlankLines(GapRule rule, int count) {
    static constexpr std::string_view feeds = "\n\n\n\n\n\n\n\n\n";
    if (count > 0) add(rule, feeds.substr(0, static_cast<std::size_t>(count) + 1));
}

// A scope shares the base of one with an anchor, or of one that stands below another.
std::uint32_t GapTable::addScope(const IndentScope& scope) {
    scopes_.push_back(scope);
    const IndentScope& base = scopes_[scope.base()];
    const bool isLink = !base.isAnchored && !base.isBelow;
    if (isLink && !scope.isAnchored && !scope.isBelow) scopes_.back().from = base.from;
    return static_cast<std::uint32_t>(scopes_.size() - 1);
}

inline void GapTable::decide(TokenIndex at, GapRule rule, bool keepsLines, bool breaks) {
    if (isFixed(at)) return;
    const bool hasFeed = lineFeeds(rule) > 0;
    if (!hasFeed && keepsLines && text_->lineFeeds(at) > 0) return keep(at);
    if (text(rule).empty() && text_->wouldJoin(at)) {
        if (text_->gap(at).empty()) return keep(at);
        rule = GapRule::Blank;
    }
    Gap& gap = gaps_[at];
    gap.rule = rule;
    gap.sort = !hasFeed ? Gap::Sort::Blanks : breaks ? Gap::Sort::Break : Gap::Sort::Lines;
}

void GapTable::put(TokenIndex token, GapRule rule, bool keepsLines, bool breaks) {
    const bool hasFeed = lineFeeds(rule) > 0;
    const TokenIndex at = token > 1 && text_->isTrivia(token - 1) ? placeAmongTrivia(token, hasFeed) : token;
    if (at != 0) decide(at, rule, keepsLines, breaks);
}

void GapTable::setInFront(TokenIndex token, GapProperty property, bool breaks) {
    if (!isSet(property.rule)) return;
    if (lineFeeds(property.rule) == 0) return put(token, property.rule, false, false);
    decide(token, property.rule, false, breaks);
}

void GapTable::takeDecisions(const GapTable& earlier) {
    text_ = earlier.text_;
    for (std::size_t token = 0; token < gaps_.size(); ++token) {
        Gap& gap = gaps_[token];
        if (gap.sort != Gap::Sort::Keep) continue;
        gap.sort = earlier.gaps_[token].sort;
        gap.rule = earlier.gaps_[token].rule;
        gap.column = earlier.gaps_[token].column;
    }
}

// Where a value acts if comments or directives stand in the gap; 0 for nowhere.
TokenIndex GapTable::placeAmongTrivia(TokenIndex token, bool hasFeed) const {
    TokenIndex first = token - 1;
    while (first > 1 && text_->isTrivia(first - 1)) {
        // There may be many lines of comments, and none of them is asked for again.
        if (!hasFeed && !text_->isOnOneLine(first, token)) return 0;
        --first;
    }
    if (hasFeed) {
        while (first < token && text_->isComment(first) && !text_->startsLine(first)) ++first;
        return first;
    }
    if (first == 1 || token == text_->size() || !text_->isOnOneLine(first - 1, token)) return 0;
    const bool isBehindSign = isSignOrDots(text_->kind(first - 1));
    if (isBehindSign == isSignOrDots(text_->kind(token))) return 0;
    return isBehindSign ? first : token;
}

}  // namespace Brevis
