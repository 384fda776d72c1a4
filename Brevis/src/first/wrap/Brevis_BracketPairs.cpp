// One stack for each kind of bracket; what a group holds is handed on to the group round it when it closes.
#include "first/wrap/Brevis_BracketPairs.h"

#include <algorithm>

#include "first/wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

BracketPairs::BracketPairs(const std::vector<LeafToken>& tokens)
    : closes_(tokens.size(), tokens.size() - 1), lastOpens_(tokens.size(), 0), seals_(tokens.size(), 0) {
    pairAngles(tokens);
    pairBrackets(tokens);
}

void BracketPairs::pairAngles(const std::vector<LeafToken>& tokens) {
    std::vector<std::size_t> pending;
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const Trn::TokenKind kind = tokens[i].kind;
        if (kind == Less) {
            pending.push_back(i);
        } else if (kind == Greater && !pending.empty()) {
            closes_[pending.back()] = i;
            pending.pop_back();
        } else if (kind == Semicolon || kind == AmpAmp || kind == PipePipe) {
            pending.clear();  // these end the search of all that are still open
        }
    }
}

void BracketPairs::pairBrackets(const std::vector<LeafToken>& tokens) {
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        switch (tokens[i].kind) {
            case OpenParen:
                lastOpenParen_ = i;
                open(Parens, i);
                break;
            case CloseParen:
                lastOpens_[i] = lastOpenParen_;
                close(Parens, Squares, i);
                break;
            case OpenBrace:
                open(Braces, i);
                break;
            case CloseBrace:
                close(Braces, Braces, i);
                break;
            case OpenBracket:
                open(Squares, i);
                break;
            case CloseBracket:
                close(Squares, Parens, i);
                break;
            default:
                noteAngle(tokens, i);
                break;
        }
    }
}

// Template arguments that begin inside a group and do not end there let nobody step over it.
void BracketPairs::noteAngle(const std::vector<LeafToken>& tokens, std::size_t index) {
    const Trn::TokenKind kind = tokens[index].kind;
    const bool isCast = WrapTokens::isNamedCast(kind);
    if (!isCast && kind != Less && kind != Greater) return;
    sealAngles(kind, index);
    std::size_t reach = 0;
    if (isCast) {
        reach = closes_[index + 1];
        if (tokens[index + 1].kind != Less) areShown_ = false;
    } else if (kind == Less && index > 0 && tokens[index - 1].kind == Identifier &&
               closes_[index] + 1 < tokens.size()) {
        reach = closes_[index];
    }
    for (std::vector<Open>& open : open_) {
        if (!open.empty()) open.back().take({.index = index, .counts = {}, .reach = reach, .holdsAngle = true});
    }
}

// Pairs of angle brackets never cross each other.
void BracketPairs::sealAngles(Trn::TokenKind kind, std::size_t index) {
    if (kind == Less && closes_[index] + 1 < closes_.size()) {
        openAngles_.push_back({index, counts_});
    } else if (kind == Greater && !openAngles_.empty() && closes_[openAngles_.back().index] == index) {
        if (counts_ == openAngles_.back().counts) seals_[openAngles_.back().index] = 1;
        openAngles_.pop_back();
    }
}

void BracketPairs::open(Kind kind, std::size_t index) {
    ++counts_[kind];
    open_[kind].push_back({index, counts_});
}

void BracketPairs::close(Kind kind, Kind crossing, std::size_t index) {
    if (!open_[kind].empty()) {
        const Open group = open_[kind].back();
        open_[kind].pop_back();
        closes_[group.index] = index;
        if (counts_ == group.counts && group.reach < index) seals_[group.index] = group.holdsAngle ? 1 : 2;
        if (!open_[kind].empty()) open_[kind].back().take(group);
        if (!open_[crossing].empty() && open_[crossing].back().index > group.index) areParensNested_ = false;
    }
    --counts_[kind];
}

void BracketPairs::Open::take(const Open& inner) {
    reach = std::max(reach, inner.reach);
    holdsAngle = holdsAngle || inner.holdsAngle;
}

}  // namespace Brevis
