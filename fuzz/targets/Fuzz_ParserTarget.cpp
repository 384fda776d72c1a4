// The parser target. It reads the tree as the tree printer shows it, so it tests the printer too.
#include <algorithm>
#include <charconv>
#include <vector>

#include "Console_TreePrinter.h"
#include "Cpp_Lexer.h"
#include "Cpp_ParseCodes.h"
#include "Cpp_Parser.h"
#include "Fuzz_LineTable.h"
#include "Fuzz_Targets.h"
#include "Fuzz_Trial.h"
#include "Trn_Exception.h"

namespace Fuzz {

namespace {

// One line of the printed tree: level, class and the positions.
struct PrintedNode {
    std::size_t level = 0;
    std::string_view className;
    Trn::Position first, last;
    std::string_view lastChild;  // its class, while the tree is walked

    bool isList() const {
        return className.ends_with("BodyNode") || className.ends_with("ListNode") || className == "RootNode" ||
               className == "BlockNode" || className == "CtrlStmtNode";
    }
};

int readNumber(std::string_view& line) {
    int number = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    require(error == std::errc(), "The tree printer writes no position.");
    line.remove_prefix(static_cast<std::size_t>(end - line.data()) + (end < line.data() + line.size() ? 1 : 0));
    return number;
}

PrintedNode readNode(std::string_view line) {
    PrintedNode node;
    const std::size_t blanks = line.find_first_not_of(' ');
    node.level = blanks / 2;
    line.remove_prefix(blanks);
    node.className = line.substr(0, line.find(' '));
    line.remove_prefix(node.className.size() + 1);
    node.first.line = readNumber(line);
    node.first.column = readNumber(line);
    node.last.line = readNumber(line);
    node.last.column = readNumber(line);
    return node;
}

// Walks the lines of a printed tree.
class TreeCheck {
public:
    TreeCheck(std::string_view text, Cpp::Dialect dialect) : text_(text), dialect_(dialect), lines_(text) {}

    void check(std::string_view tree) {
        while (!tree.empty()) {
            const std::size_t end = tree.find('\n');
            require(end != std::string_view::npos, "A line of the printed tree has no end.");
            checkNode(readNode(tree.substr(0, end)));
            tree.remove_prefix(end + 1);
        }
    }

private:
    void checkNode(const PrintedNode& node) {
        const std::string name(node.className);
        require(node.level <= parents_.size(), name + " has no parent.");
        parents_.resize(node.level);
        if (node.first.isSet()) require(lines_.offset(node.first).has_value(), name + " begins outside of the text.");
        if (node.last.isSet()) require(lines_.offset(node.last).has_value(), name + " ends outside of the text.");
        if (node.first.isSet() && node.last < node.first && node.last.isSet()) {
            require(isEmptyBetween(node.last, node.first), name + " ends in front of its beginning.");
        }
        if (!parents_.empty() && parents_.back().isList() && node.first.isSet()) {
            Trn::Position& read = parents_.back().last;
            require(read < node.first || mayBeginInFront(node),
                    name + " stands in front of the end of the last child.");
            if (node.last.isSet()) read = std::max(read, node.last);
        }
        if (!parents_.empty()) parents_.back().lastChild = node.className;
        parents_.push_back(node);
        parents_.back().last = {};  // from here on the end of the last child
    }

    // In the classic dialect an enumerator behind a region that doesn't count begins inside of it, and comments between
    // the word and the brace of a namespace inside another one stand in front of it.
    bool mayBeginInFront(const PrintedNode& node) const {
        const PrintedNode& parent = parents_.back();
        const bool isBehindTrivia = parent.lastChild == "PreprocDirectiveNode" || parent.lastChild == "CommentNode";
        if (dialect_ != Cpp::Dialect::classic || !isBehindTrivia) return false;
        return (parent.className == "EnumBodyNode" && node.className == "ExprNode" && parent.last < node.last) ||
               (parent.className == "NamespaceBodyNode" && node.className == "NamespaceDeclNode");
    }

    // A statement without a token begins at the next token and ends with the last: only trivia may lie between.
    bool isEmptyBetween(Trn::Position last, Trn::Position first) const {
        const std::size_t begin = *lines_.offset(last);
        Cpp::Lexer lexer(text_.substr(begin, *lines_.offset(first) - 1 - begin));
        Trn::Token token = lexer.next();
        while (Trn::isTrivia(token.kind())) token = lexer.next();
        return token.kind() == Trn::Kind::EndOfInput;
    }

    std::string_view text_;
    Cpp::Dialect dialect_;
    LineTable lines_;
    std::vector<PrintedNode> parents_;
};

}  // namespace

namespace {

void checkParse(const std::string& text, Cpp::Dialect dialect, Cpp::Language language) {
    Cpp::Lexer lexer(text, dialect, language);
    Cpp::Parser parser(Cpp::Parser::Sketches::Made, dialect);
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    try {
        parser.parse(lexer, root, messages);
    } catch (const Trn::Exception& exception) {
        require(isLimit(exception.message()), "Exception: " + exception.message());
        return;
    }
    const LineTable lines(text);
    for (const Trn::ParseMessage& message : messages) {
        require(!message.position.isSet() || lines.offset(message.position), "A message points outside of the text.");
    }
    const std::string tree = Console::printTree(root);
    const bool isTaken = std::all_of(messages.begin(), messages.end(), [](const Trn::ParseMessage& message) {
        return message.code == static_cast<std::int32_t>(Cpp::ParseCode::LeftAlone);
    });
    if (isTaken) TreeCheck(text, dialect).check(tree);
}

}  // namespace

void fuzzParser(std::string_view data) {
    const std::string text = splitInput(data).text;
    checkParse(text, Cpp::Dialect::classic, Cpp::Language::cpp);
    checkParse(text, Cpp::Dialect::modern, Cpp::Language::cpp);
    checkParse(text, Cpp::Dialect::modern, Cpp::Language::c);
}

}  // namespace Fuzz
