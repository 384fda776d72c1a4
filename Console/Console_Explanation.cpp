// The words of an explanation.
#include "Console_Explanation.h"

#include <algorithm>
#include <sstream>
#include <type_traits>
#include <utility>
#include <variant>

#include "Console_SchemePrinter.h"
#include "Trn_Escapes.h"
#include "scheme/Brevis_SchemeReader.h"

namespace Console {

using Brevis::GapCause;
using Brevis::GapChange;
using Brevis::PropertyInfo;
using Brevis::PropertyType;

namespace {

constexpr std::pair<GapCause, std::string_view> causeTexts[] = {
    {GapCause::Indent, "no property: the line stands as far in as what it belongs to"},
    {GapCause::Guard, "no property: other white space would change the code here"},
    {GapCause::Nothing, "no property: a rule has no white space here"},
    {GapCause::Blank, "no property: a rule has one blank here"},
    {GapCause::LineFeed, "no property: a rule has a line of its own for this"},
    {GapCause::Column, "no property: neighbouring lines share a column"},
    {GapCause::Comment, "no property: a comment stays where it is read"},
    {GapCause::CommentLine, "no property: the lines of a comment move with its first one"},
    {GapCause::LineEnd, "no property: what stands in front ends its line"},
};

std::string textOf(const GapChange& change) {
    if (change.ownerLine > 0) return "no property: the line moves with line " + std::to_string(change.ownerLine);
    const auto isIt = [&change](const auto& row) { return row.first == change.cause; };
    const auto* const found = std::ranges::find_if(causeTexts, isIt);
    return found == std::end(causeTexts) ? std::string() : std::string(found->second);
}

// ---- White space

std::string describeRun(char c, std::size_t count) {
    const char* const name = c == '\n' ? "line feed" : c == '\t' ? "tab" : c == ' ' ? "blank" : "control character";
    if (count == 1) return std::string("a ") + name;
    return std::to_string(count) + ' ' + name + 's';
}

// ---- The line and its changes

constexpr std::size_t longestToken = 24;

// The first words of what stands behind a change, cut between two characters of UTF-8.
std::string shortened(std::string_view token) {
    token = token.substr(0, token.find('\n'));
    if (token.size() <= longestToken) return std::string(token);
    std::size_t size = longestToken;
    while (size > 0 && (static_cast<unsigned char>(token[size]) & 0xC0) == 0x80) --size;
    return std::string(token.substr(0, size)) + "...";
}

std::string_view lineAt(std::string_view source, std::size_t place) {
    const std::size_t feed = place == 0 ? std::string_view::npos : source.rfind('\n', place - 1);
    const std::size_t begin = feed == std::string_view::npos ? 0 : feed + 1;
    return source.substr(begin, source.find('\n', begin) - begin);
}

std::string describeChange(std::string_view source, const GapChange& change) {
    std::string_view before = source.substr(change.begin, change.end - change.begin);
    std::string_view after = change.text;
    const std::size_t feed = before.rfind('\n'), newFeed = after.rfind('\n');
    std::string words;
    // An indent alone is told without the line feeds in front of it.
    const bool isLineStart = feed != std::string_view::npos || change.begin == 0;
    if (isLineStart && before.substr(0, feed + 1) == after.substr(0, newFeed + 1)) {
        before.remove_prefix(feed + 1);
        after.remove_prefix(newFeed + 1);
        words = "the line begins with ";
    } else if (change.end == source.size()) {
        words = "at the end of the text: ";
    } else {
        words = "in front of " + shortened(source.substr(change.end, change.tokenEnd - change.end)) + ": ";
    }
    return words + describeWhiteSpace(after) + ", not " + describeWhiteSpace(before);
}

// ---- Values

template <class T>
std::string quotedValue(const Brevis::PropertySet& scheme, std::string_view key, T value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return scheme.getString(key, value) ? '"' + Trn::escape(value) + '"' : std::string();
    } else if constexpr (std::is_same_v<T, bool>) {
        return scheme.getBool(key, value) ? (value ? "1" : "0") : std::string();
    } else {
        return scheme.getInt(key, value) ? std::to_string(value) : std::string();
    }
}

char typeOf(PropertyType type) {
    switch (type) {
        case PropertyType::Flag:
            return Brevis::SchemeFile::boolType;
        case PropertyType::Number:
        case PropertyType::Choice:
            return Brevis::SchemeFile::intType;
        default:
            return Brevis::SchemeFile::stringType;
    }
}

std::string writtenValue(const Brevis::PropertySet& scheme, const PropertyInfo& property) {
    switch (typeOf(property.type)) {
        case Brevis::SchemeFile::boolType:
            return quotedValue(scheme, property.key, false);
        case Brevis::SchemeFile::intType:
            return quotedValue(scheme, property.key, std::int32_t{});
        default:
            return quotedValue(scheme, property.key, std::string());
    }
}

}  // namespace

ExplainedScheme::ExplainedScheme(std::string path, const std::string& text) : path_(std::move(path)) {
    std::istringstream in(text);
    Brevis::SchemeReader reader(in);
    reader.read(scheme_);
    for (const auto& [line, type, key] : reader.lines()) lines_[type + key] = line;
}

std::string ExplainedScheme::describe(const PropertyInfo& property) const {
    std::string text(property.key);
    const auto line = lines_.find(typeOf(property.type) + text);
    if (line == lines_.end()) return text + ", which the scheme doesn't set: a default of the program";
    text += " is " + writtenValue(scheme_, property);
    return text + ", at " + path_ + ':' + std::to_string(line->second);
}

std::string describeWhiteSpace(std::string_view space) {
    if (space.empty()) return "nothing";
    std::string text;
    for (std::size_t begin = 0; begin < space.size();) {
        const std::size_t end = std::min(space.find_first_not_of(space[begin], begin), space.size());
        if (begin > 0) text += end == space.size() ? " and " : ", ";
        text += describeRun(space[begin], end - begin);
        begin = end;
    }
    return text;
}

std::vector<GapChange> changesOfLine(const std::vector<GapChange>& changes, std::size_t line) {
    std::vector<GapChange> chosen;
    for (const GapChange& change : changes) {
        const auto first = static_cast<std::size_t>(change.firstLine),
                   last = static_cast<std::size_t>(change.place.line);
        if (first <= line && line <= last) chosen.push_back(change);
    }
    return chosen;
}

std::string explainChanges(const ExplainedScheme& scheme, const std::string& name, std::string_view source,
                           const std::vector<GapChange>& changes) {
    std::string out;
    int line = 0;
    for (const GapChange& change : changes) {
        if (change.place.line != line) {
            line = change.place.line;
            out.append(name).append(":").append(std::to_string(line)).append(": ");
            out.append(lineAt(source, change.end)).append("\n");
        }
        out += "  column " + std::to_string(change.place.column) + ", " + describeChange(source, change) + "\n    ";
        out += change.property != nullptr ? scheme.describe(*change.property) : textOf(change);
        out += '\n';
    }
    return out;
}

}  // namespace Console
