// The search for scheme files.
#include "Console_SchemeFinder.h"

#include <filesystem>
#include <utility>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "scheme/Brevis_SchemeText.h"

namespace Console {

namespace {

namespace fs = std::filesystem;
namespace Severity = BrevisUI::Severity;

// A misspelt key has no effect, which is hard to see.
void remarkOnUnknownKeys(const std::string& path, LoadedScheme& loaded) {
    for (const std::string& key : loaded.scheme.keys()) {
        if (Brevis::Catalogue::isKnown(key)) continue;
        std::string text = path;
        text.append(": information: The key ").append(key).append(" is unknown.");
        loaded.remarks.push_back({Severity::information, std::move(text)});
    }
}

// A message about a line of the scheme file.
Remark remarkOf(const std::string& path, const Trn::ParseMessage& message) {
    std::string text = path;
    text.append("(").append(std::to_string(message.position.line)).append(") : ");
    text.append(message.severity == Severity::error ? "error: " : "warning: ").append(message.text);
    return {message.severity, std::move(text)};
}

void readScheme(const std::string& path, const std::string& text, LoadedScheme& loaded) {
    Trn::ParseMessageList messages;
    loaded.good = Brevis::readSchemeText(text, loaded.scheme, messages);
    for (const Trn::ParseMessage& message : messages) loaded.remarks.push_back(remarkOf(path, message));
    if (loaded.good) remarkOnUnknownKeys(path, loaded);
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

bool isInside(const fs::path& path, const fs::path& directory) {
    const fs::path relative = path.lexically_relative(directory);
    return !relative.empty() && *relative.begin() != "..";
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

std::string shippedSchemePath() {
    constexpr const char* name = "Corvane.fsc";
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path beside = program.parent_path() / CORVANE_DATA_FROM_BIN / "schemes";
    // An installed tree may stand inside of a build tree.
    const bool isBuilt = error || (isInside(program, CORVANE_BUILD_DIR) && !fs::exists(beside, error));
    const fs::path schemes = isBuilt ? fs::path(CORVANE_SOURCE_DIR) / "schemes" : beside;
    return (schemes.lexically_normal() / name).string();
}

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
