// Fills a Scheme over the rows of the catalogue, then applies the engine's defaults and limits.
#include "scheme/Brevis_Scheme.h"

#include <algorithm>
#include <type_traits>
#include <variant>

#include "scheme/Brevis_PropertyCatalogue.h"
#include "scheme/Brevis_PropertyValues.h"

namespace Brevis {

namespace {

// ---- The catalogue as the list of what to read

// Which types of property may fill a member.
constexpr bool fits(PropertyType type, WsProperty Scheme::*) {
    return type == PropertyType::WhiteSpace || type == PropertyType::Indent;
}
constexpr bool fits(PropertyType type, bool Scheme::*) { return type == PropertyType::Flag; }
constexpr bool fits(PropertyType type, std::optional<bool> Scheme::*) { return type == PropertyType::Flag; }
constexpr bool fits(PropertyType type, std::string Scheme::*) { return type == PropertyType::Names; }
constexpr bool fits(PropertyType type, std::int32_t Scheme::*) {
    return type == PropertyType::Number || type == PropertyType::Choice;
}

constexpr bool isSound(const PropertyInfo& property) {
    return std::visit(
        [&property](auto field) {
            if constexpr (std::is_same_v<decltype(field), Unused>) {
                return true;
            } else {
                return field != nullptr && fits(property.type, field);
            }
        },
        property.field);
}

static_assert(std::all_of(std::begin(Catalogue::properties), std::end(Catalogue::properties), isSound),
              "a row fills a member of its own type or tells why it fills none");

void readProperty(const PropertySet& properties, const PropertyInfo& property, Scheme& scheme) {
    std::visit(
        [&](auto field) {
            if constexpr (!std::is_same_v<decltype(field), Unused>) {
                readValue(properties, property.key, scheme.*field);
            }
        },
        property.field);
}

// ---- Defaults beyond those of the members

const WsProperty oneBlank{true, " "};

// A type and a name must not grow together, so an empty value counts as a blank. A scheme that places pointer signs
// decides the white space behind the type, so there must be a value to work with even if it has none.
void supplyTypeGap(const Scheme& scheme, WsProperty& gap) {
    const bool placesSigns = scheme.wsBetweenAmpersandAnchor.isSet || scheme.wsBetweenAsteriskAnchor.isSet;
    if (gap.text.empty() && (gap.isSet || placesSigns)) gap = oneBlank;
}

// In the second edition no value stands in for one that is missing.
void applyDefaults(Scheme& scheme) {
    if (scheme.edition == 2) return;
    if (!scheme.wsAfterParamTypeId.isSet) scheme.wsAfterParamTypeId = oneBlank;
    supplyTypeGap(scheme, scheme.wsAfterDdTypeId);
    supplyTypeGap(scheme, scheme.wsAfterFnDeclReturnType);
    supplyTypeGap(scheme, scheme.wsAfterFnDefnReturnType);
    if (scheme.lineWrap && !scheme.wsBetweenExprOpOperands.isSet) scheme.wsBetweenExprOpOperands = oneBlank;
}

// ---- Limits

void limitTo0To2(std::int32_t& value, std::int32_t whenBeyond) {
    if (value < 0 || value > 2) value = whenBeyond;
}

// -1 is an absent number; a huge one would fill the memory with line feeds.
void limitBlankLines(std::int32_t& value) { value = std::clamp(value, -1, 1000); }

void applyLimits(Scheme& scheme) {
    // Column arithmetic needs a tab size of at least 1, and a huge one would overflow the columns of a line and fill
    // the memory with blanks.
    scheme.tabSize = std::clamp(scheme.tabSize, 1, 32767);
    scheme.rightMargin = std::max(scheme.rightMargin, 0);
    limitTo0To2(scheme.convertWs, 0);  // an unknown conversion must not lose any text
    limitTo0To2(scheme.wrapStyle, 0);
    limitTo0To2(scheme.exprWrapStyle, 1);
    limitTo0To2(scheme.shiftWrapStyle, 1);
    limitTo0To2(scheme.listWrapStrategy, 0);
    limitBlankLines(scheme.maxBlankLines);
    limitBlankLines(scheme.minBlankLinesBetweenFnDefns);
    if (scheme.edition != 2) scheme.edition = 1;
}

}  // namespace

Scheme Scheme::from(const PropertySet& properties) {
    Scheme scheme;
    for (const PropertyInfo& property : Catalogue::properties) readProperty(properties, property, scheme);
    applyDefaults(scheme);
    applyLimits(scheme);
    return scheme;
}

Vellum::IndentStreamSettings Scheme::outputSettings() const {
    Vellum::IndentStreamSettings settings;
    settings.convertMode = convertWs;
    settings.tabSize = tabSize;
    return settings;
}

}  // namespace Brevis
