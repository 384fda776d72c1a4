// Compares two schemes key by key. A pure function of its arguments.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

struct PropertyDifference {
    std::string key;
    std::string label;  // of the control, marks of accelerators left out; empty without a control
    std::string page;   // the title of its page, as above; empty without one
    // The two values as a user reads them: white space in the form of an entry and between double quotes, an indent as
    // "4 spaces", a flag as "on" or "off", a choice as its label. None where the key is absent.
    std::optional<std::string> first, second;
};

// The keys that only one of the schemes has or that have different values, in the order of the tabs and of the
// catalogue, behind them those without a page in the order of their bytes.
std::vector<PropertyDifference> compareSchemes(const Brevis::PropertySet& first, const Brevis::PropertySet& second);

}  // namespace BrevisUI
