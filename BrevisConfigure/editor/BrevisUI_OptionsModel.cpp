// What the Options dialog edits, and its steps at OK in their order.
#include "editor/BrevisUI_OptionsModel.h"

#include <algorithm>
#include <iterator>

#include "settings/BrevisUI_Extensions.h"
#include "settings/BrevisUI_SettingsMessages.h"

namespace BrevisUI {

OptionsModel::OptionsModel(const ProgramState& state)
    : extensions(joinExtensions(state.settings.fileExtensions)),
      createBackups(state.settings.createBackups),
      backupExtension(state.settings.backupExtension),
      threshold(state.settings.messagesThreshold),
      store_(state.store),
      schemeName_(state.schemeInForce ? state.schemeInForce->name() : "") {}

std::vector<std::string> OptionsModel::schemeRows() const {
    std::vector<std::string> rows = {std::string(noFormattingLabel)};
    for (const auto& [name, entry] : store_.schemes()) rows.push_back(name);
    return rows;
}

std::size_t OptionsModel::schemeRow() const {
    const auto found = store_.schemes().find(schemeName_);
    if (schemeName_.empty() || found == store_.schemes().end()) return 0;
    return 1 + static_cast<std::size_t>(std::distance(store_.schemes().begin(), found));
}

void OptionsModel::chooseSchemeRow(std::size_t row) { schemeName_ = row == 0 ? "" : schemeRows().at(row); }

std::string_view OptionsModel::fault() const {
    const bool areGood = std::ranges::all_of(parseExtensions(extensions), isValidExtension);
    return areGood && isValidExtension(backupExtension) ? std::string_view() : SettingsMessage::badExtension;
}

std::string_view OptionsModel::apply(ProgramState& state, SettingsFile& file) const {
    const std::string directory = state.store.path();
    state.store = store_;
    state.store.setPath(directory);
    state.store.write();
    state.putInForce(schemeName_);
    state.settings.fileExtensions = parseExtensions(extensions);
    state.settings.createBackups = createBackups;
    state.settings.backupExtension = bareExtension(backupExtension);
    state.settings.messagesThreshold = threshold;
    return state.writeSettingsTo(file);
}

}  // namespace BrevisUI
