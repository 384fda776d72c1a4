// The scheme dictionary and its text form.
#include "scheme/Brevis_PropertySet.h"

#include <gtest/gtest.h>

#include <sstream>

#include "scheme/Brevis_SchemeReader.h"

namespace Brevis {
namespace {

std::string written(const PropertySet& scheme) {
    std::ostringstream out;
    scheme.write(out);
    return out.str();
}

TEST(PropertySet, GettersSeeTheirOwnTableAndLeaveTheValueAlone) {
    PropertySet scheme;
    scheme.setBool("K", true);
    std::int32_t number = 7;
    std::string text = "kept";
    EXPECT_FALSE(scheme.getInt("K", number));
    EXPECT_FALSE(scheme.getString("K", text));
    EXPECT_EQ(7, number);
    EXPECT_EQ("kept", text);
}

TEST(PropertySet, EraseTakesTheKeyFromOneTableACall) {
    PropertySet scheme;
    scheme.setBool("K", true);
    scheme.setInt("K", 3);
    scheme.setString("K", "");
    EXPECT_EQ(3u, scheme.count());
    std::string text = "preset";
    std::int32_t number = 0;
    EXPECT_TRUE(scheme.erase("K"));
    EXPECT_FALSE(scheme.getString("K", text));
    EXPECT_TRUE(scheme.getInt("K", number));
    EXPECT_TRUE(scheme.erase("K"));
    EXPECT_FALSE(scheme.getInt("K", number));
    EXPECT_TRUE(scheme.has("K"));
    EXPECT_TRUE(scheme.erase("K"));
    EXPECT_FALSE(scheme.erase("K"));
}

TEST(PropertySet, RefusesBadKeys) {
    PropertySet scheme;
    for (const char* key : {"", "A B", "A\t", "\nA", "A\v", "A\fB", "A\r"}) {
        EXPECT_THROW(scheme.setBool(key, true), InvalidPropertyName) << key;
        EXPECT_THROW(scheme.setInt(key, 1), InvalidPropertyName) << key;
        EXPECT_THROW(scheme.setString(key, ""), InvalidPropertyName) << key;
        EXPECT_THROW(scheme.erase(key), InvalidPropertyName) << key;
        EXPECT_FALSE(scheme.has(key));
    }
    EXPECT_EQ(0u, scheme.count());
}

TEST(PropertySet, WritesByTypeAndThenByKey) {
    PropertySet scheme("A \"name\"");
    scheme.setString("Z", "");
    scheme.setString("S", "\t\n\v\r\"'\\ x");
    scheme.setInt("b", -4);
    scheme.setInt("B", 5);
    scheme.setBool("Z", true);
    scheme.setBool("A", false);
    const std::vector<std::string> keys{"A", "Z", "B", "b", "S", "Z"};
    EXPECT_EQ(keys, scheme.keys());
    const std::string text =
        "Brevis::PropertySet\n1\n\"A \"name\"\"\n1 A 0\n1 Z 1\n2 B 5\n2 b -4\n"
        "3 S \"\\t\\n\\v\\r\\\"\\'\\\\ x\"\n3 Z \"\"\n";
    EXPECT_EQ(text, written(scheme));
    std::istringstream in(text);
    PropertySet back("other");
    back.setInt("GONE", 1);
    back.read(in);
    EXPECT_EQ(scheme, back);
    EXPECT_FALSE(in.fail());
}

TEST(PropertySet, WritesNumbersWhateverTheStreamsFlagsAre) {
    PropertySet scheme("n");
    scheme.setInt("I", 255);
    scheme.setBool("B", true);
    std::ostringstream out;
    out << std::hex << std::boolalpha << std::showbase;
    scheme.write(out);
    EXPECT_EQ("Brevis::PropertySet\n1\n\"n\"\n1 B 1\n2 I 255\n", out.str());
}

// What the properties of a file are read as, in the form that `write` gives; "-" where the file is refused.
struct ReadCase {
    const char* properties;
    const char* expected;
};

class SchemeFileTest : public testing::TestWithParam<ReadCase> {};

TEST_P(SchemeFileTest, ReadsLines) {
    const std::string head = "Brevis::PropertySet\n1\n\"s\"\n";
    std::istringstream in(head + GetParam().properties);
    PropertySet scheme("kept");
    scheme.read(in);
    if (std::string("-") == GetParam().expected) {
        EXPECT_TRUE(in.fail());
        EXPECT_EQ(PropertySet("kept"), scheme);
    } else {
        EXPECT_FALSE(in.fail());
        EXPECT_EQ(head + GetParam().expected, written(scheme));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Properties, SchemeFileTest,
    testing::Values(ReadCase{"\n  \n# 1 A 1\n \t1\tA \t 1 \r\n#\n", "1 A 1\n"},
                    ReadCase{"1 A 1\n1 B 1", "1 A 1\n"},                                 // a last line without a line feed
                    ReadCase{"1 A 2\n1 B x\n1 C\n1\n2 K x\n2\n2 L -12\n", "2 L -12\n"},  // values that don't parse
                    ReadCase{"2 A 2147483648\n2 B -2147483648\n2 C 2147483647\n", "2 B -2147483648\n2 C 2147483647\n"},
                    ReadCase{"2 A 12x # no comment\n1 B 1 1\n", "1 B 1\n2 A 12\n"},
                    ReadCase{"3 K \"a\\\"b\"\n3 L ab\n3 M\n", "3 K \"a\\\"b\"\n3 L \"ab\"\n3 M \"\"\n"},
                    ReadCase{"3 K \"a\" b\n3 L ab cd\n", "3 K \"a\"\n3 L \"ab\"\n"},
                    ReadCase{"3 K \"\\n\\t\\v\\r\\\\\\q\"\n", "3 K \"\\n\\t\\v\\r\\\\q\"\n"},
                    ReadCase{"3 K \\\"ab\\\"\n3 L \\\"\n",
                             "3 K \"ab\"\n3 L \"\\\"\"\n"},                  // unescaped first, then the quotes go
                    ReadCase{"3 K \"a b\n3 L \"\n3 M \"a\\\n3 N \"a\\\"\n",  // no closing quote
                             "3 K \"a b\"\n3 L \"\"\n3 M \"a\"\n3 N \"a\\\"\"\n"},
                    ReadCase{"3 A \"1\"\n3 A \"2\"\n", "3 A \"2\"\n"},  //
                    ReadCase{"1 A 1\n7 K 1\n", "-"}, ReadCase{"0 K 1\n", "-"}, ReadCase{"-1 K 1\n", "-"},
                    ReadCase{"K 1\n", "-"}, ReadCase{"99999999999 K 1\n", "-"}));

TEST(SchemeFile, HeadLines) {
    struct {
        const char* text;
        const char* name;  // null where the file is refused
    } const cases[] = {
        {"# c\n\n  Brevis::PropertySet \r\n 1 \r\n \"a b\" \r\n", "a b"},
        {"Brevis::PropertySet\n1\nbare", "bare"},
        {"Brevis::PropertySet\n1\n\"half\n", "\"half"},
        {"Brevis::PropertySet\n1\n\"\n", "\""},
        {"Brevis::PropertySet\n1\n", ""},
        {"Brevis::PropertySet\n1", ""},
        {"Brevis::PropertySet\n2\n\"a\"\n", nullptr},
        {"Brevis::PropertySet\nx\n\"a\"\n", nullptr},
        {"Brevis::PropertySet\n", nullptr},
        {"Brevis::PropertySets\n1\n\"a\"\n", nullptr},
        {"", nullptr},
    };
    for (const auto& [text, name] : cases) {
        std::istringstream in(text);
        PropertySet scheme("kept");
        scheme.read(in);
        EXPECT_EQ(name == nullptr, in.fail()) << text;
        EXPECT_EQ(name ? name : "kept", scheme.name()) << text;
    }
}

TEST(SchemeFile, AStringPropertyWithoutAKeyThrowsAndChangesNothing) {
    std::istringstream in("Brevis::PropertySet\n1\n\"a\"\n1 A 1\n3\n");
    PropertySet scheme("kept");
    EXPECT_THROW(scheme.read(in), InvalidPropertyName);
    EXPECT_EQ(PropertySet("kept"), scheme);
}

TEST(SchemeReader, TellsWhereAFileIsAtFaultAndWhatItLeavesOut) {
    using Fault = SchemeReader::Fault;
    struct {
        const char* text;
        Fault fault;
        int line;
    } const cases[] = {
        {"\n# c\nint x;\n", Fault::Magic, 3},
        {"Brevis::PropertySet\n\n2\n", Fault::Version, 3},
        {"Brevis::PropertySet\n1\n\"s\"\n\n1 A 1\n8 B 1\n1 C 1\n", Fault::Type, 6},
    };
    for (const auto& [text, fault, line] : cases) {
        std::istringstream in(text);
        PropertySet scheme;
        SchemeReader reader(in);
        EXPECT_FALSE(reader.read(scheme));
        EXPECT_EQ(fault, reader.fault()) << text;
        EXPECT_EQ(line, reader.line()) << text;
    }
    std::istringstream in("Brevis::PropertySet\n1\n\"s\"\n2 A x\n1 B 1\n3 C \"\"");
    PropertySet scheme;
    SchemeReader reader(in);
    ASSERT_TRUE(reader.read(scheme));
    ASSERT_EQ(2u, reader.omissions().size());
    EXPECT_EQ(4, reader.omissions()[0].line);
    EXPECT_EQ(SchemeReader::Omission::BadValue, reader.omissions()[0].why);
    EXPECT_EQ(6, reader.omissions()[1].line);
    EXPECT_EQ(SchemeReader::Omission::NoLineFeed, reader.omissions()[1].why);
}

}  // namespace
}  // namespace Brevis
