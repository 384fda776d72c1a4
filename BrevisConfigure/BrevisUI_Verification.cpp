// The two checks and their words.
#include "BrevisUI_Verification.h"

#include <algorithm>
#include <exception>
#include <sstream>
#include <utility>

#include "BrevisUI_Messages.h"
#include "Brevis_Formatter.h"
#include "Trn_Exception.h"
#include "Vellum_LineEnds.h"
#include "guard/Brevis_TokenDifference.h"

namespace BrevisUI {

namespace {

std::string withLineFeeds(std::string_view text) {
    std::string normalised(text);
    Vellum::normalizeLineEnds(normalised);
    return normalised;
}

// A text without carriage returns, as most are, is not copied.
class LineFeedText {
public:
    explicit LineFeedText(std::string_view text) : text_(text) {
        if (text.find('\r') != std::string_view::npos) text_ = copy_ = withLineFeeds(text);
    }
    LineFeedText(const LineFeedText&) = delete;
    LineFeedText& operator=(const LineFeedText&) = delete;

    std::string_view text() const { return text_; }

private:
    std::string copy_;
    std::string_view text_;
};

// Leaves out a last character of UTF-8 of which only the first bytes are there.
std::string_view wholeCharacters(std::string_view text) {
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    std::size_t behindLead = text.size();
    while (behindLead > 0 && (byteAt(behindLead - 1) & 0xc0) == 0x80) --behindLead;
    if (behindLead == 0) return text;
    const unsigned char lead = byteAt(behindLead - 1);
    const std::size_t following = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : lead >= 0xc0 ? 1 : 0;
    return text.size() - behindLead < following ? text.substr(0, behindLead - 1) : text;
}

// One line for a stretch that may hold several and break off anywhere; a carriage return must not move a terminal's
// cursor.
std::string shownText(std::string_view text) {
    constexpr std::string_view common = "\t\n\r", letters = "tnr", hexDigits = "0123456789abcdef";
    std::string result = "\"";
    for (const char character : wholeCharacters(text)) {
        const auto byte = static_cast<unsigned char>(character);
        if (const std::size_t index = common.find(character); index != std::string_view::npos) {
            result.append({'\\', letters[index]});
        } else if (byte < 0x20 || byte == 0x7f) {
            result.append({'\\', 'x', hexDigits[byte >> 4], hexDigits[byte & 15]});
        } else {
            result += character;
        }
    }
    return result += '"';
}

std::string nameOf(const std::string& token) { return token.empty() ? "the end of the file" : shownText(token); }

std::string describe(const Brevis::TokenDifference& difference) {
    const std::string before = nameOf(difference.before);
    const std::string after = nameOf(difference.after);
    // What is shown may be the same: the token is long, or has come into a directive or out of one.
    if (before == after) return "Formatting would not leave " + before + " what it is.";
    return "Formatting would change the code: " + before + " stands here, " + after + " would take its place.";
}

std::string_view lineAt(std::string_view text, std::size_t begin) {
    constexpr std::size_t enough = 60;
    return text.substr(begin, std::min(enough, text.find('\n', begin) - begin));
}

std::optional<Trn::ParseMessage> findOtherLine(std::string_view text, std::string_view other) {
    if (text == other) return std::nullopt;
    const auto place = std::mismatch(text.begin(), text.end(), other.begin(), other.end()).first;
    const auto offset = static_cast<std::size_t>(place - text.begin());
    const std::size_t lineBegin = text.substr(0, offset).rfind('\n') + 1;
    const Trn::Position position{static_cast<std::int32_t>(1 + std::count(text.begin(), place, '\n')),
                                 static_cast<std::int32_t>(1 + offset - lineBegin)};
    return Trn::ParseMessage{Severity::warning, position, 0,
                             "Another run would change this line of the result: " + shownText(lineAt(text, lineBegin))};
}

std::optional<Trn::ParseMessage> refusedAgain(const Trn::Position& place, const std::string& reason) {
    return Trn::ParseMessage{Severity::warning, place, 0, "Another run would refuse the result: " + reason};
}

}  // namespace

std::optional<Trn::ParseMessage> findChangedToken(std::string_view source, std::string_view formatted) {
    const LineFeedText before(source), after(formatted);
    const auto difference = Brevis::findTokenDifference(before.text(), after.text());
    if (!difference) return std::nullopt;
    return Trn::ParseMessage{Severity::error, difference->place, 0, describe(*difference)};
}

std::optional<Trn::ParseMessage> findSecondChange(const Brevis::FormatterProperties& properties,
                                                  const std::string& formatted) {
    Trn::ParseMessageList messages;
    Brevis::UpdateFunctor neverCancels;
    try {
        const Brevis::FormatResult second = Brevis::Formatter().format(properties, formatted, messages, neverCancels);
        if (!second.isFormatted()) return refusedAgain(messages.front().position, messages.front().text);
        return findOtherLine(withLineFeeds(formatted), second.text);
    } catch (const std::exception& exception) {
        return refusedAgain({}, exception.what());
    }
}

}  // namespace BrevisUI
