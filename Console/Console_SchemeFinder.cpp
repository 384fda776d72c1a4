// The search for scheme files and the words for bad ones.
#include "Console_SchemeFinder.h"

#include <filesystem>
#include <sstream>
#include <utility>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "scheme/Brevis_SchemeReader.h"

namespace Console {

namespace {

namespace fs = std::filesystem;
namespace Severity = BrevisUI::Severity;
using Brevis::SchemeReader;

std::string atLine(const std::string& path, int line, std::string_view severity, std::string_view text) {
    std::string place = path;
    return place.append("(").append(std::to_string(line)).append(") : ").append(severity).append(": ").append(text);
}

std::string describe(SchemeReader::Fault fault) {
    switch (fault) {
        case SchemeReader::Fault::Magic:
            return "This is no scheme file: it doesn't begin with the line \"Brevis::PropertySet\".";
        case SchemeReader::Fault::Version:
            return "Expected the format version 1 in a line of its own.";
        case SchemeReader::Fault::Type:
            return "Expected a property, which begins with the type 1, 2 or 3.";
        default:
            return "The scheme file cannot be read.";
    }
}

std::string describe(SchemeReader::Omission omission) {
    switch (omission) {
        case SchemeReader::Omission::NoLineFeed:
            return "The property is left out: the last line of a scheme file needs a line feed.";
        default:
            return "The property is left out: its value doesn't fit its type.";
    }
}

void remarkOnOmissions(const std::string& path, const SchemeReader& reader, LoadedScheme& loaded) {
    for (const SchemeReader::OmittedLine& omitted : reader.omissions()) {
        loaded.remarks.push_back({Severity::warning, atLine(path, omitted.line, "warning", describe(omitted.why))});
    }
}

// A misspelt key has no effect, which is hard to see.
void remarkOnUnknownKeys(const std::string& path, LoadedScheme& loaded) {
    for (const std::string& key : loaded.scheme.keys()) {
        if (Brevis::Catalogue::isKnown(key)) continue;
        std::string text = path;
        text.append(": information: The key ").append(key).append(" is unknown.");
        loaded.remarks.push_back({Severity::information, std::move(text)});
    }
}

void readScheme(const std::string& path, const std::string& text, LoadedScheme& loaded) {
    std::istringstream in(text);
    SchemeReader reader(in);
    std::string complaint;
    try {
        loaded.good = reader.read(loaded.scheme);
        if (!loaded.good) complaint = describe(reader.fault());
    } catch (const Trn::Exception&) {
        complaint = "Expected a key behind the type 3.";
    }
    if (loaded.good) {
        remarkOnOmissions(path, reader, loaded);
        remarkOnUnknownKeys(path, loaded);
    } else {
        loaded.remarks.push_back({Severity::error, atLine(path, reader.line(), "error", complaint)});
    }
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
    const bool installed = !error && !isInside(program, CORVANE_BUILD_DIR);
    const fs::path schemes = installed ? program.parent_path() / CORVANE_DATA_FROM_BIN / "schemes"
                                       : fs::path(CORVANE_SOURCE_DIR) / "schemes";
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
