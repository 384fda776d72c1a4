// Opens the stores, the user's first: a name that both have means the user's scheme.
#include "Console_SchemeLibrary.h"

#include <utility>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "BrevisUI_UserPlaces.h"
#include "Console_SchemeFinder.h"
#include "settings/BrevisUI_Settings.h"
#include "store/BrevisUI_SchemeDelivery.h"

namespace Console {

SchemeLibrary::SchemeLibrary() {
    BrevisUI::SettingsFile settings(BrevisUI::userSettingsPath());
    const std::string_view warning = settings.load(BrevisUI::SettingsFile::Access::ReadOnly);
    if (!warning.empty()) remarks_.push_back({BrevisUI::Severity::warning, std::string(warning)});

    const std::string directory = BrevisUI::schemeDirectory(settings);
    // What doesn't arrive there is found in its own place below.
    BrevisUI::deliverShippedSchemes(directory);
    BrevisUI::PropertySetStore store(directory);
    for (const std::string& path : store.readSound()) {
        for (Remark& remark : loadScheme(path).remarks) remarks_.push_back(std::move(remark));
    }
    add(store, false);

    BrevisUI::PropertySetStore shipped(BrevisUI::shippedSchemeDirectory());
    shipped.readSound();
    add(shipped, true);
}

void SchemeLibrary::add(const BrevisUI::PropertySetStore& store, bool alwaysBuiltIn) {
    for (const auto& [name, entry] : store.schemes()) {
        schemes_.try_emplace(name, Scheme{store.fileOf(name), entry.builtIn || alwaysBuiltIn});
    }
}

std::string SchemeLibrary::pathOf(std::string_view name) const {
    const auto found = schemes_.find(name);
    return found == schemes_.end() ? std::string() : found->second.path;
}

GivenScheme findGivenScheme(const std::string& pathOrName) {
    if (BrevisUI::fileExists(pathOrName) && !BrevisUI::isDirectory(pathOrName)) return {pathOrName, {}};
    const SchemeLibrary library;
    if (std::string path = library.pathOf(pathOrName); !path.empty()) return {std::move(path), {}};
    // One of the files with a fault may be the one that was meant.
    GivenScheme given{pathOrName, library.remarks()};
    given.remarks.push_back(
        {BrevisUI::Severity::error, "There is no scheme of the name \"" + pathOrName +
         "\"; corvane-format --list-schemes tells those that there are."});
    return given;
}

}  // namespace Console
