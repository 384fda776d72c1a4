// Line ends outside the engine, and the texts that it must not see.
#include "BrevisUI_LineEnds.h"

#include <gtest/gtest.h>

#include "BrevisUI_Encoding.h"

namespace BrevisUI {
namespace {

TEST(LineEnds, EachLineKeepsItsOwn) {
    using Mode = LineEndMode;
    const struct {
        const char* source;
        const char* formatted;
        Mode mode;
        const char* expected;
    } cases[] = {
        {"a\nb", "a\nb\n", Mode::Keep, "a\nb\n"},
        {"a\r\n  b\r\n", "a\n\nb\n", Mode::Keep, "a\r\n\r\nb\r\n"},
        {"a\rb\r", "a\n b\n", Mode::Keep, "a\r b\r"},
        // The lines of the source are known again by what stands in front of them.
        {"a;\nb;\r\nc;\n{d}\r\n", "a;\nb;\nc;\n{\nd\n}\n", Mode::Keep, "a;\nb;\r\nc;\n{\nd\n}\r\n"},
        {"a b\r\nc\nd\r\n", "a\nb c\nd\n", Mode::Keep, "a\r\nb c\nd\r\n"},
        {"a\r\n\n\r\nb\n\n", "a\n\nb\n\n", Mode::Keep, "a\r\n\nb\n\n"},
        // A new line feed behind a lone carriage return would vanish in it.
        {"a\rb\nc\n", "a\n\nb\nc\n", Mode::Keep, "a\r\r\nb\nc\n"},
        {"a\nb\r\n", "a\nb\n", Mode::CarriageReturnLineFeed, "a\r\nb\r\n"},
        {"a\r\nb\r\n", "a\nb\n", Mode::LineFeed, "a\nb\n"},
        {"a\r\nb\r\n", "a\nb\n", Mode::Native, "a\nb\n"},
        {"", "", Mode::CarriageReturnLineFeed, ""},
    };
    for (const auto& [source, formatted, mode, expected] : cases) {
        EXPECT_EQ(expected, LineEnds::restore(source, formatted, mode)) << testing::PrintToString(source);
    }
}

TEST(Encoding, TellsTextsThatAreNoBytes) {
    using namespace std::string_literals;
    const struct {
        std::string text;
        Encoding encoding;
    } cases[] = {
        {"int x;", Encoding::Bytes},
        {"\xef\xbb\xbfint x;", Encoding::Bytes},
        {"// \xe4\xff\xfe", Encoding::Bytes},
        {"", Encoding::Bytes},
        {"\xff\xfei\0n\0t\0"s, Encoding::Utf16},
        {"\xfe\xff\x4e\x2d", Encoding::Utf16},
        {"i\0n\0t\0 \0x\0;\0\n\0"s, Encoding::Utf16},
        {"\0i\0n\0t\0 \0x\0;\0\n"s, Encoding::Utf16},
        {"\0\0\xfe\xff\0\0\0i"s, Encoding::Utf16},
        {"int x;\0"s, Encoding::Nul},
        {"\0\0\0\0"s, Encoding::Nul},
    };
    for (const auto& [text, encoding] : cases) EXPECT_EQ(encoding, encodingOf(text)) << testing::PrintToString(text);
}

}  // namespace
}  // namespace BrevisUI
