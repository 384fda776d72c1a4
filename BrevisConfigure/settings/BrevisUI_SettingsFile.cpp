// The settings as a JSON file: the application's values at the top, those of other sections in an object of their own.
// The only place that sees the JSON library.
#include "settings/BrevisUI_SettingsFile.h"

#include <filesystem>
#include <limits>
#include <nlohmann/json.hpp>
#include <vector>

#include "BrevisUI_FileReplacement.h"
#include "BrevisUI_Files.h"
#include "settings/BrevisUI_SettingsMessages.h"

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;
using OrderedJson = nlohmann::ordered_json;

// Paths and names of schemes may hold bytes that are no UTF-8, which no JSON text can. Such a value is an object with
// its bytes in hexadecimal digits.
constexpr const char* bytesKey = "bytes";
constexpr std::string_view digits = "0123456789abcdef";

// A file of ours has two levels. Many more come from no honest hand, and not every step could take any number.
constexpr int deepest = 64;

constexpr int indentWidth = 4;

// The name of the object, null for the top of the file.
const char* objectName(SettingsFile::Section section) {
    switch (section) {
        case SettingsFile::Section::Options:
            return "Options";
        case SettingsFile::Section::SourceWindow:
            return "SourceWindow";
        default:
            return nullptr;
    }
}

bool isUtf8(const std::string& text) {
    try {
        return !OrderedJson(text).dump().empty();
    } catch (const OrderedJson::type_error&) {
        return false;
    }
}

OrderedJson encoded(std::string_view value) {
    std::string text(value);
    if (isUtf8(text)) return text;
    std::string hexadecimal;
    for (const unsigned char c : text) {
        hexadecimal += digits[c >> 4];
        hexadecimal += digits[c & 0xF];
    }
    return {{bytesKey, hexadecimal}};
}

std::optional<std::string> bytesOf(const std::string& hexadecimal) {
    if (hexadecimal.size() % 2 != 0 || hexadecimal.find_first_not_of(digits) != std::string::npos) return std::nullopt;
    std::string text;
    for (std::size_t i = 0; i < hexadecimal.size(); i += 2) {
        text += static_cast<char>(digits.find(hexadecimal[i]) << 4 | digits.find(hexadecimal[i + 1]));
    }
    return text;
}

std::optional<std::string> decoded(const OrderedJson& value) {
    if (value.is_string()) return value.get<std::string>();
    const auto bytes = value.is_object() ? value.find(bytesKey) : value.end();
    if (bytes == value.end() || !bytes->is_string()) return std::nullopt;
    return bytesOf(bytes->get<std::string>());
}

// Nothing for a text that is no object. A file without anything in it is one without values.
std::optional<OrderedJson> parse(const std::string& text) {
    if (text.find_first_not_of(" \t\r\n") == std::string::npos) return OrderedJson::object();
    bool isTooDeep = false;
    const auto watchDepth = [&](int depth, OrderedJson::parse_event_t, const OrderedJson&) {
        isTooDeep = isTooDeep || depth > deepest;
        return !isTooDeep;
    };
    OrderedJson json = OrderedJson::parse(text, watchDepth, false);
    if (isTooDeep || !json.is_object()) return std::nullopt;
    return json;
}

// What the file holds, nothing if it is broken or can't be read.
std::optional<OrderedJson> read(const std::string& path) {
    if (!fileExists(path)) return OrderedJson::object();
    std::string text;
    if (isDirectory(path) || !readFile(path, text)) return std::nullopt;
    return parse(text);
}

// Whether the file can be replaced, for which its directory is made if need be.
bool canBeWritten(const std::string& path) {
    if (path.empty() || (fileExists(path) && !fileIsWritable(path))) return false;
    const std::string directory = fs::path(path).parent_path().string();
    std::error_code error;
    fs::create_directories(directory, error);
    return isDirectory(directory) && fileIsWritable(directory);
}

// The object of a section, null if it is missing or something else stands in its place.
const OrderedJson* find(const OrderedJson& root, SettingsFile::Section section) {
    const char* name = objectName(section);
    if (!name) return &root;
    const auto found = root.find(name);
    return found != root.end() && found->is_object() ? &*found : nullptr;
}

OrderedJson& findOrMake(OrderedJson& root, SettingsFile::Section section) {
    const char* name = objectName(section);
    if (!name) return root;
    OrderedJson& object = root[name];
    if (!object.is_object()) object = OrderedJson::object();
    return object;
}

bool isBlocked(const OrderedJson& root, SettingsFile::Section section) {
    return root.contains(objectName(section)) && !find(root, section);
}

}  // namespace

struct SettingsFile::Document {
    struct Change {
        Section section;
        std::string name;
        OrderedJson value;
    };

    OrderedJson values = OrderedJson::object();  // what readers see
    std::vector<Change> changes;                 // what isn't in the file yet

    const OrderedJson* find(Section section, std::string_view name) const {
        const OrderedJson* object = BrevisUI::find(values, section);
        if (!object) return nullptr;
        const auto found = object->find(std::string(name));
        return found == object->end() ? nullptr : &*found;
    }

    void set(Change change) {
        apply(change, values);
        changes.push_back(std::move(change));
    }

    static void apply(const Change& change, OrderedJson& root) {
        findOrMake(root, change.section)[change.name] = change.value;
    }
};

SettingsFile::SettingsFile(std::string path) : path_(std::move(path)), document_(std::make_unique<Document>()) {}
SettingsFile::~SettingsFile() = default;
SettingsFile::SettingsFile(SettingsFile&&) noexcept = default;
SettingsFile& SettingsFile::operator=(SettingsFile&&) noexcept = default;

std::string_view SettingsFile::load(Access access) {
    *document_ = {};
    std::optional<OrderedJson> json = read(path_);
    if (!json || (access == Access::Full && !canBeWritten(path_))) return SettingsMessage::noFile;
    document_->values = std::move(*json);
    return isBlocked(document_->values, Section::Options) ? SettingsMessage::noOptions : std::string_view();
}

std::optional<std::string> SettingsFile::text(Section section, std::string_view name) const {
    const OrderedJson* value = document_->find(section, name);
    return value ? decoded(*value) : std::nullopt;
}

// A hand may well write true and false.
std::optional<std::uint32_t> SettingsFile::number(Section section, std::string_view name) const {
    const OrderedJson* value = document_->find(section, name);
    if (value && value->is_boolean()) return value->get<bool>() ? 1 : 0;
    if (!value || !value->is_number_unsigned()) return std::nullopt;
    const auto number = value->get<std::uint64_t>();
    if (number > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

void SettingsFile::setText(Section section, std::string_view name, std::string_view value) {
    document_->set({section, std::string(name), encoded(value)});
}

void SettingsFile::setNumber(Section section, std::string_view name, std::uint32_t value) {
    document_->set({section, std::string(name), value});
}

std::string_view SettingsFile::save() {
    std::optional<OrderedJson> json = read(path_);
    if (!json || !canBeWritten(path_)) return SettingsMessage::noFile;
    if (isBlocked(*json, Section::Options)) return SettingsMessage::noOptions;
    for (const Document::Change& change : document_->changes) Document::apply(change, *json);
    const std::string text = json->dump(indentWidth) + "\n";
    if (!replaceFile(path_, text)) return SettingsMessage::noFile;
    document_->changes.clear();
    return {};
}

}  // namespace BrevisUI
