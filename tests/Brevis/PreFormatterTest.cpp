// The pre-formatter: which comments open and close a region, and what stands for the region afterwards.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "Brevis_CppPreFormatter.h"
#include "Trn_NestingGuard.h"

namespace Brevis {
namespace {

using Cpp::BlockNode;
using Cpp::CommentNode;
using Cpp::ExprNode;
using Cpp::InteriorNode;
using Cpp::Position;
using Cpp::RootNode;

// A child that is a comment, on a line of its own; any other text is an expression.
void addLine(InteriorNode& parent, const std::string& text, int line) {
    const Position first{line, 1};
    const Position last{line, static_cast<int>(text.size())};
    if (text.front() == '/') {
        parent.addChild(std::make_unique<CommentNode>(text, first, last));
    } else {
        parent.addChild(std::make_unique<ExprNode>(text, first, last));
    }
}

void addLines(InteriorNode& parent, const std::vector<std::string>& lines) {
    int line = 0;
    for (const std::string& text : lines) addLine(parent, text, ++line);
}

// The children of a list: a text, or for a region its first and last line.
std::string sketch(const InteriorNode& parent) {
    std::string result;
    for (const auto& child : parent) {
        const auto* comment = dynamic_cast<const CommentNode*>(child.get());
        if (comment != nullptr && comment->verbatim) {
            EXPECT_EQ(comment->text, "");
            result += std::to_string(comment->firstPosition().line) + "-" +
                      std::to_string(comment->lastPosition().line) + ";";
        } else if (const auto* text = dynamic_cast<const Cpp::TextLeafNode*>(child.get())) {
            result += text->text + ";";
        } else {
            result += "node;";
        }
    }
    return result;
}

std::string foldedLines(const std::vector<std::string>& lines, const RegionTable& table = regionTable()) {
    RootNode root;
    addLines(root, lines);
    CppPreFormatter preFormatter(table);
    root.accept(preFormatter);
    return sketch(root);
}

TEST(PreFormatter, FindsTheMarkersOfTheTable) {
    const struct {
        const char* title;
        std::vector<std::string> lines;
        const char* expected;
    } cases[] = {
        {"line comments", {"a", "// CV-FORMAT-OFF", "b", "// CV-FORMAT-ON", "c"}, "a;2-4;c;"},
        {"neighbours", {"// CV-FORMAT-OFF", "// CV-FORMAT-ON"}, "1-2;"},
        {"blanks round the marker", {"/*   CV-FORMAT-OFF   */", "b", "/*CV-FORMAT-ON*/"}, "1-3;"},
        {"a wizard's marker", {"//{{AFX_MSG(X)", "//{{AFX_MSG", "b", "//AFX_MSG}}"}, "//{{AFX_MSG(X);2-4;"},
        {"three braces", {"//{{{AFX_DISP", "b", "//AFX_DISP}}}"}, "1-3;"},
        {"text behind the marker",
         {"// CV-FORMAT-OFF now", "// CV-FORMAT-ON"},
         "// CV-FORMAT-OFF now;// CV-FORMAT-ON;"},
        {"another case", {"// cv-format-off", "// CV-FORMAT-ON"}, "// cv-format-off;// CV-FORMAT-ON;"},
        {"never closed", {"a", "// CV-FORMAT-OFF", "b"}, "a;// CV-FORMAT-OFF;b;"},
        {"closed by another marker", {"// CV-FORMAT-OFF", "//AFX_MSG}}"}, "// CV-FORMAT-OFF;//AFX_MSG}};"},
        {"no marker inside a region",
         {"// CV-FORMAT-OFF", "//{{AFX_MSG", "// CV-FORMAT-ON", "//AFX_MSG}}"},
         "1-3;//AFX_MSG}};"},
        {"two regions", {"// CV-FORMAT-OFF", "// CV-FORMAT-ON", "a", "//{{AFX_MSG", "b", "//AFX_MSG}}"}, "1-2;a;4-6;"},
        {"side by side",
         {"// CV-FORMAT-OFF", "// CV-FORMAT-ON", "// CV-FORMAT-OFF", "// CV-FORMAT-ON", "// c"},
         "1-2;3-4;// c;"},
    };
    for (const auto& test : cases) EXPECT_EQ(foldedLines(test.lines), test.expected) << test.title;
    EXPECT_EQ(foldedLines({"// CV-FORMAT-OFF", "// CV-FORMAT-ON"}, {}), "// CV-FORMAT-OFF;// CV-FORMAT-ON;");
}

// Lists of every kind that is walked, in one tree of declarations with a region in each.
TEST(PreFormatter, LooksIntoAllLists) {
    const std::vector<std::string> lines{"// CV-FORMAT-OFF", "a", "// CV-FORMAT-ON", "b"};
    RootNode root;
    std::vector<InteriorNode*> lists;
    const auto fill = [&](auto& member) {
        member = std::make_unique<typename std::decay_t<decltype(member)>::element_type>();
        addLines(*member, lines);
        lists.push_back(member.get());
    };
    auto linkage = std::make_unique<Cpp::LinkageBlockNode>();
    fill(linkage->body);
    root.addChild(std::move(linkage));
    auto enumeration = std::make_unique<Cpp::EnumDeclNode>();
    fill(enumeration->body);
    root.addChild(std::move(enumeration));
    auto space = std::make_unique<Cpp::NamespaceDeclNode>();
    fill(space->body);
    root.addChild(std::move(space));
    auto type = std::make_unique<Cpp::ClassDeclNode>();
    fill(type->body);
    root.addChild(std::move(type));
    auto templateHead = std::make_unique<Cpp::TemplateNode>();
    fill(templateHead->parameters);
    root.addChild(std::move(templateHead));
    auto pointer = std::make_unique<Cpp::FunctionPtrDeclNode>();
    fill(pointer->parameters);
    root.addChild(std::move(pointer));
    auto ctor = std::make_unique<Cpp::CtorDeclNode>();
    fill(ctor->initializers);
    fill(ctor->body);
    root.addChild(std::move(ctor));
    auto statement = std::make_unique<Cpp::CtrlStmtNode>();
    auto part = std::make_unique<Cpp::CtrlSubStmtNode>();
    fill(part->body);
    statement->addChild(std::move(part));
    addLines(*statement, lines);
    root.addChild(std::move(statement));

    CppPreFormatter preFormatter(regionTable());
    root.accept(preFormatter);
    for (const auto* list : lists) EXPECT_EQ(sketch(*list), "1-3;b;");
    EXPECT_EQ(sketch(static_cast<InteriorNode&>(root.child(root.childCount() - 1))), "node;1-3;b;");
}

TEST(PreFormatter, FoldsARegionAcrossBlocks) {
    RootNode root;
    auto outer = std::make_unique<BlockNode>();
    addLine(*outer, "a", 1);
    addLine(*outer, "// CV-FORMAT-OFF", 2);
    auto inner = std::make_unique<BlockNode>();
    addLine(*inner, "b", 3);
    addLine(*inner, "// CV-FORMAT-ON", 4);
    addLine(*inner, "// CV-FORMAT-OFF", 5);
    outer->addChild(std::move(inner));
    root.addChild(std::move(outer));
    addLine(root, "c", 6);
    addLine(root, "// CV-FORMAT-ON", 7);
    addLine(root, "d", 8);

    CppPreFormatter preFormatter(regionTable());
    root.accept(preFormatter);
    // The second region begins in the inner block, so both blocks go with it.
    EXPECT_EQ(sketch(root), "5-7;d;");
}

TEST(PreFormatter, ServesSeveralTrees) {
    CppPreFormatter preFormatter(regionTable());
    RootNode open;
    addLines(open, {"a", "// CV-FORMAT-OFF"});
    open.accept(preFormatter);
    RootNode closed;
    addLines(closed, {"// CV-FORMAT-ON", "// CV-FORMAT-OFF", "b", "// CV-FORMAT-ON"});
    closed.accept(preFormatter);
    EXPECT_EQ(sketch(closed), "// CV-FORMAT-ON;2-4;");
}

TEST(PreFormatter, RefusesATreeThatIsTooDeep) {
    RootNode root;
    InteriorNode* inner = &root;
    for (int depth = 0; depth < Trn::NestingGuard::limit; ++depth) {
        auto block = std::make_unique<BlockNode>();
        BlockNode* const next = block.get();
        inner->addChild(std::move(block));
        inner = next;
    }
    CppPreFormatter preFormatter(regionTable());
    EXPECT_THROW(root.accept(preFormatter), Trn::Exception);
}

double secondsFor(int regions) {
    RootNode root;
    for (int i = 0; i < regions; ++i) addLines(root, {"// CV-FORMAT-OFF", "a", "// CV-FORMAT-ON", "b"});
    CppPreFormatter preFormatter(regionTable());
    const auto start = std::chrono::steady_clock::now();
    root.accept(preFormatter);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(root.childCount(), 2 * regions);
    return time.count();
}

// A walk of the remover for each region would take 64 times as long for 8 times the regions.
TEST(PreFormatter, TimeGrowsWithTheNumberOfRegions) {
    secondsFor(4000);
    EXPECT_LT(secondsFor(32000), 32 * secondsFor(4000) + 0.05);
}

}  // namespace
}  // namespace Brevis
