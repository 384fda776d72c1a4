// The scheme in force, and its name in the settings.
#include "editor/BrevisUI_ProgramState.h"

namespace BrevisUI {

void ProgramState::readSettingsFrom(const SettingsFile& file) {
    settings = readSettings(file);
    putInForce(settings.formattingScheme);
}

std::string_view ProgramState::writeSettingsTo(SettingsFile& file) {
    settings.formattingScheme = schemeInForce ? schemeInForce->name() : "";
    writeSettings(settings, file);
    return file.save();
}

void ProgramState::putInForce(std::string_view name) {
    const PropertySetStore::Entry* const entry = name.empty() ? nullptr : store.find(name);
    schemeInForce = entry ? std::optional(entry->scheme) : std::nullopt;
}

}  // namespace BrevisUI
