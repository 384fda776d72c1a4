// The partners of brackets against a plain model, in a text of many more brackets than a block of the table holds.
#include "Trn_BracketTable.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace Trn {
namespace {

TEST(BracketTable, KnowsPartnersAndSemicolons) {
    constexpr TokenKind opening[] = {Kind::OpenParen, Kind::OpenBracket, Kind::OpenBrace};
    constexpr TokenKind closing[] = {Kind::CloseParen, Kind::CloseBracket, Kind::CloseBrace};
    constexpr TokenKind others[] = {Kind::Semicolon, Kind::Number, Kind::LineComment};
    struct Open {
        TokenIndex token;
        int sort;
    };
    std::mt19937 random(1);
    const auto upTo = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };

    std::vector<TokenKind> kinds = {Kind::EndOfInput};
    std::vector<TokenIndex> partners = {0};
    std::vector<bool> holdsSemicolon = {false};
    std::vector<Open> open;
    while (kinds.size() < 3000 || !open.empty()) {
        const auto token = static_cast<TokenIndex>(kinds.size());
        const int choice = kinds.size() < 3000 ? upTo(kinds.size() % 700 < 300 ? 2 : 3) : 1;
        partners.push_back(0);
        holdsSemicolon.push_back(false);
        if (choice == 0) {
            open.push_back({token, upTo(3)});
            kinds.push_back(opening[open.back().sort]);
        } else if (choice == 1 && !open.empty()) {
            kinds.push_back(closing[open.back().sort]);
            partners[token] = open.back().token;
            partners[open.back().token] = token;
            open.pop_back();
        } else {
            kinds.push_back(others[upTo(3)]);
            if (kinds.back() == Kind::Semicolon && !open.empty()) holdsSemicolon[open.back().token] = true;
        }
    }

    const std::string characters(kinds.size(), ' ');
    TokenBuffer buffer(characters, LineTable(1, 0));
    for (std::size_t i = 1; i < kinds.size(); ++i) buffer.add(kinds[i], i - 1, i);
    const BracketTable table(buffer);
    EXPECT_EQ(table.unmatched(), 0U);
    for (TokenIndex token = 1; token < kinds.size(); ++token) {
        ASSERT_EQ(table.partner(token), partners[token]) << token;
        ASSERT_EQ(partners[token] > token && table.holdsSemicolon(token), holdsSemicolon[token]) << token;
    }
}

}  // namespace
}  // namespace Trn
