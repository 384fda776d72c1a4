// Byte order marks and lines.
#include "files/BrevisUI_TextLines.h"

#include "BrevisUI_Encoding.h"

#include <algorithm>
#include <cstdint>

namespace BrevisUI {

namespace {

constexpr std::string_view littleEndianMark = "\xFF\xFE", bigEndianMark = "\xFE\xFF";
constexpr std::uint32_t replacement = 0xFFFD;

void appendUtf8(std::string& text, std::uint32_t c) {
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0 | (c >> 12));
        tail(6), tail(0);
    } else {
        text += static_cast<char>(0xF0 | (c >> 18));
        tail(12), tail(6), tail(0);
    }
}

// Reads a text of two-byte units.
class Utf16Reader {
public:
    Utf16Reader(std::string_view bytes, bool bigEndian) : bytes_(bytes), bigEndian_(bigEndian) {}

    bool atEnd() const { return at_ >= bytes_.size(); }

    std::uint32_t next() {
        const std::uint32_t first = unit();
        if (first < 0xD800 || first > 0xDFFF) return first;
        if (first > 0xDBFF || atEnd()) return replacement;
        const std::size_t place = at_;
        const std::uint32_t second = unit();
        if (second >= 0xDC00 && second <= 0xDFFF) return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
        at_ = place;  // the first half stands alone
        return replacement;
    }

private:
    std::uint32_t unit() {
        if (bytes_.size() - at_ < 2) {
            at_ = bytes_.size();
            return replacement;
        }
        const auto low = static_cast<unsigned char>(bytes_[at_ + (bigEndian_ ? 1 : 0)]);
        const auto high = static_cast<unsigned char>(bytes_[at_ + (bigEndian_ ? 0 : 1)]);
        at_ += 2;
        return static_cast<std::uint32_t>(high << 8 | low);
    }

    std::string_view bytes_;
    bool bigEndian_;
    std::size_t at_ = 0;
};

std::string decodeUtf16(std::string_view bytes, bool bigEndian) {
    std::string text;
    for (Utf16Reader reader(bytes, bigEndian); !reader.atEnd();) appendUtf8(text, reader.next());
    return text;
}

}  // namespace

std::string decodeText(std::string_view bytes) {
    if (bytes.starts_with(littleEndianMark)) return decodeUtf16(bytes.substr(2), false);
    if (bytes.starts_with(bigEndianMark)) return decodeUtf16(bytes.substr(2), true);
    return std::string(bytes.substr(byteOrderMarkOf(bytes).size()));
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::vector<std::string> splitList(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        const std::string_view piece = trimBlanks(text.substr(0, end));
        if (!piece.empty()) pieces.emplace_back(piece);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pieces;
}

std::string_view trimBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

}  // namespace BrevisUI
