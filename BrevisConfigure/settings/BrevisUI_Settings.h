// The settings of the program as values, with their defaults and their names in the settings file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "scheme/Brevis_FormatterProperties.h"
#include "settings/BrevisUI_SettingsFile.h"

namespace BrevisUI {

struct WindowPosition {
    int left = 0, top = 0, right = 0, bottom = 0;

    bool operator==(const WindowPosition&) const = default;
};

struct Settings {
    Settings();

    std::optional<WindowPosition> windowPosition;  // none: where the system puts the window
    std::string formattingScheme;                  // a name, empty for none; the store may not have it
    std::vector<std::string> fileExtensions;       // of C and C++ source, without dots
    std::string backupExtension = "bak";
    bool createBackups = true;
    std::uint32_t messagesThreshold = 1;  // 0: show none; above 3: show all
    std::string lastDirectory;
    // How C and C++ are read. No dialog sets it, so it is never written.
    Brevis::DialectChoice dialect = Brevis::DialectChoice::automatic;

    bool operator==(const Settings&) const = default;
};

// A value that is missing or can't be read has its default.
Settings readSettings(const SettingsFile& file);
// Sets all values; the caller saves the file.
void writeSettings(const Settings& settings, SettingsFile& file);

// The directory of the schemes: the one that the settings name, or else the user's own.
std::string schemeDirectory(const SettingsFile& file);
// The same, and writes the user's own back into the file where none was named.
std::string settledSchemeDirectory(SettingsFile& file);

}  // namespace BrevisUI
