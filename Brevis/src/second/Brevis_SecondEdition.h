// The second edition of the rules: a text is its tokens and the gaps between them, and formatting it is one decision
// for each gap. It knows no files, no user interface and no other edition.
#pragma once

#include <string_view>

#include "Trn_ParseMessage.h"
#include "run/Brevis_FormatResult.h"
#include "run/Brevis_UpdateFunctor.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

class GapTable;
class GapText;

// Whoever wants to know more of a run than its result.
class GapObserver {
public:
    virtual ~GapObserver() = default;

    // At the end of a run: the text with its decisions, what the writer made of them, and what the guard left of that.
    // `scheme` is that of the decisions, with the tab size by which the text was laid out.
    virtual void observe(const GapText& text, const Scheme& scheme, const GapTable& gaps, std::string_view written,
                         std::string_view result) = 0;
};

// An instance may be used any number of times.
class SecondEdition {
public:
    // `observer` may be null, and must outlive this.
    explicit SecondEdition(GapObserver* observer = nullptr) : observer_(observer) {}

    // Formats `source`, which has line feeds for line ends; so has the result. Messages are appended to those that are
    // there. Exceptions of the stages pass through.
    FormatResult format(const FormatterProperties& properties, std::string_view source, Trn::ParseMessageList& messages,
                        UpdateFunctor& update) const;

private:
    GapObserver* observer_;
};

}  // namespace Brevis
