// The typed scheme: its defaults and limits, and the catalogue that binds keys to its members.
#include "scheme/Brevis_Scheme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace Brevis {
namespace {

// `properties` are the lines of a scheme file.
Scheme schemeFrom(const std::string& properties) {
    std::istringstream in("Brevis::PropertySet\n1\n\"\"\n" + properties);
    PropertySet read;
    read.read(in);
    EXPECT_FALSE(in.fail());
    return Scheme::from(read);
}

const WsProperty aBlank{true, " "};
const WsProperty empty{true, ""};

TEST(Scheme, HasDefaultsAndLimits) {
    Scheme bare;
    bare.wsAfterParamTypeId = aBlank;
    ASSERT_EQ(schemeFrom(""), bare);

    const struct {
        const char* properties;
        void (*change)(Scheme& bare);
    } cases[] = {
        {"2 TAB_SIZE 2147483647\n", [](Scheme& s) { s.tabSize = 32767; }},
        {"2 TAB_SIZE 0\n2 RIGHT_MARGIN -1\n2 CONVERT_WS 3\n", [](Scheme&) {}},
        {"2 CONVERT_WS -1\n2 WRAP_STYLE 3\n2 EXPR_WRAP_STYLE 3\n2 SHIFT_WRAP_STYLE -1\n2 LIST_WRAP_STRATEGY 3\n",
         [](Scheme&) {}},
        // No value stands in for a missing one in the second edition.
        {"2 EDITION 2\n2 MAX_BLANK_LINES 0\n3 FOR_EACH_MACROS \"each all\"\n1 LINE_WRAP 1\n",
         [](Scheme& s) {
             s.edition = 2, s.maxBlankLines = 0, s.forEachMacros = "each all";
             s.lineWrap = true, s.wsAfterParamTypeId = noWs;
         }},
        {"2 EDITION 3\n2 MAX_BLANK_LINES -2\n2 MIN_BLANK_LINES_BETWEEN_FN_DEFNS 2147483647\n",
         [](Scheme& s) { s.minBlankLinesBetweenFnDefns = 1000; }},
        {"2 EXPR_WRAP_STYLE 0\n2 COMMA_WRAP_STYLE 9\n2 ASTERISK_ANCHOR 7\n",
         [](Scheme& s) { s.exprWrapStyle = 0, s.commaWrapStyle = 9, s.asteriskAnchor = 7; }},
        // A key in the table of another type counts as absent.
        {"1 TAB_SIZE 1\n3 EDITION \"2\"\n2 MACROS_LOOP 1\n2 LINE_WRAP 1\n2 WS_BETWEEN_CS 1\n3 ALIGN_PPD_LEFT_MOST "
         "\"1\"\n",
         [](Scheme&) {}},
        {"1 ALIGN_PPD_LEFT_MOST 0\n", [](Scheme& s) { s.alignPpdLeftMost = false; }},
        {"3 WS_AFTER_PARAM_TYPE_ID \"\"\n", [](Scheme& s) { s.wsAfterParamTypeId = empty; }},
        // An empty gap behind a type is replaced, an absent one only beside pointer keys.
        {"3 WS_AFTER_FN_DECL_RETURN_TYPE \"\"\n", [](Scheme& s) { s.wsAfterFnDeclReturnType = aBlank; }},
        {"3 WS_BETWEEN_AMPERSAND_ANCHOR \"\"\n3 WS_AFTER_DD_TYPE_ID \"\\n\"\n",
         [](Scheme& s) {
             s.wsBetweenAmpersandAnchor = empty, s.wsAfterDdTypeId = newlineWs;
             s.wsAfterFnDeclReturnType = s.wsAfterFnDefnReturnType = aBlank;
         }},
        {"3 WS_BETWEEN_ASTERISK_ANCHOR \"\"\n",
         [](Scheme& s) {
             s.wsBetweenAsteriskAnchor = empty;
             s.wsAfterDdTypeId = s.wsAfterFnDeclReturnType = s.wsAfterFnDefnReturnType = aBlank;
         }},
        // Operator gaps are needed only where lines are wrapped.
        {"1 LINE_WRAP 0\n", [](Scheme&) {}},
        {"1 LINE_WRAP 1\n", [](Scheme& s) { s.lineWrap = true, s.wsBetweenExprOpOperands = aBlank; }},
        {"1 LINE_WRAP 1\n3 WS_BETWEEN_EXPR_OP_OPERANDS \"\"\n",
         [](Scheme& s) { s.lineWrap = true, s.wsBetweenExprOpOperands = empty; }},
    };
    for (const auto& [properties, change] : cases) {
        Scheme expected = bare;
        change(expected);
        EXPECT_EQ(schemeFrom(properties), expected) << properties;
    }
}

// Stands for a value of any type.
struct AnyValue {
    template <class T>
    operator T() const;
};

// As many values as T can be made of, which is how many members it has.
template <class T, class... Values>
constexpr std::size_t memberCount() {
    if constexpr (requires { T{Values{}..., AnyValue{}}; }) return memberCount<T, Values..., AnyValue>();
    return sizeof...(Values);
}

TEST(PropertyCatalogue, EachMemberIsFilledByOneRow) {
    std::vector<PropertyInfo> used;
    std::copy_if(std::begin(Catalogue::properties), std::end(Catalogue::properties), std::back_inserter(used),
                 [](const PropertyInfo& property) { return !std::holds_alternative<Unused>(property.field); });
    for (const PropertyInfo& property : used) {
        EXPECT_EQ(std::count_if(used.begin(), used.end(),
                                [&](const PropertyInfo& other) { return other.field == property.field; }),
                  1)
            << property.key;
    }
    EXPECT_EQ(used.size(), memberCount<Scheme>());
}

TEST(PropertyCatalogue, RowsAreSound) {
    std::set<std::string_view> keys;
    for (const PropertyInfo& property : Catalogue::properties) {
        EXPECT_TRUE(keys.insert(property.key).second) << property.key << " stands twice";
        const bool isText = property.type == PropertyType::WhiteSpace || property.type == PropertyType::Indent ||
                            property.type == PropertyType::Text || property.type == PropertyType::Names;
        EXPECT_TRUE(isText ? property.defaultNumber == 0 : property.defaultText.empty()) << property.key;
        const bool isChoice = std::any_of(property.choices.begin(), property.choices.end(),
                                          [&](const auto& choice) { return choice.value == property.defaultNumber; });
        EXPECT_EQ(isChoice, property.type == PropertyType::Choice) << property.key;
    }
    for (const std::string_view key : Catalogue::reservedKeys) EXPECT_TRUE(keys.insert(key).second) << key;
    for (const std::string_view key : Catalogue::oldKeys) EXPECT_TRUE(keys.insert(key).second) << key;
}

}  // namespace
}  // namespace Brevis
