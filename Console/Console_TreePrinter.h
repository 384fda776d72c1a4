// Writes a syntax tree as text, one node a line, for people who debug the parser and for tests that compare trees.
#pragma once

#include <string>

#include "Cpp_Nodes.h"

namespace Console {

// A line is two blanks for each level, the class name, the positions as `L:C-L:C`, what the class holds besides, and
// the escaped text in quotes. Single members come in front of children, absent ones not at all.
//
// The tree is not changed; it is taken by reference since visits may change what they see.
std::string printTree(Cpp::RootNode& root);

// A position as `L:C`.
std::string printPosition(Trn::Position position);

}  // namespace Console
