// What all stages of a format run are given: a copy of the scheme and of the table of region markers.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "scheme/Brevis_PropertySet.h"

namespace Brevis {

// The comment markers of no-format regions: pairs of an opening and a closing marker, searched from the front.
using RegionTable = std::vector<std::pair<std::string, std::string>>;

// The table that the program uses.
const RegionTable& regionTable();

struct FormatterProperties : PropertySet {
    explicit FormatterProperties(const PropertySet& scheme, RegionTable table = regionTable())
        : PropertySet(scheme), regions(std::move(table)) {}

    RegionTable regions;
};

}  // namespace Brevis
