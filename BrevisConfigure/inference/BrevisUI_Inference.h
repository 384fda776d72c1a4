// What a search for the scheme of a code base starts from and ends with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "scheme/Brevis_FormatterProperties.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

// A text of the code base. Its line ends are line feeds.
struct InferenceText {
    std::string name;
    std::string text;
    Brevis::Reading reading;
};

struct InferenceOptions {
    std::int32_t edition = 2;
    double agreement = 0.9;               // the share of its places that must agree before a key gets a value
    std::size_t sampleBytes = 1'000'000;  // of the texts that the search for flags goes by
};

// How the work is done.
struct InferenceHost {
    // Calls `work` for 0 to `count` - 1, perhaps several at once.
    std::function<void(std::size_t count, const std::function<void(std::size_t)>& work)> forEach;
    // How much of the search is done, from 0 to 1. False gives it up.
    std::function<bool(double share)> goOn;
};

// What the code says of one key.
struct KeyEvidence {
    const Brevis::PropertyInfo* property = nullptr;
    std::string value;  // the best one, escaped, even if it isn't set
    std::uint64_t places = 0;
    std::uint64_t agreeing = 0;  // the places that it leaves alone
    bool isSet = false;
};

// Why lines change all the same.
struct InferenceCause {
    std::string name;  // a key, or a rule without one
    std::uint64_t places = 0;
    std::uint64_t moved = 0;  // lines that move with these
    // One of them: where it is, and the white space before and after, escaped.
    std::string file;
    int line = 0;
    std::string before, after;
};

struct InferenceResult {
    Brevis::PropertySet scheme;
    std::vector<KeyEvidence> keys;       // in the order of the catalogue; those with places
    std::vector<InferenceCause> causes;  // the most frequent first
    std::uint64_t lines = 0;
    std::uint64_t changedLines = 0;
    std::size_t refused = 0;  // texts that can't be read
    bool isCancelled = false;
};

}  // namespace BrevisUI
