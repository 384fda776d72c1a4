// What there is to say to the author of a scheme. It judges the scheme and changes nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

// The severity is one of BrevisUI::Severity; the text is a sentence.
struct SchemeRemark {
    int severity;
    std::string text;
};

// A remark for each key that the program doesn't know: it has no effect, which is hard to see, and is mostly misspelt.
std::vector<SchemeRemark> remarksOn(const Brevis::PropertySet& scheme);

// The known key that a user may have meant, empty if none is near. Letters count as equal in either case.
std::string_view nearestKey(std::string_view key);

}  // namespace BrevisUI
