// The search for scheme files.
#include "Console_SchemeFinder.h"

#include <filesystem>
#include <utility>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "BrevisUI_UserPlaces.h"
#include "scheme/Brevis_SchemeText.h"

namespace Console {

namespace {

namespace fs = std::filesystem;
namespace Severity = BrevisUI::Severity;

// A message about a line of the scheme file.
Remark remarkOf(const std::string& path, const Trn::ParseMessage& message) {
    std::string text = path;
    text.append("(").append(std::to_string(message.position.line)).append(") : ");
    text.append(message.severity == Severity::error ? "error: " : "warning: ").append(message.text);
    return {message.severity, std::move(text)};
}

void remarkOnKeys(const std::string& path, LoadedScheme& loaded) {
    for (Remark& remark : BrevisUI::remarksOn(loaded.scheme)) {
        remark.text.insert(0, path + ": warning: ");
        loaded.remarks.push_back(std::move(remark));
    }
}

void readScheme(const std::string& path, const std::string& text, LoadedScheme& loaded) {
    Trn::ParseMessageList messages;
    loaded.good = Brevis::readSchemeText(text, loaded.scheme, messages);
    for (const Trn::ParseMessage& message : messages) loaded.remarks.push_back(remarkOf(path, message));
    if (!loaded.good) return;
    remarkOnKeys(path, loaded);
    loaded.properties = Brevis::FormatterProperties(loaded.scheme);
}

// The directory in which a search begins, the current one for an empty path. Links and dots are resolved, so that its
// parents are the real ones.
fs::path directoryOf(const std::string& file) {
    std::error_code error;
    const fs::path absolute = fs::absolute(file.empty() ? "." : file, error);
    if (error) return {};
    const fs::path directory = fs::weakly_canonical(absolute.parent_path(), error);
    return error ? absolute.parent_path().lexically_normal() : directory;
}

}  // namespace

LoadedScheme loadScheme(const std::string& path) {
    LoadedScheme loaded;
    std::string text;
    const auto fail = [&](const std::string& reason) {
        loaded.remarks.push_back({Severity::error, "The scheme file \"" + path + "\" " + reason});
    };
    if (!BrevisUI::fileExists(path)) {
        fail("cannot be found.");
    } else if (BrevisUI::isDirectory(path)) {
        fail("cannot be read: it is a directory.");
    } else if (!BrevisUI::readFile(path, text)) {
        fail("cannot be read.");
    } else {
        readScheme(path, text, loaded);
    }
    return loaded;
}

std::string shippedSchemePath() { return BrevisUI::shippedSchemeDirectory() + "Corvane.fsc"; }

std::string SchemeFinder::pathFor(const std::string& file) const {
    fs::path directory = directoryOf(file);
    while (!directory.empty()) {
        std::string candidate = (directory / fileName).string();
        if (BrevisUI::fileExists(candidate)) return candidate;
        if (directory == directory.parent_path()) break;
        directory = directory.parent_path();
    }
    return fallback_;
}

const LoadedScheme& SchemeFinder::load(const std::string& path) {
    const auto found = loaded_.find(path);
    if (found != loaded_.end()) return found->second;
    return loaded_.emplace(path, loadScheme(path)).first->second;
}

}  // namespace Console
