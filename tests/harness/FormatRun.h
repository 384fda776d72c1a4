// What the tests of the whole engine share: one format run on a text in memory, and the views of a text in which
// input and output must be equal. Reads files of the source tree and writes none.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Cpp_Dialect.h"
#include "Trn_ParseMessage.h"
#include "scheme/Brevis_FormatterProperties.h"
#include "scheme/Brevis_PropertySet.h"

namespace Harness {

struct FormatRun {
    bool isFormatted = false;
    std::string text;
    Trn::ParseMessageList messages;
};

// Under sanitizers all is several times as slow, and each frame of the stack several times as big.
inline constexpr bool isSanitized = CORVANE_SANITIZED != 0;

// Exceptions of the engine pass through.
FormatRun formatText(const Brevis::PropertySet& scheme, const std::string& text, const Brevis::Reading& reading = {});

// The classic dialect and no other.
inline constexpr Brevis::Reading classicReading{Brevis::DialectChoice::classic};

// The root of the source tree that the tests were built from.
std::filesystem::path sourceDirectory();

// These throw std::runtime_error with the path when the file can't be read.
std::string readFile(const std::filesystem::path& path);
Brevis::PropertySet readScheme(const std::filesystem::path& path);
// A scheme of the golden cases, which has the old shipped schemes of the first edition as first_..., or a shipped one.
Brevis::PropertySet readSchemeNamed(const std::string& name);

std::string withoutWhiteSpace(std::string_view text);
// One line a token: its number and its text without white space.
std::string tokenLines(std::string text, Cpp::Dialect dialect = Cpp::Dialect::classic);
// One line a message: position, severity, code, text.
std::string messageLines(const Trn::ParseMessageList& messages);

// What a successful run must keep whatever the scheme says. Empty if all is well, else what was lost.
std::string lossIn(const std::string& input, const std::string& output,
                   Cpp::Dialect dialect = Cpp::Dialect::classic);

// A list of known exceptions: lines `NAME: REASON`, `#` starts a comment line. Gives the names; throws
// std::runtime_error for a line without a reason.
std::vector<std::string> readExceptions(const std::filesystem::path& path);

}  // namespace Harness
