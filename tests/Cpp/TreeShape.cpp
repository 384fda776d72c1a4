// The short forms are made from the lines of the tree printer, so these tests hold its output too.
#include "TreeShape.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "Console_TreePrinter.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace {

// One line of the printer: level, class, positions and the rest.
struct Line {
    int level;
    std::string name;
    std::string positions;
    std::string rest;
};

std::vector<Line> linesOf(const std::string& tree) {
    std::vector<Line> lines;
    std::istringstream in(tree);
    for (std::string text; std::getline(in, text);) {
        const std::size_t blanks = text.find_first_not_of(' ');
        std::istringstream words(text);
        Line line{static_cast<int>(blanks / 2), {}, {}, {}};
        words >> line.name >> line.positions >> std::ws;
        std::getline(words, line.rest);
        line.name.resize(line.name.size() - std::string_view("Node").size());
        lines.push_back(line);
    }
    return lines;
}

// `key=0 "text"` as `[key=0]'text'`; the positions among the attributes are left out.
std::string shortForm(const std::string& rest) {
    std::string attributes;
    std::string text = rest.substr(std::min(rest.find('"'), rest.size()));
    std::istringstream words(rest.substr(0, rest.size() - text.size()));
    for (std::string word; words >> word;) {
        if (word.starts_with("end=") || word.starts_with("colon=")) continue;
        attributes += (attributes.empty() ? "" : " ") + word;
    }
    for (char& c : text) {
        if (c == '"') c = '\'';
    }
    return (attributes.empty() ? "" : "[" + attributes + "]") + text;
}

std::string joined(const std::vector<Line>& lines, bool withPositions) {
    std::string out;
    int level = 1;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const Line& line = lines[i];
        if (i > 1)
            out += line.level > level ? "{" : std::string(static_cast<std::size_t>(level - line.level), '}') + " ";
        level = line.level;
        out += line.name + (withPositions ? " " + line.positions + " " : "") + shortForm(line.rest);
    }
    return out + std::string(static_cast<std::size_t>(level - 1), '}');
}

}  // namespace

ParsedText::ParsedText(std::string_view source, Dialect dialect, Language language) {
    Lexer lexer(source, dialect, language);
    Parser(Parser::Sketches::Made, dialect).parse(lexer, root, messages);
    const std::vector<Line> lines = linesOf(Console::printTree(root));
    shape_ = joined(lines, false);
    positions_ = joined(lines, true);
}

std::string ParsedText::reports() {
    std::string out;
    for (const Trn::ParseMessage& message : messages) {
        if (!out.empty()) out += ", ";
        out += message.code != 0 ? std::to_string(message.code) : "'" + message.text + "'";
        out += "@" + Console::printPosition(message.position);
    }
    return out;
}

}  // namespace Cpp
