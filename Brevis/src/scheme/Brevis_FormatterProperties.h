// What a format run is given: the values of a scheme, read once, and the table of region markers.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Cpp_MacroNames.h"
#include "scheme/Brevis_Scheme.h"

namespace Brevis {

// The comment markers of no-format regions: pairs of an opening and a closing marker, searched from the front.
using RegionTable = std::vector<std::pair<std::string, std::string>>;

// The table that the program uses.
const RegionTable& regionTable();

// Which dialect a text is read in. `automatic` tries the classic one first and the modern one where that refuses.
enum class DialectChoice { automatic, classic, modern };

// Which language the modern dialect takes a text for. `automatic` is C++, and C where that refuses.
enum class LanguageChoice { automatic, c, cpp };

struct Reading {
    DialectChoice dialect = DialectChoice::automatic;
    LanguageChoice language = LanguageChoice::automatic;
    bool isStrict = false;  // a text with a part that can't be read is refused
};

// Built from a scheme once; the run hands parts of it to the stages by reference.
struct FormatterProperties {
    explicit FormatterProperties(const PropertySet& properties, RegionTable table = regionTable())
        : scheme(Scheme::from(properties)), regions(std::move(table)), macros(macrosOf(scheme)) {}

    // The macros that a scheme names.
    static Cpp::MacroNames macrosOf(const Scheme& scheme);

    Scheme scheme;
    RegionTable regions;
    Cpp::MacroNames macros;
    Reading reading;
};

}  // namespace Brevis
