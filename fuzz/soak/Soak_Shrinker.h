// Makes a failing text and its scheme small: leaves out ever smaller runs of lines, of properties and of words as long
// as the failure stays.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "scheme/Brevis_FormatterProperties.h"

namespace Soak {

struct Sample {
    std::string text;
    Brevis::PropertySet scheme;
    Brevis::Reading reading{};
};

class Shrinker {
public:
    using Fails = std::function<bool(const Sample&)>;

    // Tries are made until they have gone through `budget` bytes of text.
    Shrinker(Fails fails, std::size_t budget) : fails_(std::move(fails)), budget_(budget) {}

    // `sample` fails, and so does what comes back.
    Sample shrink(Sample sample);

private:
    bool tryIt(const Sample& sample);
    void shrinkText(Sample& sample, bool byWords);
    void shrinkScheme(Sample& sample);
    // Pieces, and how to make a sample of those that are left.
    template <class Piece, class Make>
    void leaveOut(std::vector<Piece>& pieces, Sample& sample, Make make);

    Fails fails_;
    std::size_t budget_;
};

}  // namespace Soak
