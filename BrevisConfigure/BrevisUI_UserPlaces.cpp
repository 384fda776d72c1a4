// Paths from the environment, by the rules of the XDG base directories.
#include "BrevisUI_UserPlaces.h"

#include <cstdlib>
#include <filesystem>

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

// A value that isn't absolute counts as not set.
fs::path absoluteVariable(const char* name) {
    const char* value = std::getenv(name);
    return value && fs::path(value).is_absolute() ? fs::path(value) : fs::path();
}

std::string userPlace(const char* variable, const char* belowHome, const char* belowBase) {
    fs::path base = absoluteVariable(variable);
    if (base.empty()) {
        base = absoluteVariable("HOME");
        if (base.empty()) return {};
        base /= belowHome;
    }
    return (base / belowBase).lexically_normal().string();
}

bool isInside(const fs::path& path, const fs::path& directory) {
    const fs::path relative = path.lexically_relative(directory);
    return !relative.empty() && *relative.begin() != "..";
}

}  // namespace

std::string userSchemeDirectory() { return userPlace("XDG_DATA_HOME", ".local/share", "corvane/schemes/"); }

std::string userCacheDirectory() { return userPlace("XDG_CACHE_HOME", ".cache", "corvane"); }

std::string userSettingsPath() { return userPlace("XDG_CONFIG_HOME", ".config", "corvane/settings.json"); }

std::string shippedSchemeDirectory() {
    std::error_code error;
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path beside = program.parent_path() / CORVANE_DATA_FROM_BIN / "schemes/";
    // An installed tree may stand inside of a build tree.
    const bool isBuilt = isInside(program, CORVANE_BUILD_DIR) && !fs::exists(beside, ignored);
    // Without /proc nobody knows where the program is; most likely it is where it was meant to be.
    const fs::path installed = error ? fs::path(CORVANE_DATA_DIR) / "schemes/" : beside;
    const bool fromSource = isBuilt || (error && !fs::exists(installed, ignored));
    const fs::path schemes = fromSource ? fs::path(CORVANE_SOURCE_DIR) / "schemes/" : installed;
    return schemes.lexically_normal().string();
}

}  // namespace BrevisUI
