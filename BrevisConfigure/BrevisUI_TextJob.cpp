// One run of the pipeline and the checks behind it.
#include "BrevisUI_TextJob.h"

#include <utility>

#include "BrevisUI_ChosenLines.h"
#include "BrevisUI_Encoding.h"
#include "BrevisUI_Messages.h"
#include "BrevisUI_Verification.h"

namespace BrevisUI {

std::optional<Brevis::FormatResult> TextJob::run(const std::string& source, Brevis::UpdateFunctor& update) const {
    if (const std::string_view* const obstacle = obstacleIn(source)) {
        update(Phase::refuse);
        host_.send(fillIn(*obstacle, path_), Severity::error);
        return std::nullopt;
    }
    Trn::ParseMessageList messages;
    const Brevis::FormatterProperties properties = this->properties();
    Brevis::FormatResult result = format(properties, source, messages, update);
    if (!result.isFormatted()) {
        // A cancel inside the pipeline ends here as well as a syntax error does.
        update(Phase::refuse);
        for (const Trn::ParseMessage& message : messages) send(message);
        host_.send(parseFailedMessage(path_), Severity::error);
        return std::nullopt;
    }
    for (const Trn::ParseMessage& message : messages) send(message);
    std::optional<Trn::ParseMessage> warning;
    if (host_.verifyStability()) warning = findSecondChange(properties, result.text);
    if (!takesChosenLines(source, result) || changesTokens(source, result.text)) {
        update(Phase::refuse);
        return std::nullopt;
    }
    if (warning) send(*warning);
    return result;
}

const std::string_view* TextJob::obstacleIn(std::string_view source) {
    const Encoding encoding = encodingOf(source);
    if (encoding == Encoding::Utf16) return &Message::utf16;
    return encoding == Encoding::Nul ? &Message::nul : nullptr;
}

Brevis::FormatterProperties TextJob::properties() const {
    Brevis::FormatterProperties properties = scheme_;
    properties.reading = host_.reading();
    if (properties.reading.language == Brevis::LanguageChoice::automatic && path_.ends_with(".c")) {
        properties.reading.language = Brevis::LanguageChoice::c;
    }
    return properties;
}

Brevis::FormatResult TextJob::format(const Brevis::FormatterProperties& properties, const std::string& source,
                                     Trn::ParseMessageList& messages, Brevis::UpdateFunctor& update) const {
    const std::string_view mark = byteOrderMarkOf(source);
    Brevis::FormatResult result =
        Brevis::Formatter().format(properties, std::string_view(source).substr(mark.size()), messages, update);
    result.text = LineEnds::restore(source, mark.empty() ? std::move(result.text) : std::string(mark) + result.text,
                                    host_.lineEnds());
    return result;
}

void TextJob::send(const Trn::ParseMessage& message) const { host_.sendPlaced(path_, message); }

bool TextJob::takesChosenLines(std::string_view source, Brevis::FormatResult& result) const {
    const LineSet* const lines = host_.chosenLines(path_);
    if (!lines) return true;
    const GapChanges changes = result.hasFreeGaps ? GapChanges::Free : GapChanges::Related;
    std::optional<std::string> chosen = takeChosenLines(source, result.text, *lines, changes);
    if (!chosen) {
        host_.send(fillIn(Message::codeChanged, path_), Severity::error);
        return false;
    }
    result.text = std::move(*chosen);
    return true;
}

bool TextJob::changesTokens(std::string_view source, std::string_view formatted) const {
    if (!host_.verifyTokens() && !host_.chosenLines(path_)) return false;
    const auto change = findChangedToken(source, formatted);
    if (!change) return false;
    send(*change);
    host_.send(fillIn(Message::codeChanged, path_), Severity::error);
    return true;
}

}  // namespace BrevisUI
