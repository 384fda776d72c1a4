// Tells people why the lines of a text would change: the line, what changes in it, the property that decides so with
// its value, and where that value stands.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "scheme/Brevis_PropertySet.h"
#include "second/Brevis_GapReport.h"

namespace Console {

// A scheme with the places of its properties in its file.
class ExplainedScheme {
public:
    // `text` is that of the scheme file at `path`, which must be a good one.
    ExplainedScheme(std::string path, const std::string& text);

    // A sentence without a stop: the key, its value, and where the value comes from.
    std::string describe(const Brevis::PropertyInfo& property) const;

private:
    std::string path_;
    Brevis::PropertySet scheme_;
    std::map<std::string, int, std::less<>> lines_;  // by type and key
};

// The explanation of some changes of a text, by lines. `name` is that of the text.
std::string explainChanges(const ExplainedScheme& scheme, const std::string& name, std::string_view source,
                           const std::vector<Brevis::GapChange>& changes);

// Those changes that a line takes part in.
std::vector<Brevis::GapChange> changesOfLine(const std::vector<Brevis::GapChange>& changes, std::size_t line);

// In words: "nothing", "a line feed and 4 blanks".
std::string describeWhiteSpace(std::string_view space);

}  // namespace Console
