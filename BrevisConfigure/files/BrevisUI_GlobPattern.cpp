// Compiles a pattern into a row of elements and walks all of its places at once.
#include "files/BrevisUI_GlobPattern.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace BrevisUI {

namespace {

struct CharacterClass {
    std::string_view name;
    int (*holds)(int);
};

constexpr std::array<CharacterClass, 12> characterClasses{{
    {"alnum", std::isalnum},
    {"alpha", std::isalpha},
    {"blank", std::isblank},
    {"cntrl", std::iscntrl},
    {"digit", std::isdigit},
    {"graph", std::isgraph},
    {"lower", std::islower},
    {"print", std::isprint},
    {"punct", std::ispunct},
    {"space", std::isspace},
    {"upper", std::isupper},
    {"xdigit", std::isxdigit},
}};

// Reads one bracket expression, the text behind its opening bracket.
class SetReader {
public:
    explicit SetReader(std::string_view text) : text_(text) {}

    // Nothing if the bracket doesn't close or names an unknown class.
    std::optional<std::bitset<256>> read() {
        const bool negated = !text_.empty() && (text_[0] == '!' || text_[0] == '^');
        if (negated) ++at_;
        // A bracket in the first place is a character like any other.
        for (bool first = true; first || !at(']'); first = false) {
            if (!readItem()) return std::nullopt;
        }
        ++at_;
        return negated ? ~set_ : set_;
    }

    // How much of the text the set took, its closing bracket included.
    std::size_t length() const { return at_; }

private:
    bool at(char c) const { return at_ < text_.size() && text_[at_] == c; }

    bool readItem() {
        if (at('[') && at_ + 1 < text_.size() && text_[at_ + 1] == ':') return readClass();
        const std::optional<unsigned char> first = readCharacter();
        if (!first) return false;
        const bool isRange = at('-') && at_ + 1 < text_.size() && text_[at_ + 1] != ']';
        // It counts by itself too, which tells for a range that runs backwards.
        set_.set(*first);
        if (!isRange) return true;
        ++at_;
        const std::optional<unsigned char> last = readCharacter();
        if (last) addRange(*first, *last);
        return last.has_value();
    }

    std::optional<unsigned char> readCharacter() {
        if (at('\\')) ++at_;
        if (at_ >= text_.size()) return std::nullopt;
        return static_cast<unsigned char>(text_[at_++]);
    }

    // [:name:]; without the second colon the bracket is a character.
    bool readClass() {
        const std::size_t end = text_.find(']', at_ + 2);
        if (end == std::string_view::npos) return false;
        if (end < at_ + 3 || text_[end - 1] != ':') {
            set_.set('[');
            ++at_;
            return true;
        }
        const std::string_view name = text_.substr(at_ + 2, end - at_ - 3);
        at_ = end + 1;
        return addClass(name);
    }

    bool addClass(std::string_view name) {
        const auto found = std::ranges::find(characterClasses, name, &CharacterClass::name);
        if (found == characterClasses.end()) return false;
        for (int c = 0; c < 128; ++c) {
            if (found->holds(c)) set_.set(static_cast<std::size_t>(c));
        }
        return true;
    }

    void addRange(unsigned first, unsigned last) {
        for (unsigned c = first; c <= last; ++c) set_.set(c);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::bitset<256> set_;
};

}  // namespace

class GlobCompiler {
public:
    GlobCompiler(std::string_view pattern, GlobPattern& result) : pattern_(pattern), result_(result) {}

    void run() {
        while (at_ < pattern_.size() && result_.isValid_) readElement();
        for (const GlobPattern::Element& element : result_.elements_) addToEnds(element);
    }

private:
    using Kind = GlobPattern::Kind;

    void readElement() {
        switch (pattern_[at_]) {
            case '*':
                readStars();
                break;
            case '?':
                add(Kind::AnyOne), ++at_;
                break;
            case '[':
                readSet();
                break;
            case '\\':
                readEscape();
                break;
            default:
                addCharacter(pattern_[at_++]);
        }
    }

    void readStars() {
        const std::size_t begin = at_;
        at_ = std::min(pattern_.find_first_not_of('*', at_), pattern_.size());
        const std::string_view behind = pattern_.substr(at_);
        if (at_ - begin == 1 || !isBoundary(begin)) {
            add(Kind::Run);
        } else if (behind.starts_with('/')) {
            add(Kind::Directories), ++at_;
        } else {
            add(behind.empty() || behind.starts_with("\\/") ? Kind::DeepRun : Kind::Run);
        }
    }

    // Whether ** may stand for directories here: behind a slash, or where nothing but plain characters stands in front,
    // which ignore files treat in the same way.
    bool isBoundary(std::size_t place) const {
        return place == 0 || pattern_[place - 1] == '/' ||
               pattern_.substr(0, place).find_first_of("*?[\\") == std::string_view::npos;
    }

    void readSet() {
        SetReader reader(pattern_.substr(at_ + 1));
        const std::optional<GlobPattern::Set> set = reader.read();
        result_.isValid_ = set.has_value();
        if (!set) return;
        result_.elements_.push_back({Kind::OneOf, 0, static_cast<std::uint16_t>(result_.sets_.size())});
        result_.sets_.push_back(*set);
        at_ += 1 + reader.length();
    }

    void readEscape() {
        result_.isValid_ = at_ + 1 < pattern_.size();
        if (result_.isValid_) addCharacter(pattern_[at_ + 1]);
        at_ += 2;
    }

    // Directories twice are no more than once.
    void add(Kind kind) {
        std::vector<GlobPattern::Element>& elements = result_.elements_;
        if (kind == Kind::Directories && !elements.empty() && elements.back().kind == kind) return;
        elements.push_back({kind, 0, 0});
    }

    void addCharacter(char c) { result_.elements_.push_back({Kind::Character, c, 0}); }

    void addToEnds(const GlobPattern::Element& element) {
        if (element.kind == Kind::Character) {
            result_.tail_ += element.character;
            if (result_.isLiteral_) result_.head_ += element.character;
            return;
        }
        result_.tail_.clear();
        result_.isLiteral_ = false;
    }

    std::string_view pattern_;
    GlobPattern& result_;
    std::size_t at_ = 0;
};

// Patterns beyond the limit have more sets than an element can name; no ignore file has a line of that length.
GlobPattern::GlobPattern(std::string_view pattern) {
    constexpr std::size_t longest = 1 << 16;
    isValid_ = pattern.size() <= longest;
    if (isValid_) GlobCompiler(pattern, *this).run();
}

bool GlobPattern::matches(std::string_view path) const {
    if (!isValid_ || !path.starts_with(head_) || !path.ends_with(tail_)) return false;
    if (isLiteral_) return path.size() == tail_.size();
    Places places(elements_.size() + 1), next(elements_.size() + 1);
    enter(places, 0);
    for (const char c : path) {
        std::ranges::fill(next, 0);
        step(places, next, c);
        places.swap(next);
    }
    return places.back() != 0;
}

bool GlobPattern::takes(const Element& element, char c) const {
    switch (element.kind) {
        case Kind::Character:
            return c == element.character;
        case Kind::OneOf:
            return c != '/' && sets_[element.set].test(static_cast<unsigned char>(c));
        case Kind::AnyOne:
        case Kind::Run:
            return c != '/';
        default:
            return true;
    }
}

// A run may be empty, so the place behind it is reached too.
void GlobPattern::enter(Places& places, std::size_t index) const {
    places[index] = 1;
    for (; index < elements_.size() && elements_[index].kind >= Kind::Run; ++index) places[index + 1] = 1;
}

void GlobPattern::step(const Places& from, Places& to, char c) const {
    for (std::size_t index = 0; index < elements_.size(); ++index) {
        const Element& element = elements_[index];
        if (!from[index] || !takes(element, c)) continue;
        if (element.kind < Kind::Run) {
            enter(to, index + 1);
        } else if (element.kind != Kind::Directories) {
            enter(to, index);
        } else {
            // Inside a name: only a slash leads on.
            to[index] = 1;
            if (c == '/') enter(to, index + 1);
        }
    }
}

}  // namespace BrevisUI
