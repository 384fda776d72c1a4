// How a value comes into a gap.
#include "second/Brevis_GapTable.h"

#include <algorithm>

namespace Brevis {

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
    for (TokenIndex token = 1; token <= text.size(); ++token) {
        if (text.token(token).isFixed) fix(token);
    }
    scopes_.push_back({.mode = IndentScope::Mode::Distance});
}

void GapTable::add(GapRule rule, std::string_view text) {
    const std::size_t feed = text.rfind('\n');
    values_[index(rule)] = {true, text, feed == std::string_view::npos ? text : text.substr(feed + 1),
                            static_cast<int>(std::count(text.begin(), text.end(), '\n'))};
}

// The text of a rule whose value is a number of empty lines.
void GapTable::addBlankLines(GapRule rule, int count) {
    static constexpr std::string_view feeds = "\n\n\n\n\n\n\n\n\n";
    if (count > 0) add(rule, feeds.substr(0, static_cast<std::size_t>(count) + 1));
}

std::uint32_t GapTable::addScope(const IndentScope& scope) {
    scopes_.push_back(scope);
    return static_cast<std::uint32_t>(scopes_.size() - 1);
}

void GapTable::set(TokenIndex token, GapProperty property) { put(token, property.rule, false, false); }

void GapTable::set(TokenIndex token, GapRule rule) { put(token, rule, false, false); }

void GapTable::setKeepingLines(TokenIndex token, GapProperty property) { put(token, property.rule, true, false); }

void GapTable::setBreak(TokenIndex token, GapProperty property) { put(token, property.rule, false, true); }

// Goes over the comments that end the line of the token before, to the place where the value acts.
void GapTable::put(TokenIndex token, GapRule rule, bool keepsLines, bool breaks) {
    if (!isSet(rule)) return;
    const bool hasFeed = lineFeeds(rule) > 0;
    TokenIndex at = token;
    while (at > 1 && text_->isTrivia(at - 1)) --at;
    if (at != token) {
        if (!hasFeed) return;
        while (at < token && text_->isComment(at) && !text_->startsLine(at) && text_->endsLine(at)) ++at;
    }
    decide(at, rule, keepsLines, breaks);
}

void GapTable::setInFront(TokenIndex token, GapProperty property, bool breaks) {
    if (!isSet(property.rule)) return;
    if (lineFeeds(property.rule) == 0) return put(token, property.rule, false, false);
    decide(token, property.rule, false, breaks);
}

void GapTable::decide(TokenIndex at, GapRule rule, bool keepsLines, bool breaks) {
    const bool hasFeed = lineFeeds(rule) > 0;
    Gap& gap = gaps_[at];
    if (gap.sort == Gap::Sort::Fixed) return;
    if (!hasFeed && keepsLines && text_->lineFeeds(at) > 0) return keep(at);
    gap.rule = rule;
    gap.sort = !hasFeed ? Gap::Sort::Blanks : breaks ? Gap::Sort::Break : Gap::Sort::Lines;
}

bool GapTable::startsLine(TokenIndex token) const {
    if (token == 1 || Trn::isLineToken(text_->kind(token - 1))) return true;
    switch (gaps_[token].sort) {
        case Gap::Sort::Keep:
        case Gap::Sort::Fixed:
            return text_->lineFeeds(token) > 0;
        case Gap::Sort::Blanks:
        case Gap::Sort::Column:
            return false;
        case Gap::Sort::Lines:
        case Gap::Sort::Break:
            return true;
    }
    return false;
}

}  // namespace Brevis
