// What a scheme does to a sample of a page, or to a text of the user's. It formats and shows nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editor/BrevisUI_PreviewSamples.h"
#include "editor/BrevisUI_StylesBasePage.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

struct Preview {
    enum class Kind {
        Code,      // `text` is the formatted sample, empty if the sample can't be formatted
        LeftAsIs,  // the page is switched off, and `text` says so
        NoSample,  // the table has no sample for the page, and `text` says so
    };
    Kind kind = Kind::Code;
    std::string text;  // its lines end with line feeds
    // The width of a tab in columns that the pane is to have from now on; none: it keeps the one that it has.
    std::optional<std::int32_t> tabSize;
};

// Exceptions of the engine pass through.
Preview previewOf(const StylesBasePage& page, const Brevis::PropertySet& scheme, const SampleTable& samples);

// The same for a text of the user's, in which no page has a say. `name` is that of its file, for the messages.
struct OwnTextPreview {
    bool isFormatted = false;
    std::string given;             // without its byte order mark; its lines end with line feeds, as those of `text` do
    std::string text;              // formatted, or as `given` where it can't be formatted
    std::string message;           // why it can't be formatted, one line for each reason
    std::size_t changedLines = 0;  // lines of the given text that the formatted one doesn't have as they were
    std::size_t lines = 0;         // of the given text
    std::optional<std::int32_t> tabSize;
};
OwnTextPreview previewOfOwnText(const std::string& name, std::string_view text, const Brevis::PropertySet& scheme);

}  // namespace BrevisUI
