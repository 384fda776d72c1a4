// Both texts hold the same characters but for white space. So the number of characters in front of a line end, white
// space left out, is its place in both; places never decrease, and one walk over both texts pairs the ends.
#include "BrevisUI_LineEnds.h"

#include <array>
#include <cstddef>
#include <utility>

#include "Vellum_WhiteSpace.h"

namespace BrevisUI {

namespace {

constexpr std::string_view lineFeed = "\n";
constexpr std::string_view carriageReturn = "\r";
constexpr std::string_view both = "\r\n";

// Goes over a text from line end to line end.
class EndReader {
public:
    explicit EndReader(std::string_view text) : text_(text) {}

    // Moves behind the next line end. False at the end of the text.
    bool next() {
        for (; position_ < text_.size(); ++position_) {
            const char character = text_[position_];
            if (character == '\n' || character == '\r') return take();
            if (!Vellum::isSpace(character)) ++place_;
        }
        return false;
    }

    std::string_view end() const { return end_; }
    std::size_t place() const { return place_; }
    std::size_t position() const { return position_; }

private:
    bool take() {
        end_ = text_[position_] == '\n' ? lineFeed : carriageReturn;
        if (text_.substr(position_, both.size()) == both) end_ = both;
        position_ += end_.size();
        return true;
    }

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t place_ = 0;
    std::string_view end_;
};

std::string_view mostFrequentEnd(std::string_view text) {
    struct Count {
        std::string_view end;
        std::size_t count;
    };
    std::array<Count, 3> counts{{{lineFeed, 0}, {both, 0}, {carriageReturn, 0}}};
    for (EndReader reader(text); reader.next();) {
        for (Count& count : counts) count.count += count.end == reader.end() ? 1 : 0;
    }
    const Count* most = counts.data();
    for (const Count& count : counts) most = count.count > most->count ? &count : most;
    return most->end;
}

// Gives the ends of the result, one after the other.
class EndFinder {
public:
    explicit EndFinder(std::string_view source) : usual_(mostFrequentEnd(source)), source_(source) {
        more_ = source_.next();
    }

    // The end of the line that ends at `place`; of several there, the first takes the first.
    std::string_view at(std::size_t place) {
        while (more_ && source_.place() < place) more_ = source_.next();
        if (!more_ || source_.place() != place) return usual_;
        const std::string_view end = source_.end();
        more_ = source_.next();
        return end;
    }

private:
    std::string_view usual_;
    EndReader source_;
    bool more_ = false;
};

template <class ChooseEnd>
std::string replaceEnds(std::string_view text, ChooseEnd chooseEnd) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    std::size_t copied = 0;
    for (EndReader reader(text); reader.next(); copied = reader.position()) {
        result.append(text.substr(copied, reader.position() - reader.end().size() - copied));
        const std::string_view end = chooseEnd(reader.place());
        // Together they would be the end of one line.
        const bool merges = end == lineFeed && result.ends_with(carriageReturn);
        result.append(merges ? both : end);
    }
    return result.append(text.substr(copied));
}

}  // namespace

std::string LineEnds::restore(std::string_view source, std::string formatted, LineEndMode mode) {
    if (mode == LineEndMode::CarriageReturnLineFeed) return replaceEnds(formatted, [](std::size_t) { return both; });
    // Line feeds are the line ends of this platform.
    if (mode != LineEndMode::Keep || source.find('\r') == std::string_view::npos) return formatted;
    EndFinder finder(source);
    return replaceEnds(formatted, [&](std::size_t place) { return finder.at(place); });
}

}  // namespace BrevisUI
