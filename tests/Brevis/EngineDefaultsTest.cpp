// The engine defaults and the catalogue that they draw on.
#include "scheme/Brevis_EngineDefaults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace Brevis {
namespace {

// What an empty scheme gets.
constexpr const char* base = "2 AMPERSAND_ANCHOR -1\n2 ASTERISK_ANCHOR -1\n2 CONVERT_WS 0\n2 EXPR_WRAP_STYLE 1\n";

std::string withDefaults(const std::string& properties) {
    std::istringstream in("Brevis::PropertySet\n1\n\"\"\n" + properties);
    PropertySet scheme;
    scheme.read(in);
    EXPECT_FALSE(in.fail());
    applyEngineDefaults(scheme);
    std::ostringstream out;
    scheme.write(out);
    return out.str().substr(std::string("Brevis::PropertySet\n1\n\"\"\n").size());
}

TEST(EngineDefaults, FillInWhatAVisitorNeeds) {
    const std::string ints = base;
    const std::string param = "3 WS_AFTER_PARAM_TYPE_ID \" \"\n";
    const std::string returns = "3 WS_AFTER_FN_DECL_RETURN_TYPE \" \"\n3 WS_AFTER_FN_DEFN_RETURN_TYPE \" \"\n";
    EXPECT_EQ(ints + "2 TAB_SIZE 1\n" + param, withDefaults(""));
    EXPECT_EQ(ints + "2 TAB_SIZE 8\n" + param, withDefaults("2 TAB_SIZE 8\n"));
    EXPECT_EQ(ints + "2 TAB_SIZE 32767\n" + param, withDefaults("2 TAB_SIZE 2147483647\n"));
    // An empty gap behind a type is replaced, an absent one only beside pointer keys.
    EXPECT_EQ(ints + "2 TAB_SIZE 1\n3 WS_AFTER_DD_TYPE_ID \" \"\n" + param,
              withDefaults("3 WS_AFTER_DD_TYPE_ID \"\"\n"));
    for (const char* pointer : {"3 WS_BETWEEN_AMPERSAND_ANCHOR \"\"\n", "3 WS_BETWEEN_ASTERISK_ANCHOR \"\\t\"\n"}) {
        EXPECT_EQ(ints + "2 TAB_SIZE 1\n3 WS_AFTER_DD_TYPE_ID \" \"\n" + returns + param + pointer,
                  withDefaults(pointer));
    }
    // Values that stand are kept, the empty one of a parameter too.
    const std::string kept =
        "2 AMPERSAND_ANCHOR 1\n2 ASTERISK_ANCHOR 0\n2 CONVERT_WS 7\n2 EXPR_WRAP_STYLE 2\n2 TAB_SIZE -3\n"
        "3 WS_AFTER_DD_TYPE_ID \"\\n\"\n3 WS_AFTER_PARAM_TYPE_ID \"\"\n";
    EXPECT_EQ(kept, withDefaults(kept));
}

TEST(EngineDefaults, OperatorGapsAreNeededOnlyWhereLinesAreWrapped) {
    const std::string tail = std::string(base) + "2 TAB_SIZE 1\n3 WS_AFTER_PARAM_TYPE_ID \" \"\n";
    EXPECT_EQ("1 LINE_WRAP 0\n" + tail, withDefaults("1 LINE_WRAP 0\n"));
    EXPECT_EQ("1 LINE_WRAP 1\n" + tail + "3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n", withDefaults("1 LINE_WRAP 1\n"));
    EXPECT_EQ("1 LINE_WRAP 1\n" + tail + "3 WS_BETWEEN_EXPR_OP_OPERANDS \"\"\n",
              withDefaults("1 LINE_WRAP 1\n3 WS_BETWEEN_EXPR_OP_OPERANDS \"\"\n"));
}

TEST(EngineDefaults, AKeyOfAnotherTypeCountsAsAbsent) {
    EXPECT_EQ("1 TAB_SIZE 1\n" + std::string(base) + "2 TAB_SIZE 1\n3 WS_AFTER_PARAM_TYPE_ID \" \"\n",
              withDefaults("1 TAB_SIZE 1\n"));
}

TEST(PropertyCatalogue, RowsAreSound) {
    std::set<std::string_view> keys;
    for (const PropertyInfo& property : Catalogue::properties) {
        EXPECT_TRUE(keys.insert(property.key).second) << property.key << " stands twice";
        const bool isText = property.type == PropertyType::WhiteSpace || property.type == PropertyType::Indent ||
                            property.type == PropertyType::Text;
        EXPECT_TRUE(isText ? property.defaultNumber == 0 : property.defaultText.empty()) << property.key;
        if (property.type != PropertyType::Choice) continue;
        EXPECT_TRUE(std::any_of(std::begin(Catalogue::choices), std::end(Catalogue::choices), [&](const auto& choice) {
            return choice.key == property.key && choice.value == property.defaultNumber;
        })) << property.key;
    }
    for (const std::string_view key : Catalogue::reservedKeys) EXPECT_TRUE(keys.insert(key).second) << key;
    for (const std::string_view key : Catalogue::oldKeys) EXPECT_TRUE(keys.insert(key).second) << key;
    for (const auto& choice : Catalogue::choices) {
        const PropertyInfo* property = Catalogue::find(choice.key);
        ASSERT_NE(nullptr, property) << choice.key;
        EXPECT_EQ(PropertyType::Choice, property->type) << choice.key;
    }
}

}  // namespace
}  // namespace Brevis
