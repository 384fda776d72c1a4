// The steps of the conversion, in their order; later steps read what earlier ones left.
#include "store/BrevisUI_SchemeConversion.h"

#include <utility>

#include "scheme/Brevis_PropertyCatalogue.h"
#include "store/BrevisUI_StoreMessages.h"

namespace BrevisUI {

namespace {

using Brevis::PropertySet;

struct Pair {
    std::string_view from;
    std::string_view to;
};

// Flags that were replaced by a line feed in a white-space key.
constexpr Pair lineFeedFlags[] = {
    {"ALIGN_FN_PARAMS_LEFT", "WS_BETWEEN_FN_PARAMS"},
    {"ALIGN_CS_FOR_CLAUSES_LEFT", "WS_BETWEEN_CS_FOR_CLAUSES"},
};

constexpr std::string_view withdrawn[] = {
    "WS_AFTER_DD_NAME",
    "ALIGN_FN_PARAMS_LEFT",
    "ALIGN_FN_PARAMS_LEFT_ON_WRAP",
    "ALIGN_CS_FOR_CLAUSES_LEFT",
    "ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP",
};

constexpr std::pair<std::string_view, std::int32_t> wrapNumbers[] = {
    {"RIGHT_MARGIN", 78},      {"COMMA_WRAP_STYLE", 2}, {"EXPR_WRAP_STYLE", 2},
    {"LIST_WRAP_STRATEGY", 1}, {"SHIFT_WRAP_STYLE", 1}, {"WRAP_STYLE", 1},
};

constexpr Pair dataBody[] = {
    {"GLOBAL_WS_BEFORE_OPEN_BRACE", "WS_BEFORE_DD_OPEN_BRACE"},
    {"GLOBAL_WS_AFTER_OPEN_BRACE", "WS_AFTER_DD_OPEN_BRACE"},
    {"GLOBAL_WS_BEFORE_CLOSE_BRACE", "WS_BEFORE_DD_CLOSE_BRACE"},
    {"GLOBAL_INDENT_CONTENT", "INDENT_DD_CONTENT"},
};

constexpr std::string_view commas[] = {
    "GLOBAL_WS_BEFORE_COMMA",  "WS_BEFORE_CLASS_INITS_COMMA", "WS_BEFORE_DD_COMMA", "WS_BEFORE_ENUM_COMMA",
    "WS_BEFORE_FN_CALL_COMMA", "WS_BEFORE_FN_COMMA",          "WS_BEFORE_TP_COMMA", "WS_BEFORE_BASE_CLAUSES_COMMA",
};

constexpr Pair calls[] = {
    {"WS_AFTER_FN_NAME", "WS_AFTER_FN_CALL_NAME"},
    {"WS_BETWEEN_FN_PARAMS", "WS_BETWEEN_FN_CALL_ARGS"},
};

constexpr Pair renamedNumber = {"SPACES_PER_TAB", "TAB_SIZE"};

constexpr Pair renamedStrings[] = {
    {"WS_AFTER_CLASS_HEAD", "WS_BEFORE_CLASS_OPEN_BRACE"}, {"WS_AFTER_NS_HEAD", "WS_BEFORE_NS_OPEN_BRACE"},
    {"WS_AFTER_ENUM_HEAD", "WS_BEFORE_ENUM_OPEN_BRACE"},   {"WS_AFTER_FN_HEAD", "WS_BEFORE_FN_OPEN_BRACE"},
    {"WS_AFTER_CS_HEAD", "WS_BEFORE_CS_OPEN_BRACE"},
};

// From every table that holds the key.
void erase(PropertySet& scheme, std::string_view key) {
    while (scheme.erase(key)) {
    }
}

void replaceFlags(PropertySet& scheme) {
    for (const auto& [flag, key] : lineFeedFlags) {
        bool isOn = false;
        if (scheme.getBool(flag, isOn) && isOn) scheme.setString(key, "\n");
    }
    for (const std::string_view key : withdrawn) erase(scheme, key);
}

void addLineWrapping(PropertySet& scheme) {
    scheme.setBool("LINE_WRAP_DO_NOT_FORMAT", false);
    scheme.setBool("LINE_WRAP", false);
    for (const auto& [key, value] : wrapNumbers) scheme.setInt(key, value);
    scheme.setString("WRAP_INDENT", "");
}

// An absent source counts as empty.
void copyString(PropertySet& scheme, const Pair& keys) {
    std::string value;
    scheme.getString(keys.from, value);
    scheme.setString(keys.to, std::move(value));
}

void addDataAndCalls(PropertySet& scheme) {
    scheme.setBool("DATA_DO_NOT_FORMAT", false);
    for (const Pair& keys : dataBody) copyString(scheme, keys);
    scheme.setString("WS_BETWEEN_DD_ELEMENTS", " ");
    for (const std::string_view key : commas) scheme.setString(key, "");
    for (const Pair& keys : calls) copyString(scheme, keys);
}

void rename(PropertySet& scheme) {
    std::int32_t number = 0;
    if (scheme.getInt(renamedNumber.from, number)) {
        scheme.setInt(renamedNumber.to, number);
        erase(scheme, renamedNumber.from);
    }
    for (const Pair& keys : renamedStrings) {
        std::string value;
        if (!scheme.getString(keys.from, value)) continue;
        scheme.setString(keys.to, std::move(value));
        erase(scheme, keys.from);
    }
}

}  // namespace

bool isOldScheme(const PropertySet& scheme) {
    std::string version;
    return !scheme.getString("CORVANE_VERSION", version);
}

void convertOldScheme(PropertySet& scheme) {
    replaceFlags(scheme);
    addLineWrapping(scheme);
    addDataAndCalls(scheme);
    rename(scheme);
    scheme.setString("CORVANE_VERSION", std::string(Brevis::schemeVersion));
}

std::string convertOldSchemes(PropertySetStore& store) {
    std::vector<std::string> unconvertible;
    std::vector<PropertySet> converted;
    for (const auto& [name, entry] : store.schemes()) {
        if (!isOldScheme(entry.scheme)) continue;
        if (entry.builtIn) {
            unconvertible.push_back(name);
        } else {
            convertOldScheme(converted.emplace_back(entry.scheme));
        }
    }
    for (const PropertySet& scheme : converted) store.update(scheme);
    if (!converted.empty()) store.write();
    return unconvertibleText(unconvertible);
}

}  // namespace BrevisUI
