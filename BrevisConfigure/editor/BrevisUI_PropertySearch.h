// Finds a property of the editor by what a user knows of it. Pure functions of their arguments.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace BrevisUI {

// The help text of a key, empty if there is none. An empty function stands for no help at all.
using HelpOf = std::function<std::string(std::string_view key)>;

struct FoundProperty {
    const Brevis::PropertyInfo* property;  // never null
    std::size_t tab;                       // of the page with its control
};

// The properties with a control in which every word of `query` occurs, in either case: in the label (with those of its
// choices), the title of the page or the group, the key, or the help. Those found in label, group or title come first,
// then those by key, then those by help; within these the order of the tabs and of the catalogue. Nothing for a query
// without a word.
std::vector<FoundProperty> findProperties(std::string_view query, const HelpOf& helpOf = {});

// A label without the marks of its accelerator: "&&" as "&", a single "&" left out.
std::string plainLabel(std::string_view label);

}  // namespace BrevisUI
