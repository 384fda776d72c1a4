// The reading of a scheme file, line by line.
#include "scheme/Brevis_SchemeReader.h"

#include <locale>
#include <utility>

#include "Cpp_CharClasses.h"
#include "scheme/Brevis_Escapes.h"

namespace Brevis {

namespace {

constexpr char quote = '"';

// The characters of a value up to its closing quote; the opening one has been taken.
struct QuotedValue {
    std::string text;
    bool closed = false;
};

QuotedValue readQuoted(std::istream& fields) {
    QuotedValue value;
    char c = 0;
    while (!value.closed && fields.get(c)) {
        if (c == quote) {
            value.closed = true;
            break;
        }
        value.text += c;
        // A backslash and the character behind it are a pair, so an escaped quote doesn't close the value.
        if (c == '\\' && fields.get(c)) value.text += c;
    }
    return value;
}

std::string withoutQuotes(std::string text) {
    const bool enclosed = text.size() >= 2 && text.front() == quote && text.back() == quote;
    return enclosed ? text.substr(1, text.size() - 2) : text;
}

// A value without a closing quote is the rest of the line.
std::string readStringValue(std::istream& fields) {
    fields >> std::ws;
    if (fields.peek() == quote) {
        fields.get();
        return unescapeText(readQuoted(fields).text);
    }
    std::string word;
    fields >> word;
    return withoutQuotes(unescapeText(word));
}

}  // namespace

SchemeReader::SchemeReader(std::istream& in) : in_(in) { fields_.imbue(std::locale::classic()); }

// A failing stream is the cause of whatever its text then lacks.
bool SchemeReader::fail(Fault fault) {
    fault_ = in_.fail() ? Fault::Unreadable : fault;
    in_.setstate(std::ios::failbit);
    return false;
}

std::string SchemeReader::readLine() {
    std::string line;
    while (line.empty() && in_.good()) {
        if (std::getline(in_, line)) ++line_;
        line = std::string(Cpp::trimmed(line));
        if (!line.empty() && line.front() == '#') line.clear();
    }
    // A normal end of the file differs from a failure in that only the end is flagged.
    if (in_.eof() && !in_.bad() && line.empty()) in_.clear(std::ios::eofbit);
    return line;
}

bool SchemeReader::readVersion() {
    fields_.str(readLine());
    std::int32_t version = 0;
    return fields_ >> version && version == SchemeFile::version - '0';
}

void SchemeReader::readName(PropertySet& scheme) { scheme.setName(withoutQuotes(readLine())); }

bool SchemeReader::read(PropertySet& scheme) {
    if (!in_) return fail(Fault::Unreadable);
    if (readLine() != SchemeFile::magic) return fail(Fault::Magic);
    if (!readVersion()) return fail(Fault::Version);
    readName(scheme);
    for (;;) {
        const std::string line = readLine();
        if (in_.fail()) return fail(Fault::Unreadable);
        if (in_.eof()) {
            if (!line.empty()) omissions_.push_back({line_, Omission::NoLineFeed});
            return true;
        }
        if (!readProperty(line, scheme)) return fail(Fault::Type);
    }
}

// False for a line that is no property. A boolean or integer whose value doesn't parse is only left out.
bool SchemeReader::readProperty(const std::string& line, PropertySet& scheme) {
    fields_.clear();
    fields_.str(line);
    std::int32_t type = 0;
    std::string key;
    fields_ >> type >> key;
    switch (type) {
        case SchemeFile::boolType - '0': {
            bool value = false;
            if (fields_ >> value) scheme.setBool(key, value);
            break;
        }
        case SchemeFile::intType - '0': {
            std::int32_t value = 0;
            if (fields_ >> value) scheme.setInt(key, value);
            break;
        }
        case SchemeFile::stringType - '0':
            scheme.setString(key, readStringValue(fields_));
            lines_.push_back({line_, SchemeFile::stringType, std::move(key)});
            return true;
        default:
            return false;
    }
    if (fields_) {
        lines_.push_back({line_, static_cast<char>('0' + type), std::move(key)});
    } else {
        omissions_.push_back({line_, Omission::BadValue});
    }
    return true;
}

}  // namespace Brevis
