// Patterns of paths with wildcards, as ignore files write them. Matching takes time in proportion to the lengths of
// pattern and path at most.
#pragma once

#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

// * and ? match within a name, [...] one character of it; ** between slashes any number of directories, at the end
// everything below. A backslash takes the next character as it stands. A pattern that is no pattern, such as one with
// an open bracket, matches nothing.
class GlobPattern {
public:
    explicit GlobPattern(std::string_view pattern);

    bool matches(std::string_view path) const;

private:
    friend class GlobCompiler;

    // The runs stand last.
    enum class Kind : std::uint8_t {
        Character,    // `character`
        AnyOne,       // but a slash
        OneOf,        // the set at `set`, never a slash
        Run,          // any number of characters but slashes
        DeepRun,      // any number of characters
        Directories,  // nothing, or any number of characters with a slash at their end
    };
    struct Element {
        Kind kind = Kind::Character;
        char character = 0;
        std::uint16_t set = 0;
    };
    using Set = std::bitset<256>;
    // Which elements may come next, one flag for each and one for the end.
    using Places = std::vector<char>;

    bool takes(const Element& element, char c) const;
    void enter(Places& places, std::size_t index) const;
    void step(const Places& from, Places& to, char c) const;

    std::vector<Element> elements_;
    std::vector<Set> sets_;
    // What every matching path begins and ends with; most others are told by these.
    std::string head_, tail_;
    bool isLiteral_ = true;  // each of them is the whole pattern
    bool isValid_ = true;
};

}  // namespace BrevisUI
