// Runs the cases in tests/Cpp/roles, where `->` shows the signs of the source with their roles, and reads our own
// sources.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "CaseFile.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"

namespace Cpp {
namespace {

namespace Kind = Trn::Kind;

struct RoledText {
    RoledText(std::string_view text, Language language) : lexer(text, Dialect::modern, language) {
        Parser(Parser::Sketches::LeftOut, Dialect::modern, Parser::Roles::Found).parse(lexer, root, messages);
    }

    Lexer lexer;
    RootNode root;
    Trn::ParseMessageList messages;
};

constexpr bool isSign(Trn::TokenKind kind) {
    return (kind >= Kind::Semicolon && kind < Kind::Class) || kind == Kind::Spaceship || kind == Kind::Ellipsis;
}

constexpr bool isCloser(Trn::TokenKind kind) {
    return kind == Kind::CloseParen || kind == Kind::CloseBracket || kind == Kind::CloseBrace;
}

// Without closing brackets, commas and semicolons, whose roles follow from the others, unless they are asked for.
std::string rolesOf(const TokenTable& table, bool withAll) {
    std::string out;
    for (Trn::TokenIndex token = 1; token < table.tokens().size(); ++token) {
        const Trn::TokenKind kind = table.tokens().kind(token);
        if (!isSign(kind)) continue;
        if (!withAll && (isCloser(kind) || kind == Kind::Comma || kind == Kind::Semicolon)) continue;
        if (!out.empty()) out += ", ";
        out += std::string(table.tokens().text(token)) + ' ' + std::string(nameOf(table.role(token)));
    }
    return out;
}

class RoleTest : public testing::TestWithParam<CaseGroup> {};

TEST_P(RoleTest, ComesOutAsExpected) {
    EXPECT_EQ(GetParam().fault, "");
    for (const TextCase& c : GetParam().cases) {
        const testing::ScopedTrace at(GetParam().file.c_str(), c.line, c.source);
        const bool isC = GetParam().file.ends_with("/c.txt");
        const RoledText text(c.source, isC ? Language::c : Language::cpp);
        ASSERT_NE(text.root.tokens(), nullptr);
        for (const auto& [mark, expected] : c.expected) {
            if (mark == "!") continue;
            EXPECT_EQ(rolesOf(*text.root.tokens(), mark == "@"), expected);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, RoleTest, testing::ValuesIn(readCaseGroups("roles")), groupName);

TEST(RoleTableTest, IsNotThereUnlessAskedFor) {
    Lexer lexer("int x;", Dialect::modern);
    RootNode root;
    Trn::ParseMessageList messages;
    Parser(Parser::Sketches::LeftOut, Dialect::modern).parse(lexer, root, messages);
    EXPECT_EQ(root.tokens(), nullptr);
}

// Every sign has a role, and the two brackets of a pair have the same.
TEST(RoleTableTest, LeavesNoSignOfOurSourcesOut) {
    int count = 0;
    for (const char* folder : {"Cpp", "Trn", "Vellum", "tests/Cpp", "Console"}) {
        for (const auto& entry :
             std::filesystem::directory_iterator(std::filesystem::path(CORVANE_SOURCE_DIR) / folder)) {
            if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
            const testing::ScopedTrace at(__FILE__, __LINE__, entry.path().string());
            std::ostringstream content;
            content << std::ifstream(entry.path()).rdbuf();
            const std::string source = content.str();
            const RoledText text(source, Language::cpp);
            ASSERT_NE(text.root.tokens(), nullptr);
            const TokenTable& table = *text.root.tokens();
            std::vector<Role> open;
            for (Trn::TokenIndex token = 1; token < table.tokens().size(); ++token) {
                const Trn::TokenKind kind = table.tokens().kind(token);
                const bool hasNoRole = table.role(token) == Role::None;
                EXPECT_FALSE(hasNoRole && isSign(kind)) << table.tokens().first(token).line;
                if (kind == Kind::OpenParen || kind == Kind::OpenBracket || kind == Kind::OpenBrace) {
                    open.push_back(table.role(token));
                } else if (isCloser(kind)) {
                    ASSERT_FALSE(open.empty());
                    EXPECT_EQ(table.role(token), open.back()) << table.tokens().first(token).line;
                    open.pop_back();
                }
            }
            ++count;
        }
    }
    EXPECT_GT(count, 100);
}

// A lambda in a lambda, brackets that nothing tells from comparisons, a head that never ends: all in one run.
TEST(RoleTableTest, TakesDeepAndLongTexts) {
    std::string less = "int x = a", casts = "int y = ", lists = "int z[] = ";
    for (int i = 0; i < 20000; ++i) less += " < a", casts += "(int)", lists += '{';
    lists += std::string(20000, '}');
    const std::string source = less + ";\n" + casts + "x;\n" + lists + ";\n";
    const RoledText text(source, Language::cpp);
    ASSERT_NE(text.root.tokens(), nullptr);
    const TokenTable& table = *text.root.tokens();
    std::size_t comparisons = 0, castBrackets = 0, elements = 0;
    for (Trn::TokenIndex token = 1; token < table.tokens().size(); ++token) {
        comparisons += table.role(token) == Role::Comparison;
        castBrackets += table.role(token) == Role::Cast;
        elements += table.role(token) == Role::BracedInitializer;
    }
    EXPECT_EQ(comparisons, 20000U);
    EXPECT_EQ(castBrackets, 40000U);
    EXPECT_EQ(elements, 40000U);
}

}  // namespace
}  // namespace Cpp
