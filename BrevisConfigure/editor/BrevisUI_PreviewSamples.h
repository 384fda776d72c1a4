// The texts that the scheme editor formats to show what a scheme does, one for each page.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "settings/BrevisUI_SettingsFile.h"

namespace BrevisUI {

using SampleTable = std::map<std::string, std::string, std::less<>>;  // the name of a sample to its text

// The built-in text of a sample, lines ending with line feeds. Empty for a name that no page uses.
std::string_view builtInSample(std::string_view name);

// The samples of all pages as the settings have them. One that is missing there is put there from the built-in one, so
// that a user can change it; `hasNew` tells that there was one, and the caller then saves the file.
struct LoadedSamples {
    SampleTable table;
    bool hasNew = false;
};
LoadedSamples loadSamples(SettingsFile& settings);

}  // namespace BrevisUI
