// The commands of the "Manage Schemes" dialog, each with its questions and its steps on the store.
#include "editor/BrevisUI_StylesDlgModel.h"

#include <filesystem>
#include <sstream>
#include <utility>

#include "BrevisUI_FileReplacement.h"
#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Trn_Exception.h"
#include "editor/BrevisUI_EditorMessages.h"
#include "scheme/Brevis_SchemeText.h"
#include "settings/BrevisUI_EditorSettings.h"
#include "store/BrevisUI_NewScheme.h"
#include "store/BrevisUI_SchemeConversion.h"

namespace BrevisUI {

namespace {

std::string textOf(const Trn::ParseMessageList& messages) {
    std::string text;
    for (const Trn::ParseMessage& message : messages) {
        text += "\nLine " + std::to_string(message.position.line) + ": " + message.text;
    }
    return text;
}

}  // namespace

StylesDlgModel::StylesDlgModel(PropertySetStore store, SettingsFile& settings, EditorMemory& memory,
                               StylesDlgHost& host, StylesListener* listener)
    : store_(std::move(store)), settings_(settings), memory_(memory), host_(host) {
    LoadedSamples samples = loadSamples(settings_);
    samples_ = std::move(samples.table);
    // Whoever loaded the file has been told if it can't be written.
    if (samples.hasNew) settings_.save();
    sheet_.setActiveTab(memory_.activeTab);
    start();
    sheet_.setListener(listener);
}

void StylesDlgModel::start() {
    if (store_.schemes().empty()) store_.insert(newScheme());
    const std::string name = currentScheme(settings_);
    if (store_.count(name) > 0) {
        makeCurrent(name);
    } else {
        makeFirstCurrent();
    }
}

void StylesDlgModel::makeCurrent(std::string_view name) {
    currentName_ = name;
    sheet_.setScheme(store_.find(currentName_)->scheme);
}

void StylesDlgModel::makeFirstCurrent() {
    if (!store_.schemes().empty()) return makeCurrent(store_.schemes().begin()->first);
    currentName_.clear();
    sheet_.setScheme({});
}

std::vector<StylesDlgModel::ChooserRow> StylesDlgModel::chooserRows() const {
    std::vector<ChooserRow> rows;
    for (const auto& [name, entry] : store_.schemes()) rows.push_back({name, entry.builtIn});
    return rows;
}

bool StylesDlgModel::isBuiltIn(std::string_view name) const {
    const PropertySetStore::Entry* const entry = store_.find(name);
    return entry && entry->builtIn;
}

Brevis::PropertySet StylesDlgModel::shownScheme(std::string_view name) const {
    const PropertySetStore::Entry* const entry = store_.find(name);
    if (!entry) throw Trn::InvalidParameterException();
    return name == currentName_ ? sheet_.scheme() : entry->scheme;
}

ChangeResult StylesDlgModel::choose(std::string_view name) {
    if (store_.count(name) == 0) throw Trn::InvalidParameterException();
    if (ChangeResult refused = sheet_.fetchScheme()) return refused;
    makeCurrent(name);
    return std::nullopt;
}

// ---- Save As

std::string_view StylesDlgModel::faultOf(std::string_view name) const {
    if (name.empty()) return EditorMessage::noName;
    return isBuiltIn(name) ? EditorMessage::nameOfBuiltIn : std::string_view();
}

std::optional<std::string> StylesDlgModel::askName(std::string proposal) {
    for (;;) {
        std::optional<std::string> name = host_.askSchemeName(proposal);
        if (!name) return std::nullopt;
        const std::string_view fault = faultOf(*name);
        if (fault.empty()) return name;
        host_.showWarning(fault);
        if (!name->empty()) proposal = std::move(*name);
    }
}

void StylesDlgModel::insertAs(Brevis::PropertySet scheme, const std::string& name) {
    scheme.setName(name);
    store_.erase(name);
    store_.insert(scheme);
}

bool StylesDlgModel::saveAs() {
    const std::optional<std::string> name = askName(currentName_ + " (Modified)");
    if (!name) return false;
    insertAs(sheet_.scheme(), *name);
    if (currentName_ == newSchemeName && *name != newSchemeName) store_.erase(newSchemeName);
    currentName_ = *name;
    sheet_.schemeSaved(*name);
    return true;
}

// ---- Delete

void StylesDlgModel::deleteCurrent() {
    if (!hasCurrent()) return;
    if (isCurrentBuiltIn()) return host_.showWarning(EditorMessage::cannotDelete);
    if (!host_.askYesNo(EditorMessage::askDelete)) return;
    store_.erase(currentName_);
    makeFirstCurrent();
}

// ---- OK

bool StylesDlgModel::saveChanges() {
    if (isCurrentBuiltIn()) {
        const StylesDlgHost::Answer answer = host_.askYesNoCancel(EditorMessage::askSaveBuiltIn);
        if (answer != StylesDlgHost::Answer::Yes) return answer == StylesDlgHost::Answer::No;
        // Without a name the changes would be lost, which is not what the user has chosen.
        if (!saveAs()) return false;
    }
    insertAs(sheet_.scheme(), currentName_);
    return true;
}

StylesDlgModel::Closing StylesDlgModel::accept() {
    if (ChangeResult refused = sheet_.fetchScheme()) return {false, refused};
    if (sheet_.isModified() && hasCurrent() && !saveChanges()) return {};
    setCurrentScheme(currentName_, settings_);
    settings_.save();
    memory_.activeTab = sheet_.activeTab();
    return {true, {}};
}

// ---- Scheme files of the user's choice

bool StylesDlgModel::importScheme(const std::string& path) {
    std::string text;
    Brevis::PropertySet scheme;
    Trn::ParseMessageList messages;
    const bool isRead = readFile(path, text) && Brevis::readSchemeText(text, scheme, messages);
    if (!isRead) {
        host_.showWarning(fillIn(EditorMessage::notImported, path) + textOf(messages));
        return false;
    }
    if (isOldScheme(scheme)) convertOldScheme(scheme);
    std::string name = scheme.name();
    if (name.empty() || store_.count(name) > 0) {
        const std::string proposal = name.empty() ? std::filesystem::path(path).stem().string() : name;
        const std::optional<std::string> chosen = askName(proposal);
        if (!chosen) return false;
        name = *chosen;
    }
    insertAs(std::move(scheme), name);
    makeCurrent(name);
    if (!messages.empty()) host_.showWarning(fillIn(EditorMessage::importedInPart, path) + textOf(messages));
    return true;
}

bool StylesDlgModel::exportScheme(const std::string& path) {
    std::ostringstream out;
    sheet_.scheme().write(out);
    const bool isProtected = fileExists(path) && !fileIsWritable(path);
    if (!isProtected && replaceFile(path, out.str())) return true;
    host_.showWarning(fillIn(EditorMessage::notExported, path));
    return false;
}

}  // namespace BrevisUI
