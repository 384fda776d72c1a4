// The words for what a scheme reader finds.
#include "scheme/Brevis_SchemeText.h"

#include <sstream>

#include "scheme/Brevis_SchemeReader.h"

namespace Brevis {

namespace {

constexpr int warning = 2, error = 3;

std::string describe(SchemeReader::Fault fault) {
    switch (fault) {
        case SchemeReader::Fault::Magic:
            return "This is no scheme file: it doesn't begin with the line \"Brevis::PropertySet\".";
        case SchemeReader::Fault::Version:
            return "Expected the format version 1 in a line of its own.";
        case SchemeReader::Fault::Type:
            return "Expected a property, which begins with the type 1, 2 or 3.";
        default:
            return "The scheme file cannot be read.";
    }
}

std::string describe(SchemeReader::Omission omission) {
    switch (omission) {
        case SchemeReader::Omission::NoLineFeed:
            return "The property is left out: the last line of a scheme file needs a line feed.";
        default:
            return "The property is left out: its value doesn't fit its type.";
    }
}

}  // namespace

bool readSchemeText(const std::string& text, PropertySet& scheme, Trn::ParseMessageList& messages) {
    std::istringstream in(text);
    SchemeReader reader(in);
    const auto fail = [&](std::string complaint) {
        messages.push_back({error, {reader.line(), 0}, 0, std::move(complaint)});
        return false;
    };
    try {
        if (!reader.read(scheme)) return fail(describe(reader.fault()));
    } catch (const Trn::Exception&) {
        return fail("Expected a key behind the type 3.");
    }
    for (const auto& [line, why] : reader.omissions()) messages.push_back({warning, {line, 0}, 0, describe(why)});
    return true;
}

}  // namespace Brevis
