// Every text about the settings that is shown to a user, none with a subject.
#pragma once

#include <string_view>

namespace BrevisUI::SettingsMessage {

// Warnings. The settings file and its object of options go by the names of the place where they were kept before.
inline constexpr std::string_view noFile =
    "Could not open application registry key. Any options you set during this session will not be saved.";
inline constexpr std::string_view noOptions =
    "Failed to create registry settings. Any options you set during this session will not be saved.";

inline constexpr std::string_view badExtension =
    "Error: Invalid file extension entered. File extensions may not contain any of the following characters: "
    "\"<>:\\/|?\"";

}  // namespace BrevisUI::SettingsMessage
