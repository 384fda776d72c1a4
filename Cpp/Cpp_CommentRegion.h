// The comments that mark a stretch of source as not to be formatted. Such regions nest.
#pragma once

#include <string_view>

#include "Cpp_CharClasses.h"
#include "Cpp_LeafNodes.h"

namespace Cpp {

inline constexpr std::string_view commentRegionOff = "CORVANE-OFF";
inline constexpr std::string_view commentRegionOn = "CORVANE-ON";

// What stands between the delimiters of a comment, without outer white space: compared with the markers of regions.
inline std::string_view markerOf(std::string_view comment) { return trimmed(bodyOfComment(comment)); }

inline bool opensCommentRegion(std::string_view marker) { return marker == commentRegionOff; }

// The change of depth that a comment inside a region makes.
inline int commentRegionStep(std::string_view marker) {
    if (marker.starts_with(commentRegionOff)) return 1;
    return marker == commentRegionOn ? -1 : 0;
}

}  // namespace Cpp
