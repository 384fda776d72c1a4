// Offsets become places in one walk over the source, since they never decrease.
#include "Console_Findings.h"

#include <algorithm>

#include "BrevisUI_Encoding.h"
#include "BrevisUI_GapWalk.h"
#include "BrevisUI_Messages.h"

namespace Console {

namespace {

struct Place {
    std::size_t line = 1, column = 1;
};

class PlaceFinder {
public:
    // A byte order mark is no character.
    explicit PlaceFinder(std::string_view text) : text_(text), offset_(BrevisUI::byteOrderMarkOf(text).size()) {}

    // Offsets must not decrease from call to call.
    Place at(std::size_t offset) {
        for (; offset_ < offset; ++offset_) {
            const auto byte = static_cast<unsigned char>(text_[offset_]);
            const bool goesOn = (byte & 0xc0) == 0x80;  // a character of UTF-8
            if (byte == '\n') {
                place_ = {place_.line + 1, 1};
            } else if (!goesOn) {
                ++place_.column;
            }
        }
        return place_;
    }

private:
    std::string_view text_;
    std::size_t offset_;
    Place place_;
};

std::string describe(const Region& region) {
    // A region that ends in front of a line's first character doesn't touch that line.
    const std::size_t last = region.endColumn == 1 ? std::max(region.line, region.endLine - 1) : region.endLine;
    if (last == region.line) return "Formatting would change the white space of this line.";
    return "Formatting would change the white space of the lines " + std::to_string(region.line) + " to " +
           std::to_string(last) + ".";
}

}  // namespace

std::vector<Finding> findLayout(std::string_view source, std::string_view formatted) {
    std::vector<Finding> findings;
    PlaceFinder places(source);
    for (const BrevisUI::Gap& gap : BrevisUI::findChangedGaps(source, formatted)) {
        const Place begin = places.at(gap.sourceBegin);
        const Place end = places.at(gap.sourceEnd);
        const Region region{begin.line, begin.column, end.line, end.column};
        const bool isNew = findings.empty() || begin.line > findings.back().region.endLine + 1;
        if (isNew) findings.push_back({Finding::Kind::Layout, region, {}, {}});
        findings.back().region.endLine = end.line;
        findings.back().region.endColumn = end.column;
        findings.back().replacements.push_back({region, std::string(gap.inFormatted(formatted))});
    }
    for (Finding& finding : findings) finding.message = describe(finding.region);
    return findings;
}

Finding findingFrom(const Trn::ParseMessage& message) {
    Finding finding;
    finding.kind = message.severity >= BrevisUI::Severity::error ? Finding::Kind::Refused : Finding::Kind::Remark;
    finding.message = message.text;
    if (message.position.line > 0) {
        const auto line = static_cast<std::size_t>(message.position.line);
        const auto column = static_cast<std::size_t>(std::max(message.position.column, 1));
        finding.region = {line, column, line, column};
    }
    return finding;
}

}  // namespace Console
