// The lines of a branch that was read as one token with its directives.
#pragma once

#include <string>
#include <string_view>

namespace Brevis {

// Whether a directive begins such a branch, of which lines can be moved: its text goes on behind the line without a
// backslash, and holds no raw literal.
bool holdsBranch(std::string_view directive);

// The column in which its first line begins that is no directive; -1 if there is none.
int firstColumn(std::string_view branch, int tabSize);

// The branch with all such lines moved to the right, or to the left if `shift` is negative. Directives stay, with the
// lines that go on with them. Indents are made of tabs where that is wanted or a line begins with one. Nothing moves if
// one of them can't.
std::string movedBranch(std::string_view branch, int shift, int tabSize, bool wantsTabs);

// Without white space at line ends, but for those that a backslash goes on with.
std::string trimmedBranch(std::string_view branch);

}  // namespace Brevis
