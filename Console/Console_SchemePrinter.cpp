// The lines of a printed scheme: the scheme's own value and the engine's, row by row of the catalogue.
#include "Console_SchemePrinter.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "scheme/Brevis_Escapes.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "scheme/Brevis_PropertyValues.h"
#include "scheme/Brevis_Scheme.h"

namespace Console {

namespace {

using Brevis::PropertySet;
using Brevis::Scheme;
using Brevis::Unused;
using Brevis::WsProperty;

constexpr const char* unset = "unset";

std::string printed(bool value) { return value ? "1" : "0"; }
std::string printed(std::int32_t value) { return std::to_string(value); }
std::string printed(const std::optional<bool>& value) { return value ? printed(*value) : unset; }
std::string printed(const std::string& value) { return '"' + Brevis::escapeText(value) + '"'; }
std::string printed(const WsProperty& value) { return value.isSet ? printed(value.text) : unset; }

std::string line(std::string_view key, const std::string& value, const std::string& origin) {
    return std::string(key) + '\t' + value + '\t' + origin + '\n';
}

// ---- Properties that the engine uses

template <class T>
std::string originOf(const PropertySet& properties, std::string_view key, const T& inForce) {
    T written{};
    if (readValue(properties, key, written)) {
        if (written == inForce) return "set in the scheme";
        const char* change = std::is_same_v<T, std::int32_t> ? "limited" : "engine default";
        return std::string(change) + ", the scheme has " + printed(written);
    }
    const std::string origin = printed(inForce) == unset ? "absent" : "engine default";
    return properties.has(key) ? origin + ", the scheme has the key with another type" : origin;
}

// ---- Keys that it doesn't use

std::string writtenValue(const PropertySet& properties, std::string_view key) {
    WsProperty text;
    if (readValue(properties, key, text)) return printed(text);
    std::int32_t number = 0;
    if (readValue(properties, key, number)) return printed(number);
    std::optional<bool> flag;
    readValue(properties, key, flag);
    return printed(flag);
}

std::string unusedLine(const PropertySet& properties, std::string_view key, const std::string& reason) {
    return line(key, writtenValue(properties, key), "not used by the engine: " + reason);
}

std::string reasonOf(Unused why) {
    return why == Unused::Version ? "it tells the version of a program" : "only a scheme editor reads it";
}

std::string printProperty(const PropertySet& properties, const Scheme& scheme, const Brevis::PropertyInfo& property) {
    return std::visit(
        [&](auto field) {
            if constexpr (std::is_same_v<decltype(field), Unused>) {
                return unusedLine(properties, property.key, reasonOf(field));
            } else {
                const auto& inForce = scheme.*field;
                return line(property.key, printed(inForce), originOf(properties, property.key, inForce));
            }
        },
        property.field);
}

}  // namespace

std::string printScheme(const PropertySet& properties) {
    const Scheme scheme = Scheme::from(properties);
    std::string text;
    for (const Brevis::PropertyInfo& property : Brevis::Catalogue::properties) {
        text += printProperty(properties, scheme, property);
    }
    const std::vector<std::string> keys = properties.keys();
    for (const std::string& key : std::set<std::string>(keys.begin(), keys.end())) {
        if (Brevis::Catalogue::find(key)) continue;
        const bool isKnown = Brevis::Catalogue::isKnown(key);
        text += unusedLine(properties, key, isKnown ? "it is reserved or of an older version" : "it is unknown");
    }
    return text;
}

}  // namespace Console
