// Cases for the lexer and the parser from plain text files, tests/Cpp/FOLDER/*.txt, found when the tests run:
//
//     What the file is about.
//
//     == a heading for a group of cases
//     What there is to say about the group.
//
//     int x;
//     -> what comes out, which may go on in lines
//        indented by three, each in place of a blank
//     ! the reports, if there are any
//
// Blank lines part the cases. A source ends in front of the line feed before its first mark, so one that ends with a
// line feed shows an empty line there.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "Cpp_Dialect.h"

namespace Cpp {

struct TextCase {
    int line = 0;  // where the source begins
    std::string source;
    std::map<std::string, std::string> expected{{"!", ""}};  // by mark: `->`, `@` and always `!`
};

struct CaseGroup {
    std::string file;
    std::string name;  // of file and group, with nothing but letters, digits and `_`
    std::vector<TextCase> cases;
    std::string fault;  // what is wrong with the file, in place of its cases

    // In the modern dialect; the files c.txt have C.
    Language language() const { return file.ends_with("/c.txt") ? Language::c : Language::cpp; }
};

// What gtest asks for: how to print a group, and how to name its test.
inline void PrintTo(const CaseGroup& group, std::ostream* os) { *os << group.name; }
inline std::string groupName(const testing::TestParamInfo<CaseGroup>& info) { return info.param.name; }

// Never empty: what can't be read becomes a group with a fault.
std::vector<CaseGroup> readCaseGroups(const std::string& folder);

}  // namespace Cpp
