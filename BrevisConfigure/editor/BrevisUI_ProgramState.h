// What the program holds while it runs: the schemes, and the settings as values. The main window owns one.
#pragma once

#include <optional>

#include "scheme/Brevis_PropertySet.h"
#include "settings/BrevisUI_Settings.h"
#include "settings/BrevisUI_SettingsFile.h"
#include "store/BrevisUI_PropertySetStore.h"

namespace BrevisUI {

struct ProgramState {
    PropertySetStore store;
    // A copy: changes of the store reach it only through the Options dialog.
    std::optional<Brevis::PropertySet> schemeInForce;
    // The member `formattingScheme` follows `schemeInForce` and is set when the settings are written.
    Settings settings;

    // Reads the settings and takes the scheme that they name into force, if the store, which has been read, has it.
    void readSettingsFrom(const SettingsFile& file);
    // Writes all settings and saves the file. Gives a warning for the user as SettingsFile::save does.
    std::string_view writeSettingsTo(SettingsFile& file);
    // Takes the scheme of this name from the store into force; none for an empty name or one that isn't there.
    void putInForce(std::string_view name);
};

}  // namespace BrevisUI
