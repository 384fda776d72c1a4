// The runs of the engine behind the previews.
#include "editor/BrevisUI_Preview.h"

#include <utility>

#include "BrevisUI_Encoding.h"
#include "BrevisUI_Messages.h"
#include "Brevis_Formatter.h"
#include "Vellum_LineEnds.h"
#include "editor/BrevisUI_EditorMessages.h"
#include "editor/BrevisUI_TextMoves.h"

namespace BrevisUI {

namespace {

std::optional<std::int32_t> tabSizeOf(const Brevis::PropertySet& scheme) {
    std::int32_t size = 0;
    return scheme.getInt("TAB_SIZE", size) ? std::optional(size) : std::nullopt;
}

Brevis::FormatResult format(std::string_view text, const Brevis::PropertySet& scheme, Trn::ParseMessageList& messages) {
    Brevis::UpdateFunctor update;
    return Brevis::Formatter().format(Brevis::FormatterProperties(scheme), text, messages, update);
}

std::string lineOf(const std::string& name, const Trn::ParseMessage& message) {
    return parseMessageLine(name, message) + '\n';
}

}  // namespace

Preview previewOf(const StylesBasePage& page, const Brevis::PropertySet& scheme, const SampleTable& samples) {
    bool isSwitchedOff = false;
    scheme.getBool(page.doNotFormatKey(), isSwitchedOff);
    if (isSwitchedOff) return {Preview::Kind::LeftAsIs, std::string(EditorMessage::leftAsIs), {}};
    const auto sample = samples.find(page.previewName());
    if (sample == samples.end()) {
        return {Preview::Kind::NoSample, std::string(EditorMessage::noPreview), tabSizeOf(scheme)};
    }
    Trn::ParseMessageList messages;
    return {Preview::Kind::Code, format(sample->second, scheme, messages).text, tabSizeOf(scheme)};
}

OwnTextPreview previewOfOwnText(const std::string& name, std::string_view text, const Brevis::PropertySet& scheme) {
    OwnTextPreview preview;
    preview.tabSize = tabSizeOf(scheme);
    preview.given = text.substr(byteOrderMarkOf(text).size());
    Vellum::normalizeLineEnds(preview.given);
    preview.lines = countLines(preview.given);
    preview.text = preview.given;
    const Encoding encoding = encodingOf(text);
    if (encoding != Encoding::Bytes) {
        preview.message = fillIn(encoding == Encoding::Utf16 ? Message::utf16 : Message::nul, name);
        return preview;
    }
    Trn::ParseMessageList messages;
    Brevis::FormatResult result = format(preview.given, scheme, messages);
    preview.isFormatted = result.isFormatted();
    if (preview.isFormatted) {
        preview.text = std::move(result.text);
        preview.changedLines = countChangedLines(preview.given, preview.text);
    } else {
        for (const Trn::ParseMessage& message : messages) preview.message += lineOf(name, message);
    }
    return preview;
}

}  // namespace BrevisUI
