// Why nothing can have gone wrong in a plain run, whatever the texts are.
//
// It holds none of the breaking characters below. So no comment, literal or joined line is in it, and no directive,
// since the word `import` begins one only in front of a `<` or a quote; where the source has no such word, a `<` breaks
// nothing. All its tokens are words, numbers, punctuators
// and stray bytes, and none of them reaches over white space. A lone punctuator, a character that is in no longer
// punctuator, is a token wherever it stands in a run. The bytes that aren't white space are equal in both texts. The
// white space is equal, or is one of these, which the sweep leaves as they are written:
// - both texts have white space in a place. It is no part of a token, and no line is bound to its end;
// - only one has, beside a lone punctuator, with no stray byte at either side. No token is torn, since the lone
//   punctuator has its border there, and none joins another, since no token takes a lone punctuator in.
// What the sweep remembers of a token is where it ended and what may join it; behind a lone punctuator it is therefore
// as if each token of the run had been looked at.
#include "guard/Brevis_PlainRun.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "Cpp_CharClasses.h"
#include "guard/Brevis_SeamPunctuators.h"

namespace Brevis {

namespace {

using Cpp::isSpace;

// ---- Bytes, eight at a time where the machine puts the first one lowest

constexpr bool readsWords = std::endian::native == std::endian::little;
constexpr std::size_t wordSize = sizeof(std::uint64_t);
constexpr std::string_view breakingCharacters = "\"#%'/\\|";

std::uint64_t wordAt(const char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, wordSize);
    return word;
}

constexpr std::uint64_t eightOf(unsigned char c) { return 0x0101010101010101u * c; }

// Marks the bytes that are 0, and perhaps some behind the first of them.
constexpr std::uint64_t zeroBytes(std::uint64_t word) { return (word - eightOf(1)) & ~word & eightOf(0x80); }

// The bits in which a backslash differs from the `|`, and with them a `<`.
constexpr std::uint64_t backslashBits(Less less) { return eightOf(less == Less::HeaderName ? 0x60 : 0x20); }

// Marks the breaking characters in the same way. Most of them come in pairs with a bit or two of difference; the `|` is
// among them for the sake of the others.
constexpr std::uint64_t breakingBytes(std::uint64_t word, std::uint64_t backslash) {
    return zeroBytes((word | eightOf(0x01)) ^ eightOf('#')) | zeroBytes((word | eightOf(0x02)) ^ eightOf('\'')) |
           zeroBytes(word ^ eightOf('/')) | zeroBytes((word | backslash) ^ eightOf('|'));
}

constexpr bool isBreaking(char c, Less less) {
    return breakingBytes(eightOf(static_cast<unsigned char>(c)), backslashBits(less)) != 0;
}
static_assert(std::ranges::all_of(breakingCharacters, [](char c) {
    return isBreaking(c, Less::Nothing) && isBreaking(c, Less::HeaderName);
}));
static_assert(isBreaking('<', Less::HeaderName) && !isBreaking('<', Less::Nothing));

// How far the texts are equal and without a breaking character.
std::size_t equalLength(std::string_view text, std::string_view other, Less less) {
    const std::uint64_t backslash = backslashBits(less);
    const std::size_t size = std::min(text.size(), other.size());
    std::size_t length = 0;
    for (; readsWords && length + wordSize <= size; length += wordSize) {
        const std::uint64_t word = wordAt(text.data() + length);
        const std::uint64_t ends = breakingBytes(word, backslash) | (word ^ wordAt(other.data() + length));
        if (ends != 0) return length + static_cast<std::size_t>(std::countr_zero(ends)) / 8;
    }
    while (length < size && text[length] == other[length] && !isBreaking(text[length], less)) ++length;
    return length;
}

// ---- Single characters

constexpr std::uint8_t lone = 1, stray = 2;

constexpr std::array<std::uint8_t, 256> makeSorts() {
    std::array<std::uint8_t, 256> sorts{};
    for (unsigned c = 0; c < 256; ++c) {
        const bool isWord = Cpp::isAny(static_cast<char>(c), Cpp::CharClass::word) || c == '$' || c >= 0x80;
        if (!isWord && seamPunctuatorIndex[c] == 0) sorts[c] = stray;
        if (isLonePunctuator(static_cast<char>(c))) sorts[c] = lone;
    }
    return sorts;
}

constexpr std::array<std::uint8_t, 256> sorts = makeSorts();

std::uint8_t sortOf(char c) { return sorts[static_cast<unsigned char>(c)]; }

// True if white space may come or go between the two characters.
bool isFreeBetween(char before, char after) { return (sortOf(before) | sortOf(after)) == lone; }

std::size_t passSpace(std::string_view text, std::size_t at) {
    while (at < text.size() && isSpace(text[at])) ++at;
    return at;
}

// ---- The run

class RunFinder {
public:
    RunFinder(std::string_view source, std::string_view output, Less less)
        : source_(source), output_(output), less_(less) {}

    PlainRun find() {
        do {
            passEqual();
        } while (passGap());
        run_.seen = at_;
        return run_;
    }

private:
    void passEqual();
    // Moves behind white space that differs. False if the run has ended.
    bool passGap();

    std::string_view source_, output_;
    Less less_;
    std::size_t at_ = 0, outputAt_ = 0;
    std::size_t stretch_ = 0;  // where in the source the equal stretch began
    PlainRun run_;
};

void RunFinder::passEqual() {
    stretch_ = at_;
    const std::size_t length = equalLength(source_.substr(at_), output_.substr(outputAt_), less_);
    at_ += length;
    outputAt_ += length;
    for (std::size_t back = 0; back < length; ++back) {
        if (sortOf(source_[at_ - back - 1]) != lone) continue;
        run_.source = at_ - back;
        run_.output = outputAt_ - back;
        break;
    }
}

bool RunFinder::passGap() {
    std::size_t begin = at_;
    while (begin > stretch_ && isSpace(source_[begin - 1])) --begin;
    // In front of a gap at the very start stands a token of any sort.
    if (begin == stretch_) return false;
    const std::size_t end = passSpace(source_, at_), outputEnd = passSpace(output_, outputAt_);
    if (end == at_ && outputEnd == outputAt_) return false;
    if (end == source_.size() || outputEnd == output_.size() || source_[end] != output_[outputEnd]) return false;
    const bool isInBoth = end > begin && outputEnd - outputAt_ + at_ > begin;
    if (!isInBoth && !isFreeBetween(source_[begin - 1], source_[end])) return false;
    at_ = end;
    outputAt_ = outputEnd;
    return true;
}

}  // namespace

Less lessOf(std::string_view source) {
    // No run holds it in pieces on joined lines.
    return source.find("import") == std::string_view::npos ? Less::Nothing : Less::HeaderName;
}

PlainRun findPlainRun(std::string_view source, std::string_view output, Less less) {
    return RunFinder(source, output, less).find();
}

}  // namespace Brevis
