// Alignment groups and their columns, worked out on parsed texts.
#include <gtest/gtest.h>

#include <sstream>

#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "first/align/Brevis_DataOffsetCalculator.h"
#include "first/align/Brevis_NameOffsetCalculator.h"

namespace Brevis {
namespace {

// Lists the declarations of a tree with their columns, as "name:column", "-" standing for no entry in the table.
class Columns : public Cpp::Emitter {
public:
    Columns(const ColumnTable& data, const ColumnTable& functions) : data_(data), functions_(functions) {}

    const std::string& text() const { return text_; }

    using Emitter::visit;
    void visit(Cpp::RootNode& node) override { walk(node); }
    void visit(Cpp::ClassDeclNode& node) override { enter(node.body.get()); }
    void visit(Cpp::ClassBodyNode& node) override { walk(node); }
    void visit(Cpp::BlockNode& node) override { walk(node); }
    void visit(Cpp::CtrlStmtNode& node) override { walk(node); }
    void visit(Cpp::CtrlSubStmtNode& node) override { enter(node.body.get()); }
    void visit(Cpp::DataDeclNode& node) override { add(node, node.name.get(), data_); }
    void visit(Cpp::FunctionDeclNode& node) override { addFunction(node); }
    void visit(Cpp::CtorDeclNode& node) override { addFunction(node); }

private:
    void walk(Cpp::InteriorNode& node) {
        for (const auto& child : node) child->accept(*this);
    }
    void enter(Cpp::SyntaxNode* body) {
        if (body) body->accept(*this);
    }
    void addFunction(Cpp::FunctionDeclNode& node) {
        add(node, node.head->name.get(), functions_);
        enter(node.body.get());
    }
    void add(const Cpp::SyntaxNode& node, const Cpp::IdNode* name, const ColumnTable& columns) {
        const auto found = columns.find(&node);
        if (!text_.empty()) text_ += ' ';
        text_ += std::string(name ? std::string_view(name->text) : "?") + ":" +
                 (found == columns.end() ? "-" : std::to_string(found->second));
    }

    const ColumnTable& data_;
    const ColumnTable& functions_;
    std::string text_;
};

class OffsetCalculatorTest : public testing::Test {
protected:
    // `properties` are the lines of a scheme file.
    void parse(const std::string& properties, const std::string& text) {
        std::istringstream in("Brevis::PropertySet\n1\n\"\"\n" + properties);
        scheme.read(in);
        ASSERT_FALSE(in.fail());
        root = std::make_unique<Cpp::RootNode>();
        source = text;
        Cpp::Lexer lexer(source);
        Trn::ParseMessageList messages;
        Cpp::Parser().parse(lexer, *root, messages);
        ASSERT_TRUE(messages.empty()) << text << messages.front().text;
    }

    std::string names(const std::string& properties, const std::string& text) {
        parse(properties, text);
        NameOffsetCalculator calculator(Scheme::from(scheme));
        root->accept(calculator);
        return list(calculator.dataNameColumns(), calculator.functionNameColumns());
    }

    std::string initializers(const std::string& properties, const std::string& text) {
        parse(properties, text);
        DataOffsetCalculator calculator(Scheme::from(scheme));
        root->accept(calculator);
        return list(calculator.initializerColumns(), {});
    }

    std::string list(const ColumnTable& data, const ColumnTable& functions) {
        Columns columns(data, functions);
        root->accept(columns);
        return columns.text();
    }

    PropertySet scheme;
    std::string source;
    std::unique_ptr<Cpp::RootNode> root;
};

const std::string tab4 = "2 TAB_SIZE 4\n";
const std::string data = tab4 + "1 ALIGN_DD_NAMES_LEFT 1\n";
const std::string functions = tab4 + "1 ALIGN_FN_DECL_NAMES_LEFT 1\n";
const std::string members = tab4 + "1 ALIGN_CLASS_MEMBER_NAMES_LEFT 1\n";

TEST_F(OffsetCalculatorTest, GroupsOfNames) {
    const struct {
        std::string scheme;
        const char* text;
        const char* columns;
    } cases[] = {
        // Comments, directives and blank lines don't end a group.
        {data, "int a;\n\n// c\n#define X\nunsigned b;\n", "a:12 b:12"},
        // Labels don't either; a statement does, and so does a block.
        {data, "void f() {\nint a;\nlab:\nlong double b;\ng();\nchar c;\n{\ndouble d;\n}\n}\n",
         "f:- a:12 b:12 c:8 d:8"},
        {data, "void f() {\nswitch (x) {\ncase 1:\nint a;\ncase 2:\nlong double b;\n}\n}\n", "f:- a:12 b:12"},
        // A function definition ends a group, and with names of functions left alone a declaration does too.
        {data, "int a;\nvoid f() {}\nunsigned b;\n", "a:4 f:- b:12"},
        {data, "int a;\nvoid f();\nunsigned b;\n", "a:4 f:- b:12"},
        // The columns of data and functions are kept apart outside classes.
        {data + functions, "int a;\nunsigned long f();\nchar b;\nvoid g() {}\nint h();\n", "a:8 f:16 b:8 g:- h:4"},
        {functions, "int a;\nint f();\n", "a:- f:4"},
        // A class is one group, with one column for both; labels inside don't count.
        {members, "class A {\nint a;\npublic:\nunsigned b;\nvoid f();\nA();\n};\nint c;\nint f();\n",
         "a:12 b:12 f:12 A:12 c:- f:-"},
        {data, "class A {\nint a;\npublic:\nunsigned b;\n};\n", "a:12 b:12"},
        // What follows the class joins its group, until something ends it.
        {members + data, "class A {\nunsigned b;\n};\nint c;\nvoid f() {}\nint d;\n", "b:12 c:12 f:- d:4"},
        {members, "class A {\nunsigned b;\nvoid f() {\nint x;\n}\nint c;\n};\n", "b:12 f:- x:4 c:4"},
        // A name behind a class joins without a width of its own.
        {data, "struct {\nint a;\n} b;\nunsigned c;\n", "a:12 b:12 c:12"},
        {tab4, "int a;\n", "a:-"},
    };
    for (const auto& [scheme, text, columns] : cases) EXPECT_EQ(columns, names(scheme, text)) << text;
}

TEST_F(OffsetCalculatorTest, TabStops) {
    EXPECT_EQ("a:9 b:9", names("1 ALIGN_DD_NAMES_LEFT 1\n", "int a;\nunsigned b;\n"));
    EXPECT_EQ("a:9 b:9", names("1 ALIGN_DD_NAMES_LEFT 1\n2 TAB_SIZE -2\n", "int a;\nunsigned b;\n"));
    EXPECT_EQ("a:16", names("1 ALIGN_DD_NAMES_LEFT 1\n2 TAB_SIZE 8\n", "unsigned a;\n"));
}

TEST_F(OffsetCalculatorTest, PointerSigns) {
    const struct {
        const char* scheme;
        const char* text;
        const char* columns;
    } cases[] = {
        // No anchor: up to the sign, without the column more that a plain type gets.
        {"", "abcdefg *p;\n", "p:12"},
        {"", "abc *p;\n", "p:8"},
        {"", "abcd i;\n", "i:8"},
        // With the name: the type without its sign, and room for a hanging sign where it would touch the type.
        {"2 ASTERISK_ANCHOR 1\n", "abcdefg *p;\n", "p:8"},
        {"2 ASTERISK_ANCHOR 1\n1 HANGING_ASTERISK 1\n", "abcdefg *p;\n", "p:12"},
        {"2 ASTERISK_ANCHOR 1\n1 HANGING_ASTERISK 1\n", "abcdef *p;\n", "p:8"},
        {"2 ASTERISK_ANCHOR 1\n1 HANGING_AMPERSAND 1\n", "abcdefg *p;\n", "p:8"},
        // With the type, at the distance that the scheme sets.
        {"2 ASTERISK_ANCHOR 0\n3 WS_BETWEEN_ASTERISK_ANCHOR \"\"\n", "abcde *p;\n", "p:8"},
        {"2 ASTERISK_ANCHOR 0\n3 WS_BETWEEN_ASTERISK_ANCHOR \" \"\n", "abcde *p;\n", "p:12"},
        {"2 ASTERISK_ANCHOR -1\n3 WS_BETWEEN_ASTERISK_ANCHOR \"    \"\n", "abcde *p;\n", "p:8"},
        {"2 AMPERSAND_ANCHOR 1\n", "abcdefg &p = q;\n", "p:8"},
    };
    for (const auto& [scheme, text, columns] : cases) EXPECT_EQ(columns, names(data + scheme, text)) << scheme << text;
}

TEST_F(OffsetCalculatorTest, Templates) {
    EXPECT_EQ("f:24", names(functions, "template<class T> int f();\n"));
    EXPECT_EQ("f:4 g:4", names(functions, "template<class T>\nunsigned long f();\nint g();\n"));
}

TEST_F(OffsetCalculatorTest, GroupsOfInitializers) {
    const struct {
        std::string scheme;
        const char* text;
        const char* columns;
    } cases[] = {
        // The end of the longest name, neither rounded nor moved on.
        {tab4, "int a = 1;\nlong c = 2;\n", "a:6 c:6"},
        // Without an initializer a declaration neither joins nor ends a group; a function pointer is passed over too.
        {tab4, "int a = 1;\nunsigned b;\nvoid (*p)();\nlong c = 2;\n", "a:6 b:- c:6"},
        {tab4, "int a = 1;\nvoid f();\nlong c = 2;\n", "a:5 f:- c:6"},
        {tab4, "class A {\nstatic int a = 1;\npublic:\nstatic long bc = 2;\n};\n", "a:12 bc:14"},
        // A name behind a class counts by itself, and so does every name once names are aligned.
        {tab4, "struct {\nint a;\n} bcdefgh = {1};\nint c = 2;\n", "a:- bcdefgh:7 c:7"},
        {data, "int a = 1;\nlong abc = 2;\n", "a:3 abc:3"},
    };
    for (const auto& [scheme, text, columns] : cases) EXPECT_EQ(columns, initializers(scheme, text)) << text;
}

}  // namespace
}  // namespace Brevis
