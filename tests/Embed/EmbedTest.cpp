// The public headers: what they promise about schemes, results and errors.
#include <corvane/format.h>
#include <gtest/gtest.h>

#include <future>

namespace corvane {
namespace {

constexpr const char* head = "Brevis::PropertySet\n1\n\"mine\"\n";

TEST(EmbeddedScheme, IsSetReadAndWritten) {
    Scheme scheme;
    scheme.setName("mine");
    EXPECT_TRUE(scheme.set("LINE_WRAP", true));
    EXPECT_TRUE(scheme.set("TAB_SIZE", 3));
    EXPECT_TRUE(scheme.set("INDENT_FN_CONTENT", "\t"));
    EXPECT_FALSE(scheme.set("TAB_SIZE", "3"));
    EXPECT_FALSE(scheme.set("LINE_WRAP", 1));
    EXPECT_FALSE(scheme.set("TAB_SIZES", 3));
    EXPECT_FALSE(scheme.set("", true));
    EXPECT_EQ(std::string(head) + "1 LINE_WRAP 1\n2 TAB_SIZE 3\n3 INDENT_FN_CONTENT \"\\t\"\n", scheme.text());

    const SchemeResult again = Scheme::parse(scheme.text());
    ASSERT_TRUE(again);
    EXPECT_EQ(scheme, *again.scheme);
    Scheme copy = scheme;
    EXPECT_TRUE(copy.remove("TAB_SIZE"));
    EXPECT_FALSE(copy.remove("TAB_SIZE"));
    EXPECT_EQ(std::nullopt, copy.get("TAB_SIZE"));
    EXPECT_EQ(Scheme::Value(3), scheme.get("TAB_SIZE"));
    EXPECT_NE(scheme, copy);
}

TEST(EmbeddedScheme, TellsWhatIsWrongWithAFile) {
    const struct {
        std::string text;
        bool isGood;
        Severity severity;
        int line;
    } cases[] = {
        {"int x;\n", false, Severity::Error, 1},
        {std::string(head) + "3\n", false, Severity::Error, 4},
        {std::string(head) + "\n2 TAB_SIZE x\n", true, Severity::Warning, 5},
        {std::string(head) + "2 TAB_SIZES 4\n", true, Severity::Information, 0},
    };
    for (const auto& [text, isGood, severity, line] : cases) {
        const SchemeResult result = Scheme::parse(text);
        EXPECT_EQ(isGood, bool(result)) << text;
        ASSERT_EQ(1u, result.messages.size()) << text;
        EXPECT_EQ(severity, result.messages[0].severity) << text;
        EXPECT_EQ(line, result.messages[0].line) << text;
    }
    for (const char* path : {"/", "/nowhere.fsc"}) {
        const SchemeResult result = Scheme::load(path);
        EXPECT_FALSE(result);
        EXPECT_EQ("The scheme file \"" + std::string(path) + "\" cannot be read.", result.messages.at(0).text);
    }
}

TEST(EmbeddedScheme, ComesWithTheLibrary) {
    EXPECT_EQ((std::vector<std::string>{"Corvane", "Allman", "Chromium", "GNU", "Google", "K&R", "LLVM", "Linux",
                                        "Microsoft", "Mozilla", "WebKit", "Whitesmiths"}),
              Scheme::shippedNames());
    for (const std::string& name : Scheme::shippedNames()) EXPECT_EQ(name, Scheme::shipped(name).value().name());
    EXPECT_FALSE(Scheme::shipped("corvane"));
}

TEST(EmbeddedFormat, GivesTextMessagesAndSeams) {
    Scheme scheme;
    ASSERT_TRUE(scheme.set("WS_BETWEEN_EXPR_OP_OPERANDS", ""));
    const FormatResult good = format("int a = b + 1 / *c;\r\n", scheme);
    EXPECT_EQ(Outcome::Formatted, good.outcome);
    EXPECT_EQ("int a=b+1/ *c;\n", good.text);
    EXPECT_EQ(1u, good.seams);
    EXPECT_TRUE(good.messages.empty());
    EXPECT_EQ("", format("", scheme).text);

    const FormatResult refused = format("int a;\n\tint b }\n", scheme);
    EXPECT_EQ(Outcome::Refused, refused.outcome);
    EXPECT_EQ("", refused.text);
    ASSERT_EQ(1u, refused.messages.size());
    EXPECT_EQ(0, refused.messages[0].code);
    EXPECT_EQ(2, refused.messages[0].line);
    EXPECT_EQ(8, refused.messages[0].column);
    EXPECT_EQ("This bracket has no partner.", refused.messages[0].text);

    EXPECT_THROW(format(std::string(1u << 12, '{'), scheme), Error);
}

TEST(EmbeddedFormat, MayRunInSeveralThreads) {
    const Scheme shared = Scheme::shipped("Allman").value();
    const std::string source = "int f(int a,int b){if(a<b)return a;return b;}\n";
    const std::string wanted = format(source, shared).text;
    std::vector<std::future<std::string>> runs(50);
    for (auto& run : runs) run = std::async(std::launch::async, [&] { return format(source, shared).text; });
    for (auto& run : runs) EXPECT_EQ(wanted, run.get());
}

}  // namespace
}  // namespace corvane
