// The lines of a branch that was read as one token with its directives.
#pragma once

#include <string>
#include <string_view>

namespace Brevis {

// Whether a directive begins such a branch, of which lines can be moved: its text goes on behind the line without a
// backslash, and holds no raw literal.
bool holdsBranch(std::string_view directive);

enum class BranchMatch { FirstLine, AnyLine };

// Whether a line of the branch, or its first one, begins in the column, without those of directives.
bool hasLineIn(std::string_view branch, int column, int tabSize, BranchMatch match);

// The branch with all such lines moved to the right, or to the left if `shift` is negative. Directives stay, with the
// lines that go on with them. Indents are made of tabs where that is wanted or a line begins with one.
std::string movedBranch(std::string_view branch, int shift, int tabSize, bool wantsTabs);

}  // namespace Brevis
