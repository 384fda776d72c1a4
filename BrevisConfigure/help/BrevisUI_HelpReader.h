// Reads the sources of the property help; BrevisUI_HelpText.h tells their form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "help/BrevisUI_HelpText.h"

namespace BrevisUI {

// The properties of one source. `name` is that of the source, for the faults that are appended.
std::vector<PropertyHelp> readPropertyHelp(std::string_view name, std::string_view text,
                                           std::vector<std::string>& faults);

}  // namespace BrevisUI
