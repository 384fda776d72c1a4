// From a scheme of the first edition of the rules to the one of the second that comes nearest to it.
#pragma once

#include <string>
#include <vector>

#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

struct SchemeUpgrade {
    Brevis::PropertySet scheme;
    std::vector<std::string> differences;  // sentences: what comes out otherwise all the same
};

bool isOfSecondEdition(const Brevis::PropertySet& scheme);

// `scheme` must be one of the first edition.
SchemeUpgrade upgradeScheme(const Brevis::PropertySet& scheme);

}  // namespace BrevisUI
