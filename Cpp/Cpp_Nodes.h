// All node classes of the syntax tree.
#pragma once

#include "Cpp_CompositeNodes.h"
#include "Cpp_InteriorNodes.h"
#include "Cpp_LeafNodes.h"
