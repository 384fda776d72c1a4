// 1. What the first edition takes for an absent or empty value is written out, since the second leaves such a place.
// 2. Where the second edition has a key of its own, it gets the value that the first takes there.
// 3. Lists that the scheme breaks are aligned behind their bracket, as the first edition does.
// 4. The differences that are left are told, as far as the scheme has a value there.
#include "store/BrevisUI_SchemeUpgrade.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <variant>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace BrevisUI {

namespace {

using Brevis::PropertySet;
using Brevis::Scheme;
using Brevis::WsProperty;

struct KeyPair {
    std::string_view from;
    std::string_view to;
};

constexpr KeyPair ownKeys[] = {
    {"GLOBAL_WS_BEFORE_OPEN_BRACE", "WS_BEFORE_LINKAGE_OPEN_BRACE"},
    {"GLOBAL_INDENT_CONTENT", "INDENT_LINKAGE_CONTENT"},
    {"INDENT_NS_CONTENT", "INDENT_NESTED_NS_CONTENT"},
    {"WS_BETWEEN_EXPR_OP_OPERANDS", "WS_BETWEEN_SUBSCRIPT_OP_OPERANDS"},
};
// For an empty body the second edition has one value, the first that in front of the closing brace.
constexpr std::string_view closeKeys[] = {"WS_BEFORE_FN_CLOSE_BRACE", "WS_BEFORE_CS_CLOSE_BRACE",
                                          "WS_BEFORE_CLASS_CLOSE_BRACE"};
// What stands in brackets: a line feed there makes lines that the first edition aligns behind the bracket.
constexpr std::string_view bracketLists[] = {"WS_BETWEEN_FN_PARAMS", "WS_BETWEEN_TP_PARAMS", "WS_BETWEEN_FN_CALL_ARGS",
                                             "WS_BETWEEN_CS_FOR_CLAUSES"};

// Told if the scheme has a value for the key, or for any if there is no key.
struct Difference {
    std::string_view key;
    std::string_view text;
};
constexpr Difference differences[] = {
    {"",
     "A text is read as today's C and C++ first; the first edition tries the language of the late nineties before."},
    {"",
     "Bodies inside of expressions, such as those of lambdas, are laid out like other bodies; the first edition "
     "leaves an expression with a body as it stands. INDENT_LAMBDA_CONTENT and WS_BEFORE_LAMBDA_OPEN_BRACE with its "
     "kin tell how they look."},
    {"", "A comment behind a brace, a comma or a parenthesis stays on the line on which it is read."},
    {"", "Several namespaces whose braces the source has on one line stay there."},
    {"", "A goto label stays where it is; INDENT_LABEL and ALIGN_LABELS_LEFT_MOST move it."},
    {"",
     "What stands behind a cast or a prefix operator stays as the source has it; WS_AFTER_CAST, WS_AFTER_NAMED_CAST "
     "and "
     "WS_AFTER_UNARY_OP decide it."},
    {"WS_AFTER_CS_CASE_LABELS",
     "An open brace directly behind a case label stays where it is, instead of following WS_AFTER_CS_CASE_LABELS; "
     "WS_BEFORE_CS_CASE_OPEN_BRACE and INDENT_CS_CASE_BLOCK_CONTENT place it and what it holds."},
    {"WS_BETWEEN_CS_FOR_CLAUSES", "The empty clauses of a for (;;) get no white space."},
    {"ASTERISK_ANCHOR",
     "Several stars stay together, and those of further declarators, casts and template arguments "
     "follow ASTERISK_ANCHOR too."},
    {"AMPERSAND_ANCHOR",
     "The & of an expression is never taken for that of a type, so AMPERSAND_ANCHOR no longer "
     "touches initializers such as = &x."},
};

bool isSet(const PropertySet& scheme, std::string_view key) { return key.empty() || scheme.has(key); }

void copyIfAbsent(PropertySet& scheme, const KeyPair& keys) {
    std::string value;
    if (!scheme.has(keys.to) && scheme.getString(keys.from, value)) scheme.setString(keys.to, std::move(value));
}

// The values that the first edition works with, which may be other than those written.
void writeOutDefaults(PropertySet& scheme) {
    const Scheme inForce = Scheme::from(scheme);
    for (const Brevis::PropertyInfo& property : Brevis::Catalogue::properties) {
        const auto* const member = std::get_if<WsProperty Scheme::*>(&property.field);
        if (member == nullptr) continue;
        const WsProperty& value = inForce.**member;
        std::string written;
        const bool isWritten = scheme.getString(property.key, written);
        if (value.isSet && (!isWritten || written != value.text)) scheme.setString(property.key, value.text);
    }
}

// Only if all bodies agree on it.
void setEmptyBody(PropertySet& scheme) {
    std::string first, other;
    if (scheme.has("WS_IN_EMPTY_BODY") || !scheme.getString(closeKeys[0], first)) return;
    for (const std::string_view key : closeKeys) {
        if (!scheme.getString(key, other) || other != first) return;
    }
    scheme.setString("WS_IN_EMPTY_BODY", first);
}

bool breaksListsInBrackets(const PropertySet& scheme) {
    return std::any_of(std::begin(bracketLists), std::end(bracketLists), [&scheme](std::string_view key) {
        std::string value;
        return scheme.getString(key, value) && value.find('\n') != std::string::npos;
    });
}

}  // namespace

bool isOfSecondEdition(const PropertySet& scheme) { return Scheme::from(scheme).edition == 2; }

SchemeUpgrade upgradeScheme(const PropertySet& scheme) {
    SchemeUpgrade upgrade{scheme, {}};
    PropertySet& target = upgrade.scheme;
    writeOutDefaults(target);
    target.setInt("EDITION", 2);
    for (const KeyPair& keys : ownKeys) copyIfAbsent(target, keys);
    setEmptyBody(target);
    if (breaksListsInBrackets(target)) target.setBool("ALIGN_CONTINUATION_LEFT", true);
    for (const auto& [key, text] : differences) {
        if (isSet(scheme, key)) upgrade.differences.emplace_back(text);
    }
    return upgrade;
}

}  // namespace BrevisUI
