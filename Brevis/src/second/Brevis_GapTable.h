// The decisions for all gaps of a text. Rules set them, alignment and wrapping change them, the writer carries them
// out.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "scheme/Brevis_PropertyCatalogue.h"
#include "second/Brevis_Gap.h"
#include "second/Brevis_GapText.h"
#include "second/Brevis_IndentScope.h"

namespace Brevis {

// The row of the catalogue that fills a member of Scheme, as the reason for a decision.
template <auto member>
consteval GapRule ruleOf() {
    for (std::size_t row = 0; row < std::size(Catalogue::properties); ++row) {
        if (Catalogue::properties[row].field == SchemeField(member)) return static_cast<GapRule>(row);
    }
    throw "no row fills this member";
}

// A white-space member with its row, for tables of rules.
struct GapProperty {
    const WsProperty Scheme::*member = nullptr;
    GapRule rule = GapRule::None;
};
template <auto member>
consteval GapProperty gapProperty() {
    return {member, ruleOf<member>()};
}
// What no key decides.
inline constexpr GapProperty nothingThere{nullptr, GapRule::Nothing}, blankThere{nullptr, GapRule::Blank};

// The text and the scheme must outlive the table.
class GapTable {
public:
    GapTable(const GapText& text, const Scheme& scheme);

    const Gap& operator[](TokenIndex token) const { return gaps_[token]; }
    Gap& gap(TokenIndex token) { return gaps_[token]; }

    // The gap in front of `token` gets the value, unless it is unset or the gap is fixed. Comments and directives that
    // stand in the gap keep their places: those on the line of the token before stay there, and a line feed comes
    // behind them. A value without a line feed goes round comments in the midst of a line to the side to which it
    // belongs, and leaves the gaps round all others as they are. Tokens that nothing may join are kept apart by a
    // blank.
    void set(TokenIndex token, GapProperty property) { set(token, property.rule); }
    template <auto member>
    void set(TokenIndex token) {
        set(token, gapProperty<member>());
    }
    // The same, but a line feed of the source stays if the value holds none.
    void setKeepingLines(TokenIndex token, GapProperty property) {
        if (isSet(property.rule)) put(token, property.rule, true, false);
    }
    // For what belongs directly in front of `token`, as a brace that closes: a line feed comes behind all comments that
    // stand in the gap. `breaks` keeps the empty lines of the source.
    void setInFront(TokenIndex token, GapProperty property, bool breaks = false);
    // With a rule that has a text of its own.
    void set(TokenIndex token, GapRule rule) {
        if (isSet(rule)) put(token, rule, false, false);
    }
    // At least one line feed, and the empty lines of the source, if the value holds a line feed; otherwise as `set`.
    void setBreak(TokenIndex token, GapProperty property) {
        if (isSet(property.rule)) put(token, property.rule, false, true);
    }
    // Back to what the source has.
    void keep(TokenIndex token) {
        if (!isFixed(token)) gaps_[token].sort = Gap::Sort::Keep, gaps_[token].rule = GapRule::None;
    }
    // Makes this, which is about the result of `earlier`, a table about the text of that: gaps that stay as they are
    // get the decisions that were made before.
    void takeDecisions(const GapTable& earlier);
    // Fixes the gap for good: no rule changes it any more.
    void fix(TokenIndex token) { gaps_[token].sort = Gap::Sort::Fixed; }
    bool isFixed(TokenIndex token) const { return gaps_[token].sort == Gap::Sort::Fixed; }

    std::uint32_t addScope(const IndentScope& scope);
    const std::vector<IndentScope>& scopes() const { return scopes_; }
    IndentScope& scope(std::uint32_t scope) { return scopes_[scope]; }
    void setScope(TokenIndex token, std::uint32_t scope) { gaps_[token].scope = scope; }

    // The text of a rule: of a property its value, which may be unset.
    bool isSet(GapRule rule) const { return values_[index(rule)].isSet; }
    std::string_view text(GapRule rule) const { return values_[index(rule)].text; }
    int lineFeeds(GapRule rule) const { return values_[index(rule)].lineFeeds; }
    // What stands behind its last line feed.
    std::string_view tail(GapRule rule) const { return values_[index(rule)].tail; }

    // Whether the text of a rule does.
    bool holdsTabs() const { return holdsTabs_; }

    // Whether a line begins at the token as the decisions stand.
    bool startsLine(TokenIndex token) const {
        switch (gaps_[token].sort) {
            case Gap::Sort::Lines:
            case Gap::Sort::Break:
                return true;
            case Gap::Sort::Keep:
            case Gap::Sort::Fixed:
            case Gap::Sort::LineColumn:
                if (text_->lineFeeds(token) > 0) return true;
                break;
            default:
                break;
        }
        return token == 1 || Trn::isLineToken(text_->kind(token - 1));
    }

private:
    struct Value {
        bool isSet = false;
        std::string_view text;
        std::string_view tail;
        int lineFeeds = 0;
    };

    static std::size_t index(GapRule rule) { return static_cast<std::size_t>(rule); }
    void add(GapRule rule, std::string_view text);
    void addBlankLines(GapRule rule, int count);
    void put(TokenIndex token, GapRule rule, bool keepsLines, bool breaks);
    void decide(TokenIndex at, GapRule rule, bool keepsLines, bool breaks);
    TokenIndex placeAmongTrivia(TokenIndex token, bool hasFeed) const;

    const GapText* text_;
    std::array<Value, 256> values_{};
    bool holdsTabs_ = false;
    std::vector<Gap> gaps_;
    std::vector<IndentScope> scopes_;
};

}  // namespace Brevis
