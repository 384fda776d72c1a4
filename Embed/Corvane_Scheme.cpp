// A property set behind a pointer. The catalogue decides in which of its tables a key belongs.
#include <corvane/scheme.h>

#include <fstream>
#include <sstream>
#include <utility>

#include "Corvane_Messages.h"
#include "Corvane_SchemeContents.h"
#include "Corvane_ShippedSchemes.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "scheme/Brevis_SchemeText.h"

namespace corvane {

namespace {

using Brevis::PropertyType;

SchemeResult unreadable(const std::filesystem::path& path) {
    return {std::nullopt, {{Severity::Error, 0, 0, 0, "The scheme file \"" + path.string() + "\" cannot be read."}}};
}

// A misspelt key has no effect, which is hard to see.
void tellUnknownKeys(const Scheme& scheme, Messages& messages) {
    for (const std::string& key : scheme.keys()) {
        if (Brevis::Catalogue::isKnown(key)) continue;
        messages.push_back({Severity::Information, 0, 0, 0, "The key " + key + " is unknown."});
    }
}

// The alternative of a value that a key wants.
std::size_t alternativeOf(PropertyType type) {
    switch (type) {
        case PropertyType::Flag:
            return 0;
        case PropertyType::Number:
        case PropertyType::Choice:
            return 1;
        default:
            return 2;
    }
}

}  // namespace

Scheme::Scheme() : contents_(std::make_unique<Contents>()) {}
Scheme::Scheme(const Scheme& other) : contents_(std::make_unique<Contents>(*other.contents_)) {}
Scheme::Scheme(Scheme&& other) noexcept = default;
Scheme& Scheme::operator=(const Scheme& other) { return *this = Scheme(other); }
Scheme& Scheme::operator=(Scheme&& other) noexcept = default;
Scheme::~Scheme() = default;

SchemeResult Scheme::parse(std::string_view text) {
    SchemeResult result;
    Scheme scheme;
    Trn::ParseMessageList messages;
    const bool isGood = Brevis::readSchemeText(std::string(text), scheme.contents_->properties, messages);
    result.messages = publicMessages(messages);
    if (!isGood) return result;
    tellUnknownKeys(scheme, result.messages);
    result.scheme = std::move(scheme);
    return result;
}

SchemeResult Scheme::load(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::string text;
    char chunk[4096];
    while (in.read(chunk, sizeof chunk) || in.gcount() > 0) text.append(chunk, static_cast<std::size_t>(in.gcount()));
    return in.is_open() && !in.bad() ? parse(text) : unreadable(path);
}

std::optional<Scheme> Scheme::shipped(std::string_view name) {
    for (const ShippedScheme& scheme : shippedSchemes) {
        if (scheme.name == name) return parse(scheme.text).scheme;
    }
    return std::nullopt;
}

std::vector<std::string> Scheme::shippedNames() {
    std::vector<std::string> names;
    for (const ShippedScheme& scheme : shippedSchemes) names.emplace_back(scheme.name);
    return names;
}

const std::string& Scheme::name() const { return contents_->properties.name(); }
void Scheme::setName(std::string name) { contents_->properties.setName(std::move(name)); }

std::optional<Scheme::Value> Scheme::get(std::string_view key) const {
    const Brevis::PropertySet& properties = contents_->properties;
    bool flag = false;
    std::int32_t number = 0;
    std::string text;
    if (properties.getBool(key, flag)) return flag;
    if (properties.getInt(key, number)) return number;
    if (properties.getString(key, text)) return text;
    return std::nullopt;
}

bool Scheme::set(std::string_view key, Value value) {
    const Brevis::PropertyInfo* property = Brevis::Catalogue::find(key);
    if (!property || alternativeOf(property->type) != value.index()) return false;
    Brevis::PropertySet& properties = contents_->properties;
    if (const bool* flag = std::get_if<bool>(&value)) properties.setBool(key, *flag);
    if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) properties.setInt(key, *number);
    if (std::string* text = std::get_if<std::string>(&value)) properties.setString(key, std::move(*text));
    return true;
}

bool Scheme::remove(std::string_view key) {
    bool wasPresent = false;
    // A file may hold a key in several tables.
    while (contents_->properties.has(key)) wasPresent = contents_->properties.erase(key);
    return wasPresent;
}

std::vector<std::string> Scheme::keys() const { return contents_->properties.keys(); }

std::string Scheme::text() const {
    std::ostringstream out;
    contents_->properties.write(out);
    return out.str();
}

bool Scheme::operator==(const Scheme& other) const { return contents_->properties == other.contents_->properties; }

}  // namespace corvane
