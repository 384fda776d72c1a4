// The rules of the Options dialog: a copy of what it edits, the check of what was entered, and the steps at its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "editor/BrevisUI_ProgramState.h"
#include "settings/BrevisUI_SettingsFile.h"
#include "store/BrevisUI_PropertySetStore.h"

namespace BrevisUI {

inline constexpr std::string_view noFormattingLabel = "<No Formatting>";
// The rows of the severities, whose indices are the thresholds.
inline constexpr std::string_view thresholdLabels[] = {"Never display", "Information or greater", "Warning or greater",
                                                       "Error or greater"};

class OptionsModel {
public:
    explicit OptionsModel(const ProgramState& state);

    // ---- What the controls hold; a window sets the members before it calls `fault` or `apply`
    std::string extensions;     // joined by blanks
    bool createBackups = true;  // the extension of backups can be entered only if this is on
    std::string backupExtension;
    std::uint32_t threshold = 1;  // above 3 stands for the row of 3

    // ---- The scheme
    // The label of "no scheme", then the names in the order of the store.
    std::vector<std::string> schemeRows() const;
    // 0 if there is no scheme in force or the store doesn't have it any more.
    std::size_t schemeRow() const;
    void chooseSchemeRow(std::size_t row);
    // Empty for no scheme.
    const std::string& schemeName() const { return schemeName_; }

    // The copy that the scheme editor gets, and what it gives back.
    const PropertySetStore& store() const { return store_; }
    void takeStore(PropertySetStore store) { store_ = std::move(store); }

    // The text of a warning if what was entered won't do, and the dialog is to stay; empty if all is well.
    std::string_view fault() const;
    // To be called at OK when there is no fault. Puts everything into the state, the schemes onto the disk and the
    // settings into their file, in this order. Gives a warning about the settings file as SettingsFile::save does, and
    // throws PropertySetStore::WriteError, with the state's store replaced but nothing else.
    std::string_view apply(ProgramState& state, SettingsFile& file) const;

private:
    PropertySetStore store_;
    std::string schemeName_;
};

}  // namespace BrevisUI
