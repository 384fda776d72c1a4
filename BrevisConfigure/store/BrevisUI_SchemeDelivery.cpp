// The delivery of scheme files, by the rules of the header.
#include "store/BrevisUI_SchemeDelivery.h"

#include <filesystem>
#include <optional>
#include <sstream>

#include "BrevisUI_FileReplacement.h"
#include "BrevisUI_Files.h"
#include "BrevisUI_UserPlaces.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "store/BrevisUI_PropertySetStore.h"

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

constexpr const char* recordDirectory = ".delivered";
constexpr const char* versionFile = "version";

std::optional<std::string> contentsOf(const fs::path& path) {
    std::string text;
    if (!readFile(path.string(), text)) return std::nullopt;
    return text;
}

bool isMissing(const fs::path& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() == fs::file_type::not_found;
}

// The numbers of a version, which compare as versions do.
std::vector<int> versionNumbers(std::string_view version) {
    std::istringstream in{std::string(version)};
    std::vector<int> numbers;
    for (int number = 0; in >> number; in.ignore()) numbers.push_back(number);
    return numbers;
}

class Delivery {
public:
    Delivery(const std::string& from, const std::string& to, std::string_view version)
        : from_(from), to_(to), record_(to_ / recordDirectory), version_(version), source_(from), target_(to) {}

    std::vector<std::string> run();

private:
    bool isOutdated() const;
    // Does whatever is to be done about the file of a scheme; false if that failed.
    bool deliver(const std::string& scheme, const std::string& file) const;
    bool mayArrive(const std::string& scheme, const std::string& file) const;
    bool isUntouched(const std::string& file, const std::string& copy) const;
    bool put(const std::string& file, const std::string& text) const;
    bool keepRecord(const std::string& file, const std::string& text) const;

    fs::path from_;
    fs::path to_;
    fs::path record_;
    std::string_view version_;
    PropertySetStore source_;
    PropertySetStore target_;
};

std::vector<std::string> Delivery::run() {
    std::vector<std::string> failed;
    if (isOutdated()) return failed;
    source_.readSound();
    target_.readSound();
    for (const auto& [name, entry] : source_.schemes()) {
        const std::string file = fs::path(source_.fileOf(name)).filename().string();
        if (!deliver(name, file)) failed.push_back((to_ / file).string());
    }
    if (failed.empty() && contentsOf(record_ / versionFile) != version_) keepRecord(versionFile, std::string(version_));
    return failed;
}

bool Delivery::isOutdated() const {
    return versionNumbers(contentsOf(record_ / versionFile).value_or("")) > versionNumbers(version_);
}

bool Delivery::deliver(const std::string& scheme, const std::string& file) const {
    const std::optional<std::string> text = contentsOf(from_ / file);
    if (!text) return false;
    const std::optional<std::string> copy = contentsOf(record_ / file);
    if (copy == text) return true;
    // An earlier run was stopped before it could note what it had done.
    if (isUntouched(file, *text)) return keepRecord(file, *text);
    const bool isWanted = copy ? isUntouched(file, *copy) : mayArrive(scheme, file);
    return !isWanted || put(file, *text);
}

bool Delivery::mayArrive(const std::string& scheme, const std::string& file) const {
    return isMissing(to_ / file) && target_.count(scheme) == 0;
}

bool Delivery::isUntouched(const std::string& file, const std::string& copy) const {
    const std::string path = (to_ / file).string();
    return !fileIsWritable(path) && contentsOf(path) == copy;
}

bool Delivery::put(const std::string& file, const std::string& text) const {
    std::error_code error;
    fs::create_directories(to_, error);
    return replaceFile((to_ / file).string(), text, Protection::WriteProtected) && keepRecord(file, text);
}

bool Delivery::keepRecord(const std::string& file, const std::string& text) const {
    std::error_code error;
    fs::create_directories(record_, error);
    return replaceFile((record_ / file).string(), text);
}

}  // namespace

std::vector<std::string> deliverSchemes(const std::string& from, const std::string& to, std::string_view version) {
    return Delivery(from, to, version).run();
}

std::vector<std::string> deliverShippedSchemes(const std::string& directory) {
    const bool isDefault = !directory.empty() && fs::path(directory) / "" == fs::path(userSchemeDirectory()) / "";
    if (!isDefault) return {};
    return deliverSchemes(shippedSchemeDirectory(), directory, Brevis::schemeVersion);
}

}  // namespace BrevisUI
