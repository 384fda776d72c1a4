// The middle part of the file job, which knows no files: runs the pipeline over one text, checks what comes out and
// tells the host why there is no result.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "BrevisUI_FormatHost.h"
#include "Brevis_Formatter.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace BrevisUI {

class TextJob {
public:
    // All must outlive the job. `path` names the text in messages.
    TextJob(FormatHost& host, const std::string& path, const Brevis::FormatterProperties& scheme)
        : host_(host), path_(path), scheme_(scheme) {}

    // Nothing once the messages of a failure have been sent. Exceptions of the pipeline pass through.
    std::optional<Brevis::FormatResult> run(const std::string& source, Brevis::UpdateFunctor& update) const;

    // Whether the host wants the tokens checked and they differ; the messages have then been sent.
    bool changesTokens(std::string_view source, std::string_view formatted) const;
    // Leaves in the text of the result only the changes that the host wants. False once the message has been sent that
    // they can't be told apart.
    bool takesChosenLines(std::string_view source, Brevis::FormatResult& result) const;

private:
    // Why such a text can't be formatted at all, or null.
    static const std::string_view* obstacleIn(std::string_view source);
    // The scheme, and how the text is read.
    Brevis::FormatterProperties properties() const;
    // Formats what stands between byte order mark and line ends.
    Brevis::FormatResult format(const Brevis::FormatterProperties& properties, const std::string& source,
                                Trn::ParseMessageList& messages, Brevis::UpdateFunctor& update) const;
    void send(const Trn::ParseMessage& message) const;

    FormatHost& host_;
    const std::string& path_;
    const Brevis::FormatterProperties& scheme_;
};

}  // namespace BrevisUI
