// What corvane-infer tells of its search.
#pragma once

#include <string>

#include "inference/BrevisUI_Inference.h"

namespace Console {

// How many lines would change, and why.
std::string inferenceReport(const BrevisUI::InferenceResult& result);

// One key a line, in columns: its value, its places, the share of them that agree, and whether the scheme has it.
std::string inferenceTable(const BrevisUI::InferenceResult& result);

}  // namespace Console
