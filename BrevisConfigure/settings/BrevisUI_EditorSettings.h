// What the scheme editor keeps from one run to the next, and the font of its preview.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/BrevisUI_SettingsFile.h"

namespace BrevisUI {

// The name of the scheme that was edited last; empty for none.
std::string currentScheme(const SettingsFile& file);
void setCurrentScheme(std::string_view name, SettingsFile& file);

// The sample text of a preview. One that the file doesn't have yet is put there from `builtIn`, so that a user can
// change it; the caller saves the file.
std::string previewSample(std::string_view name, std::string_view builtIn, SettingsFile& file);

struct PreviewFont {
    std::string face = "Courier New";
    std::uint32_t size = 8;  // in points

    bool operator==(const PreviewFont&) const = default;
};

// The font that the user has chosen for source windows.
PreviewFont previewFont(const SettingsFile& file);

}  // namespace BrevisUI
